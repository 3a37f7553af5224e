// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/WindowMemory.h"

#include <QByteArrayList>
#include <QMainWindow>
#include <QTreeView>

#include <functional>

namespace zqviewer {

using namespace featurebrowser;

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString docksKey = QStringLiteral("window/docks");
const QString levelKey = QStringLiteral("window/level");
const QString reconnectKey = QStringLiteral("reconnectsByItself");
const QString nameWidthKey = QStringLiteral("window/nameWidth");

/// A name may hold what settings take for the end of a group.
QString keyOf(const QString& camera, const char* what)
{
    return QStringLiteral("cameras/%1/%2")
        .arg(QString::fromLatin1(camera.toUtf8().toPercentEncoding()), QLatin1String(what));
}

QTreeView& treeOf(const QWidget& browser)
{
    return *browser.findChild<QTreeView*>(QStringLiteral("featureTree"));
}

void forEachCategory(const QTreeView& tree, const QModelIndex& parent,
    const std::function<void(const QModelIndex& category, const QString& name)>& visit)
{
    const QAbstractItemModel& model = *tree.model();
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex row = model.index(i, 0, parent);
        if (model.hasChildren(row)) {
            visit(row, row.data().toString());
            forEachCategory(tree, row, visit);
        }
    }
}

} // namespace

WindowMemory::WindowMemory()
    : m_settings(QStringLiteral("ZQFeatureBrowser"), QStringLiteral("zqviewer"))
{
}

TYPE_LEVEL WindowMemory::level() const
{
    const int level = m_settings.value(levelKey, LEVEL_GURU).toInt();
    return level >= LEVEL_BEGINNER && level <= LEVEL_GURU ? static_cast<TYPE_LEVEL>(level)
                                                          : LEVEL_GURU;
}

void WindowMemory::setLevel(TYPE_LEVEL level)
{
    m_settings.setValue(levelKey, static_cast<int>(level));
}

std::vector<int> WindowMemory::columns() const
{
    const int width = m_settings.value(nameWidthKey).toInt();
    return width > 0 ? std::vector<int> { width } : std::vector<int>();
}

void WindowMemory::setColumn(int column, int width)
{
    if (column == 0) { // the last one takes what is left
        m_settings.setValue(nameWidthKey, width);
    }
}

bool WindowMemory::reconnectsByItself() const
{
    return m_settings.value(reconnectKey, true).toBool();
}

void WindowMemory::setReconnectsByItself(bool doesIt)
{
    m_settings.setValue(reconnectKey, doesIt);
}

void WindowMemory::restore(QMainWindow& window, QWidget& browser, const QString& camera) const
{
    QTreeView& tree = treeOf(browser);
    window.restoreGeometry(m_settings.value(geometryKey).toByteArray());
    window.restoreState(m_settings.value(docksKey).toByteArray());
    QByteArrayList pins;
    for (const QVariant& name : m_settings.value(keyOf(camera, "pinned")).toList()) {
        pins.append(name.toByteArray());
    }
    browser.setProperty("pinnedFeatures", QVariant::fromValue(pins));
    const QVariant open = m_settings.value(keyOf(camera, "open"));
    if (!open.isValid()) {
        return;
    }
    const QStringList names = open.toStringList();
    forEachCategory(tree, {}, [&](const QModelIndex& category, const QString& name) {
        tree.setExpanded(category, names.contains(name));
    });
}

void WindowMemory::store(const QMainWindow& window, const QWidget& browser, const QString& camera)
{
    const QTreeView& tree = treeOf(browser);
    m_settings.setValue(geometryKey, window.saveGeometry());
    m_settings.setValue(docksKey, window.saveState());
    QVariantList pins;
    for (const QByteArray& name : browser.property("pinnedFeatures").value<QByteArrayList>()) {
        pins.append(name);
    }
    m_settings.setValue(keyOf(camera, "pinned"), pins);
    QStringList open;
    forEachCategory(tree, {}, [&](const QModelIndex& category, const QString& name) {
        if (tree.isExpanded(category)) {
            open.append(name);
        }
    });
    if (tree.model()->rowCount() > 0) { // a camera that was lost has none
        m_settings.setValue(keyOf(camera, "open"), open);
    }
}

} // namespace zqviewer
