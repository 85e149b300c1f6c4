#include <tools/levelwidgets_doctor/library_files.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <levelwidgets/platform/win32/win32_text.h>
#include <tools/levelwidgets_doctor/portable_executable.h>

namespace levelwidgets::doctor {

namespace {

using win32::FromWide;
using win32::ToWide;
namespace fs = std::filesystem;

// Of libraries that need each other for ever.
constexpr int kDeepest = 8;

fs::path SystemFolder(int bits) {
  wchar_t folder[MAX_PATH] = {};
  if (bits == kOwnBits) {
    ::GetSystemDirectoryW(folder, MAX_PATH);
  } else if (kOwnBits == 64) {
    ::GetSystemWow64DirectoryW(folder, MAX_PATH);
  } else {
    ::GetWindowsDirectoryW(folder, MAX_PATH);
    return fs::path(folder) / "Sysnative";
  }
  return folder;
}

std::vector<fs::path> FoldersOfPath() {
  std::vector<fs::path> folders;
  std::wstring path(32768, L'\0');
  path.resize(::GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find(L';', at), path.size());
    if (end > at) folders.push_back(path.substr(at, end - at));
    at = end + 1;
  }
  return folders;
}

// Names that stand for a library of the system without a file of their own.
bool IsVirtual(std::string name) {
  std::ranges::transform(name, name.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return name.starts_with("api-ms-") || name.starts_with("ext-ms-");
}

class MissingLibraries {
 public:
  MissingLibraries(int bits, const std::string& program_folder) : bits_(bits), system_(SystemFolder(bits)) {
    if (!program_folder.empty()) folders_.push_back(ToWide(program_folder));
    folders_.push_back(system_);
    folders_.push_back(system_.parent_path());
    for (const fs::path& folder : FoldersOfPath()) folders_.push_back(folder);
  }

  void Search(const PortableExecutable& library, const fs::path& folder, int depth = 0) {
    for (const std::string& name : library.imports) {
      if (IsVirtual(name) || !seen_.insert(name).second) continue;
      if (!Find(name, folder, depth)) missing_.push_back(name);
    }
  }
  std::vector<std::string> Take() { return std::move(missing_); }

 private:
  bool Find(const std::string& name, const fs::path& beside, int depth) {
    std::vector<fs::path> folders{beside};
    folders.insert(folders.end(), folders_.begin(), folders_.end());
    for (const fs::path& folder : folders) {
      const auto bytes = BytesOfFile(FromWide((folder / ToWide(name)).wstring()));
      const auto library = bytes ? ReadPortableExecutable(*bytes) : std::nullopt;
      if (!library || library->bits != bits_) continue;
      // The system's own are there as a whole.
      if (folder != system_ && depth < kDeepest) Search(*library, folder, depth + 1);
      return true;
    }
    return false;
  }

  int bits_;
  fs::path system_;
  std::vector<fs::path> folders_;
  std::set<std::string> seen_;
  std::vector<std::string> missing_;
};

}  // namespace

std::optional<std::vector<std::uint8_t>> BytesOfFile(const std::string& path) {
  std::ifstream in(fs::path(ToWide(path)), std::ios::binary);
  if (!in) return std::nullopt;
  return std::vector<std::uint8_t>(std::istreambuf_iterator<char>(in), {});
}

LibraryFacts FactsOfLibrary(const std::string& path, int bits, const std::string& program_folder) {
  LibraryFacts facts;
  const auto bytes = BytesOfFile(path);
  if (!bytes) return facts;
  facts.exists = true;
  const auto library = ReadPortableExecutable(*bytes);
  if (!library || !library->is_library) return facts;
  facts.is_library = true;
  facts.bits = library->bits;
  facts.has_type_library = !library->type_library.empty();
  facts.type_library = ReadTypeLibrary(library->type_library);
  MissingLibraries missing(bits, program_folder);
  if (facts.bits == bits) missing.Search(*library, fs::path(ToWide(path)).parent_path());
  facts.missing = missing.Take();
  return facts;
}

TypeLibraryEntry FactsOfTypeLibrary(const std::string& where, const std::string& path) {
  TypeLibraryEntry entry{where, path};
  auto bytes = BytesOfFile(path);
  const std::size_t number = path.find_last_of('\\');
  if (!bytes && number != std::string::npos) bytes = BytesOfFile(path.substr(0, number));
  if (!bytes) return entry;
  entry.exists = true;
  const auto library = ReadPortableExecutable(*bytes);
  entry.library = library ? ReadTypeLibrary(library->type_library) : ReadTypeLibrary(*bytes);
  return entry;
}

}  // namespace levelwidgets::doctor
