// FlatGrid: the editing of cells by keys and pointer, and the approval of what was typed.
#include <levelwidgets/controls/grid/flat_grid_edit_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using FlatGridEditTest = GridEditTest;

// --- Asking for the editor -------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, F2AndSpaceOpenTheEditorOfTheCurrentCell) {
  for (const int key : {kKeyF2, kKeySpace}) {
    FlatGrid& grid = Editable(ksxEditText);
    grid.SetRowData(1, 1, "seventeen");
    Watch(grid);
    Driver().Key(key);
    EXPECT_EQ(Typed(), "seventeen") << "no blank was typed by " << key;
    EXPECT_TRUE(EditorHasFocus());
    EXPECT_EQ(grid.Editor()->Edit().SelText(), "seventeen") << "what is typed takes its place";
    EXPECT_THAT(TakeJournal(), Contains("KeyDown(" + std::to_string(key) + ", 0)"));
    Driver().Key(kKeyEscape);
  }
}

TEST_F(FlatGridEditTest, WithoutAllowEditsSpaceAndF2OnlyRaiseKeyDown) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetAllowEdits(false);
  Watch(grid);
  Driver().Key(kKeyF2);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(113, 0)", "KeyUp(113, 0)"));
  EXPECT_FALSE(IsOpen());
  ClickAt(20, 20);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridEditTest, ACellOfAColumnWithoutEditorIsNotEdited) {
  FlatGrid& grid = Editable(ksxEditNone);
  Watch(grid);
  Driver().Key(kKeySpace);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(32, 0)", "KeyPress(32)", "KeyUp(32, 0)"));
  ClickAt(20, 20);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridEditTest, AColumnOfAnyOtherTypeIsEditedAsText) {
  FlatGrid& grid = Editable(static_cast<ksxEditTypeConstants>(17));
  grid.SetRowData(1, 1, "text");
  Driver().Key(kKeyF2);
  EXPECT_EQ(Typed(), "text");
}

TEST_F(FlatGridEditTest, ALeftClickOnTheCurrentCellOpensItsEditor) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetRowData(2, 1, "text");
  ClickAt(20, 36);
  EXPECT_FALSE(IsOpen()) << "it makes the cell the current one";
  ClickAt(40, 36);  // too far away for a double click
  ASSERT_TRUE(EditorHasFocus());
  EXPECT_EQ(EditorRect(), (PixelRect{0, 30, 61, 46}));
  EXPECT_EQ(grid.Editor()->Edit().SelText(), "text") << "the press does nothing in the editor";
  ClickAt(80, 36);
  EXPECT_FALSE(IsOpen()) << "another cell is the current one now";
  EXPECT_EQ(grid.RowIndex(), 2);
}

TEST_F(FlatGridEditTest, TheFirstClickOnTheCurrentCellOpensTheEditorOfAGridWithoutFocus) {
  Editable(ksxEditText);
  LeaveToAnotherControl();
  ClickAt(20, 20);
  EXPECT_TRUE(EditorHasFocus());
}

TEST_F(FlatGridEditTest, AnotherButtonOnTheCurrentCellClosesTheEditor) {
  Opened();
  EXPECT_TRUE(IsOpen());
  Driver().MovePointer(ScreenPoint(Grid(), PixelPoint{80, 20}));
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  EXPECT_FALSE(IsOpen());
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridEditTest, WithoutTheFocusNoEditorOpens) {
  FlatGrid& grid = Editable(ksxEditText);
  LeaveToAnotherControl();
  grid.OnKeyDown(kKeyF2, 0);
  EXPECT_FALSE(IsOpen());
  Focus();
  EXPECT_TRUE(IsOpen()) << "it was asked for";
}

TEST_F(FlatGridEditTest, ACellThatIsNotInViewGetsItsEditorWhenItComesIntoView) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetRowCount(100);
  grid.SetTopIndex(50);
  Driver().Key(kKeyF2);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
  grid.SetTopIndex(1);
  EXPECT_TRUE(EditorHasFocus());
}

