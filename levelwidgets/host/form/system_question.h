// How the system's own questions and messages are shown: their calls return with the answer, for which nobody
// who asks may have to wait.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <levelwidgets/host/form/modal.h>

namespace levelwidgets {

// While it lives, forms take no input, except the one that owns what the system shows: the system disables
// that one itself. Forms that have ended are left out.
class FormsAsked {
 public:
  FormsAsked(Platform& platform, const std::vector<std::weak_ptr<Form>>& forms);
  FormsAsked(const FormsAsked&) = delete;
  FormsAsked& operator=(const FormsAsked&) = delete;
  ~FormsAsked();

  // The window of the active one; none without one.
  WindowHandle Owner() const { return owner_ ? owner_->hWnd() : WindowHandle{}; }

 private:
  std::shared_ptr<Form> owner_;
  FormsAtRest rest_;
};

// Calls `ask`, which makes a FormsAsked, on a later turn of the loop on which no other exists. The system's
// calls would be nested in each other otherwise: the first answer would have to wait for the last one, and a
// few hundred would exhaust the stack.
void AskInTurn(ClockApi& clock, std::function<void()> ask);

// Calls `ask` with the owner, later and in its turn. When `others` take input again, calls `told` with the
// answer, unless `told` is null.
template <typename Ask, typename Told>
void AskSystem(Platform& platform, const std::vector<std::shared_ptr<Form>>& others, Ask ask, Told told) {
  const std::vector<std::weak_ptr<Form>> forms(others.begin(), others.end());
  AskInTurn(platform.Clock(), [&platform, forms, ask = std::move(ask), told = std::move(told)] {
    std::optional<FormsAsked> asked(std::in_place, platform, forms);
    const auto answer = ask(asked->Owner());
    asked.reset();
    if (told) told(answer);
  });
}

}  // namespace levelwidgets
