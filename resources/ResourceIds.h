#pragma once

// Numbers of the dialog templates, controls, menus, strings and bitmaps. Code and tests find a
// control by its number.
namespace res {

// Dialog templates.
constexpr int IDD_ABOUTBOX = 100;
constexpr int IDD_INITIALIZATION = 180;
constexpr int IDD_ROUTER = 186;
constexpr int IDD_MAIN = 192;
constexpr int IDD_SLOT_PANEL = 142;
constexpr int IDD_CONTEXT_SOURCE = 147;
constexpr int IDD_CONTEXT_LISTENER = 150;
constexpr int IDD_SOURCE = 152;
constexpr int IDD_REVERB_PANNER = 173;
constexpr int IDD_REVERB_RESPONSE = 175;
constexpr int IDD_POSITION = 174;
constexpr int IDD_BROWSER = 177;

// Strings.
constexpr const char* IDS_ABOUTBOX = "&About Sonoptic..."; // string 101

// Icons and bitmaps.
constexpr int IDR_MAINFRAME = 128;
constexpr int IDB_FADER_THUMB = 129;      // 17 x 10, 4 bits
constexpr int IDB_ARROW_DOWN = 130;       // 9 x 8, 4 bits: down arrow released
constexpr int IDB_ARROW_UP_PRESSED = 131; // up arrow pressed
constexpr int IDB_ARROW_UP = 132;         // up arrow released
constexpr int IDB_READOUT_BACK = 133;     // 47 x 41, 8 bits
constexpr int IDB_FADER_TRACK = 134;      // 144 x 10, 4 bits
constexpr int IDB_ARROW_DOWN_PRESSED = 135;
constexpr int IDB_KNOB_GREY = 136;        // 136 to 139: knob strips of 31 frames, 745 x 25, 8 bits
constexpr int IDB_KNOB_BLUE = 137;
constexpr int IDB_KNOB_GREEN = 138;
constexpr int IDB_KNOB_RED_BROWN = 139;
constexpr int IDB_SLOT_0 = 156;           // 156 to 159: slot buttons not selected
constexpr int IDB_SLOT_0_SELECTED = 160;  // 160 to 163: selected
constexpr int IDB_LEGEND_GREEN = 194;     // 194 to 196: slices of the knobs for the source panel's legend
constexpr int IDB_LEGEND_RED_BROWN = 195;
constexpr int IDB_LEGEND_GREY = 196;

// System command of the About entry.
constexpr int IDM_ABOUTBOX = 16;

// Controls shared by every dialog.
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

// Context configuration: the radio buttons of 2, 3 and 4 sends.
constexpr int IDC_SENDS_2 = 1282;
constexpr int IDC_SENDS_3 = 1283;
constexpr int IDC_SENDS_4 = 1284;

// Audio device selection: the device tree.
constexpr int IDC_DEVICE_TREE = 1303;

// Main dialog.
constexpr int IDC_SLOT_BUTTON_0 = 1002; // 1002 to 1005
constexpr int IDC_CREATE_SLOT = 1335;
constexpr int IDC_SLOT_PANEL_MARKER = 1010;
constexpr int IDC_CONSOLE = 1011;

// The context/source window: its tab strip, and the entries of its menu 151 of its own.
constexpr int IDC_CONTEXT_SOURCE_TABS = 1057;
constexpr int IDR_CONTEXT_SOURCE_MENU = 151;
constexpr int ID_CS_ADD_SOURCE = 32775;
constexpr int ID_CS_DELETE_SOURCE = 32798;
constexpr int ID_CS_LOAD_FILE = 32813;
constexpr int ID_CS_AUTOPLAY = 32795;
constexpr int ID_CS_STOP_ALL = 32796;
constexpr int ID_CS_START_ALL = 32797;
constexpr int ID_CS_POSITION_WINDOW = 32809;
constexpr int ID_CS_SUSPEND = 32807;
constexpr int ID_CS_PROCESS = 32808;

// Menu 146 of the main dialog, and the entries shared with the context/source window.
constexpr int IDR_MAIN_MENU = 146;
constexpr int ID_SHOW_SLOT_0 = 32788; // 32788 to 32791
constexpr int ID_SHOW_BROWSER = 32799;
constexpr int ID_SHOW_CONTEXT_WINDOW = 32773;
constexpr int ID_AUTOPLAY = 32795;
constexpr int ID_ADD_SOURCE = 32787;
constexpr int ID_SHOW_POSITION_WINDOW = 32793;
constexpr int ID_SUSPEND_CONTEXT = 32805;
constexpr int ID_PROCESS_CONTEXT = 32806;
// The shown slot's effect as C code: to the clipboard, or to a file.
constexpr int ID_COPY_SLOT_CODE = 32820;
constexpr int ID_SAVE_SLOT_CODE = 32821;
// The scene rendered offline into a WAV file.
constexpr int ID_RENDER_TO_WAV = 32822;

// Slot panel: its box, the volume knob's place, "Send Auto", the effect list and "Load".
constexpr int IDC_SLOT_BOX = 1015;
constexpr int IDC_SLOT_VOLUME = 1013;
constexpr int IDC_SEND_AUTO = 1011;
constexpr int IDC_EFFECT_LIST_LABEL = 1292;
constexpr int IDC_EFFECT_LIST = 1088;
constexpr int IDC_LOAD_EFFECT = 1002;

// Context and listener panel: its boxes, "Defaults", the context's state and its two buttons, and the
// seven distance models from 1307 ("None") to 1313 ("Exponential Distance Clamped").
constexpr int IDC_LISTENER_BOX = 1071;
constexpr int IDC_CONTEXT_BOX = 1298;
constexpr int IDC_DISTANCE_MODEL_BOX = 1302;
constexpr int IDC_LISTENER_DEFAULTS = 1144;
constexpr int IDC_CONTEXT_STATE = 1299;
constexpr int IDC_SUSPEND_CONTEXT = 1300;
constexpr int IDC_PROCESS_CONTEXT = 1301;
constexpr int IDC_DISTANCE_MODEL_0 = 1307;

// Source panel: playback, the flags, "Defaults", and each send's "Create", "Delete" and knob captions
// (send n adds n to the first number).
constexpr int IDC_SOURCE_PLAY = 1082;
constexpr int IDC_SOURCE_STOP = 1083;
constexpr int IDC_SOURCE_LOOP = 1084;
constexpr int IDC_SOURCE_TO_FRONT = 1140;
constexpr int IDC_SOURCE_DEFAULTS = 1146;
constexpr int IDC_SOURCE_HEAD_RELATIVE = 1067;
constexpr int IDC_SOURCE_DIRECT_HF_AUTO = 1064;
constexpr int IDC_SOURCE_AUTO = 1065;
constexpr int IDC_SOURCE_HF_AUTO = 1066;
constexpr int IDC_SEND_CREATE_0 = 1331;
constexpr int IDC_SEND_DELETE_0 = 1335;
constexpr int IDC_SEND_GAIN_LABEL_0 = 1339;
constexpr int IDC_SEND_GAINHF_LABEL_0 = 1343;

// Reverb panner: the round view and the button that opens the response window.
constexpr int IDC_PANNER_VIEW = 1160;
constexpr int IDC_SHOW_RESPONSE_WINDOW = 1163;

// Reverb response window: the graph and its eight check boxes.
constexpr int IDC_RESPONSE_VIEW = 1164;
constexpr int IDC_REAR_RENDER = 1165;
constexpr int IDC_REAR_WIRE = 1166;
constexpr int IDC_EARLY_RENDER = 1167;
constexpr int IDC_EARLY_WIRE = 1168;
constexpr int IDC_LATE_RENDER = 1169;
constexpr int IDC_LATE_WIRE = 1170;
constexpr int IDC_HF_PLANE = 1184;
constexpr int IDC_LF_PLANE = 1185;

// The position window.
constexpr int IDC_POSITION_VIEW = 1152;
constexpr int IDC_POSITION_ZOOM = 1153;
constexpr int IDC_POSITION_SCALE = 1078;
constexpr int IDC_PLANE_TOP = 1157;
constexpr int IDC_PLANE_SIDE = 1155;
constexpr int IDC_PLANE_REAR = 1156;

// The preset browser: its tree, the capture and load buttons of slots 0 to 3, the check box that lets a
// load change the slot's effect, the group and delete buttons, and its menu 178.
constexpr int IDC_PRESET_TREE = 1182;
constexpr int IDC_SAVE_SLOT_0 = 1003;  // 1003 to 1006
constexpr int IDC_LOAD_IN_SLOT_0 = 1007; // 1007 to 1010
constexpr int IDC_LOAD_EFFECT_IF_NEEDED = 1302;
constexpr int IDC_CREATE_GROUP = 1183;
constexpr int IDC_DELETE_SELECTED = 1185;
constexpr int IDC_COPY_TO_DOCUMENT = 1186; // copies from the standard reverb library
constexpr int IDR_BROWSER_MENU = 178;
constexpr int ID_BROWSER_LOAD_FILE = 32800;
constexpr int ID_BROWSER_SAVE = 57603;
constexpr int ID_BROWSER_SAVE_AS = 32802;

// Inside a decimal display: the in-place edit and the two arrows.
constexpr int IDC_DISPLAY_EDIT = 1000;
constexpr int IDC_DISPLAY_UP = 1001;
constexpr int IDC_DISPLAY_DOWN = 1002;

} // namespace res
