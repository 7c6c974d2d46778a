// Writes the part of the WAV fuzzer's seed corpus that the project makes itself: the renderer's own
// float and 16-bit files, and the crafted files the engine suites load (lower-case identifiers,
// odd chunks and padding, the data before the format, extensible layouts, sizes that lie). sox and
// arecord add theirs in scripts/fuzz-wav.sh.
//   make_wave_corpus <folder>

#include "engine/WaveWriter.h"
#include "tests/engine/RiffBuilder.h"

#include <cstdio>
#include <string>
#include <vector>

using engine_test::RiffBuilder;

namespace {

bool Save(const std::string& path, const std::vector<unsigned char>& bytes)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written;
}

bool Render(const std::string& path, WaveWriter::Sample sample)
{
    std::vector<float> frames;
    for (int i = 0; i < 256; ++i) {
        frames.push_back(i % 16 < 8 ? 0.5f : -0.5f);
        frames.push_back(i % 32 < 16 ? 0.25f : -0.25f);
    }
    WaveWriter writer;
    return writer.Open(path, 2, 22050, sample) && writer.Write(frames.data(), frames.size() / 2) && writer.Close();
}

std::vector<unsigned char> Samples(std::size_t bytes)
{
    std::vector<unsigned char> data(bytes);
    for (std::size_t i = 0; i < bytes; ++i)
        data[i] = static_cast<unsigned char>(i * 37);
    return data;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_wave_corpus <folder>\n");
        return 2;
    }
    const std::string folder = argv[1];
    const std::vector<unsigned char> odd = {'x', 'y', 'z'};
    const struct {
        const char* name;
        std::vector<unsigned char> bytes;
    } crafted[] = {
        {"mono16", engine_test::SmallWave(1)},
        {"stereo16", engine_test::SmallWave(2)},
        {"quad16", engine_test::SmallWave(4)},
        {"lowercase", RiffBuilder("riff", "wave").Chunk("fmt ", RiffBuilder::PCMFormat(1, 8000, 8))
                          .Chunk("data", Samples(33)).Build()},
        {"odd-list-first", RiffBuilder().Chunk("LIST", odd).Chunk("fmt ", RiffBuilder::PCMFormat(2, 44100, 16))
                               .Chunk("data", Samples(64)).Build()},
        {"data-first", RiffBuilder().Chunk("data", Samples(32)).Chunk("fmt ", RiffBuilder::PCMFormat(1, 11025, 16))
                           .Build()},
        {"unpadded-odd", RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(1, 8000, 8))
                             .Chunk("junk", odd, false).Chunk("data", Samples(16)).Build()},
        {"ext-51", RiffBuilder().Chunk("fmt ", RiffBuilder::ExtensibleFormat(6, 48000, 16, 0x3F))
                       .Chunk("data", Samples(6 * 2 * 8)).Build()},
        {"ext-71", RiffBuilder().Chunk("fmt ", RiffBuilder::ExtensibleFormat(8, 48000, 16, 0x63F))
                       .Chunk("data", Samples(8 * 2 * 8)).Build()},
        {"ext-rear", RiffBuilder().Chunk("fmt ", RiffBuilder::ExtensibleFormat(2, 22050, 16, 0x30))
                         .Chunk("data", Samples(32)).Build()},
        {"ext-24bit", RiffBuilder().Chunk("fmt ", RiffBuilder::ExtensibleFormat(1, 96000, 24, 0x4))
                          .Chunk("data", Samples(48)).Build()},
        {"data-too-long", RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(1, 8000, 16))
                              .ChunkWithSize("data", 0x7FFFFFF0u, Samples(16)).Build()},
        {"fmt-too-long", RiffBuilder().ChunkWithSize("fmt ", 48, RiffBuilder::PCMFormat(1, 8000, 16))
                             .Chunk("data", Samples(16)).Build()},
    };
    for (const auto& file : crafted)
        if (!Save(folder + "/crafted-" + file.name + ".wav", file.bytes))
            return 1;
    if (!Render(folder + "/render-float.wav", WaveWriter::Sample::Float32)
        || !Render(folder + "/render-int16.wav", WaveWriter::Sample::Int16))
        return 1;
    return 0;
}
