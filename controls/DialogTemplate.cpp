#include "controls/DialogTemplate.h"

#include "controls/ControlId.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTreeWidget>

namespace {

QWidget* MakeControl(const ControlTemplate& row, QWidget* dialog)
{
    const QString caption = QString::fromUtf8(row.caption ? row.caption : "");
    switch (row.kind) {
    case ControlKind::DefaultButton: {
        auto* button = new QPushButton(caption, dialog);
        button->setDefault(true);
        return button;
    }
    case ControlKind::Button: {
        auto* button = new QPushButton(caption, dialog);
        button->setAutoDefault(false);
        return button;
    }
    case ControlKind::RadioButton: {
        // Radio buttons of a template are independent: the dialog sets their checks itself.
        auto* radio = new QRadioButton(caption, dialog);
        radio->setAutoExclusive(false);
        return radio;
    }
    case ControlKind::CheckBox:
        return new QCheckBox(caption, dialog);
    case ControlKind::GroupBox:
        return new QGroupBox(caption, dialog);
    case ControlKind::Static: {
        auto* label = new QLabel(caption, dialog);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        return label;
    }
    case ControlKind::TreeView: {
        auto* tree = new QTreeWidget(dialog);
        tree->setHeaderHidden(true);
        return tree;
    }
    case ControlKind::ListBox:
        return new QListWidget(dialog);
    case ControlKind::EtchedFrame: {
        auto* frame = new QFrame(dialog);
        frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        return frame;
    }
    case ControlKind::ComboBox: {
        auto* combo = new QComboBox(dialog);
        combo->setMaxVisibleItems(30);
        return combo;
    }
    case ControlKind::Caption: {
        auto* label = new QLabel(caption, dialog);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        return label;
    }
    case ControlKind::Slider: {
        auto* slider = new QSlider(Qt::Horizontal, dialog);
        slider->setTickPosition(QSlider::TicksBelow);
        return slider;
    }
    case ControlKind::Edit:
        return new QLineEdit(caption, dialog);
    case ControlKind::BitmapButton: {
        // The caption stands until a bitmap is set on the button.
        auto* button = new QPushButton(caption, dialog);
        button->setAutoDefault(false);
        button->setFlat(true);
        return button;
    }
    }
    return nullptr;
}

} // namespace

void BuildDialog(QDialog* dialog, const char* title, QSize size, const ControlTemplate* controls, int count)
{
    dialog->setWindowTitle(QString::fromUtf8(title));
    dialog->setFixedSize(size);
    BuildControls(dialog, controls, count);
}

void BuildControls(QWidget* parent, const ControlTemplate* controls, int count)
{
    for (int i = 0; i < count; ++i) {
        QWidget* control = MakeControl(controls[i], parent);
        control->setGeometry(controls[i].place);
        if (controls[i].id != 0)
            SetControlId(control, controls[i].id);
        // Group boxes go behind the controls they frame.
        if (controls[i].kind == ControlKind::GroupBox || controls[i].kind == ControlKind::EtchedFrame)
            control->lower();
    }
}
