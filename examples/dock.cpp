// A feature browser in a dock. `dock FILE.png` writes a picture of the window and ends.
#include <featurebrowser/CameraFeatureBrowser.h>
#include <featurebrowser/FeatureReceiverAdapter.h>
#include <featurebrowser/ZQCamera.h>
#include <featurebrowser/ZQCameraRepository.h>
#include <featurebrowser/ZQFeatureBrowser.h>

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

#include <cstdio>

namespace {

/// Shows in the status bar what became of the user's edits.
class StatusReceiver : public featurebrowser::FeatureReceiverAdapter {
public:
    explicit StatusReceiver(QStatusBar& bar)
        : m_bar(bar)
    {
    }
    void SendError(int, std::string text) override
    {
        m_bar.showMessage(QString::fromStdString(text));
    }

private:
    QStatusBar& m_bar;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::string error;
    const auto camera = zqcameralib::ZQCamera::OpenSimulated(error);
    if (!camera) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    QMainWindow window; // before the browser, which takes its widget out of it when it ends
    window.setCentralWidget(new QLabel(QStringLiteral("The application"), &window));
    StatusReceiver receiver(*window.statusBar());
    featurebrowser::ZQFeatureBrowser browser(camera.get(), &receiver);
    auto* dock = new QDockWidget(QString::fromStdString(camera->model()), &window);
    dock->setWidget(browser.GetWidget());
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    browser.GetCameraRepository()->Load();
    browser.LoadFeatureBrowser();
    describeFeatures(browser.GetWidget(), browser.GetCameraRepository()->GetFeatureList());
    browser.ShowStandalone(0, 0, {}, featurebrowser::LEVEL_EXPERT); // in the dock, as it is there
    window.resize(900, 600);
    window.show();
    return argc > 1 ? !window.grab().save(QString::fromLocal8Bit(argv[1])) : QApplication::exec();
}
