// The numbers live in ResourceIds.h; this library also carries the embedded bitmaps.
#include "resources/ResourceIds.h"
