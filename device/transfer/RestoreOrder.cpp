// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "transfer/RestoreOrder.h"

#include "capture/SettingsPlan.h"
#include "description/RegisterPlace.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace zqcameralib {

namespace {

bool isAnyAffected(const std::vector<Condition>& conditions, const std::vector<bool>& affected)
{
    return std::any_of(conditions.begin(), conditions.end(),
        [&affected](const Condition& condition) { return affected[condition.target]; });
}

} // namespace

RestoreOrder::RestoreOrder(ZQCamera::Impl& camera, Features written, Features all)
    : m_camera(camera)
    , m_written(std::move(written))
    , m_all(std::move(all))
{
    std::sort(m_written.begin(), m_written.end());
    std::sort(m_all.begin(), m_all.end());
    findPlaces();
}

void RestoreOrder::findPlaces()
{
    const std::vector<DescriptionNode>& nodes = m_camera.description().nodes();
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        if (const auto place = fixedPlace(nodes[node])) {
            m_places[{ place->first, place->size() }].push_back(node);
        }
    }
}

bool RestoreOrder::step()
{
    if (m_effects.size() == m_written.size()) {
        return false;
    }
    m_affected.push_back(m_camera.dependencies().affectedBy(m_written[m_effects.size()]->index));
    std::vector<Effect> effects;
    for (const Feature* feature : m_all) {
        effects.push_back(effectOn(*feature, m_affected.back()));
    }
    m_effects.push_back(std::move(effects));
    return true;
}

RestoreOrder::Effect RestoreOrder::effectOn(
    const Feature& feature, const std::vector<bool>& affected) const
{
    Effect effect;
    effect.onLock = isAnyAffected(feature.conditions.lockedIf, affected);
    effect.onAvailability = isAnyAffected(feature.conditions.availableIf, affected)
        || isAnyAffected(feature.conditions.implementedIf, affected);
    effect.onLimits = std::any_of(feature.limits.begin(), feature.limits.end(),
                          [&affected](std::size_t limit) { return affected[limit]; })
        || std::any_of(
            feature.entries.begin(), feature.entries.end(), [&affected](const EnumEntry& entry) {
                return isAnyAffected(entry.availableIf, affected);
            });
    effect.onValue = affected[feature.index];
    return effect;
}

std::size_t RestoreOrder::columnOf(const Feature& feature) const
{
    const auto found = std::lower_bound(m_all.begin(), m_all.end(), &feature);
    return static_cast<std::size_t>(found - m_all.begin());
}

std::size_t RestoreOrder::rowOf(const Feature& feature) const
{
    const auto row = std::lower_bound(m_written.begin(), m_written.end(), &feature);
    const bool isThere = row != m_written.end() && *row == &feature;
    return isThere ? static_cast<std::size_t>(row - m_written.begin()) : m_written.size();
}

bool RestoreOrder::affects(const Feature& written, const Feature& other) const
{
    const std::size_t row = rowOf(written);
    const std::size_t column = columnOf(other);
    return row >= m_effects.size() || column == m_all.size() || m_all[column] != &other
        || m_effects[row][column].onValue;
}

bool RestoreOrder::affects(const Feature& written, const Register& place) const
{
    const std::size_t row = rowOf(written);
    const auto found = m_places.find(place);
    return row >= m_affected.size() || found == m_places.end()
        || std::any_of(found->second.begin(), found->second.end(),
            [this, row](std::size_t node) { return m_affected[row][node]; });
}

/// Takes the feature that waits for the fewest others, again and again: circles, as of a size and
/// an offset that limit each other, come out in the order of the tree.
class RestoreOrder::Sorting {
public:
    Sorting(const RestoreOrder& order, const ClosedOf& closedOf)
        : m_order(order)
        , m_waits(order.m_written.size())
    {
        const std::size_t count = m_waits.size();
        m_before.assign(count, std::vector<std::uint8_t>(count, none));
        for (std::size_t b = 0; b < count; ++b) {
            const Feature& feature = *order.m_written[b];
            m_waits[b].selectors = selectorsOf(order.m_camera, feature);
            const Closed closed = closedOf(feature);
            const std::size_t column = order.columnOf(feature);
            for (std::size_t a = 0; a < count; ++a) {
                if (a != b) {
                    add(a, b, order.m_effects[a][column], closed);
                }
            }
        }
    }

    Features sorted()
    {
        Features features;
        for (std::size_t i = 0; i < m_waits.size(); ++i) {
            take(best());
            features.push_back(m_order.m_written[m_last]);
        }
        return features;
    }

private:
    enum Strength : std::uint8_t { none, weak, strong };

    /// What a feature waits for.
    struct Waiting {
        std::size_t strongly = 0;
        std::size_t weakly = 0;
        bool isTaken = false;
        Features selectors;
    };

    void put(std::size_t first, std::size_t second, Strength strength)
    {
        std::uint8_t& known = m_before[first][second];
        if (strength <= known) {
            return;
        }
        Waiting& waiting = m_waits[second];
        waiting.weakly -= known == weak ? 1U : 0U;
        ++(strength == weak ? waiting.weakly : waiting.strongly);
        known = strength;
    }

    void add(std::size_t a, std::size_t b, const Effect& effect, const Closed& closed)
    {
        const bool mayLock = effect.onLock && !closed.isLocked;
        if (mayLock) {
            put(b, a, strong);
        } else if (effect.onLock || effect.onLimits
            || (effect.onAvailability && closed.isUnavailable)) {
            put(a, b, strong);
        } else if (effect.onValue) {
            put(a, b, weak);
        }
    }

    std::size_t best() const
    {
        std::size_t chosen = m_waits.size();
        const auto rank = [this](std::size_t i) {
            const bool moves
                = m_last < m_waits.size() && m_waits[i].selectors != m_waits[m_last].selectors;
            return std::tuple(m_waits[i].strongly, m_waits[i].weakly, moves);
        };
        for (std::size_t i = 0; i < m_waits.size(); ++i) {
            const bool isBetter
                = !m_waits[i].isTaken && (chosen == m_waits.size() || rank(i) < rank(chosen));
            chosen = isBetter ? i : chosen;
        }
        return chosen;
    }

    void take(std::size_t taken)
    {
        m_last = taken;
        m_waits[taken].isTaken = true;
        for (std::size_t i = 0; i < m_waits.size(); ++i) {
            switch (m_before[taken][i]) {
            case weak:
                --m_waits[i].weakly;
                break;
            case strong:
                --m_waits[i].strongly;
                break;
            default:
                break;
            }
        }
    }

    const RestoreOrder& m_order;
    std::vector<Waiting> m_waits;
    std::vector<std::vector<std::uint8_t>> m_before; ///< a Strength by first and second
    std::size_t m_last = SIZE_MAX;
};

RestoreOrder::Features RestoreOrder::order(const ClosedOf& closedOf) const
{
    return Sorting(*this, closedOf).sorted();
}

} // namespace zqcameralib
