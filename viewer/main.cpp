#include "CommandLine.h"
#include "TreeText.h"
#include "ViewerWindow.h"

#include "featurebrowser/ZQCamera.h"

#include <QApplication>
#include <QFile>
#include <QTreeView>

#include <array>
#include <cstdio>

namespace {

using namespace zqviewer;

int fail(const QString& error)
{
    // One line, whatever the text holds.
    std::fprintf(stderr, "zqviewer: %s\n", qUtf8Printable(error.simplified()));
    return 1;
}

void print(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    std::fflush(stdout); // what follows on standard error stands behind it
}

bool takeScreenshot(ViewerWindow& window, const QString& file)
{
    window.tree()->expandToDepth(0);
    window.show();
    QApplication::processEvents();
    return window.grab().save(file, "PNG");
}

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

int listCameras()
{
    zqcameralib::ZQDiscovery discovery;
    for (const zqcameralib::CameraInfo& camera : discovery.discover()) {
        const std::array fields { camera.id, camera.vendor, camera.model, camera.serial,
            camera.protocol, camera.address,
            std::string(camera.reachable ? "reachable" : "not reachable") };
        QStringList line;
        for (const std::string& field : fields) {
            line.append(QString::fromStdString(field));
        }
        print(line.join(QLatin1Char('\t')).toUtf8() + '\n');
    }
    if (discovery.cameras().empty()) {
        std::fputs("No cameras found.\n", stderr);
    }
    return 0;
}

std::unique_ptr<zqcameralib::ZQCamera> openCamera(const CommandLine& options, std::string& error)
{
    using zqcameralib::CameraAccess;
    using zqcameralib::ZQCamera;
    if (!options.camera.isEmpty()) {
        return ZQCamera::Open(options.camera.toStdString(),
            options.readOnly ? CameraAccess::ReadOnly : CameraAccess::Control, error);
    }
    if (!options.description.isEmpty()) {
        return ZQCamera::OpenDescription(
            QFile::encodeName(options.description).toStdString(), error);
    }
    return ZQCamera::OpenSimulated(error);
}

int runBatch(ViewerWindow& window, const CommandLine& options)
{
    if (options.dump) {
        print(treeAsJson(*window.tree()->model()));
    }
    if (options.print) {
        print(treeAsText(*window.tree()->model()));
    }
    if (!options.screenshot.isEmpty() && !takeScreenshot(window, options.screenshot)) {
        return fail(QStringLiteral("Cannot write '%1'.").arg(options.screenshot));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("zqviewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZQ_VERSION));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);

    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QFile::decodeName(argv[i]));
    }
    CommandLine options;
    QString error;
    {
        // The parser needs an application for its texts, but not a display.
        int count = 1;
        const QCoreApplication application(count, argv);
        if (!parseCommandLine(arguments, options, error)) {
            return fail(error);
        }
    }
    if (options.list) {
        return listCameras();
    }
    // Before the window system: what it prints would stand around the one line of a failure.
    std::string openError;
    const auto camera = openCamera(options, openError);
    if (!camera) {
        return fail(QString::fromStdString(openError));
    }
    if (!chooseDisplay(!options.needsNoWindow())) {
        return fail(QStringLiteral("No display. --dump, --print and --screenshot need none."));
    }
    const QApplication application(argc, argv);

    ViewerWindow window(*camera, options.level, error);
    if (!error.isEmpty()) {
        return fail(error);
    }
    if (options.needsNoWindow()) {
        return runBatch(window, options);
    }
    window.show();
    return QApplication::exec();
}
