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

TEST_F(RealDescriptions, ValuesAgreeWithTheNodeMap)
{
    for (const std::string& path : m_files) {
        TestCamera camera(TestCamera::ofFile(path));
        std::size_t compared = 0;
        for (const auto& record : camera.repository.GetFeatureList()) {
            const zqcameralib::Feature* feature = camera.camera->impl().feature(record->name);
            if (record->displayFlag == 0 || record->type == FEATURE_COMMAND) {
                continue;
            }
            ++compared;
            if (record->type == FEATURE_INTEGER) {
                EXPECT_EQ(std::stoll(record->valueText),
                    arv_gc_integer_get_value(ARV_GC_INTEGER(feature->gc), nullptr));
            } else if (record->type == FEATURE_FLOAT) {
                EXPECT_EQ(std::stod(record->valueText),
                    arv_gc_float_get_value(ARV_GC_FLOAT(feature->gc), nullptr));
            } else if (record->type == FEATURE_ENUMERATION) {
                auto entry = record->enumEntries.begin();
                std::advance(entry, std::stoi(record->valueText));
                EXPECT_EQ(*entry,
                    arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(feature->gc), nullptr));
            }
        }
        EXPECT_GT(compared, 30U) << path;
    }
}

} // namespace
