// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "capture/SelectorPositions.h"

#include "base/StatusCodes.h"
#include "capture/SettingAccess.h"
#include "settings/TextLines.h"
#include "words/Words.h"

#include <utility>

namespace zqcameralib {

namespace {

/// A single access may fail where the camera is all right.
constexpr int tries = 3;

Status named(const Feature& selector, const Status& status)
{
    return status.withText(selector.name + ": " + status.words());
}

Result<std::string> readPosition(ZQCamera::Impl& camera, const Feature& selector)
{
    Result<std::string> position = readSetting(camera, selector);
    for (int i = 1; i < tries && !position.isOk() && !camera.port().backend().isLost(); ++i) {
        position = readSetting(camera, selector);
    }
    return position;
}

/// Written only where it does not stand there; and read back, since everything that is read
/// afterwards is taken for that of this position.
Status place(ZQCamera::Impl& camera, const Feature& selector, const std::string& value)
{
    const Result<std::string> before = readPosition(camera, selector);
    if (!before.isOk() || isSetting(selector, value, before.value())) {
        return before.status();
    }
    const Status status = writeSetting(camera, selector, value);
    const Result<std::string> now = readPosition(camera, selector);
    if (now.isOk() && isSetting(selector, value, now.value())) {
        return {};
    }
    return status.isOk() && now.isOk() ? Status(refused,
               worded("does not take %s, stands at %s", shown(value).c_str(),
                   shown(now.value()).c_str()))
        : !status.isOk()               ? status
                                       : now.status();
}

} // namespace

std::vector<ZQSelectorState> statesOf(const SelectorPath& path)
{
    std::vector<ZQSelectorState> states;
    for (const SelectorPosition& position : path) {
        states.push_back({ position.selector->name, position.value });
    }
    return states;
}

Status SelectorPositions::move(Moved& moved, const std::string& value)
{
    if (moved.present == value) {
        return {};
    }
    Status status;
    moved.present.clear();
    for (int i = 0; i < tries; ++i) {
        status = place(m_camera, *moved.selector, value);
        if (status.isOk()) {
            moved.present = value;
            return {};
        }
        if (m_camera.port().backend().isLost()) {
            break;
        }
    }
    return named(*moved.selector, status);
}

/// What cannot be put back stays where it is, and shall not keep the others from it.
Status SelectorPositions::backOne()
{
    const Moved& last = m_moved.back();
    const Words what = worded(
        "%s could not be put back to %s", last.selector->name.c_str(), last.original.c_str());
    Status status = move(m_moved.back(), last.original);
    RegisterBackend& backend = m_camera.port().backend();
    if (!status.isOk() && backend.isLost() && !backend.isGivenUp() && !m_isLastCall) {
        return status;
    }
    if (!status.isOk() && m_stuck.isOk()) {
        m_stuck = status.withText(what + ": " + status.words());
    }
    m_moved.pop_back();
    return {};
}

Status SelectorPositions::enter(const SelectorPosition& position)
{
    const Result<std::string> original = readPosition(m_camera, *position.selector);
    if (!original.isOk()) {
        return named(*position.selector, original.status());
    }
    m_moved.push_back({ position.selector, original.value(), original.value() });
    return move(m_moved.back(), position.value);
}

Status SelectorPositions::goTo(const SelectorPath& path)
{
    std::size_t same = 0;
    while (same < m_moved.size() && same < path.size()
        && m_moved[same].selector == path[same].selector
        && m_moved[same].present == path[same].value) {
        ++same;
    }
    const bool movesOn = same < m_moved.size() && same < path.size()
        && m_moved[same].selector == path[same].selector;
    while (m_moved.size() > same + (movesOn ? 1 : 0)) {
        if (Status status = backOne(); !status.isOk()) {
            return status;
        }
    }
    if (movesOn) {
        if (Status status = move(m_moved.back(), path[same].value); !status.isOk()) {
            return status;
        }
    }
    while (m_moved.size() < path.size()) {
        if (Status status = enter(path[m_moved.size()]); !status.isOk()) {
            return status;
        }
    }
    return {};
}

Status SelectorPositions::putBack()
{
    m_isLastCall = true;
    (void)goTo({}); // which does not fail then
    m_isLastCall = false;
    return std::exchange(m_stuck, {});
}

void SelectorPositions::doubt()
{
    for (Moved& moved : m_moved) {
        moved.present.clear();
    }
}

void SelectorPositions::forget()
{
    m_moved.clear();
    m_stuck = {};
}

} // namespace zqcameralib
