#pragma once

#include <string>
#include <sys/types.h>

/// Aravis' GigE Vision fake camera as a process of its own on 127.0.0.1, so that it can die, stall
/// and come back.
class FakeCamera {
public:
    /// `description` is a file.
    explicit FakeCamera(std::string description);
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
    pid_t m_process = -1;
};

/// Puts this process into a network of its own with nothing but loopback; false when the system
/// does not allow it. Before any thread starts.
bool enterPrivateNetwork();
