// The decimal display over a live reverb: its text forms, its layout, the arrows and keys with their
// modifiers, typing in place, the digit spin and its timer, a display that takes no input, the
// enter key that stays in the display, and the accessible value.
#include "tests/controls/LiveReverb.h"
#include "tests/shell/XKeyboard.h"

#include "controls/CArrowButtons.h"
#include "controls/CEditCtl.h"
#include "controls/CFloatDecimalDisplay.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/ControlStyles.h"
#include "resources/ResourceIds.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>


#include <memory>
#include <string>
#include <tuple>
#include <vector>

using namespace controls_test;

namespace {

// The record of the spin and edit cases: two decimals in a field of three, and room for the mouse.
CDecimalDisplaySpec TwoPlaces()
{
    CDecimalDisplaySpec spec = *GetReadoutSpec();
    spec.size = QSize(80, 20);
    spec.decimals = 2;
    spec.integerDigits = 3;
    return spec;
}

class DecimalDisplayTest : public LiveReverbTest {
protected:
    void SetUp() override
    {
        LiveReverbTest::SetUp();
        SetArrowBitmaps(132, 131, 130, 135);
        free.Minimum = -100.0f;
        free.Maximum = 100.0f;
        free.RangeChecked = 1;
        window.setGeometry(300, 300, 320, 140);
        other = new QLineEdit(&window);
        other->setGeometry(200, 100, 60, 20);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void TearDown() override
    {
        display.reset();
        LiveReverbTest::TearDown();
    }

    // A display of the record on value, created in parent (the test's window by default).
    template <typename Display = CDecimalDisplay, typename... Arguments>
    Display* Make(CObservableNumber* value, const CDecimalDisplaySpec& spec, double step, QWidget* parent = nullptr,
                  Arguments... arguments)
    {
        auto made = std::make_unique<Display>(arguments...);
        made->SetSpec(&spec);
        made->SetStep(step);
        if (value)
            value->AddObserver(made.get(), 1);
        made->Create(parent ? parent : &window, QPoint(20, 20), 1100, 0);
        Display* raw = made.get();
        display = std::move(made);
        return raw;
    }

    // The reverb's density, bound to its engine range 0 to 1.
    CEFXFloatValObs* Density()
    {
        CEFXFloatValObs* density = BridgeTables().ReverbValues[0][0];
        bridge_test::Bind(density, 0.0, 1.0, 5, 0, 0);
        return density;
    }

    void Click(QWidget* widget, QPoint point)
    {
        SendMouse(widget, QEvent::MouseButtonPress, point);
        SendMouse(widget, QEvent::MouseButtonRelease, point);
    }

    // Presses digit, holds the mouse distance pixels above or below it for wait, and lets go there.
    void Spin(int digit, bool up, int distance, int wait)
    {
        const QRect area = display->DigitRect(digit);
        ASSERT_FALSE(area.isEmpty());
        SendMouse(display.get(), QEvent::MouseButtonPress, area.center());
        ASSERT_TRUE(display->Spinning());
        ASSERT_EQ(display->SpinDigit(), digit);
        const QPoint out(area.center().x(), up ? area.top() - distance : area.bottom() + distance);
        SendMouse(display.get(), QEvent::MouseMove, out);
        QTest::qWait(wait);
        SendMouse(display.get(), QEvent::MouseButtonRelease, out);
    }

    // A value with a checked range and no engine behind it.
    CEFXFloatValObs free;
    QWidget window;
    QLineEdit* other = nullptr;
    std::unique_ptr<CDecimalDisplay> display;
};

TEST_F(DecimalDisplayTest, FormatValuePrintsTheMagnitudeInTheRecordsFieldAndPadsOrStripsItsParts)
{
    struct Case {
        int decimals, integerDigits, zeroPad, keepTrailingZeros;
        double value;
        bool padded;
        const char* text;
    };
    const Case cases[] = {
        {3, 3, 1, 1, 1.5, false, "001.500"},      // the class's own record
        {3, 3, 1, 1, -1.5, false, "001.500"},     // no sign: that is AddSign's
        {4, 5, 0, 1, 1.5, false, "1.5000"},       // the panels' read-out
        {4, 5, 0, 1, 123456.5, false, "123456.5000"},
        {4, 5, 0, 1, 123456.5, true, "23456.5000"}, // padded keeps integerDigits + 1 with the point
        {4, 5, 0, 0, 2.5, false, "2.5"},
        {4, 5, 0, 0, 3.0, false, "3."},           // the point stays with the integer part
        {2, 1, 0, 1, 12.5, true, "2.50"},
        {1, 2, 1, 1, 123.4, true, "23.4"},
        {0, 3, 0, 1, 2.7, false, "2"},            // half a unit towards zero first: 2.2
        {0, 3, 0, 1, -2.7, false, "2"},
        {0, 3, 0, 1, 0.0, false, "0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        CDecimalDisplaySpec spec;
        spec.decimals = c.decimals;
        spec.integerDigits = c.integerDigits;
        spec.zeroPad = c.zeroPad;
        spec.keepTrailingZeros = c.keepTrailingZeros;
        CDecimalDisplay formatter;
        formatter.SetSpec(&spec);
        EXPECT_EQ(formatter.FormatValue(c.value, c.padded), QString::fromLatin1(c.text));
    }
}

TEST_F(DecimalDisplayTest, TheShownTextHasTheSignOfANonZeroTextAndTheUnitsAfterABlank)
{
    struct Case { int showPlus; const char* units; double value; const char* shown; };
    const Case cases[] = {
        {0, "", -1.5, "-1.5000"},  {0, "", -0.00001, "0.0000"}, {1, "", 2.0, "+2.0000"},
        {0, "", 2.0, "2.0000"},    {1, "", 0.0, "0.0000"},      {0, "dB", -1.0, "-1.0000 dB"},
    };
    for (const Case& c : cases) {
        CDecimalDisplaySpec spec = *GetReadoutSpec();
        spec.showPlus = c.showPlus;
        spec.units = QString::fromLatin1(c.units);
        CDecimalDisplay formatter;
        formatter.SetSpec(&spec);
        EXPECT_EQ(formatter.ShownText(c.value), QString::fromLatin1(c.shown));
    }
}

TEST_F(DecimalDisplayTest, ThePanelsFormsPrintByTheirOwnFixedFormat)
{
    struct Case { unsigned decimals; const char* text; };
    const Case cases[] = {{1, "1.2"}, {2, "1.23"}, {3, "1.235"}, {4, "1.2346"}, {0, "1.23"}, {7, "1.23"}};
    free.Assign(1.23456f);
    for (const Case& c : cases)
        EXPECT_EQ(Make<CFloatDecimalDisplay>(&free, *GetReadoutSpec(), 0.1, nullptr, c.decimals)->ValueText(),
                  QString::fromLatin1(c.text));
    CEFXLongValObs count;
    count.Assign(-7);
    EXPECT_EQ(Make<CLongDecimalDisplay>(&count, *GetReadoutSpec(), 1.0)->ValueText(), QStringLiteral("-7"));
    display.reset();
}

TEST_F(DecimalDisplayTest, ArrowsTakeAFifthOfTheWidthHeldToFiveToFifteenPixels)
{
    struct Case {
        QSize size;
        bool registered;
        int arrows; // width of the arrow strip, 0 for none
    };
    const Case cases[] = {{{47, 15}, true, 9}, {{20, 10}, true, 5}, {{100, 21}, true, 15}, {{47, 15}, false, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.size.width());
        SetArrowBitmaps(132, 131, 130, c.registered ? 135 : 0);
        CDecimalDisplaySpec spec = *GetReadoutSpec();
        spec.size = c.size;
        Make(Decay(), spec, 0.1);
        const int w = c.size.width(), h = c.size.height();
        EXPECT_EQ(display->size(), c.size);
        EXPECT_EQ(display->NumberRect(), QRect(0, 0, w - c.arrows - 1, h));
        EXPECT_EQ(FindControl(display.get(), res::IDC_DISPLAY_EDIT), display->Edit());
        EXPECT_EQ(display->Edit()->geometry(), display->NumberRect());
        auto* up = dynamic_cast<CArrowButton*>(FindControl(display.get(), res::IDC_DISPLAY_UP));
        auto* down = dynamic_cast<CArrowButton*>(FindControl(display.get(), res::IDC_DISPLAY_DOWN));
        ASSERT_EQ(up != nullptr, c.registered);
        ASSERT_EQ(down != nullptr, c.registered);
        if (c.registered) {
            EXPECT_EQ(up->geometry(), QRect(w - c.arrows, 0, c.arrows, h / 2));
            EXPECT_EQ(down->geometry(), QRect(w - c.arrows, h / 2, c.arrows, h - h / 2));
        }
    }
}

TEST_F(DecimalDisplayTest, AnArrowStepsAtOnceThenEveryQuarterSecondAndTheEngineFollows)
{
    struct Case {
        bool up;
        int hold;
        double expected; // from 2.0, by steps of 0.1
    };
    const Case cases[] = {{true, 0, 2.1}, {false, 0, 1.9}, {true, 1125, 2.5}, {false, 1125, 1.5}};
    CEFXFloatValObs* decay = Decay();
    Make<CFloatDecimalDisplay>(decay, *GetReadoutSpec(), 0.1);
    for (const Case& c : cases) {
        decay->SetValue(2.0);
        QWidget* arrow = c.up ? static_cast<QWidget*>(display->UpArrow()) : display->DownArrow();
        SendMouse(arrow, QEvent::MouseButtonPress, QPoint(2, 2));
        EXPECT_EQ(display->FocusField(), 2);
        QTest::qWait(c.hold);
        SendMouse(arrow, QEvent::MouseButtonRelease, QPoint(2, 2));
        QTest::qWait(300);
        EXPECT_NEAR(decay->Value, c.expected, 1e-5);
        EXPECT_NEAR(Effect(AL_EAXREVERB_DECAY_TIME), c.expected, 1e-5);
    }

    // A step past the end is dropped by the value: nothing changes, on screen either.
    decay->SetValue(kDecayHigh);
    const QImage before = display->grab().toImage();
    Click(display->UpArrow(), QPoint(2, 2));
    EXPECT_FLOAT_EQ(decay->Value, kDecayHigh);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), kDecayHigh);
    EXPECT_EQ(display->grab().toImage(), before);
}

// The keys are held on the X server itself, as a user holds them: the display reads Ctrl and Shift
// with QGuiApplication::queryKeyboardModifiers, which asks the server rather than the events.
TEST_F(DecimalDisplayTest, CtrlAndShiftPickTheirStepsAndTheReadOutsAreZero)
{
    static XKeyboard keyboard;
    ASSERT_TRUE(keyboard.Available());
    struct Case { const char* name; bool readOut; std::vector<std::string> keys; double change; };
    const Case cases[] = {
        {"read-out, no key", true, {}, 0.5},
        {"read-out, Shift", true, {"Shift_L"}, 0.0},
        {"read-out, Ctrl", true, {"Control_L"}, 0.0},
        {"class record, Shift", false, {"Shift_L"}, 0.1},
        {"class record, Ctrl", false, {"Control_L"}, 0.01},
        {"class record, both: Ctrl wins", false, {"Control_L", "Shift_L"}, 0.01},
    };
    CEFXFloatValObs* decay = Decay();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Make(decay, c.readOut ? *GetReadoutSpec() : CDecimalDisplaySpec(), 0.5);
        decay->SetValue(2.0);
        for (const std::string& key : c.keys)
            keyboard.Send(key, true);
        Click(display->UpArrow(), QPoint(2, 2));
        for (auto key = c.keys.rbegin(); key != c.keys.rend(); ++key)
            keyboard.Send(*key, false);
        EXPECT_NEAR(decay->Value, 2.0 + c.change, 1e-5);
        EXPECT_NEAR(Effect(AL_EAXREVERB_DECAY_TIME), 2.0 + c.change, 1e-5);
    }
}

