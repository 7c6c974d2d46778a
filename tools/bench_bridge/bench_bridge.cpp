// Times one turn of a reverb knob through the bridge (SetValue on the value object, the set in the
// engine, the console, the write-back of all thirteen reverb properties) against the OpenAL calls
// that this turn makes, made directly: the same sets, gets and alGetError calls, on a second slot
// and effect of the same type. Both run in the same process, in alternating rounds; the median round
// of each counts, so that a quiet moment on a shared machine does not flatter either side. Prints
// nanoseconds per turn and the ratio of the medians.
//   bench_bridge [rounds [turns per round]]
// Under valgrind --tool=callgrind a short run (bench_bridge 1 2000) gives each side's instructions
// per turn: TurnThroughBridge and TurnWithBareCalls are the inclusive costs to read.

#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeTables.h"
#include "values/LogConsole.h"
#include "values/UI_EFX_Bridge.h"
#include "values/ValueControls.h"

#include <AL/al.h>
#include <AL/efx.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr int kTurnsPerRound = 5000;
constexpr int kRounds = 15;

// The main dialog's list, as cheap as a list can be: the bridge's cost is what is measured.
struct CountingConsole : LogConsole {
    int count = 0;
    std::size_t characters = 0;
    void AddString(const char* text) override
    {
        ++count;
        characters += std::char_traits<char>::length(text);
    }
    int GetCount() const override { return count; }
    void SetTopIndex(int) override {}
};

struct SilentCheck : CheckBoxControl {
    int state = 0;
    void SetCheck(int value) override { state = value; }
};

// The reverb's reads, in the order of the write-back, and the kind of each.
constexpr ALenum kReverbFloats[] = {
    AL_REVERB_GAIN,             AL_REVERB_GAINHF,           AL_REVERB_REFLECTIONS_GAIN,
    AL_REVERB_LATE_REVERB_GAIN, AL_REVERB_DENSITY,          AL_REVERB_DIFFUSION,
    AL_REVERB_DECAY_TIME,       AL_REVERB_DECAY_HFRATIO,    AL_REVERB_REFLECTIONS_DELAY,
    AL_REVERB_LATE_REVERB_DELAY, AL_REVERB_AIR_ABSORPTION_GAINHF, AL_REVERB_ROOM_ROLLOFF_FACTOR,
};

struct BareCalls {
    LPALEFFECTF effectf;
    LPALGETEFFECTF getEffectf;
    LPALGETEFFECTI getEffecti;
    LPALAUXILIARYEFFECTSLOTI slotI;
    ALuint effect;
    ALuint slot;
    float sink = 0;

    // The set: alEffectf, then the effect attached to its slot again, each checked.
    void Turn(float value)
    {
        alGetError();
        effectf(effect, AL_REVERB_DECAY_TIME, value);
        sink += static_cast<float>(alGetError());
        alGetError();
        slotI(slot, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(effect));
        sink += static_cast<float>(alGetError());
        // The write-back: the effect type, then every property.
        ALint type = 0;
        alGetError();
        getEffecti(effect, AL_EFFECT_TYPE, &type);
        sink += static_cast<float>(alGetError() + type);
        for (ALenum token : kReverbFloats) {
            float read = 0;
            alGetError();
            getEffectf(effect, token, &read);
            sink += read + static_cast<float>(alGetError());
        }
        ALint limit = 0;
        alGetError();
        getEffecti(effect, AL_REVERB_DECAY_HFLIMIT, &limit);
        sink += static_cast<float>(alGetError() + limit);
    }
};

// Kept out of line so that a profile names each side.
[[gnu::noinline]] void TurnThroughBridge(CEFXFloatValObs* knob, float value) { knob->SetValue(value); }
[[gnu::noinline]] void TurnWithBareCalls(BareCalls& bare, float value) { bare.Turn(value); }

