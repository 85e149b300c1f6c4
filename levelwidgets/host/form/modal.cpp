#include <levelwidgets/host/form/modal.h>

namespace levelwidgets {

namespace {

using Forms = std::vector<std::weak_ptr<Form>>;

Forms Disable(const Form& form, const std::vector<std::shared_ptr<Form>>& others) {
  WindowApi& windows = form.GetPlatform().Windows();
  Forms disabled;
  for (const auto& other : others) {
    if (other.get() == &form || other->Closed() || !windows.IsWindowEnabled(other->hWnd())) continue;
    disabled.push_back(other);
    windows.EnableWindow(other->hWnd(), false);
  }
  return disabled;
}

void EnableAgain(const Forms& disabled) {
  for (const auto& other : disabled) {
    const auto alive = other.lock();
    if (alive && !alive->Closed()) alive->GetPlatform().Windows().EnableWindow(alive->hWnd(), true);
  }
}

}  // namespace

void ShowModal(const std::shared_ptr<Form>& form, const std::vector<std::shared_ptr<Form>>& others,
               std::function<void()> on_closed) {
  const auto once = std::make_shared<Subscription>();
  *once = form->Gone.Add([once, disabled = Disable(*form, others), on_closed = std::move(on_closed),
                          &clock = form->GetPlatform().Clock()] {
    const auto now = disabled;
    if (on_closed) clock.Post(on_closed);
    once->End();
    EnableAgain(now);
  });
  form->Show();
}

}  // namespace levelwidgets
