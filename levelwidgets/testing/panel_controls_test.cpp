// What the controls around an edit box with a panel have in common: the properties, the edit box, and the
// strip under the pointer.
#include <levelwidgets/testing/panel_classes.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

template <typename T>
class PanelControls : public PanelTest<T> {};
TYPED_TEST_SUITE(PanelControls, PanelClasses, ClassNames);

// --- Properties --------------------------------------------------------------------------------------

TYPED_TEST(PanelControls, DefaultsAreThoseOfTheTable) {
  const TypeParam& control = this->Load({});
  for (const PropertyInfo& property : TypeParam::Table().Properties()) {
    if (property.defaults.when_read.kind != DefaultValue::Kind::kFixed) continue;
    EXPECT_EQ(property.get(control), property.defaults.when_read.Value()) << property.name;
  }
  EXPECT_EQ(control.BackColor(), Color(0x80000005u));
  EXPECT_EQ(control.ForeColor(), Color(0x80000008u));
  EXPECT_EQ(control.DropDownBackColor(), Color(0x00CEDBDEu));
  EXPECT_EQ(control.DropDownBackColorMouseOver(), Color(0x00DEE7EFu));
  EXPECT_EQ(control.DropDownBackColorPushed(), Color(0x00BDCBCEu));
}

TYPED_TEST(PanelControls, NothingIsSavedOfOneThatWasNotChanged) {
  PropertyBag bag;
  this->Load({}).OnWriteProperties(bag);
  EXPECT_TRUE(bag.Entries().empty());
}

TYPED_TEST(PanelControls, EveryColourThatIsSavedComesBack) {
  PropertyBag saved;
  std::uint32_t color = 0x00010203;
  for (const PropertyInfo& property : TypeParam::Table().Properties()) {
    if (property.name.ends_with("Color")) saved.WriteProperty(std::string(property.name), Color(color++), {});
  }
  PropertyBag again;
  this->Load(saved).OnWriteProperties(again);
  ASSERT_EQ(again.Entries().size(), saved.Entries().size());
  for (const auto& entry : saved.Entries()) EXPECT_EQ(*again.Find(entry.name), entry.value) << entry.name;
}

TYPED_TEST(PanelControls, TheFontIsAtFirstTheContainersAndThenTheEditBoxs) {
  TypeParam& control = this->Subject();
  EXPECT_EQ(control.GetFont()->Description(), this->TheForm().GetFont()->Description());
  const FontRef font = MakeFont({.name = "Tahoma", .size = 12});
  control.SetFont(font);
  EXPECT_EQ(control.GetFont(), font);
  EXPECT_EQ(control.ActiveEdit().GetFont(), font);
}

TYPED_TEST(PanelControls, TheFontOfANewOneIsThatOfItsContainer) {
  TypeParam& control = this->template AddNew<TypeParam>("new");
  EXPECT_EQ(control.GetFont()->Description().name, this->TheForm().GetFont()->Description().name);
  EXPECT_EQ(control.GetFont()->Description().size, this->TheForm().GetFont()->Description().size);
}

TYPED_TEST(PanelControls, TextIsCopiedAndPastedAsInAnyEditBox) {
  TypeParam& control = this->Subject();
  this->Driver().Type("12");
  control.SetSelStart(0);
  control.SetSelLength(2);
  control.ActiveEdit().Send(kWmCopy);
  control.SetSelStart(2);
  control.ActiveEdit().Send(kWmPaste);
  EXPECT_EQ(control.ActiveEdit().Text(), "1212");
}

TYPED_TEST(PanelControls, SharedSettersRepaintThenNotify) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  control.SetBackColor(Color(1));
  control.SetForeColor(Color(2));
  control.SetFont(MakeFont());
  control.SetDropDownBackColor(Color(3));
  EXPECT_THAT(this->TakeJournal(),
              ElementsAre("paint", "PropertyChanged(BackColor)", "paint", "PropertyChanged(ForeColor)",
                          "paint", "PropertyChanged(Font)", "paint", "PropertyChanged(DropDownBackColor)"));
  EXPECT_EQ(control.ActiveEdit().BackColor(), Color(1));
  EXPECT_EQ(control.ActiveEdit().ForeColor(), Color(2));
}

TYPED_TEST(PanelControls, AlignmentAndEnabledNotifyWithoutARepaint) {
  TypeParam& control = this->Subject();
  this->Windows().SetFocus({});
  this->Watch(control);
  control.SetAlignment(ksxRight);
  control.SetEnabled(false);
  EXPECT_THAT(this->TakeJournal(), ElementsAre("PropertyChanged(Alignment)", "PropertyChanged(Enabled)"));
  EXPECT_EQ(control.ActiveEdit().Alignment(), ksxRight);
  EXPECT_FALSE(this->Windows().IsWindowEnabled(control.hWnd()));
}

TYPED_TEST(PanelControls, TheSelectionIsThatOfTheEditBoxAndNotifiesNobody) {
  TypeParam& control = this->Subject();
  this->Driver().Type("abcdef");
  EXPECT_THAT(this->EventsOf([&] {
    control.SetSelStart(1);
    control.SetSelLength(3);
  }),
              IsEmpty());
  EXPECT_EQ(control.SelStart(), 1);
  EXPECT_EQ(control.SelLength(), 3);
  EXPECT_EQ(control.SelText(), "bcd");
  EXPECT_THAT(this->EventsOf([&] { control.SetSelText("X"); }), ElementsAreArray(this->ChangedText()));
  EXPECT_EQ(control.ActiveEdit().Text(), "aXef");
}

// --- Layout and painting -------------------------------------------------------------------------------

