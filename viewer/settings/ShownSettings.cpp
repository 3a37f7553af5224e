// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/ShownSettings.h"

#include <QStringList>

#include <utility>

namespace zqviewer {

using zqcameralib::ZQSettings;

namespace {

using featurebrowser::FeatureItem;

bool isSetting(const FeatureItem& item)
{
    return item.type != featurebrowser::FEATURE_CATEGORY
        && item.type != featurebrowser::FEATURE_COMMAND && !item.isSelector && item.displayFlag != 0
        && item.accessMode == featurebrowser::ACCESS_READ_WRITE
        && item.name.rfind("Gev", 0) != 0; // of the connection, which is another one now
}

} // namespace

ZQSettings shownSettings(OpenedCamera& camera)
{
    ZQSettings settings;
    for (const auto& item : camera.repository().GetFeatureList()) {
        if (!isSetting(*item)) {
            continue;
        }
        zqcameralib::ZQSettingsLine line;
        line.name = item->name;
        const bool isChoice = item->type == featurebrowser::FEATURE_ENUMERATION
            || item->type == featurebrowser::FEATURE_BOOLEAN;
        line.value = isChoice ? camera.shown(item->name.c_str()).toStdString() : item->valueText;
        const QStringList selectors = QString::fromStdString(item->selectorParent)
                                          .split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString& selector : selectors) {
            const std::string name = selector.trimmed().toStdString();
            line.selectors.push_back({ name, camera.shown(name.c_str()).toStdString() });
        }
        settings.put(std::move(line));
    }
    return settings;
}

} // namespace zqviewer
