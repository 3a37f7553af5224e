#include "CommandLine.h"

#include <QCommandLineParser>
#include <QRegularExpression>

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

bool parseLevel(const QString& text, TYPE_LEVEL& level)
{
    const QStringList names { QStringLiteral("Beginner"), QStringLiteral("Expert"),
        QStringLiteral("Guru") };
    for (int i = 0; i < names.size(); ++i) {
        if (text.compare(names[i], Qt::CaseInsensitive) == 0) {
            level = static_cast<TYPE_LEVEL>(i + LEVEL_BEGINNER);
            return true;
        }
    }
    return false;
}

} // namespace

bool parseCommandLine(const QStringList& arguments, CommandLine& result, QString& error)
{
    const QCommandLineOption simulate(QStringLiteral("simulate"),
        QStringLiteral("Open a simulated camera (the default): the built-in one, or the one that "
                       "the GenICam description FILE.xml (plain or zipped) describes. Needs no "
                       "hardware and no network. Write --simulate=FILE.xml, with the equals sign."),
        QStringLiteral("FILE.xml"));
    const QCommandLineOption list(QStringLiteral("list"),
        QStringLiteral("Search all networks and buses for cameras for about a second, print them, "
                       "one to a line, and exit."));
    const QCommandLineOption camera(QStringLiteral("camera"),
        QStringLiteral("Open a camera: its id as --list prints it, or the IPv4 address of a GigE "
                       "Vision camera."),
        QStringLiteral("ID"));
    const QCommandLineOption readOnly(QStringLiteral("read-only"),
        QStringLiteral("With --camera: only look, and leave the control to other applications."));
    const QCommandLineOption level(QStringLiteral("level"),
        QStringLiteral("Show features up to this visibility: Beginner, Expert or Guru (the "
                       "default)."),
        QStringLiteral("LEVEL"), QStringLiteral("Guru"));
    const QCommandLineOption dump(QStringLiteral("dump"),
        QStringLiteral("Print the tree with all its values as JSON, whatever the level, and exit. "
                       "Works without a display."));
    const QCommandLineOption print(QStringLiteral("print"),
        QStringLiteral("Print the tree as readable text, whatever the level, and exit. Works "
                       "without a display."));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Write a picture of the window, first-level categories expanded, and exit. "
                       "Works without a display."),
        QStringLiteral("FILE.png"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the features of a GenICam camera, changes them and runs commands."));
    parser.addOptions({ simulate, list, camera, readOnly, level, dump, print, screenshot });
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
    if (!parser.positionalArguments().isEmpty()) {
        error
            = QStringLiteral("Unexpected argument '%1'.").arg(parser.positionalArguments().first());
        return false;
    }
    if (!parseLevel(parser.value(level), result.level)) {
        error = QStringLiteral("Unknown level '%1': use Beginner, Expert or Guru.")
                    .arg(parser.value(level));
        return false;
    }
    if (parser.isSet(camera) && (parser.isSet(simulate) || parser.value(camera).isEmpty())) {
        error = QStringLiteral("--camera needs the id of a camera, and goes without --simulate.");
        return false;
    }
    result.description = parser.value(simulate);
    result.camera = parser.value(camera);
    result.readOnly = parser.isSet(readOnly);
    result.list = parser.isSet(list);
    result.dump = parser.isSet(dump);
    result.print = parser.isSet(print);
    result.screenshot = parser.value(screenshot);
    if (parser.isSet(screenshot) && result.screenshot.isEmpty()) {
        error = QStringLiteral("--screenshot needs the name of a file.");
        return false;
    }
    return true;
}

} // namespace zqviewer
