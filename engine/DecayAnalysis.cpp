#include "engine/DecayAnalysis.h"

#include <cmath>

std::vector<double> EnergyDecayCurve(const std::vector<float>& frames, int channels)
{
    const std::size_t count = channels > 0 ? frames.size() / static_cast<std::size_t>(channels) : 0;
    std::vector<double> curve(count);
    double remaining = 0;
    for (std::size_t i = count; i-- > 0;) {
        for (int c = 0; c < channels; ++c) {
            const double sample = frames[i * static_cast<std::size_t>(channels) + static_cast<std::size_t>(c)];
            remaining += sample * sample;
        }
        curve[i] = remaining;
    }
    if (count == 0 || curve[0] <= 0)
        return {};
    const double total = curve[0];
    for (double& value : curve)
        value = value > 0 ? 10.0 * std::log10(value / total) : -300.0;
    return curve;
}

double DecayTimeT30(const std::vector<double>& curve, int frequency)
{
    // The least-squares line through the points between -5 and -35 dB.
    double n = 0, sumT = 0, sumL = 0, sumTT = 0, sumTL = 0;
    bool reached = false;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        if (curve[i] > -5.0)
            continue;
        if (curve[i] < -35.0) {
            reached = true;
            break;
        }
        const double t = static_cast<double>(i) / frequency;
        n += 1;
        sumT += t;
        sumL += curve[i];
        sumTT += t * t;
        sumTL += t * curve[i];
    }
    if (!reached || n < 2)
        return 0;
    const double slope = (n * sumTL - sumT * sumL) / (n * sumTT - sumT * sumT); // dB per second
    return slope < 0 ? -60.0 / slope : 0;
}
