// How long the response graph's model and the panner's picture take. The model runs at every mouse move over
// the graph, so it must stay far below a millisecond; a panner frame redraws everything at every move too.

#include <chrono>
#include <cmath>
#include <cstdio>

#include "positionview/DScreen.h"
#include "positionview/MemoryPresenter.h"
#include "reverbview/ReverbResponseModel.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int ModelIterations = 200000;
constexpr int FrameIterations = 5000;

// A panner view of 240 x 240 pixels, laid out as the panner lays it out.
constexpr int ViewSize = 240;
constexpr int CentreXY = ViewSize / 2;
constexpr int MaxRadius = ViewSize / 2;
constexpr int OuterRadius = static_cast<int>(MaxRadius * 0.8);
constexpr int InnerRadius = static_cast<int>(MaxRadius * 0.6);
constexpr int HubRadius = ViewSize / 20;
constexpr std::uint32_t Green = 0x14C814;
constexpr std::uint32_t Red = 0xC81414;
constexpr std::uint32_t Blue = 0x1414C8;

// Where results go so that the compiler cannot drop the work.
volatile double Sink = 0.0;

double MicrosecondsEach(Clock::duration total, int iterations) {
  return std::chrono::duration<double, std::micro>(total).count() / iterations;
}

double SceneChecksum() {
  const ResponseScene& s = GetResponseScene();
  double sum = s.HFRefPlane[1].x + s.LFRefPlane[1].x;
  for (int i = 0; i < s.Rows; ++i) sum += s.EarlyStartTop[i].y + s.LateFloorPoint[i].x + s.LateWallPoint[i].y;
  return sum;
}

double TimeModel() {
  BuildResponseAxes(ResponseRows);
  ReverbResponseParams params;  // the engine's default EAX reverb
  double checksum = 0.0;
  const auto start = Clock::now();
  for (int n = 0; n < ModelIterations; ++n) {
    params.DecayTime = 1.0f + static_cast<float>(n % 100) * 0.1f;  // as if a knob were turning
    BuildEarlyMesh(params);
    BuildLateMesh(params);
    UpdateRefPlanes(params);
    checksum += SceneChecksum();
  }
  const double each = MicrosecondsEach(Clock::now() - start, ModelIterations);
  ReleaseResponseAxes();
  Sink = checksum;
  return each;
}

void DrawBand(DScreen& screen, int ring, int start, int end, std::uint32_t colour) {
  for (int r = 3; r <= 11; ++r) screen.DrawArc(CentreXY, CentreXY, ring + r, start, end, colour, 3);
}

void DrawPointer(DScreen& screen, int ring, int angle, std::uint32_t colour) {
  const double a = angle * 3.1415926535 / 180.0;
  screen.DrawLine(CentreXY, CentreXY, CentreXY + static_cast<int>(std::sin(a) * ring),
                  CentreXY + static_cast<int>(std::cos(a) * ring), colour, 0);
}

void DrawPannerFrame(DScreen& screen, int angle) {
  screen.FloodFill(0);
  screen.Lock();
  for (int radius : {InnerRadius, OuterRadius, OuterRadius + 15}) {
    screen.DrawCircle(CentreXY, CentreXY, radius, Green, 0);
  }
  DrawBand(screen, InnerRadius, (angle + 300) % 360, (angle + 60) % 360, Red);
  DrawPointer(screen, InnerRadius, angle, Red);
  DrawBand(screen, OuterRadius, (angle + 20) % 360, (angle + 200) % 360, Blue);
  DrawPointer(screen, OuterRadius, (angle + 110) % 360, Blue);
  const int reach = OuterRadius + 25;
  screen.DrawLine(CentreXY, CentreXY - reach, CentreXY, CentreXY + reach, Green, 1);
  screen.DrawLine(CentreXY - reach, CentreXY, CentreXY + reach, CentreXY, Green, 1);
  screen.DrawCircle(CentreXY, CentreXY, HubRadius, Green, 0);
  screen.Unlock();
  screen.Blit();
}

double TimeFrame(int bitsPerPixel) {
  MemoryPresenter presenter(ViewSize, ViewSize, bitsPerPixel);
  DScreen screen;
  if (!screen.Init(&presenter)) return -1.0;
  const auto start = Clock::now();
  for (int n = 0; n < FrameIterations; ++n) DrawPannerFrame(screen, n % 360);
  const double each = MicrosecondsEach(Clock::now() - start, FrameIterations);
  Sink = presenter.FrontMemory()[presenter.RowPitch() * CentreXY];
  return each;
}

}  // namespace

int main() {
  const double model = TimeModel();
  std::printf("response model, both meshes and the planes, %d rows: %.2f us each (%d runs)\n", ResponseRows, model,
              ModelIterations);
  for (int bits : {32, 16}) {
    std::printf("panner frame %dx%d at %d bits (3 circles, 2 bands of 9 style-3 arcs, 2 lines, cross hairs, hub, "
                "fill and blit): %.2f us each (%d runs)\n",
                ViewSize, ViewSize, bits, TimeFrame(bits), FrameIterations);
  }
  return 0;
}
