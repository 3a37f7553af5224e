// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "words/Words.h"

#include <glib.h>

#include <string>
#include <type_traits>
#include <utility>

namespace zqcameralib {

/// How something ended: well, or with a status code and one line that says why.
///
/// Code and words travel together from where something failed to whoever tells the user. A failure
/// cannot become a success on the way: its code is never 0.
class [[nodiscard]] Status {
public:
    /// Success.
    Status() = default;
    /// A failure; `code` is one of StatusCodes.h, and 0 is taken for otherErrorBase.
    Status(int code, Words words);
    /// A failure with the general sentence of its code.
    static Status general(int code);
    /// A failure that the library below reports.
    static Status fromLibrary(const GError& error);

    bool isOk() const { return m_code == 0; }
    int code() const { return m_code; }
    /// Empty for a success only.
    const std::string& text() const { return m_words.text(); }
    /// The same for what goes on with them, as of several parts, or in a file.
    const Words& words() const { return m_words; }
    /// The same failure, with these words.
    Status withText(Words words) const;

private:
    int m_code = 0;
    Words m_words;
};

/// A value, or why there is none.
template <typename Value> class [[nodiscard]] Result {
public:
    template <typename Given, std::enable_if_t<std::is_convertible_v<Given, Value>, int> = 0>
    Result(Given&& value)
        : m_value(std::forward<Given>(value))
    {
    }
    /// A success without a value is none.
    Result(const Status& failure)
        : m_status(failure.code(), failure.words())
    {
    }

    bool isOk() const { return m_status.isOk(); }
    const Status& status() const { return m_status; }
    /// Empty after a failure.
    Value& value() { return m_value; }
    const Value& value() const { return m_value; }

private:
    Value m_value {};
    Status m_status;
};

} // namespace zqcameralib
