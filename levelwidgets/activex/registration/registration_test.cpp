#include <levelwidgets/activex/registration/registration.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/activex/identity/misc_status.h>
#include <levelwidgets/activex/registration/memory_registry_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

const LibraryFile kLibrary{"C:\\Parts\\levelwidgets_x64.dll", 64};

constexpr char kButtonKey[] = "CLSID\\{E975254E-2CE4-4229-9737-8A2C9E493AE1}";

// What is registered of the class, below its key.
std::vector<std::string> LinesBelow(const MemoryRegistry& registry, const std::string& key) {
  std::vector<std::string> lines;
  for (const std::string& line : registry.Lines()) {
    if (line.starts_with(key)) lines.push_back(line.substr(key.size()));
  }
  return lines;
}

TEST(RegisterLibrary, WritesOfAControlWhatContainersAskFor) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  EXPECT_THAT(
      LinesBelow(registry, kButtonKey),
      ::testing::ElementsAre("", " [] = LevelWidgets FlatButton", "\\Control", "\\Implemented Categories",
                             "\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}",
                             "\\InprocServer32", "\\InprocServer32 [] = C:\\Parts\\levelwidgets_x64.dll",
                             "\\InprocServer32 [ThreadingModel] = Apartment", "\\MiscStatus",
                             "\\MiscStatus [] = 0", "\\MiscStatus\\1", "\\MiscStatus\\1 [] = 135569",
                             "\\ProgID", "\\ProgID [] = LevelWidgets.FlatButton.1", "\\ToolboxBitmap32",
                             "\\ToolboxBitmap32 [] = C:\\Parts\\levelwidgets_x64.dll, 1", "\\TypeLib",
                             "\\TypeLib [] = {9466D224-2367-4381-9D9F-81D8788F9CF0}", "\\Verb", "\\Verb\\0",
                             "\\Verb\\0 [] = &Edit,0,2", "\\Verb\\1", "\\Verb\\1 [] = &Properties...,0,2",
                             "\\Version", "\\Version [] = 1.0", "\\VersionIndependentProgID",
                             "\\VersionIndependentProgID [] = LevelWidgets.FlatButton"));
  EXPECT_THAT(
      LinesBelow(registry, "LevelWidgets.FlatButton"),
      ::testing::ElementsAre("", " [] = LevelWidgets FlatButton", ".1", ".1 [] = LevelWidgets FlatButton",
                             ".1\\CLSID", ".1\\CLSID [] = {E975254E-2CE4-4229-9737-8A2C9E493AE1}", "\\CLSID",
                             "\\CLSID [] = {E975254E-2CE4-4229-9737-8A2C9E493AE1}", "\\CurVer",
                             "\\CurVer [] = LevelWidgets.FlatButton.1"));
}

TEST(RegisterLibrary, WritesTheTypeLibraryForItsBitness) {
  for (const int bits : {64, 32}) {
    MemoryRegistry registry;
    RegisterLibrary(registry, {"D:\\x\\y.dll", bits});
    const std::string platform = "\\1.0\\0\\win" + std::to_string(bits);
    EXPECT_THAT(LinesBelow(registry, "TypeLib\\{9466D224-2367-4381-9D9F-81D8788F9CF0}"),
                ::testing::ElementsAre("", "\\1.0", "\\1.0 [] = LevelWidgets: flat controls for forms",
                                       "\\1.0\\0", platform, platform + " [] = D:\\x\\y.dll", "\\1.0\\FLAGS",
                                       "\\1.0\\FLAGS [] = 2", "\\1.0\\HELPDIR", "\\1.0\\HELPDIR [] = D:\\x"));
  }
}

TEST(RegisterLibrary, WritesEveryClassThatUsersMayMakeAndNoOther) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  for (const ComponentClass& each : ComponentClasses()) {
    const std::string key = "CLSID\\" + TextOf(each.identity->class_id);
    const std::string name = each.info->QualifiedName();
    EXPECT_EQ(registry.HasKey(key + "\\InprocServer32"), each.Creatable()) << name;
    EXPECT_EQ(registry.HasKey(name + "\\CLSID"), each.Creatable()) << name;
    EXPECT_EQ(registry.HasKey(key + "\\Control"), each.is_control) << name;
    EXPECT_EQ(registry.HasKey(key + "\\MiscStatus\\1"), each.is_control) << name;
    EXPECT_EQ(registry.HasKey(key + "\\Verb\\1"), each.is_control) << name;
    EXPECT_FALSE(registry.HasKey(key + "\\Insertable")) << name;
  }
}

