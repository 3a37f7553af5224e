// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

/// Registers of Aravis' fake camera.
namespace place {
constexpr std::uint32_t width = 0x100;
constexpr std::uint32_t height = 0x104;
constexpr std::uint32_t acquisition = 0x124; ///< 1 while images are taken
/// Who controls the camera; 0 nobody. Reading it keeps who does in control.
constexpr std::uint32_t control = 0xA00;
} // namespace place

/// A register of the camera on 127.0.0.1, asked by a packet of our own past everything else. Throws
/// std::runtime_error when it does not answer.
std::uint32_t readRegister(std::uint32_t address);
