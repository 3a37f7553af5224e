// Lists the features of a camera with their values; needs no Qt and no display. `features` takes
// the simulated camera, `features FILE.xml` the one of a GenICam description, `features ID` a real
// one.
#include <featurebrowser/FeatureItem.h>
#include <featurebrowser/ZQCamera.h>
#include <featurebrowser/ZQCameraDevice.h>
#include <featurebrowser/ZQCameraRepository.h>

#include <cstdio>
#include <iterator>

using namespace featurebrowser;
using zqcameralib::ZQCamera;

namespace {

std::unique_ptr<ZQCamera> open(const std::string& what, std::string& error)
{
    if (what.empty()) {
        return ZQCamera::OpenSimulated(error);
    }
    if (what.find(".xml") != std::string::npos) {
        return ZQCamera::OpenDescription(what, error);
    }
    return ZQCamera::Open(what, zqcameralib::CameraAccess::ReadOnly, error);
}

std::string valueOf(const FeatureItem& item)
{
    const bool hasEntries = item.type == FEATURE_ENUMERATION || item.type == FEATURE_BOOLEAN;
    if (!hasEntries || item.displayFlag == 0) {
        return item.displayFlag == 0 ? "(no value)" : item.valueText;
    }
    return *std::next(item.enumEntries.begin(), std::stol(item.valueText));
}

} // namespace

int main(int argc, char** argv)
{
    std::string error;
    const auto camera = open(argc > 1 ? argv[1] : "", error);
    if (!camera) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    ZQCameraDevice device(camera.get(), nullptr);
    const int status = device.GetRepository()->Load();
    for (const auto& item : device.GetRepository()->GetFeatureList()) {
        const bool isCategory = item->type == FEATURE_CATEGORY;
        std::printf("%*s%s%s%s\n", 2 * item->depth, "", item->name.c_str(), isCategory ? "" : " = ",
            isCategory ? "" : valueOf(*item).c_str());
    }
    return status == 0 ? 0 : 1;
}
