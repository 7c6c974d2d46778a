#include "shell/CRouterPanel.h"

#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "resources/ResourceIds.h"
#include "shell/DeviceLines.h"
#include "values/UI_EFX_Bridge.h"

#include <QPushButton>
#include <QTreeWidget>

#include <cstring>

namespace {

constexpr ControlTemplate kTemplate[] = {
    {res::IDOK, ControlKind::DefaultButton, "Use selected device", {262, 300, 150, 28}},
    {0, ControlKind::Static, "Audio devices found on this system:", {10, 10, 402, 20}},
    {res::IDC_DEVICE_TREE, ControlKind::TreeView, nullptr, {10, 34, 402, 256}},
};

} // namespace

CRouterPanel::CRouterPanel(QWidget* parent)
    : CDialog(parent)
{
    BuildDialog(this, "Audio Device Selection", {422, 338}, kTemplate);
    connect(FindControlAs<QPushButton>(this, res::IDOK), &QPushButton::clicked, this, &QDialog::accept);
}

void CRouterPanel::OnInitDialog()
{
    m_deviceTree = FindControlAs<QTreeWidget>(this, res::IDC_DEVICE_TREE);
    connect(m_deviceTree, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* current, QTreeWidgetItem*) { OnSelChanged(current); });
    FillDeviceTree(m_bridge ? m_bridge->GetDeviceList() : nullptr);
}

void CRouterPanel::FillDeviceTree(const DeviceInfo* list)
{
    m_deviceTree->clear();
    for (const DeviceInfo* record = list; record; record = record->next)
        AddDevice(*record);
}

void CRouterPanel::AddDevice(const DeviceInfo& record)
{
    auto* root = new QTreeWidgetItem(m_deviceTree, {QString::fromLocal8Bit(record.name)});
    for (const std::string& line : DeviceCapabilityLines(record))
        new QTreeWidgetItem(root, {QString::fromStdString(line)});
    root->setExpanded(true);
}

void CRouterPanel::OnSelChanged(QTreeWidgetItem* item)
{
    if (!item)
        return;
    // A click on a capability line selects its device: the device's item always ends up selected.
    if (item->childCount() == 0 && item->parent())
        m_deviceTree->setCurrentItem(item->parent());

    const QTreeWidgetItem* selected = m_deviceTree->currentItem();
    const std::string name = FormatWithoutArguments(selected->text(0).toLocal8Bit().toStdString());
    m_deviceName[0] = '\0';
    std::strncat(m_deviceName, name.c_str(), sizeof m_deviceName - 1);
    if (m_bridge)
        m_bridge->SelectDevice(m_deviceName);
}
