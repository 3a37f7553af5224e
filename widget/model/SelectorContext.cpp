// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "model/SelectorContext.h"

#include "text/ValueText.h"

#include <QStringList>

namespace featurebrowser {

namespace {

constexpr int maxNames = 12;

QString selectorsText(const FeatureModel& model, const FeatureRow& row)
{
    QStringList parts;
    for (const std::string& name : selectorNames(row)) {
        const FeatureRow* selector = model.find(name);
        parts.append(selector == nullptr
                ? toText(name)
                : toText(name) + QStringLiteral(" = ") + valueText(*selector));
    }
    return parts.join(QStringLiteral(", "));
}

QString selectedText(const FeatureModel& model, const FeatureRow& row)
{
    QStringList names;
    for (const FeatureRow* selected : model.selectedBy(row.name)) {
        names.append(toText(selected->name));
    }
    if (names.size() > maxNames) {
        names = names.mid(0, maxNames) << QStringLiteral("\u2026");
    }
    return names.join(QStringLiteral(", "));
}

} // namespace

std::vector<RowFact> allFacts(const FeatureModel& model, const FeatureRow& row)
{
    std::vector<RowFact> facts = rowFacts(row, model.reasonOf(row));
    const auto add = [&facts](const QString& label, const QString& text) {
        if (!text.isEmpty()) {
            facts.push_back({ label, text });
        }
    };
    add(FeatureModel::tr("Selected by"), selectorsText(model, row));
    add(FeatureModel::tr("Selects"), selectedText(model, row));
    return facts;
}

} // namespace featurebrowser
