// The owner-drawn button on its own: the repeat of a held press and what does and does not stop it,
// the disabled button that keeps the press and sends nothing, the toggle, and the drawing of each
// state in bitmap and in text mode.
#include "tests/controls/LiveReverb.h"

#include "controls/BitmapResource.h"
#include "controls/CTalmeButton.h"
#include "controls/ControlGraphics.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using controls_test::SendMouse;

namespace {

// Three bitmaps of the same size and different pictures stand for a button's three states.
constexpr int kNormalBitmap = 156;
constexpr int kPressedBitmap = 157;
constexpr int kDisabledBitmap = 158;
constexpr int kButtonId = 1001;

// What a button sends, and when, in milliseconds after the press.
struct RecordingOwner : TalmeButtonOwner {
    struct Call { bool repeat; qint64 at; };
    void OnButtonCommand(int controlId) override { Record(controlId, false); }
    void OnButtonRepeat(int controlId) override { Record(controlId, true); }
    void Record(int controlId, bool repeat)
    {
        EXPECT_EQ(controlId, kButtonId);
        calls.push_back({repeat, clock.elapsed()});
    }
    QElapsedTimer clock;
    std::vector<Call> calls;
};

// A window that counts the presses that fall through to it.
struct CountingWindow : QWidget {
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    int presses = 0;
};

class TalmeButtonTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        window.setGeometry(300, 300, 200, 120);
        other = new QLineEdit(&window);
        other->setGeometry(100, 80, 80, 20);
        button = new CTalmeButton(kNormalBitmap, kPressedBitmap, kDisabledBitmap);
        button->SetOwner(&owner);
        button->Create(&window, kButtonId, QPoint(10, 10));
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        owner.clock.start();
    }

    void Press() { SendMouse(button, QEvent::MouseButtonPress, inside); }
    void Release(QPoint point) { SendMouse(button, QEvent::MouseButtonRelease, point); }

    // The button as it draws itself now, and the bitmap it should show, stretched to its size.
    QImage Drawn() const { return button->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QImage Expected(int bitmap) const
    {
        QImage image(button->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        DrawBitmap(painter, bitmap, image.rect());
        return image;
    }

    const QPoint inside{5, 5}, outside{60, 60};
    CountingWindow window;
    QLineEdit* other = nullptr;
    CTalmeButton* button = nullptr;
    RecordingOwner owner;
};

TEST_F(TalmeButtonTest, AHeldAutoRepeatButtonSendsAtThePressThenEveryQuarterSecondUntilTheRelease)
{
    struct Case { const char* name; int holdMilliseconds; bool leaveWhileHeld; std::size_t calls; };
    // Half a period past the fourth repeat, so that timer jitter cannot add or drop one.
    const Case cases[] = {
        {"a click: one command, at the press", 0, false, 1},
        {"one second: the press and four repeats", 1125, false, 5},
        {"one second, the mouse gone from the button", 1125, true, 5},
    };
    button->SetAutoRepeat(true);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        owner.calls.clear();
        owner.clock.restart();
        Press();
        ASSERT_EQ(owner.calls.size(), 1u);
        EXPECT_FALSE(owner.calls[0].repeat);
        EXPECT_TRUE(button->IsPressed());
        if (c.leaveWhileHeld) {
            SendMouse(button, QEvent::MouseMove, outside);
            EXPECT_FALSE(button->IsPressed()); // the look follows the mouse, the repeat does not
        }
        QTest::qWait(c.holdMilliseconds);
        Release(c.leaveWhileHeld ? outside : inside);
        EXPECT_FALSE(button->Repeating());
        QTest::qWait(400);
        ASSERT_EQ(owner.calls.size(), c.calls);
        for (std::size_t i = 1; i < owner.calls.size(); ++i) {
            EXPECT_TRUE(owner.calls[i].repeat);
            EXPECT_NEAR(owner.calls[i].at - owner.calls[i - 1].at, CTalmeButton::kRepeatMilliseconds, 60);
        }
        EXPECT_FALSE(button->IsPressed());
    }
}

