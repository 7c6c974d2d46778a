#include "controls/CDib.h"

#include "controls/AfxMessageBox.h"

#include <QFile>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr qint64 kFileHeaderBytes = sizeof(BITMAPFILEHEADER);
constexpr qint64 kInfoHeaderBytes = sizeof(BITMAPINFOHEADER);
// Bounds past which a file holds no bitmap of ours: refused as unreadable rather than allocated.
constexpr std::int64_t kMaxColours = 65536;
constexpr std::int64_t kMaxImageBytes = std::int64_t(256) << 20;

const char* const kShortFile = "read error 1";
const char* const kReadError = "Read error 1";
const char* const kNotBitmap = "Invalid bitmap file";
const char* const kWriteError = "write error";

std::int64_t RowBytesOf(std::int64_t width, int bitCount)
{
    return (width * bitCount + 31) / 32 * 4;
}

int Refuse(CDib& dib, const char* text)
{
    dib.Empty();
    AfxMessageBox(QString::fromLatin1(text));
    return 0;
}

int WriteRefused()
{
    AfxMessageBox(QString::fromLatin1(kWriteError));
    return 0;
}

// The nearest of the first 256 colours of palette, by squared distance in RGB; the lower index on a tie.
std::uint8_t NearestIndex(const QList<QRgb>& palette, QRgb colour)
{
    const int count = std::min<int>(256, int(palette.size()));
    int best = 0;
    int bestDistance = 0x7fffffff;
    for (int i = 0; i < count; ++i) {
        const int dr = qRed(palette[i]) - qRed(colour);
        const int dg = qGreen(palette[i]) - qGreen(colour);
        const int db = qBlue(palette[i]) - qBlue(colour);
        const int distance = dr * dr + dg * dg + db * db;
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return std::uint8_t(best);
}

} // namespace

CDib::~CDib()
{
    Empty();
}

void CDib::AttachMemory(void* memory, bool own, void* handle)
{
    Empty();
    Header = static_cast<BITMAPINFOHEADER*>(memory);
    HeaderAlloc = !own ? NotOwned : handle ? GlobalMemory : ByNew;
    MemoryHandle = handle;
    if (!Header)
        return;
    ComputeMetrics();
    ComputePaletteSize(Header->biBitCount);
    Image = reinterpret_cast<std::uint8_t*>(ColorTable + ColorTableEntries);
    MakePalette();
}

void CDib::Empty()
{
    if (HeaderAlloc == ByNew)
        delete[] reinterpret_cast<std::uint8_t*>(Header);
    else if (HeaderAlloc == GlobalMemory)
        std::free(MemoryHandle);
    if (ImageAlloc)
        delete[] Image;
    ColorTable = nullptr;
    Image = nullptr;
    Header = nullptr;
    MemoryHandle = nullptr;
    HeaderAlloc = NotOwned;
    ImageAlloc = 0;
    ImageSize = 0;
    ColorTableEntries = 0;
    Palette.clear();
}

QSize CDib::GetDimensions() const
{
    return Header ? QSize(Header->biWidth, Header->biHeight) : QSize(0, 0);
}

std::int64_t CDib::RowBytes() const
{
    return Header ? RowBytesOf(Header->biWidth, Header->biBitCount) : 0;
}

bool CDib::Packed() const
{
    return Header && !ImageAlloc && Image == reinterpret_cast<std::uint8_t*>(ColorTable + ColorTableEntries);
}

std::uint8_t* CDib::At(std::ptrdiff_t offsetFromImage) const
{
    if (!Image)
        return nullptr;
    const std::ptrdiff_t lowest = Packed() ? -(Image - reinterpret_cast<std::uint8_t*>(Header)) : 0;
    if (offsetFromImage < lowest || offsetFromImage >= std::ptrdiff_t(ImageSize))
        return nullptr;
    return Image + offsetFromImage;
}

void CDib::ComputeMetrics()
{
    if (!Header)
        return;
    ImageSize = Header->biSizeImage ? Header->biSizeImage : std::uint32_t(RowBytes() * Header->biHeight);
    ColorTable = reinterpret_cast<RGBQUAD*>(reinterpret_cast<std::uint8_t*>(Header) + kInfoHeaderBytes);
}

