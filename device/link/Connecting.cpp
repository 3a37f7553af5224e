// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "link/Connecting.h"

#include "base/StatusCodes.h"
#include "session/DeviceOpening.h"
#include "words/Words.h"

#include <utility>

namespace zqcameralib {

void Connecting::run()
{
    status = askForAnswer(place, *progress);
    if (status.isOk()) {
        session ? findAgain() : openAnew();
    }
    isReadOnly = isReadOnly || access == CameraAccess::ReadOnly;
    isOver = true;
}

void Connecting::refuseControl()
{
    status = { accessDenied, place.words(translated("another application controls the camera")) };
}

void Connecting::findAgain()
{
    Status refusal;
    switch (session->retake(access == CameraAccess::ReadOnly, refusal)) {
    case CameraSession::Retaken::Yes:
        return;
    case CameraSession::Retaken::Denied:
        isReadOnly = true;
        if (access == CameraAccess::Control) {
            refuseControl();
        }
        return;
    case CameraSession::Retaken::Refused:
        status = refusal.withText(place.words(refusal.words()));
        return;
    case CameraSession::Retaken::OtherCamera:
        isOtherCamera = true;
        session->leaveControl(); // a stream may keep the session's device
        break;
    case CameraSession::Retaken::No:
        break;
    }
    // The old session ends before a new one begins: it would give the control away at its end.
    session.reset();
    openAnew();
}

void Connecting::openAnew()
{
    Result<std::shared_ptr<CameraSession>> opened = CameraSession::open(place, *progress);
    status = opened.status();
    session = std::move(opened.value());
    if (!session) {
        return;
    }
    description = session->description();
    if (access == CameraAccess::ReadOnly) {
        session->leaveControl();
    } else if (access == CameraAccess::Control && !session->isController()) {
        refuseControl();
        session.reset();
    }
    isReadOnly = session && !session->isController();
}

} // namespace zqcameralib
