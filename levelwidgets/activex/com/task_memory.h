// Memory that callers free: of the component interface's allocator.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::activex {

// Null for an empty list; raises 7 when there is no room.
template <typename T>
T* TaskArray(const std::vector<T>& items) {
  if (items.empty()) return nullptr;
  T* const copy = static_cast<T*>(::CoTaskMemAlloc(items.size() * sizeof(T)));
  if (!copy) throw Error(kOutOfMemory);
  std::ranges::copy(items, copy);
  return copy;
}

inline LPOLESTR TaskText(const std::wstring& text) {
  return TaskArray(std::vector<wchar_t>(text.c_str(), text.c_str() + text.size() + 1));
}
inline LPOLESTR TaskText(std::string_view utf8) { return TaskText(win32::ToWide(utf8)); }

}  // namespace levelwidgets::activex
