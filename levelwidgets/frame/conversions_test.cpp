#include <levelwidgets/frame/conversions.h>

#include <gtest/gtest.h>

#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

TEST(FrameConversions, AVariantKeepsItsTypeAndValue) {
  const Variant text("12");
  const std::pair<Variant, ConversionValue> rows[] = {
      {{}, EmptyValue{}},           {Null{}, NullValue{}}, {true, true}, {std::int16_t{-3}, std::int16_t{-3}},
      {40000, std::int32_t{40000}}, {1.5f, 1.5f},          {2.5, 2.5},   {Date{45427.5}, Date{45427.5}},
  };
  for (const auto& [value, converted] : rows) EXPECT_EQ(ToConversionValue(value), converted);
  EXPECT_EQ(ToConversionValue(text), ConversionValue(std::string_view("12")));
}

TEST(FrameConversions, FontsAndObjectsAreRefused) {
  EXPECT_EQ(ErrorOf([] { ToConversionValue(Variant(FontRef())); }), kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { ToConversionValue(Variant(ObjectRef())); }), kTypeMismatch);
}

TEST(FrameConversions, AFailedConversionRaisesItsError) {
  EXPECT_EQ(ResultOf(Converted<int>(7)), 7);
  EXPECT_EQ(ErrorOf([] { ResultOf(Converted<int>(ConversionStatus::kInvalid)); }), kInvalidCall);
  EXPECT_EQ(ErrorOf([] { ResultOf(Converted<int>(ConversionStatus::kOutOfRange)); }), kOverflow);
  EXPECT_EQ(ErrorOf([] { ResultOf(Converted<int>(ConversionStatus::kMismatch)); }), kTypeMismatch);
}

}  // namespace
}  // namespace levelwidgets
