#include "engine/EFX_Factory.h"
#include "engine/ExecLog.h"

#include <gtest/gtest.h>

#include <string>

TEST(ExecLog, StartsEmptyAppendsRunTogetherSetReplacesAndClearEmpties)
{
    ExecLog log;
    EXPECT_STREQ(log.GetLog(), "");
    log.AppendLog("Initializing EFX_Factory: ");
    log.AppendLog(" successful");
    EXPECT_STREQ(log.GetLog(), "Initializing EFX_Factory:  successful");
    log.SetLog("new");
    EXPECT_STREQ(log.GetLog(), "new");
    log.ClearLog();
    EXPECT_STREQ(log.GetLog(), "");
}

// The log holds 511 characters: an append that fits is kept, one that overflows drops the older
// text whole, and a text set too long is cut instead of overrunning.
TEST(ExecLog, OverflowDropsTheOlderTextWholeAndAnOverlongSetIsCut)
{
    const struct { std::size_t before, appended; std::string expected; } cases[] = {
        {500, 20, std::string(20, 'b')},
        {490, 21, std::string(490, 'a') + std::string(21, 'b')},
    };
    for (const auto& c : cases) {
        ExecLog log;
        log.SetLog(std::string(c.before, 'a').c_str());
        log.AppendLog(std::string(c.appended, 'b').c_str());
        EXPECT_EQ(std::string(log.GetLog()), c.expected) << c.before << " + " << c.appended;
    }
    ExecLog log;
    log.SetLog(std::string(600, 'x').c_str());
    EXPECT_EQ(std::string(log.GetLog()), std::string(ExecLog::kLogSize - 1, 'x'));
}

// A message appended in two parts leaves the log as the whole message appended at once would: kept,
// filling it to 511 characters, dropping the older text, or cut when it is too long alone.
TEST(ExecLog, TwoPartAppendActsAsTheWholeMessage)
{
    const struct {
        std::size_t before, first, second;
    } cases[] = {{0, 5, 13}, {490, 10, 11}, {490, 11, 11}, {500, 2, 30}, {0, 300, 300}, {100, 600, 0}};
    for (const auto& c : cases) {
        ExecLog parts, whole;
        const std::string before(c.before, 'a'), first(c.first, 'b'), second(c.second, 'c');
        parts.SetLog(before.c_str());
        whole.SetLog(before.c_str());
        parts.AppendLog(first.c_str(), second.c_str());
        whole.AppendLog((first + second).c_str());
        EXPECT_STREQ(parts.GetLog(), whole.GetLog()) << c.before << " + " << c.first << " + " << c.second;
    }
}

TEST(EFX_Base, SafeReleaseOfNullDoesNothingAndFactoryReleaseKeepsItAlive)
{
    EFX_Base::SafeRelease(nullptr);
    EFX_Factory* factory = EFX_Factory::Create();
    factory->AppendLog("still here");
    EFX_Base::SafeRelease(factory);
    factory->Release();
    EXPECT_STREQ(factory->GetLog(), "still here");
    delete factory;
}
