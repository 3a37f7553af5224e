// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/CameraWindows.h"

#include "images/ImagePane.h"
#include "images/LiveImage.h"
#include "log/EventLog.h"
#include "opening/OpeningWindow.h"
#include "opening/StartPage.h"
#include "window/ViewerWindow.h"

#include <QApplication>

#include <algorithm>

namespace zqviewer {

namespace {

/// By which a further window stands beside the one before.
constexpr QPoint cascade(32, 32);

template <typename List, typename Item> auto find(List& list, const Item* item)
{
    return std::find_if(
        list.begin(), list.end(), [item](const auto& owned) { return owned.get() == item; });
}

void raise(QWidget& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

CameraWindows::CameraWindows(std::optional<featurebrowser::TYPE_LEVEL> level)
    : m_level(level)
    , m_log(std::make_shared<EventLog>())
{
    QApplication::setQuitOnLastWindowClosed(false); // between two windows there is none
}

CameraWindows::~CameraWindows() = default;

void CameraWindows::showStartPage()
{
    if (!m_start) {
        m_start = std::make_unique<StartPage>(m_recent);
        connect(m_start.get(), &StartPage::chosen, this, &CameraWindows::open);
        connect(m_start.get(), &QDialog::finished, this, &CameraWindows::endWhenNothingIsLeft,
            Qt::QueuedConnection);
    }
    m_start->refresh();
    raise(*m_start);
}

bool CameraWindows::bringToFront(const CameraChoice& choice)
{
    for (const auto& desk : m_desks) {
        if (choice.isReal() && desk->choice == choice) {
            raise(*desk->window);
            return true;
        }
    }
    return std::any_of(m_openings.begin(), m_openings.end(),
        [&choice](const auto& opening) { return opening->choice() == choice; });
}

void CameraWindows::open(const CameraChoice& choice)
{
    if (bringToFront(choice)) {
        return;
    }
    m_openings.push_back(std::make_unique<OpeningWindow>(choice));
    OpeningWindow* opening = m_openings.back().get();
    connect(
        opening, &QDialog::finished, this,
        [this, opening](int result) { openingEnded(opening, result == QDialog::Accepted); },
        Qt::QueuedConnection);
    opening->start();
}

void CameraWindows::openingEnded(OpeningWindow* opening, bool isOpen)
{
    const auto found = find(m_openings, opening);
    if (found == m_openings.end()) {
        return;
    }
    const std::unique_ptr<OpeningWindow> ended = std::move(*found);
    m_openings.erase(found);
    if (isOpen) {
        show(ended->takeCamera(), ended->choice());
    }
    endWhenNothingIsLeft();
}

/// Equal models are told apart by their titles.
void CameraWindows::setNumber(OpenedCamera& camera) const
{
    const auto isTaken = [&] {
        return std::any_of(m_desks.begin(), m_desks.end(),
            [&](const auto& desk) { return desk->camera->title() == camera.title(); });
    };
    for (int number = 1; number == 1 || isTaken(); ++number) {
        camera.setNumber(number);
    }
}

void CameraWindows::show(std::unique_ptr<OpenedCamera> camera, const CameraChoice& choice)
{
    m_hasOpened = true;
    setNumber(*camera);
    m_recent.add(choice, camera->name());
    auto desk = std::make_unique<Desk>();
    desk->choice = choice;
    desk->camera = std::move(camera);
    desk->window = std::make_unique<ViewerWindow>(
        *desk->camera, m_level.value_or(m_memory.level()), &m_memory, m_log);
    ViewerWindow* window = desk->window.get();
    connect(window, &ViewerWindow::openWanted, this, &CameraWindows::showStartPage);
    connect(window, &ViewerWindow::descriptionDropped, this, [this](const QString& file) {
        open({ file, {} });
    });
    connect(
        window, &ViewerWindow::closed, this, [this, window] { closed(window); },
        Qt::QueuedConnection);
    if (!m_desks.empty()) {
        window->move(m_desks.back()->window->pos() + cascade);
    }
    m_desks.push_back(std::move(desk));
    raise(*window);
    if (m_isLive) {
        window->images().live().start();
    }
    if (m_start) {
        m_start->hide();
    }
}

void CameraWindows::closed(const ViewerWindow* window)
{
    const auto desk = std::find_if(m_desks.begin(), m_desks.end(),
        [window](const auto& owned) { return owned->window.get() == window; });
    if (desk != m_desks.end()) {
        m_desks.erase(desk);
    }
    endWhenNothingIsLeft();
}

void CameraWindows::endWhenNothingIsLeft()
{
    if (m_desks.empty() && m_openings.empty() && (!m_start || !m_start->isVisible())) {
        QCoreApplication::exit(m_hasOpened || m_start ? 0 : 1);
    }
}

} // namespace zqviewer
