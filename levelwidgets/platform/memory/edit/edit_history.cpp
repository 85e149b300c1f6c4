#include <levelwidgets/platform/memory/edit/edit_history.h>

#include <utility>

namespace levelwidgets::memory {

void EditHistory::Record(EditStep step, EditRun run) {
  redo_.clear();
  if (!Join(step, run)) undo_.push_back(std::move(step));
  if (undo_.size() > kMostSteps) undo_.pop_front();
  run_ = run;
}

// Whether `step` has become part of the last one.
bool EditHistory::Join(const EditStep& step, EditRun run) {
  if (run == EditRun::kNone || run != run_ || undo_.empty()) return false;
  EditStep& last = undo_.back();
  if (run == EditRun::kTyping) {
    if (!step.removed.empty() || step.at != last.at + last.inserted) return false;
    last.inserted += step.inserted;
    return true;
  }
  if (step.at + step.removed.size() == last.at) {
    last.removed.insert(0, step.removed);
    last.at = step.at;
    return true;
  }
  if (step.at != last.at) return false;
  last.removed += step.removed;
  return true;
}

void EditHistory::Clear() {
  undo_.clear();
  redo_.clear();
  run_ = EditRun::kNone;
}

EditStep EditHistory::Take(std::list<EditStep>& steps) {
  EditStep step = std::move(steps.back());
  steps.pop_back();
  run_ = EditRun::kNone;
  return step;
}

}  // namespace levelwidgets::memory
