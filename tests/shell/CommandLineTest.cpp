#include "shell/CommandLine.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char* line;
    int sends;
    const char* message;
    bool configuration;
};

constexpr const char* kInvalidSends = "Invalid max number of active sends, configure in next panel...";
constexpr const char* kInvalidParameter = "Invalid command line parameter";

const Case kCases[] = {
    {"", 2, nullptr, true},
    {"-maxsends=3", 3, nullptr, false},
    {"-maxsends 4", 4, nullptr, false},
    {"-maxsends=2", 2, nullptr, false},
    {"-maxsends=1", 2, kInvalidSends, true},
    {"-maxsends=5", 2, kInvalidSends, true},
    {"-maxsends3", 2, kInvalidSends, true},        // the number starts one character later
    {"-maxsends", 2, kInvalidSends, true},         // no number at all reads as 0
    {"-MAXSENDSX4", 4, nullptr, false},            // any separator, any case
    {"-maxsendsXX4", 2, kInvalidSends, true},
    {"-maxsends=4 some trailing words", 4, nullptr, false},
    {"/maxsends=4", 2, kInvalidParameter, true},
    {"maxsends=4", 2, kInvalidParameter, true},
    {" -maxsends=4", 2, kInvalidParameter, true},  // only at the very start
};

} // namespace

TEST(CommandLine, EachFormGivesItsSendsMessageAndDialog)
{
    for (const Case& c : kCases) {
        const CommandLineChoice choice = ParseCommandLine(c.line);
        EXPECT_EQ(choice.maxSends, c.sends) << c.line;
        EXPECT_EQ(choice.showConfiguration, c.configuration) << c.line;
        if (c.message)
            EXPECT_STREQ(choice.message, c.message) << c.line;
        else
            EXPECT_EQ(choice.message, nullptr) << c.line;
    }
}

TEST(CommandLine, ArgumentsAreJoinedWithBlanksAfterTheProgramName)
{
    const char* argv[] = {"sonoptic", "-maxsends", "3"};
    EXPECT_EQ(JoinArguments(3, argv), "-maxsends 3");
    EXPECT_EQ(ParseCommandLine(JoinArguments(3, argv)).maxSends, 3);
    EXPECT_EQ(JoinArguments(1, argv), "");
}
