// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "program/CameraChoice.h"

#include <QSettings>
#include <QString>

#include <vector>

namespace zqviewer {

/// The cameras and descriptions that were opened lately, in the user's settings; the newest first,
/// ten at most.
class RecentCameras {
public:
    struct Entry {
        QString words; ///< for the user
        QString description; ///< as in CameraChoice, of which one is empty
        QString camera;
    };

    RecentCameras();
    std::vector<Entry> entries() const;
    /// In front of all; one of the same camera or file goes.
    void add(const Entry& entry);
    /// The camera, as `name`, in front of all; nothing for the built-in simulated one.
    void add(const CameraChoice& choice, const QString& name);

private:
    mutable QSettings m_settings;
};

} // namespace zqviewer
