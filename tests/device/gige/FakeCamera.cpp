// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "FakeCamera.h"

#include "PrivateNetwork.h"

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace {

const char* const program = "arv-fake-gv-camera-0.8";
constexpr unsigned controlPort = 3956;
const char* const everybody = "255.255.255.255"; // where discovery comes, for all cameras

} // namespace

FakeCamera::FakeCamera(
    std::string description, int imageLoss, std::string address, std::string serial)
    : m_description(std::move(description))
    , m_imageLoss(std::to_string(imageLoss))
    , m_address(std::move(address))
    , m_serial(std::move(serial))
{
    if (m_address != usualAddress && !addAddress(m_address)) {
        throw std::runtime_error("no address " + m_address + " for the camera process");
    }
    start();
}

FakeCamera::~FakeCamera()
{
    kill();
    if (m_address != usualAddress) {
        removeAddress(m_address);
    }
}

void FakeCamera::start()
{
    if (!eventually([this] { return countListeners(m_address, controlPort) == 0; })) {
        throw std::runtime_error("another process has the camera's port at " + m_address);
    }
    for (int tries = 0; tries < 3; ++tries) {
        const int others = countListeners(everybody, controlPort);
        spawn();
        if (comesUp(others)) {
            return;
        }
        kill();
    }
    throw std::runtime_error("the camera process does not come up at " + m_address);
}

void FakeCamera::spawn()
{
    m_process = fork();
    if (m_process < 0) {
        throw std::runtime_error("no more processes");
    }
    if (m_process > 0) {
        return;
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int none = open("/dev/null", O_WRONLY);
    dup2(none, 1);
    dup2(none, 2);
    execlp(program, program, "-i", m_address.c_str(), "-s", m_serial.c_str(), "-g",
        m_description.c_str(), "-r", m_imageLoss.c_str(), nullptr);
    _exit(127);
}

bool FakeCamera::comesUp(int others)
{
    bool ended = false;
    const bool known = eventually([&] {
        ended = waitpid(m_process, nullptr, WNOHANG) != 0;
        // The socket for discovery is opened last.
        return ended
            || (countListeners(m_address, controlPort) > 0
                && countListeners(everybody, controlPort) > others);
    });
    if (ended) {
        m_process = -1;
    }
    return known && !ended;
}

void FakeCamera::kill()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        m_process = -1;
    }
}

void FakeCamera::stall()
{
    signalAndAwait(SIGSTOP, WUNTRACED);
}

void FakeCamera::resume()
{
    signalAndAwait(SIGCONT, WCONTINUED);
}

void FakeCamera::signalAndAwait(int signal, int option)
{
    int status = 0;
    ::kill(m_process, signal);
    waitpid(m_process, &status, option);
    if (!WIFSTOPPED(status) && !WIFCONTINUED(status)) {
        m_process = -1;
        throw std::runtime_error("the camera process is gone");
    }
}

bool FakeCamera::isInstalled()
{
    return std::system((std::string("command -v ") + program + " > /dev/null").c_str()) == 0;
}

namespace {

using Changes = std::initializer_list<std::pair<const char*, std::string>>;

/// A camera on 127.0.0.4 whose description has other words in it.
std::unique_ptr<FakeCamera> changed(const Changes& changes, const char* serial)
{
    std::stringstream text;
    text << std::ifstream(ZQ_SIMULATED_CAMERA_XML).rdbuf();
    std::string description = text.str();
    for (const auto& [from, to] : changes) {
        description = std::regex_replace(description, std::regex(from), to);
    }
    const std::string path
        = std::filesystem::temp_directory_path() / std::to_string(getpid()).append(".xml");
    std::ofstream(path) << description;
    auto camera = std::make_unique<FakeCamera>(path, 0, "127.0.0.4", serial);
    std::filesystem::remove(path); // it has been read
    return camera;
}

} // namespace

std::unique_ptr<FakeCamera> otherModel()
{
    return changed({ { "<pFeature>Gamma</pFeature>", "" }, { "AreaScan2K", "Another" } }, "GV02");
}

std::unique_ptr<FakeCamera> olderSchema()
{
    return changed({ { "SchemaMinorVersion=\"1\"", "SchemaMinorVersion=\"0\"" } }, "GV03");
}

std::unique_ptr<FakeCamera> oddRegisters()
{
    const auto placed = [](const std::string& begin, const std::string& end) {
        return "<" + begin + "</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></" + end
            + ">";
    };
    const std::string nodes
        = placed("StringReg Name=\"Words\"><Address>0xE000</Address><Length>6", "StringReg")
        + placed("IntReg Name=\"Odd\"><Address>0xE006</Address><Length>2", "IntReg")
        + placed("IntReg Name=\"Far\"><Address>0x10000E006</Address><Length>2", "IntReg");
    return changed(
        { { "<pFeature>Gamma</pFeature>",
              "<pFeature>Words</pFeature><pFeature>Odd</pFeature><pFeature>Far</pFeature>" },
            { "<Port Name=\"Device\"", nodes + "<Port Name=\"Device\"" } },
        "GV05");
}
