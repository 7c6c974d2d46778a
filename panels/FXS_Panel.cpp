#include "panels/FXS_Panel.h"

#include "controls/AfxMessageBox.h"
#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "panels/EffectPanels.h"
#include "resources/ResourceIds.h"
#include "reverbview/FXPanner.h"
#include "values/BridgeTables.h"
#include "values/UI_EFX_Bridge.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace {

constexpr int kEAXReverb = 1;
constexpr int kReverb = 2;

// Template 142: the slot's own column; the effect's panel goes to its right, the panner under it.
const ControlTemplate kTemplate[] = {
    {res::IDC_SLOT_BOX, ControlKind::GroupBox, "EFX Auxiliary FX Slot", QRect(0, 0, 184, 238)},
    {0, ControlKind::Caption, "Volume", QRect(62, 22, 60, 16)},
    {res::IDC_SLOT_VOLUME, ControlKind::Static, "Volume", QRect(75, 40, 34, 25)},
    {res::IDC_SEND_AUTO, ControlKind::CheckBox, "Send Auto", QRect(12, 96, 160, 22)},
    {res::IDC_EFFECT_LIST_LABEL, ControlKind::Static, "Select effect type to load:", QRect(12, 132, 164, 16)},
    {res::IDC_EFFECT_LIST, ControlKind::ComboBox, "", QRect(12, 150, 160, 26)},
    {res::IDC_LOAD_EFFECT, ControlKind::Button, "Load", QRect(12, 186, 80, 28)},
};

constexpr QSize kSize(628 - 4, 568 - 4);

} // namespace

FXS_Panel::FXS_Panel(QWidget* parent)
    : CPanPotPanel(res::IDD_SLOT_PANEL, parent),
      VolumeKnob(std::make_unique<CPot>()),
      VolumeDisplay(std::make_unique<CFloatDecimalDisplay>(2))
{
    if (parent)
        setWindowFlags(Qt::Widget);
    BuildDialog(this, "", kSize, kTemplate);
    EffectList = FindControlAs<QComboBox>(this, res::IDC_EFFECT_LIST);
    EffectList->setAccessibleName(QStringLiteral("Select effect type to load:"));
}

FXS_Panel::~FXS_Panel()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (bridge && Slot >= 0)
        bridge->SetSlotPanel(Slot, nullptr);
    VolumeKnob.reset();
    VolumeDisplay.reset();
    RemoveChild();
    RemovePanner();
}

void FXS_Panel::SetSlot(int n)
{
    Slot = n < 4 ? n : -1;
}

void FXS_Panel::OnInitDialog()
{
    FindControl(this, res::IDC_SLOT_BOX)->setFont(BoldTitleFont());
    if (Slot >= 0) {
        const auto index = static_cast<std::uint16_t>(Slot);
        BindFloatKnob(BridgeTables().SlotGainValues[Slot], VolumeKnob.get(), &VolumeConverter, VolumeDisplay.get(),
                      res::IDC_SLOT_VOLUME, 0.0f, 1.0f, 0.77f, 0.1f, 4, index, 0, 65535, 3);
        auto* sendAuto = FindControlAs<QCheckBox>(this, res::IDC_SEND_AUTO);
        m_sendAuto.SetButton(sendAuto);
        BridgeTables().SlotFlags[Slot][1]->Bind(&m_sendAuto, 4, index, 1);
        connect(sendAuto, &QCheckBox::clicked, this, &FXS_Panel::OnSendAuto);
    }
    for (int type = 0; type < kEffectTypes; ++type)
        EffectList->addItem(QString::fromLatin1(EffectListText(type)));
    EffectList->setCurrentIndex(0);
    connect(FindControlAs<QPushButton>(this, res::IDC_LOAD_EFFECT), &QPushButton::clicked, this, &FXS_Panel::OnLoad);
}

void FXS_Panel::OnSendAuto()
{
    if (Slot >= 0)
        BridgeTables().SlotFlags[Slot][1]->OnUserToggled(
            FindControlAs<QCheckBox>(this, res::IDC_SEND_AUTO)->isChecked() ? 1 : 0);
}

void FXS_Panel::OnLoad()
{
    if (!UI_EFX_Bridge::GetInstance()->LoadSlotEffect(Slot, EffectList->currentIndex()))
        AfxMessageBox(QStringLiteral("Error loading effect, see console"));
    Reload();
}

int FXS_Panel::Reload()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    bridge->RefreshSlot(Slot);
    int type = 0;
    if (!bridge->GetSlotEffect(Slot, &type)) {
        LoadedType = 0;
        return 0;
    }
    if (type != LoadedType || !EffectPanel) {
        RemoveChild();
        bridge->SetCallbacksEnabled(0);
        if (type == 0) {
            RemovePanner();
        } else if ((EffectPanel = MakeEffectPanel(type, this, Slot))) {
            EffectPanel->InitDialog();
            EffectPanel->show();
            // A reverb loaded after an EAX reverb keeps the panner until the next reload.
            if (type == kEAXReverb)
                ShowPanner();
            else if (type != kReverb)
                RemovePanner();
            PlaceChild();
            if (!bridge->RefreshEffectValues(Slot, type)) {
                RemoveChild();
                RemovePanner();
            }
        }
        bridge->SetCallbacksEnabled(1);
    } else {
        bridge->RefreshEffectValues(Slot, type);
        if (type == kEAXReverb)
            ShowPanner();
        else
            RemovePanner();
        PlaceChild();
    }
    LoadedType = type;
    return type;
}

void FXS_Panel::PlaceChild()
{
    if (!EffectPanel)
        return;
    EffectPanel->move(FindControl(this, res::IDC_SLOT_BOX)->width() + 10, 0);
    EffectPanel->show();
}

void FXS_Panel::RemoveChild()
{
    delete EffectPanel;
    EffectPanel = nullptr;
}

void FXS_Panel::ShowPanner()
{
    if (!ReverbPanner) {
        ReverbPanner = new FXPanner(Slot, this);
        ReverbPanner->InitDialog();
    }
    ReverbPanner->move(kPannerPlace);
    ReverbPanner->show();
    ReverbPanner->raise();
    ReverbPanner->Redraw();
}

void FXS_Panel::RemovePanner()
{
    delete ReverbPanner;
    ReverbPanner = nullptr;
}
