#pragma once

#include "controls/DialogTemplate.h"
#include "resources/ResourceIds.h"

// Template 192, the main dialog: slot buttons, "Create Slot", the place of the slot panel, the console.
namespace main_dialog {

constexpr QSize kClientSize{640, 772};
constexpr QSize kSlotBitmapSize{48, 29};

constexpr ControlTemplate kControls[] = {
    {0, ControlKind::Static, "1/ Create Slots", {14, 10, 120, 16}},
    {0, ControlKind::Static, "2/ Load effects", {14, 28, 120, 16}},
    {0, ControlKind::Static, "in the slots", {28, 44, 120, 16}},
    {res::IDC_CREATE_SLOT, ControlKind::Button, "Create Slot", {136, 14, 104, 34}},
    {res::IDC_SLOT_BUTTON_0 + 0, ControlKind::BitmapButton, "EffectSlot 0", {300, 14, 54, 35}},
    {res::IDC_SLOT_BUTTON_0 + 1, ControlKind::BitmapButton, "EffectSlot 0", {382, 14, 54, 35}},
    {res::IDC_SLOT_BUTTON_0 + 2, ControlKind::BitmapButton, "EffectSlot 0", {464, 14, 54, 35}},
    {res::IDC_SLOT_BUTTON_0 + 3, ControlKind::BitmapButton, "EffectSlot 0", {546, 14, 54, 35}},
    {0, ControlKind::EtchedFrame, nullptr, {6, 60, 628, 568}},
    {res::IDC_SLOT_PANEL_MARKER, ControlKind::Static, nullptr, {8, 62, 1, 1}},
    {res::IDC_CONSOLE, ControlKind::ListBox, nullptr, {6, 636, 628, 130}},
    {res::IDOK, ControlKind::Button, "ok", {560, 736, 60, 24}},
};

// The two menus of the bar, and the About entry that stands in for the system menu's.
enum class MainCommand {
    ShowSlot0,
    ShowSlot1,
    ShowSlot2,
    ShowSlot3,
    ShowBrowser,
    CopySlotCode,
    SaveSlotCode,
    ShowContextWindow,
    ToggleAutoPlay,
    AddSource,
    ShowPositionWindow,
    SuspendContext,
    ProcessContext,
    RenderToWave,
    About,
};

struct MenuEntry {
    int menu;  // 0 "Effect slots", 1 "Context/Source", 2 the About menu
    int id;
    const char* caption;
    MainCommand command;
    bool checkable;
};

constexpr const char* kMenuTitles[] = {"Effect slots", "Context/Source", "&Help"};

constexpr MenuEntry kMenu[] = {
    {0, res::ID_SHOW_SLOT_0 + 0, "Show Slot 0 (Ctrl+0)", MainCommand::ShowSlot0, false},
    {0, res::ID_SHOW_SLOT_0 + 1, "Show Slot 1 (Ctrl+1)", MainCommand::ShowSlot1, false},
    {0, res::ID_SHOW_SLOT_0 + 2, "Show Slot 2 (Ctrl+2)", MainCommand::ShowSlot2, false},
    {0, res::ID_SHOW_SLOT_0 + 3, "Show Slot 3 (Ctrl+3)", MainCommand::ShowSlot3, false},
    {0, res::ID_SHOW_BROWSER, "Show Effect File &Browser (Ctrl+B)", MainCommand::ShowBrowser, false},
    {0, res::ID_COPY_SLOT_CODE, "Copy Shown Slot's Effect as Code", MainCommand::CopySlotCode, false},
    {0, res::ID_SAVE_SLOT_CODE, "Save Shown Slot's Effect as Code...", MainCommand::SaveSlotCode, false},
    {1, res::ID_SHOW_CONTEXT_WINDOW, "&Show Context/Source Window (Ctrl+C)", MainCommand::ShowContextWindow, false},
    {1, res::ID_AUTOPLAY, "Auto Play source on creation", MainCommand::ToggleAutoPlay, true},
    {1, res::ID_ADD_SOURCE, "&Add 3D Source... (Ctrl+A)", MainCommand::AddSource, false},
    {1, res::ID_SHOW_POSITION_WINDOW, "Show Source/Listener &Position Window (Ctrl+P)", MainCommand::ShowPositionWindow,
     false},
    {1, res::ID_SUSPEND_CONTEXT, "Suspend Context (Shift+S)", MainCommand::SuspendContext, false},
    {1, res::ID_PROCESS_CONTEXT, "Process Context (Shift+P)", MainCommand::ProcessContext, false},
    {1, res::ID_RENDER_TO_WAV, "Render to WAV...", MainCommand::RenderToWave, false},
    {2, res::IDM_ABOUTBOX, res::IDS_ABOUTBOX, MainCommand::About, false},
};

} // namespace main_dialog
