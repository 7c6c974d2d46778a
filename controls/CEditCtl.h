#pragma once

#include <QLineEdit>

class CDecimalDisplay;

// The edit box laid over a decimal display's number for in-place typing. It drops letters; Enter
// closes it, Esc first puts the opening text back and then closes it; and the loss of its focus, for
// whatever reason, is the commit.
class CEditCtl : public QLineEdit {
public:
    explicit CEditCtl(CDecimalDisplay* owner);

    // Opens on a number, or on a text (the units).
    void OpenWithValue(double value, const QString& text);
    void OpenWithText(const QString& text);
    double GetNumber() const;
    QString GetText() const { return text(); }
    bool IsOpen() const { return m_open; }

    double openValue = 0.0;
    QString openText;
    bool allowLetters = false;
    int lastKey = -1;
    bool numeric = true;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Open(const QString& text);
    void Close();

    CDecimalDisplay* m_owner;
    bool m_open = false;
};

// The number at the start of text, as the C library's atof reads it in the C locale: blanks, a sign,
// digits with at most one point and an exponent, and nothing after; 0.0 when there is none. "1,5"
// reads 1.0 and "" reads 0.0, whatever the user's locale.
double AtofC(const QString& text);
