// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QString>

namespace featurebrowser {

/// Collects what a user types to find a row by the beginning of its name. A blank in the middle
/// belongs to it; case, blanks and underscores do not count.
class TypedName {
public:
    /// Whether a word is being typed: the last key is not long ago.
    bool isCollecting() const;
    void add(const QString& typed);
    /// The user could not type on until now.
    void wait() { m_sinceLast.start(); }
    void end() { m_text.clear(); }
    /// Whether a name begins with what was typed, or with the one letter that was typed repeatedly.
    bool fits(const QString& name) const;
    /// The row that has just been found shall not be found again: one letter was typed repeatedly.
    bool goesOn() const;

private:
    QString wanted() const;

    QString m_text;
    QElapsedTimer m_sinceLast;
};

} // namespace featurebrowser
