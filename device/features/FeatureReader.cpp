#include "features/FeatureReader.h"

#include "base/GlibError.h"
#include "base/NumberText.h"
#include "features/FeatureLimits.h"
#include "nodemap/FormulaGuard.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Larger raw registers are not read into a row of text.
constexpr std::uint64_t maxRegisterSize = 65536;

std::uint32_t asUnsigned32(std::int64_t value)
{
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(value, 0, UINT32_MAX));
}

} // namespace

FeatureItem staticItem(const Feature& feature)
{
    FeatureItem item;
    item.name = feature.name;
    item.selectorParent = feature.selectorParent;
    item.description = feature.description;
    item.type = feature.type;
    item.level = feature.level;
    item.depth = feature.depth;
    item.accessMode = feature.access;
    item.representation = feature.representation;
    item.isSelector = feature.isSelector;
    item.intWritable
        = feature.access == ACCESS_READ_WRITE || feature.access == ACCESS_WRITE_ONLY ? 1 : 0;
    if (feature.type == FEATURE_COMMAND) {
        item.valueText = feature.caption;
    }
    if (feature.type == FEATURE_BOOLEAN) {
        item.enumEntries = { "False", "True" };
    }
    return item;
}

bool FeatureReader::isImplemented(const Feature& feature)
{
    return m_conditions.allHold(feature.implementedIf);
}

FEATURE_STATE FeatureReader::state(const Feature& feature)
{
    if (m_port.backend().isLost()) {
        return FEATURE_READ_FAILED;
    }
    if (feature.type == FEATURE_CATEGORY) {
        return FEATURE_AVAILABLE;
    }
    const RegisterPort::FailureScope failures(m_port);
    FEATURE_STATE state = FEATURE_AVAILABLE;
    if (feature.access == ACCESS_NOT_AVAILABLE || feature.isChunkOrEventData
        || !m_conditions.allHold(feature.implementedIf)
        || !m_conditions.allHold(feature.availableIf)) {
        state = FEATURE_NOT_AVAILABLE;
    } else if (m_conditions.anyHolds(feature.lockedIf)
        || (m_port.backend().isReadOnly() && feature.access != ACCESS_READ_ONLY)) {
        state = FEATURE_LOCKED;
    }
    return failures.hasFailed() ? FEATURE_READ_FAILED : state;
}

bool FeatureReader::isAvailable(const EnumEntry& entry)
{
    return std::all_of(
        entry.availableIf.begin(), entry.availableIf.end(), [this](const Condition& condition) {
            return m_conditions.ask(condition) == Conditions::Truth::Yes;
        });
}

std::vector<const EnumEntry*> FeatureReader::availableEntries(const Feature& feature)
{
    std::vector<const EnumEntry*> available;
    for (const EnumEntry& entry : feature.entries) {
        if (isAvailable(entry)) {
            available.push_back(&entry);
        }
    }
    return available;
}

FeatureReader::Outcome FeatureReader::readInteger(const Feature& feature, Item& item)
{
    GlibError error;
    const std::int64_t value = arv_gc_integer_get_value(ARV_GC_INTEGER(feature.gc), error.out());
    item.valueText = integerText(value);
    if (error) {
        return Outcome::Failed;
    }
    return feature.isIntegerFormula && value == undefinedInteger ? Outcome::Nothing
                                                                 : Outcome::Shown;
}

FeatureReader::Outcome FeatureReader::readFloat(const Feature& feature, Item& item)
{
    GlibError error;
    item.valueText = floatText(arv_gc_float_get_value(ARV_GC_FLOAT(feature.gc), error.out()));
    if (error) {
        return Outcome::Failed;
    }
    return item.valueText.empty() ? Outcome::Nothing : Outcome::Shown;
}

FeatureReader::Outcome FeatureReader::readEnumeration(const Feature& feature, Item& item)
{
    GlibError error;
    const std::int64_t value
        = arv_gc_enumeration_get_int_value(ARV_GC_ENUMERATION(feature.gc), error.out());
    if (error) {
        return Outcome::Failed;
    }
    const std::vector<const EnumEntry*> entries = availableEntries(feature);
    const auto current = std::find_if(entries.begin(), entries.end(),
        [value](const EnumEntry* entry) { return entry->value == value; });
    const bool isKnown = current != entries.end();
    item.valueText = integerText(isKnown ? current - entries.begin() : -1);
    return isKnown ? Outcome::Shown : Outcome::Nothing;
}

FeatureReader::Outcome FeatureReader::readBoolean(const Feature& feature, Item& item)
{
    GlibError error;
    const bool on = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(feature.gc), error.out()) != FALSE;
    item.valueText = on ? "1" : "0";
    return error ? Outcome::Failed : Outcome::Shown;
}

