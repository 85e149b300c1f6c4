// Cells of a grid that are edited, in native windows.
#include <gtest/gtest.h>

#ifndef _WIN32

#include <tools/levelwidgets/show_fixture.h>

namespace levelwidgets {
namespace {

class ShowGrid : public ShowCommand {
 protected:
  static constexpr ColorRef kSelected{0x00345678};
  static constexpr ColorRef kMonthLines{0x004A5052};  // around an open month view
  static constexpr int kFirstColumn = 120;            // pixels

  // The first date that is entered is refused, from the second one on another one is stored.
  static constexpr char kApproval[] = R"(
form:remove('txtNote')
local grd = form:add('FlatGrid', 'grd', { Left = 300, Top = 1050, Width = 3150, Height = 1500, AllowEdits = true,
  HideSelection = false, BackColorSelected = 0x00345678 })
grd.Columns:Add('Day', 1800, 0, 0, 3, true)
grd.Columns:Add('Remark', 900, 0, 0, 1, true)
grd.RowData[1][1] = '5/15/2026'
local asked = 0
grd:on('BeforeCellEdit', function(e)
  asked = asked + 1
  if asked == 1 then
    e.Cancel = true
    state(grd.RowData[1][1] == '5/15/2026' and e.NewValue ~= '5/15/2026' and kLast or 0)
  else
    e.NewValue = '1/1/2030'
  end
end)
grd:on('AfterCellEdit', function(e) state(grd.RowData[1][1] == '1/1/2030' and kAfter or 0) end)
)";

  static void ClickAt(int x, int y) {
    Screen().Do("mousemove " + std::to_string(x - 1) + " " + std::to_string(y) +
                " mousemove_relative 1 0 click 1");
  }
  // Opens the month view of the editor in the first cell, and clicks a day in its middle.
  void PickADay() {
    ClickAt(row_.left + kFirstColumn - 8, row_.top + 7);
    const PixelRect lines = Screen().WaitForAll(kMonthLines);
    ASSERT_FALSE(lines.empty()) << Errors();
    ClickAt((lines.left + lines.right) / 2, (lines.top + lines.bottom) / 2);
    EXPECT_TRUE(Screen().WaitWithout(kMonthLines));
  }

  PixelRect row_;
};

TEST_F(ShowGrid, ADateOfTheCalendarIsRefusedThenChangedByTheFormAndStored) {
  Show(kApproval);
  row_ = Screen().WaitForAll(kSelected);
  ASSERT_FALSE(row_.empty()) << Errors();
  ClickAt(row_.left + 60, row_.top + 7);
  PickADay();
  Screen().Do("key Return");
  EXPECT_TRUE(Shows(kLast)) << "refused; " << Errors();
  PickADay();
  Screen().Do("key Return");
  EXPECT_TRUE(Shows(kAfter)) << "changed and stored; " << Errors();
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowGrid, ACellIsEditedByKeysAlone) {
  Show(std::string(kApproval) + "grd:SetFocus()");
  ASSERT_FALSE(Screen().WaitFor(kSelected).empty()) << Errors();
  Screen().Do("key F2 type 6/1/2026");
  Screen().Do("key Return");
  EXPECT_TRUE(Shows(kLast)) << "refused; " << Errors();
  Screen().Do("type 6/2/2026");
  Screen().Do("key Down");
  EXPECT_TRUE(Shows(kAfter)) << "changed and stored; " << Errors();
  EXPECT_EQ(Errors(), "");
}

}  // namespace
}  // namespace levelwidgets

#endif
