// The preset browser over live slots: captures land where the selection says, presets come back
// into slots (changing their effect when asked), the tree's labels and groups, and the .efx files it
// saves and loads, bad ones included. Slot values are read with OpenAL's own calls.
#include "tests/shell/DialogAnswers.h"
#include "tests/values/BridgeTestSupport.h"

#include "controls/ControlId.h"
#include "panels/FXS_Panel.h"
#include "presets/CEFXBrowser.h"
#include "presets/CEFXPresetTree.h"
#include "presets/EffectTable.h"
#include "resources/ResourceIds.h"
#include "shell/CConsoleList.h"
#include "shell/CSonopticDlg.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class BrowserTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        getEffectf = reinterpret_cast<LPALGETEFFECTF>(alGetProcAddress("alGetEffectf"));
        getEffecti = reinterpret_cast<LPALGETEFFECTI>(alGetProcAddress("alGetEffecti"));
        main = std::make_unique<CSonopticDlg>(bridge.get());
        main->InitDialog();
        main->show();
        main->ShowBrowser();
        browser = main->Browser();
        ASSERT_NE(browser, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(browser));
        tree = browser->Tree();
    }

    void TearDown() override
    {
        main.reset();
        BridgeTest::TearDown();
    }

    // Creates the next slot as "Create Slot" does and loads an effect into it; returns the slot.
    int MakeSlot(int type)
    {
        main->OnCreateSlot();
        const int slot = bridge->GetSlotCount() - 1;
        effect[slot] = spy.lastEffect;
        if (type != 0) {
            EXPECT_EQ(bridge->LoadSlotEffect(slot, type), 1);
            bridge->RefreshSlotPanel(slot);
        }
        return slot;
    }
    EFX_EffectSlot* Slot(int n) { return bridge->GetFactory()->GetEffectSlot(static_cast<std::uint32_t>(n)); }
    float EffectFloat(int slot, ALenum token)
    {
        float value = -12345;
        getEffectf(effect[slot], token, &value);
        return value;
    }
    int EffectInt(int slot, ALenum token)
    {
        int value = -12345;
        getEffecti(effect[slot], token, &value);
        return value;
    }
    FXS_Panel* PanelOf(int slot)
    {
        for (FXS_Panel* panel : main->findChildren<FXS_Panel*>())
            if (panel->Slot == slot)
                return panel;
        return nullptr;
    }
    // What a screen reader hears of a knob of the slot's panel.
    double KnobValue(int slot, int id)
    {
        QAccessibleInterface* knob = QAccessible::queryAccessibleInterface(FindControl(PanelOf(slot), id));
        return knob && knob->valueInterface() ? knob->valueInterface()->currentValue().toDouble() : -12345;
    }

    // The whole tree as indented lines; an item that has children and is not open is marked "+".
    std::string Outline() const
    {
        std::string text;
        std::function<void(QTreeWidgetItem*, int)> walk = [&](QTreeWidgetItem* item, int depth) {
            text += std::string(2 * depth, ' ') + (item->childCount() && !item->isExpanded() ? "+" : "") +
                    item->text(0).toStdString() + "\n";
            for (int i = 0; i < item->childCount(); ++i)
                walk(item->child(i), depth + 1);
        };
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            walk(tree->topLevelItem(i), 0);
        return text;
    }
    // The item of that label (the first in the outline's order, the n-th with n), selected as a click does.
    QTreeWidgetItem* Select(const QString& label, int n = 0)
    {
        for (QTreeWidgetItem* item : tree->findItems(label, Qt::MatchExactly | Qt::MatchRecursive))
            if (n-- == 0) {
                tree->setCurrentItem(item);
                return item;
            }
        ADD_FAILURE() << "no item " << label.toStdString();
        return nullptr;
    }
    // Clicks a button of the browser and returns the text of the message box it opened, if any.
    std::string PressForMessage(int id)
    {
        return MessageOf([&] { QTest::mouseClick(FindControl(browser, id), Qt::LeftButton); });
    }
    void Press(int id) { EXPECT_EQ(PressForMessage(id), "") << "button " << id; }
    int ConsoleCount() const { return main->Console()->count(); }
    // The entries from `from` on that say something: the write-back of the knobs adds an empty one.
    int NonEmptyConsoleLines(int from) const
    {
        int count = 0;
        for (int i = from; i < ConsoleCount(); ++i)
            count += !ConsoleLine(i).empty();
        return count;
    }
    std::string ConsoleLine(int i) const { return main->Console()->item(i)->text().toStdString(); }
    std::string TempPath(const char* name) const { return scratch.File(name); }

    std::unique_ptr<CSonopticDlg> main;
    CEFXBrowser* browser = nullptr;
    QTreeWidget* tree = nullptr;
    ALuint effect[4] = {};
    LPALGETEFFECTF getEffectf = nullptr;
    LPALGETEFFECTI getEffecti = nullptr;
};

