#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/control.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;

class Dial : public Object {
 public:
  static const ClassInfo& Table();
  const ClassInfo& Class() const override { return Table(); }

  std::int16_t Steps() const { return steps_; }
  void SetSteps(std::int16_t steps) { steps_ = steps; }
  ksxAlignmentConstants Side() const { return side_; }
  void SetSide(ksxAlignmentConstants side) { side_ = side; }
  const std::string& Title() const { return title_; }
  void SetTitle(std::string title) { title_ = std::move(title); }
  Color Ink() const { return ink_; }
  void SetInk(Color ink) { ink_ = ink; }
  bool Locked() const { return true; }
  std::int32_t Turn(std::int32_t by, bool wrap) { return wrap ? -by : by; }

  Event<std::int16_t&, Twips> Turned;

 private:
  std::int16_t steps_ = 0;
  ksxAlignmentConstants side_ = ksxLeft;
  std::string title_;
  Color ink_;
};

const ClassInfo& Dial::Table() {
  static const ClassInfo info =
      Describe<Dial>("Dial", "Something to turn.")
          .Property("Steps", &Dial::Steps, &Dial::SetSteps,
                    {.defaults = {.when_new = 0, .when_read = 1, .when_written = 2}, .help = "How many."})
          .Property("Side", &Dial::Side, &Dial::SetSide, {})
          .Property("Title", &Dial::Title, &Dial::SetTitle, {})
          .Property("Ink", &Dial::Ink, &Dial::SetInk, {})
          .ReadOnly("Locked", &Dial::Locked, "Always.")
          .Persisted({"Title", "Steps"})
          .Method("Turn", &Dial::Turn, {{"By"}, {"Wrap", Variant(false)}}, "Turns it.")
          .Event(1, "Turned", &Dial::Turned, {"By", "X"}, "It was turned.")
          .Build();
  return info;
}

Error RaisedBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error;
  }
  return Error(0, "", "nothing was raised");
}

TEST(ClassTable, KnowsTypesDefaultsAndPersistedOrder) {
  const ClassInfo& info = Dial::Table();
  EXPECT_EQ(info.QualifiedName(), "LevelWidgets.Dial");
  EXPECT_EQ(info.FindProperty("Steps")->type.name, "Integer");
  EXPECT_EQ(info.FindProperty("Side")->type.name, "ksxAlignmentConstants");
  EXPECT_EQ(info.FindProperty("Ink")->type.name, "Color");
  EXPECT_TRUE(info.FindProperty("Locked")->ReadOnly());
  EXPECT_EQ(info.FindProperty("Steps")->defaults.when_written.value, Variant(2));
  ASSERT_EQ(info.Persisted().size(), 2u);
  EXPECT_EQ(info.Persisted()[0], info.FindProperty("Title"));
  EXPECT_EQ(info.Persisted()[1], info.FindProperty("Steps"));
  ASSERT_EQ(info.Enumerations().size(), 1u);
  EXPECT_EQ(info.Enumerations()[0]->items[2].name, "ksxCenter");
}

TEST(ByName, ReadsAndWritesWithConversionToThePropertysType) {
  Dial dial;
  SetByName(dial, "Steps", "7");
  EXPECT_EQ(dial.Steps(), 7);
  SetByName(dial, "Side", 2.0);
  EXPECT_EQ(dial.Side(), ksxCenter);
  SetByName(dial, "Title", 12);
  EXPECT_EQ(dial.Title(), "12");
  SetByName(dial, "Ink", static_cast<std::int32_t>(0x80000012));
  EXPECT_EQ(dial.Ink(), Color(0x80000012));
  EXPECT_EQ(GetByName(dial, "Side"), Variant(2));
}

TEST(ByName, AnUnknownMemberIsNamedWithTheNearestOne) {
  Dial dial;
  const Error error = RaisedBy([&] { GetByName(dial, "Stpes"); });
  EXPECT_EQ(error.Number(), kNoSuchMember);
  EXPECT_EQ(error.Source(), "LevelWidgets.Dial");
  EXPECT_EQ(error.Description(), "Dial has no member \"Stpes\"; did you mean \"Steps\"?");
  EXPECT_EQ(RaisedBy([&] { GetByName(dial, "Zzzzzz"); }).Description(), "Dial has no member \"Zzzzzz\"");
}

TEST(ByName, AReadOnlyPropertyRefusesAssignment) {
  Dial dial;
  const Error error = RaisedBy([&] { SetByName(dial, "Locked", false); });
  EXPECT_EQ(error.Number(), kPropertyIsReadOnly);
  EXPECT_EQ(error.Description(), "Dial.Locked is read-only");
}

TEST(ByName, AValueOfTheWrongTypeIsNamedWithItsProperty) {
  Dial dial;
  dial.SetSteps(3);
  const Error mismatch = RaisedBy([&] { SetByName(dial, "Steps", "many"); });
  EXPECT_EQ(mismatch.Number(), kTypeMismatch);
  EXPECT_EQ(mismatch.Description(),
            "Dial.Steps is of type Integer; \"many\" does not convert to it: Type mismatch");
  EXPECT_EQ(RaisedBy([&] { SetByName(dial, "Steps", 40000); }).Number(), kOverflow);
  EXPECT_EQ(dial.Steps(), 3);
}

TEST(ByName, MethodsConvertTheirArgumentsAndFillInOptionalOnes) {
  Dial dial;
  const std::vector<Variant> one{Variant("4")};
  EXPECT_EQ(InvokeByName(dial, "Turn", one), Variant(4));
  const std::vector<Variant> two{Variant(4), Variant(1)};
  EXPECT_EQ(InvokeByName(dial, "Turn", two), Variant(-4));
  const std::vector<Variant> three{Variant(4), Variant(1), Variant(1)};
  EXPECT_EQ(RaisedBy([&] { InvokeByName(dial, "Turn", {}); }).Number(), kWrongNumberOfArguments);
  EXPECT_EQ(RaisedBy([&] { InvokeByName(dial, "Turn", three); }).Number(), kWrongNumberOfArguments);
}

TEST(ByName, ListenersGetArgumentsByNameAndHandReferencesBack) {
  Dial dial;
  std::vector<std::string> names;
  SubscribeByName(dial, "Turned", [&](RaisedEvent& raised) {
    for (const ArgumentInfo& argument : raised.info.arguments) {
      names.push_back(argument.name + ":" + argument.type.name + (argument.by_reference ? "&" : ""));
    }
    raised.values[0] = "9";
    raised.values[1] = 1.0f;
  });
  std::int16_t by = 1;
  dial.Turned.Raise(by, Twips(150));
  EXPECT_EQ(by, 9);
  EXPECT_THAT(names, ElementsAre("By:Integer&", "X:Single"));
}

TEST(NearestName, FindsASlipButNoOtherWord) {
  const std::vector<std::string_view> names{"Caption", "BackColor", "ForeColor"};
  EXPECT_EQ(NearestName("caption", names), "Caption");
  EXPECT_EQ(NearestName("BackColour", names), "BackColor");
  EXPECT_EQ(NearestName("Value", names), "");
}

}  // namespace
}  // namespace levelwidgets
