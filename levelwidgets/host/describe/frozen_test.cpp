#include <levelwidgets/host/describe/frozen.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/testing/source_dir.h>
#include <fstream>
#include <sstream>

namespace levelwidgets {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kList[] =
    "# A remark.\n"
    "Dial property 1 Steps Integer\n"
    "Dial event 1 Turned ()\n"
    "Knob property 1 Level Long\n";

FrozenMembers Grown(const std::vector<std::string>& members) { return GrowFrozenMembers(kList, members); }

TEST(FrozenMembers, ACompleteListStaysAsItIs) {
  const FrozenMembers same =
      Grown({"Knob property 1 Level Long", "Dial property 1 Steps Integer", "Dial event 1 Turned ()"});
  EXPECT_EQ(same.text, kList);
  EXPECT_THAT(same.added, IsEmpty());
  EXPECT_THAT(same.broken, IsEmpty());
}

TEST(FrozenMembers, ANewMemberIsAddedBehindTheOthersOfItsClass) {
  const FrozenMembers grown =
      Grown({"Dial property 1 Steps Integer", "Dial property 2 Side Long", "Dial event 1 Turned ()",
             "Knob property 1 Level Long", "Lamp method 1 Light ()"});
  EXPECT_EQ(grown.text,
            "# A remark.\n"
            "Dial property 1 Steps Integer\n"
            "Dial event 1 Turned ()\n"
            "Dial property 2 Side Long\n"
            "Knob property 1 Level Long\n"
            "Lamp method 1 Light ()\n");
  EXPECT_THAT(grown.added, ElementsAre("Dial property 2 Side Long", "Lamp method 1 Light ()"));
  EXPECT_THAT(grown.broken, IsEmpty());
}

// Also once the list has grown: what it said before is still in it.
TEST(FrozenMembers, ARemovedRenamedRenumberedOrRetypedMemberStaysBrokenHoweverOftenTheListGrows) {
  for (const char* changed : {"", "Dial property 1 Step Integer", "Dial property 2 Steps Integer",
                              "Dial property 1 Steps Long", "Dial property 1 Steps Integer, read-only"}) {
    std::vector<std::string> members{"Dial event 1 Turned ()", "Knob property 1 Level Long"};
    if (*changed) members.push_back(changed);
    std::string list = kList;
    for (int i = 0; i < 3; ++i) {
      const FrozenMembers grown = GrowFrozenMembers(list, members);
      EXPECT_THAT(grown.broken, ElementsAre("Dial property 1 Steps Integer")) << changed;
      list = grown.text;
    }
  }
}

TEST(FrozenMembers, AClassIsNotTakenForAnotherWhoseNameBeginsWithIts) {
  EXPECT_EQ(GrowFrozenMembers("Dials event 1 A ()\n", {"Dials event 1 A ()", "Dial event 1 B ()"}).text,
            "Dials event 1 A ()\nDial event 1 B ()\n");
}

// However often the list grows: a component is known by it in the registry of its users.
TEST(FrozenMembers, AChangedOrRemovedIdentifierStaysBroken) {
  constexpr char kListed[] = "Dial property 1 Steps Integer\nDial class {1}\n";
  for (const char* changed : {"", "Dial class {2}", "Dial interface {1}", "Knob class {1}"}) {
    std::vector<std::string> lines{"Dial property 1 Steps Integer"};
    if (*changed) lines.push_back(changed);
    std::string list = kListed;
    for (int i = 0; i < 2; ++i) {
      const FrozenMembers grown = GrowFrozenMembers(list, lines);
      EXPECT_THAT(grown.broken, ElementsAre("Dial class {1}")) << changed;
      list = grown.text;
    }
  }
}

TEST(MemberLines, ShowClassKindNumberNameAndType) {
  const std::vector<std::string> lines = MemberLines(DescribedClasses());
  EXPECT_THAT(lines, Contains("FlatButton property 1 BackColor Color"));
  EXPECT_THAT(lines, Contains("FlatButton property 5 hWnd Handle, read-only"));
  EXPECT_THAT(lines, Contains("FlatTabStrip property 8 TabCaption (Index: Integer): String"));
  EXPECT_THAT(lines, Contains("ksxValueList method 4 Add (Description: String): ksxValueListItem"));
  EXPECT_THAT(lines, Contains("FlatScroll method 16 Refresh (): Variant"));
  EXPECT_THAT(lines, Contains("FlatButton event 3 KeyPress (by reference KeyAscii: Integer)"));
  EXPECT_THAT(lines, Contains("Font property 3 Bold Boolean"));
}

TEST(FrozenMembers, OfThisProductAreItsMembersAndIdentifiersAndItsListIsComplete) {
  std::ifstream in(std::string(SourceDir()) + "/docs/frozen_members.txt");
  std::ostringstream list;
  list << in.rdbuf();
  std::vector<std::string> lines = MemberLines(DescribedClasses());
  for (std::string& line : IdentifierLines()) lines.push_back(std::move(line));
  const FrozenMembers now = GrowFrozenMembers(list.str(), lines);
  EXPECT_THAT(now.broken, IsEmpty()) << "members that users have built on have changed";
  EXPECT_THAT(now.added, IsEmpty()) << "tools/update_docs adds them to docs/frozen_members.txt";
}

}  // namespace
}  // namespace levelwidgets
