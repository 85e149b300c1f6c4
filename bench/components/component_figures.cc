// Calls a second by late binding, each beside an empty call of the same shape in the same run.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/testing/component_module.h>
#include <levelwidgets/activex/testing/container.h>

namespace levelwidgets::activex {
namespace {

constexpr int kRuns = 31;

double SecondsNow() {
  LARGE_INTEGER count = {};
  LARGE_INTEGER frequency = {};
  ::QueryPerformanceCounter(&count);
  ::QueryPerformanceFrequency(&frequency);
  return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

// Answers every call with success and nothing else.
class EmptyDispatch : public ComObject<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* id) override {
    *id = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    if (result) ::VariantInit(result);
    ++calls;
    return S_OK;
  }
  long calls = 0;
};

void InvokeOnce(IDispatch& object, DISPID member, WORD flags, VARIANT* argument) {
  DISPID put = DISPID_PROPERTYPUT;
  const bool assigns = flags == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters = {argument, assigns ? &put : nullptr, argument ? 1u : 0u, assigns ? 1u : 0u};
  VARIANT result = {};
  const HRESULT called = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                       assigns ? nullptr : &result, nullptr, nullptr);
  if (FAILED(called)) std::printf("member %ld failed: %08lx\n", member, static_cast<unsigned long>(called));
  ::VariantClear(&result);
}

DISPID NumberOf(IDispatch& object, const char* name) {
  const OwnedText text(name);
  LPOLESTR names[] = {text.Get()};
  DISPID id = DISPID_UNKNOWN;
  object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

// The median seconds of one `call`, and how many times as long that is as one `empty`.
void Report(const char* name, int batch, const std::function<void()>& call,
            const std::function<void()>& empty) {
  const auto seconds = [batch](const std::function<void()>& work) {
    const double start = SecondsNow();
    for (int i = 0; i < batch; ++i) work();
    return (SecondsNow() - start) / batch;
  };
  std::vector<double> taken;
  std::vector<double> ratios;
  for (int run = 0; run < kRuns; ++run) {
    taken.push_back(seconds(call));
    ratios.push_back(taken.back() / seconds(empty));
  }
  std::printf("%-44s %10.3f us %12.0f a second %8.1f times an empty call\n", name, Median(taken) * 1e6,
              1 / Median(taken), Median(ratios));
}

void ReportCalls() {
  const auto label = As<IDispatch>(MakeComponent("FlatLabel"));
  const auto list = As<IDispatch>(MakeComponent("ksxValueList"));
  const auto empty = ComPtr<EmptyDispatch>::Taking(new EmptyDispatch);
  const DISPID enabled = NumberOf(*label.Get(), "Enabled");
  const DISPID caption = NumberOf(*label.Get(), "Caption");
  const DISPID clear = NumberOf(*list.Get(), "Clear");
  VARIANT flag = {};
  flag.vt = VT_BOOL;
  flag.boolVal = VARIANT_TRUE;
  const OwnedText first("Save");
  VARIANT text = {};
  text.vt = VT_BSTR;
  text.bstrVal = first.Get();
  constexpr int kBatch = 2000;
  const auto beside = [&](WORD flags, VARIANT* argument) {
    return [&, flags, argument] { InvokeOnce(*empty.Get(), 1, flags, argument); };
  };
  Report(
      "property read (Boolean)", kBatch,
      [&] { InvokeOnce(*label.Get(), enabled, DISPATCH_PROPERTYGET, nullptr); },
      beside(DISPATCH_PROPERTYGET, nullptr));
  Report(
      "property read (String)", kBatch,
      [&] { InvokeOnce(*label.Get(), caption, DISPATCH_PROPERTYGET, nullptr); },
      beside(DISPATCH_PROPERTYGET, nullptr));
  Report(
      "property write (Boolean)", kBatch,
      [&] { InvokeOnce(*label.Get(), enabled, DISPATCH_PROPERTYPUT, &flag); },
      beside(DISPATCH_PROPERTYPUT, &flag));
  Report(
      "property write (String, of a control unseen)", kBatch,
      [&] { InvokeOnce(*label.Get(), caption, DISPATCH_PROPERTYPUT, &text); },
      beside(DISPATCH_PROPERTYPUT, &text));
  Report(
      "method call", kBatch, [&] { InvokeOnce(*list.Get(), clear, DISPATCH_METHOD, nullptr); },
      beside(DISPATCH_METHOD, nullptr));
  Report(
      "GetIDsOfNames", kBatch, [&] { NumberOf(*label.Get(), "BackColorMouseOver"); },
      [&] { NumberOf(*empty.Get(), "BackColorMouseOver"); });
}

// A control in its place; ended by its end.
class PlacedControl {
 public:
  PlacedControl(const char* class_name, HWND window)
      : object_(MakeComponent(class_name)),
        container_(ComPtr<TestContainer>::Taking(new TestContainer(window))) {
    const auto ole = As<IOleObject>(object_);
    ole->SetClientSite(container_.Get());
    As<IPersistStreamInit>(object_)->InitNew();
    ole->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, container_.Get(), 0, window, &container_->position);
  }
  PlacedControl(const PlacedControl&) = delete;
  PlacedControl& operator=(const PlacedControl&) = delete;
  ~PlacedControl() {
    const auto ole = As<IOleObject>(object_);
    ole->Close(OLECLOSE_NOSAVE);
    ole->SetClientSite(nullptr);
  }

  IUnknown* Object() { return object_.Get(); }
  HWND Window() {
    HWND window = nullptr;
    As<IOleInPlaceObject>(object_)->GetWindow(&window);
    return window;
  }

 private:
  ComPtr<IUnknown> object_;
  ComPtr<TestContainer> container_;
};

