// Sources by number: creation and reload of their files, deletion with the tables closing up,
// playback, the front position, the position window's moves and the sends.
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Factory.h"
#include "values/BridgeState.h"

using bridge_detail::SourceAt;

int UI_EFX_Bridge::CreateSource(const char* path)
{
    const int index = g_bridge.SourceCount;
    // The tables end at 128 sources; the context/source window refuses another before this point,
    // and writing past the table would be undefined, so a full table creates nothing.
    EFX_3DSource* source = nullptr;
    if (g_bridge.Factory && bridge_detail::IsSourceNumber(index))
        source = g_bridge.Factory->CreateSource(path);
    if (!source) {
        FlushFactoryLog();
        AddLogLine("3D source not created");
        ScrollLog();
        return 0;
    }
    g_bridge.Sources[index] = source;
    FlushFactoryLog();
    FlushSourceLog(index);
    if (g_bridge.AutoPlay) {
        source->PlayLooped(1);
        FlushSourceLog(index);
    }
    ++g_bridge.SourceCount;
    return 1;
}

int UI_EFX_Bridge::ReloadSource(int index, const char* path)
{
    EFX_3DSource* source = SourceAt(index);
    if (!source)
        return 0;
    ClearSourceLog(index);
    source->Stop();
    if (!source->LoadFile(path)) {
        FlushSourceLog(index);
        return 0;
    }
    FlushSourceLog(index);
    if (g_bridge.AutoPlay) {
        source->PlayLooped(1);
        FlushSourceLog(index);
    }
    return 1;
}

void UI_EFX_Bridge::DeleteSource(int index)
{
    if (!bridge_detail::IsSourceNumber(index))
        return;
    if (EFX_3DSource* source = g_bridge.Sources[index]) {
        source->Stop();
        source->Release();
    }
    g_bridge.Sources[index] = nullptr;
    bridge_detail::DeleteSourceValues(index);

    if (g_bridge.SourceCount > 0)
        --g_bridge.SourceCount;
    const int count = g_bridge.SourceCount;
    for (int j = index; j < bridge_limits::kSources - 1 && j < count; ++j)
        bridge_detail::MoveSourcePlace(j + 1, j);
    g_bridge.SourceNames[count].clear();
    g_bridge.Sources[count] = nullptr;
    bridge_detail::AllocateSourceValues(count);
    // A place beyond the used ones is not refilled by the closing up; give it fresh values too, so
    // that no row of the tables is ever left null.
    if (index > count)
        bridge_detail::AllocateSourceValues(index);

    TellPositionWindow();
}

void UI_EFX_Bridge::PlaySource(int index, int looped)
{
    EFX_3DSource* source = SourceAt(index);
    if (!source)
        return;
    if (source->PlayLooped(looped))
        ClearSourceLog(index);
    else
        FlushSourceLog(index);
}

void UI_EFX_Bridge::StopSource(int index)
{
    EFX_3DSource* source = SourceAt(index);
    if (!source)
        return;
    if (source->Stop())
        ClearSourceLog(index);
    else
        FlushSourceLog(index);
}

void UI_EFX_Bridge::StartAllSources()
{
    for (EFX_3DSource* source : g_bridge.Sources) {
        if (source)
            source->PlayLooped(1);
    }
}

void UI_EFX_Bridge::StopAllSources()
{
    for (EFX_3DSource* source : g_bridge.Sources) {
        if (source)
            source->Stop();
    }
}

void UI_EFX_Bridge::SetSourceToFront(int index)
{
    EFX_3DSource* source = SourceAt(index);
    if (!source)
        return;
    if (source->SetPosition(0.0f, 0.0f, -1.0f))
        ClearSourceLog(index);
    else
        FlushSourceLog(index);
    RefreshSource(index);
}

void UI_EFX_Bridge::MoveSource(int index, float x, float y, float z)
{
    EFX_3DSource* source = SourceAt(index);
    if (!source)
        return;
    source->SetPosition(x, y, z);
    FlushSourceLog(index);
    RefreshSource(index);
}

void UI_EFX_Bridge::SetSourceDefaults(int index)
{
    EFX_3DSource* source = SourceAt(index);
    if (!source)
        return;
    if (source->SetDefaults())
        LogMessage("Set Source to its default values successful");
    else
        LogMessage("Error setting Source default values");
    RefreshSource(index);
    ClearSourceLog(index);
}

int UI_EFX_Bridge::CreateSourceSend(int index, int send)
{
    EFX_3DSource* source = SourceAt(index);
    const int created = source ? source->CreateAuxSendFilter(send, 0) : 0;
    FlushSourceLog(index);
    return created;
}

int UI_EFX_Bridge::DeleteSourceSend(int index, int send)
{
    EFX_3DSource* source = SourceAt(index);
    const int deleted = source ? source->DeleteAuxSendFilter(send) : 0;
    FlushSourceLog(index);
    return deleted;
}

EFX_3DSource* UI_EFX_Bridge::GetSource(int index) const
{
    return SourceAt(index);
}

int UI_EFX_Bridge::GetSourceCount() const
{
    return g_bridge.SourceCount;
}

const char* UI_EFX_Bridge::GetSourceName(int index) const
{
    return bridge_detail::IsSourceNumber(index) ? g_bridge.SourceNames[index].c_str() : "";
}

void UI_EFX_Bridge::SetSourceName(int index, const char* name)
{
    if (bridge_detail::IsSourceNumber(index))
        g_bridge.SourceNames[index] = name ? name : "";
}
