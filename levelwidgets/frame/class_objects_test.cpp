// Objects as values of members, collections, and classes that users make objects of.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Leaf : public Object {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data = ClassTable(CreatableClass<Leaf>("Leaf", ""), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  const ClassInfo& Class() const override { return Table(); }
};

class Tree : public Object {
 public:
  static const ClassInfo& Table();
  const ClassInfo& Class() const override { return Table(); }

  std::shared_ptr<Leaf> Top() const { return top_; }
  void SetTop(std::shared_ptr<Leaf> leaf) { top_ = std::move(leaf); }
  ObjectRef Any() const { return any_; }
  void SetAny(ObjectRef any) { any_ = std::move(any); }
  std::shared_ptr<Leaf> Grow(std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) leaves_.push_back(std::make_shared<Leaf>());
    return leaves_.empty() ? nullptr : leaves_.back();
  }
  std::shared_ptr<Leaf> Item(std::int32_t index) const { return leaves_.at(static_cast<std::size_t>(index)); }
  std::shared_ptr<Enumerator> NewEnum() const { return Enumerator::Of(leaves_); }

 private:
  std::shared_ptr<Leaf> top_;
  ObjectRef any_;
  std::vector<std::shared_ptr<Leaf>> leaves_;
};

const ClassInfo& Tree::Table() {
  using Row = table::Row<Tree>;
  static constexpr Literal kGrowDefaults[] = {1};
  static constexpr auto data = ClassTable(
      ObjectClass("Tree", ""),
      table::Properties(Row::Property<&Tree::Top, &Tree::SetTop>(1, "Top", kNoDefault, ""),
                        Row::Property<&Tree::Any, &Tree::SetAny>(2, "Any", kNoDefault, ""),
                        Row::IndexedReadOnly<&Tree::Item>(3, "Item", "Index", ""),
                        Row::Enumerated<&Tree::NewEnum>(4, "NewEnum", "")),
      table::Persisted(), table::Methods(Row::Method<&Tree::Grow>(5, "Grow", "Count", "", kGrowDefaults)));
  static constexpr ClassInfo info(data);
  return info;
}

Variant Boxed(const ObjectRef& object) { return Variant(object); }

TEST(ObjectMembers, AreNamedByTheirClass) {
  const ClassInfo& info = Tree::Table();
  EXPECT_EQ(info.FindProperty("Top")->type.Name(), "Leaf");
  EXPECT_EQ(info.FindProperty("Top")->type.type, VariantType::kObject);
  EXPECT_EQ(info.FindProperty("Any")->type.Name(), "Object");
  EXPECT_EQ(info.FindProperty("NewEnum")->type.Name(), "Enumerator");
  EXPECT_EQ(info.FindMethod("Grow")->result.Name(), "Leaf");
  EXPECT_EQ(Enumerator::Table().FindMethod("Reset")->result.Name(), "");
}

TEST(ObjectMembers, HoldTheObjectItself) {
  Tree tree;
  EXPECT_EQ(GetByName(tree, "Top"), Boxed(nullptr));
  const auto leaf = std::make_shared<Leaf>();
  SetByName(tree, "Top", Boxed(leaf));
  EXPECT_EQ(tree.Top(), leaf);
  EXPECT_EQ(GetByName(tree, "Top"), Boxed(leaf));
  SetByName(tree, "Any", Boxed(leaf));
  EXPECT_EQ(tree.Any(), leaf);
  SetByName(tree, "Top", Variant());
  EXPECT_EQ(tree.Top(), nullptr);
}

TEST(ObjectMembers, AnErrorQuotesTheBeginningOfALongTextInWholeCharacters) {
  const auto error_of = [](const std::string& text) {
    Tree tree;
    try {
      SetByName(tree, "Top", Variant(text));
    } catch (const Error& error) {
      return error.Description();
    }
    return std::string();
  };
  const auto message = [](const std::string& quoted) {
    return "Tree.Top is of type Leaf; " + quoted + " does not convert to it: Type mismatch";
  };
  const std::string most(198, 'x');
  EXPECT_EQ(error_of(most), message('"' + most + '"'));
  EXPECT_EQ(error_of(most + "xx"), message('"' + most + "x..."));
  EXPECT_EQ(error_of(most + "\xC3\xA9"), message('"' + most + "..."));
  EXPECT_EQ(error_of(std::string(16 << 20, 'x')), message('"' + most + "x..."));
}