TEST_F(DecimalDisplayTest, TabWalksTheFieldsAndUpAndDownStepInTheNumberAndTheArrows)
{
    CEFXFloatValObs* decay = Decay();
    Make(decay, *GetReadoutSpec(), 0.1);
    decay->SetValue(2.0);
    Click(display.get(), QPoint(1, 1)); // the number's field, beside its digits
    ASSERT_TRUE(display->hasFocus());
    struct Case { Qt::Key key; int field; double value; };
    const Case cases[] = {
        {Qt::Key_Up, 0, 2.1},   {Qt::Key_Tab, 1, 2.1},  {Qt::Key_Up, 1, 2.1},  {Qt::Key_Backtab, 2, 2.1},
        {Qt::Key_Down, 2, 2.0}, {Qt::Key_Tab, 0, 2.0},  {Qt::Key_Down, 0, 1.9},
    };
    for (const Case& c : cases) {
        QTest::keyClick(display.get(), c.key);
        EXPECT_EQ(display->FocusField(), c.field);
        EXPECT_NEAR(Effect(AL_EAXREVERB_DECAY_TIME), c.value, 1e-5);
    }

    // An arrow that has the focus sends Up and Down on, drops other keys, and gives Tab back.
    Click(display->DownArrow(), QPoint(2, 2));
    ASSERT_TRUE(display->DownArrow()->hasFocus());
    EXPECT_EQ(display->FocusField(), 2);
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_A, Qt::Key_Space})
        QTest::keyClick(display->DownArrow(), key);
    EXPECT_NEAR(Effect(AL_EAXREVERB_DECAY_TIME), 2.0, 1e-5);
    QTest::keyClick(display->DownArrow(), Qt::Key_Tab);
    EXPECT_TRUE(display->hasFocus());
    EXPECT_EQ(display->FocusField(), 0);
    other->setFocus();
    EXPECT_EQ(display->FocusField(), -1);
}

