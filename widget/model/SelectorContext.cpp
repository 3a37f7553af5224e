#include "model/SelectorContext.h"

#include "text/ValueText.h"

#include <QStringList>

namespace featurebrowser {

std::vector<std::string> selectorNames(const FeatureRow& row)
{
    std::vector<std::string> names;
    if (!row.extras) {
        return names;
    }
    const std::string& text = row.extras->selectors;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        const std::size_t first = text.find_first_not_of(' ', start);
        if (first < end) {
            names.push_back(text.substr(first, text.find_last_not_of(' ', end - 1) + 1 - first));
        }
        start = end + 1;
    }
    return names;
}

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
