// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

// What the camera side uses of Aravis, as the version -DMAJOR=0 -DMINOR=8 -DMICRO=20 declares it:
// for reading the sources as with versions that are not installed. A use that is new comes in here,
// under the version that it came with.
#include <gio/gio.h>

#define ARAVIS_CHECK_VERSION(major, minor, micro)                                                  \
    (MAJOR * 1000000 + MINOR * 1000 + MICRO >= (major)*1000000 + (minor)*1000 + (micro))

struct ArvDevice;
struct ArvGvDevice;
struct ArvUvDevice;
struct ArvStream;
struct ArvGvStream;
struct ArvInterface;
struct ArvBuffer;
using ArvPixelFormat = guint32;
using ArvStreamCallback = void (*)(void*, int, ArvBuffer*);

#define ARV_GV_DEVICE(object) (reinterpret_cast<ArvGvDevice*>(object))
#define ARV_UV_DEVICE(object) (reinterpret_cast<ArvUvDevice*>(object))
#define ARV_GV_STREAM(object) (reinterpret_cast<ArvGvStream*>(object))
#define ARV_TYPE_UV_DEVICE (arv_uv_device_get_type())
gboolean ARV_IS_GV_DEVICE(const void* object);
gboolean ARV_IS_UV_DEVICE(const void* object);
gboolean ARV_IS_GV_STREAM(const void* object);
gboolean ARV_IS_UV_STREAM(const void* object);
GType arv_uv_device_get_type();

enum ArvDeviceError {
    ARV_DEVICE_ERROR_NOT_CONNECTED,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR,
    ARV_DEVICE_ERROR_TIMEOUT,
    ARV_DEVICE_ERROR_NOT_FOUND,
    ARV_DEVICE_ERROR_GENICAM_NOT_FOUND,
    ARV_DEVICE_ERROR_NO_STREAM_CHANNEL,
    ARV_DEVICE_ERROR_UNKNOWN,
#if ARAVIS_CHECK_VERSION(0, 8, 23)
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED,
    ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY,
#endif
};

enum ArvBufferStatus {
    ARV_BUFFER_STATUS_SUCCESS,
    ARV_BUFFER_STATUS_SIZE_MISMATCH,
    ARV_BUFFER_STATUS_WRONG_PACKET_ID,
    ARV_BUFFER_STATUS_ABORTED
};

enum ArvBufferPayloadType {
    ARV_BUFFER_PAYLOAD_TYPE_UNKNOWN = -1,
    ARV_BUFFER_PAYLOAD_TYPE_IMAGE = 1,
    ARV_BUFFER_PAYLOAD_TYPE_CHUNK_DATA = 4,
    ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA = 5,
#if ARAVIS_CHECK_VERSION(0, 8, 23)
    ARV_BUFFER_PAYLOAD_TYPE_MULTIPART = 10,
#endif
};

enum ArvGvStreamOption { ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED = 1 };
enum ArvUvUsbMode { ARV_UV_USB_MODE_SYNC };
enum ArvGvStreamSocketBuffer { ARV_GV_STREAM_SOCKET_BUFFER_FIXED };

#if ARAVIS_CHECK_VERSION(0, 8, 32)
using ArvWritten = const void;
#else
using ArvWritten = void;
#endif

struct ArvDeviceClass {
    gboolean (*read_memory)(ArvDevice*, guint64, guint32, void*, GError**);
    gboolean (*write_memory)(ArvDevice*, guint64, guint32, ArvWritten*, GError**);
};

guint arv_get_major_version();
guint arv_get_minor_version();
guint arv_get_micro_version();
GQuark arv_device_error_quark();
GQuark arv_gc_error_quark();

void arv_interface_update_device_list(ArvInterface*);
unsigned arv_interface_get_n_devices(ArvInterface*);
const char* arv_interface_get_device_id(ArvInterface*, unsigned);
const char* arv_interface_get_device_vendor(ArvInterface*, unsigned);
const char* arv_interface_get_device_model(ArvInterface*, unsigned);
const char* arv_interface_get_device_serial_nbr(ArvInterface*, unsigned);
const char* arv_interface_get_device_address(ArvInterface*, unsigned);
ArvInterface* arv_gv_interface_get_instance();
ArvInterface* arv_uv_interface_get_instance();

