// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameSource.h"
#include "stream/ImagePart.h"
#include "stream/StreamOpening.h"

namespace zqcameralib {

/// The frames of a real camera's stream. They end when the camera is lost or found again.
class StreamFrames : public FrameSource {
public:
    /// Takes over a stream that was opened over this connection.
    StreamFrames(SessionAccess& access, std::uint64_t connection, OpenStream open);
    /// Ends the stream on the camera's access thread, which may outlast this.
    ~StreamFrames() override;

    Outcome next(featurebrowser::ZQFrame& frame) override;
    std::uint64_t lost() const override;
    FrameTroubles troubles() const override;
    std::string warning() const override { return receiveBufferWords(m_open.facts); }
    std::string whyNothing() const override;

private:
    void giveBack();
    void endHere();

    SessionAccess& m_access;
    std::shared_ptr<LinkHealth> m_health;
    std::shared_ptr<CameraSession::Health> m_session;
    std::uint64_t m_connection;
    OpenStream m_open;
    ArvBuffer* m_current = nullptr; ///< handed out, to be given back
    Chunks m_chunks; ///< of that
    FrameTroubles m_troubles; ///< counted here; all of them when the stream has ended
    std::uint64_t m_incomplete = 0;
    std::uint64_t m_withoutImage = 0;
};

} // namespace zqcameralib
