#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/window_tree.h>

namespace levelwidgets::memory {
namespace {

constexpr std::uint32_t kClipping = kWsVisible | kWsClipSiblings | kWsClipChildren;

class WindowTreeTest : public ::testing::Test {
 protected:
  Window& Make(Window& parent, PixelRect rect, std::uint32_t style = kClipping) {
    Window& window = tree.Create(parent);
    window.rect = rect;
    window.style = style;
    tree.Changed(window);
    return window;
  }

  WindowTree tree{{1024, 768}};
  Window& top = Make(tree.Desktop(), {100, 100, 300, 200});
};

TEST_F(WindowTreeTest, ANewWindowNeverGetsTheHandleOfARemovedOne) {
  const WindowHandle first = Make(top, {0, 0, 1, 1}).handle;
  tree.Remove(*tree.Find(first));
  const WindowHandle second = Make(top, {0, 0, 1, 1}).handle;
  EXPECT_EQ(tree.Find(first), nullptr);
  EXPECT_NE(tree.Find(second), nullptr);
  EXPECT_NE(first, second);
}

TEST_F(WindowTreeTest, HandlesKeepClearOfTheSpecialPlacesInTheOrder) {
  for (int i = 0; i < 10000; ++i) {
    Window& window = tree.Create(top);
    ASSERT_GT(window.handle.value, kHwndBottom);
    ASSERT_LT(window.handle.value, kHwndNoTopMost);
    tree.Remove(window);
  }
}

TEST_F(WindowTreeTest, UnknownHandlesFindNothing) {
  EXPECT_EQ(tree.Find({}), nullptr);
  EXPECT_EQ(tree.Find({12345}), nullptr);
  EXPECT_EQ(tree.Find({0xFFFFFFFFu}), nullptr);
}

TEST_F(WindowTreeTest, RemovingFreesWhatIsInside) {
  Window& child = Make(top, {0, 0, 50, 50});
  Make(child, {0, 0, 10, 10});
  EXPECT_EQ(tree.Count(), 3u);
  tree.Remove(child);
  EXPECT_EQ(tree.Count(), 1u);
}

TEST_F(WindowTreeTest, AChildIsCutByItsAncestors) {
  Window& child = Make(top, {150, 50, 250, 150});
  EXPECT_EQ(tree.Clip(child), Region(PixelRect{150, 50, 200, 100}));
  Window& grandchild = Make(child, {-10, -10, 80, 20});
  EXPECT_EQ(tree.Clip(grandchild), Region(PixelRect{150, 50, 200, 70}));
  EXPECT_EQ(tree.Target(grandchild).origin, (PixelPoint{140, 40}));
}

TEST_F(WindowTreeTest, SiblingsInFrontCoverOnlyWhatIsClippedByThem) {
  Make(top, {20, 0, 40, 40});
  Window& clipped = Make(top, {0, 0, 30, 30});
  Window& unclipped = Make(top, {0, 0, 30, 30}, kWsVisible);
  EXPECT_EQ(tree.Clip(clipped), Region(PixelRect{0, 0, 20, 30}));
  EXPECT_EQ(tree.Clip(unclipped), Region(PixelRect{0, 0, 30, 30}));
}

TEST_F(WindowTreeTest, HiddenSiblingsCoverNothing) {
  Window& front = Make(top, {20, 0, 40, 40});
  Window& back = Make(top, {0, 0, 30, 30});
  EXPECT_EQ(tree.Clip(back), Region(PixelRect{0, 0, 20, 30}));
  front.style &= ~kWsVisible;
  tree.Changed(front);
  EXPECT_EQ(tree.Clip(back), Region(PixelRect{0, 0, 30, 30}));
}

TEST_F(WindowTreeTest, ChildrenAreCutOutOnlyWithClipChildren) {
  Make(top, {10, 10, 20, 20});
  Region expected(PixelRect{0, 0, 200, 100});
  EXPECT_FALSE(tree.Clip(top) == expected);
  expected.Subtract(PixelRect{10, 10, 20, 20});
  EXPECT_EQ(tree.Clip(top), expected);
  top.style &= ~kWsClipChildren;
  tree.Changed(top);
  EXPECT_EQ(tree.Clip(top), Region(PixelRect{0, 0, 200, 100}));
}

TEST_F(WindowTreeTest, AVisiblePartIsComputedOnceUntilTheTreeChanges) {
  Window& child = Make(top, {0, 0, 50, 50});
  const PixelRect* before = tree.Clip(child).Rects().data();
  EXPECT_EQ(tree.Clip(child).Rects().data(), before);
  const std::uint64_t seen = child.seen_at;
  Window& other = Make(tree.Desktop(), {0, 0, 10, 10});
  tree.Changed(other);
  tree.Clip(child);
  EXPECT_EQ(child.seen_at, seen);  // another top-level window does not concern it
  tree.Changed(top);
  tree.Clip(child);
  EXPECT_NE(child.seen_at, seen);
}

TEST_F(WindowTreeTest, WhatCanBeSeenIsKeptOnceAllOfAWindowIsAskedFor) {
  Window& seen = Make(top, {0, 0, 50, 50});
  Window& asked = Make(top, {60, 0, 110, 50});
  tree.VisibleWithin(seen, {0, 0, 49, 50});
  tree.CanSeeAny(asked, Region(PixelRect{0, 0, 49, 50}));
  EXPECT_NE(seen.seen_at, top.changed_at);
  EXPECT_NE(asked.seen_at, top.changed_at);
  tree.VisibleWithin(seen, {-5, -5, 60, 60});
  tree.CanSeeAny(asked, Region(PixelRect{-5, -5, 60, 60}));
  EXPECT_EQ(seen.seen_at, top.changed_at);
  EXPECT_EQ(asked.seen_at, top.changed_at);
}

TEST_F(WindowTreeTest, AnAreaCanBeSeenWhereTheWindowInFrontLeavesSomeOfIt) {
  Make(top, {10, 0, 60, 50});  // the first is in front
  Window& child = Make(top, {0, 0, 50, 50});
  for (const bool known : {false, true}) {
    if (known) tree.Clip(child);
    EXPECT_TRUE(tree.CanSeeAny(child, Region(PixelRect{9, 0, 20, 5}))) << known;
    EXPECT_FALSE(tree.CanSeeAny(child, Region(PixelRect{10, 0, 20, 5}))) << known;
    EXPECT_FALSE(tree.CanSeeAny(child, Region())) << known;
  }
}

TEST_F(WindowTreeTest, VisiblePartsAreInClientPixels) {
  Window& child = Make(top, {20, 10, 60, 50});
  Make(child, {0, 0, 5, 5});
  Region expected(PixelRect{0, 0, 10, 10});
  expected.Subtract(PixelRect{0, 0, 5, 5});
  EXPECT_EQ(tree.VisibleWithin(child, {-3, -3, 10, 10}), expected);
  EXPECT_TRUE(tree.VisibleWithin(child, {40, 0, 50, 10}).Empty());
}

TEST_F(WindowTreeTest, OnlyAShownTopLevelWindowHasPixels) {
  Window& child = Make(top, {0, 0, 50, 50});
  EXPECT_EQ(top.store->size, (PixelSize{200, 100}));
  EXPECT_EQ(child.store, nullptr);
  EXPECT_EQ(tree.Target(child).store, top.store.get());
  top.style &= ~kWsVisible;
  tree.Changed(top);
  EXPECT_EQ(top.store, nullptr);
  EXPECT_EQ(tree.Target(child).store, nullptr);
  EXPECT_TRUE(tree.Target(child).clip.empty());
}

TEST_F(WindowTreeTest, AResizedStoreKeepsItsPixels) {
  top.store->Row(5)[7] = 0x123456;
  top.rect.right += 50;
  tree.Changed(top);
  EXPECT_EQ(top.store->size.width, 250);
  EXPECT_EQ(top.store->Row(5)[7], 0x123456u);
}

TEST_F(WindowTreeTest, TopMostWindowsStayInFront) {
  Window& top_most = tree.Create(tree.Desktop());
  top_most.ex_style = kWsExTopMost;
  tree.PutInFront(top_most);
  Window& other = tree.Create(tree.Desktop());
  tree.PutInFront(other);
  EXPECT_EQ(tree.Desktop().children, (std::list<Window*>{&top_most, &other, &top}));
  tree.PutBehind(top_most);
  EXPECT_EQ(tree.Desktop().children.front(), &top_most);
  tree.PutAfter(top_most, top);
  EXPECT_EQ(tree.Desktop().children.front(), &top_most);
  tree.PutAfter(other, top);
  EXPECT_EQ(tree.Desktop().children, (std::list<Window*>{&top_most, &top, &other}));
}

TEST_F(WindowTreeTest, ChildrenAreMadeBehindTheirSiblings) {
  Window& first = Make(top, {0, 0, 1, 1});
  Window& second = Make(top, {0, 0, 1, 1});
  EXPECT_EQ(top.children, (std::list<Window*>{&first, &second}));
  tree.PutInFront(second);
  EXPECT_EQ(top.children, (std::list<Window*>{&second, &first}));
}

}  // namespace
}  // namespace levelwidgets::memory
