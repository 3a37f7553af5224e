// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Repository.h"

#include "featurebrowser/ZQCameraTask.h"

namespace zqcameralib {

/// A repository's reading ahead, as an application sees it.
class ReadAheadTask final : public ZQCameraTask {
public:
    using RepositoryImpl = featurebrowser::ZQCameraRepository::Impl;

    ReadAheadTask(RepositoryImpl& repository, bool onlyOutstanding);
    ~ReadAheadTask() override;

    State poll() override;
    Progress progress() const override;
    void cancel() override;
    std::string error() const override { return m_error; }

private:
    RepositoryImpl& m_repository;
    const ReadAhead* m_ahead; ///< the repository's, as long as it is this one
    State m_state = State::Running;
    std::string m_error;
    mutable Progress m_progress;
};

} // namespace zqcameralib
