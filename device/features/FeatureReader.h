// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "features/ChangingNodes.h"
#include "features/Conditions.h"
#include "features/Feature.h"
#include "registers/RegisterPort.h"
#include "words/Words.h"

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/FeatureTypes.h"

#include <memory>

namespace zqcameralib {

/// Reads the present value and state of features. A register access that fails makes the whole
/// reading fail; what the description itself makes
/// unreadable is tolerated and shown as unread, with the reason.
class FeatureReader {
public:
    FeatureReader(const Description& description, NodeMap& nodes, RegisterPort& port)
        : m_description(description)
        , m_nodes(nodes)
        , m_port(port)
        , m_conditions(description, nodes, port)
    {
    }

    /// Whether the camera has the feature, or can come to have it: one that comes with a setting is
    /// listed from the start. A condition that cannot be evaluated counts as met: the feature is
    /// then listed and shown as unread.
    bool canBeImplemented(const Feature& feature);

    /// What a user can do with the feature now; reads no value.
    featurebrowser::FEATURE_STATE state(const Feature& feature);

    /// What can be done with the value now, as state() says and beyond:
    /// featurebrowser::ACCESS_MODE.
    std::uint16_t presentAccess(const Feature& feature);

    /// Whether the limits of a number can be told: a failure names the one that cannot.
    Status limitsStatus(const Feature& feature);

    /// Why the last state() or read() ended in FEATURE_READ_FAILED although the camera answered.
    const Words& reason() const { return m_reason; }

    /// Fills `item` and `state`. False when a register access failed: `item` is then unchanged.
    bool read(const Feature& feature, featurebrowser::FeatureItem& item,
        featurebrowser::FEATURE_STATE& state);

    /// Whether the entry can be chosen now; one that cannot be evaluated cannot.
    bool isAvailable(const EnumEntry& entry);
    /// The entries that can be chosen now, with the present one where it is Invisible.
    std::vector<const EnumEntry*> availableEntries(const Feature& feature);

private:
    using Item = featurebrowser::FeatureItem;

    using Truth = Conditions::Truth;

    featurebrowser::FEATURE_STATE stateBy(const AccessConditions& conditions);
    /// The node that the value comes from at present, where an index decides.
    std::vector<std::size_t> presentSources(const Feature& feature);
    void readAvailable(const Feature& feature, Item& item, featurebrowser::FEATURE_STATE& state);
    // A success without a text has nothing to show.
    Result<std::string> readValue(const Feature& feature);
    Result<std::string> readEnumeration(const Feature& feature);
    Result<std::string> readRegister(const Feature& feature);
    Status readLimits(const Feature& feature, Item& item);

    const Description& m_description;
    NodeMap& m_nodes;
    RegisterPort& m_port;
    Conditions m_conditions;
    Words m_reason;
    std::unique_ptr<ChangingNodes> m_changing; ///< made when first needed
};

/// A record with everything that is known without asking the camera.
featurebrowser::FeatureItem staticItem(const Feature& feature);

} // namespace zqcameralib
