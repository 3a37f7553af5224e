// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "validation/DescriptionCheck.h"

#include "validation/EvaluationCost.h"
#include "validation/NodeFault.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

namespace {

// Real descriptions reach 28,686 elements in 6 levels, and 24,000 visits of nodes to evaluate one
// feature.
constexpr std::size_t maxElements = 400000;
constexpr int maxElementDepth = 32;
constexpr std::uint64_t maxTotalCost = 2000000;

bool checkSize(const Description& description, std::string& error)
{
    struct Counter : pugi::xml_tree_walker {
        std::size_t elements = 0;
        int deepest = 0;
        bool for_each(pugi::xml_node&) override
        {
            deepest = std::max(deepest, depth());
            return ++elements <= maxElements && deepest <= maxElementDepth;
        }
    };
    Counter counter;
    description.root().traverse(counter);
    if (counter.deepest > maxElementDepth) {
        error = translated("not a camera description: elements nested too deeply");
        return false;
    }
    if (counter.elements > maxElements) {
        error = worded("the description is too large: more than %zu elements", maxElements);
        return false;
    }
    return true;
}

} // namespace

bool checkDescription(Description& description, std::string& error)
{
    if (!checkSize(description, error)) {
        return false;
    }
    for (DescriptionNode& node : description.nodes()) {
        node.broken = nodeFault(description, node);
    }
    if (markUnevaluable(description) > maxTotalCost) {
        error = translated("the description takes too long to evaluate");
        return false;
    }
    return true;
}

} // namespace zqcameralib
