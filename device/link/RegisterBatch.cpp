// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "link/RegisterBatch.h"

#include <utility>

namespace zqcameralib {

RegisterBatch::RegisterBatch(RegisterBackend::Requests requests)
    : m_requests(std::move(requests))
{
}

void RegisterBatch::readAll(CameraSession& session)
{
    while (!m_hasFailed && readNext(session)) { }
}

/// The access itself is done on a copy: who has waited long enough takes what is there.
bool RegisterBatch::readNext(CameraSession& session)
{
    std::unique_lock<std::mutex> looking(m_mutex);
    if (m_isEnded || m_next == m_requests.size()) {
        return false;
    }
    RegisterBackend::Request request = m_requests[m_next];
    looking.unlock();
    request.status = session.read(request.place, request.bytes.data(), request.kind);
    request.isDone = request.status.isOk();
    m_hasFailed = m_hasFailed || !request.isDone;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_isEnded) {
        return false;
    }
    m_requests[m_next++] = std::move(request);
    return m_next < m_requests.size();
}

RegisterBackend::Requests RegisterBatch::end()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isEnded = true;
    m_taken = m_next;
    return std::exchange(m_requests, {});
}

RegisterBackend::Requests RegisterBatch::takeFinished()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    RegisterBackend::Requests finished;
    for (; m_taken < m_next; ++m_taken) {
        finished.push_back(std::move(m_requests[m_taken]));
    }
    return finished;
}

ReadingBeside::ReadingBeside(AccessThread& thread, const std::shared_ptr<CameraSession>& session,
    RegisterBackend::Requests requests)
    : m_batch(std::make_shared<RegisterBatch>(std::move(requests)))
{
    thread.repeatBehind([weak = std::weak_ptr<CameraSession>(session), batch = m_batch] {
        const std::shared_ptr<CameraSession> present = weak.lock();
        return present && batch->readNext(*present);
    });
}

} // namespace zqcameralib
