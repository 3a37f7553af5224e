// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "program/CameraChoice.h"

#include "featurebrowser/FeatureTypes.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace zqviewer {

/// Something to be done with the camera.
struct CameraAction {
    enum class Kind { Get, Set, Run, Capture, Save, Load, Compare };
    Kind kind;
    QString argument; ///< "Width", "Width=640", "DeviceReset" or the number of images
    QString file; ///< of images or settings
};

/// What the user asked for on the command line.
struct CommandLine {
    bool namesCamera = false; ///< real or simulated; else the user is asked
    CameraChoice choice;
    std::vector<CameraAction> actions; ///< in the order given
    bool isDryRun = false; ///< settings are not loaded, it is only told what would be written
    /// Two files of settings to be compared, without any camera; empty when there are none.
    QStringList compared;
    bool report = false; ///< print what a support engineer needs and exit
    std::optional<featurebrowser::TYPE_LEVEL> level; ///< none given: as it was last
    bool isLive = false; ///< images start at once
    bool list = false; ///< print the cameras found and exit
    bool dump = false; ///< print the tree as JSON and exit
    bool print = false; ///< print the tree as readable text and exit
    QString screenshot; ///< write a picture of the window to this file and exit; empty = do not

    bool showsTree() const { return dump || print || !screenshot.isEmpty(); }
    bool needsNoWindow() const
    {
        return showsTree() || report || !actions.empty() || !compared.isEmpty();
    }
};

/// Reads the arguments (the first is the program's name; Qt's own options are left to it). Ends the
/// program itself for --help, --help-all and --version; on bad arguments returns false and sets
/// `error` to one line.
bool parseCommandLine(const QStringList& arguments, CommandLine& result, QString& error);

} // namespace zqviewer
