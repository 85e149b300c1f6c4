#include <levelwidgets/controls/dropdown/ksx_value_list.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> TextsOf(const ksxValueList& list) {
  std::vector<std::string> texts;
  for (const auto& item : list) texts.push_back(item->Description());
  return texts;
}

void Fill(ksxValueList& list, std::initializer_list<const char*> texts) {
  for (const char* text : texts) list.Add(text);
}

TEST(ksxValueList, StartsEmptyAndEnumeratesNothing) {
  const ksxValueList list;
  EXPECT_EQ(list.Count(), 0);
  EXPECT_TRUE(list.NewEnum()->AtEnd());
  EXPECT_EQ(ksxValueListItem().Description(), "");
}

TEST(ksxValueList, AddAppendsAndReturnsTheItem) {
  ksxValueList list;
  Fill(list, {"kg", "", "kg"});
  EXPECT_EQ(list.Add("m")->Description(), "m");
  EXPECT_THAT(TextsOf(list), ElementsAre("kg", "", "kg", "m"));
  EXPECT_EQ(list.Count(), 4);
  EXPECT_EQ(list.Item(4)->Description(), "m");
}

TEST(ksxValueList, ItemIsTheStoredObject) {
  ksxValueList list;
  const auto added = list.Add("kg");
  EXPECT_EQ(list.Item(1), added);
  list.Item(1)->SetDescription("kilogram");
  EXPECT_EQ(added->Description(), "kilogram");
  EXPECT_THAT(TextsOf(list), ElementsAre("kilogram"));
}

TEST(ksxValueList, RemoveMovesLaterItemsUp) {
  ksxValueList list;
  Fill(list, {"a", "b", "c"});
  list.Remove(1);
  EXPECT_EQ(list.Item(1)->Description(), "b");
  EXPECT_EQ(list.Count(), 2);
  list.Remove(2);
  EXPECT_THAT(TextsOf(list), ElementsAre("b"));
}

TEST(ksxValueList, APositionOutsideTheListRaises9AndChangesNothing) {
  ksxValueList list;
  Fill(list, {"a", "b"});
  for (const std::int32_t index : {0, 3, -1, std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(ErrorOf([&] { list.Item(index); }), 9) << index;
    EXPECT_EQ(ErrorOf([&] { list.Remove(index); }), 9) << index;
  }
  EXPECT_THAT(TextsOf(list), ElementsAre("a", "b"));
}

TEST(ksxValueList, AnItemSurvivesClearAndTheList) {
  auto list = std::make_unique<ksxValueList>();
  const auto item = list->Add("kg");
  const std::weak_ptr<ksxValueListItem> unheld = list->Add("m");
  list->Clear();
  EXPECT_EQ(list->Count(), 0);
  EXPECT_TRUE(unheld.expired());
  list->Add("new");
  item->SetDescription("still here");
  EXPECT_THAT(TextsOf(*list), ElementsAre("new"));
  list.reset();
  EXPECT_EQ(item->Description(), "still here");
}

TEST(ksxValueList, EnumeratesTheItemsInOrder) {
  ksxValueList list;
  Fill(list, {"a", "b"});
  const auto enumerator = list.NewEnum();
  list.Clear();  // what was asked for stays
  std::vector<Variant> texts;
  while (!enumerator->AtEnd()) {
    texts.push_back(GetByName(*std::get<ObjectRef>(enumerator->Next().Get()), "Description"));
  }
  EXPECT_THAT(texts, ElementsAre(Variant("a"), Variant("b")));
}

TEST(ksxValueList, IsUsableByName) {
  const ObjectRef list = ksxValueList::Table().CreateObject();
  InvokeByName(*list, "Add", std::vector<Variant>{"kg"});
  const Variant added = InvokeByName(*list, "Add", std::vector<Variant>{"12"});
  EXPECT_EQ(GetByName(*list, "Count"), Variant(2));
  const std::string_view item = list->Class().DefaultMember();
  EXPECT_EQ(GetIndexedByName(*list, item, std::vector<Variant>{2}), added);
  Object& object = *std::get<ObjectRef>(added.Get());
  EXPECT_EQ(GetByName(object, "Description"), Variant("12"));
  SetByName(object, "Description", "m");
  EXPECT_FALSE(Enumerate(*list)->AtEnd());
  InvokeByName(*list, "Remove", std::vector<Variant>{1});
  EXPECT_THAT(TextsOf(static_cast<const ksxValueList&>(*list)), ElementsAre("m"));
  InvokeByName(*list, "Clear", {});
  EXPECT_EQ(GetByName(*list, "Count"), Variant(0));
  EXPECT_EQ(ErrorOf([&] { SetByName(*list, "Count", 1); }), kPropertyIsReadOnly);
}

TEST(ksxValueList, HasTheMembersThatUsersKnow) {
  const ClassInfo& info = ksxValueList::Table();
  EXPECT_THAT(info.MemberNames(), ElementsAre("Item", "Count", "NewEnum", "Add", "Remove", "Clear"));
  EXPECT_EQ(info.DefaultMember(), "Item");
  EXPECT_EQ(info.EnumeratorMember(), "NewEnum");
  EXPECT_EQ(info.FindProperty("Item")->type.Name(), "ksxValueListItem");
  EXPECT_TRUE(info.FindProperty("Item")->ReadOnly());
  EXPECT_THAT(ksxValueListItem::Table().MemberNames(), ElementsAre("Description"));
  EXPECT_TRUE(ksxValueListItem::Table().Creatable());
}

}  // namespace
}  // namespace levelwidgets