TEST_F(DecimalDisplayTest, TypingInPlaceCommitsWhatAtofReadsAndEnterNeverReachesTheDialogsDefaultButton)
{
    enum Close { Enter, Escape, FocusLoss };
    struct Case {
        const char* name;
        bool bySpace;
        float start;
        const char* typed;
        const char* arrived;
        Close close;
        float value;
    };
    const Case cases[] = {
        {"atof stops at the comma", true, 0.5f, "1,5", "1,5", Enter, 1.0f},
        {"an empty edit reads 0", false, 0.5f, "", "", Enter, 0.0f},
        {"letters never arrive", true, 0.5f, "0.2a5Z", "0.25", Enter, 0.25f},
        {"two points pass", false, 0.5f, "0.3.7", "0.3.7", Enter, 0.3f},
        {"Esc commits the opening text", true, 0.123456f, "0.9", "0.9", Escape, 0.1235f},
        {"the loss of focus commits", false, 0.5f, "0.75", "0.75", FocusLoss, 0.75f},
        {"beyond the range is dropped", true, 0.5f, "5", "5", Enter, 0.5f},
    };
    CEFXFloatValObs* density = Density();
    Make<CFloatDecimalDisplay>(density, *GetReadoutSpec(), 0.01);
    CEditCtl* edit = display->Edit();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        density->SetValue(c.start);
        if (c.bySpace)
            QTest::keyClick(display.get(), Qt::Key_Space);
        else
            SendMouse(display.get(), QEvent::MouseButtonDblClick, display->NumberRect().center());
        ASSERT_TRUE(edit->isVisible());
        ASSERT_TRUE(edit->hasFocus());
        EXPECT_EQ(edit->text(), QString::number(c.start, 'f', 4)); // the read-out's four places
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClicks(edit, QString::fromLatin1(c.typed));
        EXPECT_EQ(edit->text(), QString::fromLatin1(c.arrived));
        if (c.close == FocusLoss)
            other->setFocus();
        else
            QTest::keyClick(edit, c.close == Enter ? Qt::Key_Return : Qt::Key_Escape);
        EXPECT_FALSE(edit->isVisible());
        EXPECT_FLOAT_EQ(density->Value, c.value);
        EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DENSITY), c.value);
        EXPECT_EQ(display->FocusField(), c.close == FocusLoss ? -1 : 0);
    }

    // Enter stays in the display and never reaches the dialog's default button.
    QDialog dialog;
    dialog.setGeometry(300, 300, 200, 100);
    QPushButton ok(QStringLiteral("OK"), &dialog);
    ok.setDefault(true);
    ok.move(100, 60);
    QWidget plain(&dialog);
    plain.setGeometry(10, 60, 40, 20);
    plain.setFocusPolicy(Qt::StrongFocus);
    int clicks = 0;
    QObject::connect(&ok, &QPushButton::clicked, [&clicks] { ++clicks; });
    Make(Decay(), *GetReadoutSpec(), 0.1, &dialog);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    display->setFocus();
    QTest::keyClick(display.get(), Qt::Key_Return);
    QTest::keyClick(display.get(), Qt::Key_Space);
    QTest::keyClick(display->Edit(), Qt::Key_Enter);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(dialog.isVisible());
    // Where a control lets Enter pass, the dialog clicks its default button.
    plain.setFocus();
    QTest::keyClick(&plain, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    display.reset();
}

