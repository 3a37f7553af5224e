// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/RowMenu.h"

#include "row/FeatureRow.h"
#include "text/RowText.h"
#include "text/ValueText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace featurebrowser {

RowMenu::RowMenu(const FeatureRow& row, const Offer& offer, QWidget* parent)
    : QMenu(parent)
{
    setObjectName(QStringLiteral("rowMenu"));
    setAttribute(Qt::WA_DeleteOnClose);
    addCopyActions(row);
    addSeparator();
    if (!row.isCategory()) {
        addFeatureActions(offer);
    }
    addSeparator();
    addHistoryActions(offer);
    addSeparator();
    addTreeActions();
}

void RowMenu::addCopyActions(const FeatureRow& row)
{
    const auto addCopy = [this](const QString& words, const QString& text) {
        addAction(words, this, [text] { QGuiApplication::clipboard()->setText(text); });
    };
    addCopy(tr("Copy &name"), toText(row.name));
    if (row.isCategory()) {
        addCopy(tr("Copy category as &text"), rowAsText(row));
        return;
    }
    addCopy(tr("Copy &value"), valueText(row));
    addCopy(tr("&Copy name=value"), rowAsText(row));
    if (row.parent != nullptr && row.parent->parent != nullptr) {
        addCopy(tr("Copy category as &text"), rowAsText(*row.parent));
    }
}

void RowMenu::addFeatureActions(const Offer& offer)
{
    const bool isPinned = offer.isPinned;
    addAction(isPinned ? tr("&Unpin") : tr("&Pin to the top"), this,
        [this, isPinned] { Q_EMIT pinWanted(!isPinned); });
    if (offer.hasMatrix) {
        addAction(tr("Show all entries of this &selector\u2026"), this, &RowMenu::matrixWanted);
    }
}

void RowMenu::addHistoryActions(const Offer& offer)
{
    // The keys are shown here; the window acts on them.
    const auto add
        = [this](QString words, const QString& step, const QKeySequence& keys, auto signal) {
              if (!step.isEmpty()) {
                  words += QLatin1Char(' ')
                      + QString(step).replace(QLatin1Char('&'), QLatin1String("&&"));
              }
              QAction* action = addAction(words, this, signal);
              action->setShortcut(keys);
              action->setShortcutContext(Qt::WidgetShortcut);
              return action;
          };
    add(tr("Un&do"), offer.undo, QKeySequence::Undo, &RowMenu::undoWanted)
        ->setEnabled(!offer.undo.isEmpty());
    add(tr("&Redo"), offer.redo, QKeySequence::Redo, &RowMenu::redoWanted)
        ->setEnabled(!offer.redo.isEmpty());
    add(tr("C&hanges\u2026"), {}, QKeySequence(QStringLiteral("Ctrl+H")), &RowMenu::changesWanted);
}

void RowMenu::addTreeActions()
{
    addAction(tr("Collapse &others"), this, &RowMenu::collapseOthersWanted);
    addAction(tr("&Expand all"), this, &RowMenu::expandAllWanted);
    addAction(tr("Collapse &all"), this, &RowMenu::collapseAllWanted);
}

} // namespace featurebrowser
