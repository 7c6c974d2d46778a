// The bitmap in memory: the program's bitmap files as committed, the pixel address with its -1, the
// remapping that keeps the mask key, the file messages, a write read back, and the two mask operations.
#include "controls/CDib.h"
#include "resources/ResourceIds.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QMessageBox>
#include <QPainter>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <vector>

namespace {

const QString kBitmapFolder =
    QString::fromStdString((std::filesystem::path(__FILE__).parent_path().parent_path().parent_path() / "resources/bitmaps").string());

// A packed bitmap made in memory and owned by dib: pixel(x, y), y from the top, gives each pixel's
// index; colours gives the table (bitCount 4 or 8 with 1 << bitCount entries).
void MakePacked(CDib& dib, int width, int height, int bitCount, const std::function<QRgb(int)>& colours,
                const std::function<int(int, int)>& pixel)
{
    const int entries = 1 << bitCount;
    const std::size_t stride = std::size_t((width * bitCount + 31) / 32 * 4);
    const std::size_t head = sizeof(BITMAPINFOHEADER) + 4 * std::size_t(entries);
    auto* block = static_cast<std::uint8_t*>(std::calloc(head + stride * height, 1));
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = std::uint16_t(bitCount);
    std::memcpy(block, &header, sizeof header);
    auto* table = reinterpret_cast<RGBQUAD*>(block + sizeof header);
    for (int i = 0; i < entries; ++i) {
        const QRgb c = colours(i);
        table[i] = {std::uint8_t(qBlue(c)), std::uint8_t(qGreen(c)), std::uint8_t(qRed(c)), 0};
    }
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = block + head + std::size_t(height - 1 - y) * stride;
        for (int x = 0; x < width; ++x) {
            if (bitCount == 8)
                row[x] = std::uint8_t(pixel(x, y));
            else
                row[x / 2] |= std::uint8_t(pixel(x, y) << (x % 2 ? 0 : 4));
        }
    }
    dib.AttachMemory(block, true, block);
}

QRgb Grey(int i)
{
    return qRgb(i, i, i);
}

// Runs action and answers the message box it shows with OK; gives the box's text, empty if none came.
QString MessageOf(const std::function<int()>& action, int& result)
{
    QString text;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&text] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            text = box->text();
            box->accept();
        }
    });
    timer.start(10);
    result = action();
    return text;
}

// The index of pixel (x, y): GetPixelAddress gives the byte to its left.
int IndexAt(const CDib& dib, int x, int y)
{
    return *dib.GetPixelAddress(x + 1, y);
}

