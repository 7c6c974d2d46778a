// The preset browser over live slots: captures land where the selection says, presets come back
// into slots (changing their effect when asked), the tree's labels and groups, and the .efx files it
// saves and loads, bad ones included. Slot values are read with OpenAL's own calls.
#include "tests/shell/DialogAnswers.h"
#include "tests/values/BridgeTestSupport.h"

#include "controls/ControlId.h"
#include "panels/FXS_Panel.h"
#include "presets/CEFXBrowser.h"
#include "presets/CEFXPresetTree.h"
#include "presets/EffectCode.h"
#include "presets/EffectTable.h"
#include "presets/PresetLabels.h"
#include "presets/StandardReverbLibrary.h"
#include "resources/ResourceIds.h"
#include "shell/CConsoleList.h"
#include "positionview/CEFXSrcPosDlg.h"
#include "shell/CEFXListSrcDlg.h"
#include "shell/CRenderDialog.h"
#include "shell/CSonopticDlg.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QDir>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QProgressDialog>
#include <QTest>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

// Last: the X11 headers define macros that other headers must not meet.
#include <X11/Xlib.h>

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
        // The panels declare no meta-object of their own: a qobject_cast would take any dialog for one.
        for (QWidget* widget : main->findChildren<QWidget*>())
            if (auto* panel = dynamic_cast<FXS_Panel*>(widget); panel && panel->Slot == slot)
                return panel;
        return nullptr;
    }
    // What a screen reader hears of a knob of the slot's panel.
    double KnobValue(int slot, int id)
    {
        QAccessibleInterface* knob = QAccessible::queryAccessibleInterface(FindControl(PanelOf(slot), id));
        return knob && knob->valueInterface() ? knob->valueInterface()->currentValue().toDouble() : -12345;
    }

    // The document's tree as indented lines; an item that has children and is not open is marked "+".
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
            if (!CEFXBrowser::IsLibraryItem(tree->topLevelItem(i)))
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
    EXPECT_EQ(Outline(), "");
    EXPECT_EQ(browser->Document(), nullptr);
    EXPECT_EQ(PressForMessage(res::IDC_SAVE_SLOT_0 + echo), "");
    EXPECT_EQ(PressForMessage(res::IDC_DELETE_SELECTED), "");
    EXPECT_EQ(MessageOf([&] { browser->OnSave(); }), "Nothing to save");
    EXPECT_EQ(Outline(), "");
}

TEST_F(BrowserTest, TheShownSlotsEffectGoesAsCodeToTheClipboardAndToAFile)
{
    MakeSlot(kEffectEcho);
    const int chorus = MakeSlot(kEffectChorus);
    main->ShowSlot(chorus);
    main->MenuAction(res::ID_COPY_SLOT_CODE)->trigger();
    const QString code = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(code.contains("alEffecti(effect, AL_EFFECT_TYPE, AL_EFFECT_CHORUS);\n")) << code.toStdString();
    EXPECT_EQ(code.toStdString(), SlotEffectCode(*bridge->GetFactory(), chorus));

    const std::string path = TempPath("chorus");
    PickFile(main.get(), QString::fromStdString(path),
             [&] { main->MenuAction(res::ID_SAVE_SLOT_CODE)->trigger(); });
    EXPECT_EQ(QString::fromStdString(ReadBytes(path + ".h")), code);
    main->ShowSlot(3);
    EXPECT_EQ(MessageOf([&] { main->CopySlotCode(); }), "Slot 3 has not been created");
}

TEST_F(BrowserTest, RenderToWaveWritesTheSceneAndACancelLeavesNoFile)
{
    MakeSlot(kEffectEcho);
    main->ShowContextWindow();
    ASSERT_GE(bridge->CreateSource(WaveFile().c_str()), 1);
    // Answers the render dialog with a length and a tail, and cancels the progress when asked to.
    auto render = [&](const std::string& path, double length, double tail, bool cancel) {
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (auto* ask = dynamic_cast<CRenderDialog*>(QApplication::activeModalWidget())) {
                ask->Length->setValue(length);
                ask->Tail->setValue(tail);
                ask->accept();
            }
            if (auto* progress = main->findChild<QProgressDialog*>(); progress && cancel && progress->isVisible())
                progress->cancel();
        });
        poll.start(10);
        return MessageOf([&] {
            PickFile(main.get(), QString::fromStdString(path), [&] { main->MenuAction(res::ID_RENDER_TO_WAV)->trigger(); });
        });
    };
    const std::string path = TempPath("scene.wav");
    EXPECT_EQ(render(path, 0.5, 0.25, false), "Rendered 0.75 s into scene.wav");
    EXPECT_EQ(std::filesystem::file_size(path), 58u + 8u * static_cast<std::uintmax_t>(std::lround(0.75 * 44100)));

    const std::string cancelled = TempPath("cancelled.wav");
    EXPECT_EQ(render(cancelled, 3600, 0, true), "");
    EXPECT_FALSE(std::filesystem::exists(cancelled));
    EXPECT_FALSE(std::filesystem::exists(cancelled + ".partial"));
}