gboolean arv_device_read_memory(ArvDevice*, guint64, guint32, void*, GError**);
gboolean arv_device_write_memory(ArvDevice*, guint64, guint32, ArvWritten*, GError**);
gboolean arv_device_read_register(ArvDevice*, guint64, guint32*, GError**);
gboolean arv_device_write_register(ArvDevice*, guint64, guint32, GError**);
gint64 arv_device_get_integer_feature_value(ArvDevice*, const char*, GError**);
const char* arv_device_get_genicam_xml(ArvDevice*, std::size_t*);
#if ARAVIS_CHECK_VERSION(0, 9, 1)
ArvStream* arv_device_create_stream(ArvDevice*, ArvStreamCallback, void*, GDestroyNotify, GError**);
#else
ArvStream* arv_device_create_stream(ArvDevice*, ArvStreamCallback, void*, GError**);
#endif

ArvDevice* arv_gv_device_new(GInetAddress*, GInetAddress*, GError**);
gboolean arv_gv_device_take_control(ArvGvDevice*, GError**);
gboolean arv_gv_device_leave_control(ArvGvDevice*, GError**);
gboolean arv_gv_device_is_controller(ArvGvDevice*);
guint arv_gv_device_get_packet_size(ArvGvDevice*, GError**);
ArvGvStreamOption arv_gv_device_get_stream_options(ArvGvDevice*);
GSocketAddress* arv_gv_device_get_interface_address(ArvGvDevice*);
void arv_gv_device_set_stream_options(ArvGvDevice*, ArvGvStreamOption);
guint16 arv_gv_stream_get_port(ArvGvStream*);
void arv_uv_device_set_usb_mode(ArvUvDevice*, ArvUvUsbMode);

#if ARAVIS_CHECK_VERSION(0, 9, 0)
gboolean arv_stream_start_acquisition(ArvStream*, GError**);
#endif
void arv_stream_push_buffer(ArvStream*, ArvBuffer*);
ArvBuffer* arv_stream_timeout_pop_buffer(ArvStream*, guint64);
void arv_stream_get_statistics(ArvStream*, guint64*, guint64*, guint64*);
guint64 arv_stream_get_info_uint64_by_name(ArvStream*, const char*);

ArvBuffer* arv_buffer_new_full(std::size_t, void*, void*, GDestroyNotify);
const void* arv_buffer_get_data(ArvBuffer*, std::size_t*);
ArvBufferStatus arv_buffer_get_status(ArvBuffer*);
ArvBufferPayloadType arv_buffer_get_payload_type(ArvBuffer*);
gboolean arv_buffer_has_chunks(ArvBuffer*);
guint64 arv_buffer_get_frame_id(ArvBuffer*);
guint64 arv_buffer_get_timestamp(ArvBuffer*);
guint64 arv_buffer_get_system_timestamp(ArvBuffer*);
#if ARAVIS_CHECK_VERSION(0, 8, 23)
enum ArvBufferPartDataType { ARV_BUFFER_PART_DATA_TYPE_2D_IMAGE = 1 };
guint arv_buffer_get_n_parts(ArvBuffer*);
ArvBufferPartDataType arv_buffer_get_part_data_type(ArvBuffer*, guint);
const void* arv_buffer_get_part_data(ArvBuffer*, guint, std::size_t*);
gint arv_buffer_get_part_width(ArvBuffer*, guint);
gint arv_buffer_get_part_height(ArvBuffer*, guint);
ArvPixelFormat arv_buffer_get_part_pixel_format(ArvBuffer*, guint);
void arv_buffer_get_part_padding(ArvBuffer*, guint, gint*, gint*);
#else
gint arv_buffer_get_image_width(ArvBuffer*);
gint arv_buffer_get_image_height(ArvBuffer*);
ArvPixelFormat arv_buffer_get_image_pixel_format(ArvBuffer*);
#endif
