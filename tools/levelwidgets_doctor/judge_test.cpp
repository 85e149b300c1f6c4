#include <tools/levelwidgets_doctor/judge.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/identity/identifiers.h>
#include <tools/levelwidgets_doctor/library_bytes_fixture.h>

namespace levelwidgets::doctor {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr char kPath[] = "C:\\Parts\\levelwidgets_x64.dll";
constexpr char kOtherPath[] = "D:\\Old\\levelwidgets_x64.dll";

LibraryFacts GoodLibrary() {
  return {.exists = true,
          .is_library = true,
          .bits = 64,
          .has_type_library = true,
          .type_library = ReadTypeLibrary(MakeTypeLibrary())};
}

Server ServerIn(const std::string& path) {
  return {"HKEY_LOCAL_MACHINE\\...\\InprocServer32", path, "Apartment"};
}

// Of a machine on which everything is as it should be.
Facts GoodFacts() {
  Facts facts;
  for (const char* name : {"FlatButton", "FlatGrid", "FlatLabel"}) {
    ClassFacts each;
    each.name = name;
    each.machine = ServerIn(kPath);
    facts.classes.push_back(each);
    facts.attempts.push_back({name, 0, ""});
  }
  facts.libraries[kPath] = GoodLibrary();
  facts.type_libraries.push_back({"HKEY_LOCAL_MACHINE\\...\\win64", kPath, true, GoodLibrary().type_library});
  return facts;
}

std::vector<Cause> CausesOf(const Facts& facts) {
  std::vector<Cause> causes;
  for (const Finding& finding : Judge(facts)) causes.push_back(finding.cause);
  return causes;
}

// The only one.
Finding FindingOf(const Facts& facts) {
  const std::vector<Finding> findings = Judge(facts);
  EXPECT_EQ(findings.size(), 1u);
  return findings.empty() ? Finding{} : findings[0];
}

Facts Unregistered() {
  Facts facts = GoodFacts();
  for (ClassFacts& each : facts.classes) each.machine.reset();
  facts.libraries.clear();
  facts.type_libraries.clear();
  facts.attempts.clear();
  return facts;
}

TEST(Judge, FindsNothingWhereEverythingIsAsItShouldBe) {
  EXPECT_THAT(CausesOf(GoodFacts()), IsEmpty());
  Facts for_user = GoodFacts();
  for (ClassFacts& each : for_user.classes) each.user.swap(each.machine);
  for_user.wanted_library = "c:\\PARTS\\levelwidgets_x64.DLL";
  EXPECT_THAT(CausesOf(for_user), IsEmpty());
}

TEST(Judge, ComponentsThatAreRegisteredNowhere) {
  Finding finding = FindingOf(Unregistered());
  EXPECT_EQ(finding.cause, Cause::kNotRegistered);
  EXPECT_TRUE(finding.is_problem);
  EXPECT_EQ(finding.what, "The components are not registered for 64-bit programs.");
  EXPECT_THAT(finding.right, HasSubstr("regsvr32 \"levelwidgets_x64.dll\""));
  Facts facts = Unregistered();
  facts.bits = 32;
  EXPECT_THAT(FindingOf(facts).right, HasSubstr("%SystemRoot%\\SysWOW64\\regsvr32 \"levelwidgets_x86.dll\""));
}

TEST(Judge, ComponentsThatAreRegisteredForTheOtherBitnessOnly) {
  Facts facts = Unregistered();
  facts.container = "C:\\Old\\Office.exe";
  facts.bits = 32;
  facts.classes[1].other_bitness = ServerIn(kPath);
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kOtherBitness);
  EXPECT_EQ(finding.what,
            "The components are registered for 64-bit programs only. C:\\Old\\Office.exe, a 32-bit program, "
            "cannot see "
            "them.");
  EXPECT_THAT(finding.where, HasSubstr(kPath));
  EXPECT_THAT(finding.right, HasSubstr("levelwidgets_x86.dll"));
}

