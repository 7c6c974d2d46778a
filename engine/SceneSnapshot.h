#pragma once

// A copy of the live scene as the engine reports it, in plain values, so that an offline render can
// rebuild it on a device of its own: every slot with its effect and values, every source with its
// file, properties, filters and sends, the listener and the context's distance settings. Taken on
// the thread whose context is the live one; used on any thread afterwards.

#include <AL/al.h>

#include <array>
#include <string>
#include <vector>

class EFX_Factory;
class EFX_3DSource;

struct EffectValue {
    ALenum token;
    int kind; // 0 float, 1 integer, 2 three floats
    std::array<float, 3> f{};
    ALint i = 0;
};

struct SlotSnapshot {
    int effectType = 0;
    float gain = 1.0f;
    ALint sendAuto = AL_TRUE;
    std::vector<EffectValue> values;
};

struct SendSnapshot {
    int slot = -1; // -1: the send is not routed
    bool filtered = false;
    float gain = 1.0f;
    float gainHF = 1.0f;
};

struct SourceSnapshot {
    // The sound: the file, or samples given directly (mono, 32-bit float) at sampleRate.
    std::string path;
    std::vector<float> samples;
    int sampleRate = 0;
    bool looping = false;
    std::vector<std::pair<ALenum, float>> floats;
    std::vector<std::pair<ALenum, std::array<float, 3>>> vectors;
    std::vector<std::pair<ALenum, ALint>> integers;
    bool directFiltered = false;
    float directGain = 1.0f;
    float directGainHF = 1.0f;
    std::array<SendSnapshot, 4> sends{};
};

struct ListenerSnapshot {
    std::array<float, 3> position{};
    std::array<float, 3> velocity{};
    std::array<float, 6> orientation{0, 0, -1, 0, 1, 0};
    float gain = 1.0f;
    float metersPerUnit = 1.0f;
    ALint distanceModel = AL_INVERSE_DISTANCE_CLAMPED;
    float dopplerFactor = 1.0f;
    float speedOfSound = 343.3f;
};

struct SceneSnapshot {
    int frequency = 44100; // the live device's rate
    std::vector<SlotSnapshot> slots;
    std::vector<SourceSnapshot> sources;
    ListenerSnapshot listener;
};

// Reads the scene from the live context: the factory's slots, the given sources, the listener.
SceneSnapshot CaptureScene(EFX_Factory& factory, const std::vector<EFX_3DSource*>& sources);

// Reads the values of the effect object into `slot` by the effect type's tokens.
void CaptureEffectValues(ALuint effect, int effectType, SlotSnapshot& slot);