FeatureReader::Outcome FeatureReader::readString(const Feature& feature, Item& item)
{
    // The node map below does not take a register without a length.
    if (feature.textRegister != nullptr && item.maxLength == 0) {
        return Outcome::Shown;
    }
    GlibError error;
    const char* text = arv_gc_string_get_value(ARV_GC_STRING(feature.gc), error.out());
    if (error || text == nullptr) {
        return Outcome::Failed;
    }
    item.valueText = text;
    return Outcome::Shown;
}

FeatureReader::Outcome FeatureReader::readRegister(const Feature& feature, Item& item)
{
    ArvGcRegister* reg = ARV_GC_REGISTER(feature.gc);
    GlibError error;
    const std::uint64_t length = arv_gc_register_get_length(reg, error.out());
    if (error || length > maxRegisterSize) {
        return Outcome::Failed;
    }
    if (length == 0) {
        return Outcome::Nothing;
    }
    std::vector<std::uint8_t> bytes(length);
    arv_gc_register_get(reg, bytes.data(), length, error.out());
    item.valueText = hexText(bytes.data(), bytes.size());
    return error ? Outcome::Failed : Outcome::Shown;
}

void FeatureReader::readLimits(const Feature& feature, Item& item)
{
    if (feature.type == FEATURE_INTEGER && ARV_IS_GC_INTEGER(feature.gc)) {
        const IntegerLimits limits = integerLimits(feature);
        item.intMin = limits.minimum;
        item.intMax = limits.maximum;
        item.intInc = asUnsigned32(limits.increment);
    } else if (feature.type == FEATURE_FLOAT && ARV_IS_GC_FLOAT(feature.gc)) {
        const FloatLimits limits = floatLimits(feature);
        item.floatMin = limits.minimum;
        item.floatMax = limits.maximum;
        item.floatInc = limits.increment;
    } else if (feature.type == FEATURE_ENUMERATION) {
        for (const EnumEntry* entry : availableEntries(feature)) {
            item.enumEntries.push_back(entry->name);
        }
    } else if (feature.type == FEATURE_STRING || feature.type == FEATURE_READ_ONLY_STRING) {
        item.maxLength = maxTextLength(feature);
    }
}

FeatureReader::Outcome FeatureReader::readValue(const Feature& feature, Item& item)
{
    if (feature.type == FEATURE_INTEGER && ARV_IS_GC_INTEGER(feature.gc)) {
        return readInteger(feature, item);
    }
    if (feature.type == FEATURE_FLOAT && ARV_IS_GC_FLOAT(feature.gc)) {
        return readFloat(feature, item);
    }
    if (feature.type == FEATURE_ENUMERATION && ARV_IS_GC_ENUMERATION(feature.gc)) {
        return readEnumeration(feature, item);
    }
    if (feature.type == FEATURE_BOOLEAN && ARV_IS_GC_BOOLEAN(feature.gc)) {
        return readBoolean(feature, item);
    }
    if (feature.node->kind == NodeKind::Register && ARV_IS_GC_REGISTER(feature.gc)) {
        return readRegister(feature, item);
    }
    return ARV_IS_GC_STRING(feature.gc) ? readString(feature, item) : Outcome::Failed;
}

void FeatureReader::readAvailable(const Feature& feature, Item& item, FEATURE_STATE& state)
{
    if (feature.gc == nullptr) {
        state = FEATURE_READ_FAILED;
        return;
    }
    readLimits(feature, item);
    if (feature.type == FEATURE_COMMAND) {
        item.displayFlag = 1;
        return;
    }
    if (!feature.isReadable()) {
        return;
    }
    const Outcome outcome = readValue(feature, item);
    item.displayFlag = outcome == Outcome::Shown ? 1 : 0;
    if (outcome == Outcome::Failed) {
        state = FEATURE_READ_FAILED;
    }
    if (outcome != Outcome::Shown && feature.type != FEATURE_ENUMERATION) {
        item.valueText.clear();
    }
}

bool FeatureReader::read(const Feature& feature, FeatureItem& item, FEATURE_STATE& state)
{
    const RegisterPort::FailureScope failures(m_port);
    state = this->state(feature);
    if (state == FEATURE_READ_FAILED) {
        return false;
    }
    Item fresh = staticItem(feature);
    fresh.lockedFlag = state == FEATURE_AVAILABLE ? 0 : 1;
    if (state == FEATURE_NOT_AVAILABLE) {
        fresh.accessMode = ACCESS_NOT_AVAILABLE;
    } else if (feature.type != FEATURE_CATEGORY) {
        readAvailable(feature, fresh, state);
    }
    if (failures.hasFailed()) {
        state = FEATURE_READ_FAILED;
        return false;
    }
    item = std::move(fresh);
    return true;
}

} // namespace zqcameralib
