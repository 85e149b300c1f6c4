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

// What there is between texts and other values, told from any that the program could make up itself.
class MarkedConversions : public ConversionApi {
 public:
  std::string LocaleName() override { return std::string(); }
  Converted<double> ToDouble(const ConversionValue& value) override {
    const auto* text = std::get_if<std::string_view>(&value);
    if (text && *text == "twelve") return 12.5;
    if (text && *text == "much") return ConversionStatus::kOutOfRange;
    return ConversionStatus::kMismatch;
  }
  Converted<Date> ToDate(const ConversionValue&) override { return Date{7.5}; }
  Converted<std::string> ToText(const ConversionValue& value) override {
    return "text " + std::to_string(value.index());
  }
  Converted<bool> ToBoolean(const ConversionValue&) override { return true; }
  bool IsNumeric(const ConversionValue&) override { return false; }
  bool IsDate(const ConversionValue&) override { return false; }
  Converted<std::string> Format(const ConversionValue&, std::string_view, int, int) override {
    return std::string();
  }
  Converted<Date> DateAdd(std::string_view, double, Date) override { return Date{}; }
  Converted<DateParts> SplitDate(Date) override { return DateParts{}; }
  Converted<int> Weekday(Date, int) override { return 1; }
  Converted<std::string> MonthName(int, bool) override { return std::string(); }
  Converted<std::string> WeekdayName(int, bool, int) override { return std::string(); }
  std::string UpperCase(std::string_view text) override { return std::string(text); }
  std::string ToCodePage(std::string_view text) override { return std::string(text); }
  std::string FromCodePage(std::string_view bytes) override { return std::string(bytes); }
  bool IsDBCSLeadByte(char) override { return false; }
};

TEST(FrameConversions, TextsAreConvertedByThePlatform) {
  MarkedConversions platforms;
  EXPECT_EQ(ConvertTo(VariantType::kDouble, "twelve", platforms), Variant(12.5));
  const Variant whole = ConvertTo(VariantType::kInt16, "twelve", platforms);
  EXPECT_EQ(whole.Type(), VariantType::kInt16);
  EXPECT_EQ(whole, Variant(12));  // ties to even
  EXPECT_EQ(ConvertTo(VariantType::kSingle, "twelve", platforms).Type(), VariantType::kSingle);
  EXPECT_EQ(ConvertTo(VariantType::kDate, "a day", platforms), Variant(Date{7.5}));
  EXPECT_EQ(ConvertTo(VariantType::kBoolean, "yes", platforms), Variant(true));
  EXPECT_EQ(ErrorOf([&] { ConvertTo(VariantType::kInt32, "abc", platforms); }), kTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { ConvertTo(VariantType::kInt32, "much", platforms); }), kOverflow);
}

TEST(FrameConversions, OthersBecomeTextsByThePlatform) {
  MarkedConversions platforms;
  EXPECT_EQ(ConvertTo(VariantType::kString, true, platforms), Variant("text 2"));
  EXPECT_EQ(ConvertTo(VariantType::kString, 12.5, platforms), Variant("text 6"));
  EXPECT_EQ(ConvertTo(VariantType::kString, Date{1}, platforms), Variant("text 7"));
  EXPECT_EQ(ConvertTo(VariantType::kString, {}, platforms), Variant(""));
  EXPECT_EQ(ErrorOf([&] { ConvertTo(VariantType::kString, Null{}, platforms); }), kTypeMismatch);
}

TEST(FrameConversions, WithoutAPlatformThereAreNoTextsOfNumbers) {
  EXPECT_EQ(ErrorOf([] { ConvertTo(VariantType::kInt32, "12"); }), kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { ConvertTo(VariantType::kString, 12); }), kTypeMismatch);
  EXPECT_EQ(ConvertTo(VariantType::kString, "12"), Variant("12"));
  for (const VariantType type : {VariantType::kBoolean, VariantType::kInt16, VariantType::kInt32,
                                 VariantType::kSingle, VariantType::kDouble, VariantType::kDate}) {
    EXPECT_EQ(ConvertTo(type, 1).Type(), type);
  }
  EXPECT_EQ(ErrorOf([] { ConvertTo(VariantType::kFont, 1); }), kTypeMismatch);
}

TEST(FrameConversions, ThePlatformIsLookedForWithTheFirstValueThatNeedsIt) {
  MarkedConversions platforms;
  int found = 0;
  const TextConversions texts([&]() -> ConversionApi& {
    ++found;
    return platforms;
  });
  ConvertTo(VariantType::kInt16, 12, texts);
  ConvertTo(VariantType::kString, "kg", texts);
  EXPECT_EQ(found, 0);
  ConvertTo(VariantType::kString, 12, texts);
  EXPECT_EQ(found, 1);
}

TEST(FrameConversions, AFailedConversionRaisesItsError) {
  EXPECT_EQ(ResultOf(Converted<int>(7)), 7);
  EXPECT_EQ(ErrorOf([] { ResultOf(Converted<int>(ConversionStatus::kInvalid)); }), kInvalidCall);
  EXPECT_EQ(ErrorOf([] { ResultOf(Converted<int>(ConversionStatus::kOutOfRange)); }), kOverflow);
  EXPECT_EQ(ErrorOf([] { ResultOf(Converted<int>(ConversionStatus::kMismatch)); }), kTypeMismatch);
}

}  // namespace
}  // namespace levelwidgets
