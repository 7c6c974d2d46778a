#pragma once

#include <QRect>

class QDialog;
class QWidget;

// A dialog built from a constant table, as a resource template would describe it: each row is one
// control with its number, kind, caption and place in pixels.
enum class ControlKind {
    DefaultButton,
    Button,
    RadioButton,
    CheckBox,
    GroupBox,
    Static,
    TreeView,
    ListBox,
    BitmapButton,
    EtchedFrame,
    ComboBox,  // a drop-down list
    Caption,   // a static text centred over what it names, on up to two lines
    Slider,    // a horizontal track bar, ticks below
    Edit,      // a one-line text field
};

struct ControlTemplate {
    int id;  // 0 for controls that nobody addresses
    ControlKind kind;
    const char* caption;
    QRect place;
};

// Creates the controls of the table as children of parent, at their places.
void BuildControls(QWidget* parent, const ControlTemplate* controls, int count);

template <int N>
void BuildControls(QWidget* parent, const ControlTemplate (&controls)[N])
{
    BuildControls(parent, controls, N);
}

// Creates the controls of the table in dialog, and fixes the dialog's size and title.
void BuildDialog(QDialog* dialog, const char* title, QSize size, const ControlTemplate* controls, int count);

template <int N>
void BuildDialog(QDialog* dialog, const char* title, QSize size, const ControlTemplate (&controls)[N])
{
    BuildDialog(dialog, title, size, controls, N);
}
