// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <utility>

namespace zqcameralib {

/// Something that is said to the user, in the language of the process's locale, and the same in
/// English for what does not depend on whose computer it is written on.
class Words {
public:
    Words() = default;
    /// Names, numbers, and what others say: the same in all languages.
    Words(std::string text)
        : m_text(std::move(text))
    {
    }
    Words(const char* text)
        : m_text(text)
    {
    }
    /// In the user's language, and in English.
    Words(std::string text, std::string english);

    /// In the user's language.
    const std::string& text() const { return m_text; }
    const std::string& english() const { return m_english ? *m_english : m_text; }
    operator const std::string&() const { return m_text; }
    bool isSameInEnglish() const { return !m_english; }
    /// Without what it begins with in all languages, as with a name.
    Words behind(std::size_t size) const;
    bool empty() const { return m_text.empty(); }

private:
    std::string m_text;
    std::shared_ptr<const std::string> m_english; ///< null where it is the same
};

Words operator+(const Words& first, const Words& second);

/// A sentence, or a part of one, in the user's language. Any thread.
Words translated(const char* english);
/// The same with arguments as of printf, which a translation may put into another order ("%2$s").
__attribute__((format(printf, 1, 2))) Words worded(const char* english, ...);
/// Marks what a table holds for the translation that it gets when it is asked for.
constexpr const char* marked(const char* english)
{
    return english;
}

} // namespace zqcameralib
