// What the fuzzer has found and learned stays tried, without the fuzzer.
#include <filesystem>

#include <levelwidgets/host/files/whole_file.h>
#include <levelwidgets/host/form_file/form_file_fuzz.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

class FormFileCorpus : public testing::DesktopTest {};

TEST_F(FormFileCorpus, EveryFileKeepsThePromises) {
  FormFilePromises promises(Tracer(), Driver());
  int files = 0;
  for (const auto& file : std::filesystem::directory_iterator(
           std::string(SourceDir()) + "/levelwidgets/host/form_file/form_file_corpus")) {
    EXPECT_EQ(promises.Broken(ReadWholeFile(file.path())), "") << file.path();
    ++files;
  }
  EXPECT_GT(files, 25);
}

}  // namespace
}  // namespace levelwidgets
