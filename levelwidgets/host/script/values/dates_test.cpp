#include <gtest/gtest.h>

#include <levelwidgets/host/script/values/dates.h>

namespace levelwidgets {
namespace {

TEST(ScriptDates, IsoTextsAreReadWhole) {
  EXPECT_EQ(DateOfIsoText("2024-05-15T10:30:00")->days, 45427.4375);
  EXPECT_EQ(DateOfIsoText("2024-05-15 10:30:00")->days, 45427.4375);
  EXPECT_EQ(DateOfIsoText("2024-05-15")->days, 45427);
  EXPECT_FALSE(DateOfIsoText("2024-05-15T10:30"));
  EXPECT_FALSE(DateOfIsoText("2024-05-15x10:30:00"));
  EXPECT_FALSE(DateOfIsoText("2024-05-15T10:30:00Z"));
  EXPECT_FALSE(DateOfIsoText("15.5.2024"));
  EXPECT_FALSE(DateOfIsoText(""));
}

}  // namespace
}  // namespace levelwidgets
