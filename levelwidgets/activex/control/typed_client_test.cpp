// What programs written with the type library, and with the colours of their own, ask of components.
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using TypedClientTest = ComponentTest;

// Whether the object is found by the interface that the type library gives the class, and is the same then.
bool IsFoundAs(std::string_view class_name, IUnknown* object) {
  ComPtr<IUnknown> found;
  object->QueryInterface(Native(IdentityOf(class_name)->interface_id),
                         reinterpret_cast<void**>(found.Receive()));
  return found && found.Get() == As<IDispatch>(object).Get();
}

VARIANT ColorValue(LONG color) {
  VARIANT value = {};
  value.vt = VT_I4;
  value.lVal = color;
  return value;
}

TEST_F(TypedClientTest, AControlIsFoundByTheInterfaceOfItsClassAndOfNoOther) {
  const auto grid = MakeComponent("FlatGrid");
  EXPECT_TRUE(IsFoundAs("FlatGrid", grid.Get()));
  EXPECT_FALSE(IsFoundAs("FlatButton", grid.Get()));
}

TEST_F(TypedClientTest, AnObjectOfAControlIsFoundByTheInterfaceOfItsClassAndOfNoOther) {
  const auto grid = MakeComponent("FlatGrid");
  const CallResult columns = Get(grid.Get(), "Columns");
  ASSERT_EQ(columns.value.vt, VT_DISPATCH);
  EXPECT_TRUE(IsFoundAs("FlatColumns", columns.value.pdispVal));
  EXPECT_FALSE(IsFoundAs("FlatGrid", columns.value.pdispVal));
}

TEST_F(TypedClientTest, ANewControlTakesTheColourAroundIt) {
  Site("FlatTabStrip");
  Container().ambients[DISPID_AMBIENT_BACKCOLOR] = ColorValue(0x00123456);
  ASSERT_EQ(Interface<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "BackColor")), std::to_string(0x00123456));
}

// Containers say so that they have no colour of their own.
TEST_F(TypedClientTest, ANewControlTakesTheSystemsColourWhenTheOneAroundItIsNone) {
  Site("FlatTabStrip");
  Container().ambients[DISPID_AMBIENT_BACKCOLOR] = ColorValue(0x20000000);
  Container().ambients[DISPID_AMBIENT_FORECOLOR] = ColorValue(0x1FFFFFFF);
  ASSERT_EQ(Interface<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "BackColor")), std::to_string(static_cast<std::int32_t>(0x8000000F)));
  EXPECT_EQ(Shown(Get(Object(), "ForeColor")), std::to_string(static_cast<std::int32_t>(0x80000012)));
}

}  // namespace
}  // namespace levelwidgets::activex
