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
  EXPECT_EQ(ToInt16("12.5"), 12);
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

TEST(VariantConversion, WhatIsNoNumberRaises13) {
  for (const Variant& value : {Variant("kg"), Variant(""), Variant("1 2"), Variant("0x"), Variant(Null{}),
                               Variant(MakeFont()), Variant(ObjectRef())}) {
    EXPECT_EQ(NumberRaisedBy([&] { ToDouble(value); }), kTypeMismatch) << Describe(value);
  }
}

TEST(VariantConversion, TextsOfNumbers) {
  EXPECT_EQ(ToText(12), "12");
  EXPECT_EQ(ToText(-1.5), "-1.5");
  EXPECT_EQ(ToText(0.1f), "0.1");
  EXPECT_EQ(ToText(true), "True");
  EXPECT_EQ(ToText(Variant()), "");
  EXPECT_EQ(NumberRaisedBy([] { ToText(Null{}); }), kTypeMismatch);
}

TEST(VariantConversion, Booleans) {
  EXPECT_TRUE(ToBoolean(-1));
  EXPECT_TRUE(ToBoolean(0.5));
  EXPECT_FALSE(ToBoolean(0));
  EXPECT_TRUE(ToBoolean("True"));
  EXPECT_FALSE(ToBoolean("False"));
  EXPECT_EQ(NumberRaisedBy([] { ToBoolean("yes"); }), kTypeMismatch);
}

TEST(VariantConversion, ToATypeGivesThatType) {
  for (const VariantType type :
       {VariantType::kBoolean, VariantType::kInt16, VariantType::kInt32, VariantType::kSingle,
        VariantType::kDouble, VariantType::kDate, VariantType::kString}) {
    EXPECT_EQ(ConvertTo(type, Variant(1)).Type(), type);
  }
  EXPECT_EQ(NumberRaisedBy([] { ConvertTo(VariantType::kFont, 1); }), kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { ConvertTo(VariantType::kFont, FontRef()); }), 0);
}

}  // namespace
}  // namespace levelwidgets
