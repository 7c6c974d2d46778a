#include "controls/ControlId.h"
#include "engine/EFX_Factory.h"
#include "resources/ResourceIds.h"
#include "shell/CSonopticApp.h"
#include "tests/shell/ModalDriver.h"
#include "values/UI_EFX_Bridge.h"

#include <QMessageBox>
#include <QAbstractButton>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace {

void Click(QWidget* dialog, int id)
{
    auto* button = FindControlAs<QAbstractButton>(dialog, id);
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
}

// What a user saw on the way: the titles of the dialogs and the texts of the message boxes.
struct Transcript {
    std::vector<std::string> seen;

    ModalDriver::Step ReadMessageBox()
    {
        return [this](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            ASSERT_NE(box, nullptr) << "expected a message box, got " << modal->windowTitle().toStdString();
            seen.push_back("box: " + box->text().toStdString());
            box->button(QMessageBox::Ok)->click();
        };
    }

    ModalDriver::Step ChooseSends(int radioId)
    {
        return [this, radioId](QWidget* modal) {
            seen.push_back("dialog: " + modal->windowTitle().toStdString());
            if (radioId)
                Click(modal, radioId);
            Click(modal, res::IDOK);
        };
    }

    // The main dialog appears after a successful start; the user closes it at once.
    ModalDriver::Step CloseMainDialog()
    {
        return [this](QWidget* modal) {
            seen.push_back("main dialog");
            modal->close();
        };
    }

    ModalDriver::Step UseDevice(const char* name)
    {
        return [this, name](QWidget* modal) {
            seen.push_back("dialog: " + modal->windowTitle().toStdString());
            if (name)
                UI_EFX_Bridge::GetInstance()->SelectDevice(name);
            Click(modal, res::IDOK);
        };
    }
};

} // namespace

// What the user meets on the way to the main dialog, by command line: the boxes and dialogs in order,
// and the sends the engine then has.
TEST(Startup, TheCommandLineDecidesWhichBoxesAndDialogsComeBeforeTheEngineStarts)
{
    const struct {
        const char* line;
        int sendsRadio; // clicked in the configuration dialog, 0 for none
        std::vector<std::string> seen;
        unsigned sends;
    } cases[] = {
        {"-maxsends=5", res::IDC_SENDS_4,
         {"box: Invalid max number of active sends, configure in next panel...", "dialog: Context Configuration",
          "dialog: Audio Device Selection", "main dialog"},
         4},
        {"-maxsends 3", 0, {"dialog: Audio Device Selection", "main dialog"}, 3},
        {"/maxsends=4", 0,
         {"box: Invalid command line parameter", "dialog: Context Configuration", "dialog: Audio Device Selection",
          "main dialog"},
         2}, // the configuration starts from two
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        Transcript user;
        std::deque<ModalDriver::Step> steps;
        if (c.seen.size() == 4) {
            steps.push_back(user.ReadMessageBox());
            steps.push_back(user.ChooseSends(c.sendsRadio));
        }
        steps.push_back(user.UseDevice(nullptr));
        steps.push_back(user.CloseMainDialog());
        ModalDriver driver(steps);
        CSonopticApp app(c.line);
        EXPECT_EQ(app.InitInstance(), 0);
        EXPECT_TRUE(driver.Finished());
        EXPECT_EQ(user.seen, c.seen);
        ASSERT_NE(app.GetBridge()->GetFactory(), nullptr);
        EXPECT_EQ(app.GetMaxSends(), static_cast<int>(c.sends));
        EXPECT_EQ(app.GetBridge()->GetMaxSends(), c.sends);
        EXPECT_EQ(app.GetBridge()->GetFactory()->GetNumEffectSlots(), 4u);
    }
}

TEST(Startup, EngineFailureShowsTwoBoxesWithTheFactoryLogAndEnds)
{
    Transcript user;
    ModalDriver driver({user.UseDevice("No Such Device"), user.ReadMessageBox(), user.ReadMessageBox()});
    CSonopticApp app("-maxsends=2");
    EXPECT_EQ(app.InitInstance(), 0);
    EXPECT_TRUE(driver.Finished());
    EXPECT_EQ(user.seen, (std::vector<std::string>{"dialog: Audio Device Selection",
                                                   "box: Error initializing audio engine:",
                                                   "box: Initializing EFX_Factory:  failed opening device"}));
    EFX_Factory::SelectDevice("");
}
