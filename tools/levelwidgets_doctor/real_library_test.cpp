// The doctor and the library of components as it is built.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/testing/component_module.h>
#include <levelwidgets/platform/win32/win32_text.h>
#include <tools/levelwidgets_doctor/gather.h>
#include <tools/levelwidgets_doctor/library_files.h>

namespace levelwidgets::doctor {
namespace {

using ::testing::IsEmpty;

using InstallEntry = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

InstallEntry InstallOfLibrary() {
  return reinterpret_cast<InstallEntry>(
      reinterpret_cast<void (*)()>(::GetProcAddress(activex::ComponentModule(), "DllInstall")));
}

// In the registry that the machine has, because the system makes objects by no other.
bool IsRegisteredHere() {
  const std::vector<Finding> findings = Judge(GatherFacts({}));
  return findings.empty() || findings[0].cause != Cause::kNotRegistered;
}

TEST(RealLibrary, RegisteredForTheMachineHasNothingWrongAndLoads) {
  if (IsRegisteredHere()) GTEST_SKIP() << "the components are registered on this machine";
  ASSERT_TRUE(InstallOfLibrary());
  const HRESULT registered = InstallOfLibrary()(TRUE, L"machine");
  if (registered == E_ACCESSDENIED) GTEST_SKIP() << "only administrators may register for the machine";
  ASSERT_EQ(registered, S_OK);
  const Facts facts = GatherFacts({.library = win32::FromWide(activex::ComponentModulePath())});
  EXPECT_EQ(InstallOfLibrary()(FALSE, L"machine"), S_OK);
  for (const Finding& finding : Judge(facts)) ADD_FAILURE() << finding.what << "\n" << finding.where;
  EXPECT_EQ(facts.attempts.size(), facts.classes.size());
  for (const AttemptFacts& attempt : facts.attempts) {
    EXPECT_EQ(attempt.result, 0u) << attempt.class_name << " " << attempt.message;
  }
  EXPECT_FALSE(IsRegisteredHere());
}

TEST(RealLibrary, RegisteredForOneUserHasNothingWrong) {
  if (IsRegisteredHere()) GTEST_SKIP() << "the components are registered on this machine";
  ASSERT_TRUE(InstallOfLibrary());
  ASSERT_EQ(InstallOfLibrary()(TRUE, L"user"), S_OK);
  Facts facts = GatherFacts({.library = win32::FromWide(activex::ComponentModulePath())});
  EXPECT_EQ(InstallOfLibrary()(FALSE, L"user"), S_OK);
  // Wine makes objects of the machine's classes only.
  facts.attempts.clear();
  for (const Finding& finding : Judge(facts)) ADD_FAILURE() << finding.what << "\n" << finding.where;
  for (const ClassFacts& each : facts.classes) EXPECT_TRUE(each.user) << each.name;
  EXPECT_FALSE(IsRegisteredHere());
}

TEST(RealLibrary, NeedsLibrariesOfTheSystemOnly) {
  const LibraryFacts facts = FactsOfLibrary(win32::FromWide(activex::ComponentModulePath()), kOwnBits, "");
  EXPECT_TRUE(facts.is_library);
  EXPECT_THAT(facts.missing, IsEmpty());
  ASSERT_TRUE(facts.type_library);
  EXPECT_EQ(MismatchOf(*facts.type_library), "");
}

}  // namespace
}  // namespace levelwidgets::doctor