const std::string kDefaultEntries =
    "EAX Reverb\n(generic) Reverb\nCompressor\nAuto Wah\nChorus\nDistortion\nEcho\nEqualizer\nFlanger\n"
    "Frequency Shifter\nVocal Morpher\nPitch Shifter\nRing Modulator\n";

// The entries of a new document, indented under the top item.
std::string Entries(const std::string& lines = kDefaultEntries)
{
    std::string out;
    for (std::size_t start = 0, end; (end = lines.find('\n', start)) != std::string::npos; start = end + 1)
        out += "  " + lines.substr(start, end - start + 1);
    return out;
}

TEST_F(BrowserTest, ANewBrowserShowsTheThirteenEntriesOpenAndKeepsEverythingWhenHiddenAndShown)
{
    EXPECT_EQ(browser->windowTitle(), "EFX Browser");
    EXPECT_EQ(browser->parentWidget(), nullptr);
    EXPECT_EQ(Outline(), "(file not saved).efx\n" + Entries());
    EXPECT_FALSE(browser->MenuAction(res::ID_BROWSER_SAVE)->isEnabled());
    EXPECT_TRUE(browser->MenuAction(res::ID_BROWSER_SAVE_AS)->isEnabled());
    EXPECT_FALSE(FindControlAs<QCheckBox>(browser, res::IDC_LOAD_EFFECT_IF_NEEDED)->isChecked());
    EXPECT_EQ(browser->SelectedItem(), nullptr);

    // The close box hides; the main window's command shows the same object with its selection.
    Select("Echo");
    browser->close();
    EXPECT_FALSE(browser->isVisible());
    main->MenuAction(res::ID_SHOW_BROWSER)->trigger();
    EXPECT_EQ(main->Browser(), browser);
    EXPECT_TRUE(browser->isVisible());
    ASSERT_NE(browser->SelectedItem(), nullptr);
    EXPECT_EQ(browser->SelectedItem()->text(0), "Echo");
    EXPECT_EQ(Outline(), "(file not saved).efx\n" + Entries());
}

TEST_F(BrowserTest, ACaptureGoesWhereTheSelectionSaysAndLeavesNothingSelected)
{
    const int echo = MakeSlot(kEffectEcho);
    const int chorus = MakeSlot(kEffectChorus);
    const int empty = MakeSlot(0);

    Press(res::IDC_SAVE_SLOT_0 + echo); // nothing selected: under the slot's own entry
    EXPECT_EQ(browser->SelectedItem(), nullptr);
    Select("my_Echo_Preset (edit me)");
    Press(res::IDC_SAVE_SLOT_0 + echo); // beside the selected preset
    Select("Chorus");
    Press(res::IDC_SAVE_SLOT_0 + echo); // an entry of another effect is passed over
    Select("Chorus");
    Press(res::IDC_CREATE_GROUP);
    Select("my_Preset_Group (edit me)");
    EXPECT_EQ(PressForMessage(res::IDC_SAVE_SLOT_0 + echo),
              "The effect corresponding to the preset group you selected doesn't match the effect loaded in the slot "
              "you are trying to save\nSelect another preset group or effect in the tree view");
    Press(res::IDC_SAVE_SLOT_0 + chorus); // into the group of its own effect
    Select("my_Preset_Group (edit me)");
    Press(res::IDC_SAVE_SLOT_0 + chorus);
    Select("my_Chorus_Preset (edit me)");
    Press(res::IDC_SAVE_SLOT_0 + chorus); // beside a preset inside a group
    for (int n : {empty, 3}) // an empty slot and one that does not exist: nothing, silently
        EXPECT_EQ(PressForMessage(res::IDC_SAVE_SLOT_0 + n), "");

    std::string expected = "(file not saved).efx\n" + Entries();
    expected.insert(expected.find("  Distortion\n"), "    my_Preset_Group (edit me)\n"
                                                      "      my_Chorus_Preset (edit me)\n"
                                                      "      my_Chorus_Preset (edit me)\n"
                                                      "      my_Chorus_Preset (edit me)\n");
    expected.insert(expected.find("  Equalizer\n"), "    my_Echo_Preset (edit me)\n    my_Echo_Preset (edit me)\n"
                                                     "    my_Echo_Preset (edit me)\n");
    EXPECT_EQ(Outline(), expected);
    EXPECT_EQ(browser->SelectedItem(), nullptr);
}

