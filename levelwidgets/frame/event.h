// Events that survive their listeners.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace levelwidgets {

// Ends a subscription when told to; does nothing after the event is gone.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::weak_ptr<bool> active) : active_(std::move(active)) {}
  void End() {
    if (auto active = active_.lock()) *active = false;
    active_.reset();
  }

 private:
  std::weak_ptr<bool> active_;
};

// One of a control's events. By-reference arguments are reference types (Event<std::int16_t&>).
//
// A listener may do anything, destroying the sender included: Raise touches nothing of the event after
// it has called the first one. Listeners that were there when Raise began are called in the order added;
// one whose subscription has ended meanwhile is not. An exception passes through, the rest is not called.
template <typename... Args>
class Event {
 public:
  using Listener = std::function<void(Args...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  Subscription Add(Listener listener) {
    auto active = std::make_shared<bool>(true);
    // Copied, because a Raise under way holds the old list.
    auto changed = slots_ ? std::make_shared<Slots>(*slots_) : std::make_shared<Slots>();
    std::erase_if(*changed, [](const Slot& slot) { return !*slot.active; });
    changed->push_back({active, std::move(listener)});
    slots_ = std::move(changed);
    return Subscription(active);
  }
  void operator+=(Listener listener) { Add(std::move(listener)); }

  // Ends every subscription. A Raise under way calls no further listener.
  void EndAll() {
    const auto ended = std::exchange(slots_, nullptr);
    if (!ended) return;
    for (const Slot& slot : *ended) *slot.active = false;
  }

  void Raise(Args... args) const {
    if (!slots_) return;
    const std::shared_ptr<const Slots> held = slots_;
    for (const Slot& slot : *held) {
      if (*slot.active) slot.listener(args...);
    }
  }

 private:
  struct Slot {
    std::shared_ptr<bool> active;
    Listener listener;
  };
  using Slots = std::vector<Slot>;
  std::shared_ptr<const Slots> slots_;
};

}  // namespace levelwidgets
