#pragma once

#include <cstdint>

// The back buffer of a DScreen: a rectangle of pixel memory, rows from the top down.
struct DScreenBuffer {
  std::uint8_t* Memory = nullptr;  // first byte of the top row; owned by the presenter
  std::int32_t Width = 0;          // pixels a row
  std::int32_t Height = 0;         // rows
  std::int32_t Pitch = 0;          // bytes from one row to the next, at least Width pixels
  std::int32_t BitsPerPixel = 0;   // 16, 24 or 32 in memory
  std::uint32_t GreenMask = 0;     // pixel format of 16-bit memory: 0x3E0 is 5-5-5, anything else 5-6-5
};

// The platform's side of a DScreen: it makes the back buffer, knows the size of the control the picture goes on,
// shows a finished frame there and tells the user of failures. A memory presenter stands in for it where there
// is no window; a widget presenter puts the picture on screen.
class DScreenPresenter {
public:
  virtual ~DScreenPresenter() = default;

  // Bits a pixel of the display: 8 or fewer cannot draw, 16 and 32 can, any other depth draws nothing.
  virtual std::int32_t DisplayBitsPerPixel() const = 0;
  // The control's client area, in pixels.
  virtual void ControlSize(std::int32_t& width, std::int32_t& height) const = 0;
  // Makes a back buffer of width x height pixels in the display's format, and describes it. False on failure.
  virtual bool CreateBackBuffer(std::int32_t width, std::int32_t height, DScreenBuffer& buffer) = 0;
  // Frees the back buffer; its memory is gone after this.
  virtual void ReleaseBackBuffer() = 0;
  // Puts the back buffer on the control. False on failure.
  virtual bool Present(const DScreenBuffer& buffer) = 0;
  // Shows a failure to the user, modally; the text is the program's own.
  virtual void ShowMessage(const char* text) = 0;
};
