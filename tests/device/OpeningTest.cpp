// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

#include <filesystem>
#include <fstream>

using namespace zqcameralib;

namespace {

class Opening : public testing::Test {
protected:
    void SetUp() override
    {
        m_folder
            = std::filesystem::temp_directory_path() / ("zq-opening-" + std::to_string(::getpid()));
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::string write(const std::string& name, const std::string& content)
    {
        std::string path = (m_folder / name).string();
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

    /// The archive of some files.
    std::string zip(const std::string& files)
    {
        const std::string path
            = (m_folder / ("z" + std::to_string(++m_archives) + ".zip")).string();
        EXPECT_EQ(
            std::system(("cd " + m_folder.string() + " && zip -qj " + path + " " + files).c_str()),
            0);
        return path;
    }
    /// The file with another size.
    static std::string resized(const std::string& path, std::uintmax_t size)
    {
        std::filesystem::resize_file(path, size);
        return path;
    }

    std::filesystem::path m_folder;
    int m_archives = 0;
};

const std::string good = TestCamera::description("A", intReg("A", 0));

TEST_F(Opening, TakesEveryFormThatCamerasDeliver)
{
    std::string legacy = good;
    legacy.replace(legacy.find("SchemaMinorVersion=\"1\""), 22, "SchemaMinorVersion=\"0\"");
    std::string latin1 = good;
    latin1.replace(latin1.find("utf-8"), 5, "iso-8859-1");
    latin1.replace(latin1.find("\"V\""), 3, "\"V\xE9\"");
    std::string windows = latin1;
    windows.replace(windows.find("iso-8859-1"), 10, "Windows-1252");
    write("note.txt", "no XML");

    for (const std::string& path :
        { write("plain.xml", good), write("bom.xml", "\xEF\xBB\xBF" + good),
            write("line.xml", "Camera 1 (10.0.0.1)\n" + good), write("legacy.xml", legacy),
            write("latin1.xml", latin1), write("windows-latin1.xml", windows),
            zip(write("A.XML", good) + " note.txt") }) {
        std::string error;
        std::unique_ptr<ZQCamera> camera = ZQCamera::OpenDescription(path, error);
        ASSERT_TRUE(camera) << path << ": " << error;
        EXPECT_EQ(camera->model(), "M");
        EXPECT_EQ(camera->vendor(), path.find("latin1") == std::string::npos ? "V" : "V\xC3\xA9");
        EXPECT_EQ(camera->impl().port().kindOf({ 0, 4 }) == AccessKind::Register,
            path.find("legacy") != std::string::npos);
        EXPECT_EQ(TestCamera(std::move(camera)).listed(), "Main:0 A:1") << path;
    }
}

/// A description with so many elements, or so many within each other, below its root.
std::string many(int count, const std::string& one = "<a/>")
{
    return "<RegisterDescription><Category Name=\"Root\"/>"
        + repeated(count - 1, [&](int) { return one; }) + "</RegisterDescription>";
}

std::string nested(int depth)
{
    return many(2,
        repeated(depth, [](int) { return "<a>"; }) + repeated(depth, [](int) { return "</a>"; }));
}

/// So many features with a limit or condition that takes 65,535 visits.
std::string costly(int features, const std::string& tag = "pMin")
{
    const auto name = [](int i) { return "F" + std::to_string(i); };
    return TestCamera::description(repeated(features, [&](int i) { return name(i) + " "; }),
        doubling(15) + repeated(features, [&](int i) {
            return node("Integer", name(i), "<Value>1</Value>" + element(tag, "K15"));
        }));
}

TEST_F(Opening, RefusesWhatIsNoDescriptionInOneClearLine)
{
    struct Case {
        std::string path;
        const char* says;
    };
    const std::string damaged = zip(write("a.xml", good));
    std::fstream(damaged).seekp(100) << '!';
    const std::vector<Case> cases {
        { (m_folder / "none.xml").string(), "no such file" },
        { m_folder.string(), "not a file" },
        { write("empty.xml", ""), "the file is empty" },
        { write("text.xml", "hello"), "not XML" },
        { resized(write("largest.xml", ""), 32U << 20U), "not XML" },
        { resized(write("larger.xml", ""), (32U << 20U) + 1),
            "too large for a camera description" },
        { write("cut.xml", good.substr(0, good.size() - 30)), "malformed XML" },
        { write("nested.xml", "<a><b></a>"), "malformed XML" },
        { write("other.xml", "<html/>"),
            "not a camera description: no RegisterDescription element" },
        { write("rootless.xml", "<RegisterDescription/>"),
            "not a camera description: no root category" },
        { write("costly.xml", costly(31)), "the description takes too long to evaluate" },
        { write("locked.xml", costly(31, "pIsLocked")),
            "the description takes too long to evaluate" },
        { write("deepest.xml", nested(100000)),
            "not a camera description: elements nested too deeply" },
        { write("deep.xml", nested(34)), "not a camera description: elements nested too deeply" },
        { write("many.xml", many(400001)),
            "the description is too large: more than 400000 elements" },
        { write("broken.zip", "PK\x03\x04 and then nothing of use"),
            "the archive holds no XML file" },
        { zip(write("note.txt", "no XML")), "the archive holds no XML file" },
        { damaged, "the archive is damaged or too large" },
        { zip(resized(write("larger.xml", ""), (32U << 20U) + 1)),
            "the archive is damaged or too large" },
    };
    for (const Case& test : cases) {
        std::string error;
        EXPECT_FALSE(ZQCamera::OpenDescription(test.path, error)) << test.path;
        EXPECT_EQ(error.find(test.path + ": " + test.says), 0U) << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    }
    for (const std::string& text : { costly(30), nested(33), many(400000) }) {
        EXPECT_TRUE(openDescription(text).isOk());
    }
}

// A is implemented and locked by bits of one register, B available through a formula over two, of
// C's entries one is always there.
TEST(Opened, RegistersThatDecideStartFavourably)
{
    const std::string readOnly = "<AccessMode>RO</AccessMode>";
    TestCamera camera("A B C",
        intReg("A", 0, "<pIsImplemented>Bit</pIsImplemented><pIsLocked>Locked</pIsLocked>")
            + intReg("B", 4, "<pIsAvailable>Both</pIsAvailable>") + intReg("Inq1", 8)
            + intReg("Inq2", 12) + intReg("EntryInq", 20) + intReg("Choice", 24)
            + reg("MaskedIntReg", "Bit", 16, "<Bit>5</Bit>" + readOnly)
            + reg("MaskedIntReg", "LockBit", 16, "<Bit>7</Bit>" + readOnly)
            + knife("IntSwissKnife", "Locked", { "LockBit" }, "LockBit=1")
            + knife("IntSwissKnife", "Both", { "Inq1", "Inq2" }, "Inq1 &amp; Inq2")
            + R"(<Enumeration Name="C"><EnumEntry Name="First"><pIsAvailable>EntryInq</pIsAvailable>
<Value>0</Value></EnumEntry><EnumEntry Name="Second"><Value>1</Value></EnumEntry>
<pValue>Choice</pValue></Enumeration>)");

    EXPECT_EQ(camera.listed(), "Main:0 A:1 B:1 C:1");
    EXPECT_EQ(camera.state("A"), featurebrowser::FEATURE_AVAILABLE);
    EXPECT_EQ(camera.state("B"), featurebrowser::FEATURE_AVAILABLE);
    EXPECT_EQ(camera.read("A"), "0");
    EXPECT_EQ(camera.item("C").enumEntries.size(), 2U);
}

} // namespace
