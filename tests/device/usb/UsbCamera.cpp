#include "UsbBus.h"

#include <algorithm>
#include <cstring>
#include <utility>

// GenCP 1.3 and USB3 Vision 1.1: registers and packets.
namespace {

constexpr std::uint64_t serviceRegisters = 0x1000;
constexpr std::uint64_t streamRegisters = 0x2000;
constexpr std::uint64_t streamControl = 0x2004;
constexpr std::uint64_t manifest = 0x3000;
constexpr std::uint64_t endOfRegisters = 0x5000;
constexpr std::uint64_t descriptionPlace = 0x10000;
constexpr std::uint32_t mostOfCommand = 128;
constexpr std::uint32_t mostOfAnswer = 256;

constexpr std::uint16_t readCommand = 0x0800;
constexpr std::uint16_t invalidAddress = 0x8003;
constexpr std::uint16_t writeProtect = 0x8004;
constexpr std::uint16_t accessDenied = 0x8006;
constexpr std::uint32_t commandPrefix = 0x43563355; // U3VC
constexpr std::uint32_t leaderPrefix = 0x4C563355; // U3VL
constexpr std::uint32_t trailerPrefix = 0x54563355; // U3VT
constexpr std::uint32_t mono8 = 0x01080001;
constexpr std::uint16_t imagePayload = 1;
constexpr std::uint16_t none = 0;

template <typename Number> Number at(const std::uint8_t* bytes)
{
    Number value {};
    std::memcpy(&value, bytes, sizeof value);
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

std::uint8_t UsbCamera::pixelOf(std::uint64_t frame, std::size_t place)
{
    return static_cast<std::uint8_t>(place * 7 + place / 251 + frame * 31);
}

UsbCamera::UsbCamera(const std::string& description)
    : memory(descriptionPlace + description.size())
{
    put(Maker, { 'M', 'E' });
    put(0x01CC, packet(20U, manifest, serviceRegisters)); // milliseconds to an answer, tables
    put(serviceRegisters + 0x14, packet(mostOfCommand, mostOfAnswer, 1U, streamRegisters));
    put(streamRegisters + 0x10, packet(52U, 36U)); // sizes of leader and trailer
    put(manifest, packet(1UL, 0UL, descriptionPlace, description.size()));
    put(descriptionPlace, { description.begin(), description.end() });
    put(Restore, packet(1U));
    put(Height, packet(1024U));
    put(Width, packet(1280U)); // more than one transfer of the library
}

std::uint32_t UsbCamera::registerAt(std::uint64_t address) const
{
    return at<std::uint32_t>(&memory[address]);
}

void UsbCamera::put(std::uint64_t address, const Bytes& bytes)
{
    std::copy(bytes.begin(), bytes.end(), &memory[address]);
    if (address == Width || address == Height) {
        put(PayloadSize, packet(registerAt(Width) * registerAt(Height)));
    } else if (address >= Restore && address <= Stop && bytes[0] == 1) {
        put(address, { 0 }); // done
        put(Gain, packet(address == Restore ? defaultGain : registerAt(Gain)));
        m_isStarted = address == Start || (m_isStarted && address != Stop);
        m_sent.reset();
        m_frame = 0;
    }
}

std::uint16_t UsbCamera::read(std::uint64_t address, std::size_t size, Bytes& content) const
{
    if (address >= memory.size() || size > memory.size() - address
        || (address >= endOfRegisters && address < descriptionPlace)) {
        return invalidAddress;
    }
    content.assign(&memory[address], &memory[address] + size);
    return none;
}

std::uint16_t UsbCamera::write(std::uint64_t address, const Bytes& bytes)
{
    if (address >= endOfRegisters) {
        return invalidAddress;
    }
    if (address == Denied || address < streamRegisters) {
        return address == Denied ? accessDenied : writeProtect;
    }
    put(address, bytes);
    return none;
}

bool UsbCamera::take(const std::uint8_t* command, std::size_t size)
{
    if (size < 20 || size > mostOfCommand || at<std::uint32_t>(command) != commandPrefix
        || at<std::uint16_t>(command + 8) != size - 12) {
        return false;
    }
    const auto kind = at<std::uint16_t>(command + 6);
    const auto address = at<std::uint64_t>(command + 12);
    const Bytes data(command + 20, command + size);
    Bytes content = packet(none, static_cast<std::uint16_t>(data.size()));
    const std::uint16_t status = kind == readCommand
        ? read(address, at<std::uint16_t>(&data[2]), content)
        : write(address, data);
    m_answer = packet(commandPrefix, status, static_cast<std::uint16_t>(kind + 1),
        static_cast<std::uint16_t>(content.size()), at<std::uint16_t>(command + 10));
    m_answer.insert(m_answer.end(), content.begin(), content.end());
    return true;
}

UsbCamera::Bytes UsbCamera::takeAnswer()
{
    const Bytes answer = std::exchange(m_answer, {});
    return isSilent || answer.size() > mostOfAnswer ? Bytes() : answer;
}

bool UsbCamera::hasStreamData() const
{
    return m_isStarted && images > 0 && (registerAt(streamControl) & 1U) != 0;
}

UsbCamera::Bytes UsbCamera::takeStreamData(std::size_t most)
{
    const std::uint64_t whole = registerAt(PayloadSize);
    if (!hasStreamData()) {
        return {};
    }
    if (!m_sent) {
        m_sent = 0;
        return packet(leaderPrefix, none, std::uint16_t(52), m_frame, none, imagePayload,
            1000 + m_frame, mono8, registerAt(Width), registerAt(Height), 0U, 0U, 0U);
    }
    if (*m_sent == whole) {
        m_sent.reset();
        --images;
        return packet(trailerPrefix, none, std::uint16_t(36), m_frame++, 0U, whole, 0U, 0U);
    }
    Bytes data(std::min(most, whole - *m_sent));
    for (std::uint8_t& pixel : data) {
        pixel = pixelOf(m_frame, (*m_sent)++);
    }
    return data;
}
