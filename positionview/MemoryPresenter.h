#pragma once

#include <string>
#include <vector>

#include "positionview/DScreenPresenter.h"

// A DScreen presenter without a window: the back buffer is plain memory and presenting a frame copies it into a
// front buffer. It serves the tests and the benchmark, and anything that wants the picture as bytes.
class MemoryPresenter : public DScreenPresenter {
public:
  // A control of width x height pixels on a display of bitsPerPixel; 16-bit memory is 5-6-5 unless greenMask
  // says 5-5-5. Each row carries padBytes beyond its pixels, as a surface's pitch may.
  MemoryPresenter(std::int32_t width, std::int32_t height, std::int32_t bitsPerPixel,
                  std::uint32_t greenMask = 0x7E0, std::int32_t padBytes = 0);

  std::int32_t DisplayBitsPerPixel() const override { return BitsPerPixel; }
  void ControlSize(std::int32_t& width, std::int32_t& height) const override;
  bool CreateBackBuffer(std::int32_t width, std::int32_t height, DScreenBuffer& buffer) override;
  void ReleaseBackBuffer() override;
  bool Present(const DScreenBuffer& buffer) override;
  void ShowMessage(const char* text) override { Messages.emplace_back(text); }

  // The control changes size; a DScreen learns of it in UpdateRect.
  void ResizeControl(std::int32_t width, std::int32_t height);

  const std::vector<std::uint8_t>& BackMemory() const { return Back; }
  const std::vector<std::uint8_t>& FrontMemory() const { return Front; }
  const std::vector<std::string>& ShownMessages() const { return Messages; }
  std::int32_t RowPitch() const { return Pitch; }

private:
  std::int32_t ControlWidth;
  std::int32_t ControlHeight;
  std::int32_t BitsPerPixel;
  std::uint32_t GreenMask;
  std::int32_t PadBytes;
  std::int32_t Pitch = 0;
  std::vector<std::uint8_t> Back;
  std::vector<std::uint8_t> Front;
  std::vector<std::string> Messages;
};
