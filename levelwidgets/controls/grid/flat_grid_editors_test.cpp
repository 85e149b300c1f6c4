// FlatGrid: its four editors: where each stands, and which text it gives to the cell.
#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/grid/flat_grid_edit_fixture.h>
#include <levelwidgets/frame/panel_edit_control.h>

namespace levelwidgets::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- All four -----------------------------------------------------------------------------------------

class FlatGridEditorsTest : public GridEditTest, public ::testing::WithParamInterface<ksxEditTypeConstants> {
 protected:
  // A text that the editor shows as it is, and another one to type.
  static std::string Stored() { return GetParam() == ksxEditCalendar ? "1/2/2026" : "17"; }
  static std::string Other() { return GetParam() == ksxEditCalendar ? "3/4/2026" : "42"; }
  FlatGrid& OpenedOn(const std::string& text) {
    FlatGrid& grid = Editable(GetParam(), GetParam());
    grid.SetRowData(1, 1, text);
    Driver().Key(kKeyF2);
    Watch(grid);
    return grid;
  }
};

TEST_P(FlatGridEditorsTest, ShowsTheTextOfTheCellSelectedWithTheFocus) {
  FlatGrid& grid = OpenedOn(Stored());
  EXPECT_EQ(Typed(), Stored());
  EXPECT_EQ(grid.Editor()->Edit().SelText(), Stored());
  EXPECT_TRUE(EditorHasFocus());
  EXPECT_EQ(grid.Editor()->Edit().GetFont(), grid.GetFont());
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), IsEmpty()) << "opening it is no change";
}

TEST_P(FlatGridEditorsTest, StoresWhatWasTypedByKeysAlone) {
  FlatGrid& grid = OpenedOn(Stored());
  Driver().Type(Other());
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), ElementsAre("BeforeCellEdit(1, 1, " + Other() + ", False)", "AfterCellEdit(1, 1)"));
  EXPECT_EQ(grid.RowData(1, 1), Other());
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
}

TEST_P(FlatGridEditorsTest, EscapePutsTheStoredTextBackAndClosesIt) {
  FlatGrid& grid = OpenedOn(Stored());
  Driver().Type(Other());
  const CellEditor* editor = grid.Editor();
  Driver().Key(kKeyEscape);
  EXPECT_THAT(Edits(), IsEmpty());
  EXPECT_EQ(editor->Text(), Stored());
  EXPECT_EQ(grid.RowData(1, 1), Stored());
  EXPECT_FALSE(IsOpen());
}

TEST_P(FlatGridEditorsTest, ARefusedValueIsReplacedByTheStoredText) {
  FlatGrid& grid = OpenedOn(Stored());
  grid.BeforeCellEdit += [](std::int32_t, std::int32_t, std::string&, bool& cancel) { cancel = true; };
  Driver().Type(Other());
  Driver().Key(kKeyEnter);
  EXPECT_EQ(Typed(), Stored());
  EXPECT_TRUE(EditorHasFocus());
}

TEST_P(FlatGridEditorsTest, ArrowsTakeItAlongAndStore) {
  FlatGrid& grid = OpenedOn(Stored());
  Driver().Type(Other());
  Driver().Key(kKeyDown);
  EXPECT_EQ(grid.RowData(1, 1), Other());
  EXPECT_TRUE(EditorHasFocus());
  EXPECT_EQ(Typed(), "");
  Driver().Key(kKeyRight);
  EXPECT_EQ(EditorRect().left, 60);
  Driver().Key(kKeyUp);
  Driver().Key(kKeyLeft);
  EXPECT_EQ(Typed(), Other());
  EXPECT_TRUE(EditorHasFocus());
}

TEST_P(FlatGridEditorsTest, AClickElsewhereInTheGridStores) {
  FlatGrid& grid = OpenedOn(Stored());
  Driver().Type(Other());
  ClickAt(80, 50);
  EXPECT_EQ(grid.RowData(1, 1), Other());
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
}

TEST_P(FlatGridEditorsTest, LosingTheFocusStoresNothing) {
  FlatGrid& grid = OpenedOn(Stored());
  Driver().Type(Other());
  LeaveToAnotherControl();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(grid.RowData(1, 1), Stored());
  EXPECT_THAT(Edits(), IsEmpty());
}

