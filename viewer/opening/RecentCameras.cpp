// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/RecentCameras.h"

#include <algorithm>

namespace zqviewer {

namespace {

constexpr std::size_t kept = 10;
const QString listKey = QStringLiteral("recent");
const QString wordsKey = QStringLiteral("words");
const QString descriptionKey = QStringLiteral("description");
const QString cameraKey = QStringLiteral("camera");

} // namespace

RecentCameras::RecentCameras()
    : m_settings(QStringLiteral("ZQFeatureBrowser"), QStringLiteral("zqviewer"))
{
}

std::vector<RecentCameras::Entry> RecentCameras::entries() const
{
    std::vector<Entry> entries;
    const int count = m_settings.beginReadArray(listKey);
    for (int i = 0; i < count; ++i) {
        m_settings.setArrayIndex(i);
        entries.push_back({ m_settings.value(wordsKey).toString(),
            m_settings.value(descriptionKey).toString(), m_settings.value(cameraKey).toString() });
    }
    m_settings.endArray();
    return entries;
}

void RecentCameras::add(const Entry& entry)
{
    std::vector<Entry> all = entries();
    const auto isSame = [&entry](const Entry& known) {
        return known.camera == entry.camera && known.description == entry.description;
    };
    all.erase(std::remove_if(all.begin(), all.end(), isSame), all.end());
    all.insert(all.begin(), entry);
    all.resize(std::min(all.size(), kept));
    m_settings.remove(listKey);
    m_settings.beginWriteArray(listKey, static_cast<int>(all.size()));
    for (std::size_t i = 0; i < all.size(); ++i) {
        m_settings.setArrayIndex(static_cast<int>(i));
        m_settings.setValue(wordsKey, all[i].words);
        m_settings.setValue(descriptionKey, all[i].description);
        m_settings.setValue(cameraKey, all[i].camera);
    }
    m_settings.endArray();
}

void RecentCameras::add(const CameraChoice& choice, const QString& name)
{
    const QString place = choice.isReal() ? choice.camera : choice.description;
    if (!place.isEmpty()) {
        add({ name + QStringLiteral(", ") + place, choice.description, choice.camera });
    }
}

} // namespace zqviewer
