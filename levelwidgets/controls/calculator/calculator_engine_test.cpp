#include <levelwidgets/controls/calculator/calculator_engine_fixture.h>

#include <gmock/gmock.h>

#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;

// --- Keys --------------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, KeysHaveTheirCaptions) {
  std::vector<std::string> captions;
  for (const auto& [array, count] : kArrays) {
    for (int index = 0; index < count; ++index) captions.emplace_back(CaptionOf({array, index}));
  }
  EXPECT_THAT(captions, ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9", ".", "=", "/", "*", "-",
                                    "+", "+-", "C", "<-"));
}

TEST_F(CalculatorEngineTest, AnUnknownKeyRaises9) {
  OpenOver("5");
  for (const auto& [array, count] : kArrays) {
    for (const int index : {-1, count}) {
      const CalculatorKey key{array, index};
      EXPECT_EQ(ErrorOf([&] { CaptionOf(key); }), 9);
      EXPECT_EQ(ErrorOf([&] { static_cast<void>(engine_.Press(key)); }), 9);
    }
  }
  EXPECT_EQ(display_.text, "5");
}

TEST_F(CalculatorEngineTest, KeyCodesActAsKeys) {
  std::map<int, std::string> expected = {{110, "."}, {111, "/"}, {106, "*"}, {109, "-"},
                                         {107, "+"}, {13, "="},  {67, "C"},  {8, "<-"}};
  for (int digit = 0; digit <= 9; ++digit) {
    expected[48 + digit] = expected[96 + digit] = std::to_string(digit);
  }
  for (int code = -1; code < 300; ++code) {
    const auto key = CalculatorKeyOf(static_cast<std::int16_t>(code));
    const auto found = expected.find(code);
    EXPECT_EQ(key ? CaptionOf(*key) : "none", found == expected.end() ? "none" : found->second) << code;
  }
}

TEST_F(CalculatorEngineTest, KeysThatAreNotMappedDoNothing) {
  OpenOver("5");
  // Point, plus, minus and slash of the main keyboard, F4, Down.
  for (const int code : {190, 187, 189, 191, 115, 40, 32, 0}) {
    EXPECT_EQ(engine_.KeyDown(static_cast<std::int16_t>(code)), KeypadRequest::kNone) << code;
  }
  EXPECT_EQ(display_.text, "5");
  EXPECT_TRUE(display_.calls.empty());
}

TEST_F(CalculatorEngineTest, EscapeClosesAndLeavesTheDisplay) {
  OpenOver("5");
  Press("1 2 +");
  display_.calls.clear();
  EXPECT_EQ(engine_.KeyDown(27), KeypadRequest::kClose);
  EXPECT_TRUE(display_.calls.empty());
  EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kAdd);
}

TEST_F(CalculatorEngineTest, ACalculationCanBeTyped) {
  OpenOver("0");
  for (const int code : {49, 98, 110, 53, 107, 50}) {  // 1 2 . 5 + 2
    EXPECT_EQ(engine_.KeyDown(static_cast<std::int16_t>(code)), KeypadRequest::kNone);
  }
  EXPECT_EQ(engine_.KeyDown(13), KeypadRequest::kClose);
  EXPECT_EQ(display_.text, "14.5");
}

// --- Opening -----------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, OpeningTakesTheNumberDisplayed) {
  const struct {
    std::string text;
    std::string shown;
    double accumulator;
  } rows[] = {
      {"12.5", "12.5", 12.5}, {"-3", "-3", -3},         {"abc", "0", 0},      {"", "0", 0},
      {"Error", "0", 0},      {"1,234", "1,234", 1234}, {" 7 ", " 7 ", 7},    {".", "0", 0},
      {"$5.00", "$5.00", 5},  {"(4)", "(4)", -4},       {"1e3", "1e3", 1000}, {"&H10", "&H10", 16},
      {"1/2/2024", "0", 0},
  };
  for (const auto& row : rows) {
    OpenOver("9");
    Press("7 *");  // leaves something to be forgotten
    OpenOver(row.text);
    EXPECT_EQ(display_.text, row.shown);
    EXPECT_EQ(engine_.Accumulator(), row.accumulator) << row.text;
    EXPECT_EQ(engine_.CurrentEntry(), 0) << row.text;
    EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kEquals) << row.text;
  }
}

// --- Digits ------------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, DigitsAndPointBuildANumber) {
  const struct {
    std::string text;
    std::string keys;
    std::string shown;
    double entry;
  } rows[] = {
      {"12", "7", "7", 7},                 // replaces what was there
      {"12", "7 8 9", "789", 789},         //
      {"0", "0 0 7", "7", 7},              // leading zeros never accumulate
      {"0", "0 0", "0", 0},                //
      {"0", "1 . . 5", "1.5", 1.5},        // the second point is ignored
      {"0", "1 . 5 .", "1.5", 1.5},        //
      {"0", "1 .", "1.", 1},               //
      {"0", "1 0 0", "100", 100},          //
      {"0", "1 . 0 0 5", "1.005", 1.005},  //
      {"5", "+ 0 3", "3", 3},              // zero after an operator stays fresh
      {"5", "1 2 C 3", "3", 3},            //
      {"5", "1 2 <- 3", "3", 3},           //
  };
  for (const auto& row : rows) {
    EXPECT_EQ(After(row.text, row.keys), row.shown) << row.keys;
    EXPECT_EQ(engine_.CurrentEntry(), row.entry) << row.keys;
  }
}