TEST_F(BrowserTest, GroupsGoOnlyUnderEntriesAndGroupsAndADeletedEntryComesBackAtTheEnd)
{
    const std::string refused = "Invalid selection:\n\tyou cannot create a Preset Group under this node.\nClick on "
                                "an Effect or another Preset Group";
    const int echo = MakeSlot(kEffectEcho);
    EXPECT_EQ(PressForMessage(res::IDC_CREATE_GROUP), refused); // nothing selected
    Select("(file not saved).efx");
    EXPECT_EQ(PressForMessage(res::IDC_CREATE_GROUP), refused);
    Press(res::IDC_DELETE_SELECTED); // the top item cannot be deleted
    Press(res::IDC_SAVE_SLOT_0 + echo);
    Select("my_Echo_Preset (edit me)");
    EXPECT_EQ(PressForMessage(res::IDC_CREATE_GROUP), refused);
    Select("Echo");
    EXPECT_EQ(PressForMessage(res::IDC_CREATE_GROUP), "");
    Select("my_Preset_Group (edit me)");
    EXPECT_EQ(PressForMessage(res::IDC_CREATE_GROUP), "");
    EXPECT_NE(Outline().find("  Echo\n    my_Echo_Preset (edit me)\n    my_Preset_Group (edit me)\n"
                             "      my_Preset_Group (edit me)\n  Equalizer\n"),
              std::string::npos)
        << Outline();

    // Deleting the entry takes its presets and groups at once; a later capture adds it at the end.
    Select("Echo");
    Press(res::IDC_DELETE_SELECTED);
    std::string without = kDefaultEntries;
    without.erase(without.find("Echo\n"), 5);
    EXPECT_EQ(Outline(), "(file not saved).efx\n" + Entries(without));
    Press(res::IDC_SAVE_SLOT_0 + echo);
    EXPECT_EQ(Outline(), "(file not saved).efx\n" + Entries(without) + "  Echo\n    my_Echo_Preset (edit me)\n");
}

