#pragma once

#include "controls/CDialog.h"

// The About box: the icon, the version line and an OK button.
class CAboutDlg : public CDialog {
public:
    explicit CAboutDlg(QWidget* parent = nullptr);
};
