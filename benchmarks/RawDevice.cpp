// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "RawDevice.h"

#include "base/AravisVersions.h"

#include <array>
#include <cstring>

namespace {

struct Object {
    ArvDevice parent;
    zqcameralib::RegisterBackend* backend;
    ArvGc* nodeMap;
    std::uint64_t accesses;
};

struct ObjectClass {
    ArvDeviceClass parent;
};

Object& self(ArvDevice* device)
{
    return *reinterpret_cast<Object*>(device);
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError**)
{
    ++self(device).accesses;
    return self(device)
        .backend
        ->read(
            { address, size }, static_cast<std::uint8_t*>(buffer), zqcameralib::AccessKind::Memory)
        .isOk();
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size,
    zqcameralib::aravis::WrittenMemory* buffer, GError**)
{
    ++self(device).accesses;
    return self(device)
        .backend
        ->write({ address, size }, static_cast<const std::uint8_t*>(buffer),
            zqcameralib::AccessKind::Memory)
        .isOk();
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    std::array<std::uint8_t, 4> bytes {};
    const gboolean done = readMemory(device, address, 4, bytes.data(), error);
    std::memcpy(value, bytes.data(), 4);
    *value = GUINT32_FROM_BE(*value);
    return done;
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    guint32 bytes = GUINT32_TO_BE(value);
    return writeMemory(device, address, 4, &bytes, error);
}

ArvGc* genicam(ArvDevice* device)
{
    return self(device).nodeMap;
}

const char* noXml(ArvDevice*, std::size_t* size)
{
    *size = 0;
    return nullptr;
}

void initClass(void* klass, void*)
{
    auto* device = static_cast<ArvDeviceClass*>(klass);
    device->read_memory = readMemory;
    device->write_memory = writeMemory;
    device->read_register = readRegister;
    device->write_register = writeRegister;
    device->get_genicam = genicam;
    device->get_genicam_xml = noXml;
}

GType objectType()
{
    static const GType type = g_type_register_static_simple(ARV_TYPE_DEVICE, "ZQRawDevice",
        sizeof(ObjectClass), initClass, sizeof(Object), nullptr, GTypeFlags(0));
    return type;
}

} // namespace

RawDevice::RawDevice(zqcameralib::RegisterBackend& backend, std::string_view xml)
    : m_device(static_cast<ArvDevice*>(g_object_new(objectType(), nullptr)))
{
    self(m_device).backend = &backend;
    self(m_device).nodeMap = arv_gc_new(m_device, xml.data(), xml.size());
}

RawDevice::~RawDevice()
{
    g_object_unref(self(m_device).nodeMap);
    g_object_unref(m_device);
}

ArvGc* RawDevice::nodeMap() const
{
    return self(m_device).nodeMap;
}

std::uint64_t RawDevice::accesses() const
{
    return self(m_device).accesses;
}

void RawDevice::readFacts(const char* name) const
{
    ArvGcNode* found = arv_gc_get_node(nodeMap(), name);
    if (!ARV_IS_GC_FEATURE_NODE(found)) {
        return;
    }
    auto* node = ARV_GC_FEATURE_NODE(found);
    arv_gc_feature_node_is_implemented(node, nullptr);
    arv_gc_feature_node_is_locked(node, nullptr);
    if (!arv_gc_feature_node_is_available(node, nullptr)
        || arv_gc_feature_node_get_actual_access_mode(node) == ARV_GC_ACCESS_MODE_WO) {
        return;
    }
    if (ARV_IS_GC_ENUMERATION(node)) {
        guint count = 0;
        g_free(arv_gc_enumeration_dup_available_string_values(
            ARV_GC_ENUMERATION(node), &count, nullptr));
        arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(node), nullptr);
    } else if (ARV_IS_GC_BOOLEAN(node)) {
        arv_gc_boolean_get_value(ARV_GC_BOOLEAN(node), nullptr);
    } else if (ARV_IS_GC_FLOAT(node)) {
        auto* number = ARV_GC_FLOAT(node);
        arv_gc_float_get_value(number, nullptr);
        arv_gc_float_get_min(number, nullptr);
        arv_gc_float_get_max(number, nullptr);
        arv_gc_float_get_inc(number, nullptr);
    } else if (ARV_IS_GC_INTEGER(node)) {
        auto* number = ARV_GC_INTEGER(node);
        arv_gc_integer_get_value(number, nullptr);
        arv_gc_integer_get_min(number, nullptr);
        arv_gc_integer_get_max(number, nullptr);
        arv_gc_integer_get_inc(number, nullptr);
    } else if (ARV_IS_GC_STRING(node)) {
        arv_gc_string_get_value(ARV_GC_STRING(node), nullptr);
        arv_gc_string_get_max_length(ARV_GC_STRING(node), nullptr);
    }
}
