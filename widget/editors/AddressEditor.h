// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"

namespace featurebrowser {

/// Field for an IPv4 or a MAC address. Takes any text, and lets only whole addresses out, written
/// as the camera side writes them.
class AddressEditor : public RowEditor {
    Q_OBJECT

public:
    AddressEditor(const FeatureRow& row, QWidget* parent);
    std::optional<EditValue> value(QString& problem) const override;

protected:
    void showLimits(const FeatureRow&) override { }

private:
    bool m_isMac;
};

} // namespace featurebrowser
