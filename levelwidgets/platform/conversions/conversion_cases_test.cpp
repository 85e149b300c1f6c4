#include <levelwidgets/platform/conversions/conversion_cases.h>

#include <gtest/gtest.h>

#include <levelwidgets/platform/conversions/conversions.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::conversions {
namespace {

constexpr Date kToday{45427};  // 15 May 2024

TEST(ConversionCasesTest, EveryCaseOfTheTableGivesItsResult) {
  const ConversionCases table = ReadConversionCases(SourceDir());
  EXPECT_GT(table.cases.size(), 5000u);
  std::map<std::string, std::unique_ptr<Conversions>> by_locale;
  for (const ConversionCase& c : table.cases) {
    auto& conversions = by_locale[c.locale];
    if (!conversions) {
      ASSERT_NE(FindLocale(c.locale), nullptr) << c.locale;
      conversions = std::make_unique<Conversions>(*FindLocale(c.locale), [] { return kToday; });
    }
    EXPECT_EQ(ResultOf(c, *conversions), ExpectedOf(c)) << c.Describe();
  }
  EXPECT_EQ(by_locale.size(), 6u);
}

}  // namespace
}  // namespace levelwidgets::conversions
