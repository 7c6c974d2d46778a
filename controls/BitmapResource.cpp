#include "controls/BitmapResource.h"

#include <QHash>
#include <QPaintDevice>
#include <QPainter>

namespace {

struct CachedBitmap {
    QPixmap normal;
    QPixmap doubled; // null when no drawing at twice the size exists
};

const CachedBitmap& Cached(int id)
{
    static QHash<int, CachedBitmap> cache;
    auto found = cache.constFind(id);
    if (found != cache.constEnd())
        return *found;
    CachedBitmap bitmap;
    bitmap.normal = QPixmap(QStringLiteral(":/bitmaps/%1.bmp").arg(id));
    bitmap.doubled = QPixmap(QStringLiteral(":/bitmaps/%1@2x.bmp").arg(id));
    return *cache.insert(id, bitmap);
}

// The drawing for this painter, and the factor between its pixels and logical ones.
const QPixmap& ForPainter(const CachedBitmap& bitmap, const QPainter& painter, int& factor)
{
    const QPaintDevice* device = painter.device();
    if (!bitmap.doubled.isNull() && device && device->devicePixelRatioF() >= 2.0) {
        factor = 2;
        return bitmap.doubled;
    }
    factor = 1;
    return bitmap.normal;
}

} // namespace

QPixmap LoadBitmapResource(int id)
{
    return Cached(id).normal;
}

QSize BitmapSize(int id)
{
    return Cached(id).normal.size();
}

void DrawBitmap(QPainter& painter, int id, const QRect& target)
{
    int factor = 1;
    const QPixmap& pixmap = ForPainter(Cached(id), painter, factor);
    if (!pixmap.isNull())
        painter.drawPixmap(target, pixmap, pixmap.rect());
}

void DrawBitmapPart(QPainter& painter, int id, const QPoint& destination, const QRect& source)
{
    int factor = 1;
    const QPixmap& pixmap = ForPainter(Cached(id), painter, factor);
    if (pixmap.isNull())
        return;
    const QRect scaled(source.topLeft() * factor, source.size() * factor);
    painter.drawPixmap(QRect(destination, source.size()), pixmap, scaled);
}
