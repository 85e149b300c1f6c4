#include <tools/levelwidgets_doctor/gather.h>

#include <windows.h>

#include <objbase.h>
#include <sddl.h>

#include <algorithm>
#include <bit>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/platform/win32/win32_text.h>
#include <tools/levelwidgets_doctor/library_files.h>
#include <tools/levelwidgets_doctor/policies.h>
#include <tools/levelwidgets_doctor/portable_executable.h>
#include <tools/levelwidgets_doctor/registry_view.h>

namespace levelwidgets::doctor {

namespace {

using win32::FromWide;
using win32::ToWide;

constexpr char kClasses[] = "Software\\Classes\\";
// Where containers ask whether they may make a class; 0x400 says no.
constexpr const char* kBlockLists[] = {"SOFTWARE\\Microsoft\\Internet Explorer\\ActiveX Compatibility\\",
                                       "SOFTWARE\\Microsoft\\Office\\Common\\COM Compatibility\\"};
constexpr DWORD kKillBit = 0x400;

std::optional<Server> ServerOf(const RegistryView& registry, const RegistryRoot& root,
                               const std::string& class_key) {
  const std::string key = class_key + "\\InprocServer32";
  const auto path = registry.Text(root, key, "");
  if (!path) return std::nullopt;
  return Server{std::string(root.name) + "\\" + key, *path,
                registry.Text(root, key, "ThreadingModel").value_or("")};
}

// "MACHINE\name"; the identifier itself where it has no name.
std::string UserNameOf(const std::string& identifier) {
  PSID sid = nullptr;
  if (!::ConvertStringSidToSidW(ToWide(identifier).c_str(), &sid)) return identifier;
  wchar_t name[256] = {};
  wchar_t domain[256] = {};
  DWORD name_length = 256;
  DWORD domain_length = 256;
  SID_NAME_USE use;
  const BOOL found = ::LookupAccountSidW(nullptr, sid, name, &name_length, domain, &domain_length, &use);
  ::LocalFree(sid);
  return found ? FromWide(domain) + "\\" + FromWide(name) : identifier;
}

// Of those who are logged on; this user is one of them, and is asked only where he has none.
std::vector<OtherUser> OtherUsersOf(const RegistryView& registry, const std::string& class_id) {
  constexpr std::string_view kEnd = "_Classes";
  std::vector<OtherUser> users;
  for (const std::string& user : registry.Keys(kUsersRoot, "")) {
    if (!user.ends_with(kEnd)) continue;
    const auto server = ServerOf(registry, kUsersRoot, user + "\\CLSID\\" + class_id);
    if (server) users.push_back({UserNameOf(user.substr(0, user.size() - kEnd.size())), server->path});
  }
  return users;
}

std::string BlockOf(const RegistryView& registry, const std::string& class_id) {
  for (const char* list : kBlockLists) {
    const auto flags = registry.Number(kMachineRoot, list + class_id, "Compatibility Flags");
    if (flags && (*flags & kKillBit)) return std::string(kMachineRoot.name) + "\\" + list + class_id;
  }
  return "";
}

ClassFacts FactsOfClass(const ComponentClass& of, int bits) {
  const RegistryView registry(bits);
  const RegistryView other(96 - bits);
  const std::string class_id = TextOf(of.identity->class_id);
  const std::string key = kClasses + ("CLSID\\" + class_id);
  ClassFacts facts;
  facts.name = of.info->Name();
  facts.user = ServerOf(registry, kUserRoot, key);
  facts.machine = ServerOf(registry, kMachineRoot, key);
  facts.blocked_at = BlockOf(registry, class_id);
  if (facts.Used()) return facts;
  facts.other_bitness = ServerOf(other, kUserRoot, key);
  if (!facts.other_bitness) facts.other_bitness = ServerOf(other, kMachineRoot, key);
  facts.other_users = OtherUsersOf(registry, class_id);
  return facts;
}

std::vector<TypeLibraryEntry> TypeLibrariesFor(int bits) {
  const RegistryView registry(bits);
  const std::string key = kClasses + ("TypeLib\\" + TextOf(kLibraryId)) + "\\" +
                          std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor) + "\\0\\win" +
                          std::to_string(bits);
  std::vector<TypeLibraryEntry> entries;
  for (const RegistryRoot& root : {kUserRoot, kMachineRoot}) {
    const auto path = registry.Text(root, key, "");
    if (path) entries.push_back(FactsOfTypeLibrary(std::string(root.name) + "\\" + key, *path));
  }
  return entries;
}

std::string MessageOf(HRESULT result) {
  wchar_t text[512] = {};
  ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   static_cast<DWORD>(result), 0, text, 512, nullptr);
  std::string message = FromWide(text);
  while (!message.empty() && static_cast<unsigned char>(message.back()) <= ' ') message.pop_back();
  char number[16] = {};
  std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
  return message.empty() ? std::string(number) : std::string(number) + ": " + message;
}

