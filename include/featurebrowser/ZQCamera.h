#pragma once

#include "Export.h"

#include <memory>
#include <string>
#include <vector>

namespace zqcameralib {

/// How a camera on a network or bus is opened.
enum class CameraAccess {
    Control, ///< read and write; an error when another application controls the camera
    ControlOrReadOnly, ///< read only when another application controls the camera
    ReadOnly ///< read only; leaves the control to other applications
};

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

    /// Opens a camera: `id` as ZQDiscovery lists it, or the IPv4 address of a GigE Vision camera.
    /// An address is asked directly; an id that no discovery has listed yet starts one. Blocks for
    /// a few seconds at most. Returns null and sets `error` to one line for the user on failure.
    static std::unique_ptr<ZQCamera> Open(
        const std::string& id, CameraAccess access, std::string& error);

    /// Takes over an opened camera; made by the Open functions.
    explicit ZQCamera(std::unique_ptr<Impl> impl);
    ZQCamera(const ZQCamera&) = delete;
    ZQCamera& operator=(const ZQCamera&) = delete;
    ~ZQCamera();

    /// Vendor and model as the camera gives them, for a window title. UTF-8.
    std::string vendor() const;
    std::string model() const;

    /// Whether the camera does not answer any more, or its control was lost. From then on every
    /// operation fails at once with one and the same error, whose text tells which of these, until
    /// reconnect() succeeds. Simulated cameras are never lost. Learnt from accesses that fail, or
    /// that take 1.2 s together without some seconds of peace between them (a lost packet costs
    /// 0.5 s).
    bool isLost() const;
    /// Tries once to find a lost camera again: takes its control back, else opens it anew. Waits at
    /// most 1.2 s; an attempt that lasts longer goes on behind, and the next call tells how it
    /// ended. True when the camera is there; what the repository holds is then to be loaded again.
    bool reconnect(std::string& error);
    /// Whether this session cannot write.
    bool isReadOnly() const;

    /// The library's own side of the camera.
    Impl& impl();

private:
    std::unique_ptr<Impl> m_impl;
};

/// A camera as discovery finds it. All texts as the camera gives them.
struct CameraInfo {
    std::string id; ///< for ZQCamera::Open
    std::string vendor;
    std::string model;
    std::string serial;
    std::string protocol; ///< "GigEVision" or "USB3Vision"
    std::string address; ///< IPv4 address, or place on the bus
    bool reachable = false; ///< false: on a network that no interface of this computer is part of
};

/// Finds cameras. Nothing is sent on a network before discovery is asked for.
class ZQ_EXPORT ZQDiscovery {
public:
    ZQDiscovery();
    ZQDiscovery(const ZQDiscovery&) = delete;
    ZQDiscovery& operator=(const ZQDiscovery&) = delete;
    ~ZQDiscovery();

    /// What discover() can search.
    static std::vector<std::string> interfaces();
    /// Searches the given interfaces, all when none is given, for about a second: sends a broadcast
    /// on every network for "GigEVision". Unknown names are ignored. Any thread, one at a time.
    std::vector<CameraInfo> discover(const std::vector<std::string>& interfaces = {});
    /// What the last discover() has found.
    const std::vector<CameraInfo>& cameras() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace zqcameralib
