#include "controls/CDialog.h"

CDialog::CDialog(QWidget* parent)
    : QDialog(parent)
{
}

void CDialog::InitDialog()
{
    if (!m_initialized) {
        m_initialized = true;
        OnInitDialog();
    }
}

void CDialog::showEvent(QShowEvent* event)
{
    InitDialog();
    QDialog::showEvent(event);
}