TEST_P(FlatGridEditorsTest, IsBehindThePictureUntilItIsShown) {
  FlatGrid& grid = OpenedOn(Stored());
  const WindowHandle editor = grid.Editor()->hWnd();
  EXPECT_TRUE(Windows().IsWindowVisible(editor));
  const auto calls = CallsNamed({"SetWindowPos"}, [&] { Driver().Key(kKeyEscape); });
  EXPECT_FALSE(Windows().IsWindowVisible(editor));
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(std::get<std::int64_t>(calls.back().arguments[0]), editor.value);
  EXPECT_EQ(std::get<std::int64_t>(calls.back().arguments[1]), kHwndBottom);
}

TEST_P(FlatGridEditorsTest, IsInFrontOfThePicture) {
  FlatGrid& grid = OpenedOn("");
  grid.Columns()->Item(1)->SetWidth(3000);
  grid.SetBackColorRowOdd(Color(0x123456));
  grid.SetHideSelection(true);
  grid.SetBackColorSelected(Color(0x123456));
  EXPECT_NE(PixelAt(grid, {150, 22}), ColorRef{0x123456u});
  Driver().Key(kKeyEscape);
  EXPECT_EQ(PixelAt(grid, {150, 22}), ColorRef{0x123456u});
}

TEST_P(FlatGridEditorsTest, LeavesThePictureAsItWas) {
  FlatGrid& grid = Editable(GetParam(), GetParam());
  grid.SetRowData(1, 1, Stored());
  grid.SetRowIndex(3);
  PixelRect rect;
  Windows().GetWindowRect(grid.hWnd(), rect);
  Driver().Settle();
  const Picture before = Driver().Capture(rect);
  Driver().Key(kKeyF2);
  EXPECT_NE(Driver().Capture(rect), before);
  Driver().Key(kKeyEscape);
  EXPECT_EQ(Driver().Capture(rect), before);
}

TEST_P(FlatGridEditorsTest, ReplacesTheFocusFrameOfTheCell) {
  FlatGrid& grid = OpenedOn(Stored());
  grid.SetShowCellFocus(true);
  EXPECT_EQ(CallsNamed({"DrawFocusRect"}, [&] { grid.OnPaint(); }).size(), 1u) << "around the editor";
}

TEST_P(FlatGridEditorsTest, HasAFocusFrameAroundIt) {
  FlatGrid& grid = OpenedOn(Stored());
  Driver().Key(kKeyDown);
  const auto drawn = [&](const std::function<void()>& action) {
    std::vector<PixelRect> frames;
    for (const TracedCall& call : CallsNamed({"DrawFocusRect"}, action)) {
      const auto at = [&](std::size_t i) {
        return static_cast<int>(std::get<std::int64_t>(call.arguments[i]));
      };
      frames.push_back({at(1), at(2), at(3), at(4)});
    }
    return frames;
  };
  const PixelRect at_row_2 = EditorRect().Inset(-1);
  grid.OnPaint();
  EXPECT_THAT(drawn([&] { grid.SetRowData(2, 1, Stored()); }), ElementsAre(at_row_2, at_row_2))
      << "off, then on again";
  EXPECT_THAT(drawn([&] { grid.SetRowData(5, 1, Stored()); }), ElementsAre(at_row_2, at_row_2));
  grid.OnPaint();
  EXPECT_THAT(drawn([&] { Driver().Key(kKeyEscape); }), Contains(at_row_2)) << "off";
}

INSTANTIATE_TEST_SUITE_P(Editors, FlatGridEditorsTest,
                         ::testing::Values(ksxEditText, ksxEditCalculator, ksxEditCalendar, ksxEditDropDown),
                         [](const auto& tested) { return NameOfEditType(tested.param); });

// --- Places -------------------------------------------------------------------------------------------

using FlatGridEditorPlaceTest = GridEditTest;

