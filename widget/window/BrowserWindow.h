// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "events/EventPort.h"
#include "model/FeatureModel.h"
#include "window/TreeMemory.h"

#include <QByteArrayList>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace featurebrowser {

class ChangeStrip;
class CommandQuestion;
class DescriptionPane;
class FeatureTreeView;
class FilterBar;
class MessageCallout;
class PinStrip;
class ValueWriter;
class WriteHistory;
struct WriteResult;

/// The browser's window, or a part of an application's window once that has embedded it. It joins
/// the rooms: the panes and the tree know the model and the way out, but not each other. Like all
/// of the widget it lives on the application's thread; it owns everything that it is made of.
class BrowserWindow : public QWidget {
    Q_OBJECT
    /// Names of the pinned features, in order: an application may store them and set them again.
    Q_PROPERTY(QByteArrayList pinnedFeatures READ pinnedFeatures WRITE setPinnedFeatures NOTIFY
            pinnedFeaturesChanged)
    /// An older name of the same, for applications that use it.
    Q_PROPERTY(QByteArrayList favourites READ pinnedFeatures WRITE setPinnedFeatures NOTIFY
            pinnedFeaturesChanged)
    /// Names of commands that ask before they are run, with wildcards: an application may extend or
    /// empty it.
    Q_PROPERTY(QStringList confirmedCommands READ confirmedCommands WRITE setConfirmedCommands)
    /// The line about the last write: an application may move it into its status bar.
    Q_PROPERTY(QWidget* statusLine READ statusLine)
    /// Everything that the user has written, newest last: see ChangeLog for its roles.
    Q_PROPERTY(QAbstractItemModel* changeLog READ changeLog)
    /// Set by an application that has lost the camera: nothing can be edited meanwhile.
    Q_PROPERTY(bool cameraLost READ isCameraLost WRITE setCameraLost)

public:
    explicit BrowserWindow(QWidget* parent);
    ~BrowserWindow() override;

    FeatureModel& model() { return *m_model; }
    EventPort& events() { return m_events; }
    ValueWriter& writer() { return *m_writer; }

    QByteArrayList pinnedFeatures() const;
    void setPinnedFeatures(const QByteArrayList& names);

    QWidget* statusLine() const;
    QAbstractItemModel* changeLog() const;
    bool isCameraLost() const { return m_model->isLost(); }
    void setCameraLost(bool isLost) { m_model->setLost(isLost); }
    QStringList confirmedCommands() const;
    void setConfirmedCommands(const QStringList& patterns);

    void setLevel(TYPE_LEVEL level);
    void setDescription(FeatureRow& row, std::string text);
    /// Shows anew what is known of the current row.
    void showDescription();
    void setSliderSteps(int steps);
    /// The camera side says what the row holds.
    void setValue(FeatureRow& row, RowValue value, bool readOnly, bool hasValue);
    /// Empties the tree; rows of the same names come back as they were: expanded, selected.
    void clear();

    /// Shows the window as a dialog or as a window of its own and brings it to the front. An
    /// embedded one stays where it is.
    void present(Qt::WindowType type);
    /// 0, negative or empty leave the widget's own choice.
    void applySizes(int width, int height, const std::vector<int>& columns);

Q_SIGNALS:
    void pinnedFeaturesChanged();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeTree();
    void connectTree();
    void connectFilterBar();
    void makeShortcuts();
    void arrange();
    void applyFilter();
    void filterTextChanged();
    void goToHit(bool forward);
    void showHits();
    void levelChosen(TYPE_LEVEL level);
    void rowSelected(FeatureRow* row);
    void columnResized(int column, int width);
    void rowsAdded(const QModelIndex& parent, int first, int last);
    void written(const WriteResult& result);
    void showMenu(const QPoint& position);
    void showMatrix(const std::string& selector);
    void showRow(const FeatureRow& row);
    void rowChanged(const QModelIndex& index);
    void makeHistory();
    /// Goes back, or on, unless an editor is open, where these keys are its own.
    void takeStep(bool isUndo);
    void showChanges();

    EventPort m_events;
    FeatureModel* m_model;
    ValueWriter* m_writer;
    WriteHistory* m_history = nullptr;
    FilterBar* m_filterBar = nullptr;
    PinStrip* m_pins = nullptr;
    MessageCallout* m_callout = nullptr;
    CommandQuestion* m_question = nullptr;
    QPointer<ChangeStrip> m_changes; ///< an application may have taken and deleted it
    DescriptionPane* m_description = nullptr;
    TreeMemory m_memory;
    bool m_isOwnChange = false; ///< selection and columns change by program, not by the user
    std::unique_ptr<FeatureTreeView> m_tree; ///< ends before the model, whose rows it points at
};

} // namespace featurebrowser
