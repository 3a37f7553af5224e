#pragma once

#include <QString>

namespace featurebrowser {

struct FeatureRow;

/// "Width=640"; a category gives the rows that are to be seen in it one to a line, sub-categories
/// headed "[Name]".
QString rowAsText(const FeatureRow& row);

} // namespace featurebrowser
