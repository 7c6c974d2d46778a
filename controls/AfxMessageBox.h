#pragma once

class QString;

// The program's one kind of message box: modal, one line of text, one OK button.
void AfxMessageBox(const QString& text);
