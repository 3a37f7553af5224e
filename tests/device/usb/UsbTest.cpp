#include "UsbBus.h"

#include "../TestCamera.h"
#include "../gige/FakeCamera.h"
#include "../gige/PrivateNetwork.h"
#include "base/StatusCodes.h"

#include "featurebrowser/ZQAcquisition.h"

#include <glib.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <regex>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

const std::string unplugged
    = ": the camera was unplugged or has lost its power; reconnect to it when it is back";

/// A little-endian register.
std::string place(const char* name, UsbCamera::Place address, const std::string& more = {})
{
    return reg("IntReg", name, static_cast<unsigned>(address),
        element("Endianess", "LittleEndian") + more);
}

std::string command(const char* name, UsbCamera::Place address)
{
    const std::string holder = std::string(name) + "Register";
    return node("Command", name, element("pValue", holder) + element("CommandValue", "1"))
        + place(holder.c_str(), address);
}

std::string description()
{
    return TestCamera::description(
        "Width Height PayloadSize Gain Maker Denied Missing Note Restore AcquisitionStart "
        "AcquisitionStop",
        place("Width", UsbCamera::Width) + place("Height", UsbCamera::Height)
            + place("PayloadSize", UsbCamera::PayloadSize) + place("Gain", UsbCamera::Gain)
            + place("Maker", UsbCamera::Maker) + place("Denied", UsbCamera::Denied)
            + place("Missing", UsbCamera::Missing)
            + reg("StringReg", "Note", UsbCamera::Note, element("Length", "200"))
            + command("Restore", UsbCamera::Restore) + command("AcquisitionStart", UsbCamera::Start)
            + command("AcquisitionStop", UsbCamera::Stop));
}

/// Threads of the library that wait for images.
std::ptrdiff_t streamThreads()
{
    std::ptrdiff_t count = 0;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(thread.path() / "comm"), name);
        count += name == "arv_uv_stream" ? 1 : 0;
    }
    return count;
}

class Usb : public testing::Test {
protected:
    Usb() { HeldBus()->plugIn(description()); }
    ~Usb() override
    {
        m_acquisition.reset();
        m_camera.reset();
        EXPECT_TRUE(eventually([] { return HeldBus()->handles.empty(); }));
    }

    /// Searches the bus and no network.
    std::string open(CameraAccess access = CameraAccess::Control)
    {
        std::string error;
        discovered = ZQDiscovery().discover({ "USB3Vision" });
        if (auto opened = ZQCamera::Open(UsbBus::id, access, error)) {
            m_camera = std::make_unique<TestCamera>(std::move(opened));
            m_acquisition
                = std::make_unique<ZQAcquisition>(m_camera->camera.get(), &m_camera->device);
        }
        return error;
    }
    TestCamera& camera() { return *m_camera; }
    std::string readAnew(const char* name)
    {
        camera().port.invalidate();
        return camera().read(name);
    }
    std::string reconnect()
    {
        const auto task = camera().device.ReconnectBeside();
        eventually([&task] { return task->poll() != ZQCameraTask::State::Running; });
        const int status = camera().device.Reconnect();
        return task->poll() == ZQCameraTask::State::Done && status == STATUS_OK ? ""
                                                                                : task->error();
    }

    /// Starts, and waits for images, each of which has to hold what the camera sent.
    void startImages(int count)
    {
        m_frames = 0;
        const int status = m_acquisition->start([this](const ZQFrame& frame) {
            bool isRight = frame.frameId == m_frames && frame.timestampNs == 1000 + m_frames
                && frame.pixelFormat == 0x01080001
                && frame.size == std::size_t(frame.width) * std::size_t(frame.height);
            for (std::size_t i = 0; isRight && i < frame.size; ++i) {
                isRight = frame.data[i] == UsbCamera::pixelOf(m_frames, i);
            }
            m_width = frame.width;
            m_frames += isRight ? 1 : 1000;
        });
        ASSERT_EQ(status, STATUS_OK) << m_acquisition->lastError();
        sendImages(count);
        EXPECT_TRUE(eventually([&] { return m_frames >= unsigned(count); }));
        EXPECT_EQ(m_frames, unsigned(count));
    }
    static void sendImages(int count)
    {
        const HeldBus bus;
        bus->camera().images = count;
        bus->changed.notify_all();
    }

    std::vector<CameraInfo> discovered;
    std::unique_ptr<TestCamera> m_camera;
    std::unique_ptr<ZQAcquisition> m_acquisition;
    std::atomic<std::uint64_t> m_frames { 0 };
    std::atomic<int> m_width { 0 };
};

