// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "model/RowRoles.h"

#include "text/ValueText.h"

#include <QCoreApplication>
#include <QStringList>

namespace featurebrowser {

namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(featurebrowser::RowRoles)
};

template <typename Number> QVariant limitOf(const Number& number, int role)
{
    switch (role) {
    case MinimumRole:
        return number.minimum;
    case MaximumRole:
        return number.maximum;
    default:
        return number.increment;
    }
}

QVariant limitRole(const FeatureRow& row, int role)
{
    if (const auto* integer = std::get_if<IntegerValue>(&row.value)) {
        return limitOf(*integer, role);
    }
    if (const auto* number = std::get_if<FloatValue>(&row.value)) {
        return limitOf(*number, role);
    }
    return {};
}

QVariant displayText(const FeatureRow& row, int column)
{
    return column == NameColumn ? toText(row.name) : valueText(row);
}

Qt::CheckState checkState(const FeatureRow& row)
{
    const int index = std::get<ChoiceValue>(row.value).index;
    return !row.hasValue || index < 0 || index > 1 ? Qt::PartiallyChecked
        : index == 1                               ? Qt::Checked
                                                   : Qt::Unchecked;
}

QString stateWord(const FeatureRow& row)
{
    switch (row.state) {
    case FEATURE_NOT_AVAILABLE:
        return Words::tr("not available");
    case FEATURE_READ_FAILED:
        return Words::tr("unread");
    case FEATURE_LOCKED:
        return Words::tr("locked");
    default:
        return row.isEditable() ? Words::tr("editable") : Words::tr("read-only");
    }
}

QString spokenValue(const FeatureRow& row)
{
    if (row.kind == RowKind::Command) {
        return Words::tr("button");
    }
    if (row.kind == RowKind::Boolean && row.hasValue) {
        return checkState(row) == Qt::Checked ? Words::tr("checked") : Words::tr("not checked");
    }
    return valueWithUnit(row);
}

// Read aloud, the name alone would say too little: "Width, 512 px, editable".
QVariant accessibleText(const FeatureRow& row, int column)
{
    if (row.isCategory()) {
        return displayText(row, column);
    }
    const QString separator = QStringLiteral(", ");
    const QString value = spokenValue(row) + separator + stateWord(row);
    return column == NameColumn ? toText(row.name) + separator + value : value;
}

QVariant ownRole(const FeatureRow& row, int role)
{
    switch (role) {
    case NameRole:
        return QByteArray(row.name.data(), static_cast<int>(row.name.size()));
    case KindRole:
        return kindName(row.kind);
    case ValueRole:
        return valueText(row);
    case EntriesRole:
        return entryTexts(row);
    case ReadOnlyRole:
        return row.readOnly;
    case LevelRole:
        return static_cast<int>(row.level);
    case StateRole:
        return static_cast<int>(row.state);
    case DescriptionRole:
        return toText(row.extras().description);
    case SelectorsRole:
        return toText(row.extras().selectors);
    default:
        return limitRole(row, role);
    }
}

} // namespace

QHash<int, QByteArray> rowRoleNames(QHash<int, QByteArray> names)
{
    names.insert({ { NameRole, "name" }, { KindRole, "kind" }, { ValueRole, "value" },
        { MinimumRole, "minimum" }, { MaximumRole, "maximum" }, { IncrementRole, "increment" },
        { EntriesRole, "entries" }, { ReadOnlyRole, "readOnly" }, { LevelRole, "level" },
        { StateRole, "state" }, { DescriptionRole, "description" },
        { SelectorsRole, "selectors" } });
    return names;
}

QVariant rowData(const FeatureRow& row, int column, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return displayText(row, column);
    case Qt::AccessibleTextRole:
        return accessibleText(row, column);
    case Qt::CheckStateRole:
        return column == ValueColumn && row.kind == RowKind::Boolean ? checkState(row) : QVariant();
    default:
        return role >= NameRole && role <= SelectorsRole ? ownRole(row, role) : QVariant();
    }
}

} // namespace featurebrowser
