#include "positionview/DScreen.h"

#include <cstring>

#include "positionview/PixelColour.h"

namespace {

// Raw pixels are stored low byte first, as the display reads them; a 4-byte pixel is one native word.
void StorePixel(std::uint8_t* at, std::int32_t bytes, std::uint32_t value) {
  if (bytes == 4) {
    std::memcpy(at, &value, sizeof value);
    return;
  }
  for (std::int32_t b = 0; b < bytes; ++b) at[b] = static_cast<std::uint8_t>(value >> (8 * b));
}

std::int32_t BytesPerPixelForDepth(std::int32_t bits) {
  if (bits == 16) return 2;
  if (bits == 32) return 4;
  return 0;
}

}  // namespace

DScreen::~DScreen() { Release(); }

bool DScreen::Init(DScreenPresenter* presenter) {
  if (presenter == nullptr) return false;
  Release();
  Presenter = presenter;
  const std::int32_t depth = Presenter->DisplayBitsPerPixel();
  if (depth <= 8) {
    Presenter->ShowMessage("Please change to a screen mode with more than 8bpp");
    Presenter->ShowMessage("Not in a true colour screen mode\n");
    Release();
    return false;
  }
  BytesPerPixel = BytesPerPixelForDepth(depth);
  Presenter->ControlSize(Width, Height);
  if (!Presenter->CreateBackBuffer(Width, Height, BackBuffer)) {
    Presenter->ShowMessage("Failed to Create Off Screen surface\n");
    Release();
    return false;
  }
  return true;
}

void DScreen::Release() {
  if (Presenter == nullptr) return;
  if (BackBuffer.Memory != nullptr) Presenter->ReleaseBackBuffer();
  BackBuffer = DScreenBuffer{};
  Presenter = nullptr;
  Memory = nullptr;
  Pitch = 0;
  Locked = false;
}

void DScreen::UpdateRect() {
  if (Presenter != nullptr) Presenter->ControlSize(Width, Height);
}

bool DScreen::FloodFill(std::uint32_t rawColour) {
  if (BackBuffer.Memory == nullptr) return false;
  // The whole buffer, whatever its depth: the fill writes the buffer's own pixel size, not BytesPerPixel.
  const std::int32_t bytes = BackBuffer.BitsPerPixel / 8;
  for (std::int32_t row = 0; row < BackBuffer.Height; ++row) {
    std::uint8_t* at = BackBuffer.Memory + static_cast<std::ptrdiff_t>(row) * BackBuffer.Pitch;
    for (std::int32_t column = 0; column < BackBuffer.Width; ++column, at += bytes) StorePixel(at, bytes, rawColour);
  }
  return true;
}

bool DScreen::Lock() {
  if (BackBuffer.Memory == nullptr) return false;
  Memory = BackBuffer.Memory;
  Pitch = BackBuffer.Pitch;
  Locked = true;
  return true;
}

bool DScreen::Unlock() {
  if (!Locked) return false;
  Locked = false;
  return true;
}

bool DScreen::Blit() {
  if (Presenter == nullptr || BackBuffer.Memory == nullptr) return false;
  if (Presenter->Present(BackBuffer)) return true;
  Presenter->ShowMessage("Failed to Blit back buffer to Primary buffer\n");
  return false;
}

bool DScreen::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t value) {
  if (!Locked) return false;
  const std::int32_t rowFromTop = Height - y;
  // Inclusive limits: x == Width and rowFromTop == Height are accepted, one beyond the last column and the last
  // row, and so is anything up to a control that has grown since the back buffer was made.
  if (x < 0 || x > Width || rowFromTop < 0 || rowFromTop > Height) return false;
  // An accepted pixel is written only where the back buffer really has one: nothing is ever written outside its
  // memory, nor into the padding at the end of a row.
  // A depth other than 16 or 32 bits draws nothing at all.
  if (x >= BackBuffer.Width || rowFromTop >= BackBuffer.Height) return true;
  if (BackBuffer.BitsPerPixel != 8 * BytesPerPixel) return true;
  if (BytesPerPixel == 2) {
    StorePixel(Memory + static_cast<std::ptrdiff_t>(Pitch) * rowFromTop + 2 * x, 2, value);
  } else {
    const std::ptrdiff_t word = static_cast<std::ptrdiff_t>(Pitch / 4) * rowFromTop + x;
    StorePixel(Memory + 4 * word, 4, value);
  }
  return true;
}

std::uint32_t DScreen::RawColour(std::uint32_t colour) const {
  return ToRawPixel(colour, BytesPerPixel, BackBuffer.GreenMask);
}
