// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/NumberText.h"
#include "camera/Camera.h"
#include "capture/LineTargets.h"
#include "capture/SelectorPositions.h"
#include "capture/SettingAccess.h"
#include "settings/Comparison.h"

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/ZQSettings.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

// What tests and benchmarks of settings share.

/// Counts accesses, and the distinct registers read between any two writes.
class RegisterCount {
public:
    explicit RegisterCount(zqcameralib::RegisterPort& port)
        : m_port(port)
    {
        port.setFaultHook([this](std::uint64_t address, std::size_t size, bool isWrite) {
            if (m_changes != m_port.changes()) {
                m_changes = m_port.changes();
                m_seen.clear();
            }
            if (isWrite) {
                ++m_writes;
            } else {
                ++m_reads;
                m_distinct += m_seen.emplace(address, size).second ? 1U : 0U;
            }
            return false;
        });
    }
    RegisterCount(const RegisterCount&) = delete;
    RegisterCount& operator=(const RegisterCount&) = delete;
    ~RegisterCount() { m_port.setFaultHook(nullptr); }

    std::size_t reads() const { return m_reads; }
    std::size_t writes() const { return m_writes; }
    std::size_t distinct() const { return m_distinct; }

private:
    zqcameralib::RegisterPort& m_port;
    std::set<std::pair<std::uint64_t, std::size_t>> m_seen;
    std::uint64_t m_changes = 0;
    std::size_t m_reads = 0;
    std::size_t m_writes = 0;
    std::size_t m_distinct = 0;
};

/// Values between which one is surely another than the present one.
inline std::vector<std::string> legalValues(const featurebrowser::FeatureItem& item)
{
    switch (item.type) {
    case featurebrowser::FEATURE_INTEGER: {
        const std::int64_t step = std::max<std::int64_t>(item.intInc, 1);
        return { zqcameralib::integerText(item.intMin),
            zqcameralib::integerText(
                item.intMin + (item.intMin <= item.intMax - step ? step : 0)) };
    }
    case featurebrowser::FEATURE_FLOAT:
        return { zqcameralib::floatText(item.floatMin), zqcameralib::floatText(item.floatMax) };
    case featurebrowser::FEATURE_STRING:
        return { "x", "y" };
    default:
        return { item.enumEntries.begin(), item.enumEntries.end() };
    }
}

/// Gives every line of the settings another value that is legal at the moment, as far as there is
/// one; how many took it.
inline std::size_t alter(zqcameralib::ZQCamera& camera, const zqcameralib::ZQSettings& settings)
{
    zqcameralib::ZQCamera::Impl& impl = camera.impl();
    zqcameralib::SelectorPositions positions(impl);
    std::size_t altered = 0;
    for (std::size_t i = 0; i < settings.lines().size(); ++i) {
        const auto target = zqcameralib::lineTarget(impl, settings, i);
        if (!target.isOk() || !positions.goTo(target.value().path).isOk()) {
            continue;
        }
        featurebrowser::FeatureItem item;
        featurebrowser::FEATURE_STATE state = featurebrowser::FEATURE_AVAILABLE;
        impl.reader().read(*target.value().feature, item, state);
        for (const std::string& value : legalValues(item)) {
            const bool isOther = !zqcameralib::isSameValue(value, settings.lines()[i].value);
            if (isOther && zqcameralib::writeSetting(impl, *target.value().feature, value).isOk()) {
                ++altered;
                break;
            }
        }
    }
    return altered;
}
