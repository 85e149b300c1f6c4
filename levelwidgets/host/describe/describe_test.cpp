#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/host/form/form.h>

namespace levelwidgets {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using Json = nlohmann::ordered_json;

std::vector<std::string> KeysOf(const Json& json) {
  std::vector<std::string> keys;
  for (const auto& item : json.items()) keys.push_back(item.key());
  return keys;
}

Json Member(const char* class_name, const char* list, const char* name) {
  const Json json = DescribeAsJson(*FindControlClass(class_name));
  for (const Json& member : json.at(list)) {
    if (member.at("name") == name) return member;
  }
  return {};
}

TEST(Describe, JsonHasTheStableKeysInOrder) {
  const Json json = DescribeAsJson(*FindControlClass("FlatLabel"));
  EXPECT_THAT(KeysOf(json), ElementsAre("class", "properties", "methods", "events", "enumerations"));
  EXPECT_THAT(KeysOf(json.at("properties").at(0)),
              ElementsAre("number", "name", "type", "persisted", "stored_as", "default_new", "default_read",
                          "default_write", "read_only", "indexed", "help"));
  EXPECT_THAT(KeysOf(json.at("methods").at(0)), ElementsAre("number", "name", "arguments", "help"));
  EXPECT_THAT(KeysOf(json.at("events").at(0)), ElementsAre("number", "name", "arguments"));
  EXPECT_EQ(json.at("class"), "FlatLabel");
}

TEST(Describe, DefaultsDifferWhereTheTableSaysSo) {
  const Json color = Member("FlatLabel", "properties", "ForeColor");
  EXPECT_EQ(color.at("type"), "Color");
  EXPECT_EQ(color.at("persisted"), "ForeColor");
  EXPECT_EQ(color.at("stored_as"), "Long");
  EXPECT_EQ(color.at("default_new"), 0x00FFFFFF);
  EXPECT_EQ(color.at("default_read"), 0x80000012u);
  EXPECT_EQ(color.at("default_write"), 0x80000012u);
  EXPECT_EQ(color.at("read_only"), false);
}

TEST(Describe, WhatTheContainerGivesIsNamed) {
  EXPECT_EQ(Member("FlatButton", "properties", "Font").at("default_read"), "ambient Font");
  EXPECT_EQ(Member("FlatButton", "properties", "Caption").at("default_new"), "ambient DisplayName");
  EXPECT_EQ(Member("FlatButton", "properties", "Caption").at("default_write"), "");
}

TEST(Describe, WhatIsNotSavedHasNoDefaults) {
  const Json handle = Member("FlatButton", "properties", "hWnd");
  EXPECT_TRUE(handle.at("persisted").is_null());
  EXPECT_TRUE(handle.at("stored_as").is_null());
  EXPECT_TRUE(handle.at("default_new").is_null());
  EXPECT_EQ(handle.at("read_only"), true);
}

TEST(Describe, EventsShowTheirNumbersAndReferences) {
  EXPECT_EQ(Member("FlatButton", "events", "KeyPress"), Json::parse(R"({"number": 3, "name": "KeyPress",
                            "arguments": [{"name": "KeyAscii", "type": "Integer", "by_reference": true}]})"));
  EXPECT_EQ(Member("FlatButton", "events", "MouseMove").at("arguments").at(2),
            Json::parse(R"({"name": "X", "type": "Single", "by_reference": false})"));
}

TEST(Describe, EnumerationsAreListed) {
  EXPECT_EQ(DescribeAsJson(*FindControlClass("FlatLabel")).at("enumerations"),
            Json::parse(R"([{"name": "ksxAlignmentConstants", "items": [
                {"name": "ksxLeft", "value": 0}, {"name": "ksxRight", "value": 1},
                {"name": "ksxCenter", "value": 2}]}])"));
  EXPECT_EQ(Member("FlatLabel", "properties", "Alignment").at("type"), "ksxAlignmentConstants");
}

TEST(Describe, IndexedPropertiesAndTheDefaultMemberAreShown) {
  const Json json = DescribeAsJson(*FindControlClass("FlatTabStrip"));
  EXPECT_THAT(KeysOf(json),
              ElementsAre("class", "default_member", "properties", "methods", "events", "enumerations"));
  EXPECT_EQ(json.at("default_member"), "SelectedTab");
  const Json caption = Member("FlatTabStrip", "properties", "TabCaption");
  EXPECT_EQ(caption.at("indexed"), true);
  EXPECT_EQ(caption.at("type"), "String");
  EXPECT_EQ(caption.at("persisted"), "TabCaption");
  EXPECT_EQ(caption.at("default_new"), "Tab 1");
  EXPECT_EQ(Member("FlatTabStrip", "properties", "TabCount").at("indexed"), false);
  EXPECT_EQ(Member("FlatTabStrip", "properties", "BackColor").at("default_write"), "ambient BackColor");
  EXPECT_EQ(Member("FlatTabStrip", "properties", "ForeColor").at("default_read"), "ambient ForeColor");
  const std::string text = DescribeAsText(*FindControlClass("FlatTabStrip"));
  EXPECT_THAT(text, HasSubstr("Default member: SelectedTab\n"));
  EXPECT_THAT(text,
              HasSubstr("TabCaption(Index: Integer): String, saved as TabCaption1, TabCaption2 and so on\n"));
}

