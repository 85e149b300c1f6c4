#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/control.h>
#include <levelwidgets/testing/driver.h>

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
  using Row = table::Row<Dial>;
  static constexpr Literal kTurnDefaults[] = {false};
  static constexpr auto data = ClassTable(
      ObjectClass("Dial", "Something to turn."),
      table::Properties(Row::Property<&Dial::Steps, &Dial::SetSteps>(
                            1, "Steps", {.when_new = 0, .when_read = 1, .when_written = 2}, "How many."),
                        Row::Property<&Dial::Side, &Dial::SetSide>(2, "Side", kNoDefault, ""),
                        Row::Property<&Dial::Title, &Dial::SetTitle>(3, "Title", kNoDefault, ""),
                        Row::Property<&Dial::Ink, &Dial::SetInk>(4, "Ink", kNoDefault, ""),
                        Row::ReadOnly<&Dial::Locked>(5, "Locked", "Always.")),
      table::Persisted("Title", "Steps"),
      table::Methods(Row::Method<&Dial::Turn>(6, "Turn", "By, Wrap", "Turns it.", kTurnDefaults)),
      table::Events(Row::Event<&Dial::Turned>(1, "Turned", "By, X", "It was turned.")));
  static constexpr ClassInfo info(data);
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
  EXPECT_EQ(info.FindProperty("Steps")->type.Name(), "Integer");
  EXPECT_EQ(info.FindProperty("Side")->type.Name(), "ksxAlignmentConstants");
  EXPECT_EQ(info.FindProperty("Ink")->type.Name(), "Color");
  EXPECT_TRUE(info.FindProperty("Locked")->ReadOnly());
  EXPECT_EQ(info.FindProperty("Steps")->defaults.when_written.Value(), Variant(2));
  ASSERT_EQ(info.Persisted().size(), 2u);
  EXPECT_EQ(info.Persisted()[0], info.FindProperty("Title"));
  EXPECT_EQ(info.Persisted()[1], info.FindProperty("Steps"));
  ASSERT_EQ(info.Enumerations().size(), 1u);
  EXPECT_EQ(info.Enumerations()[0]->items[2].name, "ksxCenter");
}

ConversionApi& Platforms() {
  static const auto driver = testing::TestDriver();
  return driver->GetPlatform().Conversions();
}

TEST(ByName, WithoutConversionsATextIsNoNumberAndANumberNoText) {
  Dial dial;
  EXPECT_EQ(RaisedBy([&] { SetByName(dial, "Steps", "7"); }).Number(), kTypeMismatch);
  EXPECT_EQ(RaisedBy([&] { SetByName(dial, "Title", 12); }).Number(), kTypeMismatch);
  EXPECT_EQ(RaisedBy([&] { InvokeByName(dial, "Turn", std::vector<Variant>{"4"}); }).Number(), kTypeMismatch);
}

TEST(ByName, ReadsAndWritesWithConversionToThePropertysType) {
  Dial dial;
  SetByName(dial, "Steps", "7", Platforms());
  EXPECT_EQ(dial.Steps(), 7);
  SetByName(dial, "Side", 2.0);
  EXPECT_EQ(dial.Side(), ksxCenter);
  SetByName(dial, "Title", 12, Platforms());
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
  EXPECT_EQ(InvokeByName(dial, "Turn", one, Platforms()), Variant(4));
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
      names.push_back(std::string(argument.name) + ":" + std::string(argument.type.Name()) +
                      (argument.by_reference ? "&" : ""));
    }
    raised.values[0] = 9.0;
    raised.values[1] = 1.0f;
  });
  std::int16_t by = 1;
  dial.Turned.Raise(by, Twips(150));
  EXPECT_EQ(by, 9);
  EXPECT_THAT(names, ElementsAre("By:Integer&", "X:Single"));
}

// --- Indexed properties ----------------------------------------------------------------------------------

class Board : public Object {
 public:
  static const ClassInfo& Table();
  const ClassInfo& Class() const override { return Table(); }

  std::int16_t Rows() const { return static_cast<std::int16_t>(titles_.size()); }
  const std::string& Title(std::int16_t row) const { return titles_.at(Checked(row)); }
  void SetTitle(std::int16_t row, std::string title) { titles_.at(Checked(row)) = std::move(title); }
  std::int32_t Cell(std::int16_t row, std::int16_t column) const { return row * 100 + column + added_; }
  void SetCell(std::int16_t row, std::int16_t column, std::int32_t value) {
    added_ = value - row * 100 - column;
  }
  double Size(std::int16_t axis) const { return axis; }

 private:
  std::size_t Checked(std::int16_t row) const {
    if (row < 1 || row > Rows()) throw Error(kSubscriptOutOfRange);
    return static_cast<std::size_t>(row) - 1;
  }
  std::vector<std::string> titles_{"one", "two"};
  std::int32_t added_ = 0;
};

