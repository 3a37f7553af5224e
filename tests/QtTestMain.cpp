// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "LoadedLibraries.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    // The tests expect English and a decimal point, whatever the host's language is.
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    const QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    keepLoadedLibraries();
    return result;
}
