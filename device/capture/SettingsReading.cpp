// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "capture/SettingsReading.h"

#include "base/NumberText.h"
#include "base/StatusCodes.h"
#include "capture/SettingAccess.h"
#include "capture/SettingsPlan.h"
#include "features/FeatureLimits.h"

#include <algorithm>
#include <utility>

namespace zqcameralib {

using namespace featurebrowser;

/// Features that are chosen by the same selectors, and what is chosen by further ones.
struct SettingsReading::Group {
    std::vector<const Feature*> features;
    std::vector<std::pair<const Feature*, std::unique_ptr<Group>>> selected;

    Group& below(const Feature* selector)
    {
        const auto found = std::find_if(selected.begin(), selected.end(),
            [selector](const auto& entry) { return entry.first == selector; });
        if (found != selected.end()) {
            return *found->second;
        }
        selected.emplace_back(selector, std::make_unique<Group>());
        return *selected.back().second;
    }
};

/// A group at the positions of its selector, one after the other.
struct SettingsReading::Frame {
    const Group* group;
    std::vector<std::string> positions; ///< empty where it stands as it stands
    std::size_t position = 0;
    std::size_t feature = 0;
    std::size_t selected = 0;
};

Result<std::string> readSettingSurely(ZQCamera::Impl& camera, const Feature& feature)
{
    const Result<std::string> value = readSetting(camera, feature);
    const bool isFinal = isAnswer(value.status()) || camera.port().backend().isLost();
    return isFinal ? value : readSetting(camera, feature);
}

SettingsReading::SettingsReading(ZQCamera::Impl& camera, SelectorPositions& positions,
    const std::vector<const Feature*>& features, std::vector<LineTarget> targets)
    : m_camera(camera)
    , m_positions(positions)
    , m_pass(camera.port())
    , m_root(std::make_unique<Group>())
    , m_targets(std::move(targets))
    , m_total(features.size() + m_targets.size())
{
    camera.port().invalidate();
    for (const Feature* feature : features) {
        add(*feature);
    }
    m_frames.push_back({ m_root.get(), {} });
    beginAhead(m_root->features);
}

SettingsReading::~SettingsReading() = default;

void SettingsReading::beginAhead(const std::vector<const Feature*>& features)
{
    if (!m_camera.port().backend().prefersBatches()) {
        return;
    }
    const std::vector<Feature>& all = m_camera.features();
    std::vector<bool> wanted(all.size(), false);
    for (const Feature* feature : features) {
        wanted[static_cast<std::size_t>(feature - all.data())] = true;
    }
    for (const LineTarget& target : m_targets) {
        const auto index = static_cast<std::size_t>(target.feature - all.data());
        wanted[index] = wanted[index] || target.path.empty();
    }
    (void)m_positions.goTo({}); // what was read ahead is only good until a selector moves
    m_ahead = std::make_unique<ReadAhead>(m_camera, Registers(), std::move(wanted));
    m_isWaiting = true;
}

void SettingsReading::stepAhead()
{
    m_isWaiting = m_ahead->step() == ReadAhead::State::Running;
}

void SettingsReading::add(const Feature& feature)
{
    Group* group = m_root.get();
    for (const Feature* selector : selectorsOf(m_camera, feature)) {
        group = &group->below(selector);
    }
    group->features.push_back(&feature);
}

bool SettingsReading::step()
{
    if (m_isWaiting) {
        stepAhead();
        return true;
    }
    if (!m_frames.empty()) {
        return stepFeatures();
    }
    return stepTargets();
}

bool SettingsReading::stepFeatures()
{
    Frame& frame = m_frames.back();
    if (frame.feature < frame.group->features.size()) {
        frame.feature += readFeature(*frame.group->features[frame.feature]) ? 1U : 0U;
        return true;
    }
    if (frame.selected < frame.group->selected.size()) {
        const auto& [selector, group] = frame.group->selected[frame.selected++];
        if (!open(*selector, *group)) {
            --frame.selected;
        }
        return true;
    }
    frame.feature = 0;
    frame.selected = 0;
    if (++frame.position < frame.positions.size()) {
        m_path.back().value = frame.positions[frame.position];
        return true;
    }
    if (!frame.positions.empty()) {
        m_path.pop_back();
    }
    m_frames.pop_back();
    if (m_frames.empty()) {
        planTargets();
    }
    return true;
}

std::string SettingsReading::labelOf(const Feature& feature, const SelectorPath& path) const
{
    return ZQSettingsLine { feature.name, statesOf(path), {}, {}, 0 }.label();
}

Result<std::string> SettingsReading::readAt(const Feature& feature, const SelectorPath& path)
{
    if (const Status there = m_positions.goTo(path); !there.isOk()) {
        return there;
    }
    std::optional<RegisterPort::Ahead> ahead;
    if (path.empty() && m_ahead && m_ahead->isCurrent()) {
        ahead.emplace(m_camera.port(), m_ahead->known());
    }
    Result<std::string> value = readSettingSurely(m_camera, feature);
    if (value.isOk() && m_camera.reader().state(feature) == FEATURE_LOCKED) {
        m_locked.insert(&feature);
    }
    return value;
}

bool SettingsReading::isToBeAskedAgain(const Status& status)
{
    return !isAnswer(status) && m_camera.port().backend().isLost();
}

bool SettingsReading::readFeature(const Feature& feature)
{
    const std::string label = labelOf(feature, m_path);
    const Result<std::string> value = readAt(feature, m_path);
    if (isToBeAskedAgain(value.status())) {
        return false;
    }
    ++m_done;
    if (value.isOk()) {
        m_values.emplace(label, value.value());
        m_lines.emplace_back(
            &feature, lineOf(m_camera.description(), feature, m_path, value.value()));
    } else if (value.status().code() != unknownFeature) {
        m_leftOut.push_back({ label, value.status().words().english() });
    }
    return true;
}

void SettingsReading::leaveOut(const Group& group, const std::string& reason)
{
    for (const Feature* feature : group.features) {
        m_leftOut.push_back({ labelOf(*feature, m_path), reason });
        ++m_done;
    }
    for (const auto& entry : group.selected) {
        leaveOut(*entry.second, reason);
    }
}

/// Why the selector cannot be moved through its positions now, or not back again.
Status SettingsReading::movability(
    const Feature& selector, const std::string& present, const std::vector<std::string>& positions)
{
    if (m_camera.reader().presentAccess(selector) != ACCESS_READ_WRITE) {
        return { notWritable, "is read-only" };
    }
    if (m_camera.reader().state(selector) == FEATURE_LOCKED) {
        return { featureLocked, "cannot be moved now" };
    }
    const bool canGoBack
        = std::find(positions.begin(), positions.end(), present) != positions.end();
    return canGoBack ? Status() : Status(unknownEntry, "could not be put back to where it stands");
}

bool SettingsReading::open(const Feature& selector, const Group& group)
{
    const Status there = m_positions.goTo(m_path);
    const Result<std::string> present
        = there.isOk() ? readSettingSurely(m_camera, selector) : Result<std::string>(there);
    const int code = present.status().code();
    if (code == unknownFeature || code == notAvailable) { // then it does not choose either
        m_frames.push_back({ &group, {} });
        return true;
    }
    Result<std::vector<std::string>> positions
        = present.isOk() ? positionsOf(selector) : present.status();
    if (isToBeAskedAgain(positions.status())) {
        return false;
    }
    if (!positions.isOk()) {
        leaveOut(group, selector.name + ": " + positions.status().words().english());
        return true;
    }
    const Status canMove = movability(selector, present.value(), positions.value());
    if (!canMove.isOk()) {
        leaveOut(group,
            "saved only as it is at " + selector.name + "=" + present.value() + ", which "
                + canMove.words().english());
        positions.value() = { present.value() };
    }
    m_path.push_back({ &selector, positions.value().front() });
    m_total += (positions.value().size() - 1) * group.features.size();
    m_frames.push_back({ &group, std::move(positions.value()) });
    return true;
}

/// All where the selector can stand.
Result<std::vector<std::string>> SettingsReading::positionsOf(const Feature& selector)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    Result<std::vector<std::string>> positions = std::vector<std::string>();
    if (selector.type == FEATURE_ENUMERATION) {
        for (const EnumEntry* entry : m_camera.reader().availableEntries(selector)) {
            positions.value().push_back(entry->name);
        }
    } else if (selector.type == FEATURE_BOOLEAN) {
        positions.value() = { "False", "True" };
    } else if (selector.type == FEATURE_INTEGER) {
        positions = integerPositions(selector);
    } else {
        positions = Status(wrongKind, "is a selector whose positions cannot be told");
    }
    if (failures.hasFailed()) {
        return failures.status();
    }
    std::size_t product = positions.value().size();
    for (const Frame& frame : m_frames) {
        product *= std::max<std::size_t>(frame.positions.size(), 1);
    }
    if (product > mostOfFeature) {
        return Status(refused,
            "with the selectors around it there are " + std::to_string(product)
                + " positions, at most " + std::to_string(mostOfFeature) + " are saved");
    }
    return positions;
}

