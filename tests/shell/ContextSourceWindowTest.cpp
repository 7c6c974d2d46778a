// The context/source window over a live engine: its opening makes the context, sources come and go as
// tabs named by their files, the panels keep speaking to the right source after a delete, and the
// commands that cannot act say so or do nothing.
#include "tests/values/BridgeTestSupport.h"

#include "controls/CPot.h"
#include "controls/CXTabCtrl.h"
#include "controls/ControlId.h"
#include "panels/Source3D_Panel.h"
#include "resources/ResourceIds.h"
#include "shell/CEFXListSrcDlg.h"
#include "tests/shell/DialogAnswers.h"
#include "tests/LibraryPremises.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QLabel>
#include <QMimeData>
#include <QUrl>
#include <QPushButton>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <cstdlib>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using bridge_test::SourcePeek;

namespace {

class ContextSourceWindowTest : public bridge_test::BridgeTest {
protected:
    void SetUp() override
    {
        BridgeTest::SetUp();
        window = std::make_unique<CEFXListSrcDlg>(nullptr);
        window->InitDialog();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void TearDown() override
    {
        window.reset();
        BridgeTest::TearDown();
    }

    void Add(const char* title)
    {
        const std::string path = scratch.File(title);
        engine_test::WriteFile(path, engine_test::SmallMonoWave(2048));
        window->AddSourceFile(QString::fromLocal8Bit(path.c_str()), QString::fromLatin1(title));
    }
    QString Caption(int tab) { return window->Tabs()->tabText(tab); }
    QString Path(const std::string& path) { return QString::fromLocal8Bit(path.c_str()); }

    // Drags the files over the window and drops them, as a file manager does, then lets the window add
    // them; false when the window refuses the drag.
    bool Drop(const QList<QUrl>& files)
    {
        QMimeData data;
        data.setUrls(files);
        const QPoint at = window->rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &drop);
        EXPECT_TRUE(drop.isAccepted());
        QTest::qWait(50);
        return true;
    }

    std::unique_ptr<CEFXListSrcDlg> window;
};

TEST_F(ContextSourceWindowTest, SourcesComeAsTabsInFrontAndADeleteRenumbersTheLaterPanels)
{
    for (const char* title : {"one.wav", "two.wav", "three.wav"})
        Add(title);
    ASSERT_EQ(window->SourceCount(), 3);
    EXPECT_EQ(window->Tabs()->currentIndex(), 3);
    EXPECT_FLOAT_EQ(BridgeTables().SourceValues[2][6]->Value, -1.0f); // in front of the listener

    // Deleting the first: captions stay in order, the third panel now speaks to source 1.
    window->Tabs()->SelectTabForced(1);
    window->DeleteSource();
    EXPECT_EQ(window->SourceCount(), 2);
    EXPECT_EQ(Caption(1), "two.wav");
    EXPECT_EQ(Caption(2), "three.wav");
    Source3D_Panel* third = window->SourcePanel(1);
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(third->SourceIndex, 1);
    QAccessible::queryAccessibleInterface(&third->Knob(4))->valueInterface()->setCurrentValue(20.0);
    float position[3] = {};
    alGetSourcefv(SourcePeek::Source(bridge->GetSource(1)), AL_POSITION, position);
    EXPECT_GT(position[0], 19.0f);
    EXPECT_EQ(BridgeTables().SourceValues[1][4]->Index, 1);

    // Deleting the last tab's source selects the tab before it; the context tab cannot be deleted.
    window->Tabs()->SelectTabForced(2);
    window->DeleteSource();
    EXPECT_EQ(window->Tabs()->currentIndex(), 1);
    window->Tabs()->SelectTabForced(0);
    window->DeleteSource();
    EXPECT_EQ(window->SourceCount(), 1);
}

TEST_F(ContextSourceWindowTest, FilesThatCannotBeReadSayWhatTheyShouldAndChangeNothingElse)
{
    EXPECT_EQ(MessageOf([&] { window->LoadFileForSource(); }), "Please select a source panel first.");

    std::vector<unsigned char> cut = engine_test::SmallMonoWave(2048);
    cut.resize(30); // the header stops inside its format chunk
    const std::pair<const char*, std::vector<unsigned char>> unreadable[] = {
        {"notes.wav", {'h', 'e', 'l', 'l', 'o'}},
        {"cut.wav", cut},
    };
    for (const auto& [title, bytes] : unreadable) {
        SCOPED_TRACE(title);
        const std::string path = scratch.File(title);
        engine_test::WriteFile(path, bytes);
        const QString file = QString::fromLocal8Bit(path.c_str());
        const int sources = window->SourceCount();
        console.lines.clear();
        EXPECT_EQ(MessageOf([&] { window->AddSourceFile(file, title); }), "Error loading sound file, 3D source not created");
        ASSERT_FALSE(console.lines.empty());
        EXPECT_EQ(console.lines.back(), "3D source not created");
        EXPECT_EQ(window->SourceCount(), sources);
        EXPECT_EQ(window->Tabs()->count(), sources + 1);

        // A reload with it speaks only in the console; the source keeps its file and its caption.
        Add("tone.wav");
        console.lines.clear();
        EXPECT_EQ(MessageOf([&] { window->LoadFileForSourceFrom(file, title); }), "");
        EXPECT_TRUE(console.Has("Failed to load file."));
        EXPECT_EQ(Caption(window->Tabs()->currentIndex()), "tone.wav");
    }
}

TEST_F(ContextSourceWindowTest, ALowWindowScrollsItsSixHundredPixelsAndAHighOneHasNoBar)
{
    // The menu bar takes the rest: the client under it is what counts.
    const int menu = window->height() - window->ScrollBar()->parentWidget()->height();
    window->resize(window->width(), 400 + menu);
    QTest::qWait(50);
    QScrollBar* bar = window->ScrollBar();
    ASSERT_EQ(bar->parentWidget()->height(), 400);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->minimum(), 0);
    EXPECT_EQ(bar->maximum(), 200);

