#include "program/ViewerApplication.h"

#include "featurebrowser/ZQCamera.h"

#include <QScopedValueRollback>
#include <QThread>

namespace zqviewer {

void ViewerApplication::setCamera(zqcameralib::ZQCamera* camera)
{
    m_camera = camera;
    beginTurn();
}

void ViewerApplication::beginTurn()
{
    m_turnBegan = Clock::now();
    if (m_camera != nullptr) {
        m_camera->limitWaiting(turnLimit);
    }
}

bool ViewerApplication::isTurnOver()
{
    const auto* application = qobject_cast<ViewerApplication*>(instance());
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
