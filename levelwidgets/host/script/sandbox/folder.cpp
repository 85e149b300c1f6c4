#include <levelwidgets/host/script/sandbox/folder.h>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/files/folder.h>
#include <levelwidgets/host/script/lua/failure.h>

namespace levelwidgets {

namespace {

bool IsNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

}  // namespace

bool IsFileInFolder(const std::filesystem::path& folder, const std::filesystem::path& file) {
  std::error_code missing;
  return std::filesystem::is_regular_file(file, missing) && IsInFolder(folder, file);
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
