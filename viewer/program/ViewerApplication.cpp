// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/ViewerApplication.h"

#include "featurebrowser/ZQCamera.h"

#include <QScopedValueRollback>
#include <QThread>

#include <algorithm>

namespace zqviewer {

namespace {

ViewerApplication* viewerApplication()
{
    return qobject_cast<ViewerApplication*>(QCoreApplication::instance());
}

} // namespace

void ViewerApplication::addCamera(zqcameralib::ZQCamera* camera)
{
    if (ViewerApplication* application = viewerApplication()) {
        application->m_cameras.push_back(camera);
        application->beginTurn();
    }
}

void ViewerApplication::removeCamera(zqcameralib::ZQCamera* camera)
{
    if (ViewerApplication* application = viewerApplication()) {
        auto& all = application->m_cameras;
        all.erase(std::remove(all.begin(), all.end(), camera), all.end());
    }
}

void ViewerApplication::beginTurn()
{
    m_turnBegan = Clock::now();
    for (zqcameralib::ZQCamera* camera : m_cameras) {
        camera->limitWaiting(turnLimit);
    }
}

bool ViewerApplication::isTurnOver()
{
    const ViewerApplication* application = viewerApplication();
    return application != nullptr && Clock::now() - application->m_turnBegan >= turnLimit;
}

// An event that is sent while another one is handled is part of its turn, but in an event loop
// inside of it, of a menu for instance, the window answers again: each event there has its own.
bool ViewerApplication::notify(QObject* receiver, QEvent* event)
{
    if (QThread::currentThread() != thread() || thread()->loopLevel() == m_loopLevel) {
        return QApplication::notify(receiver, event);
    }
    const QScopedValueRollback<int> turn(m_loopLevel, thread()->loopLevel());
    beginTurn();
    return QApplication::notify(receiver, event);
}

} // namespace zqviewer
