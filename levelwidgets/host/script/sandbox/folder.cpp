#include <levelwidgets/host/script/sandbox/folder.h>

#include <algorithm>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/script/lua/failure.h>

namespace levelwidgets {

namespace {

bool IsNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

}  // namespace

bool IsFileInFolder(const std::filesystem::path& folder, const std::filesystem::path& file) {
  std::error_code missing;
  const auto real_folder = std::filesystem::canonical(folder.empty() ? "." : folder, missing);
  if (missing) return false;
  const auto real_file = std::filesystem::canonical(file, missing);
  if (missing || !std::filesystem::is_regular_file(real_file, missing)) return false;
  return std::mismatch(real_folder.begin(), real_folder.end(), real_file.begin(), real_file.end()).first ==
         real_folder.end();
}

void RequireScriptInFolder(const std::filesystem::path& folder, const std::string& path) {
  if (IsFileInFolder(folder, PathOf(path))) return;
  throw ScriptFailure(path + ": the script of a form is a file in the form's own folder");
}

std::optional<std::string> FileInFolder(const std::filesystem::path& folder, const std::string& path) {
  if (path.find('\0') != std::string::npos) return {};
  const std::filesystem::path relative = PathOf(path);
  if (relative.empty() || relative.has_root_path()) return {};
  if (!IsFileInFolder(folder, folder / relative)) return {};
  return TextOfPath(folder / relative);
}

std::optional<std::string> ModuleInFolder(const std::filesystem::path& folder, const std::string& name) {
  std::string path;
  for (const char c : name) {
    if (c != '.' && !IsNameCharacter(c)) return {};
    path += c == '.' ? '/' : c;
  }
  return FileInFolder(folder, path + ".lua");
}

}  // namespace levelwidgets
