// The texts that scenes are compared with.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <levelwidgets/testing/scenes/lines.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(SceneLines, IndentationAndEmptyLinesDoNotCount) {
  EXPECT_THAT(LinesFor("memory", "\n    * one\n\n  two [of them]\n"), ElementsAre("* one", "two [of them]"));
  EXPECT_THAT(LinesFor("memory", ""), IsEmpty());
}

TEST(SceneLines, AMarkedLineBelongsToItsPlatformAlone) {
  const char* const text = "both\n only here  [memory: reason]\n only there  [system: reason]\n last";
  EXPECT_THAT(LinesFor("memory", text), ElementsAre("both", "only here", "last"));
  EXPECT_THAT(LinesFor("system", text), ElementsAre("both", "only there", "last"));
}

TEST(SceneLines, TheDifferingLinesStandAmongTheOthers) {
  EXPECT_EQ(Differing({"a", "b", "c", "d"}, {"a", "x", "c", "d", "e"}), "  a\n- b\n+ x\n  c\n  d\n+ e\n");
  EXPECT_EQ(Differing({"a"}, {}), "- a\n");
}

// In both directions: a difference that nothing shows any more is taken off the list.
TEST(SceneLines, TheListOfDifferencesHasThoseThatScenesShow) {
  const std::filesystem::path root = SourceDir();
  std::set<std::string> shown;
  for (const auto& entry : std::filesystem::directory_iterator(root / "levelwidgets/testing/scenes")) {
    if (!entry.path().filename().string().ends_with("_scenes_test.cpp")) continue;
    const std::string source = ContentOf(entry.path());
    for (std::size_t begin = 0, end = 0; begin < source.size(); begin = end + 1) {
      end = std::min(source.find('\n', begin), source.size());
      const LineMark mark = MarkOf(std::string_view(source).substr(begin, end - begin));
      if (mark.platform == "memory" || mark.platform == "system") shown.emplace(mark.difference);
    }
  }
  const std::string page = ContentOf(root / "docs/platforms.md");
  std::set<std::string> listed;
  const std::string kHead = "\n| ";
  for (std::size_t at = page.find(kHead); at != std::string::npos; at = page.find(kHead, at + 1)) {
    const std::size_t begin = at + kHead.size();
    const std::string name = page.substr(begin, page.find(" |", begin) - begin);
    if (name != "Difference") listed.insert(name);
  }
  EXPECT_EQ(listed, shown);
  EXPECT_THAT(shown, ::testing::Not(IsEmpty()));
}

}  // namespace
}  // namespace levelwidgets::testing