    // The thumb at the end shows the content's bottom row; an arrow moves it by one pixel.
    bar->setSliderPosition(200);
    EXPECT_EQ(window->ContentOffset(), -200);
    bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(window->ContentOffset(), -199);

    // Back at the top, a window as high as its content or higher has no bar.
    bar->setSliderPosition(0);
    EXPECT_EQ(window->ContentOffset(), 0);
    window->resize(window->width(), 700 + menu);
    QTest::qWait(50);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(window->ContentOffset(), 0);
}

TEST_F(ContextSourceWindowTest, AFilePickedInTheDialogBecomesASelectedSourceThatPlaysOnlyWithAutoPlay)
{
    // Opening the window made the context.
    EXPECT_NE(bridge->GetContext(), nullptr);
    EXPECT_EQ(Caption(0), "Context/Listener");
    EXPECT_EQ(window->windowTitle(), "Sonoptic: Context / Source properties");
    const std::string path = scratch.File("picked.wav");
    engine_test::WriteFile(path, engine_test::SmallMonoWave(2048));
    const QString picked = QString::fromLocal8Bit(path.c_str());

    // A cancelled dialog changes nothing.
    const FileDialogAnswer cancelled = PickFile(window.get(), QString(), [&] { window->AddSource(); });
    EXPECT_EQ(cancelled.title, "Select sound file for 3D sound source");
    EXPECT_EQ(window->SourceCount(), 0);
    EXPECT_EQ(window->Tabs()->count(), 1);

    for (bool autoPlay : {true, false}) {
        SCOPED_TRACE(autoPlay);
        if ((bridge->GetAutoPlay() != 0) != autoPlay)
            window->MenuAction(res::ID_CS_AUTOPLAY)->trigger();
        EXPECT_EQ(window->MenuAction(res::ID_CS_AUTOPLAY)->isChecked(), autoPlay);
        const FileDialogAnswer answer = PickFile(window.get(), picked, [&] { window->AddSource(); });
        const int source = window->SourceCount() - 1;
        ASSERT_GE(source, 0);
        EXPECT_EQ(window->Tabs()->currentIndex(), source + 1);
        EXPECT_EQ(Caption(source + 1), "picked.wav");
        float position[3] = {1, 1, 1};
        alGetSourcefv(SourcePeek::Source(bridge->GetSource(source)), AL_POSITION, position);
        EXPECT_EQ(std::vector<float>(position, position + 3), (std::vector<float>{0, 0, -1}));
        ALint state = 0;
        ALint looping = 0;
        alGetSourcei(SourcePeek::Source(bridge->GetSource(source)), AL_SOURCE_STATE, &state);
        alGetSourcei(SourcePeek::Source(bridge->GetSource(source)), AL_LOOPING, &looping);
        EXPECT_EQ(state == AL_PLAYING && looping == AL_TRUE, autoPlay);
        // The second dialog opens in the folder the first one was left in.
        if (!autoPlay) {
            EXPECT_EQ(answer.folder, QFileInfo(picked).absolutePath());
        }
    }
    // A change of the bridge's switch from elsewhere (the main window's menu) moves this check too.
    bridge->ToggleAutoPlay();
    EXPECT_TRUE(window->MenuAction(res::ID_CS_AUTOPLAY)->isChecked());
}

