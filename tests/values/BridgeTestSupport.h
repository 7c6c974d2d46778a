#pragma once

// Helpers of the bridge suites: a started bridge with a console that records its lines, value
// objects bound the way a panel binds them, controls that remember what they were told, and a look
// at the AL names that the engine objects keep to themselves, so that a test can read a property
// with OpenAL's own calls.

#include "engine/EFX_3DSource.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "tests/engine/EngineTestSupport.h"
#include "values/BridgeTables.h"
#include "values/BridgeWindows.h"
#include "values/LogConsole.h"
#include "values/ReverbResponseParams.h"
#include "values/UI_EFX_Bridge.h"
#include "values/ValueControls.h"

#include <gtest/gtest.h>

#include <AL/al.h>
#include <AL/efx.h>

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace bridge_test {

struct RecordingConsole : LogConsole {
    std::vector<std::string> lines;
    int topIndex = 0;
    void AddString(const char* text) override { lines.emplace_back(text); }
    int GetCount() const override { return static_cast<int>(lines.size()); }
    void SetTopIndex(int index) override { topIndex = index; }
    bool Has(const std::string& line) const { return std::find(lines.begin(), lines.end(), line) != lines.end(); }
};

struct RecordingCheck : CheckBoxControl {
    int state = -99;
    int calls = 0;
    void SetCheck(int value) override
    {
        state = value;
        ++calls;
    }
};

struct RecordingCombo : ComboBoxControl {
    int selection = -99;
    void SetCurSel(int value) override { selection = value; }
};

// Binds a number value as a panel does: range, range check, the bridge as callback, the identifiers.
template <typename Value>
void Bind(Value* value, double minimum, double maximum, std::uint16_t category, std::uint16_t index,
          std::uint16_t param, std::uint16_t extra = 65535)
{
    using T = decltype(value->Value);
    value->Minimum = static_cast<T>(minimum);
    value->Maximum = static_cast<T>(maximum);
    value->RangeChecked = 1;
    value->Callback = UI_EFX_Bridge::GetInstance();
    value->SetIdentifiers(value->Kind, category, index, param, extra);
}

// The AL names inside the engine objects, reached through a pointer to their protected members.
struct SourcePeek : EFX_3DSource {
    static ALuint Source(EFX_3DSource* source) { return source->*(&SourcePeek::m_source); }
    static ALuint DirectFilter(EFX_3DSource* source) { return source->*(&SourcePeek::m_directFilter); }
    static ALuint SendFilter(EFX_3DSource* source, int send) { return (source->*(&SourcePeek::m_sendFilter))[send]; }
    static int SendSlot(EFX_3DSource* source, int send) { return (source->*(&SourcePeek::m_sendSlot))[send]; }
};

inline float FilterGain(ALuint filter, ALenum token)
{
    auto getFilterf = reinterpret_cast<LPALGETFILTERF>(alGetProcAddress("alGetFilterf"));
    float value = -1.0f;
    getFilterf(filter, token, &value);
    return value;
}

// A started engine behind a fresh bridge, its console recorded. The effect spy comes first, so
// that the slots' effects can be read with OpenAL's own calls.
class BridgeTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        EFX_Factory::SelectDevice("");
        bridge = std::make_unique<UI_EFX_Bridge>();
        ASSERT_EQ(bridge->InitializeEngine(3, 0, 4), 1);
        bridge->GetFactory()->ClearLog();
        bridge->SetLogList(&console);
    }

    void TearDown() override
    {
        ReleasePanelRows();
        bridge.reset();
    }

    // What the effect panel of a slot makes in its constructor: the values that it owns, bound
    // with a wide range, and the controls of its combo boxes and its check box.
    // A panel made again, for another effect, replaces the rows of the one before.
    void MakePanelRows(int slot, std::uint16_t category)
    {
        ReleasePanelRows();
        BridgeValueTables& tables = BridgeTables();
        const auto index = static_cast<std::uint16_t>(slot);
        auto bindRow = [&](auto& row) {
            for (std::size_t p = 0; p < std::size(row); ++p) {
                if (!row[p])
                    row[p] = new std::remove_pointer_t<std::remove_reference_t<decltype(row[p])>>();
                Bind(row[p], -100000, 100000, category, index, static_cast<std::uint16_t>(p));
            }
        };
        bindRow(tables.EffectValues[slot]);
        bindRow(tables.EffectLongValues[slot]);
        bindRow(tables.ReverbValues[slot]);
        for (int p = 0; p < bridge_limits::kEffectChoices; ++p) {
            tables.EffectChoices[slot][p] = new CSonopticCBoxDiscreteValObs();
            tables.EffectChoices[slot][p]->Bind(&combos[p], category, index, static_cast<std::uint16_t>(p));
        }
        tables.ReverbHFLimitFlags[slot] = new CSonopticBoolValObs();
        tables.ReverbHFLimitFlags[slot]->Bind(&hfLimit, category, index, 0);
    }

    void ReleasePanelRows()
    {
        BridgeValueTables& tables = BridgeTables();
        auto release = [](auto& row) {
            for (auto*& value : row) {
                delete value;
                value = nullptr;
            }
        };
        for (int slot = 0; slot < bridge_limits::kSlots; ++slot) {
            release(tables.EffectValues[slot]);
            release(tables.EffectLongValues[slot]);
            release(tables.EffectChoices[slot]);
            delete tables.ReverbHFLimitFlags[slot];
            tables.ReverbHFLimitFlags[slot] = nullptr;
        }
    }

    // What OpenAL Soft holds for a float property of the effect generated last.
    float Effect(ALenum token) const
    {
        float value = -1.0f;
        reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"))(spy.lastEffect, token, &value);
        return value;
    }

    // A small mono file that the factory can load.
    std::string WaveFile()
    {
        const std::string path = scratch.File("tone.wav");
        engine_test::WriteFile(path, engine_test::SmallMonoWave(2048));
        return path;
    }

    engine_test::EffectSpy spy;
    engine_test::ScratchDir scratch;
    RecordingConsole console;
    RecordingCombo combos[bridge_limits::kEffectChoices];
    RecordingCheck hfLimit;
    std::unique_ptr<UI_EFX_Bridge> bridge;
};

} // namespace bridge_test