TEST(Judge, ComponentsThatAreRegisteredForAnotherUserOnly) {
  Facts facts = Unregistered();
  facts.classes[0].other_users.push_back({"HOUSE\\anna", kPath});
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kOtherUser);
  EXPECT_THAT(finding.what, HasSubstr("for another user only, for HOUSE\\anna."));
  EXPECT_THAT(finding.right, HasSubstr("regsvr32 /n /i:user"));
}

TEST(Judge, ClassesThatAreMissingAmongOthers) {
  Facts facts = GoodFacts();
  facts.classes[1].machine.reset();
  facts.classes[2].machine.reset();
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kIncomplete);
  EXPECT_EQ(finding.what, "Some classes are not registered: FlatGrid and FlatLabel.");
}

TEST(Judge, AnotherLibraryThanTheOneThatIsWanted) {
  Facts facts = GoodFacts();
  facts.wanted_library = kOtherPath;
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kOtherPlace);
  EXPECT_THAT(finding.what, HasSubstr(kOtherPath));
  EXPECT_THAT(finding.where, HasSubstr(kPath));
  EXPECT_THAT(finding.right, HasSubstr(kOtherPath));
}

TEST(Judge, ClassesAtDifferentPlaces) {
  Facts facts = GoodFacts();
  facts.classes[1].machine->path = kOtherPath;
  facts.libraries[kOtherPath] = GoodLibrary();
  EXPECT_EQ(FindingOf(facts).cause, Cause::kTwoPlaces);
}

TEST(Judge, ALibraryOfTheUserThatHidesTheMachinesIsOnlyANote) {
  Facts facts = GoodFacts();
  for (ClassFacts& each : facts.classes) each.user = ServerIn(kOtherPath);
  facts.libraries[kOtherPath] = GoodLibrary();
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kTwoPlaces);
  EXPECT_FALSE(finding.is_problem);
}

TEST(Judge, AFileThatIsNotThere) {
  Facts facts = GoodFacts();
  facts.libraries[kPath] = {};
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kNoFile);
  EXPECT_THAT(finding.where, AllOf(HasSubstr("InprocServer32"), HasSubstr(kPath)));
}

TEST(Judge, AFileThatIsNoLibrary) {
  Facts facts = GoodFacts();
  facts.libraries[kPath].is_library = false;
  EXPECT_EQ(FindingOf(facts).cause, Cause::kNoLibrary);
}

TEST(Judge, ALibraryOfTheOtherBitness) {
  Facts facts = GoodFacts();
  facts.libraries[kPath].bits = 32;
  Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kWrongBitness);
  EXPECT_EQ(finding.what, "The library is 32-bit, and 64-bit programs cannot load it.");
  facts.libraries[kPath].bits = 0;
  EXPECT_THAT(FindingOf(facts).what, HasSubstr("another processor's"));
}

TEST(Judge, ALibraryThatItNeedsAndThatIsMissing) {
  Facts facts = GoodFacts();
  facts.libraries[kPath].missing = {"helper.dll"};
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kMissingLibrary);
  EXPECT_EQ(finding.what, "The library needs helper.dll, which is nowhere to be found.");
  facts.libraries[kPath].missing.push_back("other.dll");
  EXPECT_EQ(Judge(facts).size(), 2u);
}

TEST(Judge, AThreadingModelThatIsNotThatOfControls) {
  Facts facts = GoodFacts();
  facts.classes[2].machine->threading_model = "apartment";
  EXPECT_THAT(CausesOf(facts), IsEmpty());
  facts.classes[1].machine->threading_model = "Both";
  Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kThreadingModel);
  EXPECT_EQ(finding.what, "The threading model of FlatGrid is \"Both\".");
  for (ClassFacts& each : facts.classes) each.machine->threading_model = "";
  EXPECT_EQ(FindingOf(facts).what, "The threading model of FlatButton and 2 others is none.");
}

TEST(Judge, ATypeLibraryThatIsNotRegistered) {
  Facts facts = GoodFacts();
  facts.type_libraries.clear();
  EXPECT_EQ(FindingOf(facts).cause, Cause::kTypeLibrary);
}

