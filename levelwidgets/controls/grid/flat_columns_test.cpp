#include <levelwidgets/controls/grid/flat_columns.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Journal = std::vector<std::string>;

std::string CaptionsOf(const FlatColumns& columns) {
  std::string captions;
  for (const auto& column : columns) captions += column->Caption();
  return captions;
}

class FlatColumnsTest : public ::testing::Test {
 protected:
  FlatColumnsTest() {
    columns_->ColumnAdded += [this] { Note("Added"); };
    columns_->ColumnInfoChanged += [this] { Note("Info"); };
  }

  // The event with the number of columns at its time.
  void Note(const std::string& event) { journal_.push_back(event + std::to_string(columns_->Count())); }
  Journal TakeJournal() { return std::exchange(journal_, {}); }

  // Columns of one letter each, with it as the key.
  void Fill(std::string_view letters) {
    for (const char letter : letters) {
      columns_->Add({letter}, 0, ksxLeft, ksxLeft, ksxEditNone, false, "", std::string(1, letter));
    }
    journal_.clear();
  }

  std::shared_ptr<FlatColumns> columns_ = FlatColumns::Create();
  Journal journal_;
};

TEST_F(FlatColumnsTest, StartsEmpty) {
  EXPECT_EQ(columns_->Count(), 0);
  EXPECT_TRUE(columns_->NewEnum()->AtEnd());
}

TEST_F(FlatColumnsTest, AddStoresEachArgumentUnderItsName) {
  const auto column = columns_->Add("Qty", 900, ksxCenter, ksxRight, ksxEditCalculator, true, "0.00", "key");
  EXPECT_EQ(column->Caption(), "Qty");
  EXPECT_EQ(column->Width(), 900);
  EXPECT_EQ(column->HeaderAlignment(), ksxCenter);
  EXPECT_EQ(column->Alignment(), ksxRight);
  EXPECT_EQ(column->EditType(), ksxEditCalculator);
  EXPECT_TRUE(column->Visible());
  EXPECT_EQ(column->Format(), "0.00");
  ASSERT_NE(column->ValueList(), nullptr);
  EXPECT_EQ(column->ValueList()->Count(), 0);
  EXPECT_EQ(columns_->Item(1), column);
  EXPECT_EQ(columns_->Item("KEY"), column);
}

TEST_F(FlatColumnsTest, AnOmittedArgumentIsZeroOfItsType) {
  const auto column = columns_->Add("Qty");
  EXPECT_EQ(column->Width(), 0);
  EXPECT_EQ(column->HeaderAlignment(), ksxLeft);
  EXPECT_EQ(column->Alignment(), ksxLeft);
  EXPECT_EQ(column->EditType(), ksxEditNone);
  EXPECT_FALSE(column->Visible());
  EXPECT_EQ(column->Format(), "");
}

TEST_F(FlatColumnsTest, AddReportsSixPropertiesBeforeTheColumnIsInsertedThenOneAddition) {
  columns_->Add("Qty");
  EXPECT_THAT(TakeJournal(), ElementsAre("Info0", "Info0", "Info0", "Info0", "Info0", "Info0", "Added1"));
  columns_->Add("Price", 1440, ksxLeft, ksxLeft, ksxEditText, true, "", "", 1);
  EXPECT_THAT(TakeJournal(), ElementsAre("Info1", "Info1", "Info1", "Info1", "Info1", "Info1", "Added2"));
}

TEST_F(FlatColumnsTest, AddInsertsBehindAPositionWithAndWithoutAKey) {
  const struct {
    std::string key;
    std::int32_t insert_after;
    std::string captions;
  } rows[] = {
      {"", 0, "abcx"},  {"", 1, "axbc"},  {"", 2, "abxc"},  {"", 3, "abcx"},
      {"k", 0, "abcx"}, {"k", 1, "axbc"}, {"k", 2, "abxc"}, {"k", 3, "abcx"},
  };
  for (const auto& row : rows) {
    columns_->Clear();
    Fill("abc");
    const auto added =
        columns_->Add("x", 0, ksxLeft, ksxLeft, ksxEditNone, false, "", row.key, row.insert_after);
    EXPECT_EQ(CaptionsOf(*columns_), row.captions);
    if (row.key.empty()) {
      EXPECT_EQ(ErrorOf([&] { columns_->Item("k"); }), 5);
    } else {
      EXPECT_EQ(columns_->Item("K"), added);
    }
  }
}

