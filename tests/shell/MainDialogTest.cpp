#include "controls/ControlId.h"
#include "engine/EFX_Factory.h"
#include "engine/ProcAddress.h"
#include "panels/FXS_Panel.h"
#include "positionview/CEFXSrcPosDlg.h"
#include "presets/CEFXBrowser.h"
#include "reverbview/FXPanner.h"
#include "resources/ResourceIds.h"
#include "shell/CConsoleList.h"
#include "shell/CSonopticApp.h"
#include "shell/CEFXListSrcDlg.h"
#include "shell/CSonopticDlg.h"
#include "tests/shell/ModalDriver.h"
#include "tests/shell/XKeyboard.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QAction>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <AL/al.h>
#include <AL/efx.h>

#include <cstring>
#include <functional>
#include <string>

namespace {

void ClickOk(QWidget* modal)
{
    QTest::mouseClick(FindControl(modal, res::IDOK), Qt::LeftButton);
}

// Runs the program from its command line to the main dialog, hands the dialog to check, then closes it
// through its close box. Further modal windows that check opens are answered by answers.
void RunMainDialog(const char* commandLine, std::function<void(CSonopticDlg&)> check,
                   std::deque<ModalDriver::Step> answers = {})
{
    std::deque<ModalDriver::Step> steps{ClickOk, [check](QWidget* modal) {
                                            auto* dialog = dynamic_cast<CSonopticDlg*>(modal);
                                            ASSERT_NE(dialog, nullptr);
                                            check(*dialog);
                                            dialog->close();
                                        }};
    for (ModalDriver::Step& answer : answers)
        steps.push_back(std::move(answer));
    ModalDriver driver(std::move(steps));
    CSonopticApp app(commandLine);
    EXPECT_EQ(app.InitInstance(), 0);
    EXPECT_TRUE(driver.Finished());
}

QPushButton* SlotButton(CSonopticDlg& dialog, int slot)
{
    return FindControlAs<QPushButton>(&dialog, res::IDC_SLOT_BUTTON_0 + slot);
}

bool ShowsSelected(CSonopticDlg& dialog, int slot)
{
    return SlotButton(dialog, slot)->property("selectedImage").toBool();
}

std::string LastConsoleLine(CSonopticDlg& dialog)
{
    CConsoleList* console = dialog.Console();
    return console->count() ? console->item(console->count() - 1)->text().toStdString() : std::string();
}

// The console's lines from line `from` on.
std::string ConsoleSince(CSonopticDlg& dialog, int from)
{
    std::string lines;
    CConsoleList* console = dialog.Console();
    for (int i = from; i < console->count(); ++i)
        lines += console->item(i)->text().toStdString() + "\n";
    return lines;
}

// Reads the text of the next message box and presses its OK button.
ModalDriver::Step ReadBox(std::string& text)
{
    return [&text](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        ASSERT_NE(box, nullptr);
        text = box->text().toStdString();
        box->button(QMessageBox::Ok)->click();
    };
}

} // namespace

