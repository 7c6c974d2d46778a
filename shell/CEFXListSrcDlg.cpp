#include "shell/CEFXListSrcDlg.h"

#include "controls/AfxMessageBox.h"
#include "controls/CXTabCtrl.h"
#include "controls/ControlId.h"
#include "panels/ContextListener_Panel.h"
#include "panels/Source3D_Panel.h"
#include "resources/ResourceIds.h"
#include "values/UI_EFX_Bridge.h"

#include <QAction>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// The text colours of the tabs, as Windows colours: disabled red, selected blue, hovered light blue.
constexpr std::uint32_t kDisabledColour = 255;
constexpr std::uint32_t kSelectedColour = 0xFF0000;
constexpr std::uint32_t kHoverColour = 0xFF7878;

// The content is laid out for this client height.
constexpr int kContentHeight = 600;
constexpr int kContentWidth = 656;

enum class Command { AddSource, DeleteSource, LoadFile, AutoPlay, StopAll, StartAll, PositionWindow, Suspend, Process };

struct MenuEntry {
    int menu;
    int id;
    const char* caption;
    Command command;
    bool checkable;
};

constexpr const char* kMenuTitles[] = {"Source Management", "Source Playback", "Windows", "Context"};
constexpr MenuEntry kMenu[] = {
    {0, res::ID_CS_ADD_SOURCE, "Add source... (Ctrl+A)", Command::AddSource, false},
    {0, res::ID_CS_DELETE_SOURCE, "Delete selected source", Command::DeleteSource, false},
    {0, res::ID_CS_LOAD_FILE, "Load file for selected source...", Command::LoadFile, false},
    {1, res::ID_CS_AUTOPLAY, "Auto Play source on creation", Command::AutoPlay, true},
    {1, res::ID_CS_STOP_ALL, "Stop all sources", Command::StopAll, false},
    {1, res::ID_CS_START_ALL, "Start all sources", Command::StartAll, false},
    {2, res::ID_CS_POSITION_WINDOW, "Show Source/Listener &Position Window (Ctrl+P)", Command::PositionWindow, false},
    {3, res::ID_CS_SUSPEND, "Suspend Context (Shift+S)", Command::Suspend, false},
    {3, res::ID_CS_PROCESS, "Process Context (Shift+P)", Command::Process, false},
};
static_assert(std::size(kMenu) == 9);

// The local files among the dragged URLs, in their order.
QStringList LocalFiles(const QMimeData* data)
{
    QStringList files;
    if (data && data->hasUrls())
        for (const QUrl& url : data->urls())
            if (url.isLocalFile())
                files << url.toLocalFile();
    return files;
}

} // namespace

