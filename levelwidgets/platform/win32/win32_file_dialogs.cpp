#include <levelwidgets/platform/win32/win32_file_dialogs.h>

#include <windows.h>

#include <commdlg.h>

#include <filesystem>
#include <string>

#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>

// They are the system's calls for wide characters, since a name may have some that the code page lacks.
namespace levelwidgets::win32 {

namespace {

constexpr std::size_t kLongestPath = 32768;

// Pairs of a text that is shown and its patterns, each ended by a NUL, and one more NUL.
std::wstring FilterOf(const std::vector<std::string>& patterns) {
  if (patterns.empty()) return {};
  std::string list;
  for (const std::string& pattern : patterns) list += (list.empty() ? "" : ";") + pattern;
  std::wstring filter;
  for (const std::string& text : {list, list, std::string("*.*"), std::string("*.*")}) {
    filter += ToWide(text);
    filter += L'\0';
  }
  return filter;
}

// A question moves to the folder that is looked at.
class KeepFolder {
 public:
  KeepFolder() : folder_(std::filesystem::current_path(error_)) {}
  ~KeepFolder() { std::filesystem::current_path(folder_, error_); }
  KeepFolder(const KeepFolder&) = delete;
  KeepFolder& operator=(const KeepFolder&) = delete;

 private:
  std::error_code error_;
  std::filesystem::path folder_;
};

const wchar_t* TextOrNull(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

template <typename Call>
std::optional<std::string> Win32FileDialogs::Ask(Call call, const FileDialog& dialog, unsigned long flags) {
  const std::wstring title = ToWide(dialog.title), folder = ToWide(dialog.folder),
                     filter = FilterOf(dialog.patterns);
  std::wstring file = ToWide(dialog.name);
  file.resize(kLongestPath);
  OPENFILENAMEW question = {};
  question.lStructSize = sizeof question;
  question.hwndOwner = ToNative<HWND>(dialog.owner);
  question.lpstrTitle = TextOrNull(title);
  question.lpstrInitialDir = TextOrNull(folder);
  question.lpstrFilter = TextOrNull(filter);
  question.lpstrFile = file.data();
  question.nMaxFile = kLongestPath;
  question.Flags = flags | OFN_EXPLORER | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  const KeepFolder keep;
  const auto ask = [&] { return relay_.Run([&] { return call(&question); }) != FALSE; };
  bool answered = ask();
  if (!answered && ::CommDlgExtendedError() == FNERR_INVALIDFILENAME) {  // the proposal is no name
    file.assign(kLongestPath, L'\0');
    answered = ask();
  }
  if (!answered) return {};
  return FromWide(file.c_str());
}

std::optional<std::string> Win32FileDialogs::GetOpenFileNameA(const FileDialog& dialog) {
  return Ask(::GetOpenFileNameW, dialog, OFN_FILEMUSTEXIST);
}

std::optional<std::string> Win32FileDialogs::GetSaveFileNameA(const FileDialog& dialog) {
  return Ask(::GetSaveFileNameW, dialog, OFN_OVERWRITEPROMPT);
}

}  // namespace levelwidgets::win32