TEST_F(FlatGridEditTest, AColumnThatIsNotVisibleIsNotEdited) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.Columns()->Item(1)->SetVisible(false);
  Driver().Key(kKeyF2);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridEditTest, AGridWithoutRowsOrColumnsIsNotEdited) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetRowCount(0);
  Driver().Key(kKeyF2);
  EXPECT_FALSE(IsOpen());
  grid.Columns()->Clear();
  Driver().Key(kKeyF2);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridEditTest, ASelectedRowThatWasLoadedAndDoesNotExistIsNotEdited) {
  Grid();
  PropertyBag bag;
  bag.WriteProperty("AllowEdits", true, Variant());
  bag.WriteProperty("RowIndex", std::int16_t{500}, Variant());
  bag.WriteProperty("TopIndex", std::int16_t{495}, Variant());
  bag.WriteProperty("ColumnCount", std::int16_t{1}, Variant());
  bag.WriteProperty("Column1Width", 900, Variant());
  bag.WriteProperty("Column1Visible", true, Variant());
  auto& grid = AddLoaded<FlatGrid>("grdLoaded", bag, {Twips(600), Twips(2000)}, kGridSize);
  Hosted(grid).SetFocus();
  Driver().Settle();
  Driver().Key(kKeyF2);
  EXPECT_EQ(grid.Editor(), nullptr);
  Driver().Key(kKeyUp);
  EXPECT_EQ(grid.RowIndex(), 500) << "no row is above it";
}

// --- Typing and storing ------------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, EnterStoresWhatWasTypedOnceItIsApproved) {
  FlatGrid& grid = Opened();
  std::string cell_before;
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool&) {
    cell_before = grid.RowData(1, 1) + "<-" + Typed();
  };
  Driver().Type("42");
  EXPECT_EQ(grid.RowData(1, 1), "");
  EXPECT_THAT(Edits(), IsEmpty());
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, 42, False)", "AfterCellEdit(1, 1)"));
  EXPECT_EQ(cell_before, "<-42");
  EXPECT_EQ(grid.RowData(1, 1), "42");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowIndex(), 2) << "the next key is the grid's";
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridEditTest, EnterWithoutAChangeAsksNobody) {
  Opened();
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), IsEmpty());
  EXPECT_FALSE(IsOpen());
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 1)")) << "no row was edited";
}

TEST_F(FlatGridEditTest, TheTextIsInTheCellWhenAfterCellEditIsRaised) {
  FlatGrid& grid = Opened();
  std::string stored;
  grid.AfterCellEdit += [&](std::int32_t row, std::int32_t column) { stored = grid.RowData(row, column); };
  Driver().Type("x");
  Driver().Key(kKeyEnter);
  EXPECT_EQ(stored, "x");
}

TEST_F(FlatGridEditTest, AListenerChangesTheValueThatIsStored) {
  FlatGrid& grid = Opened();
  grid.BeforeCellEdit += [](std::int32_t, std::int32_t, std::string& value, bool&) { value += ".00"; };
  Driver().Type("17");
  Driver().Key(kKeyEnter);
  EXPECT_EQ(grid.RowData(1, 1), "17.00");
}

TEST_F(FlatGridEditTest, AListenerThatRefusesKeepsTheUserInTheCellOnEveryArrowKey) {
  FlatGrid& grid = Opened();
  grid.SetRowData(1, 1, "old");
  grid.BeforeCellEdit += [](std::int32_t, std::int32_t, std::string& value, bool& cancel) {
    value = "changed and refused";
    cancel = true;
  };
  Driver().Type("new");
  bool first = true;
  for (const int key : {kKeyDown, kKeyUp, kKeyEnter, kKeyDown, kKeyLeft}) {
    Edits();
    PutCaret(0);
    Driver().Key(key);
    const char* expected = key == kKeyUp ? "AfterRowEdit(1)" : "BeforeCellEdit(1, 1, old, False)";
    EXPECT_THAT(Edits(), ElementsAre(first ? "BeforeCellEdit(1, 1, new, False)" : expected)) << key;
    first = false;
    EXPECT_EQ(Typed(), "old") << "the stored text";
    EXPECT_EQ(grid.RowIndex(), 1);
    EXPECT_TRUE(EditorHasFocus());
  }
  EXPECT_EQ(grid.RowData(1, 1), "old");
  Driver().Key(kKeyEscape);
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowIndex(), 2) << "Escape is the way out";
}

