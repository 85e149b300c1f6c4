// On the machine itself: each thing that can be wrong is made wrong.
#include <tools/levelwidgets_doctor/gather.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include <levelwidgets/activex/registration/overridden_registry_fixture.h>
#include <levelwidgets/activex/registration/registration.h>
#include <levelwidgets/activex/registration/system_registry.h>
#include <levelwidgets/testing/source_dir.h>
#include <tools/levelwidgets_doctor/library_bytes_fixture.h>
#include <tools/levelwidgets_doctor/policies.h>

namespace levelwidgets::doctor {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

constexpr int kThisBitness = static_cast<int>(8 * sizeof(void*));
constexpr char kButtonClass[] = "CLSID\\{E975254E-2CE4-4229-9737-8A2C9E493AE1}";

class GatheredFacts : public ::testing::Test {
 protected:
  GatheredFacts() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    ::RegCreateKeyW(registry_.Machine(), L"users", &users_);
    ::RegOverridePredefKey(HKEY_USERS, users_);
    ::RegCloseKey(users_);
  }
  ~GatheredFacts() override {
    ::RegOverridePredefKey(HKEY_USERS, nullptr);
    fs::remove_all(folder_);
  }

  // Its whole path.
  std::string Write(const std::string& name, const std::vector<std::uint8_t>& bytes) {
    const fs::path path = folder_ / name;
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return win32::FromWide(fs::absolute(path).make_preferred().wstring());
  }

  // A library, registered for the user.
  std::string Register(const MadeLibrary& with = {.bits = kThisBitness}) {
    const std::string path = Write("levelwidgets.dll", MakeLibrary(with));
    RegisterLibrary(user_, {path, kThisBitness});
    return path;
  }

  static void SetNumber(HKEY root, const std::wstring& key, const wchar_t* name, DWORD number) {
    ::RegSetKeyValueW(root, key.c_str(), name, REG_DWORD, &number, sizeof number);
  }
  static void SetText(HKEY root, const std::wstring& key, const wchar_t* name, const std::string& text) {
    const std::wstring wide = win32::ToWide(text);
    ::RegSetKeyValueW(root, key.c_str(), name, REG_SZ, wide.c_str(),
                      static_cast<DWORD>(2 * (wide.size() + 1)));
  }

