// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "window/RowCallout.h"

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace featurebrowser {

/// Says at a row why its last edit did not go as the user wanted, without blocking anything.
class MessageCallout : public RowCallout {
    Q_OBJECT

public:
    explicit MessageCallout(FeatureTreeView* tree);

    /// Shows the row's message; null, or a row without one, hides the callout.
    void showRow(const FeatureRow* row);

protected:
    bool isWanted(const FeatureRow& row) const override;
    void showContent(const FeatureRow& row) override;

private:
    QLabel* m_text;
};

} // namespace featurebrowser
