#pragma once

#include "controls/ValueWidgets.h"
#include "panels/CPanPotPanel.h"

#include <array>
#include <cstdint>
#include <memory>

class CConvertNumericToLinearRange;
class CDecimalDisplay;
class CPot;
class QLabel;

// All the properties of one 3D source on one tab: 30 float knobs and 2 long ones, playback, the
// flags, the four aux sends with their creation and routing into the slots, and a legend of what the
// knob colours mean. Every value belongs to the bridge; the panel owns only its controls.
class Source3D_Panel : public CPanPotPanel {
public:
    static constexpr int kFloatKnobs = 30;
    static constexpr int kKnobs = 32;
    static constexpr int kSends = 4;
    static constexpr int kRoutes = 5; // "disabled", then slots 0 to 3

    Source3D_Panel(QWidget* parent, int sourceIndex);
    ~Source3D_Panel() override;

    // The source's number changed when a lower one was deleted.
    void SetSourceIndex(int n) { SourceIndex = n; }

    void OnPlay();
    void OnStop();
    void OnSetToFront();
    void OnDefaults();
    void OnCreateSend(int send);
    void OnDeleteSend(int send);

    CPot& Knob(int row) { return *Knobs[row]; }
    // Shows the note under the controls when the source's buffer is not mono (OpenAL plays such a
    // buffer as it is, without 3D placement) and hides it for a mono one. Run after every load.
    void ShowChannelNote();
    QLabel* ChannelNote() const { return m_channelNote; }
    // The routing radio of a send: 0 is "disabled", 1 to 4 the slots 0 to 3.
    static int RouteId(int send, int route);

    std::int32_t SourceIndex;
    std::array<std::unique_ptr<CPot>, kKnobs> Knobs;
    std::array<std::unique_ptr<CConvertNumericToLinearRange>, kKnobs> Converters;
    std::array<std::unique_ptr<CDecimalDisplay>, kKnobs> Displays;

protected:
    void OnInitDialog() override;

private:
    void BindKnobs();
    void BindFlags();
    void BindSends();
    void EnableSend(int send, bool created);

    std::array<ButtonCheck, 4> m_flags;
    std::array<std::array<ButtonCheck, kRoutes>, kSends> m_routes;
    std::array<std::array<CheckBoxControl*, kRoutes>, kSends> SendButtons{};
    QLabel* m_channelNote = nullptr;
};
