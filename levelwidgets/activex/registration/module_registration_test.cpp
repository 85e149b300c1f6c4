#include <levelwidgets/activex/registration/module_registration.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/registration/overridden_registry_fixture.h>
#include <levelwidgets/activex/registration/registration.h>
#include <levelwidgets/testing/source_dir.h>

#include <oleauto.h>

namespace levelwidgets {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

using Lines = std::vector<std::string>;

class ModuleRegistration : public ::testing::Test {
 protected:
  ModuleRegistration() {
    ::RegCreateKeyW(registry_.Machine(), L"Software\\Classes", &machine_classes_);
    ::RegCreateKeyW(registry_.User(), L"Software\\Classes", &user_classes_);
  }
  ~ModuleRegistration() override {
    ::RegCloseKey(machine_classes_);
    ::RegCloseKey(user_classes_);
  }

  Lines Machine() const { return OverriddenRegistry::LinesOf(machine_classes_); }
  Lines User() const { return OverriddenRegistry::LinesOf(user_classes_); }

  static std::string OwnPath() {
    wchar_t path[1024] = {};
    ::GetModuleFileNameW(nullptr, path, 1024);
    return win32::FromWide(path);
  }

  OverriddenRegistry registry_;
  HKEY machine_classes_ = nullptr;
  HKEY user_classes_ = nullptr;
};

constexpr char kServer[] = "CLSID\\{E975254E-2CE4-4229-9737-8A2C9E493AE1}\\InprocServer32";

TEST_F(ModuleRegistration, ForOneUserLeavesTheMachineAlone) {
  const Lines machine = Machine();
  EXPECT_EQ(RegisterModule(RegistrationScope::kUser), S_OK);
  EXPECT_EQ(Machine(), machine);
  EXPECT_THAT(User(), Contains(std::string(kServer) + " [] = " + OwnPath()));
  EXPECT_THAT(User(), Contains(std::string(kServer) + " [ThreadingModel] = Apartment"));
}

TEST_F(ModuleRegistration, ForTheMachineLeavesTheUserAlone) {
  const Lines user = User();
  EXPECT_EQ(RegisterModule(RegistrationScope::kMachine), S_OK);
  EXPECT_EQ(User(), user);
  EXPECT_THAT(Machine(), Contains(std::string(kServer) + " [] = " + OwnPath()));
}

TEST_F(ModuleRegistration, WritesTheSameIntoTheSystemsRegistryAsIntoOneInMemory) {
  RegisterModule(RegistrationScope::kUser);
  const Lines lines = User();
  const int bits = static_cast<int>(8 * sizeof(void*));
  std::size_t texts = 0;
  for (const RegistryEntry& entry : RegistryEntries({OwnPath(), bits})) {
    if (!entry.text) {
      EXPECT_THAT(lines, Contains(entry.key));
      continue;
    }
    ++texts;
    EXPECT_THAT(lines, Contains(entry.key + " [" + entry.name + "] = " + *entry.text));
  }
  const auto is_text = [](const std::string& line) { return line.find("] = ") != std::string::npos; };
  EXPECT_EQ(static_cast<std::size_t>(std::ranges::count_if(lines, is_text)), texts);
}

TEST_F(ModuleRegistration, UnregisteringLeavesTheRegistryAsItWas) {
  for (const auto scope : {RegistrationScope::kUser, RegistrationScope::kMachine}) {
    const Lines user = User();
    const Lines machine = Machine();
    EXPECT_EQ(RegisterModule(scope), S_OK);
    EXPECT_EQ(RegisterModule(scope), S_OK);
    EXPECT_NE(User().size() + Machine().size(), user.size() + machine.size());
    EXPECT_EQ(UnregisterModule(scope), S_OK);
    EXPECT_EQ(User(), user);
    EXPECT_EQ(Machine(), machine);
    EXPECT_EQ(UnregisterModule(scope), S_OK);
  }
}

TEST_F(ModuleRegistration, TakesUserOrMachineFromTheCommandLine) {
  const Lines nothing = User();
  EXPECT_EQ(InstallModule(true, L"User"), S_OK);
  EXPECT_NE(User(), nothing);
  EXPECT_EQ(Machine(), nothing);
  EXPECT_EQ(InstallModule(false, L"user"), S_OK);
  EXPECT_EQ(User(), nothing);
  for (const wchar_t* words : {static_cast<const wchar_t*>(nullptr), L"", L"machine", L"MACHINE"}) {
    EXPECT_EQ(InstallModule(true, words), S_OK);
    EXPECT_NE(Machine(), nothing);
    EXPECT_EQ(User(), nothing);
    EXPECT_EQ(InstallModule(false, words), S_OK);
    EXPECT_EQ(Machine(), nothing);
  }
  EXPECT_EQ(InstallModule(true, L"everybody"), E_INVALIDARG);
  EXPECT_EQ(User(), nothing);
  EXPECT_EQ(Machine(), nothing);
}

// The system refuses a key that stays below one that does not.
TEST_F(ModuleRegistration, ReturnsTheSystemsErrorAndTakesBackWhatItWrote) {
  HKEY passing = nullptr;
  ASSERT_EQ(::RegCreateKeyExW(user_classes_, L"TypeLib", 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                              nullptr, &passing, nullptr),
            ERROR_SUCCESS);
  ::RegCloseKey(passing);
  EXPECT_EQ(RegisterModule(RegistrationScope::kUser), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
  EXPECT_THAT(User(), ElementsAre("TypeLib"));
}

// With the registry that the machine has: one that overrides it is the same for both bitnesses.
TEST(SystemRegistry, ReadsWhatProgramsOfTheOtherBitnessSee) {
  const std::string key = "CLSID\\{B8E2C6A0-5B0D-4C83-8D4B-7C1E51E2F0A1}";
  const std::wstring path = L"Software\\Classes\\" + win32::ToWide(key);
  const REGSAM view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  HKEY other = nullptr;
  const LSTATUS status = ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                           KEY_ALL_ACCESS | view, nullptr, &other, nullptr);
  if (status == ERROR_ACCESS_DENIED) GTEST_SKIP() << "only administrators may write what the machine has";
  ASSERT_EQ(status, ERROR_SUCCESS);
  ::RegSetValueExW(other, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"theirs"), 14);
  ::RegCloseKey(other);
  SystemRegistry registry(RegistrationScope::kMachine);
  EXPECT_EQ(registry.TextForOtherBitness(key, ""), (RegistryText{"theirs", false}));
  EXPECT_EQ(registry.Text(key, ""), std::nullopt);
  EXPECT_FALSE(registry.HasKey(key));
  ::RegDeleteKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), view, 0);
}

