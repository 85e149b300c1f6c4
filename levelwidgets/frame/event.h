// Events that survive their listeners.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace levelwidgets {

// Ends a subscription on request; does nothing once the event has been destroyed.
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

// What events of all signatures have in common, compiled once.
class EventBase {
 public:
  EventBase(const EventBase&) = delete;
  EventBase& operator=(const EventBase&) = delete;

  // Ends every subscription. A Raise under way calls no further listener.
  void EndAll();

 protected:
  struct Slot {
    bool active = true;
    virtual ~Slot() = default;
  };
  using Slots = std::vector<std::shared_ptr<Slot>>;

  EventBase() = default;
  ~EventBase();
  Subscription AddSlot(std::shared_ptr<Slot> slot);
  const std::shared_ptr<const Slots>& GetSlots() const { return slots_; }

 private:
  std::shared_ptr<const Slots> slots_;  // null for none
};

// One of a control's events. By-reference arguments are reference types (Event<std::int16_t&>).
//
// A listener may do anything, even destroy the sender: Raise does not touch the event again after it has
// called the first listener. It calls the listeners that it found, in the order added, except those whose
// subscription has ended meanwhile. An exception passes through, and the other listeners are not called.
template <typename... Args>
class Event : public EventBase {
 public:
  using Listener = std::function<void(Args...)>;

  Subscription Add(Listener listener) { return AddSlot(std::make_shared<ListenerSlot>(std::move(listener))); }
  void operator+=(Listener listener) { Add(std::move(listener)); }

  // `target` is raised whenever this is, before the listeners of this are called. It must outlive this. It
  // costs less than a listener that raises it.
  void RelayTo(const Event& target) { relay_ = &target; }

  void Raise(Args... args) const {
    const std::shared_ptr<const Slots> held = GetSlots();
    if (relay_) relay_->Raise(args...);
    if (!held) return;
    for (const auto& slot : *held) {
      if (slot->active) static_cast<const ListenerSlot&>(*slot).listener(args...);
    }
  }

 private:
  struct ListenerSlot final : Slot {
    explicit ListenerSlot(Listener called) : listener(std::move(called)) {}
    Listener listener;
  };

  const Event* relay_ = nullptr;
};

}  // namespace levelwidgets
