#include <levelwidgets/host/form/file_question.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/platform/file_dialogs.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/same_platform.h>

namespace levelwidgets {

namespace {

constexpr int kEnter = 13, kEscape = 27, kPageDown = 34, kUp = 38, kDown = 40;
constexpr int kAlt = 4;

class FileQuestionTest : public testing::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    std::filesystem::create_directories(folder_ / "old");
    for (const char* name : {"one.toml", "notes.txt", "old/two.toml"}) std::ofstream(folder_ / name) << name;
    folder_ = std::filesystem::canonical(folder_);
    TheForm();
  }
  void TearDown() override {
    question_.reset();
    std::filesystem::remove_all(folder_.parent_path());
    DesktopTest::TearDown();
  }

  void Ask(FileQuestion question = {}) {
    if (question.folder.empty()) question.folder = TextOfPath(folder_);
    question_ = AskForFile(Tracer(), question, {TheForm().shared_from_this()},
                           [this](const auto& path) { answers_.push_back(path.value_or("none")); });
    Driver().Settle();
  }
  void AskWithRoot() { Ask({.root = TextOfPath(folder_)}); }

  template <typename T>
  T& Control(const std::string& name) {
    return dynamic_cast<T&>(*question_->Find(name)->GetControl());
  }
  std::string Row(int number) { return Control<FlatLabel>("lbl" + std::to_string(number)).Caption(); }
  std::string Name() { return Control<FlatTextBox>("txtName").Text(); }
  void TypeName(const std::string& name) {
    Control<FlatTextBox>("txtName").SetText("");
    Driver().Type(name);
    Driver().Key(kEnter);
  }
  PixelPoint RowCentre(int number) { return question_->Find("lbl" + std::to_string(number))->ScreenCentre(); }
  bool IsSelected(int number) {
    return Control<FlatLabel>("lbl" + std::to_string(number)).BackColor() == Color(0x8000000Du);
  }
  std::string Path(const std::string& name) const {
    return TextOfPath((folder_ / PathOf(name)).make_preferred());
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                  (std::string("levelwidgets_question_") +
                                   ::testing::UnitTest::GetInstance()->current_test_info()->name()) /
                                  "files";
  std::shared_ptr<Form> question_;
  std::vector<std::string> answers_;
};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(FileQuestionTest, ItShowsTheFilesAndAPersonTypesAName) {
  Ask();
  EXPECT_EQ(question_->Caption(), "Open");
  EXPECT_EQ(Row(1), " ../");
  EXPECT_EQ(Row(2), " old/");
  EXPECT_EQ(Row(3), " notes.txt");
  EXPECT_EQ(Row(4), " one.toml");
  EXPECT_EQ(Row(5), "");
  EXPECT_FALSE(question_->Find("scrFiles")->Visible());
  TypeName("one.toml");
  EXPECT_THAT(answers_, ElementsAre(Path("one.toml")));
  EXPECT_TRUE(question_->Closed());
}

TEST_F(FileQuestionTest, OtherFormsTakeNoInputUntilItIsAnswered) {
  Ask();
  EXPECT_FALSE(Windows().IsWindowEnabled(TheForm().hWnd()));
  Driver().Key(kEscape);
  EXPECT_THAT(answers_, ElementsAre("none"));
  EXPECT_TRUE(Windows().IsWindowEnabled(TheForm().hWnd()));
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
}

TEST_F(FileQuestionTest, ItsTextsCanBeRead) {
  Ask();
  for (const char* name : {"lblFolder", "lblName", "lbl1"}) {
    const FlatLabel& label = Control<FlatLabel>(name);
    EXPECT_EQ(Concrete(label.ForeColor()), Concrete(Color(0x80000012u))) << name;
    EXPECT_NE(Concrete(label.ForeColor()), Concrete(label.BackColor())) << name;
  }
  EXPECT_EQ(PixelAt(Control<FlatLabel>("lblFilesFrame"), PixelPoint{0, 40}), Concrete(Color(0x80000006u)));
  EXPECT_EQ(PixelAt(Control<FlatLabel>("lblNameFrame"), PixelPoint{0, 10}), Concrete(Color(0x80000006u)));
  EXPECT_EQ(PixelAt(Control<FlatLabel>("lbl5"), PixelPoint{0, 8}), Concrete(Color(0x80000005u)));
}

TEST_F(FileQuestionTest, TheAnswerComesLaterAndOnce) {
  Ask();
  question_->Close();
  EXPECT_THAT(answers_, IsEmpty());
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre("none"));
  question_.reset();
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre("none"));
}

