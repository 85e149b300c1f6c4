#include <levelwidgets/activex/page/page_window.h>

#include <algorithm>
#include <ranges>

#include <levelwidgets/activex/com/module_life.h>
#include <levelwidgets/frame/access_key.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::activex {

namespace {

constexpr Twips kPageMargin(120);  // around the fields

std::shared_ptr<Form> MakePageForm(Runtime& runtime, WindowHandle parent) {
  const auto form = Form::Create(runtime.GetPlatform(),
                                 {.name = "frmPage", .size = {}, .key_preview = true, .parent = parent});
  if (form->Closed()) throw Error(kOutOfMemory);
  return form;
}

TwipSize WithMargins(const TwipSize& size) {
  return {size.width + kPageMargin + kPageMargin, size.height + kPageMargin + kPageMargin};
}

// Those that move among windows, press a frame's buttons or choose its pages.
bool IsFramesKey(const KeyMessage& key) {
  if ((key.shift & (kCtrlMask | kAltMask)) != 0) return true;
  return key.code == kKeyTab || key.code == kKeyEnter || key.code == kKeyEscape || key.code == VK_F1;
}

bool TakesTab(const std::shared_ptr<HostedControl>& control) {
  return control->TabStop() && control->CanTakeInput();
}

}  // namespace

// --- Life ----------------------------------------------------------------------------------------

std::shared_ptr<PageWindow> PageWindow::Open(std::shared_ptr<Runtime> runtime,
                                             const std::shared_ptr<PropertyPage>& page, HWND frame,
                                             OfferKey offer) {
  auto form = MakePageForm(*runtime, win32::FromNative<WindowHandle>(frame));
  const std::shared_ptr<PageWindow> window(
      new PageWindow(std::move(runtime), std::move(form), std::move(offer)));
  window->Fill(page);
  return window;
}

PixelSize PageWindow::SizeOf(const std::shared_ptr<Runtime>& runtime, const PageInfo& page) {
  const auto form = MakePageForm(*runtime, runtime->ParkingWindow());
  const TwipSize size = WithMargins(PageView::SizeOn(*form, page));
  const FormScale scale(runtime->GetPlatform().Screen());
  return {scale.PixelsX(size.width), scale.PixelsY(size.height)};
}

PageWindow::~PageWindow() { Close(); }

void PageWindow::Fill(const std::shared_ptr<PropertyPage>& page) {
  const auto weak = weak_from_this();
  const auto view =
      PageView::Create(form_, page, {kPageMargin, kPageMargin}, [weak](const std::string& text) {
        if (const auto self = weak.lock()) self->Report(text);
      });
  const TwipSize size = WithMargins(view->Size());
  form_->SetWidth(size.width);
  form_->SetHeight(size.height);
  form_->KeyDown += [weak](std::int16_t& code, std::int16_t shift) {
    if (const auto self = weak.lock()) self->TakeKey(code, shift);
  };
  form_->SetErrorHandler([weak](std::string_view, std::string_view, const Error& error) {
    const auto self = weak.lock();
    if (self) self->Report(error.Description());
    return self != nullptr;
  });
  for (const auto& control : form_->Controls()) {
    control->LostFocus += [weak, name = control->Name()] {
      if (const auto self = weak.lock()) self->FieldLeft(name);
    };
  }
}

void PageWindow::Close() { form_->Close(); }

// --- Place ---------------------------------------------------------------------------------------

HWND PageWindow::Window() const { return win32::ToNative<HWND>(form_->hWnd()); }

HWND PageWindow::FrameRoot() const { return ::GetAncestor(Window(), GA_ROOT); }

void PageWindow::Show(bool visible) {
  runtime_->GetPlatform().Windows().ShowWindow(form_->hWnd(), visible ? kSwShow : kSwHide);
}

void PageWindow::Place(const RECT& place) {
  runtime_->GetPlatform().Windows().SetWindowPos(
      form_->hWnd(), {}, {place.left, place.top, place.right, place.bottom}, kSwpNoZOrder | kSwpNoActivate);
}

// --- Keys ----------------------------------------------------------------------------------------

std::shared_ptr<HostedControl> PageWindow::FieldWith(HWND window) const {
  const auto handle = win32::FromNative<WindowHandle>(window);
  for (const auto& hosted : form_->Controls()) {
    if (hosted->GetControl() && hosted->GetControl()->Holds(handle)) return hosted;
  }
  return nullptr;
}

