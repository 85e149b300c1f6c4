// FlatCalculator: its properties, its text and its format.
#include <levelwidgets/controls/calculator/flat_calculator_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(FlatCalculatorTest, SavesUnderItsNamesInTheirOrder) {
  std::vector<std::string_view> names;
  for (const auto& property : FlatCalculator::Table().Persisted()) names.push_back(property->name);
  EXPECT_THAT(names, ElementsAre("Alignment", "BackColor", "ForeColor", "Enabled", "FormatString", "Font",
                                 "Text", "DropDownBackColor", "DropDownBackColorMouseOver",
                                 "DropDownBackColorPushed", "CalcBackColor", "CalcBorderColor",
                                 "CalcForeColor", "CalcDigitColor", "CalcFunctionColor", "CalcClearColor"));
}

TEST_F(FlatCalculatorTest, DefaultColoursOfTheKeypadAreThoseOfTheTable) {
  const FlatCalculator& calculator = Calculator();
  EXPECT_EQ(calculator.CalcBackColor(), Color(0x00000000u));
  EXPECT_EQ(calculator.CalcBorderColor(), Color(0x008C969Cu));
  EXPECT_EQ(calculator.CalcForeColor(), Color(0x80000012u));
  EXPECT_EQ(calculator.CalcDigitColor(), Color(0x00FFFFFFu));
  EXPECT_EQ(calculator.CalcFunctionColor(), Color(0x00CEDBDEu));
  EXPECT_EQ(calculator.CalcClearColor(), Color(0x00008000u));
}

TEST_F(FlatCalculatorTest, KeypadColoursNotifyWhetherItHasOpenedOrNot) {
  const auto set_all = [this] {
    Calculator().SetCalcBackColor(Color(1));
    Calculator().SetCalcBorderColor(Color(2));
    Calculator().SetCalcForeColor(Color(3));
    Calculator().SetCalcDigitColor(Color(4));
    Calculator().SetCalcFunctionColor(Color(5));
    Calculator().SetCalcClearColor(Color(6));
  };
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_THAT(EventsOf(set_all),
                ElementsAre("PropertyChanged(CalcBackColor)", "PropertyChanged(CalcBorderColor)",
                            "PropertyChanged(CalcForeColor)", "PropertyChanged(CalcDigitColor)",
                            "PropertyChanged(CalcFunctionColor)", "PropertyChanged(CalcClearColor)"));
    Open();
  }
}

// --- Text --------------------------------------------------------------------------------------------

TEST_F(FlatCalculatorTest, ATextRaisesChangeThenNotifies) {
  EXPECT_THAT(EventsOf([this] { Calculator().SetText("12"); }),
              ElementsAre("Change()", "PropertyChanged(Text)"));
  EXPECT_THAT(EventsOf([this] { Calculator().SetText("12"); }), ElementsAre("PropertyChanged(Text)"));
}

TEST_F(FlatCalculatorTest, ATextIsFormatted) {
  Calculator().SetFormatString("0.00");
  const std::pair<std::string, std::string> rows[] = {
      {"3", "3.00"}, {"1234.5678", "1234.57"}, {"-0.5", "-0.50"}, {"abc", "abc"},
      {"", ""},      {"1,000", "1000.00"},
  };
  for (const auto& [given, shown] : rows) {
    Calculator().SetText(given);
    EXPECT_EQ(Calculator().Text(), shown) << given;
  }
}

TEST_F(FlatCalculatorTest, ANewFormatFormatsThePresentText) {
  Calculator().SetText("2.5");
  EXPECT_THAT(EventsOf([this] { Calculator().SetFormatString("0.000"); }),
              ElementsAre("Change()", "PropertyChanged(FormatString)"));
  EXPECT_EQ(Calculator().Text(), "2.500");
  EXPECT_THAT(EventsOf([this] { Calculator().SetFormatString("0.000"); }),
              ElementsAre("PropertyChanged(FormatString)"));
}

TEST_F(FlatCalculatorTest, AFormatThatIsNoneRaisesTheConversionsErrorAndStays) {
  Calculator().SetText("1");
  EXPECT_EQ(ErrorOf([this] { Calculator().SetFormatString("0;0;0;0;0"); }), kInvalidCall);
  EXPECT_EQ(Calculator().FormatString(), "0;0;0;0;0");
  EXPECT_EQ(Calculator().Text(), "1");
}

TEST_F(FlatCalculatorTest, WhatIsTypedIsNotFilteredNorFormattedAndNotifiesNobody) {
  Calculator().SetFormatString("0.00");
  EXPECT_THAT(EventsOf([this] { Driver().Type("1x"); }),
              ElementsAre("KeyDown(49, 0)", "KeyPress(49)", "Change()", "KeyUp(49, 0)", "KeyDown(88, 0)",
                          "KeyPress(120)", "Change()", "KeyUp(88, 0)"));
  EXPECT_EQ(Calculator().Text(), "1x");
}

TEST_F(FlatCalculatorTest, AFormatIsReadBeforeTheText) {
  PropertyBag saved;
  saved.WriteProperty("Text", "3", {});
  saved.WriteProperty("FormatString", "0.00", {});
  EXPECT_EQ(Load(saved).Text(), "3.00");
  PropertyBag again;
  Calculator().OnWriteProperties(again);
  EXPECT_EQ(*again.Find("Text"), Variant("3.00"));
  EXPECT_EQ(*again.Find("FormatString"), Variant("0.00"));
}

}  // namespace
}  // namespace levelwidgets::testing
