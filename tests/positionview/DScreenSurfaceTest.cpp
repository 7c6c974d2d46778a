#include <algorithm>
#include <vector>

#include "tests/positionview/Canvas.h"

namespace {

constexpr std::uint8_t Guard = 0xA5;
constexpr int GuardBytes = 64;

// Lends a back buffer from the middle of a block of guard bytes, with guarded padding at the end of each row,
// so that a test sees any byte written where there is no pixel. Its Present can be made to fail.
class GuardedPresenter : public DScreenPresenter {
public:
  GuardedPresenter(int width, int height, int bits, int padBytes)
      : Width(width), Height(height), Bits(bits), Pad(padBytes) {}

  std::int32_t DisplayBitsPerPixel() const override { return Bits; }
  void ControlSize(std::int32_t& width, std::int32_t& height) const override { width = Width, height = Height; }
  bool CreateBackBuffer(std::int32_t width, std::int32_t height, DScreenBuffer& buffer) override {
    RowBytes = width * Bits / 8;
    Pitch = RowBytes + Pad;
    Rows = height;
    Block.assign(GuardBytes + Pitch * height + GuardBytes, Guard);
    buffer = {Block.data() + GuardBytes, width, height, Pitch, Bits, 0x7E0};
    for (int row = 0; row < height; ++row) std::fill_n(buffer.Memory + row * Pitch, RowBytes, 0);
    return true;
  }
  void ReleaseBackBuffer() override {}
  bool Present(const DScreenBuffer&) override { return PresentWorks; }
  void ShowMessage(const char* text) override { Messages.emplace_back(text); }

  bool GuardsIntact() const {
    std::vector<bool> pixel(Block.size(), false);
    for (int row = 0; row < Rows; ++row) std::fill_n(pixel.begin() + GuardBytes + row * Pitch, RowBytes, true);
    for (std::size_t i = 0; i < Block.size(); ++i)
      if (!pixel[i] && Block[i] != Guard) return false;
    return true;
  }

  int Width, Height, Bits, Pad;
  int RowBytes = 0, Pitch = 0, Rows = 0;
  bool PresentWorks = true;
  std::vector<std::uint8_t> Block;
  std::vector<std::string> Messages;
};

class SurfacePixels : public BothPixelSizes {};

}  // namespace

TEST(DScreenInit, TakesTheControlsSizeAndThePixelSizeOfTheDisplay) {
  for (const auto& [bits, bytes] : {std::pair{16, 2}, std::pair{32, 4}, std::pair{24, 0}}) {
    MemoryPresenter presenter(40, 30, bits);
    DScreen screen;
    ASSERT_TRUE(screen.Init(&presenter)) << bits << " bits";
    EXPECT_EQ(screen.GetWidth(), 40);
    EXPECT_EQ(screen.GetHeight(), 30);
    EXPECT_EQ(screen.GetBytesPerPixel(), bytes) << bits << " bits";
  }
}

TEST(DScreenInit, FailuresAreShownToTheUserAndLeaveNothingToDrawOn) {
  MemoryPresenter paletted(40, 30, 8);
  MemoryPresenter empty(0, 30, 32);
  DScreen screen;
  EXPECT_FALSE(screen.Init(&paletted));
  EXPECT_EQ(paletted.ShownMessages(), (std::vector<std::string>{"Please change to a screen mode with more than 8bpp",
                                                                "Not in a true colour screen mode\n"}));
  EXPECT_FALSE(screen.Init(&empty));
  EXPECT_EQ(empty.ShownMessages(), std::vector<std::string>{"Failed to Create Off Screen surface\n"});
  EXPECT_FALSE(screen.Init(nullptr));
  EXPECT_FALSE(screen.FloodFill(0) || screen.Lock() || screen.Unlock() || screen.Blit());
}

TEST_P(SurfacePixels, DrawingWhileUnlockedDoesNothing) {
  Canvas canvas(16, 16, Bits());
  ASSERT_TRUE(canvas.Screen.Unlock());
  EXPECT_FALSE(canvas.Screen.Unlock());
  EXPECT_FALSE(canvas.Screen.SetPixel(3, 3, 0xFFFF));
  EXPECT_FALSE(canvas.Screen.DrawLine(0, 1, 15, 9, 0xFFFFFF, 0));
  EXPECT_FALSE(canvas.Screen.DrawCircle(8, 8, 5, 0xFFFFFF, 3));
  EXPECT_FALSE(canvas.Screen.DrawArc(8, 8, 5, 0, 360, 0xFFFFFF, 2));
  EXPECT_TRUE(canvas.Lit().empty());
}

TEST_P(SurfacePixels, FloodFillSetsEveryPixelToTheRawValue) {
  Canvas canvas(7, 5, Bits());
  const std::uint32_t raw = Bits() == 16 ? 0xB22u : 0x14C814u;
  ASSERT_TRUE(canvas.Screen.Unlock() && canvas.Screen.FloodFill(raw));
  for (int y = 1; y <= 5; ++y)
    for (int x = 0; x < 7; ++x) ASSERT_EQ(canvas.At(x, y), raw) << x << "," << y;
}

