// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <dlfcn.h>
#include <link.h>

#include <cstddef>

/// Keeps the libraries that are loaded now until the process ends, so that a leak report can name
/// them.
inline void keepLoadedLibraries()
{
    dl_iterate_phdr(
        [](dl_phdr_info* library, std::size_t, void*) {
            dlopen(library->dlpi_name, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
            return 0;
        },
        nullptr);
}