TEST(Describe, FormsAndPlacesAreDescribedLikeControls) {
  std::vector<std::string> names;
  for (const ClassInfo* info : DescribedClasses()) names.emplace_back(info->Name());
  EXPECT_EQ(names.front(), ControlClasses().front()->Name());
  EXPECT_THAT(names, Contains("ksxValueList"));
  EXPECT_EQ(names[names.size() - 2], "Form");
  EXPECT_EQ(names.back(), "Placement");
  const Json left = DescribeAsJson(HostedControl::Table()).at("properties").at(1);
  EXPECT_EQ(left.at("name"), "Left");
  EXPECT_EQ(left.at("persisted"), "Left");
}

TEST(Describe, MarkdownHasATableForEachKindOfMember) {
  const std::string page = DescribeAsMarkdown(*FindControlClass("FlatTabStrip"));
  EXPECT_THAT(page, StartsWith("# FlatTabStrip\n\nA row of flat tabs"));
  EXPECT_THAT(page, HasSubstr("`SelectedTab` stands for the object itself"));
  EXPECT_THAT(page,
              HasSubstr("| `TabCaption(Index)` | String | `TabCaption1`, `TabCaption2` ... | `\"Tab 1\"` |"));
  EXPECT_THAT(page,
              HasSubstr("| `hWnd` | Handle | not saved |  | Handle of the tab strip's window. Read-only. |"));
  EXPECT_THAT(page, HasSubstr("| 9 | `TabChange` | `PreviousTab`: Integer<br>`NewTab`: Integer |"));
  EXPECT_THAT(page, HasSubstr("[ksxTabOrientationConstants](#ksxtaborientationconstants)"));
  EXPECT_THAT(page, HasSubstr("### ksxTabOrientationConstants\n\n| Value | Name |\n|---|---|\n| 0 | `ksx"));
}

TEST(Describe, MarkdownLinksTheClassesOfResultsAndShowsDifferentDefaults) {
  const std::string list = DescribeAsMarkdown(*FindObjectClass("ksxValueList"));
  EXPECT_THAT(list, HasSubstr("[ksxValueListItem](ksxValueListItem.md)"));
  EXPECT_THAT(list, HasSubstr("`lw.new(\"ksxValueList\")`"));
  EXPECT_THAT(list, HasSubstr("`for item in list:each() do`"));
  EXPECT_THAT(DescribeAsMarkdown(*FindControlClass("FlatLabel")),
              HasSubstr("new: `0x00FFFFFF`<br>loaded: `0x80000012`"));
  EXPECT_THAT(DescribeAsMarkdown(*FindControlClass("FlatButton")), HasSubstr("| ambient Font |"));
}

TEST(Describe, EveryMemberOfEveryClassIsOnItsPage) {
  for (const ClassInfo* info : DescribedClasses()) {
    const std::string page = DescribeAsMarkdown(*info);
    const std::string text = DescribeAsText(*info);
    for (const std::string_view member : info->MemberNames()) {
      EXPECT_THAT(page, HasSubstr("| `" + std::string(member))) << info->Name();
      EXPECT_THAT(text, HasSubstr(" " + std::string(member))) << info->Name();
    }
  }
}

TEST(Describe, TextShowsTheSameAsMarkdown) {
  const std::string text = DescribeAsText(*FindControlClass("FlatLabel"));
  EXPECT_THAT(text, HasSubstr("FlatLabel: A one-line text label"));
  EXPECT_THAT(text,
              HasSubstr("ForeColor: Color\n      Text colour. Default: new 0x00FFFFFF, loaded 0x80000012\n"));
  EXPECT_THAT(text, HasSubstr("hWnd: Handle, read-only, not saved\n"));
  EXPECT_THAT(text, HasSubstr("4 KeyPress(by reference KeyAscii: Integer)\n"));
  EXPECT_THAT(text, HasSubstr("ksxAlignmentConstants\n  0 ksxLeft\n"));
}

}  // namespace
}  // namespace levelwidgets
