#include <levelwidgets/platform/win32/win32_text.h>

#include <windows.h>

namespace levelwidgets::win32 {
namespace {

std::wstring Widen(UINT code_page, std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int wide_length = ::MultiByteToWideChar(code_page, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wide_length), L'\0');
  ::MultiByteToWideChar(code_page, 0, text.data(), length, wide.data(), wide_length);
  return wide;
}

std::string Narrow(UINT code_page, std::wstring_view wide, DWORD flags, const char* replacement) {
  const int wide_length = static_cast<int>(wide.size());
  const auto convert = [&](char* to, int size) {
    return ::WideCharToMultiByte(code_page, flags, wide.data(), wide_length, to, size, replacement, nullptr);
  };
  std::string text(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(text.data(), static_cast<int>(text.size()));
  return text;
}

}  // namespace

std::wstring ToWide(std::string_view utf8) { return Widen(CP_UTF8, utf8); }

std::string FromWide(std::wstring_view wide) { return Narrow(CP_UTF8, wide, 0, nullptr); }

std::string ToCodePage(std::string_view utf8) {
  // The system refuses a replacement for a code page that needs none.
  if (::GetACP() == CP_UTF8) return std::string(utf8);
  return Narrow(CP_ACP, ToWide(utf8), WC_NO_BEST_FIT_CHARS, "?");
}

std::string FromCodePage(std::string_view text) { return FromWide(Widen(CP_ACP, text)); }

}  // namespace levelwidgets::win32
