#pragma once

#include "controls/CDialog.h"

#include <cstdint>

// "Context Configuration": the number of sends per source to ask of the context. The choice is
// written through m_target at each click, so closing the window keeps the last click.
class CInitializationPanel : public CDialog {
public:
    explicit CInitializationPanel(QWidget* parent = nullptr);

    std::int32_t m_value = 2;
    std::int32_t* m_target = nullptr; // set by the caller before DoModal

    void UpdateRadios();

protected:
    void OnInitDialog() override;

private:
    void OnSendsClicked(std::int32_t sends);
};