TEST_F(BrowserTest, APresetLoadsIntoItsOwnTypeOrWithTheBoxIntoAnotherAndTheKnobsFollow)
{
    const int echo = MakeSlot(kEffectEcho);
    const int chorus = MakeSlot(kEffectChorus);
    Slot(echo)->SetEchoDelay(0.15f);
    Slot(echo)->SetEchoSpread(0.25f);
    Press(res::IDC_SAVE_SLOT_0 + echo);

    EXPECT_EQ(PressForMessage(res::IDC_LOAD_IN_SLOT_0 + chorus), "Invalid selection\nPlease select a preset to load");
    Select("Echo");
    EXPECT_EQ(PressForMessage(res::IDC_LOAD_IN_SLOT_0 + chorus), "Invalid selection\nPlease select a preset to load");
    Select("my_Echo_Preset (edit me)");
    EXPECT_EQ(PressForMessage(res::IDC_LOAD_IN_SLOT_0 + chorus),
              "Error loading preset:\nThe preset you are trying to load is not designed for the type of effect "
              "currently loaded in the slot\nPlease select another preset or target slot");
    EXPECT_EQ(EffectInt(chorus, AL_EFFECT_TYPE), AL_EFFECT_CHORUS);
    EXPECT_EQ(PressForMessage(res::IDC_LOAD_IN_SLOT_0 + 3), "Error querying slot\nCancelling loading of the preset");

    // With the box checked the slot's effect changes, its panel is rebuilt, and the values follow.
    FindControlAs<QCheckBox>(browser, res::IDC_LOAD_EFFECT_IF_NEEDED)->click();
    EXPECT_EQ(PressForMessage(res::IDC_LOAD_IN_SLOT_0 + chorus), "");
    EXPECT_EQ(EffectInt(chorus, AL_EFFECT_TYPE), AL_EFFECT_ECHO);
    EXPECT_EQ(PanelOf(chorus)->LoadedType, kEffectEcho);
    EXPECT_FLOAT_EQ(EffectFloat(chorus, AL_ECHO_DELAY), 0.15f);
    EXPECT_FLOAT_EQ(EffectFloat(chorus, AL_ECHO_SPREAD), 0.25f);
    EXPECT_NEAR(KnobValue(chorus, 1107), 0.15, 1e-6);
    EXPECT_NEAR(KnobValue(chorus, 1111), 0.25, 1e-6);

    // On its own type the effect is not loaded again, and the whole load is one entry of the console.
    Slot(echo)->SetEchoDelay(0.05f);
    bridge->ClearSlotLog(echo);
    const int before = ConsoleCount();
    Press(res::IDC_LOAD_IN_SLOT_0 + echo);
    ASSERT_EQ(NonEmptyConsoleLines(before), 1);
    EXPECT_EQ(ConsoleLine(before), "AL_ECHO_DELAY property setAL_ECHO_LRDELAY property setAL_ECHO_DAMPING property set"
                                   "AL_ECHO_FEEDBACK property setAL_ECHO_SPREAD property set");
    EXPECT_FLOAT_EQ(EffectFloat(echo, AL_ECHO_DELAY), 0.15f);
    EXPECT_NEAR(KnobValue(echo, 1107), 0.15, 1e-6);
}

TEST_F(BrowserTest, AFlangerPresetLeavesTheWaveformAndAMissingMorpherCancelsTheLoad)
{
    const int flanger = MakeSlot(kEffectFlanger);
    Slot(flanger)->SetFlangerWaveform(0);
    Slot(flanger)->SetFlangerRate(3.0f);
    Press(res::IDC_SAVE_SLOT_0 + flanger);
    Slot(flanger)->SetFlangerWaveform(1);
    Slot(flanger)->SetFlangerRate(1.0f);
    bridge->ClearSlotLog(flanger);
    Select("my_Flanger_Preset (edit me)");
    const int before = ConsoleCount();
    Press(res::IDC_LOAD_IN_SLOT_0 + flanger);
    ASSERT_EQ(NonEmptyConsoleLines(before), 1);
    EXPECT_NE(ConsoleLine(before).find("AL_FLANGER_WAVEFORM"), std::string::npos) << ConsoleLine(before);
    EXPECT_EQ(EffectInt(flanger, AL_FLANGER_WAVEFORM), 1);
    EXPECT_FLOAT_EQ(EffectFloat(flanger, AL_FLANGER_RATE), 3.0f);

    // A Vocal Morpher preset from a file, box checked, on a library with or without that effect.
    CEFXPresetTree document;
    const EffectTableRow& morpher = kEffectTable[10];
    const std::uint8_t record[24] = {};
    document.AddPreset(document.AddEffect(morpher.name, morpher.descriptor), u"robot", record, sizeof record);
    const std::string path = TempPath("morpher.efx");
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    document.WriteFile(file);
    std::fclose(file);
    browser->LoadFromFile(QString::fromStdString(path));
    Select("robot");
    FindControlAs<QCheckBox>(browser, res::IDC_LOAD_EFFECT_IF_NEEDED)->click();
    const std::string message = PressForMessage(res::IDC_LOAD_IN_SLOT_0 + flanger);
    if (engine_test::LibraryTakesEffect(AL_EFFECT_VOCAL_MORPHER)) {
        EXPECT_EQ(message, "");
        EXPECT_EQ(EffectInt(flanger, AL_EFFECT_TYPE), AL_EFFECT_VOCAL_MORPHER);
    } else {
        EXPECT_EQ(message, "Error loading effect\nCancelling loading of the preset");
        EXPECT_EQ(EffectInt(flanger, AL_EFFECT_TYPE), AL_EFFECT_FLANGER);
        EXPECT_EQ(PanelOf(flanger)->LoadedType, kEffectFlanger);
    }
}

