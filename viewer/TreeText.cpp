#include "TreeText.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <functional>

namespace zqviewer {
namespace {

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
        return value.type() == QVariant::ByteArray ? QString::fromUtf8(value.toByteArray())
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

QJsonValue number(const QVariant& value)
{
    if (value.type() != QVariant::Double) {
        return QJsonValue::fromVariant(value);
    }
    // JSON has no infinities.
    return std::isfinite(value.toDouble()) ? QJsonValue(value.toDouble()) : QJsonValue();
}

} // namespace

QByteArray treeAsJson(const QAbstractItemModel& model)
{
    const Roles roles(model);
    QJsonArray rows;
    visit(model, roles, {}, {}, [&](const QModelIndex& row, const QStringList& path) {
        QJsonObject object { { QStringLiteral("name"), roles.text(row, "name") },
            { QStringLiteral("category"), QJsonArray::fromStringList(path) },
            { QStringLiteral("kind"), roles.text(row, "kind") },
            { QStringLiteral("level"), roles.get(row, "level").toInt() } };
        for (const char* limit : { "minimum", "maximum", "increment" }) {
            const QVariant value = roles.get(row, limit);
            if (value.isValid()) {
                object.insert(QLatin1String(limit), number(value));
            }
        }
        const QVariant entries = roles.get(row, "entries");
        if (entries.isValid()) {
            object.insert(
                QStringLiteral("entries"), QJsonArray::fromStringList(entries.toStringList()));
        }
        if (roles.text(row, "kind") != QLatin1String("category")) {
            object.insert(QStringLiteral("value"), roles.text(row, "value"));
            object.insert(QStringLiteral("readOnly"), roles.get(row, "readOnly").toBool());
        }
        rows.append(object);
    });
    return QJsonDocument(rows).toJson();
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
