#include <levelwidgets/host/form/modal.h>

namespace levelwidgets {

FormsAtRest::FormsAtRest(const std::vector<std::shared_ptr<Form>>& forms, const Form* except) {
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