TEST_F(FlatGridEditTest, EscapeLeavesTheCellAsItWasAndAsksNobody) {
  FlatGrid& grid = Opened();
  grid.SetRowData(1, 1, "old");
  Driver().Type("new");
  Edits();
  Driver().Key(kKeyEscape);
  EXPECT_THAT(Edits(), IsEmpty());
  EXPECT_EQ(grid.RowData(1, 1), "old");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 1)", "AfterRowEdit(1)")) << "the row counts as edited";
  EXPECT_EQ(grid.RowData(1, 1), "old");
}

TEST_F(FlatGridEditTest, ARefusedValueRaisesNoAfterRowEditUntilTheRowIsLeft) {
  FlatGrid& grid = Opened();
  bool refuse = true;
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool& cancel) { cancel = refuse; };
  Driver().Type("x");
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, x, False)"));
  refuse = false;
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, , False)", "AfterCellEdit(1, 1)",
                                   "RowColChange(1, 1)", "AfterRowEdit(1)"));
}

TEST_F(FlatGridEditTest, AnErrorInBeforeCellEditStoresNothingAndLosesNothing) {
  FlatGrid& grid = Opened();
  bool raise = true;
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool&) {
    if (raise) throw Error(4711, "test", "not now");
  };
  Driver().Type("typed");
  EXPECT_EQ(ErrorOf([&] { Driver().Key(kKeyDown); }), 4711);
  EXPECT_EQ(Typed(), "typed");
  EXPECT_EQ(grid.RowIndex(), 1);
  EXPECT_EQ(grid.RowData(1, 1), "");
  raise = false;
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowData(1, 1), "typed");
}

TEST_F(FlatGridEditTest, AnErrorInAfterCellEditLeavesTheValueStored) {
  FlatGrid& grid = Opened();
  int asked = 0;
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool&) { ++asked; };
  grid.AfterCellEdit += [](std::int32_t, std::int32_t) { throw Error(4711, "test", "too late"); };
  Driver().Type("typed");
  EXPECT_EQ(ErrorOf([&] { Driver().Key(kKeyDown); }), 4711);
  EXPECT_EQ(grid.RowData(1, 1), "typed");
  Driver().Key(kKeyDown);
  EXPECT_EQ(asked, 1);
}

TEST_F(FlatGridEditTest, TheRowIsRepaintedBeforeAfterCellEditAndOnceMoreWhenEnterHasClosedTheEditor) {
  FlatGrid& grid = Opened();
  const auto repaints = [&](const std::vector<TracedCall>& calls) {
    return std::ranges::count_if(calls, [&](const TracedCall& call) {
      return call.name == "DrawTextA" &&
             std::get<std::int64_t>(call.arguments[0]) == grid.Picture().GetSurface().hDC().value &&
             std::get<std::string>(call.arguments[1]) == "x";
    });
  };
  std::ptrdiff_t before_event = 0;
  grid.AfterCellEdit += [&](std::int32_t, std::int32_t) { before_event = repaints(Tracer().TakeCalls()); };
  Driver().Type("x");
  const auto after_event = CallsNamed({"DrawTextA"}, [&] { Driver().Key(kKeyEnter); });
  EXPECT_EQ(before_event, 1);
  EXPECT_EQ(repaints(after_event), 1);
}

TEST_F(FlatGridEditTest, F2OnTheGridItselfStoresAndClosesTheEditor) {
  FlatGrid& grid = Opened();
  bool refuse = true;
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool& cancel) { cancel = refuse; };
  Driver().Type("x");
  grid.OnKeyDown(kKeyF2, 0);
  EXPECT_TRUE(IsOpen()) << "refused";
  refuse = false;
  Driver().Type("y");
  Edits();
  grid.OnKeyDown(kKeyF2, 0);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, y, False)", "AfterCellEdit(1, 1)"));
  EXPECT_EQ(grid.RowData(1, 1), "y");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
}

