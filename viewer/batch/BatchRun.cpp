// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/BatchRun.h"

#include "batch/CameraActions.h"
#include "batch/TreeText.h"
#include "images/ImagePane.h"
#include "images/LiveImage.h"
#include "log/EventLog.h"
#include "program/CameraChoice.h"
#include "program/Words.h"
#include "window/ViewerWindow.h"

#include "featurebrowser/ZQImageView.h"

#include <QApplication>
#include <QBuffer>
#include <QEventLoop>
#include <QFile>
#include <QLoggingCategory>
#include <QTimer>
#include <QTreeView>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace zqviewer {

using zqcameralib::ZQCamera;

namespace {

constexpr std::chrono::seconds imagePatience(3);
constexpr QSize pictureSize(1280, 860);

/// Where errors go to, also while standard error is kept quiet.
int errorOutput = STDERR_FILENO;

/// Keeps standard error to what the program itself has to say: the browser's trace is nothing to
/// who asks for the tree.
class QuietErrors {
public:
    QuietErrors()
    {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        const int errors = dup(STDERR_FILENO);
        if (errors >= 0 && dup2(nowhere, STDERR_FILENO) >= 0) {
            errorOutput = errors;
        }
        close(nowhere);
    }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
    ~QuietErrors()
    {
        if (errorOutput != STDERR_FILENO) {
            std::fflush(stderr);
            dup2(errorOutput, STDERR_FILENO);
            close(std::exchange(errorOutput, STDERR_FILENO));
        }
    }
};

QString line(const zqcameralib::CameraInfo& camera)
{
    const std::array fields { camera.id, camera.vendor, camera.model, camera.serial,
        camera.protocol, camera.address,
        camera.reachable ? "reachable" : "not reachable: " + camera.hint };
    QStringList line;
    for (const std::string& field : fields) {
        line.append(QString::fromStdString(field));
    }
    return line.join(QLatin1Char('\t')) + QLatin1Char('\n');
}

/// A simulated camera shows what it sees; a real one is left alone.
void showImage(ViewerWindow& window)
{
    window.images().live().start();
    QEventLoop loop;
    QObject::connect(&window.images().view(), &featurebrowser::ZQImageView::imageChanged, &loop,
        &QEventLoop::quit);
    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
    patience.start(imagePatience);
    loop.exec();
}

bool writePicture(ViewerWindow& window, const QString& name, bool isSimulated)
{
    window.tree()->expandToDepth(0);
    window.resize(pictureSize); // whatever the screen is, if there is one
    window.show();
    QApplication::processEvents();
    if (isSimulated) {
        showImage(window);
    }
    QBuffer picture;
    QFile file(name);
    // The writer of pictures itself does not notice a full disk.
    const bool done = window.grab().save(&picture, "PNG") && file.open(QFile::WriteOnly)
        && file.write(picture.data()) == picture.data().size() && file.flush();
    if (!done) {
        fail(QStringLiteral("Cannot write '%1': %2.").arg(name, file.errorString()));
    }
    return done;
}

std::unique_ptr<ZQCamera> openCamera(const CommandLine& options, std::string& error)
{
    if (!options.choice.camera.isEmpty()) {
        return ZQCamera::Open(options.choice.camera.toStdString(), options.choice.access, error);
    }
    if (!options.choice.description.isEmpty()) {
        return ZQCamera::OpenDescription(
            QFile::encodeName(options.choice.description).toStdString(), error);
    }
    return ZQCamera::OpenSimulated(error);
}

int showTree(const CommandLine& options, OpenedCamera& camera, int& argc, char** argv)
{
    // What Qt misses on a machine without a desktop is nothing to a program without a window.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    const QApplication application(argc, argv);
    loadWords();
    const QuietErrors quiet;
    ViewerWindow window(camera, options.level.value_or(featurebrowser::LEVEL_GURU), nullptr,
        std::make_shared<EventLog>());
    const OpenedCamera::Reading reading = camera.reading();
    if (!reading.isComplete) { // what can be read is printed all the same
        fail(reading.text);
    }
    const QAbstractItemModel& model = *window.tree()->model();
    const bool done = (!options.dump || print(treeAsJson(model)))
        && (!options.print || print(treeAsText(model)))
        && (options.screenshot.isEmpty()
            || writePicture(window, options.screenshot, options.choice.camera.isEmpty()));
    return done ? 0 : 1;
}

} // namespace

int fail(const QString& error)
{
    dprintf(errorOutput, "zqviewer: %s\n", qUtf8Printable(error.simplified()));
    return 1;
}

bool print(const QByteArray& text)
{
    const auto size = static_cast<std::size_t>(text.size());
    // A full disk or closed pipe shows when it is flushed.
    if (std::fwrite(text.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0) {
        return true;
    }
    const QString error = QStringLiteral("Cannot write the output: %1.")
                              .arg(QString::fromLocal8Bit(std::strerror(errno)));
    fail(error);
    return false;
}

int listCameras()
{
    zqcameralib::ZQDiscovery discovery;
    for (const zqcameralib::CameraInfo& camera : discovery.discover()) {
        if (!print(line(camera).toUtf8())) {
            return 1;
        }
    }
    if (discovery.cameras().empty()) {
        std::fputs("No cameras found.\n", stderr);
    }
    return 0;
}

std::unique_ptr<OpenedCamera> openAndLoad(const CommandLine& options, QString& error)
{
    std::string reason;
    std::unique_ptr<ZQCamera> camera = openCamera(options, reason);
    if (!camera) {
        error = QString::fromStdString(reason);
        return nullptr;
    }
    auto opened = std::make_unique<OpenedCamera>(std::move(camera), options.choice.origin());
    const int status = opened->repository().Load();
    if (status != featurebrowser::STATUS_OK) {
        error = ViewerWindow::tr("The camera's features cannot be read: %1")
                    .arg(opened->errorText(status));
        return nullptr;
    }
    return opened;
}

int runBatch(const CommandLine& options, OpenedCamera& camera, int& argc, char** argv)
{
    if (!options.actions.empty()) {
        const int status = runActions(options, camera);
        if (status != 0 || !options.showsTree()) {
            return status;
        }
        camera.repository().Load(); // what the actions have changed
    }
    return showTree(options, camera, argc, argv);
}

} // namespace zqviewer
