// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "row/FeatureRow.h"

#include <QByteArrayList>

#include <array>

namespace featurebrowser {

const RowExtras& FeatureRow::extras() const
{
    static const RowExtras none;
    return m_extras ? *m_extras : none;
}

RowExtras& FeatureRow::ownExtras()
{
    if (!m_extras) {
        m_extras = std::make_unique<RowExtras>();
    }
    return *m_extras;
}

const RowAbout& FeatureRow::about() const
{
    static const RowAbout none;
    return m_about ? *m_about : none;
}

RowAbout& FeatureRow::ownAbout()
{
    if (!m_about) {
        m_about = std::make_unique<RowAbout>();
    }
    return *m_about;
}

std::vector<std::string> selectorNames(const FeatureRow& row)
{
    std::vector<std::string> names;
    const auto parts = QByteArray::fromStdString(row.extras().selectors).split(',');
    for (const QByteArray& part : parts) {
        const QByteArray name = part.trimmed();
        if (!name.isEmpty()) {
            names.push_back(name.toStdString());
        }
    }
    return names;
}

QString kindName(RowKind kind)
{
    static const std::array<QString, 10> names { QStringLiteral("category"),
        QStringLiteral("integer"), QStringLiteral("float"), QStringLiteral("string"),
        QStringLiteral("enumeration"), QStringLiteral("command"), QStringLiteral("boolean"),
        QStringLiteral("ipv4"), QStringLiteral("mac"), QStringLiteral("readonly-string") };
    return names.at(static_cast<std::size_t>(kind));
}

} // namespace featurebrowser
