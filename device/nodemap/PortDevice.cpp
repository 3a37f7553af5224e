#include "nodemap/PortDevice.h"

#include "base/LibraryLock.h"
#include "base/StatusCodes.h"

#include <array>
#include <string>

namespace zqcameralib {

struct PortDevice {
    ArvDevice parent;
    RegisterPort* port;
    ArvGc* genicam;
    std::string* xml;
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

gboolean report(bool done, const AccessError& failure, GError** error)
{
    if (!done && error != nullptr && *error == nullptr) {
        *error = g_error_new_literal(
            arv_device_error_quark(), ARV_DEVICE_ERROR_TRANSFER_ERROR, failure.message.c_str());
    }
    return done ? TRUE : FALSE;
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    AccessError failure;
    const bool done = self(device).port->read(
        address, static_cast<std::uint8_t*>(buffer), size, AccessKind::Memory, failure);
    return report(done, failure, error);
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    AccessError failure;
    const bool done = self(device).port->write(
        address, static_cast<const std::uint8_t*>(buffer), size, AccessKind::Memory, failure);
    return report(done, failure, error);
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    std::array<std::uint8_t, 4> bytes {};
    AccessError failure;
    const bool done = self(device).port->read(
        address, bytes.data(), bytes.size(), AccessKind::Register, failure);
    if (done) {
        *value = std::uint32_t(bytes[0]) << 24U | std::uint32_t(bytes[1]) << 16U
            | std::uint32_t(bytes[2]) << 8U | std::uint32_t(bytes[3]);
    }
    return report(done, failure, error);
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    const std::array<std::uint8_t, 4> bytes { std::uint8_t(value >> 24U),
        std::uint8_t(value >> 16U), std::uint8_t(value >> 8U), std::uint8_t(value) };
    AccessError failure;
    const bool done = self(device).port->write(
        address, bytes.data(), bytes.size(), AccessKind::Register, failure);
    return report(done, failure, error);
}

const char* genicamXml(ArvDevice* device, std::size_t* size)
{
    *size = self(device).xml->size();
    return self(device).xml->c_str();
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
    delete device.xml;
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

void PortDeviceDeleter::operator()(PortDevice* device) const
{
    g_object_unref(device);
}

PortDevicePointer makePortDevice(
    RegisterPort& port, std::string_view xml, std::chrono::milliseconds limit, std::string& error)
{
    const LibraryLock parser(LibraryPart::Parser, LibraryLock::Clock::now() + limit);
    if (!parser) {
        error = "another camera is being opened and does not come to an end";
        return nullptr;
    }
    PortDevicePointer device(static_cast<PortDevice*>(g_object_new(portDeviceType(), nullptr)));
    device->port = &port;
    device->xml = new std::string(xml);
    device->genicam = arv_gc_new(&device->parent, device->xml->c_str(), device->xml->size());
    if (device->genicam == nullptr) {
        error = "the description cannot be evaluated";
        return nullptr;
    }
    return device;
}

ArvGc* nodeMap(PortDevice& device)
{
    return device.genicam;
}

} // namespace zqcameralib