int CDib::ComputePaletteSize(int bitCount)
{
    const std::uint32_t used = Header ? Header->biClrUsed : 0;
    if (used) {
        ColorTableEntries = std::int32_t(used);
        return ColorTableEntries;
    }
    switch (bitCount) {
    case 1: ColorTableEntries = 2; break;
    case 4: ColorTableEntries = 16; break;
    case 8: ColorTableEntries = 256; break;
    default: ColorTableEntries = 0; break;
    }
    return ColorTableEntries;
}

void CDib::MakePalette()
{
    if (ColorTableEntries == 0)
        return;
    Palette.clear();
    Palette.reserve(ColorTableEntries);
    for (int i = 0; i < ColorTableEntries; ++i)
        Palette.append(qRgb(ColorTable[i].rgbRed, ColorTable[i].rgbGreen, ColorTable[i].rgbBlue));
}

void CDib::MapToPalette(const QList<QRgb>& palette)
{
    if (!Header || Header->biBitCount != 8 || ColorTableEntries != 256 || palette.isEmpty())
        return;
    std::array<std::uint8_t, 256> map{};
    for (int i = 0; i < 256; ++i) {
        const QRgb colour = qRgb(ColorTable[i].rgbRed, ColorTable[i].rgbGreen, ColorTable[i].rgbBlue);
        map[i] = i == kMaskKeyIndex ? std::uint8_t(i) : NearestIndex(palette, colour);
    }
    for (std::uint32_t n = 0; n < ImageSize; ++n)
        Image[n] = map[Image[n]];
    const int count = std::min<int>(256, int(palette.size()));
    for (int i = 0; i < count; ++i)
        ColorTable[i] = {std::uint8_t(qBlue(palette[i])), std::uint8_t(qGreen(palette[i])),
                         std::uint8_t(qRed(palette[i])), 0};
}

std::uint8_t* CDib::GetPixelAddress(int x, int y) const
{
    if (!Header || x > Header->biWidth || y > Header->biHeight)
        return nullptr;
    const std::ptrdiff_t row = (Header->biWidth + 3) & ~3;
    // Where the -1 (or an x or y at the very edge) reaches out of the bitmap's memory, null stands for
    // an address that could not be used.
    return At(std::ptrdiff_t(Header->biHeight - y - 1) * row + x - 1);
}

QImage CDib::ToImage() const
{
    if (!Header || Header->biCompression != 0 || Header->biWidth <= 0 || Header->biHeight <= 0)
        return {};
    const int width = Header->biWidth;
    const int height = Header->biHeight;
    const int bits = Header->biBitCount;
    QImage::Format format = QImage::Format_Invalid;
    switch (bits) {
    case 1: case 4: case 8: format = QImage::Format_Indexed8; break;
    case 16: format = QImage::Format_RGB555; break;
    case 24: format = QImage::Format_BGR888; break;
    case 32: format = QImage::Format_RGB32; break;
    default: return {};
    }
    QImage image(width, height, format);
    image.fill(0);
    if (format == QImage::Format_Indexed8) {
        // The colours come from the table, as the bitmap holds it now; indices it does not reach draw black.
        QList<QRgb> table(1 << bits, qRgb(0, 0, 0));
        const int count = std::min<int>(ColorTableEntries, int(table.size()));
        for (int i = 0; i < count; ++i)
            table[i] = qRgb(ColorTable[i].rgbRed, ColorTable[i].rgbGreen, ColorTable[i].rgbBlue);
        image.setColorTable(table);
    }
    const std::int64_t stride = RowBytes();
    const std::int64_t used = (std::int64_t(width) * bits + 7) / 8;
    for (int y = 0; y < height; ++y) {
        const std::int64_t offset = std::int64_t(height - 1 - y) * stride;
        if (offset + used > std::int64_t(ImageSize))
            continue; // a row the pixel block does not hold stays black
        const std::uint8_t* source = Image + offset;
        std::uint8_t* target = image.scanLine(y);
        if (bits == 4) {
            for (int x = 0; x < width; ++x)
                target[x] = (source[x / 2] >> (x % 2 ? 0 : 4)) & 0x0F;
        } else if (bits == 1) {
            for (int x = 0; x < width; ++x)
                target[x] = (source[x / 8] >> (7 - x % 8)) & 1;
        } else {
            std::memcpy(target, source, std::size_t(used));
        }
        if (bits == 32) {
            for (int x = 0; x < width; ++x)
                target[4 * x + 3] = 0xFF; // the unused byte of a pixel, opaque for Qt
        }
    }
    return image;
}

