#pragma once

#include <QLineEdit>

class CDecimalDisplay;

// The edit box laid over a decimal display's number for typing in place. It drops the letters a to z
// and A to Z and lets all else pass, with no check of form. Enter closes it; Esc first puts the
// opening text back and then closes it; and the loss of its focus, for whatever reason, is the
// commit, so that even Esc writes the opening text back to the value.
class CEditCtl : public QLineEdit {
public:
    // The display is not owned; it is the edit's parent.
    explicit CEditCtl(CDecimalDisplay* owner);

    // Shows the edit on text, all of it selected, and gives it the focus. A numeric edit commits a
    // number; a text edit commits its text.
    void OpenWithValue(double value, const QString& text);
    void OpenWithText(const QString& text);
    // The text read as the C library's atof reads it.
    double GetNumber() const;
    QString GetText() const { return text(); }
    bool IsOpen() const { return m_open; }

    double openValue = 0.0;
    QString openText;
    // Never set in this program.
    bool allowLetters = false;
    // 13 after Enter, 27 after Esc, -1 from each opening on.
    int lastKey = -1;
    // Until the first opening no edit has taken place: a display treats that as a closed edit.
    bool numeric = true;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Open(const QString& text);
    // Remembers the key and hands the focus back to the display, which commits.
    void Finish(int key);
    // Hides the edit and commits, once for each opening.
    void Close();

    CDecimalDisplay* m_owner;
    bool m_open = false;
};

// The number at the start of text as atof reads it in the C locale: blanks, a sign, digits with at
// most one point and an exponent, and nothing after; 0.0 when there is none. "1,5" reads 1.0 and ""
// reads 0.0, whatever the user's locale.
double AtofC(const QString& text);
