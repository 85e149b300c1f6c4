// FlatGrid: what it draws, in which order, and what can be seen of it.
#include <levelwidgets/controls/grid/flat_grid_fixture.h>
#include <levelwidgets/testing/trace_text.h>

namespace levelwidgets::testing {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr ColorRef kHeader{0xDEE7EF};
constexpr ColorRef kSelected{0xC6F3FF};
constexpr ColorRef kOdd{0xFFFFFF};
constexpr ColorRef kEven{0xEFF7F7};
constexpr ColorRef kBorder{0xB5BEC6};

class FlatGridPaintTest : public GridTest {
 protected:
  ColorRef At(int x, int y) { return PixelAt(Grid(), PixelPoint{x, y}); }

  // Drawing calls without their handles; those on the picture's own context are marked "to the picture".
  template <typename Action>
  Journal CallsOf(Action action) {
    static constexpr std::string_view kNames[] = {"SetTextColor", "FillRect",      "Rectangle", "SetBkColor",
                                                  "DrawTextA",    "DrawFocusRect", "BitBlt"};
    const std::int64_t picture = Grid().Picture().GetSurface().hDC().value;
    const std::int64_t own = Grid().GetSurface().hDC().value;
    Tracer().Start();
    Tracer().TakeCalls();
    action();
    Journal journal;
    for (const TracedCall& call : Tracer().TakeCalls()) {
      if (std::ranges::find(kNames, call.name) == std::end(kNames)) continue;
      if (call.arguments[0] == TraceArgument(own)) continue;  // the corner between the bars
      std::string entry = call.name;
      const std::size_t count = call.arguments.size() - (call.name == "FillRect" ? 1 : 0);
      for (std::size_t i = 1; i < count; ++i) {
        if (call.name != "BitBlt" || i != 5) entry += " " + ArgumentText(call.arguments[i]);
      }
      if (call.arguments[0] == TraceArgument(picture)) entry += " to the picture";
      journal.push_back(entry);
    }
    return journal;
  }
  std::string Back(ColorRef color) { return "SetBkColor " + std::to_string(color.value); }
  std::size_t Count(const Journal& calls, const std::string& start) {
    return static_cast<std::size_t>(
        std::ranges::count_if(calls, [&](const std::string& call) { return call.starts_with(start); }));
  }
};

// --- What can be seen --------------------------------------------------------------------------------

TEST_F(FlatGridPaintTest, HeaderAndRowsHaveTheirColoursAndShareTheirLines) {
  GridOf({900});
  EXPECT_EQ(At(100, 5), kHeader);
  EXPECT_EQ(At(284, 5), kBorder) << "beside the scroll bar";
  EXPECT_EQ(At(30, 15), kBorder) << "the header's last line is the first row's first";
  EXPECT_EQ(At(30, 20), kOdd);
  EXPECT_EQ(At(30, 30), kBorder);
  EXPECT_EQ(At(30, 35), kEven);
  EXPECT_EQ(At(0, 20), kBorder);
  EXPECT_EQ(At(59, 20), kOdd);
}

TEST_F(FlatGridPaintTest, TheLastColumnHasNoLineOnTheRight) {
  GridOf({900, 450});
  EXPECT_EQ(At(60, 20), kBorder) << "the second cell's left line";
  EXPECT_EQ(At(90, 20), kOdd);
  EXPECT_EQ(At(91, 20), Concrete(Grid().GetSurface().BackColor()));
}

TEST_F(FlatGridPaintTest, APaintOfThePictureDrawsOnItOnceByItsCopy) {
  const WindowHandle picture = GridOf({900}).Picture().hWnd();
  Journal calls = CallsOf([&] {
    Windows().InvalidateRect(picture);
    Windows().UpdateWindow(picture);
  });
  std::erase_if(calls, [](const std::string& call) { return !call.ends_with("to the picture"); });
  EXPECT_THAT(calls, ElementsAre(StartsWith("BitBlt")));
}

TEST_F(FlatGridPaintTest, WithoutColumnsThereAreTheHeaderAndTheBackColourBelow) {
  Grid();
  EXPECT_EQ(At(100, 5), kHeader);
  EXPECT_EQ(At(100, 15), kBorder);
  EXPECT_EQ(At(100, 40), Concrete(Grid().GetSurface().BackColor()));
}

TEST_F(FlatGridPaintTest, WithoutAHeaderTheFirstRowStartsAtTheTop) {
  GridOf({900}).SetShowColumnHeaders(false);
  EXPECT_EQ(At(30, 0), kBorder);
  EXPECT_EQ(At(30, 5), kOdd);
  EXPECT_EQ(At(30, 20), kEven);
}

TEST_F(FlatGridPaintTest, WithoutLinesCellsAreFilledToTheirEdges) {
  GridOf({900}).SetShowGridLines(false);
  EXPECT_EQ(At(0, 20), kOdd);
  EXPECT_EQ(At(30, 30), kEven) << "the line that both rows share";
}

TEST_F(FlatGridPaintTest, TheSelectedRowIsHiddenWhileTheGridHasNoFocus) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowIndex(2);
  EXPECT_EQ(At(30, 35), kEven);
  grid.SetHideSelection(false);
  EXPECT_EQ(At(30, 35), kSelected);
  grid.SetHideSelection(true);
  EXPECT_EQ(At(30, 35), kEven);
  Focus();
  EXPECT_EQ(At(30, 35), kSelected);
  EXPECT_EQ(At(30, 20), kOdd);
}

