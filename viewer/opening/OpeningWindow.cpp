#include "opening/OpeningWindow.h"

#include "camera/CameraTaskBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace zqviewer {

using zqcameralib::ZQCamera;
using zqcameralib::ZQCameraOpening;
using Task = CameraTaskBar::Task;

OpeningWindow::OpeningWindow(QString id, zqcameralib::CameraAccess access)
    : m_id(std::move(id))
    , m_access(access)
    , m_heading(new QLabel(this))
    , m_reason(new QLabel(this))
    , m_choice(new QWidget(this))
    , m_again(new QPushButton(tr("&Try again"), m_choice))
    , m_tasks(std::make_unique<CameraTaskBar>(this))
{
    setWindowTitle(tr("Camera %1").arg(m_id));
    QFont bold = font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_heading->setTextFormat(Qt::PlainText);
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reason->setWordWrap(true);
    auto* close = new QPushButton(tr("&Close"), m_choice);
    auto* buttons = new QHBoxLayout(m_choice);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addStretch();
    buttons->addWidget(m_again);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_heading);
    layout->addWidget(m_tasks.get());
    layout->addWidget(m_reason);
    layout->addStretch();
    layout->addWidget(m_choice);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 8);
    connect(m_again, &QPushButton::clicked, this, &OpeningWindow::start);
    connect(close, &QPushButton::clicked, this, &OpeningWindow::reject);
}

OpeningWindow::~OpeningWindow() = default;

void OpeningWindow::start()
{
    m_heading->setText(tr("Opening camera %1").arg(m_id));
    m_reason->hide();
    m_choice->hide();
    run(ZQCamera::OpenBeside(m_id.toStdString(), m_access),
        [this](Task& task) { read(static_cast<ZQCameraOpening&>(task).takeCamera()); });
}

void OpeningWindow::read(std::unique_ptr<ZQCamera> camera)
{
    m_camera = std::make_unique<OpenedCamera>(std::move(camera));
    run(m_camera->repository().ReadAhead(), [this](Task&) { load(); });
}

void OpeningWindow::run(std::unique_ptr<Task> task, const std::function<void(Task&)>& done)
{
    m_tasks->run(std::move(task), CameraTaskBar::Appearance::AtOnce,
        [this, done](Task& ended, Task::State state) {
            if (state == Task::State::Cancelled) {
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
    m_choice->show();
    m_again->setDefault(true);
    m_again->setFocus();
}

} // namespace zqviewer
