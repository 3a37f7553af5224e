// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "../TreeUser.h"
#include "FakeCamera.h"
#include "FaultProxy.h"

#include "camera/OpenedCamera.h"
#include "window/ViewerWindow.h"
#include "window/WindowMemory.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

/// What a row shows.
struct Row {
    std::string value;
    /// Whether a user may take it for what the camera holds now.
    bool looksCurrent = false;

    bool operator==(const Row& other) const
    {
        return value == other.value && looksCurrent == other.looksCurrent;
    }
};

/// The features by name, but for commands and for what says who controls the camera.
using Rows = std::map<std::string, Row>;

/// The viewer's window on a camera behind the proxy, used by key and button.
class Viewer : public TreeUser {
public:
    /// Throws std::runtime_error when the camera does not open.
    Viewer();
    /// On a simulated camera in process.
    explicit Viewer(std::unique_ptr<zqcameralib::ZQCamera> camera);
    ~Viewer() override { close(); }

    /// Closes the window and the camera.
    void close();

    std::string title() const;
    Rows rows() const;
    /// Whether there are rows, and all of them look current, or none.
    bool hasAllRows(bool areCurrent) const;
    /// The words in the status bar.
    std::string words() const;
    bool offersReconnect() const;
    bool isBusy() const;

    void pressF5();
    /// When it is offered within some seconds.
    void pressReconnect();
    void pressCancel();

private:
    void show();
    QWidget* window() const override { return m_window.get(); }

    zqviewer::WindowMemory m_memory;
    std::unique_ptr<zqviewer::OpenedCamera> m_camera;
    std::unique_ptr<zqviewer::ViewerWindow> m_window;
};

/// Lets the event loop run until the condition holds; false when it does not in time.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 15000);
