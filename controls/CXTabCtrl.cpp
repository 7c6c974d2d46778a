#include "controls/CXTabCtrl.h"

#include "controls/ControlGraphics.h"

#include <QCursor>
#include <QDebug>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionTab>
#include <QStylePainter>

#include <stdexcept>

namespace {

// The page each tab carries, kept in the tab's data.
QWidget* PageOf(const QVariant& data)
{
    return static_cast<QWidget*>(data.value<void*>());
}

} // namespace

CXTabCtrl::CXTabCtrl(QWidget* parent)
    : QTabBar(parent)
{
    setMouseTracking(true);
    setDrawBase(false);
    setExpanding(false);
    // The user's change of tab is seen here after the strip has moved; what it left is what it showed.
    connect(this, &QTabBar::currentChanged, this, &CXTabCtrl::OnSelectionChanged);
}

CXTabCtrl::~CXTabCtrl() = default;

void CXTabCtrl::SetMouseOverColor(std::uint32_t colour)
{
    MouseOverColor = colour;
    MouseOverColorSet = true;
}

void CXTabCtrl::SetDisabledColor(std::uint32_t colour)
{
    DisabledColor = colour;
    DisabledColorSet = true;
}

void CXTabCtrl::SetSelectedColor(std::uint32_t colour)
{
    SelectedColor = colour;
    SelectedColorSet = true;
}

void CXTabCtrl::AddTab(QWidget* page, const QString& caption, int imageIndex)
{
    const int i = static_cast<int>(EnabledTabs.size());
    {
        const QSignalBlocker quiet(this);
        insertTab(i, caption);
    }
    setTabData(i, QVariant::fromValue(static_cast<void*>(page)));
    setTabToolTip(i, QString());
    if (imageIndex >= 0 && imageIndex < m_images.size())
        setTabIcon(i, QIcon(m_images[imageIndex]));
    if (page) {
        page->move(PageOffsetX, PageOffsetY);
        page->setVisible(i == 0);
    }
    EnabledTabs.push_back(1);
    SelectedTab = i;
}

void CXTabCtrl::DeleteTab(int tab)
{
    if (tab < 0 || tab >= static_cast<int>(EnabledTabs.size()))
        throw std::invalid_argument("CXTabCtrl::DeleteTab: no such tab");
    EnabledTabs.erase(EnabledTabs.begin() + tab);
    const QSignalBlocker quiet(this);
    removeTab(tab);
}

bool CXTabCtrl::IsTabEnabled(int tab) const
{
    if (tab < 0 || tab >= static_cast<int>(EnabledTabs.size()))
        throw std::invalid_argument("CXTabCtrl::IsTabEnabled: no such tab");
    return EnabledTabs[tab] != 0;
}

int CXTabCtrl::SelectTab(int tab)
{
    if (tab == currentIndex())
        return 1;
    if (!IsTabEnabled(tab))
        return 0;
    SelectTabForced(tab);
    return 1;
}

void CXTabCtrl::SelectTabForced(int tab)
{
    ShowPage(currentIndex(), false);
    SetCurrentSilently(tab);
    ShowPage(tab, true);
}

void CXTabCtrl::SetTabText(int tab, const QString& text)
{
    setTabText(tab, text);
}

QWidget* CXTabCtrl::Page(int tab) const
{
    return tab >= 0 && tab < count() ? PageOf(tabData(tab)) : nullptr;
}

void CXTabCtrl::SetCurrentSilently(int tab)
{
    const QSignalBlocker quiet(this);
    setCurrentIndex(tab);
}

void CXTabCtrl::ShowPage(int tab, bool show)
{
    if (QWidget* page = Page(tab))
        page->setVisible(show);
}

// A change by the user is about to happen: remember what it leaves.
void CXTabCtrl::OnSelectionChanging()
{
    SelectedTab = currentIndex();
    qDebug().noquote() << QString::asprintf("Newly selected tab=%d\n", SelectedTab);
}