TEST_F(FlatGridEditTest, TheRepaintOfAStoredValueOpensNoEditor) {
  FlatGrid& grid = Opened();
  std::string typed;
  grid.BeforeCellEdit += [](std::int32_t, std::int32_t, std::string& value, bool&) { value = "changed"; };
  grid.AfterCellEdit += [&](std::int32_t, std::int32_t) { typed = Typed(); };
  Driver().Type("x");
  Driver().Key(kKeyEnter);
  EXPECT_EQ(typed, "x") << "it is loaded again with the next paint";
}

TEST_F(FlatGridEditTest, AGridThatItsListenerRemovesStoresNothing) {
  FlatGrid& grid = Opened();
  bool stored = false;
  grid.BeforeCellEdit +=
      [&](std::int32_t, std::int32_t, std::string&, bool&) { TheForm().Remove("grdMain"); };
  grid.AfterCellEdit += [&](std::int32_t, std::int32_t) { stored = true; };
  Driver().Type("x");
  Driver().Key(kKeyEnter);
  EXPECT_FALSE(stored);
}

TEST_F(FlatGridEditTest, AStoredValueMakesTheRowAnEditedOneOnceMore) {
  Opened();
  Driver().Type("x");
  Driver().Key(kKeyUp);
  EXPECT_THAT(Edits(), ElementsAre("AfterRowEdit(1)")) << "blocked, and not stored yet";
  Driver().Key(kKeyEnter);
  Edits();
  Driver().Key(kKeyUp);
  EXPECT_THAT(Edits(), ElementsAre("AfterRowEdit(1)"));
}

// --- Arrows -------------------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, ArrowsLeaveTheTextOnlyAtItsEnds) {
  FlatGrid& grid = Opened();
  Driver().Type("abc");
  PutCaret(1);
  Driver().Key(kKeyLeft);
  EXPECT_EQ(grid.Editor()->Edit().SelStart(), 0);
  EXPECT_THAT(Edits(), IsEmpty()) << "only the caret has moved";
  Driver().Key(kKeyRight);
  Driver().Key(kKeyRight);
  Driver().Key(kKeyRight);
  EXPECT_THAT(Edits(), IsEmpty());
  Driver().Key(kKeyRight);
  EXPECT_THAT(Edits(),
              ElementsAre("BeforeCellEdit(1, 1, abc, False)", "AfterCellEdit(1, 1)", "AfterRowEdit(1)"));
  EXPECT_EQ(EditorRect(), (PixelRect{60, 15, 121, 31})) << "the edit goes along";
  Driver().Key(kKeyLeft);
  EXPECT_EQ(EditorRect(), (PixelRect{0, 15, 61, 31}));
  EXPECT_EQ(Typed(), "abc");
}

TEST_F(FlatGridEditTest, ArrowsWithShiftSelectText) {
  Opened();
  Driver().Type("abc");
  PutCaret(0);
  Driver().Key(kKeyLeft, kShiftMask);
  EXPECT_EQ(EditorRect().left, 0);
  PutCaret(3);
  Driver().Key(kKeyRight, kShiftMask);
  EXPECT_EQ(EditorRect().left, 0);
}

TEST_F(FlatGridEditTest, KeysWithAltAreNotTheEditors) {
  FlatGrid& grid = Opened();
  Driver().Key(kKeyDown, kAltMask);
  EXPECT_EQ(grid.RowIndex(), 1);
  EXPECT_TRUE(EditorHasFocus());
}

TEST_F(FlatGridEditTest, TheEndOfATextIsCountedInCharacters) {
  Opened();
  Driver().Type("\xC3\xA4\xC3\xB6");
  Driver().Key(kKeyRight);
  EXPECT_EQ(EditorRect().left, 60);
}

