#include "tests/shell/XKeyboard.h"

#include <QTest>

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {
Display* AsDisplay(void* display)
{
    return static_cast<Display*>(display);
}
} // namespace

XKeyboard::XKeyboard()
    : m_display(XOpenDisplay(nullptr))
{
}

XKeyboard::~XKeyboard()
{
    if (m_display)
        XCloseDisplay(AsDisplay(m_display));
}

void XKeyboard::Chord(const std::vector<std::string>& modifiers, const std::string& key)
{
    for (const std::string& modifier : modifiers)
        Send(modifier, true);
    Send(key, true);
    Send(key, false);
    for (auto it = modifiers.rbegin(); it != modifiers.rend(); ++it)
        Send(*it, false);
    XSync(AsDisplay(m_display), False);
    QTest::qWait(100);
}

void XKeyboard::Send(const std::string& name, bool down)
{
    Display* display = AsDisplay(m_display);
    const KeyCode code = XKeysymToKeycode(display, XStringToKeysym(name.c_str()));
    XTestFakeKeyEvent(display, code, down ? True : False, CurrentTime);
    XFlush(display);
    QTest::qWait(10);
}
