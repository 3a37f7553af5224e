// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "usb/UsbDevice.h"

#include "base/AravisVersions.h"

#include <gio/gio.h>

#include <algorithm>
#include <cstring>

namespace zqcameralib {

namespace {

// GenCP 1.3 and USB3 Vision 1.1, little endian: where the table of the transport is, and in it the
// bytes of the longest command.
constexpr guint64 tablePlace = 0x01D8;
constexpr guint64 longestCommand = 0x14;
constexpr guint32 commandHead = 20; ///< bytes before the data of a write
/// Every camera takes a command of so many bytes of data.
constexpr guint32 alwaysTaken = 32;

gpointer parentClass = nullptr;

ArvDeviceClass& parent()
{
    return *static_cast<ArvDeviceClass*>(parentClass);
}

/// The library asks for the stream's registers without a look at whether they came, and goes on
/// with what happened to be in memory: it divides by it, and writes to it as to an address. So a
/// failed read leaves numbers that are not 0 where it divides, lead to no register where it writes,
/// and are no size otherwise.
gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    const gboolean done = parent().read_memory(device, address, size, buffer, error);
    if (done == FALSE) {
        std::memset(buffer, size == sizeof(guint64) ? 1 : 0, size);
    }
    return done;
}

/// Bytes that one command can write.
guint32 askForLongestWrite(ArvDevice* device)
{
    guint64 table = 0;
    guint32 command = 0;
    const bool isTold = readMemory(device, tablePlace, sizeof table, &table, nullptr) != FALSE
        && readMemory(
               device, GUINT64_FROM_LE(table) + longestCommand, sizeof command, &command, nullptr)
            != FALSE;
    command = GUINT32_FROM_LE(command);
    return isTold && command > commandHead + alwaysTaken ? (command - commandHead) / 8 * 8
                                                         : alwaysTaken;
}

guint32 longestWrite(ArvDevice* device)
{
    static const GQuark key = g_quark_from_static_string("zq-longest-usb-write");
    guint32 known = GPOINTER_TO_UINT(g_object_get_qdata(G_OBJECT(device), key));
    if (known == 0) {
        known = askForLongestWrite(device);
        g_object_set_qdata(G_OBJECT(device), key, GUINT_TO_POINTER(known));
    }
    return known;
}

/// The library cuts long writes by the longest answer, and refuses a piece without a word when it
/// is longer than the longest command.
gboolean writeMemory(
    ArvDevice* device, guint64 address, guint32 size, aravis::WrittenMemory* buffer, GError** error)
{
    const guint32 most = size <= alwaysTaken ? alwaysTaken : longestWrite(device);
    auto* bytes = static_cast<aravis::WrittenByte*>(buffer);
    for (guint32 done = 0; done < size; done += most) {
        if (parent().write_memory(
                device, address + done, std::min(most, size - done), bytes + done, error)
            == FALSE) {
            return FALSE;
        }
    }
    return TRUE;
}

void initClass(gpointer classPointer, gpointer)
{
    parentClass = g_type_class_peek_parent(classPointer);
    auto& device = *static_cast<ArvDeviceClass*>(classPointer);
    device.read_memory = readMemory;
    device.write_memory = writeMemory;
}

GType makeType()
{
    GTypeQuery base {};
    g_type_query(ARV_TYPE_UV_DEVICE, &base);
    return g_type_register_static_simple(ARV_TYPE_UV_DEVICE, "ZQUsbDevice", base.class_size,
        initClass, base.instance_size, nullptr, GTypeFlags(0));
}

} // namespace

GObjectPointer<ArvDevice> newUsbDevice(const UsbIdentity& identity, GError** error)
{
    static const GType type = makeType();
    GObjectPointer<ArvDevice> device(static_cast<ArvDevice*>(
        g_initable_new(type, nullptr, error, "vendor", identity.vendor.c_str(), "product",
            identity.model.c_str(), "serial-number", identity.serial.c_str(), nullptr)));
    if (device) {
        // What the versions do by themselves differs.
        arv_uv_device_set_usb_mode(ARV_UV_DEVICE(device.get()), ARV_UV_USB_MODE_SYNC);
    }
    return device;
}

} // namespace zqcameralib
