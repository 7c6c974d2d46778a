// The write-back of the listener, a source and a slot: every property of the object is read from
// the engine, in a fixed order, into its value with Assign or SetCheck. A read that fails leaves its
// value alone and shows its log; the log is cleared after each read, so successes stay unseen.
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Context.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeState.h"
#include "values/BridgeWindows.h"

namespace {

void AssignFloats(CEFXFloatValObs* const* values, const float* read, int count)
{
    for (int k = 0; k < count; ++k) {
        if (values[k])
            values[k]->Assign(read[k]);
    }
}

// The listener, in the order of its write-back.
enum class ContextRead { Floats, Orientation, DistanceModel };

struct ContextRow {
    ContextRead read;
    int param;
    int count;
    int (EFX_Context::*get)(float*);
};

constexpr ContextRow kContextReads[] = {
    {ContextRead::Floats, 0, 1, &EFX_Context::GetDopplerFactor},
    {ContextRead::Floats, 1, 3, &EFX_Context::GetPosition},
    {ContextRead::Orientation, 4, 6, nullptr},
    {ContextRead::Floats, 10, 3, &EFX_Context::GetVelocity},
    {ContextRead::Floats, 13, 1, &EFX_Context::GetSpeedOfSound},
    {ContextRead::Floats, 14, 1, &EFX_Context::GetGain},
    {ContextRead::DistanceModel, 0, 0, nullptr},
};

// Whether the read succeeded; the values are stored here.
int ReadContextRow(EFX_Context& context, const ContextRow& row)
{
    BridgeValueTables& tables = BridgeTables();
    float read[6] = {};
    int model = 0;
    int ok = 0;
    switch (row.read) {
    case ContextRead::Floats:
        ok = (context.*row.get)(read);
        break;
    case ContextRead::Orientation:
        ok = context.GetOrientation(read, read + 3);
        break;
    case ContextRead::DistanceModel:
        ok = context.GetDistanceModel(&model);
        if (ok)
            tables.DistanceModelValue.SetSelected(model);
        return ok;
    }
    if (ok)
        AssignFloats(&tables.ListenerValues[row.param], read, row.count);
    return ok;
}

// A source, in the order of its write-back. Routing is not read back: the radios keep what the
// user chose.
enum class SourceRead { Floats, Flag, ConeAngles, SendGains };

struct SourceRow {
    SourceRead read;
    int param;
    int count;
    int (EFX_3DSource::*getFloats)(float*);
    int (EFX_3DSource::*getFlag)(int*);
};

constexpr SourceRow Floats(int param, int count, int (EFX_3DSource::*get)(float*))
{
    return {SourceRead::Floats, param, count, get, nullptr};
}

constexpr SourceRow Flag(int param, int (EFX_3DSource::*get)(int*))
{
    return {SourceRead::Flag, param, 1, nullptr, get};
}

constexpr SourceRow kSourceReads[] = {
    Flag(2, &EFX_3DSource::GetHeadRelativeMode),
    Floats(4, 3, &EFX_3DSource::GetPosition),
    Floats(10, 3, &EFX_3DSource::GetVelocity),
    Floats(7, 3, &EFX_3DSource::GetConeOrientation),
    {SourceRead::ConeAngles, 0, 2, nullptr, nullptr},
    Floats(21, 1, &EFX_3DSource::GetConeOuterGain),
    Floats(15, 1, &EFX_3DSource::GetGain),
    Floats(2, 1, &EFX_3DSource::GetReferenceDistance),
    Floats(3, 1, &EFX_3DSource::GetMaxDistance),
    Floats(13, 1, &EFX_3DSource::GetPitch),
    Floats(14, 1, &EFX_3DSource::GetRolloffFactor),
    // The gain a second time, by the engine's second getter.
    Floats(15, 1, &EFX_3DSource::GetGain2),
    Floats(16, 1, &EFX_3DSource::GetMinGain),
    Floats(17, 1, &EFX_3DSource::GetALMaxGain),
    Floats(18, 1, &EFX_3DSource::GetDirectFilterGain),
    Floats(19, 1, &EFX_3DSource::GetDirectFilterGainHF),
    Floats(20, 1, &EFX_3DSource::GetConeOuterGainHF),
    Floats(0, 1, &EFX_3DSource::GetRoomRolloffFactor),
    Floats(1, 1, &EFX_3DSource::GetAirAbsorptionFactor),
    Flag(4, &EFX_3DSource::GetDirectFilterGainHFAuto),
    Flag(5, &EFX_3DSource::GetAuxSendFilterGainAuto),
    Flag(6, &EFX_3DSource::GetAuxSendFilterGainHFAuto),
    // Send s: its gain into 22 + 2s, its high-frequency gain into 23 + 2s.
    {SourceRead::SendGains, 22, 2, nullptr, nullptr},
    {SourceRead::SendGains, 24, 2, nullptr, nullptr},
    {SourceRead::SendGains, 26, 2, nullptr, nullptr},
    {SourceRead::SendGains, 28, 2, nullptr, nullptr},
};

// Whether the read succeeded; the values are stored here.
int ReadSourceRow(EFX_3DSource& source, int index, const SourceRow& row)
{
    BridgeValueTables& tables = BridgeTables();
    float read[3] = {};
    int whole[2] = {};
    switch (row.read) {
    case SourceRead::Floats:
        if (!(source.*row.getFloats)(read))
            return 0;
        AssignFloats(&tables.SourceValues[index][row.param], read, row.count);
        return 1;
    case SourceRead::Flag:
        if (!(source.*row.getFlag)(whole))
            return 0;
        if (CSonopticBoolValObs* flag = tables.SourceFlags[index][row.param])
            flag->SetCheck(whole[0]);
        return 1;
    case SourceRead::ConeAngles:
        if (!source.GetConeAngles(&whole[0], &whole[1]))
            return 0;
        for (int k = 0; k < 2; ++k) {
            if (CEFXLongValObs* angle = tables.SourceLongValues[index][k])
                angle->Assign(whole[k]);
        }
        return 1;
    case SourceRead::SendGains:
        if (!source.GetAuxSendFilterGains((row.param - 22) / 2, &read[0], &read[1]))
            return 0;
        AssignFloats(&tables.SourceValues[index][row.param], read, 2);
        return 1;
    }
    return 0;
}

} // namespace

