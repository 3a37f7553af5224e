// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/Status.h"

#include "base/AravisVersions.h"
#include "base/StatusCodes.h"

#include <utility>

namespace zqcameralib {

namespace {

/// None is 0, though the codes of the library below start there.
int codeOf(const GError& error)
{
    if (error.domain == arv_device_error_quark()) {
        return deviceErrorBase + aravis::deviceErrorCode(error);
    }
    return (error.domain == arv_gc_error_quark() ? nodeMapErrorBase : otherErrorBase) + error.code;
}

} // namespace

Status::Status(int code, std::string text)
    : m_code(code == 0 ? otherErrorBase : code)
    , m_text(std::move(text))
{
    if (m_text.empty()) {
        m_text = statusText(m_code);
    }
}

Status Status::general(int code)
{
    return { code, {} };
}

Status Status::fromLibrary(const GError& error)
{
    return { codeOf(error), error.message };
}

Status Status::withText(std::string text) const
{
    return isOk() ? *this : Status(m_code, std::move(text));
}

} // namespace zqcameralib
