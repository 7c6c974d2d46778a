// Offline renders of live scenes on a loopback device: an echo heard where and as loud as its
// delay line says, reverbs whose measured decay matches the decay time set, and files that are whole
// or absent. The live engine runs on OpenAL Soft's null output.
#include "engine/DecayAnalysis.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "engine/LoopbackRenderer.h"
#include "tests/engine/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <vector>
#include <cmath>
#include <filesystem>
#include <string>

namespace {

constexpr int kRate = 44100;
constexpr double kToneLevel = 0.5; // -6 dBFS, as sox makes it below

class RenderTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        factory = engine_test::StartFactory(4);
        slot = factory->CreateEffectSlot(0);
        ASSERT_NE(slot, nullptr);
    }
    void TearDown() override
    {
        for (EFX_3DSource* source : sources)
            source->Release();
    }

    // A 1 kHz sine of the given length made by sox, as a source routed by send 0 into slot 0.
    EFX_3DSource* AddTone(double seconds, float directGain)
    {
        const std::string path = scratch.File("tone.wav");
        const std::string effects = "synth " + std::to_string(seconds) + " sine 1000 gain -6";
        EXPECT_TRUE(engine_test::Sox("-r 44100 -c 1 -b 16", path, effects)) << effects;
        return AddSource(path, directGain);
    }
    EFX_3DSource* AddSource(const std::string& path, float directGain)
    {
        EFX_3DSource* source = factory->CreateSource(path.c_str());
        EXPECT_NE(source, nullptr) << factory->GetLog();
        source->CreateAuxSendFilter(0, 0);
        source->SetDirectFilterGain(directGain);
        sources.push_back(source);
        return source;
    }
    SceneSnapshot Scene() { return CaptureScene(*factory, sources); }

    engine_test::ScratchDir scratch;
    engine_test::FactoryPtr factory;
    EFX_EffectSlot* slot = nullptr;
    std::vector<EFX_3DSource*> sources;
};

// Mean square of both channels summed, over frames [from, to).
double Energy(const std::vector<float>& frames, std::size_t from, std::size_t to)
{
    double sum = 0;
    for (std::size_t i = from; i < to; ++i)
        sum += frames[2 * i] * frames[2 * i] + frames[2 * i + 1] * frames[2 * i + 1];
    return sum / static_cast<double>(to - from);
}

// The first frame whose left or right sample reaches `level`.
std::size_t Onset(const std::vector<float>& frames, std::size_t from, float level)
{
    for (std::size_t i = from; i < frames.size() / 2; ++i)
        if (std::fabs(frames[2 * i]) >= level || std::fabs(frames[2 * i + 1]) >= level)
            return i;
    return frames.size();
}

TEST_F(RenderTest, AnEchoIsHeardAtItsDelayWithinABlockAndAtTheLevelOfItsDelayLine)
{
    // Two taps apart (0.1 s, then 0.05 s later), each a lossless copy panned to the middle: the first
    // carries the tone's energy, split over the two channels.
    ASSERT_EQ(slot->LoadEffect(kEffectEcho), 1);
    slot->SetEchoDelay(0.1f);
    slot->SetEchoLrdelay(0.05f);
    slot->SetEchoDamping(0.0f);
    slot->SetEchoFeedback(0.0f);
    slot->SetEchoSpread(0.0f);
    AddTone(0.04, 1.0f);
    RenderOptions options;
    options.tail = 0.3;
    std::vector<float> frames;
    const RenderResult result = RenderScene(Scene(), options, frames);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_EQ(result.frequency, kRate);
    ASSERT_EQ(frames.size(), 2u * static_cast<std::size_t>(std::lround(0.34 * kRate)));

    const std::size_t block = static_cast<std::size_t>(options.blockFrames);
    const std::size_t tone = Onset(frames, 0, 0.05f);
    EXPECT_LT(tone, block);
    const std::size_t quiet = static_cast<std::size_t>(0.06 * kRate);
    EXPECT_LT(Energy(frames, quiet, quiet + 1000), 1e-9) << "silence between the tone and its echo";
    const std::size_t echo = Onset(frames, quiet, 0.05f);
    EXPECT_NEAR(static_cast<double>(echo), tone + 0.1 * kRate, static_cast<double>(block));
    // Level over the middle of the first tap, against the tone's own mean square.
    const double tap = Energy(frames, echo + 200, echo + static_cast<std::size_t>(0.03 * kRate));
    EXPECT_NEAR(10 * std::log10(tap / (kToneLevel * kToneLevel / 2)), 0.0, 1.0);
    // A 1 kHz sine still: 30 periods give 60 zero crossings in 30 ms.
    int crossings = 0;
    for (std::size_t i = echo + 100; i < echo + 100 + static_cast<std::size_t>(0.03 * kRate); ++i)
        crossings += (frames[2 * i] < 0) != (frames[2 * i + 2] < 0);
    EXPECT_NEAR(crossings, 60, 2);
}

