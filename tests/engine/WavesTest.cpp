// The WAV reader against files written by sox and by alsa-utils, and against crafted broken files.
#include "engine/CWaves.h"

#include "EngineTestSupport.h"

#include <AL/al.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

using engine_test::RiffBuilder;
using engine_test::ScratchDir;

namespace {

constexpr ALenum kAnyFormat = 0x7777;
std::vector<std::string> g_askedNames;

// Stands in for alGetEnumValue where a test wants to see which name the reader asked for.
ALenum RecordingResolver(const ALchar* name)
{
    g_askedNames.emplace_back(name);
    return kAnyFormat;
}

ALenum RefusingResolver(const ALchar*)
{
    return 0;
}

struct Loaded { int code = 0; int id = -1; };

class WavesTest : public ::testing::Test {
protected:
    Loaded Load(const std::string& path)
    {
        Loaded loaded;
        loaded.code = m_waves.LoadWaveFile(path.c_str(), &loaded.id);
        return loaded;
    }

    Loaded LoadBytes(const std::vector<unsigned char>& bytes)
    {
        const std::string path = m_dir.File("crafted" + std::to_string(m_count++) + ".wav");
        engine_test::WriteFile(path, bytes);
        return Load(path);
    }

    // The format name that the reader asks for, or "" when it finds none (with its code checked).
    std::string AskedFormatName(int id)
    {
        g_askedNames.clear();
        ALenum format = -1;
        const int code = m_waves.GetWaveALBufferFormat(id, &RecordingResolver, &format);
        if (code == CWaves::kNoFormat) {
            EXPECT_EQ(format, 0);
            EXPECT_TRUE(g_askedNames.empty());
            return "";
        }
        EXPECT_EQ(code, CWaves::kOK);
        EXPECT_EQ(format, kAnyFormat);
        return g_askedNames.size() == 1 ? g_askedNames[0] : "?";
    }

    // What a getter of the reader gives for id; the getter must succeed.
    template <typename T>
    T Get(int (CWaves::*get)(int, T*), int id)
    {
        T value = 0;
        EXPECT_EQ((m_waves.*get)(id, &value), CWaves::kOK);
        return value;
    }
    std::uint32_t Size(int id) { return Get(&CWaves::GetWaveSize, id); }
    std::int32_t Type(int id) { return Get(&CWaves::GetWaveType, id); }

    CWaves m_waves;
    ScratchDir m_dir;
    int m_count = 0;
};

// Sox's arguments, and the reader's type, bytes a frame and format name ("" when no format fits).
struct SoxCase { const char* arguments; std::int32_t type; std::uint32_t bytesPerFrame; const char* formatName; };

} // namespace

// Files from another writer: sox picks plain PCM or the extensible layout, its channel masks and
// extra chunks ("fact") itself. 24- and 32-bit data get the 8-bit names; the table says so.
TEST_F(WavesTest, SoxFilesOfEveryLayoutGetTheFormatOfTheTableAndALawIsRefused)
{
    if (!engine_test::HaveSox())
        GTEST_SKIP() << "sox is not installed";
    using W = CWaves;
    // sox gives 7 channels no mask; the sample rate is 22050 throughout.
    const SoxCase cases[] = {
        {"-b 16 -c 1", W::kTypePCM, 2, "AL_FORMAT_MONO16"}, {"-b 8 -c 1", W::kTypePCM, 1, "AL_FORMAT_MONO8"},
        {"-b 16 -c 2", W::kTypePCM, 4, "AL_FORMAT_STEREO16"}, {"-b 8 -c 2", W::kTypePCM, 2, "AL_FORMAT_STEREO8"},
        {"-t wavpcm -b 16 -c 4", W::kTypePCM, 8, "AL_FORMAT_QUAD16"}, {"-t wavpcm -b 16 -c 5", W::kTypePCM, 10, ""},
        {"-t wavpcm -b 8 -c 4", W::kTypePCM, 4, ""}, {"-b 24 -c 1", W::kTypeExtensible, 3, "AL_FORMAT_MONO8"},
        {"-b 32 -c 1", W::kTypeExtensible, 4, "AL_FORMAT_MONO8"},
        {"-b 24 -c 2", W::kTypeExtensible, 6, "AL_FORMAT_STEREO8"}, {"-b 16 -c 3", W::kTypeExtensible, 6, ""},
        {"-b 16 -c 4", W::kTypeExtensible, 8, "AL_FORMAT_QUAD16"},
        {"-b 16 -c 6", W::kTypeExtensible, 12, "AL_FORMAT_51CHN16"}, {"-b 16 -c 7", W::kTypeExtensible, 14, ""},
        {"-b 16 -c 8", W::kTypeExtensible, 16, "AL_FORMAT_71CHN16"}, {"-b 24 -c 8", W::kTypeExtensible, 24, ""},
    };
    for (const SoxCase& c : cases) {
        SCOPED_TRACE(c.arguments);
        const std::string path = m_dir.File("sox.wav");
        ASSERT_TRUE(engine_test::Sox(std::string("-r 22050 ") + c.arguments, path, "synth 0.1 sine 440"));

        const Loaded loaded = Load(path);
        ASSERT_EQ(loaded.code, CWaves::kOK);
        EXPECT_EQ(Type(loaded.id), c.type);
        EXPECT_EQ(Size(loaded.id), 2205u * c.bytesPerFrame);
        EXPECT_EQ(Get(&CWaves::GetWaveFrequency, loaded.id), 22050u);
        EXPECT_EQ(AskedFormatName(loaded.id), c.formatName);
        EXPECT_EQ(m_waves.DeleteWaveFile(loaded.id), CWaves::kOK);
    }
    // A-law data is refused as unusable.
    const std::string alaw = m_dir.File("alaw.wav");
    ASSERT_TRUE(engine_test::Sox("-r 8000 -e a-law -c 1", alaw, "synth 0.1 sine 440"));
    EXPECT_EQ(Load(alaw).code, CWaves::kBadFile);
}

