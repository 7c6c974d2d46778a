#pragma once

#include "controls/CDialog.h"
#include "values/BridgeWindows.h"

#include <QString>

#include <array>
#include <functional>
#include <cstdint>

class CXTabCtrl;
class ContextListener_Panel;
class QAction;
class QScrollBar;
class Source3D_Panel;

// The window that gathers the listener and every source: one tab for the context and listener, then
// one tab a source, captioned with its file's name. Its opening brings the OpenAL context object into
// being. It has no OK or Cancel; closing it hides it, and it lives until the main dialog goes.
class CEFXListSrcDlg : public CDialog, public BridgeContextSourceDialog {
public:
    static constexpr int kMaxSources = 128;

    // What the menu's "Show Source/Listener Position Window" runs: the main window's own command, so
    // that both menus and Ctrl+P show the one window.
    std::function<void()> ShowPositionWindow;

    explicit CEFXListSrcDlg(QWidget* parent);
    ~CEFXListSrcDlg() override;

    // Asks for a WAV file and adds its source; nothing once there are 128.
    void AddSource();
    // What AddSource does once the file is chosen: title is the tab's caption.
    void AddSourceFile(const QString& path, const QString& title);
    // Deletes the source of the selected tab; nothing on the context tab.
    void DeleteSource();
    // Asks for a WAV file for the source of the selected tab.
    void LoadFileForSource();
    void LoadFileForSourceFrom(const QString& path, const QString& title);

    void SetAutoPlayCheck(int flag) override;
    void OnContextValue(int value) override;

    CXTabCtrl* Tabs() const { return m_tabs; }
    ContextListener_Panel* ContextPanel() const { return m_contextPanel; }
    Source3D_Panel* SourcePanel(int index) const { return index >= 0 && index < kMaxSources ? m_sourcePanel[index] : nullptr; }
    int SourceCount() const { return m_sourceCount; }
    QAction* MenuAction(int id) const;
    QScrollBar* ScrollBar() const { return m_scrollBar; }
    // The content's shift up, 0 or negative, in pixels.
    int ContentOffset() const { return m_scroll.offset; }

    // The window's scrolling, for a client height below the content's 600 pixels.
    void OnSize(int height);
    void OnVScroll(int code, int position);
    enum ScrollCode { LineUp, LineDown, ThumbPosition, ThumbTrack, Other };

    struct TabInfo {
        QWidget* panel = nullptr;
        std::int32_t type = 0; // 0 the context panel, 1 a source panel
        std::int32_t sourceIndex = -1;
    };

protected:
    void OnInitDialog() override;
    void resizeEvent(QResizeEvent* event) override;
    // Files dropped on the window become sources as if each was picked in "Add source...": one
    // source a file, in their order, while there is room. Only local files are taken.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenuBar();
    // The file the user picks, with its name alone; false on cancel.
    bool AskForFile(QString& path, QString& title);
    // A chosen file's name alone, the file dialog's folder moved to the file's.
    QString TakeChosenFile(const QString& path);

    CXTabCtrl* m_tabs = nullptr;
    QWidget* m_content = nullptr;
    ContextListener_Panel* m_contextPanel = nullptr;
    std::array<Source3D_Panel*, kMaxSources> m_sourcePanel{};
    std::array<TabInfo, kMaxSources + 1> m_tabInfo{};
    std::int32_t m_sourceCount = 0;
    std::int32_t m_tabCount = 0;
    QString m_folder; // the file dialog's folder, kept between calls
    struct ScrollState {
        int offset = 0;
        int position = 0;
        int lastHeight = 600;
        int height = 600;
    } m_scroll;
    QWidget* m_viewport = nullptr;
    QScrollBar* m_scrollBar = nullptr;
    void ScrollBy(int dy);
    std::array<QAction*, 9> m_actions{};
};
