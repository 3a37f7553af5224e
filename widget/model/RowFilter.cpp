#include "model/RowFilter.h"

#include "text/ValueText.h"

#include <algorithm>

namespace featurebrowser {

namespace {

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

void RowFilter::setText(const QString& text)
{
    m_text = text.trimmed();
    const bool isAscii
        = std::all_of(m_text.begin(), m_text.end(), [](QChar c) { return c.unicode() < 0x80; });
    m_ascii = isAscii ? m_text.toLower().toStdString() : std::string();
}

// Nearly all searches are ASCII: compared in place, without a conversion of every text.
bool RowFilter::contains(const std::string& utf8) const
{
    if (m_ascii.empty()) {
        return toText(utf8).contains(m_text, Qt::CaseInsensitive);
    }
    return std::search(utf8.begin(), utf8.end(), m_ascii.begin(), m_ascii.end(),
               [](char found, char wanted) { return lower(found) == wanted; })
        != utf8.end();
}

bool RowFilter::isHit(const FeatureRow& row) const
{
    if (m_text.isEmpty() || contains(row.name) || contains(row.extras().description)) {
        return true;
    }
    if (const auto* text = std::get_if<TextValue>(&row.value)) {
        return row.hasValue && contains(text->text);
    }
    if (const auto* choice = std::get_if<ChoiceValue>(&row.value)) {
        return std::any_of(choice->entries.begin(), choice->entries.end(),
            [this](const std::string& entry) { return contains(entry); });
    }
    return !row.isCategory() && valueText(row).contains(m_text, Qt::CaseInsensitive);
}

} // namespace featurebrowser