TEST_F(DecimalDisplayTest, ASpunDigitCountsAsOnPaperFollowsTheTextsLengthLightsAndReachesTheEngine)
{
    struct Case { float start; int digit; bool up; float value; int digitAfter; };
    const Case cases[] = {
        {1.00f, 3, false, 0.99f, 3},  {0.00f, 3, false, -0.01f, 3}, {-0.01f, 3, false, -0.02f, 3},
        {-0.01f, 3, true, 0.00f, 3},  {9.99f, 3, true, 10.00f, 4},  {10.00f, 4, false, 9.99f, 3},
        {1.25f, 0, true, 2.25f, 0},   {1.25f, 2, false, 1.15f, 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.start << (c.up ? " up at " : " down at ") << c.digit);
        free.Assign(c.start);
        // A new display each time: the spin's interval is never reset.
        Make(&free, TwoPlaces(), 0.1);
        // Ten pixels out is 490 ms: one tick in 700.
        Spin(c.digit, c.up, 10, 700);
        EXPECT_NEAR(free.Value, c.value, 1e-6);
        EXPECT_EQ(display->SpinDigit(), c.digitAfter);
        EXPECT_TRUE(display->SpinDigitRect().isEmpty());
    }

    // The pressed digit lights, and its spin reaches the engine.
    CEFXFloatValObs* decay = Decay();
    Make(decay, TwoPlaces(), 0.1);
    decay->SetValue(1.0);
    const QRect digit = display->DigitRect(3);
    // The read-out's digits are green on black, and the pressed one yellow: its pixels carry red.
    ASSERT_EQ(ControlColour(display->Spec().textColour).red(), 0);
    ASSERT_GT(ControlColour(display->Spec().highlightColour).red(), 200);
    auto lit = [&] {
        const QImage image = display->grab(digit).toImage();
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += image.pixelColor(x, y).red() > 64;
        return n;
    };
    EXPECT_EQ(lit(), 0);
    SendMouse(display.get(), QEvent::MouseButtonPress, digit.center());
    EXPECT_GT(lit(), 0);
    SendMouse(display.get(), QEvent::MouseButtonRelease, digit.center());
    EXPECT_EQ(lit(), 0);

    Spin(3, false, 10, 700);
    EXPECT_FLOAT_EQ(decay->Value, 0.99f);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 0.99f);
}

