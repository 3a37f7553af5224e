// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// The program itself, without a display, as scripts use it.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

struct Result {
    QString output;
    QString error;
    int status = -1;
};

Result run(const QStringList& arguments, const char* output = nullptr)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : { "DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR" }) {
        environment.remove(name);
    }
    environment.insert("LANGUAGE", "de"); // of which scripts notice nothing
    program.setProcessEnvironment(environment);
    if (output != nullptr) {
        program.setStandardOutputFile(output);
    }
    program.start(ZQ_VIEWER, arguments);
    EXPECT_TRUE(program.waitForFinished(60000));
    return { QString::fromUtf8(program.readAllStandardOutput()),
        QString::fromUtf8(program.readAllStandardError()), program.exitCode() };
}

} // namespace

TEST(CommandLine, ActionsAreCarriedOutInTheOrderGivenUntilOneFails)
{
    struct Case {
        const char *arguments, *output, *error; ///< error: of a failure, a pattern
    };
    for (const Case& c :
        std::vector<Case> { { "--get Width --set Width=640 --get Width", "512\n640\n", "" },
            { "--set Width=0x80 --get Width", "128\n", "" },
            { "--set ExposureTime=1000 --get ExposureTime", "1000\n", "" },
            { "--set PixelFormat=Mono12 --get PixelFormat", "Mono12\n", "" },
            { "--set ReverseX=true --get ReverseX --set ReverseX=0 --get ReverseX", "True\nFalse\n",
                "" },
            { "--set DeviceUserID=a=b --get DeviceUserID", "a=b\n", "" },
            { "--set GevPersistentIPAddress=10.0.0.9 --get GevPersistentIPAddress", "10.0.0.9\n",
                "" },
            { "--get GevMACAddress", "02:1A:2B:3C:4D:5E\n", "" },
            { "--set UserSetSelector=UserSet1 --set Width=640 --exec UserSetSave --set Width=320 "
              "--exec UserSetLoad --get Width",
                "640\n", "" },
            { "--set Width=7 --get Width", "", "Width: the value must be between 8 and 2048" },
            { "--get Height --set Width=9 --get Width", "512\n",
                "Width: the value must be 8 plus a multiple of 8" },
            { "--set Gain=0.05", "", "Gain: the value must be 0 plus a multiple of 0.1" },
            { "--set Gain=1e9", "", "Gain: the value must be between 0 and 24" },
            { "--set Gain=much", "", "Gain: 'much' is not a number" },
            { "--set Width=1.5", "", "Width: '1.5' is not a whole number of 64 bits" },
            { "--set PixelFormat=Blue", "",
                "PixelFormat: 'Blue' is none of its entries: Mono8, .*" },
            { "--set ReverseX=perhaps", "", "ReverseX: 'perhaps' is neither true nor false" },
            { "--set DeviceModelName=x", "", "DeviceModelName: is read-only" },
            { "--set DeviceReset=1", "", "DeviceReset: a command is run by --exec" },
            { "--get DeviceReset", "", "DeviceReset: a command has no value" },
            { "--get DeviceLinkThroughputLimit", "", "DeviceLinkThroughputLimit: .*" },
            { "--exec Width", "", "Width: the camera has no command of this name" },
            { "--get Nothing", "", "Nothing: the camera has no feature of this name" },
            { "--get DeviceControl", "", "DeviceControl: the camera has no feature of this name" },
            { "--set Width", "", "--set needs NAME=VALUE, not 'Width'." },
            { "--read-only --get Width", "", "--read-only goes with --camera only." },
            { "--list --dump", "", "--list goes without other options." },
            { "one.xml two.xml", "", "Unexpected argument 'two.xml': .*" },
            { "missing.xml --get Width", "", "missing.xml: no such file" },
            { "", "", "No display. .*" } }) {
        const Result result = run(QString(c.arguments).split(' ', Qt::SkipEmptyParts));
        EXPECT_EQ(result.output.toStdString(), c.output) << c.arguments;
        const QRegularExpression expected(
            *c.error != '\0' ? "\\Azqviewer: " + QString(c.error) + "\n\\z" : "\\A\\z");
        EXPECT_TRUE(expected.match(result.error).hasMatch())
            << c.arguments << ": " << result.error.toStdString();
        EXPECT_EQ(result.status, *c.error != '\0' ? 1 : 0) << c.arguments;
    }
}

