// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/SimulatedOpening.h"

#include "program/Words.h"

#include <QFile>

#include <thread>

namespace zqviewer {

using zqcameralib::ZQCamera;

SimulatedOpening::SimulatedOpening(const QString& description)
{
    const std::string path = QFile::encodeName(description).toStdString();
    std::packaged_task<Opened()> opening([path] {
        Opened opened;
        opened.camera = path.empty() ? ZQCamera::OpenSimulated(opened.error)
                                     : ZQCamera::OpenDescription(path, opened.error);
        return opened;
    });
    m_opening = opening.get_future();
    std::thread(std::move(opening)).detach();
}

zqcameralib::ZQCameraTask::State SimulatedOpening::poll()
{
    if (m_state == State::Running
        && m_opening.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        m_opened = m_opening.get();
        m_state = m_opened.camera ? State::Done : State::Failed;
    }
    return m_state;
}

zqcameralib::ZQCameraTask::Progress SimulatedOpening::progress() const
{
    return { Words::tr("Reading the description").toStdString(), 0, 0 };
}

void SimulatedOpening::cancel()
{
    if (m_state == State::Running) {
        m_state = State::Cancelled;
    }
}

std::string SimulatedOpening::error() const
{
    return m_opened.error;
}

} // namespace zqviewer
