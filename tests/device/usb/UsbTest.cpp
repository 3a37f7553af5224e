// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "UsbBus.h"

#include "../TestCamera.h"
#include "../gige/FakeCamera.h"
#include "../gige/PrivateNetwork.h"

#include "featurebrowser/ZQAcquisition.h"

#include <arv.h>

#include <atomic>
#include <filesystem>
#include <regex>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

// Aravis 0.10 names a camera by its model.
const char* const id = ARAVIS_CHECK_VERSION(0, 9, 3) ? "Maker-Model-S1" : "Maker-2676F00D-S1";
const std::string here = std::string(id) + ": ";

std::string description()
{
    std::string nodes = reg("StringReg", "Note", UsbCamera::Note, element("Length", "200"));
    for (const auto& [name, address] :
        { std::pair("Width", UsbCamera::Width), { "Height", UsbCamera::Height },
            { "Gain", UsbCamera::Gain }, { "Denied", UsbCamera::Denied },
            { "R", UsbCamera::Restore }, { "A", UsbCamera::Start }, { "Z", UsbCamera::Stop } }) {
        nodes += intReg(name, address, element("Endianess", "LittleEndian"));
    }
    nodes += node("Integer", "PayloadSize", element("Value", "1280")); // less than is required
    for (const auto& [name, place] :
        { std::pair("Restore", "R"), { "AcquisitionStart", "A" }, { "AcquisitionStop", "Z" } }) {
        nodes += node("Command", name, element("pValue", place) + element("CommandValue", "1"));
    }
    return TestCamera::description(
        "Note Width Height PayloadSize Gain Denied Restore AcquisitionStart AcquisitionStop",
        nodes);
}

class Usb : public testing::Test {
protected:
    Usb() { HeldBus()->plugIn(description()); }
    ~Usb() override
    {
        m_images.reset();
        m_camera.reset();
        EXPECT_TRUE(eventually([] { return HeldBus()->handles.empty(); }));
    }

    /// Searches the bus and no network; what is wrong.
    std::string open(CameraAccess access = CameraAccess::Control)
    {
        m_images.reset();
        m_camera.reset();
        std::string error;
        m_found = ZQDiscovery().discover({ "USB3Vision" });
        if (auto opened = ZQCamera::Open(id, access, error)) {
            m_camera = std::make_unique<TestCamera>(std::move(opened));
            m_images = std::make_unique<ZQAcquisition>(m_camera->camera.get(), &m_camera->device);
        }
        return error;
    }
    std::string reconnect()
    {
        const auto task = m_camera->device.ReconnectBeside();
        eventually([&task] { return task->poll() != ZQCameraTask::State::Running; });
        return m_camera->device.Reconnect() == STATUS_OK ? "" : task->error();
    }
    std::string readAnew(const char* name)
    {
        m_camera->port.invalidate();
        return m_camera->read(name);
    }
    static void send(int images, std::optional<int> transfers = {})
    {
        const HeldBus bus;
        bus->camera().images = images;
        bus->transfersLeft = transfers;
        bus->changed.notify_all();
    }
    /// Starts, and waits for images, each of which has to hold what the camera sends.
    void expectImages(unsigned count, int width = 1280)
    {
        m_frames = 0;
        const auto check = [this, width](const ZQFrame& frame) {
            bool isRight = frame.width == width && frame.size == std::size_t(width) * 1024
                && frame.frameId == m_frames && frame.timestampNs == 1000 + m_frames;
            for (std::size_t i = 0; isRight && i < frame.size; ++i) {
                isRight = frame.data[i] == UsbCamera::pixelOf(m_frames, i);
            }
            m_frames += isRight ? 1 : 1000;
        };
        EXPECT_TRUE(eventually([&] { return m_images->start(check) == STATUS_OK; }))
            << m_images->lastError();
        send(static_cast<int>(count));
        EXPECT_TRUE(eventually([&] { return m_frames >= count; })) << m_images->problem();
        EXPECT_EQ(m_frames, count);
    }

