#pragma once

#include "FakeCamera.h"
#include "FaultProxy.h"

#include "camera/OpenedCamera.h"
#include "window/ViewerWindow.h"

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
class Viewer {
public:
    /// Throws std::runtime_error when the camera does not open.
    Viewer();
    ~Viewer() { close(); }

    /// Closes the window and the camera.
    void close();

    std::string title() const;
    Rows rows() const;
    /// Whether there are rows, and all of them look current, or none.
    bool hasAllRows(bool areCurrent) const;
    std::string role(const char* name, const char* role) const;
    /// The words in the status bar.
    std::string words() const;
    bool offersReconnect() const;
    bool isBusy() const;

    void pressF5();
    /// When it is offered within some seconds.
    void pressReconnect();
    /// Opens the row's editor, replaces its text and presses Enter.
    void type(const char* name, const char* text);
    /// Runs a command; opens the editor of anything else.
    void press(const char* name);
    void pressCancel();

private:
    QModelIndex row(const char* name) const;

    std::unique_ptr<zqviewer::OpenedCamera> m_camera;
    std::unique_ptr<zqviewer::ViewerWindow> m_window;
};

/// Lets the event loop run until the condition holds; false when it does not in time.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 15000);
