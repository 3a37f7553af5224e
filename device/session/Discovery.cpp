// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "session/Discovery.h"

#include "base/LibraryLock.h"
#include "network/Ipv4.h"
#include "usb/UsbPermission.h"
#include "words/Words.h"

#include <arv.h>
#include <ifaddrs.h>
#include <net/if.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>

namespace zqcameralib {

namespace {

/// How long a search that another thread does is waited for.
constexpr std::chrono::seconds searchLimit(20);

std::mutex lastFoundMutex;

std::vector<CameraInfo>& lastFound()
{
    static std::vector<CameraInfo> found;
    return found;
}

struct FreeInterfaces {
    void operator()(ifaddrs* all) const { freeifaddrs(all); }
};

std::unique_ptr<ifaddrs, FreeInterfaces> networkInterfaces()
{
    ifaddrs* all = nullptr;
    return std::unique_ptr<ifaddrs, FreeInterfaces>(getifaddrs(&all) == 0 ? all : nullptr);
}

in_addr_t addressOf(const sockaddr* address)
{
    return reinterpret_cast<const sockaddr_in*>(address)->sin_addr.s_addr;
}

bool isUp(const ifaddrs& interface)
{
    return interface.ifa_addr != nullptr && interface.ifa_netmask != nullptr
        && interface.ifa_addr->sa_family == AF_INET && (interface.ifa_flags & IFF_UP) != 0;
}

bool leadsTo(const ifaddrs& interface, in_addr_t address)
{
    const in_addr_t mask = addressOf(interface.ifa_netmask);
    return (addressOf(interface.ifa_addr) & mask) == (address & mask);
}

/// "192.168.0.6 (eth0)" for each network of this computer in which a camera could be.
std::string possibleAddresses(const ifaddrs* all)
{
    std::string text;
    for (const ifaddrs* at = all; at != nullptr; at = at->ifa_next) {
        if (!isUp(*at) || (at->ifa_flags & IFF_LOOPBACK) != 0) {
            continue;
        }
        const auto beside
            = addressBeside({ addressOf(at->ifa_addr) }, { addressOf(at->ifa_netmask) });
        if (beside) {
            text += (text.empty() ? "" : ", ") + ipv4Text(*beside) + " (" + at->ifa_name + ")";
        }
    }
    return text;
}

/// Empty where an interface of this computer is part of the network of `address`.
Words whyUnreachable(const std::string& address)
{
    const std::optional<in_addr> camera = parseIpv4(address);
    const auto all = networkInterfaces();
    for (const ifaddrs* at = all.get(); at != nullptr && camera; at = at->ifa_next) {
        if (isUp(*at) && leadsTo(*at, camera->s_addr)) {
            return {};
        }
    }
    const std::string possible = possibleAddresses(all.get());
    return worded("the camera has the address %s, which no network of this computer leads to",
               address.c_str())
        + "; "
        + (possible.empty()
                ? translated("no network is up in which a camera could be")
                : translated("one that would be reached, if it is free") + ": " + possible);
}

std::string textOf(const char* text)
{
    return text == nullptr ? std::string() : text;
}

void search(ArvInterface* interface, const std::string& protocol, std::vector<CameraInfo>& found)
{
    arv_interface_update_device_list(interface);
    const unsigned count = arv_interface_get_n_devices(interface);
    for (unsigned i = 0; i < count; ++i) {
        CameraInfo camera;
        camera.id = textOf(arv_interface_get_device_id(interface, i));
        camera.vendor = textOf(arv_interface_get_device_vendor(interface, i));
        camera.model = textOf(arv_interface_get_device_model(interface, i));
        camera.serial = textOf(arv_interface_get_device_serial_nbr(interface, i));
        camera.address = textOf(arv_interface_get_device_address(interface, i));
        camera.protocol = protocol;
        camera.hint = protocol == "GigEVision" ? whyUnreachable(camera.address) : Words();
        camera.reachable = camera.hint.empty();
        found.push_back(std::move(camera));
    }
}

bool isWanted(const std::vector<std::string>& interfaces, const char* name)
{
    return interfaces.empty()
        || std::find(interfaces.begin(), interfaces.end(), name) != interfaces.end();
}

bool lookUp(const std::string& id, CameraInfo& camera)
{
    const std::lock_guard<std::mutex> lock(lastFoundMutex);
    const std::vector<CameraInfo>& all = lastFound();
    const auto found = std::find_if(
        all.begin(), all.end(), [&id](const CameraInfo& known) { return known.id == id; });
    if (found == all.end()) {
        return false;
    }
    camera = *found;
    return true;
}

} // namespace

std::vector<CameraInfo> discoverCameras(const std::vector<std::string>& interfaces)
{
    const LibraryLock lists(LibraryPart::Interfaces, LibraryLock::Clock::now() + searchLimit);
    std::vector<CameraInfo> found;
    if (!lists) {
        return found;
    }
    if (isWanted(interfaces, "GigEVision")) {
        search(arv_gv_interface_get_instance(), "GigEVision", found);
    }
    if (isWanted(interfaces, "USB3Vision")) {
        search(arv_uv_interface_get_instance(), "USB3Vision", found);
    }
    const std::lock_guard<std::mutex> lock(lastFoundMutex);
    lastFound() = found;
    return found;
}

bool findCamera(const std::string& id, CameraPlace& place, std::string& error)
{
    if (parseIpv4(id)) {
        place = { "GigEVision", id };
        return true;
    }
    CameraInfo camera;
    if (!lookUp(id, camera)) {
        discoverCameras({});
        if (!lookUp(id, camera)) {
            const Words unpermitted = unpermittedUsbCameras();
            error = id + ": " + translated("no such camera found")
                + (unpermitted.empty() ? "" : "; ") + unpermitted;
            return false;
        }
    }
    if (!camera.reachable) {
        error = id + ": " + camera.hint;
        return false;
    }
    place = { camera.protocol, camera.protocol == "GigEVision" ? camera.address : camera.id };
    return true;
}

} // namespace zqcameralib
