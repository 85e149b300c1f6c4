#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/controls/grid/flat_columns.h>
#include <levelwidgets/frame/persistence.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// "name=value" of each entry, with the type of the value.
std::vector<std::string> EntriesOf(const PropertyBag& bag) {
  std::vector<std::string> entries;
  for (const auto& entry : bag.Entries()) {
    entries.push_back(entry.name + "=" + Describe(entry.value) + ":" +
                      std::string(NameOf(entry.value.Type())));
  }
  return entries;
}

PropertyBag Saved(const FlatColumns& columns) {
  PropertyBag bag;
  WriteItems(columns, bag);
  return bag;
}

std::shared_ptr<FlatColumns> Loaded(const PropertyBag& bag) {
  auto columns = FlatColumns::Create();
  ReadItems(columns, bag);
  return columns;
}

PropertyBag BagOf(const std::vector<std::pair<std::string, Variant>>& entries) {
  PropertyBag bag;
  for (const auto& [name, value] : entries) bag.WriteProperty(name, value, Variant());
  return bag;
}

// A column of which everything is saved.
std::shared_ptr<FlatColumn> AddFull(FlatColumns& columns, const std::string& caption) {
  return columns.Add(caption, 900, ksxCenter, ksxRight, ksxEditCalculator, false, "0.00", "key" + caption);
}

TEST(FlatColumnsPersistence, NoColumnsAreNotSaved) {
  const auto columns = FlatColumns::Create();
  EXPECT_THAT(EntriesOf(Saved(*columns)), IsEmpty());
  EXPECT_EQ(Loaded(PropertyBag())->Count(), 0);
}

TEST(FlatColumnsPersistence, EachFieldHasAKeyOfItsOwnAndIsSavedAsItsType) {
  const auto columns = FlatColumns::Create();
  AddFull(*columns, "Qty");
  columns->Add("Price", 1440, ksxRight, ksxLeft, ksxEditText, true);
  EXPECT_THAT(EntriesOf(Saved(*columns)),
              ElementsAre("ColumnCount=2:Integer", "Column1Caption=\"Qty\":String",
                          "Column1Width=900:Integer", "Column1Alignment=1:Integer",
                          "Column1HeaderAlignment=2:Integer", "Column1EditType=2:Integer",
                          "Column1Visible=False:Boolean", "Column1Format=\"0.00\":String",
                          "Column2Caption=\"Price\":String", "Column2EditType=1:Integer"));
}

TEST(FlatColumnsPersistence, PositionsAreWrittenWithoutPadding) {
  const auto columns = FlatColumns::Create();
  for (int i = 0; i < 12; ++i) columns->Add("c");
  const PropertyBag bag = Saved(*columns);
  EXPECT_NE(bag.Find("Column9Caption"), nullptr);
  EXPECT_NE(bag.Find("Column12Caption"), nullptr);
  EXPECT_EQ(bag.Find("Column09Caption"), nullptr);
}

// What a value becomes by saving and loading.
TEST(FlatColumnsPersistence, ValuesComeBackExceptThoseThatTheDefaultsChange) {
  const struct {
    const char* property;
    Variant value;
    bool saved;
    Variant loaded;
  } rows[] = {
      {"Caption", "", false, ""},       {"Caption", "Qty", true, "Qty"},
      {"Width", 1440, false, 1440},     {"Width", 0, true, 0},
      {"Width", -900, true, -900},      {"Width", 32767, true, 32767},
      {"Alignment", 0, false, 0},       {"Alignment", 1, true, 1},
      {"Alignment", 2, true, 2},        {"HeaderAlignment", 0, true, 0},
      {"HeaderAlignment", 1, false, 2},  // right comes back centred
      {"HeaderAlignment", 2, true, 2},  {"EditType", 0, true, 0},
      {"EditType", 1, true, 1},         {"EditType", 4, true, 4},
      {"EditType", -1, false, 1},  // no editor, and equal to the true that is not saved
      {"Visible", true, false, true},   {"Visible", false, true, false},
      {"Format", "", false, ""},        {"Format", "0.00", true, "0.00"},
  };
  for (const auto& row : rows) {
    const auto columns = FlatColumns::Create();
    SetByName(*columns->Add("x"), row.property, row.value);
    const PropertyBag bag = Saved(*columns);
    EXPECT_EQ(bag.Find(std::string("Column1") + row.property) != nullptr, row.saved)
        << row.property << " " << Describe(row.value);
    EXPECT_EQ(GetByName(*Loaded(bag)->Item(1), row.property), row.loaded)
        << row.property << " " << Describe(row.value);
  }
}

