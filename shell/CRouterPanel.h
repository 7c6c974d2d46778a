#pragma once

#include "controls/CDialog.h"
#include "engine/DeviceInfo.h"

class QTreeWidget;
class QTreeWidgetItem;
class UI_EFX_Bridge;

// "Audio Device Selection": the devices with what each can do; the chosen one is handed to the
// bridge. Routes nothing, despite its name. Opening it runs the device probe.
class CRouterPanel : public CDialog {
public:
    explicit CRouterPanel(QWidget* parent = nullptr);

    UI_EFX_Bridge* m_bridge = nullptr;  // set by the caller before DoModal
    char m_deviceName[DeviceInfo::kNameSize] = {};
    QTreeWidget* m_deviceTree = nullptr;

    void FillDeviceTree(const DeviceInfo* list);
    void AddDevice(const DeviceInfo& record);

protected:
    void OnInitDialog() override;

private:
    void OnSelChanged(QTreeWidgetItem* item);
};
