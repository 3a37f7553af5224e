// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/BatchRun.h"
#include "batch/Report.h"
#include "batch/SettingsActions.h"
#include "program/EndSignals.h"
#include "program/ViewerApplication.h"
#include "program/Words.h"
#include "window/CameraWindows.h"

#include <QFile>
#include <QIcon>

#include <clocale>
#include <csignal>

namespace {

using namespace zqviewer;

// Without a display Qt would end the program with a message of several lines.
bool chooseDisplay(bool windowNeeded)
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        return true;
    }
    if (!windowNeeded) {
        return qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

bool readCommandLine(int argc, char** argv, CommandLine& options, QString& error)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QFile::decodeName(argv[i]));
    }
    // The parser needs an application for its texts, but not a display.
    int count = 1;
    const QCoreApplication application(count, argv);
    return parseCommandLine(arguments, options, error);
}

int runWindow(const CommandLine& options, int& argc, char** argv)
{
    ViewerApplication application(argc, argv);
    loadWords();
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("zqviewer")));
    int caught = 0;
    int status = 0;
    {
        const EndSignals signals;
        QObject::connect(&signals, &EndSignals::endWanted, &application, &QCoreApplication::quit);
        CameraWindows windows(options.level);
        windows.setLive(options.isLive);
        if (options.namesCamera) {
            windows.open(options.choice);
        } else {
            windows.showStartPage();
        }
        status = QApplication::exec();
        caught = signals.caught();
    }
    if (caught != 0) {
        // All is in order: end as the signal would have ended it, so that a shell sees why.
        std::raise(caught);
    }
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("zqviewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZQ_VERSION));
#if QT_VERSION_MAJOR < 6 // which always does both
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif

    std::signal(SIGPIPE, SIG_IGN); // who does not read on is told of as a full disk is
    CommandLine options;
    QString error;
    if (!readCommandLine(argc, argv, options, error)) {
        return fail(error);
    }
    // Scripts and support read the same words everywhere; a picture shows what a user sees.
    if ((options.list || options.needsNoWindow()) && options.screenshot.isEmpty()) {
        std::setlocale(LC_MESSAGES, "C");
    }
    if (options.list) {
        return listCameras();
    }
    if (options.report) {
        return printReport(options);
    }
    if (!options.compared.isEmpty()) {
        return compareFiles(options.compared.first(), options.compared.last());
    }
    // Before the window system: what it prints would stand around the one line of a failure.
    std::unique_ptr<OpenedCamera> camera;
    if (options.needsNoWindow()) {
        camera = openAndLoad(options, error);
        if (!camera) {
            return fail(error);
        }
    }
    if (!chooseDisplay(!options.needsNoWindow())) {
        return fail(QStringLiteral("No display. --get, --set, --exec, --frames, --save, --load, "
                                   "--compare, --report, --dump, --print "
                                   "and --screenshot need none."));
    }
    return options.needsNoWindow() ? runBatch(options, *camera, argc, argv)
                                   : runWindow(options, argc, argv);
}