TEST(ObjectMembers, RefuseObjectsOfOtherClassesAndOtherValues) {
  Tree tree;
  const auto leaf = std::make_shared<Leaf>();
  tree.SetTop(leaf);
  for (const Variant& value : {Boxed(std::make_shared<Tree>()), Variant(1), Variant("x"), Variant(Null{})}) {
    try {
      SetByName(tree, "Top", value);
      ADD_FAILURE() << "took " << Describe(value);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kTypeMismatch);
      EXPECT_EQ(error.Description(),
                "Tree.Top is of type Leaf; " + Describe(value) + " does not convert to it: Type mismatch");
    }
  }
  EXPECT_EQ(tree.Top(), leaf);
}

TEST(ObjectMembers, AreResultsOfMethodsAndIndexedProperties) {
  Tree tree;
  const Variant grown = InvokeByName(tree, "Grow", std::vector<Variant>{2});
  EXPECT_EQ(grown, Boxed(tree.Item(1)));
  EXPECT_EQ(GetIndexedByName(tree, "Item", std::vector<Variant>{0}), Boxed(tree.Item(0)));
  InvokeByName(tree, "Grow", {});  // one by default
  EXPECT_NE(tree.Item(2), nullptr);
}

std::vector<Variant> ItemsOf(Enumerator& enumerator) {
  std::vector<Variant> items;
  while (!enumerator.AtEnd()) items.push_back(enumerator.Next());
  return items;
}

TEST(Enumerate, HandsOutTheItemsInOrder) {
  Tree tree;
  EXPECT_THAT(ItemsOf(*Enumerate(tree)), IsEmpty());
  tree.Grow(2);
  const auto enumerator = Enumerate(tree);
  EXPECT_THAT(ItemsOf(*enumerator), ElementsAre(Boxed(tree.Item(0)), Boxed(tree.Item(1))));
  EXPECT_EQ(enumerator->Next(), Variant());
  enumerator->Reset();
  EXPECT_EQ(enumerator->Next(), Boxed(tree.Item(0)));
}

TEST(Enumerate, IsNotDisturbedByChangesMeanwhile) {
  Tree tree;
  const auto first = tree.Grow(1);
  const auto enumerator = Enumerate(tree);
  tree.Grow(3);
  EXPECT_THAT(ItemsOf(*enumerator), ElementsAre(Boxed(first)));
}

TEST(Enumerate, WorksByNameToo) {
  Tree tree;
  const auto leaf = tree.Grow(1);
  const Variant enumerator = GetByName(tree, "NewEnum");
  Object& object = *std::get<ObjectRef>(enumerator.Get());
  EXPECT_EQ(GetByName(object, "AtEnd"), Variant(false));
  EXPECT_EQ(InvokeByName(object, "Next", {}), Boxed(leaf));
  EXPECT_EQ(GetByName(object, "AtEnd"), Variant(true));
  InvokeByName(object, "Reset", {});
  EXPECT_EQ(GetByName(object, "AtEnd"), Variant(false));
}

TEST(Enumerate, RefusesAnObjectThatIsNoCollection) {
  EXPECT_EQ(Tree::Table().EnumeratorMember(), "NewEnum");
  EXPECT_EQ(Leaf::Table().EnumeratorMember(), "");
  try {
    Enumerate(Leaf());
    ADD_FAILURE() << "enumerated";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kNoSuchMember);
    EXPECT_EQ(error.Description(), "Leaf is no collection");
  }
}

TEST(CreatableClasses, MakeANewObjectEachTime) {
  EXPECT_TRUE(Leaf::Table().Creatable());
  const ObjectRef a = Leaf::Table().CreateObject();
  const ObjectRef b = Leaf::Table().CreateObject();
  EXPECT_EQ(&a->Class(), &Leaf::Table());
  EXPECT_NE(a, b);
  EXPECT_FALSE(Tree::Table().Creatable());
  EXPECT_EQ(Tree::Table().CreateObject(), nullptr);
}

}  // namespace
}  // namespace levelwidgets
