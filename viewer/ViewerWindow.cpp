#include "ViewerWindow.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <array>

using namespace featurebrowser;

namespace zqviewer {
namespace {

QString errorText(ICameraDevice& device, int code)
{
    std::array<char, errorTextSize> name {};
    std::array<char, errorTextSize> text {};
    device.GetErrorText(code, name.data(), text.data());
    return QString::fromUtf8(text.data());
}

auto featureCount(ZQCameraRepository& repository)
{
    const auto& items = repository.GetFeatureList();
    return std::count_if(items.cbegin(), items.cend(),
        [](const auto& item) { return item->type != FEATURE_CATEGORY; });
}

QString title(const zqcameralib::ZQCamera& camera)
{
    const QString name = QStringLiteral("%1 %2").arg(
        QString::fromStdString(camera.vendor()), QString::fromStdString(camera.model()));
    return camera.isReadOnly() ? ViewerWindow::tr("%1 (read-only)").arg(name.trimmed())
                               : name.trimmed();
}

} // namespace

ViewerWindow::ViewerWindow(zqcameralib::ZQCamera& camera, TYPE_LEVEL level, QString& error)
    : m_camera(camera)
    , m_device(&camera, nullptr)
    , m_browser(&m_device, this)
    , m_message(new QLabel(this))
    , m_reconnect(new QPushButton(tr("&Reconnect"), this))
{
    setWindowTitle(title(camera));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    statusBar()->addWidget(m_message, 1);
    statusBar()->addPermanentWidget(m_reconnect);
    m_reconnect->hide();
    connect(m_reconnect, &QPushButton::clicked, this, &ViewerWindow::reconnect);
    auto* reload = new QAction(tr("Read all features again"), this);
    reload->setShortcut(QKeySequence::Refresh);
    connect(reload, &QAction::triggered, this, &ViewerWindow::reload);
    addAction(reload);
    setCentralWidget(m_browser.GetWidget());

    const int status = m_device.GetRepository()->Load();
    if (status != 0 || m_browser.LoadFeatureBrowser() != 0) {
        error = tr("The camera's features cannot be read: %1").arg(errorText(m_device, status));
        return;
    }
    m_browser.ShowStandalone(0, 0, {}, level);
    resize(760, 860);
    showMessage(true, tr("%1 features read.").arg(featureCount(*m_device.GetRepository())));
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &ViewerWindow::watchConnection);
    timer->start(500);
}

ViewerWindow::~ViewerWindow()
{
    // The browser owns its widget: hand it back before the window deletes its children.
    takeCentralWidget();
}

QTreeView* ViewerWindow::tree() const
{
    return findChild<QTreeView*>(QStringLiteral("featureTree"));
}

void ViewerWindow::showMessage(bool good, const QString& text)
{
    m_message->setText(good ? text : QStringLiteral("\u26A0 ") + text);
    m_message->setToolTip(text.toHtmlEscaped());
    m_message->setAccessibleName(text);
}

void ViewerWindow::showWritten(const std::string& name, const QString& value)
{
    showMessage(true, QStringLiteral("%1 = %2").arg(QString::fromStdString(name), value));
}

void ViewerWindow::run(const std::string& command)
{
    const int status = m_device.ExecuteCommand(command.c_str(), 1);
    SendError(status,
        status == 0 ? "Executed Command [" + command + "]"
                    : errorText(m_device, status).toStdString());
}

void ViewerWindow::reload()
{
    if (m_browser.ReloadFeatureBrowser() == 0) {
        showMessage(true, tr("%1 features read.").arg(featureCount(*m_device.GetRepository())));
    }
}

void ViewerWindow::watchConnection()
{
    if (m_camera.isLost() && m_reconnect->isHidden()) {
        showMessage(false, errorText(m_device, m_device.GetRepository()->UpdateFeatureStates()));
        m_browser.RefreshStates();
    }
    m_reconnect->setVisible(m_camera.isLost());
}

void ViewerWindow::reconnect()
{
    const int status = m_device.Reconnect();
    if (status != 0) {
        showMessage(false, errorText(m_device, status));
        return;
    }
    m_browser.LoadFeatureBrowser();
    m_browser.RefreshStates();
    showMessage(true, tr("Connected again."));
    watchConnection();
}

void ViewerWindow::FeatureIntModified(std::string name, long value)
{
    showWritten(name, QString::number(value));
}

void ViewerWindow::FeatureEnumModified(std::string name, std::string entry, int)
{
    showWritten(name, QString::fromStdString(entry));
}

void ViewerWindow::FeatureBoolModified(std::string name, int value)
{
    showWritten(name, value != 0 ? tr("true") : tr("false"));
}

void ViewerWindow::FeatureStringModified(std::string name, std::string value)
{
    showWritten(name, QString::fromStdString(value));
}

void ViewerWindow::FeatureIPModified(std::string name, const std::string& text)
{
    showWritten(name, QString::fromStdString(text));
}

void ViewerWindow::FeatureDoubleModified(std::string name, double value)
{
    showWritten(name, QLocale::c().toString(value, 'g', QLocale::FloatingPointShortest));
}

void ViewerWindow::FeatureExecCommand(std::string name)
{
    run(name);
    if (name == "DeviceReset") {
        // The browser refreshes nothing after a reset: read the camera anew once this event is
        // over.
        QTimer::singleShot(0, this, &ViewerWindow::reload);
    }
    m_device.GetRepository()->UpdateFeatureStates();
    m_browser.RefreshStates();
}

void ViewerWindow::ItemSelectionChanged(std::string) { }

void ViewerWindow::ItemColumnResized(int, int) { }

void ViewerWindow::FeatureCloseDialog(int, int, TYPE_LEVEL) { }

void ViewerWindow::SendError(int code, std::string text)
{
    showMessage(code == 0, QString::fromStdString(text));
}

void ViewerWindow::FeatureLevelChanged(TYPE_LEVEL) { }

void ViewerWindow::AllConfigChanged() { }

} // namespace zqviewer