TEST_F(DecimalDisplayTest, TheSpinsTimerRunsFasterFurtherOutAndIsReplacedOnlyForTenMilliseconds)
{
    struct Move {
        int distance; // pixels beyond the digit's edge; 0 is back inside it
        bool up;
        int interval;
    };
    const Move moves[] = {
        {9, true, 500},     // the first 500 asks for no change: nothing runs yet
        {10, true, 490},    {19, true, 490},    {20, true, 480},
        {600, false, 10},   // never under 10
        {0, false, 10},     // inside: the timer stops, the interval stays
        {480, false, 20},
    };
    Make(&free, TwoPlaces(), 0.1);
    free.Assign(5.0f);
    const QRect area = display->DigitRect(3);
    SendMouse(display.get(), QEvent::MouseButtonPress, area.center());
    for (const Move& m : moves) {
        const int y = m.distance == 0 ? area.center().y() : m.up ? area.top() - m.distance : area.bottom() + m.distance;
        SendMouse(display.get(), QEvent::MouseMove, QPoint(area.center().x(), y));
        EXPECT_EQ(display->SpinInterval(), m.interval);
        if (m.distance) {
            EXPECT_EQ(display->SpinningUp(), m.up);
        }
    }
    SendMouse(display.get(), QEvent::MouseButtonRelease, area.center());

    // The interval is not reset: a second excursion to the same distance starts nothing, the first
    // nine pixels run nothing, and the timer stops inside the digit.
    free.Assign(5.0f);
    Make(&free, TwoPlaces(), 0.1);
    const QPoint inside = area.center();
    const QPoint tenAbove(inside.x(), area.top() - 10);
    SendMouse(display.get(), QEvent::MouseButtonPress, inside);
    for (auto [point, wait, value] : {std::tuple{QPoint(inside.x(), area.top() - 9), 700, 5.0f},
                                      std::tuple{tenAbove, 700, 5.01f}, std::tuple{inside, 700, 5.01f},
                                      std::tuple{tenAbove, 700, 5.01f}}) {
        SendMouse(display.get(), QEvent::MouseMove, point);
        QTest::qWait(wait);
        EXPECT_NEAR(free.Value, value, 1e-6);
    }
    SendMouse(display.get(), QEvent::MouseButtonRelease, tenAbove);
}

