// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/ChoiceEditor.h"

#include "text/ValueText.h"

#include <QAbstractItemView>
#include <QProxyStyle>
#include <QScrollBar>
#include <QWheelEvent>

#include <utility>

namespace featurebrowser {

namespace {

/// Lists that drop down and scroll; menus of hundreds of entries fill the screen.
class ListStyle : public QProxyStyle {
public:
    explicit ListStyle(QObject* parent) { setParent(parent); }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* data) const override
    {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

void ChoiceBox::hidePopup()
{
    QComboBox::hidePopup();
    Q_EMIT popupHidden();
}

void ChoiceBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

ChoiceEditor::ChoiceEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_box(new ChoiceBox(this))
{
    m_box->setStyle(new ListStyle(m_box));
    m_box->setFrame(false);
    m_box->setMaxVisibleItems(20);
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    addField(m_box);
    connect(m_box, QOverload<int>::of(&QComboBox::activated), this, [this] {
        touch();
        leave(Leave::Accept);
    });
    // Opens when the editor stands at its place.
    connect(
        this, &ChoiceEditor::shown, m_box,
        [this] {
            if (m_box->isVisible()) {
                m_box->showPopup();
            }
        },
        Qt::QueuedConnection);
    // Hidden before the box tells of the choice, so this waits for it.
    connect(
        m_box, &ChoiceBox::popupHidden, this, [this] { leave(Leave::Revert); },
        Qt::QueuedConnection);
}

void ChoiceEditor::showLimits(const FeatureRow& row)
{
    const QStringList entries = entryTexts(row);
    if (std::exchange(m_entries, entries) != entries) {
        m_box->clear();
        m_box->addItems(entries);
        QAbstractItemView* list = m_box->view(); // as wide as its entries, not as its cell
        list->setMinimumWidth(
            list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() + 8);
    }
}

void ChoiceEditor::showValue(const FeatureRow& row)
{
    m_box->setCurrentIndex(row.hasValue ? std::get<ChoiceValue>(row.value).index : -1);
}

void ChoiceEditor::showEvent(QShowEvent* event)
{
    RowEditor::showEvent(event);
    Q_EMIT shown();
}

std::optional<EditValue> ChoiceEditor::value(QString&) const
{
    if (m_box->currentIndex() < 0) {
        return std::nullopt;
    }
    return EntryIndex { m_box->currentIndex() };
}

} // namespace featurebrowser
