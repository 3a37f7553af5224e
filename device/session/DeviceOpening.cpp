// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "session/DeviceOpening.h"

#include "base/StatusCodes.h"
#include "network/FileDescriptor.h"
#include "network/GigeProbe.h"
#include "network/Ipv4.h"
#include "network/OwnSockets.h"
#include "network/SourceFilter.h"
#include "session/DeviceErrors.h"
#include "session/UsbOpening.h"
#include "words/Words.h"

#include <sys/socket.h>

#include <algorithm>

namespace zqcameralib {

namespace {

using DevicePointer = GObjectPointer<ArvDevice>;

constexpr int openTries = 2;
/// As of a file. The library asks for as much memory as the camera states, or ends the program.
constexpr std::uint64_t largestDescription = 32U << 20U;

/// The local address from which the network reaches `device`; empty when it does not. Nothing is
/// sent.
std::string localAddressFor(const in_addr& device)
{
    const FileDescriptor channel(socket(AF_INET, SOCK_DGRAM, 0));
    sockaddr_in peer {};
    peer.sin_family = AF_INET;
    peer.sin_addr = device;
    peer.sin_port = htons(controlPort);
    if (connect(channel.get(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0) {
        return {};
    }
    const std::optional<sockaddr_in> own = boundTo(channel.get());
    return own ? ipv4Text(own->sin_addr) : std::string();
}

/// The socket of the device that `open` makes hears no other address than the camera's from then
/// on. The library shows it to nobody, but it is the one that was not there before.
template <typename Open>
DevicePointer openFiltered(const std::string& local, const std::string& address, Open open)
{
    const std::vector<int> before = looseSockets(local);
    DevicePointer device(open());
    std::vector<int> added;
    for (const int handle : looseSockets(local)) {
        if (std::find(before.begin(), before.end(), handle) == before.end()) {
            added.push_back(handle);
        }
    }
    if (device != nullptr && added.size() == 1) {
        hearOnly(added.front(), address);
    }
    return device;
}

DevicePointer openGigE(const std::string& address, GError** error)
{
    const std::optional<in_addr> device = parseIpv4(address);
    const std::string local = device ? localAddressFor(*device) : std::string();
    if (local.empty()) {
        g_set_error_literal(error, arv_device_error_quark(), ARV_DEVICE_ERROR_NOT_FOUND,
            translated("no network leads to it").text().c_str());
        return nullptr;
    }
    const GObjectPointer<GInetAddress> from(g_inet_address_new_from_string(local.c_str()));
    const GObjectPointer<GInetAddress> to(g_inet_address_new_from_string(address.c_str()));
    return openFiltered(
        local, address, [&] { return arv_gv_device_new(from.get(), to.get(), error); });
}

/// Packets of 512 bytes, and some for the rest.
std::int64_t expectedTime(const GigeProbe& probe)
{
    return probe.roundTrip.count() * static_cast<std::int64_t>(probe.descriptionSize / 512 + 30);
}

} // namespace

Status askForAnswer(const CameraPlace& place, OpeningProgress& progress)
{
    if (place.isUsb()) {
        return {};
    }
    progress.step = OpeningProgress::Step::Asking;
    const GigeProbe probe = probeGige(place.address, progress.isCancelled);
    progress.expectedMs = expectedTime(probe);
    if (probe.descriptionSize > largestDescription) {
        return { notLoaded,
            place.words(worded("the camera states an impossible size of its description, %s bytes",
                std::to_string(probe.descriptionSize).c_str())) };
    }
    switch (probe.answer) {
    case GigeProbe::Answer::NoWay:
        return { cameraLost,
            place.words(translated("no network of this computer leads to this address")) };
    case GigeProbe::Answer::None:
        return { cameraLost,
            place.words(
                translated("no camera answers there; check power, cable and the address")) };
    case GigeProbe::Answer::Waits:
        return { cameraLost, place.words(translated("the camera is busy and asks to wait")) };
    case GigeProbe::Answer::Refused:
    case GigeProbe::Answer::Given:
        break;
    }
    return {};
}

Result<DevicePointer> openDevice(const CameraPlace& place, OpeningProgress& progress)
{
    if (place.isUsb()) {
        Result<DevicePointer> opened = openUsb(place.address);
        return opened.isOk() ? std::move(opened)
                             : opened.status().withText(place.words(opened.status().words()));
    }
    for (int tries = 1;; ++tries) {
        GlibError failure;
        DevicePointer device = openGigE(place.address, failure.out());
        if (device) {
            return device;
        }
        if (progress.isCancelled || tries == openTries || !isDescriptionMissing(failure)) {
            const Status why = openingFailure(failure);
            return why.withText(place.words(why.words()));
        }
    }
}

} // namespace zqcameralib
