#include "controls/CDialog.h"

CDialog::CDialog(QWidget* parent)
    : QDialog(parent)
{
}

void CDialog::showEvent(QShowEvent* event)
{
    if (!m_initialized) {
        m_initialized = true;
        OnInitDialog();
    }
    QDialog::showEvent(event);
}
