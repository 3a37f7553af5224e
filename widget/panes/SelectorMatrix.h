#pragma once

#include "model/FeatureModel.h"

#include <QDialog>

class QTableWidget;

namespace featurebrowser {

class ValueWriter;

/// All entries of a selector by all features that it selects. Filled by switching the selector
/// through its entries, as a user would; it is set back afterwards.
class SelectorMatrix : public QDialog {
    Q_OBJECT

public:
    /// `model` and `writer` are not owned and have to outlive the dialog, which deletes itself when
    /// it is closed.
    SelectorMatrix(
        FeatureModel* model, ValueWriter* writer, const std::string& selector, QWidget* parent);

    /// Whether the row is a selector that can be switched and selects something.
    static bool canShow(const FeatureModel& model, const FeatureRow& row);
    void fill();

private:
    void fillColumn(int entry);

    FeatureModel* m_model;
    ValueWriter* m_writer;
    std::string m_selector;
    std::vector<std::string> m_features;
    QTableWidget* m_table;
    bool m_filling = false;
};

} // namespace featurebrowser
