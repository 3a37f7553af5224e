#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // C numbers everywhere but in the locale tests: figures on the trace are part of it.
    QApplication application(argc, argv);
    setlocale(LC_NUMERIC, "C");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
