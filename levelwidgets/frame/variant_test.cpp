#include <gtest/gtest.h>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets {
namespace {

template <typename Call>
std::int32_t NumberRaisedBy(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

TEST(Variant, KnowsTheTypeOfWhatItHolds) {
  EXPECT_EQ(Variant().Type(), VariantType::kEmpty);
  EXPECT_EQ(Variant(Null{}).Type(), VariantType::kNull);
  EXPECT_EQ(Variant(true).Type(), VariantType::kBoolean);
  EXPECT_EQ(Variant(std::int16_t{1}).Type(), VariantType::kInt16);
  EXPECT_EQ(Variant(1).Type(), VariantType::kInt32);
  EXPECT_EQ(Variant(1.0f).Type(), VariantType::kSingle);
  EXPECT_EQ(Variant(1.0).Type(), VariantType::kDouble);
  EXPECT_EQ(Variant(Date{1}).Type(), VariantType::kDate);
  EXPECT_EQ(Variant("x").Type(), VariantType::kString);
  EXPECT_EQ(Variant(MakeFont()).Type(), VariantType::kFont);
  EXPECT_EQ(Variant(ObjectRef()).Type(), VariantType::kObject);
  EXPECT_EQ(Variant(Color(0x80000012)).Type(), VariantType::kInt32);
}

TEST(Variant, NumbersAreEqualAcrossTypesAndTrueIsMinusOne) {
  EXPECT_EQ(Variant(std::int16_t{1}), Variant(1.0));
  EXPECT_EQ(Variant(true), Variant(-1));
  EXPECT_NE(Variant(true), Variant(1));
  EXPECT_NE(Variant("1"), Variant(1));
  EXPECT_NE(Variant(), Variant(0));
  EXPECT_EQ(Variant(Null{}), Variant(Null{}));
}

TEST(Variant, FontsAreEqualByDescription) {
  EXPECT_EQ(Variant(MakeFont()), Variant(MakeFont()));
  EXPECT_NE(Variant(MakeFont()), Variant(MakeFont({.bold = true})));
  EXPECT_NE(Variant(MakeFont()), Variant(FontRef()));
}

TEST(VariantConversion, WholeNumbersAreRoundedTiesToEven) {
  EXPECT_EQ(ToInt32(0.5), 0);
  EXPECT_EQ(ToInt32(1.5), 2);
  EXPECT_EQ(ToInt32(2.5), 2);
  EXPECT_EQ(ToInt32(-1.5), -2);
  EXPECT_EQ(ToInt16(12.5f), 12);
  EXPECT_EQ(ToInt32(true), -1);
  EXPECT_EQ(ToInt32(Variant()), 0);
}

TEST(VariantConversion, NumbersBeyondTheTypeRaise6) {
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_EQ(NumberRaisedBy([] { ToInt16(32768); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { ToInt16(-32769); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { ToInt32(2147483648.0); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { ToSingle(1e39); }), kOverflow);
}

TEST(VariantConversion, ATextIsNoNumberWithoutALocale) {
  for (const Variant& value :
       {Variant("12"), Variant(""), Variant(Null{}), Variant(MakeFont()), Variant(ObjectRef())}) {
    EXPECT_EQ(NumberRaisedBy([&] { ToDouble(value); }), kTypeMismatch) << Describe(value);
  }
}

TEST(VariantConversion, OnlyTextsAreTextsWithoutALocale) {
  EXPECT_EQ(ToText("kg"), "kg");
  EXPECT_EQ(ToText(Variant()), "");
  for (const Variant& value : {Variant(12), Variant(true), Variant(1.5), Variant(Date{1}), Variant(Null{})}) {
    EXPECT_EQ(NumberRaisedBy([&] { ToText(value); }), kTypeMismatch) << Describe(value);
  }
}

TEST(VariantConversion, NumbersAreBooleansAndDates) {
  EXPECT_TRUE(ToBoolean(-1));
  EXPECT_TRUE(ToBoolean(0.5));
  EXPECT_FALSE(ToBoolean(0));
  EXPECT_EQ(ToDate(2.5), Date{2.5});
  EXPECT_EQ(ToDouble(Date{2.5}), 2.5);
}

TEST(Variant, MessagesShowValuesTheSameInEveryLocale) {
  EXPECT_EQ(Describe(Variant()), "Empty");
  EXPECT_EQ(Describe(Null{}), "Null");
  EXPECT_EQ(Describe(true), "True");
  EXPECT_EQ(Describe(std::int16_t{-3}), "-3");
  EXPECT_EQ(Describe(0.1f), "0.1");
  EXPECT_EQ(Describe(1234567.9f), "1234568") << "a single has seven digits";
  EXPECT_EQ(Describe(-1.5), "-1.5");
  EXPECT_EQ(Describe(Date{2.25}), "2.25");
  EXPECT_EQ(Describe("kg"), "\"kg\"");
  EXPECT_EQ(Describe(MakeFont({.name = "Tahoma", .size = 8.25})), "Tahoma 8.25");
  EXPECT_EQ(Describe(FontRef()), "no font");
  EXPECT_EQ(Describe(ObjectRef()), "an object");
}

}  // namespace
}  // namespace levelwidgets
