// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Stands.h"
#include "model/FeatureModel.h"

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;
QT_END_NAMESPACE

namespace featurebrowser {

class MatrixDelegate;
class SelectorSweep;
class ValueWriter;

/// All entries of a selector by all features that it selects. Filled by switching the selector
/// through its entries, as a user would; it is set back afterwards, also when the user cancels or
/// closes the dialog. What is entered in a cell is written there in the same way.
class SelectorMatrix : public QDialog {
    Q_OBJECT

public:
    /// `model` and `writer` are not owned and have to outlive the dialog, which deletes itself when
    /// it is closed.
    SelectorMatrix(
        FeatureModel* model, ValueWriter* writer, const std::string& selector, QWidget* parent);
    ~SelectorMatrix() override;

    /// Whether the row is a selector that can be switched and selects something: an enumeration, a
    /// boolean, or an integer with at most 256 values.
    static bool canShow(const FeatureModel& model, const FeatureRow& row);
    const std::string& selector() const;
    /// Reads all cells, some now and the rest in the next turns of the event loop.
    void fill();
    void done(int result) override;

private:
    using Cell = std::unique_ptr<FeatureRow>; ///< the row as it was at an entry

    void makeTable();
    void arrange(const QString& note);
    void prepare();
    void forget();
    void readColumn(std::size_t entry, const QString& problem);
    QTableWidgetItem* makeItem(const FeatureRow* row, const QString& problem) const;
    void filled(const QString& problem);
    void enter(int feature, int entry, const EditValue& value);
    /// Writes into the row that stands there now. Returns what is to be said about it.
    QString write(const std::string& name, const RowValue& wanted);
    void say(const QString& words);
    Stands otherStands() const;
    bool isOtherBusy() const;

    FeatureModel* m_model;
    ValueWriter* m_writer;
    SelectorSweep* m_sweep;
    std::vector<std::string> m_features;
    std::vector<std::vector<Cell>> m_cells; ///< by entry, then by feature
    Stands m_others; ///< where the other selectors stood when it was read
    QTableWidget* m_table;
    MatrixDelegate* m_delegate;
    QLabel* m_words;
    QProgressBar* m_progress;
    QPushButton* m_cancel;
    QPushButton* m_again = nullptr;
};

} // namespace featurebrowser
