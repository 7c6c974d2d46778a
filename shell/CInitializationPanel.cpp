#include "shell/CInitializationPanel.h"

#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "resources/ResourceIds.h"

#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr ControlTemplate kTemplate[] = {
    {res::IDOK, ControlKind::DefaultButton, "Proceed", {262, 176, 90, 28}},
    {0, ControlKind::GroupBox, "\"Number of Sends\" hint", {10, 8, 342, 160}},
    {0, ControlKind::Static,
     "Select the maximum number of active source sends to be passed as a \"hint\" during the OpenAL context "
     "creation:",
     {22, 30, 318, 36}},
    {res::IDC_SENDS_2, ControlKind::RadioButton, "2", {40, 72, 60, 22}},
    {res::IDC_SENDS_3, ControlKind::RadioButton, "3", {140, 72, 60, 22}},
    {res::IDC_SENDS_4, ControlKind::RadioButton, "4", {240, 72, 60, 22}},
    {0, ControlKind::Static,
     "Note: the actual number of usable source sends may vary depending on the selected OpenAL device.",
     {22, 110, 318, 44}},
};

struct SendsRadio {
    int id;
    std::int32_t sends;
};

constexpr SendsRadio kRadios[] = {
    {res::IDC_SENDS_2, 2},
    {res::IDC_SENDS_3, 3},
    {res::IDC_SENDS_4, 4},
};

} // namespace

CInitializationPanel::CInitializationPanel(QWidget* parent)
    : CDialog(parent)
{
    BuildDialog(this, "Context Configuration", {362, 214}, kTemplate);
    connect(FindControlAs<QPushButton>(this, res::IDOK), &QPushButton::clicked, this, &QDialog::accept);
    for (const SendsRadio& radio : kRadios) {
        const std::int32_t sends = radio.sends;
        connect(FindControlAs<QRadioButton>(this, radio.id), &QRadioButton::clicked, this,
                [this, sends] { OnSendsClicked(sends); });
    }
}

void CInitializationPanel::OnInitDialog()
{
    UpdateRadios();
    if (m_target)
        *m_target = m_value;
}

void CInitializationPanel::UpdateRadios()
{
    for (const SendsRadio& radio : kRadios)
        FindControlAs<QRadioButton>(this, radio.id)->setChecked(false);
    for (const SendsRadio& radio : kRadios) {
        if (radio.sends == m_value)
            FindControlAs<QRadioButton>(this, radio.id)->setChecked(true);
    }
}

void CInitializationPanel::OnSendsClicked(std::int32_t sends)
{
    m_value = sends;
    if (m_target)
        *m_target = sends;
    UpdateRadios();
}
