#include "FakeCamera.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

namespace {

const char* const program = "arv-fake-gv-camera-0.8";

/// Whether somebody has the control port of 127.0.0.1.
bool isListening()
{
    const int handle = socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_port = htons(3956);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool isFree
        = bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(handle);
    return !isFree;
}

} // namespace

FakeCamera::FakeCamera(std::string description, int imageLoss)
    : m_description(std::move(description))
    , m_imageLoss(std::to_string(imageLoss))
{
    start();
}

FakeCamera::~FakeCamera()
{
    kill();
}

void FakeCamera::start()
{
    m_process = fork();
    if (m_process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int none = open("/dev/null", O_WRONLY);
        dup2(none, 1);
        dup2(none, 2);
        execlp(program, program, "-i", "127.0.0.1", "-g", m_description.c_str(), "-r",
            m_imageLoss.c_str(), nullptr);
        _exit(127);
    }
    for (int tries = 0; tries < 500 && !isListening(); ++tries) {
        usleep(10000);
    }
}

void FakeCamera::kill()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        m_process = -1;
    }
}

void FakeCamera::stall() const
{
    ::kill(m_process, SIGSTOP);
}
void FakeCamera::resume() const
{
    ::kill(m_process, SIGCONT);
}

bool FakeCamera::isInstalled()
{
    return std::system((std::string("command -v ") + program + " > /dev/null").c_str()) == 0;
}

bool enterPrivateNetwork()
{
    if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) {
        return false;
    }
    const int handle = socket(AF_INET, SOCK_DGRAM, 0);
    ifreq request {};
    std::strncpy(request.ifr_name, "lo", IFNAMSIZ - 1);
    bool done = ioctl(handle, SIOCGIFFLAGS, &request) == 0;
    request.ifr_flags = static_cast<short>(request.ifr_flags | IFF_UP);
    done = done && ioctl(handle, SIOCSIFFLAGS, &request) == 0;
    close(handle);
    return done;
}
