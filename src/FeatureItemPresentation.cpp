// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "FeatureRules.h"
#include "ZQFeatureBrowserImpl.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace featurebrowser {
namespace {

/// What every add operation of the widget gets, whatever the kind of the record.
struct Entry {
    CameraFeatureBrowser& widget;
    const FeatureItem& item;
    std::string category;
    TYPE_LEVEL level;
    bool readOnly;
    bool flag;
    TYPE_SELECTOR selector;

    void addNumber()
    {
        // Leading digits count, anything else is 0: an odd text does not keep a feature out of the
        // tree. The update that follows is stricter.
        const long value = std::strtol(item.valueText.c_str(), nullptr, 10);
        widget.addIntFeature(std::move(category), item.name, value, item.intMin, item.intMax,
            item.intInc, level, readOnly, flag, selector, item.selectorParent);
    }

    void addText(std::string text, unsigned int maxLength, TYPE_ADDRESS address)
    {
        widget.addStringFeature(std::move(category), item.name, std::move(text), level, maxLength,
            readOnly, flag, address, selector, item.selectorParent);
    }

    void addString()
    {
        // A camera's string register is NUL-padded: what stands after the first NUL is no text.
        std::string text = item.valueText.substr(0, item.valueText.find('\0'));
        addText(std::move(text), item.maxLength, ADDRESS_NONE);
    }

    void addDouble()
    {
        const auto& names = listOfLogarithmicControls;
        const bool logarithmic = std::find(names.begin(), names.end(), item.name) != names.end();
        widget.addDoubleFeature(std::move(category), item.name, customatof(item.valueText),
            item.floatMin, item.floatMax, item.floatInc, level,
            logarithmic ? SLIDER_LOGARITHMIC : SLIDER_LINEAR, readOnly, flag, selector,
            item.selectorParent);
    }

    void addList(bool isBoolean)
    {
        using Index = std::numeric_limits<int>;
        const long number = std::strtol(item.valueText.c_str(), nullptr, 10);
        const long index = std::clamp<long>(number, Index::min(), Index::max());
        widget.addEnumFeature(std::move(category), item.name, static_cast<int>(index),
            item.enumEntries, level, readOnly, isBoolean, flag, selector, item.selectorParent);
    }

    void addCommand()
    {
        widget.addCommandFeature(std::move(category), item.name, item.valueText, level, readOnly,
            flag, selector, item.selectorParent);
    }
};

} // namespace

void ZQFeatureBrowser::ZQFeatureBrowserImpl::addFeatureItem(
    const std::shared_ptr<FeatureItem>& item, int level)
{
    Entry entry { *widget, *item, categoryPath.empty() ? std::string() : categoryPath.back(),
        static_cast<TYPE_LEVEL>(level), isReadOnly(*item), isDisplayFlagSet(*item),
        getSelectorState(item.get()) };
    switch (item->type) {
    case FEATURE_INTEGER:
        switch (integerForm(*item)) {
        case IntegerForm::number:
            return entry.addNumber();
        case IntegerForm::macAddress:
            if (item->valueText.empty()) {
                return;
            }
            return entry.addText(convertToMACAddress(std::stoll(item->valueText)), 0, ADDRESS_MAC);
        case IntegerForm::ipv4Address:
            return entry.addText(getIPAddressV4Text(item->valueText.c_str()), 0, ADDRESS_IPV4);
        }
        return;
    case FEATURE_FLOAT:
        return entry.addDouble();
    case FEATURE_STRING:
    case FEATURE_READ_ONLY_STRING:
        return entry.addString();
    case FEATURE_ENUMERATION:
        return entry.addList(false);
    case FEATURE_COMMAND:
        return entry.addCommand();
    case FEATURE_BOOLEAN:
        return entry.addList(true);
    default:
        return;
    }
}

} // namespace featurebrowser
