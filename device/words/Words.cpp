// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "words/Words.h"

#include <dlfcn.h>
#include <glib.h>
#include <libintl.h>

#include <array>
#include <cstdarg>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace zqcameralib {

namespace {

namespace fs = std::filesystem;

/// From the library's folder: where it is installed, and in a tree that was built or moved.
constexpr std::array<const char*, 2> placesOfCatalogues { ZQ_LIBRARY_TO_LOCALES,
    "../share/locale" };

/// Whatever links lead there: the loader may have come by /lib, which is /usr/lib.
fs::path ownFolder()
{
    static const char within = 0;
    Dl_info library {};
    std::error_code ignored;
    const bool isKnown = dladdr(&within, &library) != 0 && library.dli_fname != nullptr;
    return isKnown ? fs::canonical(library.dli_fname, ignored).parent_path() : fs::path();
}

/// Relative to the library and not to a prefix, since what is installed can be moved.
bool bindCatalogue()
{
    const fs::path own = ownFolder();
    std::error_code ignored;
    for (const char* place : placesOfCatalogues) {
        const fs::path folder = own / place; // never the program's present one
        if (!own.empty()
            && fs::exists(folder / "de" / "LC_MESSAGES" / ZQ_TEXT_DOMAIN ".mo", ignored)) {
            bindtextdomain(ZQ_TEXT_DOMAIN, folder.c_str());
            bind_textdomain_codeset(ZQ_TEXT_DOMAIN, "UTF-8");
            return true;
        }
    }
    return false;
}

/// `english` itself where there is no translation.
__attribute__((format_arg(1))) const char* translationOf(const char* english)
{
    static const bool hasCatalogue = bindCatalogue();
    return hasCatalogue && *english != '\0' ? g_dgettext(ZQ_TEXT_DOMAIN, english) : english;
}

__attribute__((format(printf, 1, 0))) std::string filledIn(
    const char* format, std::va_list arguments)
{
    std::va_list copy;
    va_copy(copy, arguments);
    const std::unique_ptr<char, decltype(&g_free)> text(g_strdup_vprintf(format, copy), g_free);
    va_end(copy);
    return text.get();
}

} // namespace

Words::Words(std::string text, std::string english)
    : m_text(std::move(text))
    , m_english(std::make_shared<const std::string>(std::move(english)))
{
}

Words Words::behind(std::size_t size) const
{
    std::string text = m_text.substr(size);
    return m_english ? Words(std::move(text), m_english->substr(size)) : Words(std::move(text));
}

Words operator+(const Words& first, const Words& second)
{
    std::string text = first.text() + second.text();
    return first.isSameInEnglish() && second.isSameInEnglish()
        ? Words(std::move(text))
        : Words(std::move(text), first.english() + second.english());
}

Words translated(const char* english)
{
    const char* const translation = translationOf(english);
    return translation == english ? Words(english) : Words(translation, english);
}

Words worded(const char* english, ...)
{
    const char* const translation = translationOf(english);
    std::va_list arguments;
    va_start(arguments, english);
    Words words = filledIn(english, arguments);
    if (translation != english) {
        words = Words(filledIn(translation, arguments), words.text());
    }
    va_end(arguments);
    return words;
}

} // namespace zqcameralib
