// The tab strip that shows and hides its pages: what shows after adds, clicks on enabled and disabled
// tabs, the checked and forced selections, the four text colours and the hover that ends by itself.
#include "controls/CXTabCtrl.h"

#include <QCursor>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>

namespace {

class TabCtrlTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        window.setGeometry(200, 200, 500, 200);
        tabs = new CXTabCtrl(&window);
        tabs->setGeometry(0, 0, 500, 28);
        for (int i = 0; i < 3; ++i) {
            pages[i] = new QWidget(&window);
            pages[i]->resize(100, 50);
            tabs->AddTab(pages[i], QStringLiteral("Source %1").arg(i));
        }
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    std::array<bool, 3> Shown() const
    {
        return {pages[0]->isVisible(), pages[1]->isVisible(), pages[2]->isVisible()};
    }

    void ClickTab(int tab) { QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center()); }

    // Pixels of the tab's rectangle whose colour is near the given one.
    int PixelsNear(int tab, QColor colour)
    {
        const QImage image = tabs->grab(tabs->tabRect(tab)).toImage();
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                n += std::abs(c.red() - colour.red()) + std::abs(c.green() - colour.green()) +
                         std::abs(c.blue() - colour.blue()) < 60;
            }
        return n;
    }

    QWidget window;
    CXTabCtrl* tabs = nullptr;
    std::array<QWidget*, 3> pages{};
};

TEST_F(TabCtrlTest, TheFirstPageShowsAndAClickMovesToAnotherFromWhereTheStripStood)
{
    EXPECT_EQ(Shown(), (std::array<bool, 3>{true, false, false}));
    EXPECT_EQ(tabs->SelectedTab, 2); // follows the last tab added, though tab 0 shows
    EXPECT_EQ(pages[1]->pos(), QPoint(4, 28));

    ClickTab(2);
    EXPECT_EQ(tabs->SelectedTab, 0);
    EXPECT_EQ(tabs->currentIndex(), 2);
    EXPECT_EQ(Shown(), (std::array<bool, 3>{false, false, true}));
}

TEST_F(TabCtrlTest, ADisabledTabRefusesClicksAndCheckedSelectionButNotForcedOne)
{
    tabs->EnabledTabs[1] = 0;
    ClickTab(1);
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_EQ(Shown(), (std::array<bool, 3>{true, false, false}));

    EXPECT_EQ(tabs->SelectTab(1), 0);
    EXPECT_EQ(tabs->SelectTab(2), 1);
    EXPECT_EQ(Shown(), (std::array<bool, 3>{false, false, true}));
    tabs->SelectTabForced(1);
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_EQ(Shown(), (std::array<bool, 3>{false, true, false}));
    EXPECT_EQ(tabs->SelectTab(1), 1); // already selected, disabled or not

    EXPECT_THROW(tabs->IsTabEnabled(3), std::invalid_argument);
    EXPECT_THROW(tabs->IsTabEnabled(-1), std::invalid_argument);
    tabs->DeleteTab(1);
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->EnabledTabs, (std::vector<std::int32_t>{1, 1}));
}

TEST_F(TabCtrlTest, TextIsBlueWhenSelectedRedWhenDisabledAndLightBlueUnderTheMouse)
{
    tabs->SetDisabledColor(255);
    tabs->SetSelectedColor(0xFF0000);
    tabs->SetMouseOverColor(0xFF7878);
    tabs->EnabledTabs[2] = 0;
    tabs->SetTabText(0, QStringLiteral("SELECTED TAB"));
    tabs->repaint();
    const QColor blue(0, 0, 255), red(255, 0, 0), lightBlue(0x78, 0x78, 0xFF);
    EXPECT_GT(PixelsNear(0, blue), 5);
    EXPECT_EQ(PixelsNear(0, red), 0);
    EXPECT_GT(PixelsNear(2, red), 5);
    EXPECT_EQ(PixelsNear(1, lightBlue), 0);

    // The pointer over tab 1 lights it, and leaving the strip ends the hover within moments.
    QCursor::setPos(tabs->mapToGlobal(tabs->tabRect(1).center()));
    QTest::mouseMove(tabs, tabs->tabRect(1).center());
    QTest::qWait(30);
    tabs->repaint();
    EXPECT_EQ(tabs->HoverTab, 1);
    EXPECT_NE(tabs->HoverTimer(), 0);
    EXPECT_GT(PixelsNear(1, lightBlue), 5);
    QCursor::setPos(window.mapToGlobal(QPoint(250, 150)));
    QTest::qWait(60);
    EXPECT_EQ(tabs->HoverTab, -1);
    EXPECT_EQ(tabs->HoverTimer(), 0);
    EXPECT_FALSE(tabs->MouseOver);
}

// Last, as it leaves the pointer over a tab.
TEST_F(TabCtrlTest, WithoutAHoverColourMovesSetNoTimer)
{
    QTest::mouseMove(tabs, tabs->tabRect(1).center());
    EXPECT_EQ(tabs->HoverTimer(), 0);
}

} // namespace