TEST_F(FlatGridEditTest, UpAndDownStoreAndTakeTheEditAlong) {
  FlatGrid& grid = Opened();
  grid.SetRowData(2, 1, "second");
  Driver().Type("first");
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, first, False)", "AfterCellEdit(1, 1)",
                                   "RowColChange(1, 1)", "AfterRowEdit(1)"));
  EXPECT_EQ(Typed(), "second");
  EXPECT_EQ(EditorRect(), (PixelRect{0, 30, 61, 46}));
  EXPECT_TRUE(EditorHasFocus());
  Driver().Type("2");
  Driver().Key(kKeyUp);
  EXPECT_EQ(Typed(), "first");
  EXPECT_EQ(grid.RowData(2, 1), "2");
}

TEST_F(FlatGridEditTest, TheEditGoesOnBeyondAColumnWithoutEditor) {
  FlatGrid& grid = Opened(ksxEditText, ksxEditNone);
  Driver().Key(kKeyLeft);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
  Driver().Key(kKeyLeft);
  EXPECT_TRUE(EditorHasFocus());
  EXPECT_EQ(grid.RowIndex(), 1);
}

TEST_F(FlatGridEditTest, AMoveThatScrollsTakesTheEditAlong) {
  FlatGrid& grid = Opened();
  grid.SetRowCount(100);
  for (int i = 0; i < 20; ++i) {
    Driver().Type(std::to_string(i));
    Driver().Key(kKeyDown);
  }
  EXPECT_EQ(grid.RowIndex(), 21);
  EXPECT_TRUE(EditorHasFocus());
  for (int i = 0; i < 20; ++i) EXPECT_EQ(grid.RowData(i + 1, 1), std::to_string(i));
}

// --- AfterRowEdit -------------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, AnyKeyThatCouldMoveRaisesAfterRowEditOnce) {
  Opened();
  Driver().Type("x");
  Driver().Key(kKeyEnter);
  Edits();
  Driver().Key(kKeyUp);
  EXPECT_THAT(Edits(), ElementsAre("AfterRowEdit(1)")) << "a blocked move, too";
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 1)"));
}

TEST_F(FlatGridEditTest, AClickRaisesAfterRowEditOnlyInAnotherRow) {
  Opened();
  Driver().Type("x");
  Driver().Key(kKeyEnter);
  Edits();
  ClickAt(80, 20);
  EXPECT_THAT(Edits(), IsEmpty());
  ClickAt(80, 36);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 2)", "AfterRowEdit(1)"));
}

// --- Pointer ------------------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, AClickOnAnotherCellStoresAndClosesTheEditor) {
  FlatGrid& grid = Opened();
  Driver().Type("x");
  Edits();
  ClickAt(80, 36);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, x, False)", "AfterCellEdit(1, 1)",
                                   "RowColChange(1, 2)", "AfterRowEdit(1)"));
  EXPECT_EQ(grid.RowData(1, 1), "x");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
}

TEST_F(FlatGridEditTest, ARefusedClickLeavesTheEditorOpenWithTheStoredText) {
  FlatGrid& grid = Opened();
  grid.SetRowData(1, 1, "old");
  grid.BeforeCellEdit += [](std::int32_t, std::int32_t, std::string&, bool& cancel) { cancel = true; };
  Driver().Type("new");
  TakeJournal();
  ClickAt(80, 36);
  EXPECT_THAT(TakeJournal(), Not(Contains(::testing::StartsWith("MouseDown"))));
  EXPECT_EQ(Typed(), "old");
  EXPECT_TRUE(EditorHasFocus());
  EXPECT_EQ(grid.RowIndex(), 1);
  ClickAt(100, 36);
  EXPECT_EQ(Typed(), "old") << "refused once more";
}

TEST_F(FlatGridEditTest, ARefusedClickOnARowFarAwayLeavesTheEditorOpen) {
  FlatGrid& grid = Opened();
  grid.SetRowCount(100);
  grid.BeforeCellEdit += [](std::int32_t, std::int32_t, std::string&, bool& cancel) { cancel = true; };
  Driver().Type("new");
  grid.SetTopIndex(50);
  ClickAt(80, 36);
  EXPECT_TRUE(EditorHasFocus());
  EXPECT_EQ(grid.RowIndex(), 1);
}