// A key that may be the frame's goes to the field, which may have use for it (an open list is closed by
// Escape); what the field has not used comes to TakeKey. All other keys are the field's: a frame that takes
// its windows for a dialog would press buttons by letters.
HRESULT PageWindow::Translate(MSG& message) {
  const auto field = FieldWith(message.hwnd);
  WindowApi& windows = runtime_->GetPlatform().Windows();
  const auto key = KeyMessageOf(windows, message.message, message.wParam);
  if (!field || !key) return S_FALSE;
  if (message.message == WM_SYSCHAR && !HasAccessKey(key->code)) return S_FALSE;
  const auto keep = shared_from_this();
  if (key->kind != KeyMessage::Kind::kDown || !IsFramesKey(*key)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
    return S_OK;
  }
  left_ = false;
  message_ = &message;
  windows.SendMessageA(win32::FromNative<WindowHandle>(message.hwnd), message.message, message.wParam,
                       message.lParam);
  message_ = nullptr;
  return left_ ? S_FALSE : S_OK;
}

// Of a field that can be reached by it. The message carries it as a byte of the system's code page.
bool PageWindow::HasAccessKey(std::int16_t character) const {
  const char byte = static_cast<char>(character);
  const std::string pressed = runtime_->GetPlatform().Conversions().FromCodePage({&byte, 1});
  return std::ranges::any_of(form_->Controls(), [&](const auto& control) {
    return control->CanTakeInput() && IsAccessKey(control->GetControl()->GetSurface().AccessKeys(), pressed);
  });
}

// The Tab key goes from the last field to what comes behind the page. A frame that does not offer the key
// cannot move the focus by it: then it goes round in the page.
void PageWindow::TakeKey(std::int16_t& code, std::int16_t shift) {
  if (!message_) return;
  MSG& message = *std::exchange(message_, nullptr);
  const bool is_tab = code == kKeyTab && (shift & (kCtrlMask | kAltMask)) == 0;
  if (is_tab && !IsAtEnd((shift & kShiftMask) == 0)) return;
  code = 0;
  left_ = !is_tab || (MayBeLeft() && !offer_(message));
}

bool PageWindow::IsAtEnd(bool forward) const {
  const auto& controls = form_->Controls();
  const auto active = form_->ActiveControl();
  if (!forward) {
    const auto first = std::ranges::find_if(controls, TakesTab);
    return first != controls.end() && *first == active;
  }
  const auto backwards = std::views::reverse(controls);
  const auto last = std::ranges::find_if(backwards, TakesTab);
  return last != backwards.end() && *last == active;
}

// Asks the field with the focus, as the form does for another field of its own.
bool PageWindow::MayBeLeft() const {
  const auto active = form_->ActiveControl();
  bool cancel = false;
  if (active) active->Validate.Raise(cancel);
  return !cancel;
}

// To another window of the frame, which does not ask: a field that refuses gets the focus back.
void PageWindow::FieldLeft(const std::string& name) {
  HWND const now = ::GetFocus();
  if (!now || FieldWith(now) || now == Window() || ::GetAncestor(now, GA_ROOT) != FrameRoot()) return;
  runtime_->GetPlatform().Clock().Post([weak = weak_from_this(), name] {
    const auto self = weak.lock();
    const auto field = self ? self->form_->Find(name) : nullptr;
    if (!field || field != self->form_->ActiveControl() || self->MayBeLeft()) return;
    if (field->CanTakeInput()) field->SetFocus();
  });
}

void PageWindow::Focus(std::string_view field) {
  const auto hosted = form_->Find(field);
  if (hosted && hosted->CanTakeInput()) hosted->SetFocus();
}

// --- Messages ------------------------------------------------------------------------------------

// On a later turn of the loop: a refusal comes while the focus is on its way.
void PageWindow::Report(const std::string& text) {
  runtime_->GetPlatform().Clock().Post([weak = weak_from_this(), text] {
    if (const auto self = weak.lock()) self->ShowReport(text);
  });
}

void PageWindow::ShowReport(const std::string& text) {
  if (reporting_ || !Exists()) return;
  const auto keep = runtime_;
  const ModuleLock lock;  // the frame may let go of the page meanwhile
  reporting_ = true;
  HWND const focus = ::GetFocus();
  runtime_->GetPlatform().MessageBoxes().MessageBoxA({.owner = win32::FromNative<WindowHandle>(FrameRoot()),
                                                      .text = text,
                                                      .title = "LevelWidgets",
                                                      .style = MB_OK | MB_ICONERROR});
  reporting_ = false;
  // Frames that are no dialogs of the system do not give it back.
  if (Exists() && FieldWith(focus) && ::GetFocus() == FrameRoot()) ::SetFocus(focus);
}

}  // namespace levelwidgets::activex
