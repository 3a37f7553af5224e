// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>

namespace zqqt {

/// Ends a program that runs on the other Qt with a sentence that names the library to link. Without
/// it this library's Qt would miss an application of its own and say that one has to be made, which
/// the program has done. To be called before the first widget; `library` is named without "Qt6".
inline void refuseOtherQt(const char* library)
{
    constexpr bool isQt5 = QT_VERSION_MAJOR == 5;
    if (QCoreApplication::instance() != nullptr
        || dlopen(isQt5 ? "libQt6Core.so.6" : "libQt5Core.so.5", RTLD_LAZY | RTLD_NOLOAD)
            == nullptr) {
        return;
    }
    std::fprintf(stderr,
        "lib%s%s is made for Qt %d and this program for Qt %d: link lib%s%s instead.\n", library,
        isQt5 ? "" : "Qt6", isQt5 ? 5 : 6, isQt5 ? 6 : 5, library, isQt5 ? "Qt6" : "");
    std::_Exit(EXIT_FAILURE); // no destructors: two Qts would meet in them
}

} // namespace zqqt
