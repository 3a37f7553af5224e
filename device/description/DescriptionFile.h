// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace zqcameralib {

/// Reads a description file: XML text, or a zip archive whose first XML file is taken. Returns
/// false and sets `error` to one line for the user when there is no such file, it is empty or too
/// large, or the archive is damaged.
bool readDescriptionFile(const std::string& path, std::string& text, std::string& error);

} // namespace zqcameralib