TEST_F(FlatColumnsTest, AFailedAddLeavesTheColumnsAndRaisesNoAddition) {
  const struct {
    std::string key;
    std::int32_t insert_after;
    std::int32_t error;
  } rows[] = {{"", 4, 9}, {"", -1, 9}, {"k", 4, 9}, {"a", 0, 457}, {"A", 0, 457}, {"c", 1, 457}};
  for (const auto& row : rows) {
    columns_->Clear();
    Fill("abc");
    EXPECT_EQ(ErrorOf([&] {
                columns_->Add("x", 0, ksxLeft, ksxLeft, ksxEditNone, false, "", row.key, row.insert_after);
              }),
              row.error);
    EXPECT_EQ(CaptionsOf(*columns_), "abc");
    EXPECT_THAT(TakeJournal(), ElementsAre("Info3", "Info3", "Info3", "Info3", "Info3", "Info3"));
  }
}

TEST_F(FlatColumnsTest, InsertingIntoAnEmptyCollectionBehindAPositionRaises9) {
  EXPECT_EQ(ErrorOf([&] { columns_->Add("x", 0, ksxLeft, ksxLeft, ksxEditNone, false, "", "", 1); }), 9);
  EXPECT_EQ(columns_->Count(), 0);
}

TEST_F(FlatColumnsTest, ItemAndRemoveTakeAPositionOrAKey) {
  const struct {
    Variant index;
    std::string caption;  // "" when `error` is raised
    std::int32_t error;
    std::string rest;
  } rows[] = {
      {1, "a", 0, "bc"},    {std::int16_t{3}, "c", 0, "ab"},
      {2.0, "b", 0, "ac"},  {"c", "c", 0, "ab"},
      {"B", "b", 0, "ac"},  {0, "", 9, "abc"},
      {4, "", 9, "abc"},    {-1, "", 9, "abc"},
      {"1", "", 5, "abc"},  {"none", "", 5, "abc"},
      {"", "", 5, "abc"},   {Null{}, "", 13, "abc"},
      {1e10, "", 6, "abc"},
  };
  for (const auto& row : rows) {
    columns_->Clear();
    Fill("abc");
    EXPECT_EQ(ErrorOf([&] { EXPECT_EQ(columns_->Item(row.index)->Caption(), row.caption); }), row.error);
    EXPECT_THAT(TakeJournal(), IsEmpty());
    EXPECT_EQ(ErrorOf([&] { columns_->Remove(row.index); }), row.error);
    EXPECT_EQ(CaptionsOf(*columns_), row.rest);
    EXPECT_EQ(TakeJournal(), row.error ? Journal{} : Journal{"Added2"}) << Describe(row.index);
  }
}

TEST_F(FlatColumnsTest, ClearEmptiesTheCollectionAndReportsAnAddition) {
  Fill("ab");
  EXPECT_TRUE(columns_->Clear().IsEmpty());
  EXPECT_EQ(columns_->Count(), 0);
  EXPECT_THAT(TakeJournal(), ElementsAre("Added0"));
  columns_->Clear();
  EXPECT_THAT(TakeJournal(), ElementsAre("Added0")) << "an empty one, too";
  Fill("a");  // the key is free again
  EXPECT_EQ(columns_->Item("a")->Caption(), "a");
}

TEST_F(FlatColumnsTest, ClearReleasesColumnsAndValueListsThatNobodyHolds) {
  Fill("ab");
  const auto held = columns_->Item("a");
  const std::weak_ptr<FlatColumn> column = columns_->Item("b");
  const std::weak_ptr<ksxValueList> list = columns_->Item("b")->ValueList();
  columns_->Clear();
  EXPECT_TRUE(column.expired());
  EXPECT_TRUE(list.expired());
  EXPECT_EQ(held->Caption(), "a");
  EXPECT_NE(held->ValueList(), nullptr);
}

TEST_F(FlatColumnsTest, EnumeratesInTheOrderOfPositions) {
  Fill("abc");
  columns_->Add("x", 0, ksxLeft, ksxLeft, ksxEditNone, false, "", "", 1);
  const auto enumerator = Enumerate(*columns_);
  columns_->Clear();
  std::string captions;
  while (!enumerator->AtEnd()) {
    captions += ToText(GetByName(*std::get<ObjectRef>(enumerator->Next().Get()), "Caption"));
  }
  EXPECT_EQ(captions, "axbc");
}

