// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/CommandLine.h"

#include "program/FileKind.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <optional>

using namespace featurebrowser;

namespace zqviewer {
namespace {

// QCommandLineParser knows no optional values: give a bare --simulate the empty one.
QStringList withOptionalValues(QStringList arguments)
{
    arguments.replaceInStrings(
        QRegularExpression(QStringLiteral("^--?simulate$")), QStringLiteral("--simulate="));
    return arguments;
}

/// Without the options that QApplication takes out of its arguments.
QStringList withoutQtOptions(const QStringList& arguments)
{
    static const QStringList flags { QStringLiteral("reverse"), QStringLiteral("nograb"),
        QStringLiteral("dograb"), QStringLiteral("sync"), QStringLiteral("widgetcount") };
    static const QStringList withValue { QStringLiteral("platform"),
        QStringLiteral("platformpluginpath"), QStringLiteral("platformtheme"),
        QStringLiteral("plugin"), QStringLiteral("qwindowgeometry"), QStringLiteral("qwindowicon"),
        QStringLiteral("qwindowtitle"), QStringLiteral("session"), QStringLiteral("display"),
        QStringLiteral("geometry"), QStringLiteral("fontengine"), QStringLiteral("style"),
        QStringLiteral("stylesheet"), QStringLiteral("qmljsdebugger") };
    QStringList rest;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString name = arguments[i]
                                 .section(QLatin1Char('='), 0, 0)
                                 .remove(QRegularExpression(QStringLiteral("^--?")));
        const bool isOption = i > 0 && arguments[i].startsWith(QLatin1Char('-'));
        if (isOption && withValue.contains(name)) {
            i += arguments[i].contains(QLatin1Char('=')) ? 0 : 1;
        } else if (!isOption || !flags.contains(name)) {
            rest.append(arguments[i]);
        }
    }
    return rest;
}

std::optional<TYPE_LEVEL> parseLevel(const QString& text)
{
    const QStringList names { QStringLiteral("Beginner"), QStringLiteral("Expert"),
        QStringLiteral("Guru") };
    for (int i = 0; i < names.size(); ++i) {
        if (text.compare(names[i], Qt::CaseInsensitive) == 0) {
            return static_cast<TYPE_LEVEL>(i + LEVEL_BEGINNER);
        }
    }
    return std::nullopt;
}

struct Options {
    const QCommandLineOption simulate { QStringLiteral("simulate"),
        QStringLiteral("Open a simulated camera: the built-in one, or the one that "
                       "the GenICam description FILE.xml (plain or zipped) describes. Needs no "
                       "hardware and no network. Write --simulate=FILE.xml, with the equals sign."),
        QStringLiteral("FILE.xml") };
    const QCommandLineOption list { QStringLiteral("list"),
        QStringLiteral("Search all networks and buses for cameras for about a second, print them, "
                       "one to a line, and exit.") };
    const QCommandLineOption camera { QStringLiteral("camera"),
        QStringLiteral("Open a camera: its id as --list prints it, or the IPv4 address of a GigE "
                       "Vision camera."),
        QStringLiteral("ID") };
    const QCommandLineOption readOnly { QStringLiteral("read-only"),
        QStringLiteral("With --camera: only look, and leave the control to other applications.") };
    const QCommandLineOption live { QStringLiteral("live"),
        QStringLiteral("Start the images as soon as the window is there.") };
    const QCommandLineOption get { QStringLiteral("get"),
        QStringLiteral(
            "Print the value of a feature on a line of its own, as its row shows it, "
            "without the unit. Like --set and --exec it can be given several times; they "
            "are carried out in the order given, until one fails, without a display."),
        QStringLiteral("NAME") };
    const QCommandLineOption set { QStringLiteral("set"),
        QStringLiteral("Write a feature: a number, an entry, true or false, an address, a text."),
        QStringLiteral("NAME=VALUE") };
    const QCommandLineOption run { QStringLiteral("exec"),
        QStringLiteral("Run a command and wait until the camera says that it is done."),
        QStringLiteral("COMMAND") };
    const QCommandLineOption frames { QStringLiteral("frames"),
        QStringLiteral("Acquire this many images and write them to the file of --output."),
        QStringLiteral("N") };
    const QCommandLineOption output { QStringLiteral("output"),
        QStringLiteral("Where the images of --frames go to, with all their bits: FILE.png or "
                       "FILE.tiff. Of several images, %d is the number, or it is added."),
        QStringLiteral("FILE") };
    const QCommandLineOption save { QStringLiteral("save"),
        QStringLiteral(
            "Save the camera's settings to a file, in the order given as --get. FILE.pfs is "
            "written in the persistence layout of other tools."),
        QStringLiteral("FILE") };
    const QCommandLineOption load { QStringLiteral("load"),
        QStringLiteral("Restore settings from a file and print what became of them. A file that is "
                       "damaged anywhere is refused as a whole."),
        QStringLiteral("FILE") };
    const QCommandLineOption dryRun { QStringLiteral("dry-run"),
        QStringLiteral("With --load: only print what would be written.") };
    const QCommandLineOption compare { QStringLiteral("compare"),
        QStringLiteral("Print where the camera differs from a file of settings, and end with "
                       "status 1 when it does. With a second file: where the two differ, without "
                       "any camera."),
        QStringLiteral("FILE [FILE2]") };
    const QCommandLineOption report { QStringLiteral("report"),
        QStringLiteral("Print what a support engineer needs and exit: versions, the camera, every "
                       "feature with its state, and the description; also of a camera or file that "
                       "cannot be opened.") };
    const QCommandLineOption level { QStringLiteral("level"),
        QStringLiteral("Show features up to this visibility: Beginner, Expert or Guru. "
                       "Without it as it was last, at first Guru."),
        QStringLiteral("LEVEL") };
    const QCommandLineOption dump { QStringLiteral("dump"),
        QStringLiteral("Print the tree with all its values as JSON, whatever the level, and exit. "
                       "Works without a display.") };
    const QCommandLineOption print { QStringLiteral("print"),
        QStringLiteral("Print the tree as readable text, whatever the level, and exit. Works "
                       "without a display.") };
    const QCommandLineOption screenshot { QStringLiteral("screenshot"),
        QStringLiteral("Write a picture of the window, first-level categories expanded, and exit. "
                       "Works without a display."),
        QStringLiteral("FILE.png") };
};

/// --compare FILE1 FILE2 alone.
bool comparesFiles(const QCommandLineParser& parser, const Options& options)
{
    const QStringList files = parser.positionalArguments();
    return parser.optionNames() == QStringList { QStringLiteral("compare") } && files.size() == 1
        && !isDescriptionFile(files.first()) && !parser.value(options.compare).isEmpty();
}

/// The description file, by option or by itself.
QString descriptionOf(const QCommandLineParser& parser, const Options& options)
{
    const QStringList files = parser.positionalArguments();
    return files.isEmpty() ? parser.value(options.simulate) : files.first();
}

/// What is wrong with the options that choose the camera.
QString cameraProblem(const QCommandLineParser& parser, const Options& options)
{
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1 || (!files.isEmpty() && parser.isSet(options.simulate))) {
        return QStringLiteral("Unexpected argument '%1': one description file is opened at a time.")
            .arg(files.last());
    }
    if (!files.isEmpty() && files.first().isEmpty()) {
        return QStringLiteral("The name of the description file is empty.");
    }
    const bool hasCamera = parser.isSet(options.camera);
    const bool simulates = parser.isSet(options.simulate) || !files.isEmpty();
    if (hasCamera && (simulates || parser.value(options.camera).isEmpty())) {
        return QStringLiteral(
            "--camera needs the id of a camera, and goes without a simulated one.");
    }
    if (parser.isSet(options.readOnly) && !hasCamera) {
        return QStringLiteral("--read-only goes with --camera only.");
    }
    return {};
}

