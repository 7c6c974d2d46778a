#include <QApplication>

#include <gtest/gtest.h>

// The windows' tests run on real widgets; under the test command they show on Xvfb, where Mesa's
// software OpenGL draws the graph.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
