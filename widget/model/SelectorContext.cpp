#include "model/SelectorContext.h"

#include "text/ValueText.h"

#include <QStringList>

namespace featurebrowser {

QString selectorContext(const FeatureModel& model, const FeatureRow& row)
{
    QStringList parts;
    for (const std::string& name : selectorNames(row)) {
        if (const FeatureRow* selector = model.find(name)) {
            parts.append(toText(name) + QStringLiteral(" = ") + valueText(*selector));
        }
    }
    if (!parts.isEmpty()) {
        return parts.join(QStringLiteral(", "));
    }
    const auto count = row.selector == SELECTOR_NONE ? 0 : model.selectedBy(row.name).size();
    return count == 0 ? QString()
                      : FeatureModel::tr("selects %n", nullptr, static_cast<int>(count));
}

} // namespace featurebrowser
