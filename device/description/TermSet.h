#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace zqcameralib {

/// The words of an enumeration as descriptions write them, and what is true of each, as bits. In
/// the enumeration's order; its last value stands for any other word.
template <typename Term, std::size_t count> struct TermTable {
    struct Row {
        Term term;
        std::string_view word;
        unsigned traits;
    };
    std::array<Row, count> rows;

    constexpr bool isInOrder(Term last) const
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (static_cast<std::size_t>(rows[i].term) != i) {
                return false;
            }
        }
        return static_cast<std::size_t>(last) + 1 == count;
    }

    Term find(std::string_view word) const
    {
        const auto* const found = std::find_if(
            rows.begin(), rows.end(), [word](const Row& row) { return row.word == word; });
        return found == rows.end() ? rows.back().term : found->term;
    }

    /// Whether one of the traits is true of the term.
    bool hasAny(Term term, unsigned traits) const
    {
        return (rows[static_cast<std::size_t>(term)].traits & traits) != 0;
    }
};

} // namespace zqcameralib
