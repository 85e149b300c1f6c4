// Panels that controls drop down, in native windows of their own.
#include <gtest/gtest.h>

#ifndef _WIN32

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>

#include <tools/levelwidgets/show_fixture.h>

namespace levelwidgets {
namespace {

class ShowPanels : public ShowCommand {
 protected:
  static constexpr ColorRef kStrip{0x00445566};
  static constexpr ColorRef kAnother{0x00556644};
  static constexpr ColorRef kHighlighted{0x00D77800};  // of the palette
  static constexpr ColorRef kKeys{0x00123456};         // of the keypad's digits
  static constexpr ColorRef kDays{0x00654321};         // behind the days of the month view
  // Milliseconds: twice what a panel waits before it looks again.
  static constexpr long kClosingTime = 200;
  static constexpr int kBelowTheFrame = 20;  // further than the native frame's lower border

  // A control of each class stands at the form's lower edge, and another form beside it.
  static constexpr char kPanels[] = R"(
local at = { FlatDropDown = 300, FlatCalculator = 1650, FlatCalendar = 3000 }
function strip(class)
  return form:add(class, 'ctl' .. class, { Left = at[class], Top = 2600, Width = 1300, Height = 315,
    DropDownBackColor = 0x00445566, DropDownBackColorMouseOver = 0x00445566,
    DropDownBackColorPushed = 0x00445566 })
end
form.Left, form.Top = 600, 600
local other = lw.form{ Name = 'frmOther', Caption = 'Other', Width = 1500, Height = 1500, BackColor = 0x00556644,
  Left = 7500, Top = 600 }
function form_Load() other:show() form:show() end
)";

  static constexpr char kList[] = R"(
cbo = strip('FlatDropDown')
for i = 1, 5 do cbo:AddItem('Item ' .. i) end
cbo:on('Change', function() state(cbo.Text == 'Item 4' and kAfter or kLast) end)
)";

  // An item that is chosen stays so when the control is left.
  static constexpr char kChosen[] = "cbo.Text, cbo.ListIndex = 'Item 4', 4";

  // `script` makes the control whose panel opens.
  void ShowWith(const std::string& script) {
    Show(kPanels + script);
    strip_ = Screen().WaitForAll(kStrip);
    ASSERT_FALSE(strip_.empty()) << Errors();
    ASSERT_FALSE(Screen().WaitFor(kAnother).empty()) << Errors();
  }

  // Where a row of the open list is, from 1; at the left of the strip.
  std::string Row(int number) const {
    constexpr int kRowHeight = 13;
    return std::to_string(strip_.left - 40) + " " +
           std::to_string(strip_.bottom + (number - 1) * kRowHeight + 8);
  }

  // Milliseconds from a click at `place` until `is_seen`, which looks every 5 ms.
  static long TimeOfAClick(const PixelRect& place, const std::function<bool()>& is_seen) {
    Screen().Do("mousemove " + Middle(place));
    const auto begun = std::chrono::steady_clock::now();
    Screen().Do("click 1");
    EXPECT_TRUE(is_seen());
    const auto took = std::chrono::steady_clock::now() - begun;
    return std::chrono::duration_cast<std::chrono::milliseconds>(took).count();
  }

  // How much longer it takes after a click at `place` until nothing on the screen has the colour of the panel
  // than after one on the strip until the panel is there: that is a click and a picture too, on as busy a
  // machine. The shortest of up to sixteen; a panel that is looked at too seldom is late each time.
  long ShortestClosingTime(const PixelRect& place, ColorRef panel) {
    long shortest = std::numeric_limits<long>::max();
    for (int turn = 0; turn < 16 && shortest >= kClosingTime; ++turn) {
      const long opening = TimeOfAClick(strip_, [&] {
        panel_ = Screen().WaitFor(panel);
        return !panel_.empty();
      });
      const long closing = TimeOfAClick(place, [&] { return Screen().WaitWithout(panel); });
      shortest = std::min(shortest, closing - opening);
    }
    return shortest;
  }

  PixelRect panel_;  // the last one
  PixelRect strip_;
};

