// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>
#include <string>

namespace featurebrowser {

/// The IPv4 address that a user typed, without the blanks around it; nothing when it is none: four
/// decimal numbers from 0 to 255 with points between.
std::optional<std::string> readIpv4(const QString& text);

/// The MAC address that a user typed, as convertToMACAddress writes it; nothing when it is none:
/// six pairs of hexadecimal digits with ':' or '-' between, three groups of four with points, or
/// twelve digits.
std::optional<std::string> readMac(const QString& text);

/// The number of an address that readMac gave.
long macNumber(const std::string& address);

} // namespace featurebrowser
