// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Trace.h"
#include "ZQFeatureBrowserImpl.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>

namespace featurebrowser {
namespace {

/// Wide enough for the difference of any two 64-bit values.
__extension__ using Wide = __int128;

/// The flag that every integer write of the browser carries.
constexpr int withChecks = 1;

void traceValue(const char* what, const std::string& name, const std::string& value)
{
    traceText((what + name + " value: " + value + "\n").c_str());
}

/// Some cameras answer with the old geometry for a moment after a binning write.
void pauseAfterBinning(const std::string& name)
{
    if (name != "BinningHorizontal" && name != "BinningVertical") {
        return;
    }
    constexpr long nanoseconds = 300'000'000;
    timespec remaining { 0, nanoseconds };
    while (nanosleep(&remaining, &remaining) == -1 && errno == EINTR) { }
}

/// The grid point next to `value` in the direction of the minimum; `current` when the record gives
/// no grid to move on. From below the minimum that direction is up.
long gridValue(const FeatureItem& item, long value, long current)
{
    if (item.intMax <= item.intMin || item.intInc == 0) {
        return current;
    }
    const Wide offset = Wide { value } - item.intMin;
    return static_cast<long>(value - offset % item.intInc);
}

std::string fixedText(double value)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed << std::setprecision(5) << value;
    return text.str();
}

} // namespace

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureIntModified(std::string name, long value)
{
    const int status = device->SetIntegerValue(name.c_str(), value, withChecks);
    switch (status) {
    case STATUS_OK:
        return acceptInteger(name, value);
    case ERROR_VALUE_OUT_OF_RANGE:
        return resetInteger(name, value);
    case ERROR_VALUE_NOT_ON_INCREMENT:
        return adjustInteger(name, value);
    default:
        // Unlike a refused float, the widget keeps what the user entered.
        reportRefusedWrite(status);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::acceptInteger(const std::string& name, long value)
{
    traceValue("Update feature in camera: ", name, std::to_string(value));
    if (const auto item = repository->GetFeature(name)) {
        pauseAfterBinning(item->name);
        updateFeature(item);
        traceValue("Update feature in repository: ", name, item->valueText);
    }
    updateInvalidators(name);
    if (receiver) {
        receiver->FeatureIntModified(name, value);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::resetInteger(const std::string& name, long value)
{
    long current = value;
    device->GetIntegerValue(name.c_str(), &current);
    if (const auto item = repository->GetFeature(name)) {
        widget->setDefaultValue(name, current,
            "Error writing value\nValue must be between " + std::to_string(item->intMin) + " and "
                + std::to_string(item->intMax));
    }
    updateInvalidators(name);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::adjustInteger(const std::string& name, long value)
{
    long current = value;
    device->GetIntegerValue(name.c_str(), &current);
    if (const auto item = repository->GetFeature(name)) {
        retryInteger(*item, name, value, current);
    }
    updateInvalidators(name);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::retryInteger(
    const FeatureItem& item, const std::string& name, long value, long current)
{
    const long adjusted = gridValue(item, value, current);
    const std::string adjustedText = std::to_string(adjusted);
    if (device->SetIntegerValue(name.c_str(), adjusted, withChecks) != STATUS_OK) {
        widget->setDefaultValue(name, current, "Error adjusting to value " + adjustedText + "\n");
        return;
    }
    // Users of this message know its words; they stay, although they name another cause.
    widget->setDefaultValue(name, adjusted,
        "Difference between values Min and Max not divisible by Inc = "
            + std::to_string(item.intInc) + "\nValue adjusted to " + adjustedText);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureDoubleModified(std::string name, double value)
{
    const int status = device->SetFloatValue(name.c_str(), value);
    constexpr std::size_t lineSize = 256; // longer lines are cut
    std::array<char, lineSize> line {};
    std::snprintf(
        line.data(), line.size(), "<>Feature double set: %s %f %d\n", name.c_str(), value, status);
    traceText(line.data());
    switch (status) {
    case STATUS_OK:
        return acceptDouble(name, value);
    case ERROR_FLOAT_OUT_OF_RANGE:
        return resetDouble(name, value);
    default:
        return refuseDouble(name, value, status);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::acceptDouble(const std::string& name, double value)
{
    updateFeature(name);
    updateInvalidators(name);
    if (receiver) {
        receiver->FeatureDoubleModified(name, value);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::resetDouble(const std::string& name, double value)
{
    double current = value;
    device->GetFloatValue(name.c_str(), &current);
    const auto item = repository->GetFeature(name);
    if (!item) {
        return;
    }
    // Dependents are not refreshed here, unlike after an integer out of range.
    widget->setDefaultValue(name, current,
        "Error writing feature " + name + "\nvalue must be between " + fixedText(item->floatMin)
            + " and " + fixedText(item->floatMax));
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::refuseDouble(
    const std::string& name, double value, int status)
{
    const std::string description = reportRefusedWrite(status);
    double current = value;
    device->GetFloatValue(name.c_str(), &current);
    if (repository->GetFeature(name)) {
        widget->setDefaultValue(
            name, current, "Error writing feature " + name + "\n" + description + "\n");
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureIPModified(
    std::string name, const std::string& text)
{
    const long address = getIPAddressV4Value(text.c_str());
    const int status = device->SetIntegerValue(name.c_str(), address, withChecks);
    if (status != STATUS_OK) {
        reportRefusedWrite(status);
        return;
    }
    updateFeature(name);
    updateInvalidators(name);
    if (receiver) {
        receiver->FeatureIPModified(name, text);
    }
}

} // namespace featurebrowser
