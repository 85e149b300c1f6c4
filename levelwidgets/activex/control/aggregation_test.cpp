// A component as a part of another object, and what every component tells about itself.
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using AggregationTest = ComponentTest;

// Adds nothing of its own to the component that it has inside.
class Around : public IUnknown {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override {
    if (::IsEqualIID(iid, IID_IUnknown)) {
      *found = this;
      AddRef();
      return S_OK;
    }
    return inner ? inner->QueryInterface(iid, found) : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }

  ComPtr<IUnknown> inner;
  long references = 0;
};

TEST_F(AggregationTest, TheInterfacesOfAPartAreThoseOfTheWholeObject) {
  Around around;
  around.inner = MakeComponent("FlatButton", &around);
  ASSERT_TRUE(around.inner);
  const long before = around.references;
  {
    const auto dispatch = As<IDispatch>(&around);
    ASSERT_TRUE(dispatch);
    EXPECT_EQ(around.references, before + 1);
    EXPECT_TRUE(SameObject(dispatch.Get(), &around));
    EXPECT_TRUE(SameObject(As<IOleObject>(dispatch).Get(), &around));
    EXPECT_EQ(Put(&around, "Caption", {"Save"}).result, S_OK);
    EXPECT_EQ(Shown(Get(&around, "Caption")), "Save");
  }
  EXPECT_EQ(around.references, before);
  around.inner = nullptr;
}