TEST_F(FlatGridEditTest, AClickBelowTheRowsDoesNothingMoreAndLosesNothing) {
  FlatGrid& grid = Opened();
  grid.SetRowCount(2);
  Driver().Type("x");
  TakeJournal();
  ClickAt(20, 80);
  EXPECT_THAT(TakeJournal(), Not(Contains(::testing::StartsWith("MouseDown"))));
  EXPECT_EQ(grid.RowData(1, 1), "");
  EXPECT_EQ(Typed(), "x") << "the next paint has shown it again";
  EXPECT_TRUE(EditorHasFocus());
  Driver().Key(kKeyEnter);
  EXPECT_EQ(grid.RowData(1, 1), "x");
}

TEST_F(FlatGridEditTest, AClickOnTheHeaderClosesTheEditorAndTheNextMoveStores) {
  FlatGrid& grid = Opened();
  Driver().Type("x");
  TakeJournal();
  ClickAt(20, 5);
  EXPECT_THAT(TakeJournal(), AllOf(Contains("ColumnHeaderClick(1)"), Contains("MouseDown(1, 0, 300, 75)")));
  EXPECT_FALSE(IsOpen());
  grid.OnPaint();
  EXPECT_FALSE(IsOpen());
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowData(1, 1), "x");
}

TEST_F(FlatGridEditTest, AClickRightOfAllColumnsStoresAndRaisesMouseDown) {
  FlatGrid& grid = Opened();
  Driver().Type("x");
  TakeJournal();
  ClickAt(200, 36);
  EXPECT_THAT(TakeJournal(), Contains("MouseDown(1, 0, 3000, 540)"));
  EXPECT_EQ(grid.RowData(1, 1), "x");
  EXPECT_EQ(grid.RowIndex(), 1);
  EXPECT_FALSE(IsOpen());
}

// --- Focus --------------------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, ClickingAnotherControlStoresNothing) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  Edits();
  LeaveToAnotherControl();
  EXPECT_THAT(Edits(), IsEmpty());
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(grid.RowData(1, 1), "");
  Focus();
  EXPECT_FALSE(IsOpen()) << "it has to be asked for again";
}

TEST_F(FlatGridEditTest, WhatWasTypedBeforeTheFocusWentIsAskedAboutAtTheNextMove) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  LeaveToAnotherControl();
  Focus();
  Edits();
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, typed, False)", "AfterCellEdit(1, 1)",
                                   "RowColChange(1, 1)", "AfterRowEdit(1)"));
  EXPECT_EQ(grid.RowData(1, 1), "typed");
}

TEST_F(FlatGridEditTest, WhatWasTypedBeforeTheFocusWentIsForgottenOnceAnotherCellIsCurrent) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  LeaveToAnotherControl();
  grid.SetRowIndex(3);
  Focus();
  Edits();
  Driver().Key(kKeyUp);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(3, 1)", "AfterRowEdit(3)"));
  EXPECT_EQ(grid.RowData(1, 1), "");
  EXPECT_EQ(grid.RowData(3, 1), "");
}

TEST_F(FlatGridEditTest, TheEditorOpenedAgainShowsTheStoredText) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  LeaveToAnotherControl();
  Focus();
  Edits();
  Driver().Key(kKeyF2);
  EXPECT_EQ(Typed(), "");
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), IsEmpty()) << "nothing was changed since";
  EXPECT_EQ(grid.RowData(1, 1), "");
}

TEST_F(FlatGridEditTest, TabLeavesTheGridFromItsEditor) {
  Opened();
  Driver().Key(kKeyTab);
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(PictureHasFocus());
}

TEST_F(FlatGridEditTest, TheGridThatIsGivenTheFocusWhileItsEditorIsOpenGivesItToTheEditor) {
  Opened();
  Windows().SetFocus(Grid().hWnd());
  EXPECT_TRUE(EditorHasFocus());
}

TEST_F(FlatGridEditTest, LosingTheFocusRepaintsOnlyWithAFocusFrame) {
  FlatGrid& grid = Editable(ksxEditText);
  const auto paints = [&] { return CallsNamed({"BitBlt"}, [&] { LeaveToAnotherControl(); }).size(); };
  const auto other = paints();
  Focus();
  EXPECT_EQ(paints(), other) << "that of the other control alone";
  grid.SetShowCellFocus(true);
  Focus();
  EXPECT_EQ(paints(), other + 1);
}

