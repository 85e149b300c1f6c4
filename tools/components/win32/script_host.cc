// Runs a script with controls as names of its own, and its handlers by their names: script_host ENGINE FILE
//
// ENGINE is the script's language, for instance VBScript. The script knows `bar` (a FlatScroll), `strip` (a
// FlatTabStrip), `words` (a FlatTextBox in a window) and `seen` (a FlatLabel, in whose caption it notes what
// it sees). Its handlers are bar_Change and the like. Prints a line for each thing tried.
#include <activscp.h>

#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include <tools/components/win32/atl_host.h>
#include <tools/components/win32/event_sink.h>

namespace {

using NamedControls = std::map<std::wstring, IDispatchPtr>;

// What the engine asks of its host. It lives as long as the program.
class Site : public IActiveScriptSite {
 public:
  explicit Site(const NamedControls& controls) : controls_(controls) {}

  // "line 3: Invalid Value (800403EA)" of the last error; "" for none.
  std::string TakeError() { return std::exchange(error_, ""); }

  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    const bool is_known = id == IID_IUnknown || id == IID_IActiveScriptSite;
    *out = is_known ? this : nullptr;
    return is_known ? S_OK : E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD, IUnknown** item, ITypeInfo** type) override {
    if (type) *type = nullptr;
    if (item) controls_.at(name)->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(item));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
    EXCEPINFO info{};
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&info);
    error->GetSourcePosition(&context, &line, &column);
    error_ = "line " + std::to_string(line + 1) + ": " +
             (info.bstrDescription ? Narrow(info.bstrDescription) : "") + " (" + InHex(info.scode) + ")";
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

 private:
  const NamedControls& controls_;
  std::string error_;
};

_COM_SMARTPTR_TYPEDEF(IActiveScript, __uuidof(IActiveScript));
_COM_SMARTPTR_TYPEDEF(IActiveScriptParse, __uuidof(IActiveScriptParse));

class Script {
 public:
  Script(const wchar_t* language, const NamedControls& controls) : site_(controls) {
    Require(engine_.CreateInstance(language));
    Require(engine_->SetScriptSite(&site_));
    const IActiveScriptParsePtr parser = engine_;
    Require(parser->InitNew());
    for (const auto& [name, control] : controls) {
      Require(engine_->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE));
      const std::wstring prefix = name + L"_";
      EventSink::Connect(control, [this, prefix](const std::wstring& event, DISPPARAMS& arguments) {
        Call(prefix + event, arguments);
      });
    }
  }
  ~Script() { engine_->Close(); }

  void Run(const std::wstring& text) {
    const IActiveScriptParsePtr parser = engine_;
    Require(engine_->SetScriptState(SCRIPTSTATE_CONNECTED));
    Require(parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE,
                                    nullptr, nullptr));
  }
  std::string TakeError() { return site_.TakeError(); }

  // Nothing happens when the script has no such procedure. A script can change an argument only when it is
  // given as a value of any type.
  void Call(std::wstring procedure, DISPPARAMS& arguments) {
    IDispatchPtr global;
    DISPID id = 0;
    wchar_t* names[] = {procedure.data()};
    Require(engine_->GetScriptDispatch(nullptr, &global));
    if (FAILED(global->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) return;
    std::vector<_variant_t> values(arguments.cArgs);
    std::vector<VARIANT> given(arguments.cArgs);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
      Require(VariantCopyInd(&values[i], &arguments.rgvarg[i]));
      given[i].vt = VT_BYREF | VT_VARIANT;
      given[i].pvarVal = &values[i];
    }
    DISPPARAMS parameters{given.data(), nullptr, arguments.cArgs, 0};
    global->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                   nullptr);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
      if (arguments.rgvarg[i].vt == (VT_BYREF | VT_I2)) *arguments.rgvarg[i].piVal = values[i];
    }
  }

 private:
  Site site_;
  IActiveScriptPtr engine_;
};

IDispatchPtr Create(const wchar_t* name) {
  IDispatchPtr control;
  Require(control.CreateInstance(name));
  return control;
}

void HandleMessages() {
  const DWORD end = GetTickCount() + 500;
  MSG message;
  while (static_cast<LONG>(end - GetTickCount()) > 0) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    Sleep(5);
  }
}

void Type(const char* keys) {
  for (const char* key = keys; *key; ++key) {
    keybd_event(static_cast<BYTE>(*key), 0, 0, 0);
    keybd_event(static_cast<BYTE>(*key), 0, KEYEVENTF_KEYUP, 0);
  }
  HandleMessages();
}

std::wstring ReadFile(const wchar_t* path) {
  std::ifstream file(Narrow(path));
  return {std::istreambuf_iterator<char>(file), {}};
}

void CheckSeen(IDispatch* seen, const char* what, const char* expected) {
  Check(what, expected, TextOf(Get(seen, L"Caption")));
  Invoke(seen, L"Caption", DISPATCH_PROPERTYPUT, {L""});
}

void RunChecks(const wchar_t* language, const wchar_t* path) {
  const HWND frame = MakeFrame(L"Script host");
  const IDispatchPtr words =
      AtlHost(L"atl100.dll", L"AtlAxWin100").Make(L"LevelWidgets.FlatTextBox", frame, {16, 16, 216, 48});
  const IDispatchPtr bar = Create(L"LevelWidgets.FlatScroll");
  const IDispatchPtr strip = Create(L"LevelWidgets.FlatTabStrip");
  const IDispatchPtr seen = Create(L"LevelWidgets.FlatLabel");
  const NamedControls controls{{L"bar", bar}, {L"strip", strip}, {L"words", words}, {L"seen", seen}};
  Script script(language, controls);

  script.Run(ReadFile(path));
  Check("The script begins", "", script.TakeError());
  CheckSeen(seen, "A script changes controls, and its handlers are called", "bar 5;strip 0 2;");
  Invoke(bar, L"Value", DISPATCH_PROPERTYPUT, {7L});
  CheckSeen(seen, "A handler answers the program", "bar 7;");
  Invoke(bar, L"Value", DISPATCH_PROPERTYPUT, {13L});
  Check("An error in a handler has its line", "line 4: Invalid Value (800403EA)", script.TakeError());
  Check("A handler that fails leaves the value", "13", TextOf(Get(bar, L"Value")));

  Invoke(seen, L"Caption", DISPATCH_PROPERTYPUT, {L""});
  const long handle = Get(words, L"hWnd");
  SetForegroundWindow(frame);
  HandleMessages();
  SetFocus(GetWindow(reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle)), GW_CHILD));
  Type("AB");
  CheckSeen(seen, "Handlers get keys", "key 97;key 98;");
  // JScript has no arguments by reference.
  Check("A handler changes the keys", _wcsicmp(language, L"VBScript") == 0 ? "AB" : "ab",
        TextOf(Get(words, L"Text")));
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 3) return 2;
  OleInitialize(nullptr);
  try {
    RunChecks(arguments[1], arguments[2]);
  } catch (const _com_error& error) {
    Check("the script host", "no error", InHex(error.Error()));
  }
  OleUninitialize();
  Say("end");
  return 0;
}
