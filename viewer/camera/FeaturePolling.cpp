// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/FeaturePolling.h"

#include "camera/CameraTaskBar.h"

#include <QByteArrayList>
#include <QTreeView>

#include <algorithm>

namespace zqviewer {

using namespace featurebrowser;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds lookPeriod(100);
/// Of what is pinned, or shown beside the browser, when the description gives no shorter one.
constexpr milliseconds watchedPeriod(1000);
constexpr milliseconds never(0);
/// What the camera is left alone for after it has answered, in times of the answer.
constexpr int restFactor = 3;

/// What a row shows of its record.
bool isSameShown(const FeatureItem& a, const FeatureItem& b)
{
    return a.valueText == b.valueText && a.displayFlag == b.displayFlag
        && a.accessMode == b.accessMode && a.lockedFlag == b.lockedFlag && a.intMin == b.intMin
        && a.intMax == b.intMax && a.intInc == b.intInc && a.floatMin == b.floatMin
        && a.floatMax == b.floatMax && a.enumEntries == b.enumEntries;
}

} // namespace

FeaturePolling::FeaturePolling(
    OpenedCamera& camera, ZQFeatureBrowser& browser, QTreeView& tree, CameraTaskBar& tasks)
    : m_camera(camera)
    , m_browser(browser)
    , m_tree(tree)
    , m_tasks(tasks)
{
    connect(&m_timer, &QTimer::timeout, this, &FeaturePolling::look);
    m_timer.start(lookPeriod);
}

bool FeaturePolling::isIdle() const
{
    return !m_isPaused && m_tree.isVisible() && !m_tree.window()->isMinimized()
        && !m_tasks.isRunning() && !m_camera.camera().isLost() && m_camera.repository().isLoaded()
        && Clock::now() >= m_rest;
}

/// The rows on the screen from the top, then what is watched.
std::vector<std::string> FeaturePolling::wanted() const
{
    std::vector<std::string> names;
    const int nameRole = m_tree.model()->roleNames().key("name");
    const int bottom = m_tree.viewport()->height();
    for (QModelIndex index = m_tree.indexAt({ 0, 0 });
         index.isValid() && m_tree.visualRect(index).top() < bottom;
         index = m_tree.indexBelow(index)) {
        names.push_back(index.data(nameRole).toByteArray().toStdString());
    }
    return names;
}

FeaturePolling::Polled& FeaturePolling::polled(const std::string& name)
{
    auto found = m_features.find(name);
    if (found == m_features.end()) {
        const milliseconds period = m_camera.repository().GetPollingTime(name);
        found = m_features.emplace(name, Polled { period, Clock::now() }).first;
    }
    return found->second;
}

/// One feature a turn: the one that has waited longest beyond its time.
void FeaturePolling::look()
{
    if (!isIdle()) {
        return;
    }
    const Clock::time_point now = Clock::now();
    Clock::duration longest(0);
    std::string next;
    const auto consider = [&](const std::string& name, milliseconds atMost) {
        const Polled& feature = polled(name);
        const milliseconds period = feature.period == never ? atMost
            : atMost == never                               ? feature.period
                                                            : std::min(feature.period, atMost);
        const Clock::duration late = now - feature.isRead - period;
        if (period != never && late > longest) {
            longest = late;
            next = name;
        }
    };
    for (const std::string& name : wanted()) {
        consider(name, never);
    }
    const auto pins = m_browser.GetWidget()->property("pinnedFeatures").value<QByteArrayList>();
    for (const QByteArray& name : pins) {
        consider(name.toStdString(), watchedPeriod);
    }
    for (const std::string& name : m_followed) {
        consider(name, watchedPeriod);
    }
    if (!next.empty()) {
        poll(next, m_features.at(next));
    }
}

void FeaturePolling::poll(const std::string& name, Polled& polled)
{
    const Clock::time_point begin = Clock::now();
    const auto item = m_camera.repository().GetFeature(name);
    if (item && item->type != FEATURE_CATEGORY && item->type != FEATURE_COMMAND) {
        const FeatureItem before = *item;
        const auto state = m_camera.repository().GetFeatureStates()[name];
        const bool isRead = m_camera.repository().ReadFeature(item);
        if (!isSameShown(before, *item)) {
            m_browser.RefreshFeature(name);
        }
        if (m_camera.repository().GetFeatureStates()[name] != state) {
            m_browser.RefreshStates();
        }
        if (!isRead) {
            Q_EMIT failed();
        }
    }
    const Clock::time_point end = Clock::now();
    polled.isRead = end;
    m_rest = end + restFactor * (end - begin);
}

} // namespace zqviewer
