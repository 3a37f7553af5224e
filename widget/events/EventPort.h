// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/IEventFeatureReceiver.h"

#include <QObject>
#include <QString>

#include <functional>

namespace featurebrowser {

/// One call of one of the receiver's operations.
using ReceiverEvent = std::function<void(IEventFeatureReceiver&)>;

/// The way out for everything that the user does. Whatever a receiver throws ends here, before it
/// reaches Qt's event loop, and comes back as failed().
class EventPort : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Not owned, may be null: then nothing is raised.
    void setReceiver(IEventFeatureReceiver* receiver) { m_receiver = receiver; }
    bool hasReceiver() const { return m_receiver != nullptr; }
    /// `name` is the row that the event is about; empty = the window.
    void raise(const std::string& name, const ReceiverEvent& event);

Q_SIGNALS:
    void failed(const std::string& name, const QString& message);

private:
    IEventFeatureReceiver* m_receiver = nullptr;
};

} // namespace featurebrowser