TEST(MainDialog, TitleNamesTheGrantedSendsAndTheDeviceAndReturnOrTheHiddenOkLeaveItOpen)
{
    RunMainDialog("-maxsends=3", [](CSonopticDlg& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Sonoptic (OpenAL 1.1 / EFX 1.0) with 3 sends per source, on ");
        for (int slot = 0; slot < 4; ++slot)
            EXPECT_FALSE(SlotButton(dialog, slot)->isEnabled());
        EXPECT_TRUE(ShowsSelected(dialog, 0));

        // The auto play check follows the bridge both ways.
        QAction* autoPlay = dialog.MenuAction(res::ID_AUTOPLAY);
        EXPECT_TRUE(autoPlay->isChecked());
        UI_EFX_Bridge::GetInstance()->ToggleAutoPlay();
        EXPECT_FALSE(autoPlay->isChecked());
        autoPlay->trigger();
        EXPECT_EQ(UI_EFX_Bridge::GetInstance()->GetAutoPlay(), 1);

        QTest::keyClick(&dialog, Qt::Key_Return);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        auto* ok = FindControlAs<QPushButton>(&dialog, res::IDOK);
        EXPECT_FALSE(ok->isVisible());
        ok->click();
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST(MainDialog, EachCreateSlotMakesTheNextSlotAndTheFifthFailsWithItsReasonInTheConsole)
{
    std::string box;
    std::string reason;
    int presses = 0;
    RunMainDialog(
        "-maxsends=2",
        [&](CSonopticDlg& dialog) {
            auto* create = FindControlAs<QPushButton>(&dialog, res::IDC_CREATE_SLOT);
            for (int slot = 0; slot < 4; ++slot) {
                const int before = dialog.Console()->count();
                QTest::mouseClick(create, Qt::LeftButton);
                EXPECT_TRUE(SlotButton(dialog, slot)->isEnabled());
                EXPECT_TRUE(ShowsSelected(dialog, slot));
                // The creation's line, then those of the new slot panel's first refresh.
                EXPECT_NE(ConsoleSince(dialog, before).find("successful"), std::string::npos)
                    << ConsoleSince(dialog, before);
            }
            // The fifth press shows a box; the driver answers it while the click waits.
            QTimer::singleShot(0, [&] {
                ++presses;
                QTest::mouseClick(create, Qt::LeftButton);
                reason = LastConsoleLine(dialog);
            });
            QTest::qWait(50);
        },
        {ReadBox(box)});
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(box, "Slot creation failed, see console");
    EXPECT_EQ(reason, "Maximum number of slots already reached");
}

TEST(MainDialog, CreateSlotShowsTheSlotPanelWithItsVolumeAtTheEnginesGainAndNoEffect)
{
    RunMainDialog("-maxsends=2", [&](CSonopticDlg& dialog) {
        QTest::mouseClick(FindControlAs<QPushButton>(&dialog, res::IDC_CREATE_SLOT), Qt::LeftButton);
        auto* panel = dialog.findChild<FXS_Panel*>();
        ASSERT_NE(panel, nullptr);
        EXPECT_TRUE(panel->isVisible());
        EXPECT_EQ(panel->pos(), FindControl(&dialog, res::IDC_SLOT_PANEL_MARKER)->pos());
        EXPECT_FLOAT_EQ(BridgeTables().SlotGainValues[0]->Value, 1.0f);
        EXPECT_EQ(panel->EffectList->currentIndex(), 0);
        EXPECT_EQ(panel->EffectPanel, nullptr);
        for (int slot = 0; slot < 4; ++slot)
            EXPECT_EQ(SlotButton(dialog, slot)->accessibleName(), QStringLiteral("Slot %1").arg(slot));
        // The placeholder 0.77 of the volume knob never reached the engine.
        auto getSlotf = reinterpret_cast<LPALGETAUXILIARYEFFECTSLOTF>(alGetProcAddress("alGetAuxiliaryEffectSlotf"));
        float gain = -1;
        getSlotf(EFX_Factory::GetEffectSlotId(0), AL_EFFECTSLOT_GAIN, &gain);
        EXPECT_FLOAT_EQ(gain, 1.0f);

        // The dialog then closes with the slot panel, the reverb's panel, its panner and the response
        // window all open: they go in order, with nothing left behind.
        panel->EffectList->setCurrentIndex(1);
        FindControlAs<QPushButton>(panel, res::IDC_LOAD_EFFECT)->click();
        ASSERT_NE(panel->ReverbPanner, nullptr);
        FindControlAs<QPushButton>(panel->ReverbPanner, res::IDC_SHOW_RESPONSE_WINDOW)->click();
        EXPECT_NE(UI_EFX_Bridge::GetInstance()->GetResponseWindow(), nullptr);
    });
}

TEST(MainDialog, AboutEntryOpensTheVersionBox)
{
    std::string version;
    RunMainDialog(
        "-maxsends=2",
        [](CSonopticDlg& dialog) {
            QTimer::singleShot(0, [&dialog] { dialog.MenuAction(res::IDM_ABOUTBOX)->trigger(); });
            QTest::qWait(50);
        },
        {[&version](QWidget* about) {
            for (QLabel* label : about->findChildren<QLabel*>()) {
                if (label->text().startsWith("Sonoptic"))
                    version = label->text().toStdString();
            }
            ClickOk(about);
        }});
    EXPECT_EQ(version, "Sonoptic Version 1.0");
}

TEST(MainDialog, ConsoleKeepsItsLastFiveLinesInView)
{
    RunMainDialog("-maxsends=2", [](CSonopticDlg& dialog) {
        for (int i = 0; i < 30; ++i)
            UI_EFX_Bridge::GetInstance()->LogMessage(("line " + std::to_string(i)).c_str());
        CConsoleList* console = dialog.Console();
        // The user scrolls back to the start; the next message brings the end into view again.
        console->scrollToTop();
        UI_EFX_Bridge::GetInstance()->LogMessage("line 30");
        const QRect view = console->viewport()->rect();
        for (int row = console->count() - 5; row < console->count(); ++row)
            EXPECT_TRUE(view.contains(console->visualItemRect(console->item(row)))) << row;
        EXPECT_FALSE(view.intersects(console->visualItemRect(console->item(0))));
        EXPECT_EQ(LastConsoleLine(dialog), "line 30");
    });
}

TEST(MainDialog, CtrlDigitsShowSlotsAndShiftCtrlDoesNot)
{
    RunMainDialog("-maxsends=2", [](CSonopticDlg& dialog) {
        XKeyboard keyboard;
        ASSERT_TRUE(keyboard.Available());
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        dialog.OnCreateSlot();
        ASSERT_TRUE(ShowsSelected(dialog, 0));

        // Slot 2 does not exist yet: its image is selected and no panel shows.
        keyboard.Chord({"Control_L"}, "2");
        EXPECT_TRUE(ShowsSelected(dialog, 2));
        EXPECT_FALSE(ShowsSelected(dialog, 0));

        // Shift wins over Ctrl, and digits are no Shift shortcut.
        keyboard.Chord({"Shift_L", "Control_L"}, "0");
        EXPECT_TRUE(ShowsSelected(dialog, 2));
        EXPECT_FALSE(ShowsSelected(dialog, 0));

        keyboard.Chord({"Control_L"}, "0");
        EXPECT_TRUE(ShowsSelected(dialog, 0));
    });
}

TEST(MainDialog, CtrlPAndCtrlBShowTheOnePositionWindowAndBrowserAgainAfterTheirCloseBoxesHidThem)
{
    RunMainDialog("-maxsends=2", [](CSonopticDlg& dialog) {
        XKeyboard keyboard;
        ASSERT_TRUE(keyboard.Available());
        auto press = [&](const char* key) {
            dialog.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            keyboard.Chord({"Control_L"}, key);
        };
        EXPECT_EQ(dialog.PositionWindow(), nullptr);
        press("p");
        CEFXSrcPosDlg* window = dialog.PositionWindow();
        ASSERT_NE(window, nullptr);
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(window->parentWidget(), nullptr);
        EXPECT_EQ(window->windowTitle(), "Source(s) / Listener Position");

        // Its close box hides it; the main menu and the context/source window's menu show it again.
        window->close();
        EXPECT_FALSE(window->isVisible());
        dialog.MenuAction(res::ID_SHOW_POSITION_WINDOW)->trigger();
        EXPECT_TRUE(window->isVisible());
        window->close();
        dialog.ShowContextWindow();
        dialog.ContextWindow()->MenuAction(res::ID_CS_POSITION_WINDOW)->trigger();
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(dialog.PositionWindow(), window);
        dialog.ContextWindow()->close();
        window->close();

        EXPECT_EQ(dialog.Browser(), nullptr);
        press("b");
        CEFXBrowser* browser = dialog.Browser();
        ASSERT_NE(browser, nullptr);
        EXPECT_TRUE(browser->isVisible());
        browser->close();
        EXPECT_FALSE(browser->isVisible());
        press("b");
        EXPECT_EQ(dialog.Browser(), browser);
        EXPECT_TRUE(browser->isVisible());
        browser->close();
    });
}

// Run with sends=2 (see CMakeLists.txt): the title shows what the device granted, not the request.
TEST(ConfTwoSendsDevice, TitleShowsTheGrantedSendsNotTheRequest)
{
    RunMainDialog("-maxsends=4", [](CSonopticDlg& dialog) {
        EXPECT_TRUE(dialog.windowTitle().contains(" with 2 sends per source, on "));
    });
}

// OpenAL Soft always gives slots, so a device without any is made by having the slot test refuse every
// slot the factory generates.
static ALboolean AL_APIENTRY RefuseEverySlot(ALuint)
{
    return AL_FALSE;
}

static void* ResolveWithoutSlots(const char* name)
{
    if (std::strcmp(name, "alIsAuxiliaryEffectSlot") == 0)
        return reinterpret_cast<void*>(&RefuseEverySlot);
    return alGetProcAddress(name);
}

TEST(MainDialog, WithoutSlotsTheButtonsStayDisabledAndShowSlotOnlyMovesTheImage)
{
    efx_proc::SetResolver(&ResolveWithoutSlots);
    std::string box;
    RunMainDialog(
        "-maxsends=2",
        [](CSonopticDlg& dialog) {
            dialog.ShowSlot(3);
            EXPECT_TRUE(ShowsSelected(dialog, 3));
            EXPECT_TRUE(ShowsSelected(dialog, 0)); // nothing unselects what no slot owns
            for (int slot = 0; slot < 4; ++slot)
                EXPECT_FALSE(SlotButton(dialog, slot)->isEnabled());
            QTimer::singleShot(0, [&dialog] { dialog.OnCreateSlot(); });
            QTest::qWait(50);
        },
        {ReadBox(box)});
    efx_proc::SetResolver(nullptr);
    EXPECT_EQ(box, "Slot creation failed, see console");
}