QImage Canvas(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

struct CommittedBitmap {
    int id, width, height, bitCount;
};

// The sizes and depths the controls are laid out for.
const CommittedBitmap kCommitted[] = {
    {res::IDB_FADER_THUMB, 17, 10, 4},       {res::IDB_ARROW_DOWN, 9, 8, 4},
    {res::IDB_ARROW_UP_PRESSED, 9, 8, 4},    {res::IDB_ARROW_UP, 9, 8, 4},
    {res::IDB_ARROW_DOWN_PRESSED, 9, 8, 4},  {res::IDB_READOUT_BACK, 47, 41, 8},
    {res::IDB_FADER_TRACK, 144, 10, 4},      {res::IDB_KNOB_GREY, 745, 25, 8},
    {res::IDB_KNOB_BLUE, 745, 25, 8},        {res::IDB_KNOB_GREEN, 745, 25, 8},
    {res::IDB_KNOB_RED_BROWN, 745, 25, 8},   {res::IDB_SLOT_0, 48, 29, 4},
    {res::IDB_SLOT_0 + 1, 48, 29, 4},        {res::IDB_SLOT_0 + 2, 48, 29, 4},
    {res::IDB_SLOT_0 + 3, 48, 29, 4},        {res::IDB_SLOT_0_SELECTED, 48, 29, 4},
    {res::IDB_SLOT_0_SELECTED + 1, 48, 29, 4}, {res::IDB_SLOT_0_SELECTED + 2, 48, 29, 4},
    {res::IDB_SLOT_0_SELECTED + 3, 48, 29, 4}, {res::IDB_LEGEND_GREEN, 7, 25, 8},
    {res::IDB_LEGEND_RED_BROWN, 7, 25, 8},   {res::IDB_LEGEND_GREY, 7, 25, 8},
};

TEST(CDibCommitted, FilesHaveTheLaidOutSizeAndDepthAtOneAndTwiceTheSize)
{
    for (const CommittedBitmap& expected : kCommitted) {
        for (int scale : {1, 2}) {
            const QString name = scale == 1 ? QString::number(expected.id) : QStringLiteral("%1@2x").arg(expected.id);
            SCOPED_TRACE(name.toStdString());
            CDib dib;
            ASSERT_EQ(dib.Read(kBitmapFolder + "/" + name + ".bmp"), 1);
            EXPECT_EQ(dib.GetDimensions(), QSize(expected.width, expected.height) * scale);
            EXPECT_EQ(dib.Header->biBitCount, expected.bitCount);
            EXPECT_EQ(dib.Header->biCompression, 0u);
            EXPECT_EQ(dib.ColorTableEntries, 1 << expected.bitCount);
            EXPECT_EQ(dib.Palette.size(), 1 << expected.bitCount);
            if (expected.bitCount != 8)
                continue;
            // Nothing draws these through a mask: a pixel of the key colour would show as such.
            const std::uint8_t* begin = dib.Image;
            const std::uint8_t* end = begin + dib.ImageSize;
            EXPECT_EQ(std::find(begin, end, std::uint8_t(kMaskKeyIndex)), end);
        }
    }
}

TEST(CDibCommitted, ResourceMatchesTheFileAndIsPackedAndTrueColourHasNoColourTable)
{
    CDib file, resource;
    ASSERT_EQ(file.Read(kBitmapFolder + "/136.bmp"), 1);
    ASSERT_TRUE(resource.LoadResource(res::IDB_KNOB_GREY));
    EXPECT_EQ(resource.HeaderAlloc, CDib::GlobalMemory);
    EXPECT_EQ(resource.Image, reinterpret_cast<std::uint8_t*>(resource.ColorTable + 256));
    ASSERT_EQ(resource.ImageSize, file.ImageSize);
    EXPECT_EQ(std::memcmp(resource.Image, file.Image, file.ImageSize), 0);
    EXPECT_EQ(resource.Palette, file.Palette);
    EXPECT_FALSE(resource.LoadResource(4242));
    EXPECT_EQ(resource.Header, nullptr);

    CDib dib;
    ASSERT_EQ(dib.Read(kBitmapFolder + "/128.bmp"), 1);
    EXPECT_EQ(dib.Header->biBitCount, 24);
    EXPECT_EQ(dib.ColorTableEntries, 0);
    dib.MakePalette();
    EXPECT_TRUE(dib.Palette.isEmpty());
    EXPECT_EQ(dib.ToImage().pixelColor(0, 0), QColor(0xd4, 0xd0, 0xc8)); // the icon's corner
}

TEST(CDibMemory, AttachComputesTableImageAndOwnership)
{
    CDib dib;
    MakePacked(dib, 5, 3, 8, Grey, [](int x, int y) { return x + 10 * y; });
    EXPECT_EQ(dib.HeaderAlloc, CDib::GlobalMemory);
    EXPECT_EQ(dib.ColorTableEntries, 256);
    EXPECT_EQ(dib.ImageSize, 8u * 3); // rows of 5 padded to 8
    EXPECT_EQ(reinterpret_cast<std::uint8_t*>(dib.ColorTable), reinterpret_cast<std::uint8_t*>(dib.Header) + 40);
    EXPECT_EQ(dib.Image, reinterpret_cast<std::uint8_t*>(dib.ColorTable) + 1024);
    EXPECT_EQ(dib.Palette.at(200), Grey(200));

    std::uint8_t borrowed[64] = {};
    dib.AttachMemory(borrowed, false);
    EXPECT_EQ(dib.HeaderAlloc, CDib::NotOwned); // the previous block went with Empty
    dib.Empty();
    EXPECT_EQ(dib.GetDimensions(), QSize(0, 0));
    EXPECT_TRUE(dib.Palette.isEmpty());
}

TEST(CDibMemory, PixelAddressIsOneByteLeftOfThePixel)
{
    CDib dib;
    MakePacked(dib, 6, 4, 8, Grey, [](int x, int y) { return 1 + x + 10 * y; });
    const std::ptrdiff_t stride = 8;
    for (int y = 0; y < 4; ++y) {
        SCOPED_TRACE(y);
        std::uint8_t* rowStart = dib.Image + (3 - y) * stride;
        EXPECT_EQ(dib.GetPixelAddress(0, y), rowStart - 1); // the byte before the row
        EXPECT_EQ(*dib.GetPixelAddress(1, y), 1 + 10 * y);  // pixel 0
        EXPECT_EQ(*dib.GetPixelAddress(6, y), 6 + 10 * y);  // the last pixel, at x = width
    }
    EXPECT_EQ(dib.GetPixelAddress(7, 0), nullptr);
    EXPECT_EQ(dib.GetPixelAddress(0, 5), nullptr);
    // The byte before the bottom row is the last of the colour table in a packed bitmap.
    EXPECT_EQ(dib.GetPixelAddress(0, 3), reinterpret_cast<std::uint8_t*>(dib.ColorTable + 255) + 3);
}

TEST(CDibMemory, MapToPaletteKeepsTheMaskKeyAndRemapsPadding)
{
    CDib dib;
    // Colours: index 0 pure red, 1 near blue, 253 the key, exactly a colour of the new palette.
    const auto colours = [](int i) {
        return i == 0 ? qRgb(250, 5, 5) : i == 1 ? qRgb(10, 10, 240) : i == kMaskKeyIndex ? qRgb(0, 255, 0) : Grey(i);
    };
    MakePacked(dib, 3, 2, 8, colours, [](int x, int) { return x == 0 ? 0 : x == 1 ? 1 : kMaskKeyIndex; });
    QList<QRgb> palette(256, qRgb(128, 128, 128));
    palette[7] = qRgb(255, 0, 0);
    palette[9] = qRgb(0, 0, 255);
    palette[11] = qRgb(0, 255, 0);
    dib.MapToPalette(palette);
    // The padding byte of each row held index 0.
    for (const std::uint8_t* row : {dib.Image, dib.Image + 4})
        EXPECT_EQ(std::vector<int>(row, row + 4), (std::vector<int>{7, 9, kMaskKeyIndex, 7}));
    EXPECT_EQ(dib.ColorTable[9].rgbBlue, 255);
    EXPECT_EQ(dib.ColorTable[kMaskKeyIndex].rgbRed, 128); // the table is the palette's, 253 too
    EXPECT_EQ(dib.ToImage().pixel(1, 0), qRgb(0, 0, 255));
}

TEST(CDibMemory, FourBitPixelsDrawHighNibbleFirstAndDrawPartCountsFromTheTop)
{
    CDib dib;
    MakePacked(dib, 5, 3, 4, [](int i) { return qRgb(i * 16, 0, 255 - i * 16); }, [](int x, int y) { return x + 5 * y; });
    QImage canvas = Canvas(QSize(20, 10));
    QPainter painter(&canvas);
    ASSERT_TRUE(dib.Draw(painter, QPoint(0, 0), QSize(5, 3)));
    ASSERT_TRUE(dib.DrawPart(painter, QPoint(10, 0), QPoint(2, 1), QSize(2, 2)));
    painter.end();
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(canvas.pixel(x, y), qRgb((x + 5 * y) * 16, 0, 255 - (x + 5 * y) * 16)) << x << "," << y;
    }
    EXPECT_EQ(canvas.pixel(10, 0), qRgb(7 * 16, 0, 255 - 7 * 16)); // pixel (2, 1)
    EXPECT_EQ(canvas.pixel(11, 1), qRgb(13 * 16, 0, 255 - 13 * 16)); // pixel (3, 2)
    EXPECT_EQ(canvas.pixel(12, 0), qRgb(255, 255, 255));
    CDib empty;
    EXPECT_FALSE(empty.Draw(painter, QPoint(), QSize(1, 1)));
}

