#include "controls/AccessibleValue.h"

#include <QApplication>

#include <gtest/gtest.h>

// The shell's tests run on real widgets; under the test command they show on Xvfb.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    // The name stands in message boxes only: a display name would be appended to every window title.
    QApplication::setApplicationName("Sonoptic");
    InstallAccessibleValueFactory();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
