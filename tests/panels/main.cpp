#include "controls/AccessibleValue.h"

#include <QApplication>

#include <gtest/gtest.h>

// The panels' tests run on real widgets; under the test command they show on Xvfb.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    InstallAccessibleValueFactory();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
