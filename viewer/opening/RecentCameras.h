#pragma once

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
        QString description; ///< file to simulate; empty for a real camera
        QString camera; ///< as for zqcameralib::ZQCamera::Open
    };

    RecentCameras();
    std::vector<Entry> entries() const;
    /// In front of all; one of the same camera or file goes.
    void add(const Entry& entry);

private:
    mutable QSettings m_settings;
};

} // namespace zqviewer
