// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Journal.h"
#include "Script.h"

using doubles::note;
using doubles::script;

namespace featurebrowser {

class CameraFeatureBrowser::Impl { };

CameraFeatureBrowser::CameraFeatureBrowser(QWidget* parent)
{
    note("widget.create", parent != nullptr);
}

CameraFeatureBrowser::~CameraFeatureBrowser()
{
    note("widget.destroy");
}

void CameraFeatureBrowser::addCategory(std::string name, TYPE_LEVEL level)
{
    note("widget.addCategory", name, level);
}

void CameraFeatureBrowser::addSubCategory(std::string parent, std::string name, TYPE_LEVEL level)
{
    note("widget.addSubCategory", parent, name, level);
}

void CameraFeatureBrowser::addIntFeature(std::string category, std::string name, long value,
    long min, long max, unsigned int inc, TYPE_LEVEL level, bool readOnly, bool flag,
    TYPE_SELECTOR selector, std::string selectorText)
{
    note("widget.addIntFeature", category, name, value, min, max, inc, level, readOnly, flag,
        selector, selectorText);
}

void CameraFeatureBrowser::addDoubleFeature(std::string category, std::string name, double value,
    double min, double max, double inc, TYPE_LEVEL level, TYPE_SLIDER slider, bool readOnly,
    bool flag, TYPE_SELECTOR selector, std::string selectorText)
{
    note("widget.addDoubleFeature", category, name, value, min, max, inc, level, slider, readOnly,
        flag, selector, selectorText);
}

void CameraFeatureBrowser::addStringFeature(std::string category, std::string name,
    std::string value, TYPE_LEVEL level, unsigned int maxLength, bool readOnly, bool flag,
    TYPE_ADDRESS address, TYPE_SELECTOR selector, std::string selectorText)
{
    note("widget.addStringFeature", category, name, value, level, maxLength, readOnly, flag,
        address, selector, selectorText);
}

void CameraFeatureBrowser::addEnumFeature(std::string category, std::string name, int index,
    std::list<std::string> entries, TYPE_LEVEL level, bool readOnly, bool isBoolean, bool flag,
    TYPE_SELECTOR selector, std::string selectorText)
{
    note("widget.addEnumFeature", category, name, index, entries, level, readOnly, isBoolean, flag,
        selector, selectorText);
}

void CameraFeatureBrowser::addCommandFeature(std::string category, std::string name,
    std::string text, TYPE_LEVEL level, bool readOnly, bool flag, TYPE_SELECTOR selector,
    std::string selectorText)
{
    note("widget.addCommandFeature", category, name, text, level, readOnly, flag, selector,
        selectorText);
}

void CameraFeatureBrowser::modifyFeature(
    std::string name, long value, long min, long max, unsigned int inc, bool readOnly, bool flag)
{
    note("widget.modifyInteger", name, value, min, max, inc, readOnly, flag);
}

void CameraFeatureBrowser::modifyFeature(
    std::string name, double value, double min, double max, double inc, bool readOnly, bool flag)
{
    note("widget.modifyDouble", name, value, min, max, inc, readOnly, flag);
}

void CameraFeatureBrowser::modifyFeature(std::string name, std::string value, CAM_TYPE_VALUE kind,
    std::list<std::string> entries, bool readOnly, bool flag)
{
    note("widget.modifyText", name, value, kind, entries, readOnly, flag);
}

void CameraFeatureBrowser::setDefaultValue(std::string name, long value, std::string message)
{
    note("widget.setDefaultInteger", name, value, message);
}

void CameraFeatureBrowser::setDefaultValue(std::string name, double value, std::string message)
{
    note("widget.setDefaultDouble", name, value, message);
}

void CameraFeatureBrowser::setItemDescription(std::string name, std::string text)
{
    note("widget.setItemDescription", name, text);
}

void CameraFeatureBrowser::modifyFeatureStates(std::map<std::string, FEATURE_STATE>& states)
{
    note("widget.modifyFeatureStates", states);
}

void CameraFeatureBrowser::setNumberOfSteps(int steps)
{
    note("widget.setNumberOfSteps", steps);
}

void CameraFeatureBrowser::setVisibility(TYPE_LEVEL level)
{
    note("widget.setVisibility", level);
}

void CameraFeatureBrowser::showDialog(IEventFeatureReceiver* receiver, int width, int height,
    std::vector<int> columns, std::map<std::string, FEATURE_STATE> states)
{
    note("widget.showDialog", width, height, columns, states);
    script().shownTo = receiver;
}

void CameraFeatureBrowser::showStandalone(IEventFeatureReceiver* receiver, int width, int height,
    std::vector<int> columns, std::map<std::string, FEATURE_STATE> states)
{
    note("widget.showStandalone", width, height, columns, states);
    script().shownTo = receiver;
}

void CameraFeatureBrowser::showDialog()
{
    note("widget.showDialog");
}

void CameraFeatureBrowser::hideDialog()
{
    note("widget.hideDialog");
}

void CameraFeatureBrowser::closeDialog()
{
    note("widget.closeDialog");
}

bool CameraFeatureBrowser::isVisible()
{
    note("widget.isVisible");
    return script().visible;
}

QWidget* CameraFeatureBrowser::GetWidget()
{
    note("widget.GetWidget");
    return nullptr;
}

void CameraFeatureBrowser::clearFeatureItems()
{
    note("widget.clearFeatureItems");
}

TYPE_SELECTOR getSelectorState(FeatureItem* /*item*/)
{
    return script().selectorState;
}

std::string convertToMACAddress(long address)
{
    return "mac " + std::to_string(address);
}

int getNumberOfDecimals(double value)
{
    return script().decimals[value];
}

} // namespace featurebrowser
