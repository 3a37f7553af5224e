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
    const zqviewer::ViewerApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
