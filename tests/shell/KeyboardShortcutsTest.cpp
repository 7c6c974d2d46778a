#include "shell/CSonopticApp.h"
#include "shell/KeyboardShortcuts.h"
#include "tests/shell/XKeyboard.h"
#include "values/LogConsole.h"
#include "values/UI_EFX_Bridge.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct RecordingConsole : LogConsole {
    std::vector<std::string> lines;
    void AddString(const char* text) override { lines.emplace_back(text); }
    int GetCount() const override { return static_cast<int>(lines.size()); }
    void SetTopIndex(int) override {}
};

} // namespace

TEST(ShortcutTable, ShiftWinsOverCtrlAndCtrlWaitsForTheMainDialog)
{
    EXPECT_EQ(ShortcutForKey(true, false, 'P', false), ShortcutAction::ProcessContext);
    EXPECT_EQ(ShortcutForKey(true, false, 'S', true), ShortcutAction::SuspendContext);
    EXPECT_EQ(ShortcutForKey(true, true, 'P', true), ShortcutAction::ProcessContext);
    EXPECT_EQ(ShortcutForKey(true, true, 'C', true), ShortcutAction::None);
    EXPECT_EQ(ShortcutForKey(false, true, 'C', true), ShortcutAction::ShowContextWindow);
    EXPECT_EQ(ShortcutForKey(false, true, '2', true), ShortcutAction::ShowSlot2);
    EXPECT_EQ(ShortcutForKey(false, true, 'P', true), ShortcutAction::ShowPositionWindow);
    EXPECT_EQ(ShortcutForKey(false, true, 'X', true), ShortcutAction::None);
    EXPECT_EQ(ShortcutForKey(false, true, 'X', false), ShortcutAction::Swallow);
    EXPECT_EQ(ShortcutForKey(false, true, 'C', false), ShortcutAction::Swallow);
    EXPECT_EQ(ShortcutForKey(false, false, 'P', true), ShortcutAction::None);
}

TEST(ShortcutFilter, ShiftPAndShiftSReachTheContextFromAnyWindow)
{
    XKeyboard keyboard;
    ASSERT_TRUE(keyboard.Available());
    CSonopticApp app("-maxsends=2");
    CKeyboardFilter filter(&app);
    qApp->installEventFilter(&filter);
    ASSERT_EQ(app.GetBridge()->InitializeEngine(3, 0, 2), 1);
    RecordingConsole console;
    app.GetBridge()->SetLogList(&console);

    QLineEdit window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    keyboard.Chord({"Shift_L"}, "s");
    keyboard.Chord({"Shift_L"}, "p");
    EXPECT_EQ(console.lines, (std::vector<std::string>{"OpenAL Context suspended", "Processing OpenAL Context"}));
    // Handled keys are consumed: the focused window never saw them.
    EXPECT_EQ(window.text(), "");

    // Shift+Ctrl+C is not Ctrl+C, and C is no Shift shortcut: it reaches the window.
    keyboard.Chord({"Shift_L", "Control_L"}, "c");
    EXPECT_EQ(console.lines.size(), 2u);

    // Without a main dialog, Ctrl keys are swallowed; plain keys go on.
    keyboard.Chord({"Control_L"}, "x");
    keyboard.Chord({}, "q");
    EXPECT_EQ(window.text(), "q");

    qApp->removeEventFilter(&filter);
    app.GetBridge()->SetLogList(nullptr);
}