TEST_F(AggregationTest, APartMustBeAskedForItsOwnCount) {
  Around around;
  void* made = &around;
  EXPECT_EQ(MakeComponent("FlatButton", &around, IID_IDispatch, &made), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
}

TEST_F(AggregationTest, AnObjectAnswersForAllOfItsInterfacesFromEachOfThem) {
  Site("FlatGrid");
  const IID interfaces[] = {IID_IDispatch,
                            IID_IOleObject,
                            IID_IOleControl,
                            IID_IOleInPlaceObject,
                            IID_IOleWindow,
                            IID_IOleInPlaceActiveObject,
                            IID_IViewObject,
                            IID_IViewObject2,
                            IID_IDataObject,
                            IID_IPersist,
                            IID_IPersistStream,
                            IID_IPersistStreamInit,
                            IID_IPersistStorage,
                            IID_IPersistPropertyBag,
                            IID_IConnectionPointContainer,
                            IID_IProvideClassInfo,
                            IID_IProvideClassInfo2,
                            IID_ISpecifyPropertyPages,
                            IID_IPerPropertyBrowsing,
                            IID_ISupportErrorInfo,
                            __uuidof(IObjectSafety)};
  for (const IID& from : interfaces) {
    ComPtr<IUnknown> first;
    ASSERT_EQ(Object()->QueryInterface(from, reinterpret_cast<void**>(first.Receive())), S_OK) << from.Data1;
    for (const IID& to : interfaces) {
      ComPtr<IUnknown> second;
      EXPECT_EQ(first->QueryInterface(to, reinterpret_cast<void**>(second.Receive())), S_OK) << to.Data1;
    }
    EXPECT_TRUE(SameObject(first.Get(), Object()));
  }
  void* none = Object();
  EXPECT_EQ(Object()->QueryInterface(IID_IMarshal, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(Object()->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
}

TEST_F(AggregationTest, AnObjectKnowsItsClassItsEventsAndItsTypes) {
  Site("FlatButton");
  const ClassIdentity& identity = *IdentityOf("FlatButton");
  CLSID id = {};
  EXPECT_EQ(Interface<IPersist>()->GetClassID(&id), S_OK);
  EXPECT_EQ(FromNative(id), identity.class_id);
  EXPECT_EQ(Interface<IOleObject>()->GetUserClassID(&id), S_OK);
  EXPECT_EQ(FromNative(id), identity.class_id);
  EXPECT_EQ(Interface<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
  EXPECT_EQ(FromNative(id), identity.events_id);
  EXPECT_EQ(Interface<IProvideClassInfo2>()->GetGUID(2, &id), E_INVALIDARG);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(Interface<IProvideClassInfo>()->GetClassInfo(info.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(FromNative(attributes->guid), identity.class_id);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  info->ReleaseTypeAttr(attributes);
  ASSERT_EQ(Interface<IDispatch>()->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(FromNative(attributes->guid), identity.interface_id);
  info->ReleaseTypeAttr(attributes);
  EXPECT_EQ(Interface<IDispatch>()->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.Receive()), DISP_E_BADINDEX);
  UINT count = 0;
  EXPECT_EQ(Interface<IDispatch>()->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  LPOLESTR type = nullptr;
  ASSERT_EQ(Interface<IOleObject>()->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
  EXPECT_STREQ(type, L"FlatButton");
  ::CoTaskMemFree(type);
}

// --- What property browsers ask ------------------------------------------------------------------

TEST_F(AggregationTest, ABrowserShowsTheItemsOfAnEnumeration) {
  Site("FlatLabel");
  const auto browsing = Interface<IPerPropertyBrowsing>();
  const DISPID alignment = IdOf(Object(), "Alignment");
  CALPOLESTR names = {};
  CADWORD cookies = {};
  ASSERT_EQ(browsing->GetPredefinedStrings(alignment, &names, &cookies), S_OK);
  ASSERT_EQ(names.cElems, 3u);
  EXPECT_STREQ(names.pElems[2], L"2 - ksxCenter");
  VARIANT value = {};
  EXPECT_EQ(browsing->GetPredefinedValue(alignment, cookies.pElems[2], &value), S_OK);
  EXPECT_EQ(value.vt, VT_I4);
  EXPECT_EQ(value.lVal, 2);
  EXPECT_EQ(browsing->GetPredefinedValue(alignment, 3, &value), E_INVALIDARG);
  for (ULONG i = 0; i < names.cElems; ++i) ::CoTaskMemFree(names.pElems[i]);
  ::CoTaskMemFree(names.pElems);
  ::CoTaskMemFree(cookies.pElems);
  Put(Object(), "Alignment", {1});
  BSTR text = nullptr;
  EXPECT_EQ(browsing->GetDisplayString(alignment, &text), S_OK);
  EXPECT_STREQ(text, L"1 - ksxRight");
  ::SysFreeString(text);
  EXPECT_EQ(browsing->GetDisplayString(IdOf(Object(), "Caption"), &text), S_FALSE);
  EXPECT_EQ(browsing->GetPredefinedStrings(IdOf(Object(), "Caption"), &names, &cookies), S_FALSE);
}

TEST_F(AggregationTest, EveryClassNamesItsPropertyPages) {
  for (const char* name : {"FlatButton", "FlatLabel", "FlatScroll", "FlatTabStrip", "FlatTextBox",
                           "FlatDropDown", "FlatCalculator", "FlatCalendar", "FlatGrid"}) {
    Site(name);
    CAUUID pages = {};
    ASSERT_EQ(Interface<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
    const bool grid = std::string_view(name) == "FlatGrid";
    ASSERT_EQ(pages.cElems, grid ? 2u : 1u) << name;
    EXPECT_EQ(FromNative(pages.pElems[0]), IdentityOfPage("pp" + std::string(name))->class_id) << name;
    if (grid) EXPECT_EQ(FromNative(pages.pElems[1]), IdentityOfPage("ppFlatGridColumns")->class_id);
    ::CoTaskMemFree(pages.pElems);
    Close();
  }
}

TEST_F(AggregationTest, APropertyHasThePageThatShowsIt) {
  Site("FlatGrid");
  const auto browsing = Interface<IPerPropertyBrowsing>();
  CLSID page = {};
  EXPECT_EQ(browsing->MapPropertyToPage(IdOf(Object(), "AllowEdits"), &page), S_OK);
  EXPECT_EQ(FromNative(page), IdentityOfPage("ppFlatGrid")->class_id);
  EXPECT_EQ(browsing->MapPropertyToPage(IdOf(Object(), "Columns"), &page), S_OK);
  EXPECT_EQ(FromNative(page), IdentityOfPage("ppFlatGridColumns")->class_id);
  EXPECT_EQ(browsing->MapPropertyToPage(IdOf(Object(), "hWnd"), &page), PERPROP_E_NOPAGEAVAILABLE);
  EXPECT_EQ(browsing->MapPropertyToPage(9999, &page), DISP_E_MEMBERNOTFOUND);
}

TEST_F(AggregationTest, PropertiesHaveTheCategoriesOfBrowsers) {
  Site("FlatScroll");
  ComPtr<IUnknown> categories;
  const IID iid = {0x4D07FC10, 0xF931, 0x11CE, {0xB0, 0x01, 0x00, 0xAA, 0x00, 0x68, 0x84, 0xE5}};
  ASSERT_EQ(Object()->QueryInterface(iid, reinterpret_cast<void**>(categories.Receive())), S_OK);
  struct Categorize : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Map(DISPID, int*) = 0;
    virtual HRESULT STDMETHODCALLTYPE Name(int, LCID, BSTR*) = 0;
  };
  auto& asked = *reinterpret_cast<Categorize*>(categories.Get());
  const auto category = [&](const char* property) {
    int number = 0;
    asked.Map(IdOf(Object(), property), &number);
    BSTR name = nullptr;
    asked.Name(number, 0, &name);
    const std::wstring text = name ? name : L"";
    ::SysFreeString(name);
    return text;
  };
  EXPECT_EQ(category("BackColor"), L"Appearance");
  EXPECT_EQ(category("Max"), L"Scale");
  EXPECT_EQ(category("Enabled"), L"Behavior");
  EXPECT_EQ(category("hWnd"), L"Misc");
  Close();
  int number = 0;
  BSTR name = nullptr;
  EXPECT_EQ(asked.Map(9999, &number), E_INVALIDARG);
  EXPECT_EQ(asked.Name(1, 0, &name), S_FALSE);
}

TEST_F(AggregationTest, AnObjectIsSafeForWhatIsFuzzed) {
  Site("FlatButton");
  const auto safety = Interface<IObjectSafety>();
  DWORD supported = 0;
  DWORD enabled = 0;
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled), S_OK);
  EXPECT_EQ(supported, static_cast<DWORD>(INTERFACESAFE_FOR_UNTRUSTED_CALLER));
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IPersistPropertyBag, &supported, &enabled), S_OK);
  EXPECT_EQ(supported, static_cast<DWORD>(INTERFACESAFE_FOR_UNTRUSTED_DATA));
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IOleObject, &supported, &enabled), E_NOINTERFACE);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, INTERFACESAFE_FOR_UNTRUSTED_CALLER,
                                              INTERFACESAFE_FOR_UNTRUSTED_CALLER),
            S_OK);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, INTERFACESAFE_FOR_UNTRUSTED_DATA,
                                              INTERFACESAFE_FOR_UNTRUSTED_DATA),
            E_FAIL);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IOleObject, 1, 1), E_NOINTERFACE);
}

}  // namespace
}  // namespace levelwidgets::activex
