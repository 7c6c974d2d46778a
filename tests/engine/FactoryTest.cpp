#include "engine/EFX_Context.h"
#include "engine/EFX_Factory.h"
#include "tests/LibraryPremises.h"

#include "EngineTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using engine_test::FactoryPtr;
using engine_test::StartFactoryKeepingLog;

namespace {

// Runs what the destructor runs, on a factory that stays alive to have its log read.
class InspectedFactory : public EFX_Factory {
public:
    using EFX_Factory::ReleaseRemainingObjects;
};

} // namespace

TEST(FactoryDevices, ProbeFindsTheNullDeviceWithEFXAndRealSources)
{
    DeviceInfo* list = nullptr;
    ASSERT_EQ(EFX_Factory::EnumerateDevices(&list), 1);
    ASSERT_NE(list, nullptr);
    EXPECT_STREQ(list->name, "OpenAL Soft");
    EXPECT_EQ(list->hasEFX, 1);
    EXPECT_GT(list->maxSources, 0);
    EXPECT_LE(list->maxSources, EFX_Factory::kMaxProbedSources);
    EXPECT_EQ(list->alcMajor, 1);
    EXPECT_EQ(list->alcMinor, 1);
    EXPECT_EQ(list->eaxEmulated & 8u, 0u);
    EFX_Factory::FreeDeviceList();
}

TEST(FactoryStart, InitializeOpensTheDeviceGeneratesFourSlotsAndShutdownReleasesTheContext)
{
    FactoryPtr factory = StartFactoryKeepingLog(4);
    EXPECT_STREQ(factory->GetLog(), "Initializing EFX_Factory:  successful");
    EXPECT_EQ(factory->GetNumEffectSlots(), 4u);
    EXPECT_EQ(EFX_Factory::GetMaxSends(), 4u);
    for (std::uint32_t i = 0; i < 4; ++i)
        EXPECT_NE(EFX_Factory::GetEffectSlotId(i), static_cast<ALuint>(AL_EFFECTSLOT_NULL));

    // The listener starts at the origin, looking down -z with +y up, under the clamped inverse model.
    ALfloat orientation[6] = {};
    alGetListenerfv(AL_ORIENTATION, orientation);
    EXPECT_FLOAT_EQ(orientation[2], -1.0f);
    EXPECT_FLOAT_EQ(orientation[4], 1.0f);
    EXPECT_EQ(alGetInteger(AL_DISTANCE_MODEL), AL_INVERSE_DISTANCE_CLAMPED);

    // Slot indices are unsigned and bounded by four.
    EXPECT_EQ(factory->GetEffectSlot(static_cast<std::uint32_t>(-1)), nullptr);
    EXPECT_EQ(factory->GetEffectSlot(4), nullptr);
    EXPECT_EQ(EFX_Factory::GetEffectSlotId(static_cast<std::uint32_t>(-1)), 0u);
    EXPECT_EQ(EFX_Factory::GetEffectSlotId(4), 0u);

    factory->ClearLog();
    EXPECT_EQ(factory->Shutdown(), 1);
    EXPECT_STREQ(factory->GetLog(), "Released OpenAL Context.");
    EXPECT_EQ(alcGetCurrentContext(), nullptr);
}

// An unknown device fails the start, with two blanks between the messages; so does a name over
// 255 characters, stored cut.
TEST(FactoryStart, UnknownDeviceFailsWithTwoBlanksBetweenTheMessages)
{
    for (const std::string& name : {std::string("No Such Device"), std::string(300, 'd')}) {
        SCOPED_TRACE(name.size());
        EFX_Factory::SelectDevice(name.c_str());
        FactoryPtr factory(EFX_Factory::Create());
        EXPECT_EQ(factory->Initialize(0, 2), 0);
        EXPECT_STREQ(factory->GetLog(), "Initializing EFX_Factory:  failed opening device");
    }
    EFX_Factory::SelectDevice("");
}

