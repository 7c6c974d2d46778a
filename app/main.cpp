#include "controls/ControlResources.h"
#include "shell/CSonopticApp.h"
#include "shell/CommandLine.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName("Sonoptic");
    CSonopticApp sonoptic(JoinArguments(argc, argv));
    return sonoptic.InitInstance();
}