// The sample files of Debian's alsa-utils, checked against what sox's soxi reads from them.
TEST_F(WavesTest, AlsaSampleFilesLoadWithTheRateAndLengthThatSoxiReports)
{
    const std::filesystem::path folder = "/usr/share/sounds/alsa";
    if (!std::filesystem::exists(folder) || !engine_test::HaveSox())
        GTEST_SKIP() << "alsa-utils' sample files or sox are not installed";
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".wav")
            continue;
        SCOPED_TRACE(entry.path().string());
        auto soxi = [&](const char* option) {
            const std::string command = "soxi " + std::string(option) + " '" + entry.path().string() + "'";
            FILE* pipe = popen(command.c_str(), "r");
            unsigned long value = 0;
            EXPECT_EQ(std::fscanf(pipe, "%lu", &value), 1);
            pclose(pipe);
            return value;
        };
        const Loaded loaded = Load(entry.path().string());
        ASSERT_EQ(loaded.code, CWaves::kOK);
        EXPECT_EQ(Get(&CWaves::GetWaveFrequency, loaded.id), soxi("-r"));
        EXPECT_EQ(Size(loaded.id), soxi("-s") * soxi("-c") * soxi("-b") / 8);
        ALenum format = 0;
        EXPECT_EQ(m_waves.GetWaveALBufferFormat(loaded.id, &alGetEnumValue, &format), CWaves::kOK);
        EXPECT_EQ(format, soxi("-c") == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16);
        m_waves.DeleteWaveFile(loaded.id);
        ++files;
    }
    EXPECT_GT(files, 0);
}

