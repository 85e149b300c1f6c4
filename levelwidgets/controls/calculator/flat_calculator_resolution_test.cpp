// FlatCalculator: its keypad on a display whose pixels are not 15 by 15 twips.
#include <levelwidgets/controls/calculator/flat_calculator_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

using OblongCalculatorTest = OnOtherScreen<FlatCalculatorTest, OblongScreen>;

TEST_F(OblongCalculatorTest, TheKeypadIsMeasuredByBothMeasures) {
  Open();
  EXPECT_EQ(PanelRect().width(), 1815 / 15);
  EXPECT_EQ(PanelRect().height(), 2295 / 20);
  EXPECT_EQ(PanelRect().left, ControlRect().left);
  EXPECT_EQ(PanelRect().top, ControlRect().bottom);
}

TEST_F(OblongCalculatorTest, EveryKeyIsPressedWhereItIsDrawn) {
  EXPECT_EQ(After("0", "1 2 3 4 5 6 7 8 9 0"), "1234567890");
  EXPECT_EQ(After("0", "9 . 5 +- * 2 - 1 + 4 / 2 ="), "-8");
}

TEST_F(OblongCalculatorTest, KeysAndLinesAreDrawnByBothMeasures) {
  Open();
  const ColorRef back = Concrete(Calculator().CalcBackColor());
  for (const std::string_view caption : {"7", "=", "+"}) {
    const KeypadKey& key = KeyCalled(caption);
    const Color fill = caption == "7" ? Calculator().CalcDigitColor() : Calculator().CalcFunctionColor();
    const int left = static_cast<int>(key.position.x.value);
    const int top = static_cast<int>(key.position.y.value);
    EXPECT_EQ(PixelOnPanel(left, top), Concrete(fill)) << caption;
    EXPECT_EQ(PixelOnPanel(left, top + 280), Concrete(fill)) << caption;
    EXPECT_EQ(PixelOnPanel(left - 15, top), back) << caption;
    EXPECT_EQ(PixelOnPanel(left, top - 20), back) << caption;
    EXPECT_EQ(PixelOnPanel(left, top + 300), back) << caption;
  }
  for (const KeypadLine& line : kKeypadLines) {
    EXPECT_EQ(PixelOnPanel(static_cast<int>(line.end.x.value), static_cast<int>(line.end.y.value)),
              Concrete(Calculator().CalcBorderColor()));
  }
}

}  // namespace
}  // namespace levelwidgets::testing