TEST_F(FlatGridEditorPlaceTest, TheEditBoxCoversItsCellAndKeepsItsPlaceInTheOrderOfWindows) {
  FlatGrid& grid = Editable(ksxEditNone, ksxEditText);
  Driver().Key(kKeyRight);
  const auto calls = CallsNamed({"SetWindowPos"}, [&] { Driver().Key(kKeyF2); });
  const auto editor = grid.Editor()->hWnd().value;
  std::vector<std::string> of_editor;
  for (const TracedCall& call : calls) {
    if (std::get<std::int64_t>(call.arguments[0]) != editor) continue;
    std::string line;
    for (const TraceArgument& argument : call.arguments) {
      if (const auto* number = std::get_if<std::int64_t>(&argument)) line += std::to_string(*number) + " ";
    }
    of_editor.push_back(line.substr(line.find(' ') + 1));
  }
  EXPECT_THAT(of_editor, Contains("0 60 15 61 16 4 "));
  EXPECT_EQ(EditorRect(), (PixelRect{60, 15, 121, 31}));
}

TEST_F(FlatGridEditorPlaceTest, TheCalculatorIsAsHighAsTheRow) {
  FlatGrid& grid = Opened(ksxEditCalculator);
  EXPECT_EQ(EditorRect(), (PixelRect{0, 15, 61, 30}));
  grid.SetRowHeight(Twips(600));
  EXPECT_EQ(EditorRect(), (PixelRect{0, 40, 61, 80}));
}

TEST_F(FlatGridEditorPlaceTest, CalendarAndDropDownCoverTheirCellWhereALineFits) {
  FlatGrid& grid = Opened(ksxEditCalendar, ksxEditDropDown);
  for (const int left : {0, 60}) {
    const int right = left + 61;
    EXPECT_EQ(EditorRect(), (PixelRect{left, 15, right, 31}));
    grid.SetRowHeight(Twips(300));
    EXPECT_EQ(EditorRect(), (PixelRect{left, 20, right, 41})) << "as high as can be";
    grid.SetRowHeight(Twips(315));
    EXPECT_EQ(EditorRect(), (PixelRect{left, 21, right, 42})) << "centred in a higher row";
    grid.SetRowHeight(Twips(600));
    EXPECT_EQ(EditorRect(), (PixelRect{left, 49, right, 70}));
    grid.SetRowHeight(Twips(120));
    EXPECT_EQ(EditorRect(), (PixelRect{left, 1, right, 22})) << "centred on a row that is too low";
    grid.SetRowHeight(Twips(225));
    Driver().Key(kKeyLeft);
  }
}

TEST_F(FlatGridEditorPlaceTest, RowsOfAnyHeightAndColumnsOfAnyWidthAreEdited) {
  for (const ksxEditTypeConstants type : {ksxEditText, ksxEditCalculator, ksxEditCalendar, ksxEditDropDown}) {
    FlatGrid& grid = Grid();
    grid.Columns()->Clear();
    grid.Columns()->Add("A", 2147483647, ksxLeft, ksxLeft, type, true);
    grid.SetRowHeight(Twips(1e30f));
    grid.SetAllowEdits(true);
    Focus();
    Driver().Key(kKeyF2);
    EXPECT_TRUE(EditorHasFocus()) << NameOfEditType(type);
    for (const Twips height : {Twips(-1e30f), Twips(0), Twips(16), Twips(225)}) grid.SetRowHeight(height);
    Driver().Type("1");
    Driver().Key(kKeyEnter);
    EXPECT_EQ(grid.RowData(1, 1), "1");
  }
}

TEST_F(FlatGridEditorPlaceTest, AnEditorFollowsItsCellWhenTheGridChanges) {
  FlatGrid& grid = Opened();
  grid.Columns()->Item(1)->SetWidth(1500);
  EXPECT_EQ(EditorRect(), (PixelRect{0, 15, 101, 31}));
  grid.SetShowColumnHeaders(false);
  EXPECT_EQ(EditorRect(), (PixelRect{0, 0, 101, 16}));
  grid.Columns()->Item(1)->SetVisible(false);
  EXPECT_LE(EditorRect().bottom, 0);
  grid.Columns()->Item(1)->SetVisible(true);
  EXPECT_EQ(EditorRect(), (PixelRect{0, 0, 101, 16}));
}

TEST_F(FlatGridEditorPlaceTest, TheScrollBarsAreInFrontOfTheEditor) {
  FlatGrid& grid = Editable(ksxEditText);
  grid.SetRowCount(100);
  grid.Columns()->Item(1)->SetWidth(4500);
  Driver().Settle();
  const auto at_bar = [&] { return PixelAt(grid, {292, 22}); };
  const ColorRef bar = at_bar();
  Driver().Key(kKeyF2);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(at_bar(), bar);
}

