// The documentation is what the product says and draws, and its instructions work.
#ifndef _WIN32

#include <png.h>

#include <regex>
#include <set>

#include <levelwidgets/testing/source_dir.h>
#include <tools/levelwidgets/program_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;
using ::testing::IsSupersetOf;

constexpr char kRefresh[] = "; tools/update_docs writes and draws the documentation anew";

std::filesystem::path Source(const std::string& path) { return std::filesystem::path(SourceDir()) / path; }

struct Fence {
  std::string language;
  std::string text;
  std::string quoted;  // the file that the text is, "" for none
};

// The fenced blocks of a page. `<!-- quotes PATH -->` before one names the file that it shows.
std::vector<Fence> FencesOf(const std::string& page) {
  std::vector<Fence> fences;
  std::istringstream lines(page);
  std::string quoted;
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      if (!inside) fences.push_back({line.substr(3), "", std::exchange(quoted, "")});
      inside = !inside;
    } else if (inside) {
      fences.back().text += line + "\n";
    } else if (line.starts_with("<!-- quotes ")) {
      quoted = line.substr(12, line.find(" -->") - 12);
    }
  }
  return fences;
}

// The lines of `fences` in a shell's language that call the program.
std::vector<std::string> CommandsOf(const std::vector<Fence>& fences) {
  std::vector<std::string> commands;
  for (const Fence& fence : fences) {
    std::istringstream lines(fence.language == "sh" ? fence.text : "");
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("levelwidgets ")) commands.push_back(line.substr(0, line.find("  #")));
    }
  }
  return commands;
}

std::set<std::string> FilesIn(const std::filesystem::path& folder) {
  std::set<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) files.insert(std::filesystem::relative(entry.path(), folder).string());
  }
  return files;
}

// Width and pixels, so that what a compressor does to the bytes does not count.
std::pair<unsigned, std::vector<png_byte>> PixelsOf(const std::filesystem::path& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr)) return {};
  return {image.width, bytes};
}

std::vector<std::filesystem::path> Pages() {
  std::vector<std::filesystem::path> pages;
  for (const char* name : {"README.md", "CONTRIBUTING.md", "CHANGELOG.md"}) pages.push_back(Source(name));
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Source("docs"))) {
    if (entry.path().extension() == ".md") pages.push_back(entry.path());
  }
  return pages;
}

class Documentation : public ProgramTest {
 protected:
  void TakeOrderExample() {
    for (const auto& entry : std::filesystem::directory_iterator(Source("examples/order")))
      std::filesystem::copy(entry.path(), folder_);
  }

  // What a user types, with the program that was built.
  Outcome RunAsTyped(const std::string& command) {
    return RunShell("PATH='" + Program().parent_path().string() + "':$PATH " + command);
  }
};

TEST_F(Documentation, TheReferenceIsWhatTheClassesSayAndDraw) {
  std::filesystem::create_directories(folder_ / "new/reference/pictures");
  std::filesystem::create_directories(folder_ / "new/pictures");
  const Outcome made =
      Run("run '" + Source("docs/reference/generate.lua").string() + "' '" + Program().string() + "' new");
  ASSERT_EQ(made.status, 0) << made.err;
  const std::set<std::string> files = FilesIn(folder_ / "new");
  EXPECT_THAT(files, IsSupersetOf({"reference/README.md", "reference/FlatButton.md",
                                   "reference/pictures/FlatButton-normal.png", "pictures/gallery.png"}));
  for (const std::string& file : files) {
    ASSERT_TRUE(std::filesystem::exists(Source("docs/" + file)))
        << "docs/" << file << " is missing" << kRefresh;
    if (file.ends_with(".png")) {
      EXPECT_TRUE(PixelsOf(Source("docs/" + file)) == PixelsOf(folder_ / "new" / file))
          << "docs/" << file << " has other pixels than the product draws" << kRefresh;
    } else {
      EXPECT_EQ(TextOf(Source("docs/" + file)), TextOf(folder_ / "new" / file))
          << "docs/" << file << " is stale" << kRefresh;
    }
  }
  for (const char* folder : {"reference/pictures", "pictures"}) {
    for (const std::string& file : FilesIn(Source("docs") / folder))
      EXPECT_TRUE(files.contains(std::string(folder) + "/" + file)) << file << " is of no use" << kRefresh;
  }
}

TEST_F(Documentation, ThePicturesShowSomething) {
  for (const auto& entry : std::filesystem::directory_iterator(Source("docs/reference/pictures"))) {
    const auto [width, bytes] = PixelsOf(entry.path());
    std::set<std::array<png_byte, 3>> colors;
    for (std::size_t i = 0; i + 2 < bytes.size(); i += 3)
      colors.insert({bytes[i], bytes[i + 1], bytes[i + 2]});
    EXPECT_GT(colors.size(), 1u) << entry.path();
  }
}

