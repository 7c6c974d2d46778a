#include "controls/ControlResources.h"
#include "shell/CSonopticApp.h"
#include "shell/CommandLine.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    ChoosePlatformOptions();
    QApplication application(argc, argv);
    // The name stands in message boxes only: a display name would be appended to every window title.
    QApplication::setApplicationName("Sonoptic");
    // The installed desktop entry, so that a desktop shows its icon and name for the running windows.
    QGuiApplication::setDesktopFileName(SONOPTIC_APP_ID);
    CSonopticApp sonoptic(JoinArguments(argc, argv));
    return sonoptic.InitInstance();
}