// --- Calculator ---------------------------------------------------------------------------------------

TEST_F(FlatGridEditorPlaceTest, TheCalculatorHasTheAlignmentAndTheFormatOfItsColumn) {
  FlatGrid& grid = Editable(ksxEditCalculator);
  grid.Columns()->Item(1)->SetFormat("0.00");
  grid.Columns()->Item(1)->SetAlignment(ksxRight);
  grid.SetRowData(1, 1, "17.5");
  Driver().Key(kKeyF2);
  EXPECT_EQ(Typed(), "17.50");
  EXPECT_EQ(grid.Editor()->Edit().Alignment(), ksxRight);
  EXPECT_TRUE(EditorHasFocus());
}

TEST_F(FlatGridEditorPlaceTest, AnotherColumnsFormatCountsInAnotherColumn) {
  FlatGrid& grid = Editable(ksxEditCalculator, ksxEditCalculator);
  grid.Columns()->Item(1)->SetFormat("0.00");
  grid.SetRowData(1, 1, "1");
  grid.SetRowData(1, 2, "2");
  Driver().Key(kKeyF2);
  Driver().Key(kKeyLeft);
  EXPECT_EQ(Typed(), "2");
}

using FlatGridPanelTest = GridEditTest;

TEST_F(FlatGridPanelTest, TheKeypadIsUsedWithoutLeavingTheGrid) {
  FlatGrid& grid = Opened(ksxEditCalculator);
  Driver().Key(kKeyDown, kAltMask);
  EXPECT_TRUE(grid.Editor()->PanelIsOpen());
  EXPECT_EQ(grid.RowIndex(), 1) << "the key opens the panel only";
  for (const int key : {54, 106, 55, static_cast<int>(kKeyEnter)}) Driver().Key(key);  // 6 * 7 =
  EXPECT_FALSE(grid.Editor()->PanelIsOpen());
  EXPECT_EQ(Typed(), "42");
  EXPECT_THAT(Edits(), IsEmpty());
  Driver().Key(kKeyEnter);
  EXPECT_EQ(grid.RowData(1, 1), "42");
}

TEST_F(FlatGridPanelTest, TheKeypadIsUsedByThePointerAlone) {
  FlatGrid& grid = Editable(ksxEditCalculator);
  ClickAt(20, 22);
  ClickAt(55, 22);  // the strip
  const PixelRect panel = PanelRect();
  constexpr PixelPoint kSeven{25, 34};
  constexpr PixelPoint kEquals{85, 128};
  for (const PixelPoint key : {kSeven, kEquals}) {
    Driver().MovePointer({panel.left + key.x - 1, panel.top + key.y});  // the strip lets go of the pointer
    Driver().Click({panel.left + key.x, panel.top + key.y});
  }
  EXPECT_FALSE(grid.Editor()->PanelIsOpen());
  EXPECT_EQ(Typed(), "7");
  ClickAt(80, 50);
  EXPECT_EQ(grid.RowData(1, 1), "7");
}

// --- Calendar -----------------------------------------------------------------------------------------

TEST_F(FlatGridPanelTest, ACellThatIsNoDateOpensAnEmptyCalendarWhichIsNoChange) {
  FlatGrid& grid = Editable(ksxEditCalendar);
  grid.SetRowData(1, 1, "soon");
  Driver().Key(kKeyF2);
  EXPECT_EQ(Typed(), "");
  Watch(grid);
  Driver().Key(kKeyEnter);
  EXPECT_THAT(Edits(), IsEmpty());
  EXPECT_EQ(grid.RowData(1, 1), "soon");
}

TEST_F(FlatGridPanelTest, ADayIsPickedInTheMonthViewByThePointerAlone) {
  FlatGrid& grid = Editable(ksxEditCalendar);
  grid.SetRowData(1, 1, "5/15/2026");
  ClickAt(20, 22);
  ClickAt(55, 22);  // the strip
  ASSERT_TRUE(grid.Editor()->PanelIsOpen());
  EXPECT_TRUE(EditorHasFocus());
  const PixelRect panel = PanelRect();
  Driver().Click({(panel.left + panel.right) / 2, (panel.top + panel.bottom) / 2});
  EXPECT_FALSE(grid.Editor()->PanelIsOpen());
  const std::string picked = Typed();
  EXPECT_NE(picked, "5/15/2026");
  ClickAt(80, 50);
  EXPECT_EQ(grid.RowData(1, 1), picked);
}