bool CDib::Draw(QPainter& painter, QPoint origin, QSize size) const
{
    const QImage image = ToImage();
    if (image.isNull())
        return false;
    painter.drawImage(QRect(origin, size), image);
    return true;
}

bool CDib::DrawPart(QPainter& painter, QPoint destination, QPoint source, QSize size) const
{
    // The rows are turned top-down in the QImage, so source y counts from the top as it is given.
    const QImage image = ToImage();
    if (image.isNull())
        return false;
    painter.drawImage(QRect(destination, size), image, QRect(source, size));
    return true;
}

template <class Visit>
void CDib::WalkMask(const CDib& mask, const CDib& image, QPoint imageOrigin, const CDib& background,
                    QPoint backgroundOrigin, Visit visit)
{
    const std::uint8_t* maskBase = mask.GetPixelAddress(0, 0);
    const std::uint8_t* imageBase = image.GetPixelAddress(imageOrigin.x(), imageOrigin.y());
    const std::uint8_t* backgroundBase = background.GetPixelAddress(backgroundOrigin.x(), backgroundOrigin.y());
    if (!maskBase || !imageBase || !backgroundBase)
        return;
    const QSize size = mask.GetDimensions();
    auto stride = [](const CDib& dib) { return std::ptrdiff_t((dib.Header->biWidth + 3) & ~3); };
    for (int row = 0; row < size.height(); ++row) {
        const std::ptrdiff_t maskRow = (maskBase - mask.Image) - row * stride(mask);
        const std::ptrdiff_t imageRow = (imageBase - image.Image) - row * stride(image);
        const std::ptrdiff_t backgroundRow = (backgroundBase - background.Image) - row * stride(background);
        for (int column = 0; column < size.width(); ++column) {
            std::uint8_t* m = mask.At(maskRow + column);
            std::uint8_t* i = image.At(imageRow + column);
            std::uint8_t* b = background.At(backgroundRow + column);
            if (m && i && b)
                visit(*m, *i, *b);
        }
    }
}

bool CDib::DrawThroughMask(QPainter& painter, int imageId, QPoint imageOrigin, int maskId, int keyIndex,
                           QPoint destination, QPoint backgroundOrigin) const
{
    CDib image;
    CDib mask;
    image.LoadResource(imageId);
    mask.LoadResource(maskId);
    return DrawThroughMask(painter, image, imageOrigin, mask, keyIndex, destination, backgroundOrigin);
}

bool CDib::DrawThroughMask(QPainter& painter, const CDib& image, QPoint imageOrigin, const CDib& mask,
                           int keyIndex, QPoint destination, QPoint backgroundOrigin) const
{
    if (!Header)
        return false;
    CDib imageCopy;
    CDib backgroundCopy;
    imageCopy.CopyFrom(image);
    backgroundCopy.CopyFrom(*this);
    imageCopy.MapToPalette(Palette);
    backgroundCopy.MapToPalette(Palette);
    WalkMask(mask, imageCopy, imageOrigin, backgroundCopy, backgroundOrigin,
             [keyIndex](std::uint8_t m, std::uint8_t i, std::uint8_t& b) {
                 if (m != keyIndex)
                     b = i;
             });
    return backgroundCopy.DrawPart(painter, destination, backgroundOrigin, mask.GetDimensions());
}

bool CDib::MergeThroughMask(QPainter& painter, const CDib& image, int maskId, int keyIndex, QPoint imageOrigin,
                            QPoint destination, QPoint backgroundOrigin) const
{
    CDib mask;
    mask.LoadResource(maskId);
    return MergeThroughMask(painter, image, mask, keyIndex, imageOrigin, destination, backgroundOrigin);
}

bool CDib::MergeThroughMask(QPainter& painter, const CDib& image, const CDib& mask, int keyIndex,
                            QPoint imageOrigin, QPoint destination, QPoint backgroundOrigin) const
{
    if (!Header)
        return false;
    CDib merged;
    merged.CopyFrom(mask);
    merged.MapToPalette(image.Palette);
    WalkMask(merged, image, imageOrigin, *this, backgroundOrigin,
             [keyIndex](std::uint8_t& m, std::uint8_t i, std::uint8_t b) { m = m == keyIndex ? b : i; });
    return merged.Draw(painter, destination, merged.GetDimensions());
}

