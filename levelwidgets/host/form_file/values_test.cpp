#include <levelwidgets/host/form_file/values.h>

#include <gtest/gtest.h>

#include <limits>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/form_file/report.h>

namespace levelwidgets {
namespace {

constexpr MemberType kBoolean = MemberTypeOf<bool>();
constexpr MemberType kInteger = MemberTypeOf<std::int16_t>();
constexpr MemberType kLong = MemberTypeOf<std::int32_t>();
constexpr MemberType kColor = MemberTypeOf<Color>();
constexpr MemberType kSingle = MemberTypeOf<float>();
constexpr MemberType kDouble = MemberTypeOf<double>();
constexpr MemberType kDate = MemberTypeOf<Date>();
constexpr MemberType kString = MemberTypeOf<std::string>();
constexpr MemberType kFont = MemberTypeOf<FontRef>();
constexpr MemberType kAny = MemberTypeOf<Variant>();
constexpr MemberType kAlignment = MemberTypeOf<ksxAlignmentConstants>();

struct Outcome {
  std::optional<Variant> value;
  std::string complaints;  // separated by "|"
};

Outcome Read(const std::string& toml, const MemberType& type) {
  const std::string text = "X = " + toml;
  auto parsed = ParseFormNodes(text);
  if (const auto* error = std::get_if<FormSyntaxError>(&parsed)) return {std::nullopt, error->message};
  const FormDocument document(text, std::move(std::get<FormNode>(parsed)));
  FormReport report(document, "f");
  Outcome outcome{ReadValue(*document.Root().Find("X"), "X", {type, type.type}, report), ""};
  for (const Diagnostic& diagnostic : report.Diagnostics()) {
    outcome.complaints += (outcome.complaints.empty() ? "" : "|") + diagnostic.ToString();
  }
  return outcome;
}

void ExpectValue(const std::string& toml, const MemberType& type, const Variant& expected) {
  const Outcome outcome = Read(toml, type);
  EXPECT_EQ(outcome.complaints, "") << toml;
  ASSERT_TRUE(outcome.value) << toml;
  EXPECT_EQ(outcome.value->Type(), expected.Type()) << toml;
  EXPECT_EQ(*outcome.value, expected) << toml << " is read as " << Describe(*outcome.value);
}

void ExpectComplaint(const std::string& toml, const MemberType& type, const std::string& complaint) {
  const Outcome outcome = Read(toml, type);
  EXPECT_FALSE(outcome.value) << toml;
  EXPECT_EQ(outcome.complaints, complaint) << toml;
}

TEST(FormValues, AreReadAsTheTypeTheirPlaceTakes) {
  ExpectValue("true", kBoolean, true);
  ExpectValue("-32768", kInteger, std::int16_t{-32768});
  ExpectValue("0x7fffffff", kLong, std::int32_t{0x7FFFFFFF});
  ExpectValue("1200", kSingle, 1200.0f);
  ExpectValue("22.5", kSingle, 22.5f);
  ExpectValue("3", kDouble, 3.0);
  ExpectValue("'a\"b'", kString, "a\"b");
  ExpectValue("2024-05-31", kDate, Date{45443});
  ExpectValue("2024-05-31T18:00:00", kDate, Date{45443.75});
  ExpectValue("12:00:00", kDate, Date{0.5});
  ExpectValue("1899-12-29T06:00:00", kDate, Date{-1.25});
}

TEST(FormValues, ColoursTakeAll32Bits) {
  ExpectValue("0x00D9E5E9", kColor, std::int32_t{0x00D9E5E9});
  ExpectValue("0x80000012", kColor, Color(0x80000012u));
  ExpectValue("0xFFFFFFFF", kColor, std::int32_t{-1});
  ExpectValue("-1", kColor, std::int32_t{-1});
  ExpectComplaint("0x100000000", kColor,
                  "f:1:5: X is a colour, 0x00BBGGRR or 0x80000000 plus the index of a system colour; "
                  "0x100000000 is out of range");
}

TEST(FormValues, EnumerationsTakeNumbersAndItemNames) {
  ExpectValue("2", kAlignment, std::int32_t{2});
  ExpectValue("\"ksxCenter\"", kAlignment, std::int32_t{2});
  ExpectValue("17", kAlignment, std::int32_t{17});  // stored as given
  ExpectComplaint("\"ksxCentre\"", kAlignment,
                  "f:1:5: X is one of ksxLeft, ksxRight, ksxCenter, or its number; \"ksxCentre\" is none of "
                  "them; did you mean \"ksxCenter\"?");
  ExpectComplaint("true", kAlignment,
                  "f:1:5: X is one of ksxLeft, ksxRight, ksxCenter, or its number; true is a boolean");
}

TEST(FormValues, AreRefusedWithWhatIsThereAndWhatWouldBeRight) {
  ExpectComplaint("\"wide\"", kSingle, "f:1:5: X is a length in twips, a number; \"wide\" is a string");
  ExpectComplaint("12", kBoolean, "f:1:5: X is true or false; 12 is a number");
  ExpectComplaint("12", kString, "f:1:5: X is a string; 12 is a number");
  ExpectComplaint(
      "1.5", kLong,
      "f:1:5: X is a whole number from -2147483648 to 2147483647; 1.5 is a number with a fraction");
  ExpectComplaint("32768", kInteger,
                  "f:1:5: X is a whole number from -32768 to 32767; 32768 is out of range");
  ExpectComplaint("2147483648", kLong,
                  "f:1:5: X is a whole number from -2147483648 to 2147483647; 2147483648 is out of range");
  ExpectComplaint("1e39", kSingle, "f:1:5: X is a length in twips, a number; 1e39 is out of range");
  ExpectComplaint("nan", kDouble, "f:1:5: X is a number; nan is out of range");
  ExpectComplaint("\"today\"", kDate,
                  "f:1:5: X is a date, such as 2024-05-31 or 2024-05-31T10:30:00; \"today\" is a string");
  ExpectComplaint("2024-05-31T10:30:00Z", kDate,
                  "f:1:5: X is a date, such as 2024-05-31 or 2024-05-31T10:30:00; 2024-05-31T10:30:00Z is a "
                  "date with a time zone");
  ExpectComplaint("[1, 2]", kLong,
                  "f:1:5: X is a whole number from -2147483648 to 2147483647; this is a list");
  ExpectComplaint("{ Null = true }", kString, "f:1:5: X is a string; { Null = true } is Null");
  ExpectComplaint("\"" + std::string(60, 'x') + "\"", kLong,
                  "f:1:5: X is a whole number from -2147483648 to 2147483647; this is a string");
  ExpectComplaint("[1]", kAny, "f:1:5: X is a single value; this is a list");
  ExpectComplaint("{ Nil = true }", kAny, "f:1:5: X is a single value; this is a table");
}

TEST(FormValues, WithoutAKnownTypeAreReadAsTheyAreWritten) {
  ExpectValue("true", kAny, true);
  ExpectValue("7", kAny, std::int32_t{7});
  ExpectValue("9999999999", kAny, 9999999999.0);
  ExpectValue("1.5", kAny, 1.5);
  ExpectValue("\"x\"", kAny, "x");
  ExpectValue("2024-05-31", kAny, Date{45443});
  ExpectValue("{ Null = true }", kAny, Null{});
  ExpectValue("{ Name = \"Arial\", Size = 9 }", kAny, MakeFont({.name = "Arial", .size = 9}));
}

TEST(FormValues, FontsNeedANameAndASize) {
  ExpectValue("{ Name = \"Arial\", Size = 9, Bold = true, Charset = 2 }", kFont,
              MakeFont({.name = "Arial", .size = 9, .bold = true, .charset = 2}));
  ExpectComplaint("{ Bold = 1 }", kFont,
                  "f:1:5: X.Name is missing|f:1:5: X.Size is missing|"
                  "f:1:14: X.Bold is true or false; 1 is a number");
  ExpectComplaint("{ Name = \"Arial\", Size = 0 }", kFont, "f:1:30: X.Size is more than 0; 0 is not");
  ExpectComplaint("\"Arial\"", kFont,
                  "f:1:5: X is a font, such as { Name = \"Tahoma\", Size = 8.25 }; \"Arial\" is a string");
  const Outcome outcome = Read("{ Name = \"Arial\", Size = 9, bold = true }", kFont);
  EXPECT_TRUE(outcome.value);
  EXPECT_EQ(outcome.complaints, "f:1:33: warning: a font has no key \"bold\"; did you mean \"Bold\"?");
}

TEST(FormValues, AreWrittenInTheStyleOfTheirType) {
  EXPECT_EQ(WriteValue(true, kBoolean), "true");
  EXPECT_EQ(WriteValue(std::int16_t{-5}, kInteger), "-5");
  EXPECT_EQ(WriteValue(Color(0x80000012u), kColor), "0x80000012");
  EXPECT_EQ(WriteValue(Color(0x00d9e5e9u), kColor), "0x00D9E5E9");
  EXPECT_EQ(WriteValue(std::int32_t{2}, kAlignment), "2");
  EXPECT_EQ(WriteValue(1200.0f, kSingle), "1200");
  EXPECT_EQ(WriteValue(0.1f, kSingle), "0.1");
  EXPECT_EQ(WriteValue(5.0, {}), "5.0");
  EXPECT_EQ(WriteValue(Null{}, {}), "{ Null = true }");
  EXPECT_EQ(WriteValue(Date{45443}, kDate), "2024-05-31");
  EXPECT_EQ(WriteValue(Date{45427.4375}, kDate), "2024-05-15T10:30:00");
  EXPECT_EQ(WriteValue(MakeFont({.name = "Arial", .size = 9, .italic = true, .charset = 238}), kFont),
            "{ Name = \"Arial\", Size = 9, Italic = true, Charset = 238 }");
  EXPECT_EQ(WriteValue("a\"\\\t\r\n\x01\x7F\xC3\xA4", kString),
            "\"a\\\"\\\\\\t\\r\\n\\u0001\\u007F\xC3\xA4\"");
}

TEST(FormValues, BytesThatAreNotUtf8BecomeReplacementCharacters) {
  EXPECT_EQ(WriteString("a\xFF\xC3\xA4"), "\"a\xEF\xBF\xBD\xC3\xA4\"");
}

TEST(FormValues, ThatNoFileCanHoldAreRefused) {
  EXPECT_THROW(WriteValue(Variant(), {}), Error);
  EXPECT_THROW(WriteValue(Date{1e9}, kDate), Error);
  EXPECT_THROW(WriteValue(Date{std::numeric_limits<double>::quiet_NaN()}, kDate), Error);
}

TEST(FormValues, ComeBackAsTheyWereSaved) {
  const std::pair<Variant, MemberType> values[] = {
      {false, kBoolean},
      {std::int16_t{32767}, kInteger},
      {std::numeric_limits<std::int32_t>::min(), kLong},
      {std::int32_t{-1}, kColor},
      {0.1f, kSingle},
      {-std::numeric_limits<float>::max(), kSingle},
      {std::numeric_limits<float>::denorm_min(), kSingle},
      {1e300, kDouble},
      {0.1 + 0.2, kDouble},
      {-0.0, kDouble},
      {"", kString},
      {"line\r\nline\t\"quoted\" \\ \xF0\x9F\x98\x80\x7F", kString},
      {Date{0}, kDate},
      {Date{0.5}, kDate},
      {Date{-1.25}, kDate},
      {Date{45427.43751234567}, kDate},
      {Date{45427.999999999}, kDate},
      {Date{-693593}, kDate},
      {Date{2958465}, kDate},
      {MakeFont({.name = "A \"B\"", .size = 8.25, .underline = true, .strikethrough = true}), kFont},
  };
  for (const auto& [value, type] : values) ExpectValue(WriteValue(value, type), type, value);
  for (const Variant& value : {Variant(Null{}), Variant(2.0), Variant(0.1f), Variant("x"), Variant(true)}) {
    const Outcome outcome = Read(WriteValue(value, {}), kAny);
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(*outcome.value, value) << Describe(value);
  }
}

}  // namespace
}  // namespace levelwidgets
