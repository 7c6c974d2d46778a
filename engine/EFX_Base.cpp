#include "engine/EFX_Base.h"

#include <AL/al.h>

int EFX_Base::CheckALError()
{
    return alGetError() == AL_NO_ERROR ? 1 : 0;
}

void EFX_Base::ClearALError()
{
    alGetError();
}