TEST_F(ShowPanels, AListReachesBelowTheFormAndARowThatIsClickedGivesTheText) {
  ShowWith(kList);
  Click(strip_);
  Screen().Do("mousemove " + Row(4));
  const PixelRect row = Screen().WaitForAll(kHighlighted);
  EXPECT_GT(row.top, form_.bottom + kBelowTheFrame);
  Screen().Do("click 1");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  EXPECT_TRUE(Screen().WaitWithout(kHighlighted));

  Screen().Do("key F4");
  EXPECT_TRUE(Shows(kHighlighted));
  Screen().Do("key Escape");
  EXPECT_TRUE(Screen().WaitWithout(kHighlighted));
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowPanels, AListIsGoneWithin200MillisecondsOfAClickOnAnotherForm) {
  ShowWith(std::string(kList) + kChosen);
  EXPECT_LT(ShortestClosingTime(Screen().WaitForAll(kAnother), kHighlighted), kClosingTime);
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowPanels, AListIsGoneWithin200MillisecondsOfAClickOnAnotherProgram) {
  constexpr ColorRef kForeign{0x00334411};
  ShowWith(std::string(kList) + kChosen);
  File("foreign.form.toml",
       "[form]\nName = \"frmForeign\"\nCaption = \"Foreign\"\nWidth = 1500\nHeight = 1500\n"
       "Left = 9000\nTop = 4500\nBackColor = 0x00334411\n");
  const auto foreign = Launch("foreign.form.toml", "foreign.txt");
  const PixelRect place = Screen().WaitFor(kForeign);
  ASSERT_FALSE(place.empty());
  EXPECT_LT(ShortestClosingTime(place, kHighlighted), kClosingTime);
  EXPECT_EQ(Errors(), "");
}

// A panel that closes gives the focus back, which brings no form in front of the program that the user turned
// to.
TEST_F(ShowPanels, AnotherProgramStaysInFrontOfTheFormWhoseListWasOpen) {
  constexpr ColorRef kForeign{0x00334411};
  constexpr int kWidth = 150;
  ShowWith(std::string(kList) + kChosen);
  File("foreign.form.toml",
       "[form]\nName = \"frmForeign\"\nCaption = \"Foreign\"\nWidth = 2250\nHeight = 1500\n"
       "BackColor = 0x00334411\nLeft = " +
           std::to_string((form_.right - 40) * 15) + "\nTop = " + std::to_string((form_.top + 20) * 15) +
           "\n");
  const auto foreign = Launch("foreign.form.toml", "foreign.txt");
  ASSERT_FALSE(Screen().WaitFor(kForeign).empty());
  Click(strip_);
  ASSERT_FALSE(Screen().WaitFor(kHighlighted).empty());
  const PixelRect seen = Screen().WaitFor(kForeign);
  Screen().Do("mousemove " + std::to_string(seen.right - 10) + " " + std::to_string(seen.bottom - 10) +
              " click 1");
  EXPECT_TRUE(Screen().WaitWithout(kHighlighted));
  EXPECT_TRUE(Becomes([&] { return Screen().Find(kForeign).width(); }, kWidth));
  for (int look = 0; look < 100; ++look) ASSERT_EQ(Screen().Find(kForeign).width(), kWidth) << look;
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowPanels, AKeypadIsGoneWithin200MillisecondsOfAClickOnAnotherForm) {
  ShowWith("strip('FlatCalculator').CalcDigitColor = 0x00123456");
  EXPECT_LT(ShortestClosingTime(Screen().WaitForAll(kAnother), kKeys), kClosingTime);
  EXPECT_GT(panel_.bottom, form_.bottom + kBelowTheFrame);
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowPanels, AMonthViewIsGoneWithin200MillisecondsOfAClickOnAnotherForm) {
  ShowWith("strip('FlatCalendar').CalBackColor = 0x00654321");
  EXPECT_LT(ShortestClosingTime(Screen().WaitForAll(kAnother), kDays), kClosingTime);
  EXPECT_GT(panel_.bottom, form_.bottom + kBelowTheFrame);
  EXPECT_EQ(Errors(), "");
}

}  // namespace
}  // namespace levelwidgets

#endif
