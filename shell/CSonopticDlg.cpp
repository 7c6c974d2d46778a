#include "shell/CSonopticDlg.h"

#include "controls/AfxMessageBox.h"
#include "controls/BitmapResource.h"
#include "controls/ControlId.h"
#include "engine/EFX_Factory.h"
#include "engine/SceneSnapshot.h"
#include "panels/FXS_Panel.h"
#include "positionview/CEFXSrcPosDlg.h"
#include "presets/CEFXBrowser.h"
#include "presets/EffectCode.h"
#include "shell/CAboutDlg.h"
#include "shell/CConsoleList.h"
#include "shell/CEFXListSrcDlg.h"
#include "shell/CRenderDialog.h"
#include "values/UI_EFX_Bridge.h"

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>

using main_dialog::MainCommand;

namespace {

// A slot panel that is not shown is parked out of sight, alive and visible.
constexpr QPoint kParkingPlace{-1000, -1000};

// The failure value of the bridge's CreateSlot: all bits set.
constexpr std::uint32_t kSlotCreationFailed = ~std::uint32_t{0};

} // namespace

CSonopticDlg::CSonopticDlg(UI_EFX_Bridge* bridge, QWidget* parent)
    : CDialog(parent)
    , m_bridge(bridge)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_client = new QWidget(this);
    m_client->setFixedSize(main_dialog::kClientSize);
    layout->addWidget(m_client);
    BuildControls(m_client, main_dialog::kControls);
    BuildMenuBar();

    // The list box of the template becomes the console.
    QWidget* placeholder = FindControl(m_client, res::IDC_CONSOLE);
    m_console = new CConsoleList(m_client);
    m_console->setGeometry(placeholder->geometry());
    SetControlId(m_console, res::IDC_CONSOLE);
    delete placeholder;

    FindControl(m_client, res::IDC_SLOT_PANEL_MARKER)->hide();
    FindControl(m_client, res::IDOK)->hide();
    connect(FindControlAs<QPushButton>(m_client, res::IDC_CREATE_SLOT), &QPushButton::clicked, this,
            &CSonopticDlg::OnCreateSlot);
    for (int slot = 0; slot < 4; ++slot) {
        m_slotButton[slot] = FindControlAs<QPushButton>(m_client, res::IDC_SLOT_BUTTON_0 + slot);
        // The buttons show a bitmap and no text: a screen reader needs their name.
        m_slotButton[slot]->setAccessibleName(QStringLiteral("Slot %1").arg(slot));
        connect(m_slotButton[slot], &QPushButton::clicked, this, [this, slot] { ShowSlot(slot); });
    }
    setWindowIcon(LoadBitmapResource(res::IDR_MAINFRAME));
}

CSonopticDlg::~CSonopticDlg()
{
    for (QWidget*& panel : m_slotPanel) {
        delete panel;
        panel = nullptr;
    }
    delete m_contextWindow;
    m_contextWindow = nullptr;
    delete m_positionWindow;
    m_positionWindow = nullptr;
    delete m_browser;
    m_browser = nullptr;
    if (m_bridge) {
        m_bridge->SetLogList(nullptr);
        m_bridge->SetMainDialog(nullptr);
    }
}

void CSonopticDlg::BuildMenuBar()
{
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu* menus[std::size(main_dialog::kMenuTitles)] = {};
    for (std::size_t i = 0; i < std::size(main_dialog::kMenuTitles); ++i)
        menus[i] = bar->addMenu(QString::fromUtf8(main_dialog::kMenuTitles[i]));
    for (std::size_t i = 0; i < std::size(main_dialog::kMenu); ++i) {
        const main_dialog::MenuEntry& entry = main_dialog::kMenu[i];
        QAction* action = menus[entry.menu]->addAction(QString::fromUtf8(entry.caption));
        action->setData(entry.id);
        action->setCheckable(entry.checkable);
        const MainCommand command = entry.command;
        connect(action, &QAction::triggered, this, [this, command] { RunCommand(command); });
        m_actions[i] = action;
    }
}

QAction* CSonopticDlg::MenuAction(int id) const
{
    for (QAction* action : m_actions) {
        if (action->data().toInt() == id)
            return action;
    }
    return nullptr;
}