TEST_F(FileQuestionTest, AClickSelectsAFileAndTheButtonOpensIt) {
  Ask();
  Driver().Click(RowCentre(4));
  EXPECT_TRUE(IsSelected(4));
  EXPECT_FALSE(IsSelected(3));
  EXPECT_EQ(Name(), "one.toml");
  Driver().Key('O', kAlt);
  EXPECT_THAT(answers_, ElementsAre(Path("one.toml")));
}

TEST_F(FileQuestionTest, ADoubleClickEntersAFolderAndOpensAFile) {
  Ask();
  Driver().DoubleClick(RowCentre(2));
  EXPECT_EQ(Row(2), " two.toml");
  EXPECT_EQ(Name(), "");
  EXPECT_FALSE(IsSelected(2));
  Driver().Advance(1000);
  Driver().DoubleClick(RowCentre(2));
  EXPECT_THAT(answers_, ElementsAre(Path("old/two.toml")));
}

TEST_F(FileQuestionTest, AClickBelowTheFilesSelectsNothing) {
  Ask({.name = "one.toml"});
  Driver().DoubleClick(RowCentre(8));
  EXPECT_EQ(Name(), "one.toml");
  EXPECT_THAT(answers_, IsEmpty());
}

TEST_F(FileQuestionTest, ArrowKeysSelect) {
  Ask();
  Driver().Key(kDown);
  EXPECT_EQ(Name(), "..");
  Driver().Key(kDown);
  Driver().Key(kDown);
  EXPECT_EQ(Name(), "notes.txt");
  Driver().Key(kUp);
  EXPECT_EQ(Name(), "old");
  Driver().Key(kPageDown);
  EXPECT_EQ(Name(), "one.toml");
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(Path("one.toml")));
}

TEST_F(FileQuestionTest, ALongListScrollsWithTheSelectionAndByItsBar) {
  for (char c = 'a'; c <= 't'; ++c) std::ofstream(folder_ / "old" / std::string(1, c)) << c;
  Ask({.folder = Path("old")});
  ASSERT_TRUE(question_->Find("scrFiles")->Visible());
  FlatScroll& bar = Control<FlatScroll>("scrFiles");
  EXPECT_EQ(bar.Max(), 22 - 12);
  EXPECT_EQ(Row(1), " ../");
  Driver().Key(kDown);
  Driver().Key(kPageDown);
  EXPECT_EQ(Name(), "l");
  EXPECT_EQ(bar.Value(), 1);
  EXPECT_EQ(Row(1), " a");
  EXPECT_TRUE(IsSelected(12));
  Driver().Key(kPageDown);
  EXPECT_EQ(Name(), "two.toml");
  EXPECT_EQ(bar.Value(), 10);
  bar.SetValue(3);
  EXPECT_EQ(Row(1), " c");
  Driver().Click(RowCentre(1));
  EXPECT_EQ(Name(), "c");
  EXPECT_EQ(bar.Value(), 3);
}

TEST_F(FileQuestionTest, PatternsChooseTheFilesThatAreShownAndAnyNameMayBeTyped) {
  Ask({.title = "Which order?", .name = "one", .patterns = {"*.toml"}});
  EXPECT_EQ(question_->Caption(), "Which order?");
  EXPECT_EQ(Name(), "one");
  EXPECT_EQ(Row(3), " one.toml");
  TypeName("notes.txt");
  EXPECT_THAT(answers_, ElementsAre(Path("notes.txt")));
}

TEST_F(FileQuestionTest, AWrongNameIsExplainedAndTheQuestionStays) {
  Ask();
  TypeName("three.toml");
  EXPECT_THAT(answers_, IsEmpty());
  EXPECT_FALSE(Windows().IsWindowEnabled(question_->hWnd()));
  Driver().Key(kEscape);
  EXPECT_TRUE(Windows().IsWindowEnabled(question_->hWnd()));
  EXPECT_EQ(Windows().GetActiveWindow(), question_->hWnd());
  TypeName("one.toml");
  EXPECT_THAT(answers_, ElementsAre(Path("one.toml")));
}

