// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/AravisVersions.h"

#if !ARAVIS_CHECK_VERSION(0, 8, 23)
#include <array>
#include <utility>
#endif

namespace zqcameralib::aravis {

int deviceErrorCode(const GError& error)
{
#if !ARAVIS_CHECK_VERSION(0, 8, 23)
    // "GigEVision write_register error (access-denied)"
    constexpr std::array<std::pair<const char*, int>, 8> answers { {
        { "(not-implemented)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED },
        { "(invalid-parameter)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER },
        { "(invalid-access)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS },
        { "(invalid-address)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS },
        { "(write-protect)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT },
        { "(bad-alignment)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT },
        { "(access-denied)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED },
        { "(busy)", ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY },
    } };
    for (const auto& [words, code] : answers) {
        if (g_str_has_suffix(error.message, words) != FALSE) {
            return code;
        }
    }
#endif
    return error.code;
}

} // namespace zqcameralib::aravis
