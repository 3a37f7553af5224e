// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "model/FeatureModel.h"

#include "model/SelectorContext.h"
#include "text/UnitText.h"

#include <utility>

namespace featurebrowser {

FeatureModel::~FeatureModel() = default;

FeatureRow* FeatureModel::find(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
}

FeatureRow* FeatureModel::row(const QModelIndex& index)
{
    return static_cast<FeatureRow*>(index.internalPointer());
}

QModelIndex FeatureModel::indexOf(const FeatureRow* row, int column) const
{
    if (row == nullptr || row == &m_root) {
        return {};
    }
    return createIndex(row->position, column, const_cast<FeatureRow*>(row));
}

void FeatureModel::addCategory(const std::string& parent, const std::string& name, TYPE_LEVEL level)
{
    if (find(name) != nullptr) {
        return;
    }
    auto row = std::make_unique<FeatureRow>();
    row->name = name;
    row->level = static_cast<std::uint8_t>(level);
    insert(parent, std::move(row));
}

void FeatureModel::addFeature(const std::string& category, std::unique_ptr<FeatureRow> feature)
{
    FeatureRow* known = find(feature->name);
    if (known == nullptr) {
        insert(category, std::move(feature));
    } else if (!known->isCategory()) {
        known->value = std::move(feature->value);
        known->kind = feature->kind;
        known->level = feature->level;
        known->readOnly = feature->readOnly;
        known->hasValue = feature->hasValue;
        emitChanged(*known);
    }
}

FeatureRow* FeatureModel::insert(const std::string& category, std::unique_ptr<FeatureRow> row)
{
    FeatureRow* parent = find(category);
    if (parent == nullptr || !parent->isCategory()) {
        parent = &m_root;
    }
    row->parent = parent;
    row->position = static_cast<int>(parent->children.size());
    row->lost = m_isLost;
    FeatureRow* added = row.get();
    beginInsertRows(indexOf(parent), added->position, added->position);
    parent->children.push_back(std::move(row));
    m_byName.emplace(added->name, added);
    for (const std::string& selector : selectorNames(*added)) {
        m_selected[selector].push_back(added);
    }
    endInsertRows();
    return added;
}

void FeatureModel::clear()
{
    beginResetModel();
    m_byName.clear();
    m_selected.clear();
    m_root.children.clear();
    endResetModel();
}

namespace {

void visitCategories(const FeatureRow& parent, const std::function<void(const FeatureRow&)>& visit)
{
    for (const auto& child : parent.children) {
        if (child->isCategory()) {
            visit(*child);
            visitCategories(*child, visit);
        }
    }
}

} // namespace

void FeatureModel::forEachCategory(const std::function<void(const FeatureRow&)>& visit) const
{
    visitCategories(m_root, visit);
}

std::vector<FeatureRow*> FeatureModel::selectedBy(const std::string& selector) const
{
    const auto found = m_selected.find(selector);
    return found == m_selected.end() ? std::vector<FeatureRow*>() : found->second;
}

FeatureModel::Change FeatureModel::setValue(
    FeatureRow& row, RowValue value, bool readOnly, bool hasValue)
{
    if (value.index() != row.value.index()) {
        return Change::Nothing; // of another kind than the row was added with
    }
    const bool isShown = row.hasValue || hasValue;
    const bool isOther = row.hasValue != hasValue || (isShown && !sameValue(row.value, value));
    const bool areLimitsOther = row.readOnly != readOnly || !sameLimits(row.value, value);
    row.value = std::move(value);
    row.readOnly = readOnly;
    row.hasValue = hasValue;
    if (isOther || areLimitsOther) {
        emitChanged(row);
    }
    return isOther ? Change::Value : areLimitsOther ? Change::Limits : Change::Nothing;
}

void FeatureModel::setKind(FeatureRow& row, RowKind kind)
{
    row.kind = kind;
}

void FeatureModel::setDescription(FeatureRow& row, std::string text)
{
    const QString unit = unitFromDescription(toText(text));
    if (row.about().text.empty() && row.about().unit != unit) {
        row.ownAbout().unit = unit;
    }
    row.ownExtras().description = std::move(text);
    emitChanged(row);
}

void FeatureModel::describe(FeatureRow& row, const std::string& about, RowAccess access)
{
    if (row.access == access && row.about().text == about) {
        return;
    }
    row.access = access;
    if (row.about().text != about) {
        row.ownAbout() = { about, unitFromDescription(toText(about)) };
    }
    emitChanged(row);
}

void FeatureModel::setMessage(FeatureRow& row, const QString& message)
{
    if (row.extras().message == message && !row.extras().isUnconfirmed) {
        return;
    }
    RowExtras& extras = row.ownExtras();
    extras.isUnconfirmed = false;
    if (std::exchange(extras.message, message) != message) {
        emitChanged(row);
    }
}

QString FeatureModel::reasonOf(const FeatureRow& row) const
{
    if (!m_reasons || row.lost || row.state == FEATURE_AVAILABLE) {
        return rowReason(row);
    }
    QString reason = toText(m_reasons(row.name)).trimmed();
    if (reason.endsWith(QLatin1Char('.'))) {
        reason.chop(1);
    }
    return reason.isEmpty() ? rowReason(row) : reason;
}

void FeatureModel::setStates(const std::map<std::string, FEATURE_STATE>& states)
{
    for (const auto& [name, row] : m_byName) {
        const auto found = states.find(row->name);
        const int state = found == states.end() ? FEATURE_AVAILABLE : found->second;
        if (std::exchange(row->state, static_cast<std::uint8_t>(state)) != state) {
            emitChanged(*row);
        }
    }
}

void FeatureModel::setLost(bool isLost)
{
    if (std::exchange(m_isLost, isLost) == isLost) {
        return;
    }
    for (const auto& entry : m_byName) {
        entry.second->lost = isLost;
        emitChanged(*entry.second);
    }
}

void FeatureModel::emitChanged(const FeatureRow& row)
{
    Q_EMIT dataChanged(indexOf(&row, NameColumn), indexOf(&row, ValueColumn));
    if (row.selector != SELECTOR_SELECTOR && row.selector != SELECTOR_BOTH) {
        return;
    }
    for (const FeatureRow* selected : selectedBy(row.name)) { // they show it as their context
        Q_EMIT dataChanged(indexOf(selected, NameColumn), indexOf(selected, ValueColumn));
    }
}

QModelIndex FeatureModel::index(int position, int column, const QModelIndex& parent) const
{
    const FeatureRow& above = parent.isValid() ? *row(parent) : m_root;
    if (position < 0 || static_cast<std::size_t>(position) >= above.children.size() || column < 0
        || column >= ColumnCount || (parent.isValid() && parent.column() != NameColumn)) {
        return {};
    }
    return createIndex(position, column, above.children[static_cast<std::size_t>(position)].get());
}

QModelIndex FeatureModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(row(index)->parent) : QModelIndex();
}

int FeatureModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return static_cast<int>(m_root.children.size());
    }
    return parent.column() == NameColumn ? static_cast<int>(row(parent)->children.size()) : 0;
}

int FeatureModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

QVariant FeatureModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const FeatureRow& feature = *row(index);
    if (role != Qt::ToolTipRole && role != Qt::AccessibleDescriptionRole) {
        return rowData(feature, index.column(), role);
    }
    const QString text = rowExplanation(feature, allFacts(*this, feature));
    // A tool tip takes text that looks like markup for markup, so text from the camera is escaped.
    return role == Qt::ToolTipRole
        ? QStringLiteral("<div style='white-space:pre-wrap'>%1</div>").arg(text.toHtmlEscaped())
        : text;
}

QVariant FeatureModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == NameColumn ? tr("Feature") : tr("Value");
}

Qt::ItemFlags FeatureModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const FeatureRow& feature = *row(index);
    if (!feature.isCategory()) {
        flags |= Qt::ItemNeverHasChildren;
    }
    if (index.column() == ValueColumn && feature.isEditable()) {
        flags |= Qt::ItemIsEditable;
    }
    return flags;
}

QHash<int, QByteArray> FeatureModel::roleNames() const
{
    return rowRoleNames(QAbstractItemModel::roleNames());
}

} // namespace featurebrowser
