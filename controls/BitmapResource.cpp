#include "controls/BitmapResource.h"

QPixmap LoadBitmapResource(int id)
{
    return QPixmap(QStringLiteral(":/bitmaps/%1.bmp").arg(id));
}
