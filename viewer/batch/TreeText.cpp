// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/TreeText.h"

#include <QAbstractItemModel>
#include <QHash>

#include <nlohmann/json.hpp>

#include <functional>
#include <string>
#include <utility>

namespace zqviewer {
namespace {

// Qt's own JSON rounds integers beyond 53 bits.
using Json = nlohmann::ordered_json;

class Roles {
public:
    explicit Roles(const QAbstractItemModel& model)
    {
        const QHash<int, QByteArray> names = model.roleNames();
        for (auto it = names.cbegin(); it != names.cend(); ++it) {
            m_roles.insert(it.value(), it.key());
        }
    }

    QVariant get(const QModelIndex& row, const char* role) const
    {
        const auto found = m_roles.constFind(role);
        return found == m_roles.cend() ? QVariant() : row.data(*found);
    }

    QString text(const QModelIndex& row, const char* role) const
    {
        const QVariant value = get(row, role);
        // Names are bytes: QVariant::toString would read them in the local encoding.
        return value.userType() == QMetaType::QByteArray ? QString::fromUtf8(value.toByteArray())
                                                         : value.toString();
    }

private:
    QHash<QByteArray, int> m_roles;
};

using Visitor = std::function<void(const QModelIndex& row, const QStringList& path)>;

void visit(const QAbstractItemModel& model, const Roles& roles, const QModelIndex& parent,
    const QStringList& path, const Visitor& visitor)
{
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex row = model.index(i, 0, parent);
        visitor(row, path);
        visit(model, roles, row, path + QStringList { roles.text(row, "name") }, visitor);
    }
}

std::string utf8(const QString& text)
{
    return text.toStdString();
}

Json texts(const QStringList& list)
{
    Json array = Json::array();
    for (const QString& text : list) {
        array.push_back(utf8(text));
    }
    return array;
}

Json number(const QVariant& value)
{
    if (value.userType() != QMetaType::Double) {
        return value.toLongLong();
    }
    return value.toDouble(); // JSON has no infinities: they become null
}

} // namespace

QByteArray treeAsJson(const QAbstractItemModel& model)
{
    const Roles roles(model);
    Json rows = Json::array();
    visit(model, roles, {}, {}, [&](const QModelIndex& row, const QStringList& path) {
        const QString kind = roles.text(row, "kind");
        Json object { { "name", utf8(roles.text(row, "name")) }, { "category", texts(path) },
            { "kind", utf8(kind) } };
        if (kind != QLatin1String("category")) {
            object["value"] = utf8(roles.text(row, "value"));
            object["readOnly"] = roles.get(row, "readOnly").toBool();
        }
        for (const char* limit : { "minimum", "maximum", "increment" }) {
            const QVariant value = roles.get(row, limit);
            if (value.isValid()) {
                object[limit] = number(value);
            }
        }
        if (kind == QLatin1String("enumeration") || kind == QLatin1String("boolean")) {
            object["entries"] = texts(roles.get(row, "entries").toStringList());
        }
        object["level"] = roles.get(row, "level").toInt();
        rows.push_back(std::move(object));
    });
    return QByteArray::fromStdString(rows.dump(2)) + '\n';
}

QByteArray treeAsText(const QAbstractItemModel& model)
{
    const Roles roles(model);
    QString text;
    visit(model, roles, {}, {}, [&](const QModelIndex& row, const QStringList& path) {
        const bool category = roles.text(row, "kind") == QLatin1String("category");
        const QString name = QString(2 * path.size(), QLatin1Char(' ')) + roles.text(row, "name");
        text += category ? name
                         : name.leftJustified(44) + QLatin1Char(' ') + roles.text(row, "value")
                + (roles.get(row, "readOnly").toBool() ? QStringLiteral("  (read-only)")
                                                       : QString());
        text += QLatin1Char('\n');
    });
    return text.toUtf8();
}

} // namespace zqviewer