TEST_F(Usb, CamerasAreFoundReadAndEdited)
{
    ASSERT_EQ(open(), "");
    ASSERT_EQ(discovered.size(), 1U);
    const CameraInfo& found = discovered.front();
    EXPECT_EQ(found.vendor + found.model + found.serial + found.protocol, "MakerModelS1USB3Vision");
    EXPECT_TRUE(found.reachable);
    EXPECT_EQ(camera().read("Width") + camera().read("Gain"), "12807");
    EXPECT_EQ(camera().set("Gain", 1000), STATUS_OK);
    EXPECT_EQ(HeldBus()->camera().registerAt(UsbCamera::Gain), 1000U);
    EXPECT_EQ(camera().read("Gain"), "1000");
    EXPECT_EQ(camera().device.ExecuteCommand("Restore", 1), STATUS_OK);
    EXPECT_EQ(camera().read("Gain"), "7");
    std::array<std::uint8_t, 4> bytes {}; // the same, however it is asked for
    EXPECT_TRUE(
        camera().port.read({ UsbCamera::Gain, 4 }, bytes.data(), AccessKind::Register).isOk());
    EXPECT_EQ(bytes[0], 7);
    const std::string longer(190, 'n');
    EXPECT_EQ(camera().set("Note", longer.c_str()), STATUS_OK);
    EXPECT_EQ(reinterpret_cast<char*>(&HeldBus()->camera().memory[UsbCamera::Note]), longer);
    EXPECT_EQ(camera().read("Note"), longer);
}

TEST_F(Usb, RefusedAccessesAreToldAndLoseNothing)
{
    ASSERT_EQ(open(), "");
    const auto refusal
        = [this](const char* name) { return camera().errorText(camera().set(name, 1)); };
    EXPECT_EQ(refusal("Maker"), "the camera does not let the register be written");
    EXPECT_EQ(refusal("Denied"), "the camera does not allow this access");
    EXPECT_EQ(refusal("Missing"), "the camera has no such register");
    EXPECT_EQ(camera().read("Gain"), "7");
}

TEST_F(Usb, ImagesCome)
{
    ASSERT_EQ(open(), "");
    for (const int width : { 1280, 64 }) {
        EXPECT_EQ(camera().set("Width", width), STATUS_OK);
        startImages(5);
        EXPECT_EQ(m_width, width);
        EXPECT_EQ(m_acquisition->problem(), "");
        EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
        EXPECT_TRUE(eventually([] { return streamThreads() == 0; }));
    }
}

TEST_F(Usb, CamerasUnpluggedWhileTheyAreReadAreLostUntilTheyAreBack)
{
    for (const CameraAccess access : { CameraAccess::Control, CameraAccess::ReadOnly }) {
        HeldBus()->plugIn(description());
        ASSERT_EQ(open(access), "");
        HeldBus()->transfersLeft = 0;
        EXPECT_EQ(readAnew("Gain"), "(read failed)");
        EXPECT_TRUE(camera().camera->isLost());
        long value = 0;
        EXPECT_EQ(camera().errorText(camera().device.GetIntegerValue("Gain", &value)),
            UsbBus::id + unplugged);
        EXPECT_EQ(reconnect(),
            std::string(UsbBus::id) + ": no such camera is plugged in; check its cable and power");
        HeldBus()->plugIn(description());
        EXPECT_EQ(reconnect(), "");
        EXPECT_EQ(camera().read("Gain"), "7");
        EXPECT_EQ(
            camera().set("Gain", 9), access == CameraAccess::Control ? STATUS_OK : accessDenied);
        m_acquisition.reset();
        m_camera.reset();
    }
}

TEST_F(Usb, CamerasUnpluggedWhileNothingIsAskedAreNoticed)
{
    ASSERT_EQ(open(), "");
    HeldBus()->unplug();
    EXPECT_TRUE(eventually([this] { return camera().camera->isLost(); }));
}

TEST_F(Usb, ImagesEndWithTheCameraAndStartAnewWithIt)
{
    ASSERT_EQ(open(), "");
    startImages(3);
    {
        const HeldBus bus;
        bus->transfersLeft = 1; // within an image
        bus->camera().images = 1;
        bus->changed.notify_all();
    }
    EXPECT_TRUE(eventually([this] { return !m_acquisition->isRunning(); }));
    EXPECT_NE(m_acquisition->problem().find("The camera was lost"), std::string::npos);
    EXPECT_TRUE(eventually([] { return streamThreads() == 0; })); // none runs idle
    HeldBus()->plugIn(description());
    EXPECT_EQ(reconnect(), "");
    startImages(3);
}

