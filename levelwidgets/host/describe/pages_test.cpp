#include <levelwidgets/host/describe/pages.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using Json = nlohmann::ordered_json;

std::vector<std::string> KeysOf(const Json& json) {
  std::vector<std::string> keys;
  for (const auto& item : json.items()) keys.push_back(item.key());
  return keys;
}

Json Field(const PageInfo& page, std::string_view name) {
  const Json json = DescribeAsJson(page);
  for (const Json& field : json.at("fields")) {
    if (field.at("name") == name) return field;
  }
  return {};
}

TEST(DescribePages, JsonHasTheStableKeysInOrder) {
  const Json json = DescribeAsJson(ppFlatScroll());
  EXPECT_THAT(KeysOf(json), ElementsAre("page", "title", "serves", "fields", "reads", "writes"));
  EXPECT_THAT(KeysOf(json.at("fields").at(0)),
              ElementsAre("name", "kind", "caption", "items", "label", "frame", "property", "refusal",
                          "marks_by_choice_only"));
  EXPECT_EQ(json.at("page"), "ppFlatScroll");
  EXPECT_EQ(json.at("title"), "General");
  EXPECT_EQ(json.at("serves"), "FlatScroll");
}

TEST(DescribePages, JsonNamesWhatAFieldHasAndNullForWhatItLacks) {
  const Json width = Field(ppFlatGridColumns(), "txtWidth");
  EXPECT_EQ(width.at("kind"), "text");
  EXPECT_EQ(width.at("caption"), "Width:");
  EXPECT_EQ(width.at("items"), Json::array());
  EXPECT_EQ(width.at("label"), "Label2");
  EXPECT_EQ(width.at("frame"), "Frame1");
  EXPECT_EQ(width.at("property"), "Columns(cmbColumn).Width");
  EXPECT_EQ(width.at("refusal"), "Invalid Width");
  const Json caption = Field(ppFlatLabel(), "txtCaption");
  for (const char* absent : {"label", "frame", "refusal"}) EXPECT_TRUE(caption.at(absent).is_null());
  EXPECT_TRUE(Field(ppFlatGridColumns(), "cmdAction").at("property").is_null());
}

TEST(DescribePages, JsonHasTheItemsOfListsAndButtons) {
  EXPECT_EQ(Field(ppFlatLabel(), "cmbAlignment").at("items"),
            Json({"0 - ksxLeft", "1 - ksxRight", "2 - ksxCenter"}));
  EXPECT_EQ(Field(ppFlatGridColumns(), "cmdAction").at("items"),
            Json({"&Add Column", "&Insert Column", "&Remove", "&Clear"}));
  EXPECT_EQ(Field(ppFlatCalendar(), "cmbFormat").at("items").size(), 7U);
}

TEST(DescribePages, EachKindOfFieldHasItsName) {
  EXPECT_EQ(Field(ppFlatLabel(), "chkEnabled").at("kind"), "check");
  EXPECT_EQ(Field(ppFlatLabel(), "cmbAlignment").at("kind"), "list");
  EXPECT_EQ(Field(ppFlatCalendar(), "cmbFormat").at("kind"), "combo");
  EXPECT_EQ(Field(ppFlatGridColumns(), "lblCount").at("kind"), "label");
  EXPECT_EQ(Field(ppFlatGridColumns(), "cmdAction").at("kind"), "buttons");
  EXPECT_EQ(Field(ppFlatGridColumns(), "Frame1").at("kind"), "frame");
}

TEST(DescribePages, TypingInAFormatMarksNothingOnThePagesOfCalculatorAndCalendarOnly) {
  EXPECT_EQ(Field(ppFlatCalendar(), "cmbFormat").at("marks_by_choice_only"), true);
  EXPECT_EQ(Field(ppFlatCalculator(), "cmbFormatString").at("marks_by_choice_only"), true);
  EXPECT_EQ(Field(ppFlatGridColumns(), "cmbFormat").at("marks_by_choice_only"), false);
}

