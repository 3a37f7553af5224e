#include "events/ValueWriter.h"

#include "events/ValueEvent.h"
#include "text/ValueText.h"

#include <algorithm>

namespace featurebrowser {

namespace {

// Numbers may come back rounded to what the camera can hold; texts and entries may not.
bool mustComeBack(const FeatureRow& row)
{
    return row.kind != RowKind::Integer && row.kind != RowKind::Float;
}

QString enteredText(const FeatureRow& row, const EditValue& entered)
{
    if (const auto* text = std::get_if<std::string>(&entered)) {
        return toText(*text);
    }
    const auto* index = std::get_if<EntryIndex>(&entered);
    return index != nullptr ? entryTexts(row).value(index->index) : QString();
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

void ValueWriter::write(const std::string& name, const EditValue& value)
{
    FeatureRow* row = m_model.find(name);
    if (row == nullptr || !row->isEditable() || !fits(*row, value)) {
        return;
    }
    Write write;
    write.result.name = name;
    const auto event = eventFor(*row, value);
    m_model.setValue(*row, *withEntered(row->value, value), row->readOnly, true);
    run(write, event);
    judge(write, value);
    Q_EMIT written(write.result);
}

// The row may have gone meanwhile, so it is looked up again.
void ValueWriter::judge(const Write& write, const EditValue& entered)
{
    FeatureRow* row = m_model.find(write.result.name);
    if (row == nullptr || write.complained) {
        return;
    }
    if (!m_events.hasReceiver()) {
        showMessage(row->name, tr("Not written: nothing is connected to this browser"));
    } else if (!write.answered) {
        showMessage(row->name, tr("The camera has not confirmed this value"));
        row->ownExtras().isUnconfirmed = true;
    } else if (mustComeBack(*row) && !holds(*row, entered)) {
        showMessage(row->name,
            tr("The camera has not taken “%1”; the row shows what it holds")
                .arg(enteredText(*row, entered)));
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
