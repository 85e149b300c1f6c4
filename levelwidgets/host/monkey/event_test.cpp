#include <levelwidgets/host/monkey/event.h>

#include <gtest/gtest.h>

#include <levelwidgets/frame/font.h>

namespace levelwidgets::monkey {
namespace {

TEST(MonkeyEvent, IsPrintedAsALineOfAScript) {
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kMoveTo, .control = "cmdSave", .numbers = {120, -15}}),
            "d:move_to(f.cmdSave, 120, -15)");
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kMoveTo, .numbers = {1, 2}}), "d:move_to(f, 1, 2)");
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kKey, .numbers = {9, 1}}), "d:key(9, 1)");
  EXPECT_EQ(
      ToLua(Event{.kind = EventKind::kSet, .control = "tab", .member = "TabCaption", .values = {2, "Lines"}}),
      "f.tab.TabCaption[2] = \"Lines\"");
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kCall, .control = "lbl", .member = "Refresh"}), "f.lbl:Refresh()");
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kRemove, .control = "lbl"}), "f:remove(\"lbl\")");
}

TEST(MonkeyEvent, APanelIsReachedByTheControlThatHasItOpen) {
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kMoveToPanel, .control = "cbo", .numbers = {500, 30}}),
            "move_to_panel(f.cbo, 500, 30)");
}

TEST(MonkeyEvent, ReachesObjectsThatPropertiesHold) {
  const Event event{.kind = EventKind::kSet,
                    .control = "grd",
                    .path = {{"Columns", 0}, {"Item", 2}, {"ValueList", 0}},
                    .member = "Width",
                    .values = {Variant(5)}};
  EXPECT_EQ(ToLua(event), "f.grd.Columns.Item[2].ValueList.Width = 5");
}

TEST(MonkeyEvent, AControlNamedAsAMemberOfFormsOrAWordOfLuaIsFoundByItsName) {
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kPlace, .control = "Caption", .numbers = {1, 2, 3, 4}}),
            "control(\"Caption\"):Move(1, 2, 3, 4)");
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kPlace, .control = "end", .numbers = {1, 2, 3, 4}}),
            "control(\"end\"):Move(1, 2, 3, 4)");
}

TEST(MonkeyEvent, AReactionIsAFunction) {
  const auto nested = std::make_shared<Event>(Event{.kind = EventKind::kRemove, .control = "a"});
  EXPECT_EQ(ToLua(Event{.kind = EventKind::kOnce, .control = "a", .member = "Click", .nested = nested}),
            "once(f.a, \"Click\", function() f:remove(\"a\") end)");
}

TEST(MonkeyEvent, ValuesAreWrittenSoThatTheyComeBackWhole) {
  EXPECT_EQ(ToLua(Variant(Null{})), "lw.null");
  EXPECT_EQ(ToLua(Variant(true)), "true");
  EXPECT_EQ(ToLua(Variant(-7)), "-7");
  EXPECT_EQ(ToLua(Variant(7.0)), "7.0");
  EXPECT_EQ(ToLua(Variant(0.1)), "0.10000000000000001");
  EXPECT_EQ(ToLua(Variant("a\"\\\n\x7F\xC3\xA4"
                          "1")),
            "\"a\\\"\\\\\\010\\127\xC3\xA4"
            "1\"");
  FontDescription font;
  font.bold = true;
  EXPECT_EQ(ToLua(Variant(MakeFont(font))),
            "lw.font{ Name = \"Tahoma\", Size = 8.25, Bold = true, Italic = false, Underline = false, "
            "Strikethrough = false, Charset = 0 }");
}

}  // namespace
}  // namespace levelwidgets::monkey