TEST(DescribePages, WhatIsWrittenIsInTheOrderOfWriting) {
  EXPECT_EQ(DescribeAsJson(ppFlatScroll()).at("writes"),
            Json({"Value", "SmallChange", "LargeChange", "Max", "Min", "Enabled"}));
  EXPECT_EQ(DescribeAsJson(ppFlatTabStrip()).at("writes"),
            Json({"TabCount", "TabWidth", "SelectedTab", "Enabled", "Orientation", "TabCaption(cmbTab)"}));
  const Json columns = DescribeAsJson(ppFlatGridColumns());
  EXPECT_EQ(columns.at("writes"),
            Json({"Columns(cmbColumn).Caption", "Columns(cmbColumn).Width", "Columns(cmbColumn).Alignment",
                  "Columns(cmbColumn).HeaderAlignment", "Columns(cmbColumn).Visible",
                  "Columns(cmbColumn).Format", "Columns(cmbColumn).EditType"}));
  EXPECT_EQ(columns.at("reads").at(4), "Columns(cmbColumn).Format");
}

TEST(DescribePages, EveryFieldWithAValueShowsAPropertyOfTheClassOrChoosesOne) {
  int fields = 0;
  for (const PageInfo* page : Pages()) {
    const ClassInfo& served = *FindControlClass(page->serves);
    const Json described = DescribeAsJson(*page);
    for (const Json& field : described.at("fields")) {
      const std::string kind = field.at("kind");
      const bool has_value = kind == "text" || kind == "check" || kind == "list" || kind == "combo";
      if (!has_value || field.at("name") == page->chosen.by) continue;
      ASSERT_FALSE(field.at("property").is_null()) << page->name << field;
      const std::string property = field.at("property");
      EXPECT_TRUE(served.FindProperty(property.substr(0, property.find('(')))) << page->name << property;
      ++fields;
    }
  }
  EXPECT_GT(fields, 40);
}

TEST(DescribePages, TextSaysWhatAPersonFindsOutOnlyByTrying) {
  const std::string columns = DescribeAsText(ppFlatGridColumns());
  EXPECT_THAT(columns, StartsWith("ppFlatGridColumns: The property page \"Columns\" of FlatGrid. "));
  EXPECT_THAT(columns, HasSubstr("\n  cmbColumn: drop-down list \"Columns:\"\n      Chooses what the fields "
                                 "below show.\n"));
  EXPECT_THAT(columns, HasSubstr("  cmdAction: buttons with \"&Add Column\", \"&Insert Column\", "
                                 "\"&Remove\", \"&Clear\"\n      What they do is done at once.\n"));
  EXPECT_THAT(columns, HasSubstr("      Refuses to be left with a text that is no number: \"Invalid "
                                 "Width\".\n"));
  EXPECT_THAT(DescribeAsText(ppFlatCalendar()), HasSubstr("What is typed does not mark the page as changed"));
  EXPECT_THAT(DescribeAsText(ppFlatButton()),
              HasSubstr("Written when the page is applied, in this order\n  Caption, Enabled\n"));
}

TEST(DescribePages, ThePageOfAPropertyPageLinksTheClassThatItServesAndTheClassLinksIt) {
  EXPECT_THAT(DescribeAsMarkdown(ppFlatGrid()),
              AllOf(StartsWith("# ppFlatGrid\n\nThe property page \"General\" of [FlatGrid](FlatGrid.md)."),
                    HasSubstr("| `txtRowCount` | text box | `Row Count:` | `RowCount` |"),
                    HasSubstr("\nWritten when the page is applied, in this order: `")));
  EXPECT_THAT(DescribeAsMarkdown(*FindControlClass("FlatGrid")),
              HasSubstr("\nA designer edits it on [ppFlatGrid](ppFlatGrid.md) and "
                        "[ppFlatGridColumns](ppFlatGridColumns.md).\n"));
  EXPECT_THAT(DescribeAsMarkdown(Font::Table()), Not(HasSubstr("A designer edits it")));
}

}  // namespace
}  // namespace levelwidgets
