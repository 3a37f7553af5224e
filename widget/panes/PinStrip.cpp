// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/PinStrip.h"

#include "look/PinLine.h"
#include "look/Sparkline.h"
#include "text/RowText.h"
#include "text/ValueText.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QToolTip>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace featurebrowser {

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

double plotted(const FeatureRow& row)
{
    if (!row.hasValue) {
        return noNumber;
    }
    if (const auto* integer = std::get_if<IntegerValue>(&row.value)) {
        return static_cast<double>(integer->value);
    }
    if (const auto* number = std::get_if<FloatValue>(&row.value)) {
        return number->value;
    }
    if (const auto* choice = std::get_if<ChoiceValue>(&row.value)) {
        return choice->index;
    }
    return noNumber;
}

/// Whether the value is what the camera holds, as far as one can know.
bool isCurrent(const FeatureRow& row)
{
    return row.hasValue && row.state != FEATURE_READ_FAILED && row.state != FEATURE_NOT_AVAILABLE;
}

} // namespace

PinStrip::PinStrip(FeatureModel* model, QWidget* window)
    : QScrollArea(window)
    , m_model(model)
    , m_window(window)
{
    setObjectName(QStringLiteral("pinStrip"));
    setAccessibleName(tr("Pinned features"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    auto* content = new QWidget(this);
    m_layout = new QVBoxLayout(content);
    m_layout->setContentsMargins(0, 2, 0, 2);
    m_layout->setSpacing(0);
    setWidget(content);
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    window->installEventFilter(this);
    hide();
    connect(model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        const auto pin = find(FeatureModel::row(index)->name);
        if (pin != m_pins.end()) {
            showPin(*pin);
        }
    });
    connect(model, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex& parentIndex, int first) {
            const FeatureRow& row = *FeatureModel::row(m_model->index(first, 0, parentIndex));
            valueSeen(row);
        });
    connect(model, &QAbstractItemModel::modelReset, this, &PinStrip::showAll);
}

void PinStrip::alignWith(QTreeView* tree)
{
    m_tree = tree;
    connect(tree->header(), &QHeaderView::sectionResized, this, &PinStrip::align);
    connect(tree->horizontalScrollBar(), &QScrollBar::valueChanged, this, &PinStrip::align);
    tree->header()->installEventFilter(this);
    align();
}

void PinStrip::setPinned(const std::string& name, bool pinned)
{
    if (pinned == isPinned(name)) {
        return;
    }
    if (pinned) {
        add(name);
    } else {
        remove(name);
    }
    fitHeight();
    setVisible(!m_pins.empty());
    Q_EMIT pinsChanged();
}

void PinStrip::add(const std::string& name)
{
    auto* line = new PinLine(toText(name), widget());
    line->setFocusPolicy(m_pins.empty() ? Qt::StrongFocus : Qt::ClickFocus);
    m_layout->addWidget(line);
    if (m_tree != nullptr) { // new ones come last
        setTabOrder(m_tree, line);
        setTabOrder(line, m_tree);
    }
    m_pins.push_back({ name, line });
    connect(line, &PinLine::unpinWanted, this, [this, name] { setPinned(name, false); });
    connect(line, &PinLine::rowWanted, this, [this, name] { goTo(*find(name)); });
    connect(line, &PinLine::neighbourWanted, this, [this, name](bool next) {
        const auto position = static_cast<std::size_t>(find(name) - m_pins.begin());
        focus(next ? position + 1 : position - 1);
    });
    if (const FeatureRow* row = m_model->find(name)) {
        valueSeen(*row);
    } else {
        showPin(m_pins.back());
    }
    align();
}

void PinStrip::remove(const std::string& name)
{
    const auto pin = find(name);
    const auto position = static_cast<std::size_t>(pin - m_pins.begin());
    PinLine* line = pin->line;
    m_pins.erase(pin);
    const bool hadFocus = line->hasFocus();
    const bool wasTabStop = line->focusPolicy() == Qt::StrongFocus;
    m_layout->removeWidget(line);
    line->hide();
    line->deleteLater(); // it may be what tells
    if (m_pins.empty()) {
        if (hadFocus && m_tree != nullptr) {
            m_tree->setFocus();
        }
        return;
    }
    const std::size_t next = std::min(position, m_pins.size() - 1);
    if (wasTabStop) {
        m_pins[next].line->setFocusPolicy(Qt::StrongFocus);
    }
    if (hadFocus) {
        focus(next);
    }
}

