// The geometry of a tab strip, by itself.
#include <levelwidgets/controls/tabstrip/flat_tab_strip_layout.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <levelwidgets/testing/print_pixels.h>

namespace levelwidgets {

namespace {

constexpr PixelRect kSurface{0, 0, 300, 200};

TabStripLayout Layout(int tab_width, bool tabs_at_bottom = false) {
  return TabStripLayout({kSurface, 20, tab_width, tabs_at_bottom});
}

TEST(TabStripLayout, TheFrameSharesItsLineWithTheBand) {
  EXPECT_EQ(Layout(96).Frame(), (PixelRect{0, 19, 300, 200}));
  EXPECT_EQ(Layout(96, true).Frame(), (PixelRect{0, 0, 300, 181}));
}

struct TabCase {
  bool tabs_at_bottom;
  int tab;
  PixelRect outline;
  PixelRect interior;
  PixelRect selected_interior;
};
class TabStripTabTest : public ::testing::TestWithParam<TabCase> {};

TEST_P(TabStripTabTest, StandsWithGapsOfFivePixelsAndOpensToThePageWhenSelected) {
  const TabStripLayout layout = Layout(96, GetParam().tabs_at_bottom);
  EXPECT_EQ(layout.Tab(GetParam().tab), GetParam().outline);
  EXPECT_EQ(layout.Interior(GetParam().tab, false), GetParam().interior);
  EXPECT_EQ(layout.Interior(GetParam().tab, true), GetParam().selected_interior);
}

INSTANTIATE_TEST_SUITE_P(
    Tabs, TabStripTabTest,
    ::testing::Values(TabCase{false, 1, {0, 0, 96, 20}, {1, 1, 95, 19}, {1, 1, 95, 20}},
                      TabCase{false, 2, {101, 0, 197, 20}, {102, 1, 196, 19}, {102, 1, 196, 20}},
                      TabCase{false, 3, {202, 0, 298, 20}, {203, 1, 297, 19}, {203, 1, 297, 20}},
                      TabCase{true, 1, {0, 180, 96, 200}, {1, 181, 95, 199}, {1, 180, 95, 199}},
                      TabCase{true, 2, {101, 180, 197, 200}, {102, 181, 196, 199}, {102, 180, 196, 199}}));

struct FocusCase {
  PixelRect interior;
  int caption_width;
  PixelRect frame;
};
class TabStripFocusTest : public ::testing::TestWithParam<FocusCase> {};

TEST_P(TabStripFocusTest, SurroundsTheCaptionByOnePixelRoundedTiesToEven) {
  EXPECT_EQ(TabStripLayout::FocusFrame(GetParam().interior, GetParam().caption_width), GetParam().frame);
}

INSTANTIATE_TEST_SUITE_P(Captions, TabStripFocusTest,
                         ::testing::Values(FocusCase{{1, 1, 95, 20}, 30, {32, 2, 64, 20}},
                                           FocusCase{{1, 1, 95, 20}, 31, {32, 2, 65, 20}},  // 31.5
                                           FocusCase{{1, 1, 95, 20}, 33, {30, 2, 65, 20}},  // 30.5
                                           FocusCase{{102, 1, 196, 20}, 30, {133, 2, 165, 20}},
                                           FocusCase{{1, 1, 95, 20}, 200, {-53, 2, 149, 20}}));

// How many tabs of `tab_width` pixels are on the surface: those before the first that is not.
int Visible(int tab_width) {
  const TabStripLayout layout = Layout(tab_width);
  int tab = 1;
  while (tab <= 32767 && layout.CanSee(tab)) ++tab;
  for (int later = tab; later <= 32767; later += 97) EXPECT_FALSE(layout.CanSee(later)) << tab_width;
  return tab - 1;
}

TEST(TabStripLayout, TheFirstTabOutsideTheSurfaceEndsTheRow) {
  EXPECT_EQ(Visible(96), 3);
  EXPECT_EQ(Visible(300), 1);
  EXPECT_EQ(Visible(295), 1) << "the second begins at the edge";
  EXPECT_EQ(Visible(294), 2);
  EXPECT_EQ(Visible(1), 50);
  EXPECT_EQ(Visible(-96), 1) << "the second is left of the surface";
  EXPECT_EQ(Visible(-5), 32767) << "all in one place";
}

TEST(TabStripLayout, ASurfaceWithoutWidthShowsNoTab) {
  EXPECT_FALSE(TabStripLayout({{0, 0, 0, 0}, 20, 96, false}).CanSee(1));
}

TEST(TabStripLayout, PlacesBeyondWhatDrawingReachesAreMovedWithinIt) {
  const TabStripLayout wide = Layout(kFarthestPixel);
  EXPECT_EQ(wide.Tab(1), (PixelRect{0, 0, kFarthestPixel, 20}));
  EXPECT_EQ(wide.Tab(32767), (PixelRect{kFarthestPixel, 0, kFarthestPixel, 20}));
  EXPECT_EQ(Layout(-kFarthestPixel).Tab(32767), (PixelRect{-kFarthestPixel, 0, -kFarthestPixel, 20}));
  EXPECT_EQ(TabStripLayout::FocusFrame({1, 1, 9, 9}, std::numeric_limits<int>::max()).right, kFarthestPixel);
}

struct PressCase {
  const char* name;
  float x;
  float y;
  float tab_width;
  int tab;
};
class TabPressTest : public ::testing::TestWithParam<PressCase> {};

// Three tabs in a band of 20 pixels at 15 twips per pixel.
TEST_P(TabPressTest, ChoosesTheFirstTabWhoseRightEdgeIsNotLeftOfIt) {
  EXPECT_EQ(
      TabPressed({Twips(GetParam().x), Twips(GetParam().y)}, {Twips(GetParam().tab_width), 3, 20, 15, 15}),
      GetParam().tab);
}

INSTANTIATE_TEST_SUITE_P(
    Places, TabPressTest,
    ::testing::Values(
        PressCase{"at_the_origin", 0, 0, 1440, 1}, PressCase{"left_of_all", -100, 0, 1440, 1},
        PressCase{"above", 0, -100, 1440, 1}, PressCase{"in_the_gap_is_the_first_tab", 1515, 0, 1440, 1},
        PressCase{"behind_the_gap", 1516, 0, 1440, 2},
        PressCase{"the_gaps_before_do_not_add_up", 2956, 0, 1440, 3},
        PressCase{"the_last_edge", 4395, 0, 1440, 3},
        PressCase{"the_last_pixels_of_the_last_tab_are_none", 4396, 0, 1440, 0},
        PressCase{"the_last_row", 0, 299, 1440, 1},  // 299 \ 15 = 19
        PressCase{"below_the_band", 0, 300, 1440, 0}, PressCase{"no_width_leaves_one_gap", 75, 0, 0, 1},
        PressCase{"no_width_behind_the_gap", 76, 0, 0, 0}, PressCase{"negative_width", 0, 0, -60, 1},
        PressCase{"very_negative_width", 0, 0, -1440, 0}, PressCase{"enormous_width", 30000, 0, 3e38f, 1},
        PressCase{"no_number", 0, 0, NAN, 0}),
    [](const auto& place) { return place.param.name; });

}  // namespace
}  // namespace levelwidgets