    std::vector<CameraInfo> m_found;
    std::unique_ptr<TestCamera> m_camera;
    std::unique_ptr<ZQAcquisition> m_images;
    std::atomic<unsigned> m_frames { 0 };
};

TEST_F(Usb, CamerasAreFoundReadAndEdited)
{
    ASSERT_EQ(open(), "");
    ASSERT_EQ(m_found.size(), 1U);
    EXPECT_EQ(m_found[0].vendor + m_found[0].model + m_found[0].serial, "MakerModelS1");
    EXPECT_EQ(m_camera->read("Width") + m_camera->read("Gain"), "12807");
    EXPECT_EQ(m_camera->set("Gain", 1000), STATUS_OK);
    EXPECT_EQ(HeldBus()->camera().memory[UsbCamera::Gain + 1], 1000 / 256);
    EXPECT_EQ(readAnew("Gain"), "1000");
    EXPECT_EQ(m_camera->device.ExecuteCommand("Restore", 1), STATUS_OK);
    EXPECT_EQ(m_camera->read("Gain"), "7");
    std::array<std::uint8_t, 4> bytes {}; // the same, however it is asked for
    m_camera->port.invalidate();
    m_camera->port.setFourByteKind(AccessKind::Register);
    EXPECT_TRUE(m_camera->port.read({ UsbCamera::Gain, 4 }, bytes.data()).isOk());
    EXPECT_EQ(bytes[0], 7);
    const std::string longer(190, 'n');
    EXPECT_EQ(m_camera->set("Note", longer.c_str()), STATUS_OK);
    EXPECT_EQ(readAnew("Note"), longer);
    // What it refuses is told, and loses nothing.
    EXPECT_EQ(
        m_camera->errorText(m_camera->set("Denied", 1)), "the camera does not allow this access");
    EXPECT_EQ(readAnew("Gain"), "7");
}

TEST_F(Usb, ImagesComeAndStreamsThatTheLibraryWouldDieOfAreRefused)
{
    ASSERT_EQ(open(), "");
    const std::string begin = "the camera requires a stream that cannot be made: ";
    for (const auto& [place, last, words] :
        { std::tuple(UsbCamera::PayloadSize, 0, "of images of 0 bytes"),
            { UsbCamera::StreamInfo, 31, "of too large an alignment" },
            { UsbCamera::TrailerSize, 1, "of too large packets around the images" } }) {
        const UsbCamera::Bytes before = HeldBus()->camera().memory;
        HeldBus()->camera().put(place, { 0, 0, 0, static_cast<std::uint8_t>(last) });
        EXPECT_NE(m_images->start(nullptr), STATUS_OK);
        EXPECT_EQ(m_images->lastError(), begin + words);
        HeldBus()->camera().memory = before;
    }
    for (const int width : { 1280, 64 }) {
        EXPECT_EQ(m_camera->set("Width", width), STATUS_OK);
        expectImages(5, width);
        EXPECT_EQ(m_images->problem(), "");
        EXPECT_EQ(m_images->stop(), STATUS_OK);
    }
}

TEST_F(Usb, UnpluggedCamerasAreLostUntilTheyAreBack)
{
    for (const CameraAccess access : { CameraAccess::Control, CameraAccess::ReadOnly }) {
        HeldBus()->plugIn(description());
        ASSERT_EQ(open(access), "");
        HeldBus()->transfersLeft = 0;
        EXPECT_EQ(readAnew("Gain"), "(read failed)");
        EXPECT_TRUE(m_camera->camera->isLost());
        EXPECT_EQ(m_camera->errorText(m_camera->device.ExecuteCommand("Restore", 1)),
            here
                + "the camera was unplugged or has lost its power; reconnect to it when it is "
                  "back");
        EXPECT_EQ(reconnect(), here + "no such camera is plugged in; check its cable and power");
        HeldBus()->plugIn(description());
        EXPECT_EQ(reconnect(), "");
        EXPECT_EQ(m_camera->read("Gain"), "7");
        HeldBus()->unplug(); // nobody asks
        EXPECT_TRUE(eventually([this] { return m_camera->camera->isLost(); }));
    }
}

