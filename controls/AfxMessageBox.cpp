#include "controls/AfxMessageBox.h"

#include <QApplication>
#include <QMessageBox>

void AfxMessageBox(const QString& text)
{
    QMessageBox box(QMessageBox::NoIcon, QApplication::applicationDisplayName(), text, QMessageBox::Ok,
                    QApplication::activeWindow());
    box.exec();
}
