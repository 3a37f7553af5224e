// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <glib-object.h>

#include <memory>

namespace zqcameralib {

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// Owns one reference to an object of the libraries below.
template <typename Object> using GObjectPointer = std::unique_ptr<Object, GObjectUnref>;

} // namespace zqcameralib