struct ReadCase { const char* what; QByteArray bytes; const char* message; };

TEST(CDibFile, ReadTellsWhatWentWrong)
{
    QByteArray notBitmap(60, '\0');
    notBitmap[0] = 'B';
    notBitmap[1] = 'N';
    const ReadCase cases[] = {
        {"empty", QByteArray(), "read error 1"},
        {"shorter than a file header", QByteArray("BM\x10\x00\x00\x00", 6), "read error 1"},
        {"not BM", notBitmap, "Invalid bitmap file"},
    };
    for (const ReadCase& c : cases) {
        SCOPED_TRACE(c.what);
        QBuffer buffer;
        buffer.setData(c.bytes);
        buffer.open(QIODevice::ReadOnly);
        CDib dib;
        int result = -1;
        EXPECT_EQ(MessageOf([&] { return dib.Read(buffer); }, result), QString::fromLatin1(c.message));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(dib.Header, nullptr);
    }
    CDib dib;
    int result = -1;
    EXPECT_EQ(MessageOf([&] { return dib.Read(QStringLiteral(SONOPTIC_TEST_TMP "/no such.bmp")); }, result),
              "Read error 1");
    EXPECT_EQ(result, 0);
}

TEST(CDibFile, TruncatedPixelsReadAsZerosWithoutAMessage)
{
    CDib source;
    MakePacked(source, 4, 4, 8, Grey, [](int, int) { return 200; });
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    ASSERT_EQ(source.Write(whole), 1);
    QBuffer cut;
    cut.setData(whole.data().left(whole.data().size() - 4)); // the top row is missing
    cut.open(QIODevice::ReadOnly);
    CDib dib;
    int result = 0;
    EXPECT_EQ(MessageOf([&] { return dib.Read(cut); }, result), QString());
    EXPECT_EQ(result, 1);
    EXPECT_EQ(dib.ToImage().pixel(0, 0), Grey(0));
    EXPECT_EQ(dib.ToImage().pixel(0, 3), Grey(200));
}

