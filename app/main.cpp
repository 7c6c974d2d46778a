#include "shell/CSonopticApp.h"
#include "shell/CommandLine.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName("Sonoptic");
    CSonopticApp sonoptic(JoinArguments(argc, argv));
    return sonoptic.InitInstance();
}