TEST(RegisterLibrary, WritesThePagesWithoutNamesForScripts) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  EXPECT_THAT(LinesBelow(registry, "CLSID\\{19A42E3A-C9BD-48F0-8375-D62DED7B2B9F}"),
              ::testing::ElementsAre("", " [] = LevelWidgets ppFlatGrid", "\\InprocServer32",
                                     "\\InprocServer32 [] = C:\\Parts\\levelwidgets_x64.dll",
                                     "\\InprocServer32 [ThreadingModel] = Apartment"));
  for (const PageIdentity& page : PageIdentities()) {
    EXPECT_TRUE(registry.HasKey("CLSID\\" + TextOf(page.class_id) + "\\InprocServer32")) << page.page_name;
    EXPECT_FALSE(registry.HasKey("LevelWidgets." + std::string(page.page_name))) << page.page_name;
  }
}

TEST(RegisterLibrary, WritesTheInterfacesOfMembersAndEvents) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  const auto below = [](const char* name) {
    return std::vector<std::string>{"",
                                    std::string(" [] = ") + name,
                                    "\\ProxyStubClsid32",
                                    "\\ProxyStubClsid32 [] = {00020420-0000-0000-C000-000000000046}",
                                    "\\TypeLib",
                                    "\\TypeLib [] = {9466D224-2367-4381-9D9F-81D8788F9CF0}",
                                    "\\TypeLib [Version] = 1.0"};
  };
  for (const ComponentClass& each : ComponentClasses()) {
    const std::string name(each.info->Name());
    EXPECT_EQ(LinesBelow(registry, "Interface\\" + TextOf(each.identity->interface_id)),
              below(("_" + name).c_str()));
    if (each.info->Events().empty()) continue;
    EXPECT_EQ(LinesBelow(registry, "Interface\\" + TextOf(each.identity->events_id)),
              below(("__" + name).c_str()));
  }
}

// Registers where the change `number` fails; whether it does is the result.
bool FailsAt(MemoryRegistry& registry, int number) {
  registry.FailFrom(number, 1);
  try {
    RegisterLibrary(registry, kLibrary);
    return false;
  } catch (const RegistryError&) {
    return true;
  }
}

TEST(RegisterLibrary, TakesBackWhatItHasWrittenWhereverItFails) {
  MemoryRegistry others;
  others.CreateKey("CLSID");
  others.CreateKey("Other");
  others.SetText("Other", "", {"stays"});
  int number = 0;
  while (true) {
    MemoryRegistry registry = others;
    if (!FailsAt(registry, number)) break;
    ASSERT_EQ(registry.Lines(), others.Lines()) << "after failing at change " << number;
    number += number < 20 ? 1 : 13;
  }
  EXPECT_GT(number, 400);
}

TEST(RegisterLibrary, LeavesAnOlderRegistrationAsItWasWhenItFails) {
  MemoryRegistry older;
  RegisterLibrary(older, {"C:\\Old\\levelwidgets_x64.dll", 64});
  const std::string server = std::string(kButtonKey) + "\\InprocServer32";
  older.SetText(server, "", {"%Old%\\levelwidgets_x64.dll", true});
  for (const int number : {1, 7, 100}) {
    MemoryRegistry registry = older;
    registry.FailFrom(number, 1);
    EXPECT_THROW(RegisterLibrary(registry, kLibrary), RegistryError);
    EXPECT_EQ(registry.Lines(), older.Lines());
  }
}

TEST(RegisterLibrary, ReportsTheErrorOfTheSystemAlsoWhenNothingCanBeTakenBack) {
  MemoryRegistry registry;
  registry.FailFrom(20);
  try {
    RegisterLibrary(registry, kLibrary);
    FAIL() << "registered";
  } catch (const RegistryError& error) {
    EXPECT_EQ(error.Code(), 5);
    EXPECT_THAT(error.what(), HasSubstr("fails with error 5"));
  }
}

