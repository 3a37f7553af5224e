// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <libusb.h>

#include <array>
#include <condition_variable>
#include <cstdint>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A USB3 Vision camera as its two pipes show it: commands and their answers, and the stream.
class UsbCamera {
public:
    using Bytes = std::vector<std::uint8_t>;
    /// Of its registers, which are little endian.
    enum Place : unsigned {
        StreamInfo = 0x2000,
        StreamControl = 0x2004,
        PayloadSize = 0x2008, ///< as the camera requires it; follows the width
        TrailerSize = 0x2014,
        Width = 0x4000,
        Height = 0x4004,
        Gain = 0x4008,
        Restore = 0x400C, ///< a command: the gain is 7 again
        Start = 0x4010, ///< commands: the images
        Stop = 0x4014,
        Denied = 0x4020, ///< not to be written
        Note = 0x4100 ///< a text, longer than one command of this camera
    };
    /// What image `frame`, from 0, holds at a place.
    static std::uint8_t pixelOf(std::uint64_t frame, std::size_t place)
    {
        return static_cast<std::uint8_t>(place * 7 + place / 251 + frame * 31);
    }

    explicit UsbCamera(const std::string& description);
    /// Carries a command out; false when that is none.
    bool take(const Bytes& command);
    Bytes takeAnswer() { return isSilent ? Bytes() : std::exchange(m_answer, {}); }
    bool hasStreamData() const { return m_isStarted && images > 0 && memory[StreamControl] == 1; }
    /// The next packet of the stream, or `most` bytes of its image.
    Bytes takeStreamData(std::size_t most);
    void put(std::uint64_t address, const Bytes& bytes);

    Bytes memory;
    bool isSilent = false; ///< commands go unanswered
    int images = 0; ///< to be sent, once it is started

private:
    Bytes m_answer;
    bool m_isStarted = false;
    std::optional<std::size_t> m_sent; ///< bytes of the present image
    std::uint64_t m_frame = 0;
};

/// A camera that is, or was, plugged in.
struct libusb_device {
    UsbCamera camera;
    std::array<libusb_device*, 2> asList {}; ///< as long as it is plugged in
    const libusb_device_handle* user = nullptr; ///< who has its interfaces

    bool isPresent() const { return asList.front() != nullptr; }
};

struct libusb_device_handle {
    libusb_device& device;
};

/// A USB bus without hardware. This library bears the name of libusb and is loaded in its place, so
/// that no program that links it can reach a real bus. On this one is one camera, or none.
struct UsbBus {
    /// Puts a camera in place of any other: with fresh registers and this description.
    void plugIn(const std::string& description);
    void unplug();
    UsbCamera& camera() { return devices.back().camera; }

    std::mutex mutex; ///< for all of it
    std::condition_variable changed;
    int opening = 0; ///< what opening the camera ends with
    int claiming = 0; ///< what asking for its interfaces ends with
    std::optional<int> transfersLeft; ///< then it is unplugged
    std::list<libusb_device> devices; ///< the last one is, or was last, plugged in
    std::list<libusb_device_handle> handles; ///< that are open
};

/// The bus, held as long as this lives.
struct HeldBus {
    static UsbBus& theBus();
    UsbBus* operator->() const { return &theBus(); }
    std::unique_lock<std::mutex> lock { theBus().mutex };
};