// Walks that succeed, on the usual layout and on files not laid out in the usual way.
TEST_F(WavesTest, DataIsReadWholeAndUnusualButReadableLayoutsAreAccepted)
{
    // The data whole and exactly, past a chunk that the reader skips.
    const std::vector<unsigned char> samples = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    Loaded loaded = LoadBytes(RiffBuilder()
                                  .Chunk("LIST", {'x', 'y', 'z'})
                                  .Chunk("fmt ", RiffBuilder::PCMFormat(1, 11025, 16))
                                  .Chunk("data", samples)
                                  .Build());
    ASSERT_EQ(loaded.code, CWaves::kOK);
    void* data = nullptr;
    ASSERT_EQ(m_waves.GetWaveData(loaded.id, &data), CWaves::kOK);
    EXPECT_TRUE(std::equal(samples.begin(), samples.end(), static_cast<unsigned char*>(data)));
    EXPECT_EQ(Size(loaded.id), samples.size());
    EXPECT_EQ(AskedFormatName(loaded.id), "AL_FORMAT_MONO16");

    // Identifiers in small letters.
    const auto format = RiffBuilder::PCMFormat(2, 8000, 8);
    const std::vector<unsigned char> odd = {10, 20, 30};
    loaded = LoadBytes(RiffBuilder("riff", "wave").Chunk("fmt ", format).Chunk("data", {1, 2}).Build());
    EXPECT_EQ(loaded.code, CWaves::kOK);
    loaded = LoadBytes(RiffBuilder().Chunk("FMT ", format).Chunk("DaTa", {1, 2}).Build());
    EXPECT_EQ(loaded.code, CWaves::kOK);

    // "data" before "fmt ", with an odd size and its pad byte.
    loaded = LoadBytes(RiffBuilder().Chunk("data", odd).Chunk("fmt ", format).Build());
    ASSERT_EQ(loaded.code, CWaves::kOK);
    EXPECT_EQ(Size(loaded.id), 3u);
    m_waves.GetWaveData(loaded.id, &data);
    EXPECT_EQ(static_cast<unsigned char*>(data)[2], 30);

    // A later chunk of the same identifier replaces an earlier one.
    loaded = LoadBytes(RiffBuilder()
                           .Chunk("fmt ", RiffBuilder::PCMFormat(1, 8000, 16))
                           .Chunk("data", {1, 2, 3, 4})
                           .Chunk("fmt ", RiffBuilder::PCMFormat(2, 8000, 16))
                           .Chunk("data", {1, 2, 3, 4, 5, 6, 7, 8})
                           .Build());
    ASSERT_EQ(loaded.code, CWaves::kOK);
    EXPECT_EQ(Size(loaded.id), 8u);
    EXPECT_EQ(AskedFormatName(loaded.id), "AL_FORMAT_STEREO16");

    // A plain format chunk with the 18-byte tail that some writers add.
    auto longer = RiffBuilder::PCMFormat(1, 8000, 16);
    longer.push_back(0);
    longer.push_back(0);
    loaded = LoadBytes(RiffBuilder().Chunk("fmt ", longer).Chunk("data", {1, 2}).Build());
    ASSERT_EQ(loaded.code, CWaves::kOK);
    EXPECT_EQ(Type(loaded.id), CWaves::kTypePCM);
}

TEST_F(WavesTest, BrokenFilesFailWithMinusTwo)
{
    const auto format = RiffBuilder::PCMFormat(1, 8000, 16);
    struct Case { const char* what; std::vector<unsigned char> bytes; };
    auto fortyOne = RiffBuilder::ExtensibleFormat(1, 8000, 16, 4);
    fortyOne.push_back(0);
    const std::vector<Case> cases = {
        {"empty", {}},
        {"shorter than the RIFF header", {'R', 'I', 'F', 'F', 0, 0}},
        {"not WAVE", RiffBuilder("RIFF", "AVI ").Chunk("fmt ", format).Chunk("data", {1, 2}).Build()},
        {"not RIFF", RiffBuilder("RIFX", "WAVE").Chunk("fmt ", format).Chunk("data", {1, 2}).Build()},
        {"no data chunk", RiffBuilder().Chunk("fmt ", format).Build()},
        {"no fmt chunk", RiffBuilder().Chunk("data", {1, 2}).Build()},
        {"data of size 0", RiffBuilder().Chunk("fmt ", format).Chunk("data", {}).Build()},
        {"fmt chunk of 41 bytes", RiffBuilder().Chunk("fmt ", fortyOne).Chunk("data", {1, 2}).Build()},
        {"IEEE float tag", RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(1, 8000, 32, 3)).Chunk("data", {1, 2, 3, 4}).Build()},
        {"A-law tag", RiffBuilder().Chunk("fmt ", RiffBuilder::PCMFormat(1, 8000, 8, 6)).Chunk("data", {1, 2}).Build()},
        {"truncated data", RiffBuilder().Chunk("fmt ", format).ChunkWithSize("data", 1000, {1, 2, 3, 4}).Build()},
        {"data size past the end by gigabytes",
         RiffBuilder().Chunk("fmt ", format).ChunkWithSize("data", 0xFFFFFFF0u, {1, 2, 3, 4}).Build()},
        {"fmt size past the end", RiffBuilder().Chunk("data", {1, 2}).ChunkWithSize("fmt ", 0xFFFFFFFFu, format).Build()},
        {"fmt cut off by the end", RiffBuilder().Chunk("data", {1, 2}).ChunkWithSize("fmt ", 16, {}).Build()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(LoadBytes(c.bytes).code, CWaves::kBadFile);
    }
}

