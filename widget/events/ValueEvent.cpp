// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "events/ValueEvent.h"

#include "text/AddressInput.h"

namespace featurebrowser {

ReceiverEvent eventFor(const FeatureRow& row, const EditValue& value)
{
    const std::string name = row.name;
    switch (row.kind) {
    case RowKind::Integer:
        return [name, entered = std::get<qint64>(value)](
                   auto& receiver) { receiver.FeatureIntModified(name, entered); };
    case RowKind::Float:
        return [name, entered = std::get<double>(value)](
                   auto& receiver) { receiver.FeatureDoubleModified(name, entered); };
    case RowKind::Ipv4:
        return [name, entered = std::get<std::string>(value)](
                   auto& receiver) { receiver.FeatureIPModified(name, entered); };
    case RowKind::Mac: // the camera holds it as a number
        return [name, entered = macNumber(std::get<std::string>(value))](
                   auto& receiver) { receiver.FeatureIntModified(name, entered); };
    case RowKind::Boolean:
        return [name, index = std::get<EntryIndex>(value).index](
                   auto& receiver) { receiver.FeatureBoolModified(name, index); };
    case RowKind::Enumeration: {
        const int index = std::get<EntryIndex>(value).index;
        const std::string entry
            = std::get<ChoiceValue>(row.value).entries.at(static_cast<std::size_t>(index));
        return [name, entry, index](
                   auto& receiver) { receiver.FeatureEnumModified(name, entry, index); };
    }
    default:
        return [name, entered = std::get<std::string>(value)](
                   auto& receiver) { receiver.FeatureStringModified(name, entered); };
    }
}

} // namespace featurebrowser