void CSonopticDlg::RunCommand(MainCommand command)
{
    switch (command) {
    case MainCommand::ShowSlot0:
    case MainCommand::ShowSlot1:
    case MainCommand::ShowSlot2:
    case MainCommand::ShowSlot3:
        ShowSlot(static_cast<int>(command) - static_cast<int>(MainCommand::ShowSlot0));
        break;
    case MainCommand::ShowBrowser:
        ShowBrowser();
        break;
    case MainCommand::CopySlotCode:
        CopySlotCode();
        break;
    case MainCommand::SaveSlotCode:
        SaveSlotCode();
        break;
    case MainCommand::ShowContextWindow:
        ShowContextWindow();
        break;
    case MainCommand::ToggleAutoPlay:
        m_bridge->ToggleAutoPlay();
        break;
    case MainCommand::AddSource:
        AddSource();
        break;
    case MainCommand::ShowPositionWindow:
        ShowPositionWindow();
        break;
    case MainCommand::SuspendContext:
        m_bridge->SuspendContext();
        break;
    case MainCommand::ProcessContext:
        m_bridge->ProcessContext();
        break;
    case MainCommand::RenderToWave:
        RenderToWave();
        break;
    case MainCommand::About:
        OnSysCommand(res::IDM_ABOUTBOX);
        break;
    }
}

int CSonopticDlg::NumEffectSlots() const
{
    EFX_Factory* factory = m_bridge->GetFactory();
    return factory ? static_cast<int>(factory->GetNumEffectSlots()) : 0;
}

void CSonopticDlg::OnInitDialog()
{
    // The About entry stands in the dialog's own menu; there is no system menu to append it to.
    for (int slot = 0; slot < 4; ++slot) {
        m_slotBitmap[slot] = LoadBitmapResource(res::IDB_SLOT_0 + slot);
        m_slotBitmapSelected[slot] = LoadBitmapResource(res::IDB_SLOT_0_SELECTED + slot);
        m_slotButton[slot]->setIconSize(main_dialog::kSlotBitmapSize);
        SetSlotImage(slot, false);
        m_slotButton[slot]->setEnabled(false);
    }
    m_bridge->SetLogList(m_console);

    m_bridge->SetCallbacksEnabled(0);
    for (int slot = 0; slot < NumEffectSlots(); ++slot) {
        m_slotPanel[slot] = nullptr;
        m_bridge->SetSlotPanel(slot, nullptr);
        m_slotButton[slot]->setEnabled(false);
    }
    ShowSlot(0);
    m_bridge->SetCallbacksEnabled(1);

    const std::string title = std::string("Sonoptic (OpenAL 1.1 / EFX 1.0)") + " with " +
                              std::to_string(m_bridge->GetMaxSends()) + " sends per source" + ", on " +
                              m_bridge->GetDeviceName();
    setWindowTitle(QString::fromLocal8Bit(title.c_str()));
    SetAutoPlayCheck(m_bridge->GetAutoPlay());
    m_bridge->SetMainDialog(this);
}

void CSonopticDlg::SetSlotImage(int slot, bool selected)
{
    m_slotButton[slot]->setText(QString());
    m_slotButton[slot]->setIcon(selected ? m_slotBitmapSelected[slot] : m_slotBitmap[slot]);
    m_slotButton[slot]->setProperty("selectedImage", selected);
}

void CSonopticDlg::ShowSlot(int index)
{
    if (index < 0 || index > 3)
        return;
    for (int slot = 0; slot < NumEffectSlots(); ++slot) {
        SetSlotImage(slot, false);
        if (m_slotPanel[slot]) {
            m_slotPanel[slot]->move(kParkingPlace);
            m_slotPanel[slot]->show();
        }
    }
    SetSlotImage(index, true);
    m_shownSlot = index;
    if (QWidget* panel = m_slotPanel[index]) {
        panel->move(FindControl(m_client, res::IDC_SLOT_PANEL_MARKER)->geometry().topLeft());
        panel->show();
        m_bridge->RefreshSlotPanel(index);
    }
}

void CSonopticDlg::OnCreateSlot()
{
    const std::uint32_t slot = m_bridge->CreateSlot();
    if (slot == kSlotCreationFailed) {
        AfxMessageBox(QStringLiteral("Slot creation failed, see console"));
        return;
    }
    // The panel is made with callbacks off, so that its first values never reach the engine.
    m_bridge->SetCallbacksEnabled(0);
    auto* panel = new FXS_Panel(m_client);
    panel->SetSlot(static_cast<int>(slot));
    panel->InitDialog();
    panel->move(kParkingPlace);
    panel->show();
    m_slotPanel[slot] = panel;
    m_bridge->SetSlotPanel(static_cast<int>(slot), panel);
    m_slotButton[slot]->setEnabled(true);
    m_bridge->SetCallbacksEnabled(1);
    ShowSlot(static_cast<int>(slot));
}