// Every prefix of a good file and thousands of random corruptions: codes only, never a crash, a
// leak or a read out of bounds (the sanitizer build watches the last two).
TEST_F(WavesTest, NoInputMakesTheReaderMisbehave)
{
    std::vector<unsigned char> good = RiffBuilder()
                                          .Chunk("LIST", {'a', 'b', 'c'})
                                          .Chunk("fmt ", RiffBuilder::ExtensibleFormat(2, 8000, 16, 3))
                                          .Chunk("data", std::vector<unsigned char>(64, 0x55))
                                          .Build();
    for (std::size_t length = 0; length <= good.size(); ++length) {
        const Loaded loaded = LoadBytes(std::vector<unsigned char>(good.begin(), good.begin() + length));
        EXPECT_EQ(loaded.code, length == good.size() ? CWaves::kOK : CWaves::kBadFile) << "length " << length;
        m_waves.DeleteWaveFile(loaded.id);
    }

    std::mt19937 random(1234);
    const std::string path = m_dir.File("fuzz.wav");
    for (int round = 0; round < 3000; ++round) {
        std::vector<unsigned char> bytes = good;
        const int flips = 1 + static_cast<int>(random() % 6);
        for (int i = 0; i < flips; ++i)
            bytes[random() % bytes.size()] = static_cast<unsigned char>(random());
        if (random() % 4 == 0)
            bytes.resize(random() % bytes.size());
        engine_test::WriteFile(path, bytes);
        int id = -1;
        const int code = m_waves.LoadWaveFile(path.c_str(), &id);
        ASSERT_TRUE(code == CWaves::kOK || code == CWaves::kBadFile) << "code " << code;
        if (code == CWaves::kOK) {
            ASSERT_LE(Size(id), bytes.size());
            void* data = nullptr;
            m_waves.GetWaveData(id, &data);
            volatile unsigned char sum = 0;
            for (std::uint32_t i = 0; i < Size(id); ++i)
                sum = static_cast<unsigned char>(sum + static_cast<unsigned char*>(data)[i]);
            ALenum format = -1;
            m_waves.GetWaveALBufferFormat(id, &RefusingResolver, &format);
            EXPECT_EQ(format, 0);
            EXPECT_EQ(m_waves.DeleteWaveFile(id), CWaves::kOK);
        }
    }
}

TEST_F(WavesTest, TableHolds1024WavesAndReusesAFreedEntry)
{
    const std::string path = m_dir.File("small.wav");
    engine_test::WriteFile(path, engine_test::SmallMonoWave());
    std::vector<int> ids;
    for (int i = 0; i < CWaves::kMaxWaves; ++i) {
        int id = -1;
        ASSERT_EQ(m_waves.LoadWaveFile(path.c_str(), &id), CWaves::kOK) << "load " << i + 1;
        ids.push_back(id);
    }
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(ids.front(), 0);
    EXPECT_EQ(ids.back(), CWaves::kMaxWaves - 1);
    EXPECT_EQ(std::unique(ids.begin(), ids.end()), ids.end());

    int id = 4242;
    EXPECT_EQ(m_waves.LoadWaveFile(path.c_str(), &id), CWaves::kOutOfMemory);
    EXPECT_EQ(id, 4242);

    ASSERT_EQ(m_waves.DeleteWaveFile(517), CWaves::kOK);
    EXPECT_EQ(m_waves.LoadWaveFile(path.c_str(), &id), CWaves::kOK);
    EXPECT_EQ(id, 517);
    // The rest are freed by the reader's destructor; the sanitizer build checks that nothing leaks.
}

