#include "../LoadedLibraries.h"
#include "PrivateNetwork.h"
#include "ViewerApplication.h"

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!enterPrivateNetwork()) {
        std::printf("skipped: this system allows no network of one's own\n");
        return 77;
    }
    // The tests expect English, whatever the host's language is.
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    const zqviewer::ViewerApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    keepLoadedLibraries();
    return result;
}
