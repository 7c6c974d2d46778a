#include "controls/AccessibleValue.h"

#include <QApplication>

#include <gtest/gtest.h>

// The shell's tests run on real widgets; under the test command they show on Xvfb.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName("Sonoptic");
    InstallAccessibleValueFactory();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
