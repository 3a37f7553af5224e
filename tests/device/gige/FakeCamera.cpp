#include "FakeCamera.h"

#include "PrivateNetwork.h"

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <thread>
#include <utility>

namespace {

const char* const program = "arv-fake-gv-camera-0.8";
constexpr unsigned controlPort = 3956;
const char* const everybody = "255.255.255.255"; // where discovery comes, for all cameras
constexpr auto patience = std::chrono::seconds(10);

bool waitFor(const std::function<bool()>& condition)
{
    const auto start = std::chrono::steady_clock::now();
    while (!condition()) {
        if (std::chrono::steady_clock::now() - start > patience) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

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
    if (!waitFor([this] { return countListeners(m_address, controlPort) == 0; })) {
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
    const bool known = waitFor([&] {
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
    const bool changed
        = waitFor([&] { return waitpid(m_process, &status, option | WNOHANG) == m_process; });
    if (!changed || WIFEXITED(status) || WIFSIGNALED(status)) {
        m_process = changed ? -1 : m_process;
        throw std::runtime_error("the camera process does not obey, or is gone");
    }
}

bool FakeCamera::isInstalled()
{
    return std::system((std::string("command -v ") + program + " > /dev/null").c_str()) == 0;
}
