#include "positionview/MemoryPresenter.h"

MemoryPresenter::MemoryPresenter(std::int32_t width, std::int32_t height, std::int32_t bitsPerPixel,
                                 std::uint32_t greenMask, std::int32_t padBytes)
    : ControlWidth(width), ControlHeight(height), BitsPerPixel(bitsPerPixel), GreenMask(greenMask),
      PadBytes(padBytes) {}

void MemoryPresenter::ControlSize(std::int32_t& width, std::int32_t& height) const {
  width = ControlWidth;
  height = ControlHeight;
}

bool MemoryPresenter::CreateBackBuffer(std::int32_t width, std::int32_t height, DScreenBuffer& buffer) {
  if (width <= 0 || height <= 0 || BitsPerPixel % 8 != 0 || PadBytes < 0) return false;
  Pitch = width * (BitsPerPixel / 8) + PadBytes;
  const auto bytes = static_cast<std::size_t>(Pitch) * static_cast<std::size_t>(height);
  Back.assign(bytes, 0);
  Front.assign(bytes, 0);
  buffer = {Back.data(), width, height, Pitch, BitsPerPixel, GreenMask};
  return true;
}

void MemoryPresenter::ReleaseBackBuffer() {
  Back.clear();
  Front.clear();
  Pitch = 0;
}

bool MemoryPresenter::Present(const DScreenBuffer& buffer) {
  if (buffer.Memory != Back.data() || Back.empty()) return false;
  Front = Back;
  return true;
}

void MemoryPresenter::ResizeControl(std::int32_t width, std::int32_t height) {
  ControlWidth = width;
  ControlHeight = height;
}