TEST(CDibFile, WriteThenReadRoundTripsWritesBackWhatItReadAndAFailureSaysWriteError)
{
    CDib packed;
    MakePacked(packed, 7, 5, 4, [](int i) { return qRgb(i * 15, 255 - i * 15, i); }, [](int x, int y) { return (x * y) % 16; });
    const QString first = QStringLiteral(SONOPTIC_TEST_TMP "/roundtrip.bmp");
    const QString second = QStringLiteral(SONOPTIC_TEST_TMP "/roundtrip2.bmp");
    ASSERT_EQ(packed.Write(first), 1);
    EXPECT_EQ(QFile(first).size(), 14 + 40 + 16 * 4 + 4 * 5);

    CDib read;
    ASSERT_EQ(read.Read(first), 1);
    EXPECT_EQ(read.HeaderAlloc, CDib::ByNew);
    EXPECT_EQ(read.ImageAlloc, 1u);
    EXPECT_EQ(std::memcmp(read.Header, packed.Header, 40 + 16 * 4), 0);
    EXPECT_EQ(std::memcmp(read.Image, packed.Image, packed.ImageSize), 0);
    EXPECT_EQ(read.ToImage(), packed.ToImage());

    // Read from a file, the header and the pixels lie in two blocks; both are written.
    ASSERT_EQ(read.Write(second), 1);
    QFile a(first), b(second);
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), b.readAll());

    CDib dib;
    MakePacked(dib, 2, 2, 8, Grey, [](int, int) { return 1; });
    QBuffer readOnly;
    readOnly.open(QIODevice::ReadOnly);
    int result = -1;
    EXPECT_EQ(MessageOf([&] { return dib.Write(readOnly); }, result), "write error");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(MessageOf([&] { return dib.Write(QStringLiteral(SONOPTIC_TEST_TMP "/no/such/folder.bmp")); }, result),
              "write error");
    EXPECT_EQ(result, 0);
}

