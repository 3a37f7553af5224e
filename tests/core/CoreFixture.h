// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Journal.h"
#include "ReceiverDouble.h"
#include "Script.h"
#include "SystemDoubles.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace featurebrowser {

using Item = std::shared_ptr<FeatureItem>;

/// A writable record with a value to show, at the first level of the tree.
inline Item makeItem(FEATURE_TYPE type, const std::string& name, const std::string& valueText,
    std::optional<std::uint8_t> depth = {})
{
    auto item = std::make_shared<FeatureItem>();
    item->name = name;
    item->type = type;
    item->valueText = valueText;
    item->accessMode = ACCESS_READ_WRITE;
    item->intWritable = 1;
    item->displayFlag = 1;
    item->depth = depth.value_or(type == FEATURE_CATEGORY ? 0 : 1);
    return item;
}

/// `text` with `by` for the first `what`.
inline std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    const auto at = text.find(what);
    return at == std::string::npos ? text : text.replace(at, what.size(), by);
}

using Columns = std::vector<std::string>;

/// The rows of Tables.txt below a heading; - is an empty column.
inline std::vector<Columns> table(const std::string& heading)
{
    std::vector<Columns> rows;
    std::ifstream file(TABLES);
    bool isHere = false;
    for (std::string line; std::getline(file, line);) {
        isHere = line.rfind("== ", 0) == 0 ? line.rfind("== " + heading, 0) == 0 : isHere;
        if (!isHere || line.find(" | ") == std::string::npos || line[0] == '=') {
            continue;
        }
        rows.emplace_back();
        for (line += " | "; !line.empty(); line.erase(0, line.find(" | ") + 3)) {
            const std::string column = line.substr(0, line.find(" | "));
            rows.back().push_back(column == "-" ? "" : column);
        }
    }
    EXPECT_FALSE(rows.empty()) << heading;
    return rows;
}

class CoreTest : public ::testing::Test {
protected:
    using Act = std::function<void(ZQFeatureBrowser&, IEventFeatureReceiver&)>;

    CoreTest() { doubles::reset(); }

    /// What a browser over the doubles does in `act`, which gets the browser and the receiver that
    /// it gave to its widget.
    static std::string journalOf(const Act& act, bool withReceiver = true)
    {
        doubles::ReceiverDouble receiver;
        ZQCameraDevice device(nullptr, nullptr);
        ZQFeatureBrowser browser(&device, withReceiver ? &receiver : nullptr);
        const bool visible = std::exchange(doubles::script().visible, false);
        browser.ShowDialog(0, 0, {}, LEVEL_GURU);
        doubles::script().visible = visible;
        const doubles::StderrDouble standardError;
        doubles::journal().clear();
        act(browser, *doubles::script().shownTo);
        return std::exchange(doubles::journal(), {});
    }

    /// The lines of `text` that contain `part`, or do not.
    static std::string linesWith(
        const std::string& part, const std::string& text, bool containing = true)
    {
        std::istringstream stream(text);
        std::string lines;
        for (std::string line; std::getline(stream, line);) {
            if ((line.find(part) != std::string::npos) == containing) {
                lines += line + '\n';
            }
        }
        return lines;
    }

    doubles::Script& m_script = doubles::script();
};

} // namespace featurebrowser
