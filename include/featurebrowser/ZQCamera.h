#pragma once

#include "Export.h"

#include <memory>
#include <string>

namespace zqcameralib {

/// One open camera. Closed by its destructor. One thread at a time.
class ZQ_EXPORT ZQCamera {
public:
    class Impl;

    /// Opens the built-in simulated area-scan camera. Runs in process: no hardware, no discovery,
    /// no network traffic. Returns null and sets `error` to one line for the user on failure.
    static std::unique_ptr<ZQCamera> OpenSimulated(std::string& error);

    /// Opens any GenICam description as a simulated camera over a memory of its own: schema 1.0 or
    /// 1.1, plain or zipped XML, with or without a byte-order mark or a line of text before it.
    /// Registers never written read as zero, except that those which decide whether features are
    /// implemented or available start at values that make them so. In process as OpenSimulated.
    /// Returns null and sets `error` to one line for the user when the file is missing, empty,
    /// truncated, malformed or not a description.
    static std::unique_ptr<ZQCamera> OpenDescription(const std::string& path, std::string& error);

    /// Takes over an opened camera; made by the Open functions.
    explicit ZQCamera(std::unique_ptr<Impl> impl);
    ZQCamera(const ZQCamera&) = delete;
    ZQCamera& operator=(const ZQCamera&) = delete;
    ~ZQCamera();

    /// Vendor and model as the camera gives them, for a window title. UTF-8.
    std::string vendor() const;
    std::string model() const;

    /// The library's own side of the camera.
    Impl& impl();

private:
    std::unique_ptr<Impl> m_impl;
};

/// Finds cameras. Nothing is sent on a network before discovery is asked for.
class ZQ_EXPORT ZQDiscovery {
public:
    ZQDiscovery();
    ZQDiscovery(const ZQDiscovery&) = delete;
    ZQDiscovery& operator=(const ZQDiscovery&) = delete;
    ~ZQDiscovery();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace zqcameralib
