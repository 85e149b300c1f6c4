// Members by name and by number, as scripts call them.
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;

using LateBindingTest = ComponentTest;

TEST_F(LateBindingTest, AComponentHasItsDefaultsBeforeAnyContainer) {
  const auto button = MakeComponent("FlatButton");
  ASSERT_TRUE(button);
  EXPECT_EQ(Shown(Get(button.Get(), "Enabled")), "True");
  EXPECT_EQ(Shown(Get(button.Get(), "Caption")), "");
}

TEST_F(LateBindingTest, NamesMayBeInAnyCase) {
  const auto label = MakeComponent("FlatLabel");
  EXPECT_EQ(Put(label.Get(), "cAPTION", {"Save"}).result, S_OK);
  EXPECT_EQ(Shown(Get(label.Get(), "CAPTION")), "Save");
  EXPECT_EQ(IdOf(label.Get(), "caption"), IdOf(label.Get(), "Caption"));
}

TEST_F(LateBindingTest, AnUnknownNameHasNoNumber) {
  const auto label = MakeComponent("FlatLabel");
  EXPECT_EQ(IdOf(label.Get(), "Captoin"), DISPID_UNKNOWN);
  EXPECT_EQ(Get(label.Get(), "Captoin").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBindingTest, ARefusedValueIsAnExceptionWithNumberSourceAndDescription) {
  const auto scroll = MakeComponent("FlatScroll");
  const CallResult result = Put(scroll.Get(), "Value", {-1});
  EXPECT_EQ(result.result, DISP_E_EXCEPTION);
  EXPECT_EQ(result.number, static_cast<HRESULT>(0x800403EA));
  EXPECT_EQ(result.source, "LevelWidgets.FlatScroll");
  EXPECT_EQ(result.description, "Invalid Value");
}

TEST_F(LateBindingTest, TheHiddenNamesOfTheTypeLibraryHaveTheirNumbers) {
  const auto grid = MakeComponent("FlatGrid");
  const CallResult columns = Get(grid.Get(), "Columns");
  EXPECT_EQ(IdOf(columns.value.pdispVal, "_Default"), DISPID_VALUE);
  EXPECT_EQ(IdOf(columns.value.pdispVal, "_NewEnum"), DISPID_NEWENUM);
  EXPECT_EQ(IdOf(grid.Get(), "_NewEnum"), DISPID_UNKNOWN);
}

TEST_F(LateBindingTest, MembersThatEveryControlHasAreKnownByTheContainersNumbers) {
  const auto button = MakeComponent("FlatButton");
  ASSERT_EQ(Invoke(button.Get(), DISPID_CAPTION, DISPATCH_PROPERTYPUT, {"Save"}).result, S_OK);
  EXPECT_EQ(Shown(Get(button.Get(), "Caption")), "Save");
  EXPECT_EQ(Shown(Invoke(button.Get(), DISPID_ENABLED, DISPATCH_PROPERTYGET)), "True");
  EXPECT_EQ(Invoke(button.Get(), DISPID_TEXT, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace levelwidgets::activex
