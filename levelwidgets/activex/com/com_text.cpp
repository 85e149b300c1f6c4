#include <levelwidgets/activex/com/com_text.h>

#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::activex {

BSTR NewText(std::string_view utf8) {
  const std::wstring wide = win32::ToWide(utf8);
  return ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

std::string TextOf(const OLECHAR* text) { return text ? win32::FromWide(text) : std::string(); }

std::string TextOfBstr(BSTR text) {
  return text ? win32::FromWide({text, ::SysStringLen(text)}) : std::string();
}

}  // namespace levelwidgets::activex
