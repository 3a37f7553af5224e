// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace zqviewer {

/// Turns the signals that ask a program to end (SIGHUP, SIGINT, SIGTERM) into one of Qt, so that
/// the program can end as if its window was closed. A second one ends it at once. One that the
/// program was started to ignore stays ignored. One object at a time.
class EndSignals : public QObject {
    Q_OBJECT

public:
    EndSignals();
    /// From then on the signals do what they usually do.
    ~EndSignals() override;

    /// The number of the signal that has come; 0 when none has.
    int caught() const { return m_caught; }

Q_SIGNALS:
    /// In the event loop.
    void endWanted();

private:
    void receive();

    int m_caught = 0;
};

} // namespace zqviewer
