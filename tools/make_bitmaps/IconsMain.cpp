// Draws the program's icon, the same picture as the About box's bitmap, as PNG files for a desktop's
// icon theme: <folder>/<N>x<N>/apps/<name>.png for each size N named. The build runs it for the package:
//   make_icons <folder> <name> <size>...
#include "tools/make_bitmaps/Drawings.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: make_icons <folder> <name> <size>...\n");
        return 2;
    }
    // No application object: the icon is shapes only, painted into a QImage, which needs no platform
    // and so no display during the build.
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString name = QString::fromLocal8Bit(argv[2]);
    int failures = 0;
    for (int i = 3; i < argc; ++i) {
        const int pixels = std::atoi(argv[i]);
        const QString dir = QStringLiteral("%1/%2x%2/apps").arg(folder).arg(pixels);
        const QString path = QStringLiteral("%1/%2.png").arg(dir, name);
        if (pixels < 1 || !QDir().mkpath(dir) || !ProgramIconAt(pixels).save(path, "PNG")) {
            std::fprintf(stderr, "could not write a %s-pixel icon to %s\n", argv[i], path.toLocal8Bit().constData());
            ++failures;
        }
    }
    return failures ? 1 : 0;
}
