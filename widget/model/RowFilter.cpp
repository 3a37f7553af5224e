#include "model/RowFilter.h"

#include "text/ValueText.h"

#include <algorithm>

namespace featurebrowser {

namespace {

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

void RowFilter::setText(const QString& text)
{
    m_text = text.trimmed();
    m_ascii = isAscii(m_text) ? m_text.toLower().toStdString() : std::string();
}

// Nearly all searches are ASCII: compared in place, without a conversion of every text.
bool RowFilter::contains(const std::string& utf8) const
{
    if (m_ascii.empty()) {
        return toText(utf8).contains(m_text, Qt::CaseInsensitive);
    }
    const char first = m_ascii.front();
    if (utf8.size() < m_ascii.size()) {
        return false;
    }
    const std::size_t last = utf8.size() - m_ascii.size();
    for (std::size_t start = 0; start <= last; ++start) {
        if (lower(utf8[start]) == first
            && std::equal(m_ascii.begin() + 1, m_ascii.end(),
                utf8.begin() + static_cast<std::ptrdiff_t>(start) + 1,
                [](char wanted, char found) { return wanted == lower(found); })) {
            return true;
        }
    }
    return false;
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
