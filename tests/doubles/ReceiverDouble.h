// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "../EventEar.h"
#include "Journal.h"

namespace doubles {

/// The application's receiver.
class ReceiverDouble : public EventEar<ReceiverDouble> {
public:
    template <class... T> void hear(const std::string& event, const T&... arguments)
    {
        note(("receiver." + event).c_str(), arguments...);
    }
};

} // namespace doubles