Result<std::vector<std::string>> SettingsReading::integerPositions(const Feature& selector)
{
    const Result<IntegerLimits> told = integerLimits(m_camera.nodes(), selector);
    if (!told.isOk()) {
        return told.status();
    }
    const IntegerLimits& limits = told.value();
    const auto first = static_cast<std::uint64_t>(limits.minimum);
    const std::uint64_t range = static_cast<std::uint64_t>(limits.maximum) - first;
    const auto step = static_cast<std::uint64_t>(std::max<std::int64_t>(limits.increment, 1));
    if (limits.maximum < limits.minimum) {
        return Status(notEvaluable, "has no position now");
    }
    if (range / step >= mostOfInteger) {
        return Status(refused,
            "has " + std::to_string(range / step + 1) + " positions, at most "
                + std::to_string(mostOfInteger) + " are saved");
    }
    std::vector<std::string> positions;
    for (std::uint64_t distance = 0; distance <= range; distance += step) {
        const auto value = static_cast<std::int64_t>(first + distance);
        if (isInValueSet(*selector.node, value)) {
            positions.push_back(integerText(value));
        }
    }
    return positions;
}

/// Those that the features have not covered, so that nothing is read twice.
void SettingsReading::planTargets()
{
    std::vector<LineTarget> remaining;
    for (LineTarget& target : m_targets) {
        const auto known = m_values.find(labelOf(*target.feature, target.path));
        if (known != m_values.end()) {
            m_read.emplace(target.line, known->second);
            ++m_done;
        } else {
            remaining.push_back(std::move(target));
        }
    }
    m_targets = std::move(remaining);
    sortByPositions(m_targets);
}

bool SettingsReading::stepTargets()
{
    if (m_nextTarget == m_targets.size()) {
        return false;
    }
    const LineTarget& target = m_targets[m_nextTarget];
    const Result<std::string> value = readAt(*target.feature, target.path);
    if (!isToBeAskedAgain(value.status())) {
        m_read.emplace(target.line, value);
        ++m_nextTarget;
        ++m_done;
    }
    return true;
}

std::vector<ZQSettingsLine> SettingsReading::takeLines()
{
    std::stable_sort(m_lines.begin(), m_lines.end(),
        [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<ZQSettingsLine> lines;
    for (auto& entry : m_lines) {
        lines.push_back(std::move(entry.second));
    }
    m_lines.clear();
    return lines;
}

} // namespace zqcameralib
