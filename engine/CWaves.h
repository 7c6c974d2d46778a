#pragma once

// Reads RIFF WAVE files and says which OpenAL buffer format fits each.
class CWaves {
public:
    CWaves() = default;
};