  // The made libraries have no code: that they make no objects is left out.
  static std::vector<Finding> Findings(const Question& question = {}) {
    Facts facts = GatherFacts(question);
    facts.attempts.clear();
    return Judge(facts);
  }
  static std::vector<std::string> Causes(const Question& question = {}) {
    std::vector<std::string> causes;
    for (const Finding& finding : Findings(question)) causes.emplace_back(NameOf(finding.cause));
    return causes;
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("levelwidgets_doctor_" + std::to_string(::GetCurrentProcessId()));
  OverriddenRegistry registry_;
  HKEY users_ = nullptr;
  SystemRegistry user_{RegistrationScope::kUser};
};

TEST_F(GatheredFacts, OfAGoodRegistrationHaveNothingWrong) {
  const std::string path = Register();
  EXPECT_THAT(Causes(), IsEmpty());
  const Facts facts = GatherFacts({});
  EXPECT_EQ(facts.bits, kThisBitness);
  EXPECT_EQ(facts.classes.size(), 11u) << "nine controls and two classes that users may make";
  for (const ClassFacts& each : facts.classes) EXPECT_EQ(each.user->path, path) << each.name;
  EXPECT_THAT(Causes({.library = path}), IsEmpty());
}

TEST_F(GatheredFacts, OfTheMachineAreReadAsWell) {
  const std::string path = Write("levelwidgets.dll", MakeLibrary({.bits = kThisBitness}));
  SystemRegistry machine(RegistrationScope::kMachine);
  RegisterLibrary(machine, {path, kThisBitness});
  EXPECT_THAT(Causes(), IsEmpty());
  EXPECT_THAT(GatherFacts({}).classes[0].machine->where,
              HasSubstr("HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{"));
}

TEST_F(GatheredFacts, WithoutARegistration) { EXPECT_THAT(Causes(), ElementsAre("not-registered")); }

TEST_F(GatheredFacts, OfALibraryThatWasTakenAway) {
  fs::remove(Register());
  EXPECT_THAT(Causes(), ElementsAre("no-file", "type-library"));
}

TEST_F(GatheredFacts, OfALibraryOfTheOtherBitness) {
  Register({.bits = 96 - kThisBitness});
  EXPECT_THAT(Causes(), ElementsAre("wrong-bitness"));
}

TEST_F(GatheredFacts, OfALibraryThatIsCutShort) {
  const std::string path = Register();
  fs::resize_file(path, 200);
  EXPECT_THAT(Causes(), ElementsAre("no-library", "type-library"));
}

TEST_F(GatheredFacts, OfALibraryThatNeedsOneThatIsNowhere) {
  Register(
      {.bits = kThisBitness, .imports = {"KERNEL32.dll", "api-ms-win-crt-x-l1-1-0.dll", "levelhelper.dll"}});
  ASSERT_THAT(Causes(), ElementsAre("missing-library"));
  EXPECT_THAT(Findings()[0].what, HasSubstr("levelhelper.dll"));
  Write("levelhelper.dll", MakeLibrary({.bits = 96 - kThisBitness}));
  EXPECT_THAT(Causes(), ElementsAre("missing-library")) << "one of the other bitness does not count";
  Write("levelhelper.dll", MakeLibrary({.bits = kThisBitness}));
  EXPECT_THAT(Causes(), IsEmpty());
}

TEST_F(GatheredFacts, OfALibraryWhoseHelperNeedsOneThatIsNowhere) {
  Register({.bits = kThisBitness, .imports = {"levelhelper.dll"}});
  Write("levelhelper.dll",
        MakeLibrary({.bits = kThisBitness, .imports = {"levelhelper.dll", "leveldeeper.dll"}}));
  ASSERT_THAT(Causes(), ElementsAre("missing-library"));
  EXPECT_THAT(Findings()[0].what, HasSubstr("leveldeeper.dll"));
}

TEST_F(GatheredFacts, OfALibraryWhoseHelperLiesWithTheContainer) {
  Register({.bits = kThisBitness, .imports = {"levelhelper.dll"}});
  fs::create_directories(folder_ / "program");
  Write("program/levelhelper.dll", MakeLibrary({.bits = kThisBitness}));
  const std::string program =
      Write("program/office.exe", MakeLibrary({.bits = kThisBitness, .is_library = false}));
  EXPECT_THAT(Causes({.container = program}), IsEmpty());
  EXPECT_THAT(Causes(), ElementsAre("missing-library"));
}

TEST_F(GatheredFacts, OfAnotherPlaceThanTheOneThatIsWanted) {
  Register();
  const std::string other = Write("other.dll", MakeLibrary({.bits = kThisBitness}));
  EXPECT_THAT(Causes({.library = other}), ElementsAre("other-place"));
}

TEST_F(GatheredFacts, OfAWrongThreadingModel) {
  Register();
  user_.SetText(std::string(kButtonClass) + "\\InprocServer32", "ThreadingModel", {"Free"});
  EXPECT_THAT(Causes(), ElementsAre("threading-model"));
  user_.RemoveText(std::string(kButtonClass) + "\\InprocServer32", "ThreadingModel");
  EXPECT_THAT(Causes(), ElementsAre("threading-model"));
}

TEST_F(GatheredFacts, OfClassesThatAreMissing) {
  Register();
  user_.RemoveKey(kButtonClass);
  EXPECT_THAT(Causes(), ElementsAre("incomplete"));
}

TEST_F(GatheredFacts, OfTheTypeLibraryOfAnotherVersion) {
  Register();
  const std::string other = Write("other.tlb", MakeTypeLibrary({.minor = 2}));
  const std::string key =
      "TypeLib\\{9466D224-2367-4381-9D9F-81D8788F9CF0}\\1.0\\0\\win" + std::to_string(kThisBitness);
  user_.SetText(key, "", {other});
  ASSERT_THAT(Causes(), ElementsAre("type-library"));
  EXPECT_THAT(Findings()[0].what, HasSubstr("it is version 1.2"));
  user_.SetText(key, "", {Write("good.tlb", MakeTypeLibrary())});
  EXPECT_THAT(Causes(), IsEmpty());
  user_.RemoveKey("TypeLib");
  EXPECT_THAT(Causes(), ElementsAre("type-library"));
}

TEST_F(GatheredFacts, OfTheTypeLibraryAsItIsCompiled) {
  const std::string file = std::string(BuildDir()) + "/type_library/levelwidgets64.tlb";
  std::ifstream in(file.find(':') == std::string::npos ? "Z:" + file : file, std::ios::binary);
  const std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(in), {});
  const auto summary = ReadTypeLibrary(bytes);
  ASSERT_TRUE(summary);
  EXPECT_EQ(MismatchOf(*summary), "");
  Register({.bits = kThisBitness, .type_library = bytes});
  EXPECT_THAT(Causes(), IsEmpty());
}

