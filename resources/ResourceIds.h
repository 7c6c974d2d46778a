#pragma once

// Numbers of the dialog templates, controls, menus, strings and bitmaps. Code and tests find a
// control by its number.
namespace res {

// Dialog templates.
constexpr int IDD_ABOUTBOX = 100;
constexpr int IDD_INITIALIZATION = 180;
constexpr int IDD_ROUTER = 186;
constexpr int IDD_MAIN = 192;

// Controls shared by every dialog.
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

// Context configuration: the radio buttons of 2, 3 and 4 sends.
constexpr int IDC_SENDS_2 = 1282;
constexpr int IDC_SENDS_3 = 1283;
constexpr int IDC_SENDS_4 = 1284;

// Audio device selection: the device tree.
constexpr int IDC_DEVICE_TREE = 1303;

// Menu entries.
constexpr int ID_AUTOPLAY = 32795;

} // namespace res
