#include "controls/ControlId.h"
#include "engine/EFX_Factory.h"
#include "resources/ResourceIds.h"
#include "shell/CInitializationPanel.h"
#include "shell/CRouterPanel.h"
#include "shell/DeviceLines.h"
#include "values/UI_EFX_Bridge.h"

#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

DeviceInfo MakeDevice(std::uint32_t supported, std::uint32_t emulated, bool efx)
{
    DeviceInfo device{};
    device.maxSources = 255;
    device.eaxSupported = supported;
    device.eaxEmulated = emulated;
    device.hasEFX = efx ? 1 : 0;
    return device;
}

QRadioButton* Radio(QWidget* dialog, int id)
{
    return FindControlAs<QRadioButton>(dialog, id);
}

void ClickItem(QTreeWidget* tree, QTreeWidgetItem* item)
{
    const QRect place = tree->visualItemRect(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place.center());
}

} // namespace

TEST(DeviceLines, SourcesThenEFXThenEAXThenEmulationEachOnlyWhereTheDeviceHasIt)
{
    DeviceInfo bare = MakeDevice(0, 0, false);
    bare.maxSources = 0;
    EXPECT_EQ(DeviceCapabilityLines(MakeDevice(DeviceInfo::kEAX20 | DeviceInfo::kEAX50, DeviceInfo::kEAX30, true)),
              (std::vector<std::string>{"up to 255 sources", "supports EFX", "supports EAX 2.0 5.0 ",
                                        "emulates EAX 3.0 "}));
    EXPECT_EQ(DeviceCapabilityLines(bare),
              (std::vector<std::string>{"up to 0 sources", "doesn't support any EAX version"}));
}

TEST(DeviceLines, NameIsTakenAsAFormatWithoutArguments)
{
    EXPECT_EQ(FormatWithoutArguments("Card 100%% loud"), "Card 100% loud");
    EXPECT_EQ(FormatWithoutArguments("Card %d and %-5.2f end"), "Card  and  end");
    EXPECT_EQ(FormatWithoutArguments("trailing %"), "trailing ");
    EXPECT_EQ(FormatWithoutArguments("OpenAL Soft"), "OpenAL Soft");
}

TEST(InitializationPanel, OpensOnTwoWhateverTheTargetHeldAndWritesItAtOnce)
{
    std::int32_t target = 4;
    CInitializationPanel panel;
    panel.m_target = &target;
    panel.show();
    EXPECT_EQ(panel.windowTitle(), "Context Configuration");
    EXPECT_EQ(target, 2);
    EXPECT_TRUE(Radio(&panel, res::IDC_SENDS_2)->isChecked());
    EXPECT_FALSE(Radio(&panel, res::IDC_SENDS_3)->isChecked());

    QTest::mouseClick(Radio(&panel, res::IDC_SENDS_4), Qt::LeftButton);
    EXPECT_EQ(target, 4);
    EXPECT_TRUE(Radio(&panel, res::IDC_SENDS_4)->isChecked());
    EXPECT_FALSE(Radio(&panel, res::IDC_SENDS_2)->isChecked());

    QTest::mouseClick(Radio(&panel, res::IDC_SENDS_3), Qt::LeftButton);
    EXPECT_EQ(target, 3);
    // Closing the window keeps the last click.
    panel.reject();
    EXPECT_EQ(target, 3);

    // A value that no radio stands for checks none.
    panel.m_value = 7;
    panel.UpdateRadios();
    for (int id : {res::IDC_SENDS_2, res::IDC_SENDS_3, res::IDC_SENDS_4})
        EXPECT_FALSE(Radio(&panel, id)->isChecked());
}

TEST(RouterPanel, ProbedDeviceIsListedAndACapabilityClickSelectsTheDevice)
{
    UI_EFX_Bridge bridge;
    CRouterPanel panel;
    panel.m_bridge = &bridge;
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    EXPECT_EQ(panel.windowTitle(), "Audio Device Selection");

    QTreeWidget* tree = panel.m_deviceTree;
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    QTreeWidgetItem* device = tree->topLevelItem(0);
    EXPECT_EQ(device->text(0), "OpenAL Soft");
    EXPECT_TRUE(device->isExpanded());
    ASSERT_GE(device->childCount(), 3);
    EXPECT_TRUE(device->child(0)->text(0).startsWith("up to "));
    EXPECT_EQ(device->child(1)->text(0), "supports EFX");
    EXPECT_EQ(device->child(2)->text(0), "doesn't support any EAX version");

    EXPECT_STREQ(bridge.GetDeviceName(), "");
    ClickItem(tree, device->child(1));
    EXPECT_EQ(tree->currentItem(), device);
    EXPECT_STREQ(panel.m_deviceName, "OpenAL Soft");
    EXPECT_STREQ(bridge.GetDeviceName(), "OpenAL Soft");
}

TEST(RouterPanel, EmptyDeviceListLeavesAnEmptyTreeThatStillCloses)
{
    CRouterPanel panel;
    panel.show();
    EXPECT_EQ(panel.m_deviceTree->topLevelItemCount(), 0);
    QTest::mouseClick(FindControl(&panel, res::IDOK), Qt::LeftButton);
    EXPECT_FALSE(panel.isVisible());
}
