#include "engine/EFX_Base.h"

#include <AL/al.h>