TEST(FlatColumnsPersistence, AColumnWithoutSavedValuesTakesTheDefaultsOfReading) {
  const auto columns = Loaded(BagOf({{"ColumnCount", 1}}));
  ASSERT_EQ(columns->Count(), 1);
  const auto column = columns->Item(1);
  EXPECT_EQ(column->Caption(), "");
  EXPECT_EQ(column->Width(), 1440);
  EXPECT_EQ(column->Alignment(), ksxLeft);
  EXPECT_EQ(column->HeaderAlignment(), ksxCenter);
  EXPECT_EQ(column->EditType(), ksxEditText);
  EXPECT_TRUE(column->Visible());
  EXPECT_EQ(column->Format(), "");
}

TEST(FlatColumnsPersistence, LoadingAddsColumnByColumnWithoutKeysAndValueLists) {
  const auto columns = FlatColumns::Create();
  AddFull(*columns, "a")->ValueList()->Add("kg");
  AddFull(*columns, "b");
  const auto loaded = FlatColumns::Create();
  std::string events;
  loaded->ColumnInfoChanged += [&] { events += 'i'; };
  loaded->ColumnAdded += [&] { events += 'A'; };
  ReadItems(loaded, Saved(*columns));
  EXPECT_EQ(events, "iiiiiiAiiiiiiA");
  EXPECT_EQ(loaded->Item(1)->Caption(), "a");
  EXPECT_EQ(loaded->Item(2)->Caption(), "b");
  EXPECT_EQ(loaded->Item(1)->ValueList()->Count(), 0);
  EXPECT_EQ(ErrorOf([&] { loaded->Item("keya"); }), 5);
}

TEST(FlatColumnsPersistence, EntriesBeyondTheCountAreNotRead) {
  EXPECT_EQ(Loaded(BagOf({{"ColumnCount", 1}, {"Column2Caption", "b"}}))->Count(), 1);
  EXPECT_EQ(Loaded(BagOf({{"Column1Caption", "a"}}))->Count(), 0);
  EXPECT_EQ(Loaded(BagOf({{"ColumnCount", -1}}))->Count(), 0);
}

TEST(FlatColumnsPersistence, ASavedValueOfTheWrongTypeIsRefusedByItsKey) {
  const std::tuple<std::string, Variant, std::int32_t> rows[] = {
      {"ColumnCount", "many", 13},      {"ColumnCount", 40000, 6},
      {"Column1Width", "wide", 13},     {"Column1Width", 40000, 6},
      {"Column1Alignment", Null{}, 13}, {"Column1HeaderAlignment", "x", 13},
      {"Column1EditType", 1e9, 6},      {"Column1Visible", "maybe", 13},
      {"Column1Caption", Null{}, 13},   {"Column1Format", ObjectRef(), 13},
  };
  for (const auto& [key, value, error] : rows) {
    PropertyBag bag = BagOf({{"ColumnCount", 1}});
    bag.WriteProperty(key, value, Variant());
    try {
      Loaded(bag);
      ADD_FAILURE() << "took " << key;
    } catch (const PropertyRefused& refused) {
      EXPECT_EQ(refused.Property(), key);
      EXPECT_EQ(refused.Number(), error) << key;
    }
  }
}

TEST(FlatColumnsPersistence, AWidthOfMoreThan16BitsIsNotSaved) {
  const auto columns = FlatColumns::Create();
  columns->Add("a", 32768);
  EXPECT_EQ(ErrorOf([&] { Saved(*columns); }), kOverflow);
}

TEST(FlatColumnsPersistence, SavingNotifiesNobody) {
  const auto columns = FlatColumns::Create();
  AddFull(*columns, "a");
  int events = 0;
  columns->ColumnInfoChanged += [&] { ++events; };
  columns->ColumnAdded += [&] { ++events; };
  Saved(*columns);
  EXPECT_EQ(events, 0);
}

}  // namespace
}  // namespace levelwidgets