TEST(RegisterLibrary, ReplacesAnotherPlace) {
  MemoryRegistry registry;
  RegisterLibrary(registry, {"C:\\Old\\levelwidgets_x64.dll", 64});
  RegisterLibrary(registry, kLibrary);
  MemoryRegistry once;
  RegisterLibrary(once, kLibrary);
  EXPECT_EQ(registry.Lines(), once.Lines());
}

TEST(UnregisterLibrary, LeavesNothing) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  UnregisterLibrary(registry, 64);
  EXPECT_THAT(registry.Lines(), IsEmpty());
}

TEST(UnregisterLibrary, LeavesWhatOthersHaveAndTakesWhatTheyPutBelowItsKeys) {
  MemoryRegistry registry;
  for (const char* key : {"CLSID", "CLSID\\{1}", "TypeLib", "TypeLib\\{2}", "Interface", "Interface\\{3}"}) {
    registry.CreateKey(key);
  }
  const std::vector<std::string> before = registry.Lines();
  RegisterLibrary(registry, kLibrary);
  registry.CreateKey(std::string(kButtonKey) + "\\Implemented Categories\\{4}");
  UnregisterLibrary(registry, 64);
  EXPECT_EQ(registry.Lines(), before);
}

TEST(UnregisterLibrary, LeavesAnotherVersionOfTheTypeLibrary) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  registry.CreateKey("TypeLib\\{9466D224-2367-4381-9D9F-81D8788F9CF0}\\2.0");
  UnregisterLibrary(registry, 64);
  EXPECT_THAT(registry.Lines(),
              ::testing::ElementsAre("TypeLib", "TypeLib\\{9466D224-2367-4381-9D9F-81D8788F9CF0}",
                                     "TypeLib\\{9466D224-2367-4381-9D9F-81D8788F9CF0}\\2.0"));
}

TEST(UnregisterLibrary, LeavesWhatTheOtherBitnessNeedsAsLongAsItIsRegistered) {
  MemoryRegistry registry;
  RegisterLibrary(registry, {"C:\\Parts\\levelwidgets_x86.dll", 32});
  RegisterLibrary(registry, kLibrary);
  registry.SetTextForOtherBitness(std::string(kButtonKey) + "\\InprocServer32",
                                  "C:\\Parts\\levelwidgets_x86.dll");
  UnregisterLibrary(registry, 64);
  EXPECT_FALSE(registry.HasKey(kButtonKey));
  EXPECT_TRUE(registry.HasKey("LevelWidgets.FlatButton\\CLSID"));
  EXPECT_TRUE(registry.HasKey("LevelWidgets.ksxValueList.1\\CLSID"));
  const std::string version = "TypeLib\\{9466D224-2367-4381-9D9F-81D8788F9CF0}\\1.0";
  EXPECT_EQ(registry.Text(version + "\\0\\win32", "")->text, "C:\\Parts\\levelwidgets_x86.dll");
  EXPECT_FALSE(registry.HasKey(version + "\\0\\win64"));
  EXPECT_TRUE(registry.HasKey(version + "\\FLAGS"));
}

TEST(UnregisterLibrary, LeavesNothingWhereBothBitnessesSeeTheSameKeys) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  registry.SetTextForOtherBitness(std::string(kButtonKey) + "\\InprocServer32", kLibrary.path);
  UnregisterLibrary(registry, 64);
  EXPECT_THAT(registry.Lines(), IsEmpty());
}

TEST(UnregisterLibrary, TakesAllThatItCanBeforeItReportsAnError) {
  MemoryRegistry registry;
  RegisterLibrary(registry, kLibrary);
  registry.Lock(kButtonKey);
  EXPECT_THROW(UnregisterLibrary(registry, 64), RegistryError);
  for (const std::string& line : registry.Lines()) {
    EXPECT_TRUE(line == "CLSID" || line.starts_with(kButtonKey)) << line;
  }
}

TEST(UnregisterLibrary, DoesNothingWhereNothingIsRegistered) {
  MemoryRegistry registry;
  UnregisterLibrary(registry, 64);
  EXPECT_THAT(registry.Lines(), IsEmpty());
}

TEST(MiscStatus, OfTheButtonSaysThatItActsLikeOne) {
  EXPECT_EQ(MiscStatusOf("FlatLabel"), 0x20191u);
  EXPECT_EQ(MiscStatusOf("FlatButton"), 0x21191u);
}

}  // namespace
}  // namespace levelwidgets