TEST_F(BrowserTest, ASaveIntoAFullFileSystemKeepsTheOldFileByteForByte)
{
    // A file system of 64 KB of its own, mounted for the test (which needs the right to mount).
    const std::string folder = TempPath("small disk");
    std::filesystem::create_directories(folder);
    if (std::system(("mount -t tmpfs -o size=64k tmpfs '" + folder + "' 2>/dev/null").c_str()) != 0)
        GTEST_SKIP() << "no right to mount a small file system here";
    const std::string path = folder + "/effects.efx";
    ASSERT_TRUE(browser->SaveToPath(QString::fromStdString(path)));
    const std::string before = ReadBytes(path);
    {
        // Most of what is left goes to another file: room for a new file, not for the document.
        std::ofstream filler(folder + "/filler", std::ios::binary);
        const std::string block(1024, 'x');
        for (int i = 0; i < 52 && filler.write(block.data(), block.size()); ++i) {
        }
    }
    tree->setCurrentItem(tree->topLevelItem(1)); // the whole standard library, about 40 KB
    Press(res::IDC_COPY_TO_DOCUMENT);
    const std::string message = MessageOf([&] { browser->SaveToPath(QString::fromStdString(path)); });
    EXPECT_EQ(message.rfind("Error writing file: No space left on device\n", 0), 0u) << message;
    EXPECT_EQ(ReadBytes(path), before);
    std::vector<std::string> left;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        left.push_back(entry.path().filename().string());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string>{"effects.efx", "filler"}));
    EXPECT_EQ(std::system(("umount '" + folder + "'").c_str()), 0);
}

// The title that the X server holds for a top-level window, as a window manager reads it.
std::string ServerTitle(QWidget* window)
{
    QTest::qWait(50); // the title's change reaches the server with Qt's next flush
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return "(no display)";
    const Atom name = XInternAtom(display, "_NET_WM_NAME", False);
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    std::string title = "(none)";
    if (XGetWindowProperty(display, static_cast<Window>(window->winId()), name, 0, 4096, False, utf8, &type, &format,
                           &count, &after, &data) == Success && data) {
        title.assign(reinterpret_cast<const char*>(data), count);
        XFree(data);
    }
    XCloseDisplay(display);
    return title;
}

TEST_F(BrowserTest, EachWindowsTitleOnTheScreenIsExactlyTheTextTheProgramSets)
{
    main->ShowContextWindow();
    main->ShowPositionWindow();
    const std::vector<QWidget*> windows{main.get(), browser, main->ContextWindow(), main->PositionWindow()};
    for (QWidget* window : windows) {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        EXPECT_EQ(ServerTitle(window), window->windowTitle().toStdString());
    }
    EXPECT_EQ(ServerTitle(browser), "EFX Browser");
}

