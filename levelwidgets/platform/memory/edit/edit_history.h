// What an edit box can undo and redo.
#pragma once

#include <cstddef>
#include <list>
#include <string>

namespace levelwidgets::memory {

// The inverse of a change: `inserted` bytes at `at` give way to `removed`.
struct EditStep {
  std::size_t at = 0;
  std::size_t inserted = 0;
  std::string removed;
};

// A run of single characters typed, or erased, one beside the other is one step.
enum class EditRun { kNone, kTyping, kErasing };

class EditHistory {
 public:
  static constexpr std::size_t kMostSteps = 1000;

  // Forgets what could be redone, and the oldest step when there are too many.
  void Record(EditStep step, EditRun run);
  // The next character begins a step of its own.
  void EndRun() { run_ = EditRun::kNone; }
  void Clear();

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  // Take the last step from one side; what undoes it in turn is put on the other by Undone and Redone.
  EditStep TakeUndo() { return Take(undo_); }
  EditStep TakeRedo() { return Take(redo_); }
  void Undone(EditStep inverse) { redo_.push_back(std::move(inverse)); }
  void Redone(EditStep inverse) { undo_.push_back(std::move(inverse)); }

 private:
  EditStep Take(std::list<EditStep>& steps);
  bool Join(const EditStep& step, EditRun run);

  // Lists, because they are nothing while empty, as in most boxes.
  std::list<EditStep> undo_;
  std::list<EditStep> redo_;
  EditRun run_ = EditRun::kNone;  // of the last step
};

}  // namespace levelwidgets::memory
