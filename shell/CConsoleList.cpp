#include "shell/CConsoleList.h"

CConsoleList::CConsoleList(QWidget* parent)
    : QListWidget(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
}

void CConsoleList::AddString(const char* text)
{
    // Entry-point messages end in a line feed, which a list line does not show.
    QString line = QString::fromLocal8Bit(text);
    if (line.endsWith(QLatin1Char('\n')))
        line.chop(1);
    addItem(line);
}

int CConsoleList::GetCount() const
{
    return count();
}

void CConsoleList::SetTopIndex(int index)
{
    if (index < 0)
        index = 0;
    if (QListWidgetItem* top = item(index))
        scrollToItem(top, QAbstractItemView::PositionAtTop);
}
