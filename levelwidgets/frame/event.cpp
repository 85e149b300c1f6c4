#include <levelwidgets/frame/event.h>

namespace levelwidgets {

EventBase::~EventBase() = default;

Subscription EventBase::AddSlot(std::shared_ptr<Slot> slot) {
  const Subscription subscription(std::shared_ptr<bool>(slot, &slot->active));
  // Copied, because a Raise under way holds the old list.
  auto changed = slots_ ? std::make_shared<Slots>(*slots_) : std::make_shared<Slots>();
  std::erase_if(*changed, [](const auto& present) { return !present->active; });
  changed->push_back(std::move(slot));
  slots_ = std::move(changed);
  return subscription;
}

void EventBase::EndAll() {
  const auto ended = std::exchange(slots_, nullptr);
  if (!ended) return;
  for (const auto& slot : *ended) slot->active = false;
}

}  // namespace levelwidgets
