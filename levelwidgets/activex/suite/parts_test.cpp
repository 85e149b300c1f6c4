// Members of the objects that controls consist of, on the control's own and on the component's: both do the
// same.
#include <set>

#include <levelwidgets/activex/suite/both_sides_fixture.h>

namespace levelwidgets::activex {
namespace {

// The way from a control to one of its parts, by members that give objects.
struct WayToPart {
  const char* control;
  struct Step {
    const char* member;
    Arguments arguments;
  };
  std::vector<Step> steps;
};

std::vector<WayToPart> WaysToParts() {
  const WayToPart::Step columns{"Columns", {}};
  const WayToPart::Step column{"Add", {"Name", 600}};
  const WayToPart::Step list{"ValueList", {}};
  return {{"FlatGrid", {columns}},
          {"FlatGrid", {columns, column}},
          {"FlatGrid", {columns, column, list}},
          {"FlatGrid", {columns, column, list, {"Add", {"Item"}}}}};
}

class PartsTest : public BothSidesTest {
 protected:
  void BeginAt(const WayToPart& way) {
    Begin(*FindControlClass(way.control));
    for (const WayToPart::Step& step : way.steps) TurnTo(step.member, step.arguments);
  }
  std::string NameOf(std::string_view member, const Arguments& arguments = {}) const {
    std::string name = std::string(TheClass().Name()) + "." + std::string(member);
    for (const Variant& argument : arguments) name += " " + ValueLine(argument);
    return name;
  }
};

TEST_F(PartsTest, EveryClassOfObjectsIsTried) {
  std::set<std::string_view> expected;
  for (const ClassInfo* info : ObjectClasses()) expected.insert(info->Name());
  std::set<std::string_view> tried;
  for (const WayToPart& way : WaysToParts()) {
    BeginAt(way);
    tried.insert(TheClass().Name());
    End();
  }
  EXPECT_EQ(tried, expected);
}

TEST_F(PartsTest, PropertiesTakeAndRefuseOnBothSidesAlike) {
  for (const WayToPart& way : WaysToParts()) {
    BeginAt(way);
    for (const PropertyInfo& property : TheClass().Properties()) {
      if (property.type.kind == TypeKind::kObject && !property.Indexed()) {
        BothRead(property, {}, NameOf(property.name));
      } else if (!property.Indexed()) {
        TryWriting(property, {}, NameOf(property.name));
      }
    }
    End();
  }
  EXPECT_GT(Steps(), 500);
}

TEST_F(PartsTest, ItemsAreFoundAndMissedByEveryIndexAndKeyOnBothSidesAlike) {
  for (const WayToPart& way : WaysToParts()) {
    BeginAt(way);
    for (const PropertyInfo& property : TheClass().Properties()) {
      if (!property.Indexed()) continue;
      for (const char* text : {"one", "two", "three"}) {
        const MethodInfo& add = *TheClass().FindMethod("Add");
        Both(NameOf("Add"), [&](Driven& driven) { return driven.Run(add, {text}); });
      }
      for (const Variant& index : TriedValues()) BothRead(property, {index}, NameOf(property.name, {index}));
      BothRead(property, {}, NameOf(property.name));
      BothRead(property, {1, 2}, NameOf(property.name, {1, 2}));
    }
    End();
  }
}

TEST_F(PartsTest, MethodsTakeAndRefuseOnBothSidesAlike) {
  for (const WayToPart& way : WaysToParts()) {
    BeginAt(way);
    for (const MethodInfo& method : TheClass().Methods()) {
      const auto run = [&](const Arguments& arguments) {
        Both(NameOf(method.name, arguments), [&](Driven& driven) { return driven.Run(method, arguments); });
        for (const PropertyInfo& property : TheClass().Properties()) {
          if (property.name == "Count")
            BothRead(property, {}, NameOf(method.name, arguments) + ", then Count");
        }
      };
      run({});
      for (const Variant& value : TriedValues()) {
        run({value});
        run({"Name", value});
        run({"Name", 600, 0, 0, value});
        run({"Name", 600, 0, 0, 0, true, "", value, 1});
        run({"Name", 600, 0, 0, 0, true, "", "", value});
      }
      run({"Name", 600, 0, 0, 0, true, "", "", 0, 1});
    }
    End();
  }
}

TEST_F(PartsTest, ForEachGivesTheItemsInTheirOrderOnBothSides) {
  int collections = 0;
  for (const WayToPart& way : WaysToParts()) {
    BeginAt(way);
    if (!TheClass().EnumeratorMember().empty()) {
      ++collections;
      const MethodInfo& add = *TheClass().FindMethod("Add");
      const MethodInfo& remove = *TheClass().FindMethod("Remove");
      const ClassInfo& item = add.result.object_class();
      const PropertyInfo* const caption = item.FindProperty("Caption");
      const PropertyInfo& shown = caption ? *caption : *item.FindProperty("Description");
      const auto for_each = [&](Driven& driven) { return driven.ReadItems(shown); };
      Both(NameOf("For Each, empty"), for_each);
      for (const char* text : {"one", "two", "three", "four"})
        Both(NameOf("Add"), [&](Driven& driven) { return driven.Run(add, {text}); });
      Both(NameOf("Remove"), [&](Driven& driven) { return driven.Run(remove, {2}); });
      Both(NameOf("For Each"), [&](Driven& driven) {
        const std::vector<std::string> lines = for_each(driven);
        EXPECT_EQ(lines, (std::vector<std::string>{"= \"one\" (String)", "= \"three\" (String)",
                                                   "= \"four\" (String)"}));
        return lines;
      });
    }
    End();
  }
  EXPECT_EQ(collections, 2);
}

// --- Fonts ---------------------------------------------------------------------------------------

// The component's are the system's, which takes another name for one that it does not have.
class FontsTest : public BothSidesTest {
 protected:
  // Of the control's font on both sides.
  std::vector<std::string> Read(IUnknown* component) {
    std::vector<std::string> lines;
    for (const PropertyInfo& property : Font::Table().Properties()) {
      CallResult itself;
      ToComponent(*Runtime::OfThread(), GetByName(*ToFont(GetByName(*TheControl(), "Font")), property.name),
                  itself.value);
      const std::string of_component = Shown(Get(component, std::string(property.name).c_str()));
      EXPECT_EQ(of_component, Shown(itself)) << TheClass().Name() << " " << property.name;
      lines.push_back(of_component);
    }
    return lines;
  }
};

TEST_F(FontsTest, WhatAClientSetsOfAFontTheControlShowsAndNotifies) {
  const std::vector<std::pair<const char*, Variant>> values{
      {"Size", 14.25},         {"Bold", true},   {"Italic", true}, {"Underline", true},
      {"Strikethrough", true}, {"Charset", 204}, {"Bold", false}};
  int fonts = 0;
  for (const ClassInfo* info : ControlClasses()) {
    if (!info->FindProperty("Font")) continue;
    ++fonts;
    Begin(*info);
    const CallResult font = Get(TheComponent(), "Font");
    ASSERT_EQ(font.value.vt, VT_DISPATCH) << info->Name();
    std::vector<std::string> former = Read(font.value.pdispVal);
    for (const auto& [name, value] : values) {
      SetByName(*ToFont(GetByName(*TheControl(), "Font")), name, value);
      OwnedVariant given;
      ToComponent(*Runtime::OfThread(), value, given);
      EXPECT_EQ(Put(font.value.pdispVal, name, {Value(given)}).result, S_OK) << info->Name() << " " << name;
      EXPECT_EQ(TakeOfComponent(), TakeOfControl()) << info->Name() << " " << name;
      const std::vector<std::string> present = Read(font.value.pdispVal);
      EXPECT_NE(present, former) << info->Name() << " " << name;
      former = present;
    }
    End();
  }
  EXPECT_EQ(fonts, 8);
}

}  // namespace
}  // namespace levelwidgets::activex
