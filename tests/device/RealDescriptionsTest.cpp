// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

using namespace featurebrowser;

namespace {

TEST_F(RealDescriptions, NearlyAllFeaturesAreListedAndReadOnceEach)
{
    for (const std::string& path : m_files) {
        TestCamera camera(TestCamera::ofFile(path));
        std::size_t all = 0;
        for (const zqcameralib::Feature& feature : camera.camera->impl().features()) {
            all += feature.type == FEATURE_CATEGORY ? 0U : 1U;
        }
        std::size_t listed = 0;
        std::size_t unread = 0;
        for (const auto& record : camera.repository.GetFeatureList()) {
            listed += record->type == FEATURE_CATEGORY ? 0U : 1U;
            unread += camera.state(record->name) == FEATURE_READ_FAILED ? 1U : 0U;
        }
        EXPECT_GE(listed * 100, all * 95) << path;
        EXPECT_LE(unread * 100, all * 2) << path;
    }
}

/// What a feature's row shows, and whether it takes it back.
int writeBack(TestCamera& camera, const FeatureItem& record)
{
    const char* name = record.name.c_str();
    switch (record.type) {
    case FEATURE_INTEGER:
        return camera.device.SetIntegerValue(name, std::stoll(record.valueText), 1);
    case FEATURE_FLOAT:
        return camera.device.SetFloatValue(name, std::stod(record.valueText));
    case FEATURE_BOOLEAN:
        return camera.device.SetBooleanValue(name, record.valueText == "1");
    default:
        return STATUS_OK;
    }
}

TEST_F(RealDescriptions, TakeBackWhatTheyShowWithoutAChange)
{
    for (const std::string& path : m_files) {
        TestCamera camera(TestCamera::ofFile(path));
        std::size_t written = 0;
        for (const auto& record : camera.repository.GetFeatureList()) {
            if (record->displayFlag == 0 || record->intWritable == 0 || record->lockedFlag != 0) {
                continue;
            }
            const std::string shown = camera.read(record->name);
            if (writeBack(camera, *record) == STATUS_OK) {
                ++written;
                EXPECT_EQ(camera.read(record->name), shown) << path << " " << record->name;
            }
        }
        EXPECT_GT(written, 10U) << path;
    }
}

} // namespace