TEST_F(Usb, CamerasThatPausedAreFoundAgainWhileTheirImagesWereNotStopped)
{
    ASSERT_EQ(open(), "");
    startImages(1);
    HeldBus()->camera().isSilent = true;
    EXPECT_EQ(readAnew("Gain"), "(read failed)");
    EXPECT_EQ(reconnect(), UsbBus::id + std::string(": the camera does not answer"));
    HeldBus()->camera().isSilent = false;
    EXPECT_EQ(reconnect(), "");
    startImages(2);
}

TEST_F(Usb, CamerasThatMayNotBeOpenedAreToldWithWhatToDo)
{
    HeldBus()->opening = LIBUSB_ERROR_ACCESS;
    const std::string error = open();
    EXPECT_TRUE(discovered.empty());
    for (const char* words :
        { "no such camera found; no permission to open the USB3 Vision camera 2676:ba02",
            "/etc/udev/rules.d/60-usb3-vision.rules", R"(SUBSYSTEM=="usb")" }) {
        EXPECT_NE(error.find(words), std::string::npos) << error;
    }
    HeldBus()->opening = LIBUSB_SUCCESS;
    ASSERT_EQ(open(), "");
    HeldBus()->plugIn(description());
    HeldBus()->opening = LIBUSB_ERROR_ACCESS; // as a camera without a rule comes back
    EXPECT_TRUE(eventually([this] { return camera().camera->isLost(); }));
    EXPECT_NE(reconnect().find("60-usb3-vision.rules"), std::string::npos);
}

/// What the library complains about when opening fails: it ends a thread that it did not start.
class UsbFailing : public Usb {
protected:
    ~UsbFailing() override { g_log_set_always_fatal(m_before); }

    const GLogLevelFlags m_before = g_log_set_always_fatal(G_LOG_LEVEL_ERROR);
};

TEST_F(UsbFailing, CamerasInUseAreTold)
{
    HeldBus()->claiming = LIBUSB_ERROR_BUSY;
    EXPECT_EQ(open(),
        std::string(UsbBus::id)
            + ": the camera is in use: by another program, or for images that were not stopped");
}

TEST_F(UsbFailing, CamerasMayVanishAtAnyMomentOfOpeningAndStarting)
{
    const std::regex network("network|address|heartbeat|packet|firewall");
    bool isStarted = false;
    int failures = 0;
    for (int transfers = 0; !isStarted; ++transfers) {
        HeldBus()->plugIn(description());
        HeldBus()->transfersLeft = transfers;
        std::string error = open();
        if (error.empty()) {
            isStarted = m_acquisition->start(nullptr) == STATUS_OK;
            error = m_acquisition->lastError();
        }
        EXPECT_FALSE(std::regex_search(error, network)) << error;
        EXPECT_NE(error.empty(), !isStarted);
        failures += isStarted ? 0 : 1;
        m_acquisition.reset();
        m_camera.reset();
    }
    EXPECT_GT(failures, 100);
}

TEST_F(Usb, StreamsThatTheLibraryWouldDieOfAreRefused)
{
    ASSERT_EQ(open(), "");
    struct Case {
        UsbCamera::Place place;
        std::uint8_t lastByte;
        const char* words;
    };
    for (const auto& [place, lastByte, words] :
        { Case { UsbCamera::PayloadSize, 0, "of images of 0 bytes" },
            Case { UsbCamera::StreamInfo, 31, "of too large an alignment" },
            Case { UsbCamera::TrailerSize, 1, "of too large packets around the images" } }) {
        const UsbCamera::Bytes before = HeldBus()->camera().memory;
        HeldBus()->camera().put(place, { 0, 0, 0, lastByte });
        EXPECT_NE(m_acquisition->start(nullptr), STATUS_OK);
        EXPECT_EQ(m_acquisition->lastError(),
            std::string("the camera requires a stream that cannot be made: ") + words);
        HeldBus()->camera().memory = before;
    }
    startImages(1);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Whatever starts a search of all there is sends nothing to a real network.
    if (const char* reason = testing::GTEST_FLAG(list_tests) ? nullptr : enterPrivateNetwork()) {
        return endWithoutTests(reason);
    }
    g_log_set_always_fatal(static_cast<GLogLevelFlags>(G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL));
    return RUN_ALL_TESTS();
}
