// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "transfer/SettingsRestoring.h"

#include "base/StatusCodes.h"
#include "capture/SettingAccess.h"
#include "capture/SettingsPlan.h"
#include "words/Words.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zqcameralib {

using Outcome = ZQRestoredLine::Outcome;

namespace {

/// Of writing and reading back: two lines may change each other for ever.
constexpr int mostPasses = 6;
constexpr int mostWritesOfALine = 3;

} // namespace

ZQSettingsRestoring::Impl::Impl(
    ZQCamera& camera, const ZQSettings& settings, const Options& options)
    : SettingsTask(camera)
    , m_settings(settings)
    , m_options(options)
{
    m_report.isDryRun = options.isDryRun;
    for (const ZQSettingsLine& line : settings.lines()) {
        m_report.lines.push_back({ line, Outcome::NotKnown, {}, {}, translated("not reached") });
    }
}

ZQCameraTask::Progress ZQSettingsRestoring::Impl::progress() const
{
    const std::size_t done = m_reading ? m_reading->done() : m_next;
    const std::size_t total = m_reading ? m_reading->total() : m_queue.size();
    switch (m_phase) {
    case Phase::Check:
        return { translated("Reading the settings back"), done, total };
    case Phase::Write:
        return { translated("Writing the settings"), done, total };
    default:
        return { translated("Reading the settings"), done, total };
    }
}

void ZQSettingsRestoring::Impl::stop()
{
    const bool canReadBack = state() == State::Running && m_writes > 0 && !m_isStopped;
    if (!canReadBack) {
        SettingsTask::cancel();
        return;
    }
    m_isStopped = true;
    if (m_phase != Phase::Check) {
        beginCheck();
    }
}

bool ZQSettingsRestoring::Impl::checkTime()
{
    if (!m_end && m_options.limit.count() > 0) {
        m_end = Clock::now() + m_options.limit;
    }
    if (m_isStopped || !m_end || Clock::now() < *m_end) {
        return true;
    }
    m_stopReason = worded("not done within %s ms", std::to_string(m_options.limit.count()).c_str());
    if (m_writes == 0) {
        fail(m_stopReason);
        return false;
    }
    stop();
    return true;
}

SettingsTask::Step ZQSettingsRestoring::Impl::step()
{
    if (!checkTime()) {
        return Step::Over;
    }
    switch (m_phase) {
    case Phase::Begin:
        return begin();
    case Phase::Read:
        return read();
    case Phase::Order:
        return order();
    case Phase::Write:
        return write();
    default:
        return check();
    }
}

SettingsTask::Step ZQSettingsRestoring::Impl::read()
{
    if (m_before.header().date.empty()) {
        m_before.setHeader(settingsHeader(camera()));
        warn();
        return Step::Next;
    }
    if (m_reading->step()) {
        return m_reading->isWaiting() ? Step::Wait : Step::Next;
    }
    for (Goal& goal : m_goals) {
        const auto found = m_reading->targets().find(goal.target.line);
        if (found != m_reading->targets().end()) {
            goal.before = found->second;
            goal.now = found->second;
        }
        goal.isLocked = m_reading->isLocked(*goal.target.feature);
    }
    keepBefore(m_reading->takeLines());
    m_reading.reset();
    return m_options.isDryRun ? Step::Over : planOrder();
}

const ZQSettingsLine& ZQSettingsRestoring::Impl::lineOf(const Goal& goal) const
{
    return m_settings.lines()[goal.target.line];
}

bool ZQSettingsRestoring::Impl::isHeld(
    const Goal& goal, const std::optional<Result<std::string>>& value) const
{
    return value && value->isOk()
        && isSetting(*goal.target.feature, lineOf(goal).value, value->value());
}

/// Not when nothing has changed since it was tried in vain.
bool ZQSettingsRestoring::Impl::isWorthTrying(const Goal& goal) const
{
    const bool isNew = goal.writes == 0 && goal.refusal.isOk();
    return !isHeld(goal, goal.now) && !goal.isSettled && goal.writes < mostWritesOfALine
        && (isNew || goal.tried < m_writes);
}

std::vector<LineTarget> ZQSettingsRestoring::Impl::targets(bool withTables) const
{
    std::vector<LineTarget> targets;
    for (const Goal& goal : m_goals) {
        if (withTables || !goal.isOfTable) {
            targets.push_back(goal.target);
        }
    }
    return targets;
}

RestoreOrder::Features ZQSettingsRestoring::Impl::features(bool onlyToBeWritten) const
{
    std::set<const Feature*> features;
    for (const Goal& goal : m_goals) {
        if (!onlyToBeWritten || isWorthTrying(goal)) {
            features.insert(goal.target.feature);
        }
    }
    return { features.begin(), features.end() };
}

/// What is to be written now; over when nothing is.
SettingsTask::Step ZQSettingsRestoring::Impl::planOrder()
{
    RestoreOrder::Features written = features(true);
    if (written.empty() || ++m_passes > mostPasses) {
        return Step::Over;
    }
    m_order.emplace(camera(), std::move(written), features(false));
    m_phase = Phase::Order;
    return Step::Next;
}