// Colours by index for the mask tests: index i is (i, 0, 0) except the key.
QRgb Reds(int i)
{
    return i == kMaskKeyIndex ? qRgb(255, 0, 255) : qRgb(i, 0, 0);
}

class CDibMaskTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        // An 8 x 6 background of index 10, an image of index 20 + x, and a mask keyed but for a
        // 3 x 2 block at (2, 2).
        MakePacked(background, 8, 6, 8, Reds, [](int, int) { return 10; });
        MakePacked(image, 8, 6, 8, Reds, [](int x, int) { return 20 + x; });
        MakePacked(mask, 8, 6, 8, Reds, [](int x, int y) { return x >= 2 && x < 5 && y >= 2 && y < 4 ? 0 : kMaskKeyIndex; });
    }

    bool InBlock(int x, int y) const { return x >= 2 && x < 5 && y >= 2 && y < 4; }

    CDib background, image, mask;
};

TEST_F(CDibMaskTest, DrawThroughMaskPutsImageBytesWhereTheMaskIsNotTheKey)
{
    QImage canvas = Canvas(QSize(8, 6));
    QPainter painter(&canvas);
    ASSERT_TRUE(background.DrawThroughMask(painter, image, QPoint(0, 0), mask, kMaskKeyIndex, QPoint(0, 0), QPoint(0, 0)));
    painter.end();
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(canvas.pixel(x, y), InBlock(x, y) ? Reds(20 + x) : Reds(10)) << x << "," << y;
    }
    // The bitmaps themselves are untouched.
    EXPECT_EQ(IndexAt(background, 3, 2), 10);
    EXPECT_EQ(IndexAt(image, 3, 2), 23);
}

TEST_F(CDibMaskTest, DrawThroughMaskTakesImageAndBackgroundFromTheirOrigins)
{
    QImage canvas = Canvas(QSize(20, 20));
    QPainter painter(&canvas);
    // A mask of 4 x 3 keyed in its last column; the image from x = 3, the background part from (2, 1).
    CDib small;
    MakePacked(small, 4, 3, 8, Reds, [](int x, int) { return x < 3 ? 1 : kMaskKeyIndex; });
    ASSERT_TRUE(background.DrawThroughMask(painter, image, QPoint(3, 0), small, kMaskKeyIndex, QPoint(10, 10), QPoint(2, 1)));
    painter.end();
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(canvas.pixel(10 + x, 10 + y), Reds(23 + x)) << x << "," << y;
        EXPECT_EQ(canvas.pixel(13, 10 + y), Reds(10));
    }
    EXPECT_EQ(canvas.pixel(14, 10), qRgb(255, 255, 255)); // only the mask's size is drawn
}

TEST_F(CDibMaskTest, MergeThroughMaskTakesBackgroundOnTheKeyAndImageElsewhere)
{
    QImage canvas = Canvas(QSize(12, 10));
    QPainter painter(&canvas);
    ASSERT_TRUE(background.MergeThroughMask(painter, image, mask, kMaskKeyIndex, QPoint(0, 0), QPoint(2, 3), QPoint(0, 0)));
    painter.end();
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 7; ++x)
            EXPECT_EQ(canvas.pixel(2 + x, 3 + y), InBlock(x, y) ? Reds(20 + x) : Reds(10)) << x << "," << y;
    }
    // The walk starts a byte left of each row, so the mask's last column is reached only as the byte
    // before the row above it (rows of 8 have no padding): the top row's keeps the mask's key colour.
    EXPECT_EQ(canvas.pixel(9, 3), Reds(kMaskKeyIndex));
    for (int y = 1; y < 6; ++y)
        EXPECT_EQ(canvas.pixel(9, 3 + y), Reds(10)) << y;
    EXPECT_EQ(IndexAt(mask, 3, 2), 0);
    EXPECT_EQ(IndexAt(mask, 7, 3), kMaskKeyIndex);
}

} // namespace
