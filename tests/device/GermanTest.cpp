// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "SettingsUser.h"
#include "base/StatusCodes.h"
#include "settings/SettingsBuilding.h"

#include <clocale>
#include <cstdlib>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

/// A process whose user reads German.
class German : public testing::Test {
protected:
    void SetUp() override
    {
        unsetenv("LANGUAGE");
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.utf8"), nullptr);
    }
    void TearDown() override { std::setlocale(LC_ALL, "C"); }

    /// `Away` is not there now, and `Flag` neither on nor off.
    static TestCamera camera()
    {
        return { "Free Locked Switch Away Step Flag Broken",
            intReg("Free", 0) + intReg("Locked", 4, "<pIsLocked>TLParamsLocked</pIsLocked>")
                + node("Integer", "Switch", element("Value", "0"))
                + intReg("Away", 12, "<pIsAvailable>Switch</pIsAvailable>")
                + node("Integer", "Step",
                    element("pValue", "Free") + element("Min", "16") + element("Inc", "8"))
                + node("Boolean", "Flag", element("pValue", "Switch") + element("OffValue", "2"))
                + node("Integer", "Broken", element("pValue", "Nowhere"))
                + node("Integer", "TLParamsLocked", element("Value", "0")) };
    }
    /// The file of these, but for its date.
    static std::string fileOf(TestCamera& camera)
    {
        ZQSettings settings = saved(camera);
        ZQSettings::Access(settings).header().date.clear();
        return settings.toText();
    }
};

TEST_F(German, IsWhatRowsRefusalsAndReportsAreSaidIn)
{
    TestCamera user = camera();
    user.camera->impl().setGrabbing(true);
    EXPECT_EQ(user.set("Locked", 1), featureLocked);
    EXPECT_EQ(user.errorText(featureLocked),
        "Locked: gesperrt durch TLParamsLocked: zum Ändern die Aufnahme anhalten");
    EXPECT_EQ(user.errorText(notLoaded), "Die Einstellungen wurden nicht von der Kamera gelesen.");
    EXPECT_EQ(user.set("Step", 17), ERROR_VALUE_NOT_ON_INCREMENT);
    EXPECT_EQ(user.errorText(ERROR_VALUE_NOT_ON_INCREMENT),
        "Step: 17 ist, von 16 an gezählt, kein Vielfaches von 8");
    EXPECT_EQ(user.item("Away").description,
        "Kann nicht benutzt werden: jetzt nicht verfügbar, hängt ab von Switch.");
    EXPECT_EQ(user.item("Broken").description,
        "Kann nicht gelesen werden: verweist auf Nowhere, was es nicht gibt.");

    ZQSettings wanted;
    wanted.put({ "Free", {}, "x", {}, 0 });
    EXPECT_EQ(restored(user, wanted).toText(),
        "Einstellungen: 1, 1 abgelehnt\nFree = x: abgelehnt: \"x\" ist keine ganze Zahl\n");
}

TEST_F(German, IsNotWhatSettingsFilesAreWrittenIn)
{
    TestCamera read = camera();
    const std::string german = fileOf(read);
    std::setlocale(LC_ALL, "C");
    TestCamera same = camera();
    EXPECT_EQ(german, fileOf(same));
    EXPECT_NE(
        german.find("# not saved: Broken: cannot be used, it refers to Nowhere, which does not "
                    "exist\n# not saved: Away: not available now, depends on Switch\n# not "
                    "saved: Flag: its register holds neither"),
        std::string::npos)
        << german;
}

} // namespace
