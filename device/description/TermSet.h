// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace zqcameralib {

/// A set of terms, values of an enumeration below 64; asked like a function whether one is in it.
template <typename Term> class TermSet {
public:
    constexpr TermSet(std::initializer_list<Term> terms)
    {
        for (const Term term : terms) {
            m_bits |= bit(term);
        }
    }

    constexpr bool operator()(Term term) const { return (m_bits & bit(term)) != 0; }

    /// All that is in the one, in the other, or in both.
    constexpr TermSet operator|(TermSet other) const
    {
        other.m_bits |= m_bits;
        return other;
    }

private:
    static constexpr std::uint64_t bit(Term term)
    {
        return std::uint64_t(1) << static_cast<unsigned>(term);
    }

    std::uint64_t m_bits = 0;
};

/// A term and how descriptions write it.
template <typename Term> struct Word {
    Term term;
    std::string_view text;
};

/// The term of a text, or `other` when it is none of the words.
template <typename Term, std::size_t count>
Term termOf(const std::array<Word<Term>, count>& words, std::string_view text, Term other)
{
    const auto* const found = std::find_if(
        words.begin(), words.end(), [text](const Word<Term>& word) { return word.text == text; });
    return found == words.end() ? other : found->term;
}

} // namespace zqcameralib
