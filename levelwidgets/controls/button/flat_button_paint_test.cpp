// FlatButton: what it draws, in which order, and what can be seen of it.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::Not;

// 1200 by 375 twips at 15 twips per pixel.
constexpr int kWidth = 80;
constexpr int kHeight = 25;

class FlatButtonPaintTest : public DesktopTest {
 protected:
  FlatButton& Button() {
    if (!button_) {
      AddNew<FlatButton>("cmdFirst", {Twips(0), Twips(3000)});  // takes the focus
      button_ = &AddNew<FlatButton>("cmdSave");
      Hosted(*TheForm().Find("cmdFirst")->GetControl()).SetFocus();
      button_->SetCaption("&Save");
      Driver().Settle();
    }
    return *button_;
  }
  Journal Painted() {
    FlatButton& button = Button();
    return DrawingCallsOf(button, [&] { button.OnPaint(); });
  }
  std::string TextColor(Color color) { return "SetTextColor " + std::to_string(Concrete(color).value); }

 private:
  FlatButton* button_ = nullptr;
};

TEST_F(FlatButtonPaintTest, APaintClearsDrawsTheFrameThenTheCaption) {
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 25", "Rectangle 0 0 80 25",
                                     TextColor(Color(0x80000012)), "DrawTextA &Save -1 0 0 80 25 37"));
}

TEST_F(FlatButtonPaintTest, TheDefaultButtonHasASecondFrame) {
  Hosted(Button()).SetDefault(true);
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 25", "Rectangle 0 0 80 25", "Rectangle 1 1 79 24",
                                     TextColor(Color(0x80000012)), "DrawTextA &Save -1 0 0 80 25 37"));
}

TEST_F(FlatButtonPaintTest, TheFocusFrameComesAfterTheFramesAndBeforeTheCaption) {
  Hosted(Button()).SetDefault(true);
  Button().OnEnterFocus();
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 25", "Rectangle 0 0 80 25", "Rectangle 1 1 79 24",
                                     "DrawFocusRect 4 4 76 21", TextColor(Color(0x80000012)),
                                     "DrawTextA &Save -1 0 0 80 25 37"));
}

TEST_F(FlatButtonPaintTest, ADisabledButtonHasItsCaptionInForeColorDisabled) {
  Button().SetEnabled(false);
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 25", "Rectangle 0 0 80 25",
                                     TextColor(Color(0x008C969C)), "DrawTextA &Save -1 0 0 80 25 37"));
}

TEST_F(FlatButtonPaintTest, AnUntranslatableForeColorReachesTheDrawingCallsAsMinusOne) {
  Button().SetForeColor(Color(0x80000100));
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 25", "Rectangle 0 0 80 25", "SetTextColor 4294967295",
                                     "DrawTextA &Save -1 0 0 80 25 37"));
}

TEST_F(FlatButtonPaintTest, AButtonOfNoSizePaintsWithoutError) {
  Hosted(Button()).Move({Twips(0), Twips(0)}, {Twips(0), Twips(0)});
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 0 0", "Rectangle 0 0 0 0", TextColor(Color(0x80000012)),
                                     "DrawTextA &Save -1 0 0 0 0 37"));
}

TEST_F(FlatButtonPaintTest, ResizeRecomputesTheClientRectangleByTheRoundingDivision) {
  Hosted(Button()).Move({Twips(0), Twips(0)}, {Twips(22.5f), Twips(37.5f)});
  // 22.5 rounds to 22, 37.5 to 38.
  EXPECT_EQ(Painted().at(1), "Rectangle 0 0 1 2");
}

TEST_F(FlatButtonPaintTest, ResizeAloneDoesNotRepaint) {
  FlatButton& button = Button();
  EXPECT_THAT(DrawingCallsOf(button, [&] { button.OnResize(); }), ElementsAre());
}

TEST_F(FlatButtonPaintTest, AmbientChangesRepaintForDisplayAsDefaultOnly) {
  FlatButton& button = Button();
  EXPECT_THAT(DrawingCallsOf(button, [&] { button.OnAmbientChanged("Font"); }), ElementsAre());
  EXPECT_THAT(DrawingCallsOf(button, [&] { button.OnAmbientChanged("DisplayAsDefault"); }),
              Not(ElementsAre()));
}

TEST_F(FlatButtonPaintTest, BecomingTheDefaultButtonRepaints) {
  FlatButton& button = Button();
  EXPECT_THAT(DrawingCallsOf(button, [&] { Hosted(button).SetDefault(true); }), Not(ElementsAre()));
}

// --- Pixels ------------------------------------------------------------------------------------------

