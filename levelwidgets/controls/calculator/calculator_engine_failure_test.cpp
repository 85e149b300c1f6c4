#include <levelwidgets/controls/calculator/calculator_engine_fixture.h>

#include <gmock/gmock.h>

#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;

// --- Failures ----------------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, AFailedOperatorShowsErrorAndCloses) {
  const std::string huge(308, '9');
  const struct {
    std::string text;
    std::string keys;
    std::string last;
  } rows[] = {
      {"0", "9 / 0", "="},        // division by zero
      {"0", "9 / 0", "+"},        //
      {"0", "0 / 0", "="},        //
      {"0", "/", "/"},            // zero by zero, by repetition
      {huge, "*", "*"},           // overflow
      {huge, "+", "+"},           //
      {"-" + huge, "- +-", "="},  //
  };
  for (const auto& row : rows) {
    OpenOver(row.text);
    Press(row.keys);
    display_.calls.clear();
    EXPECT_EQ(Press(row.last), KeypadRequest::kClose) << row.keys;
    EXPECT_THAT(display_.calls, ElementsAre("show Error")) << row.keys << ": no result is shown before";
    EXPECT_EQ(engine_.Accumulator(), 0);
    EXPECT_EQ(engine_.CurrentEntry(), 0);
    EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kEquals) << "the operator is not kept";
  }
}

TEST_F(CalculatorEngineTest, AnOperatorShowsErrorWhenTheTextIsNoNumber) {
  for (const std::string text : {"Error", "abc", "", ".", "1.2.3"}) {
    for (const std::string key : {"=", "+", "-", "*", "/"}) {
      OpenOver("5");
      display_.text = text;  // assigned by the form while the keypad is open
      EXPECT_EQ(Press(key), KeypadRequest::kClose) << text << key;
      EXPECT_EQ(display_.text, "Error");
    }
  }
}

TEST_F(CalculatorEngineTest, AfterAnErrorADigitBeginsAFreshEntryAndAnOperatorFailsAgain) {
  EXPECT_EQ(After("0", "9 / 0 = 5"), "5");
  EXPECT_EQ(After("0", "9 / 0 = 5 + 2 ="), "7") << "the division is forgotten";
  EXPECT_EQ(After("0", "9 / 0 = +"), "Error");
  EXPECT_EQ(After("0", "9 / 0 = C"), "0");
  EXPECT_EQ(After("0", "9 / 0 = <-"), "0");
}

TEST_F(CalculatorEngineTest, ChangingTheSignOfErrorShowsErrorAgainAndCloses) {
  OpenOver("0");
  Press("9 / 0 =");
  display_.calls.clear();
  EXPECT_EQ(Press("+-"), KeypadRequest::kClose);
  EXPECT_THAT(display_.calls, ElementsAre("show -Error", "show Error"));
}

TEST_F(CalculatorEngineTest, ChangingTheSignOfNothingFails) {
  for (const std::string text : {"", "-", "."}) {
    OpenOver("5");
    Press("7 +");
    display_.text = text;
    EXPECT_EQ(Press("+-"), KeypadRequest::kClose) << text;
    EXPECT_EQ(display_.text, "Error") << text;
    EXPECT_EQ(engine_.Accumulator(), 0) << text;
    EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kEquals) << text;
  }
}

TEST_F(CalculatorEngineTest, AResultWhoseFormatIsNoNumberFailsAsAnOperand) {
  engine_.SetFormatString("0 \"kg\"");
  EXPECT_EQ(After("1", "5 +"), "5 kg");
  EXPECT_EQ(Press("+"), KeypadRequest::kClose) << "5 kg is no number";
  EXPECT_EQ(display_.text, "Error");
}

TEST_F(CalculatorEngineTest, AClearKeyRemovesALoneDecimalPoint) {
  for (const std::string key : {"C", "<-"}) {
    OpenOver("5");
    EXPECT_EQ(ErrorOf([&] { Press("."); }), 13);
    EXPECT_EQ(Press(key), KeypadRequest::kNone);
    EXPECT_EQ(display_.text, "0");
  }
}

TEST_F(CalculatorEngineTest, ADigitThatFailsKeepsTheEntryAsItWas) {
  OpenOver("0");
  for (int i = 0; i < 308; ++i) Press("9");
  const double entry = engine_.CurrentEntry();
  ASSERT_GT(entry, 9e307);
  EXPECT_EQ(ErrorOf([&] { Press("9"); }), kOverflow);
  EXPECT_EQ(engine_.CurrentEntry(), entry);
  OpenOver("0");
  Press("1 2");
  display_.text = "abc";  // assigned by the form
  EXPECT_EQ(ErrorOf([&] { Press("3"); }), 13);
  EXPECT_EQ(display_.text, "abc3");
  EXPECT_EQ(engine_.CurrentEntry(), 12);
  display_.text = "45";
  Press("6");
  EXPECT_EQ(display_.text, "456") << "no fresh entry";
}

TEST_F(CalculatorEngineTest, AFormatStringThatFailsMakesAnOperatorShowErrorAndClose) {
  for (const std::string key : {"+", "-", "*", "/", "="}) {
    engine_.SetFormatString("");
    OpenOver("0");
    Press("8 + 2");
    engine_.SetFormatString("0;0;0;0;0");  // a section too many
    display_.calls.clear();
    EXPECT_EQ(Press(key), KeypadRequest::kClose) << key;
    EXPECT_THAT(display_.calls, ElementsAre("show Error")) << key;
    EXPECT_EQ(engine_.Accumulator(), 0) << key;
    EXPECT_EQ(engine_.CurrentEntry(), 0) << key;
    EXPECT_EQ(engine_.PendingOperator(), CalculatorOperator::kEquals) << key;
  }
}

// --- Others look on ----------------------------------------------------------------------------

TEST_F(CalculatorEngineTest, ANumberThatAListenerShowsInsteadIsTheEntry) {
  OpenOver("0");
  display_.on_change = [this] { display_.text = "42"; };
  Press("1");
  EXPECT_EQ(engine_.CurrentEntry(), 42);
}

TEST_F(CalculatorEngineTest, AnExceptionOfAListenerDoesNotCountAsAFailedCalculation) {
  OpenOver("0");
  Press("8 + 2");
  display_.on_change = [] { throw Error(kInvalidCall); };
  EXPECT_EQ(ErrorOf([&] { Press("+"); }), kInvalidCall);
  EXPECT_EQ(display_.text, "10");
  EXPECT_EQ(engine_.Accumulator(), 10);
}

// --- Other locales -----------------------------------------------------------------------------

class GermanCalculatorEngineTest : public CalculatorEngineTest {
 protected:
  GermanCalculatorEngineTest() : CalculatorEngineTest("de-DE") {}
};

TEST_F(GermanCalculatorEngineTest, ThePointKeyTypesAPointWhateverTheLocale) {
  EXPECT_EQ(After("0", "1 . 5"), "1.5");
  EXPECT_EQ(engine_.CurrentEntry(), 15) << "a point separates thousands there";
  EXPECT_EQ(After("0", "1 / 4 ="), "0,25");
}

}  // namespace
}  // namespace levelwidgets
