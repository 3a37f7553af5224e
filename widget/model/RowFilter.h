// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <QStringList>

namespace featurebrowser {

/// What is to be seen of the tree: features of a level and below, and of those the ones in which
/// all words of a text are found, in any order: in the name, the names of the categories around it,
/// the shown value, the entries, or the description. Case and the underscores of names do not
/// count.
class RowFilter {
public:
    /// A set of words, one bit each.
    using Words = std::uint64_t;

    TYPE_LEVEL level = LEVEL_GURU;

    const QString& text() const { return m_text; }
    void setText(const QString& text);
    QStringList words() const;

    bool passesLevel(const FeatureRow& row) const { return row.level <= level; }
    /// All words of the text; none for an empty one.
    Words allWords() const;
    /// Which of `wanted` the row's name holds.
    Words inName(const FeatureRow& row, Words wanted) const;
    /// Which of `wanted` the row holds anywhere.
    Words inRow(const FeatureRow& row, Words wanted) const;
    /// Whether the text is the row's name, blanks, underscores and case apart.
    bool isNameOf(const FeatureRow& row) const;

private:
    struct Word {
        QString text;
        std::string ascii; ///< in lower case; empty when the word is not ASCII
    };
    bool contains(const std::string& utf8, const Word& word) const;
    bool nameContains(const std::string& name, const Word& word) const;
    bool valueContains(const FeatureRow& row, const Word& word) const;

    QString m_text;
    std::vector<Word> m_words;
};

/// A name as words are compared with it: in lower case, without blanks and underscores.
QString plainName(const QString& name);

} // namespace featurebrowser
