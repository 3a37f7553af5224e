// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "events/EventPort.h"
#include "model/FeatureModel.h"
#include "row/EditValue.h"

namespace featurebrowser {

/// How a value comes about.
enum class WriteEntry {
    Meant, ///< the user wants exactly this one
    Passing, ///< one of many on the way, for example of a slider
    Switching ///< a selector's, only to look at what it selects there; it goes back afterwards
};

/// One user action on a row and what came of it.
struct WriteResult {
    std::string name;
    bool isCommand = false;
    WriteEntry entry = WriteEntry::Meant;
    RowValue before; ///< what the row held; none where it showed no value, and for commands
    RowValue entered; ///< as the row would hold it; none for commands
    bool isTaken = false; ///< the camera side has answered with the entered value or one near it
    std::vector<std::string> followers; ///< other rows whose value, limits or read-only state moved
};

/// Turns what the user does to a row into one event each, and watches what comes back while the
/// event is handled. Handlers may do anything meanwhile: change the same row, empty the tree, or
/// let the user edit on.
class ValueWriter : public QObject {
    Q_OBJECT

public:
    /// `model` and `events` are not owned and have to outlive the writer.
    ValueWriter(FeatureModel& model, EventPort& events, QObject* parent);

    using Entry = WriteEntry;

    /// Raises the event of the value. The row goes on showing what it holds until the camera side
    /// says what it holds now; where that is not what was entered, a message at the row says so.
    void write(const std::string& name, const EditValue& value, Entry entry = Entry::Meant);
    /// Presses the button of a command.
    void press(const std::string& name);
    /// Changes a boolean to its other entry.
    void toggle(const std::string& name);

    /// Whether what comes now is only looked at: a selector is being switched for that.
    bool isSwitching() const;
    /// Told of every update by program, and what it has changed.
    void updated(FeatureRow& row, FeatureModel::Change change);
    /// Shows a message at a row, until its next good value.
    void showMessage(const std::string& name, const QString& message);

Q_SIGNALS:
    void messageShown(featurebrowser::FeatureRow* row);
    void written(const featurebrowser::WriteResult& result);

private:
    struct Write {
        WriteResult result;
        bool answered = false; ///< the camera side has said what the row's value is now
        bool complained = false; ///< a message has come for the row
    };

    void run(Write& write, const ReceiverEvent& event);
    void judge(Write& write, const EditValue& entered);

    FeatureModel& m_model;
    EventPort& m_events;
    std::vector<Write*> m_running; ///< innermost last
};

} // namespace featurebrowser