template <typename Turn>
double TimeRound(Turn&& turn, int turns)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < turns; ++i)
        turn(i & 1 ? 2.0f : 2.5f);
    const auto stop = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::nano>(stop - start).count() / turns;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : kRounds;
    const int turns = argc > 2 ? std::max(1, std::atoi(argv[2])) : kTurnsPerRound;
    EFX_Factory::SelectDevice("");
    UI_EFX_Bridge bridge;
    if (!bridge.InitializeEngine(3, 0, 4)) {
        std::fprintf(stderr, "the engine did not start: %s\n", bridge.GetFactory()->GetLog());
        return 1;
    }
    CountingConsole console;
    bridge.SetLogList(&console);
    if (bridge.CreateSlot() != 0 || bridge.CreateSlot() != 1 || !bridge.LoadSlotEffect(0, kEffectReverb)) {
        std::fprintf(stderr, "no reverb slot\n");
        return 1;
    }

    // The reverb panel's binding of slot 0: knobs with callback, and its check box.
    BridgeValueTables& tables = BridgeTables();
    for (int p = 0; p < 12; ++p) {
        CEFXFloatValObs* value = tables.ReverbValues[0][p];
        value->Minimum = 0.0f;
        value->Maximum = 20000.0f;
        value->RangeChecked = 1;
        value->Callback = &bridge;
        value->SetIdentifiers(0, 6, 0, static_cast<std::uint16_t>(p), 65535);
    }
    SilentCheck limitBox;
    tables.ReverbHFLimitFlags[0] = new CSonopticBoolValObs();
    tables.ReverbHFLimitFlags[0]->Bind(&limitBox, 6, 0, 0);
    CEFXFloatValObs* decayTime = tables.ReverbValues[0][2];

    BareCalls bare{};
    bare.effectf = reinterpret_cast<LPALEFFECTF>(alGetProcAddress("alEffectf"));
    bare.getEffectf = reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"));
    bare.getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
    bare.slotI = reinterpret_cast<LPALAUXILIARYEFFECTSLOTI>(alGetProcAddress("alAuxiliaryEffectSloti"));
    auto genEffects = reinterpret_cast<LPALGENEFFECTS>(alGetProcAddress("alGenEffects"));
    auto effecti = reinterpret_cast<LPALEFFECTI>(alGetProcAddress("alEffecti"));
    genEffects(1, &bare.effect);
    effecti(bare.effect, AL_EFFECT_TYPE, AL_EFFECT_REVERB);
    bare.slot = EFX_Factory::GetEffectSlotId(1);
    bare.slotI(bare.slot, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(bare.effect));

    auto throughBridge = [decayTime](float value) { TurnThroughBridge(decayTime, value); };
    auto direct = [&bare](float value) { TurnWithBareCalls(bare, value); };

    // A warm-up of each, then alternating rounds.
    TimeRound(throughBridge, turns);
    TimeRound(direct, turns);
    std::vector<double> bridgeRounds;
    std::vector<double> bareRounds;
    for (int round = 0; round < rounds; ++round) {
        bridgeRounds.push_back(TimeRound(throughBridge, turns));
        bareRounds.push_back(TimeRound(direct, turns));
    }
    const double bridgeMedian = Median(bridgeRounds);
    const double bareMedian = Median(bareRounds);

    float check = 0;
    bridge.GetFactory()->GetEffectSlot(0)->GetReverbDecayTime(&check);
    std::printf("one reverb knob turn, median of %d alternating rounds of %d turns\n", rounds, turns);
    std::printf("  through the bridge: %8.0f ns (decay time now %.2f s, %d console lines)\n", bridgeMedian,
                static_cast<double>(check), console.count);
    std::printf("  bare OpenAL calls:  %8.0f ns (%.0f)\n", bareMedian, static_cast<double>(bare.sink > 0));
    std::printf("  ratio of the medians: %.3f\n", bridgeMedian / bareMedian);

    delete tables.ReverbHFLimitFlags[0];
    tables.ReverbHFLimitFlags[0] = nullptr;
    return 0;
}
