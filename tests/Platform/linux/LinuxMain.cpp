#include "Platform/linux/ChildRoles.h"
#include "Platform/linux/PrivateBus.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (const auto status = jotwell::playChildRole(argc, argv))
        return *status;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const jotwell::PrivateBus bus;
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