AttemptFacts TryToMake(const ComponentClass& of) {
  IUnknown* made = nullptr;
  const auto class_id = std::bit_cast<GUID>(of.identity->class_id);
  const HRESULT result = ::CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                            reinterpret_cast<void**>(&made));
  if (made) made->Release();
  return {std::string(of.info->Name()), SUCCEEDED(result) ? 0 : static_cast<std::uint32_t>(result),
          MessageOf(result)};
}

// Without a window of the system's about what it cannot load.
std::vector<AttemptFacts> TryAll(const std::vector<ComponentClass>& classes) {
  const UINT mode = ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  const HRESULT initialized = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  std::vector<AttemptFacts> attempts;
  for (const ComponentClass& each : classes) attempts.push_back(TryToMake(each));
  if (SUCCEEDED(initialized)) ::CoUninitialize();
  ::SetErrorMode(mode);
  return attempts;
}

std::string FullPath(const std::string& path) {
  if (path.empty()) return path;
  wchar_t full[1024] = {};
  const DWORD length = ::GetFullPathNameW(ToWide(path).c_str(), 1024, full, nullptr);
  return length == 0 || length >= 1024 ? path : FromWide(full);
}

void ReadContainer(Facts& facts) {
  if (facts.container.empty()) return;
  const auto bytes = BytesOfFile(facts.container);
  const auto program = bytes ? ReadPortableExecutable(*bytes) : std::nullopt;
  facts.container_is_read = program && program->bits != 0;
  if (facts.container_is_read) facts.bits = program->bits;
}

std::vector<std::string> UsedLibraries(const Facts& facts) {
  std::vector<std::string> paths;
  for (const ClassFacts& each : facts.classes) {
    if (each.Used() && std::ranges::find(paths, each.Used()->path) == paths.end()) {
      paths.push_back(each.Used()->path);
    }
  }
  return paths;
}

}  // namespace

Facts GatherFacts(const Question& question) {
  Facts facts;
  facts.container = FullPath(question.container);
  facts.wanted_library = FullPath(question.library);
  facts.bits = question.bits != 0 ? question.bits : kOwnBits;
  ReadContainer(facts);
  std::vector<ComponentClass> classes = ComponentClasses();
  std::erase_if(classes, [](const ComponentClass& each) { return !each.Creatable(); });
  for (const ComponentClass& each : classes) facts.classes.push_back(FactsOfClass(each, facts.bits));
  const std::string folder =
      facts.container.substr(0, std::min(facts.container.find_last_of('\\'), facts.container.size()));
  const std::vector<std::string> used = UsedLibraries(facts);
  bool can_be_loaded = !used.empty() && facts.bits == kOwnBits;
  for (const std::string& path : used) {
    LibraryFacts& library = facts.libraries[path] = FactsOfLibrary(path, facts.bits, folder);
    can_be_loaded = can_be_loaded && library.is_library && library.bits == kOwnBits;
  }
  facts.type_libraries = TypeLibrariesFor(facts.bits);
  facts.policies = FactsOfPolicies(used);
  if (can_be_loaded) facts.attempts = TryAll(classes);
  return facts;
}

}  // namespace levelwidgets::doctor
