// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/FeatureReader.h"

#include "base/NumberText.h"
#include "base/StatusCodes.h"
#include "description/ReferenceWalk.h"
#include "features/FeatureLimits.h"
#include "nodemap/AccessMode.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Larger raw registers are not read into a row of text.
constexpr std::uint64_t maxRegisterSize = 65536;

bool canRead(std::uint16_t access)
{
    return access == ACCESS_READ_ONLY || access == ACCESS_READ_WRITE;
}

bool canWrite(std::uint16_t access)
{
    return access == ACCESS_WRITE_ONLY || access == ACCESS_READ_WRITE;
}

/// Whether it is one of a category around the feature, and not its own.
bool isOfCategory(const Feature& feature, const Condition& condition)
{
    return feature.type != FEATURE_CATEGORY && condition.isOfCategory;
}

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
    item.intWritable = canWrite(feature.access) ? 1 : 0;
    if (feature.type == FEATURE_COMMAND) {
        item.valueText = feature.caption;
    }
    if (feature.type == FEATURE_BOOLEAN) {
        item.enumEntries = { "False", "True" };
    }
    return item;
}

bool FeatureReader::canBeImplemented(const Feature& feature)
{
    return std::all_of(feature.conditions.implementedIf.begin(),
        feature.conditions.implementedIf.end(), [this, &feature](const Condition& condition) {
            if (m_conditions.ask(condition) != Truth::No || isOfCategory(feature, condition)) {
                return true;
            }
            if (!m_changing) {
                m_changing = std::make_unique<ChangingNodes>(m_description);
            }
            return m_changing->canChange(condition.target);
        });
}

FEATURE_STATE FeatureReader::stateBy(const AccessConditions& conditions)
{
    for (const auto* list : { &conditions.implementedIf, &conditions.availableIf }) {
        const Truth truth = m_conditions.allHold(*list);
        if (truth != Truth::Yes) {
            m_reason = m_conditions.why();
            return truth == Truth::No ? FEATURE_NOT_AVAILABLE : FEATURE_READ_FAILED;
        }
    }
    const Truth isLocked = m_conditions.anyHolds(conditions.lockedIf);
    m_reason = m_conditions.why();
    switch (isLocked) {
    case Truth::No:
        return FEATURE_AVAILABLE;
    case Truth::Yes:
        return FEATURE_LOCKED;
    default:
        return FEATURE_READ_FAILED;
    }
}

std::vector<std::size_t> FeatureReader::presentSources(const Feature& feature)
{
    std::vector<std::size_t> sources;
    if (!feature.isIndexed) {
        return sources;
    }
    for (const std::size_t link : valueChain(m_description, feature.index)) {
        if (!isIndexed(m_description.node(link))) {
            continue;
        }
        const Result<std::size_t> source = m_nodes.source(link);
        if (source.isOk() && source.value() != Description::absent) {
            sources.push_back(source.value());
        }
    }
    return sources;
}

FEATURE_STATE FeatureReader::state(const Feature& feature)
{
    if (m_port.backend().isLost()) {
        return FEATURE_READ_FAILED;
    }
    if (feature.node->isBroken()) {
        m_reason = feature.node->broken;
        return FEATURE_READ_FAILED;
    }
    const RegisterPort::FailureScope failures(m_port);
    if (feature.type != FEATURE_CATEGORY
        && (feature.access == ACCESS_NOT_AVAILABLE || feature.isChunkOrEventData)) {
        return FEATURE_NOT_AVAILABLE;
    }
    FEATURE_STATE state = stateBy(feature.conditions);
    for (const std::size_t source : presentSources(feature)) {
        if (state == FEATURE_AVAILABLE) {
            state = stateBy(accessConditions(m_description, source));
        }
    }
    const bool canBeLocked = feature.type != FEATURE_CATEGORY && feature.access != ACCESS_READ_ONLY;
    if (state == FEATURE_LOCKED && !canBeLocked) {
        state = FEATURE_AVAILABLE;
    }
    if (state == FEATURE_AVAILABLE && m_port.backend().isReadOnly() && canBeLocked) {
        state = FEATURE_LOCKED;
    }
    return failures.hasFailed() ? FEATURE_READ_FAILED : state;
}

std::uint16_t FeatureReader::presentAccess(const Feature& feature)
{
    std::uint16_t access = feature.access;
    for (const std::size_t source : presentSources(feature)) {
        const std::uint16_t behind = staticAccess(m_description, source);
        if (behind != access && behind != ACCESS_READ_WRITE) {
            access = access == ACCESS_READ_WRITE ? behind : std::uint16_t(ACCESS_NOT_AVAILABLE);
        }
    }
    return access;
}

bool FeatureReader::isAvailable(const EnumEntry& entry)
{
    return std::all_of(entry.availableIf.begin(), entry.availableIf.end(),
        [this](const Condition& condition) { return m_conditions.ask(condition) == Truth::Yes; });
}

std::vector<const EnumEntry*> FeatureReader::availableEntries(const Feature& feature)
{
    std::optional<std::int64_t> present;
    const auto isPresent = [&](const EnumEntry& entry) {
        if (!present) {
            const Result<Number> value = m_nodes.number(feature.index);
            present = value.isOk() ? value.value().integer : INT64_MIN;
        }
        return entry.value == *present;
    };
    std::vector<const EnumEntry*> available;
    for (const EnumEntry& entry : feature.entries) {
        if (isAvailable(entry) && (!entry.isInvisible || isPresent(entry))) {
            available.push_back(&entry);
        }
    }
    return available;
}