const ClassInfo& Board::Table() {
  using Row = table::Row<Board>;
  static constexpr auto data = ClassTable(
      ObjectClass("Board", "Cells."),
      table::Properties(Row::ReadOnly<&Board::Rows>(1, "Rows", "How many."),
                        Row::Indexed<&Board::Title, &Board::SetTitle, &Board::Rows>(
                            2, "Title", "Row", "",
                            {.default_at = [](std::int32_t row) { return Literal(row == 1 ? "first" : ""); },
                             .flags = MemberFlags::kDefault}),
                        Row::Indexed<&Board::Cell, &Board::SetCell>(3, "Cell", "Row, Column", ""),
                        Row::IndexedReadOnly<&Board::Size>(4, "Size", "Axis", "How large.")),
      table::Persisted("Title"));
  static constexpr ClassInfo info(data);
  return info;
}

TEST(IndexedProperties, HaveIndicesAndDefaultsAndMayBeTheDefaultMember) {
  const PropertyInfo& cell = *Board::Table().FindProperty("Cell");
  ASSERT_EQ(cell.indices.size(), 2u);
  EXPECT_EQ(cell.indices[1].name, "Column");
  EXPECT_EQ(cell.indices[1].type.Name(), "Integer");
  EXPECT_TRUE(cell.Indexed());
  EXPECT_FALSE(cell.ReadOnly());
  EXPECT_TRUE(Board::Table().FindProperty("Size")->ReadOnly());
  EXPECT_FALSE(Board::Table().FindProperty("Rows")->Indexed());
  EXPECT_EQ(Board::Table().FindProperty("Title")->defaults.when_new.Value(), Variant("first"));
  EXPECT_EQ(Board::Table().DefaultMember(), "Title");
  EXPECT_EQ(Dial::Table().DefaultMember(), "");
}

TEST(IndexedProperties, AreReadAndWrittenByNameWithConversion) {
  Board board;
  SetIndexedByName(board, "Title", std::vector<Variant>{"2"}, 17, Platforms());
  EXPECT_EQ(board.Title(2), "17");
  EXPECT_EQ(GetIndexedByName(board, "Title", std::vector<Variant>{2.0}), Variant("17"));
  SetIndexedByName(board, "Cell", std::vector<Variant>{1, 2}, "110", Platforms());
  EXPECT_EQ(GetIndexedByName(board, "Cell", std::vector<Variant>{1, 5}), Variant(113));
  EXPECT_EQ(GetIndexedByName(board, "Size", std::vector<Variant>{1}), Variant(1.0));
  EXPECT_EQ(GetIndexedByName(board, "Rows", {}), Variant(2)) << "no index for none";
}

TEST(IndexedProperties, RefuseWrongValuesAndWrongIndices) {
  Board board;
  const std::vector<Variant> one{1}, two{1, 2}, word{"x"}, large{40000};
  EXPECT_EQ(RaisedBy([&] { GetIndexedByName(board, "Titel", one); }).Description(),
            "Board has no member \"Titel\"; did you mean \"Title\"?");
  EXPECT_EQ(RaisedBy([&] { SetIndexedByName(board, "Size", one, 1); }).Description(),
            "Board.Size is read-only");
  EXPECT_EQ(RaisedBy([&] { GetIndexedByName(board, "Cell", word); }).Description(),
            "Board.Cell takes 2 indices, not 1");
  EXPECT_EQ(RaisedBy([&] { GetIndexedByName(board, "Rows", one); }).Number(), kWrongNumberOfArguments);
  EXPECT_EQ(RaisedBy([&] { SetIndexedByName(board, "Title", two, "x"); }).Number(), kWrongNumberOfArguments);
  EXPECT_EQ(RaisedBy([&] { GetIndexedByName(board, "Title", word); }).Description(),
            "Board.Title's Row is of type Integer; \"x\" does not convert to it: Type mismatch");
  EXPECT_EQ(RaisedBy([&] { GetIndexedByName(board, "Title", large); }).Number(), kOverflow);
  EXPECT_EQ(RaisedBy([&] { SetIndexedByName(board, "Cell", two, "x"); }).Description(),
            "Board.Cell is of type Long; \"x\" does not convert to it: Type mismatch");
  EXPECT_EQ(RaisedBy([&] { GetIndexedByName(board, "Title", std::vector<Variant>{3}); }).Number(),
            kSubscriptOutOfRange)
      << "what the member raises passes through";
}

TEST(IndexedProperties, NeedTheirIndices) {
  Board board;
  const Error error = RaisedBy([&] { GetByName(board, "Cell"); });
  EXPECT_EQ(error.Number(), kWrongNumberOfArguments);
  EXPECT_EQ(error.Source(), "LevelWidgets.Board");
  EXPECT_EQ(error.Description(), "Board.Cell needs its indices: Row, Column");
  EXPECT_EQ(RaisedBy([&] { SetByName(board, "Title", "x"); }).Description(),
            "Board.Title needs its indices: Row");
  EXPECT_EQ(RaisedBy([&] { SetByName(board, "Size", 1); }).Number(), kPropertyIsReadOnly);
}

