// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/RowText.h"

#include "text/ValueText.h"

#include <QStringList>

#include <algorithm>

namespace featurebrowser {

namespace {

void appendRows(const FeatureRow& category, QStringList& lines)
{
    lines.append(QLatin1Char('[') + toText(category.name) + QLatin1Char(']'));
    for (const auto& child : category.children) {
        if (child->hidden) {
            continue;
        }
        if (child->isCategory()) {
            appendRows(*child, lines);
        } else {
            lines.append(rowAsText(*child));
        }
    }
}

} // namespace

QString rowAsText(const FeatureRow& row)
{
    if (!row.isCategory()) {
        return toText(row.name) + QLatin1Char('=') + valueText(row);
    }
    QStringList lines;
    appendRows(row, lines);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString oneLine(QString text)
{
    const auto isControl = [](QChar c) {
        return c.unicode() < 0x20 || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    std::replace_if(text.begin(), text.end(), isControl, QLatin1Char(' '));
    return text;
}

} // namespace featurebrowser