void CXTabCtrl::OnSelectionChanged(int selection)
{
    if (selection < 0 || selection >= static_cast<int>(EnabledTabs.size()))
        return;
    if (IsTabEnabled(selection)) {
        ShowPage(SelectedTab, false);
        ShowPage(selection, true);
    } else {
        SetCurrentSilently(SelectedTab);
    }
}

void CXTabCtrl::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && tabAt(event->position().toPoint()) >= 0)
        OnSelectionChanging();
    QTabBar::mousePressEvent(event);
}

void CXTabCtrl::keyPressEvent(QKeyEvent* event)
{
    OnSelectionChanging();
    QTabBar::keyPressEvent(event);
}

void CXTabCtrl::wheelEvent(QWheelEvent* event)
{
    OnSelectionChanging();
    QTabBar::wheelEvent(event);
}

QColor CXTabCtrl::TextColour(int tab, bool selected) const
{
    const QColor normal = palette().color(QPalette::ButtonText);
    if (!EnabledTabs[tab])
        return DisabledColorSet ? WindowsColour(DisabledColor) : palette().color(QPalette::Disabled, QPalette::Text);
    if (selected)
        return SelectedColorSet ? WindowsColour(SelectedColor) : normal;
    if (MouseOverColorSet && tab == HoverTab)
        return WindowsColour(MouseOverColor);
    return NormalColorSet ? WindowsColour(NormalColor) : normal;
}

void CXTabCtrl::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    const QPoint cursor = mapFromGlobal(QCursor::pos());
    for (int tab = 0; tab < count() && tab < static_cast<int>(EnabledTabs.size()); ++tab) {
        QStyleOptionTab option;
        initStyleOption(&option, tab);
        if (tabRect(tab).contains(cursor))
            HoverTab = tab;
        const QString caption = option.text.left(kCaptionChars);
        option.text.clear();
        option.icon = QIcon();
        painter.drawControl(QStyle::CE_TabBarTabShape, option);

        QRect r = option.rect;
        const QIcon icon = tabIcon(tab);
        if (!icon.isNull()) {
            r.setLeft(r.left() + fontMetrics().horizontalAdvance(QLatin1Char(' ')));
            const QSize size = iconSize();
            icon.paint(&painter, QRect(r.topLeft() + QPoint(0, (r.height() - size.height()) / 2), size));
            r.setLeft(r.left() + size.width());
        }
        painter.setPen(TextColour(tab, tab == currentIndex()));
        painter.drawText(r, Qt::AlignCenter | Qt::TextSingleLine, caption);
    }
}

void CXTabCtrl::mouseMoveEvent(QMouseEvent* event)
{
    QTabBar::mouseMoveEvent(event);
    if (!MouseOverColorSet)
        return;
    if (!m_hoverTimer)
        m_hoverTimer = startTimer(kHoverMilliseconds);
    const QPoint point = event->position().toPoint();
    if (HoverTab >= 0 && HoverTab < count() && !tabRect(HoverTab).contains(point)) {
        const QRect left = tabRect(HoverTab);
        HoverTab = -1;
        update(left);
        return;
    }
    if (!MouseOver) {
        MouseOver = true;
        const int under = tabAt(point);
        if (under >= 0 && under < static_cast<int>(EnabledTabs.size()) && EnabledTabs[under])
            update(tabRect(under));
    }
}

void CXTabCtrl::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_hoverTimer) {
        QTabBar::timerEvent(event);
        return;
    }
    const QRect hovered = HoverTab >= 0 && HoverTab < count() ? tabRect(HoverTab) : QRect();
    if (!hovered.contains(mapFromGlobal(QCursor::pos())))
        StopHover();
}

void CXTabCtrl::StopHover()
{
    const QRect hovered = HoverTab >= 0 && HoverTab < count() ? tabRect(HoverTab) : QRect();
    killTimer(m_hoverTimer);
    m_hoverTimer = 0;
    MouseOver = false;
    HoverTab = -1;
    update(hovered);
}