// --- What else happens while an editor is open --------------------------------------------------------

TEST_F(FlatGridEditTest, ARepaintDoesNotOverwriteWhatTheUserTypes) {
  FlatGrid& grid = Opened();
  Driver().Type("abc");
  PutCaret(1);
  grid.SetRowData(1, 1, "from outside");
  grid.OnPaint();
  EXPECT_EQ(Typed(), "abc");
  EXPECT_EQ(grid.Editor()->Edit().SelStart(), 1);
}

TEST_F(FlatGridEditTest, ACellThatIsWrittenShowsInItsEditorUntilTheUserTypes) {
  FlatGrid& grid = Opened();
  grid.SetRowData(1, 1, "from outside");
  EXPECT_EQ(Typed(), "from outside");
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), IsEmpty()) << "that is no change of the user";
}

TEST_F(FlatGridEditTest, ARepaintLeavesTheCaretWhereItIs) {
  FlatGrid& grid = Opened();
  grid.SetRowData(1, 1, "text");
  PutCaret(2);
  grid.OnPaint();
  EXPECT_EQ(grid.Editor()->Edit().SelStart(), 2);
  EXPECT_EQ(grid.Editor()->Edit().SelLength(), 0);
}

TEST_F(FlatGridEditTest, ScrollingAwayAndBackKeepsWhatWasTyped) {
  FlatGrid& grid = Opened();
  grid.SetRowCount(100);
  Driver().Type("ab");
  grid.SetTopIndex(50);
  EXPECT_LE(EditorRect().bottom, 0) << "out of sight";
  Driver().Type("c");
  grid.SetTopIndex(1);
  EXPECT_EQ(Typed(), "abc");
  EXPECT_EQ(EditorRect(), (PixelRect{0, 15, 61, 31}));
}

TEST_F(FlatGridEditTest, TheWheelScrollsWhileAnEditorIsOpen) {
  FlatGrid& grid = Opened();
  grid.SetRowCount(100);
  Driver().MovePointer(ScreenPoint(grid, PixelPoint{20, 22}));
  Driver().Wheel(-1);
  EXPECT_EQ(grid.TopIndex(), 4);
}

TEST_F(FlatGridEditTest, AnotherRowSelectedByTheProgramTakesTheEditAlongAndForgetsWhatWasTyped) {
  FlatGrid& grid = Opened();
  grid.SetRowData(3, 1, "third");
  Driver().Type("typed");
  Edits();
  grid.SetRowIndex(3);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 1)"));
  EXPECT_EQ(Typed(), "third");
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), IsEmpty());
  EXPECT_EQ(grid.RowData(1, 1), "");
}

TEST_F(FlatGridEditTest, AnotherRowCountClosesTheEditorOfARowThatIsNotTheFirst) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  grid.SetRowCount(20);
  EXPECT_EQ(Typed(), "typed") << "the first row is still the current one";
  Driver().Key(kKeyDown);
  Driver().Type("second");
  grid.SetRowCount(30);
  EXPECT_FALSE(IsOpen());
  Edits();
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 1)", "AfterRowEdit(1)"));
  EXPECT_EQ(grid.RowData(2, 1), "");
}

TEST_F(FlatGridEditTest, AnotherColumnEmptiesTheCellsAndClosesTheEditor) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  grid.Columns()->Add("C", 900, ksxLeft, ksxLeft, ksxEditText, true);
  EXPECT_FALSE(IsOpen());
  Edits();
  Driver().Key(kKeyDown);
  EXPECT_THAT(Edits(), ElementsAre("RowColChange(1, 1)", "AfterRowEdit(1)"));
}

TEST_F(FlatGridEditTest, TakingAllowEditsAwayClosesTheEditor) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  grid.SetAllowEdits(false);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowData(1, 1), "");
}

TEST_F(FlatGridEditTest, ADisabledGridClosesItsEditor) {
  FlatGrid& grid = Opened();
  Driver().Type("typed");
  grid.SetEnabled(false);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(grid.RowData(1, 1), "");
}

