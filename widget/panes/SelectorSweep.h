// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FeatureModel.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace featurebrowser {

class ValueWriter;

/// The values that a selector can stand at, as it would hold them; none when they are more than 256
/// or cannot be counted.
std::vector<RowValue> selectorEntries(const FeatureRow& selector);

/// Switches a selector to its entries, as a user would, and sets it back to where it stood. Every
/// switch runs the application's code, which may do anything: nothing is kept across it but names.
class SelectorSweep : public QObject {
    Q_OBJECT

public:
    /// `model` and `writer` are not owned and have to outlive the sweep.
    SelectorSweep(FeatureModel& model, ValueWriter& writer, std::string selector, QObject* parent);

    const std::string& selector() const { return m_selector; }
    /// Of the last start.
    const std::vector<RowValue>& entries() const { return m_entries; }
    bool isBusy() const { return m_isBusy; }

    /// Begins to go through all entries, one a turn of the event loop. Does nothing while it is
    /// busy, or when the selector cannot be switched.
    bool start();
    /// Ends it early; the selector is set back.
    void stop();
    /// Goes to one entry of those, does `use` there (with the reason why it is not there, empty
    /// when it is) and comes back. Returns what went wrong with coming back.
    QString visit(std::size_t entry, const std::function<void(const QString& problem)>& use);

Q_SIGNALS:
    /// The selector stands at the entry, or why it does not.
    void reached(std::size_t entry, const QString& problem);
    /// `problem`: why not all were gone through, or what is not as it was before.
    void finished(const QString& problem);

private:
    bool begin();
    void step();
    static QString cancelled();
    /// Also where it stands there already, with `always`: so everything is read anew.
    QString switchTo(const RowValue& entry, bool always);
    QString setBack();
    void finish(const QString& problem);
    bool hasBeenMoved() const;

    FeatureModel& m_model;
    ValueWriter& m_writer;
    std::string m_selector;
    std::vector<RowValue> m_entries;
    RowValue m_before;
    std::optional<QString> m_standing; ///< where it was seen after the last switch
    std::size_t m_position = 0;
    bool m_isBusy = false;
    bool m_isStopping = false;
    QTimer m_turn;
};

} // namespace featurebrowser