TYPED_TEST(PanelControls, TheEditBoxCoversAllExceptTheStrip) {
  const TypeParam& control = this->Subject();
  const PixelRect whole = this->ControlRect();
  PixelRect expected = whole;
  expected.right = whole.left + (1800 - 200) / 15;
  EXPECT_EQ(this->RectOf(control.ActiveEdit().hWnd()), expected);
}

TYPED_TEST(PanelControls, OneThatIsNarrowerThanTheStripHasAnEditBoxWithoutWidth) {
  const TypeParam& control = this->Load({}, {Twips(150), Twips(315)});
  EXPECT_EQ(this->RectOf(control.ActiveEdit().hWnd()).width(), 0);
  EXPECT_EQ(this->PixelAt(control, {1, 1}), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelControls, TheArrowStandsAtTheRightOfTheStripAndALineAtItsLeft) {
  TypeParam& control = this->Subject();
  EXPECT_THAT(this->DrawingCallsOf(control, [&] { control.OnPaint(); }),
              ::testing::Contains("DrawTextA 6 -1 106 0 120 21 38"));
  std::vector<std::string> line;
  for (const auto& call : this->CallsNamed({"MoveTo", "LineTo"}, [&] { control.OnPaint(); })) {
    line.push_back(call.ToString());
  }
  const std::string dc = std::to_string(control.GetSurface().hDC().value);
  EXPECT_THAT(line, ElementsAre("MoveTo(" + dc + ", 106, 0)", "LineTo(" + dc + ", 106, 21)"));
  for (const int y : {0, 10, 20}) {
    EXPECT_EQ(this->PixelAt(control, PixelPoint{106, y}), ColorRef{0}) << y;
  }
  EXPECT_EQ(this->PixelAt(control, PixelPoint{107, 0}), this->Concrete(control.DropDownBackColor()));
  EXPECT_EQ(this->PixelAt(control, PixelPoint{119, 20}), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelControls, ANewColourOfTheStripAtRestIsSeenAtOnce) {
  TypeParam& control = this->Subject();
  control.SetDropDownBackColor(Color(0x00112233));
  EXPECT_EQ(this->StripPixel(), ColorRef{0x00112233});
}

TYPED_TEST(PanelControls, NewColoursUnderThePointerAndPressedWaitForTheirState) {
  TypeParam& control = this->Subject();
  this->Driver().MovePointer(this->Strip());
  control.SetDropDownBackColorMouseOver(Color(0x00112233));
  control.SetDropDownBackColorPushed(Color(0x00223344));
  EXPECT_EQ(this->StripPixel(), ColorRef{0x00DEE7EF});
  this->Driver().MovePointer({5, 5});
  this->Driver().MovePointer({6, 5});
  this->Driver().MovePointer(this->Strip());
  EXPECT_EQ(this->StripPixel(), ColorRef{0x00112233});
}

// --- The strip under the pointer -----------------------------------------------------------------------

TYPED_TEST(PanelControls, TheStripCapturesThePointerUntilItLeaves) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  const PixelPoint strip = this->Strip();
  this->Driver().MovePointer(strip);
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "capture"));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  this->TakeJournal();
  this->Driver().MovePointer({strip.x + 1, strip.y});
  EXPECT_THAT(this->TakeJournal(), IsEmpty());
  this->Driver().MovePointer({strip.x + 100, strip.y});
  EXPECT_THAT(this->TakeJournal(), ElementsAre("release capture", "paint"));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelControls, AMoveWithTheLeftButtonDownPushesAndCapturesWhereverItIs) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  const PointerInput drag{kLeftButton, 0, {Twips(-500), Twips(-500)}};
  control.OnMouseMove(drag);
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "capture"));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorPushed()));
  this->TakeJournal();
  control.OnMouseMove(drag);
  EXPECT_THAT(this->TakeJournal(), IsEmpty());
}

TYPED_TEST(PanelControls, APressThatIsReleasedOutsideHoversUntilThePointerMoves) {
  TypeParam& control = this->Subject();
  this->Driver().MovePointer(this->Strip());
  this->Driver().Press(kLeftButton);
  this->Driver().MovePointer({5, 5});
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorPushed()));
  this->Driver().Release(kLeftButton);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  EXPECT_EQ(this->Windows().GetCapture(), control.hWnd());
  this->Driver().MovePointer({6, 5});
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
  EXPECT_FALSE(this->Windows().GetCapture());
}

TYPED_TEST(PanelControls, OneThatIsDisabledUnderThePointerHasItsStripAtRestAndNoCapture) {
  TypeParam& control = this->Subject();
  this->Driver().MovePointer(this->Strip());
  control.SetEnabled(false);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
  EXPECT_FALSE(this->Windows().GetCapture());
}

TYPED_TEST(PanelControls, OtherButtonsOnTheStripOpenNothing) {
  this->Subject();
  this->Driver().MovePointer(this->Strip());
  for (const int button : {kRightButton, kMiddleButton}) {
    this->Driver().Press(button);
    EXPECT_FALSE(this->IsOpen());
    this->Driver().Release(button);
  }
}

TYPED_TEST(PanelControls, TheEditBoxIsClickedBesideAHoveredStrip) {
  TypeParam& control = this->Subject();
  int clicks = 0;
  control.Click += [&] { ++clicks; };
  const PixelRect rect = this->ControlRect();
  this->Driver().MovePointer(this->Strip());
  this->Driver().Click({rect.left + 20, rect.top + 10});
  this->Driver().Click({rect.left + 20, rect.top + 10});
  EXPECT_GE(clicks, 1);
}

}  // namespace
}  // namespace levelwidgets::testing
