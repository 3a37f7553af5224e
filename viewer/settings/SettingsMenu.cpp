// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsMenu.h"

#include "images/LiveImage.h"
#include "settings/RestoreWindow.h"
#include "settings/SettingsFile.h"

#include <QAction>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QStyle>
#include <QTime>

#include <utility>

namespace zqviewer {

using zqcameralib::ZQSettings;
using zqcameralib::ZQSettingsRestoring;
using zqcameralib::ZQSettingsSaving;
using zqcameralib::ZQUserSet;

namespace {

constexpr int mostRecent = 8;
const QString recentKey = QStringLiteral("recentSettings");

QStringList recentFiles()
{
    return QSettings(QStringLiteral("ZQFeatureBrowser"), QStringLiteral("zqviewer"))
        .value(recentKey)
        .toStringList();
}

void remembered(const QString& file)
{
    QStringList files = recentFiles();
    const QString path = QFileInfo(file).absoluteFilePath();
    files.removeAll(path);
    files.prepend(path);
    QSettings(QStringLiteral("ZQFeatureBrowser"), QStringLiteral("zqviewer"))
        .setValue(recentKey, QStringList(files.mid(0, mostRecent)));
}

/// All menus there are, to compare their cameras.
QList<SettingsMenu*>& allMenus()
{
    static QList<SettingsMenu*> all;
    return all;
}

QString nameOf(const QString& file)
{
    return QFileInfo(file).fileName();
}

} // namespace

SettingsMenu::SettingsMenu(OpenedCamera& camera, LiveImage& images, QWidget* window)
    : QObject(window)
    , m_camera(camera)
    , m_images(images)
    , m_window(window)
    , m_task(window)
{
    allMenus().append(this);
    makeActions();
    connect(&m_task, &SettingsTask::begun, this, &SettingsMenu::begun);
    connect(&m_task, &SettingsTask::ended, this, &SettingsMenu::ended);
}

SettingsMenu::~SettingsMenu()
{
    allMenus().removeAll(this);
}

QAction* SettingsMenu::add(const QString& words, const char* name)
{
    auto* action = new QAction(words, this);
    action->setObjectName(QLatin1String(name));
    return action;
}

void SettingsMenu::makeActions()
{
    m_save = add(tr("&Save settings\u2026"), "saveSettings");
    m_save->setIconText(tr("Save settings"));
    m_save->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    m_load = add(tr("&Load settings\u2026"), "loadSettings");
    m_load->setIconText(tr("Load settings"));
    m_load->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    m_compare = add(tr("&Compare with a file\u2026"), "compareSettings");
    m_compare->setIconText(tr("Compare settings"));
    m_remember = add(tr("&Remember the settings of now"), "rememberSettings");
    m_compareRemembered = add(tr("Compare with those re&membered"), "compareRemembered");
    m_takeBack = add(tr("&Undo loading"), "takeBackSettings");
    m_compareRemembered->setEnabled(false);
    m_takeBack->setEnabled(false);
    const bool canWrite = !m_camera.camera().isReadOnly();
    m_load->setEnabled(canWrite);
    connect(m_save, &QAction::triggered, this, &SettingsMenu::chooseAndSave);
    connect(m_load, &QAction::triggered, this, &SettingsMenu::chooseAndLoad);
    connect(m_compare, &QAction::triggered, this, &SettingsMenu::chooseAndCompare);
    connect(m_remember, &QAction::triggered, this, &SettingsMenu::remember);
    connect(m_compareRemembered, &QAction::triggered, this,
        [this] { compareWith(m_remembered, m_rememberedName); });
    connect(m_takeBack, &QAction::triggered, this, &SettingsMenu::takeBack);
}

void SettingsMenu::fill(QMenu& menu)
{
    menu.addActions({ m_save, m_load });
    QMenu* recent = menu.addMenu(tr("L&oad again"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecent(*recent); });
    menu.addAction(m_takeBack);
    menu.addSeparator();
    menu.addAction(m_compare);
    QMenu* cameras = menu.addMenu(tr("Compare with another c&amera"));
    connect(cameras, &QMenu::aboutToShow, this, [this, cameras] { fillCameras(*cameras); });
    menu.addAction(tr("Compare two &files\u2026"), this, &SettingsMenu::compareFiles);
    menu.addActions({ m_remember, m_compareRemembered });
    menu.addSeparator();
    QMenu* sets = menu.addMenu(tr("User s&ets of the camera"));
    connect(sets, &QMenu::aboutToShow, this, [this, sets] { fillUserSets(*sets); });
}

void SettingsMenu::fillRecent(QMenu& menu)
{
    menu.clear();
    for (const QString& file : recentFiles()) {
        QAction* action
            = menu.addAction(nameOf(file).replace(QLatin1Char('&'), QLatin1String("&&")), this,
                [this, file] { load(file); });
        action->setToolTip(file);
    }
    menu.setToolTipsVisible(true);
    if (menu.isEmpty()) {
        menu.addAction(tr("No files yet"))->setEnabled(false);
    }
}

void SettingsMenu::fillCameras(QMenu& menu)
{
    menu.clear();
    for (SettingsMenu* other : allMenus()) {
        if (other != this) {
            menu.addAction(other->m_camera.title(), this, [this, other] {
                if (allMenus().contains(other)) {
                    compareWithCamera(*other);
                }
            });
        }
    }
    if (menu.isEmpty()) {
        menu.addAction(tr("No other camera is open"))->setEnabled(false);
    }
}

void SettingsMenu::fillUserSets(QMenu& menu)
{
    using Action = ZQUserSet::Action;
    menu.clear();
    for (const std::string& name : ZQUserSet::Names(m_camera.camera())) {
        const QString set = QString::fromStdString(name);
        QMenu* actions = menu.addMenu(set);
        actions->addAction(tr("&Load\u2026"), this, [this, set] { runUserSet(set, Action::Load); });
        actions->addAction(tr("&Save the settings of now into it\u2026"), this,
            [this, set] { runUserSet(set, Action::Save); });
        actions->addAction(tr("&Compare with now\u2026"), this,
            [this, set] { runUserSet(set, Action::LookInto); });
    }
    if (menu.isEmpty()) {
        menu.addAction(tr("The camera keeps none"))->setEnabled(false);
    }
}

namespace {

QString fileFilter()
{
    return SettingsMenu::tr("Camera settings (*.zqs *.txt *.pfs);;All files (*)");
}

} // namespace

void SettingsMenu::chooseAndSave()
{
    const QString file = QFileDialog::getSaveFileName(
        m_window, tr("Save settings"), m_camera.name() + QStringLiteral(".zqs"), fileFilter());
    if (!file.isEmpty()) {
        save(file);
    }
}

void SettingsMenu::chooseAndLoad()
{
    const QString file
        = QFileDialog::getOpenFileName(m_window, tr("Load settings"), {}, fileFilter());
    if (!file.isEmpty()) {
        load(file);
    }
}

void SettingsMenu::chooseAndCompare()
{
    const QString file
        = QFileDialog::getOpenFileName(m_window, tr("Compare with a file"), {}, fileFilter());
    if (!file.isEmpty()) {
        compareWithFile(file);
    }
}

void SettingsMenu::compareFiles()
{
    QList<ComparedSettings> sides;
    for (const QString& title : { tr("First file"), tr("Second file") }) {
        const QString file = QFileDialog::getOpenFileName(m_window, title, {}, fileFilter());
        Settings settings;
        if (file.isEmpty() || !open(file, settings)) {
            return;
        }
        sides.append({ nameOf(file), settings, file, false });
    }
    show(sides.first(), sides.last());
}

void SettingsMenu::read(
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

void SettingsMenu::save(const QString& file)
{
    read(tr("Reading the settings\u2026"), nullptr,
        [this, file](const Settings& settings) { write(file, settings); });
}

void SettingsMenu::write(const QString& file, const Settings& settings)
{
    QString error;
    if (!writeSettings(file, settings, error)) {
        Q_EMIT told(false, error);
        return;
    }
    remembered(file);
    const int leftOut = static_cast<int>(settings.leftOut().size());
    QString text
        = tr("%n setting(s) saved in %1", nullptr, static_cast<int>(settings.lines().size()))
              .arg(nameOf(file));
    text += leftOut > 0 ? tr("; the file names %n left out.", nullptr, leftOut)
                        : QStringLiteral(".");
    Q_EMIT told(true, text);
}

/// Tells why not.
bool SettingsMenu::open(const QString& file, Settings& settings)
{
    QString error;
    if (!readSettings(file, settings, error)) {
        Q_EMIT told(false, error);
        return false;
    }
    remembered(file);
    return true;
}

void SettingsMenu::load(const QString& file)
{
    Settings settings;
    if (!open(file, settings)) {
        return;
    }
    restore(settings, nameOf(file));
}

void SettingsMenu::restore(const Settings& settings, const QString& what)
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

void SettingsMenu::restored(Task& task, Task::State state, const QString& what)
{
    auto& restoring = static_cast<ZQSettingsRestoring&>(task);
    const zqcameralib::ZQRestoreReport& report = restoring.report();
    m_before = restoring.before();
    m_takeBack->setEnabled(!m_before.lines().empty());
    m_takeBack->setText(tr("&Undo loading %1").arg(what));
    Q_EMIT changed();
    const bool isGood = state == Task::State::Done && RestoreWindow::isGood(report);
    Q_EMIT told(isGood, QStringLiteral("%1: %2").arg(what, RestoreWindow::summary(report)));
    if (!isGood || !report.warnings.empty()) {
        (new RestoreWindow(report, m_window))->show();
    }
}

void SettingsMenu::takeBack()
{
    restore(Settings(m_before), tr("the settings of before"));
}

void SettingsMenu::remember()
{
    read(tr("Reading the settings\u2026"), nullptr, [this](Settings settings) {
        m_remembered = std::move(settings);
        m_rememberedName
            = tr("Remembered at %1").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
        m_compareRemembered->setEnabled(true);
        Q_EMIT told(true, m_rememberedName + QLatin1Char('.'));
    });
}

ComparedSettings SettingsMenu::ofCamera(Settings settings)
{
    return { m_camera.title(), std::move(settings), {}, !m_camera.camera().isReadOnly() };
}

void SettingsMenu::compareWith(const Settings& before, const QString& name)
{
    read(tr("Reading the settings\u2026"), &before, [this, before, name](Settings now) {
        show({ name, before, {}, false }, ofCamera(std::move(now)));
    });
}

void SettingsMenu::compareWithFile(const QString& file)
{
    Settings settings;
    if (!open(file, settings)) {
        return;
    }
    read(tr("Reading the settings\u2026"), &settings, [this, settings, file](Settings now) {
        show({ nameOf(file), settings, file, false }, ofCamera(std::move(now)));
    });
}

void SettingsMenu::compareWithCamera(SettingsMenu& other)
{
    QPointer<SettingsMenu> guard(&other);
    read(tr("Reading the settings\u2026"), nullptr, [this, guard](const Settings& own) {
        if (!guard || guard->isRunning()) {
            return;
        }
        const QPointer<SettingsMenu> self(this);
        guard->read(tr("Reading the settings\u2026"), nullptr, [self, guard, own](Settings others) {
            if (self) {
                ComparedSettings second = guard->ofCamera(std::move(others));
                second.isCamera = false; // only the own one is written to from here
                self->show(std::move(second), self->ofCamera(own));
            }
        });
    });
}

void SettingsMenu::show(ComparedSettings first, ComparedSettings second)
{
    const QString name = first.name;
    auto* window = new ComparisonWindow(std::move(first), std::move(second), m_window);
    connect(window, &ComparisonWindow::restoreWanted, this,
        [this, name](const Settings& lines) { restore(lines, name); });
    connect(window, &ComparisonWindow::saveWanted, this, &SettingsMenu::write);
    window->show();
}

bool SettingsMenu::isConfirmed(const QString& question)
{
    return QMessageBox::warning(m_window, tr("User set"), question,
               QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel)
        == QMessageBox::Ok;
}

void SettingsMenu::runUserSet(const QString& set, ZQUserSet::Action action)
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

namespace {

using featurebrowser::FeatureItem;

bool isSetting(const FeatureItem& item)
{
    return item.type != featurebrowser::FEATURE_CATEGORY
        && item.type != featurebrowser::FEATURE_COMMAND && !item.isSelector && item.displayFlag != 0
        && item.accessMode == featurebrowser::ACCESS_READ_WRITE
        && item.name.rfind("Gev", 0) != 0; // of the connection, which is another one now
}

} // namespace

ZQSettings shownSettings(OpenedCamera& camera)
{
    ZQSettings settings;
    for (const auto& item : camera.repository().GetFeatureList()) {
        if (!isSetting(*item)) {
            continue;
        }
        zqcameralib::ZQSettingsLine line;
        line.name = item->name;
        const bool isChoice = item->type == featurebrowser::FEATURE_ENUMERATION
            || item->type == featurebrowser::FEATURE_BOOLEAN;
        line.value = isChoice ? camera.shown(item->name.c_str()).toStdString() : item->valueText;
        const QStringList selectors = QString::fromStdString(item->selectorParent)
                                          .split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString& selector : selectors) {
            const std::string name = selector.trimmed().toStdString();
            line.selectors.push_back({ name, camera.shown(name.c_str()).toStdString() });
        }
        settings.put(std::move(line));
    }
    return settings;
}

} // namespace zqviewer