SettingsTask::Step ZQSettingsRestoring::Impl::order()
{
    if (m_order->step()) {
        return Step::Next;
    }
    const auto closedOf = [this](const Feature& feature) {
        RestoreOrder::Closed closed;
        for (const Goal& goal : m_goals) {
            if (goal.target.feature == &feature) {
                closed.isLocked = closed.isLocked || goal.isLocked;
                closed.isUnavailable = closed.isUnavailable || (goal.now && !goal.now->isOk());
            }
        }
        return closed;
    };
    const RestoreOrder::Features ordered = m_order->order(closedOf);
    std::vector<LineTarget> run;
    m_queue.clear();
    const auto goalOf = [this](std::size_t line) {
        const auto found = std::find_if(m_goals.begin(), m_goals.end(),
            [line](const Goal& goal) { return goal.target.line == line; });
        return static_cast<std::size_t>(found - m_goals.begin());
    };
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        for (const Goal& goal : m_goals) {
            if (goal.target.feature == ordered[i] && isWorthTrying(goal)) {
                run.push_back(goal.target);
            }
        }
        const bool isLast = i + 1 == ordered.size()
            || selectorsOf(camera(), *ordered[i]) != selectorsOf(camera(), *ordered[i + 1]);
        if (isLast) { // what the same selectors choose is written position by position
            sortByPositions(run);
            for (const LineTarget& target : run) {
                m_queue.push_back(goalOf(target.line));
            }
            run.clear();
        }
    }
    beginRound();
    return Step::Next;
}

SettingsTask::Step ZQSettingsRestoring::Impl::write()
{
    if (m_next < m_queue.size()) {
        writeGoal(m_goals[m_queue[m_next++]]);
        return Step::Next;
    }
    return endOfRound();
}

/// Once more for those that were refused, if anything was taken; then all is read back.
SettingsTask::Step ZQSettingsRestoring::Impl::endOfRound()
{
    const bool isStuck = m_writesAtRound == m_writes;
    m_queue.erase(std::remove_if(m_queue.begin(), m_queue.end(),
                      [this](std::size_t i) { return m_goals[i].refusal.isOk(); }),
        m_queue.end());
    if (isStuck || m_queue.empty()) {
        beginCheck();
    } else {
        beginRound();
    }
    return Step::Next;
}

/// With nothing known that was read before.
void ZQSettingsRestoring::Impl::beginRound()
{
    m_next = 0;
    m_writesAtRound = m_writes;
    camera().port().invalidate();
    m_pass.emplace(camera().port());
    m_phase = Phase::Write;
}

void ZQSettingsRestoring::Impl::beginCheck()
{
    m_pass.reset();
    m_reading.emplace(camera(), positions(), RestoreOrder::Features(), targets(true));
    m_phase = Phase::Check;
}

/// What was read for the checks before still holds but for what the description says to depend on
/// the feature.
Status ZQSettingsRestoring::Impl::send(const Goal& goal)
{
    const Feature& feature = *goal.target.feature;
    const RegisterPort::Keeping keeping(camera().port(),
        [this, &feature](const Register& place) { return m_order->affects(feature, place); });
    return writeSetting(camera(), feature, lineOf(goal).value);
}

void ZQSettingsRestoring::Impl::writeGoal(Goal& goal)
{
    const Feature& feature = *goal.target.feature;
    goal.tried = m_writes;
    goal.refusal = positions().goTo(goal.target.path);
    if (!goal.refusal.isOk()) {
        return;
    }
    goal.now = readSettingSurely(camera(), feature);
    if (!goal.before) {
        goal.before = goal.now;
        if (goal.now->isOk()) {
            keepBefore(goal);
        }
    }
    if (isHeld(goal, goal.now)) {
        return;
    }
    const std::optional<Result<std::string>> last = goal.writes > 0 ? goal.now : std::nullopt;
    const std::uint64_t sent = camera().port().writes();
    goal.refusal = send(goal);
    if (camera().port().writes() == sent && !goal.refusal.isOk()) {
        return;
    }
    // One that has failed may have arrived all the same.
    goal.now = readSettingSurely(camera(), feature);
    const bool isTaken = goal.refusal.isOk() || isHeld(goal, goal.now);
    noteWritten(goal);
    if (isTaken) {
        goal.refusal = {};
        ++goal.writes;
        goal.tried = ++m_writes;
        goal.isSettled
            = last && last->isOk() && goal.now->isOk() && last->value() == goal.now->value();
    }
}

/// What other lines hold is only known again when it is read again.
void ZQSettingsRestoring::Impl::noteWritten(const Goal& written)
{
    for (Goal& goal : m_goals) {
        if (&goal != &written && goal.now
            && m_order->affects(*written.target.feature, *goal.target.feature)) {
            goal.now.reset();
        }
    }
}

SettingsTask::Step ZQSettingsRestoring::Impl::check()
{
    if (m_reading->step()) {
        return m_reading->isWaiting() ? Step::Wait : Step::Next;
    }
    for (Goal& goal : m_goals) {
        const auto found = m_reading->targets().find(goal.target.line);
        if (found != m_reading->targets().end()) {
            goal.now = found->second;
        }
        goal.isLocked = m_reading->isLocked(*goal.target.feature);
    }
    m_reading.reset();
    if (!m_isStopped) {
        return planOrder();
    }
    if (m_stopReason.empty()) {
        SettingsTask::cancel();
    } else {
        fail(m_stopReason);
    }
    return Step::Over;
}

} // namespace zqcameralib
