// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/AravisVersions.h" // IWYU pragma: keep (earlier versions lack the code)
#include "base/StatusCodes.h"
#include "session/CameraSession.h"
#include "words/Words.h"

#include <chrono>
#include <cstring>

namespace zqcameralib {

namespace {

using Clock = std::chrono::steady_clock;

Status noSuchRegister()
{
    return { deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS,
        translated("the camera has no such register") };
}

} // namespace

/// Only there the library turns their bytes.
bool CameraSession::isReadAsRegister(const Register& place, AccessKind kind) const
{
    return kind == AccessKind::Register && isGige() && wordsOf(place) == place;
}

/// GigE Vision 2.0, chapters 16 and 17: cameras refuse all that are not whole words of 4 bytes.
Register CameraSession::wordsOf(const Register& place) const
{
    if (!isGige()) {
        return place;
    }
    constexpr std::uint64_t word = 4;
    const std::uint64_t first = place.address / word * word;
    const std::uint64_t end = (place.address + place.size + word - 1) / word * word;
    return { first, end - first };
}

Status CameraSession::readMemory(const Register& place, void* buffer)
{
    GlibError failure;
    m_health->waitingSince = Clock::now().time_since_epoch().count();
    return finish(arv_device_read_memory(m_device.get(), place.address,
                      static_cast<guint32>(place.size), buffer, failure.out()),
        failure);
}

/// The library takes the low 32 bits of an address, where something else stands.
bool CameraSession::canReach(const Register& place) const
{
    return !isGige()
        || (place.address <= UINT32_MAX && place.size <= UINT32_MAX - place.address + 1);
}

Status CameraSession::read(const Register& place, std::uint8_t* buffer, AccessKind kind)
{
    if (!canReach(place)) {
        return noSuchRegister();
    }
    if (isReadAsRegister(place, kind)) {
        GlibError failure;
        guint32 value = 0;
        m_health->waitingSince = Clock::now().time_since_epoch().count();
        const gboolean done
            = arv_device_read_register(m_device.get(), place.address, &value, failure.out());
        value = GUINT32_TO_BE(value);
        std::memcpy(buffer, &value, sizeof value);
        return finish(done, failure);
    }
    const Register words = wordsOf(place);
    if (words == place) {
        return readMemory(place, buffer);
    }
    std::string bytes(words.size, '\0');
    Status status = readMemory(words, bytes.data());
    std::memcpy(buffer, bytes.data() + (place.address - words.address), place.size);
    return status;
}

Status CameraSession::write(const Register& place, const std::uint8_t* buffer, AccessKind kind)
{
    if (!canReach(place)) {
        return noSuchRegister();
    }
    GlibError failure;
    if (isReadAsRegister(place, kind)) {
        guint32 value = 0;
        std::memcpy(&value, buffer, sizeof value);
        m_health->waitingSince = Clock::now().time_since_epoch().count();
        return finish(arv_device_write_register(
                          m_device.get(), place.address, GUINT32_FROM_BE(value), failure.out()),
            failure);
    }
    // The library takes, but does not change, a buffer without const.
    const Register words = wordsOf(place);
    std::string bytes(words.size, '\0');
    if (!(words == place)) {
        // What stands beside it in the same words stays, as far as it can be read.
        Status status = readMemory(words, bytes.data());
        if (m_health->unanswered) {
            return status;
        }
    }
    std::memcpy(bytes.data() + (place.address - words.address), buffer, place.size);
    m_health->waitingSince = Clock::now().time_since_epoch().count();
    return finish(arv_device_write_memory(m_device.get(), words.address,
                      static_cast<guint32>(words.size), bytes.data(), failure.out()),
        failure);
}

} // namespace zqcameralib
