#include "panels/Source3D_Panel.h"

#include "controls/BitmapResource.h"
#include "controls/CFloatDecimalDisplay.h"
#include "controls/CPot.h"
#include "controls/ControlId.h"
#include "controls/DialogTemplate.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Factory.h"
#include "panels/EffectPanelLayout.h"
#include "panels/EffectPanelTables.h"
#include "resources/ResourceIds.h"
#include "values/BridgeTables.h"
#include "values/CConvertNumeric.h"
#include "values/UI_EFX_Bridge.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

#include <algorithm>

namespace {

constexpr std::uint16_t kSource = 2;
constexpr std::uint16_t kNoExtra = 65535;

// A float knob: its property's token, param, extra (the send of a send's filter), id, box, heading,
// caption, range, step, look, first value; a long one has no extra.
struct SourceKnob {
    std::uint16_t extra;
    PanelKnob knob;
};
constexpr PanelKnob F(const char* token, std::uint16_t param, int id, const char* group, const char* label,
                      float minimum, float maximum, float step, int style, float first, const char* heading = "",
                      int captionId = 0)
{
    return {param, id, group, heading, label, minimum, maximum, step, 2, style, first, false, captionId, token};
}

// In the order of the rows: 0 to 29 the floats, 30 and 31 the two cone angles.
constexpr SourceKnob kKnobTable[Source3D_Panel::kKnobs] = {
    {kNoExtra, F("AL_ROOM_ROLLOFF_FACTOR", 0, 1049, "Distance", "RoomRolloff Factor", 0, 10, 0.01f, 2, 1.77f)},
    {kNoExtra, F("AL_AIR_ABSORPTION_FACTOR", 1, 1050, "Distance", "AirAbsorption Factor", 0, 10, 0.01f, 2, 1.77f)},
    {kNoExtra, F("AL_REFERENCE_DISTANCE", 2, 1068, "Distance", "Minimum Distance", 0, 100, 0.5f, 0, 1.77f)},
    {kNoExtra, F("AL_MAX_DISTANCE", 3, 1069, "Distance", "Maximum Distance", 0, 100, 0.5f, 0, 100)},
    {kNoExtra, F("AL_POSITION", 4, 1075, "Position", "X", -50, 50, 0.5f, 0, 7.77f)},
    {kNoExtra, F("AL_POSITION", 5, 1076, "Position", "Y", -50, 50, 0.5f, 0, 7.77f)},
    {kNoExtra, F("AL_POSITION", 6, 1077, "Position", "Z", -50, 50, 0.5f, 0, 7.77f)},
    {kNoExtra, F("AL_DIRECTION", 7, 1072, "Cone Orientation", "X", -1, 1, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_DIRECTION", 8, 1073, "Cone Orientation", "Y", -1, 1, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_DIRECTION", 9, 1074, "Cone Orientation", "Z", -1, 1, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_VELOCITY", 10, 1078, "Velocity", "X", -10, 10, 0.1f, 0, 7.77f)},
    {kNoExtra, F("AL_VELOCITY", 11, 1079, "Velocity", "Y", -10, 10, 0.1f, 0, 7.77f)},
    {kNoExtra, F("AL_VELOCITY", 12, 1080, "Velocity", "Z", -10, 10, 0.1f, 0, 7.77f)},
    {kNoExtra, F("AL_PITCH", 13, 1202, "Gain", "Pitch", 0, 10, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_ROLLOFF_FACTOR", 14, 1204, "Distance", "Rolloff Factor", 0, 10, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_GAIN", 15, 1325, "Gain", "Inside Gain", 0, 1, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_MIN_GAIN", 16, 1326, "Gain", "MinGain", 0, 1, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_MAX_GAIN", 17, 1327, "Gain", "MaxGain", 0, 1, 0.1f, 0, 0.77f)},
    {kNoExtra, F("AL_LOWPASS_GAIN", 18, 1020, "Direct", "Gain", 0, 1, 0.1f, 2, 0.77f)},
    {kNoExtra, F("AL_LOWPASS_GAINHF", 19, 1021, "Direct", "GainHF", 0, 1, 0.1f, 2, 0.77f)},
    {kNoExtra, F("AL_CONE_OUTER_GAINHF", 20, 1035, "Cone", "Outer GainHF", 0, 1, 0.1f, 2, 0.77f)},
    {kNoExtra, F("AL_CONE_OUTER_GAIN", 21, 1063, "Cone", "Outer Gain", 0, 1, 0.1f, 0, 0.77f)},
    {0, F("AL_LOWPASS_GAIN", 22, 1070, "Send 0", "Gain", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAIN_LABEL_0)},
    {0, F("AL_LOWPASS_GAINHF", 23, 1071, "Send 0", "GainHF", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAINHF_LABEL_0)},
    {1, F("AL_LOWPASS_GAIN", 24, 1005, "Send 1", "Gain", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAIN_LABEL_0 + 1)},
    {1, F("AL_LOWPASS_GAINHF", 25, 1006, "Send 1", "GainHF", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAINHF_LABEL_0 + 1)},
    {2, F("AL_LOWPASS_GAIN", 26, 1007, "Send 2", "Gain", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAIN_LABEL_0 + 2)},
    {2, F("AL_LOWPASS_GAINHF", 27, 1008, "Send 2", "GainHF", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAINHF_LABEL_0 + 2)},
    {3, F("AL_LOWPASS_GAIN", 28, 1009, "Send 3", "Gain", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAIN_LABEL_0 + 3)},
    {3, F("AL_LOWPASS_GAINHF", 29, 1010, "Send 3", "GainHF", 0, 1, 0.1f, 3, 0.77f, "", res::IDC_SEND_GAINHF_LABEL_0 + 3)},
    {kNoExtra, {0, 1051, "Cone", "", "Inside Angle", 0, 360, 1, 0, 0, 77, true, 0, "AL_CONE_INNER_ANGLE"}},
    {kNoExtra, {1, 1062, "Cone", "", "Outside Angle", 0, 360, 1, 0, 0, 177, true, 0, "AL_CONE_OUTER_ANGLE"}},
};

// The routing radios of each send: "disabled", then slots 0 to 3.
constexpr int kRouteIds[Source3D_Panel::kSends][Source3D_Panel::kRoutes] = {
    {1081, 1085, 1086, 1087, 1088},
    {1135, 1136, 1137, 1138, 1139},
    {1143, 1144, 1145, 1148, 1149},
    {1151, 1152, 1153, 1154, 1155},
};
constexpr const char* kRouteCaptions[Source3D_Panel::kRoutes] = {"disabled", "0", "1", "2", "3"};

// The flags: control, the param of the source's flag values, caption.
struct Flag {
    int id;
    std::uint16_t param;
    const char* caption;
};
constexpr Flag kFlags[] = {
    {res::IDC_SOURCE_HEAD_RELATIVE, 2, "Head Relative"},
    {res::IDC_SOURCE_DIRECT_HF_AUTO, 4, "DirectHF"},
    {res::IDC_SOURCE_AUTO, 5, "Auto"},
    {res::IDC_SOURCE_HF_AUTO, 6, "HFAuto"},
};

constexpr int kWidth = 640;
constexpr int kSendBoxWidth = 152;

QString KnobName(const PanelKnob& knob)
{
    return QStringLiteral("%1 %2").arg(QLatin1String(knob.group), QLatin1String(knob.label));
}

// The send knobs stand in the send boxes, laid out by hand; the others by groups.
std::vector<PanelKnob> GroupedKnobs()
{
    std::vector<PanelKnob> knobs;
    for (const SourceKnob& row : kKnobTable)
        if (row.extra == kNoExtra)
            knobs.push_back(row.knob);
    return knobs;
}

// The room right of the last row of knob groups, as wide as the panel allows and as high as the row.
QRect SpaceBesideLastRow(const std::vector<ControlTemplate>& controls)
{
    int top = 0;
    for (const ControlTemplate& control : controls)
        if (control.kind == ControlKind::GroupBox)
            top = std::max(top, control.place.top());
    QRect row(QPoint(8, top), QSize(0, 0));
    for (const ControlTemplate& control : controls)
        if (control.kind == ControlKind::GroupBox && control.place.top() == top)
            row |= control.place;
    return QRect(QPoint(row.right() + 12, top + 8), QPoint(kWidth - 8, row.bottom()));
}

void AddSendBox(std::vector<ControlTemplate>& controls, int send, QPoint corner)
{
    static const char* const kTitles[] = {"Send 0", "Send 1", "Send 2", "Send 3"};
    controls.push_back({0, ControlKind::GroupBox, kTitles[send], QRect(corner, QSize(kSendBoxWidth, 196))});
    const int x = corner.x() + 8;
    int y = corner.y() + 18;
    controls.push_back({res::IDC_SEND_CREATE_0 + send, ControlKind::Button, "Create", QRect(x, y, 64, 24)});
    controls.push_back({res::IDC_SEND_DELETE_0 + send, ControlKind::Button, "Delete", QRect(x + 70, y, 64, 24)});
    y += 30;
    for (int route = 0; route < Source3D_Panel::kRoutes; ++route)
        controls.push_back({kRouteIds[send][route], ControlKind::RadioButton, kRouteCaptions[route],
                            QRect(x + (route == 0 ? 0 : 76 + 34 * ((route - 1) % 2)), y + 20 * (route == 0 ? 0 : (route - 1) / 2), route == 0 ? 74 : 34, 18)});
    y += 46;
    for (int k = 0; k < 2; ++k) {
        const PanelKnob& knob = kKnobTable[22 + 2 * send + k].knob;
        const int cellX = x + 68 * k;
        controls.push_back({knob.captionId, ControlKind::Caption, knob.label, QRect(cellX, y, 68, 14)});
        controls.push_back({knob.id, ControlKind::Static, "", QRect(QPoint(cellX + 17, y + 16), kPlaceholderSize)});
    }
}

} // namespace

int Source3D_Panel::RouteId(int send, int route)
{
    return kRouteIds[send][route];
}

Source3D_Panel::Source3D_Panel(QWidget* parent, int sourceIndex)
    : CPanPotPanel(res::IDD_SOURCE, parent), SourceIndex(sourceIndex)
{
    if (parent)
        setWindowFlags(Qt::Widget);
    for (int r = 0; r < kKnobs; ++r) {
        Knobs[r] = std::make_unique<CPot>();
        Converters[r] = std::make_unique<CConvertNumericToLinearRange>();
        if (kKnobTable[r].knob.isLong)
            Displays[r] = std::make_unique<CLongDecimalDisplay>();
        else
            Displays[r] = std::make_unique<CFloatDecimalDisplay>(2);
    }
    const std::vector<PanelKnob> grouped = GroupedKnobs();
    EffectPanelLayout layout = LayoutKnobGroups(grouped, QPoint(8, 8), kWidth - 16, fontMetrics());
    std::vector<ControlTemplate>& controls = layout.controls;
    const QRect noteSpace = SpaceBesideLastRow(controls);
    int y = layout.size.height() + 2;
    for (int send = 0; send < kSends; ++send)
        AddSendBox(controls, send, QPoint(8 + send * (kSendBoxWidth + 6), y));
    y += 204;
    // Playback, the flags, "Defaults" and the legend.
    controls.push_back({res::IDC_SOURCE_PLAY, ControlKind::Button, "Play", QRect(8, y, 70, 26)});
    controls.push_back({res::IDC_SOURCE_STOP, ControlKind::Button, "Stop", QRect(84, y, 70, 26)});
    controls.push_back({res::IDC_SOURCE_LOOP, ControlKind::CheckBox, "Loop", QRect(162, y, 70, 26)});
    controls.push_back({res::IDC_SOURCE_TO_FRONT, ControlKind::Button, "Set to front", QRect(8, y + 32, 110, 26)});
    controls.push_back({res::IDC_SOURCE_DEFAULTS, ControlKind::Button, "Defaults", QRect(124, y + 32, 90, 26)});
    controls.push_back({kFlags[0].id, ControlKind::CheckBox, kFlags[0].caption, QRect(240, y, 130, 24)});
    // The three "Auto" flags side by side in their group (made first, so that it stays beneath them),
    // each as wide as its box and caption in the current style.
    const int indicator = style()->pixelMetric(QStyle::PM_IndicatorWidth) + style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    QRect flagRects[4];
    int flagX = 244;
    for (int f = 1; f < 4; ++f) {
        const int width = indicator + fontMetrics().horizontalAdvance(QString::fromLatin1(kFlags[f].caption)) + 4;
        flagRects[f] = QRect(flagX, y + 42, width, 20);
        flagX += width + 2;
    }
    controls.push_back({0, ControlKind::GroupBox, "Auto", QRect(236, y + 26, std::min(flagX + 4, 442) - 236, 40)});
    for (int f = 1; f < 4; ++f)
        controls.push_back({kFlags[f].id, ControlKind::CheckBox, kFlags[f].caption, flagRects[f]});
    controls.push_back({0, ControlKind::GroupBox, "Legend", QRect(446, y - 4, 186, 70)});
    controls.push_back({194, ControlKind::Static, "", QRect(456, y + 14, 7, 25)});
    controls.push_back({195, ControlKind::Static, "", QRect(466, y + 14, 7, 25)});
    controls.push_back({0, ControlKind::Static, "EFX property", QRect(478, y + 18, 80, 18)});
    controls.push_back({196, ControlKind::Static, "", QRect(456, y + 40, 7, 25)});
    controls.push_back({0, ControlKind::Static, "OpenAL property", QRect(478, y + 44, 110, 18)});
    BuildDialog(this, "", QSize(kWidth, y + 72), controls.data(), static_cast<int>(controls.size()));
    // The note on a file that is not mono, in the room the knob groups leave; hidden until a load
    // shows it.
    m_channelNote = new QLabel(this);
    m_channelNote->setGeometry(noteSpace);
    m_channelNote->setWordWrap(true);
    m_channelNote->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_channelNote->setAccessibleName(QStringLiteral("Channel note"));
    m_channelNote->hide();
    // The legend's swatches, named for a reader that cannot see their colour.
    const char* const swatchNames[] = {"Green knob: EFX property", "Red-brown knob: EFX property",
                                       "Grey knob: OpenAL property"};
    for (int id : {194, 195, 196}) {
        auto* swatch = FindControlAs<QLabel>(this, id);
        swatch->setPixmap(LoadBitmapResource(id));
        swatch->setAccessibleName(QString::fromLatin1(swatchNames[id - 194]));
    }
    for (const SourceKnob& row : kKnobTable)
        DescribeKnob(row.knob, KnobName(row.knob));
}

Source3D_Panel::~Source3D_Panel()
{
    for (auto& knob : Knobs)
        knob.reset();
    // The routing values outlive the panel: they must not keep its buttons.
    if (SourceIndex >= 0 && SourceIndex < bridge_limits::kSources)
        for (int send = 0; send < kSends; ++send)
            BridgeTables().SendRoutingValues[send][SourceIndex]->Bind(0, nullptr, kSource,
                                                                      static_cast<std::uint16_t>(SourceIndex),
                                                                      static_cast<std::uint16_t>(3 + send));
}

void Source3D_Panel::OnInitDialog()
{
    FindControlAs<QCheckBox>(this, res::IDC_SOURCE_LOOP)->setChecked(true);
    if (SourceIndex < 0 || SourceIndex >= bridge_limits::kSources)
        return;
    BindKnobs();
    BindFlags();
    BindSends();
    connect(FindControlAs<QPushButton>(this, res::IDC_SOURCE_PLAY), &QPushButton::clicked, this, &Source3D_Panel::OnPlay);
    connect(FindControlAs<QPushButton>(this, res::IDC_SOURCE_STOP), &QPushButton::clicked, this, &Source3D_Panel::OnStop);
    connect(FindControlAs<QPushButton>(this, res::IDC_SOURCE_TO_FRONT), &QPushButton::clicked, this,
            &Source3D_Panel::OnSetToFront);
    connect(FindControlAs<QPushButton>(this, res::IDC_SOURCE_DEFAULTS), &QPushButton::clicked, this,
            &Source3D_Panel::OnDefaults);
}

void Source3D_Panel::BindKnobs()
{
    BridgeValueTables& tables = BridgeTables();
    const auto index = static_cast<std::uint16_t>(SourceIndex);
    for (int r = 0; r < kKnobs; ++r) {
        const PanelKnob& knob = kKnobTable[r].knob;
        if (knob.isLong)
            BindLongKnob(tables.SourceLongValues[SourceIndex][knob.param], Knobs[r].get(), Converters[r].get(),
                         static_cast<CLongDecimalDisplay*>(Displays[r].get()), knob.id,
                         static_cast<std::int32_t>(knob.minimum), static_cast<std::int32_t>(knob.maximum),
                         static_cast<std::int32_t>(knob.first), 1, kSource, index, knob.param, kNoExtra, knob.style);
        else
            BindFloatKnob(tables.SourceValues[SourceIndex][knob.param], Knobs[r].get(), Converters[r].get(),
                          static_cast<CFloatDecimalDisplay*>(Displays[r].get()), knob.id, knob.minimum, knob.maximum,
                          knob.first, knob.step, kSource, index, knob.param, kKnobTable[r].extra, knob.style);
    }
}

void Source3D_Panel::BindFlags()
{
    for (int f = 0; f < 4; ++f) {
        auto* box = FindControlAs<QCheckBox>(this, kFlags[f].id);
        m_flags[f].SetButton(box);
        CSonopticBoolValObs* value = BridgeTables().SourceFlags[SourceIndex][kFlags[f].param];
        value->Bind(&m_flags[f], kSource, static_cast<std::uint16_t>(SourceIndex), kFlags[f].param);
        connect(box, &QCheckBox::clicked, this, [value](bool checked) { value->OnUserToggled(checked ? 1 : 0); });
    }
}

void Source3D_Panel::BindSends()
{
    const auto maxSends = static_cast<int>(UI_EFX_Bridge::GetInstance()->GetMaxSends());
    for (int send = 0; send < kSends; ++send) {
        CSonopticExcluValObs* routing = BridgeTables().SendRoutingValues[send][SourceIndex];
        for (int route = 0; route < kRoutes; ++route) {
            auto* radio = FindControlAs<QRadioButton>(this, kRouteIds[send][route]);
            m_routes[send][route].SetButton(radio);
            SendButtons[send][route] = &m_routes[send][route];
            // "disabled" routes to no slot, the others to their slot.
            connect(radio, &QRadioButton::clicked, this, [routing, route, send, this] {
                routing->OnUserSelected(route - 1);
                for (int other = 0; other < kRoutes; ++other)
                    m_routes[send][other].SetCheck(other == route);
            });
        }
        routing->Bind(kRoutes, SendButtons[send].data(), kSource, static_cast<std::uint16_t>(SourceIndex),
                      static_cast<std::uint16_t>(3 + send));
        connect(FindControlAs<QPushButton>(this, res::IDC_SEND_CREATE_0 + send), &QPushButton::clicked, this,
                [this, send] { OnCreateSend(send); });
        connect(FindControlAs<QPushButton>(this, res::IDC_SEND_DELETE_0 + send), &QPushButton::clicked, this,
                [this, send] { OnDeleteSend(send); });
        // A source starts with no send: only the "Create" buttons the context allows are active.
        FindControl(this, res::IDC_SEND_CREATE_0 + send)->setEnabled(send < maxSends);
        EnableSend(send, false);
    }
}

// The send's "Delete", routing radios and labels follow whether it exists; a send that goes also
// loses its routing checks.
void Source3D_Panel::EnableSend(int send, bool created)
{
    FindControl(this, res::IDC_SEND_DELETE_0 + send)->setEnabled(created);
    FindControl(this, res::IDC_SEND_GAIN_LABEL_0 + send)->setEnabled(created);
    FindControl(this, res::IDC_SEND_GAINHF_LABEL_0 + send)->setEnabled(created);
    const int slots = static_cast<int>(UI_EFX_Bridge::GetInstance()->GetFactory()->GetNumEffectSlots());
    for (int route = 0; route < kRoutes; ++route) {
        QWidget* radio = FindControl(this, kRouteIds[send][route]);
        radio->setEnabled(created && (route == 0 || route - 1 < slots));
        if (!created)
            m_routes[send][route].SetCheck(0);
    }
}

void Source3D_Panel::OnCreateSend(int send)
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    if (bridge->CreateSourceSend(SourceIndex, send)) {
        FindControl(this, res::IDC_SEND_CREATE_0 + send)->setEnabled(false);
        EnableSend(send, true);
        // The engine routes a new send to slot 0.
        m_routes[send][1].SetCheck(1);
    }
    bridge->RefreshSource(SourceIndex);
}

void Source3D_Panel::OnDeleteSend(int send)
{
    // Send 3's button deletes the engine's send 1, and sets the controls of send 3: a quirk kept.
    const int engineSend = send == 3 ? 1 : send;
    if (!UI_EFX_Bridge::GetInstance()->DeleteSourceSend(SourceIndex, engineSend))
        return;
    FindControl(this, res::IDC_SEND_CREATE_0 + send)->setEnabled(true);
    EnableSend(send, false);
}

void Source3D_Panel::ShowChannelNote()
{
    int channels = 0;
    EFX_3DSource* source = UI_EFX_Bridge::GetInstance()->GetSource(SourceIndex);
    if (!source || !source->GetBufferChannels(&channels) || channels < 2) {
        m_channelNote->hide();
        return;
    }
    const QString file = channels == 2 ? QStringLiteral("Stereo file") : QStringLiteral("%1-channel file").arg(channels);
    m_channelNote->setText(file + QStringLiteral(": OpenAL plays it as it is, without 3D position, cone or distance."));
    m_channelNote->show();
}

void Source3D_Panel::OnPlay()
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    bridge->StopSource(SourceIndex);
    bridge->PlaySource(SourceIndex, FindControlAs<QCheckBox>(this, res::IDC_SOURCE_LOOP)->isChecked() ? 1 : 0);
}

void Source3D_Panel::OnStop()
{
    UI_EFX_Bridge::GetInstance()->StopSource(SourceIndex);
}

void Source3D_Panel::OnSetToFront()
{
    UI_EFX_Bridge::GetInstance()->SetSourceToFront(SourceIndex);
}

void Source3D_Panel::OnDefaults()
{
    UI_EFX_Bridge::GetInstance()->SetSourceDefaults(SourceIndex);
}