TEST_F(ModuleRegistration, KeepsATextThatNamesVariablesAsItIs) {
  SystemRegistry registry(RegistrationScope::kUser);
  registry.CreateKey("Own");
  registry.SetText("Own", "Path", {"%TEMP%\\x", true});
  EXPECT_EQ(registry.Text("Own", "Path"), (RegistryText{"%TEMP%\\x", true}));
  EXPECT_EQ(registry.Text("Own", "Other"), std::nullopt);
  EXPECT_EQ(registry.Text("Others", "Path"), std::nullopt);
}

// What the system writes of a type library itself, except for one user.
TEST_F(ModuleRegistration, WritesOfTheTypeLibraryWhatTheSystemWrites) {
  const std::string file = "Z:" + std::string(BuildDir()) + "/type_library/levelwidgets" +
                           (sizeof(void*) == 8 ? "64.tlb" : "32.tlb");
  std::string path = file;
  std::ranges::replace(path, '/', '\\');
  ITypeLib* library = nullptr;
  ASSERT_EQ(::LoadTypeLibEx(win32::ToWide(path).c_str(), REGKIND_NONE, &library), S_OK);
  std::wstring wide = win32::ToWide(path);
  std::wstring folder = wide.substr(0, wide.find_last_of(L'\\'));
  ASSERT_EQ(::RegisterTypeLib(library, wide.data(), folder.data()), S_OK);
  library->Release();
  SystemRegistry registry(RegistrationScope::kUser);
  RegisterLibrary(registry, {path, static_cast<int>(8 * sizeof(void*))});
  Lines own = User();
  std::erase_if(own, [](const std::string& line) {
    return !line.starts_with("TypeLib") && !line.starts_with("Interface");
  });
  Lines systems = OverriddenRegistry::LinesOf(registry_.Classes());
  // Also for programs of 16 bits, which no system with these controls runs.
  std::erase_if(systems, [](const std::string& line) {
    return line.ends_with("\\ProxyStubClsid") || line.find("\\ProxyStubClsid [") != std::string::npos;
  });
  for (std::string& line : systems) {
    // Wine spells the key otherwise, and says besides that the library lies on a disk (8).
    if (line.starts_with("Typelib")) line.replace(0, 7, "TypeLib");
    if (line.ends_with("\\FLAGS [] = 10")) line.replace(line.size() - 2, 2, "2");
  }
  EXPECT_THAT(own, ::testing::UnorderedElementsAreArray(systems));
}

}  // namespace
}  // namespace levelwidgets
