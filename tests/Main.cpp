#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>

// Tests are listed while they are built, without ctest's environment: what they need of it is set
// here.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "en_US.UTF-8");
    qputenv("TZ", "UTC");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
