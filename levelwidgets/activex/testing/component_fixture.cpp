#include <levelwidgets/activex/testing/component_fixture.h>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/platform/win32/object_count.h>

namespace levelwidgets::activex {

namespace {

int CountWindows() {
  int count = 0;
  ::EnumThreadWindows(
      ::GetCurrentThreadId(),
      [](HWND window, LPARAM counter) -> BOOL {
        wchar_t name[64] = {};
        ::GetClassNameW(window, name, 64);
        // The system makes windows of its own for input methods and for the component interface.
        if (std::wstring_view(name).starts_with(L"LevelWidgets")) ++*reinterpret_cast<int*>(counter);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

}  // namespace

// --- Values --------------------------------------------------------------------------------------

Value::Value(int number) {
  value_.vt = VT_I4;
  value_.lVal = number;
}
Value::Value(double number) {
  value_.vt = VT_R8;
  value_.dblVal = number;
}
Value::Value(const char* text) {
  value_.vt = VT_BSTR;
  value_.bstrVal = NewText(text);
}
Value::Value(bool flag) {
  value_.vt = VT_BOOL;
  value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}
Value::Value(IUnknown* object) {
  value_.vt = VT_DISPATCH;
  value_.pdispVal = As<IDispatch>(object).Detach();
}
Value::Value(const VARIANT& value) {
  if ((value.vt & VT_BYREF) != 0) {
    value_ = value;
  } else {
    ::VariantCopy(&value_, const_cast<VARIANT*>(&value));
  }
}

CallResult::CallResult(CallResult&& other) noexcept
    : result(other.result),
      value(std::exchange(other.value, VARIANT{})),
      source(std::move(other.source)),
      description(std::move(other.description)),
      number(other.number) {}

// --- Calls ---------------------------------------------------------------------------------------

DISPID IdOf(IUnknown* object, const char* member) {
  const auto dispatch = As<IDispatch>(object);
  OwnedText name(member);
  LPOLESTR names[] = {name.Get()};
  DISPID id = DISPID_UNKNOWN;
  if (dispatch) dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

CallResult Invoke(IUnknown* object, DISPID member, WORD flags, std::vector<Value> arguments) {
  CallResult result;
  const auto dispatch = As<IDispatch>(object);
  if (!dispatch) {
    result.result = E_NOINTERFACE;
    return result;
  }
  std::vector<VARIANT> handed;
  for (std::size_t i = arguments.size(); i > 0; --i) handed.push_back(arguments[i - 1].Get());
  const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {handed.data(), assigns ? &put : nullptr, static_cast<UINT>(handed.size()),
                           assigns ? 1u : 0u};
  for (VARIANT& argument : handed) {
    if (argument.vt != VT_EMPTY) continue;
    argument.vt = VT_ERROR;
    argument.scode = DISP_E_PARAMNOTFOUND;
  }
  EXCEPINFO exception = {};
  result.result = dispatch->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &result.value,
                                   &exception, nullptr);
  result.number = exception.scode;
  result.source = TextOfBstr(exception.bstrSource);
  result.description = TextOfBstr(exception.bstrDescription);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
  return result;
}

CallResult Invoke(IUnknown* object, const char* member, WORD flags, std::vector<Value> arguments) {
  return Invoke(object, IdOf(object, member), flags, std::move(arguments));
}

CallResult Get(IUnknown* object, const char* property, std::vector<Value> indices) {
  return Invoke(object, property, DISPATCH_PROPERTYGET, std::move(indices));
}

CallResult Put(IUnknown* object, const char* property, std::vector<Value> indices_and_value) {
  return Invoke(object, property, DISPATCH_PROPERTYPUT, std::move(indices_and_value));
}

CallResult Call(IUnknown* object, const char* method, std::vector<Value> arguments) {
  return Invoke(object, method, DISPATCH_METHOD, std::move(arguments));
}

std::string Shown(const CallResult& result) {
  if (result.result == DISP_E_EXCEPTION) return "error " + std::to_string(result.number & 0xFFFF);
  if (FAILED(result.result)) return "failed " + std::to_string(result.result);
  if (result.value.vt == VT_EMPTY) return "Empty";
  if (result.value.vt == VT_NULL) return "Null";
  if (result.value.vt == VT_DISPATCH || result.value.vt == VT_UNKNOWN)
    return result.value.punkVal ? "Object" : "Nothing";
  VARIANT text = {};
  if (FAILED(::VariantChangeTypeEx(&text, const_cast<VARIANT*>(&result.value), LOCALE_INVARIANT,
                                   VARIANT_ALPHABOOL, VT_BSTR))) {
    return "?";
  }
  const std::string shown = TextOfBstr(text.bstrVal);
  ::VariantClear(&text);
  return shown;
}

// --- The fixture ---------------------------------------------------------------------------------

void ComponentTest::SetUp() {
  ::OleInitialize(nullptr);
  ASSERT_NE(ComponentModule(), nullptr) << "the library of components is not beside the test program";
  win32::WarmUpDrawingObjects();
  RenewWindow();
  objects_before_ = win32::CountDrawingObjects();
}

void ComponentTest::RenewWindow() {
  if (::IsWindow(window_)) return;
  window_ = ::CreateWindowExW(0, L"STATIC", L"Container", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 100, 100,
                              500, 400, nullptr, nullptr, nullptr, nullptr);
  ::ShowWindow(window_, SW_SHOW);
  ::SetForegroundWindow(window_);
  Settle();
}

void ComponentTest::TearDown() {
  Close();
  Settle();
  EXPECT_EQ(CanUnload(), S_OK) << "references were left behind";
  EXPECT_EQ(CountWindows(), 0) << "windows were left behind";
  ::DestroyWindow(window_);
  Settle();
  EXPECT_LE(win32::CountDrawingObjects(), objects_before_) << "drawing objects were left behind";
  ::OleUninitialize();
}

void ComponentTest::ForgetDrawingObjects() { objects_before_ = win32::CountDrawingObjects(); }

void ComponentTest::Settle() {
  MSG message = {};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

void ComponentTest::Site(const char* class_name, IStream* saved) {
  class_name_ = class_name;
  object_ = MakeComponent(class_name);
  ASSERT_TRUE(object_);
  container_ = ComPtr<TestContainer>::Taking(new TestContainer(window_));
  ASSERT_EQ(Interface<IOleObject>()->SetClientSite(container_.Get()), S_OK);
  const auto persist = Interface<IPersistStreamInit>();
  ASSERT_EQ(saved ? persist->Load(saved) : persist->InitNew(), S_OK);
}

void ComponentTest::Embed(const char* class_name) {
  Site(class_name);
  ASSERT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK);
  Settle();
  container_->TakeCalls();
}

HRESULT ComponentTest::Verb(LONG verb) {
  const auto object = Interface<IOleObject>();
  const ComPtr<TestContainer> container = container_;
  if (!object) return E_FAIL;
  return object->DoVerb(verb, nullptr, container.Get(), 0, window_, &container->position);
}

// A call that is under way may come from any of them.
void ComponentTest::Close() {
  const ComPtr<IUnknown> object = std::exchange(object_, nullptr);
  const ComPtr<TestContainer> container = std::exchange(container_, nullptr);
  const ComPtr<TestSink> sink = std::exchange(sink_, nullptr);
  if (sink) sink->on_event = nullptr;
  if (container) container->on_call = nullptr;
  const auto embedded = As<IOleObject>(object);
  if (!embedded) return;
  embedded->Close(OLECLOSE_NOSAVE);
  embedded->SetClientSite(nullptr);
}

HWND ComponentTest::ControlWindow() {
  HWND window = nullptr;
  if (const auto placed = Interface<IOleInPlaceObject>()) placed->GetWindow(&window);
  return window;
}

TestSink& ComponentTest::Listen() {
  sink_ = ComPtr<TestSink>::Taking(new TestSink(class_name_));
  ComPtr<IConnectionPoint> point;
  Interface<IConnectionPointContainer>()->FindConnectionPoint(Native(IdentityOf(class_name_)->events_id),
                                                              point.Receive());
  DWORD cookie = 0;
  EXPECT_TRUE(point && SUCCEEDED(point->Advise(sink_.Get(), &cookie)));
  return *sink_.Get();
}

void ComponentTest::ListenToChanges() {
  ComPtr<IConnectionPoint> point;
  Interface<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive());
  DWORD cookie = 0;
  EXPECT_TRUE(point &&
              SUCCEEDED(point->Advise(static_cast<IPropertyNotifySink*>(container_.Get()), &cookie)));
}

}  // namespace levelwidgets::activex
