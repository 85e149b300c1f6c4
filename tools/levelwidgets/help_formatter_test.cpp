#include <gtest/gtest.h>

#include <tools/levelwidgets/help_formatter.h>

namespace levelwidgets {
namespace {

TEST(HelpFormatter, BreaksLinesBetweenWordsAndLeavesExamples) {
  EXPECT_EQ(Wrapped("one two three", 7), "one two\nthree");
  EXPECT_EQ(Wrapped("one two three", 8), "one two\nthree");
  EXPECT_EQ(Wrapped("one two three", 13), "one two three");
  EXPECT_EQ(Wrapped("a longestword b", 5), "a\nlongestword\nb");
  EXPECT_EQ(Wrapped("first one\n\nExample:\n  levelwidgets run a.lua", 8),
            "first\none\n\nExample:\n  levelwidgets run a.lua");
  EXPECT_EQ(Wrapped("", 8), "");
}

TEST(HelpFormatter, DescriptionsOfOptionsStandInTheirColumn) {
  CLI::App app("A program.", "program");
  app.formatter(std::make_shared<HelpFormatter>());
  std::string value;
  app.add_option("--name", value,
                 "A description that is too long for the space that is left of one line of help");
  EXPECT_NE(app.help().find(
                "  --name                  A description that is too long for the space that is left of one\n"
                "                          line of help\n"),
            std::string::npos)
      << app.help();
}

}  // namespace
}  // namespace levelwidgets