int CDib::Read(QIODevice& file)
{
    Empty();
    BITMAPFILEHEADER fileHeader{};
    const qint64 got = file.read(reinterpret_cast<char*>(&fileHeader), kFileHeaderBytes);
    if (got < 0)
        return Refuse(*this, kReadError);
    if (got < kFileHeaderBytes)
        return Refuse(*this, kShortFile);
    if (fileHeader.bfType != kBitmapFileType)
        return Refuse(*this, kNotBitmap);

    const qint64 blockBytes = std::max<qint64>(0, qint64(fileHeader.bfOffBits) - kFileHeaderBytes);
    if (blockBytes > kInfoHeaderBytes + 4 * kMaxColours)
        return Refuse(*this, kReadError);
    std::vector<std::uint8_t> block(std::size_t(blockBytes), 0);
    if (blockBytes && file.read(reinterpret_cast<char*>(block.data()), blockBytes) < 0)
        return Refuse(*this, kReadError);

    BITMAPINFOHEADER info{};
    std::memcpy(&info, block.data(), std::size_t(std::min(blockBytes, kInfoHeaderBytes)));
    const std::int64_t imageBytes =
        info.biSizeImage ? std::int64_t(info.biSizeImage) : RowBytesOf(info.biWidth, info.biBitCount) * info.biHeight;
    const std::int64_t colours = info.biClrUsed ? std::int64_t(info.biClrUsed) : info.biBitCount <= 8 ? 1 << info.biBitCount : 0;
    if (info.biWidth < 0 || info.biHeight < 0 || imageBytes > kMaxImageBytes || colours > kMaxColours)
        return Refuse(*this, kReadError);

    // A short file leaves zeros where its bytes are missing, and the block always holds the header and
    // the whole colour table that the header counts, so that nothing reads past it.
    const std::size_t headBytes = std::max<std::size_t>(block.size(), std::size_t(kInfoHeaderBytes + 4 * colours));
    auto* head = new std::uint8_t[headBytes]();
    std::copy(block.cbegin(), block.cend(), head);
    Header = reinterpret_cast<BITMAPINFOHEADER*>(head);
    HeaderAlloc = ByNew;
    ImageAlloc = 1;
    ComputeMetrics();
    Image = new std::uint8_t[ImageSize]();
    if (ImageSize && file.read(reinterpret_cast<char*>(Image), ImageSize) < 0)
        return Refuse(*this, kReadError);
    ComputePaletteSize(Header->biBitCount);
    MakePalette();
    return 1;
}

int CDib::Read(const QString& path)
{
    Empty();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Refuse(*this, kReadError);
    return Read(file);
}

bool CDib::WriteBlocks(QIODevice& file) const
{
    if (!Header)
        return false;
    const qint64 table = 4 * qint64(ColorTableEntries);
    const BITMAPFILEHEADER fileHeader{kBitmapFileType,
                                      std::uint32_t(kFileHeaderBytes + kInfoHeaderBytes + table + ImageSize), 0, 0,
                                      std::uint32_t(kFileHeaderBytes + kInfoHeaderBytes + table)};
    // The header with its colours, then the pixels, each from where it lies: one block for a packed
    // bitmap, two for one read from a file.
    const qint64 headBytes = kInfoHeaderBytes + table;
    return file.write(reinterpret_cast<const char*>(&fileHeader), kFileHeaderBytes) == kFileHeaderBytes
        && file.write(reinterpret_cast<const char*>(Header), headBytes) == headBytes
        && file.write(reinterpret_cast<const char*>(Image), ImageSize) == qint64(ImageSize);
}

int CDib::Write(QIODevice& file) const
{
    return WriteBlocks(file) ? 1 : WriteRefused();
}

int CDib::Write(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || !WriteBlocks(file) || !file.flush())
        return WriteRefused();
    return 1;
}

bool CDib::LoadResource(int id)
{
    Empty();
    QFile file(QStringLiteral(":/bitmaps/%1.bmp").arg(id));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    CDib read;
    if (!read.Read(file))
        return false;
    CopyFrom(read);
    return true;
}

void CDib::CopyFrom(const CDib& source)
{
    if (&source == this)
        return;
    if (!source.Header) {
        Empty();
        return;
    }
    const std::size_t headBytes = kInfoHeaderBytes + 4 * std::size_t(source.ColorTableEntries);
    auto* block = static_cast<std::uint8_t*>(std::malloc(headBytes + source.ImageSize));
    if (!block) {
        Empty();
        return;
    }
    std::memcpy(block, source.Header, headBytes);
    if (source.ImageSize)
        std::memcpy(block + headBytes, source.Image, source.ImageSize);
    AttachMemory(block, true, block);
}
