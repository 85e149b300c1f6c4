// FlatLabel: when the polling timer looks, what it does in which order, and the underline of the font.
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatLabelTimerTest : public PointerTest<FlatLabel> {
 protected:
  FlatLabel& Label() { return Subject(); }
  bool Highlighted() { return Label().BackColor() == Label().BackColorMouseOver(); }

 private:
  FlatLabel& Make() override {
    auto& label = AddLoaded<FlatLabel>("lblHelp");
    label.SetForeColorMouseOver(Color(0x00112244));
    label.SetCaption("Help");
    Driver().Settle();
    return label;
  }
};

TEST_F(FlatLabelTimerTest, HoveringStartsATimerOf100Milliseconds) {
  Label();
  const auto calls = CallsNamed({"SetTimer"}, [&] { MoveTo(10, 10); });
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].arguments, std::vector<TraceArgument>{std::int64_t{100}});
}

TEST_F(FlatLabelTimerTest, TheColoursAreRestoredAtTheTickAndNotAMillisecondBefore) {
  MoveTo(10, 10);
  MoveTo(-20, 10);
  Driver().Advance(99);
  EXPECT_TRUE(Highlighted());
  Driver().Advance(1);
  EXPECT_FALSE(Highlighted());
}

TEST_F(FlatLabelTimerTest, AMoveBackDoesNotDelayTheTick) {
  MoveTo(10, 10);
  Driver().Advance(60);
  Driver().Press(kLeftButton);
  MoveTo(11, 10);  // the pushed colours differ, so that it highlights again while the timer runs
  Driver().Release(kLeftButton);
  MoveTo(-20, 10);
  Driver().Advance(39);
  EXPECT_TRUE(Highlighted());
  Driver().Advance(1);
  EXPECT_FALSE(Highlighted());
}

TEST_F(FlatLabelTimerTest, TheTickRestoresColoursAndUnderlineRepaintsStopsTheTimerThenYields) {
  MoveTo(10, 10);
  MoveTo(-20, 10);
  const auto calls = CallsNamed({"CreatePen", "CreateFontA", "FillRect", "KillTimer", "DoEvents"},
                                [&] { Driver().Advance(200); });
  EXPECT_THAT(Names(calls), ElementsAre("CreatePen", "CreateFontA", "FillRect", "KillTimer", "DoEvents"));
}

TEST_F(FlatLabelTimerTest, ATickWithThePointerInsideCallsNothing) {
  MoveTo(10, 10);
  EXPECT_THAT(CallsNamed({"CreatePen", "CreateFontA", "FillRect", "KillTimer", "DoEvents"},
                         [&] { Driver().Advance(250); }),
              IsEmpty());
}

TEST_F(FlatLabelTimerTest, ABackColourThatDiffersIsEnoughToHighlight) {
  Label().SetForeColorMouseOver(Label().ForeColor());
  MoveTo(10, 10);
  EXPECT_TRUE(Highlighted());
  MoveTo(-20, 10);
  Driver().Advance(200);
  EXPECT_FALSE(Highlighted());
}

// --- Fonts and captions --------------------------------------------------------------------------------

class FlatLabelFormFontTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    FormOptions options;
    options.font = {.name = "Tahoma", .size = 14, .bold = true, .underline = true};
    MakeForm(options);
  }
};

TEST_F(FlatLabelFormFontTest, LabelsTakeTheFontOfTheForm) {
  EXPECT_EQ(AddNew<FlatLabel>("lblNew").GetFont()->Description(), TheForm().GetFont()->Description());
  EXPECT_EQ(AddLoaded<FlatLabel>("lblLoaded").GetFont()->Description(), TheForm().GetFont()->Description());
}

TEST_F(FlatLabelFormFontTest, ALabelOnAFormWithAnUnderlinedFontStaysUnderlinedThroughoutHovering) {
  auto& fresh = AddNew<FlatLabel>("lblNew");
  auto& loaded = AddLoaded<FlatLabel>("lblLoaded", {}, {Twips(600), Twips(1800)});
  for (FlatLabel* label : {&fresh, &loaded}) {
    Driver().MovePointer(ScreenPoint(*label, PixelPoint{10, 10}));
    EXPECT_TRUE(label->GetFont()->Underline());
    Driver().Press(kLeftButton);
    Driver().Release(kLeftButton);
    EXPECT_TRUE(label->GetFont()->Underline());
    Driver().MovePointer(ScreenPoint(*label, PixelPoint{-20, 10}));
    Driver().Advance(200);
    EXPECT_NE(label->ForeColor(), label->ForeColorMouseOver());
    EXPECT_TRUE(label->GetFont()->Underline());
    EXPECT_FALSE(Hosted(*label).Properties().Find("Font"));
  }
}

TEST_F(FlatLabelTimerTest, AFontWhoseUnderlineIsChangedAfterItsAssignmentGetsBackTheOneItHad) {
  const FontRef font = MakeFont();
  Label().SetFont(font);
  font->SetUnderline(true);
  MoveTo(10, 10);
  MoveTo(-20, 10);
  Driver().Advance(200);
  EXPECT_FALSE(font->Underline());
}

TEST_F(FlatLabelTimerTest, AFontThatHasBeenReplacedIsForgotten) {
  const FontRef font = MakeFont();
  Label().SetFont(font);
  Label().SetFont(MakeFont({.size = 12}));
  EXPECT_THAT(CallsNamed({"CreateFontA"}, [&] { font->SetUnderline(true); }), IsEmpty());
}

TEST_F(FlatLabelTimerTest, TheFirstAmpersandGivesTheAccessKey) {
  auto& label = Label();
  const std::pair<const char*, const char*> rows[] = {
      {"&Help", "H"}, {"&Help &Me", "H"}, {"He&lp && &more", "l"}, {"A && &B", "&"}, {"Help&", ""}};
  for (const auto& [caption, keys] : rows) {
    label.SetCaption(caption);
    EXPECT_EQ(label.GetSurface().AccessKeys(), keys) << caption;
  }
}

class FlatLabelDesignTest : public DesktopTest {};

TEST_F(FlatLabelDesignTest, ALabelTakesNoInputInDesignMode) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& label = AddLoaded<FlatLabel>("lblDesigned");
  Watch(label);
  Driver().DoubleClick(ScreenPoint(label, PixelPoint{10, 10}));
  Driver().Key('A');
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(label.BackColor(), Color(0x00CEDBDE));
  EXPECT_FALSE(label.GetFont()->Underline());
}

}  // namespace
}  // namespace levelwidgets::testing
