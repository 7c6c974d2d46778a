// The value objects: the order of Assign, the callback after every typed set, the narrowing of the
// double interface, the text, the odd count of RemoveAllObservers, and the three event families.

#include "values/CEFXValObs.h"
#include "values/CSonopticEventValObs.h"
#include "values/UI_EFX_Bridge.h"
#include "values/ValueControls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Remembers each hint and what GetValue gave at that moment.
struct Watcher : CObserver {
    struct Heard {
        int hint;
        double value;
        bool operator==(const Heard&) const = default;
    };
    std::vector<Heard> heard;
    void Update(CObservable* subject, int hint, std::intptr_t) override
    {
        const double value = hint == kHintDetached ? -1 : static_cast<CObservableNumber*>(subject)->GetValue();
        heard.push_back({hint, value});
    }
};

struct Call {
    CObservableNumber* subject;
    std::uint16_t kind, category, index, param, extra;
    // The identifiers that the call carried, in order.
    std::vector<int> Ids() const { return {kind, category, index, param, extra}; }
};

// Records every callback; on the bridge, it is a bridge that only listens, which the event families
// find through GetInstance.
template <typename Base>
struct Recording : Base {
    std::vector<Call> calls;
    void OnValueChanged(CObservableNumber* subject, std::uint16_t kind, std::uint16_t category,
                        std::uint16_t index, std::uint16_t param, std::uint16_t extra) override
    {
        calls.push_back({subject, kind, category, index, param, extra});
    }
};
using RecordingCallback = Recording<COrvexObservableCallback>;
using ListeningBridge = Recording<UI_EFX_Bridge>;

struct Button : CheckBoxControl {
    int state = -1;
    void SetCheck(int value) override { state = value; }
};

struct Combo : ComboBoxControl {
    int selection = -1;
    void SetCurSel(int value) override { selection = value; }
};

} // namespace

TEST(FloatValue, AssignTellsAboutToChangeWithTheOldValueThenChangedWithTheNew)
{
    CEFXFloatValObs value;
    Watcher a, b;
    value.AddObserver(&a, 1);
    value.AddObserver(&b, 0);
    value.Assign(0.5f);
    EXPECT_EQ(a.heard,
              (std::vector<Watcher::Heard>{{kHintAttached, 0.0}, {kHintAboutToChange, 0.0}, {kHintChanged, 0.5}}));
    EXPECT_EQ(b.heard, (std::vector<Watcher::Heard>{{kHintAboutToChange, 0.0}, {kHintChanged, 0.5}}));
    value.RemoveObserver(&a, 0);
    value.RemoveObserver(&b, 0);
}

TEST(FloatValue, AnEqualValueAndAValueOutOfARangeAreDroppedUnheard)
{
    CEFXFloatValObs value;
    Watcher watcher;
    value.AddObserver(&watcher, 0);
    value.Assign(0.0f);
    EXPECT_TRUE(watcher.heard.empty());

    // Before binding there is no range: anything goes.
    value.Maximum = 1.0f;
    value.Assign(5.0f);
    EXPECT_EQ(value.Value, 5.0f);

    value.RangeChecked = 1;
    watcher.heard.clear();
    value.Assign(1.1f);
    value.Assign(-0.1f);
    EXPECT_EQ(value.Value, 5.0f);
    EXPECT_TRUE(watcher.heard.empty());
    value.Assign(1.0f);
    EXPECT_EQ(value.Value, 1.0f);

    // With IgnoreEqual off, the current value is told again.
    value.IgnoreEqual = 0;
    watcher.heard.clear();
    value.Assign(1.0f);
    EXPECT_EQ(watcher.heard.size(), 2u);
    value.RemoveObserver(&watcher, 0);
}

TEST(FloatValue, TheCallbackFollowsEveryTypedSetEvenADroppedOneAndSetValueRoundsToTheNearestFloat)
{
    CEFXFloatValObs value;
    RecordingCallback callback;
    value.Callback = &callback;
    value.SetIdentifiers(0, 5, 2, 21, 65535);
    value.Maximum = 1.0f;
    value.RangeChecked = 1;
    value.SetValue(0.1); // rounded to the nearest float
    EXPECT_EQ(value.Value, 0.1f);
    value.SetValue(0.25);
    value.SetValue(1.25); // one step above the maximum
    ASSERT_EQ(callback.calls.size(), 3u);
    EXPECT_EQ(value.Value, 0.25f);
    EXPECT_EQ(callback.calls[2].subject, &value);
    EXPECT_EQ(callback.calls[2].Ids(), (std::vector<int>{0, 5, 2, 21, 65535}));

    value.Suppressed = 1;
    value.SetFloat(0.5f);
    EXPECT_EQ(callback.calls.size(), 3u);
    EXPECT_EQ(value.Value, 0.5f);

    // Assign alone never calls back.
    value.Suppressed = 0;
    value.Assign(0.75f);
    EXPECT_EQ(callback.calls.size(), 3u);
}

