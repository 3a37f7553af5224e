#include "program/CommandLine.h"

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
        QStringLiteral("Open a simulated camera (the default): the built-in one, or the one that "
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
    const QCommandLineOption level { QStringLiteral("level"),
        QStringLiteral("Show features up to this visibility: Beginner, Expert or Guru (the "
                       "default)."),
        QStringLiteral("LEVEL"), QStringLiteral("Guru") };
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

/// What is wrong with the options that were given, in one line; empty when nothing is.
QString problem(const QCommandLineParser& parser, const Options& options)
{
    if (!parser.positionalArguments().isEmpty()) {
        return QStringLiteral("Unexpected argument '%1'.")
            .arg(parser.positionalArguments().first());
    }
    if (!parseLevel(parser.value(options.level))) {
        return QStringLiteral("Unknown level '%1': use Beginner, Expert or Guru.")
            .arg(parser.value(options.level));
    }
    const bool hasCamera = parser.isSet(options.camera);
    if (hasCamera && (parser.isSet(options.simulate) || parser.value(options.camera).isEmpty())) {
        return QStringLiteral("--camera needs the id of a camera, and goes without --simulate.");
    }
    if (parser.isSet(options.screenshot) && parser.value(options.screenshot).isEmpty()) {
        return QStringLiteral("--screenshot needs the name of a file.");
    }
    return {};
}

} // namespace

bool parseCommandLine(const QStringList& arguments, CommandLine& result, QString& error)
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the features of a GenICam camera, changes them and runs commands."));
    parser.addOptions({ options.simulate, options.list, options.camera, options.readOnly,
        options.level, options.dump, options.print, options.screenshot });
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    if (!parser.parse(withOptionalValues(arguments))) {
        error = parser.errorText();
        return false;
    }
    if (parser.isSet(help)) {
        parser.showHelp();
    }
    if (parser.isSet(version)) {
        parser.showVersion();
    }
    error = problem(parser, options);
    if (!error.isEmpty()) {
        return false;
    }
    result.level = parseLevel(parser.value(options.level)).value_or(result.level);
    result.description = parser.value(options.simulate);
    result.camera = parser.value(options.camera);
    result.readOnly = parser.isSet(options.readOnly);
    result.list = parser.isSet(options.list);
    result.dump = parser.isSet(options.dump);
    result.print = parser.isSet(options.print);
    result.screenshot = parser.value(options.screenshot);
    return true;
}

} // namespace zqviewer
