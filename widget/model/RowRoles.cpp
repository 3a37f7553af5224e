#include "model/RowRoles.h"

#include "model/FeatureModel.h"
#include "text/ValueText.h"

#include <QStringList>

namespace featurebrowser {

namespace {

QVariant integerRole(const IntegerValue& integer, int role)
{
    switch (role) {
    case FeatureModel::MinimumRole:
        return integer.minimum;
    case FeatureModel::MaximumRole:
        return integer.maximum;
    default:
        return integer.increment;
    }
}

QVariant floatRole(const FloatValue& number, int role)
{
    switch (role) {
    case FeatureModel::MinimumRole:
        return number.minimum;
    case FeatureModel::MaximumRole:
        return number.maximum;
    default:
        return number.increment;
    }
}

QVariant limitRole(const FeatureRow& row, int role)
{
    if (const auto* integer = std::get_if<IntegerValue>(&row.value)) {
        return integerRole(*integer, role);
    }
    if (const auto* number = std::get_if<FloatValue>(&row.value)) {
        return floatRole(*number, role);
    }
    return {};
}

QString stateText(int state)
{
    switch (state) {
    case FEATURE_LOCKED:
        return FeatureModel::tr("Locked: cannot be changed now, for example while acquiring");
    case FEATURE_NOT_AVAILABLE:
        return FeatureModel::tr("Not available in the camera's present configuration");
    case FEATURE_READ_FAILED:
        return FeatureModel::tr("The last attempt to read it from the camera failed");
    default:
        return {};
    }
}

QVariant displayText(const FeatureRow& row, int column)
{
    return column == FeatureModel::NameColumn ? toText(row.name) : valueText(row);
}

// Read aloud, the name alone would say too little.
QVariant accessibleText(const FeatureRow& row, int column)
{
    if (row.isCategory()) {
        return displayText(row, column);
    }
    const QString unit = rowUnit(row);
    const QString value
        = unit.isEmpty() ? valueText(row) : valueText(row) + QLatin1Char(' ') + unit;
    return column == FeatureModel::NameColumn ? toText(row.name) + QStringLiteral(", ") + value
                                              : value;
}

// A tool tip takes text that looks like markup for markup, so text from the camera is escaped.
QVariant toolTip(const FeatureRow& row)
{
    const QString text = rowExplanation(row).toHtmlEscaped();
    return QStringLiteral("<div style='white-space:pre-wrap'>%1</div>").arg(text);
}

QVariant ownRole(const FeatureRow& row, int role)
{
    switch (role) {
    case FeatureModel::NameRole:
        return QByteArray(row.name.data(), static_cast<int>(row.name.size()));
    case FeatureModel::KindRole:
        return kindName(row.kind);
    case FeatureModel::ValueRole:
        return valueText(row);
    case FeatureModel::EntriesRole:
        return entryTexts(row);
    case FeatureModel::ReadOnlyRole:
        return row.readOnly;
    case FeatureModel::LevelRole:
        return static_cast<int>(row.level);
    case FeatureModel::StateRole:
        return static_cast<int>(row.state);
    case FeatureModel::DescriptionRole:
        return toText(row.extras().description);
    case FeatureModel::SelectorsRole:
        return toText(row.extras().selectors);
    default:
        return limitRole(row, role);
    }
}

} // namespace

QString rowExplanation(const FeatureRow& row)
{
    QStringList lines { toText(row.name) };
    if (!row.isCategory() && !row.isEditable()) {
        lines.append(FeatureModel::tr("Read-only"));
    }
    if (row.state != FEATURE_AVAILABLE) {
        lines.append(stateText(row.state));
    }
    if (!row.extras().selectors.empty()) {
        lines.append(FeatureModel::tr("Selected by %1").arg(toText(row.extras().selectors)));
    }
    if (row.hasMessage()) {
        lines.append(row.extras().message);
    }
    return lines.join(QLatin1Char('\n'));
}

QVariant rowData(const FeatureRow& row, int column, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return displayText(row, column);
    case Qt::AccessibleTextRole:
        return accessibleText(row, column);
    case Qt::ToolTipRole:
        return toolTip(row);
    case Qt::AccessibleDescriptionRole:
        return rowExplanation(row);
    default:
        return role >= FeatureModel::NameRole && role <= FeatureModel::SelectorsRole
            ? ownRole(row, role)
            : QVariant();
    }
}

} // namespace featurebrowser