// The EAX reverb's properties as OpenAL spells them, with the engine value each holds; those that a
// standard reverb has too carry its token as well.
struct ReverbToken {
    ALenum eax;
    ALenum reverb; // 0 where the standard reverb lacks it
    int value;
    int width = 1;
};
const ReverbToken kReverbTokens[] = {
    {AL_EAXREVERB_DENSITY, AL_REVERB_DENSITY, eax_value::kDensity},
    {AL_EAXREVERB_DIFFUSION, AL_REVERB_DIFFUSION, eax_value::kDiffusion},
    {AL_EAXREVERB_GAIN, AL_REVERB_GAIN, eax_value::kGain},
    {AL_EAXREVERB_GAINHF, AL_REVERB_GAINHF, eax_value::kGainHF},
    {AL_EAXREVERB_GAINLF, 0, eax_value::kGainLF},
    {AL_EAXREVERB_DECAY_TIME, AL_REVERB_DECAY_TIME, eax_value::kDecayTime},
    {AL_EAXREVERB_DECAY_HFRATIO, AL_REVERB_DECAY_HFRATIO, eax_value::kDecayHFRatio},
    {AL_EAXREVERB_DECAY_LFRATIO, 0, eax_value::kDecayLFRatio},
    {AL_EAXREVERB_REFLECTIONS_GAIN, AL_REVERB_REFLECTIONS_GAIN, eax_value::kReflectionsGain},
    {AL_EAXREVERB_REFLECTIONS_DELAY, AL_REVERB_REFLECTIONS_DELAY, eax_value::kReflectionsDelay},
    {AL_EAXREVERB_REFLECTIONS_PAN, 0, eax_value::kReflectionsPan, 3},
    {AL_EAXREVERB_LATE_REVERB_GAIN, AL_REVERB_LATE_REVERB_GAIN, eax_value::kLateReverbGain},
    {AL_EAXREVERB_LATE_REVERB_DELAY, AL_REVERB_LATE_REVERB_DELAY, eax_value::kLateReverbDelay},
    {AL_EAXREVERB_LATE_REVERB_PAN, 0, eax_value::kLateReverbPan, 3},
    {AL_EAXREVERB_ECHO_TIME, 0, eax_value::kEchoTime},
    {AL_EAXREVERB_ECHO_DEPTH, 0, eax_value::kEchoDepth},
    {AL_EAXREVERB_MODULATION_TIME, 0, eax_value::kModulationTime},
    {AL_EAXREVERB_MODULATION_DEPTH, 0, eax_value::kModulationDepth},
    {AL_EAXREVERB_AIR_ABSORPTION_GAINHF, AL_REVERB_AIR_ABSORPTION_GAINHF, eax_value::kAirAbsorptionGainHF},
    {AL_EAXREVERB_HFREFERENCE, 0, eax_value::kHFReference},
    {AL_EAXREVERB_LFREFERENCE, 0, eax_value::kLFReference},
    {AL_EAXREVERB_ROOM_ROLLOFF_FACTOR, AL_REVERB_ROOM_ROLLOFF_FACTOR, eax_value::kRoomRolloffFactor},
    {AL_EAXREVERB_DECAY_HFLIMIT, AL_REVERB_DECAY_HFLIMIT, eax_value::kDecayHFLimit, 0},
};

class StandardLibraryTest : public BrowserTest {
protected:
    // The library's item of a reverb, found by its group and name.
    QTreeWidgetItem* LibraryItem(const StandardReverb& reverb)
    {
        for (QTreeWidgetItem* item : tree->findItems(reverb.name, Qt::MatchExactly | Qt::MatchRecursive))
            if (CEFXBrowser::IsLibraryItem(item) && item->parent()->text(0) == reverb.group)
                return item;
        return nullptr;
    }
    QTreeWidgetItem* LibraryTop()
    {
        return tree->topLevelItem(tree->topLevelItemCount() - 1);
    }
    // Every property of the slot's reverb against the reverb's values; the number of mismatches.
    int Mismatches(int slot, bool eax, const StandardReverb& reverb)
    {
        const EAXReverbValues want = StandardReverbValues(reverb);
        auto getEffectfv = reinterpret_cast<LPALGETEFFECTFV>(alGetProcAddress("alGetEffectfv"));
        int wrong = 0;
        for (const ReverbToken& row : kReverbTokens) {
            const ALenum token = eax ? row.eax : row.reverb;
            if (token == 0)
                continue;
            float got[3] = {-1, -1, -1};
            if (row.width == 0)
                got[0] = static_cast<float>(EffectInt(slot, token));
            else if (row.width == 3)
                getEffectfv(effect[slot], token, got);
            else
                got[0] = EffectFloat(slot, token);
            for (int i = 0; i < std::max(row.width, 1); ++i)
                if (got[i] != want[row.value + i]) {
                    ADD_FAILURE() << reverb.token << " property " << std::hex << token << std::dec << ": " << got[i]
                                  << " instead of " << want[row.value + i];
                    ++wrong;
                }
        }
        return wrong;
    }
};

TEST_F(StandardLibraryTest, EveryStandardReverbLoadsItsExactValuesIntoAnEAXReverbOrAStandardReverbSlot)
{
    const int eax = MakeSlot(kEffectEAXReverb);
    const int reverb = MakeSlot(kEffectReverb);
    const int echo = MakeSlot(kEffectEcho);
    ASSERT_EQ(kStandardReverbCount, 113u);
    for (std::size_t i = 0; i < kStandardReverbCount; ++i) {
        const StandardReverb& standard = kStandardReverbs[i];
        QTreeWidgetItem* item = LibraryItem(standard);
        ASSERT_NE(item, nullptr) << standard.group << " / " << standard.name;
        tree->setCurrentItem(item);
        browser->LoadPresetInSlot(eax);
        browser->LoadPresetInSlot(reverb);
        ASSERT_EQ(Mismatches(eax, true, standard) + Mismatches(reverb, false, standard), 0) << standard.token;
    }
    // The knobs follow: the last one's decay time on the EAX reverb's panel.
    EXPECT_NEAR(KnobValue(eax, 1023), kStandardReverbs[kStandardReverbCount - 1].values.flDecayTime, 1e-6);

    // Into a slot of another effect only with the box, which loads an EAX reverb there.
    tree->setCurrentItem(LibraryItem(kStandardReverbs[7]));
    EXPECT_NE(PressForMessage(res::IDC_LOAD_IN_SLOT_0 + echo), "");
    FindControlAs<QCheckBox>(browser, res::IDC_LOAD_EFFECT_IF_NEEDED)->click();
    tree->setCurrentItem(LibraryItem(kStandardReverbs[7]));
    Press(res::IDC_LOAD_IN_SLOT_0 + echo);
    EXPECT_EQ(EffectInt(echo, AL_EFFECT_TYPE), AL_EFFECT_EAXREVERB);
    EXPECT_EQ(Mismatches(echo, true, kStandardReverbs[7]), 0);
}

