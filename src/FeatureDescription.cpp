// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ZQFeatureBrowserImpl.h"

#include <locale>
#include <sstream>

// Blanks before line ends and the layout of every kind are the format that applications know; they
// look irregular and stay as they are.

namespace featurebrowser {
namespace {

std::string levelText(int level)
{
    switch (level) {
    case LEVEL_BEGINNER:
        return "Beginner";
    case LEVEL_EXPERT:
        return "Expert";
    case LEVEL_GURU:
        return "Guru";
    default:
        return {};
    }
}

std::string typeLines(const char* type, const FeatureItem& item)
{
    return std::string("Type: ") + type + " \r\nVisibility: " + levelText(item.level);
}

/// A limit with as many decimals as it needs itself, in the notation chosen for both limits.
std::string limitText(double value, bool scientific)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << (scientific ? std::scientific : std::fixed);
    text.precision(getNumberOfDecimals(value));
    text << value;
    return text.str();
}

std::string generalText(double value)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
}

std::string integerText(const FeatureItem& item)
{
    std::string text = item.description + "\r\n";
    if (item.representation != REPRESENTATION_IPV4) {
        text += "Min: " + std::to_string(item.intMin) + " Max: " + std::to_string(item.intMax)
            + "\r\n";
    }
    return text + "Increment: " + std::to_string(item.intInc) + "\r\n" + typeLines("Integer", item);
}

std::string floatText(const FeatureItem& item)
{
    constexpr double fixedLimit = 1e8;
    constexpr double smallestShownIncrement = 0.01;
    const bool scientific = item.floatMin < -fixedLimit || item.floatMax > fixedLimit;
    std::string text = item.description + "\r\nMin: " + limitText(item.floatMin, scientific)
        + " Max: " + limitText(item.floatMax, scientific) + "\r\n";
    if (item.floatInc > smallestShownIncrement) {
        text += "Increment: " + generalText(item.floatInc) + "\r\n";
    }
    return text + typeLines("Float", item);
}

std::string stringText(const FeatureItem& item)
{
    return item.description + "\r\n" + typeLines("String", item)
        + "\r\nMax Length: " + std::to_string(item.maxLength) + " bytes ";
}

std::string enumerationText(const FeatureItem& item)
{
    std::string text = item.description + "\r\n";
    for (const std::string& entry : item.enumEntries) {
        text += "Enum Entry Name: " + entry + " \r\n" + typeLines("Enumeration", item) + " \r\n\n";
    }
    return text;
}

} // namespace

std::string getTextDescription(const std::shared_ptr<FeatureItem>& item)
{
    switch (item->type) {
    case FEATURE_CATEGORY:
        return "Category";
    case FEATURE_INTEGER:
        return integerText(*item);
    case FEATURE_FLOAT:
        return floatText(*item);
    case FEATURE_STRING:
    case FEATURE_READ_ONLY_STRING:
        return stringText(*item);
    case FEATURE_ENUMERATION:
        return enumerationText(*item);
    case FEATURE_COMMAND:
        return item->description + "\r\n" + typeLines("Command", *item);
    case FEATURE_BOOLEAN:
        return item->description + "\r\n" + typeLines("Boolean", *item);
    default:
        return {};
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::ItemSelectionChanged(std::string name)
{
    if (const auto item = repository->GetFeature(name)) {
        updateFeature(item);
        widget->setItemDescription(item->name, getTextDescription(item));
    }
    if (receiver) {
        receiver->ItemSelectionChanged(name);
    }
}

} // namespace featurebrowser
