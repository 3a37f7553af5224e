// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/OpeningWindow.h"

#include "camera/CameraTaskBar.h"
#include "opening/SimulatedOpening.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace zqviewer {

using zqcameralib::ZQCamera;
using zqcameralib::ZQCameraOpening;
using Task = CameraTaskBar::Task;

namespace {

/// What opens sooner needs no window.
constexpr std::chrono::milliseconds appearsAfter(300);

QString placeOf(const CameraChoice& choice)
{
    return choice.isReal()             ? choice.camera
        : choice.description.isEmpty() ? OpeningWindow::tr("Simulated camera")
                                       : QFileInfo(choice.description).fileName();
}

} // namespace

OpeningWindow::OpeningWindow(CameraChoice choice)
    : m_choice(std::move(choice))
    , m_heading(new QLabel(this))
    , m_reason(new QLabel(this))
    , m_ways(new QWidget(this))
    , m_again(new QPushButton(tr("&Try again"), m_ways))
    , m_tasks(std::make_unique<CameraTaskBar>(this))
{
    arrange();
    m_appearance.setSingleShot(true);
    connect(&m_appearance, &QTimer::timeout, this, &QWidget::show);
}

void OpeningWindow::arrange()
{
    setWindowTitle(tr("Opening %1").arg(placeOf(m_choice)));
    QFont bold = font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_heading->setTextFormat(Qt::PlainText);
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reason->setWordWrap(true);
    auto* close = new QPushButton(tr("&Close"), m_ways);
    auto* buttons = new QHBoxLayout(m_ways);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addStretch();
    buttons->addWidget(m_again);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_heading);
    layout->addWidget(m_tasks.get());
    layout->addWidget(m_reason);
    layout->addStretch();
    layout->addWidget(m_ways);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 8);
    connect(m_again, &QPushButton::clicked, this, &OpeningWindow::start);
    connect(close, &QPushButton::clicked, this, &OpeningWindow::reject);
}

OpeningWindow::~OpeningWindow() = default;

void OpeningWindow::start()
{
    m_heading->setText(tr("Opening %1").arg(placeOf(m_choice)));
    m_reason->hide();
    m_ways->hide();
    if (!isVisible()) {
        m_appearance.start(appearsAfter);
    }
    if (m_choice.isReal()) {
        run(ZQCamera::OpenBeside(m_choice.camera.toStdString(), m_choice.access),
            [this](Task& task) { read(static_cast<ZQCameraOpening&>(task).takeCamera()); });
    } else {
        run(std::make_unique<SimulatedOpening>(m_choice.description),
            [this](Task& task) { read(static_cast<SimulatedOpening&>(task).takeCamera()); });
    }
}

void OpeningWindow::read(std::unique_ptr<ZQCamera> camera)
{
    m_camera = std::make_unique<OpenedCamera>(std::move(camera), m_choice.origin());
    run(m_camera->repository().ReadAhead(), [this](Task&) { load(); });
}

void OpeningWindow::run(std::unique_ptr<Task> task, const std::function<void(Task&)>& done)
{
    m_tasks->run(std::move(task), CameraTaskBar::Appearance::AtOnce,
        [this, done](Task& ended, Task::State state) {
            if (state == Task::State::Cancelled) {
                m_appearance.stop();
                reject();
            } else if (state == Task::State::Failed) {
                fail(QString::fromStdString(ended.error()));
            } else {
                done(ended);
            }
        });
}

void OpeningWindow::load()
{
    const int status = m_camera->repository().Load(); // takes what was read
    if (status == featurebrowser::STATUS_OK) {
        m_appearance.stop();
        return accept();
    }
    fail(tr("The camera's features cannot be read: %1").arg(m_camera->errorText(status)));
}

void OpeningWindow::fail(const QString& reason)
{
    m_camera = nullptr;
    m_heading->setText(tr("The camera cannot be opened"));
    m_reason->setText(reason);
    m_reason->show();
    m_ways->show();
    m_appearance.stop();
    show();
    m_again->setDefault(true);
    m_again->setFocus();
}

} // namespace zqviewer
