// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "transfer/UserSet.h"

#include "capture/SettingAccess.h"
#include "operations/DeviceOperations.h"
#include "settings/TextLines.h"
#include "words/Words.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace zqcameralib {

namespace {

constexpr const char* selectorName = "UserSetSelector";
/// Saving may have to erase a flash memory first.
constexpr std::chrono::seconds longestRun(30);
constexpr std::chrono::milliseconds pollPeriod(1);
constexpr std::size_t mostNamed = 5;

const Feature* setSelector(const ZQCamera::Impl& camera)
{
    const Feature* selector = camera.feature(selectorName);
    const bool isUsable = selector != nullptr && selector->isUsable()
        && selector->type == featurebrowser::FEATURE_ENUMERATION;
    return isUsable ? selector : nullptr;
}

} // namespace

std::vector<std::string> ZQUserSet::Impl::names(ZQCamera::Impl& camera)
{
    const Feature* selector = setSelector(camera);
    if (selector == nullptr || camera.feature("UserSetLoad") == nullptr
        || camera.reader().state(*selector) != featurebrowser::FEATURE_AVAILABLE) {
        return {};
    }
    std::vector<std::string> names;
    for (const EnumEntry* entry : camera.reader().availableEntries(*selector)) {
        names.push_back(entry->name);
    }
    return names;
}

ZQUserSet::Impl::Impl(ZQCamera& camera, std::string set, Action action)
    : SettingsTask(camera)
    , m_opened(camera)
    , m_set(std::move(set))
    , m_action(action)
    , m_phase(action == Action::LookInto ? Phase::ReadNow : Phase::Start)
{
}

ZQCameraTask::Progress ZQUserSet::Impl::progress() const
{
    if (m_restoring) {
        return m_restoring->progress();
    }
    if (m_saving) {
        return m_saving->progress();
    }
    return { m_action == Action::Save ? translated("Saving the user set")
                                      : translated("Loading the user set"),
        0, 0 };
}

SettingsTask::Step ZQUserSet::Impl::step()
{
    switch (m_phase) {
    case Phase::ReadNow:
        return readInto(m_now, Phase::Start);
    case Phase::Start:
        return start();
    case Phase::Run:
        return run();
    case Phase::ReadContents:
        return readInto(m_contents, Phase::Restore);
    default:
        return restore();
    }
}

SettingsTask::Step ZQUserSet::Impl::readInto(ZQSettings& settings, Phase next)
{
    if (!m_saving) {
        m_saving.emplace(m_opened, nullptr);
    }
    const State state = m_saving->poll();
    if (state == State::Running) {
        return Step::Next;
    }
    if (state != State::Done) {
        fail(m_saving->error());
        return Step::Over;
    }
    settings = m_saving->takeSettings();
    m_saving.reset();
    m_phase = next;
    return Step::Next;
}

SettingsTask::Step ZQUserSet::Impl::start()
{
    const std::vector<std::string> known = names(camera());
    if (std::find(known.begin(), known.end(), m_set) == known.end()) {
        fail(known.empty() ? translated("the camera offers no user sets now")
                           : worded("there is no user set %s now", shown(m_set).c_str()));
        return Step::Over;
    }
    Status status = positions().goTo({ { setSelector(camera()), m_set } });
    if (status.isOk()) {
        const CallScope call(camera().port().backend());
        m_isToBeRestored = m_action == Action::LookInto;
        status = DeviceOperations(camera()).execute(command(), false);
        m_isToBeRestored = m_isToBeRestored && (status.isOk() || !isAnswer(status));
    }
    if (!status.isOk()) {
        fail(status.text());
        return Step::Over;
    }
    m_runEnd = Clock::now() + longestRun;
    m_phase = Phase::Run;
    return Step::Next;
}

/// Until the command's register says that it is done.
SettingsTask::Step ZQUserSet::Impl::run()
{
    const Feature& feature = *camera().feature(command());
    RegisterPort& port = camera().port();
    port.invalidate();
    const CallScope call(port.backend());
    const RegisterPort::FailureScope failures(port);
    const Result<Number> isDone = camera().nodes().number(feature.index);
    const bool goesOn = feature.commandRegister != Description::absent
        && (failures.hasFailed() || (isDone.isOk() && isDone.value().isZero()));
    if (goesOn && Clock::now() < m_runEnd) {
        return Step::Wait;
    }
    positions().doubt(); // where a set keeps the position as well
    const Status back = positions().putBack();
    if (goesOn || !back.isOk()) {
        fail(goesOn ? command() + (": " + translated("not done yet; it goes on in the camera"))
                    : back.words());
        return Step::Over;
    }
    m_phase = Phase::ReadContents;
    return m_action == Action::LookInto ? Step::Next : Step::Over;
}

SettingsTask::Step ZQUserSet::Impl::restore()
{
    if (!m_restoring) {
        m_restoring.emplace(m_opened, m_now, ZQSettingsRestoring::Options());
    }
    if (m_restoring->poll() == State::Running) {
        return Step::Next;
    }
    m_isToBeRestored = false;
    return Step::Over;
}

/// The camera is not left with the settings of the set, however it ended.
void ZQUserSet::Impl::finish()
{
    m_saving.reset();
    if (m_isToBeRestored && isSameCamera() && !camera().port().backend().isLost()) {
        const Clock::time_point end = Clock::now() + longestRun;
        while (restore() != Step::Over && Clock::now() < end) {
            std::this_thread::sleep_for(pollPeriod);
        }
    }
    if (m_restoring) {
        m_report = m_restoring->report();
        m_restoring.reset();
        warn();
    }
}

void ZQUserSet::Impl::warn()
{
    const std::vector<ZQSettingsLeftOut>& leftOut = m_now.leftOut();
    if (leftOut.empty()) {
        return;
    }
    std::string text = translated("not put back, since it could not be saved").text() + ": ";
    for (std::size_t i = 0; i < std::min(leftOut.size(), mostNamed); ++i) {
        text += (i == 0 ? "" : ", ") + leftOut[i].label;
    }
    const std::size_t more = leftOut.size() - std::min(leftOut.size(), mostNamed);
    m_report.warnings.push_back(text + (more == 0 ? "" : " " + worded("and %zu more", more)));
}

} // namespace zqcameralib
