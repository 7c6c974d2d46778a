#pragma once

#include "engine/ExecLog.h"

#include <AL/al.h>

// Common base of the four engine classes. Every engine operation returns 1 for success and 0 for
// failure and leaves its text in the object's log; nothing here throws or shows anything.
class EFX_Base : public ExecLog {
public:
    ~EFX_Base() override = default;

    // The object destroys itself (the factory alone stays: its owner deletes it).
    virtual void Release() = 0;

    // Release through a pointer that may be null. Calling a member through a null pointer is not
    // allowed in C++, so the null guard lives here, outside the object.
    static void SafeRelease(EFX_Base* object)
    {
        if (object)
            object->Release();
    }

protected:
    // The check after each OpenAL call: 1 when alGetError reports AL_NO_ERROR, else 0. The error code
    // itself is never reported; the message says which call failed.
    // Both are inline: a knob turn makes some thirty of them.
    static int CheckALError() { return alGetError() == AL_NO_ERROR ? 1 : 0; }
    // Drops any error left over from an earlier call, so that it does not count against the next one.
    static void ClearALError() { alGetError(); }
};
