// Saves the settings of a camera to a file, changes one, and restores them: `settings FILE`.
#include <featurebrowser/ZQCamera.h>
#include <featurebrowser/ZQCameraDevice.h>
#include <featurebrowser/ZQSettings.h>

#include <cstdio>

using namespace zqcameralib;

namespace {

bool fail(const std::string& words)
{
    std::fprintf(stderr, "%s\n", words.c_str());
    return false;
}

// In an application with a window: poll() from a timer instead, and show progress().
bool finish(ZQCameraTask& task)
{
    return task.wait(std::chrono::minutes(1)) == ZQCameraTask::State::Done || fail(task.error());
}

bool save(ZQCamera& camera, const std::string& path)
{
    ZQSettingsSaving saving(camera);
    std::string error;
    return finish(saving)
        && (ZQSettings::WriteFile(path, saving.takeSettings().toText(), error) || fail(error));
}

bool restore(ZQCamera& camera, const std::string& path)
{
    ZQSettings settings;
    std::string error;
    if (!ZQSettings::ReadFile(path, settings, error)) {
        return fail(error);
    }
    ZQSettingsRestoring restoring(camera, settings);
    const bool isDone = finish(restoring);
    std::printf("%s", restoring.report().toText().c_str());
    return isDone && restoring.report().exitStatus() == 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::string error;
    const auto camera = ZQCamera::OpenSimulated(error);
    if (!camera || argc != 2) {
        std::fprintf(stderr, "%s\n", camera ? "usage: settings FILE" : error.c_str());
        return 1;
    }
    featurebrowser::ZQCameraDevice device(camera.get(), nullptr);
    const bool isChanged = save(*camera, argv[1]) && device.SetIntegerValue("Width", 320, 1) == 0;
    return isChanged && restore(*camera, argv[1]) ? 0 : 1;
}
