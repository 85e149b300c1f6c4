// FlatScroll as a part of another control.
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A list of lines with a bar at its right edge, as long as itself.
class Lines : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Lines>("Lines", "A control with a scroll bar."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Lines(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0x00FFFFFF), .fore_color = Color(0), .font = {}}) {
    fsbarV->Change += [this] { first_lines.push_back(fsbarV->Value()); };
  }
  const ClassInfo& Class() const override { return Table(); }
  void OnResize() override {
    const Surface& surface = GetSurface();
    const Twips width(255);
    fsbarV.Move({surface.ScaleWidth() - width, Twips()}, {width, surface.ScaleHeight()});
    fsbarV->SetMax(50);
    fsbarV.SetVisible(true);
  }
  void OnPaint() override { GetSurface().Cls(); }

  ChildControl<FlatScroll> fsbarV{*this, "fsbarV", {Twips(255), Twips(495)}};
  std::vector<std::int32_t> first_lines;
};

class FlatScrollPartTest : public DesktopTest {
 protected:
  // The bar covers 17 by 200 pixels.
  Lines& TheLines() {
    if (!lines_) {
      lines_ = &AddNew<Lines>("lns", {Twips(600), Twips(300)}, {Twips(2000), Twips(3000)});
      lines_->first_lines.clear();
      Driver().Settle();
    }
    return *lines_;
  }
  FlatScroll& Bar() { return *TheLines().fsbarV; }
  PixelPoint OnBar(PixelPoint inside) { return ScreenPoint(Bar(), inside); }

 private:
  Lines* lines_ = nullptr;
};

TEST_F(FlatScrollPartTest, StartsAsALoadedBar) {
  EXPECT_EQ(Bar().Min(), 1);
  EXPECT_EQ(Bar().Value(), 1);
  EXPECT_EQ(Bar().Max(), 50);
}

TEST_F(FlatScrollPartTest, IsPaintedInItsPlace) {
  EXPECT_EQ(PixelAt(Bar(), {2, 2}), ColorRef{0x00CEDBDE});
  EXPECT_EQ(PixelAt(Bar(), {8, 100}), ColorRef{0x00EFF7F7});
  EXPECT_EQ(PixelAt(Bar(), {-1, 100}), ColorRef{0x00FFFFFF});
  EXPECT_EQ(PixelAt(Bar(), {2, 198}), ColorRef{0x00CEDBDE});
}

TEST_F(FlatScrollPartTest, NotifiesItsOwnerOfEveryChange) {
  TheLines();
  Driver().Click(OnBar({8, 195}));
  Driver().Click(OnBar({8, 150}));
  EXPECT_THAT(TheLines().first_lines, ElementsAre(2, 5));
  Bar().SetValue(5);
  EXPECT_THAT(TheLines().first_lines, ElementsAre(2, 5, 5));
}

TEST_F(FlatScrollPartTest, ScrollByStopsAtTheEndsOfTheRange) {
  Bar().ScrollBy(4);
  Bar().ScrollBy(-2);
  Bar().ScrollBy(2147483647);
  Bar().ScrollBy(-2147483647 - 1);
  EXPECT_THAT(TheLines().first_lines, ElementsAre(5, 3, 50, 1));
}

TEST_F(FlatScrollPartTest, ScrollByNotifiesNobodyOfAValueThatStays) {
  Bar().ScrollBy(0);
  Bar().ScrollBy(-1);
  EXPECT_EQ(Bar().Value(), 1);
  EXPECT_THAT(TheLines().first_lines, IsEmpty());
}

TEST_F(FlatScrollPartTest, ScrollByLeavesAnInvertedRangeAlone) {
  Bar().SetMax(-5);
  const std::int32_t before = Bar().Value();
  Bar().ScrollBy(1);
  Bar().ScrollBy(-1);
  EXPECT_EQ(Bar().Value(), before);
  EXPECT_THAT(TheLines().first_lines, IsEmpty());
}

TEST_F(FlatScrollPartTest, RepeatsWhileHeld) {
  TheLines();
  Driver().MovePointer(OnBar({8, 195}));
  Driver().Press(kLeftButton);
  for (int i = 0; i < 200 && TheLines().first_lines.size() < 3; ++i) Driver().Advance(10);
  Driver().Release(kLeftButton);
  const std::vector<std::int32_t> lines = TheLines().first_lines;
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines[2], 4);
  Driver().Advance(300);
  EXPECT_EQ(TheLines().first_lines, lines);
}

TEST_F(FlatScrollPartTest, IsDragged) {
  TheLines();
  Driver().MovePointer(OnBar({8, 16}));
  Driver().Press(kLeftButton);
  Driver().MovePointer(OnBar({8, 100}));
  Driver().Release(kLeftButton);
  // (1500 - 200) / 2490 of 49, from 1 on.
  EXPECT_THAT(TheLines().first_lines, ElementsAre(27));
}

TEST_F(FlatScrollPartTest, AListenerOfARepeatedChangeMayRemoveTheOwner) {
  FlatScroll& bar = Bar();
  const WindowHandle window = bar.hWnd();
  Driver().MovePointer(OnBar({8, 195}));
  Driver().Press(kLeftButton);
  bar.Change += [&] { TheForm().Remove("lns"); };
  for (int i = 0; i < 100 && Windows().IsWindow(window); ++i) Driver().Advance(10);
  EXPECT_FALSE(Windows().IsWindow(window));
  Driver().Release(kLeftButton);
}

}  // namespace
}  // namespace levelwidgets::testing