TEST_F(GatheredFacts, OfALibraryWithoutATypeLibrary) {
  Register({.bits = kThisBitness, .type_library = {}});
  EXPECT_THAT(Causes(), Contains("type-library"));
}

TEST_F(GatheredFacts, OfAClassThatContainersMayNotMake) {
  Register();
  for (const wchar_t* list : {L"SOFTWARE\\Microsoft\\Internet Explorer\\ActiveX Compatibility\\",
                              L"SOFTWARE\\Microsoft\\Office\\Common\\COM Compatibility\\"}) {
    const std::wstring key = std::wstring(list) + L"{E975254E-2CE4-4229-9737-8A2C9E493AE1}";
    SetNumber(registry_.Machine(), key, L"Compatibility Flags", 0x800);
    EXPECT_THAT(Causes(), IsEmpty());
    SetNumber(registry_.Machine(), key, L"Compatibility Flags", 0x480);
    EXPECT_THAT(Causes(), ElementsAre("blocked"));
    EXPECT_THAT(Findings()[0].where, HasSubstr(win32::FromWide(list)));
    SetNumber(registry_.Machine(), key, L"Compatibility Flags", 0);
  }
}

TEST_F(GatheredFacts, OfARestrictionThatForbidsTheLibrary) {
  const std::string path = Register();
  const std::wstring rules = L"SOFTWARE\\Policies\\Microsoft\\Windows\\Safer\\CodeIdentifiers";
  SetText(registry_.Machine(), rules + L"\\0\\Paths\\{1}", L"ItemData",
          fs::path(path).parent_path().string());
  EXPECT_THAT(Causes(), IsEmpty()) << "it is not for libraries";
  SetNumber(registry_.Machine(), rules, L"TransparentEnabled", 1);
  EXPECT_THAT(Causes(), IsEmpty()) << "it is for programs only";
  SetNumber(registry_.Machine(), rules, L"TransparentEnabled", 2);
  EXPECT_THAT(Causes(), ElementsAre("policy"));
  SetText(registry_.Machine(), rules + L"\\0\\Paths\\{1}", L"ItemData", "C:\\Elsewhere");
  EXPECT_THAT(Causes(), IsEmpty());
  SetNumber(registry_.Machine(), rules, L"DefaultLevel", 0);
  EXPECT_THAT(Causes(), ElementsAre("policy")) << "only what is allowed";
  SetText(registry_.Machine(), rules + L"\\262144\\Paths\\{2}", L"ItemData",
          fs::path(path).parent_path().string() + "\\*.dll");
  EXPECT_THAT(Causes(), IsEmpty());
}

TEST_F(GatheredFacts, OfRulesThatCannotBeRead) {
  Register();
  const std::wstring rules = L"SOFTWARE\\Policies\\Microsoft\\Windows\\SrpV2\\Dll";
  SetNumber(registry_.Machine(), rules, L"EnforcementMode", 1);
  EXPECT_THAT(Causes(), IsEmpty()) << "there is no rule";
  SetText(registry_.Machine(), rules + L"\\{1}", L"Value", "<FilePathRule/>");
  EXPECT_THAT(Causes(), ElementsAre("unreadable-policy"));
}

TEST_F(GatheredFacts, OfAnotherUsersRegistration) {
  SetText(HKEY_USERS,
          L"S-1-5-21-1-2-3-4000_Classes\\CLSID\\{E975254E-2CE4-4229-9737-8A2C9E493AE1}\\InprocServer32",
          nullptr, "C:\\Anna\\levelwidgets.dll");
  ASSERT_THAT(Causes(), ElementsAre("other-user"));
  EXPECT_THAT(Findings()[0].what, HasSubstr("S-1-5-21-1-2-3-4000"));
  EXPECT_THAT(Findings()[0].where, HasSubstr("C:\\Anna\\levelwidgets.dll"));
}

TEST_F(GatheredFacts, OfTheContainerHaveItsBitness) {
  const int other = 96 - kThisBitness;
  const std::string program = Write("office.exe", MakeLibrary({.bits = other, .is_library = false}));
  const Facts facts = GatherFacts({.container = program});
  EXPECT_EQ(facts.bits, other);
  EXPECT_EQ(facts.container, program);
  EXPECT_THAT(Causes({.container = Write("notes.txt", {'h', 'i'})}), Contains("container-unreadable"));
  EXPECT_THAT(Causes({.container = program + "x"}), Contains("container-unreadable"));
}

