// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Viewer.h"

#include "camera/CameraTaskBar.h"
#include "log/EventLog.h"
#include "opening/OpeningWindow.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <stdexcept>

using namespace featurebrowser;
using namespace zqviewer;

bool waitFor(const std::function<bool()>& condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

namespace {

std::unique_ptr<OpenedCamera> openInWindow()
{
    OpeningWindow opening({ {}, QString::fromUtf8(FaultProxy::address) });
    opening.start();
    opening.show();
    waitFor([&opening] { return opening.result() == QDialog::Accepted; });
    return opening.takeCamera();
}

void collect(const QAbstractItemModel& model, const QModelIndex& parent, Rows& rows)
{
    const QHash<int, QByteArray> roles = model.roleNames();
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex index = model.index(i, 0, parent);
        const auto text = [&](const char* role) {
            return index.data(roles.key(role)).toString().toStdString();
        };
        collect(model, index, rows);
        const std::string kind = text("kind");
        if (kind == "category" || kind == "command" || text("name") == "GevCCP") {
            continue;
        }
        const bool isRead = index.data(roles.key("state")).toInt() != FEATURE_READ_FAILED;
        const QString note = index.data(Qt::AccessibleDescriptionRole).toString();
        const bool isNoted = note.contains(QLatin1String("not confirmed"));
        rows[text("name")] = { text("value"), isRead && !isNoted };
    }
}

} // namespace

Viewer::Viewer()
    : m_camera(openInWindow())
{
    if (!m_camera) {
        throw std::runtime_error("the camera does not open");
    }
    show();
}

Viewer::Viewer(std::unique_ptr<zqcameralib::ZQCamera> camera)
    : m_camera(std::make_unique<OpenedCamera>(std::move(camera)))
{
    m_camera->repository().Load();
    show();
}

void Viewer::show()
{
    m_memory.setReconnectsByItself(false); // the stories say when
    m_window = std::make_unique<ViewerWindow>(
        *m_camera, m_memory.level(), &m_memory, std::make_shared<EventLog>());
    m_window->show();
    m_window->activateWindow(); // no window manager does it
    tree()->expandAll();
    if (!waitForActive(m_window.get())) {
        throw std::runtime_error("the window never became active");
    }
}

void Viewer::close()
{
    if (m_window) {
        m_window->close();
    }
    m_window = nullptr;
    m_camera = nullptr;
}

std::string Viewer::title() const
{
    return m_window->windowTitle().toStdString();
}

Rows Viewer::rows() const
{
    Rows rows;
    collect(*tree()->model(), {}, rows);
    return rows;
}

bool Viewer::hasAllRows(bool areCurrent) const
{
    const Rows all = rows();
    return !all.empty() && std::all_of(all.begin(), all.end(), [areCurrent](const auto& row) {
        return row.second.looksCurrent == areCurrent;
    });
}

std::string Viewer::words() const
{
    if (child<QWidget>("lostBanner")->isVisible()) {
        return "\u26A0 " + child<QWidget>("lostReason")->accessibleName().toStdString();
    }
    const std::string words = child<QWidget>("message")->accessibleName().toStdString();
    return words.empty() ? child<QLabel>("changeText")->text().toStdString() : words;
}

bool Viewer::offersReconnect() const
{
    const auto* button = child<QPushButton>("reconnect");
    return button->isVisible() && button->isEnabled();
}

bool Viewer::isBusy() const
{
    return child<CameraTaskBar>()->isRunning();
}

void Viewer::pressF5()
{
    QTest::keyClick(m_window.get(), Qt::Key_F5);
}

void Viewer::pressReconnect()
{
    if (waitFor([this] { return offersReconnect(); }, 8000)) {
        child<QPushButton>("reconnect")->click();
    }
}

void Viewer::pressCancel()
{
    child<CameraTaskBar>()->findChild<QPushButton*>()->click();
}
