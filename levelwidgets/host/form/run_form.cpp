#include <levelwidgets/host/form/run_form.h>

namespace levelwidgets {

int RunForm(Form& form) {
  ClockApi& clock = form.GetPlatform().Clock();
  const std::weak_ptr<Form> watched = form.weak_from_this();
  // Whether a listener cancels is known only when all have been asked.
  form.Unload += [&clock, watched](bool&) {
    clock.Post([&clock, watched] {
      const auto left = watched.lock();
      if (!left || left->Closed()) clock.Quit(0);
    });
  };
  {
    const auto held = form.shared_from_this();  // a listener may let go of it
    form.Loaded();
    if (!form.Closed()) form.Show();
  }
  return clock.Run();
}

}  // namespace levelwidgets
