// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/Repository.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

namespace featurebrowser {

using zqcameralib::Feature;

namespace {

/// Whether a name of words in one, each beginning with a capital, has this one.
bool hasWord(std::string_view name, std::string_view word)
{
    for (std::size_t at = name.find(word); at != std::string_view::npos;
         at = name.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if (end == name.size() || !g_ascii_islower(name[end])) {
            return true;
        }
    }
    return false;
}

bool hasAnyWord(std::string_view name, std::initializer_list<std::string_view> words)
{
    return std::any_of(
        words.begin(), words.end(), [name](std::string_view word) { return hasWord(name, word); });
}

/// Commands after which nothing read before can be trusted, as SFNC and older cameras name them.
bool changesWholeCamera(const Feature& feature)
{
    constexpr std::array<std::string_view, 8> marks { "UserSetLoad", "DeviceReset", "FactoryReset",
        "FactoryDefault", "FactorySettings", "RestoreDefault", "LoadDefault", "ConfigurationLoad" };
    return feature.type == FEATURE_COMMAND
        && std::any_of(marks.begin(), marks.end(), [&feature](std::string_view mark) {
               return feature.name.find(mark) != std::string::npos;
           });
}

/// Commands that load or reset something of which the description does not say what it is: a
/// sequencer's set, a sensor's defaults, a stage, a camera head. Counting begins anew without
/// changing a setting.
bool loadsOrResets(const Feature& feature)
{
    return feature.type == FEATURE_COMMAND
        && hasAnyWord(feature.name,
            { "Load", "Reload", "Reset", "Restore", "Recall", "Default", "Defaults", "Init",
                "Initialize" })
        && !hasAnyWord(feature.name,
            { "Counter", "Count", "Timer", "Timestamp", "TimeStamp", "Encoder", "Statistics" });
}

/// Acquisition locks features through a node that the description does not tie to the commands.
bool switchesAcquisition(const std::string& name)
{
    return name == "AcquisitionStart" || name == "AcquisitionStop" || name == "AcquisitionAbort";
}

/// Stands for the whole camera; not part of the tree.
std::shared_ptr<FeatureItem> wholeDevice()
{
    auto item = std::make_shared<FeatureItem>();
    item->name = "Device";
    return item;
}

} // namespace

ZQCameraRepository::Impl::ItemList ZQCameraRepository::Impl::affectedBy(
    const Feature& feature) const
{
    const zqcameralib::Description& description = m_camera.description();
    std::vector<std::size_t> changed { description.find(feature.name) };
    if (switchesAcquisition(feature.name)
        && description.find("TLParamsLocked") != zqcameralib::Description::absent) {
        changed.push_back(description.find("TLParamsLocked"));
    }
    const std::vector<bool> affected = m_camera.dependencies().affectedBy(changed);
    ItemList list;
    for (const ItemPointer& item : m_items) {
        if (item->type == FEATURE_CATEGORY || item->name == feature.name) {
            continue;
        }
        const Record& record = m_records.at(item->name);
        if (affected[description.find(item->name)] || touchesWritten(record, feature)) {
            list.push_back(item);
        }
    }
    return list;
}

bool ZQCameraRepository::Impl::touchesVariableAddress(const Feature& feature) const
{
    return m_camera.dependencies().readsVariableAddress(
        m_camera.description().indexOf(*feature.node));
}

/// Registers at fixed places are compared, bit by bit, in the description already.
bool ZQCameraRepository::Impl::touchesWritten(const Record& record, const Feature& written) const
{
    const auto& registers = m_camera.written(written);
    if (registers.empty()
        || (!touchesVariableAddress(*record.feature) && !touchesVariableAddress(written))) {
        return false;
    }
    return std::any_of(record.touched.begin(), record.touched.end(), [&](const auto& touched) {
        return std::any_of(registers.begin(), registers.end(),
            [&](const auto& place) { return place.overlaps(touched); });
    });
}

ZQCameraRepository::Impl::ItemList ZQCameraRepository::Impl::invalidatedBy(const std::string& name)
{
    dropOtherCamera();
    const Feature* feature = m_camera.anyFeature(name);
    if (feature == nullptr) {
        return {};
    }
    if (changesWholeCamera(*feature)) {
        return { wholeDevice() };
    }
    ItemList affected = affectedBy(*feature);
    return affected.empty() && loadsOrResets(*feature) ? ItemList { wholeDevice() } : affected;
}

ZQCameraRepository::Impl::ItemList ZQCameraRepository::Impl::selectedBy(const std::string& name)
{
    dropOtherCamera();
    const Feature* feature = m_camera.anyFeature(name);
    return feature != nullptr && feature->isSelector ? affectedBy(*feature) : ItemList {};
}

} // namespace featurebrowser