TEST_F(DecimalDisplayTest, ADisplayThatTakesNoInputIgnoresAllButStillFollowsTheValue)
{
    CEFXFloatValObs* decay = Decay();
    CDecimalDisplaySpec spec = *GetReadoutSpec();
    spec.interactive = 0;
    Make<CFloatDecimalDisplay>(decay, spec, 0.1);
    decay->SetValue(2.0);
    const QPoint origin = display->mapTo(&window, QPoint(0, 0));
    const QPoint onArrow = origin + display->UpArrow()->geometry().center();
    const QPoint onDigit = origin + display->DigitRect(0).center();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, onArrow);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, onDigit);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, onDigit);
    EXPECT_FALSE(display->Spinning());
    QTest::mouseMove(window.windowHandle(), onDigit - QPoint(0, 300));
    QTest::qWait(600);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, onDigit - QPoint(0, 300));
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Space, Qt::Key_Tab})
        QTest::keyClick(display.get(), key);
    EXPECT_FALSE(display->hasFocus());
    EXPECT_FALSE(display->UpArrow()->hasFocus());
    EXPECT_FALSE(display->Edit()->isVisible());
    EXPECT_EQ(display->FocusField(), -1);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 2.0f);

    const QImage before = display->grab().toImage();
    decay->SetValue(3.0);
    EXPECT_NE(display->grab().toImage(), before);
}

TEST_F(DecimalDisplayTest, TheReadOutLightsWhileItsKnobIsPressedAndItsAccessibleValueSetsAsTypingDoes)
{
    CEFXFloatValObs* decay = Decay();
    Make(decay, *GetReadoutSpec(), 0.1);
    const CDecimalDisplaySpec& look = display->Spec();
    decay->NotifyObservers(kHintPressed, 0);
    EXPECT_EQ(look.textColour, GetReadoutSpec()->highlightColour);
    EXPECT_EQ(look.highlightColour, GetReadoutSpec()->textColour);
    decay->NotifyObservers(kHintReleased, 0);
    EXPECT_EQ(look.textColour, GetReadoutSpec()->textColour);

    // The accessible value reads the range and the step, and sets as typing does.
    Make<CFloatDecimalDisplay>(decay, *GetReadoutSpec(), 0.25);
    decay->SetValue(2.0);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(display.get());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::SpinBox);
    QAccessibleValueInterface* value = accessible->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_FLOAT_EQ(value->currentValue().toFloat(), 2.0f);
    EXPECT_FLOAT_EQ(value->minimumValue().toFloat(), kDecayLow);
    EXPECT_FLOAT_EQ(value->maximumValue().toFloat(), kDecayHigh);
    EXPECT_DOUBLE_EQ(value->minimumStepSize().toDouble(), 0.25);
    value->setCurrentValue(3.5);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 3.5f);
    value->setCurrentValue(30.0); // beyond the range: dropped
    EXPECT_FLOAT_EQ(value->currentValue().toFloat(), 3.5f);
    EXPECT_FLOAT_EQ(Effect(AL_EAXREVERB_DECAY_TIME), 3.5f);
}

} // namespace
