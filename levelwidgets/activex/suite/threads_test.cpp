// Components on other threads than their own: every call is refused, and their end comes on their own.
#include <levelwidgets/activex/suite/interface_calls_fixture.h>
#include <levelwidgets/activex/suite/other_thread_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::IsEmpty;

using ComponentThreadsTest = ComponentTest;

TEST_F(ComponentThreadsTest, EveryMethodRefusesAnotherThreadAndRunsNothing) {
  for (const char* name : {"FlatButton", "FlatGrid"}) {
    Embed(name);
    TestSink& sink = Listen();
    ListenToChanges();
    std::vector<InterfaceCall> calls = InterfaceCalls(Object());
    for (InterfaceCall& call : CallsWithoutPointers(Object())) calls.push_back(std::move(call));
    std::vector<std::string> answered;
    OnAnotherThread([&] {
      for (const InterfaceCall& call : calls) {
        if (call.with_nulls() != RPC_E_WRONG_THREAD) answered.push_back(call.name);
      }
    });
    EXPECT_THAT(answered, IsEmpty()) << name;
    EXPECT_THAT(Container().TakeCalls(), IsEmpty());
    EXPECT_THAT(sink.TakeEvents(), IsEmpty());
    EXPECT_TRUE(::IsWindowVisible(ControlWindow())) << "it is still in place";
    calls.clear();
    Close();
  }
}

TEST_F(ComponentThreadsTest, MembersAreReadAndWrittenOnTheirOwnThreadOnly) {
  Embed("FlatLabel");
  Put(Object(), "Caption", {"before"});
  OnAnotherThread([&] {
    EXPECT_EQ(Invoke(Object(), 1, DISPATCH_PROPERTYGET).result, RPC_E_WRONG_THREAD);
    EXPECT_EQ(Put(Object(), "Caption", {"after"}).result, RPC_E_WRONG_THREAD);
  });
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "before");
}

TEST_F(ComponentThreadsTest, ObjectsOfAControlRefuseAnotherThread) {
  Embed("FlatGrid");
  const CallResult columns = Get(Object(), "Columns");
  Call(columns.value.pdispVal, "Add", {"Qty"});
  const CallResult items = Invoke(columns.value.pdispVal, DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  const auto enumeration = As<IEnumVARIANT>(items.value.punkVal);
  ASSERT_TRUE(enumeration);
  OnAnotherThread([&] {
    EXPECT_EQ(Invoke(columns.value.pdispVal, DISPID{DISPID_VALUE}, DISPATCH_PROPERTYGET, {1}).result,
              RPC_E_WRONG_THREAD);
    VARIANT item = {};
    EXPECT_EQ(enumeration->Next(1, &item, nullptr), RPC_E_WRONG_THREAD);
    EXPECT_EQ(enumeration->Skip(1), RPC_E_WRONG_THREAD);
    EXPECT_EQ(enumeration->Reset(), RPC_E_WRONG_THREAD);
    IEnumVARIANT* copy = nullptr;
    EXPECT_EQ(enumeration->Clone(&copy), RPC_E_WRONG_THREAD);
  });
}

TEST_F(ComponentThreadsTest, TheLastReferenceMayGoOnAnotherThread) {
  for (const char* name : {"FlatButton", "FlatGrid", "FlatCalendar", "ksxValueList"}) {
    IUnknown* const object = MakeComponent(name).Detach();
    ASSERT_NE(object, nullptr);
    IdOf(object, "Count");
    Get(object, "Enabled");  // it has its window now
    OnAnotherThread([&] { EXPECT_EQ(object->Release(), 0u); });
    Settle();
    EXPECT_EQ(CanUnload(), S_OK) << name << " has not ended";
  }
}

TEST_F(ComponentThreadsTest, AnEnumerationMayEndOnAnotherThread) {
  const auto list = MakeComponent("ksxValueList");
  Call(list.Get(), "Add", {"kg"});
  CallResult items = Invoke(list.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  IUnknown* const enumeration = std::exchange(items.value, VARIANT{}).punkVal;
  ASSERT_NE(enumeration, nullptr);
  OnAnotherThread([&] { EXPECT_EQ(enumeration->Release(), 0u); });
}

TEST_F(ComponentThreadsTest, ThreadsHaveComponentsOfTheirOwn) {
  Embed("FlatLabel");
  OnAnotherThread([&] {
    ::OleInitialize(nullptr);
    {
      const auto other = MakeComponent("FlatLabel");
      EXPECT_EQ(Put(other.Get(), "Caption", {"there"}).result, S_OK);
      EXPECT_EQ(Shown(Get(other.Get(), "Caption")), "there");
    }
    ::OleUninitialize();
  });
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "");
}

}  // namespace
}  // namespace levelwidgets::activex