TEST_F(ContextSourceWindowTest, AHundredTwentyEightSourcesFitAndTheNextAddOpensNoDialog)
{
    const std::string path = scratch.File("tone.wav");
    engine_test::WriteFile(path, engine_test::SmallMonoWave(256));
    for (int i = 0; i < CEFXListSrcDlg::kMaxSources; ++i)
        window->AddSourceFile(QString::fromLocal8Bit(path.c_str()), QStringLiteral("tone %1").arg(i));
    ASSERT_EQ(window->SourceCount(), 128);
    EXPECT_EQ(window->Tabs()->count(), 129);
    // No file dialog, and nothing said. The guard dies with the test, so that it cannot close a box
    // of the next one.
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] {
        if (QWidget* modal = QApplication::activeModalWidget())
            modal->close();
    });
    guard.start(200);
    EXPECT_EQ(MessageOf([&] { window->AddSource(); }), "");
    EXPECT_EQ(window->SourceCount(), 128);
    // A dropped file is ignored as silently.
    EXPECT_EQ(MessageOf([&] { EXPECT_TRUE(Drop({QUrl::fromLocalFile(Path(path))})); }), "");
    EXPECT_EQ(window->SourceCount(), 128);
}

TEST_F(ContextSourceWindowTest, AStereoFileShowsTheNoteOnItsSourceTabAndAMonoFileDoesNot)
{
    for (std::uint16_t channels : {1, 2})
        engine_test::WriteFile(scratch.File(channels == 1 ? "mono.wav" : "stereo.wav"),
                               engine_test::SmallWave(channels, 2048));
    window->AddSourceFile(Path(scratch.File("stereo.wav")), "stereo.wav");
    window->AddSourceFile(Path(scratch.File("mono.wav")), "mono.wav");
    console.lines.clear();
    // Then each source reloaded with the other file: the note follows the file.
    const struct {
        int tab;
        const char* reload; // null: as added
        bool note[2];       // shown on source 0, on source 1
    } steps[] = {{2, nullptr, {true, false}}, {1, "mono.wav", {false, false}}, {2, "stereo.wav", {false, true}}};
    for (const auto& step : steps) {
        SCOPED_TRACE(step.reload ? step.reload : "added");
        window->Tabs()->SelectTabForced(step.tab);
        if (step.reload)
            window->LoadFileForSourceFrom(Path(scratch.File(step.reload)), step.reload);
        for (int source = 0; source < 2; ++source) {
            Source3D_Panel* panel = window->SourcePanel(source);
            EXPECT_EQ(panel->ChannelNote()->isVisibleTo(panel), step.note[source]) << source;
        }
    }
    QLabel* note = window->SourcePanel(1)->ChannelNote();
    EXPECT_TRUE(note->isVisible()); // its tab is the selected one
    EXPECT_TRUE(window->SourcePanel(1)->rect().contains(note->geometry()));
    EXPECT_TRUE(note->text().startsWith("Stereo file: ")) << note->text().toStdString();
    EXPECT_FALSE(note->accessibleName().isEmpty());
    // The console says only what the reloads say.
    for (const std::string& line : console.lines)
        EXPECT_EQ(line.find("tereo"), std::string::npos) << line;
}