TEST(FactoryStart, MissingEntryPointIsReportedByNameAndStopsTheStart)
{
    for (const char* name : {"alGenAuxiliaryEffectSlots", "alIsAuxiliaryEffectSlot"}) {
        FactoryPtr factory(EFX_Factory::Create());
        {
            engine_test::HiddenEntryPoint hidden(name);
            EXPECT_EQ(factory->Initialize(0, 2), 0);
        }
        EXPECT_EQ(std::string(factory->GetLog()),
                  std::string("Initializing EFX_Factory: EFX extension: ") + name + " is unavailable..\n");
    }
}

TEST(FactoryStart, SuspendAndProcessReplaceTheLogAndFailWithoutAContext)
{
    FactoryPtr factory = StartFactoryKeepingLog(2);
    EXPECT_EQ(factory->SuspendContext(), 1);
    EXPECT_STREQ(factory->GetLog(), "OpenAL Context suspended");
    EXPECT_EQ(factory->ProcessContext(), 1);
    EXPECT_STREQ(factory->GetLog(), "Processing OpenAL Context");
    EXPECT_EQ(factory->QueryContextState(), 0);

    std::unique_ptr<EFX_Factory> closed(EFX_Factory::Create());
    EXPECT_EQ(closed->SuspendContext(), 0);
    EXPECT_STREQ(closed->GetLog(), "Failed to suspend OpenAL Context: no valid context");
    EXPECT_EQ(closed->ProcessContext(), 0);
    EXPECT_STREQ(closed->GetLog(), "Failed to process OpenAL Context: no valid context");
}

// Run with sends=2, slots=3 and sources=64 (see CMakeLists.txt): the probe counts the sources the
// device really gives, and the granted sends replace the request; fewer slots are no failure.
TEST(ConfLimitedDevice, TheProbeAndTheStartFollowWhatTheDeviceGrants)
{
    DeviceInfo* list = nullptr;
    ASSERT_EQ(EFX_Factory::EnumerateDevices(&list), 1);
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->next, nullptr); // one device
    EXPECT_EQ(list->maxSources, 64);
    EFX_Factory::FreeDeviceList();

    if (const auto why = library_premises::SlotLimitIgnored(3))
        GTEST_SKIP() << *why;
    FactoryPtr factory = StartFactoryKeepingLog(4);
    EXPECT_EQ(EFX_Factory::GetMaxSends(), 2u);
    EXPECT_EQ(factory->GetNumEffectSlots(), 3u);
    EXPECT_EQ(factory->CreateEffectSlot(3), nullptr);
    EXPECT_STREQ(factory->GetLog(), "Initializing EFX_Factory:  successful");
}

TEST(FactoryLifetime, DestructorWarnsOfAndReleasesWhatIsStillAliveButNotAContextItsUserReleased)
{
    FactoryPtr factory = StartFactoryKeepingLog(2, new InspectedFactory());
    ASSERT_NE(factory->CreateContext(), nullptr);
    ASSERT_NE(factory->CreateEffectSlot(0), nullptr);
    ASSERT_NE(factory->CreateEffectSlot(2), nullptr);
    // A second creation gives the same object and leaves no message.
    factory->ClearLog();
    EXPECT_EQ(factory->CreateEffectSlot(0), factory->GetEffectSlot(0));
    EXPECT_STREQ(factory->GetLog(), "");

    factory->Shutdown();
    factory->ClearLog();
    static_cast<InspectedFactory*>(factory.get())->ReleaseRemainingObjects();
    EXPECT_EQ(std::string(factory->GetLog()), "Warning: Destroying factory while listener is still alive."
                                              "Warning: Destroying factory while effect slot is still alive."
                                              "Warning: Destroying factory while effect slot is still alive.");
    // Nothing is left for the destructor to warn about a second time.
    factory->ClearLog();
    static_cast<InspectedFactory*>(factory.get())->ReleaseRemainingObjects();
    EXPECT_STREQ(factory->GetLog(), "");

    // A context released by its user is not warned of.
    factory.reset();
    FactoryPtr second = StartFactoryKeepingLog(2, new InspectedFactory());
    EFX_Context* context = second->CreateContext();
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(second->CreateContext(), context);
    EFX_Base::SafeRelease(context);
    second->Shutdown();
    second->ClearLog();
    static_cast<InspectedFactory*>(second.get())->ReleaseRemainingObjects();
    EXPECT_STREQ(second->GetLog(), "");
}
