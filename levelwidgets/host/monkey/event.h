// One thing that happens to a form.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/frame/variant.h>

namespace levelwidgets::monkey {

enum class EventKind {
  // The pointer and the keys
  kMove,         // numbers: screen x, y
  kMoveTo,       // control, or the form's inner area when ""; numbers: x, y in twips
  kMoveToPanel,  // control; numbers: x, y in thousandths of the panel that it has open
  kPress,        // numbers: button
  kRelease,
  kDoubleClick,
  kWheel,  // numbers: notches
  kKey,    // numbers: code, shift
  kKeyDown,
  kKeyUp,
  kType,     // values: text
  kAdvance,  // numbers: milliseconds
  // Members of a control, or of the form when control is ""
  kSet,        // path, member; values: indices, then the value
  kCall,       // path, member; values: arguments
  kPlace,      // numbers: left, top, width, height in twips
  kFontField,  // the control's Font changes as it is: member is a property of Font; values: its value
  kShareFont,  // member: the control whose Font is taken
  // The form
  kAdd,     // control: its name; member: class; numbers: as kPlace and whether loaded from an empty bag
  kRemove,  // control
  kShow,    // numbers: 0 the form, 1 the other form
  kHide,
  // Reactions
  kOnce,   // control, member: event; nested: what its next listener does
  kThrow,  // control, member: event; its next listener throws
  // One of the invariants that are checked now and then
  kCheck,  // member: its name; control; values: the name of another control
};

// The object that is the value of a property, or with an index that of an indexed one: Columns[2].
struct PathStep {
  std::string property;
  std::int32_t index = 0;  // 0 for none

  friend bool operator==(const PathStep&, const PathStep&) = default;
};

struct Event {
  EventKind kind = EventKind::kAdvance;
  std::string control;
  std::vector<PathStep> path;
  std::string member;
  std::vector<Variant> values;
  std::vector<std::int64_t> numbers;
  std::shared_ptr<const Event> nested;
};

bool operator==(const Event& a, const Event& b);

// The event as a line of Lua in a script that has the desktop as `d`, the form as `f`, the other form as `g`
// and the functions of its preamble (script.h).
std::string ToLua(const Event& event);
// The value as Lua writes it.
std::string ToLua(const Variant& value);

}  // namespace levelwidgets::monkey
