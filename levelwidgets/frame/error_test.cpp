#include <gtest/gtest.h>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {
namespace {

TEST(Error, ControlErrorsAreNumberedFrom0x80040000) {
  EXPECT_EQ(ObjectErrorNumber(kInvalidTabCode), -2147220503);
  EXPECT_EQ(ObjectErrorNumber(kInvalidValueCode), -2147220502);
  EXPECT_EQ(ObjectErrorNumber(kInvalidRowCode), -2147220501);
  EXPECT_EQ(ObjectErrorNumber(kInvalidColumnCode), -2147220500);
  EXPECT_EQ(ObjectErrorNumber(kInvalidRowCountCode), -2147220499);
}

TEST(Error, AControlErrorNamesItsClassAsSource) {
  try {
    RaiseControlError(kInvalidValueCode, "FlatScroll", "Invalid Value");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x800403EA));
    EXPECT_EQ(error.Source(), "LevelWidgets.FlatScroll");
    EXPECT_EQ(error.Description(), "Invalid Value");
    EXPECT_STREQ(error.what(), "Invalid Value (error -2147220502, LevelWidgets.FlatScroll)");
  }
}

TEST(Error, TheAutomationLayersErrorsHaveTheirStandardDescriptions) {
  EXPECT_EQ(Error(kInvalidCall).Description(), "Invalid procedure call or argument");
  EXPECT_EQ(Error(kOverflow).Description(), "Overflow");
  EXPECT_EQ(kOutOfMemory, 7);
  EXPECT_EQ(Error(kOutOfMemory).Description(), "Out of memory");
  EXPECT_EQ(Error(kSubscriptOutOfRange).Description(), "Subscript out of range");
  EXPECT_EQ(Error(kDivisionByZero).Description(), "Division by zero");
  EXPECT_EQ(Error(kTypeMismatch).Description(), "Type mismatch");
}

}  // namespace
}  // namespace levelwidgets