// --- List ---------------------------------------------------------------------------------------------

class FlatGridListTest : public GridEditTest {
 protected:
  FlatGrid& Listing(const std::vector<std::string>& values) {
    FlatGrid& grid = Editable(ksxEditDropDown, ksxEditDropDown);
    for (const std::string& value : values) grid.Columns()->Item(1)->ValueList()->Add(value);
    return grid;
  }
};

TEST_F(FlatGridListTest, TheListOfTheColumnIsOfferedWithTheCellsTextHighlighted) {
  FlatGrid& grid = Listing({"apple", "pear", "plum"});
  grid.SetRowData(1, 1, "pear");
  Driver().Key(kKeyF2);
  Driver().Key(kKeyDown, kAltMask);
  Driver().Key(kKeyLeft);  // means nothing to the list
  EXPECT_EQ(EditorRect().left, 0);
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  EXPECT_EQ(Typed(), "plum") << "the one below";
  EXPECT_EQ(grid.RowIndex(), 1) << "an open list keeps its keys";
  EXPECT_TRUE(EditorHasFocus());
  Driver().Key(kKeyEnter);
  EXPECT_EQ(grid.RowData(1, 1), "plum");
}

TEST_F(FlatGridListTest, ARowOfTheListIsPickedByThePointer) {
  FlatGrid& grid = Listing({"apple", "pear", "plum"});
  ClickAt(20, 22);
  ClickAt(52, 22);
  ASSERT_TRUE(grid.Editor()->PanelIsOpen());
  const PixelRect panel = PanelRect();
  const PixelPoint first_row{panel.left + 20, panel.top + 1 + (panel.height() - 2) / 6};
  Driver().MovePointer({first_row.x + 1, first_row.y});  // the strip lets go of the pointer
  Driver().Click(first_row);
  EXPECT_EQ(Typed(), "apple");
  ClickAt(80, 50);
  EXPECT_EQ(grid.RowData(1, 1), "apple");
}

TEST_F(FlatGridListTest, AColumnWithoutValuesOrWithoutAListOffersNothing) {
  FlatGrid& grid = Listing({"apple"});
  Driver().Key(kKeyF2);
  Driver().Key(kKeyLeft);
  Driver().Key(kKeyF4);
  EXPECT_FALSE(grid.Editor()->PanelIsOpen());
  grid.Columns()->Item(1)->SetValueList(nullptr);
  Driver().Key(kKeyLeft);
  Driver().Key(kKeyF4);
  EXPECT_FALSE(grid.Editor()->PanelIsOpen());
  EXPECT_TRUE(EditorHasFocus());
}

TEST_F(FlatGridListTest, TheValuesAreThoseOfTheMomentWhenTheEditorOpens) {
  FlatGrid& grid = Listing({"apple"});
  Driver().Key(kKeyF2);
  Driver().Key(kKeyEscape);
  grid.Columns()->Item(1)->ValueList()->Clear();
  grid.Columns()->Item(1)->ValueList()->Add("pear");
  Driver().Key(kKeyF2);
  Driver().Key(kKeyF4);
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  EXPECT_EQ(Typed(), "pear");
}

TEST_F(FlatGridListTest, LosingTheFocusClosesAnOpenList) {
  FlatGrid& grid = Listing({"apple"});
  Driver().Key(kKeyF2);
  const CellEditor* editor = grid.Editor();
  Driver().Key(kKeyF4);
  ASSERT_TRUE(editor->PanelIsOpen());
  LeaveToAnotherControl();
  Driver().Advance(110);
  EXPECT_FALSE(editor->PanelIsOpen());
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatGridListTest, AColumnRemovedWhileItsListIsOpenClosesIt) {
  FlatGrid& grid = Listing({"apple"});
  Driver().Key(kKeyF2);
  const CellEditor* editor = grid.Editor();
  Driver().Key(kKeyF4);
  grid.Columns()->Remove(1);
  Driver().Advance(110);
  EXPECT_FALSE(editor->PanelIsOpen());
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(PictureHasFocus());
}

}  // namespace
}  // namespace levelwidgets::testing