TEST_F(FlatGridPaintTest, LeavingTheGridRepaintsOnlyForTheCellsFocusFrame) {
  FlatGrid& grid = GridOf({900});
  Focus();
  TheForm().Find("grdFirst")->SetFocus();
  EXPECT_EQ(At(30, 20), kSelected) << "the picture stays";
  grid.SetShowCellFocus(true);
  Focus();
  TheForm().Find("grdFirst")->SetFocus();
  EXPECT_EQ(At(30, 20), kOdd);
}

TEST_F(FlatGridPaintTest, AColumnThatIsNotVisibleTakesNoRoom) {
  FlatGrid& grid = GridOf({450, 900, 450});
  grid.Columns()->Item(2)->SetVisible(false);
  EXPECT_EQ(At(30, 20), kBorder) << "the third starts where the second would";
  EXPECT_EQ(At(61, 20), Concrete(grid.GetSurface().BackColor()));
}

TEST_F(FlatGridPaintTest, RowsBeyondTheLastAreEmptyRows) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(1);
  EXPECT_EQ(At(30, 35), kEven);
  EXPECT_EQ(At(30, 50), kOdd);
}

// --- Scroll bars ---------------------------------------------------------------------------------------

TEST_F(FlatGridPaintTest, RowsThatDoNotFitShowTheVerticalBar) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(5);
  EXPECT_EQ(grid.RowBar(), nullptr);
  EXPECT_EQ(grid.Picture().Size(), kGridSize);
  grid.SetRowCount(100);
  grid.OnPaint();  // growing paints the new rows alone
  ASSERT_NE(grid.RowBar(), nullptr);
  EXPECT_EQ(grid.RowBar()->Min(), 1);
  EXPECT_EQ(grid.RowBar()->Max(), 95);
  EXPECT_EQ(grid.RowBar()->LargeChange(), 5);
  EXPECT_EQ(grid.RowBar()->Value(), 1);
  EXPECT_EQ(grid.Picture().Size(), (TwipSize{Twips(4275), Twips(1500)}));
  grid.SetShowColumnHeaders(false);
  EXPECT_EQ(grid.RowBar()->Max(), 94);
}

TEST_F(FlatGridPaintTest, AWrittenRowCountUpdatesTheBarsMaxAtOnce) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(100);
  grid.OnPaint();
  grid.SetRowCount(200);
  EXPECT_EQ(grid.RowBar()->Max(), 195);
}

TEST_F(FlatGridPaintTest, TheBarScrollsTheRowsAndFollowsThem) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(100);
  grid.OnPaint();
  grid.SetTopIndex(20);
  EXPECT_EQ(grid.RowBar()->Value(), 20);
  grid.SetRowIndex(50);
  EXPECT_EQ(grid.TopIndex(), 45);
  EXPECT_EQ(grid.RowBar()->Value(), 45);
  Driver().Click(ScreenPoint(grid, PixelPoint{292, 5}));  // the bar's upper button
  EXPECT_EQ(grid.TopIndex(), 44);
}

