// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/StartPage.h"

#include "opening/DroppedFile.h"
#include "opening/RecentCameras.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <chrono>
#include <thread>
#include <utility>

namespace zqviewer {

namespace {

constexpr std::chrono::milliseconds searchPoll(50);
constexpr int descriptionRole = Qt::UserRole;
constexpr int cameraRole = Qt::UserRole + 1;

QString wordsFor(const zqcameralib::CameraInfo& camera)
{
    const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
    const QString words = QStringLiteral("%1 %2, %3, %4")
                              .arg(text(camera.vendor), text(camera.model), text(camera.serial),
                                  text(camera.address));
    return camera.reachable ? words : words + QStringLiteral(" \u2013 ") + text(camera.hint);
}

} // namespace

StartPage::StartPage(RecentCameras& recent)
    : m_recent(recent)
    , m_list(new QListWidget(this))
    , m_error(new QLabel(this))
{
    setWindowTitle(tr("Open a camera"));
    setAcceptDrops(true);
    m_list->setObjectName(QStringLiteral("cameraList"));
    m_list->setAccessibleName(tr("Cameras"));
    m_list->setAlternatingRowColors(true);
    m_error->setObjectName(QStringLiteral("startError"));
    m_error->setTextFormat(Qt::PlainText);
    m_error->setWordWrap(true);
    m_error->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_error->hide();
    auto* note = new QLabel(
        tr("Opened lately and found. Nothing is sent on a network before you look for cameras."),
        this);
    note->setWordWrap(true);
    auto* ways = new QVBoxLayout;
    makeButtons(*ways);
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_list, 1);
    middle->addLayout(ways);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note);
    layout->addLayout(middle, 1);
    layout->addWidget(m_error);
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 20);
    refresh();
    connect(&m_poll, &QTimer::timeout, this, &StartPage::look);
    connect(m_list, &QListWidget::itemActivated, this, &StartPage::chooseCurrent);
    connect(m_list, &QListWidget::currentRowChanged, this,
        [this](int row) { m_open->setEnabled(row >= 0); });
}

void StartPage::refresh()
{
    m_list->clear();
    for (const RecentCameras::Entry& entry : m_recent.entries()) {
        addEntry(entry.words, entry.description, entry.camera);
    }
    for (const zqcameralib::CameraInfo& camera : m_found) {
        addFound(camera);
    }
}

void StartPage::makeButtons(QBoxLayout& layout)
{
    const auto add = [&](const QString& words, const char* name, auto action) {
        auto* button = new QPushButton(words, this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        layout.addWidget(button);
        connect(button, &QPushButton::clicked, this, action);
        return button;
    };
    m_open = add(tr("&Open"), "openButton", [this] { chooseCurrent(); });
    m_open->setEnabled(false);
    m_find = add(tr("&Find cameras"), "findButton", [this] { find(); });
    add(tr("Open a &description\u2026"), "fileButton", [this] { chooseFile(); });
    add(tr("&Simulated camera"), "simulatedButton", [this] { Q_EMIT chosen({}); });
    layout.addStretch();
    add(tr("&Close"), "closeButton", [this] { close(); });
}

void StartPage::addEntry(const QString& words, const QString& description, const QString& camera)
{
    auto* item = new QListWidgetItem(words, m_list);
    item->setData(descriptionRole, description);
    item->setData(cameraRole, camera);
}

void StartPage::chooseCurrent()
{
    if (const QListWidgetItem* item = m_list->currentItem()) {
        Q_EMIT chosen(
            { item->data(descriptionRole).toString(), item->data(cameraRole).toString() });
    }
}

void StartPage::chooseFile()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Open a description"), {},
        tr("GenICam descriptions (*.xml *.zip);;All files (*)"));
    if (!file.isEmpty()) {
        Q_EMIT chosen({ file, {} });
    }
}

/// Beside the user: it takes about a second, and nobody waits for it when the page is closed.
void StartPage::find()
{
    m_find->setEnabled(false);
    m_find->setText(tr("Looking\u2026"));
    std::packaged_task<Cameras()> search([] {
        zqcameralib::ZQDiscovery discovery;
        return discovery.discover();
    });
    m_search = search.get_future();
    std::thread(std::move(search)).detach();
    m_poll.start(searchPoll);
}

void StartPage::look()
{
    if (m_search.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        m_poll.stop();
        showFound(m_search.get());
    }
}

void StartPage::showFound(const Cameras& cameras)
{
    m_find->setEnabled(true);
    m_find->setText(tr("&Find cameras"));
    m_found = cameras;
    refresh();
    m_error->setVisible(cameras.empty());
    m_error->setText(cameras.empty() ? tr("No cameras were found.") : QString());
}

void StartPage::addFound(const zqcameralib::CameraInfo& camera)
{
    const QString id = QString::fromStdString(camera.id);
    for (int i = 0; i < m_list->count(); ++i) {
        if (m_list->item(i)->data(cameraRole).toString() == id) {
            return;
        }
    }
    addEntry(wordsFor(camera), {}, id);
}

void StartPage::dragEnterEvent(QDragEnterEvent* event)
{
    if (!fileOf(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void StartPage::dropEvent(QDropEvent* event)
{
    Q_EMIT chosen({ fileOf(*event->mimeData()), {} });
}

} // namespace zqviewer
