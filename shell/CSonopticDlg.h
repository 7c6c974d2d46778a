#pragma once

#include "controls/CDialog.h"
#include "shell/MainDialogLayout.h"
#include "values/BridgeWindows.h"

#include <QPixmap>

#include <array>

class CConsoleList;
class CEFXBrowser;
class CEFXListSrcDlg;
class CEFXSrcPosDlg;
class QAction;
class QPushButton;
class UI_EFX_Bridge;

// The main window and the program's only modal one: the slot buttons, "Create Slot", the place of the
// shown slot's panel, and the console of every engine message. Owns the slot panels and the modeless
// windows, which are made on first demand.
class CSonopticDlg : public CDialog, public BridgeMainDialog {
public:
    explicit CSonopticDlg(UI_EFX_Bridge* bridge, QWidget* parent = nullptr);
    // Destroys the slot panels first, then the modeless windows, the preset browser last.
    ~CSonopticDlg() override;

    void ShowSlot(int index);
    void OnCreateSlot();
    void ShowContextWindow();
    void AddSource();
    void ShowPositionWindow();
    void ShowBrowser();
    // The shown slot's effect as C code, on the clipboard or in a file the user names.
    void CopySlotCode();
    void SaveSlotCode();
    // The scene rendered offline into a WAV file that the user names.
    void RenderToWave();
    int ShownSlot() const { return m_shownSlot; }
    void RedrawPositionWindow();
    void SetAutoPlayCheck(int flag) override;
    // The About box; what the system menu's entry 16 does.
    void OnSysCommand(int id);

    CConsoleList* Console() const { return m_console; }
    CEFXListSrcDlg* ContextWindow() const { return m_contextWindow; }
    CEFXSrcPosDlg* PositionWindow() const { return m_positionWindow; }
    CEFXBrowser* Browser() const { return m_browser; }
    QAction* MenuAction(int id) const;

protected:
    void OnInitDialog() override;
    // Return and Escape do nothing: the dialog closes only through its close box.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildMenuBar();
    void RunCommand(main_dialog::MainCommand command);
    void SetSlotImage(int slot, bool selected);
    int NumEffectSlots() const;

    UI_EFX_Bridge* m_bridge;
    CConsoleList* m_console = nullptr;
    std::array<QPixmap, 4> m_slotBitmap;
    std::array<QPixmap, 4> m_slotBitmapSelected;
    std::array<QPushButton*, 4> m_slotButton{};
    // The slot panels, by slot number, null until made.
    std::array<QWidget*, 4> m_slotPanel{};
    CEFXListSrcDlg* m_contextWindow = nullptr;
    CEFXSrcPosDlg* m_positionWindow = nullptr;
    CEFXBrowser* m_browser = nullptr;
    QWidget* m_client = nullptr;
    int m_shownSlot = 0;
    std::array<QAction*, std::size(main_dialog::kMenu)> m_actions{};
};