TEST_F(CalculatorEngineTest, ADigitShowsItselfThenPlacesTheCaret) {
  OpenOver("5");
  Press("1");
  EXPECT_THAT(display_.calls, ElementsAre("show 1", "caret"));
  display_.calls.clear();
  Press("2 . .");
  EXPECT_THAT(display_.calls, ElementsAre("show 12", "caret", "show 12.", "caret", "caret"));
}

TEST_F(CalculatorEngineTest, APointAsTheFirstKeyOfAnEntryRaises13) {
  for (const std::string keys : {"", "0", "0 0", "5 +", "8 * 3 <-", "1 C"}) {
    OpenOver("5");
    Press(keys);
    display_.calls.clear();
    EXPECT_EQ(ErrorOf([&] { Press("."); }), 13) << keys;
    EXPECT_THAT(display_.calls, ElementsAre("show .")) << "the caret is not reached";
    EXPECT_EQ(engine_.CurrentEntry(), 0);
    EXPECT_EQ(ErrorOf([&] { Press("."); }), 13) << "again";
    Press("5");  // fresh still
    EXPECT_EQ(display_.text, "5");
  }
}

TEST_F(CalculatorEngineTest, AnEntryBelowOneIsTypedThroughANumberAboveIt) {
  EXPECT_EQ(After("0", "1 / 2 +"), "0.5");
  EXPECT_EQ(After("0", "5 . 5"), "5.5");
}

TEST_F(CalculatorEngineTest, ADigitThatMakesTheNumberTooLargeRaises6AndStaysShown) {
  OpenOver("0");
  std::string typed;
  for (int i = 0; i < 309; ++i) {
    EXPECT_EQ(ErrorOf([&] { Press("9"); }), i == 308 ? kOverflow : 0) << i;
    typed += '9';
  }
  EXPECT_EQ(display_.text, typed);
}

// --- Operators ---------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, CalculatesFromLeftToRight) {
  const struct {
    std::string text;
    std::string keys;
    std::string shown;
  } rows[] = {
      {"0", "2 + 3 * 4 =", "20"},
      {"0", "2 + 3 =", "5"},
      {"0", "2 - 3 =", "-1"},
      {"0", "2 * 3 =", "6"},
      {"0", "9 / 2 =", "4.5"},
      {"0", "9 / 2 / 3 =", "1.5"},
      {"0", "1 / 3 =", "0.333333333333333"},
      {"0", "5 +", "5"},
      {"0", "5 + +", "10"},  // the displayed result is the operand
      {"0", "7 + +", "14"},
      {"0", "7 + + +", "28"},  // 14 + 14
      {"0", "7 + -", "14"},    // the pending addition is applied, the new operator waits
      {"0", "7 + - =", "0"},   // 14 - 14
      {"0", "7 * *", "49"},
      {"0", "7 - -", "0"},
      {"0", "8 / /", "1"},
      {"12", "+ 3 =", "15"},  // the value that was there is the left operand
      {"12", "=", "12"},
      {"12", "+ =", "24"},
      {"-3", "* 2 =", "-6"},
      {"abc", "+ 3 =", "3"},
      {"0", "5 =", "5"},
      {"0", "0 . ", "."},
      {"0", "6 * 0 =", "0"},
      {"0", "0 - 5 =", "-5"},
      {"0", "1 0 0 - 1 0 =", "90"},
  };
  for (const auto& row : rows) {
    OpenOver(row.text);
    try {
      Press(row.keys);
    } catch (const Error&) {  // of a point alone
    }
    EXPECT_EQ(display_.text, row.shown) << row.text << ": " << row.keys;
  }
}

TEST_F(CalculatorEngineTest, AnOperatorWaitsAndBeginsAFreshEntry) {
  const std::pair<std::string, CalculatorOperator> rows[] = {{"+", CalculatorOperator::kAdd},
                                                             {"-", CalculatorOperator::kSubtract},
                                                             {"*", CalculatorOperator::kMultiply},
                                                             {"/", CalculatorOperator::kDivide},
                                                             {"=", CalculatorOperator::kEquals}};
  for (const auto& [key, pending] : rows) {
    OpenOver("1");
    Press("1 2");
    display_.calls.clear();
    EXPECT_EQ(Press(key), key == "=" ? KeypadRequest::kClose : KeypadRequest::kNone);
    EXPECT_EQ(engine_.PendingOperator(), pending);
    EXPECT_EQ(engine_.Accumulator(), 12);
    EXPECT_EQ(engine_.CurrentEntry(), 0);
    EXPECT_THAT(display_.calls, ElementsAre("show 12"));
  }
}