/// What is wrong with the options that were given, in one line; empty when nothing is.
QString problem(const QCommandLineParser& parser, const Options& options)
{
    if (parser.isSet(options.level) && !parseLevel(parser.value(options.level))) {
        return QStringLiteral("Unknown level '%1': use Beginner, Expert or Guru.")
            .arg(parser.value(options.level));
    }
    if (parser.isSet(options.screenshot) && parser.value(options.screenshot).isEmpty()) {
        return QStringLiteral("--screenshot needs the name of a file.");
    }
    if (parser.isSet(options.list) && parser.optionNames().size() > 1) {
        return QStringLiteral("--list goes without other options.");
    }
    for (const auto* option : { &options.save, &options.load, &options.compare }) {
        if (parser.values(*option).contains(QString())) {
            return QStringLiteral("--%1 needs the name of a file.").arg(option->names().first());
        }
    }
    if (parser.isSet(options.dryRun) && !parser.isSet(options.load)) {
        return QStringLiteral("--dry-run goes with --load only.");
    }
    for (const QString& assignment : parser.values(options.set)) {
        if (assignment.indexOf(QLatin1Char('=')) < 1) {
            return QStringLiteral("--set needs NAME=VALUE, not '%1'.").arg(assignment);
        }
    }
    const QStringList counts = parser.values(options.frames);
    if (counts.size() != parser.values(options.output).size()) {
        return QStringLiteral("--frames and --output go together.");
    }
    for (const QString& count : counts) {
        if (count.toInt() < 1) {
            return QStringLiteral("--frames needs a number of images, not '%1'.").arg(count);
        }
    }
    return cameraProblem(parser, options);
}

