// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/DescriptionFile.h"

#include "words/Words.h"

#include <glib.h>
#include <minizip/unzip.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <type_traits>

namespace zqcameralib {

namespace {

/// Real descriptions reach 1.3 MB.
constexpr std::uintmax_t maxFileSize = 32U << 20U;

using Archive = std::unique_ptr<std::remove_pointer_t<unzFile>, int (*)(unzFile)>;

bool endsWithXml(const std::string& name)
{
    return name.size() >= 4 && g_ascii_strcasecmp(name.c_str() + name.size() - 4, ".xml") == 0;
}

bool findXml(unzFile archive)
{
    for (int found = unzGoToFirstFile(archive); found == UNZ_OK; found = unzGoToNextFile(archive)) {
        std::array<char, 512> name {};
        if (unzGetCurrentFileInfo64(
                archive, nullptr, name.data(), name.size() - 1, nullptr, 0, nullptr, 0)
                == UNZ_OK
            && endsWithXml(name.data())) {
            return true;
        }
    }
    return false;
}

/// The size that the archive states is not trusted.
bool inflate(unzFile archive, std::string& text)
{
    if (unzOpenCurrentFile(archive) != UNZ_OK) {
        return false;
    }
    std::array<char, 65536> block {};
    int count = 0;
    while ((count = unzReadCurrentFile(archive, block.data(), block.size())) > 0) {
        text.append(block.data(), static_cast<std::size_t>(count));
        if (text.size() > maxFileSize) {
            return false;
        }
    }
    return unzCloseCurrentFile(archive) == UNZ_OK && count == 0;
}

bool unzip(const std::string& path, std::string& text, std::string& error)
{
    const Archive archive(unzOpen(path.c_str()), &unzClose);
    if (!archive || !findXml(archive.get())) {
        error = path + ": " + translated("the archive holds no XML file");
        return false;
    }
    text.clear();
    if (!inflate(archive.get(), text)) {
        error = path + ": " + translated("the archive is damaged or too large");
        return false;
    }
    return true;
}

} // namespace

bool readDescriptionFile(const std::string& path, std::string& text, std::string& error)
{
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(path, failure);
    if (!std::filesystem::exists(status)) {
        error = path + ": " + translated("no such file");
        return false;
    }
    if (!std::filesystem::is_regular_file(status)) {
        error = path + ": " + translated("not a file");
        return false;
    }
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    if (failure || size > maxFileSize) {
        error = path + ": " + translated("too large for a camera description");
        return false;
    }
    text.resize(size);
    std::ifstream file(path, std::ios::binary);
    if (!file.read(text.data(), static_cast<std::streamsize>(size))) {
        error = path + ": " + translated("cannot be read");
        return false;
    }
    if (text.compare(0, 4, "PK\x03\x04") == 0 && !unzip(path, text, error)) {
        return false;
    }
    if (text.empty()) {
        error = path + ": " + translated("the file is empty");
        return false;
    }
    return true;
}

} // namespace zqcameralib
