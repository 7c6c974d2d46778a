#include "engine/EFX_Context.h"
#include "engine/EFX_Factory.h"
#include "engine/ProcAddress.h"
#include "tests/LibraryPremises.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace {

struct FactoryDeleter {
    void operator()(EFX_Factory* factory) const
    {
        factory->Shutdown();
        delete factory;
    }
};
using FactoryPtr = std::unique_ptr<EFX_Factory, FactoryDeleter>;

// Runs what the destructor runs, on a factory that stays alive to have its log read.
class InspectedFactory : public EFX_Factory {
public:
    using EFX_Factory::ReleaseRemainingObjects;
};

FactoryPtr StartFactory(std::uint32_t maxSends, EFX_Factory* made = EFX_Factory::Create())
{
    EFX_Factory::SelectDevice("");
    FactoryPtr factory(made);
    EXPECT_EQ(factory->Initialize(0, maxSends), 1) << factory->GetLog();
    return factory;
}

int ListLength(const DeviceInfo* list)
{
    int count = 0;
    for (; list; list = list->next)
        ++count;
    return count;
}

const char* g_missingEntryPoint = nullptr;

void* ResolveAllBut(const char* name)
{
    if (std::strcmp(name, g_missingEntryPoint) == 0)
        return nullptr;
    return alGetProcAddress(name);
}

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

TEST(FactoryStart, InitializeOpensTheDeviceGeneratesFourSlotsAndLogsSuccess)
{
    FactoryPtr factory = StartFactory(4);
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
}

TEST(FactoryStart, UnknownDeviceFailsWithTwoBlanksBetweenTheMessages)
{
    EFX_Factory::SelectDevice("No Such Device");
    FactoryPtr factory(EFX_Factory::Create());
    EXPECT_EQ(factory->Initialize(0, 2), 0);
    EXPECT_STREQ(factory->GetLog(), "Initializing EFX_Factory:  failed opening device");
    EFX_Factory::SelectDevice("");
}

TEST(FactoryStart, MissingEntryPointIsReportedByNameAndStopsTheStart)
{
    for (const char* name : {"alGenAuxiliaryEffectSlots", "alIsAuxiliaryEffectSlot"}) {
        g_missingEntryPoint = name;
        efx_proc::SetResolver(&ResolveAllBut);
        FactoryPtr factory(EFX_Factory::Create());
        EXPECT_EQ(factory->Initialize(0, 2), 0);
        efx_proc::SetResolver(nullptr);
        EXPECT_EQ(std::string(factory->GetLog()),
                  std::string("Initializing EFX_Factory: EFX extension: ") + name + " is unavailable..\n");
    }
}

TEST(FactoryStart, ShutdownReleasesTheContextAndLogsIt)
{
    FactoryPtr factory = StartFactory(2);
    factory->ClearLog();
    EXPECT_EQ(factory->Shutdown(), 1);
    EXPECT_STREQ(factory->GetLog(), "Released OpenAL Context.");
    EXPECT_EQ(alcGetCurrentContext(), nullptr);
}

TEST(FactoryStart, SuspendAndProcessReplaceTheLog)
{
    FactoryPtr factory = StartFactory(2);
    EXPECT_EQ(factory->SuspendContext(), 1);
    EXPECT_STREQ(factory->GetLog(), "OpenAL Context suspended");
    EXPECT_EQ(factory->ProcessContext(), 1);
    EXPECT_STREQ(factory->GetLog(), "Processing OpenAL Context");
    EXPECT_EQ(factory->QueryContextState(), 0);
}

TEST(FactoryStart, SuspendAndProcessWithoutContextFail)
{
    std::unique_ptr<EFX_Factory> factory(EFX_Factory::Create());
    EXPECT_EQ(factory->SuspendContext(), 0);
    EXPECT_STREQ(factory->GetLog(), "Failed to suspend OpenAL Context: no valid context");
    EXPECT_EQ(factory->ProcessContext(), 0);
    EXPECT_STREQ(factory->GetLog(), "Failed to process OpenAL Context: no valid context");
}

TEST(FactoryStart, SlotIndicesAreUnsignedAndBoundedByFour)
{
    FactoryPtr factory = StartFactory(2);
    EXPECT_EQ(factory->GetEffectSlot(static_cast<std::uint32_t>(-1)), nullptr);
    EXPECT_EQ(factory->GetEffectSlot(4), nullptr);
    EXPECT_EQ(EFX_Factory::GetEffectSlotId(static_cast<std::uint32_t>(-1)), 0u);
    EXPECT_EQ(EFX_Factory::GetEffectSlotId(4), 0u);
}

TEST(FactoryStart, SelectedDeviceNameIsCutAt255Characters)
{
    // An over-long name is stored cut, and the start then fails on that (unknown) name.
    EFX_Factory::SelectDevice(std::string(300, 'd').c_str());
    FactoryPtr factory(EFX_Factory::Create());
    EXPECT_EQ(factory->Initialize(0, 2), 0);
    EFX_Factory::SelectDevice("");
}

TEST(FactoryStart, DestroyingWithNothingAliveLeavesNoWarning)
{
    FactoryPtr factory = StartFactory(2);
    factory->ClearLog();
    factory->Shutdown();
    EXPECT_STREQ(factory->GetLog(), "Released OpenAL Context.");
}

// Run with sends=2, slots=3 and sources=64 (see CMakeLists.txt).
TEST(ConfLimitedDevice, GrantedSendsReplaceTheRequestAndFewerSlotsAreNoFailure)
{
    if (const auto why = library_premises::SlotLimitIgnored(3))
        GTEST_SKIP() << *why;
    FactoryPtr factory = StartFactory(4);
    EXPECT_EQ(EFX_Factory::GetMaxSends(), 2u);
    EXPECT_EQ(factory->GetNumEffectSlots(), 3u);
    EXPECT_EQ(factory->CreateEffectSlot(3), nullptr);
    EXPECT_STREQ(factory->GetLog(), "Initializing EFX_Factory:  successful");
}

TEST(ConfLimitedDevice, ProbeCountsTheSourcesTheDeviceReallyGives)
{
    DeviceInfo* list = nullptr;
    ASSERT_EQ(EFX_Factory::EnumerateDevices(&list), 1);
    ASSERT_EQ(ListLength(list), 1);
    EXPECT_EQ(list->maxSources, 64);
    EFX_Factory::FreeDeviceList();
}

TEST(FactoryLifetime, DestructorWarnsOfAndReleasesWhatIsStillAlive)
{
    FactoryPtr factory = StartFactory(2, new InspectedFactory());
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
}

TEST(FactoryLifetime, ContextDeletedByItsUserCausesNoWarning)
{
    FactoryPtr factory = StartFactory(2, new InspectedFactory());
    EFX_Context* context = factory->CreateContext();
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(factory->CreateContext(), context);
    EFX_Base::SafeRelease(context);

    factory->Shutdown();
    factory->ClearLog();
    static_cast<InspectedFactory*>(factory.get())->ReleaseRemainingObjects();
    EXPECT_STREQ(factory->GetLog(), "");
}