TEST_F(WavesTest, ArgumentsIdentifiersAndUnknownFormatNamesAreChecked)
{
    int id = -1;
    EXPECT_EQ(m_waves.LoadWaveFile(nullptr, &id), CWaves::kBadArgument);
    EXPECT_EQ(m_waves.LoadWaveFile(m_dir.File("missing.wav").c_str(), &id), CWaves::kCannotOpen);

    const Loaded loaded = LoadBytes(engine_test::SmallMonoWave());
    ASSERT_EQ(loaded.code, CWaves::kOK);
    std::int32_t type = 0;
    std::uint32_t value = 0;
    void* data = nullptr;
    ALenum format = 0;
    for (int bad : {-1, CWaves::kMaxWaves, loaded.id + 1}) {
        SCOPED_TRACE(bad);
        EXPECT_EQ(m_waves.GetWaveType(bad, &type), CWaves::kUnknownId);
        EXPECT_EQ(m_waves.GetWaveData(bad, &data), CWaves::kUnknownId);
        EXPECT_EQ(m_waves.GetWaveSize(bad, &value), CWaves::kUnknownId);
        EXPECT_EQ(m_waves.GetWaveFrequency(bad, &value), CWaves::kUnknownId);
        EXPECT_EQ(m_waves.GetWaveALBufferFormat(bad, &alGetEnumValue, &format), CWaves::kUnknownId);
        EXPECT_EQ(m_waves.DeleteWaveFile(bad), CWaves::kUnknownId);
        // The identifier is looked at before the output.
        EXPECT_EQ(m_waves.GetWaveSize(bad, nullptr), CWaves::kUnknownId);
    }
    EXPECT_EQ(m_waves.GetWaveType(loaded.id, nullptr), CWaves::kBadArgument);
    EXPECT_EQ(m_waves.GetWaveData(loaded.id, nullptr), CWaves::kBadArgument);
    EXPECT_EQ(m_waves.GetWaveSize(loaded.id, nullptr), CWaves::kBadArgument);
    EXPECT_EQ(m_waves.GetWaveFrequency(loaded.id, nullptr), CWaves::kBadArgument);
    EXPECT_EQ(m_waves.GetWaveALBufferFormat(loaded.id, nullptr, &format), CWaves::kBadArgument);
    EXPECT_EQ(m_waves.GetWaveALBufferFormat(loaded.id, &alGetEnumValue, nullptr), CWaves::kBadArgument);

    // A format name that the library does not know gives -16 and format 0.
    format = -1;
    EXPECT_EQ(m_waves.GetWaveALBufferFormat(loaded.id, &RefusingResolver, &format), CWaves::kNoFormat);
    EXPECT_EQ(format, 0);
    EXPECT_EQ(m_waves.GetWaveALBufferFormat(loaded.id, &alGetEnumValue, &format), CWaves::kOK);
    EXPECT_EQ(format, AL_FORMAT_MONO16);

    EXPECT_EQ(m_waves.DeleteWaveFile(loaded.id), CWaves::kOK);
    EXPECT_EQ(m_waves.DeleteWaveFile(loaded.id), CWaves::kUnknownId);
    EXPECT_EQ(m_waves.GetWaveSize(loaded.id, &value), CWaves::kUnknownId);
}

// The layouts sox does not write: extensible stereo and mono 16-bit with their masks, the rear
// pair, 6.1, and masks that match no row.
TEST_F(WavesTest, ExtensibleChannelMasksChooseTheFormat)
{
    struct Case { std::uint16_t channels; std::uint16_t bits; std::uint32_t mask; const char* name; };
    const Case cases[] = {
        {1, 16, 0x04, "AL_FORMAT_MONO16"},   {1, 8, 0x04, "AL_FORMAT_MONO8"},     {1, 16, 0x01, ""},
        {2, 16, 0x03, "AL_FORMAT_STEREO16"}, {2, 8, 0x03, "AL_FORMAT_STEREO8"},   {2, 16, 0x30, "AL_FORMAT_REAR16"},
        {2, 8, 0x30, ""},                    {4, 16, 0x33, "AL_FORMAT_QUAD16"},   {4, 16, 0x107, ""},
        {6, 16, 0x60F, ""},                  {7, 16, 0x13F, "AL_FORMAT_61CHN16"}, {8, 16, 0x63F, "AL_FORMAT_71CHN16"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.name << " mask " << c.mask);
        const Loaded loaded = LoadBytes(RiffBuilder()
                                            .Chunk("fmt ", RiffBuilder::ExtensibleFormat(c.channels, 8000, c.bits, c.mask))
                                            .Chunk("data", std::vector<unsigned char>(64, 0))
                                            .Build());
        ASSERT_EQ(loaded.code, CWaves::kOK);
        EXPECT_EQ(Type(loaded.id), CWaves::kTypeExtensible);
        EXPECT_EQ(AskedFormatName(loaded.id), c.name);
        m_waves.DeleteWaveFile(loaded.id);
    }
}
