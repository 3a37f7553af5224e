#pragma once

#include "EventPort.h"
#include "FeatureModel.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QSplitter;

namespace featurebrowser {

class DescriptionPane;
class FeatureTree;
class MessageCallout;
class ValueWriter;

/// The browser's window, or a part of an application's window once that has embedded it.
class BrowserWindow : public QWidget {
    Q_OBJECT

public:
    explicit BrowserWindow(QWidget* parent);

    FeatureModel& model() { return *m_model; }
    EventPort& events() { return m_events; }

    void setLevel(TYPE_LEVEL level);
    void setDescription(FeatureRow& row, std::string text);
    ValueWriter& writer() { return *m_writer; }
    void setSliderSteps(int steps);
    /// Empties the tree; rows of the same names come back as they were: expanded, selected.
    void clear();

    /// Shows the window as a dialog or as a window of its own and brings it to the front. An
    /// embedded one stays where it is.
    void present(Qt::WindowType type);
    /// 0, negative or empty leave the widget's own choice.
    void applySizes(int width, int height, const std::vector<int>& columns);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeFilterBar();
    void makeTree();
    void applyFilter();
    void levelChosen(int index);
    void rowSelected(FeatureRow* row);
    void columnResized(int column, int width);
    void rowsAdded(const QModelIndex& parent, int first, int last);

    EventPort m_events;
    FeatureModel* m_model;
    ValueWriter* m_writer;
    FeatureTree* m_tree = nullptr;
    MessageCallout* m_callout = nullptr;
    DescriptionPane* m_description = nullptr;
    QSplitter* m_splitter = nullptr;
    QLineEdit* m_filterField = nullptr;
    QComboBox* m_levelBox = nullptr;
    bool m_ownChange = false; ///< selection and columns change by program, not by the user
};

} // namespace featurebrowser
