// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "row/RowValue.h"

#include <cmath>

namespace featurebrowser {

namespace {

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

struct SameValue {
    bool operator()(std::monostate, std::monostate) const { return true; }
    bool operator()(const IntegerValue& a, const IntegerValue& b) const
    {
        return a.value == b.value;
    }
    bool operator()(const FloatValue& a, const FloatValue& b) const
    {
        return same(a.value, b.value);
    }
    bool operator()(const TextValue& a, const TextValue& b) const { return a.text == b.text; }
    bool operator()(const ChoiceValue& a, const ChoiceValue& b) const { return a.index == b.index; }
    template <typename A, typename B> bool operator()(const A&, const B&) const { return false; }
};

struct SameLimits {
    bool operator()(std::monostate, std::monostate) const { return true; }
    bool operator()(const IntegerValue& a, const IntegerValue& b) const
    {
        return a.minimum == b.minimum && a.maximum == b.maximum && a.increment == b.increment;
    }
    bool operator()(const FloatValue& a, const FloatValue& b) const
    {
        return same(a.minimum, b.minimum) && same(a.maximum, b.maximum)
            && same(a.increment, b.increment);
    }
    bool operator()(const TextValue& a, const TextValue& b) const
    {
        return a.maxLength == b.maxLength;
    }
    bool operator()(const ChoiceValue& a, const ChoiceValue& b) const
    {
        return a.entries == b.entries;
    }
    template <typename A, typename B> bool operator()(const A&, const B&) const { return false; }
};

} // namespace

bool sameValue(const RowValue& a, const RowValue& b)
{
    return std::visit(SameValue(), a, b);
}

bool sameLimits(const RowValue& a, const RowValue& b)
{
    return std::visit(SameLimits(), a, b);
}

} // namespace featurebrowser