void UI_EFX_Bridge::RefreshContext()
{
    EFX_Context* context = g_bridge.Context;
    if (!context) {
        FlushContextLog();
        TellPositionWindow();
        return;
    }
    for (const ContextRow& row : kContextReads) {
        if (!ReadContextRow(*context, row))
            FlushContextLog();
        ClearContextLog();
    }
    // The factory's reserved query of the context state answers 0, which means nothing to show.
    if (g_bridge.Factory) {
        if (const int state = g_bridge.Factory->QueryContextState(); state && g_bridge.ContextSourceDialog)
            g_bridge.ContextSourceDialog->OnContextValue(state);
    }
    TellPositionWindow();
}

void UI_EFX_Bridge::RefreshSource(int index)
{
    EFX_3DSource* source = bridge_detail::SourceAt(index);
    if (!source)
        return;
    for (const SourceRow& row : kSourceReads) {
        if (!ReadSourceRow(*source, index, row))
            FlushSourceLog(index);
        ClearSourceLog(index);
    }
    TellPositionWindow();
}

void UI_EFX_Bridge::RefreshSlot(int slot)
{
    EFX_EffectSlot* object = bridge_detail::SlotAt(slot);
    if (!object)
        return;
    BridgeValueTables& tables = BridgeTables();
    float gain = 0.0f;
    if (object->GetGain(&gain))
        tables.SlotGainValues[slot]->Assign(gain);
    else
        FlushSlotLog(slot);
    ClearSlotLog(slot);
    int sendAuto = 0;
    if (object->GetAuxiliarySendAuto(&sendAuto))
        tables.SlotFlags[slot][1]->SetCheck(sendAuto);
    else
        FlushSlotLog(slot);
    ClearSlotLog(slot);
}