// --- Columns -----------------------------------------------------------------------------------

TEST_F(FlatColumnsTest, EachAssignmentIsReportedOnceExceptThoseOfTheEditorAndTheList) {
  const auto column = columns_->Add("a");
  const struct {
    const char* property;
    Variant value;
    bool told;
  } rows[] = {
      {"Caption", "b", true},   {"Caption", "b", true},
      {"Width", 900, true},     {"Width", 900, true},
      {"Width", -900, true},    {"Alignment", ksxRight, true},
      {"Alignment", 17, true},  {"HeaderAlignment", ksxCenter, true},
      {"Visible", true, true},  {"Visible", true, true},
      {"Format", "0.0", true},  {"HeaderAlignment", -5, true},
      {"EditType", 4, false},   {"EditType", 99, false},
      {"EditType", -1, false},  {"ValueList", ObjectRef(std::make_shared<ksxValueList>()), false},
      {"ValueList", {}, false},
  };
  TakeJournal();
  for (const auto& row : rows) {
    SetByName(*column, row.property, row.value);
    const Variant now = GetByName(*column, row.property);
    EXPECT_EQ(now, row.value.IsEmpty() ? Variant(ObjectRef()) : row.value) << row.property;
    EXPECT_EQ(TakeJournal(), row.told ? Journal{"Info1"} : Journal{}) << row.property;
  }
}

TEST_F(FlatColumnsTest, TheValueListIsTheColumnsOwnAndCanBeReplaced) {
  Fill("ab");
  const auto column = columns_->Item("a");
  column->ValueList()->Add("kg");
  EXPECT_EQ(columns_->Item("a")->ValueList()->Item(1)->Description(), "kg");
  EXPECT_EQ(columns_->Item("b")->ValueList()->Count(), 0);
  const auto list = std::make_shared<ksxValueList>();
  column->SetValueList(list);
  EXPECT_EQ(columns_->Item("a")->ValueList(), list);
}

TEST_F(FlatColumnsTest, ARemovedColumnStillReportsToTheCollectionItWasAddedTo) {
  Fill("ab");
  const auto removed = columns_->Item("a");
  columns_->Remove("a");
  const auto cleared = columns_->Item("b");
  columns_->Clear();
  TakeJournal();
  removed->SetCaption("still here");
  cleared->SetWidth(1);
  EXPECT_THAT(TakeJournal(), ElementsAre("Info0", "Info0"));
}

TEST_F(FlatColumnsTest, AColumnOutlivesItsCollection) {
  Fill("a");
  const auto column = columns_->Item("a");
  columns_.reset();
  column->SetCaption("still here");
  EXPECT_EQ(column->Caption(), "still here");
  EXPECT_THAT(TakeJournal(), IsEmpty());
  FlatColumn().SetCaption("of no collection");
}

// --- Listeners that do anything ----------------------------------------------------------------

TEST(FlatColumnsListeners, MayLetGoOfTheCollectionAtEachEvent) {
  for (int at = 1; at <= 9; ++at) {
    auto columns = FlatColumns::Create();
    const std::weak_ptr<FlatColumns> alive = columns;
    int events = 0;
    const auto listen = [&] {
      if (++events == at) columns.reset();
    };
    columns->ColumnInfoChanged += listen;
    columns->ColumnAdded += listen;
    const auto column = columns->Add("a");  // events 1 to 7
    ASSERT_NE(column, nullptr);
    if (columns) columns->Remove(1);  // 8
    if (columns) columns->Clear();    // 9
    EXPECT_EQ(events, std::max(at, 7));
    EXPECT_TRUE(alive.expired());
  }
}

TEST(FlatColumnsListeners, MayRemoveTheColumnThatIsAssigned) {
  const auto columns = FlatColumns::Create();
  columns->Add("a");
  columns->ColumnInfoChanged += [&] { columns->Clear(); };
  columns->Item(1)->SetCaption("ends with this assignment");
  EXPECT_EQ(columns->Count(), 0);
}

TEST(FlatColumnsListeners, AnExceptionDuringAddLeavesTheColumnOut) {
  const auto columns = FlatColumns::Create();
  columns->Add("a");
  columns->ColumnInfoChanged += [] { throw Error(kInvalidCall); };
  EXPECT_EQ(ErrorOf([&] { columns->Add("b"); }), 5);
  EXPECT_EQ(CaptionsOf(*columns), "a");
}

