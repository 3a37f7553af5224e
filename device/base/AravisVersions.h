// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <arv.h>

#include <cstddef>
#include <cstdint>

/// What differs between the versions of Aravis, from 0.8.20 on and of 0.10. All other code is
/// written for 0.8.26: what that has and earlier ones lack stands here under the same names.

#if !ARAVIS_CHECK_VERSION(0, 8, 23)

enum {
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED = ARV_DEVICE_ERROR_UNKNOWN + 1,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY
};

// They know images of one part only, and take no others in.
enum { ARV_BUFFER_PAYLOAD_TYPE_MULTIPART = 0x000a, ARV_BUFFER_PART_DATA_TYPE_2D_IMAGE = 0x0001 };

inline guint arv_buffer_get_n_parts(ArvBuffer*)
{
    return 1;
}

inline int arv_buffer_get_part_data_type(ArvBuffer*, guint)
{
    return ARV_BUFFER_PART_DATA_TYPE_2D_IMAGE;
}

inline const void* arv_buffer_get_part_data(ArvBuffer* buffer, guint, std::size_t* size)
{
    return arv_buffer_get_data(buffer, size);
}

inline gint arv_buffer_get_part_width(ArvBuffer* buffer, guint)
{
    return arv_buffer_get_image_width(buffer);
}

inline gint arv_buffer_get_part_height(ArvBuffer* buffer, guint)
{
    return arv_buffer_get_image_height(buffer);
}

inline void arv_buffer_get_part_padding(ArvBuffer*, guint, gint* x, gint*)
{
    *x = 0;
}

inline ArvPixelFormat arv_buffer_get_part_pixel_format(ArvBuffer* buffer, guint)
{
    return arv_buffer_get_image_pixel_format(buffer);
}

#endif

namespace zqcameralib::aravis {

// What ArvDeviceClass::write_memory is given.
#if ARAVIS_CHECK_VERSION(0, 8, 32)
using WrittenMemory = const void;
using WrittenByte = const std::uint8_t;
#else
using WrittenMemory = void;
using WrittenByte = std::uint8_t;
#endif

/// The code of an error of that domain. Before 0.8.23 only the message says what the camera has
/// answered.
int deviceErrorCode(const GError& error);

/// A stream that nothing is told of; null and an error when there is none.
inline ArvStream* createStream(ArvDevice* device, GError** error)
{
#if !ARAVIS_CHECK_VERSION(0, 8, 23)
    // Their raw sockets pass over images that come from another port than the camera tells.
    if (ARV_IS_GV_DEVICE(device)) {
        arv_gv_device_set_stream_options(
            ARV_GV_DEVICE(device), ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
    }
#endif
#if ARAVIS_CHECK_VERSION(0, 9, 1)
    return arv_device_create_stream(device, nullptr, nullptr, nullptr, error);
#else
    return arv_device_create_stream(device, nullptr, nullptr, error);
#endif
}

/// From here on the stream takes images in; before 0.10 it does so as soon as there is one.
inline bool startStream(ArvStream* stream, GError** error)
{
#if ARAVIS_CHECK_VERSION(0, 9, 0)
    return arv_stream_start_acquisition(stream, error) != FALSE;
#else
    static_cast<void>(error);
    return stream != nullptr;
#endif
}

} // namespace zqcameralib::aravis
