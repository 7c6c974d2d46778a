// sonoptic-render as a script runs it: a WAV file through a standard reverb or a preset from an .efx
// file, and for every bad input one line that says what is wrong, a failing exit code and no file.
#include "presets/CEFXPresetTree.h"
#include "presets/StandardReverbLibrary.h"
#include "tests/engine/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

struct CommandRun {
    int exitCode = -1;
    std::string output; // what the command printed, both streams
};

CommandRun RunRender(const std::string& arguments)
{
    CommandRun run;
    const std::string command = std::string("'") + SONOPTIC_RENDER + "' " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return run;
    char buffer[4096];
    while (std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe))
        run.output.append(buffer, got);
    const int status = pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

class RenderCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        tone = scratch.File("tone.wav");
        ASSERT_EQ(std::system(("sox -n -r 44100 -c 1 -b 16 '" + tone + "' synth 0.2 sine 440 gain -6").c_str()), 0);
        // The library saved as a user's document: its presets carry the EAX reverb's record.
        CEFXPresetTree document;
        BuildStandardLibrary(document);
        presets = scratch.File("library.efx");
        std::FILE* file = std::fopen(presets.c_str(), "wb");
        ASSERT_NE(file, nullptr);
        document.WriteFile(file);
        std::fclose(file);
        out = scratch.File("out.wav");
    }
    std::string Quoted(const std::string& path) const { return "'" + path + "'"; }

    engine_test::ScratchDir scratch;
    std::string tone, presets, out;
};

TEST_F(RenderCommand, RendersThroughAStandardReverbOrAPresetFromAFile)
{
    for (const std::string& preset : {std::string("--standard 'Concert Hall'"),
                                      std::string("--standard castle_smallroom --send 0.5"),
                                      "--preset " + Quoted(presets) + " --name 'Padded Cell' --tail 0.25"}) {
        std::filesystem::remove(out);
        const CommandRun run = RunRender(Quoted(tone) + " " + Quoted(out) + " " + preset);
        EXPECT_EQ(run.exitCode, 0) << preset << "\n" << run.output;
        EXPECT_NE(run.output.find("rendering " + out + ": done"), std::string::npos) << run.output;
        // Longer than the tone: a tail of reverberation follows it.
        ASSERT_TRUE(std::filesystem::exists(out)) << preset;
        EXPECT_GT(std::filesystem::file_size(out), 58u + 8u * 44100u / 5u + 8u * 44100u / 10u) << preset;
    }
}

TEST_F(RenderCommand, EachBadInputGivesOneLineAFailingExitCodeAndNoFile)
{
    const std::string text = scratch.File("notes.txt");
    std::ofstream(text) << "not a sound\n";
    const struct {
        std::string arguments;
        std::string message;
    } cases[] = {
        {Quoted(scratch.File("missing.wav")) + " " + Quoted(out),
         "cannot read " + scratch.File("missing.wav") + ": No such file or directory"},
        {Quoted(text) + " " + Quoted(out), text + " is not a WAV file that can be played"},
        {Quoted(tone) + " " + Quoted(out) + " --standard 'No Such Room'", "no standard reverb named 'No Such Room'"},
        {Quoted(tone) + " " + Quoted(out) + " --preset " + Quoted(presets) + " --name Nothing",
         "no preset named 'Nothing' in " + presets},
        {Quoted(tone) + " " + Quoted(out) + " --send loud", "--send needs a number of at least 0, not 'loud'"},
        {Quoted(tone) + " " + Quoted(out) + " --tail -2", "--tail needs a number of at least 0, not '-2'"},
        {Quoted(tone) + " " + Quoted(out) + " --preset " + Quoted(presets), "--preset and --name go together"},
        {Quoted(tone) + " " + Quoted(scratch.File("no/folder/out.wav")),
         "Cannot write " + scratch.File("no/folder/out.wav") + ": cannot create the file: No such file or directory"},
    };
    for (const auto& c : cases) {
        const CommandRun run = RunRender(c.arguments);
        EXPECT_NE(run.exitCode, 0) << c.arguments;
        // The last line says what is wrong; nothing is left under the output's name.
        std::string last = run.output.substr(0, run.output.size() - 1);
        last = last.substr(last.find_last_of("\n\r") == std::string::npos ? 0 : last.find_last_of("\n\r") + 1);
        EXPECT_EQ(last, "sonoptic-render: " + c.message) << c.arguments << "\n" << run.output;
        EXPECT_FALSE(std::filesystem::exists(out)) << c.arguments;
    }
}

} // namespace
