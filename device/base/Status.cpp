#include "base/Status.h"

#include "base/StatusCodes.h"

#include <arv.h>

#include <utility>

namespace zqcameralib {

namespace {

/// Marks errors that carry a status code of ours through the library below.
GQuark ownDomain()
{
    return g_quark_from_static_string("zq-status");
}

/// None is 0, though the codes of the library below start there.
int codeOf(const GError& error)
{
    if (error.domain == ownDomain()) {
        return error.code;
    }
    if (error.domain == arv_device_error_quark()) {
        return deviceErrorBase + error.code;
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

bool Status::toLibrary(GError** error) const
{
    if (!isOk() && error != nullptr && *error == nullptr) {
        *error = g_error_new_literal(ownDomain(), m_code, m_text.c_str());
    }
    return isOk();
}

Status Status::withText(std::string text) const
{
    return isOk() ? *this : Status(m_code, std::move(text));
}

} // namespace zqcameralib