TEST_F(RenderTest, TheMeasuredDecayOfAReverbFollowsItsDecayTime)
{
    ASSERT_EQ(slot->LoadEffect(kEffectEAXReverb), 1);
    const std::string impulse = scratch.File("impulse.wav");
    // One full-scale sample, then silence: an impulse of 256 samples.
    std::vector<unsigned char> samples(2 * 256, 0);
    samples[0] = 0xFF;
    samples[1] = 0x7F;
    using engine_test::RiffBuilder;
    const auto format = RiffBuilder::PCMFormat(1, kRate, 16);
    engine_test::WriteFile(impulse, RiffBuilder().Chunk("fmt ", format).Chunk("data", samples).Build());
    AddSource(impulse, 0.0f);
    for (const float decay : {0.5f, 1.49f, 5.0f}) {
        ASSERT_EQ(slot->SetEAXReverbDecayTime(decay), 1);
        // A tail of one and a half decay times reaches -90 dB below the start of the response.
        RenderOptions options;
        options.tail = 1.5 * decay;
        std::vector<float> frames;
        const RenderResult result = RenderScene(Scene(), options, frames);
        ASSERT_TRUE(result.ok) << result.error;
        const double t30 = DecayTimeT30(EnergyDecayCurve(frames, 2), result.frequency);
        std::printf("decay time %.2f s: measured T30 %.3f s over %.1f s rendered\n", decay, t30,
                    static_cast<double>(result.frames) / result.frequency);
        EXPECT_NEAR(t30, decay, 0.15 * decay);
    }
}

TEST_F(RenderTest, AFileIsWholeOrAbsentUnderItsName)
{
    ASSERT_EQ(slot->LoadEffect(kEffectEcho), 1);
    AddTone(0.5, 1.0f);
    const std::string path = scratch.File("out.wav");

    // Whole: a float file of the right size, a 16-bit one as well.
    RenderOptions options;
    options.tail = 0.1;
    ASSERT_TRUE(RenderSceneToWave(Scene(), options, path).ok);
    EXPECT_EQ(std::filesystem::file_size(path), 58u + 8u * static_cast<std::uintmax_t>(std::lround(0.6 * kRate)));
    options.sample = WaveWriter::Sample::Int16;
    ASSERT_TRUE(RenderSceneToWave(Scene(), options, path).ok);
    EXPECT_EQ(std::filesystem::file_size(path), 44u + 4u * static_cast<std::uintmax_t>(std::lround(0.6 * kRate)));

    // Cancelled halfway: nothing under the name, no partial file beside it.
    std::filesystem::remove(path);
    options.progress = [](double done) { return done < 0.5; };
    const RenderResult cancelled = RenderSceneToWave(Scene(), options, path);
    EXPECT_TRUE(cancelled.cancelled);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_FALSE(std::filesystem::exists(path + ".partial"));

    // A folder that does not exist, and a name that is a folder: a message that says so.
    options.progress = nullptr;
    for (const std::string& bad : {scratch.File("no/such/folder/out.wav"), scratch.File("")}) {
        const RenderResult failed = RenderSceneToWave(Scene(), options, bad);
        EXPECT_FALSE(failed.ok);
        EXPECT_EQ(failed.error.rfind("Cannot write " + bad + ": ", 0), 0u) << failed.error;
    }
}

} // namespace