TEST_F(TalmeButtonTest, LosingTheFocusStopsTheRepeatAndTheReleaseAfterItSendsNothing)
{
    button->SetAutoRepeat(true);
    Press();
    EXPECT_TRUE(button->hasFocus());
    QTest::qWait(375);
    ASSERT_EQ(owner.calls.size(), 2u);
    other->setFocus(Qt::OtherFocusReason);
    EXPECT_FALSE(button->Repeating());
    QTest::qWait(600);
    Release(inside);
    EXPECT_EQ(owner.calls.size(), 2u);

    // Nor does a plain button click when the focus went between its press and its release.
    button->SetAutoRepeat(false);
    Press();
    other->setFocus(Qt::OtherFocusReason);
    Release(inside);
    EXPECT_EQ(owner.calls.size(), 2u);
}

TEST_F(TalmeButtonTest, ADisabledButtonKeepsThePressAndSendsNothing)
{
    for (bool autoRepeat : {true, false}) {
        SCOPED_TRACE(autoRepeat ? "auto-repeat" : "plain");
        button->SetAutoRepeat(autoRepeat);
        button->SetDisabled(true);
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(inside), QPointF(button->mapToGlobal(inside)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &press);
        // Taken by the button, so the mouse stays with it and the press never reaches the window.
        EXPECT_TRUE(press.isAccepted());
        EXPECT_EQ(window.presses, 0);
        EXPECT_FALSE(button->hasFocus());
        QTest::qWait(600);
        Release(inside);
        EXPECT_TRUE(owner.calls.empty());
        EXPECT_FALSE(button->IsPressed());
        EXPECT_FALSE(button->Repeating());
    }
}

TEST_F(TalmeButtonTest, AToggleFlipsOnlyWhenReleasedInside)
{
    struct Case { QPoint release; bool toggled; std::size_t calls; };
    const Case cases[] = {{inside, true, 1}, {outside, true, 1}, {inside, false, 2}, {outside, false, 2}};
    button->SetToggle(true);
    for (const Case& c : cases) {
        Press();
        if (c.release == outside)
            SendMouse(button, QEvent::MouseMove, outside);
        Release(c.release);
        EXPECT_EQ(button->IsToggled(), c.toggled);
        EXPECT_EQ(button->IsPressed(), c.toggled); // the latched state is what the button shows
        EXPECT_EQ(owner.calls.size(), c.calls);
    }
}

TEST_F(TalmeButtonTest, EachStateDrawsItsOwnBitmapStretchedToTheDrawSize)
{
    const QPoint corner = button->pos();
    button->SetDrawSize(QSize(30, 12));
    EXPECT_EQ(button->geometry(), QRect(corner, QSize(30, 12)));
    const QImage normal = Expected(kNormalBitmap);
    const QImage pressed = Expected(kPressedBitmap);
    const QImage disabled = Expected(kDisabledBitmap);
    ASSERT_NE(normal, pressed);
    ASSERT_NE(pressed, disabled);
    ASSERT_NE(normal, disabled);

    EXPECT_EQ(Drawn(), normal);
    Press();
    EXPECT_EQ(Drawn(), pressed);
    Release(inside);
    EXPECT_EQ(Drawn(), normal);
    button->SetPressed(true);
    EXPECT_EQ(Drawn(), pressed);
    // Disabled comes first, even over a pressed button.
    button->SetDisabled(true);
    EXPECT_EQ(Drawn(), disabled);
}

TEST_F(TalmeButtonTest, TextModeDrawsTheStatesFillAndAnEdgeSunkenWhenPressed)
{
    struct Case {
        const char* name;
        bool pressed, disabled;
        int corner; // colour of the outer edge's upper left pixel
        int fill;
    };
    const Case cases[] = {
        {"normal", false, false, 13, 6},
        {"pressed", true, false, 6, 6},
        {"disabled", false, true, 13, 13},
    };
    button->SetTextMode(QStringLiteral("Go"));
    button->SetDrawSize(QSize(60, 24));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        button->SetPressed(c.pressed);
        button->SetDisabled(c.disabled);
        const QImage image = Drawn();
        EXPECT_EQ(image.pixelColor(0, 0), ControlColour(c.corner));
        EXPECT_EQ(image.pixelColor(3, 3), ControlColour(c.fill));
    }
}

} // namespace
