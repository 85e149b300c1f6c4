// What containers put into the menu of a control.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace levelwidgets {

struct Verb {
  std::int32_t number;
  std::string_view name;  // "&" before the access key
};

inline constexpr std::int32_t kEditVerb = 0;  // what a double click does, too
inline constexpr std::int32_t kPropertiesVerb = 1;
// Of every control, in the order of a menu.
inline constexpr Verb kVerbs[] = {{kEditVerb, "&Edit"}, {kPropertiesVerb, "&Properties..."}};

// How the registry has it: name, flags of the menu item (none), and that it belongs into menus
// (OLEVERBATTRIB_).
inline std::string MenuEntry(const Verb& verb) { return std::string(verb.name) + ",0,2"; }

}  // namespace levelwidgets
