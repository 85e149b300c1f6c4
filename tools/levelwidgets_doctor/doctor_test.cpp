#include <tools/levelwidgets_doctor/doctor.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/testing/source_dir.h>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

namespace levelwidgets::doctor {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct DoctorOutcome {
  int status = -1;
  std::string out;
  std::string err;
  Question asked;
};

Facts WellFacts() {
  Facts facts;
  ClassFacts button;
  button.name = "FlatButton";
  button.user = Server{"HKEY_CURRENT_USER\\Key", "C:\\x.dll", "Apartment"};
  facts.classes.push_back(button);
  facts.libraries["C:\\x.dll"] = {.exists = true, .is_library = true, .bits = 64, .has_type_library = true};
  TypeLibrarySummary library{kLibraryId, kLibraryMajor, kLibraryMinor, {}};
  for (const ClassIdentity& each : ClassIdentities()) {
    for (const Guid& id : {each.class_id, each.interface_id, each.events_id}) library.known.push_back(id);
  }
  facts.libraries["C:\\x.dll"].type_library = library;
  facts.type_libraries.push_back({"HKEY_CURRENT_USER\\Library", "C:\\x.dll", true, library});
  return facts;
}

DoctorOutcome OutcomeOf(const std::vector<std::string>& arguments, const Facts& facts) {
  DoctorOutcome outcome;
  std::ostringstream out;
  std::ostringstream err;
  outcome.status = RunDoctor(
      arguments,
      [&](const Question& question) {
        outcome.asked = question;
        return facts;
      },
      out, err);
  outcome.out = out.str();
  outcome.err = err.str();
  return outcome;
}

TEST(Doctor, EndsWithZeroWhereNothingIsWrong) {
  const DoctorOutcome outcome = OutcomeOf({}, WellFacts());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Nothing is wrong: 64-bit programs can load the components of LevelWidgets 1.0.\n"
            "  They come from C:\\x.dll\n");
  EXPECT_EQ(outcome.err, "");
}

TEST(Doctor, SaysWhatIsWrongWhereAndWhatWouldBeRight) {
  Facts facts = WellFacts();
  facts.libraries["C:\\x.dll"].bits = 32;
  const DoctorOutcome outcome = OutcomeOf({}, facts);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "PROBLEM: The library is 32-bit, and 64-bit programs cannot load it.\n"
            "  Where: HKEY_CURRENT_USER\\Key names C:\\x.dll\n"
            "  Right: Register the 64-bit one: regsvr32 \"levelwidgets_x64.dll\"\n");
}

TEST(Doctor, ANoteIsNothingWrong) {
  Facts facts = WellFacts();
  facts.policies.push_back({"HKEY_LOCAL_MACHINE\\Rules", ""});
  const DoctorOutcome outcome = OutcomeOf({}, facts);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, AllOf(StartsWith("Note: An administrator"), HasSubstr("Nothing is wrong: ")));
}

TEST(Doctor, PrintsTheSameForPrograms) {
  Facts facts = WellFacts();
  facts.classes[0].user->threading_model = "Free";
  facts.container = "C:\\Office.exe";
  const DoctorOutcome outcome = OutcomeOf({"--json", "--container", "C:\\Office.exe"}, facts);
  EXPECT_EQ(outcome.status, 1);
  const auto json = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(json.at("library"), "LevelWidgets");
  EXPECT_EQ(json.at("version"), "1.0");
  EXPECT_EQ(json.at("bits"), 64);
  EXPECT_EQ(json.at("container"), "C:\\Office.exe");
  EXPECT_EQ(json.at("well"), false);
  EXPECT_EQ(json.at("findings").at(0).at("cause"), "threading-model");
  EXPECT_EQ(json.at("findings").at(0).at("problem"), true);
  EXPECT_EQ(json.at("findings").at(0).at("where"), "HKEY_CURRENT_USER\\Key");
  EXPECT_EQ(nlohmann::json::parse(OutcomeOf({"--json"}, WellFacts()).out).at("well"), true);
}

TEST(Doctor, PrintsPathsThatAreNoText) {
  Facts facts = WellFacts();
  facts.container = "C:\\\xff.exe";
  EXPECT_EQ(nlohmann::json::parse(OutcomeOf({"--json"}, facts).out).at("container"), "C:\\\xef\xbf\xbd.exe");
}

TEST(Doctor, AsksWhatTheCommandLineSays) {
  const Question asked = OutcomeOf({"--container", "a.exe", "--library", "b.dll"}, WellFacts()).asked;
  EXPECT_EQ(asked.container, "a.exe");
  EXPECT_EQ(asked.library, "b.dll");
  EXPECT_EQ(asked.bits, 0);
  EXPECT_FALSE(asked.as_json);
  EXPECT_EQ(OutcomeOf({"--bits", "32"}, WellFacts()).asked.bits, 32);
  EXPECT_EQ(OutcomeOf({"--bits", "64"}, WellFacts()).asked.bits, 64);
}

TEST(Doctor, RefusesWhatItDoesNotUnderstandWithTwo) {
  const std::pair<std::vector<std::string>, const char*> wrong[] = {
      {{"--jsn"}, "\"--jsn\" is no option"},
      {{"x.dll"}, "\"x.dll\" is no option"},
      {{"--bits"}, "--bits takes a value"},
      {{"--bits", "16"}, "--bits takes 32 or 64, not \"16\""},
      {{"--bits", "32", "--container", "a.exe"}, "--bits goes without --container"}};
  for (const auto& [arguments, message] : wrong) {
    const DoctorOutcome outcome = OutcomeOf(arguments, WellFacts());
    EXPECT_EQ(outcome.status, 2) << message;
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err,
                AllOf(StartsWith("levelwidgets-doctor: "), HasSubstr(message), HasSubstr("--help")));
  }
}

TEST(Doctor, EndsWithThreeWhereTheMachineCannotBeAsked) {
  std::ostringstream out;
  std::ostringstream err;
  const auto fail = [](const Question&) -> Facts { throw std::runtime_error("The registry is locked."); };
  EXPECT_EQ(RunDoctor({}, fail, out, err), 3);
  EXPECT_EQ(err.str(), "levelwidgets-doctor: The registry is locked.\n");
}

TEST(Doctor, ThePageAboutComponentsNamesEveryCause) {
  std::ifstream in(std::string(SourceDir()) + "/docs/components.md");
  const std::string page(std::istreambuf_iterator<char>(in), {});
  std::set<std::string_view> names;
  for (int number = 0; !NameOf(static_cast<Cause>(number)).empty(); ++number) {
    const std::string_view name = NameOf(static_cast<Cause>(number));
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_THAT(page, HasSubstr("`" + std::string(name) + "`"));
  }
  EXPECT_EQ(names.size(), 17u);
}

TEST(Doctor, ExplainsItself) {
  const DoctorOutcome outcome = OutcomeOf({"--json", "--help"}, WellFacts());
  EXPECT_EQ(outcome.status, 0);
  for (const char* option : {"--container", "--library", "--bits", "--json", "--help"}) {
    EXPECT_THAT(outcome.out, HasSubstr(option));
  }
}

}  // namespace
}  // namespace levelwidgets::doctor
