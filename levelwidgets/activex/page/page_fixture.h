// What the tests of property pages share.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {

// A frame's site for a page: it records each call and returns what the test has set.
class TestPageSite : public ComObject<IPropertyPageSite> {
 public:
  CallJournal TakeCalls() { return std::exchange(calls_, {}); }

  HRESULT answer = S_OK;         // to a change of the page
  HRESULT key_answer = S_FALSE;  // to a key
  // Is called at a change of the page.
  std::function<void()> on_change;

  HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) override {
    calls_.push_back("OnStatusChange(" + std::to_string(flags) + ")");
    const auto deed = on_change;
    if (deed) deed();
    return answer;
  }
  HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) override {
    *locale = LOCALE_USER_DEFAULT;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) override {
    *container = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override {
    calls_.push_back("TranslateAccelerator(" + std::to_string(message->wParam) + ")");
    return key_answer;
  }

 private:
  CallJournal calls_;
};

// A frame with a page in it, beside a component that stands in the same window.
class PropertyPageTest : public ComponentTest {
 protected:
  void TearDown() override {
    ClosePage();
    ComponentTest::TearDown();
  }

  // The page with the component of the class as its object, shown.
  void Open(const char* page, const char* class_name) {
    Design(class_name);
    MakePage(page);
    ASSERT_EQ(SetObjects({Object()}), S_OK);
    Show();
  }
  // A component in a container that designs, as those are that show pages.
  void Design(const char* class_name) {
    Embed(class_name);
    VARIANT& user_mode = Container().ambients[DISPID_AMBIENT_USERMODE];
    user_mode.vt = VT_BOOL;
    user_mode.boolVal = VARIANT_FALSE;
  }
  // The page with its site, without objects and without a window.
  void MakePage(const char* page) {
    page_ = As<IPropertyPage2>(MakeComponent(page));
    ASSERT_TRUE(page_);
    site_ = ComPtr<TestPageSite>::Taking(new TestPageSite);
    ASSERT_EQ(page_->SetPageSite(site_.Get()), S_OK);
  }
  HRESULT SetObjects(std::vector<IUnknown*> objects) {
    return page_->SetObjects(static_cast<ULONG>(objects.size()), objects.data());
  }
  void Show() {
    ASSERT_EQ(page_->Activate(Window(), &place_, FALSE), S_OK);
    ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
    Settle();
  }
  void ClosePage() {
    if (page_) {
      page_->Deactivate();
      page_->SetObjects(0, nullptr);
      page_->SetPageSite(nullptr);
    }
    page_ = nullptr;
    site_ = nullptr;
  }

  IPropertyPage2& Page() { return *page_.Get(); }
  TestPageSite& PageSite() { return *site_.Get(); }
  const RECT& PagePlace() const { return place_; }
  // The page's window in the frame's; null for none.
  HWND PageWindowInFrame() {
    HWND const control = ControlWindow();
    HWND window = ::GetWindow(Window(), GW_CHILD);
    while (window && (window == control || !IsOfLibrary(window))) window = ::GetWindow(window, GW_HWNDNEXT);
    return window;
  }

  // Gives the focus to the field of the property. False when the page has no such field, or the field does
  // not take it.
  bool Focus(const char* property) {
    const bool found = page_->EditProperty(IdOf(Object(), property)) == S_OK;
    Settle();
    return found && ::IsChild(PageWindowInFrame(), ::GetFocus());
  }
  // Of the field with the focus.
  static std::string FieldText() {
    wchar_t text[200] = {};
    ::SendMessageW(::GetFocus(), WM_GETTEXT, 200, reinterpret_cast<LPARAM>(text));
    return TextOf(text);
  }
  // Replaces the text of the field with the focus, as a person does.
  void Type(const std::string& text) {
    Press(VK_END);  // no character comes without a key
    ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
    if (text.empty()) Press(VK_DELETE);
    for (const char c : text) ::PostMessageW(::GetFocus(), WM_CHAR, static_cast<WPARAM>(c), 1);
    RunFrame();
  }
  void Press(WPARAM key) {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1);
    RunFrame();
    ::PostMessageW(::GetFocus(), WM_KEYUP, key, 1);
    RunFrame();
  }
  // Opens the list that has the focus and chooses the item at `index`, from 0.
  void Pick(int index) {
    Press(VK_F4);
    Press(VK_HOME);
    for (int i = 0; i <= index; ++i) Press(VK_DOWN);
    Press(VK_RETURN);
  }
  // Down for as long as `deed` lasts, and as messages see it.
  template <typename Deed>
  void Holding(int key, Deed deed) {
    SetKey(key, 0x80);
    deed();
    SetKey(key, 0);
  }
  // The loop of a frame, which offers each message to the page.
  void RunFrame() {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (page_ && page_->TranslateAccelerator(&message) == S_OK) continue;
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
  }
  // Source and description that the last failed call has left.
  static std::string LastError() {
    ComPtr<IErrorInfo> error;
    if (::GetErrorInfo(0, error.Receive()) != S_OK) return "none";
    BSTR source = nullptr, description = nullptr;
    error->GetSource(&source);
    error->GetDescription(&description);
    const std::string text = TextOfBstr(source) + ": " + TextOfBstr(description);
    ::SysFreeString(source);
    ::SysFreeString(description);
    return text;
  }

 private:
  static bool IsOfLibrary(HWND window) {
    wchar_t name[64] = {};
    ::GetClassNameW(window, name, 64);
    return std::wstring_view(name).starts_with(L"LevelWidgets");
  }
  static void SetKey(int key, BYTE state) {
    BYTE keys[256] = {};
    ::GetKeyboardState(keys);
    keys[key] = state;
    ::SetKeyboardState(keys);
  }

  RECT place_ = {100, 5, 480, 350};
  ComPtr<IPropertyPage2> page_;
  ComPtr<TestPageSite> site_;
};

}  // namespace levelwidgets::activex
