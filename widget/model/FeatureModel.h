// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RowRoles.h"
#include "row/FeatureRow.h"

#include <QAbstractItemModel>

#include <functional>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace featurebrowser {

/// The tree of categories and features. Rows are found by their byte-exact names in constant time,
/// so that one update costs the same in a tree of 100,000 features as in a small one.
class FeatureModel : public QAbstractItemModel {
    Q_OBJECT

public:
    /// What an update did to a row.
    enum class Change {
        Nothing,
        Limits, ///< limits, entries or the read-only state
        Value ///< and perhaps the limits too
    };

    using QAbstractItemModel::QAbstractItemModel;
    ~FeatureModel() override;

    /// Null when the name is unknown.
    FeatureRow* find(std::string_view name) const;
    FeatureRow& root() { return m_root; }
    int rowCountTotal() const { return static_cast<int>(m_byName.size()); }
    static FeatureRow* row(const QModelIndex& index);
    QModelIndex indexOf(const FeatureRow* row, int column = NameColumn) const;

    /// The category of that name, new at the end of `parent` when there is none yet. An unknown
    /// parent, as the empty one, is the top level.
    void addCategory(const std::string& parent, const std::string& name, TYPE_LEVEL level);
    /// Adds a feature, or changes the one that has its name already.
    void addFeature(const std::string& category, std::unique_ptr<FeatureRow> feature);
    void clear();
    void forEachCategory(const std::function<void(const FeatureRow&)>& visit) const;
    /// Features that have `selector` in their selector text.
    std::vector<FeatureRow*> selectedBy(const std::string& selector) const;

    /// The change operations tell the view. Outside of them nobody changes rows. A value of another
    /// kind than the row was added with changes nothing.
    Change setValue(FeatureRow& row, RowValue value, bool readOnly, bool hasValue);
    void setKind(FeatureRow& row, RowKind kind);
    void setDescription(FeatureRow& row, std::string text);
    /// Tells what a row is for, and what the camera lets one do with it, before it is selected.
    void describe(FeatureRow& row, const std::string& about, RowAccess access);
    void setMessage(FeatureRow& row, const QString& message);
    /// Says why a row is locked, not available or unread, whenever that is shown; null: nobody.
    using Reasons = std::function<std::string(const std::string& name)>;
    void setReasons(Reasons reasons) { m_reasons = std::move(reasons); }
    /// As rowReason, by who knows it.
    QString reasonOf(const FeatureRow& row) const;
    void setStates(const std::map<std::string, FEATURE_STATE>& states);
    /// While the camera is lost nothing can be edited, also in rows that are added.
    void setLost(bool isLost);
    bool isLost() const { return m_isLost; }

    QModelIndex index(int position, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// As rowRoleNames.
    QHash<int, QByteArray> roleNames() const override;

private:
    void emitChanged(const FeatureRow& row);
    FeatureRow* insert(const std::string& category, std::unique_ptr<FeatureRow> row);

    FeatureRow m_root;
    std::unordered_map<std::string_view, FeatureRow*> m_byName; ///< keys are the rows' names
    std::unordered_map<std::string, std::vector<FeatureRow*>> m_selected; ///< by selector
    Reasons m_reasons;
    bool m_isLost = false;
};

} // namespace featurebrowser