TEST_F(FlatGridPaintTest, TheHorizontalBarIsDecidedWhenTheGridIsResized) {
  FlatGrid& grid = GridOf({3000, 3000});
  EXPECT_EQ(grid.ColumnBar(), nullptr) << "columns wider than the grid do not show it yet";
  Resize({Twips(4500), Twips(1515)});
  ASSERT_NE(grid.ColumnBar(), nullptr);
  EXPECT_EQ(grid.ColumnBar()->Min(), 1);
  EXPECT_EQ(grid.ColumnBar()->Max(), 2);
  EXPECT_EQ(grid.Picture().Size(), (TwipSize{Twips(4275), Twips(1290)})) << "the rows no longer fit either";
  grid.Columns()->Remove(2);
  EXPECT_NE(grid.ColumnBar(), nullptr);
  Resize({Twips(4500), Twips(1500)});
  EXPECT_EQ(grid.ColumnBar(), nullptr);
}

TEST_F(FlatGridPaintTest, HorizontalScrollingIsByWholeColumns) {
  FlatGrid& grid = GridOf({3000, 450, 3000});
  Resize({Twips(4500), Twips(1515)});
  EXPECT_EQ(At(30, 20), kOdd);
  // The bar's right button.
  Driver().Click(ScreenPoint(grid, PixelPoint{280, 95}));
  ASSERT_EQ(grid.ColumnBar()->Value(), 2);
  EXPECT_EQ(At(30, 20), kBorder) << "the third column behind the second one";
}

// --- Sequences -------------------------------------------------------------------------------------------

TEST_F(FlatGridPaintTest, EverythingIsDrawnOffTheScreenAndCopiedOnce) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowHeight(Twips(600));  // V is 3
  grid.SetRowCount(1);
  grid.SetRowData(1, 1, "x");
  grid.Columns()->Item(1)->SetAlignment(ksxRight);
  const Journal calls = CallsOf([&] { grid.OnPaint(); });
  EXPECT_THAT(
      calls,
      ElementsAre("SetTextColor " + std::to_string(Concrete(grid.GetSurface().ForeColor()).value),
                  "FillRect 61 0 300 100", Back(kHeader), "FillRect 0 0 300 41", "Rectangle 0 0 300 41",
                  "DrawTextA A -1 2 0 58 41 36", Back(kOdd), "Rectangle 0 40 61 81", "FillRect 1 41 61 80",
                  "DrawTextA x -1 3 41 58 80 38", Back(kEven), "Rectangle 0 80 61 121",
                  "FillRect 1 81 61 120", Back(kOdd), "Rectangle 0 120 61 161", "FillRect 1 121 61 160",
                  Back(kEven), "Rectangle 0 160 61 201", "FillRect 1 161 61 200",
                  "BitBlt 0 0 300 100 0 0 13369376 to the picture"));
}

TEST_F(FlatGridPaintTest, AWrittenCellRepaintsItsRowAloneStraightToThePicture) {
  FlatGrid& grid = GridOf({900});
  const Journal calls = CallsOf([&] { grid.SetRowData(2, 1, "text"); });
  EXPECT_THAT(calls, ElementsAre(Back(kEven) + " to the picture", "Rectangle 0 30 61 46 to the picture",
                                 "FillRect 1 31 61 45 to the picture",
                                 "DrawTextA text -1 3 31 58 45 36 to the picture"));
}

TEST_F(FlatGridPaintTest, ASelectedRowRepaintsTheOldOneThenTheNewOne) {
  FlatGrid& grid = GridOf({900});
  const Journal calls = CallsOf([&] { grid.SetRowIndex(2); });
  EXPECT_EQ(Count(calls, "BitBlt"), 0u);
  EXPECT_THAT(calls, Contains("Rectangle 0 15 61 31 to the picture"));
  EXPECT_THAT(calls, Contains("Rectangle 0 30 61 46 to the picture"));
  EXPECT_EQ(Count(calls, "Rectangle"), 2u);
}

TEST_F(FlatGridPaintTest, RowsOutOfViewAreNeverPaintedAlone) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(1000);
  grid.SetTopIndex(500);
  for (const std::int32_t row : {1, 499, 508, 1000}) {
    EXPECT_THAT(CallsOf([&] { grid.SetRowData(row, 1, "text"); }), IsEmpty()) << row;
  }
  EXPECT_THAT(CallsOf([&] { grid.SetRowData(507, 1, "text"); }), Not(IsEmpty()));
}