void CSonopticDlg::ShowContextWindow()
{
    // Made at the first need; its opening makes the OpenAL context object. Closing it only hides it.
    if (!m_contextWindow) {
        m_contextWindow = new CEFXListSrcDlg(this);
        m_contextWindow->ShowPositionWindow = [this] { ShowPositionWindow(); };
        m_contextWindow->InitDialog();
    }
    m_contextWindow->show();
}

void CSonopticDlg::AddSource()
{
    ShowContextWindow();
    m_contextWindow->AddSource();
}

// The one position window, made at the first need with no parent: it stands beside the main window
// rather than over it. Its close box hides it.
void CSonopticDlg::ShowPositionWindow()
{
    if (!m_positionWindow) {
        m_positionWindow = new CEFXSrcPosDlg(nullptr);
        m_positionWindow->InitDialog();
    }
    m_positionWindow->show();
    m_positionWindow->raise();
}

// The one preset browser, made at the first need with no parent, like the position window. It lives
// until the program ends; its close box hides it with its document.
void CSonopticDlg::ShowBrowser()
{
    if (!m_browser) {
        m_browser = new CEFXBrowser(nullptr);
        m_browser->InitDialog();
    }
    m_browser->show();
    m_browser->raise();
}

void CSonopticDlg::CopySlotCode()
{
    EFX_Factory* factory = m_bridge->GetFactory();
    const std::string code = factory ? SlotEffectCode(*factory, m_shownSlot) : std::string();
    if (code.empty()) {
        AfxMessageBox(QStringLiteral("Slot %1 has not been created").arg(m_shownSlot));
        return;
    }
    QGuiApplication::clipboard()->setText(QString::fromStdString(code));
}

void CSonopticDlg::SaveSlotCode()
{
    EFX_Factory* factory = m_bridge->GetFactory();
    const std::string code = factory ? SlotEffectCode(*factory, m_shownSlot) : std::string();
    if (code.empty()) {
        AfxMessageBox(QStringLiteral("Slot %1 has not been created").arg(m_shownSlot));
        return;
    }
    QFileDialog dialog(this, QStringLiteral("Save As"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({QStringLiteral("C Header Files (*.h)"), QStringLiteral("All Files (*)")});
    dialog.setDefaultSuffix(QStringLiteral("h"));
    dialog.selectFile(QStringLiteral("slot%1_effect").arg(m_shownSlot));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    QFile file(dialog.selectedFiles().first());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(code.data(), static_cast<qint64>(code.size())) != static_cast<qint64>(code.size()) ||
        !file.flush()) {
        AfxMessageBox(QStringLiteral("Error opening file for saving"));
        return;
    }
}

void CSonopticDlg::RenderToWave()
{
    EFX_Factory* factory = m_bridge->GetFactory();
    if (!factory)
        return;
    QFileDialog files(this, QStringLiteral("Render to WAV"));
    files.setOption(QFileDialog::DontUseNativeDialog);
    files.setAcceptMode(QFileDialog::AcceptSave);
    files.setNameFilters({QStringLiteral("WAV Files (*.wav)"), QStringLiteral("All Files (*)")});
    files.setDefaultSuffix(QStringLiteral("wav"));
    files.selectFile(QStringLiteral("render"));
    if (files.exec() != QDialog::Accepted || files.selectedFiles().isEmpty())
        return;
    CRenderDialog ask(this);
    if (ask.exec() != QDialog::Accepted)
        return;
    // Every source plays from its start; the scene is read now, from the live engine.
    std::vector<EFX_3DSource*> sources;
    for (int i = 0; i < m_bridge->GetSourceCount(); ++i)
        sources.push_back(m_bridge->GetSource(i));
    RenderSceneWithProgress(this, CaptureScene(*factory, sources), ask.Options(), files.selectedFiles().first());
}

void CSonopticDlg::RedrawPositionWindow()
{
    if (m_positionWindow)
        m_positionWindow->Redraw();
}

void CSonopticDlg::SetAutoPlayCheck(int flag)
{
    if (QAction* action = MenuAction(res::ID_AUTOPLAY))
        action->setChecked(flag != 0);
}

void CSonopticDlg::OnSysCommand(int id)
{
    if ((id & ~0xF) == res::IDM_ABOUTBOX) {
        CAboutDlg about(this);
        about.DoModal();
    }
}

void CSonopticDlg::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        event->accept();
        return;
    default:
        CDialog::keyPressEvent(event);
    }
}
