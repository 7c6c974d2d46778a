#include "panels/KnobToolTip.h"

#include "panels/EffectPanelTables.h"

#include <charconv>

namespace {

using U = PropertyUnit;

struct TokenUnit {
    std::string_view token;
    PropertyUnit unit;
};

// The unit of every property a knob turns, effects, source and listener alike: the one place that
// says it. A vector property (position, velocity, pan...) has the unit of each of its components.
constexpr TokenUnit kUnits[] = {
    // EAX reverb.
    {"AL_EAXREVERB_DENSITY", U::None},
    {"AL_EAXREVERB_DIFFUSION", U::None},
    {"AL_EAXREVERB_GAIN", U::Gain},
    {"AL_EAXREVERB_GAINHF", U::Gain},
    {"AL_EAXREVERB_GAINLF", U::Gain},
    {"AL_EAXREVERB_DECAY_TIME", U::Seconds},
    {"AL_EAXREVERB_DECAY_HFRATIO", U::None},
    {"AL_EAXREVERB_DECAY_LFRATIO", U::None},
    {"AL_EAXREVERB_REFLECTIONS_GAIN", U::Gain},
    {"AL_EAXREVERB_REFLECTIONS_DELAY", U::Seconds},
    {"AL_EAXREVERB_REFLECTIONS_PAN", U::None},
    {"AL_EAXREVERB_LATE_REVERB_GAIN", U::Gain},
    {"AL_EAXREVERB_LATE_REVERB_DELAY", U::Seconds},
    {"AL_EAXREVERB_LATE_REVERB_PAN", U::None},
    {"AL_EAXREVERB_ECHO_TIME", U::Seconds},
    {"AL_EAXREVERB_ECHO_DEPTH", U::None},
    {"AL_EAXREVERB_MODULATION_TIME", U::Seconds},
    {"AL_EAXREVERB_MODULATION_DEPTH", U::None},
    {"AL_EAXREVERB_AIR_ABSORPTION_GAINHF", U::Gain},
    {"AL_EAXREVERB_HFREFERENCE", U::Hertz},
    {"AL_EAXREVERB_LFREFERENCE", U::Hertz},
    {"AL_EAXREVERB_ROOM_ROLLOFF_FACTOR", U::None},
    // Reverb.
    {"AL_REVERB_DENSITY", U::None},
    {"AL_REVERB_DIFFUSION", U::None},
    {"AL_REVERB_GAIN", U::Gain},
    {"AL_REVERB_GAINHF", U::Gain},
    {"AL_REVERB_DECAY_TIME", U::Seconds},
    {"AL_REVERB_DECAY_HFRATIO", U::None},
    {"AL_REVERB_REFLECTIONS_GAIN", U::Gain},
    {"AL_REVERB_REFLECTIONS_DELAY", U::Seconds},
    {"AL_REVERB_LATE_REVERB_GAIN", U::Gain},
    {"AL_REVERB_LATE_REVERB_DELAY", U::Seconds},
    {"AL_REVERB_AIR_ABSORPTION_GAINHF", U::Gain},
    {"AL_REVERB_ROOM_ROLLOFF_FACTOR", U::None},
    // Autowah, chorus, distortion, echo.
    {"AL_AUTOWAH_ATTACK_TIME", U::Seconds},
    {"AL_AUTOWAH_RELEASE_TIME", U::Seconds},
    {"AL_AUTOWAH_RESONANCE", U::Gain},
    {"AL_AUTOWAH_PEAK_GAIN", U::Gain},
    {"AL_CHORUS_PHASE", U::Degrees},
    {"AL_CHORUS_RATE", U::Hertz},
    {"AL_CHORUS_DEPTH", U::None},
    {"AL_CHORUS_FEEDBACK", U::None},
    {"AL_CHORUS_DELAY", U::Seconds},
    {"AL_DISTORTION_EDGE", U::None},
    {"AL_DISTORTION_GAIN", U::Gain},
    {"AL_DISTORTION_LOWPASS_CUTOFF", U::Hertz},
    {"AL_DISTORTION_EQCENTER", U::Hertz},
    {"AL_DISTORTION_EQBANDWIDTH", U::Hertz},
    {"AL_ECHO_DELAY", U::Seconds},
    {"AL_ECHO_LRDELAY", U::Seconds},
    {"AL_ECHO_DAMPING", U::None},
    {"AL_ECHO_FEEDBACK", U::None},
    {"AL_ECHO_SPREAD", U::None},
    // Equalizer, flanger.
    {"AL_EQUALIZER_LOW_GAIN", U::Gain},
    {"AL_EQUALIZER_LOW_CUTOFF", U::Hertz},
    {"AL_EQUALIZER_MID1_GAIN", U::Gain},
    {"AL_EQUALIZER_MID1_CENTER", U::Hertz},
    {"AL_EQUALIZER_MID1_WIDTH", U::Octaves},
    {"AL_EQUALIZER_MID2_GAIN", U::Gain},
    {"AL_EQUALIZER_MID2_CENTER", U::Hertz},
    {"AL_EQUALIZER_MID2_WIDTH", U::Octaves},
    {"AL_EQUALIZER_HIGH_GAIN", U::Gain},
    {"AL_EQUALIZER_HIGH_CUTOFF", U::Hertz},
    {"AL_FLANGER_PHASE", U::Degrees},
    {"AL_FLANGER_RATE", U::Hertz},
    {"AL_FLANGER_DEPTH", U::None},
    {"AL_FLANGER_FEEDBACK", U::None},
    {"AL_FLANGER_DELAY", U::Seconds},
    // Frequency shifter, vocal morpher, pitch shifter, ring modulator.
    {"AL_FREQUENCY_SHIFTER_FREQUENCY", U::Hertz},
    {"AL_VOCAL_MORPHER_PHONEMEA_COARSE_TUNING", U::Semitones},
    {"AL_VOCAL_MORPHER_PHONEMEB_COARSE_TUNING", U::Semitones},
    {"AL_VOCAL_MORPHER_RATE", U::Hertz},
    {"AL_PITCH_SHIFTER_COARSE_TUNE", U::Semitones},
    {"AL_PITCH_SHIFTER_FINE_TUNE", U::Cents},
    {"AL_RING_MODULATOR_FREQUENCY", U::Hertz},
    {"AL_RING_MODULATOR_HIGHPASS_CUTOFF", U::Hertz},
    // A source, its direct path and its sends' filters.
    {"AL_ROOM_ROLLOFF_FACTOR", U::None},
    {"AL_AIR_ABSORPTION_FACTOR", U::None},
    {"AL_REFERENCE_DISTANCE", U::Metres},
    {"AL_MAX_DISTANCE", U::Metres},
    {"AL_POSITION", U::Metres},
    {"AL_DIRECTION", U::None},
    {"AL_VELOCITY", U::MetresPerSecond},
    {"AL_PITCH", U::None},
    {"AL_ROLLOFF_FACTOR", U::None},
    {"AL_GAIN", U::Gain},
    {"AL_MIN_GAIN", U::Gain},
    {"AL_MAX_GAIN", U::Gain},
    {"AL_LOWPASS_GAIN", U::Gain},
    {"AL_LOWPASS_GAINHF", U::Gain},
    {"AL_CONE_OUTER_GAIN", U::Gain},
    {"AL_CONE_OUTER_GAINHF", U::Gain},
    {"AL_CONE_INNER_ANGLE", U::Degrees},
    {"AL_CONE_OUTER_ANGLE", U::Degrees},
    // The listener and the context.
    {"AL_DOPPLER_FACTOR", U::None},
    {"AL_ORIENTATION", U::None},
    {"AL_SPEED_OF_SOUND", U::MetresPerSecond},
};

// What follows the range, by PropertyUnit.
constexpr const char* kUnitSuffixes[] = {"",       " s",         " Hz",        " (linear gain)", " m",
                                         " m/s",   " degrees",   " semitones", " cents",          " octaves"};
static_assert(std::size(kUnitSuffixes) == static_cast<std::size_t>(PropertyUnit::Octaves) + 1);

void AppendNumber(std::string& text, float value)
{
    char digits[64];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed);
    text.append(digits, error == std::errc() ? end : digits);
}

} // namespace

bool UnitOfProperty(std::string_view token, PropertyUnit* unit)
{
    for (const TokenUnit& row : kUnits)
        if (row.token == token) {
            *unit = row.unit;
            return true;
        }
    return false;
}

std::string KnobToolTipText(std::string_view token, float minimum, float maximum, PropertyUnit unit)
{
    std::string text(token);
    text += '\n';
    AppendNumber(text, minimum);
    text += " to ";
    AppendNumber(text, maximum);
    text += kUnitSuffixes[static_cast<int>(unit)];
    return text;
}

std::string KnobToolTip(const PanelKnob& knob)
{
    PropertyUnit unit = PropertyUnit::None;
    UnitOfProperty(knob.token, &unit);
    return KnobToolTipText(knob.token, knob.minimum, knob.maximum, unit);
}
