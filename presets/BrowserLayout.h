#pragma once

#include "controls/DialogTemplate.h"
#include "resources/ResourceIds.h"

// Template 177, the preset browser: the tree on the left; on the right the capture buttons, the load
// buttons with their check box, the two buttons that edit the tree and the one that copies from the
// standard reverb library. Menu 178 above.
namespace browser_layout {

constexpr QSize kClientSize{600, 470};

constexpr ControlTemplate kControls[] = {
    {res::IDC_PRESET_TREE, ControlKind::TreeView, nullptr, {8, 8, 330, 454}},
    {0, ControlKind::GroupBox, "Capture", {348, 2, 244, 142}},
    {res::IDC_SAVE_SLOT_0 + 0, ControlKind::Button, "Save Slot 0 State", {360, 24, 220, 26}},
    {res::IDC_SAVE_SLOT_0 + 1, ControlKind::Button, "Save Slot 1 State", {360, 53, 220, 26}},
    {res::IDC_SAVE_SLOT_0 + 2, ControlKind::Button, "Save Slot 2 State", {360, 82, 220, 26}},
    {res::IDC_SAVE_SLOT_0 + 3, ControlKind::Button, "Save Slot 3 State", {360, 111, 220, 26}},
    {0, ControlKind::GroupBox, "Apply", {348, 150, 244, 172}},
    {res::IDC_LOAD_IN_SLOT_0 + 0, ControlKind::Button, "Load Selected Preset In Slot 0", {360, 172, 220, 26}},
    {res::IDC_LOAD_IN_SLOT_0 + 1, ControlKind::Button, "Load Selected Preset In Slot 1", {360, 201, 220, 26}},
    {res::IDC_LOAD_IN_SLOT_0 + 2, ControlKind::Button, "Load Selected Preset In Slot 2", {360, 230, 220, 26}},
    {res::IDC_LOAD_IN_SLOT_0 + 3, ControlKind::Button, "Load Selected Preset In Slot 3", {360, 259, 220, 26}},
    {res::IDC_LOAD_EFFECT_IF_NEEDED, ControlKind::CheckBox, "Load effect if not already loaded", {360, 290, 228, 24}},
    {0, ControlKind::GroupBox, "Tree", {348, 328, 244, 134}},
    {res::IDC_CREATE_GROUP, ControlKind::Button, "Create a preset group", {360, 350, 220, 26}},
    {res::IDC_DELETE_SELECTED, ControlKind::Button, "Delete selected", {360, 387, 220, 26}},
    {res::IDC_COPY_TO_DOCUMENT, ControlKind::Button, "Copy to my presets", {360, 424, 220, 26}},
};

enum class Command { LoadFile, Save, SaveAs };

struct MenuEntry {
    int id;
    const char* caption;
    Command command;
};

constexpr const char* kMenuTitle = "Preset Effect File";

constexpr MenuEntry kMenu[] = {
    {res::ID_BROWSER_LOAD_FILE, "Load effect file...", Command::LoadFile},
    {res::ID_BROWSER_SAVE, "Save", Command::Save},
    {res::ID_BROWSER_SAVE_AS, "Save as...", Command::SaveAs},
};

// The file dialogs' filters, in the order shown.
constexpr const char* kFileFilters[] = {"EAX Effect Files (*.efx)", "All Files (*.*)"};
constexpr const char* kDefaultSuffix = "efx";
constexpr const char* kInitialName = "effects";
// The file name at the top of a document that has never been saved or loaded.
constexpr const char* kUnsavedFileName = "(file not saved).efx";

} // namespace browser_layout