TEST(LongValue, SetValueTruncatesTowardsZeroAndCallsBackAsKindOne)
{
    CEFXLongValObs value;
    RecordingCallback callback;
    value.Callback = &callback;
    value.SetValue(2.9);
    EXPECT_EQ(value.Value, 2);
    value.SetValue(-2.9);
    EXPECT_EQ(value.Value, -2);
    value.SetValue(1e12);
    EXPECT_EQ(value.Value, 2147483647);
    ASSERT_EQ(callback.calls.size(), 3u);
    EXPECT_EQ(callback.calls[0].kind, 1);
    EXPECT_EQ(value.GetValue(), 2147483647.0);
}

TEST(ValueText, FloatsTakeOneToFourDecimalsAndTwoOtherwiseLongsIgnoreThem)
{
    CEFXFloatValObs number;
    number.Assign(3.14159f);
    char text[kValueTextSize];
    const std::pair<int, const char*> cases[] = {{1, "3.1"}, {2, "3.14"}, {3, "3.142"}, {4, "3.1416"},
                                                 {7, "3.14"}, {0, "3.14"}};
    for (const auto& [decimals, expected] : cases) {
        std::fill(std::begin(text), std::end(text), 'x');
        EXPECT_TRUE(number.GetValueText(text, decimals));
        EXPECT_STREQ(text, expected) << decimals;
        EXPECT_EQ(text[kValueTextSize - 1], '\0');
    }
    number.Assign(-0.5f);
    number.GetValueText(text, 1);
    EXPECT_STREQ(text, "-0.5");

    CEFXLongValObs whole;
    whole.Assign(-42);
    EXPECT_TRUE(whole.GetValueText(text, 3));
    EXPECT_STREQ(text, "-42");
}

TEST(Observable, RemoveAllObserversAndTheDestructorReachOnlyTheFirstHalfRoundedUp)
{
    Watcher watchers[3];
    {
        CEFXFloatValObs value;
        for (Watcher& watcher : watchers)
            value.AddObserver(&watcher, 0);
        value.RemoveAllObservers(1);
        EXPECT_TRUE(value.GetObservers().empty());
    }
    for (int i : {0, 1}) {
        EXPECT_EQ(watchers[i].heard, (std::vector<Watcher::Heard>{{kHintDetached, -1}})) << i;
        EXPECT_EQ(watchers[i].Subject, nullptr) << i;
    }
    EXPECT_TRUE(watchers[2].heard.empty());
    // Dropped unheard, it still names the value, which is gone: forget it before it detaches.
    EXPECT_NE(watchers[2].Subject, nullptr);
    watchers[2].Subject = nullptr;

    Watcher first, second;
    auto* value = new CEFXFloatValObs();
    value->AddObserver(&first, 0);
    value->AddObserver(&second, 0);
    delete value;
    EXPECT_EQ(first.heard, (std::vector<Watcher::Heard>{{kHintDetached, -1}}));
    EXPECT_EQ(first.Subject, nullptr);
    EXPECT_TRUE(second.heard.empty());
    EXPECT_NE(second.Subject, nullptr);
    second.Subject = nullptr;
}

TEST(Observable, AnObserverDetachesItselfSilentlyAndRemovingAStrangerDoesNothing)
{
    CEFXFloatValObs value;
    Watcher stranger;
    {
        Watcher watcher;
        value.AddObserver(&watcher, 0);
        value.RemoveObserver(&stranger, 1);
        EXPECT_EQ(value.GetObservers().size(), 1u);
        EXPECT_TRUE(stranger.heard.empty());
    }
    EXPECT_TRUE(value.GetObservers().empty());
}

