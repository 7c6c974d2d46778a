#include "tools/make_bitmaps/PackedBitmap.h"

#include "controls/CDib.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr QRgb kMaskKeyColour = 0xFFFF00FF; // magenta: no picture of ours holds it

struct Weighted {
    QRgb colour;
    int count;
};

int Channel(QRgb colour, int channel)
{
    return channel == 0 ? qRed(colour) : channel == 1 ? qGreen(colour) : qBlue(colour);
}

// A box of the median cut: a run of the colour list.
struct Box {
    std::size_t begin;
    std::size_t end;
    int widestChannel = 0;
    double score = 0; // how much splitting the box gains: its widest range, squared, by its pixels

    void Measure(const std::vector<Weighted>& colours)
    {
        std::array<int, 3> low{255, 255, 255};
        std::array<int, 3> high{0, 0, 0};
        long pixels = 0;
        for (std::size_t i = begin; i < end; ++i) {
            for (int c = 0; c < 3; ++c) {
                low[c] = std::min(low[c], Channel(colours[i].colour, c));
                high[c] = std::max(high[c], Channel(colours[i].colour, c));
            }
            pixels += colours[i].count;
        }
        int range = -1;
        for (int c = 0; c < 3; ++c) {
            if (high[c] - low[c] > range) {
                range = high[c] - low[c];
                widestChannel = c;
            }
        }
        score = end - begin > 1 ? double(range) * range * double(pixels) : -1;
    }

    QRgb Mean(const std::vector<Weighted>& colours) const
    {
        std::array<double, 3> sum{};
        double pixels = 0;
        for (std::size_t i = begin; i < end; ++i) {
            for (int c = 0; c < 3; ++c)
                sum[c] += double(Channel(colours[i].colour, c)) * colours[i].count;
            pixels += colours[i].count;
        }
        return qRgb(int(sum[0] / pixels + 0.5), int(sum[1] / pixels + 0.5), int(sum[2] / pixels + 0.5));
    }
};

std::vector<Weighted> Histogram(const QImage& image, const QList<QRgb>& fixed)
{
    QHash<QRgb, int> counts;
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x) {
            const QRgb colour = line[x] | 0xFF000000;
            if (!fixed.contains(colour))
                ++counts[colour];
        }
    }
    std::vector<Weighted> colours;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        colours.push_back({it.key(), it.value()});
    // A hash's order changes from run to run: sorted, the same drawing gives the same file each time.
    std::sort(colours.begin(), colours.end(), [](const Weighted& a, const Weighted& b) { return a.colour < b.colour; });
    return colours;
}

int Nearest(const QList<QRgb>& palette, QRgb colour, int skip)
{
    int best = 0;
    int bestDistance = 0x7fffffff;
    for (int i = 0; i < palette.size(); ++i) {
        if (i == skip)
            continue;
        const int dr = qRed(palette[i]) - qRed(colour);
        const int dg = qGreen(palette[i]) - qGreen(colour);
        const int db = qBlue(palette[i]) - qBlue(colour);
        // Green weighs most and blue least to the eye.
        const int distance = 3 * dr * dr + 4 * dg * dg + 2 * db * db;
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}

constexpr std::array<std::array<int, 4>, 4> kBayer = {{{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}}};

QRgb Dithered(QRgb colour, int x, int y, int amplitude)
{
    // -amplitude .. +amplitude over the 16 steps of the pattern.
    const int offset = (2 * kBayer[y % 4][x % 4] - 15) * amplitude / 15;
    auto channel = [offset](int value) { return std::clamp(value + offset, 0, 255); };
    return qRgb(channel(qRed(colour)), channel(qGreen(colour)), channel(qBlue(colour)));
}

// The image's pixels as indices of palette, row by row from the top.
std::vector<std::uint8_t> Indices(const QImage& rgb, const QList<QRgb>& palette, int skip, int dither)
{
    std::vector<std::uint8_t> indices;
    indices.reserve(std::size_t(rgb.width()) * rgb.height());
    QHash<QRgb, std::uint8_t> known;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x) {
            const QRgb colour = dither ? Dithered(line[x], x, y, dither) : line[x];
            auto found = known.constFind(colour);
            if (found == known.constEnd())
                found = known.insert(colour, std::uint8_t(Nearest(palette, colour, skip)));
            indices.push_back(*found);
        }
    }
    return indices;
}

