// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ZQFeatureBrowserImpl.h"

#include <array>
#include <locale>
#include <sstream>
#include <stdexcept>

#include <arpa/inet.h>

namespace {

/// The numeric rules of English texts, for hosts without the named locale.
class EnglishNumbers : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return '.'; }
    char do_thousands_sep() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
};

std::locale englishLocale()
{
    try {
        return std::locale("en_US.UTF8");
    } catch (const std::runtime_error&) {
        return { std::locale::classic(), new EnglishNumbers };
    }
}

} // namespace

double customatof(std::string text)
{
    double value = 0.0;
    std::istringstream stream(text);
    stream.imbue(englishLocale());
    // The state is left unread: with grouping errors and values out of range the number that the
    // stream delivers is the result that is wanted.
    stream >> value;
    return value;
}

namespace featurebrowser {

std::string ZQFeatureBrowser::ZQFeatureBrowserImpl::getIPAddressV4Text(const char* text) const
{
    if (*text == '\0') {
        return {};
    }
    in_addr address {};
    address.s_addr = htonl(static_cast<std::uint32_t>(std::stoul(text) & 0xFFFFFFFFU));
    std::array<char, INET_ADDRSTRLEN> dotted {};
    inet_ntop(AF_INET, &address, dotted.data(), dotted.size());
    return dotted.data();
}

std::uint32_t ZQFeatureBrowser::ZQFeatureBrowserImpl::getIPAddressV4Value(const char* text) const
{
    in_addr address {};
    if (inet_pton(AF_INET, text, &address) != 1) {
        return 0;
    }
    return ntohl(address.s_addr);
}

} // namespace featurebrowser