PinStrip::Pins::const_iterator PinStrip::find(const std::string& name) const
{
    return std::find_if(
        m_pins.begin(), m_pins.end(), [&](const Pin& pin) { return pin.feature == name; });
}

QByteArrayList PinStrip::pinned() const
{
    QByteArrayList names;
    for (const Pin& pin : m_pins) {
        names.append(QByteArray::fromStdString(pin.feature));
    }
    return names;
}

void PinStrip::pinOnly(const QByteArrayList& names)
{
    const auto before = pinned();
    for (const QByteArray& name : before) {
        if (!names.contains(name)) {
            setPinned(name.toStdString(), false);
        }
    }
    for (const QByteArray& name : names) {
        setPinned(name.toStdString(), true);
    }
}

void PinStrip::valueSeen(const FeatureRow& row)
{
    const auto pin = find(row.name);
    if (pin != m_pins.end()) {
        pin->line->line().add(isCurrent(row) ? plotted(row) : noNumber);
        showPin(*pin);
    }
}

// The tree has been emptied: whatever comes now may be of another camera.
void PinStrip::showAll()
{
    for (const Pin& pin : m_pins) {
        pin.line->line().add(noNumber);
        showPin(pin);
    }
}

void PinStrip::showPin(const Pin& pin) const
{
    const FeatureRow* row = m_model->find(pin.feature);
    if (row == nullptr) {
        pin.line->showValue(
            noValueText(), true, tr("This camera has no such feature").toHtmlEscaped());
    } else {
        pin.line->showValue(oneLine(valueWithUnit(*row)), !isCurrent(*row),
            m_model->indexOf(row).data(Qt::ToolTipRole).toString());
    }
    Sparkline& line = pin.line->line();
    QString words = line.spanText();
    const auto [least, most] = line.range();
    const bool isNumber = row != nullptr && !std::holds_alternative<ChoiceValue>(row->value);
    if (isNumber && !words.isEmpty() && least <= most) {
        const QString unit = rowUnit(*row).isEmpty() ? QString() : QLatin1Char(' ') + rowUnit(*row);
        words = tr("Last %1: from %2 to %3")
                    .arg(words, floatText(least) + unit, floatText(most) + unit);
    }
    line.setToolTip(words.toHtmlEscaped());
}

void PinStrip::goTo(const Pin& pin)
{
    const FeatureRow* row = m_model->find(pin.feature);
    if (row != nullptr && !row->hidden) {
        Q_EMIT rowWanted(*row);
        return;
    }
    const QString words = row == nullptr
        ? tr("This camera has no such feature")
        : tr("The filter or the visibility level hides this feature in the tree");
    QToolTip::showText(pin.line->mapToGlobal(QPoint(0, pin.line->height())), words, pin.line);
}

void PinStrip::focus(std::size_t position)
{
    if (position >= m_pins.size()) {
        return;
    }
    for (const Pin& pin : m_pins) {
        pin.line->setFocusPolicy(Qt::ClickFocus);
    }
    PinLine* line = m_pins[position].line;
    line->setFocusPolicy(Qt::StrongFocus);
    line->setFocus(Qt::TabFocusReason);
    ensureWidgetVisible(line, 0, 0);
}

// An own measure: what the layout wants comes only after the next turn of the event loop.
void PinStrip::fitHeight()
{
    const QMargins margins = m_layout->contentsMargins();
    int wanted = margins.top() + margins.bottom();
    for (const Pin& pin : m_pins) {
        wanted += pin.line->sizeHint().height();
    }
    setFixedHeight(std::min(wanted, m_window->height() / 3));
}

void PinStrip::align()
{
    if (m_tree == nullptr) {
        return;
    }
    const QHeaderView* header = m_tree->header();
    const int left = header->sectionViewportPosition(1);
    const int start = header->layoutDirection() == Qt::LeftToRight
        ? left
        : header->viewport()->width() - left - header->sectionSize(1);
    for (const Pin& pin : m_pins) {
        pin.line->setValueStart(start + m_tree->frameWidth());
    }
}

bool PinStrip::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange) {
        fitHeight();
        align();
    }
    return QScrollArea::eventFilter(object, event);
}

void PinStrip::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitHeight();
    }
}

} // namespace featurebrowser