CEFXListSrcDlg::CEFXListSrcDlg(QWidget* parent)
    : CDialog(parent)
{
    setWindowTitle(QStringLiteral("Sonoptic: Context / Source properties"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // The content keeps its 600 pixels; the viewport shows what the window's height allows, and the
    // scroll bar on its right moves the content.
    m_viewport = new QWidget(this);
    layout->addWidget(m_viewport);
    m_content = new QWidget(m_viewport);
    m_content->setFixedSize(kContentWidth, kContentHeight);
    m_scrollBar = new QScrollBar(Qt::Vertical, m_viewport);
    m_scrollBar->setSingleStep(1);
    m_scrollBar->hide();
    connect(m_scrollBar, &QScrollBar::actionTriggered, this, [this](int action) {
        switch (action) {
        case QAbstractSlider::SliderSingleStepSub: OnVScroll(LineUp, m_scrollBar->sliderPosition()); break;
        case QAbstractSlider::SliderSingleStepAdd: OnVScroll(LineDown, m_scrollBar->sliderPosition()); break;
        case QAbstractSlider::SliderMove: OnVScroll(ThumbTrack, m_scrollBar->sliderPosition()); break;
        default: OnVScroll(Other, m_scrollBar->sliderPosition()); break;
        }
    });
    m_tabs = new CXTabCtrl(m_content);
    SetControlId(m_tabs, res::IDC_CONTEXT_SOURCE_TABS);
    m_tabs->setAccessibleName(QStringLiteral("Context and sources"));
    m_tabs->setGeometry(0, 0, kContentWidth, 26);
    BuildMenuBar();
    setAcceptDrops(true);
    resize(kContentWidth + 16, kContentHeight + 24);
}

void CEFXListSrcDlg::resizeEvent(QResizeEvent* event)
{
    CDialog::resizeEvent(event);
    m_scrollBar->setGeometry(m_viewport->width() - 16, 0, 16, m_viewport->height());
    OnSize(m_viewport->height());
}

void CEFXListSrcDlg::ScrollBy(int dy)
{
    m_content->move(0, m_content->y() + dy);
}

void CEFXListSrcDlg::OnSize(int height)
{
    ScrollState& s = m_scroll;
    s.height = height;
    const int hidden = kContentHeight - height;
    if (s.offset < 0) {
        m_scrollBar->show();
        if (s.offset - height + kContentHeight > 0) {
            m_scrollBar->setRange(0, hidden);
            s.position = height;
            const int dy = s.height - s.lastHeight;
            ScrollBy(dy);
            s.offset += dy;
        } else {
            m_scrollBar->setRange(0, std::max(hidden, 0));
            m_scrollBar->setValue(m_scrollBar->maximum());
        }
    } else {
        if (hidden > 0) {
            m_scrollBar->show();
            m_scrollBar->setRange(0, hidden);
            m_scrollBar->setValue(0);
            ScrollBy(s.offset);
        } else {
            ScrollBy(s.offset);
            m_scrollBar->hide();
        }
        s.offset = 0;
        s.position = 0;
    }
    s.lastHeight = s.height;
}

void CEFXListSrcDlg::OnVScroll(int code, int position)
{
    ScrollState& s = m_scroll;
    switch (code) {
    case LineUp:
        if (s.position != 0) {
            ScrollBy(1);
            ++s.offset;
            --s.position;
        }
        break;
    case LineDown:
        if (position < s.height) {
            ScrollBy(-1);
            --s.offset;
            ++s.position;
        }
        break;
    case ThumbPosition:
    case ThumbTrack:
        ScrollBy(s.position - position);
        s.offset += s.position - position;
        s.position = position;
        break;
    default:
        break;
    }
}

CEFXListSrcDlg::~CEFXListSrcDlg()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (bridge)
        bridge->SetContextSourceDialog(nullptr);
    for (Source3D_Panel*& panel : m_sourcePanel) {
        delete panel;
        panel = nullptr;
    }
    delete m_contextPanel;
    m_contextPanel = nullptr;
}

void CEFXListSrcDlg::BuildMenuBar()
{
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu* menus[std::size(kMenuTitles)] = {};
    for (std::size_t i = 0; i < std::size(kMenuTitles); ++i)
        menus[i] = bar->addMenu(QString::fromUtf8(kMenuTitles[i]));
    for (std::size_t i = 0; i < std::size(kMenu); ++i) {
        const MenuEntry& entry = kMenu[i];
        QAction* action = menus[entry.menu]->addAction(QString::fromUtf8(entry.caption));
        action->setData(entry.id);
        action->setCheckable(entry.checkable);
        m_actions[i] = action;
        connect(action, &QAction::triggered, this, [this, command = entry.command] {
            UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
            switch (command) {
            case Command::AddSource: AddSource(); break;
            case Command::DeleteSource: DeleteSource(); break;
            case Command::LoadFile: LoadFileForSource(); break;
            case Command::AutoPlay: bridge->ToggleAutoPlay(); break;
            case Command::StopAll: bridge->StopAllSources(); break;
            case Command::StartAll: bridge->StartAllSources(); break;
            case Command::PositionWindow:
                if (ShowPositionWindow)
                    ShowPositionWindow();
                break;
            case Command::Suspend: bridge->SuspendContext(); break;
            case Command::Process: bridge->ProcessContext(); break;
            }
        });
    }
}

QAction* CEFXListSrcDlg::MenuAction(int id) const
{
    for (QAction* action : m_actions)
        if (action && action->data().toInt() == id)
            return action;
    return nullptr;
}

void CEFXListSrcDlg::OnInitDialog()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    m_tabs->SetDisabledColor(kDisabledColour);
    m_tabs->SetSelectedColor(kSelectedColour);
    m_tabs->SetMouseOverColor(kHoverColour);
    bridge->SetCallbacksEnabled(0);
    m_contextPanel = new ContextListener_Panel(m_content);
    m_contextPanel->InitDialog();
    m_tabs->AddTab(m_contextPanel, QStringLiteral("Context/Listener"));
    bridge->CreateContext();
    m_tabInfo[0] = {m_contextPanel, 0, -1};
    m_tabCount = 1;
    bridge->SetCallbacksEnabled(1);
    SetAutoPlayCheck(bridge->GetAutoPlay());
    bridge->SetContextSourceDialog(this);
    bridge->RefreshContext();
}

