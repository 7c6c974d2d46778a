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

TEST(Startup, BadSendsAreReportedThenConfiguredThenTheEngineStarts)
{
    Transcript user;
    ModalDriver driver({user.ReadMessageBox(), user.ChooseSends(res::IDC_SENDS_4), user.UseDevice(nullptr),
                        user.CloseMainDialog()});
    CSonopticApp app("-maxsends=5");
    EXPECT_EQ(app.InitInstance(), 0);
    EXPECT_TRUE(driver.Finished());
    EXPECT_EQ(user.seen, (std::vector<std::string>{"box: Invalid max number of active sends, configure in next panel...",
                                                   "dialog: Context Configuration",
                                                   "dialog: Audio Device Selection", "main dialog"}));
    EXPECT_EQ(app.GetMaxSends(), 4);
    ASSERT_NE(app.GetBridge()->GetFactory(), nullptr);
    EXPECT_EQ(app.GetBridge()->GetMaxSends(), 4u);
    EXPECT_EQ(app.GetBridge()->GetFactory()->GetNumEffectSlots(), 4u);
}

TEST(Startup, ValidSendsSkipTheConfigurationButNotTheDeviceDialog)
{
    Transcript user;
    ModalDriver driver({user.UseDevice(nullptr), user.CloseMainDialog()});
    CSonopticApp app("-maxsends 3");
    EXPECT_EQ(app.InitInstance(), 0);
    EXPECT_EQ(user.seen, (std::vector<std::string>{"dialog: Audio Device Selection", "main dialog"}));
    EXPECT_EQ(app.GetBridge()->GetMaxSends(), 3u);
}

TEST(Startup, ForeignOptionIsReportedAndTheConfigurationStartsFromTwo)
{
    Transcript user;
    ModalDriver driver({user.ReadMessageBox(), user.ChooseSends(0), user.UseDevice(nullptr), user.CloseMainDialog()});
    CSonopticApp app("/maxsends=4");
    app.InitInstance();
    ASSERT_EQ(user.seen.size(), 4u);
    EXPECT_EQ(user.seen[0], "box: Invalid command line parameter");
    EXPECT_EQ(app.GetBridge()->GetMaxSends(), 2u);
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
