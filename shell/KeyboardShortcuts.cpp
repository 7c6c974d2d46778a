#include "shell/KeyboardShortcuts.h"

#include "shell/CSonopticApp.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace {

struct KeyBinding {
    char key;
    ShortcutAction action;
};

constexpr KeyBinding kShiftKeys[] = {
    {'P', ShortcutAction::ProcessContext},
    {'S', ShortcutAction::SuspendContext},
};

constexpr KeyBinding kCtrlKeys[] = {
    {'0', ShortcutAction::ShowSlot0},
    {'1', ShortcutAction::ShowSlot1},
    {'2', ShortcutAction::ShowSlot2},
    {'3', ShortcutAction::ShowSlot3},
    {'A', ShortcutAction::AddSource},
    {'B', ShortcutAction::ShowBrowser},
    {'C', ShortcutAction::ShowContextWindow},
    {'P', ShortcutAction::ShowPositionWindow},
};

template <std::size_t N>
ShortcutAction Lookup(const KeyBinding (&bindings)[N], char key)
{
    for (const KeyBinding& binding : bindings) {
        if (binding.key == key)
            return binding.action;
    }
    return ShortcutAction::None;
}

// The key's character as the keyboard's own map gives it: digits and upper-case letters.
char KeyCharacter(int qtKey)
{
    if ((qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) || (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z))
        return static_cast<char>(qtKey);
    return '\0';
}

} // namespace

ShortcutAction ShortcutForKey(bool shiftDown, bool ctrlDown, char key, bool haveMainDialog)
{
    if (shiftDown)
        return Lookup(kShiftKeys, key);
    if (!ctrlDown)
        return ShortcutAction::None;
    if (!haveMainDialog)
        return ShortcutAction::Swallow;
    return Lookup(kCtrlKeys, key);
}

CKeyboardFilter::CKeyboardFilter(CSonopticApp* app)
    : m_app(app)
{
}

bool CKeyboardFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    // The modifiers are those held on the keyboard at this moment, not those the event carries.
    const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
    const auto* key = static_cast<QKeyEvent*>(event);
    const ShortcutAction action = ShortcutForKey(held.testFlag(Qt::ShiftModifier), held.testFlag(Qt::ControlModifier),
                                                 KeyCharacter(key->key()), m_app->HasMainDialog());
    if (action == ShortcutAction::None)
        return QObject::eventFilter(watched, event);
    m_app->RunShortcut(action);
    return true;
}
