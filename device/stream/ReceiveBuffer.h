// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "stream/StreamWords.h"

#include <arv.h>

namespace zqcameralib {

/// Lets the stream ask the system for a receive buffer of several images, and notes in `facts` how
/// much it wanted and got. Nothing is asked for where the stream takes packets from the network
/// card's ring, which only programs with CAP_NET_RAW may.
void makeReceiveBuffer(ArvGvDevice* device, ArvStream* stream, int images, StreamFacts& facts);

} // namespace zqcameralib
