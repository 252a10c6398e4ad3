#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Also without a display, and when the build asks for the list of tests.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
