#include "Viewer.h"

#include "CameraTaskBar.h"
#include "OpeningWindow.h"
#include "ViewerApplication.h"

#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <algorithm>
#include <stdexcept>

using namespace featurebrowser;
using zqviewer::CameraTaskBar;
using zqviewer::OpenedCamera;
using zqviewer::OpeningWindow;
using zqviewer::ViewerApplication;
using zqviewer::ViewerWindow;

LoopWatch::LoopWatch()
{
    QObject::connect(&m_timer, &QTimer::timeout,
        [this] { m_longestMs = std::max(m_longestMs, static_cast<int>(m_sinceTurn.restart())); });
    m_timer.start(5);
    m_sinceTurn.start();
}

void LoopWatch::restart()
{
    m_longestMs = 0;
    m_sinceTurn.start();
}

bool waitFor(const std::function<bool()>& condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

namespace {

ViewerApplication& application()
{
    return *qobject_cast<ViewerApplication*>(qApp);
}

std::unique_ptr<OpenedCamera> openInWindow()
{
    OpeningWindow opening(
        QString::fromUtf8(FaultProxy::address), zqcameralib::CameraAccess::Control);
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
        const bool isNoted = index.data(Qt::AccessibleDescriptionRole)
                                 .toString()
                                 .contains(QLatin1String("not confirmed"));
        rows[text("name")] = { text("value"), isRead && !isNoted };
    }
}

Rows rowsOf(const QTreeView& tree)
{
    Rows rows;
    collect(*tree.model(), {}, rows);
    return rows;
}

} // namespace

Viewer::Viewer()
    : m_camera(openInWindow())
{
    if (!m_camera) {
        throw std::runtime_error("the camera does not open");
    }
    application().setCamera(&m_camera->camera());
    m_window = std::make_unique<ViewerWindow>(*m_camera, LEVEL_GURU);
    m_window->show();
    m_window->activateWindow(); // no window manager does it
    m_window->tree()->expandAll();
    if (!QTest::qWaitForWindowActive(m_window.get())) {
        throw std::runtime_error("the window never became active");
    }
}

Viewer::~Viewer()
{
    close();
}

int Viewer::close()
{
    QElapsedTimer time;
    time.start();
    if (m_window) {
        m_window->close();
    }
    application().setCamera(nullptr);
    m_window = nullptr;
    m_camera = nullptr;
    return static_cast<int>(time.elapsed());
}

std::string Viewer::title() const
{
    return m_window->windowTitle().toStdString();
}

std::string Viewer::role(const char* name, const char* role) const
{
    const QModelIndex index = row(name);
    return index.data(index.model()->roleNames().key(role)).toString().toStdString();
}

Rows Viewer::rows() const
{
    return rowsOf(*m_window->tree());
}

std::string Viewer::words() const
{
    return m_window->findChild<QWidget*>(QStringLiteral("message"))->accessibleName().toStdString();
}

bool Viewer::offersReconnect() const
{
    return m_window->findChild<QPushButton*>(QStringLiteral("reconnect"))->isVisible();
}

bool Viewer::isBusy() const
{
    return m_window->findChild<CameraTaskBar*>()->isRunning();
}

void Viewer::pressF5()
{
    QTest::keyClick(m_window.get(), Qt::Key_F5);
}

void Viewer::pressReconnect()
{
    m_window->findChild<QPushButton*>(QStringLiteral("reconnect"))->click();
}

void Viewer::pressCancel()
{
    m_window->findChild<CameraTaskBar*>()->findChild<QPushButton*>()->click();
}

QModelIndex Viewer::row(const char* name) const
{
    const QAbstractItemModel& model = *m_window->tree()->model();
    const QModelIndexList found = model.match(model.index(0, 0), model.roleNames().key("name"),
        QByteArray(name), 1, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.first();
}

void Viewer::open(const char* name)
{
    QTreeView* tree = m_window->tree();
    tree->setFocus();
    tree->setCurrentIndex(row(name).siblingAtColumn(1));
    QTest::keyClick(tree, Qt::Key_F2);
}

void Viewer::type(const char* name, const char* text)
{
    open(name);
    QWidget* field = QApplication::focusWidget();
    field = field->focusWidget() != nullptr ? field->focusWidget() : field;
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QString::fromUtf8(text));
    QTest::keyClick(field, Qt::Key_Return);
}

void Viewer::pressCommand(const char* name)
{
    open(name);
}
