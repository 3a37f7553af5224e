// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsWork.h"

#include "images/LiveImage.h"
#include "settings/RestoreWindow.h"
#include "settings/SettingsFile.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QTime>

#include <utility>

namespace zqviewer {

using zqcameralib::ZQSettingsRestoring;
using zqcameralib::ZQSettingsSaving;
using zqcameralib::ZQUserSet;

namespace {

QString nameOf(const QString& file)
{
    return QFileInfo(file).fileName();
}

} // namespace

SettingsWork::SettingsWork(OpenedCamera& camera, LiveImage& images, QWidget* window)
    : m_camera(camera)
    , m_images(images)
    , m_window(window)
    , m_task(window)
{
    connect(&m_task, &SettingsTask::begun, this, &SettingsWork::begun);
    connect(&m_task, &SettingsTask::ended, this, &SettingsWork::ended);
}

void SettingsWork::read(
    const QString& words, const Settings* lines, const std::function<void(Settings)>& then)
{
    auto saving = lines != nullptr ? std::make_unique<ZQSettingsSaving>(m_camera.camera(), *lines)
                                   : std::make_unique<ZQSettingsSaving>(m_camera.camera());
    m_task.run(std::move(saving), words, [this, then](Task& task, Task::State state) {
        if (state == Task::State::Done) {
            then(static_cast<ZQSettingsSaving&>(task).takeSettings());
        } else {
            Q_EMIT told(false,
                state == Task::State::Cancelled ? tr("Reading the settings was cancelled.")
                                                : QString::fromStdString(task.error()));
        }
    });
}

void SettingsWork::save(const QString& file)
{
    read(tr("Reading the settings\u2026"), nullptr,
        [this, file](const Settings& settings) { write(file, settings); });
}

void SettingsWork::write(const QString& file, const Settings& settings)
{
    QString error;
    if (!writeSettings(file, settings, error)) {
        Q_EMIT told(false, error);
        return;
    }
    noteRecentSettings(file);
    const int leftOut = static_cast<int>(settings.leftOut().size());
    QString text
        = tr("%n setting(s) saved in %1", nullptr, static_cast<int>(settings.lines().size()))
              .arg(nameOf(file));
    text += leftOut > 0 ? tr("; the file names %n left out.", nullptr, leftOut)
                        : QStringLiteral(".");
    Q_EMIT told(true, text);
}

/// Tells why not.
bool SettingsWork::open(const QString& file, Settings& settings)
{
    QString error;
    if (!readSettings(file, settings, error)) {
        Q_EMIT told(false, error);
        return false;
    }
    noteRecentSettings(file);
    return true;
}

void SettingsWork::load(const QString& file)
{
    Settings settings;
    if (!open(file, settings)) {
        return;
    }
    restore(settings, nameOf(file));
}

void SettingsWork::restore(const Settings& settings, const QString& what)
{
    if (m_task.isRunning()) {
        return;
    }
    const bool wasRunning = m_images.isRunning();
    if (wasRunning) {
        m_images.stop(); // they lock what is to be written
    }
    m_task.run(std::make_unique<ZQSettingsRestoring>(m_camera.camera(), settings),
        tr("Restoring the settings\u2026"),
        [this, what, wasRunning](Task& task, Task::State state) {
            restored(task, state, what);
            if (wasRunning) {
                m_images.start();
            }
        });
}

void SettingsWork::restored(Task& task, Task::State state, const QString& what)
{
    auto& restoring = static_cast<ZQSettingsRestoring&>(task);
    const zqcameralib::ZQRestoreReport& report = restoring.report();
    m_before = restoring.before();
    Q_EMIT canTakeBack(!m_before.lines().empty(), what);
    Q_EMIT changed();
    const bool isGood = state == Task::State::Done && RestoreWindow::isGood(report);
    Q_EMIT told(isGood, QStringLiteral("%1: %2").arg(what, RestoreWindow::summary(report)));
    if (!isGood || !report.warnings.empty()) {
        (new RestoreWindow(report, m_window))->show();
    }
}

void SettingsWork::takeBack()
{
    restore(Settings(m_before), tr("the settings of before"));
}

void SettingsWork::remember()
{
    read(tr("Reading the settings\u2026"), nullptr, [this](Settings settings) {
        m_remembered = std::move(settings);
        m_rememberedName
            = tr("Remembered at %1").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
        Q_EMIT hasRemembered();
        Q_EMIT told(true, m_rememberedName + QLatin1Char('.'));
    });
}

ComparedSettings SettingsWork::ofCamera(Settings settings)
{
    return { m_camera.title(), std::move(settings), {}, !m_camera.camera().isReadOnly() };
}

void SettingsWork::compareWith(const Settings& before, const QString& name)
{
    read(tr("Reading the settings\u2026"), &before, [this, before, name](Settings now) {
        show({ name, before, {}, false }, ofCamera(std::move(now)));
    });
}

void SettingsWork::compareWithFile(const QString& file)
{
    Settings settings;
    if (!open(file, settings)) {
        return;
    }
    read(tr("Reading the settings\u2026"), &settings, [this, settings, file](Settings now) {
        show({ nameOf(file), settings, file, false }, ofCamera(std::move(now)));
    });
}

void SettingsWork::compareWithCamera(SettingsWork& other)
{
    QPointer<SettingsWork> guard(&other);
    read(tr("Reading the settings\u2026"), nullptr, [this, guard](const Settings& own) {
        if (!guard || guard->isRunning()) {
            return;
        }
        const QPointer<SettingsWork> self(this);
        guard->read(tr("Reading the settings\u2026"), nullptr, [self, guard, own](Settings others) {
            if (self) {
                ComparedSettings second = guard->ofCamera(std::move(others));
                second.isCamera = false; // only the own one is written to from here
                self->show(std::move(second), self->ofCamera(own));
            }
        });
    });
}

void SettingsWork::show(ComparedSettings first, ComparedSettings second)
{
    const QString name = first.name;
    auto* window = new ComparisonWindow(std::move(first), std::move(second), m_window);
    connect(window, &ComparisonWindow::restoreWanted, this,
        [this, name](const Settings& lines) { restore(lines, name); });
    connect(window, &ComparisonWindow::saveWanted, this, &SettingsWork::write);
    window->show();
}

bool SettingsWork::isConfirmed(const QString& question)
{
    return QMessageBox::warning(m_window, tr("User set"), question,
               QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel)
        == QMessageBox::Ok;
}

void SettingsWork::runUserSet(const QString& set, ZQUserSet::Action action)
{
    using Action = ZQUserSet::Action;
    const QString question = action == Action::Load
        ? tr("Load \u201C%1\u201D? The settings of now are replaced.").arg(set)
        : action == Action::Save
        ? tr("Save into \u201C%1\u201D? What it holds is replaced.").arg(set)
        : tr("To see what \u201C%1\u201D holds, the camera loads it and gets its settings of now "
             "back afterwards. Meanwhile it works with those of the set.")
              .arg(set);
    if (m_task.isRunning() || !isConfirmed(question)) {
        return;
    }
    if (action != Action::Save) {
        m_images.stop();
    }
    m_task.run(std::make_unique<ZQUserSet>(m_camera.camera(), set.toStdString(), action), set,
        [this, set, action](Task& task, Task::State state) {
            auto& work = static_cast<ZQUserSet&>(task);
            Q_EMIT changed();
            if (state != Task::State::Done) {
                Q_EMIT told(false,
                    state == Task::State::Cancelled ? tr("%1 was cancelled.").arg(set)
                                                    : QString::fromStdString(task.error()));
            } else if (action == Action::LookInto) {
                show({ set, work.contents(), {}, false }, ofCamera(work.now()));
            } else {
                Q_EMIT told(true,
                    action == Action::Load ? tr("%1 was loaded.").arg(set)
                                           : tr("The settings were saved into %1.").arg(set));
            }
        });
}

void SettingsWork::compareFiles(const QString& first, const QString& second)
{
    QList<ComparedSettings> sides;
    for (const QString& file : { first, second }) {
        Settings settings;
        if (!open(file, settings)) {
            return;
        }
        sides.append({ nameOf(file), settings, file, false });
    }
    show(sides.first(), sides.last());
}

void SettingsWork::compareWithRemembered()
{
    compareWith(m_remembered, m_rememberedName);
}

} // namespace zqviewer
