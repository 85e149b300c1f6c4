// A page that edits objects of other libraries.
#include <levelwidgets/activex/page/page_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;

// Has the members of a button's page, and records what is done with them.
class SomebodysObject : public ComObject<IDispatch> {
 public:
  HRESULT answer = S_OK;     // of every member
  EXCEPINFO exception = {};  // with DISP_E_EXCEPTION
  bool has_members = true;
  CallJournal calls;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const std::string name = TextOf(names[0]);
    ids[0] = name == "Caption" ? 41 : 42;
    const bool known = has_members && (name == "Caption" || name == "Enabled");
    if (!known) ids[0] = DISPID_UNKNOWN;
    return known ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* raised, UINT*) override {
    if (answer == DISP_E_EXCEPTION) *raised = std::exchange(exception, EXCEPINFO{});
    if (FAILED(answer)) return answer;
    const char* const name = member == 41 ? "Caption" : "Enabled";
    if ((flags & DISPATCH_PROPERTYPUT) != 0) {
      const VARIANT& value = parameters->rgvarg[0];
      EXPECT_EQ(parameters->cNamedArgs, 1u);
      EXPECT_EQ(parameters->rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
      calls.push_back(std::string(name) + " = " +
                      (value.vt == VT_BSTR ? TextOfBstr(value.bstrVal)
                       : value.boolVal     ? "True"
                                           : "False"));
      return S_OK;
    }
    calls.push_back(name);
    result->vt = member == 41 ? VT_BSTR : VT_BOOL;
    if (member == 41) {
      result->bstrVal = NewText("theirs");
    } else {
      result->boolVal = VARIANT_TRUE;
    }
    return S_OK;
  }
};

class DispatchTargetTest : public PropertyPageTest {
 protected:
  void SetUp() override {
    PropertyPageTest::SetUp();
    object_ = ComPtr<SomebodysObject>::Taking(new SomebodysObject);
    MakePage("ppFlatButton");
    Show();
  }
  void TearDown() override {
    ClosePage();
    EXPECT_EQ(object_.Detach()->Release(), 0u) << "the page still holds its object";
    PropertyPageTest::TearDown();
  }
  void RaiseFromNowOn(WORD code, HRESULT scode, const char* source, const char* description) {
    object_->answer = DISP_E_EXCEPTION;
    object_->exception.wCode = code;
    object_->exception.scode = scode;
    object_->exception.bstrSource = NewText(source);
    object_->exception.bstrDescription = NewText(description);
  }
  // Of an object that answers an error to everything from now on.
  HRESULT ApplyTo(HRESULT answer) {
    object_->answer = answer;
    return Page().Apply();
  }

  ComPtr<SomebodysObject> object_;
};

TEST_F(DispatchTargetTest, AnyObjectWithMembersOfTheseNamesIsReadAndWrittenInThePagesOrder) {
  ASSERT_EQ(SetObjects({object_.Get()}), S_OK);
  EXPECT_THAT(object_->calls, ElementsAre("Caption", "Enabled"));
  object_->calls.clear();
  ASSERT_EQ(Page().EditProperty(41), S_OK) << "by the object's own number";
  EXPECT_EQ(FieldText(), "theirs");
  Type("ours");
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_THAT(object_->calls, ElementsAre("Caption = ours", "Enabled = True"));
  EXPECT_EQ(Page().EditProperty(43), E_INVALIDARG);
}

TEST_F(DispatchTargetTest, AnObjectWithoutTheMembersLeavesThePageEmpty) {
  ASSERT_EQ(SetObjects({object_.Get()}), S_OK);
  object_->has_members = false;
  EXPECT_EQ(SetObjects({object_.Get()}), static_cast<HRESULT>(0x800A01B6));
  EXPECT_EQ(LastError(), "LevelWidgets: The object has no member \"Caption\"");
  object_->calls.clear();
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_THAT(object_->calls, ElementsAre());
}

TEST_F(DispatchTargetTest, WhatIsNotBoundLateIsNoObjectOfAPage) {
  const auto page = MakeComponent("ppFlatLabel");
  EXPECT_EQ(SetObjects({object_.Get(), page.Get()}), E_NOINTERFACE);
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_THAT(object_->calls, ElementsAre());
}

TEST_F(DispatchTargetTest, AnErrorOfTheObjectKeepsItsNumberSourceAndDescription) {
  ASSERT_EQ(SetObjects({object_.Get()}), S_OK);
  RaiseFromNowOn(0, static_cast<HRESULT>(0x80040123), "Their.Thing", "It is too cold");
  EXPECT_EQ(Page().Apply(), static_cast<HRESULT>(0x80040123));
  EXPECT_EQ(LastError(), "Their.Thing: It is too cold");
  RaiseFromNowOn(1234, 0, "Their.Thing", "It is too warm");
  EXPECT_EQ(Page().Apply(), static_cast<HRESULT>(0x800A04D2));
  EXPECT_EQ(LastError(), "Their.Thing: It is too warm");
}

TEST_F(DispatchTargetTest, WhatAnObjectOnlyAnswersBecomesAnErrorThatSaysSo) {
  ASSERT_EQ(SetObjects({object_.Get()}), S_OK);
  EXPECT_EQ(ApplyTo(DISP_E_TYPEMISMATCH), static_cast<HRESULT>(0x800A000D));
  EXPECT_EQ(ApplyTo(DISP_E_OVERFLOW), static_cast<HRESULT>(0x800A0006));
  EXPECT_EQ(ApplyTo(DISP_E_MEMBERNOTFOUND), static_cast<HRESULT>(0x800A01B6));
  EXPECT_EQ(ApplyTo(DISP_E_BADPARAMCOUNT), static_cast<HRESULT>(0x800A01C2));
}

TEST_F(DispatchTargetTest, AnObjectThatHasGoneIsReportedByItsAnswer) {
  ASSERT_EQ(SetObjects({object_.Get()}), S_OK);
  EXPECT_EQ(ApplyTo(RPC_E_DISCONNECTED), RPC_E_DISCONNECTED);
  EXPECT_EQ(LastError(), "LevelWidgets: The object does not answer to \"Caption\": 0x80010108");
  object_->answer = S_OK;
  EXPECT_EQ(Page().Apply(), S_OK);
}

}  // namespace
}  // namespace levelwidgets::activex