TEST_F(BrowserTest, LabelsAreEditedOnTheSelectedItemAsEightBitTextAndCutAtTheNextRefresh)
{
    const int echo = MakeSlot(kEffectEcho);
    Press(res::IDC_SAVE_SLOT_0 + echo);
    // F2 opens the editor on the selected item; the text goes in, Return ends the edit.
    auto edit = [&](const QString& text) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the last edit's editor
        QTest::keyClick(tree, Qt::Key_F2);
        auto* editor = tree->viewport()->findChild<QLineEdit*>();
        if (!editor)
            return false;
        editor->setText(text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the view commits the text in a queued call
        return true;
    };
    tree->setFocus();
    Select("(file not saved).efx");
    EXPECT_FALSE(edit("renamed"));
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "(file not saved).efx");

    QTreeWidgetItem* item = Select("my_Echo_Preset (edit me)");
    PresetNode* node = CEFXBrowser::NodeOf(item);
    ASSERT_TRUE(edit(QStringLiteral("Caf\u00e9")));
    EXPECT_EQ(item->text(0), QStringLiteral("Caf\u00e9"));
    EXPECT_EQ(node->name[3], 0xFFE9);
    EXPECT_EQ(node->name[4], 0);

    const QString longLabel(200, QLatin1Char('x'));
    Select("Echo");
    ASSERT_TRUE(edit(longLabel));
    EXPECT_EQ(browser->SelectedItem()->text(0), longLabel);
    browser->RefreshTree();
    EXPECT_NE(Outline().find("  " + std::string(127, 'x') + "\n    Caf\xC3\xA9\n"), std::string::npos) << Outline();

    // The 8-bit label survives a save and a load; its unit in the file is 0xFFE9.
    const std::string path = TempPath("labels.efx");
    PickFile(browser, QString::fromStdString(path), [&] { browser->MenuAction(res::ID_BROWSER_SAVE_AS)->trigger(); });
    EXPECT_NE(ReadBytes(path).find(std::string("C\0a\0f\0\xE9\xFF", 8)), std::string::npos);
    EXPECT_NE(Outline().find("    Caf\xC3\xA9\n"), std::string::npos) << Outline();
}

TEST_F(BrowserTest, SaveAsWritesAndReloadsSaveRepeatsItExactlyAndAPresetRoundTripsIntoAFreshBrowser)
{
    const int echo = MakeSlot(kEffectEcho);
    Slot(echo)->SetEchoDelay(0.2f);
    Slot(echo)->SetEchoLrdelay(0.3f);
    Slot(echo)->SetEchoDamping(0.75f);
    Slot(echo)->SetEchoFeedback(0.125f);
    Slot(echo)->SetEchoSpread(-0.5f);
    Press(res::IDC_SAVE_SLOT_0 + echo);
    Select("Echo");

    // A cancelled save as changes nothing.
    PickFile(browser, QString(), [&] { browser->OnSaveAs(); });
    EXPECT_FALSE(browser->MenuAction(res::ID_BROWSER_SAVE)->isEnabled());
    EXPECT_EQ(browser->SelectedItem()->text(0), "Echo");

    const QString folder = QDir::currentPath();
    const std::string path = TempPath("round trip.efx");
    const FileDialogAnswer shown = PickFile(browser, QString::fromStdString(path.substr(0, path.size() - 4)),
                                            [&] { browser->OnSaveAs(); });
    EXPECT_EQ(shown.title, "Save As");
    EXPECT_EQ(shown.filters, QStringList({"EAX Effect Files (*.efx)", "All Files (*.*)"}));
    EXPECT_EQ(shown.initialName, "effects");
    EXPECT_EQ(browser->FileName(), "round trip.efx"); // the suffix was added
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "round trip.efx");
    EXPECT_EQ(browser->SelectedItem(), nullptr);
    EXPECT_TRUE(browser->MenuAction(res::ID_BROWSER_SAVE)->isEnabled());
    EXPECT_EQ(QDir::currentPath(), folder); // the process never moves
    const std::string first = ReadBytes(path);
    ASSERT_FALSE(first.empty());
    browser->MenuAction(res::ID_BROWSER_SAVE)->trigger();
    EXPECT_EQ(ReadBytes(path), first);

    // A fresh browser reads it and gives a new Echo slot the same values.
    const int second = MakeSlot(kEffectEcho);
    CEFXBrowser fresh;
    fresh.InitDialog();
    fresh.LoadFromFile(QString::fromStdString(path));
    for (QTreeWidgetItem* item : fresh.Tree()->findItems("my_Echo_Preset (edit me)", Qt::MatchRecursive))
        fresh.Tree()->setCurrentItem(item);
    fresh.LoadPresetInSlot(second);
    for (ALenum token : {AL_ECHO_DELAY, AL_ECHO_LRDELAY, AL_ECHO_DAMPING, AL_ECHO_FEEDBACK, AL_ECHO_SPREAD})
        EXPECT_FLOAT_EQ(EffectFloat(second, token), EffectFloat(echo, token)) << token;
}

