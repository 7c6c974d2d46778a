#pragma once

#include "values/CObject.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRgb>
#include <QSize>

#include <bit>
#include <cstddef>
#include <cstdint>

class QIODevice;
class QPainter;
class QString;

// The bitmap structures as they stand in a BMP file and in a packed bitmap in memory: little-endian,
// with no padding between the fields.
static_assert(std::endian::native == std::endian::little, "the bitmap structures are read as they stand in memory");

#pragma pack(push, 1)
struct BITMAPFILEHEADER {
    std::uint16_t bfType;
    std::uint32_t bfSize;
    std::uint16_t bfReserved1;
    std::uint16_t bfReserved2;
    std::uint32_t bfOffBits;
};

struct BITMAPINFOHEADER {
    std::uint32_t biSize;
    std::int32_t biWidth;
    std::int32_t biHeight; // positive: rows stored bottom-up
    std::uint16_t biPlanes;
    std::uint16_t biBitCount;
    std::uint32_t biCompression;
    std::uint32_t biSizeImage;
    std::int32_t biXPelsPerMeter;
    std::int32_t biYPelsPerMeter;
    std::uint32_t biClrUsed;
    std::uint32_t biClrImportant;
};

struct RGBQUAD {
    std::uint8_t rgbBlue;
    std::uint8_t rgbGreen;
    std::uint8_t rgbRed;
    std::uint8_t rgbReserved;
};
#pragma pack(pop)

static_assert(sizeof(BITMAPFILEHEADER) == 14);
static_assert(sizeof(BITMAPINFOHEADER) == 40);
static_assert(sizeof(RGBQUAD) == 4);

constexpr std::uint16_t kBitmapFileType = 19778; // "BM"
constexpr int kMaskKeyIndex = 253;               // the colour index that a mask leaves transparent

// A device-independent bitmap in memory: a BITMAPINFOHEADER, its colour table and the pixel rows,
// bottom-up and padded to 32 bits. The header and the pixels are one packed block when attached from
// memory or loaded from the resources, two blocks when read from a file. What the object owns it frees
// in Empty and in its destructor. The palette is the colour table as Qt colours; it is empty for
// bitmaps of 16 bits and more. Drawing goes through a QImage made at each call, so no platform bitmap
// or mapped file stands behind the object.
class CDib : public CObject {
public:
    enum Alloc : std::uint32_t { NotOwned = 0, ByNew = 1, GlobalMemory = 2 };

    CDib() = default;
    ~CDib() override;
    CDib(const CDib&) = delete;
    CDib& operator=(const CDib&) = delete;

    // Takes a packed bitmap. When own is set, memory is freed with the object: with std::free when
    // handle is given (handle is then the pointer std::malloc returned), else with delete[] (it came
    // from new unsigned char[]).
    void AttachMemory(void* memory, bool own = false, void* handle = nullptr);
    void Empty();
    // Width and height of the header; 0, 0 without one.
    QSize GetDimensions() const;

    // The whole bitmap stretched to the rectangle at origin of size. False, and nothing drawn, without
    // a header.
    bool Draw(QPainter& painter, QPoint origin, QSize size) const;
    // The part of size at source (y counted from the top) at destination, unstretched.
    bool DrawPart(QPainter& painter, QPoint destination, QPoint source, QSize size) const;
    // The pixels as a top-down QImage: Format_Indexed8 with the colour table for 1, 4 and 8 bits,
    // a true-colour format for the others. A null image without a header.
    QImage ToImage() const;

    // For 8-bit bitmaps: the byte one to the left of pixel (x, y), y from the top. The mask operations
    // count on that -1. Null when x is above the width or y above the height.
    std::uint8_t* GetPixelAddress(int x, int y) const;

    // Sets ColorTableEntries from the header's biClrUsed, or from bitCount when that is 0.
    int ComputePaletteSize(int bitCount);
    // Sets ImageSize and ColorTable from the header.
    void ComputeMetrics();
    // Builds Palette from the colour table; does nothing when the table is empty.
    void MakePalette();
    // For 8-bit bitmaps of 256 colours: every pixel is replaced by the nearest index of palette, but
    // index 253 stays itself; the colour table then takes the palette's colours.
    void MapToPalette(const QList<QRgb>& palette);

    // On this background: where the mask's byte differs from keyIndex the background takes the image's
    // byte, both remapped to this object's palette, and the mask's size of the result at
    // backgroundOrigin is drawn at destination. Works on copies: no bitmap changes.
    bool DrawThroughMask(QPainter& painter, int imageId, QPoint imageOrigin, int maskId, int keyIndex,
                         QPoint destination, QPoint backgroundOrigin) const;
    bool DrawThroughMask(QPainter& painter, const CDib& image, QPoint imageOrigin, const CDib& mask,
                         int keyIndex, QPoint destination, QPoint backgroundOrigin) const;
    // A copy of the mask in the image's palette takes this background's byte where the mask is
    // keyIndex and the image's byte elsewhere, and is drawn whole at destination.
    bool MergeThroughMask(QPainter& painter, const CDib& image, int maskId, int keyIndex, QPoint imageOrigin,
                          QPoint destination, QPoint backgroundOrigin) const;
    bool MergeThroughMask(QPainter& painter, const CDib& image, const CDib& mask, int keyIndex,
                          QPoint imageOrigin, QPoint destination, QPoint backgroundOrigin) const;

    // A BMP file. Each tells the user what went wrong in a message box and then returns 0; 1 on success.
    int Read(QIODevice& file);
    int Read(const QString& path);
    int Write(QIODevice& file) const;
    int Write(const QString& path) const;

    // The bitmap resource with this number, as a packed bitmap the object owns. False, and the object
    // empty, when there is none.
    bool LoadResource(int id);
    // A packed copy of source in memory of its own.
    void CopyFrom(const CDib& source);

    RGBQUAD* ColorTable = nullptr;
    std::uint8_t* Image = nullptr;
    BITMAPINFOHEADER* Header = nullptr;
    void* MemoryHandle = nullptr;
    std::uint32_t HeaderAlloc = NotOwned;
    std::uint32_t ImageAlloc = 0;
    std::uint32_t ImageSize = 0;
    std::int32_t ColorTableEntries = 0;
    QList<QRgb> Palette;

private:
    // Bytes of one row, padded to 32 bits.
    std::int64_t RowBytes() const;
    // Header, colours and pixels in the one block that Header starts.
    bool Packed() const;
    // The byte at offset from Image, or null where the bitmap's memory ends: a packed bitmap may be
    // addressed back into its header, pixels read from a file only within themselves.
    std::uint8_t* At(std::ptrdiff_t offsetFromImage) const;
    bool WriteBlocks(QIODevice& file) const;
    // Visits the mask's width and height with the bytes that GetPixelAddress gives for the mask at
    // (0, 0), the image at imageOrigin and the background at backgroundOrigin, row by row from the
    // mask's top. A byte outside any of the three bitmaps is skipped.
    template <class Visit>
    static void WalkMask(const CDib& mask, const CDib& image, QPoint imageOrigin, const CDib& background,
                         QPoint backgroundOrigin, Visit visit);
};
