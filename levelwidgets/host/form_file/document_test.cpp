#include <levelwidgets/host/form_file/document.h>

#include <gmock/gmock.h>

namespace levelwidgets {
namespace {

FormDocument Parsed(const std::string& text) {
  auto parsed = ParseFormNodes(text);
  const auto* error = std::get_if<FormSyntaxError>(&parsed);
  EXPECT_EQ(error, nullptr) << (error ? error->message : "");
  return {text, error ? FormNode{} : std::move(std::get<FormNode>(parsed))};
}

std::string Place(TextPosition at) { return std::to_string(at.line) + ":" + std::to_string(at.column); }

std::string SyntaxErrorOf(const std::string& text) {
  const auto parsed = ParseFormNodes(text);
  const auto* error = std::get_if<FormSyntaxError>(&parsed);
  return error ? Place(error->at) + ": " + error->message : "";
}

TEST(FormDocument, KnowsWhereEachValueStands) {
  const FormDocument document = Parsed("# c\n[form]\nName = \"f\xC3\xA4\" # x\nFont = { Size = 8.5 }\n");
  const FormNode& form = document.FormTable();
  EXPECT_EQ(document.TextOf(form.span), "[form]");
  EXPECT_EQ(document.TextOf(form.Find("Name")->span), "\"f\xC3\xA4\"");
  EXPECT_EQ(document.TextOf(form.Find("Name")->key_span), "Name");
  const FormNode* size = form.Find("Font")->Find("Size");
  EXPECT_EQ(document.TextOf(size->span), "8.5");
  EXPECT_EQ(Place(document.PositionOf(size->span.begin)), "4:17");
}

TEST(FormDocument, ColumnsCountCharactersAndNoByteOrderMark) {
  const FormDocument document = Parsed("\xEF\xBB\xBF\"\xC3\xA4\xE2\x82\xAC\" = { X = 1 }");
  const FormNode& table = document.Root().children.front();
  EXPECT_EQ(document.TextOf(table.span), "{ X = 1 }");
  EXPECT_EQ(Place(document.PositionOf(table.key_span.begin)), "1:1");
  EXPECT_EQ(Place(document.PositionOf(table.span.begin)), "1:8");
}

TEST(FormDocument, KeepsEntriesInTheOrderOfTheText) {
  const FormDocument document = Parsed("b = 1\na = 2\nc = 3\n");
  std::string keys;
  for (const FormNode& child : document.Root().children) keys += child.key;
  EXPECT_EQ(keys, "bac");
}

TEST(FormDocument, KnowsHowATableIsWritten) {
  const FormDocument document = Parsed("d.x = 1\ni = { y = 2 }\n[h]\nz = 3\n");
  EXPECT_EQ(document.Root().Find("d")->shape, FormNode::Shape::kDotted);
  EXPECT_EQ(document.Root().Find("i")->shape, FormNode::Shape::kInline);
  EXPECT_EQ(document.Root().Find("h")->shape, FormNode::Shape::kHeader);
}

TEST(FormDocument, ReportsTheFirstSyntaxErrorWithItsPlace) {
  EXPECT_EQ(SyntaxErrorOf("[form]\nWidth = \n"),
            "2:9: syntax error in a key-value pair: expected value, saw '\\n'");
  EXPECT_EQ(SyntaxErrorOf("[form]\nWidth = 1\nWidth = 2\n"),
            "3:9: syntax error in a key-value pair: cannot redefine existing integer 'Width'; a key or table "
            "stands once, each control has a [[control]]");
  EXPECT_EQ(SyntaxErrorOf("a = 1 2"),
            "1:7: syntax error in a key-value pair: expected a comment or whitespace, saw '2'");
}

TEST(FormDocument, ReportsBytesThatAreNotUtf8WhereTheyStand) {
  EXPECT_EQ(SyntaxErrorOf("a = 1\nb = \"\xC3\xA4\xFF\"\n"),
            "2:7: the text is not UTF-8: the byte 0xFF at offset 13 is no character");
  EXPECT_EQ(SyntaxErrorOf("a = \"" + std::string(100, 'x') + "\xC3"),
            "1:106: the text is not UTF-8: the byte 0xC3 at offset 105 is no character");
}

TEST(FormDocument, RefusesEndlesslyNestedKeysAndValues) {
  std::string parts;
  std::string open;
  for (int i = 0; i < 100'000; ++i) {
    parts += "a.";
    open += "[";
  }
  const std::string refused = ": a key or header of more than 17 parts is refused";
  EXPECT_EQ(SyntaxErrorOf(parts + "a = 1\n"), "1:34" + refused);
  EXPECT_EQ(SyntaxErrorOf("x = 1\n[" + parts + "a]\n"), "2:35" + refused);
  EXPECT_EQ(SyntaxErrorOf("x = { y = \"\"\"\n' \\\"\"\"\", " + parts + "a = 1 }"), "2:43" + refused);
  EXPECT_EQ(SyntaxErrorOf("x = 'a' # '\n'b.c'." + parts + "a = 1"), "2:38" + refused);
  EXPECT_THAT(SyntaxErrorOf("x = " + open), ::testing::HasSubstr("values are nested more than 64 deep"));
}

TEST(FormDocument, CharactersOutOfPlaceAreSyntaxErrors) {
  EXPECT_THAT(SyntaxErrorOf("[=]\n"), ::testing::StartsWith("1:2: "));
  EXPECT_THAT(SyntaxErrorOf("[form]\n\xC3\xA4 = 1\n"), ::testing::StartsWith("2:1: "));
  EXPECT_THAT(SyntaxErrorOf("a = \xC3\xA4\n"), ::testing::StartsWith("1:5: "));
}

TEST(FormDocument, DotsInTextsDoNotDivideKeys) {
  const std::string dots = "a.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.q.r.s.t.u.v.w.x.y.z";
  EXPECT_EQ(SyntaxErrorOf("# " + dots + "\na = \"\\\"" + dots + "\"\nb = '" + dots + "'\nc = \"\"\"\n\"" +
                          dots + "\"\"\"\nd = '''\n'" + dots + "'''\ne = [1.5, 2.5, 3.5,\n4.5]\n"),
            "");
}

}  // namespace
}  // namespace levelwidgets
