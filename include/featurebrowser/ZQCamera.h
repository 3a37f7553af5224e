// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "ZQCameraTask.h"

#include <chrono>
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

/// One open camera. Closed by its destructor, which waits for a camera that still answers at most
/// a second. One thread at a time.
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
    /// An address is asked directly; an id that no discovery has listed yet starts one, which takes
    /// about a second. Waits as long as the camera needs to hand out its description: milliseconds
    /// near by, a minute and more where each of its thousands of packets takes 0.1 s. A camera that
    /// does not answer at all is told after 1.3 s, one that stops answering within some seconds,
    /// and one that only asks to wait after 2.5 s. Cameras are opened one at a time: another one
    /// that comes to no end is waited for 60 s. Returns null and sets `error` to one line for the
    /// user on failure.
    static std::unique_ptr<ZQCamera> Open(
        const std::string& id, CameraAccess access, std::string& error);
    /// The same beside the caller.
    static std::unique_ptr<ZQCameraOpening> OpenBeside(const std::string& id, CameraAccess access);

    /// Takes over an opened camera; made by the Open functions.
    explicit ZQCamera(std::unique_ptr<Impl> impl);
    ZQCamera(const ZQCamera&) = delete;
    ZQCamera& operator=(const ZQCamera&) = delete;
    ~ZQCamera();

    /// Vendor and model as the camera gives them, for a window title. UTF-8.
    std::string vendor() const;
    std::string model() const;
    /// The camera's GenICam description as XML in UTF-8, laid out anew.
    std::string description() const;
    /// What this library is built on, for reports: "ZQDeviceManager 1.3.0, Aravis 0.8.26".
    static std::string versions();

    /// Whether the camera does not answer, or its control was lost. Meanwhile every operation fails
    /// at once with one and the same error, whose text tells which of these. Simulated cameras are
    /// never lost; a camera that is only slow is not either.
    ///
    /// It counts as lost while one access has been waiting for 1.15 s, and is there again when the
    /// answer comes after all. When all tries of an access (about 2.5 s) were in vain, or the
    /// control was lost, only reconnect() finds it. Learnt from what is asked, and from one access
    /// a second when nothing is.
    bool isLost() const;
    /// Tries once to find a lost camera again: takes its control back, else opens it anew. Waits at
    /// most 1.2 s; a search that lasts longer goes on behind, and the next call tells how it
    /// ended. True when the camera is there; what the repository holds is then to be loaded again.
    /// An acquisition that was running is ended.
    ///
    /// When there is another camera in its place, or one with another description, the features
    /// become those of that camera, and every repository of it is empty until it is loaded.
    bool reconnect(std::string& error);
    /// From now on until the next call, all operations on the camera together wait for it at most
    /// `total`; what comes later fails at once. 0: no such limit, which is the start. An
    /// application calls it at the start of every turn of its event loop, so that its window goes
    /// on answering; what a turn had no time for is read by ZQCameraRepository::ReadAhead. Opening
    /// is not limited.
    void limitWaiting(std::chrono::milliseconds total);
    /// Whether this session cannot write.
    bool isReadOnly() const;

    /// The library's own side of the camera; valid as long as this.
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
    /// Why it is not reachable and what address would be, one line; empty where it is.
    std::string hint;
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
    /// What the last discover() has found. The list is valid until the next discover().
    const std::vector<CameraInfo>& cameras() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace zqcameralib
