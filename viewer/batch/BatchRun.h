// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "program/CommandLine.h"

#include <QByteArray>

#include <memory>

namespace zqviewer {

/// Says it on standard error in one line, whatever the text holds. Returns the exit status of a
/// program that has failed.
int fail(const QString& error);

/// Writes all of it to standard output; where that fails, says why on standard error and returns
/// false.
bool print(const QByteArray& text);

/// Prints the cameras found, one to a line. Returns the program's exit status.
int listCameras();

/// Opens the camera that the options name, real or simulated, loads its repository, and waits for
/// that. Null, and one line in `error`, on failure.
std::unique_ptr<OpenedCamera> openAndLoad(const CommandLine& options, QString& error);

/// Carries out the actions, prints the tree or writes the picture, as the options say. Returns the
/// program's exit status. `argc` and `argv` as for QApplication, which must not exist yet.
int runBatch(const CommandLine& options, OpenedCamera& camera, int& argc, char** argv);

} // namespace zqviewer
