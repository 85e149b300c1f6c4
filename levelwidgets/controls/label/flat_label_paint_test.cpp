// FlatLabel: what it draws, in which order, and what can be seen of it.
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

constexpr int kWidth = 80;
constexpr int kHeight = 25;

class FlatLabelPaintTest : public DesktopTest {
 protected:
  FlatLabel& Label() {
    if (!label_) {
      label_ = &AddLoaded<FlatLabel>("lblHelp");
      label_->SetCaption("Help");
    }
    return *label_;
  }
  Journal Painted() {
    FlatLabel& label = Label();
    return DrawingCallsOf(label, [&] { label.OnPaint(); });
  }
  Picture PictureOfLabel() {
    PixelRect rect;
    Windows().GetWindowRect(Label().hWnd(), rect);
    Driver().Settle();
    return Driver().Capture(rect);
  }
  // The first and last column that differ from the background.
  std::pair<int, int> InkColumns() {
    const Picture picture = PictureOfLabel();
    const ColorRef back = Concrete(Label().BackColor());
    int first = kWidth;
    int last = -1;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        if (picture.At({x, y}) == back) continue;
        first = std::min(first, x);
        last = std::max(last, x);
      }
    }
    return {first, last};
  }

 private:
  FlatLabel* label_ = nullptr;
};

struct AlignmentCase {
  std::int32_t alignment;
  const char* flags;
};
class FlatLabelAlignmentTest : public FlatLabelPaintTest,
                               public ::testing::WithParamInterface<AlignmentCase> {};

TEST_P(FlatLabelAlignmentTest, ClearsThenDrawsTheCaptionWithItsFlags) {
  Label().SetAlignment(static_cast<ksxAlignmentConstants>(GetParam().alignment));
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 25",
                                     std::string("DrawTextA Help -1 0 0 80 25 ") + GetParam().flags));
  EXPECT_EQ(Label().Alignment(), GetParam().alignment);
}

INSTANTIATE_TEST_SUITE_P(Alignments, FlatLabelAlignmentTest,
                         ::testing::Values(AlignmentCase{0, "36"}, AlignmentCase{1, "38"},
                                           AlignmentCase{2, "37"}, AlignmentCase{3, "36"},
                                           AlignmentCase{-1, "36"}, AlignmentCase{2147483647, "36"}));

TEST_F(FlatLabelPaintTest, ThereIsNoFrameAndNoFocusFrame) {
  Label().OnEnterFocus();
  EXPECT_EQ(Painted().size(), 2u);
  EXPECT_EQ(PixelAt(Label(), {0, 0}), ColorRef{0x00CEDBDE});
  EXPECT_EQ(PixelAt(Label(), {4, 4}), ColorRef{0x00CEDBDE});
}

TEST_F(FlatLabelPaintTest, ADisabledLabelDrawsAsAnEnabledOne) {
  const Picture enabled = PictureOfLabel();
  Label().SetForeColorDisabled(Color(0x000000FF));
  Label().SetEnabled(false);
  Label().OnPaint();
  EXPECT_EQ(PictureOfLabel(), enabled);
}

TEST_F(FlatLabelPaintTest, ForeColorShowsAtTheNextRepaintOnly) {
  const Picture before = PictureOfLabel();
  Label().SetForeColor(Color(0x000000FF));
  EXPECT_EQ(PictureOfLabel(), before);
  Label().OnPaint();
  EXPECT_NE(PictureOfLabel(), before);
}

TEST_F(FlatLabelPaintTest, AlignmentMovesTheTextAtOnce) {
  const auto [left_first, left_last] = InkColumns();
  Label().SetAlignment(ksxRight);
  const auto [right_first, right_last] = InkColumns();
  Label().SetAlignment(ksxCenter);
  const auto [center_first, center_last] = InkColumns();
  EXPECT_LT(left_first, 4);
  EXPECT_GT(right_last, kWidth - 8);
  EXPECT_GT(center_first, left_first);
  EXPECT_LT(center_last, right_last);
  EXPECT_NEAR(center_first, kWidth - 1 - center_last, 4);  // side bearings differ
}

TEST_F(FlatLabelPaintTest, AWideCaptionIsClippedAtTheEndThatIsNotAligned) {
  // "|" marks both ends of a text that is wider than the label.
  Label().SetCaption("|" + std::string(40, 'i') + "\n" + std::string(40, 'W') + "|");
  const Picture left = PictureOfLabel();
  Label().SetAlignment(ksxRight);
  const Picture right = PictureOfLabel();
  Label().SetAlignment(ksxCenter);
  const Picture center = PictureOfLabel();
  EXPECT_NE(left, right);
  EXPECT_NE(left, center);
  EXPECT_NE(right, center);
  // One line: the rows at the top and at the bottom are empty in each.
  for (const Picture& picture : {left, right, center}) {
    for (int x = 0; x < kWidth; ++x) {
      ASSERT_EQ(picture.At({x, 1}), ColorRef{0x00CEDBDE});
      ASSERT_EQ(picture.At({x, kHeight - 2}), ColorRef{0x00CEDBDE});
    }
  }
  EXPECT_EQ(PixelAt(Label(), {-1, 12}), Concrete(TheForm().BackColor()));
  EXPECT_EQ(PixelAt(Label(), {kWidth, 12}), Concrete(TheForm().BackColor()));
}

TEST_F(FlatLabelPaintTest, ResizeRepaints) {
  FlatLabel& label = Label();
  EXPECT_THAT(DrawingCallsOf(label, [&] { label.OnResize(); }),
              ElementsAre("FillRect 0 0 80 25", "DrawTextA Help -1 0 0 80 25 36"));
}

}  // namespace
}  // namespace levelwidgets::testing
