// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Takes the pictures of docs/: `screenshots FOLDER`. Shows the browser in the middle of its work,
// on a light and on a dark palette.
#include "../tests/system/Browser.h"

#include "featurebrowser/CameraFeatureBrowser.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <QApplication>
#include <QByteArrayList>
#include <QDir>
#include <QPixmap>
#include <QStyleFactory>

#include <cstdio>

namespace {

QPalette darkPalette()
{
    QPalette palette(QColor(45, 45, 48), QColor(37, 37, 40));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
    palette.setColor(QPalette::Highlight, QColor(38, 110, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

bool take(const QString& file)
{
    Browser b;
    b.window()->resize(760, 820);
    featurebrowser::describeFeatures(
        b.window(), b.browser().GetCameraRepository()->GetFeatureList());
    b.window()->setProperty("pinnedFeatures",
        QVariant::fromValue(QByteArrayList { "DeviceTemperature", "ExposureTime" }));
    b.edit("Width", "640");
    b.edit("ExposureTime", "20 ms");
    b.edit("OffsetX", "6");
    QTest::qWait(100);
    return b.window()->grab().save(file);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: screenshots FOLDER\n", stderr);
        return 1;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    const QDir folder(QFile::decodeName(argv[1]));
    bool done = take(folder.filePath(QStringLiteral("browser-light.png")));
    QApplication::setPalette(darkPalette());
    done = take(folder.filePath(QStringLiteral("browser-dark.png"))) && done;
    return done ? 0 : 1;
}
