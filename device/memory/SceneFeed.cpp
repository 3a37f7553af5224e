// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/SceneFeed.h"

#include <utility>

namespace zqcameralib {

using Lock = std::lock_guard<std::mutex>;

void SceneFeed::tell()
{
    m_isTold = true;
    m_told.notify_one();
}

void SceneFeed::setSettings(SceneSettings settings)
{
    const Lock lock(m_mutex);
    m_order.settings = std::move(settings);
    ++m_order.settingsNumber;
    tell();
}

void SceneFeed::setSending(bool isSending)
{
    const Lock lock(m_mutex);
    m_order.isSending = isSending;
    m_order.triggers = 0;
    tell();
}

void SceneFeed::trigger()
{
    const Lock lock(m_mutex);
    const SceneTrigger& trigger = m_order.settings.trigger;
    const bool isMeant = trigger.isAwaited && trigger.isSoftware && trigger.isSelected;
    if (isMeant && m_order.isSending) {
        ++m_order.triggers;
        tell();
    }
}

bool SceneFeed::takeEnd()
{
    const Lock lock(m_mutex);
    return std::exchange(m_hasEnded, false);
}

SceneFeed::Order SceneFeed::take()
{
    const Lock lock(m_mutex);
    m_isTold = false;
    return m_order;
}

void SceneFeed::answerTrigger()
{
    const Lock lock(m_mutex);
    m_order.triggers -= m_order.triggers > 0 ? 1 : 0;
}

void SceneFeed::wait(std::chrono::milliseconds longest)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_told.wait_for(lock, longest, [this] { return m_isTold; });
}

void SceneFeed::end()
{
    const Lock lock(m_mutex);
    m_hasEnded = true;
}

} // namespace zqcameralib
