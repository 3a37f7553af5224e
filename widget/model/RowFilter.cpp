// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "model/RowFilter.h"

#include "text/ValueText.h"

#include <QRegularExpression>

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr int maxWords = 64; ///< one bit each

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

bool containsAscii(const char* begin, const char* end, const std::string& wanted)
{
    return std::search(begin, end, wanted.begin(), wanted.end(), [](char found, char asked) {
        return lower(found) == asked;
    }) != end;
}

} // namespace

QString plainName(const QString& name)
{
    static const QRegularExpression filling(QStringLiteral("[\\s_]+"));
    return QString(name).remove(filling).toLower();
}

// Underscores part the words of a name.
void RowFilter::setText(const QString& text)
{
    static const QRegularExpression gap(QStringLiteral("[\\s_]+"));
    m_text = text.trimmed();
    m_words.clear();
    for (const QString& word : m_text.split(gap, Qt::SkipEmptyParts).mid(0, maxWords)) {
        m_words.push_back({ word, isAscii(word) ? word.toLower().toStdString() : std::string() });
    }
}

QStringList RowFilter::words() const
{
    QStringList words;
    for (const Word& word : m_words) {
        words.append(word.text);
    }
    return words;
}

RowFilter::Words RowFilter::allWords() const
{
    Words all = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        all |= Words { 1 } << i;
    }
    return all;
}

// Nearly all searches are ASCII: compared in place, without a conversion of every text.
bool RowFilter::contains(const std::string& utf8, const Word& word) const
{
    if (word.ascii.empty()) {
        return toText(utf8).contains(word.text, Qt::CaseInsensitive);
    }
    return containsAscii(utf8.data(), utf8.data() + utf8.size(), word.ascii);
}

bool RowFilter::nameContains(const std::string& name, const Word& word) const
{
    return contains(name, word)
        || (name.find('_') != std::string::npos
            && plainName(toText(name)).contains(word.text, Qt::CaseInsensitive));
}

bool RowFilter::valueContains(const FeatureRow& row, const Word& word) const
{
    if (const auto* text = std::get_if<TextValue>(&row.value)) {
        return row.hasValue && contains(text->text, word);
    }
    if (const auto* choice = std::get_if<ChoiceValue>(&row.value)) {
        return std::any_of(choice->entries.begin(), choice->entries.end(),
            [&](const std::string& entry) { return contains(entry, word); });
    }
    return !row.isCategory() && valueText(row).contains(word.text, Qt::CaseInsensitive);
}

RowFilter::Words RowFilter::inName(const FeatureRow& row, Words wanted) const
{
    Words found = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        const Words bit = Words { 1 } << i;
        if ((wanted & bit) != 0 && nameContains(row.name, m_words[i])) {
            found |= bit;
        }
    }
    return found;
}

RowFilter::Words RowFilter::inRow(const FeatureRow& row, Words wanted) const
{
    Words found = inName(row, wanted);
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        const Words bit = Words { 1 } << i;
        if ((wanted & ~found & bit) == 0) {
            continue;
        }
        if (contains(row.about().text, m_words[i]) || contains(row.extras().description, m_words[i])
            || valueContains(row, m_words[i])) {
            found |= bit;
        }
    }
    return found;
}

bool RowFilter::isNameOf(const FeatureRow& row) const
{
    return !m_text.isEmpty() && plainName(toText(row.name)) == plainName(m_text);
}

} // namespace featurebrowser