TEST_F(FileQuestionTest, ToSaveAFileThatExistsIsReplacedOnlyWhenThePersonSaysSo) {
  Ask({.to_save = true, .name = "one.toml"});
  EXPECT_EQ(question_->Caption(), "Save as");
  Driver().Key(kEnter);
  Driver().Key('K', kAlt);
  EXPECT_THAT(answers_, IsEmpty());
  EXPECT_FALSE(question_->Closed());
  Driver().Key(kEnter);
  Driver().Key('R', kAlt);
  EXPECT_THAT(answers_, ElementsAre(Path("one.toml")));
}

TEST_F(FileQuestionTest, ToSaveANewNameNeedsNoQuestion) {
  Ask({.to_save = true});
  TypeName("old/new.toml");
  EXPECT_THAT(answers_, ElementsAre(Path("old/new.toml")));
}

TEST_F(FileQuestionTest, WithARootThereIsNoWayOutAndItsPlaceIsNotShown) {
  AskWithRoot();
  EXPECT_EQ(Row(1), " old/");
  EXPECT_EQ(Control<FlatLabel>("lblFolder").Caption(), "files");
  TypeName("..");
  EXPECT_FALSE(Windows().IsWindowEnabled(question_->hWnd()));
  Driver().Key(kEscape);
  TypeName("old");
  EXPECT_EQ(Row(1), " ../");
  EXPECT_EQ(Row(2), " two.toml");
  TypeName("..");
  EXPECT_EQ(Row(1), " old/");
  TypeName("one.toml");
  EXPECT_THAT(answers_, ElementsAre(Path("one.toml")));
}

TEST_F(FileQuestionTest, ANameThatTheBoxCannotShowStillMeansItsFile) {
  std::ofstream(folder_ / "old" / std::u8string(u8"\u4E2D.toml")) << "x";
  Ask({.folder = Path("old")});
  for (int i = 0; i < 3; ++i) Driver().Key(kDown);
  EXPECT_EQ(Name(), "?.toml");
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(Path("old/\xE4\xB8\xAD.toml")));
}

TEST_F(FileQuestionTest, AnAmpersandInANameIsShown) {
  std::ofstream(folder_ / "old" / "a&b") << "x";
  Ask({.folder = Path("old")});
  EXPECT_EQ(Row(2), " a&&b");
}

TEST_F(FileQuestionTest, WhoeverHasTheFormMayCloseItOrTakeControlsAwayAtAnyEvent) {
  Ask();
  Control<FlatTextBox>("txtName").Change += [this] { question_->Close(); };
  Driver().Key(kDown);
  EXPECT_THAT(answers_, ElementsAre("none"));

  Ask();
  Control<FlatTextBox>("txtName").Change += [this] { question_->Remove("txtName"); };
  Driver().Click(RowCentre(3));
  for (const char* name : {"scrFiles", "lbl1", "lblFolder", "cmdCancel"}) question_->Remove(name);
  Driver().Click(RowCentre(4));
  Driver().Key(kDown);
  Driver().Key(kEnter);
  question_->Close();
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre("none", Path("one.toml")));  // which is selected
}

TEST_F(FileQuestionTest, WhoDoesNotLetItCloseHasGotNoAnswer) {
  Ask();
  bool cancel = true;
  question_->Unload += [&](bool& refused) { refused = cancel; };
  TypeName("one.toml");
  EXPECT_THAT(answers_, IsEmpty());
  cancel = false;
  question_->Close();
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre("none"));
}

TEST_F(FileQuestionTest, ClosingItTakesItsMessageAlongAtOnce) {
  Ask();
  const std::size_t windows = Driver().TopLevelWindows().size();
  TypeName("three.toml");
  EXPECT_EQ(Driver().TopLevelWindows().size(), windows + 1);
  question_->Close();
  EXPECT_EQ(Driver().TopLevelWindows().size(), windows - 1);
  Driver().Settle();
  EXPECT_EQ(Driver().TopLevelWindows().size(), windows - 1);
  EXPECT_THAT(answers_, ElementsAre("none"));
}

// A platform whose system has questions of its own.
class AskingPlatform final : public testing::SamePlatform, public FileDialogSource, public FileDialogApi {
 public:
  using SamePlatform::SamePlatform;

