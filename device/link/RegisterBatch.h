// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/AccessThread.h"
#include "session/CameraSession.h"

#include <mutex>

namespace zqcameralib {

/// Registers that are read one after the other on the access thread, while another thread may
/// already take what is there, or end it.
class RegisterBatch {
public:
    explicit RegisterBatch(RegisterBackend::Requests requests);

    /// Reads what has not been read yet, up to the first failure.
    void readAll(CameraSession& session);
    /// Reads the next one, whatever became of those before; false when it was the last.
    bool readNext(CameraSession& session);
    /// Ends the reading; all requests, done or not.
    RegisterBackend::Requests end();
    /// Those finished since the last call.
    RegisterBackend::Requests takeFinished();

private:
    std::mutex m_mutex;
    RegisterBackend::Requests m_requests;
    std::size_t m_next = 0; ///< to be read
    std::size_t m_taken = 0;
    bool m_isEnded = false;
    bool m_hasFailed = false; ///< known to the access thread only
};

/// A batch behind everything else on the access thread.
class ReadingBeside : public RegisterBackend::Reading {
public:
    /// Does not keep the session: one that is replaced has to end before the next begins.
    ReadingBeside(AccessThread& thread, const std::shared_ptr<CameraSession>& session,
        RegisterBackend::Requests requests);
    ~ReadingBeside() override { m_batch->end(); }

    RegisterBackend::Requests takeFinished() override { return m_batch->takeFinished(); }

private:
    std::shared_ptr<RegisterBatch> m_batch;
};

} // namespace zqcameralib
