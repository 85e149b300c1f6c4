// The frame: what it draws, and the parts that it holds.
#include <levelwidgets/frame/parts/frame_box.h>

#include <levelwidgets/frame/parts/text_box.h>
#include <levelwidgets/frame/parts/text_label.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

constexpr Color kBack{0x00E0E0E0};
constexpr Color kFore{0x00102030};
constexpr Color kShadow{0x80000010};

// Draws a frame itself.
class Framed : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Framed>("Framed", "Draws a frame."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Framed(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = kBack, .fore_color = kFore, .font = {}}) {}
  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override {
    GetSurface().Cls();
    PaintFrame(GetSurface(), caption);
  }

  std::string caption = "C&hoice";
};

class PaintFrameTest : public DesktopTest {
 protected:
  Framed& Frame() {
    if (!frame_) frame_ = &AddNew<Framed>("fra", {Twips(600), Twips(600)}, {Twips(1500), Twips(1500)});
    return *frame_;
  }
  Journal Painted() {
    Framed& frame = Frame();
    Driver().Settle();
    return DrawingCallsOf(frame, [&] { frame.OnPaint(); });
  }
  PixelSize Extent() {
    PixelRect extent;
    Drawing().DrawTextA(Frame().GetSurface().hDC(), Frame().caption, extent, kDtSingleLine | kDtCalcRect);
    return {extent.width(), extent.height()};
  }

 private:
  Framed* frame_ = nullptr;
};

TEST_F(PaintFrameTest, TheLineIsDrawnThenTheCaptionIsSetIntoItsTop) {
  const auto [width, height] = Extent();
  const std::string w = std::to_string(8 + width), h = std::to_string(height);
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 100 100", ::testing::StartsWith("DrawTextA C&hoice -1 "),
                                     "Rectangle 0 " + std::to_string(height / 2) + " 100 100",
                                     "FillRect 6 0 " + std::to_string(10 + width) + " " + h,
                                     "DrawTextA C&hoice -1 8 0 " + w + " " + h + " 32"));
}

TEST_F(PaintFrameTest, WithoutACaptionTheLineGoesAroundAtTheEdge) {
  Frame().caption = "";
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 100 100", "Rectangle 0 0 100 100"));
}

TEST_F(PaintFrameTest, ALongCaptionLeavesTheCornerOfTheLine) {
  Frame().caption = "A caption for which there is no room";
  const std::string height = std::to_string(Extent().height);
  const Journal painted = Painted();
  ASSERT_EQ(painted.size(), 5u);
  EXPECT_EQ(painted[3], "FillRect 6 0 94 " + height);
  EXPECT_EQ(painted[4], "DrawTextA A caption for which there is no room -1 8 0 92 " + height + " 32");
}

TEST_F(PaintFrameTest, AFrameWithoutRoomForACaptionDrawsTheLineOnly) {
  Hosted(Frame()).SetWidth(Twips(240));
  const std::string top = std::to_string(Extent().height / 2);
  const Journal painted = Painted();
  EXPECT_EQ(painted.back(), "Rectangle 0 " + top + " 16 100");
}

TEST_F(PaintFrameTest, AFrameOfNoSizePaintsWithoutAnError) {
  Hosted(Frame()).Move({}, {});
  EXPECT_EQ(Painted().front(), "FillRect 0 0 0 0");
}

TEST_F(PaintFrameTest, TheLineHasTheShadowColourAndTheCaptionThoseOfTheSurface) {
  EXPECT_EQ(PixelAt(Frame(), {0, 99}), Concrete(kShadow));
  EXPECT_EQ(PixelAt(Frame(), {99, 50}), Concrete(kShadow));
  EXPECT_EQ(PixelAt(Frame(), {1, Extent().height / 2}), Concrete(kShadow));
  EXPECT_EQ(PixelAt(Frame(), {7, Extent().height / 2}), ColorRef{kBack.bits()});
  EXPECT_EQ(PixelAt(Frame(), {50, 50}), ColorRef{kBack.bits()});
  bool has_fore = false;
  for (int x = 8; x < 8 + Extent().width; ++x) {
    for (int y = 0; y < Extent().height; ++y) {
      has_fore = has_fore || PixelAt(Frame(), {x, y}) == ColorRef{kFore.bits()};
    }
  }
  EXPECT_TRUE(has_fore);
}

