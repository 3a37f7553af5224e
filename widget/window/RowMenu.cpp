#include "window/RowMenu.h"

#include "panes/SelectorMatrix.h"
#include "panes/WatchStrip.h"
#include "text/ValueText.h"
#include "tree/FeatureTreeView.h"

#include <QClipboard>
#include <QGuiApplication>

namespace featurebrowser {

namespace {

void appendRows(const FeatureRow& category, QStringList& lines)
{
    lines.append(QLatin1Char('[') + toText(category.name) + QLatin1Char(']'));
    for (const auto& child : category.children) {
        if (child->hidden) {
            continue;
        }
        if (child->isCategory()) {
            appendRows(*child, lines);
        } else {
            lines.append(rowAsText(*child));
        }
    }
}

} // namespace

QString rowAsText(const FeatureRow& row)
{
    if (!row.isCategory()) {
        return toText(row.name) + QLatin1Char('=') + valueText(row);
    }
    QStringList lines;
    appendRows(row, lines);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

RowMenu::RowMenu(FeatureTreeView& tree, WatchStrip& watch, const FeatureRow& row, QWidget* parent)
    : QMenu(parent)
    , m_tree(tree)
    , m_watch(watch)
{
    addCopyActions(row);
    addSeparator();
    if (!row.isCategory()) {
        addWatchActions(row);
    }
    addSeparator();
    addTreeActions(row);
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

void RowMenu::addWatchActions(const FeatureRow& row)
{
    const std::string name = row.name;
    const bool isPinned = m_watch.isPinned(name);
    addAction(isPinned ? tr("&Unpin") : tr("&Pin to the top"), &m_watch,
        [this, name, isPinned] { m_watch.setPinned(name, !isPinned); });
    if (SelectorMatrix::canShow(m_tree.features(), row)) {
        addAction(tr("Show all entries of this &selector\u2026"), this,
            [this, name] { Q_EMIT matrixWanted(name); });
    }
}

void RowMenu::addTreeActions(const FeatureRow& row)
{
    const std::string name = row.name;
    addAction(tr("Collapse &others"), &m_tree, [this, name] { m_tree.collapseOthers(name); });
    addAction(tr("&Expand all"), &m_tree, &QTreeView::expandAll);
    addAction(tr("Collapse &all"), &m_tree, &QTreeView::collapseAll);
}

} // namespace featurebrowser
