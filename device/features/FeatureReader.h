#pragma once

#include "features/Conditions.h"
#include "features/Feature.h"
#include "registers/RegisterPort.h"

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/FeatureTypes.h"

namespace zqcameralib {

/// Reads the present value and state of features. A register access that fails makes the whole
/// reading fail, however the node map below takes it; what the description itself makes
/// unreadable is tolerated and shown as unread.
class FeatureReader {
public:
    explicit FeatureReader(RegisterPort& port)
        : m_port(port)
        , m_conditions(port)
    {
    }

    /// Whether the camera has the feature at all. A condition that cannot be evaluated counts as
    /// met: the feature is then listed and shown as unread.
    bool isImplemented(const Feature& feature);

    /// What a user can do with the feature now; reads no value.
    featurebrowser::FEATURE_STATE state(const Feature& feature);

    /// Fills `item` and `state`. False when a register access failed: `item` is then unchanged.
    bool read(const Feature& feature, featurebrowser::FeatureItem& item,
        featurebrowser::FEATURE_STATE& state);

    /// Whether the entry can be chosen now; one that cannot be evaluated cannot.
    bool isAvailable(const EnumEntry& entry);
    /// The entries that can be chosen now.
    std::vector<const EnumEntry*> availableEntries(const Feature& feature);

private:
    using Item = featurebrowser::FeatureItem;

    /// What came of evaluating a value: a text, nothing that a text could show, or an error.
    enum class Outcome { Shown, Nothing, Failed };

    void readAvailable(const Feature& feature, Item& item, featurebrowser::FEATURE_STATE& state);
    Outcome readValue(const Feature& feature, Item& item);
    Outcome readInteger(const Feature& feature, Item& item);
    Outcome readFloat(const Feature& feature, Item& item);
    Outcome readEnumeration(const Feature& feature, Item& item);
    Outcome readBoolean(const Feature& feature, Item& item);
    Outcome readString(const Feature& feature, Item& item);
    Outcome readRegister(const Feature& feature, Item& item);
    void readLimits(const Feature& feature, Item& item);

    RegisterPort& m_port;
    Conditions m_conditions;
};

/// A record with everything that is known without asking the camera.
featurebrowser::FeatureItem staticItem(const Feature& feature);

} // namespace zqcameralib
