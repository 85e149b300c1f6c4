// Each member of each class, on the control itself and on its component: both do the same.
#include <levelwidgets/activex/suite/both_sides_fixture.h>

namespace levelwidgets::activex {
namespace {

using MembersTest = BothSidesTest;

TEST_F(MembersTest, EveryPropertyTakesAndRefusesOnBothSidesAlike) {
  for (const bool by_reference : {false, true}) {
    for (const ClassInfo* info : ControlClasses()) {
      Begin(*info, by_reference);
      for (const PropertyInfo& property : info->Properties()) {
        const std::string name = std::string(info->Name()) + "." + std::string(property.name);
        if (property.Indexed()) continue;
        BothRead(property, {}, name);
        if (property.type.kind != TypeKind::kHandle) TryWriting(property, {}, name);
      }
      End();
    }
  }
  EXPECT_GT(Steps(), 5000);
}

TEST_F(MembersTest, IndexedPropertiesTakeAndRefuseOnBothSidesAlike) {
  const std::vector<Arguments> tried{
      {},     {1},    {0},     {2},    {-1},     {99},      {"1"},      {"abc"},    {Null()},    {Variant()},
      {1, 1}, {2, 2}, {1, 99}, {0, 0}, {1, "2"}, {1, 1, 1}, {1.4, 1.6}, {1e300, 1}, {true, true}};
  for (const ClassInfo* info : ControlClasses()) {
    Begin(*info, false);
    for (const char* count : {"TabCount", "RowCount"}) {
      const PropertyInfo* const counted = info->FindProperty(count);
      if (counted) Both(count, [&](Driven& driven) { return driven.Write(*counted, {}, 3); });
    }
    for (const PropertyInfo& property : info->Properties()) {
      if (!property.Indexed()) continue;
      for (const Arguments& indices : tried) {
        std::string name = std::string(info->Name()) + "." + std::string(property.name);
        for (const Variant& index : indices) name += " " + ValueLine(index);
        BothRead(property, indices, name);
        TryWriting(property, indices, name);
      }
    }
    End();
  }
}

TEST_F(MembersTest, MethodsTakeAndRefuseOnBothSidesAlike) {
  const std::vector<Arguments> tried{{},
                                     {"kg"},
                                     {12},
                                     {Variant()},
                                     {Null()},
                                     {"a", "b"},
                                     {1},
                                     {0},
                                     {-1},
                                     {"abc"},
                                     {150.0, 150.0, 0},
                                     {15.0, 1e6, 0},
                                     {"x", "y", "z"},
                                     {1e300},
                                     {1, 2, 3, 4},
                                     {ObjectRef()},
                                     {std::string(5000, 'x')}};
  for (const ClassInfo* info : ControlClasses()) {
    Begin(*info, false);
    for (const MethodInfo& method : info->Methods()) {
      for (const Arguments& arguments : tried) {
        std::string name = std::string(info->Name()) + "." + std::string(method.name);
        for (const Variant& argument : arguments) name += " " + ValueLine(argument);
        Both(name, [&](Driven& driven) { return driven.Run(method, arguments); });
      }
    }
    End();
  }
}

}  // namespace
}  // namespace levelwidgets::activex
