// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsFile.h"

#include "base/GlibError.h"
#include "words/Words.h"

#include <glib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>

namespace zqcameralib {

namespace {
constexpr std::uintmax_t mostBytes = std::uintmax_t(64) << 20U;
}

std::optional<std::string> readSettingsFile(const std::string& path, std::string& error)
{
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    if (failure) {
        error = failure.message();
        return std::nullopt;
    }
    if (size > mostBytes) {
        error = translated("larger than 64 MiB");
        return std::nullopt;
    }
    gchar* content = nullptr;
    gsize length = 0;
    GlibError problem;
    if (g_file_get_contents(path.c_str(), &content, &length, problem.out()) == FALSE) {
        error = problem.get()->message;
        return std::nullopt;
    }
    const std::unique_ptr<gchar, decltype(&g_free)> owned(content, g_free);
    return std::string(content, length);
}

namespace {

/// Into what is no file of its own, as a pipe, nothing may be put in its place.
bool writeInto(const std::string& path, const std::string& text, std::string& error)
{
    std::ofstream stream(path, std::ios::binary);
    stream << text << std::flush;
    error = stream.good() ? "" : path + ": " + g_strerror(errno);
    return stream.good();
}

} // namespace

bool writeSettingsFile(const std::string& path, const std::string& text, std::string& error)
{
    std::error_code none;
    const auto target = std::filesystem::weakly_canonical(path, none); // behind a link
    const std::string place = none ? path : target.string();
    if (std::filesystem::exists(place, none) && !std::filesystem::is_regular_file(place, none)) {
        return writeInto(path, text, error);
    }
    GlibError problem;
    const bool isDone = g_file_set_contents(place.c_str(), text.data(),
                            static_cast<gssize>(text.size()), problem.out())
        != FALSE;
    error = isDone ? "" : problem.get()->message;
    return isDone;
}

} // namespace zqcameralib
