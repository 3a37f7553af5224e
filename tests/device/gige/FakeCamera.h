// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "../Eventually.h"

#include <memory>
#include <string>
#include <sys/types.h>

/// Aravis' GigE Vision fake camera as a process of its own, so that it can die, stall and come
/// back. Whatever does not happen within some seconds is thrown as std::runtime_error.
class FakeCamera {
public:
    static constexpr const char* usualAddress = "127.0.0.1";

    /// `description` is a file; so many packets in a thousand of the images get lost. Several at
    /// once need addresses (127.0.0.3 and up) and serial numbers of their own.
    explicit FakeCamera(std::string description, int imageLoss = 0,
        std::string address = usualAddress, std::string serial = "GV01");
    FakeCamera(const FakeCamera&) = delete;
    FakeCamera& operator=(const FakeCamera&) = delete;
    ~FakeCamera();

    /// Returns when the camera listens.
    void start();
    void kill();
    void restart()
    {
        kill();
        start();
    }
    /// Returns when all of the camera stands still.
    void stall();
    /// After stall(); returns when it runs again.
    void resume();

    /// Whether the program is there.
    static bool isInstalled();

private:
    void spawn();
    bool comesUp(int others);
    void signalAndAwait(int signal, int option);

    std::string m_description;
    std::string m_imageLoss;
    std::string m_address;
    std::string m_serial;
    pid_t m_process = -1;
};

/// Another model at 127.0.0.4, "Another" by name, GV02 by serial number, and without Gamma.
std::unique_ptr<FakeCamera> otherModel();
/// The usual camera, on 127.0.0.4, with a description of schema 1.0.
std::unique_ptr<FakeCamera> olderSchema();
/// The usual camera, on 127.0.0.4, with the text Words of 6 bytes and the number Odd in the two
/// bytes behind it; Far has the same address beyond 32 bits.
std::unique_ptr<FakeCamera> oddRegisters();