// y = 1 is the last row of memory and y = Height the first; rows are Pitch bytes apart, pixels low byte first.
TEST_P(SurfacePixels, PixelsGoByPitchWithYCountingUp) {
  Canvas canvas(5, 4, Bits(), 0x7E0, 8);
  const int pitch = 5 * Bits() / 8 + 8;
  ASSERT_EQ(canvas.Presenter.RowPitch(), pitch);
  ASSERT_TRUE(canvas.Screen.SetPixel(1, 1, 0xABCD) && canvas.Screen.SetPixel(4, 4, 0x0102));
  const std::uint8_t* memory = canvas.Presenter.BackMemory().data();
  const int bytes = Bits() / 8;
  EXPECT_EQ(memory[3 * pitch + bytes], 0xCD);
  EXPECT_EQ(memory[3 * pitch + bytes + 1], 0xAB);
  EXPECT_EQ(memory[4 * bytes], 0x02);
  EXPECT_EQ(memory[4 * bytes + 1], 0x01);
  EXPECT_EQ(canvas.Lit(), (PixelSet{{1, 1}, {4, 4}}));
}

// The inclusive limits accept x == Width and y' == Height (y == 0), one beyond the last column and the last
// row, but nothing may land outside the pixels of the buffer: not in a row's padding, not past its end.
TEST_P(SurfacePixels, EdgesBeyondAreAcceptedButNeverWrittenOutsideTheBuffer) {
  GuardedPresenter presenter(6, 5, Bits(), 8);
  DScreen screen;
  ASSERT_TRUE(screen.Init(&presenter) && screen.Lock());
  EXPECT_TRUE(screen.SetPixel(6, 3, 0xFFFFFFFF));
  EXPECT_TRUE(screen.SetPixel(2, 0, 0xFFFFFFFF));
  EXPECT_TRUE(screen.SetPixel(6, 0, 0xFFFFFFFF));
  EXPECT_FALSE(screen.SetPixel(7, 3, 0xFFFFFFFF));
  EXPECT_FALSE(screen.SetPixel(-1, 3, 0xFFFFFFFF));
  EXPECT_FALSE(screen.SetPixel(2, -1, 0xFFFFFFFF));
  EXPECT_FALSE(screen.SetPixel(2, 6, 0xFFFFFFFF));
  EXPECT_TRUE(screen.SetPixel(0, 5, 0xFFFFFFFF) && screen.SetPixel(5, 1, 0xFFFFFFFF));
  EXPECT_EQ(presenter.Block[GuardBytes], 0xFF);
  EXPECT_EQ(presenter.Block[GuardBytes + 4 * presenter.Pitch + 5 * Bits() / 8], 0xFF);
  for (int style = 0; style < 4; ++style) {
    screen.DrawCircle(3, 2, 5, 0xFFFFFF, style);
    screen.DrawCircle(6, 5, 3, 0xFFFFFF, style);
    screen.DrawArc(5, 0, 7, 300, 120, 0xFFFFFF, style);
    screen.DrawLine(-5, -5, 20, 15, 0xFFFFFF, style);
    screen.DrawLine(6, 0, 6, 5, 0xFFFFFF, style);
  }
  EXPECT_TRUE(presenter.GuardsIntact());

  // A control that grew since its back buffer was made passes larger limits; the buffer stays as it was.
  presenter.Width = 20;
  presenter.Height = 15;
  screen.UpdateRect();
  EXPECT_EQ(screen.GetWidth(), 20);
  EXPECT_EQ(screen.GetHeight(), 15);
  EXPECT_TRUE(screen.SetPixel(19, 15, 0xFFFF));
  screen.DrawCircle(10, 7, 9, 0xFFFFFF, 3);
  EXPECT_TRUE(presenter.GuardsIntact());
}

TEST(DScreenDepth, TwentyFourBitsDrawsNothing) {
  MemoryPresenter presenter(10, 8, 24);
  DScreen screen;
  ASSERT_TRUE(screen.Init(&presenter) && screen.FloodFill(0) && screen.Lock());
  EXPECT_TRUE(screen.SetPixel(3, 3, 0xFFFFFF));
  EXPECT_TRUE(screen.DrawCircle(5, 4, 3, 0xFFFFFF, 3));
  const auto& memory = presenter.BackMemory();
  EXPECT_TRUE(std::all_of(memory.begin(), memory.end(), [](std::uint8_t b) { return b == 0; }));
}

TEST(DScreenBlit, PutsTheFinishedFrameOnTheFrontOrSaysItCannot) {
  Canvas canvas(9, 9, 32);
  canvas.Screen.DrawCircle(4, 5, 3, 0x14C814, 0);
  ASSERT_TRUE(canvas.Screen.Unlock());
  EXPECT_NE(canvas.Presenter.FrontMemory(), canvas.Presenter.BackMemory());
  ASSERT_TRUE(canvas.Screen.Blit());
  EXPECT_EQ(canvas.Presenter.FrontMemory(), canvas.Presenter.BackMemory());

  GuardedPresenter failing(8, 8, 16, 0);
  DScreen screen;
  ASSERT_TRUE(screen.Init(&failing));
  failing.PresentWorks = false;
  EXPECT_FALSE(screen.Blit());
  EXPECT_FALSE(screen.Blit());
  EXPECT_EQ(failing.Messages, std::vector<std::string>(2, "Failed to Blit back buffer to Primary buffer\n"));
}

INSTANTIATE_TEST_SUITE_P(Surface, SurfacePixels, ::testing::Values(16, 32), BitsName);
