// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "chunks/ChunkText.h"

#include "base/NumberText.h"

#include "featurebrowser/FeatureItem.h"

#include <algorithm>

namespace zqcameralib {

namespace {

constexpr std::size_t mostBytes = 65536;

std::string textOf(const Feature& feature, const Number& value)
{
    if (feature.type == featurebrowser::FEATURE_BOOLEAN) {
        return value.isZero() ? "False" : "True";
    }
    const auto entry = std::find_if(feature.entries.begin(), feature.entries.end(),
        [&value](const EnumEntry& one) { return one.value == value.integer; });
    if (entry != feature.entries.end()) {
        return entry->name;
    }
    return value.isReal ? floatText(value.real) : integerText(value.integer);
}

} // namespace

Result<std::string> chunkText(NodeMap& nodes, const Feature& feature)
{
    if (feature.node->kind == NodeKind::Register) {
        const auto bytes = nodes.bytes(feature.index, mostBytes);
        return bytes.isOk()
            ? Result<std::string>(hexText(bytes.value().data(), bytes.value().size()))
            : bytes.status();
    }
    if (hasText(feature.node->kind)) {
        return nodes.text(feature.index);
    }
    const Result<Number> value = nodes.number(feature.index);
    return value.isOk() ? Result<std::string>(textOf(feature, value.value())) : value.status();
}

} // namespace zqcameralib
