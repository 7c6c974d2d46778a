#pragma once

#include <cstdint>

#include "positionview/DScreenPresenter.h"

// A double-buffered software drawing surface for one control. Everything is drawn pixel by pixel into the back
// buffer while it is locked, and Blit shows the finished frame. A frame is always
// FloodFill, Lock, primitives, Unlock, Blit.
//
// Coordinates: origin at the bottom left of the control, y grows upward. Angles in degrees, 0 up, clockwise.
// Colours of the primitives are 0xRRGGBB; FloodFill and SetPixel take raw pixel values.
//
// Styles: 0 solid lines and single pixels; 1 lines dashed four on, five off; 2 dashed lines, and arcs draw their
// two radii first; 3 dashed lines, and each circle or arc pixel gets a second one a step further out in x and y,
// which closes the gaps between neighbouring radii.
class DScreen {
public:
  DScreen() = default;
  DScreen(const DScreen&) = delete;
  DScreen& operator=(const DScreen&) = delete;
  virtual ~DScreen();

  // Makes the back buffer of the control's size through the presenter, which is borrowed and must outlive this
  // surface or its Release. A failure is shown to the user and gives false.
  bool Init(DScreenPresenter* presenter);
  void Release();
  // Takes the control's size again after it moved or changed; the back buffer keeps its own.
  void UpdateRect();

  bool FloodFill(std::uint32_t rawColour);
  bool Lock();
  bool Unlock();
  bool Blit();

  bool SetPixel(std::int32_t x, std::int32_t y, std::uint32_t value);
  bool DrawLine(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::uint32_t colour,
                std::int32_t style);
  bool DrawCircle(std::int32_t x, std::int32_t y, std::int32_t radius, std::uint32_t colour, std::int32_t style);
  bool DrawArc(std::int32_t x, std::int32_t y, std::int32_t radius, std::int32_t startAngle, std::int32_t endAngle,
               std::uint32_t colour, std::int32_t style);

  std::int32_t GetWidth() const { return Width; }
  std::int32_t GetHeight() const { return Height; }
  std::int32_t GetBytesPerPixel() const { return BytesPerPixel; }
  std::int32_t GetPitch() const { return Pitch; }
  const std::uint8_t* GetMemory() const { return Memory; }
  bool IsLocked() const { return Locked; }

private:
  // Colour 0xRRGGBB as a raw pixel of the back buffer's format.
  std::uint32_t RawColour(std::uint32_t colour) const;
  // Sets the pixel and its style-3 twin one step further out (signs give the outward direction).
  void PlotRound(std::int32_t x, std::int32_t y, std::int32_t outX, std::int32_t outY, std::uint32_t pixel,
                 std::int32_t style);

  std::int32_t Width = 0;          // control, pixels
  std::int32_t Height = 0;         // control, pixels
  std::int32_t BytesPerPixel = 0;  // 2 or 4; 0 for any other true-colour depth, which then draws nothing
  std::int32_t Pitch = 0;          // bytes a row, valid while locked
  std::uint8_t* Memory = nullptr;  // start of the back buffer, valid while locked
  bool Locked = false;

  DScreenPresenter* Presenter = nullptr;  // borrowed
  DScreenBuffer BackBuffer;               // what the presenter made; Memory null when there is none
};
