// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/Status.h"

#include "base/AravisVersions.h"
#include "base/StatusCodes.h"
#include "words/Words.h"

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

Status::Status(int code, Words words)
    : m_code(code == 0 ? otherErrorBase : code)
    , m_words(std::move(words))
{
    if (m_words.empty()) {
        m_words = statusText(m_code);
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

Status Status::withText(Words words) const
{
    return isOk() ? *this : Status(m_code, std::move(words));
}

} // namespace zqcameralib
