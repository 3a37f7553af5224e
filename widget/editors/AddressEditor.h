#pragma once

#include "editors/RowEditor.h"

class QLineEdit;

namespace featurebrowser {

/// IPv4 address field; lets only whole addresses out, written as four numbers from 0 to 255.
class AddressEditor : public RowEditor {
    Q_OBJECT

public:
    AddressEditor(const FeatureRow& row, QWidget* parent);
    std::optional<EditValue> value(QString& problem) const override;

protected:
    void showLimits(const FeatureRow& row) override;
    void showValue(const FeatureRow& row) override;

private:
    QLineEdit* m_field;
};

} // namespace featurebrowser
