// What a calculator and a calendar have in common beside what they share with a drop-down list.
#include <levelwidgets/testing/error_of.h>
#include <levelwidgets/testing/panel_classes.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

template <typename T>
class FixedPanel : public PanelTest<T> {};
TYPED_TEST_SUITE(FixedPanel, FixedPanelClasses, ClassNames);

// --- Properties --------------------------------------------------------------------------------------

TYPED_TEST(FixedPanel, ColoursOfTheStripThatAreNotSeenRepaintToo) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  control.SetDropDownBackColorMouseOver(Color(4));
  control.SetDropDownBackColorPushed(Color(5));
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "PropertyChanged(DropDownBackColorMouseOver)",
                                               "paint", "PropertyChanged(DropDownBackColorPushed)"));
}

TYPED_TEST(FixedPanel, ThePaintFillsTheSurfaceAndDrawsTheArrow) {
  TypeParam& control = this->Subject();
  EXPECT_THAT(this->DrawingCallsOf(control, [&] { control.OnPaint(); }),
              ElementsAre("FillRect 0 0 120 21", "DrawTextA 6 -1 106 0 120 21 38"));
}

TYPED_TEST(FixedPanel, ANewColourAtRestWaitsWhileThePointerIsOverTheStrip) {
  TypeParam& control = this->Subject();
  this->Driver().MovePointer(this->Strip());
  control.SetDropDownBackColor(Color(0x00445566));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
}

TYPED_TEST(FixedPanel, APlaceOfTheSelectionBeyond16BitsOverflows) {
  TypeParam& control = this->Subject();
  control.ActiveEdit().SetMaxLength(40000);
  control.ActiveEdit().SetText(std::string(33000, '1'));
  this->Driver().Key(kKeyEnd);
  EXPECT_EQ(ErrorOf([&] { control.SelStart(); }), kOverflow);
  control.ActiveEdit().Select(0, 33000);
  EXPECT_EQ(ErrorOf([&] { control.SelLength(); }), kOverflow);
}

TYPED_TEST(FixedPanel, TheWheelChangesNothingOverAnOpenPanel) {
  this->Open();
  this->Driver().MovePointer(this->OnPanel(600, 900));
  EXPECT_THAT(this->EventsOf([this] {
    this->Driver().Wheel(1);
    this->Driver().Wheel(-1);
  }),
              ::testing::IsEmpty());
  EXPECT_TRUE(this->IsOpen());
}

// --- The strip under the pointer -----------------------------------------------------------------------

TYPED_TEST(FixedPanel, TheTextIsOutsideTheStripAndTheRightEdgeInside) {
  const TypeParam& control = this->Subject();
  const PixelRect rect = this->ControlRect();
  const Color over = control.DropDownBackColorMouseOver();
  const Color rest = control.DropDownBackColor();
  const struct {
    PixelPoint at;
    Color color;
  } rows[] = {
      {{rect.right, rect.top + 5}, over},      {{rect.right + 1, rect.top + 5}, rest},
      {{rect.right - 3, rect.bottom}, over},   {{rect.right - 3, rect.bottom + 1}, rest},
      {{rect.right - 3, rect.top}, over},      {{rect.right - 3, rect.top - 1}, rest},
      {{rect.left + 107, rect.top + 5}, over}, {{rect.left + 106, rect.top + 5}, rest},
      {{rect.left + 10, rect.top + 5}, rest},
  };
  for (const auto& row : rows) {
    this->Driver().MovePointer(this->Strip());
    this->Driver().MovePointer(row.at);
    EXPECT_EQ(this->StripPixel(), this->Concrete(row.color))
        << row.at.x - rect.left << " " << row.at.y - rect.top;
    EXPECT_EQ(this->Windows().GetCapture() == control.hWnd(), row.color == over);
    this->Driver().MovePointer({5, 5});
    this->Driver().MovePointer({6, 5});
  }
}

TYPED_TEST(FixedPanel, TheStripBeginsWhereTheTextEnds) {
  TypeParam& control = this->Subject();
  for (int turn = 0; turn < 2; ++turn) {
    control.OnMouseMove({0, 0, {Twips(1600), Twips(10)}});
    EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  }
  control.OnMouseMove({0, 0, {Twips(1599), Twips(10)}});
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(FixedPanel, APressIsPushedAndItsReleaseHoversAgain) {
  TypeParam& control = this->Subject();
  this->Driver().MovePointer(this->Strip());
  this->Driver().Press(kLeftButton);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorPushed()));
  EXPECT_TRUE(this->IsOpen());
  this->Driver().Release(kLeftButton);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  EXPECT_EQ(this->Windows().GetCapture(), control.hWnd());
  this->Driver().MovePointer({5, 5});
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
  EXPECT_FALSE(this->Windows().GetCapture());
}

TYPED_TEST(FixedPanel, AReleaseOfAnyButtonHoversAndCaptures) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  control.OnMouseUp({kRightButton, 0, {Twips(5000), Twips(0)}});
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "capture"));
  EXPECT_EQ(control.GetSurface().BackColor(), control.DropDownBackColorMouseOver());
  // The next move finds the pointer outside.
  control.OnMouseMove({0, 0, {Twips(5000), Twips(0)}});
  EXPECT_EQ(control.GetSurface().BackColor(), control.DropDownBackColor());
}

// --- Keys --------------------------------------------------------------------------------------------

TYPED_TEST(FixedPanel, TypedCharactersAreTheEditBoxs) {
  TypeParam& control = this->Subject();
  EXPECT_THAT(this->EventsOf([this] { this->Driver().Type("x"); }),
              ElementsAre("KeyDown(88, 0)", "KeyPress(120)", "Change()", "KeyUp(88, 0)"));
  EXPECT_EQ(control.ActiveEdit().Text(), "x");
}

TYPED_TEST(FixedPanel, AHandlerChangesOrSwallowsWhatIsTyped) {
  TypeParam& control = this->Subject();
  control.KeyPress += [](std::int16_t& key) { key = static_cast<std::int16_t>(key == 'a' ? 'b' : 0); };
  this->Driver().Type("ac");
  EXPECT_EQ(control.ActiveEdit().Text(), "b");
}

// --- Opening and closing -------------------------------------------------------------------------------

TYPED_TEST(FixedPanel, NearTheLowerEdgeThePanelStandsAboveAtTheRightEdge) {
  this->Subject();
  this->TheForm().MoveTo({100, this->Tracer().Screen().Size().height - 88});
  this->Open();
  const int width = static_cast<int>(this->Subject().Panel()->Size().width.value);
  EXPECT_EQ(this->PanelRect().left, (this->ControlRect().right * 15 - width) / 15);
  EXPECT_EQ(this->PanelRect().bottom, this->ControlRect().top);
}

TYPED_TEST(FixedPanel, ClosingPutsTheCaretToTheEndOfTheText) {
  TypeParam& control = this->Subject();
  this->Driver().Type("123");
  control.SetSelStart(0);
  control.SetSelLength(2);
  this->Open();
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(control.SelStart(), 3);
  EXPECT_EQ(control.SelLength(), 0);
}

}  // namespace
}  // namespace levelwidgets::testing
