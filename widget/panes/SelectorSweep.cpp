// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/SelectorSweep.h"

#include "events/ValueWriter.h"
#include "history/Stands.h"
#include "text/ValueText.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace featurebrowser {

namespace {

constexpr std::size_t mostEntries = 256;

std::vector<RowValue> gridPoints(const IntegerValue& limits)
{
    const quint64 increment = std::max<quint32>(limits.increment, 1);
    const quint64 range
        = static_cast<quint64>(limits.maximum) - static_cast<quint64>(limits.minimum);
    if (limits.maximum < limits.minimum || range / increment >= mostEntries) {
        return {};
    }
    std::vector<RowValue> points;
    for (quint64 distance = 0; distance <= range; distance += increment) {
        IntegerValue point = limits;
        point.value = static_cast<qint64>(static_cast<quint64>(limits.minimum) + distance);
        points.emplace_back(point);
    }
    return points;
}

} // namespace

std::vector<RowValue> selectorEntries(const FeatureRow& selector)
{
    if (const auto* integer = std::get_if<IntegerValue>(&selector.value)) {
        return gridPoints(*integer);
    }
    const auto* choice = std::get_if<ChoiceValue>(&selector.value);
    if (choice == nullptr || choice->entries.size() > mostEntries) {
        return {};
    }
    std::vector<RowValue> entries(choice->entries.size(), *choice);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        std::get<ChoiceValue>(entries[i]).index = static_cast<int>(i);
    }
    return entries;
}

SelectorSweep::SelectorSweep(
    FeatureModel& model, ValueWriter& writer, std::string selector, QObject* parent)
    : QObject(parent)
    , m_model(model)
    , m_writer(writer)
    , m_selector(std::move(selector))
{
    connect(&m_turn, &QTimer::timeout, this, &SelectorSweep::step);
}

bool SelectorSweep::begin()
{
    const FeatureRow* row = m_model.find(m_selector);
    if (m_isBusy || row == nullptr || !row->isEditable()) {
        return false;
    }
    m_before = row->hasValue ? row->value : RowValue();
    m_isBusy = true;
    m_isStopping = false;
    return true;
}

bool SelectorSweep::start()
{
    if (!begin()) {
        return false;
    }
    m_entries = selectorEntries(*m_model.find(m_selector));
    m_position = 0;
    m_standing.reset();
    m_turn.start(0);
    return true;
}

void SelectorSweep::stop()
{
    m_isStopping = true;
    if (m_turn.isActive()) {
        finish(cancelled());
    }
}

QString SelectorSweep::cancelled()
{
    return tr("Cancelled: not all entries were read");
}

// Somebody wants it elsewhere while it goes through its entries.
bool SelectorSweep::hasBeenMoved() const
{
    const FeatureRow* row = m_model.find(m_selector);
    return row == nullptr || (m_standing && valueText(*row) != *m_standing);
}

void SelectorSweep::step()
{
    if (hasBeenMoved()) {
        m_before = RowValue(); // it stays where they want it
        finish(tr("Stopped: %1 was changed meanwhile").arg(toText(m_selector)));
        return;
    }
    if (m_position >= m_entries.size()) {
        finish({});
        return;
    }
    const QPointer<SelectorSweep> self(this);
    m_turn.stop(); // the application may let the event loop turn
    const std::size_t entry = m_position++;
    const QString problem = switchTo(m_entries[entry], true);
    if (!self) {
        return;
    }
    if (m_isStopping) {
        finish(cancelled());
        return;
    }
    if (const FeatureRow* row = m_model.find(m_selector)) {
        m_standing = valueText(*row);
    }
    m_turn.start(0);
    Q_EMIT reached(entry, problem);
}

// This may be gone afterwards, so that only what was copied before is used then.
QString SelectorSweep::switchTo(const RowValue& entry, bool always)
{
    const std::string name = m_selector;
    const QString text = heldText(entry);
    FeatureModel& model = m_model;
    const FeatureRow* row = model.find(name);
    const auto value = row != nullptr ? enteredAgain(*row, entry) : std::nullopt;
    if (value && (always || !holds(*row, *value) || row->hasMessage())) {
        m_writer.write(name, *value, WriteEntry::Switching);
        row = model.find(name);
    }
    if (row != nullptr && row->hasMessage()) {
        return row->extras().message;
    }
    return row != nullptr && value && holds(*row, *value)
        ? QString()
        : tr("%1 could not be set to %2").arg(toText(name), text);
}

QString SelectorSweep::setBack()
{
    return std::holds_alternative<std::monostate>(m_before) ? QString() : switchTo(m_before, false);
}

void SelectorSweep::finish(const QString& problem)
{
    m_turn.stop();
    const QPointer<SelectorSweep> self(this);
    const QString back = setBack();
    if (self) {
        m_isBusy = false;
        Q_EMIT finished(back.isEmpty() ? problem : back);
    }
}

QString SelectorSweep::visit(
    std::size_t entry, const std::function<void(const QString& problem)>& use)
{
    if (entry >= m_entries.size() || !begin()) {
        return tr("%1 cannot be switched now").arg(toText(m_selector));
    }
    const QPointer<SelectorSweep> self(this);
    const QString problem = switchTo(m_entries[entry], false);
    if (self) {
        use(problem);
    }
    QString back = self ? setBack() : QString();
    if (self) {
        m_isBusy = false;
    }
    return back;
}

} // namespace featurebrowser