TEST_F(GatheredFacts, OfAMadeLibrarySayThatItMakesNoObject) {
  Register();
  const Facts facts = GatherFacts({});
  ASSERT_EQ(facts.attempts.size(), facts.classes.size());
  EXPECT_NE(facts.attempts[0].result, 0u);
  EXPECT_THAT(facts.attempts[0].message, HasSubstr("0x8"));
}

TEST(CoveredPath, IsInAFolderOrMatchesAPattern) {
  constexpr char kFile[] = "C:\\Parts\\Level\\x.dll";
  for (const char* pattern : {"C:\\Parts", "c:\\parts\\", "C:\\Parts\\Level\\X.DLL", "C:\\Parts\\*", "*.dll",
                              "C:\\*\\x.dll", "?:\\Parts", "C:\\Parts\\*\\?.dll"}) {
    EXPECT_TRUE(IsCovered(kFile, pattern)) << pattern;
  }
  for (const char* pattern :
       {"", "C:\\Part", "C:\\Parts\\Level\\x.dll2", "*.exe", "D:\\*", "C:\\Parts\\?\\x.dll"}) {
    EXPECT_FALSE(IsCovered(kFile, pattern)) << pattern;
  }
}

// With the registry that the machine has: only there each bitness has keys to itself.
TEST(GatheredFactsOfTheMachine, OfTheOtherBitnessOnly) {
  if (GatherFacts({}).classes[0].Used()) GTEST_SKIP() << "the components are registered on this machine";
  const REGSAM view = kThisBitness == 64 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  const std::wstring class_key = L"Software\\Classes\\" + win32::ToWide(kButtonClass);
  HKEY key = nullptr;
  const LSTATUS status =
      ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, (class_key + L"\\InprocServer32").c_str(), 0, nullptr,
                        REG_OPTION_VOLATILE, KEY_ALL_ACCESS | view, nullptr, &key, nullptr);
  if (status == ERROR_ACCESS_DENIED) GTEST_SKIP() << "only administrators may write what the machine has";
  ASSERT_EQ(status, ERROR_SUCCESS);
  ::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"C:\\x.dll"), 18);
  ::RegCloseKey(key);
  const std::vector<Finding> findings = Judge(GatherFacts({}));
  const std::vector<Finding> others = Judge(GatherFacts({.bits = 96 - kThisBitness}));
  ::RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (class_key + L"\\InprocServer32").c_str(), view, 0);
  ::RegDeleteKeyExW(HKEY_LOCAL_MACHINE, class_key.c_str(), view, 0);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].cause, Cause::kOtherBitness);
  EXPECT_THAT(findings[0].where, HasSubstr("C:\\x.dll"));
  ASSERT_FALSE(others.empty());
  EXPECT_EQ(others[0].cause, Cause::kIncomplete) << "there it is registered, though alone";
}

// The program itself, whose output goes to a file.
std::pair<DWORD, std::string> OutputOfProgram(const std::wstring& arguments) {
  const fs::path file = fs::temp_directory_path() / ("doctor" + std::to_string(::GetCurrentProcessId()));
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const HANDLE out =
      ::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
  wchar_t own[1024] = {};
  ::GetModuleFileNameW(nullptr, own, 1024);
  std::wstring command =
      L"\"" + (fs::path(own).parent_path() / L"levelwidgets-doctor.exe").wstring() + L"\" " + arguments;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = out;
  PROCESS_INFORMATION process{};
  DWORD status = 99;
  if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                       &process)) {
    ::WaitForSingleObject(process.hProcess, 60000);
    ::GetExitCodeProcess(process.hProcess, &status);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
  }
  ::CloseHandle(out);
  std::ifstream in(file, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(in), {});
  in.close();
  fs::remove(file);
  return {status, text};
}

TEST(DoctorProgram, AnswersOnTheCommandLine) {
  const auto [status, text] = OutputOfProgram(L"--json --library C:\\levelwidgets_none.dll");
  EXPECT_EQ(status, 1u) << text;
  EXPECT_EQ(nlohmann::json::parse(text).at("well"), false);
  EXPECT_EQ(OutputOfProgram(L"--jsn").first, 2u);
  EXPECT_THAT(OutputOfProgram(L"--help").second, HasSubstr("levelwidgets-doctor [--container"));
}

}  // namespace
}  // namespace levelwidgets::doctor
