// Property pages on the command line.
#ifndef _WIN32

#include <nlohmann/json.hpp>

#include <levelwidgets/pages/registry.h>
#include <tools/levelwidgets/program_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class PageCommands : public ProgramTest {
 protected:
  std::string Drawn(const std::string& arguments) {
    const Outcome outcome = Run("render " + arguments + " -o page.png");
    EXPECT_EQ(outcome.status, 0) << arguments << "\n" << outcome.err;
    EXPECT_EQ(outcome.out + outcome.err, "");
    return TextOf(folder_ / "page.png");
  }
};

TEST_F(PageCommands, RenderDrawsEveryPageAndNoTwoAreTheSame) {
  std::set<std::string> pictures;
  for (const PageInfo* page : Pages()) {
    const std::string picture = Drawn("--page " + std::string(page->name));
    EXPECT_THAT(picture, StartsWith("\x89PNG"));
    EXPECT_TRUE(pictures.insert(picture).second) << page->name;
  }
}

TEST_F(PageCommands, RenderDrawsAPageByResolutionPaletteAndLocale) {
  const std::string plain = Drawn("--page ppFlatScroll");
  EXPECT_EQ(plain, Drawn("--page LevelWidgets.ppFlatScroll --palette light --dpi 96 --locale en-US"));
  for (const char* other :
       {" --palette classic", " --palette dark", " --palette high-contrast", " --dpi 144"})
    EXPECT_NE(plain, Drawn("--page ppFlatScroll" + std::string(other))) << other;
  EXPECT_NE(Drawn("--page ppFlatTextBox"), Drawn("--page ppFlatTextBox --hover cmdOK"));
}

TEST_F(PageCommands, RenderDrawsAPageWithThePanelOfAFieldOpen) {
  EXPECT_NE(Drawn("--page ppFlatGridColumns"), Drawn("--page ppFlatGridColumns --open cmbEditType"));
  const Outcome closed = Run("render --page ppFlatGridColumns --open chkVisible -o p.png");
  EXPECT_EQ(closed.status, 1);
  EXPECT_THAT(closed.err, HasSubstr("chkVisible (CheckBox) has nothing to open"));
}

TEST_F(PageCommands, RenderRefusesPagesAndFieldsThatThereAreNot) {
  const Outcome page = Run("render --page ppFlatScrol -o p.png");
  EXPECT_EQ(page.status, 1);
  EXPECT_EQ(page.err, "There is no property page \"ppFlatScrol\"; did you mean \"ppFlatScroll\"?\n");
  EXPECT_THAT(
      Run("render --page Nothing -o p.png").err,
      StartsWith("There is no property page \"Nothing\"; the pages: ppFlatButton, ppFlatCalculator, "));
  const Outcome field = Run("render --page ppFlatScroll --hover txtValu -o p.png");
  EXPECT_EQ(field.status, 1);
  EXPECT_THAT(field.err, HasSubstr("has no control named \"txtValu\"; did you mean \"txtValue\"?"));
  EXPECT_FALSE(Exists("p.png"));
}

TEST_F(PageCommands, RenderTakesEitherAFormOrAPage) {
  const Outcome none = Run("render -o p.png");
  EXPECT_EQ(none.status, 2);
  EXPECT_THAT(none.err, StartsWith("FORM or --page is required\n"));
  const Outcome both = Run("render order.form.toml --page ppFlatScroll -o p.png");
  EXPECT_EQ(both.status, 2);
  EXPECT_THAT(both.err, StartsWith("--page excludes FORM\n"));
  EXPECT_FALSE(Exists("p.png"));
}

TEST_F(PageCommands, DescribeKnowsThePages) {
  EXPECT_THAT(Run("describe ppFlatScroll").out, StartsWith("ppFlatScroll: The property page \"General\""));
  EXPECT_THAT(Run("describe LevelWidgets.ppFlatGrid --markdown").out, StartsWith("# ppFlatGrid\n"));
  EXPECT_EQ(nlohmann::json::parse(Run("describe ppFlatGrid --json").out).at("page"), "ppFlatGrid");
  const Outcome schema = Run("describe ppFlatGrid --schema");
  EXPECT_EQ(schema.status, 1);
  EXPECT_EQ(schema.err, "ppFlatGrid is no control: only controls stand in form files and have a schema\n");
  EXPECT_THAT(Run("describe ppFlatGrd").err, HasSubstr("did you mean \"ppFlatGrid\"?"));
}

TEST_F(PageCommands, DescribeHasAllPagesByThemselvesAndTheClassesStayAsTheyAre) {
  const auto pages = nlohmann::json::parse(Run("describe --pages --json").out);
  ASSERT_EQ(pages.size(), Pages().size());
  EXPECT_EQ(pages.at(0).at("page"), "ppFlatButton");
  EXPECT_THAT(Run("describe --pages --markdown").out, HasSubstr("\n\n# ppFlatGridColumns\n"));
  EXPECT_THAT(Run("describe --pages").out, HasSubstr("\n\nppFlatGridColumns: "));
  for (const auto& described : nlohmann::json::parse(Run("describe --json").out))
    EXPECT_TRUE(described.contains("class"));
  EXPECT_EQ(Run("describe --pages FlatGrid").status, 2);
  EXPECT_EQ(Run("describe --pages --schema").status, 1);
}

}  // namespace
}  // namespace levelwidgets

#endif
