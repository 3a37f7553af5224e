#include "batch/BatchRun.h"
#include "batch/Report.h"
#include "program/EndSignals.h"
#include "program/ViewerApplication.h"
#include "opening/OpeningWindow.h"
#include "opening/RecentCameras.h"
#include "opening/StartPage.h"
#include "window/ViewerWindow.h"
#include "window/WindowMemory.h"

#include <QFile>

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

/// Null when the user has given up.
std::unique_ptr<OpenedCamera> openBeside(const CommandLine& options)
{
    OpeningWindow opening(options.camera, options.access());
    opening.start();
    opening.exec();
    return opening.takeCamera();
}

/// Null, and why, when it cannot be opened; null alone when the user has given up.
std::unique_ptr<OpenedCamera> openNamed(const CommandLine& options, QString& error)
{
    return options.camera.isEmpty() ? openAndLoad(options, error) : openBeside(options);
}

/// Asks the user for a camera until one is open; null when the user has given up.
std::unique_ptr<OpenedCamera> openChosen(CommandLine& options, RecentCameras& recent)
{
    StartPage page(recent);
    while (page.exec() == QDialog::Accepted) {
        page.addChoice(options);
        QString error;
        if (std::unique_ptr<OpenedCamera> camera = openNamed(options, error)) {
            return camera;
        }
        page.showError(error);
    }
    return nullptr;
}

void remember(RecentCameras& recent, const CommandLine& options, const OpenedCamera& camera)
{
    if (!options.camera.isEmpty() || !options.description.isEmpty()) {
        const QString place = options.camera.isEmpty() ? options.description : options.camera;
        recent.add(
            { camera.name() + QStringLiteral(", ") + place, options.description, options.camera });
    }
}

int runWindow(CommandLine options, std::unique_ptr<OpenedCamera> camera,
    ViewerApplication& application, const EndSignals& signals)
{
    RecentCameras recent;
    if (!camera) {
        camera = options.namesCamera ? openBeside(options) : openChosen(options, recent);
    }
    if (!camera || signals.caught() != 0) {
        return options.namesCamera ? 1 : 0;
    }
    remember(recent, options, *camera);
    application.setCamera(&camera->camera());
    WindowMemory memory;
    ViewerWindow window(*camera, options.level.value_or(memory.level()), &memory);
    window.show();
    const int status = QApplication::exec();
    application.setCamera(nullptr);
    return status;
}

int runWindow(
    const CommandLine& options, std::unique_ptr<OpenedCamera> camera, int& argc, char** argv)
{
    ViewerApplication application(argc, argv);
    int caught = 0;
    int status = 0;
    {
        const EndSignals signals;
        QObject::connect(&signals, &EndSignals::endWanted, &application, &QCoreApplication::quit);
        status = runWindow(options, std::move(camera), application, signals);
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
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);

    std::signal(SIGPIPE, SIG_IGN); // who does not read on is told of as a full disk is
    CommandLine options;
    QString error;
    if (!readCommandLine(argc, argv, options, error)) {
        return fail(error);
    }
    if (options.list) {
        return listCameras();
    }
    if (options.report) {
        return printReport(options);
    }
    // Before the window system: what it prints would stand around the one line of a failure. A real
    // camera can take long, so that a window comes first where there is one.
    std::unique_ptr<OpenedCamera> camera;
    if (options.needsNoWindow() || (options.namesCamera && options.camera.isEmpty())) {
        camera = openAndLoad(options, error);
        if (!camera) {
            return fail(error);
        }
    }
    if (!chooseDisplay(!options.needsNoWindow())) {
        return fail(
            QStringLiteral("No display. --get, --set, --exec, --frames, --report, --dump, --print "
                           "and --screenshot need none."));
    }
    return options.needsNoWindow() ? runBatch(options, *camera, argc, argv)
                                   : runWindow(options, std::move(camera), argc, argv);
}
