// FlatCalculator: where the keys and lines of the keypad are, and in which colours.
#include <levelwidgets/controls/calculator/flat_calculator_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

struct KeyRow {
  const char* caption;
  int left;
  int top;
  int width;
};

constexpr KeyRow kRows[] = {
    {"7", 240, 360, 300},  {"8", 600, 360, 300},   {"9", 960, 360, 300},   {"/", 1320, 360, 300},
    {"4", 240, 720, 300},  {"5", 600, 720, 300},   {"6", 960, 720, 300},   {"*", 1320, 720, 300},
    {"1", 240, 1080, 300}, {"2", 600, 1080, 300},  {"3", 960, 1080, 300},  {"-", 1320, 1080, 300},
    {"0", 240, 1440, 300}, {".", 600, 1440, 300},  {"+-", 960, 1440, 300}, {"+", 1320, 1440, 300},
    {"C", 240, 1800, 300}, {"<-", 600, 1800, 300}, {"=", 960, 1800, 660},
};

TEST(KeypadLayout, HasEachOfTheNineteenKeysInItsPlace) {
  ASSERT_EQ(kKeypadKeys.size(), std::size(kRows));
  for (std::size_t i = 0; i < kKeypadKeys.size(); ++i) {
    EXPECT_EQ(CaptionOf(kKeypadKeys[i].key), kRows[i].caption);
    EXPECT_EQ(kKeypadKeys[i].position, (TwipPoint{Twips(kRows[i].left), Twips(kRows[i].top)}))
        << kRows[i].caption;
    EXPECT_EQ(kKeypadKeys[i].size, (TwipSize{Twips(kRows[i].width), Twips(300)})) << kRows[i].caption;
  }
}

TEST(KeypadLayout, HasAFrameWithADoubleUpperEdge) {
  const int lines[5][4] = {{120, 120, 1680, 120},
                           {120, 240, 1680, 240},
                           {120, 2160, 1680, 2160},
                           {120, 120, 120, 2160},
                           {1680, 120, 1680, 2160}};
  ASSERT_EQ(kKeypadLines.size(), std::size(lines));
  for (std::size_t i = 0; i < std::size(lines); ++i) {
    EXPECT_EQ(kKeypadLines[i].start, (TwipPoint{Twips(lines[i][0]), Twips(lines[i][1])})) << i;
    EXPECT_EQ(kKeypadLines[i].end, (TwipPoint{Twips(lines[i][2]), Twips(lines[i][3])})) << i;
  }
}

class KeypadColors : public FlatCalculatorTest {
 protected:
  void Set(std::uint32_t shade) {
    Calculator().SetCalcBackColor(Color(0x00101112 + shade));
    Calculator().SetCalcBorderColor(Color(0x00202122 + shade));
    Calculator().SetCalcDigitColor(Color(0x00303132 + shade));
    Calculator().SetCalcFunctionColor(Color(0x00404142 + shade));
    Calculator().SetCalcClearColor(Color(0x00505152 + shade));
    Calculator().SetCalcForeColor(Color(0x00606162 + shade));
  }
  // On the open keypad: keys, gaps, lines and captions.
  void ExpectShown() {
    const FlatCalculator& calculator = Calculator();
    for (const KeyRow& row : kRows) {
      const KeypadKey& key = KeyCalled(row.caption);
      const Color fill = key.key.array == CalculatorKeys::kNum         ? calculator.CalcDigitColor()
                         : key.key.array == CalculatorKeys::kOperation ? calculator.CalcFunctionColor()
                                                                       : calculator.CalcClearColor();
      for (const int corner : {0, 1}) {
        const int x = corner == 0 ? row.left : row.left + row.width - 15;
        const int y = corner == 0 ? row.top : row.top + 300 - 15;
        EXPECT_EQ(PixelOnPanel(x, y), Concrete(fill)) << row.caption << " " << corner;
      }
      EXPECT_EQ(PixelOnPanel(row.left + row.width, row.top), Concrete(calculator.CalcBackColor()))
          << row.caption;
      EXPECT_EQ(PixelOnPanel(row.left - 15, row.top), Concrete(calculator.CalcBackColor())) << row.caption;
      EXPECT_EQ(PixelOnPanel(row.left, row.top + 300), Concrete(calculator.CalcBackColor())) << row.caption;
    }
    for (const KeypadLine& line : kKeypadLines) {
      const auto at = [&](TwipPoint point) {
        return PixelOnPanel(static_cast<int>(point.x.value), static_cast<int>(point.y.value));
      };
      EXPECT_EQ(at(line.start), Concrete(calculator.CalcBorderColor()));
      EXPECT_EQ(at(line.end), Concrete(calculator.CalcBorderColor()));
    }
    std::int64_t color = -1;
    int captions = 0;
    for (const TracedCall& call :
         CallsNamed({"DrawTextA", "SetTextColor"}, [this] { Calculator().Panel()->Refresh(); })) {
      if (call.name == "SetTextColor") color = std::get<std::int64_t>(call.arguments[1]);
      if (call.name != "DrawTextA") continue;
      EXPECT_EQ(color, std::int64_t{Concrete(calculator.CalcForeColor()).value}) << call.ToString();
      ++captions;
    }
    EXPECT_EQ(captions, 19);
  }
};

TEST_F(KeypadColors, ThoseOfANewControlAreShown) {
  Open();
  ExpectShown();
}

TEST_F(KeypadColors, ThoseSetBeforeTheFirstOpeningAreShown) {
  Set(0x10);
  Open();
  ExpectShown();
}

TEST_F(KeypadColors, ThoseSetWhileTheKeypadIsOpenAreShownAtOnce) {
  Open();
  for (const std::uint32_t shade : {0x10u, 0x80u}) {
    Set(shade);
    ExpectShown();
  }
}

TEST_F(FlatCalculatorTest, CaptionsAreCentredInBoldTahomaOf12Points) {
  Open();
  const FontDescription font = Calculator().Panel()->GetFont()->Description();
  EXPECT_EQ(font.name, "Tahoma");
  EXPECT_EQ(font.size, 12);
  EXPECT_TRUE(font.bold);
  std::vector<std::string> captions;
  for (const TracedCall& call : CallsNamed({"DrawTextA"}, [this] { Calculator().Panel()->Refresh(); })) {
    captions.push_back(std::get<std::string>(call.arguments[1]));
    EXPECT_EQ(std::get<std::int64_t>(call.arguments.back()) & 3, 1) << call.ToString();
  }
  EXPECT_THAT(captions, ElementsAre("7", "8", "9", "/", "4", "5", "6", "*", "1", "2", "3", "-", "0", ".",
                                    "+-", "+", "C", "<-", "="));
}

}  // namespace
}  // namespace levelwidgets::testing