Result<std::string> FeatureReader::readEnumeration(const Feature& feature)
{
    const Result<Number> value = m_nodes.number(feature.index);
    if (!value.isOk()) {
        return value.status();
    }
    const std::vector<const EnumEntry*> entries = availableEntries(feature);
    const auto current = std::find_if(entries.begin(), entries.end(),
        [&value](const EnumEntry* entry) { return entry->value == value.value().integer; });
    return current == entries.end() ? std::string() : integerText(current - entries.begin());
}

Result<std::string> FeatureReader::readRegister(const Feature& feature)
{
    const auto bytes = m_nodes.bytes(feature.index, maxRegisterSize);
    return bytes.isOk() ? Result<std::string>(hexText(bytes.value().data(), bytes.value().size()))
                        : bytes.status();
}

Status FeatureReader::limitsStatus(const Feature& feature)
{
    for (const std::size_t limit : feature.limits) {
        const std::string name(m_description.node(limit).name);
        switch (m_conditions.isThere(limit)) {
        case Truth::Yes:
            break;
        case Truth::No:
            return { notEvaluable, worded("its limit %s is not available now", name.c_str()) };
        default:
            return { notEvaluable, m_conditions.why() };
        }
    }
    return {};
}

Status FeatureReader::readLimits(const Feature& feature, Item& item)
{
    if (Status status = limitsStatus(feature); !status.isOk()) {
        return status;
    }
    if (feature.type == FEATURE_INTEGER) {
        const Result<IntegerLimits> limits = integerLimits(m_nodes, feature);
        if (!limits.isOk()) {
            return limits.status();
        }
        item.intMin = limits.value().minimum;
        item.intMax = limits.value().maximum;
        item.intInc = asUnsigned32(limits.value().increment);
        return {};
    }
    if (feature.type == FEATURE_FLOAT) {
        const Result<FloatLimits> limits = floatLimits(m_nodes, feature);
        item.floatMin = limits.value().minimum;
        item.floatMax = limits.value().maximum;
        item.floatInc = limits.value().increment;
        return limits.status();
    }
    if (feature.type == FEATURE_ENUMERATION) {
        for (const EnumEntry* entry : availableEntries(feature)) {
            item.enumEntries.push_back(entry->name);
        }
    } else if (feature.type == FEATURE_STRING || feature.type == FEATURE_READ_ONLY_STRING) {
        const Result<std::uint32_t> length = maxTextLength(m_nodes, feature);
        item.maxLength = length.value();
        return length.status();
    }
    return {};
}

Result<std::string> FeatureReader::readValue(const Feature& feature)
{
    if (feature.type == FEATURE_ENUMERATION) {
        return readEnumeration(feature);
    }
    if (feature.node->kind == NodeKind::Register) {
        return readRegister(feature);
    }
    if (hasText(feature.node->kind)) {
        return m_nodes.text(feature.index);
    }
    const Result<Number> value = m_nodes.number(feature.index);
    if (!value.isOk()) {
        const bool isNeither
            = feature.type == FEATURE_BOOLEAN && m_nodes.rawNumber(feature.index).isOk();
        return isNeither ? Result<std::string>(std::string()) : value.status();
    }
    if (!value.value().isFinite()) {
        return Status(notEvaluable, translated("its register holds no finite number"));
    }
    constexpr double noSign = 0.0; // added to a negative zero, it takes its sign
    return feature.type == FEATURE_FLOAT ? floatText(value.value().asReal() + noSign)
                                         : integerText(value.value().integer);
}

void FeatureReader::readAvailable(const Feature& feature, Item& item, FEATURE_STATE& state)
{
    item.accessMode = presentAccess(feature);
    item.intWritable = canWrite(item.accessMode) ? 1 : 0;
    Status status = readLimits(feature, item);
    if (feature.type == FEATURE_COMMAND) {
        item.displayFlag = 1;
        return;
    }
    if (status.isOk() && !canRead(item.accessMode)) {
        return;
    }
    bool isShown = false;
    if (status.isOk()) {
        status = m_nodes.reportedError(feature.index);
    }
    if (status.isOk()) {
        const Result<std::string> value = readValue(feature);
        status = value.status();
        item.valueText = value.value();
        // A text may be empty.
        isShown = status.isOk() && (!item.valueText.empty() || hasText(feature.node->kind));
    }
    item.displayFlag = isShown ? 1 : 0;
    if (!status.isOk()) {
        m_reason = status.words();
        state = FEATURE_READ_FAILED;
    }
    if (!isShown) {
        item.valueText = feature.type == FEATURE_ENUMERATION ? "-1" : "";
    }
}

bool FeatureReader::read(const Feature& feature, FeatureItem& item, FEATURE_STATE& state)
{
    const RegisterPort::FailureScope failures(m_port);
    m_reason = {};
    state = this->state(feature);
    if (m_port.backend().isLost() || failures.hasFailed()) {
        return false;
    }
    Item fresh = staticItem(feature);
    fresh.lockedFlag = state == FEATURE_AVAILABLE ? 0 : 1;
    if (state == FEATURE_NOT_AVAILABLE) {
        fresh.accessMode = ACCESS_NOT_AVAILABLE;
    } else if (feature.type != FEATURE_CATEGORY && state != FEATURE_READ_FAILED) {
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