  FileDialogApi& FileDialogs() override { return *this; }

  std::optional<std::string> GetOpenFileNameA(const FileDialog& question) override {
    return Ask("open", question);
  }
  std::optional<std::string> GetSaveFileNameA(const FileDialog& question) override {
    return Ask("save", question);
  }

  std::string asked;
  FileDialog dialog;
  std::optional<std::string> answer;
  std::function<void()> meanwhile;

 private:
  std::optional<std::string> Ask(const std::string& kind, const FileDialog& question) {
    asked += kind + " ";
    dialog = question;
    if (meanwhile) meanwhile();
    return answer;
  }
};

class SystemFileQuestionTest : public FileQuestionTest {
 protected:
  void AskSystem(const FileQuestion& question) {
    question_ = AskForFile(*platform_, question, {TheForm().shared_from_this(), other_},
                           [this](const auto& path) { answers_.push_back(path.value_or("none")); });
  }
  void SetUp() override {
    FileQuestionTest::SetUp();
    platform_ = std::make_unique<AskingPlatform>(Tracer());
    other_ = Form::Create(Tracer(), {});
    other_->Show();
    TheForm().Show();
  }
  void TearDown() override {
    other_.reset();
    FileQuestionTest::TearDown();
  }

  std::unique_ptr<AskingPlatform> platform_;
  std::shared_ptr<Form> other_;
};

TEST_F(SystemFileQuestionTest, TheSystemAsksLaterInFrontOfTheActiveForm) {
  platform_->answer = "a.toml";
  bool other_was_enabled = true, owner_was_enabled = false;
  platform_->meanwhile = [&] {
    other_was_enabled = Windows().IsWindowEnabled(other_->hWnd());
    owner_was_enabled = Windows().IsWindowEnabled(TheForm().hWnd());
  };
  AskSystem({.title = "Which?", .folder = "f", .name = "n", .patterns = {"*.toml"}});
  EXPECT_EQ(question_, nullptr);
  EXPECT_EQ(platform_->asked, "");
  Driver().Settle();
  EXPECT_EQ(platform_->asked, "open ");
  EXPECT_EQ(platform_->dialog.owner, TheForm().hWnd());
  EXPECT_EQ(platform_->dialog.title, "Which?");
  EXPECT_TRUE(platform_->dialog.folder.ends_with("f") && platform_->dialog.folder.size() > 1);
  EXPECT_EQ(platform_->dialog.name, "n");
  EXPECT_THAT(platform_->dialog.patterns, ElementsAre("*.toml"));
  EXPECT_THAT(answers_, ElementsAre("a.toml"));
  EXPECT_FALSE(other_was_enabled);
  EXPECT_TRUE(owner_was_enabled);  // the system's own affair
  EXPECT_TRUE(Windows().IsWindowEnabled(other_->hWnd()));
}

TEST_F(SystemFileQuestionTest, NoAnswerIsNone) {
  AskSystem({.to_save = true});
  Driver().Settle();
  EXPECT_EQ(platform_->asked, "save ");
  EXPECT_EQ(platform_->dialog.folder, "");
  EXPECT_THAT(answers_, ElementsAre("none"));
}

TEST_F(SystemFileQuestionTest, WithARootTheSystemIsNotAsked) {
  AskSystem({.root = TextOfPath(folder_)});
  EXPECT_NE(question_, nullptr);
  Driver().Key(kEscape);
  EXPECT_EQ(platform_->asked, "");
  EXPECT_THAT(answers_, ElementsAre("none"));
}

TEST_F(SystemFileQuestionTest, FormsTakeInputAgainAfterAnError) {
  platform_->meanwhile = [] { throw std::runtime_error("meanwhile"); };
  AskSystem({});
  EXPECT_THROW(Driver().Settle(), std::runtime_error);
  EXPECT_TRUE(Windows().IsWindowEnabled(other_->hWnd()));
}

TEST_F(SystemFileQuestionTest, AFormThatHasEndedMeanwhileIsNoOwner) {
  AskSystem({});
  TheForm().Close();
  Driver().Settle();
  EXPECT_EQ(platform_->dialog.owner, other_->hWnd());
}

}  // namespace

}  // namespace levelwidgets