bool CEFXListSrcDlg::AskForFile(QString& path, QString& title)
{
    QFileDialog dialog(this, QStringLiteral("Select sound file for 3D sound source"), m_folder,
                       QStringLiteral("Sound files(*.WAV) (*.wav)"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("wav"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    path = dialog.selectedFiles().front();
    title = TakeChosenFile(path);
    return true;
}

QString CEFXListSrcDlg::TakeChosenFile(const QString& path)
{
    const QFileInfo file(path);
    m_folder = file.absolutePath();
    return file.fileName();
}

void CEFXListSrcDlg::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CEFXListSrcDlg::dragMoveEvent(QDragMoveEvent* event)
{
    if (!LocalFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CEFXListSrcDlg::dropEvent(QDropEvent* event)
{
    const QStringList files = LocalFiles(event->mimeData());
    if (files.isEmpty())
        return;
    event->acceptProposedAction();
    // The files are added once the drop has returned, so that the program that the files came from
    // is not held while a message box about an unreadable one waits for the user.
    QTimer::singleShot(0, this, [this, files] {
        // As "Add source...", nothing at all once there are 128.
        for (const QString& path : files) {
            if (m_sourceCount >= kMaxSources)
                break;
            AddSourceFile(path, TakeChosenFile(path));
        }
    });
}

void CEFXListSrcDlg::AddSource()
{
    if (m_sourceCount >= kMaxSources)
        return;
    QString path;
    QString title;
    if (AskForFile(path, title))
        AddSourceFile(path, title);
}

void CEFXListSrcDlg::AddSourceFile(const QString& path, const QString& title)
{
    if (m_sourceCount >= kMaxSources)
        return;
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    bridge->SetCallbacksEnabled(0);
    if (!bridge->CreateSource(path.toLocal8Bit().constData())) {
        AfxMessageBox(QStringLiteral("Error loading sound file, 3D source not created"));
    } else {
        const int index = m_sourceCount;
        auto* panel = new Source3D_Panel(m_content, index);
        panel->InitDialog();
        m_tabs->AddTab(panel, title);
        bridge->SetSourceName(index, title.toLocal8Bit().constData());
        bridge->SetSourceToFront(index);
        bridge->RefreshSource(index);
        panel->ShowChannelNote();
        m_sourcePanel[index] = panel;
        m_tabInfo[m_tabCount] = {panel, 1, index};
        m_tabs->SelectTabForced(m_tabCount);
        ++m_sourceCount;
        ++m_tabCount;
    }
    bridge->SetCallbacksEnabled(1);
    m_tabs->show();
}

void CEFXListSrcDlg::DeleteSource()
{
    const int tab = m_tabs->currentIndex();
    if (tab < 1 || m_tabInfo[tab].type != 1)
        return;
    const int index = m_tabInfo[tab].sourceIndex;
    m_tabs->SelectTabForced(tab - 1);
    m_tabs->DeleteTab(tab);
    delete m_sourcePanel[index];
    m_sourcePanel[index] = nullptr;
    UI_EFX_Bridge::GetInstance()->DeleteSource(index);
    for (int later = index + 1; later < m_sourceCount; ++later) {
        m_sourcePanel[later]->SetSourceIndex(later - 1);
        m_sourcePanel[later - 1] = m_sourcePanel[later];
    }
    // The record of the deleted tab stays; each one after the next takes its follower's values.
    for (int t = tab + 1; t < m_tabCount - 1; ++t) {
        m_tabInfo[t] = m_tabInfo[t + 1];
        if (m_tabInfo[t].type == 1)
            --m_tabInfo[t].sourceIndex;
    }
    --m_sourceCount;
    --m_tabCount;
    m_sourcePanel[m_sourceCount] = nullptr;
}

void CEFXListSrcDlg::LoadFileForSource()
{
    if (m_tabs->currentIndex() < 1) {
        AfxMessageBox(QStringLiteral("Please select a source panel first."));
        return;
    }
    QString path;
    QString title;
    if (AskForFile(path, title))
        LoadFileForSourceFrom(path, title);
}

void CEFXListSrcDlg::LoadFileForSourceFrom(const QString& path, const QString& title)
{
    const int tab = m_tabs->currentIndex();
    if (tab < 1)
        return;
    const int index = m_tabInfo[tab].sourceIndex;
    if (!UI_EFX_Bridge::GetInstance()->ReloadSource(index, path.toLocal8Bit().constData()))
        return;
    m_sourcePanel[index]->ShowChannelNote();
    m_tabs->SetTabText(tab, title);
    m_tabs->SelectTabForced(tab);
}

void CEFXListSrcDlg::SetAutoPlayCheck(int flag)
{
    if (QAction* action = MenuAction(res::ID_CS_AUTOPLAY))
        action->setChecked(flag != 0);
}

void CEFXListSrcDlg::OnContextValue(int value)
{
    if (m_contextPanel)
        m_contextPanel->SetContextState(value);
}