using OblongFrameTest = OnOtherScreen<PaintFrameTest, OblongScreen>;

TEST_F(OblongFrameTest, LengthsGoByBothMeasures) {
  EXPECT_EQ(Painted()[2], "Rectangle 0 " + std::to_string(Extent().height / 2) + " 100 75");
  EXPECT_TRUE(Painted()[3].starts_with("FillRect 6 0 "));
}

// --- As a panel ----------------------------------------------------------------------------------------

// A frame in a frame, with an edit box and a text.
class Holder : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Holder>("Holder", "Has frames."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Holder(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = kBack, .fore_color = kFore, .font = {}}) {
    fraOuter.Move({}, {Twips(3000), Twips(1500)});
    fraOuter.SetVisible(true);
    fraInner.Move({Twips(300), Twips(300)}, {Twips(1500), Twips(900)});
    fraInner.SetBackColor(kBack);
    fraInner.SetVisible(true);
    txtMain.Move({Twips(150), Twips(300)}, {Twips(600), Twips(300)});
    txtMain.SetVisible(true);
    lblMain.SetBackColor(Color(0x0000FF00));
    lblMain.Move({Twips(900), Twips(300)}, {Twips(300), Twips(300)});
  }
  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override { GetSurface().Cls(); }

  FrameBox fraOuter{*this};
  FrameBox fraInner{fraOuter};
  TextBox txtMain{fraInner, false};
  TextLabel lblMain{fraInner};
};

class FrameBoxTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    holder_ = &AddNew<Holder>("hol", {Twips(600), Twips(600)}, {Twips(3000), Twips(1500)});
  }
  ColorRef Pixel(const FrameBox& frame, PixelPoint at) {
    Driver().Settle();
    Windows().ClientToScreen(frame.hWnd(), at);
    return Driver().PixelAt(at);
  }

  Holder* holder_ = nullptr;
};

TEST_F(FrameBoxTest, FramesStandInEachOtherAndHoldParts) {
  EXPECT_EQ(Pixel(holder_->fraOuter, {0, 0}), Concrete(kShadow));
  EXPECT_EQ(Pixel(holder_->fraInner, {0, 0}), Concrete(kShadow));
  EXPECT_EQ(Pixel(holder_->fraInner, {1, 1}), ColorRef{kBack.bits()});
  EXPECT_EQ(Pixel(holder_->fraInner, {65, 25}), ColorRef{0x0000FF00});
  EXPECT_TRUE(holder_->Holds(holder_->txtMain.hWnd()));
}

TEST_F(FrameBoxTest, AnotherCaptionIsDrawnWithTheNextPaint) {
  holder_->fraInner.SetCaption("Inner");
  EXPECT_EQ(holder_->fraInner.Caption(), "Inner");
  EXPECT_EQ(Pixel(holder_->fraInner, {0, 0}), ColorRef{kBack.bits()});
  EXPECT_EQ(Pixel(holder_->fraInner, {0, 30}), Concrete(kShadow));
  holder_->fraInner.SetCaption("");
  EXPECT_EQ(Pixel(holder_->fraInner, {0, 0}), Concrete(kShadow));
}

TEST_F(FrameBoxTest, APressOnAFrameLeavesTheFocusWithThePartThatHasIt) {
  Windows().SetFocus(holder_->txtMain.hWnd());
  PixelPoint at{90, 55};
  Windows().ClientToScreen(holder_->fraInner.hWnd(), at);
  Driver().Click(at);
  EXPECT_EQ(Windows().GetFocus(), holder_->txtMain.hWnd());
}

}  // namespace
}  // namespace levelwidgets::testing
