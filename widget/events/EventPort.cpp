// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "events/EventPort.h"

#include <exception>

namespace featurebrowser {

void EventPort::raise(const std::string& name, const ReceiverEvent& event)
{
    if (m_receiver == nullptr) {
        return;
    }
    try {
        event(*m_receiver);
    } catch (const std::exception& error) {
        Q_EMIT failed(name, tr("Internal error: %1").arg(QString::fromUtf8(error.what())));
    } catch (...) {
        Q_EMIT failed(name, tr("Internal error"));
    }
}

} // namespace featurebrowser
