// Very many windows of one parent: the visible part of each, and the cost of finding it.
#include <gtest/gtest.h>

#include <random>

#include <levelwidgets/platform/memory/window_tree.h>

namespace levelwidgets::memory {
namespace {

constexpr std::uint32_t kClipping = kWsVisible | kWsClipSiblings | kWsClipChildren;

class ManySiblingsTest : public ::testing::Test {
 protected:
  static constexpr PixelSize kArea{1000, 700};

  Window& Make(Window& parent, PixelRect rect, std::uint32_t style = kClipping) {
    Window& window = tree.Create(parent);
    window.rect = rect;
    window.style = style;
    return window;
  }
  // `count` children, each as `place` says by its number.
  template <typename Place>
  void Fill(int count, Place place) {
    for (int i = 0; i < count; ++i) Make(top, place(i));
    tree.Changed(top);
  }
  // How many siblings are looked at when every child is asked once for its visible part.
  std::uint64_t StepsToSeeAll() {
    const std::uint64_t before = tree.SiblingsLookedAt();
    for (Window* child : top.children) tree.Clip(*child);
    return tree.SiblingsLookedAt() - before;
  }
  // The same by taking away all that is in front.
  Region SeenOneByOne(const Window& child) const {
    Region seen(Intersect(child.rect, {0, 0, kArea.width, kArea.height}));
    for (const Window* other : top.children) {
      if (other == &child) return seen;
      if (other->Shown()) seen.Subtract(other->rect);
    }
    return seen;
  }

  WindowTree tree{{1024, 768}};
  Window& top = Make(tree.Desktop(), {0, 0, kArea.width, kArea.height});
};

TEST_F(ManySiblingsTest, WhatCanBeSeenOfEachIsWhatTheOthersLeave) {
  std::mt19937 random(7);
  const auto between = [&](int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
  };
  for (int i = 0; i < 600; ++i) {
    const int left = between(-60, kArea.width);
    const int top_edge = between(-60, kArea.height);
    const bool is_large = between(1, 40) == 1;
    const PixelSize size{between(0, is_large ? 400 : 60), between(0, is_large ? 400 : 60)};
    Make(top, {left, top_edge, left + size.width, top_edge + size.height},
         between(1, 5) == 1 ? kClipping & ~kWsVisible : kClipping);
  }
  tree.Changed(top);
  int seen = 0;
  for (Window* child : top.children) {
    if (!child->Shown()) continue;
    EXPECT_EQ(tree.Clip(*child), SeenOneByOne(*child));
    seen += tree.Clip(*child).Empty() ? 0 : 1;
  }
  EXPECT_GT(seen, 100);
  EXPECT_NE(top.children_seen.grid, nullptr);
}

TEST_F(ManySiblingsTest, AChangeIsSeenInTheNextAnswer) {
  Fill(300, [](int i) { return PixelRect{i * 3, 0, i * 3 + 2, 2}; });
  StepsToSeeAll();
  Window& last = *top.children.back();
  EXPECT_FALSE(tree.Clip(last).Empty());
  ASSERT_NE(top.children_seen.grid, nullptr);
  top.children.front()->rect = last.rect;
  tree.Changed(top);
  StepsToSeeAll();
  EXPECT_TRUE(tree.Clip(last).Empty());
  tree.PutInFront(last);
  tree.Changed(top);
  EXPECT_FALSE(tree.Clip(last).Empty());
}

TEST_F(ManySiblingsTest, SideBySideTheyCostTheirNumberAndNotItsSquare) {
  constexpr int kCount = 10'000;
  Fill(kCount, [](int i) {
    const int left = i % 100 * 10;
    const int top_edge = i / 100 * 7;
    return PixelRect{left, top_edge, left + 9, top_edge + 6};
  });
  EXPECT_LT(StepsToSeeAll(), 50u * kCount);
}

TEST_F(ManySiblingsTest, InOnePlaceTheyCostTheirNumberAndNotItsSquare) {
  constexpr int kCount = 10'000;
  Fill(kCount, [](int) { return PixelRect{100, 100, 180, 125}; });
  EXPECT_LT(StepsToSeeAll(), 5u * kCount);
}

TEST_F(ManySiblingsTest, AsLargeAsTheirParentTheyCostTheirNumberAndNotItsSquare) {
  constexpr int kCount = 10'000;
  Fill(kCount, [](int) { return PixelRect{0, 0, kArea.width, kArea.height}; });
  EXPECT_LT(StepsToSeeAll(), 5u * kCount);
  EXPECT_FALSE(tree.Clip(*top.children.front()).Empty());
  EXPECT_TRUE(tree.Clip(*top.children.back()).Empty());
}

TEST_F(ManySiblingsTest, AFewAreLookedAtOneByOne) {
  Fill(8, [](int i) { return PixelRect{i * 20, 0, i * 20 + 10, 10}; });
  StepsToSeeAll();
  EXPECT_EQ(top.children_seen.grid, nullptr);
}

}  // namespace
}  // namespace levelwidgets::memory
