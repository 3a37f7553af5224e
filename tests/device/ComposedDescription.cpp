// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ComposedDescription.h"

#include "camera/Camera.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <array>

namespace {

constexpr std::array kinds { "Integer", "IntReg", "MaskedIntReg", "Float", "FloatReg", "Boolean",
    "Enumeration", "String", "StringReg", "Command", "IntSwissKnife", "SwissKnife", "IntConverter",
    "Converter", "Register", "Category", "StructReg", "StructEntry", "Port", "Group" };

constexpr std::array references { "pValue", "pAddress", "pIndex", "pLength", "pMin", "pMax", "pInc",
    "pVariable", "pIsImplemented", "pIsAvailable", "pIsLocked", "pSelected", "pInvalidator",
    "pCommandValue", "pValueIndexed", "pValueDefault", "pFeature", "pPort", "pValueCopy",
    "pError" };

constexpr std::array properties { "Value", "Address", "Length", "Min", "Max", "Inc", "AccessMode",
    "ImposedAccessMode", "Sign", "Endianess", "LSB", "MSB", "Bit", "CommandValue", "OnValue",
    "OffValue", "Formula", "FormulaTo", "FormulaFrom", "Expression", "Constant", "Representation",
    "Visibility", "ValueIndexed", "ValueDefault", "Cachable", "Unit", "ValidValueSet", "ChunkID",
    "PollingTime", "SwapEndianess", "Slope", "Extension" };

constexpr std::array texts { "0", "1", "-1", "4", "8", "7", "31", "0xFF", "RW", "RO", "WO",
    "BigEndian", "Signed", "9223372036854775807", "-9223372036854775808", "1e308", "NaN", "", "x",
    "A", "A+B", "A/B", "A%B", "A**B", "(A=B)?A:B", "A/(A-B)", "A<<B", "~A", "FROM/A", "TO/A",
    "SQRT(A)", "A/", "(A", "1;2;4", "Guru", "IPV4Address", "2000000", "1e999", "0x", "1.5", "%s%n",
    "18446744073709551616", "A.Min+B.Max", "C", "A+C", "A>>B", "ROUND(A,2)", "ABS(-A)", "A**B**A",
    "A.Inc", "Yes", "Varying", "\xFF\xFE" };

std::string name(std::size_t number)
{
    return "N" + std::to_string(number % 24);
}

std::string tagged(const std::string& tag, const std::string& attributes, const std::string& text)
{
    return "<" + tag + attributes + ">" + text + "</" + tag + ">";
}

/// What makes most nodes possible to evaluate, so that not all of them are refused.
std::string usualContent(const std::string& kind)
{
    if (kind.find("Reg") != std::string::npos) {
        return "<Address>16</Address><Length>4</Length><AccessMode>RW</AccessMode>"
               "<pPort>Device</pPort><LSB>0</LSB><MSB>7</MSB>";
    }
    if (kind.find("Converter") != std::string::npos) {
        return "<FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom>";
    }
    return kind == "Enumeration" ? "<EnumEntry Name=\"E\"><Value>1</Value></EnumEntry>" : "";
}

std::string chosenContent(Choices& choices)
{
    if (choices.next() % 2 == 0) {
        const std::string tag = choices.of(references);
        const std::string variable = choices.of(std::array { "A", "B" });
        return tagged(tag, " Name=\"" + variable + "\" Index=\"1\"", name(choices.next()));
    }
    const std::string tag = choices.of(properties);
    return tagged(tag, " Name=\"C\" Index=\"0\"", choices.of(texts));
}

} // namespace

std::string composedDescription(Choices choices, std::size_t perNode)
{
    std::string nodes;
    std::string members;
    for (std::size_t count = 0; !choices.areOver() && count < 24; ++count) {
        const std::string kind = choices.of(kinds);
        std::string content = choices.next() % 4 != 0 ? usualContent(kind) : "";
        for (std::size_t n = choices.next() % (perNode + 1); n > 0; --n) {
            content += chosenContent(choices);
        }
        nodes += tagged(kind, " Name=\"" + name(count) + "\"", content);
        members += tagged("pFeature", "", name(count));
    }
    return "<RegisterDescription SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\">"
        + tagged("Category", " Name=\"Root\"", "<pFeature>Main</pFeature>")
        + tagged("Category", " Name=\"Main\"", members) + nodes
        + "<Port Name=\"Device\"/></RegisterDescription>";
}

void useEverything(zqcameralib::ZQCamera& camera)
{
    featurebrowser::ZQCameraDevice device(&camera, nullptr);
    featurebrowser::ZQCameraRepository& repository = *device.GetRepository();
    repository.Load();
    int left = 2000;
    for (const auto& item : repository.GetFeatureList()) {
        const char* name = item->name.c_str();
        if (--left < 0) {
            break;
        }
        camera.impl().port().invalidate();
        repository.ReadFeature(item);
        device.SetIntegerValue(name, item->intMin, 1);
        device.SetIntegerValue(name, item->intMax, 1);
        device.SetFloatValue(name, item->floatMin);
        device.SetFloatValue(name, item->floatMax);
        device.SetStringValue(name, "text");
        device.SetBooleanValue(name, 1);
        device.SetEnumValue(
            name, item->enumEntries.empty() ? "E" : item->enumEntries.front().c_str(), 0);
        device.ExecuteCommand(name, 0); // without waiting for it
        if (left > 1990) {
            repository.GetInvalidatedFeatures(name);
            repository.GetSelectedFeatures(name);
        }
    }
    repository.UpdateFeatureStates();
}
