// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"
#include "capture/SettingAccess.h"
#include "transfer/SettingsRestoring.h"
#include "words/Words.h"

namespace zqcameralib {

using Outcome = ZQRestoredLine::Outcome;

/// Whether that is known: an access that failed says nothing of what the camera holds.
bool ZQSettingsRestoring::Impl::isRefused(const Goal& goal) const
{
    if (goal.refusal.isOk()) {
        return false;
    }
    const bool isRead = goal.now && goal.now->isOk();
    return isRead || (goal.writes == 0 && isAnswer(goal.refusal));
}

void ZQSettingsRestoring::Impl::conclude(const Goal& goal, ZQRestoredLine& line) const
{
    line.before = goal.before && goal.before->isOk() ? goal.before->value() : "";
    line.now = goal.now && goal.now->isOk() ? goal.now->value() : "";
    line.reason.clear();
    if (isHeld(goal, goal.now)) {
        line.outcome = isHeld(goal, goal.before) ? Outcome::AlreadySo : Outcome::Restored;
    } else if (m_options.isDryRun && goal.before) {
        line.outcome = Outcome::WouldBeWritten;
    } else if (isRefused(goal)) {
        line.outcome = Outcome::Refused;
        line.reason = goal.refusal.text();
    } else if (goal.now && goal.now->isOk() && goal.writes > 0) {
        line.outcome = Outcome::Adjusted;
    } else {
        concludeUnread(goal, line);
    }
    if (goal.now && goal.now->status().code() == unknownFeature) {
        line.outcome = Outcome::UnknownHere;
        line.reason = goal.now->status().text();
    }
}

void ZQSettingsRestoring::Impl::concludeUnread(const Goal& goal, ZQRestoredLine& line) const
{
    line.outcome = Outcome::NotKnown;
    const Words begin = goal.writes > 0 ? translated("was written, and") + " " : Words();
    if (goal.now && !goal.now->isOk()) {
        line.reason = begin + translated("cannot be read") + ": " + goal.now->status().text();
    } else if (!goal.refusal.isOk()) {
        line.reason = begin + goal.refusal.text();
    } else if (goal.before && !goal.now) {
        line.reason = begin + translated("not read again after other writes");
    } else {
        line.reason = translated("not reached");
    }
}

void ZQSettingsRestoring::Impl::finish()
{
    m_reading.reset();
    m_pass.reset();
    for (const Goal& goal : m_goals) {
        conclude(goal, m_report.lines[goal.target.line]);
    }
    if (state() == State::Cancelled) {
        m_report.error = translated("cancelled");
    } else if (state() == State::Failed) {
        m_report.error = error();
    }
    if (m_writes == 0) {
        m_before = {};
    }
}

} // namespace zqcameralib
