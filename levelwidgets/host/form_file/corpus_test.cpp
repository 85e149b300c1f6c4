// What the fuzzer has found and learned stays tried, without the fuzzer.
#include <filesystem>
#include <fstream>

#include <levelwidgets/host/files/whole_file.h>
#include <levelwidgets/host/form_file/form_file_fuzz.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

class FormFileCorpus : public testing::DesktopTest {};

// The corpus and the folders that it refers to.
std::vector<std::string> CorpusFolders() {
  const std::string root = std::string(SourceDir()) + "/";
  const std::string corpus = root + "levelwidgets/host/form_file/form_file_corpus";
  std::vector<std::string> folders{corpus};
  std::ifstream also(corpus + ".also");
  for (std::string folder; std::getline(also, folder);) folders.push_back(root + folder);
  return folders;
}

TEST_F(FormFileCorpus, EveryFileKeepsThePromises) {
  FormFilePromises promises(Tracer(), Driver());
  std::map<std::string, int> files;
  for (const std::string& folder : CorpusFolders()) {
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      EXPECT_EQ(promises.Broken(ReadWholeFile(file.path())), "") << file.path();
      ++files[std::filesystem::path(folder).filename().string()];
    }
  }
  EXPECT_GT(files["form_file_corpus"], 25);
  EXPECT_GT(files["gallery"], 10);
}

}  // namespace
}  // namespace levelwidgets
