#pragma once

#include "row/FeatureRow.h"

namespace featurebrowser {

/// What is to be seen of the tree: features of a level and below, and of those the ones that a text
/// is found in.
class RowFilter {
public:
    TYPE_LEVEL level = LEVEL_GURU;

    const QString& text() const { return m_text; }
    void setText(const QString& text);

    bool passesLevel(const FeatureRow& row) const { return row.level <= level; }
    /// Whether the text occurs in name, shown value, entries or description, ignoring case.
    bool isHit(const FeatureRow& row) const;

private:
    bool contains(const std::string& utf8) const;

    QString m_text;
    std::string m_ascii; ///< the text in lower case when it is ASCII
};

} // namespace featurebrowser
