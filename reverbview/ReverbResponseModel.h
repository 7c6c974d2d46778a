#pragma once

// The reverb response model: one reverb record turned into the points of a schematic graph of time (x),
// level (y) and frequency (z). Early reflections are a flat-topped slab, the late reverberation a wedge whose
// top falls in a straight line, 60 dB over the decay time of each frequency row. All frequency dependence comes
// from two first-order shelves evaluated at a fixed 48 kHz.
//
// There is one scene in the process, held here at module level. BuildResponseAxes allocates it once;
// every Build*/Update* call after that overwrites it in place and allocates nothing.

#include <array>
#include <cstdint>
#include <vector>

#include "reverbview/ReverbResponseParams.h"

// Sample rate of the shelving filters, in hertz.
inline constexpr std::int32_t ResponseSampleRate = 48000;
// Frequency rows the response window asks for.
inline constexpr std::int32_t ResponseRows = 20;
// The reflections delay is drawn 10 times wider than the decay: 1 scene unit a second.
inline constexpr std::int32_t ReflectionsDelayMagnify = 10;
// The late reverberation delay is drawn 40 times wider than the decay: 4 scene units a second.
inline constexpr std::int32_t LateDelayMagnify = 40;
inline constexpr std::int32_t LateDecayMagnify = 1;
// x of the graph's right wall; at the decay's scale it stands for 20 seconds.
inline constexpr float ResponseTimeExtent = 2.0f;
// Metres per second, for the time air absorption takes to fall by 60 dB.
inline constexpr float SpeedOfSound = 340.0f;

// A point of the scene in scene units: x time, y level (1.0 is 0 dB, 0.0 is -100 dB), z log frequency
// (0.0 is 20 Hz, 1.0 is 20 kHz).
struct ResponsePoint {
  float x = 0.0f;
  float y = 0.0f;
  float z = 0.0f;
};

// The scene. Every array has one entry a frequency row; the renderer reads them, only the model writes them.
struct ResponseScene {
  std::int32_t Rows = 0;
  std::vector<float> FrequencyAxis;  // z of each row

  // Early slab: the reflections, from their start to the start of the late part.
  std::vector<ResponsePoint> EarlyStartTop;
  std::vector<ResponsePoint> EarlyStartBase;
  std::vector<ResponsePoint> EarlyEndTop;
  std::vector<ResponsePoint> EarlyEndBase;

  // Late wedge: from its start, down the row's decay line to the floor or the right wall.
  std::vector<ResponsePoint> LateStartTop;
  std::vector<ResponsePoint> LateStartBase;
  std::vector<ResponsePoint> LateDecayPoint;  // 60 dB down the decay line
  std::vector<ResponsePoint> LateFloorPoint;  // where the decay line meets y = 0
  std::vector<ResponsePoint> LateWallPoint;   // where it meets x = 2.0, possibly below the floor
  std::vector<ResponsePoint> LateWallBase;

  // Reference planes, corners in the order (0, 0), (2, 0), (2, 1), (0, 1) in x and y, at the reference's z.
  // UpdateRefPlanes moves the z of all four and the x of the second and third.
  using RefPlane = std::array<ResponsePoint, 4>;
  static constexpr RefPlane PlaneAtStart{{{0.0f, 0.0f, 0.0f}, {2.0f, 0.0f, 0.0f}, {2.0f, 1.0f, 0.0f}, {0.0f, 1.0f, 0.0f}}};
  RefPlane HFRefPlane = PlaneAtStart;
  RefPlane LFRefPlane = PlaneAtStart;
};

// The one scene of the process, for reading.
const ResponseScene& GetResponseScene();

// Level in millibels to y: below -10000 is the floor, 0 mB is 1.0; nothing clamps above 0 dB.
float LevelToAxis(std::int32_t levelMillibels);
// Frequency in hertz to z: log10(f / 20) / 3, so 20 Hz is 0.0 and 20 kHz is 1.0.
float FrequencyToAxis(float frequencyHz);

// Sets the scene up for `rows` frequency rows (the window gives ResponseRows) and allocates every array.
void BuildResponseAxes(std::int32_t rows);
// Frees the arrays; the scene is empty until the next BuildResponseAxes.
void ReleaseResponseAxes();

void BuildEarlyMesh(const ReverbResponseParams& params);
void BuildLateMesh(const ReverbResponseParams& params);
// Reads LateFloorPoint, so it runs after BuildLateMesh.
void UpdateRefPlanes(const ReverbResponseParams& params);

// Magnitude response in millibels, at the frequency of `row`, of a first-order shelf of gainDb decibels at
// HFReference (high shelf) or LFReference (low shelf). 0 on the flat side, gainDb at the reference, towards
// twice gainDb on the shelf side. A row outside the scene gives 0.
float HighShelfMillibels(const ReverbResponseParams& params, double gainDb, std::int32_t row);
float LowShelfMillibels(const ReverbResponseParams& params, double gainDb, std::int32_t row);
