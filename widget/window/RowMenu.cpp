#include "window/RowMenu.h"

#include "row/FeatureRow.h"
#include "text/RowText.h"
#include "text/ValueText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace featurebrowser {

RowMenu::RowMenu(const FeatureRow& row, Offer offer, QWidget* parent)
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

void RowMenu::addFeatureActions(Offer offer)
{
    const bool isPinned = offer.isPinned;
    addAction(isPinned ? tr("&Unpin") : tr("&Pin to the top"), this,
        [this, isPinned] { Q_EMIT pinWanted(!isPinned); });
    if (offer.hasMatrix) {
        addAction(tr("Show all entries of this &selector\u2026"), this, &RowMenu::matrixWanted);
    }
}

void RowMenu::addTreeActions()
{
    addAction(tr("Collapse &others"), this, &RowMenu::collapseOthersWanted);
    addAction(tr("&Expand all"), this, &RowMenu::expandAllWanted);
    addAction(tr("Collapse &all"), this, &RowMenu::collapseAllWanted);
}

} // namespace featurebrowser