TEST_F(Usb, ImagesEndWithTheCameraAndStartAnewWithIt)
{
    ASSERT_EQ(open(), "");
    const auto threads
        = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}); };
    const auto before = threads();
    expectImages(3);
    send(1, 2); // unplugged within it
    EXPECT_TRUE(eventually([this] { return !m_images->isRunning(); }));
    EXPECT_NE(m_images->problem().find("The camera was lost"), std::string::npos);
    EXPECT_TRUE(eventually([&] { return threads() <= before; })); // none runs idle
    HeldBus()->plugIn(description());
    EXPECT_EQ(reconnect(), "");
    expectImages(3);
}

TEST_F(Usb, CamerasThatPauseAreFoundAgainAlthoughTheirImagesWereNotStopped)
{
    ASSERT_EQ(open(), "");
    expectImages(1);
    HeldBus()->camera().isSilent = true;
    EXPECT_EQ(readAnew("Gain"), "(read failed)");
    EXPECT_EQ(reconnect(), here + "the camera does not answer");
    HeldBus()->camera().isSilent = false;
    EXPECT_EQ(reconnect(), "");
    expectImages(2);
}

TEST_F(Usb, CamerasThatMayNotBeOpenedAreToldWithWhatToDo)
{
    HeldBus()->opening = LIBUSB_ERROR_ACCESS;
    const std::string permission
        = "no permission to open the USB3 Vision camera 2676:ba02: put this line into "
          "/etc/udev/rules.d/60-usb3-vision.rules and plug it in again: SUBSYSTEM==\"usb\", "
          R"(ENV{ID_USB_INTERFACES}=="*:ef0500:*", MODE="0660", GROUP="plugdev", TAG+="uaccess")";
    EXPECT_EQ(open(), here + "no such camera found; " + permission);
    EXPECT_TRUE(m_found.empty());
    HeldBus()->opening = LIBUSB_SUCCESS;
    ASSERT_EQ(open(), "");
    HeldBus()->plugIn(description());
    HeldBus()->opening = LIBUSB_ERROR_ACCESS;
    EXPECT_TRUE(eventually([this] { return m_camera->camera->isLost(); }));
    EXPECT_EQ(reconnect(), here + permission);
}

// The library complains when it cannot open a camera: it ends a thread that it did not begin.
TEST_F(Usb, VanishingAtAnyMomentOfOpeningAndStartingIsNoMoreThanAFailure)
{
    g_log_set_always_fatal(G_LOG_LEVEL_ERROR);
    HeldBus()->claiming = LIBUSB_ERROR_BUSY;
    EXPECT_EQ(open(),
        here + "the camera is in use: by another program, or for images that were not stopped");
    const std::regex network("network|address|heartbeat|packet|firewall");
    bool isStarted = false;
    int transfers = 0;
    for (; !isStarted; ++transfers) {
        HeldBus()->plugIn(description());
        HeldBus()->transfersLeft = transfers;
        std::string error = open();
        if (error.empty()) {
            isStarted = m_images->start(nullptr) == STATUS_OK;
            error = m_images->lastError();
        }
        EXPECT_NE(error.empty(), !isStarted) << transfers;
        EXPECT_FALSE(std::regex_search(error, network)) << error;
    }
    EXPECT_GT(transfers, 100);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Whatever searches for all kinds of cameras sends nothing to a real network.
    if (const char* reason = testing::GTEST_FLAG(list_tests) ? nullptr : enterPrivateNetwork()) {
        return endWithoutTests(reason);
    }
    g_log_set_always_fatal(static_cast<GLogLevelFlags>(G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL));
    return RUN_ALL_TESTS();
}