TEST(CommandLine, ImagesAreWrittenWithAllTheirBits)
{
    const QTemporaryDir folder;
    const auto file = [&](const char* name) { return folder.filePath(name); };
    const Result done = run(
        { "--set", "Width=64", "--set", "Height=32", "--set", "PixelFormat=Mono16", "--frames", "1",
            "--output", file("one.png"), "--frames", "2", "--output", file("some.tiff"), "--set",
            "PixelFormat=RGB8", "--frames", "2", "--output", file("n%d.png") });
    EXPECT_EQ(done.error.toStdString(), "");
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).join(' '),
        "n1.png n2.png one.png some-1.tiff some-2.tiff");
    EXPECT_EQ(QImage(file("one.png")).format(), QImage::Format_Grayscale16);
    EXPECT_EQ(QImage(file("some-2.tiff")).size(), QSize(64, 32));
    EXPECT_FALSE(QImage(file("n2.png")).isGrayscale());
    for (const QStringList& wrong : { QStringList { "--frames", "1", "--output", "a.txt" },
             { "--frames", "0", "--output", "a.png" }, { "--frames", "1" },
             { "--frames", "1", "--output", file("missing/a.png") } }) {
        EXPECT_EQ(run(wrong).status, 1) << wrong.join(' ').toStdString();
    }
}

TEST(CommandLine, WhatCannotBeWrittenIsAnError)
{
    for (const char* what : { "--get=Width", "--report" }) {
        const Result result = run({ what }, "/dev/full");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.error, "zqviewer: Cannot write the output: No space left on device.\n");
    }
}

TEST(CommandLine, AReportTellsOfWhatIsThereAndOfWhatIsNot)
{
    const Result good = run({ "--report" });
    EXPECT_EQ(good.status, 0);
    for (const char* part : { "Tried:        the built-in simulated camera\n", "Aravis 0.",
             "Qt " QT_VERSION_STR, "\nCamera:       ZQ AreaScan2K\n", "RW 512\n",
             "[not available]\n", "<RegisterDescription" }) {
        EXPECT_TRUE(good.output.contains(part)) << part;
    }
    const Result bad = run({ "missing.xml", "--report" });
    EXPECT_EQ(bad.status, 1);
    EXPECT_TRUE(bad.output.contains("missing.xml (does not exist)"));
    EXPECT_TRUE(bad.output.contains("Failed:       missing.xml: no such file\n"));
    EXPECT_EQ(bad.error, "zqviewer: missing.xml: no such file\n");
}

TEST(CommandLine, SettingsAreSavedLoadedAndCompared)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.zqs");
    ASSERT_EQ(run({ "--save", file }).status, 0);
    struct Case {
        QStringList arguments;
        int status;
        const char *output, *error; ///< patterns
    };
    const QString other = folder.filePath("b.zqs");
    ASSERT_EQ(run({ "--set", "Width=640", "--save", other }).status, 0);
    const QString persistence = folder.filePath("a.pfs");
    ASSERT_EQ(run({ "--save", persistence }).status, 0);
    const QString damaged = folder.filePath("c.zqs");
    ASSERT_TRUE(QFile::copy(file, damaged));
    QFile more(damaged);
    ASSERT_TRUE(more.open(QFile::Append) && more.write("Width\n") > 0);
    more.close();
    for (const Case& c : std::vector<Case> { { { "--compare", file }, 0, "^$", "^$" },
             { { "--set", "Width=640", "--compare", file }, 1, "^Width: 512 .*640", "^$" },
             { { "--compare", file, other }, 1, "^Width: 512 .*640", "^$" },
             { { "--compare", file, file }, 0, "^$", "^$" },
             { { "--compare", persistence }, 0, "^$", "^$" },
             { { "--set", "Width=640", "--load", file, "--get", "Width" }, 0, "\n512\n$", "^$" },
             { { "--set", "Width=640", "--load", file, "--dry-run", "--get", "Width" }, 0,
                 "Width: would be written: 640 -> 512.*\n640\n$", "^$" },
             { { "--load", damaged, "--get", "Width" }, 1, "^$", "c.zqs: line \\d+" },
             { { "--load", folder.filePath("none") }, 1, "^$", "none" },
             { { "--save", "/dev/full" }, 1, "^$", "/dev/full" },
             { { "--dry-run" }, 1, "^$", "--dry-run goes with --load only" } }) {
        const Result result = run(c.arguments);
        const auto matches = [](const char* pattern, const QString& text) {
            return QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption)
                .match(text)
                .hasMatch();
        };
        const std::string words = c.arguments.join(' ').toStdString();
        EXPECT_EQ(result.status, c.status) << words;
        EXPECT_TRUE(matches(c.output, result.output)) << words << result.output.toStdString();
        EXPECT_TRUE(matches(c.error, result.error)) << words << result.error.toStdString();
    }
}

TEST(CommandLine, QtsOwnOptionsAreLeftToQt)
{
    EXPECT_EQ(
        run({ "-style", "fusion", "--platform=offscreen", "--get", "Width" }).output, "512\n");
    const Result help = run({ "--help-all" });
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.contains("--set <NAME=VALUE>"));
    const Result tree = run({ "--set", "Width=128", "--print" });
    EXPECT_EQ(tree.status, 0);
    EXPECT_TRUE(QRegularExpression("\n +Width +128\n").match(tree.output).hasMatch());
}
