// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/RowValue.h"

#include "featurebrowser/FeatureTypes.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace featurebrowser {

/// How a row is shown and edited.
enum class RowKind : std::uint8_t {
    Category,
    Integer,
    Float,
    Text,
    Enumeration,
    Command,
    Boolean,
    Ipv4,
    Mac,
    ReadOnlyText
};

/// What the camera lets one do with a feature, whatever its state.
enum class RowAccess : std::uint8_t {
    Unknown,
    Read,
    Write,
    ReadAndWrite,
    ReadAndWriteButOpenedForReading ///< the application has opened the camera for reading only
};

/// What only few rows have, kept out of the row so that large trees stay small.
struct RowExtras {
    std::string selectors; ///< names of the features that select this one, comma separated
    std::string description; ///< as told when the row was selected
    QString message; ///< why the last edit did not go as the user wanted; empty = it did
    bool isUnconfirmed = false; ///< the message only says that no answer has come yet
};

/// What the camera says of a feature. Most rows have it, and little else.
struct RowAbout {
    std::string text; ///< known from the start
    QString unit; ///< as the text, or else the row's description, names it
};

/// One line of the tree: a category or a feature. Lives until the tree is cleared, always at the
/// same address; `position` is its place among its parent's children.
struct FeatureRow {
    std::string name; ///< byte-exact key, not necessarily valid UTF-8
    RowValue value; ///< none in categories
    FeatureRow* parent = nullptr;
    std::vector<std::unique_ptr<FeatureRow>> children;
    int position = 0;
    RowKind kind = RowKind::Category;
    std::uint8_t level = LEVEL_BEGINNER;
    std::uint8_t state = FEATURE_AVAILABLE;
    std::uint8_t selector = SELECTOR_NONE;
    RowAccess access = RowAccess::Unknown;
    bool readOnly = false;
    bool hasValue = true;
    bool logarithmic = false;
    bool hidden = false; ///< by level or filter, as told to the view
    bool lost = false; ///< the camera is: what it held last is only looked at

    bool isCategory() const { return kind == RowKind::Category; }
    /// Acts at once, without an editor.
    bool isButton() const { return kind == RowKind::Command || kind == RowKind::Boolean; }
    bool isEditable() const { return !isCategory() && !readOnly && !lost; }
    bool hasMessage() const { return !extras().message.isEmpty(); }
    /// Without them, empty ones.
    const RowExtras& extras() const;
    /// Makes them when there are none yet.
    RowExtras& ownExtras();
    /// The same for what the camera says.
    const RowAbout& about() const;
    RowAbout& ownAbout();

private:
    std::unique_ptr<RowAbout> m_about;
    std::unique_ptr<RowExtras> m_extras;
};

/// The names in the row's selector text, without blanks around them and empty ones.
std::vector<std::string> selectorNames(const FeatureRow& row);

/// Kind as automation reads it: "category", "integer", ...
QString kindName(RowKind kind);

inline QString toText(const std::string& utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
}

} // namespace featurebrowser
