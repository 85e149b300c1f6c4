#include <levelwidgets/presenter/shown_pixels.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace levelwidgets::presenter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ShownPixelsTest : public ::testing::Test {
 protected:
  ShownPixelsTest() {
    store.size = {20, 10};
    store.pixels.assign(200, 1);
    shown.Update(store, part);
  }
  void Change(int x, int y) { ++store.Row(part.top + y)[part.left + x]; }

  memory::PixelStore store;
  PixelRect part{2, 3, 18, 9};
  ShownPixels shown;
};

TEST_F(ShownPixelsTest, TheFirstUpdateSendsEverything) {
  ShownPixels first;
  EXPECT_THAT(first.Update(store, part), ElementsAre(PixelRect{0, 0, 16, 6}));
  EXPECT_THAT(first.Update(store, part), IsEmpty());
}

TEST_F(ShownPixelsTest, OneChangedPixelIsSentAlone) {
  Change(0, 0);
  EXPECT_THAT(shown.Update(store, part), ElementsAre(PixelRect{0, 0, 1, 1}));
  Change(15, 5);
  EXPECT_THAT(shown.Update(store, part), ElementsAre(PixelRect{15, 5, 16, 6}));
  EXPECT_EQ(shown.Row(5)[15], 2u);
}

TEST_F(ShownPixelsTest, RowsThatFollowEachOtherAreOneRectangle) {
  Change(3, 1);
  Change(7, 1);
  Change(1, 2);
  Change(4, 4);
  EXPECT_THAT(shown.Update(store, part), ElementsAre(PixelRect{1, 1, 8, 3}, PixelRect{4, 4, 5, 5}));
}

TEST_F(ShownPixelsTest, ChangesOutsideThePartAreNotSent) {
  ++store.Row(2)[5];
  ++store.Row(4)[1];
  ++store.Row(4)[18];
  EXPECT_THAT(shown.Update(store, part), IsEmpty());
}

TEST_F(ShownPixelsTest, AnotherSizeSendsEverything) {
  part.right = 17;
  EXPECT_THAT(shown.Update(store, part), ElementsAre(PixelRect{0, 0, 15, 6}));
}

TEST_F(ShownPixelsTest, ForgottenPixelsAreSentAgainEvenWhenBlack) {
  store.pixels.assign(200, 0);
  shown.Update(store, part);
  shown.Forget();
  EXPECT_THAT(shown.Update(store, part), ElementsAre(PixelRect{0, 0, 16, 6}));
}

TEST_F(ShownPixelsTest, AWindowWithoutSizeShowsNothing) {
  EXPECT_THAT(shown.Update(store, {4, 4, 4, 4}), IsEmpty());
  EXPECT_THAT(shown.Update(store, {4, 4, 8, 4}), IsEmpty());
}

TEST(WritePixels, MovesColorsToTheirPlace) {
  const std::uint32_t pixels[] = {0x00332211, 0x000000FF};
  std::uint32_t to[3] = {};
  WritePixels(pixels, 2, {16, 8, 0}, to);
  EXPECT_THAT(to, ElementsAre(0x112233, 0xFF0000, 0));
  WritePixels(pixels, 1, {0, 8, 16}, to);
  EXPECT_EQ(to[0], 0x332211u);
}

}  // namespace
}  // namespace levelwidgets::presenter
