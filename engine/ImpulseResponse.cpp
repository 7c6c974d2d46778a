#include "engine/ImpulseResponse.h"

#include "engine/DecayAnalysis.h"
#include "engine/LoopbackRenderer.h"

#include <AL/efx.h>

MeasuredDecay MeasureImpulseDecay(const SlotSnapshot& slot, int frequency, double seconds,
                                  const std::atomic<bool>* cancel)
{
    SceneSnapshot scene;
    scene.frequency = frequency;
    scene.slots.push_back(slot);
    // One full-scale sample, then silence (a buffer of a single frame is more than some library
    // versions can render through a reverb), heard at the listener through the slot alone.
    SourceSnapshot impulse;
    impulse.sampleRate = frequency;
    impulse.samples.assign(256, 0.0f);
    impulse.samples[0] = 1.0f;
    impulse.integers.emplace_back(AL_SOURCE_RELATIVE, AL_TRUE);
    impulse.directFiltered = true;
    impulse.directGain = 0.0f;
    impulse.sends[0].slot = 0;
    scene.sources.push_back(impulse);

    RenderOptions options;
    options.length = static_cast<double>(impulse.samples.size()) / frequency;
    options.tail = seconds;
    options.progress = [cancel](double) { return !cancel || !cancel->load(); };
    std::vector<float> frames;
    const RenderResult result = RenderScene(scene, options, frames);
    MeasuredDecay measured;
    if (!result.ok)
        return measured;
    const std::vector<double> curve = EnergyDecayCurve(frames, LoopbackRenderer::kChannels);
    measured.t30 = DecayTimeT30(curve, result.frequency);
    const std::size_t step = static_cast<std::size_t>(result.frequency / 1000);
    for (std::size_t i = 0; i < curve.size(); i += step)
        measured.curveMs.push_back(curve[i]);
    measured.ok = !curve.empty();
    return measured;
}
