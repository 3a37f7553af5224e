// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "events/ValueWriter.h"

#include "events/ValueEvent.h"
#include "text/ValueText.h"

#include <algorithm>

namespace featurebrowser {

namespace {

bool isNumber(const FeatureRow& row)
{
    return row.kind == RowKind::Integer || row.kind == RowKind::Float;
}

/// What the row would show had the camera taken the value.
QString enteredText(const FeatureRow& row, const EditValue& entered)
{
    const auto value = withEntered(row.value, entered);
    return value ? heldText(*value) : QString();
}

} // namespace

ValueWriter::ValueWriter(FeatureModel& model, EventPort& events, QObject* parent)
    : QObject(parent)
    , m_model(model)
    , m_events(events)
{
    connect(&events, &EventPort::failed, this, &ValueWriter::showMessage);
}

void ValueWriter::run(Write& write, const ReceiverEvent& event)
{
    m_running.push_back(&write);
    m_events.raise(write.result.name, event);
    m_running.erase(std::find(m_running.begin(), m_running.end(), &write));
    auto& followers = write.result.followers;
    followers.erase(
        std::remove(followers.begin(), followers.end(), write.result.name), followers.end());
}

void ValueWriter::write(const std::string& name, const EditValue& value, Entry entry)
{
    FeatureRow* row = m_model.find(name);
    if (row == nullptr || !row->isEditable() || !fits(*row, value)) {
        return;
    }
    Write write;
    write.result.name = name;
    write.result.entry = entry;
    write.result.entered = withEntered(row->value, value).value_or(RowValue());
    if (row->hasValue) {
        write.result.before = row->value;
    }
    run(write, eventFor(*row, value));
    judge(write, value);
    Q_EMIT written(write.result);
}

// The row may have gone meanwhile, so it is looked up again.
void ValueWriter::judge(Write& write, const EditValue& entered)
{
    FeatureRow* row = m_model.find(write.result.name);
    if (row == nullptr) {
        return;
    }
    const QString wanted = enteredText(*row, entered);
    const bool isOther = !row->hasValue || valueText(*row) != wanted;
    // With a complaint, a value that has moved all the same was put elsewhere.
    const bool isNear = write.complained ? !sameValue(write.result.before, row->value)
                                         : isNumber(*row) || holds(*row, entered);
    write.result.isTaken = write.answered && isNear;
    if (write.complained) {
        m_model.setMessage(
            *row, row->extras().message + QLatin1Char('\n') + tr("Entered: %1").arg(wanted));
    } else if (!m_events.hasReceiver()) {
        showMessage(row->name,
            tr("“%1” was not written: nothing is connected to this browser").arg(wanted));
    } else if (!write.answered) {
        showMessage(row->name,
            tr("The camera has not confirmed “%1”; the row shows the last known value")
                .arg(wanted));
        row->ownExtras().isUnconfirmed = true;
    } else if (!write.result.isTaken) {
        showMessage(row->name,
            tr("The camera has not taken “%1”; the row shows what it holds").arg(wanted));
    } else if (isOther && write.result.entry != Entry::Passing) {
        showMessage(
            row->name, tr("The camera has put “%1” onto “%2”").arg(wanted, valueText(*row)));
    } else {
        m_model.setMessage(*row, {});
    }
}

void ValueWriter::press(const std::string& name)
{
    FeatureRow* row = m_model.find(name);
    if (row == nullptr || !row->isEditable()) {
        return;
    }
    Write write;
    write.result.name = name;
    write.result.isCommand = true;
    m_model.setMessage(*row, {});
    run(write, [name](auto& receiver) { receiver.FeatureExecCommand(name); });
    Q_EMIT written(write.result);
}

void ValueWriter::toggle(const std::string& name)
{
    const FeatureRow* row = m_model.find(name);
    if (row != nullptr && row->kind == RowKind::Boolean) {
        write(name, EntryIndex { std::get<ChoiceValue>(row->value).index == 1 ? 0 : 1 });
    }
}

bool ValueWriter::isSwitching() const
{
    return std::any_of(m_running.begin(), m_running.end(),
        [](const Write* write) { return write->result.entry == Entry::Switching; });
}

void ValueWriter::updated(FeatureRow& row, FeatureModel::Change change)
{
    bool isAnswer = false;
    for (Write* write : m_running) {
        if (write->result.name == row.name) {
            isAnswer = write->answered = true;
        }
        auto& followers = write->result.followers;
        if (change != FeatureModel::Change::Nothing
            && std::find(followers.begin(), followers.end(), row.name) == followers.end()) {
            followers.push_back(row.name);
        }
    }
    // An answer that comes late confirms also the value that was entered.
    const bool wasUnconfirmed = row.extras().isUnconfirmed;
    if (!isAnswer && (wasUnconfirmed || change == FeatureModel::Change::Value)) {
        m_model.setMessage(row, {});
    }
}

void ValueWriter::showMessage(const std::string& name, const QString& message)
{
    FeatureRow* row = m_model.find(name);
    if (row == nullptr) {
        return;
    }
    for (Write* write : m_running) {
        if (write->result.name == name) {
            write->complained = true;
        }
    }
    m_model.setMessage(*row, message.trimmed());
    Q_EMIT messageShown(row);
}

} // namespace featurebrowser
