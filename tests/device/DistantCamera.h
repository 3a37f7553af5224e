// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/StatusCodes.h"
#include "memory/MemoryBackend.h"

#include <cstdint>
#include <optional>

/// A camera in memory whose registers are read together where that is possible, as those of a real
/// one are. Counts accesses; from the one it is told on, that register fails.
class DistantCamera : public zqcameralib::MemoryBackend {
public:
    using MemoryBackend::MemoryBackend;

    bool prefersBatches() const override { return true; }
    zqcameralib::Status read(const zqcameralib::Register& place, std::uint8_t* buffer,
        zqcameralib::AccessKind kind) override
    {
        ++alone;
        return readOne(place, buffer, kind);
    }
    void readTogether(std::vector<Request>& requests) override
    {
        for (Request& request : requests) {
            ++together;
            request.isDone = readOne(request.place, request.bytes.data(), request.kind).isOk();
            if (!request.isDone) {
                return;
            }
        }
    }

    std::uint64_t accesses() const { return alone + together; }
    void reset(std::uint64_t nextFailing)
    {
        alone = together = 0;
        m_failing = nextFailing;
        m_broken.reset();
    }

    std::uint64_t alone = 0;
    std::uint64_t together = 0;

private:
    zqcameralib::Status readOne(
        const zqcameralib::Register& place, std::uint8_t* buffer, zqcameralib::AccessKind kind)
    {
        if (accesses() == m_failing) {
            m_broken = place.address;
        }
        if (m_broken == place.address) {
            return { zqcameralib::injectedFault, "injected fault" };
        }
        return MemoryBackend::read(place, buffer, kind);
    }

    std::uint64_t m_failing = 0; ///< counted from 1; 0 is none
    std::optional<std::uint64_t> m_broken; ///< its address
};
