// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "registers/RegisterBackend.h"

#include <arv.h>

#include <cstdint>
#include <memory>
#include <string_view>

/// What the library below does by itself: an Aravis device straight over the same registers,
/// without the snapshot, the checks and the records of ours. The yardstick of the benchmarks.
class RawDevice {
public:
    /// `backend` has to outlive it.
    RawDevice(zqcameralib::RegisterBackend& backend, std::string_view xml);
    RawDevice(const RawDevice&) = delete;
    RawDevice& operator=(const RawDevice&) = delete;
    ~RawDevice();

    ArvGc* nodeMap() const;
    /// Accesses so far.
    std::uint64_t accesses() const;
    /// Reads value, limits, access and entries of one feature, as a plain application would.
    void readFacts(const char* name) const;

private:
    ArvDevice* m_device;
};
