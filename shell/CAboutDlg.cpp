#include "shell/CAboutDlg.h"

#include "controls/BitmapResource.h"
#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "resources/ResourceIds.h"

#include <QLabel>
#include <QPushButton>

namespace {

constexpr ControlTemplate kTemplate[] = {
    {res::IDR_MAINFRAME, ControlKind::Static, nullptr, {16, 16, 32, 32}},
    {0, ControlKind::Static, "Sonoptic Version 1.0", {64, 14, 260, 18}},
    {0, ControlKind::Static, "A workbench for the OpenAL 1.1 Effects Extension.", {64, 36, 260, 18}},
    {res::IDOK, ControlKind::DefaultButton, "OK", {250, 66, 74, 26}},
};

} // namespace

CAboutDlg::CAboutDlg(QWidget* parent)
    : CDialog(parent)
{
    BuildDialog(this, "About Sonoptic", {340, 104}, kTemplate);
    FindControlAs<QLabel>(this, res::IDR_MAINFRAME)->setPixmap(LoadBitmapResource(res::IDR_MAINFRAME));
    connect(FindControlAs<QPushButton>(this, res::IDOK), &QPushButton::clicked, this, &QDialog::accept);
}