TEST_F(StandardLibraryTest, TheLibraryIsReadOnlyKeepsItsOpenItemsAndCopiesIntoTheDocumentThatSavesIt)
{
    QTreeWidgetItem* top = LibraryTop();
    EXPECT_EQ(top->text(0), "Standard reverbs (read-only)");
    ASSERT_EQ(top->childCount(), 1);
    QStringList groups;
    for (int i = 0; i < top->child(0)->childCount(); ++i)
        groups << top->child(0)->child(i)->text(0);
    EXPECT_EQ(groups, QStringList({"Default", "Castle", "Factory", "Ice Palace", "Space Station", "Wooden Galleon",
                                   "Sports", "Prefab", "Dome and Pipe", "Outdoors", "Mood", "Driving", "City",
                                   "Misc"}));
    EXPECT_EQ(top->child(0)->child(0)->child(1)->text(0), "Padded Cell");
    EXPECT_FALSE(top->isExpanded());

    // Opened by the user, it stays open through a refresh; nothing in it can be changed.
    const int echo = MakeSlot(kEffectEcho);
    top->setExpanded(true);
    top->child(0)->setExpanded(true);
    tree->setCurrentItem(top->child(0)->child(3)); // "Ice Palace"
    EXPECT_EQ(PressForMessage(res::IDC_CREATE_GROUP), "Invalid selection:\n\tyou cannot create a Preset Group under "
                                                      "this node.\nClick on an Effect or another Preset Group");
    tree->setCurrentItem(LibraryTop()->child(0)->child(3));
    Press(res::IDC_DELETE_SELECTED);
    tree->setCurrentItem(LibraryTop()->child(0)->child(3));
    Press(res::IDC_SAVE_SLOT_0 + echo); // captured into the document's Echo entry
    top = LibraryTop();
    EXPECT_TRUE(top->isExpanded() && top->child(0)->isExpanded());
    EXPECT_FALSE(top->child(0)->child(3)->isExpanded());
    EXPECT_EQ(top->child(0)->childCount(), 14);
    EXPECT_NE(Outline().find("  Echo\n    my_Echo_Preset (edit me)\n"), std::string::npos);
    tree->setCurrentItem(top->child(0)->child(0));
    QTest::keyClick(tree, Qt::Key_F2);
    EXPECT_EQ(tree->viewport()->findChild<QLineEdit*>(), nullptr);

    // Copied whole, saved and read back: the same groups, names and records as the library's.
    tree->setCurrentItem(LibraryTop());
    Press(res::IDC_COPY_TO_DOCUMENT);
    const std::string path = TempPath("library.efx");
    PickFile(browser, QString::fromStdString(path), [&] { browser->OnSaveAs(); });
    const PresetNode* copied = browser->Document()->Root()->firstChild; // the document's "EAX Reverb"
    std::function<void(const PresetNode*, const PresetNode*)> same = [&](const PresetNode* a, const PresetNode* b) {
        for (; a && b; a = a->nextSibling, b = b->nextSibling) {
            EXPECT_EQ(a->id, b->id);
            EXPECT_EQ(NarrowLabel(a->name), NarrowLabel(b->name));
            if (a->id == preset_tag::kPreset) {
                const auto* pa = static_cast<const PresetDataNode*>(a);
                const auto* pb = static_cast<const PresetDataNode*>(b);
                ASSERT_EQ(pa->dataSize, pb->dataSize);
                EXPECT_EQ(std::memcmp(pa->data.get(), pb->data.get(), pa->dataSize), 0) << NarrowLabel(a->name);
            }
            same(a->firstChild, b->firstChild);
        }
        EXPECT_EQ(a == nullptr, b == nullptr);
    };
    same(copied->firstChild, browser->Library().Root()->firstChild->firstChild);
}

} // namespace