TEST_F(FlatButtonPaintTest, TheFrameIsOnePixelInForeColor) {
  FlatButton& button = Button();
  button.SetCaption("");
  const ColorRef frame = Concrete(Color(0x80000012));
  const ColorRef face{0x00CDD9DD};
  EXPECT_EQ(PixelAt(button, {0, 0}), frame);
  EXPECT_EQ(PixelAt(button, {kWidth - 1, kHeight - 1}), frame);
  EXPECT_EQ(PixelAt(button, {40, 0}), frame);
  EXPECT_EQ(PixelAt(button, {0, 12}), frame);
  EXPECT_EQ(PixelAt(button, {1, 1}), face);
  EXPECT_EQ(PixelAt(button, {kWidth - 2, kHeight - 2}), face);
}

TEST_F(FlatButtonPaintTest, TheDefaultFrameIsTwoPixels) {
  FlatButton& button = Button();
  Hosted(button).SetDefault(true);
  const ColorRef frame = Concrete(Color(0x80000012));
  EXPECT_EQ(PixelAt(button, {1, 1}), frame);
  EXPECT_EQ(PixelAt(button, {kWidth - 2, kHeight - 2}), frame);
  EXPECT_EQ(PixelAt(button, {2, 2}), ColorRef{0x00CDD9DD});
}

TEST_F(FlatButtonPaintTest, TheFrameTakesTheForeColor) {
  FlatButton& button = Button();
  button.SetForeColor(Color(0x000000FF));
  EXPECT_EQ(PixelAt(button, {0, 0}), ColorRef{0x000000FF});
}

TEST_F(FlatButtonPaintTest, BackColorShowsAtOnce) {
  FlatButton& button = Button();
  button.SetBackColor(Color(0x0000FF00));
  EXPECT_EQ(PixelAt(button, {2, 2}), ColorRef{0x0000FF00});
}

TEST_F(FlatButtonPaintTest, SystemColoursAreTranslated) {
  FlatButton& button = Button();
  button.SetBackColor(Color(0x8000000D));
  EXPECT_EQ(PixelAt(button, {2, 2}), Drawing().GetSysColor(kColorHighlight));
}

class PictureOf {
 public:
  PictureOf(DesktopDriver& driver, const Control& control) {
    PixelRect rect;
    driver.GetPlatform().Windows().GetWindowRect(control.GetSurface().hWnd(), rect);
    driver.Settle();
    picture = driver.Capture(rect);
  }
  Picture picture;
  friend bool operator==(const PictureOf& a, const PictureOf& b) { return a.picture == b.picture; }
};

TEST_F(FlatButtonPaintTest, ChangingForeColorDisabledWhileDisabledShowsAtTheNextRepaint) {
  FlatButton& button = Button();
  button.SetEnabled(false);
  const PictureOf before(Driver(), button);
  button.SetForeColorDisabled(Color(0x000000FF));
  EXPECT_TRUE(PictureOf(Driver(), button) == before);
  button.OnPaint();
  EXPECT_FALSE(PictureOf(Driver(), button) == before);
}

TEST_F(FlatButtonPaintTest, AnAmpersandUnderlinesTheNextLetterAndADoubledOneDrawsOne) {
  FlatButton& button = Button();
  button.SetCaption("Save");
  const PictureOf plain(Driver(), button);
  button.SetCaption("&Save");
  const PictureOf underlined(Driver(), button);
  EXPECT_FALSE(plain == underlined);
  // The difference is the underline: one run of pixels in one row.
  std::vector<int> rows;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      if (plain.picture.At({x, y}) != underlined.picture.At({x, y})) {
        if (rows.empty() || rows.back() != y) rows.push_back(y);
      }
    }
  }
  EXPECT_EQ(rows.size(), 1u);

  button.SetCaption("R&&D");
  const PictureOf doubled(Driver(), button);
  button.SetCaption("R&D");
  EXPECT_FALSE(PictureOf(Driver(), button) == doubled);
}

TEST_F(FlatButtonPaintTest, ACaptionIsClippedAndNeverWrapped) {
  FlatButton& button = Button();
  std::string lines;
  for (int i = 0; i < 200; ++i) lines += i == 100 ? '\n' : 'W';
  button.SetCaption(lines);
  // Nothing beside the button is touched, and rows near its edges stay empty.
  EXPECT_EQ(PixelAt(button, {-1, 12}), Concrete(TheForm().BackColor()));
  EXPECT_EQ(PixelAt(button, {kWidth, 12}), Concrete(TheForm().BackColor()));
  for (int x = 1; x < kWidth - 1; ++x) {
    ASSERT_EQ(PixelAt(button, {x, 2}), ColorRef{0x00CDD9DD}) << x;
    ASSERT_EQ(PixelAt(button, {x, kHeight - 3}), ColorRef{0x00CDD9DD}) << x;
  }
}

}  // namespace
}  // namespace levelwidgets::testing
