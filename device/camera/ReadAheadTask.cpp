// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/ReadAheadTask.h"

#include "words/Words.h"

namespace zqcameralib {

ReadAheadTask::ReadAheadTask(RepositoryImpl& repository, bool onlyOutstanding)
    : m_repository(repository)
{
    m_repository.beginReadAhead(onlyOutstanding);
    m_ahead = m_repository.readAhead();
}

ReadAheadTask::~ReadAheadTask()
{
    ReadAheadTask::cancel();
}

ZQCameraTask::State ReadAheadTask::poll()
{
    if (m_state != State::Running) {
        return m_state;
    }
    if (m_repository.readAhead() != m_ahead) { // a load has taken it, or another has begun
        m_state = State::Done;
        return m_state;
    }
    switch (m_repository.readAhead()->step()) {
    case ReadAhead::State::Running:
        break;
    case ReadAhead::State::Done:
        progress();
        m_state = State::Done;
        break;
    case ReadAhead::State::Failed:
        m_error = m_repository.lossText();
        m_repository.endReadAhead();
        m_state = State::Failed;
    }
    return m_state;
}

ZQCameraTask::Progress ReadAheadTask::progress() const
{
    if (m_state == State::Running && m_repository.readAhead() == m_ahead) {
        m_progress = { translated("Reading the features"), m_ahead->done(), m_ahead->total() };
    }
    return m_progress;
}

void ReadAheadTask::cancel()
{
    if (m_state == State::Running && m_repository.readAhead() == m_ahead) {
        m_repository.endReadAhead();
    }
    m_state = m_state == State::Running ? State::Cancelled : m_state;
}

} // namespace zqcameralib
