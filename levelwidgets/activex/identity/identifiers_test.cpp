#include <levelwidgets/activex/identity/identifiers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/pages/registry.h>
#include <levelwidgets/testing/source_dir.h>
#include <fstream>
#include <set>
#include <sstream>

namespace levelwidgets {
namespace {

using ::testing::Contains;
using ::testing::UnorderedElementsAreArray;

std::vector<const ClassInfo*> ComponentClasses() {
  std::vector<const ClassInfo*> classes(ControlClasses().begin(), ControlClasses().end());
  classes.insert(classes.end(), ObjectClasses().begin(), ObjectClasses().end());
  return classes;
}

std::vector<Guid> AllIdentifiers() {
  std::vector<Guid> all{kLibraryId};
  for (const ClassIdentity& identity : ClassIdentities()) {
    all.push_back(identity.class_id);
    all.push_back(identity.interface_id);
    if (!identity.events_id.IsNull()) all.push_back(identity.events_id);
  }
  for (const PageIdentity& page : PageIdentities()) all.push_back(page.class_id);
  for (const EnumerationIdentity& enumeration : EnumerationIdentities()) all.push_back(enumeration.id);
  return all;
}

TEST(Guid, IsReadFromItsTextAndWrittenInCapitals) {
  const Guid guid = "{0102a3b4-C5d6-07E8-f9FA-000b1C2d3E4f}"_guid;
  EXPECT_EQ(guid.data1, 0x0102a3b4u);
  EXPECT_EQ(guid.data2, 0xc5d6);
  EXPECT_EQ(guid.data3, 0x07e8);
  EXPECT_EQ(guid.data4, (std::array<std::uint8_t, 8>{0xf9, 0xfa, 0x00, 0x0b, 0x1c, 0x2d, 0x3e, 0x4f}));
  EXPECT_EQ(TextOf(guid), "{0102A3B4-C5D6-07E8-F9FA-000B1C2D3E4F}");
}

TEST(Guid, OtherTextsAreNone) {
  for (const char* text :
       {"", "0102A3B4-C5D6-07E8-F9FA-000B1C2D3E4F", "{0102A3B4-C5D6-07E8-F9FA-000B1C2D3E4F",
        "{0102A3B4-C5D6-07E8-F9FA-000B1C2D3E4G}", "{0102A3B4-C5D6-07E8-F9FA000-B1C2D3E4F}",
        "{0102A3B4-C5D6-07E8-F9FA-000B1C2D3E4F} ", "[0102A3B4-C5D6-07E8-F9FA-000B1C2D3E4F]",
        "{0102A3B/-C5D6-07E8-F9FA-000B1C2D3E4F}", "{0102A3B:-C5D6-07E8-F9FA-000B1C2D3E4F}"}) {
    EXPECT_FALSE(ParseGuid(text)) << text;
  }
}

TEST(Identifiers, EveryClassOfTheRegistryHasOnesAndNoOther) {
  std::vector<std::string_view> expected;
  for (const ClassInfo* info : ComponentClasses()) expected.push_back(info->Name());
  std::vector<std::string_view> names;
  for (const ClassIdentity& identity : ClassIdentities()) names.push_back(identity.class_name);
  EXPECT_THAT(names, UnorderedElementsAreArray(expected));
}

TEST(Identifiers, ClassesWithEventsHaveOneForThemAndOthersHaveNone) {
  for (const ClassInfo* info : ComponentClasses()) {
    const ClassIdentity* identity = IdentityOf(info->Name());
    ASSERT_TRUE(identity) << info->Name();
    EXPECT_EQ(identity->events_id.IsNull(), info->Events().empty()) << info->Name();
  }
}

std::string ToolboxFile(const std::string& name) {
  std::ifstream in(std::string(SourceDir()) + "/levelwidgets/activex/identity/toolbox/" + name,
                   std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

TEST(ToolboxPictures, EveryControlHasItsOwnByItsNumberAndNoOtherClassDoes) {
  std::string expected;
  for (const ClassIdentity& identity : ClassIdentities()) {
    if (!FindControlClass(identity.class_name)) continue;
    expected += std::to_string(ToolboxPictureOf(identity)) + " BITMAP \"" + std::string(identity.class_name) +
                ".bmp\"\n";
  }
  const std::string script = ToolboxFile("toolbox.rc");
  EXPECT_EQ(script.substr(script.find("\n1 ") + 1), expected);
}

// As designers want them.
TEST(ToolboxPictures, AreSixteenPixelsWideAndHighInSixteenColoursAndBeginWithTheTransparentOne) {
  std::set<std::string> different;
  for (const ClassInfo* info : ControlClasses()) {
    const std::string picture = ToolboxFile(std::string(info->Name()) + ".bmp");
    ASSERT_EQ(picture.size(), 14u + 40u + 64u + 128u) << info->Name();
    EXPECT_EQ(picture.substr(0, 2), "BM") << info->Name();
    EXPECT_EQ(picture.substr(18, 12), (std::string{16, 0, 0, 0, 16, 0, 0, 0, 1, 0, 4, 0})) << info->Name();
    EXPECT_EQ(picture.substr(54, 4), "\xC0\xC0\xC0" + std::string(1, 0)) << info->Name();
    EXPECT_EQ(picture[118] & 0xF0, 0) << info->Name();  // its lower left corner
    different.insert(picture);
  }
  EXPECT_EQ(different.size(), ControlClasses().size());
}

TEST(Identifiers, EveryPageHasOneAndNoOther) {
  std::vector<std::string_view> expected;
  for (const PageInfo* page : Pages()) expected.push_back(page->name);
  std::vector<std::string_view> names;
  for (const PageIdentity& page : PageIdentities()) names.push_back(page.page_name);
  EXPECT_THAT(names, UnorderedElementsAreArray(expected));
}

TEST(Identifiers, EveryEnumerationOfTheClassesHasOneAndNoOther) {
  std::set<std::string_view> expected;
  for (const ClassInfo* info : ComponentClasses()) {
    for (const EnumerationInfo* enumeration : info->Enumerations()) expected.insert(enumeration->name);
  }
  std::vector<std::string_view> names;
  for (const EnumerationIdentity& enumeration : EnumerationIdentities()) {
    names.push_back(enumeration.enumeration_name);
  }
  EXPECT_THAT(names, UnorderedElementsAreArray(expected));
}

// Two that are equal would be one class for everybody who has both in his registry.
TEST(Identifiers, AreRandomAndAllDifferent) {
  std::set<std::string> texts;
  for (const Guid& guid : AllIdentifiers()) {
    EXPECT_TRUE(texts.insert(TextOf(guid)).second) << TextOf(guid);
    EXPECT_EQ(guid.data3 >> 12, 4) << TextOf(guid) << " is of another version than a random one";
    EXPECT_EQ(guid.data4[0] >> 6, 2) << TextOf(guid) << " is of another variant";
  }
}

TEST(Identifiers, AreFoundByName) {
  EXPECT_EQ(IdentityOf("FlatGrid")->class_id, "{89878AB8-E11C-433D-AB77-AF2AB3D92F47}"_guid);
  EXPECT_EQ(IdentityOf("flatgrid"), nullptr);
  EXPECT_EQ(IdentityOfPage("ppFlatGrid")->class_id, "{19A42E3A-C9BD-48F0-8375-D62DED7B2B9F}"_guid);
  EXPECT_EQ(IdentityOfPage("FlatGrid"), nullptr);
  EXPECT_EQ(IdentityOfEnumeration("ksxEditTypeConstants")->id, "{11E29F7D-43BE-4DCD-9DBA-285D9CEB5F59}"_guid);
  EXPECT_EQ(IdentityOfEnumeration("ksxEditType"), nullptr);
}

TEST(IdentifierLines, ShowNameKindAndIdentifier) {
  const std::vector<std::string> lines = IdentifierLines();
  EXPECT_EQ(lines.size(), AllIdentifiers().size());
  EXPECT_THAT(lines, Contains("LevelWidgets library {9466D224-2367-4381-9D9F-81D8788F9CF0} 1.0"));
  EXPECT_THAT(lines, Contains("FlatButton class {E975254E-2CE4-4229-9737-8A2C9E493AE1}"));
  EXPECT_THAT(lines, Contains("FlatButton interface {3AF7D5EF-2E93-46B4-960A-6E50519AAE2C}"));
  EXPECT_THAT(lines, Contains("FlatButton events {E8DC6C5F-8AFB-4166-BF8C-D54065E14D0D}"));
  EXPECT_THAT(lines, Contains("ppFlatButton page {5B351405-6A3B-4D6F-943D-69409DA2F320}"));
  EXPECT_THAT(lines, Contains("ksxAlignmentConstants enumeration {4D0401A9-A14A-4027-A28B-67DD2642456D}"));
}

}  // namespace
}  // namespace levelwidgets
