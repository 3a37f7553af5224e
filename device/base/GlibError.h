// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <glib.h>

namespace zqcameralib {

/// Receives an error of the library below: pass out(), then test it.
class GlibError {
public:
    GlibError() = default;
    GlibError(const GlibError&) = delete;
    GlibError& operator=(const GlibError&) = delete;
    ~GlibError() { g_clear_error(&m_error); }

    GError** out()
    {
        g_clear_error(&m_error);
        return &m_error;
    }
    explicit operator bool() const { return m_error != nullptr; }
    const GError* get() const { return m_error; }

private:
    GError* m_error = nullptr;
};

} // namespace zqcameralib