TEST_F(CalculatorEngineTest, ResultsAreFormatted) {
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"0.00", "1 / 3 =", "0.33"}, {"", "1 / 4 =", "0.25"},           {"Currency", "5 * 2 =", "$10.00"},
      {"0", "7 / 2 +", "4"},       {"#,##0", "9 9 9 + 1 =", "1,000"}, {"Percent", "1 / 2 =", "50.00%"},
  };
  for (const auto& [format, keys, shown] : rows) {
    engine_.SetFormatString(format);
    EXPECT_EQ(engine_.FormatString(), format);
    EXPECT_EQ(After("0", keys), shown) << format;
  }
}

TEST_F(CalculatorEngineTest, ARoundedResultIsWhatTheNextOperatorReads) {
  engine_.SetFormatString("0.00");
  EXPECT_EQ(After("0", "1 / 3 + +"), "0.66") << "the operand is read from the display";
  EXPECT_NEAR(engine_.Accumulator(), 1.0 / 3 + 0.33, 1e-12) << "the accumulator is not rounded";
}

TEST_F(CalculatorEngineTest, TextsAreFormattedAsTheControlsOwnText) {
  engine_.SetFormatString("0.00");
  EXPECT_EQ(engine_.Formatted("3"), "3.00");
  EXPECT_EQ(engine_.Formatted("abc"), "abc");
  engine_.SetFormatString("");
  EXPECT_EQ(engine_.Formatted("3"), "3");
}

// --- Sign --------------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, ChangesTheSignOfTheDisplay) {
  const struct {
    std::string text;
    std::string keys;
    std::string shown;
    double entry;
    double accumulator;
  } rows[] = {
      {"0", "5 +-", "-5", -5, 0},       {"0", "5 +- +-", "5", 5, 0}, {"0", "5 +- 3", "-53", -53, 0},
      {"8", "+-", "-8", -8, 8},          // before any digit it makes the display the entry
      {"8", "+- 1", "-81", -81, 8},      //
      {"0", "9 + +-", "-9", -9, 9},      // right after an operator it negates the result
      {"0", "9 + +- 1", "-91", -91, 9},  // and a digit is appended
      {"0", "+-", "-0", 0, 0},           // a zero stays fresh
      {"0", "+- 4", "4", 4, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(After(row.text, row.keys), row.shown) << row.keys;
    EXPECT_EQ(engine_.CurrentEntry(), row.entry) << row.keys;
    EXPECT_EQ(engine_.Accumulator(), row.accumulator) << row.keys;
  }
}

TEST_F(CalculatorEngineTest, ChangingTheSignKeepsThePendingOperator) {
  EXPECT_EQ(After("0", "9 - 4 +- ="), "13");
  EXPECT_EQ(After("0", "9 * +- ="), "-81");
}

TEST_F(CalculatorEngineTest, ChangingTheSignNeitherClosesNorMovesTheCaret) {
  OpenOver("5");
  EXPECT_EQ(Press("+-"), KeypadRequest::kNone);
  EXPECT_THAT(display_.calls, ElementsAre("show -5"));
}

// --- Clearing ----------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, ClearAllForgetsEverything) {
  OpenOver("3");
  Press("8 *");
  display_.calls.clear();
  EXPECT_EQ(Press("C"), KeypadRequest::kNone);
  EXPECT_EQ(display_.text, "0");
  EXPECT_THAT(display_.calls, ElementsAre("assign 0")) << "the way of the control's Text";
  EXPECT_EQ(engine_.Accumulator(), 0);
  EXPECT_EQ(engine_.CurrentEntry(), 0);
  EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kEquals);
  EXPECT_EQ(After("3", "8 * C 5 ="), "5");
}

TEST_F(CalculatorEngineTest, ClearEntryKeepsTheCalculation) {
  OpenOver("3");
  Press("8 * 3");
  display_.calls.clear();
  EXPECT_EQ(Press("<-"), KeypadRequest::kNone);
  EXPECT_EQ(display_.text, "0");
  EXPECT_THAT(display_.calls, ElementsAre("assign 0"));
  EXPECT_EQ(engine_.Accumulator(), 8);
  EXPECT_EQ(engine_.CurrentEntry(), 0);
  EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kMultiply);
  EXPECT_EQ(After("3", "8 * 3 <- ="), "0");
  EXPECT_EQ(After("3", "1 2 3 <-"), "0") << "the whole entry, not one character";
  EXPECT_EQ(After("3", "8 * 3 <- 4 ="), "32");
}

TEST_F(CalculatorEngineTest, ClearingIsFormatted) {
  engine_.SetFormatString("0.00");
  EXPECT_EQ(After("3", "8 C"), "0.00");
  EXPECT_EQ(After("3", "8 <-"), "0.00");
}

}  // namespace
}  // namespace levelwidgets
