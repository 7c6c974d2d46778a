#include "controls/ControlResources.h"

#include "controls/AccessibleValue.h"
#include "controls/ControlGraphics.h"
#include "controls/ControlStyles.h"
#include "resources/ResourceIds.h"

#include <QtGlobal>

void InitControlResources()
{
    InitGraphics();
    RegisterControlClasses();
    SetArrowBitmaps(res::IDB_ARROW_UP, res::IDB_ARROW_UP_PRESSED, res::IDB_ARROW_DOWN, res::IDB_ARROW_DOWN_PRESSED);
    InitPotSpecs();
    InitDecimalDisplaySpec();
}

void ChoosePlatformOptions()
{
    qputenv("QT_XCB_NO_MITSHM", "1");
}
