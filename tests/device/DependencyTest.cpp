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

/// "Last" is listed first, so that tree order differs from the order of discovery.
TestCamera makeCamera()
{
    return { "Last Width Offset Sel Gain Lone UserSetLoad Low High AcquisitionStart "
             "AcquisitionStop Locked",
        intReg("WidthReg", 0) + intReg("GainReg", 4, element("pAddress", "SelOffset"))
            + intReg("SelReg", 8) + intReg("Lone", 16)
            + R"(<Integer Name="Width"><pValue>WidthReg</pValue><pMax>OffsetFree</pMax></Integer>
<Integer Name="Offset"><Value>0</Value><pMax>Free</pMax></Integer>
<IntSwissKnife Name="Free"><pVariable Name="W">Width</pVariable><Formula>100-W</Formula></IntSwissKnife>
<IntSwissKnife Name="OffsetFree"><pVariable Name="O">Offset</pVariable><Formula>100-O</Formula>
</IntSwissKnife><IntSwissKnife Name="Last"><pVariable Name="F">Free</pVariable><Formula>F*2</Formula>
</IntSwissKnife><Integer Name="Sel"><pValue>SelReg</pValue><pSelected>Gain</pSelected></Integer>
<IntSwissKnife Name="SelOffset"><pVariable Name="S">SelReg</pVariable><Formula>S*4</Formula>
</IntSwissKnife><Integer Name="Gain"><pValue>GainReg</pValue></Integer>
<Command Name="UserSetLoad"><pValue>Lone</pValue><CommandValue>1</CommandValue></Command>
<MaskedIntReg Name="Low"><Address>32</Address><Length>4</Length><LSB>0</LSB><MSB>7</MSB>
<AccessMode>RW</AccessMode><pPort>Device</pPort></MaskedIntReg>
<IntReg Name="High"><Address>30</Address><Address>4</Address><Length>2</Length>
<AccessMode>RW</AccessMode><pPort>Device</pPort></IntReg>
<Integer Name="TLParamsLocked"><Value>0</Value></Integer><Command Name="AcquisitionStart">
<pValue>StartReg</pValue><CommandValue>1</CommandValue></Command><Command Name="AcquisitionStop">
<pValue>StartReg</pValue><CommandValue>2</CommandValue></Command>)"
            + intReg("StartReg", 48)
            + intReg("Locked", 52, element("pIsLocked", "TLParamsLocked")) };
}

TEST(Dependents, AreCompleteInTreeOrderAndOnce)
{
    TestCamera camera(makeCamera());
    const auto invalidated = [&camera](const char* name) {
        return names(camera.repository.GetInvalidatedFeatures(name));
    };

    EXPECT_EQ(invalidated("Width"), "Last Offset");
    EXPECT_EQ(invalidated("Offset"), "Last Width");
    EXPECT_EQ(invalidated("Sel"), "Gain");
    EXPECT_EQ(names(camera.repository.GetSelectedFeatures("Sel")), "Gain");
    EXPECT_EQ(names(camera.repository.GetSelectedFeatures("Width")), "");
    EXPECT_EQ(invalidated("Lone"), "UserSetLoad");
    EXPECT_EQ(invalidated("Low"), "High");
    EXPECT_EQ(invalidated("AcquisitionStart"), "AcquisitionStop Locked");
    EXPECT_EQ(invalidated("AcquisitionStop"), "AcquisitionStart Locked");
    EXPECT_EQ(invalidated("UserSetLoad"), "Device");
    EXPECT_EQ(invalidated("Unknown"), "");
    // A register at another place than the description tells.
    EXPECT_EQ(camera.device.SetIntegerValue("Sel", 3, 1), STATUS_OK);
    EXPECT_EQ(camera.device.SetIntegerValue("Gain", 1, 1), STATUS_OK);
    camera.read("Lone");
    EXPECT_EQ(invalidated("Gain"), "Lone");
}

TEST(Dependents, FollowEachReferenceInItsDirection)
{
    const auto integer = [](const std::string& name, const std::string& content) {
        return "<Integer Name=\"" + name + "\"><Value>1</Value>" + content + "</Integer>";
    };
    for (const auto& [tag, ofTarget, ofOwner] : { std::tuple("pMin", "Owner", ""),
             { "pMax", "Owner", "" }, { "pInc", "Owner", "" }, { "pIsImplemented", "Owner", "" },
             { "pIsAvailable", "Owner", "" }, { "pIsLocked", "Owner", "" },
             { "pAddress", "Owner", "" }, { "pIndex", "Owner", "" }, { "pLength", "Owner", "" },
             { "pVariable", "Owner", "" }, { "pCommandValue", "Owner", "" },
             { "pInvalidator", "Owner", "" }, { "pSelected", "", "Target" },
             { "pValue", "Owner", "Target" }, { "pValueCopy", "Owner", "Target" },
             { "pValueIndexed", "Owner", "Target" }, { "pValueDefault", "Owner", "Target" },
             { "pAlias", "", "" }, { "pError", "", "" }, { "pPort", "", "" } }) {
        TestCamera camera(
            "Owner Target", integer("Owner", element(tag, "Target")) + integer("Target", ""));
        EXPECT_EQ(names(camera.repository.GetInvalidatedFeatures("Target")), ofTarget) << tag;
        EXPECT_EQ(names(camera.repository.GetInvalidatedFeatures("Owner")), ofOwner) << tag;
    }
}

TEST(Dependents, AmongBitsOfARegisterAreThoseThatOverlap)
{
    const auto bits = [](const char* name, const std::string& which, const char* address) {
        return std::string("<MaskedIntReg Name=\"") + name + "\">" + element("Address", address)
            + element("Length", "4") + element("AccessMode", "RW") + element("pPort", "Device")
            + which + "</MaskedIntReg>";
    };
    for (const auto& [one, other, address, expected] :
        { std::tuple("<LSB>7</LSB><MSB>0</MSB>", "<LSB>8</LSB><MSB>15</MSB>", "0", ""),
            { "<LSB>0</LSB><MSB>8</MSB>", "<LSB>8</LSB><MSB>15</MSB>", "0", "B" },
            { "<Bit>3</Bit>", "<LSB>4</LSB><MSB>31</MSB>", "0", "" },
            { "<Bit>3</Bit>", "<LSB>3</LSB><MSB>3</MSB>", "0", "B" },
            { "<Bit>3</Bit>", "<LSB>0</LSB><MSB>2</MSB>", "0", "" },
            { "<Bit>3</Bit>", "<Bit>4</Bit>", "3", "B" }, // another register, some bytes shared
            { "<Bit>3</Bit>", "<Bit>3</Bit>", "4", "" } }) {
        TestCamera camera("A B", bits("A", one, "0") + bits("B", other, address));
        EXPECT_EQ(camera.device.SetIntegerValue("A", 1, 1), STATUS_OK);
        EXPECT_EQ(names(camera.repository.GetInvalidatedFeatures("A")), expected) << one << other;
    }
}

} // namespace
