#pragma once

#include <string>
#include <sys/types.h>

/// Aravis' GigE Vision fake camera as a process of its own on 127.0.0.1, so that it can die, stall
/// and come back.
class FakeCamera {
public:
    /// `description` is a file; so many packets in a thousand of the images get lost.
    explicit FakeCamera(std::string description, int imageLoss = 0);
    FakeCamera(const FakeCamera&) = delete;
    FakeCamera& operator=(const FakeCamera&) = delete;
    ~FakeCamera();

    void start();
    void kill();
    void stall() const;
    void resume() const;

    /// Whether the program is there.
    static bool isInstalled();

private:
    std::string m_description;
    std::string m_imageLoss;
    pid_t m_process = -1;
};

/// Puts this process into a network of its own with nothing but loopback; false when the system
/// does not allow it. Before any thread starts.
bool enterPrivateNetwork();