// What "#..." in a link names: the headings, in small letters, "-" for each blank and nothing for
// punctuation.
std::set<std::string> AnchorsOf(const std::string& page) {
  std::set<std::string> anchors;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with('#')) continue;
    std::string anchor;
    for (const char c : line.substr(line.find_first_not_of("# "))) {
      if (c == ' ') anchor += '-';
      if (std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_')
        anchor += static_cast<char>(std::tolower(c));
    }
    anchors.insert(anchor);
  }
  return anchors;
}

TEST_F(Documentation, LinksLeadToHeadingsThatAreThere) {
  const std::regex link(R"(\]\(([^)#\s]*)#([^)]+)\))");
  int links = 0;
  for (const std::filesystem::path& page : Pages()) {
    const std::string text = TextOf(page);
    for (std::sregex_iterator match(text.begin(), text.end(), link), end; match != end; ++match) {
      const std::string target = (*match)[1], anchor = (*match)[2];
      if (target.starts_with("https://")) continue;
      const auto anchors = AnchorsOf(target.empty() ? text : TextOf(page.parent_path() / target));
      EXPECT_TRUE(anchors.contains(anchor)) << page << ": " << target << "#" << anchor;
      ++links;
    }
  }
  EXPECT_GT(links, 3);
}

TEST_F(Documentation, LinksLeadToFilesThatAreThere) {
  const std::regex link(R"(\]\(([^)#\s]+)(#[^)]*)?\)|<img src="([^"]+)\")");
  int links = 0;
  for (const std::filesystem::path& page : Pages()) {
    const std::string text = TextOf(page);
    EXPECT_NE(text, "") << page;
    for (std::sregex_iterator match(text.begin(), text.end(), link), end; match != end; ++match, ++links) {
      const std::string target = (*match)[1].matched ? (*match)[1].str() : (*match)[3].str();
      if (target.starts_with("https://")) continue;
      EXPECT_TRUE(std::filesystem::exists(page.parent_path() / target)) << page << ": " << target;
    }
  }
  EXPECT_GT(links, 50);
}

TEST_F(Documentation, QuotesAreTheFilesThatTheyName) {
  int quotes = 0;
  for (const std::filesystem::path& page : Pages()) {
    for (const Fence& fence : FencesOf(TextOf(page))) {
      if (fence.quoted.empty()) continue;
      EXPECT_EQ(fence.text, TextOf(Source(fence.quoted))) << page << " quotes " << fence.quoted;
      ++quotes;
    }
  }
  EXPECT_GE(quotes, 3);
}

TEST_F(Documentation, EverySnippetOfTheReadmeIsAFileThatIsTried) {
  for (const Fence& fence : FencesOf(TextOf(Source("README.md")))) {
    EXPECT_TRUE(fence.language == "sh" || !fence.quoted.empty()) << fence.text;
  }
}

TEST_F(Documentation, TheFirstFormOfTheReadmeDoesWhatItSays) {
  for (const Fence& fence : FencesOf(TextOf(Source("README.md")))) {
    if (fence.quoted.starts_with("examples/order/"))
      File(std::filesystem::path(fence.quoted).filename().string(), fence.text);
  }
  const Outcome check = Run("check order.form.toml");
  EXPECT_EQ(check.status, 0) << check.err;
  const Outcome test = Run("run order_test.lua");
  EXPECT_EQ(test.status, 0) << test.err;
  ASSERT_EQ(Run("render order.form.toml -o order.png").status, 0);
  EXPECT_TRUE(PixelsOf(folder_ / "order.png") == PixelsOf(Source("docs/pictures/order.png"))) << kRefresh;
}

TEST_F(Documentation, TheOrderEntryApprovesWhatIsTypedAndIsSavedWhereItIsTrusted) {
  for (const auto& entry : std::filesystem::directory_iterator(Source("examples/order_entry")))
    std::filesystem::copy(entry.path(), folder_);
  EXPECT_EQ(Run("check order_entry.form.toml").status, 0);
  for (const char* command : {"run order_entry_test.lua", "run --trust order_entry_test.lua"}) {
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.status, 0) << command << "\n" << outcome.err;
  }
}

TEST_F(Documentation, ThePropertiesOfADesignedFormAreEditedOnTheirPages) {
  for (const auto& entry : std::filesystem::directory_iterator(Source("examples/properties")))
    std::filesystem::copy(entry.path(), folder_);
  EXPECT_EQ(Run("check properties.form.toml").status, 0);
  const Outcome outcome = Run("run properties_test.lua");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Documentation, TheCommandsOnItsPagesWork) {
  TakeOrderExample();
  int commands = 0;
  for (const std::filesystem::path& page : Pages()) {
    for (const std::string& command : CommandsOf(FencesOf(TextOf(page)))) {
      if (command.starts_with("levelwidgets show")) continue;  // needs a display
      const Outcome outcome = RunAsTyped(command);
      EXPECT_EQ(outcome.status, 0) << page << ": " << command << "\n" << outcome.err;
      ++commands;
    }
  }
  EXPECT_GE(commands, 5);
}

// The names under "Subcommands:".
std::vector<std::string> CommandsOfHelp(const std::string& help) {
  std::vector<std::string> names;
  std::istringstream lines(help.substr(help.find("Subcommands:")));
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line) && line.starts_with("  ")) {
    if (line[2] != ' ') names.push_back(line.substr(2, line.find(' ', 2) - 2));
  }
  return names;
}

