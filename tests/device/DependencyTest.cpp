// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

using namespace featurebrowser;

namespace {

std::string names(const std::list<std::shared_ptr<FeatureItem>>& items)
{
    std::string text;
    for (const auto& item : items) {
        text += (text.empty() ? "" : " ") + item->name;
    }
    return text;
}

const std::string littleEndian = "<Endianess>LittleEndian</Endianess>";

/// "Last" is listed first, so that tree order differs from the order of discovery.
TestCamera makeCamera()
{
    return { "Last Width Offset Sel Gain Lone UserSetLoad Low High AcquisitionStart "
             "AcquisitionStop Locked One Two",
        intReg("WidthReg", 0) + intReg("GainReg", 4, "<pAddress>SelOffset</pAddress>")
            + intReg("SelReg", 8) + intReg("Lone", 16) + intReg("StartReg", 48)
            + intReg("Locked", 52, "<pIsLocked>TLParamsLocked</pIsLocked>")
            + intReg("High", 30, "<Address>4</Address><Length>2</Length>" + littleEndian)
            + reg("MaskedIntReg", "Low", 32, "<LSB>0</LSB><MSB>7</MSB>" + littleEndian)
            + intReg("One", 56, "<pIsAvailable>Gate</pIsAvailable>")
            + intReg("Two", 60, "<pIsAvailable>Gate</pIsAvailable>") + intReg("Gate", 64)
            + knife("IntSwissKnife", "Free", { "Width" }, "100-Width")
            + knife("IntSwissKnife", "OffsetFree", { "Offset" }, "100-Offset")
            + knife("IntSwissKnife", "Last", { "Free" }, "Free*2")
            + knife("IntSwissKnife", "SelOffset", { "SelReg" }, "SelReg*4")
            + command("UserSetLoad", "Lone", "1") + command("AcquisitionStart", "StartReg", "1")
            + command("AcquisitionStop", "StartReg", "2") + R"(
<Integer Name="Width"><pValue>WidthReg</pValue><pMax>OffsetFree</pMax></Integer>
<Integer Name="Offset"><Value>0</Value><pMax>Free</pMax></Integer>
<Integer Name="Sel"><pValue>SelReg</pValue><pSelected>Gain</pSelected></Integer>
<Integer Name="Gain"><pValue>GainReg</pValue></Integer>
<Integer Name="TLParamsLocked"><Value>0</Value></Integer>)" };
}

TEST(Dependents, AreCompleteInTreeOrderAndOnce)
{
    TestCamera camera(makeCamera());
    const auto invalidated = [&camera](const char* name) {
        return names(camera.repository.GetInvalidatedFeatures(name));
    };

    for (const auto& [written, expected] : { std::pair("Width", "Last Offset"),
             { "Offset", "Last Width" }, { "Sel", "Gain" }, { "Lone", "UserSetLoad" },
             { "Low", "High" }, { "AcquisitionStart", "AcquisitionStop Locked" },
             { "AcquisitionStop", "AcquisitionStart Locked" }, { "UserSetLoad", "Device" },
             { "Unknown", "" } }) {
        EXPECT_EQ(invalidated(written), expected) << written;
    }
    EXPECT_EQ(names(camera.repository.GetSelectedFeatures("Sel")), "Gain");
    EXPECT_EQ(names(camera.repository.GetSelectedFeatures("Width")), "");
    // A register at another place than the description tells.
    EXPECT_EQ(camera.set("Sel", 3), STATUS_OK);
    EXPECT_EQ(camera.set("Gain", 1), STATUS_OK);
    camera.read("Lone");
    EXPECT_EQ(invalidated("Gain"), "Lone");
    EXPECT_EQ(camera.set("Sel", 15), STATUS_OK);
    EXPECT_EQ(camera.set("Gain", 1), STATUS_OK);
    camera.read("One");
    camera.read("Two"); // by the same answer
    EXPECT_EQ(invalidated("Gain"), "One Two");
}

TEST(Dependents, FollowEachReferenceInItsDirection)
{
    const auto integer = [](const std::string& name, const std::string& content) {
        return node("Integer", name, "<Value>1</Value>" + content);
    };
    for (const auto& [tag, ofTarget, ofOwner] : { std::tuple("pMin", "Owner", ""),
             { "pMax", "Owner", "" }, { "pInc", "Owner", "" }, { "pIsImplemented", "Owner", "" },
             { "pIsAvailable", "Owner", "" }, { "pIsLocked", "Owner", "" },
             { "pAddress", "Owner", "" }, { "pIndex", "Owner", "" }, { "pLength", "Owner", "" },
             { "pVariable", "Owner", "" }, { "pCommandValue", "Owner", "" },
             { "pInvalidator", "Owner", "" }, { "pSelected", "", "Target" },
             { "pValue", "Owner", "Target" }, { "pValueCopy", "Owner", "Target" },
             { "pValueIndexed", "Owner", "Target" }, { "pValueDefault", "Owner", "Target" },
             { "pAlias", "", "" }, { "pError", "Owner", "" }, { "pPort", "", "" } }) {
        TestCamera camera(
            "Owner Target", integer("Owner", element(tag, "Target")) + integer("Target", ""));
        EXPECT_EQ(names(camera.repository.GetInvalidatedFeatures("Target")), ofTarget) << tag;
        EXPECT_EQ(names(camera.repository.GetInvalidatedFeatures("Owner")), ofOwner) << tag;
    }
}

TEST(Dependents, AmongBitsOfARegisterAreThoseThatOverlap)
{
    for (const auto& [one, other, address, expected] :
        { std::tuple("<LSB>7</LSB><MSB>0</MSB>", "<LSB>8</LSB><MSB>15</MSB>", 0U, ""),
            { "<LSB>0</LSB><MSB>8</MSB>", "<LSB>8</LSB><MSB>15</MSB>", 0U, "B" },
            { "<Bit>3</Bit>", "<LSB>4</LSB><MSB>31</MSB>", 0U, "" },
            { "<Bit>3</Bit>", "<LSB>3</LSB><MSB>3</MSB>", 0U, "B" },
            { "<Bit>3</Bit>", "<LSB>0</LSB><MSB>2</MSB>", 0U, "" },
            { "<Bit>3</Bit>", "<Bit>4</Bit>", 3U, "B" }, // another register, some bytes shared
            { "<Bit>3</Bit>", "<Bit>4</Bit><Length>2</Length>", 0U, "B" },
            { "<Bit>3</Bit>", "<Bit>4</Bit><pLength>Four</pLength>", 0U, "B" },
            { "<Bit>3</Bit>", "<Bit>3</Bit>", 4U, "" } }) {
        TestCamera camera("A B",
            reg("MaskedIntReg", "A", 0, one + littleEndian)
                + reg("MaskedIntReg", "B", address, other + littleEndian)
                + node("Integer", "Four", "<Value>4</Value>"));
        EXPECT_EQ(camera.set("A", 1), STATUS_OK);
        EXPECT_EQ(names(camera.repository.GetInvalidatedFeatures("A")), expected) << one << other;
    }
}

} // namespace