TEST(Observable, AnObserverThatShrinksTheListDuringANotificationMakesTheCheckedReadThrow)
{
    struct Leaver : CObserver {
        void Update(CObservable* subject, int hint, std::intptr_t) override
        {
            if (hint == kHintAboutToChange)
                subject->RemoveObserver(this, 0);
        }
    };
    CEFXFloatValObs value;
    Leaver leaver;
    Watcher watcher;
    value.AddObserver(&leaver, 0);
    value.AddObserver(&watcher, 0);
    EXPECT_THROW(value.Assign(1.0f), std::out_of_range);
    value.RemoveObserver(&watcher, 0);
}

TEST(Observable, AGroupMovesItsOtherMembersInModeOneByTheSameDeltaWithinSixteenBits)
{
    CEFXLongValObs leader, follower, nearTop, idle;
    follower.Assign(10);
    nearTop.Assign(65530);
    idle.Assign(10);
    CObservableGroup group;
    group.Members = {{&leader, 1}, {&follower, 1}, {&nearTop, 1}, {&idle, 0}};
    for (auto& member : group.Members)
        member.number->Group = &group;

    leader.Assign(20);
    EXPECT_EQ(follower.Value, 30);
    EXPECT_EQ(nearTop.Value, 65535);
    EXPECT_EQ(idle.Value, 10);

    // A follower's own change does not move the group again while the group writes to it.
    leader.Assign(-100);
    EXPECT_EQ(follower.Value, 0);
    EXPECT_EQ(leader.Value, -100);
    EXPECT_EQ(follower.GroupActive, 1);
}

TEST(EventValues, CheckAndComboTellTheBridgeTheirStateAndSetTheirControlsSilently)
{
    ListeningBridge bridge;
    CSonopticBoolValObs check;
    check.SetCheck(1); // unbound: nothing to do, nothing to crash
    Button button;
    check.Bind(&button, 2, 7, 4);
    check.OnUserToggled(1);
    check.SetCheck(0);
    EXPECT_EQ(button.state, 0);
    check.SetIndex(6);
    check.OnUserToggled(0);

    CSonopticCBoxDiscreteValObs choice;
    Combo combo;
    choice.SetSelection(2);
    EXPECT_EQ(combo.selection, -1);
    choice.Bind(&combo, 9, 3, 0);
    choice.SetSelection(2);
    EXPECT_EQ(combo.selection, 2);
    choice.OnUserSelected(1);

    ASSERT_EQ(bridge.calls.size(), 3u);
    EXPECT_EQ(bridge.calls[0].subject, nullptr);
    EXPECT_EQ(bridge.calls[0].Ids(), (std::vector<int>{2, 2, 7, 4, 1}));
    EXPECT_EQ(bridge.calls[1].Ids(), (std::vector<int>{2, 2, 6, 4, 0}));
    EXPECT_EQ(bridge.calls[2].Ids(), (std::vector<int>{3, 9, 3, 0, 1}));
}

TEST(EventValues, ARadioRowKeepsItsSelectionAndDisabledArrivesAs65535)
{
    ListeningBridge bridge;
    Button buttons[5];
    CheckBoxControl* row[5] = {&buttons[0], &buttons[1], &buttons[2], &buttons[3], &buttons[4]};
    CSonopticExcluValObs routing;
    routing.Bind(5, row, 2, 0, 3);

    routing.SetSelected(2);
    EXPECT_EQ(routing.Selected, 2);
    EXPECT_EQ(buttons[2].state, 1);
    EXPECT_EQ(buttons[0].state, 0);
    EXPECT_EQ(buttons[4].state, 0);

    buttons[2].state = 7;
    routing.SetSelected(-1);
    routing.SetSelected(5);
    EXPECT_EQ(routing.Selected, 5);
    EXPECT_EQ(buttons[2].state, 7);

    routing.OnUserSelected(-1);
    EXPECT_EQ(routing.Selected, -1);
    ASSERT_EQ(bridge.calls.size(), 1u);
    EXPECT_EQ(bridge.calls[0].Ids(), (std::vector<int>{1, 2, 0, 3, 65535}));
}

TEST(EventValues, WithoutABridgeAnEventGoesNowhere)
{
    ASSERT_EQ(UI_EFX_Bridge::GetInstance(), nullptr);
    CSonopticBoolValObs check;
    check.OnUserToggled(1);
    CSonopticExcluValObs routing;
    routing.OnUserSelected(3);
    EXPECT_EQ(routing.Selected, 3);
}