TEST(IndexedProperties, AreSavedUnderTheirNameAndTheIndex) {
  const ClassInfo& info = Board::Table();
  EXPECT_EQ(info.FindProperty("Title")->KeyOf(12), "Title12");
  EXPECT_EQ(info.FindPersisted("Title12").property, info.FindProperty("Title"));
  EXPECT_EQ(info.FindPersisted("Title12").index, 12);
  for (const char* key :
       {"Title", "Title0", "Title01", "Title-1", "Title1x", "Title1234567890", "Cell1", ""}) {
    EXPECT_FALSE(info.FindPersisted(key).property) << key;
  }
  EXPECT_EQ(Dial::Table().FindPersisted("Steps").property, Dial::Table().FindProperty("Steps"));
  EXPECT_FALSE(Dial::Table().FindPersisted("Steps1").property);
}

TEST(ClassTable, RefusesToPersistAPropertyOfTwoIndicesOrWithoutACount) {
  using Row = table::Row<Board>;
  const auto persisting = [](const PropertyInfo& row) {
    return
        [row] { ClassTable(ObjectClass("Board", ""), table::Properties(row), table::Persisted(row.name)); };
  };
  const PropertyInfo counted =
      Row::Indexed<&Board::Title, &Board::SetTitle, &Board::Rows>(1, "Title", "Row", "");
  EXPECT_NO_THROW(persisting(counted)());
  EXPECT_THROW(persisting(Row::Indexed<&Board::Title, &Board::SetTitle>(1, "Title", "Row", ""))(),
               std::logic_error);
  EXPECT_THROW(
      persisting(Row::Indexed<&Board::Cell, &Board::SetCell, &Board::Rows>(1, "Cell", "Row, Column", ""))(),
      std::logic_error);
}

TEST(ClassTable, RefusesInvalidTables) {
  using Row = table::Row<Dial>;
  const ClassHead head = ObjectClass("Dial", "");
  const PropertyInfo first = Row::ReadOnly<&Dial::Locked>(1, "Locked", "");
  const PropertyInfo second = Row::ReadOnly<&Dial::Title>(2, "Title", "");
  const MethodInfo method = Row::Method<&Dial::Turn>(3, "Turn", "By, Wrap", "");
  EXPECT_NO_THROW(
      ClassTable(head, table::Properties(first, second), table::Persisted(), table::Methods(method)));
  PropertyInfo changed = second;
  changed.number = 1;
  EXPECT_THROW(ClassTable(head, table::Properties(first, changed)), std::logic_error) << "a number twice";
  changed.number = 3;
  EXPECT_THROW(ClassTable(head, table::Properties(changed), table::Persisted(), table::Methods(method)),
               std::logic_error)
      << "the number of a method";
  changed.number = 0;
  EXPECT_THROW(ClassTable(head, table::Properties(changed)), std::logic_error) << "no number";
  changed = second;
  changed.name = "Locked";
  EXPECT_THROW(ClassTable(head, table::Properties(first, changed)), std::logic_error) << "a name twice";
  EXPECT_THROW(ClassTable(head, table::Properties(first), table::Persisted("Title")), std::logic_error)
      << "persisted, and not there";
  EXPECT_THROW(Row::Method<&Dial::Turn>(3, "Turn", "By", ""), std::logic_error) << "too few names";
  EXPECT_THROW(Row::Method<&Dial::Turn>(3, "Turn", "", ""), std::logic_error) << "no names";
  EXPECT_THROW(Row::Event<&Dial::Turned>(1, "Turned", "By, X, Y", ""), std::logic_error) << "too many names";
}

TEST(NearestName, FindsAMisspeltNameAndNoOtherWord) {
  const std::vector<std::string_view> names{"Caption", "BackColor", "ForeColor"};
  EXPECT_EQ(NearestName("caption", names), "Caption");
  EXPECT_EQ(NearestName("BackColour", names), "BackColor");
  EXPECT_EQ(NearestName("Value", names), "");
}

TEST(NearestName, IsNeverTheNameItselfNorAnUnlikeShortOne) {
  const std::vector<std::string_view> names{"on", "Add", "Load", "Click"};
  EXPECT_EQ(NearestName("on", names), "");
  EXPECT_EQ(NearestName("On", names), "on");
  EXPECT_EQ(NearestName("x", names), "");
  EXPECT_EQ(NearestName("of", names), "");
  EXPECT_EQ(NearestName("Lod", names), "Load");
  EXPECT_EQ(NearestName("no", names), "");
  EXPECT_EQ(NearestName("dAd", names), "Add") << "two neighbours swapped";
  EXPECT_EQ(NearestName("Odd", names), "Add");
  EXPECT_EQ(NearestName("Oxd", names), "");
  EXPECT_EQ(NearestName("Clcik", names), "Click");
  // Of a long name every third letter may be another.
  const std::vector<std::string_view> long_names{"BackColorMouseOver"};
  EXPECT_EQ(NearestName("BakColrMusOver", long_names), "BackColorMouseOver");
  EXPECT_EQ(NearestName("BakColrMusOvr", long_names), "");
}

TEST(NearestName, IsTheFirstOfThoseThatAreAsNear) {
  const std::vector<std::string_view> names{"Caption", "Captions", "Captioned"};
  EXPECT_EQ(NearestName("Captionx", names), "Caption");
}

}  // namespace
}  // namespace levelwidgets