std::vector<std::string> ExamplesOf(const std::string& help) {
  std::vector<std::string> examples;
  std::istringstream lines(help.substr(std::min(help.size(), help.find("\nExample"))));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("  levelwidgets ")) examples.push_back(line.substr(2));
  }
  return examples;
}

TEST_F(Documentation, TheHelpOfEachCommandFitsAndHasExamplesThatWork) {
  TakeOrderExample();
  const std::vector<std::string> commands = CommandsOfHelp(Run("--help").out);
  EXPECT_THAT(commands, ::testing::IsSupersetOf({"show", "run", "render", "check", "describe"}));
  for (const std::string& command : commands) {
    const std::string help = Run(command + " --help").out;
    const std::vector<std::string> examples = ExamplesOf(help);
    EXPECT_FALSE(examples.empty()) << command;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 90u) << line;
    for (const std::string& example : examples) {
      EXPECT_THAT(example, ::testing::StartsWith("levelwidgets " + command));
      if (command == "show") continue;  // needs a display
      const Outcome outcome =
          RunAsTyped(std::regex_replace(example, std::regex("000\\b"), ""));  // not for long
      EXPECT_EQ(outcome.status, 0) << example << "\n" << outcome.err;
    }
  }
}

// The scripts on the page of scripts belong together: what one makes, the next ones use.
std::string ScriptsOf(const std::string& page) {
  std::string program;
  for (const Fence& fence : FencesOf(page)) {
    if (fence.language == "lua" && fence.quoted.empty()) program += fence.text + "\n";
  }
  return program;
}

TEST_F(Documentation, TheScriptsOnItsPageRun) {
  TakeOrderExample();
  File("page.lua", ScriptsOf(TextOf(Source("docs/scripts.md"))) +
                       "for _, e in ipairs(lw.errors()) do error(e.message) end\n");
  const Outcome outcome = Run("run page.lua");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
}

// Added to the program of the page of scripts. It prints each method that scripts have, as the page writes
// it: "desktop:click", "lw.date". Standard input lists methods too; it prints those that do not exist.
constexpr char kListMethods[] = R"lua(
local objects = { desktop = desktop, form = frm, control = cmdSave, object = list, page = page }
for name, object in pairs(objects) do
  for method in pairs(debug.getmetatable(object).methods) do print(name .. ":" .. method) end
end
for name in pairs(lw) do print("lw." .. name) end
for line in io.lines() do
  local name, method = line:match("^(%a+)[:.](.+)$")
  if not pcall(function() return (objects[name] or lw)[method] end) then print("no such method: " .. line) end
end
)lua";

// The methods in the tables of the page, as they are written there up to their arguments.
std::set<std::string> MethodsOf(const std::string& page) {
  const std::regex method(R"(`((?:desktop|form|control|object|page):\w+|lw\.\w+))");
  std::set<std::string> methods;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| `")) continue;
    for (std::sregex_iterator match(line.begin(), line.end(), method), end; match != end; ++match)
      methods.insert((*match)[1]);
  }
  return methods;
}

TEST_F(Documentation, ThePageOfScriptsNamesEachMethodThatScriptsHaveAndNoOther) {
  TakeOrderExample();
  const std::string page = TextOf(Source("docs/scripts.md"));
  const std::set<std::string> documented = MethodsOf(page);
  std::string names;
  for (const std::string& name : documented) names += name + "\n";
  File("names", names);
  File("page.lua", ScriptsOf(page) + kListMethods);
  const Outcome outcome = Run("run page.lua", "<names");
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  std::istringstream lines(outcome.out);
  int methods = 0;
  for (std::string line; std::getline(lines, line); ++methods)
    EXPECT_TRUE(documented.contains(line)) << "docs/scripts.md and the scripts differ: " << line;
  EXPECT_GE(methods, 50);
}

TEST_F(Documentation, TheFormsOnItsPageAreGood) {
  TakeOrderExample();
  int forms = 0;
  for (const Fence& fence : FencesOf(TextOf(Source("docs/forms.md")))) {
    if (fence.language != "toml" || fence.text.find("[rule") != std::string::npos) continue;
    const bool whole = fence.text.find("[form]") != std::string::npos;
    File("page.form.toml", (whole ? "" : "[form]\n") + fence.text);
    const Outcome outcome = Run("check page.form.toml");
    EXPECT_EQ(outcome.status, 0) << fence.text;
    EXPECT_EQ(outcome.err, "") << fence.text;
    ++forms;
  }
  EXPECT_GE(forms, 3);
}

}  // namespace
}  // namespace levelwidgets

#endif