TEST_F(FlatGridPaintTest, MoreRowsRepaintOnlyTheNewOnes) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(2);
  const Journal calls = CallsOf([&] { grid.SetRowCount(4); });
  EXPECT_EQ(Count(calls, "Rectangle"), 2u);
  EXPECT_THAT(calls, Contains("Rectangle 0 45 61 61 to the picture"));
  EXPECT_THAT(calls, Contains("Rectangle 0 60 61 76 to the picture"));
  EXPECT_EQ(Count(CallsOf([&] { grid.SetRowCount(3); }), "BitBlt"), 1u) << "fewer repaint everything";
}

TEST_F(FlatGridPaintTest, AMillionNewRowsRepaintThoseInView) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(2);
  Journal calls = CallsOf([&] { grid.SetRowCount(1000000); });
  std::erase_if(calls, [](const std::string& call) { return !call.ends_with("to the picture"); });
  EXPECT_EQ(Count(calls, "Rectangle"), 6u) << "rows 3 to 8";
}

TEST_F(FlatGridPaintTest, APaintThatAsksForAnotherPaintEnds) {
  FlatGrid& grid = GridOf({3000, 3000});
  grid.SetRowCount(100);
  const Journal calls = CallsOf([&] { Resize({Twips(3000), Twips(1200)}); });
  EXPECT_LE(Count(calls, "BitBlt"), 4u);
  EXPECT_THAT(CallsOf([&] { Driver().Settle(); }), IsEmpty());
}

TEST_F(FlatGridPaintTest, TextsAreFormattedAndABadFormatShowsThemAsTheyAre) {
  FlatGrid& grid = GridOf({1500});
  grid.SetRowData(1, 1, "17.5");
  grid.Columns()->Item(1)->SetAlignment(ksxCenter);
  grid.Columns()->Item(1)->SetFormat("0.00");
  EXPECT_THAT(CallsOf([&] { grid.OnPaint(); }), Contains("DrawTextA 17.50 -1 3 16 98 30 37"));
  grid.Columns()->Item(1)->SetFormat("0;0;0;0;0");
  EXPECT_THAT(CallsOf([&] { grid.OnPaint(); }), Contains("DrawTextA 17.5 -1 3 16 98 30 37"));
  EXPECT_EQ(grid.RowData(1, 1), "17.5");
}

TEST_F(FlatGridPaintTest, TheCurrentCellHasAFocusFrameWhileTheGridHasTheFocus) {
  FlatGrid& grid = GridOf({900, 900});
  grid.SetShowCellFocus(true);
  EXPECT_EQ(Count(CallsOf([&] { grid.OnPaint(); }), "DrawFocusRect"), 0u);
  Focus();
  Driver().Key(kKeyRight);
  Driver().Key(kKeyDown);
  const Journal calls = CallsOf([&] { grid.OnPaint(); });
  EXPECT_EQ(Count(calls, "DrawFocusRect"), 1u);
  EXPECT_THAT(calls, Contains("DrawFocusRect 61 31 120 45"));
}

TEST_F(FlatGridPaintTest, TheCornerBetweenTheBarsIsClearedWhereBothAreShown) {
  FlatGrid& grid = GridOf({9000});
  grid.SetRowCount(100);
  Resize({Twips(4515), Twips(1500)});
  Resize(kGridSize);
  const auto fills = [&] {
    std::vector<PixelRect> rects;
    for (const TracedCall& call : CallsNamed({"FillRect"}, [&] { grid.OnPaint(); })) {
      const auto at = [&](std::size_t i) {
        return static_cast<int>(std::get<std::int64_t>(call.arguments[i]));
      };
      if (std::get<std::int64_t>(call.arguments[0]) == grid.GetSurface().hDC().value)
        rects.push_back({at(1), at(2), at(3), at(4)});
    }
    return rects;
  };
  EXPECT_THAT(fills(), ElementsAre(PixelRect{285, 85, 300, 100}));
  grid.SetRowCount(1);
  EXPECT_THAT(fills(), IsEmpty()) << "one bar fills its edge";
}

TEST_F(FlatGridPaintTest, AGridOfNoSizePaintsWithoutErrors) {
  FlatGrid& grid = GridOf({900});
  Resize({Twips(0), Twips(0)});
  grid.OnPaint();
  Resize({Twips(100), Twips(100)});
  grid.OnPaint();
  Resize(kGridSize);
  EXPECT_EQ(At(30, 20), kOdd);
}

}  // namespace
}  // namespace levelwidgets::testing
