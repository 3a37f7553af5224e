#include "nodemap/PortDevice.h"

#include "base/LibraryLock.h"
#include "base/StatusCodes.h"

#include <cstring>

namespace zqcameralib {

struct PortDevice {
    ArvDevice parent;
    RegisterPort* port;
    ArvGc* genicam;
    gchar* xml; ///< owned, NUL-terminated
};

namespace {

struct PortDeviceClass {
    ArvDeviceClass parent;
};

gpointer parentClass = nullptr;

PortDevice& self(ArvDevice* device)
{
    return *reinterpret_cast<PortDevice*>(device);
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    const Status status = self(device).port->read(
        { address, size }, static_cast<std::uint8_t*>(buffer), AccessKind::Memory);
    return status.toLibrary(error) ? TRUE : FALSE;
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    const Status status = self(device).port->write(
        { address, size }, static_cast<const std::uint8_t*>(buffer), AccessKind::Memory);
    return status.toLibrary(error) ? TRUE : FALSE;
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    std::uint32_t bytes = 0;
    const Status status = self(device).port->read(
        { address, sizeof bytes }, reinterpret_cast<std::uint8_t*>(&bytes), AccessKind::Register);
    if (status.isOk()) {
        *value = GUINT32_FROM_BE(bytes);
    }
    return status.toLibrary(error) ? TRUE : FALSE;
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    const std::uint32_t bytes = GUINT32_TO_BE(value);
    const Status status = self(device).port->write({ address, sizeof bytes },
        reinterpret_cast<const std::uint8_t*>(&bytes), AccessKind::Register);
    return status.toLibrary(error) ? TRUE : FALSE;
}

const char* genicamXml(ArvDevice* device, std::size_t* size)
{
    *size = std::strlen(self(device).xml);
    return self(device).xml;
}

ArvGc* genicam(ArvDevice* device)
{
    return self(device).genicam;
}

ArvStream* createStream(ArvDevice*, ArvStreamCallback, void*, GDestroyNotify, GError** error)
{
    g_set_error_literal(error, arv_device_error_quark(), ARV_DEVICE_ERROR_NO_STREAM_CHANNEL,
        "a stream is made by the acquisition");
    return nullptr;
}

void finalize(GObject* object)
{
    auto& device = *reinterpret_cast<PortDevice*>(object);
    g_clear_object(&device.genicam);
    g_clear_pointer(&device.xml, g_free);
    reinterpret_cast<GObjectClass*>(parentClass)->finalize(object);
}

void initClass(gpointer classPointer, gpointer)
{
    parentClass = g_type_class_peek_parent(classPointer);
    reinterpret_cast<GObjectClass*>(classPointer)->finalize = finalize;
    auto& device = *static_cast<ArvDeviceClass*>(classPointer);
    device.create_stream = createStream;
    device.get_genicam_xml = genicamXml;
    device.get_genicam = genicam;
    device.read_memory = readMemory;
    device.write_memory = writeMemory;
    device.read_register = readRegister;
    device.write_register = writeRegister;
}

GType portDeviceType()
{
    static const GType type = g_type_register_static_simple(arv_device_get_type(), "ZQPortDevice",
        sizeof(PortDeviceClass), initClass, sizeof(PortDevice), nullptr, GTypeFlags(0));
    return type;
}

} // namespace

Result<PortDevicePointer> makePortDevice(
    RegisterPort& port, std::string_view xml, std::chrono::milliseconds limit)
{
    const LibraryLock parser(LibraryPart::Parser, LibraryLock::Clock::now() + limit);
    if (!parser) {
        return Status(notLoaded, "another camera is being opened and does not come to an end");
    }
    PortDevicePointer device(static_cast<PortDevice*>(g_object_new(portDeviceType(), nullptr)));
    device->port = &port;
    device->xml = g_strndup(xml.data(), xml.size());
    device->genicam = arv_gc_new(&device->parent, device->xml, xml.size());
    if (device->genicam == nullptr) {
        return Status(notLoaded, "the description cannot be evaluated");
    }
    return device;
}

ArvGc* nodeMap(PortDevice& device)
{
    return device.genicam;
}

} // namespace zqcameralib
