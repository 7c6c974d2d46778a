#pragma once

#include <QPixmap>

// A bitmap of the program's resources, by its number; a null pixmap if there is none.
QPixmap LoadBitmapResource(int id);