/// In the order given, which the parser keeps among options of all kinds.
std::vector<CameraAction> actionsOf(const QCommandLineParser& parser, const Options& options)
{
    using Kind = CameraAction::Kind;
    QStringList gets = parser.values(options.get);
    QStringList sets = parser.values(options.set);
    QStringList runs = parser.values(options.run);
    QStringList counts = parser.values(options.frames);
    QStringList files = parser.values(options.output);
    QStringList saved = parser.values(options.save);
    QStringList loaded = parser.values(options.load);
    QStringList compared = parser.values(options.compare);
    std::vector<CameraAction> actions;
    for (const QString& name : parser.optionNames()) {
        if (name == QLatin1String("get")) {
            actions.push_back({ Kind::Get, gets.takeFirst(), {} });
        } else if (name == QLatin1String("set")) {
            actions.push_back({ Kind::Set, sets.takeFirst(), {} });
        } else if (name == QLatin1String("exec")) {
            actions.push_back({ Kind::Run, runs.takeFirst(), {} });
        } else if (name == QLatin1String("frames")) {
            actions.push_back({ Kind::Capture, counts.takeFirst(), files.takeFirst() });
        } else if (name == QLatin1String("save")) {
            actions.push_back({ Kind::Save, {}, saved.takeFirst() });
        } else if (name == QLatin1String("load")) {
            actions.push_back({ Kind::Load, {}, loaded.takeFirst() });
        } else if (name == QLatin1String("compare")) {
            actions.push_back({ Kind::Compare, {}, compared.takeFirst() });
        }
    }
    return actions;
}

} // namespace

bool parseCommandLine(const QStringList& arguments, CommandLine& result, QString& error)
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the features of a GenICam camera, changes them and runs commands."));
    parser.addOptions({ options.simulate, options.list, options.camera, options.readOnly,
        options.live, options.get, options.set, options.run, options.frames, options.output,
        options.save, options.load, options.dryRun, options.compare, options.level, options.dump,
        options.print, options.report, options.screenshot });
    parser.addPositionalArgument(QStringLiteral("FILE.xml"),
        QStringLiteral("A GenICam description, as with --simulate=FILE.xml."),
        QStringLiteral("[FILE.xml]"));
    parser.addHelpOption();
    parser.addVersionOption();
    const QStringList own = withOptionalValues(withoutQtOptions(arguments));
    if (!parser.parse(own)) {
        error = parser.errorText();
        return false;
    }
    parser.process(own); // --help, --help-all and --version
    if (comparesFiles(parser, options)) {
        result.compared = parser.values(options.compare) + parser.positionalArguments();
        return true;
    }
    error = problem(parser, options);
    if (!error.isEmpty()) {
        return false;
    }
    if (parser.isSet(options.level)) {
        result.level = parseLevel(parser.value(options.level));
    }
    result.namesCamera = parser.isSet(options.simulate) || parser.isSet(options.camera)
        || !parser.positionalArguments().isEmpty();
    result.choice.description = descriptionOf(parser, options);
    result.actions = actionsOf(parser, options);
    result.isDryRun = parser.isSet(options.dryRun);
    result.report = parser.isSet(options.report);
    result.choice.camera = parser.value(options.camera);
    result.choice.access = parser.isSet(options.readOnly) ? zqcameralib::CameraAccess::ReadOnly
                                                          : zqcameralib::CameraAccess::Control;
    result.isLive = parser.isSet(options.live);
    result.list = parser.isSet(options.list);
    result.dump = parser.isSet(options.dump);
    result.print = parser.isSet(options.print);
    result.screenshot = parser.value(options.screenshot);
    return true;
}

} // namespace zqviewer