TEST(Judge, ATypeLibraryThatIsNotThereOrDoesNotMatch) {
  Facts facts = GoodFacts();
  facts.type_libraries[0].exists = false;
  EXPECT_EQ(FindingOf(facts).what, "The type library that is registered is not there.");
  facts.type_libraries[0].exists = true;
  facts.type_libraries[0].library.reset();
  EXPECT_THAT(FindingOf(facts).what, HasSubstr("does not match: it is damaged, or no type library."));
  facts.type_libraries[0].library = ReadTypeLibrary(MakeTypeLibrary({.minor = 4}));
  EXPECT_EQ(FindingOf(facts).what, "The type library that is registered does not match: it is version 1.4.");
}

TEST(Judge, OnlyTheTypeLibraryThatIsUsed) {
  Facts facts = GoodFacts();
  facts.type_libraries.push_back({"HKEY_LOCAL_MACHINE", kOtherPath, false, std::nullopt});
  EXPECT_THAT(CausesOf(facts), IsEmpty());
}

TEST(Judge, ALibraryWhoseTypeLibraryIsMissingOrOfAnotherVersion) {
  Facts facts = GoodFacts();
  facts.libraries[kPath].has_type_library = false;
  EXPECT_EQ(FindingOf(facts).what, "The library holds no type library.");
  facts.libraries[kPath].has_type_library = true;
  facts.libraries[kPath].type_library = ReadTypeLibrary(MakeTypeLibrary({.without_class = "FlatGrid"}));
  EXPECT_THAT(FindingOf(facts).what,
              HasSubstr("inside the library does not match: it does not know the class FlatGrid"));
}

TEST(Judge, AClassThatContainersMayNotMake) {
  Facts facts = GoodFacts();
  facts.classes[1].blocked_at = "HKEY_LOCAL_MACHINE\\SOFTWARE\\...\\ActiveX Compatibility\\{1}";
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kBlocked);
  EXPECT_THAT(finding.what, HasSubstr("FlatGrid"));
  EXPECT_EQ(finding.where, facts.classes[1].blocked_at);
}

TEST(Judge, RulesOfAnAdministrator) {
  Facts facts = GoodFacts();
  facts.policies.push_back({"HKEY_LOCAL_MACHINE\\Rule", kPath});
  EXPECT_EQ(FindingOf(facts).cause, Cause::kPolicy);
  facts.policies[0].library = "";
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kUnreadablePolicy);
  EXPECT_FALSE(finding.is_problem);
}

TEST(Judge, AContainerThatCannotBeRead) {
  Facts facts = GoodFacts();
  facts.container = "C:\\notes.txt";
  facts.container_is_read = false;
  EXPECT_EQ(FindingOf(facts).cause, Cause::kContainerUnreadable);
}

TEST(Judge, AnObjectThatIsNotMadeForNoOtherReason) {
  Facts facts = GoodFacts();
  facts.attempts[1] = {"FlatGrid", 0x8007007eu, "0x8007007E: Module not found."};
  const Finding finding = FindingOf(facts);
  EXPECT_EQ(finding.cause, Cause::kDoesNotLoad);
  EXPECT_EQ(finding.where, "0x8007007E: Module not found.");
  facts.libraries[kPath].missing = {"helper.dll"};
  EXPECT_THAT(CausesOf(facts), ::testing::ElementsAre(Cause::kMissingLibrary)) << "it is explained already";
}

TEST(Judge, NotesDoNotExplainWhyAnObjectIsNotMade) {
  Facts facts = GoodFacts();
  facts.policies.push_back({"HKEY_LOCAL_MACHINE\\Rules", ""});
  facts.attempts[0].result = 0x80040154u;
  EXPECT_THAT(CausesOf(facts), ::testing::ElementsAre(Cause::kUnreadablePolicy, Cause::kDoesNotLoad));
}

}  // namespace
}  // namespace levelwidgets::doctor
