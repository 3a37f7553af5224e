// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/FeatureValues.h"

#include "description/ReferenceWalk.h"
#include "nodemap/RegisterCodec.h"

#include <algorithm>
#include <cmath>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

const EnumEntry* findEntry(const Feature& feature, const std::string& name)
{
    const auto found = std::find_if(feature.entries.begin(), feature.entries.end(),
        [&name](const EnumEntry& entry) { return entry.name == name; });
    return found == feature.entries.end() ? nullptr : &*found;
}

bool hasPlainRegister(const Description& description, const std::vector<std::size_t>& chain)
{
    return std::none_of(chain.begin(), chain.end(), [&](std::size_t node) {
        const NodeKind kind = description.node(node).kind;
        return isConverter(kind) || isFormula(kind) || isIndexed(description.node(node));
    }) && isIntegerRegister(description.node(chain.back()).kind);
}

} // namespace

std::optional<FeatureValues::Value> FeatureValues::find(Names names)
{
    for (const char* name : names) {
        const Feature* feature = m_camera.feature(name);
        if (feature == nullptr || !feature->isReadable() || !hasNumber(feature->node->kind)
            || m_camera.reader().state(*feature) == FEATURE_NOT_AVAILABLE) {
            continue;
        }
        const Result<Number> value = m_camera.nodes().number(feature->index);
        if (value.isOk() && std::isfinite(value.value().asReal())) {
            return Value { feature, value.value().asReal() };
        }
    }
    return std::nullopt;
}

double FeatureValues::number(Names names, double otherwise)
{
    const std::optional<Value> value = find(names);
    return value ? value->number : otherwise;
}

std::int64_t FeatureValues::integer(Names names, std::int64_t otherwise)
{
    constexpr double most = 1e9; // of what is counted here
    const double value = number(names, static_cast<double>(otherwise));
    return std::abs(value) <= most ? std::llround(value) : otherwise;
}

bool FeatureValues::isOn(Names names)
{
    return number(names, 0.0) != 0.0;
}

std::string FeatureValues::entry(Names names)
{
    const std::optional<Value> value = find(names);
    if (value) {
        for (const EnumEntry& entry : value->feature->entries) {
            if (static_cast<double>(entry.value) == value->number) {
                return entry.name;
            }
        }
    }
    return {};
}

Limits FeatureValues::limits(const Feature& feature)
{
    const Result<Limits> limits = m_camera.nodes().limits(feature.index);
    return limits.isOk() ? limits.value() : Limits();
}

AsIfSelected::AsIfSelected(ZQCamera::Impl& camera, const char* selector, const std::string& entry)
{
    const Feature* feature = camera.feature(selector);
    if (feature == nullptr || feature->entries.empty()) {
        return;
    }
    const EnumEntry* wanted = findEntry(*feature, entry);
    const Result<Number> present = camera.nodes().number(feature->index);
    m_isPresent = wanted != nullptr && present.isOk() && present.value().integer == wanted->value;
    m_isPossible = m_isPresent || (wanted != nullptr && choose(camera, *feature, wanted->value));
}

AsIfSelected::AsIfSelected(ZQCamera::Impl& camera, const Feature& selector, std::int64_t value)
    : m_isPresent(false)
{
    m_isPossible = choose(camera, selector, value);
}

bool AsIfSelected::choose(ZQCamera::Impl& camera, const Feature& selector, std::int64_t value)
{
    const Description& description = camera.description();
    const std::vector<std::size_t> chain = valueChain(description, selector.index);
    if (!hasPlainRegister(description, chain)) {
        return false;
    }
    RegisterPort& port = camera.port();
    Register place;
    {
        const RegisterPort::Recorder recorder(port);
        if (!camera.nodes().number(selector.index).isOk() || recorder.read.empty()) {
            return false;
        }
        place = recorder.read.back();
    }
    const RegisterFacts facts = registerFacts(description, chain.back());
    std::vector<std::uint8_t> bytes(place.size);
    if (!holdsInteger(facts, place.size) || !port.read(place, bytes.data()).isOk()) {
        return false;
    }
    encodeInteger(facts, value, bytes.data(), bytes.size());
    {
        // What was found to be available at the present entry may not be so at another.
        const RegisterPort::Ahead forgetting(port, m_known);
    }
    m_known[place] = { std::move(bytes), {} };
    m_ahead.emplace(port, m_known);
    return true;
}

} // namespace zqcameralib
