// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// How the window's parts are made, placed and connected.
#include "window/BrowserWindow.h"

#include "events/ValueWriter.h"
#include "history/WriteHistory.h"
#include "panes/ChangeStrip.h"
#include "panes/DescriptionPane.h"
#include "panes/FilterBar.h"
#include "panes/PinStrip.h"
#include "tree/FeatureTreeView.h"
#include "window/CommandQuestion.h"
#include "window/MessageCallout.h"

#include <QHeaderView>
#include <QShortcut>
#include <QSplitter>
#include <QToolTip>
#include <QVBoxLayout>

namespace featurebrowser {

namespace {

/// Commands after which settings are lost or overwritten (SFNC 2.7: DeviceReset,
/// DeviceFactoryReset, UserSetLoad, UserSetSave, SequencerSetLoad, SequencerSetSave,
/// FileOperationExecute), and what older cameras call them.
QStringList commandsThatThrowWorkAway()
{
    return { QStringLiteral("*DeviceReset"), QStringLiteral("*CameraReset"),
        QStringLiteral("ResetDevice"), QStringLiteral("ResetCamera"),
        QStringLiteral("*FactoryReset*"), QStringLiteral("*FactoryDefault*"),
        QStringLiteral("*FactorySettings*"), QStringLiteral("*RestoreDefault*"),
        QStringLiteral("*LoadDefault*"), QStringLiteral("*UserSet*Load*"),
        QStringLiteral("*UserSet*Save*"), QStringLiteral("*UserSet*Delete*"),
        QStringLiteral("*ConfigurationLoad*"), QStringLiteral("*ConfigurationSave*"),
        QStringLiteral("*SettingsLoad*"), QStringLiteral("*SettingsSave*"),
        QStringLiteral("*SequencerSetLoad*"), QStringLiteral("*SequencerSetSave*"),
        QStringLiteral("*SequenceSetLoad*"), QStringLiteral("*SequenceSetStore*"),
        QStringLiteral("*FileOperationExecute*"), QStringLiteral("*FirmwareUpdate*") };
}

} // namespace

BrowserWindow::BrowserWindow(QWidget* parent)
    : QWidget(parent)
    , m_model(new FeatureModel(this))
    , m_writer(new ValueWriter(*m_model, m_events, this))
{
    if (parent != nullptr) {
        setWindowFlags(Qt::Dialog); // a window of its own until an application embeds it
    }
    setWindowTitle(tr("Camera features"));
    // In the order in which Tab goes through them.
    m_filterBar = new FilterBar(this);
    m_pins = new PinStrip(m_model, this);
    makeTree();
    m_pins->alignWith(m_tree.get());
    m_changes = new ChangeStrip(m_model, this);
    m_description = new DescriptionPane(m_model, this);
    arrange();
    connectTree();
    connectFilterBar();
    makeHistory();
    makeShortcuts();
    connect(m_pins, &PinStrip::pinsChanged, this, &BrowserWindow::pinnedFeaturesChanged);
    connect(m_changes, &ChangeStrip::rowWanted, this, &BrowserWindow::showRow);
    connect(m_pins, &PinStrip::rowWanted, this, [this](const FeatureRow& row) {
        showRow(row);
        m_tree->setFocus();
    });
    connect(m_writer, &ValueWriter::written, this, &BrowserWindow::written);
}

void BrowserWindow::makeTree()
{
    m_tree = std::make_unique<FeatureTreeView>(m_model, m_writer, this);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->confirmedCommands = commandsThatThrowWorkAway();
    m_callout = new MessageCallout(m_tree.get());
    m_question = new CommandQuestion(m_tree.get());
}

void BrowserWindow::connectTree()
{
    connect(m_writer, &ValueWriter::messageShown, m_callout, &MessageCallout::showRow);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &BrowserWindow::rowChanged);
    connect(m_model, &QAbstractItemModel::modelReset, m_callout, &MessageCallout::follow);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &BrowserWindow::rowsAdded);
    connect(m_tree.get(), &FeatureTreeView::dismissed, m_callout,
        [this] { m_callout->showRow(nullptr); });
    connect(m_tree.get(), &FeatureTreeView::confirmationWanted, m_question, &CommandQuestion::ask);
    connect(m_question, &CommandQuestion::confirmed, m_writer, &ValueWriter::press);
    connect(m_model, &QAbstractItemModel::modelReset, m_question, &CommandQuestion::follow);
    connect(m_tree.get(), &FeatureTreeView::currentRowChanged, this, &BrowserWindow::rowSelected);
    connect(m_tree.get(), &QWidget::customContextMenuRequested, this, &BrowserWindow::showMenu);
    connect(m_tree.get(), &FeatureTreeView::columnChosen, this, &BrowserWindow::columnResized);
}

void BrowserWindow::connectFilterBar()
{
    m_filterBar->setLevel(m_tree->filter().level);
    connect(m_filterBar, &FilterBar::textChanged, this, &BrowserWindow::filterTextChanged);
    connect(m_filterBar, &FilterBar::levelChosen, this, &BrowserWindow::levelChosen);
    connect(m_filterBar, &FilterBar::expandAll, m_tree.get(), &QTreeView::expandAll);
    connect(m_filterBar, &FilterBar::collapseAll, m_tree.get(), &QTreeView::collapseAll);
    connect(m_filterBar, &FilterBar::hitWanted, this, &BrowserWindow::goToHit);
    connect(m_filterBar, &FilterBar::finished, m_tree.get(), [this] { m_tree->focusFirstHit(); });
}

void BrowserWindow::makeHistory()
{
    m_history = new WriteHistory(*m_model, *m_writer, this);
    connect(m_history, &WriteHistory::rowWanted, this, &BrowserWindow::showRow);
    connect(m_history, &WriteHistory::said, this, [this](const QString& words) {
        QToolTip::showText(m_tree->mapToGlobal(QPoint()), words.toHtmlEscaped(), m_tree.get());
    });
}

void BrowserWindow::makeShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    add(QKeySequence::Find, [this] { m_filterBar->focusField(); });
    add(QKeySequence::FindNext, [this] { goToHit(true); });
    add(QKeySequence::FindPrevious, [this] { goToHit(false); });
    add(Qt::Key_F4, [this] {
        if (m_changes) {
            m_changes->goToNext();
        }
    });
    add(QKeySequence::Undo, [this] { takeStep(true); });
    add(QKeySequence::Redo, [this] { takeStep(false); });
    add(QKeySequence(QStringLiteral("Ctrl+H")), [this] { showChanges(); });
}

void BrowserWindow::arrange()
{
    auto* upper = new QWidget(this);
    auto* upperLayout = new QVBoxLayout(upper);
    upperLayout->setContentsMargins(0, 0, 0, 0);
    upperLayout->setSpacing(2);
    upperLayout->addWidget(m_pins);
    upperLayout->addWidget(m_tree.get(), 1);
    upperLayout->addWidget(m_changes);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(upper);
    splitter->addWidget(m_description);
    splitter->setStretchFactor(0, 4);
    splitter->setStretchFactor(1, 1);
    splitter->setCollapsible(0, false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_filterBar);
    layout->addWidget(splitter, 1);
    const int unit = fontMetrics().height();
    resize(unit * 36, unit * 46);
}

} // namespace featurebrowser