void ReportEvent(HWND window) {
  PlacedControl scroll("FlatScroll", window);
  const auto sink = ComPtr<EmptyDispatch>::Taking(new EmptyDispatch);
  ComPtr<IConnectionPoint> point;
  As<IConnectionPointContainer>(scroll.Object())->FindConnectionPoint(IID_IDispatch, point.Receive());
  const auto dispatch = As<IDispatch>(scroll.Object());
  const DISPID value = NumberOf(*dispatch.Get(), "Value");
  VARIANT same = {};
  same.vt = VT_I2;
  // Value raises Change also when it stays as it is.
  const auto write = [&] { InvokeOnce(*dispatch.Get(), value, DISPATCH_PROPERTYPUT, &same); };
  const auto empty = [&] { InvokeOnce(*sink.Get(), 1, DISPATCH_PROPERTYPUT, &same); };
  constexpr int kBatch = 200;
  Report("property write that raises an unheard event", kBatch, write, empty);
  DWORD cookie = 0;
  point->Advise(sink.Get(), &cookie);
  sink->calls = 0;
  write();
  std::printf("(%ld event comes to its handler)\n", sink->calls);
  Report("the same with one handler", kBatch, write, empty);
}

void ReportCreation(HWND window) {
  const auto empty = ComPtr<EmptyDispatch>::Taking(new EmptyDispatch);
  const auto nothing = [&] { InvokeOnce(*empty.Get(), 1, DISPATCH_METHOD, nullptr); };
  Report(
      "creation and release", 10, [] { MakeComponent("FlatButton"); }, nothing);
  for (const char* name : {"FlatButton", "FlatGrid"}) {
    Report((std::string(name) + ": creation to first paint, and end").c_str(), 3,
           [&] {
             PlacedControl placed(name, window);
             ::UpdateWindow(placed.Window());
           },
           nothing);
  }
}

}  // namespace
}  // namespace levelwidgets::activex

int main() {
  using namespace levelwidgets::activex;
  ::OleInitialize(nullptr);
  if (!ComponentModule()) {
    std::puts("the library of components is not beside this program");
    return 1;
  }
  HWND const window = ::CreateWindowExW(0, L"STATIC", L"Container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100,
                                        100, 500, 400, nullptr, nullptr, nullptr, nullptr);
  ReportCalls();
  ReportEvent(window);
  ReportCreation(window);
  WIN32_FILE_ATTRIBUTE_DATA file = {};
  ::GetFileAttributesExW(ComponentModulePath().c_str(), GetFileExInfoStandard, &file);
  std::printf("the library has %.2f of at most 4 MB\n", file.nFileSizeLow / 1048576.0);
  ::DestroyWindow(window);
  ::OleUninitialize();
}
