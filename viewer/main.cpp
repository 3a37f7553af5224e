#include "CommandLine.h"
#include "TreeText.h"
#include "ViewerWindow.h"

#include "featurebrowser/ZQCamera.h"

#include <QApplication>
#include <QFile>
#include <QTreeView>

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
    // Before the window system: what it prints would stand around the one line of a failure.
    std::string openError;
    const auto camera = options.description.isEmpty()
        ? zqcameralib::ZQCamera::OpenSimulated(openError)
        : zqcameralib::ZQCamera::OpenDescription(
            QFile::encodeName(options.description).toStdString(), openError);
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
