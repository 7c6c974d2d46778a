#include "shell/CSonopticApp.h"

#include "controls/AfxMessageBox.h"
#include "controls/ControlResources.h"
#include "shell/CInitializationPanel.h"
#include "shell/CRouterPanel.h"
#include "shell/CSonopticDlg.h"
#include "shell/CommandLine.h"
#include "values/UI_EFX_Bridge.h"

#include <QApplication>

#include <new>

namespace {

CSonopticApp* g_app = nullptr;

void RunDialogShortcut(CSonopticDlg& dialog, ShortcutAction action)
{
    switch (action) {
    case ShortcutAction::ShowSlot0:
    case ShortcutAction::ShowSlot1:
    case ShortcutAction::ShowSlot2:
    case ShortcutAction::ShowSlot3:
        dialog.ShowSlot(static_cast<int>(action) - static_cast<int>(ShortcutAction::ShowSlot0));
        break;
    case ShortcutAction::AddSource:
        dialog.AddSource();
        break;
    case ShortcutAction::ShowBrowser:
        dialog.ShowBrowser();
        break;
    case ShortcutAction::ShowContextWindow:
        dialog.ShowContextWindow();
        break;
    case ShortcutAction::ShowPositionWindow:
        dialog.ShowPositionWindow();
        break;
    default:
        break;
    }
}

void ShowBridgeMessage(const char* text)
{
    AfxMessageBox(QString::fromLocal8Bit(text));
}

} // namespace

CSonopticApp::CSonopticApp(std::string commandLine)
    : m_commandLine(std::move(commandLine))
{
    m_bridge = new (std::nothrow) UI_EFX_Bridge();
    m_maxSends = 0;
    m_showDeviceDialog = 1;
}

CSonopticApp::~CSonopticApp()
{
    if (m_keyboardFilter)
        qApp->removeEventFilter(m_keyboardFilter.get());
    delete m_bridge;
    if (g_app == this)
        g_app = nullptr;
}

CSonopticApp* CSonopticApp::GetApp()
{
    return g_app;
}

int CSonopticApp::InitInstance()
{
    g_app = this;
    m_keyboardFilter = std::make_unique<CKeyboardFilter>(this);
    qApp->installEventFilter(m_keyboardFilter.get());
    UI_EFX_Bridge::SetMessageBoxHandler(&ShowBridgeMessage);

    InitControlResources();

    const CommandLineChoice choice = ParseCommandLine(m_commandLine);
    m_maxSends = choice.maxSends;
    if (choice.message)
        AfxMessageBox(QString::fromUtf8(choice.message));

    if (choice.showConfiguration) {
        CInitializationPanel configuration;
        configuration.m_target = &m_maxSends;
        configuration.exec();
    }
    if (m_showDeviceDialog) {
        CRouterPanel devices;
        devices.m_bridge = m_bridge;
        devices.exec();
    }

    if (!m_bridge->InitializeEngine(3, m_engineReserved, static_cast<std::uint32_t>(m_maxSends)))
        return 0;

    // The main dialog is the program's only loop; when it closes, its windows go, and the application
    // object's destructor stops the engine.
    {
        CSonopticDlg dialog(m_bridge);
        m_dlg = &dialog;
        dialog.DoModal();
        m_dlg = nullptr;
    }
    return 0;
}

void CSonopticApp::RunShortcut(ShortcutAction action)
{
    switch (action) {
    case ShortcutAction::ProcessContext:
        m_bridge->ProcessContext();
        break;
    case ShortcutAction::SuspendContext:
        m_bridge->SuspendContext();
        break;
    default:
        if (m_dlg)
            RunDialogShortcut(*m_dlg, action);
        break;
    }
}