TEST_F(FlatGridEditTest, AnotherEditTypeComesWithTheNextEdit) {
  FlatGrid& grid = Opened();
  Driver().Type("17");
  grid.Columns()->Item(1)->SetEditType(ksxEditCalculator);
  grid.OnPaint();
  EXPECT_EQ(Typed(), "17");
  Driver().Key(kKeyEnter);
  EXPECT_EQ(grid.RowData(1, 1), "17");
  Driver().Key(kKeyF2);
  EXPECT_EQ(EditorRect().bottom - EditorRect().top, 15) << "a calculator";
}

TEST_F(FlatGridEditTest, OnlyOneQuestionIsAskedAtATime) {
  FlatGrid& grid = Opened();
  int asked = 0;
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool&) {
    if (++asked == 1) grid.OnKeyDown(kKeyDown, 0);
  };
  Driver().Type("x");
  Driver().Key(kKeyDown);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(grid.RowIndex(), 2);
  EXPECT_EQ(grid.RowData(1, 1), "x");
}

TEST_F(FlatGridEditTest, AListenerThatSelectsAnotherRowKeepsItsChoice) {
  FlatGrid& grid = Opened();
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool&) { grid.SetRowIndex(5); };
  Driver().Type("x");
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowIndex(), 5);
  EXPECT_EQ(grid.RowData(1, 1), "x") << "the value was approved for this cell";
}

TEST_F(FlatGridEditTest, AListenerThatTakesTheRowAwayLeavesNothingToStore) {
  FlatGrid& grid = Opened();
  Driver().Key(kKeyDown);
  grid.BeforeCellEdit += [&](std::int32_t, std::int32_t, std::string&, bool&) { grid.SetRowCount(1); };
  Driver().Type("x");
  Edits();
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(2, 1, x, False)"));
  EXPECT_EQ(grid.RowData(1, 1), "");
}

TEST_F(FlatGridEditTest, TheLastOfAMillionRowsIsEdited) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetRowCount(1000000);
  grid.OnPaint();
  Driver().Key(kKeyEnd);
  Driver().Key(kKeyF2);
  Driver().Type("last");
  Driver().Key(kKeyUp);
  EXPECT_EQ(grid.RowData(1000000, 1), "last");
  EXPECT_EQ(grid.RowIndex(), 999999);
  EXPECT_TRUE(EditorHasFocus());
}

// --- Copying ------------------------------------------------------------------------------------------

TEST_F(FlatGridEditTest, CtrlCCopiesTheSelectedRowAsItIsShownBetweenTabs) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.Columns()->Add("C", 900, ksxLeft, ksxLeft, ksxEditText, false);
  grid.Columns()->Add("D", 900, ksxLeft, ksxLeft, ksxEditText, true, "0.00");
  grid.SetRowIndex(2);
  grid.SetRowData(2, 1, "a\tb\r\nc");
  grid.SetRowData(2, 3, "hidden");
  grid.SetRowData(2, 4, "17.5");
  Journal events;
  grid.KeyDown += [&](std::int16_t&, std::int16_t) {
    events.push_back("KeyDown");
    grid.SetRowData(2, 2, "written by the listener");
  };
  grid.OnKeyDown(kKeyC, kCtrlMask);
  EXPECT_THAT(events, ElementsAre("KeyDown"));
  grid.SetRowIndex(1);
  Driver().Key(kKeyF2);
  grid.Editor()->Edit().Send(kWmPaste);
  EXPECT_EQ(Typed(), "a b  c\twritten by the listener\t17.50");
}

TEST_F(FlatGridEditTest, CtrlCInAnEditorCopiesNoRow) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetRowData(1, 1, "first");
  grid.OnKeyDown(kKeyC, kCtrlMask);
  grid.SetRowData(1, 1, "second");
  Driver().Key(kKeyF2);
  grid.OnKeyDown(kKeyC, kCtrlMask);
  grid.Editor()->Edit().Send(kWmPaste);
  EXPECT_EQ(Typed(), "first\t");
}

}  // namespace
}  // namespace levelwidgets::testing