TEST_F(ContextSourceWindowTest, DroppedFilesBecomeSourcesInTheirOrderAndAnUnreadableOneSaysWhatAddSays)
{
    const char* const names[] = {"first.wav", "notes.txt", "second.wav"};
    QList<QUrl> files;
    for (const char* name : names) {
        const std::string path = scratch.File(name);
        engine_test::WriteFile(path, name[0] == 'n' ? std::vector<unsigned char>{'h', 'i'}
                                                    : engine_test::SmallMonoWave(2048));
        files << QUrl::fromLocalFile(Path(path));
    }
    // Only local files are taken.
    EXPECT_FALSE(Drop({QUrl(QStringLiteral("http://localhost/first.wav"))}));

    console.lines.clear();
    EXPECT_EQ(MessageOf([&] { EXPECT_TRUE(Drop(files)); }), "Error loading sound file, 3D source not created");
    EXPECT_EQ(std::count(console.lines.begin(), console.lines.end(), "3D source not created"), 1) << ::testing::PrintToString(console.lines);
    ASSERT_EQ(window->SourceCount(), 2);
    EXPECT_EQ(window->Tabs()->count(), 3);
    EXPECT_EQ(Caption(1), "first.wav");
    EXPECT_EQ(Caption(2), "second.wav");
    EXPECT_EQ(window->Tabs()->currentIndex(), 2);
    // As after a pick, the file dialog opens in the files' folder.
    const FileDialogAnswer answer = PickFile(window.get(), QString(), [&] { window->AddSource(); });
    EXPECT_EQ(answer.folder, QFileInfo(Path(scratch.File("first.wav"))).absolutePath());
    EXPECT_EQ(window->SourceCount(), 2);
}

// Under a device of two sends, two slots and 64 sources.
class ConfSmallDevice : public ContextSourceWindowTest {};

TEST_F(ConfSmallDevice, TheDeviceLimitsSourcesSendsAndRoutes)
{
    if (!std::getenv("SONOPTIC_PROFILE_DIR"))
        GTEST_SKIP() << "runs under its own OpenAL Soft configuration";
    for (int i = 0; i < 64; ++i)
        Add(("tone" + std::to_string(i) + ".wav").c_str());
    ASSERT_EQ(window->SourceCount(), 64);
    const std::string more = scratch.File("more.wav");
    engine_test::WriteFile(more, engine_test::SmallMonoWave(256));
    EXPECT_EQ(MessageOf([&] { window->AddSourceFile(QString::fromLocal8Bit(more.c_str()), "more.wav"); }),
              "Error loading sound file, 3D source not created");
    EXPECT_EQ(window->SourceCount(), 64);
    window->DeleteSource();
    window->AddSourceFile(QString::fromLocal8Bit(more.c_str()), "more.wav");
    EXPECT_EQ(window->SourceCount(), 64);

    // Two sends granted: sends 2 and 3 cannot be made. Two slots on the device: routes to 2 and 3 stay off.
    Source3D_Panel* panel = window->SourcePanel(63);
    ASSERT_NE(panel, nullptr);
    EXPECT_FALSE(FindControl(panel, res::IDC_SEND_CREATE_0 + 2)->isEnabled());
    EXPECT_FALSE(FindControl(panel, res::IDC_SEND_CREATE_0 + 3)->isEnabled());
    if (const auto why = library_premises::SlotLimitIgnored(2))
        GTEST_SKIP() << *why;
    panel->OnCreateSend(0);
    const bool expected[Source3D_Panel::kRoutes] = {true, true, true, false, false};
    for (int route = 0; route < Source3D_Panel::kRoutes; ++route)
        EXPECT_EQ(FindControl(panel, Source3D_Panel::RouteId(0, route))->isEnabled(), expected[route]) << route;
}

} // namespace
