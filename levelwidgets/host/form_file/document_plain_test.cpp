// The quick reader of form files: what it reads, it reads as the TOML library does.
#include <levelwidgets/host/form_file/document_plain.h>

#include <array>
#include <filesystem>
#include <random>

#include <gmock/gmock.h>

#include <levelwidgets/host/files/whole_file.h>
#include <levelwidgets/host/form_file/document_testing.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

using ::testing::Not;
using ::testing::StartsWith;

bool IsPlain(const std::string& text) { return ReadPlainFormNodes(text).has_value(); }

void ExpectReadAlike(const std::string& text) {
  const auto plain = ReadPlainFormNodes(text);
  ASSERT_TRUE(plain) << text;
  EXPECT_EQ(TreeOf(*plain), LibrarysTreeOf(text)) << text;
}

TEST(PlainFormNodes, FormsAreReadAsTheLibraryReadsThem) {
  ExpectReadAlike(
      "[form]\nName = \"f\"\nWidth = 9000\n\n[[control]]\nClass = \"FlatLabel\"\nLeft = -1.5\n"
      "Properties = { Caption = \"a\\\"b\\\\\\n\", BackColor = 0x00D9E5E9, Enabled = false }\n"
      "[[control]]\n  Class='x'# c\n\tTop =0\n");
  ExpectReadAlike("# only a comment");
  ExpectReadAlike("");
  ExpectReadAlike("\n\r\n \t\n");
  ExpectReadAlike("a = 1\n[form]\n");
  ExpectReadAlike("a = {}\r\nb = { c = { d = true } }\r\n");
  ExpectReadAlike(" [form]\t# c\n[other]\nx = ''\ny = \"\"\n[[z]]\n[[z]]\n[last]\n");
  ExpectReadAlike("[form]\nName = \"\xC3\xB6\xC3\x9F\" # \xE2\x82\xAC\nWidth = 1\n");
  ExpectReadAlike("a = \"\\b\\t\\n\\f\\r\\\"\\\\\"");
}

TEST(PlainFormNodes, NumbersAreReadAsTheLibraryReadsThem) {
  for (const char* number : {"0", "-0", "7", "-12", "123456789012345", "0x0", "0xFF", "0xdeadBEEF", "0.5",
                             "-0.0", "8.25", "1234.0625", "0.1", "99999999999999999999.5"}) {
    ExpectReadAlike("x = " + std::string(number) + "\n");
  }
}

TEST(PlainFormNodes, WhatIsNotPlainIsLeftToTheLibrary) {
  for (const char* text :
       {"a.b = 1", "[a.b]", "[\"a\"]", "\"a\" = 1", "[ a ]", "a = [1]", "a = 2024-05-31", "a = 1e5", "a = +1",
        "a = 1_000", "a = 0o7", "a = 0b1", "a = inf", "a = 1234567890123456", "a = \"\"\"x\"\"\"",
        "a = '''x'''", "a = \"\\u00e4\"", "\xEF\xBB\xBF[a]"}) {
    EXPECT_FALSE(IsPlain(text)) << text;
    EXPECT_THAT(LibrarysTreeOf(text), Not(StartsWith("refused"))) << text;
  }
}

TEST(PlainFormNodes, WhatIsWrongIsLeftToTheLibrary) {
  for (const char* text : {"a",
                           "a =",
                           "= 1",
                           "a = 1 b = 2",
                           "a = 01",
                           "a = -",
                           "a = .5",
                           "a = 5.",
                           "a = 1.2.3",
                           "a = 0x",
                           "a = 0x-1",
                           "a = -0x1",
                           "a = 0xG",
                           "a = tru",
                           "a = truex",
                           "a = \"x",
                           "a = \"x\ny\"",
                           "a = 'x",
                           "a = 'x\ny'",
                           "a = \"\\q\"",
                           "a = \"\\",
                           "a = \"\x01\"",
                           "a = '\x7F'",
                           "# \x01",
                           "a = 1\rb = 2",
                           "a = { b = 1",
                           "a = { b = 1, }",
                           "a = {\nb = 1 }",
                           "a = { , }",
                           "a = { b = 1, b = 2 }",
                           "a = 1\na = 2",
                           "[a",
                           "[]",
                           "[[a]",
                           "[a] b = 1",
                           "[a]\n[a]",
                           "a = 1\n[a]",
                           "a = 1\n[[a]]",
                           "[a]\n[[a]]",
                           "[[a]]\n[a]",
                           "a = \"\xFF\"",
                           "\xC3\xA4 = 1",
                           "a = \"\"\"",
                           "a = '''",
                           "a = 1 2"}) {
    EXPECT_FALSE(IsPlain(text)) << text;
    EXPECT_THAT(LibrarysTreeOf(text), StartsWith("refused")) << text;
  }
  EXPECT_FALSE(IsPlain(std::string("a = \"\0\"", 7)));
}

TEST(PlainFormNodes, LargeAndDeepTablesAreLeftToTheLibrary) {
  const auto keys = [](int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "k" + std::to_string(i) + " = 1\n";
    return text;
  };
  ExpectReadAlike(keys(64));
  EXPECT_FALSE(IsPlain(keys(65)));
  const auto nested = [](int depth) {
    std::string text = "a = ";
    for (int i = 0; i < depth; ++i) text += "{ b = ";
    text += "1";
    for (int i = 0; i < depth; ++i) text += " }";
    return text;
  };
  ExpectReadAlike(nested(8));
  EXPECT_FALSE(IsPlain(nested(9)));
}

TEST(PlainFormNodes, TextsOfRandomPartsAreReadAsTheLibraryReadsThem) {
  constexpr std::array kParts = {
      "a", "b",    "form", "[form]", "[[c]]", "[c]",   "[",    "]",    "=",    " = ", "1",        "-",
      "0", "0.5",  ".",    "0x1F",   "true",  "\"s\"", "'l'",  "\"",   "'",    "\\",  "\\n",      "{",
      "}", ",",    " ",    "\t",     "\n",    "\n",    "\r\n", "\r",   "#",    "# c", "\xC3\xA4", "\x01",
      "_", "a = ", "b = ", "{ a = ", " }\n",  "\n[b]", "1\n",  "-7\n", "\"\"", "''",  "e5",       "\"s\"\n"};
  std::mt19937 random(20240531);  // the same texts each time
  int plain_texts = 0;
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (auto left = 1 + random() % 12; left > 0; --left) text += kParts[random() % kParts.size()];
    const auto plain = ReadPlainFormNodes(text);
    if (!plain) continue;
    ++plain_texts;
    ASSERT_EQ(TreeOf(*plain), LibrarysTreeOf(text)) << text;
  }
  EXPECT_GT(plain_texts, 500);
}

TEST(PlainFormNodes, MostFormsOfTheGalleryArePlainAndReadAlike) {
  int plain_forms = 0;
  int forms = 0;
  for (const auto& file :
       std::filesystem::directory_iterator(std::string(SourceDir()) + "/examples/gallery")) {
    if (file.path().extension() != ".toml") continue;
    const std::string text = ReadWholeFile(file.path());
    const auto plain = ReadPlainFormNodes(text);
    ++forms;
    if (!plain) continue;
    ++plain_forms;
    EXPECT_EQ(TreeOf(*plain), LibrarysTreeOf(text)) << file.path();
  }
  EXPECT_GT(plain_forms * 2, forms);
}

}  // namespace
}  // namespace levelwidgets
