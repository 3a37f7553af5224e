// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "UsbBus.h"

#include <algorithm>
#include <cstring>

// GenCP 1.3 and USB3 Vision 1.1: tables of registers and packets.
namespace {

constexpr std::uint64_t serviceTable = 0x1000;
constexpr std::uint64_t streamTable = 0x2000;
constexpr std::uint64_t manifest = 0x3000;
constexpr std::uint64_t descriptionPlace = 0x10000;
constexpr std::uint32_t mostOfCommand = 128;
constexpr std::uint32_t mostOfAnswer = 256;
constexpr std::uint16_t none = 0;

template <typename Number> Number at(const UsbCamera::Bytes& bytes, std::size_t place)
{
    Number value {};
    std::memcpy(&value, &bytes[place], sizeof value);
    return value;
}

/// The numbers one after the other, each as long as its type.
template <typename... Numbers> UsbCamera::Bytes packet(Numbers... numbers)
{
    UsbCamera::Bytes bytes;
    const auto append = [&bytes](auto number) {
        const auto* first = reinterpret_cast<const std::uint8_t*>(&number);
        bytes.insert(bytes.end(), first, first + sizeof number);
    };
    (append(numbers), ...);
    return bytes;
}

} // namespace

UsbCamera::UsbCamera(const std::string& description)
    : memory(descriptionPlace + description.size())
{
    put(0x01CC, packet(20U, manifest, serviceTable)); // milliseconds to an answer; tables
    put(serviceTable + 0x14, packet(mostOfCommand, mostOfAnswer, 1U, streamTable));
    put(streamTable + 0x10, packet(52U, 36U)); // bytes of leader and trailer
    put(manifest, packet(1UL, 0UL, descriptionPlace, description.size()));
    put(descriptionPlace, { description.begin(), description.end() });
    put(Height, packet(1024U));
    put(Width, packet(1280U)); // more than one transfer of the library
    put(Restore, packet(1U));
}

void UsbCamera::put(std::uint64_t address, const Bytes& bytes)
{
    std::copy(bytes.begin(), bytes.end(), &memory[address]);
    if (address == Width) {
        put(PayloadSize, packet(at<std::uint32_t>(bytes, 0) * at<std::uint32_t>(memory, Height)));
    } else if (address >= Restore && address <= Stop && bytes[0] == 1) {
        put(address, { 0 }); // done
        put(Gain, packet(address == Restore ? 7 : at<std::uint32_t>(memory, Gain)));
        m_isStarted = address == Start || (m_isStarted && address != Stop);
        m_sent.reset();
        m_frame = 0;
    }
}

bool UsbCamera::take(const Bytes& command)
{
    if (command.size() < 20 || command.size() > mostOfCommand
        || at<std::uint32_t>(command, 0) != 0x43563355 // U3VC
        || at<std::uint16_t>(command, 8) != command.size() - 12) {
        return false;
    }
    const auto kind = at<std::uint16_t>(command, 6);
    const auto address = at<std::uint64_t>(command, 12);
    Bytes content;
    std::uint16_t status = none;
    if (kind == 0x0800) {
        const auto* from = &memory.at(address);
        content.assign(from, from + at<std::uint16_t>(command, 22));
    } else if (address == Denied) {
        status = 0x8006;
    } else {
        put(address, { command.begin() + 20, command.end() });
        content = packet(0U);
    }
    m_answer = packet(0x43563355U, status, static_cast<std::uint16_t>(kind + 1),
        static_cast<std::uint16_t>(content.size()), at<std::uint16_t>(command, 10));
    m_answer.insert(m_answer.end(), content.begin(), content.end());
    return m_answer.size() <= mostOfAnswer;
}

UsbCamera::Bytes UsbCamera::takeStreamData(std::size_t most)
{
    const std::uint64_t whole = at<std::uint32_t>(memory, PayloadSize);
    if (!hasStreamData()) {
        return {};
    }
    if (!m_sent) {
        m_sent = 0;
        return packet(0x4C563355U, none, std::uint16_t(52), m_frame, none, std::uint16_t(1),
            1000 + m_frame, 0x01080001U, at<std::uint64_t>(memory, Width), 0U, 0U, 0U);
    }
    if (*m_sent == whole) {
        m_sent.reset();
        --images;
        return packet(0x54563355U, none, std::uint16_t(36), m_frame++, 0U, whole, 0U, 0U);
    }
    Bytes data(std::min(most, whole - *m_sent));
    for (std::uint8_t& pixel : data) {
        pixel = pixelOf(m_frame, (*m_sent)++);
    }
    return data;
}