TEST(FlatColumnsListeners, AnExceptionAfterAnAdditionLeavesTheColumnIn) {
  const auto columns = FlatColumns::Create();
  columns->ColumnAdded += [] { throw Error(kInvalidCall); };
  EXPECT_EQ(ErrorOf([&] { columns->Add("a"); }), 5);
  EXPECT_EQ(CaptionsOf(*columns), "a");
}

// --- By name -----------------------------------------------------------------------------------

TEST_F(FlatColumnsTest, TheMembersOfColumnsAreUsableByName) {
  std::vector<int> numbers;
  for (const EventInfo& event : FlatColumns::Table().Events()) {
    SubscribeByName(*columns_, event.name,
                    [&](RaisedEvent& raised) { numbers.push_back(raised.info.number); });
  }
  InvokeByName(*columns_, "Add", std::vector<Variant>{"Qty", 900});
  const Variant added = InvokeByName(
      *columns_, "Add", std::vector<Variant>{"Price", 1440, {}, ksxRight, {}, true, {}, "price", 1});
  EXPECT_THAT(numbers, ElementsAre(2, 2, 2, 2, 2, 2, 1, 2, 2, 2, 2, 2, 2, 1));
  EXPECT_EQ(GetIndexedByName(*columns_, "Item", std::vector<Variant>{"PRICE"}), added);
  EXPECT_EQ(GetIndexedByName(*columns_, "Item", std::vector<Variant>{2}), added);
  Object& price = *std::get<ObjectRef>(added.Get());
  EXPECT_EQ(GetByName(price, "Alignment"), Variant(ksxRight));
  EXPECT_EQ(GetByName(price, "Visible"), Variant(true));
  EXPECT_EQ(GetByName(price, "HeaderAlignment"), Variant(ksxLeft));
  InvokeByName(*columns_, "Remove", std::vector<Variant>{"price"});
  EXPECT_EQ(GetByName(*columns_, "Count"), Variant(1));
  InvokeByName(*columns_, "Clear", {});
  EXPECT_EQ(GetByName(*columns_, "Count"), Variant(0));
  EXPECT_EQ(ErrorOf([&] { InvokeByName(*columns_, "Add", {}); }), kWrongNumberOfArguments);
  EXPECT_EQ(ErrorOf([&] { SetByName(price, "ValueList", Variant(ObjectRef(columns_))); }), kTypeMismatch);
}

TEST(FlatColumnsTable, HasTheMembersThatUsersKnow) {
  const ClassInfo& info = FlatColumns::Table();
  EXPECT_THAT(info.MemberNames(), ElementsAre("Item", "Count", "NewEnum", "Add", "Clear", "Remove",
                                              "ColumnAdded", "ColumnInfoChanged"));
  EXPECT_EQ(info.EnumeratorMember(), "NewEnum");
  EXPECT_FALSE(info.Creatable());
  std::vector<std::string> arguments;
  for (const ArgumentInfo& argument : info.FindMethod("Add")->arguments) {
    arguments.push_back(std::string(argument.name) + (argument.default_value ? "?" : ""));
  }
  EXPECT_THAT(arguments, ElementsAre("Caption", "Width?", "HeaderAlignment?", "Alignment?", "EditType?",
                                     "Visible?", "Format?", "sKey?", "InsertAfterIndex?"));
  EXPECT_THAT(FlatColumn::Table().MemberNames(),
              ElementsAre("ValueList", "EditType", "Format", "Visible", "Alignment", "HeaderAlignment",
                          "Width", "Caption"));
}

TEST(FlatColumnsTable, NamesTheEditors) {
  const EnumerationInfo& editors = kEnumerationOf<ksxEditTypeConstants>;
  EXPECT_EQ(editors.name, "ksxEditTypeConstants");
  const std::pair<const char*, std::int32_t> rows[] = {{"ksxEditNone", 0},
                                                       {"ksxEditText", 1},
                                                       {"ksxEditCalculator", 2},
                                                       {"ksxEditCalendar", 3},
                                                       {"ksxEditDropDown", 4}};
  ASSERT_EQ(editors.items.size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(editors.items[i].name, rows[i].first);
    EXPECT_EQ(editors.items[i].value, rows[i].second);
  }
}

}  // namespace
}  // namespace levelwidgets
