#include <levelwidgets/host/form/modal.h>

#include <algorithm>

namespace levelwidgets {

namespace {

using Forms = std::vector<std::shared_ptr<Form>>;

bool AreAround(const Forms& forms, WindowApi& windows, WindowHandle window) {
  while (window && std::ranges::find(forms, window, &Form::hWnd) == forms.end())
    window = windows.GetParent(window);
  return static_cast<bool>(window);
}

// A control that has captured the pointer would take clicks all the same, as each one does that shows the
// pointer over itself. It sees the pointer leave, which takes two moves after a click; a drag is cancelled.
void EndCaptureIn(const Forms& forms) {
  if (forms.empty()) return;
  WindowApi& windows = forms.front()->GetPlatform().Windows();
  const WindowHandle holder = windows.GetCapture();
  if (!AreAround(forms, windows, holder)) return;
  for (const PixelPoint outside : {PixelPoint{-1, -1}, PixelPoint{-2, -1}}) {
    if (windows.GetCapture() == holder) windows.SendMessageA(holder, kWmMouseMove, 0, LParamOfPoint(outside));
  }
  if (windows.GetCapture() == holder) windows.SendMessageA(holder, kWmCancelMode, 0, 0);
}

}  // namespace

FormsAtRest::FormsAtRest(const std::vector<std::shared_ptr<Form>>& forms, const Form* except) {
  EndCaptureIn(forms);
  for (const auto& form : forms) {
    if (form.get() == except || form->Closed()) continue;
    WindowApi& windows = form->GetPlatform().Windows();
    if (!windows.IsWindowEnabled(form->hWnd())) continue;
    disabled_.push_back(form);
    windows.EnableWindow(form->hWnd(), false);
  }
}

FormsAtRest::~FormsAtRest() {
  for (const auto& form : disabled_) {
    const auto alive = form.lock();
    if (alive && !alive->Closed()) alive->GetPlatform().Windows().EnableWindow(alive->hWnd(), true);
  }
}

void ShowModal(const std::shared_ptr<Form>& form, const std::vector<std::shared_ptr<Form>>& others,
               std::function<void()> on_closed) {
  const auto once = std::make_shared<Subscription>();
  *once = form->Gone.Add([once, rest = std::make_shared<FormsAtRest>(others, form.get()),
                          on_closed = std::move(on_closed), &clock = form->GetPlatform().Clock()]() mutable {
    if (on_closed) clock.Post(on_closed);
    once->End();
    rest.reset();
  });
  form->Show();
}

}  // namespace levelwidgets
