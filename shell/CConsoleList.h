#pragma once

#include "values/LogConsole.h"

#include <QListWidget>

// The console of the main dialog: the list that collects every message of the engine.
class CConsoleList : public QListWidget, public LogConsole {
public:
    explicit CConsoleList(QWidget* parent = nullptr);

    void AddString(const char* text) override;
    int GetCount() const override;
    void SetTopIndex(int index) override;
};