TEST_F(BrowserTest, BadFilesAndFailedSavesSayWhatHappenedAndLoseNothingElse)
{
    const int echo = MakeSlot(kEffectEcho);
    const std::string saved = TempPath("folder/kept.efx");
    std::filesystem::create_directories(std::filesystem::path(saved).parent_path());
    Press(res::IDC_SAVE_SLOT_0 + echo);
    EXPECT_TRUE(browser->SaveToPath(QString::fromStdString(saved)));
    const std::string whole = ReadBytes(saved);

    // A file cut in half keeps what came before the cut; a WAV shows the top item alone; no message.
    const std::string cut = TempPath("cut.efx");
    std::ofstream(cut, std::ios::binary) << whole.substr(0, whole.size() / 2);
    EXPECT_EQ(MessageOf([&] { browser->LoadFromFile(QString::fromStdString(cut)); }), "");
    EXPECT_EQ(Outline().rfind("cut.efx\n  EAX Reverb\n  (generic) Reverb\n", 0), 0u) << Outline();
    EXPECT_EQ(Outline().find("Ring Modulator"), std::string::npos) << Outline();
    EXPECT_EQ(MessageOf([&] { browser->LoadFromFile(QString::fromStdString(WaveFile())); }), "");
    EXPECT_EQ(Outline(), "tone.wav\n");

    // A cancelled load keeps the document, blanks the top item at the next refresh, and Save then fails.
    PickFile(browser, QString(), [&] { browser->OnLoadFile(); });
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "tone.wav");
    browser->RefreshTree();
    EXPECT_EQ(Outline(), "\n");
    EXPECT_EQ(MessageOf([&] { browser->MenuAction(res::ID_BROWSER_SAVE)->trigger(); }),
              "Error opening file for saving");

    // So does a save into a folder that has gone.
    browser->LoadFromFile(QString::fromStdString(saved));
    std::filesystem::remove_all(std::filesystem::path(saved).parent_path());
    EXPECT_EQ(MessageOf([&] { browser->OnSave(); }), "Error opening file for saving");
    EXPECT_NE(Outline().find("my_Echo_Preset"), std::string::npos);

    // A typed name of no file: the message, an empty tree, and nothing to capture into or save.
    const std::string missing = TempPath("no such file.efx");
    EXPECT_EQ(MessageOf([&] { PickFile(browser, QString::fromStdString(missing), [&] { browser->OnLoadFile(); }); }),
              "Error opening file");
    EXPECT_EQ(tree->topLevelItemCount(), 0);
    EXPECT_EQ(browser->Document(), nullptr);
    EXPECT_EQ(PressForMessage(res::IDC_SAVE_SLOT_0 + echo), "");
    EXPECT_EQ(PressForMessage(res::IDC_DELETE_SELECTED), "");
    EXPECT_EQ(MessageOf([&] { browser->OnSave(); }), "Nothing to save");
    EXPECT_EQ(tree->topLevelItemCount(), 0);
}

} // namespace
