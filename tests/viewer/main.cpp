// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "../LoadedLibraries.h"
#include "PrivateNetwork.h"
#include "program/ViewerApplication.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (const char* reason = enterPrivateNetwork()) {
        return endWithoutTests(reason);
    }
    // The tests expect English, whatever the host's language is.
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    // Nor what the user of this machine has set.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    const zqviewer::ViewerApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    keepLoadedLibraries();
    return result;
}