void PackRow(std::uint8_t* row, const QImage& rgb, int y, int bitCount, const std::uint8_t* indices)
{
    const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
    for (int x = 0; x < rgb.width(); ++x) {
        switch (bitCount) {
        case 4: row[x / 2] |= std::uint8_t(indices[x] << (x % 2 ? 0 : 4)); break;
        case 8: row[x] = indices[x]; break;
        default:
            row[3 * x] = std::uint8_t(qBlue(line[x]));
            row[3 * x + 1] = std::uint8_t(qGreen(line[x]));
            row[3 * x + 2] = std::uint8_t(qRed(line[x]));
            break;
        }
    }
}

} // namespace

QList<QRgb> ChoosePalette(const QImage& image, int count, const QList<QRgb>& fixed)
{
    std::vector<Weighted> colours = Histogram(image, fixed);
    QList<QRgb> palette = fixed;
    const int wanted = count - int(fixed.size());
    if (colours.empty() || wanted <= 0)
        return palette;
    std::vector<Box> boxes{{0, colours.size()}};
    boxes.back().Measure(colours);
    while (int(boxes.size()) < wanted) {
        auto widest = std::max_element(boxes.begin(), boxes.end(),
                                       [](const Box& a, const Box& b) { return a.score < b.score; });
        if (widest->score < 0)
            break; // every box holds one colour
        Box& box = *widest;
        const int channel = box.widestChannel;
        std::sort(colours.begin() + long(box.begin), colours.begin() + long(box.end),
                  [channel](const Weighted& a, const Weighted& b) { return Channel(a.colour, channel) < Channel(b.colour, channel); });
        long total = 0;
        for (std::size_t i = box.begin; i < box.end; ++i)
            total += colours[i].count;
        // Cut at the pixels' median, keeping at least one colour on each side.
        std::size_t cut = box.begin + 1;
        for (long below = colours[box.begin].count; cut < box.end - 1 && 2 * below < total; ++cut)
            below += colours[cut].count;
        Box upper{cut, box.end};
        box.end = cut;
        box.Measure(colours);
        upper.Measure(colours);
        boxes.push_back(upper);
    }
    for (const Box& box : boxes)
        palette.append(box.Mean(colours));
    return palette;
}

QList<QRgb> PaletteWithMaskKey(const QImage& image)
{
    QList<QRgb> palette = ChoosePalette(image, 255);
    while (palette.size() < 255)
        palette.append(qRgb(0, 0, 0));
    palette.insert(kMaskKeyIndex, kMaskKeyColour);
    return palette;
}

bool WriteBitmap(const QImage& image, int bitCount, const QList<QRgb>& palette, const QString& path, int dither)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    const int width = rgb.width();
    const int height = rgb.height();
    const int colours = bitCount == 24 ? 0 : 1 << bitCount;
    const std::size_t stride = std::size_t((width * bitCount + 31) / 32 * 4);
    const std::size_t head = sizeof(BITMAPINFOHEADER) + 4 * std::size_t(colours);
    auto* block = static_cast<std::uint8_t*>(std::calloc(head + stride * std::size_t(height), 1));
    if (!block)
        return false;

    BITMAPINFOHEADER header{};
    header.biSize = sizeof(BITMAPINFOHEADER);
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = std::uint16_t(bitCount);
    header.biSizeImage = std::uint32_t(stride * std::size_t(height));
    header.biXPelsPerMeter = header.biYPelsPerMeter = 2835; // 72 dots an inch
    std::memcpy(block, &header, sizeof header);
    auto* table = reinterpret_cast<RGBQUAD*>(block + sizeof header);
    for (int i = 0; i < colours && i < palette.size(); ++i)
        table[i] = {std::uint8_t(qBlue(palette[i])), std::uint8_t(qGreen(palette[i])), std::uint8_t(qRed(palette[i])), 0};

    const std::vector<std::uint8_t> indices =
        colours ? Indices(rgb, palette.mid(0, colours), bitCount == 8 ? kMaskKeyIndex : -1, dither) : std::vector<std::uint8_t>();
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = block + head + std::size_t(height - 1 - y) * stride; // bottom-up
        PackRow(row, rgb, y, bitCount, colours ? indices.data() + std::size_t(y) * width : nullptr);
    }
    CDib dib;
    dib.AttachMemory(block, true, block);
    return dib.Write(path) == 1;
}
