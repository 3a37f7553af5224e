// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <QHash>
#include <QVariant>

namespace featurebrowser {

/// Columns of FeatureModel.
enum RowColumn { NameColumn, ValueColumn, ColumnCount };
/// Roles of FeatureModel, and what they hold.
enum RowRole {
    NameRole = Qt::UserRole + 1, ///< QByteArray
    KindRole, ///< QString
    ValueRole, ///< QString, as shown
    MinimumRole, ///< qlonglong or double; invalid for other kinds, as the next one
    MaximumRole,
    IncrementRole, ///< uint or double
    EntriesRole, ///< QStringList
    ReadOnlyRole, ///< bool
    LevelRole, ///< int
    StateRole, ///< int, FEATURE_STATE
    DescriptionRole, ///< QString
    SelectorsRole ///< QString, names of the features that select this one
};

/// The roles' names for automation, and Qt's own.
QHash<int, QByteArray> rowRoleNames(QHash<int, QByteArray> names);

/// What a row answers for one of these roles or of Qt's.
QVariant rowData(const FeatureRow& row, int column, int role);

} // namespace featurebrowser
