#pragma once

#include <QColor>
#include <QTabBar>

#include <cstdint>
#include <vector>

// A tab strip that owns the showing and hiding of its pages: each tab carries a page, a child of the
// strip's parent placed at the page offset. It keeps an enabled flag for each tab, puts the old
// selection back when the user picks a disabled one, and colours each tab's text for four states:
// selected, normal, disabled, and under the mouse. Colours are Windows values, 0x00BBGGRR.
class CXTabCtrl : public QTabBar {
public:
    explicit CXTabCtrl(QWidget* parent = nullptr);
    ~CXTabCtrl() override;

    void SetMouseOverColor(std::uint32_t colour);
    void SetDisabledColor(std::uint32_t colour);
    void SetSelectedColor(std::uint32_t colour);

    // Appends a tab for page; the first page added shows, later ones are hidden. imageIndex picks an
    // image of the image list, if one is set, -1 for none.
    void AddTab(QWidget* page, const QString& caption, int imageIndex = -1);
    // Removes the tab and its flag; the page stays as it is.
    void DeleteTab(int tab);
    // Throws std::invalid_argument for an index out of range.
    bool IsTabEnabled(int tab) const;
    // 1 if the tab is now selected (also when it already was, enabled or not); 0 for a disabled tab.
    int SelectTab(int tab);
    // Hides the current page, selects the tab and shows its page, with no check.
    void SelectTabForced(int tab);
    void SetTabText(int tab, const QString& text);
    QWidget* Page(int tab) const;
    void SetImageList(const QList<QPixmap>& images) { m_images = images; }

    std::vector<std::int32_t> EnabledTabs;
    // The selection left by the latest change.
    std::int32_t SelectedTab = 0;
    std::int32_t PageOffsetX = 4;
    std::int32_t PageOffsetY = 28;
    std::uint32_t SelectedColor = 0, DisabledColor = 0, NormalColor = 0, MouseOverColor = 0;
    std::int32_t HoverTab = -1;
    bool MouseOver = false;
    bool MouseOverColorSet = false, NormalColorSet = false, DisabledColorSet = false, SelectedColorSet = false;

    // Captions are cut to this many characters where a tab is drawn.
    static constexpr int kCaptionChars = 62;
    // How often the hover checks whether the pointer has left its tab.
    static constexpr int kHoverMilliseconds = 10;
    int HoverTimer() const { return m_hoverTimer; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void OnSelectionChanging();
    void OnSelectionChanged(int selection);
    // Sets the strip's selection without telling anyone.
    void SetCurrentSilently(int tab);
    void ShowPage(int tab, bool show);
    QColor TextColour(int tab, bool selected) const;
    void StopHover();

    int m_hoverTimer = 0;
    QList<QPixmap> m_images;
};
