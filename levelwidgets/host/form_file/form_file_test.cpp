#include <levelwidgets/host/form_file/form_file.h>

#include <filesystem>
#include <fstream>
#include <random>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/host/form_file/reader.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {
namespace {

namespace fs = std::filesystem;

std::string Told(const std::vector<Diagnostic>& diagnostics) {
  std::string text;
  for (const Diagnostic& diagnostic : diagnostics) text += diagnostic.ToString() + "\n";
  return text;
}

class FormFile : public testing::DesktopTest {
 protected:
  LoadedForm Load(const std::string& text) { return LoadFormText(Tracer(), text, "f"); }
  void ExpectTold(const std::string& text, const std::string& told) {
    const LoadedForm loaded = Load(text);
    EXPECT_EQ(Told(loaded.diagnostics), told);
    EXPECT_EQ(loaded.HasErrors(), loaded.form == nullptr);
    EXPECT_EQ(loaded.HasErrors(), loaded.document == nullptr);
  }
};

// --- What is right -------------------------------------------------------------------------------------

TEST_F(FormFile, LoadsTheFormAndItsControls) {
  const LoadedForm loaded = Load(
      "[form]\nName = \"frmOrder\"\nCaption = \"Order\"\nWidth = 9000\nHeight = 6000\n"
      "Font = { Name = \"Arial\", Size = 9 }\nBackColor = 0x00FFFFFF\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"cmdSave\"\nLeft = 120\nTop = 22.5\nWidth = 1500\n"
      "Height = 450\nTabIndex = 3\nDefault = true\nTag = \"x\"\nVisible = false\n"
      "Properties = { Caption = \"&Save\", BackColorMouseOver = 0x00112233 }\n"
      "[[control]]\nClass = \"LevelWidgets.FlatLabel\"\nName = \"lblNote\"\n"
      "Properties = { Alignment = \"ksxRight\" }\n");
  EXPECT_EQ(Told(loaded.diagnostics), "");
  ASSERT_TRUE(loaded.form);
  const Form& form = *loaded.form;
  EXPECT_EQ(form.Name(), "frmOrder");
  EXPECT_EQ(form.Caption(), "Order");
  EXPECT_EQ(form.Width(), Twips(9000));
  EXPECT_EQ(form.Height(), Twips(6000));
  EXPECT_EQ(form.GetFont()->Description(), (FontDescription{.name = "Arial", .size = 9}));
  EXPECT_EQ(form.BackColor(), Color(0x00FFFFFFu));
  ASSERT_EQ(form.Controls().size(), 2u);
  const HostedControl& save = *form.Controls()[0];
  EXPECT_EQ(save.Left(), Twips(120));
  EXPECT_EQ(save.Top(), Twips(22.5f));
  EXPECT_EQ(save.Width(), Twips(1500));
  EXPECT_EQ(save.Height(), Twips(450));
  EXPECT_EQ(save.TabIndex(), 3);
  EXPECT_TRUE(save.Default());
  EXPECT_FALSE(save.Visible());
  EXPECT_EQ(save.Tag(), "x");
  const auto& button = dynamic_cast<const FlatButton&>(*save.GetControl());
  EXPECT_EQ(button.Caption(), "&Save");
  EXPECT_EQ(button.BackColorMouseOver(), Color(0x00112233u));
  EXPECT_EQ(button.GetSurface().ScaleWidth(), Twips(1500));
  const HostedControl& note = *form.Controls()[1];
  EXPECT_EQ(note.Name(), "lblNote");
  EXPECT_EQ(note.Width(), note.ControlClass().DefaultSize().width);
  EXPECT_EQ(GetByName(*note.GetControl(), "Alignment"), Variant(2 - 1));
}

TEST_F(FormFile, AFormStandsWhereTheFileSaysOrInTheMiddle) {
  const PixelSize screen = Tracer().Screen().Size();
  const LoadedForm placed = Load("[form]\nLeft = 1500\nTop = -150\nWidth = 3000\n");
  ASSERT_TRUE(placed.form);
  EXPECT_EQ(placed.form->ScreenRect().left, 100);
  EXPECT_EQ(placed.form->ScreenRect().top, -10);
  const LoadedForm half = Load("[form]\nTop = 300\nWidth = 3000\n");
  ASSERT_TRUE(half.form);
  const PixelRect rect = half.form->ScreenRect();
  EXPECT_EQ(rect.left, (screen.width - rect.width()) / 2);
  EXPECT_EQ(rect.top, 20);
  ExpectTold("[form]\nLeft = 1e30\n", "f:2:8: Left is at most 1000000000 twips; 1e30 is too far\n");
  ExpectTold("[form]\nTop = \"low\"\n", "f:2:7: Top is a length in twips, a number; \"low\" is a string\n");
}

TEST_F(FormFile, AControlWithoutPropertiesIsLoadedFromAnEmptyBag) {
  const LoadedForm loaded = Load("[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"cmdOK\"\n");
  ASSERT_TRUE(loaded.form);
  // A new one would have its name as its caption.
  EXPECT_EQ(GetByName(*loaded.form->Find("cmdOK")->GetControl(), "Caption"), Variant(""));
}

TEST_F(FormFile, PropertiesMayBeATableOfTheirOwnOrDotted) {
  const LoadedForm loaded = Load(
      "[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"cmdA\"\n[control.Properties]\nCaption = \"A\"\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"cmdB\"\nProperties.Caption = \"B\"\n");
  EXPECT_EQ(Told(loaded.diagnostics), "");
  ASSERT_TRUE(loaded.form);
  EXPECT_EQ(GetByName(*loaded.form->Find("cmdA")->GetControl(), "Caption"), Variant("A"));
  EXPECT_EQ(GetByName(*loaded.form->Find("cmdB")->GetControl(), "Caption"), Variant("B"));
}

TEST_F(FormFile, TheNumberOfItemsThatADropDownHadIsKnownSavedAndNotLoaded) {
  const std::string head =
      "[form]\nName = \"frmForm\"\n\n[[control]]\nClass = \"FlatDropDown\"\nName = \"cbo\"\n";
  const LoadedForm loaded = Load(head + "Properties = { Style = 1, DDListCount = 7 }\n");
  EXPECT_EQ(Told(loaded.diagnostics), "");
  ASSERT_TRUE(loaded.form);
  Control& drop = *loaded.form->Find("cbo")->GetControl();
  EXPECT_EQ(FormText(*loaded.form), head + "Properties = { Style = 1 }\n");
  const Variant item("kg");
  InvokeByName(drop, "AddItem", {&item, 1});
  EXPECT_EQ(FormText(*loaded.form), head + "Properties = { Style = 1, DDListCount = 1 }\n");
  EXPECT_EQ(Told(Load(head + "Properties = { DDListCount = true }\n").diagnostics),
            "f:7:30: DDListCount is a whole number from -32768 to 32767; true is a boolean\n");
}

TEST_F(FormFile, IndexedPropertiesStandUnderTheirNameAndTheIndex) {
  const LoadedForm loaded = Load(
      "[form]\n[[control]]\nClass = \"FlatTabStrip\"\nName = \"tabMain\"\n"
      "Properties = { TabCount = 3, TabCaption1 = \"One\", TabCaption3 = \"Three\" }\n");
  EXPECT_EQ(Told(loaded.diagnostics), "");
  ASSERT_TRUE(loaded.form);
  Control& strip = *loaded.form->Find("tabMain")->GetControl();
  const auto caption = [&strip](int tab) {
    return GetIndexedByName(strip, "TabCaption", std::vector<Variant>{tab});
  };
  EXPECT_EQ(caption(1), Variant("One"));
  EXPECT_EQ(caption(2), Variant(""));
  EXPECT_EQ(caption(3), Variant("Three"));
  SetIndexedByName(strip, "TabCaption", std::vector<Variant>{2}, "Two");
  SetIndexedByName(strip, "TabCaption", std::vector<Variant>{3}, "");
  EXPECT_EQ(FormText(*loaded.form, loaded.document.get()),
            "[form]\n[[control]]\nClass = \"FlatTabStrip\"\nName = \"tabMain\"\n"
            "Properties = { TabCount = 3, TabCaption1 = \"One\", TabCaption2 = \"Two\" }\n");
}

TEST_F(FormFile, AnIndexBeyondTheValuesIsAWarningAndAWrongKeyOrTypeIsReported) {
  ExpectTold(
      "[form]\n[[control]]\nClass = \"FlatTabStrip\"\nName = \"tabMain\"\n"
      "[control.Properties]\nTabCount = 2\nTabCaption3 = \"Three\"\nTabCaption03 = \"x\"\n",
      "f:7:1: warning: TabCaption3 is not loaded: there are 2 values of TabCaption\n"
      "f:8:1: warning: FlatTabStrip has no property \"TabCaption03\" to load; did you mean "
      "\"TabCaption\"?\n");
  ExpectTold(
      "[form]\n[[control]]\nClass = \"FlatTabStrip\"\nName = \"tabMain\"\n"
      "[control.Properties]\nTabCaption1 = 7\n",
      "f:6:15: TabCaption1 is a string; 7 is a number\n");
}

TEST_F(FormFile, ControlsTakeTheFontOfTheFormWhereTheyHaveNone) {
  const LoadedForm loaded = Load(
      "[form]\nFont = { Name = \"Arial\", Size = 12 }\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"b\"\nProperties = { Font = { Name = \"Tahoma\", Size = "
      "8 } }\n");
  ASSERT_TRUE(loaded.form);
  EXPECT_EQ(Describe(GetByName(*loaded.form->Find("a")->GetControl(), "Font")), "Arial 12");
  EXPECT_EQ(Describe(GetByName(*loaded.form->Find("b")->GetControl(), "Font")), "Tahoma 8");
}

TEST_F(FormFile, ALoadedFormIsHiddenAndHasNotRaisedLoad) {
  const LoadedForm loaded = Load("[form]\n");
  ASSERT_TRUE(loaded.form);
  EXPECT_FALSE(Windows().IsWindowVisible(loaded.form->hWnd()));
}

// --- What is wrong -------------------------------------------------------------------------------------

TEST_F(FormFile, ReportsWhatIsWrongWithTheFileAsAWhole) {
  ExpectTold("", "f:1:1: there is no [form] table; a form file begins with one\n");
  ExpectTold("# nothing\n", "f:1:1: there is no [form] table; a form file begins with one\n");
  ExpectTold("[form.x]\n", "f:1:2: the form is a table of its own, begun with [form]\n");
  ExpectTold("form = 1\n", "f:1:1: the form is a table of its own, begun with [form]\n");
  ExpectTold("form = {}\n", "f:1:1: the form is a table of its own, begun with [form]\n");
  ExpectTold("[form]\n[control]\n", "f:2:2: each control is a table of its own, begun with [[control]]\n");
  ExpectTold("control = [ { Class = \"FlatButton\" } ]\n[form]\n",
             "f:1:1: each control is a table of its own, begun with [[control]]\n");
  ExpectTold("[form]\nWidth = = 1\n",
             "f:2:9: syntax error in a value: could not determine value type; a text stands in quotes, other "
             "values are a number, true, false, a date, a list or a { table }\n");
  ExpectTold("[form]\nCaption = \"\xC3\xA4\xFF\"\n",
             "f:2:13: the text is not UTF-8: the byte 0xFF at offset 20 is no character\n");
}

TEST_F(FormFile, ReportsEverythingWrongInOneGoInTheOrderOfTheFile) {
  ExpectTold(
      "[form]\n"
      "Width = \"wide\"\n"
      "Hight = 6000\n"
      "Caption = 5\n"
      "Script = \"none.lua\"\n"
      "[[control]]\n"
      "Class = \"FlatButon\"\n"
      "Name = \"cmdA\"\n"
      "Left = true\n"
      "[[control]]\n"
      "Class = \"FlatButton\"\n"
      "Name = \"cmdA\"\n"
      "Caption = \"A\"\n"
      "Properties = { Captoin = \"A\", BackColor = 0x1FFFFFFFF, Enabled = 1 }\n"
      "[[control]]\n"
      "Properties = 3\n"
      "[[control]]\n"
      "Class = \"FlatLabel\"\n"
      "Name = \"1st label\"\n"
      "Width = -1\n"
      "TabIndex = 1.5\n"
      "[extra]\n",
      "f:2:9: Width is a length in twips, a number; \"wide\" is a string\n"
      "f:3:1: warning: a form has no key \"Hight\"; did you mean \"Height\"?\n"
      "f:4:11: Caption is a string; 5 is a number\n"
      "f:5:10: there is no script \"none.lua\" beside the form\n"
      "f:7:9: there is no control class \"FlatButon\"; did you mean \"FlatButton\"?\n"
      "f:9:8: Left is a length in twips, a number; true is a boolean\n"
      "f:12:8: \"cmdA\" is the name of the control on line 8\n"
      "f:13:1: warning: a control has no key \"Caption\"; it is one of the control's own, which stand in "
      "Properties\n"
      "f:14:16: warning: FlatButton has no property \"Captoin\" to load; did you mean \"Caption\"?\n"
      "f:14:43: BackColor is a colour, 0x00BBGGRR or 0x80000000 plus the index of a system colour; "
      "0x1FFFFFFFF is out of range\n"
      "f:14:66: Enabled is true or false; 1 is a number\n"
      "f:15:1: the control has no Class\n"
      "f:15:1: the control has no Name\n"
      "f:16:14: Properties is a table, such as { Caption = \"OK\" }; 3 is none\n"
      "f:19:8: \"1st label\" is no name: that is a letter or \"_\", then letters, digits and \"_\"\n"
      "f:20:9: Width cannot be negative; -1 is\n"
      "f:21:12: TabIndex is a whole number from -2147483648 to 2147483647; 1.5 is a number with a fraction\n"
      "f:22:2: warning: a form file has no key \"extra\"\n");
}

TEST_F(FormFile, UnknownKeysAreWarnings) {
  ExpectTold(
      "Width = 1\n[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\nlocked = true\n"
      "Properties = { Mine = [1, 2] }\n",
      "f:1:1: warning: a form file has no key \"Width\"\n"
      "f:6:1: warning: a control has no key \"locked\"\n"
      "f:7:16: warning: FlatButton has no property \"Mine\" to load\n");
}

TEST_F(FormFile, NamesThatScriptsHaveAlreadyAreWarnings) {
  ExpectTold(
      "[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"end\"\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"print\"\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"Print\"\n",
      "f:4:8: warning: \"end\" is a word of the scripts' language; a script reaches the control as "
      "form[\"end\"]\n"
      "f:7:8: warning: the control hides what scripts have as \"print\"; another name keeps both\n");
}

TEST_F(FormFile, EachWordOfTheScriptsLanguageIsAWarningAsTheNameOfAControl) {
  for (const char* word :
       {"and", "break", "do",  "else", "elseif", "end",    "false",  "for",  "function", "goto",  "if",
        "in",  "local", "nil", "not",  "or",     "repeat", "return", "then", "true",     "until", "while"}) {
    const std::string name = std::string("\"") + word + "\"";
    ExpectTold("[form]\n[[control]]\nClass = \"FlatButton\"\nName = " + name + "\n",
               "f:4:8: warning: " + name +
                   " is a word of the scripts' language; a script reaches the control as form[" + name +
                   "]\n");
  }
}

TEST_F(FormFile, ASecondDefaultOrCancelButtonIsAWarning) {
  ExpectTold(
      "[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\nDefault = true\nCancel = true\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"b\"\nDefault = false\n"
      "[[control]]\nClass = \"FlatButton\"\nName = \"c\"\nDefault = true\nCancel = true\n",
      "f:14:11: warning: the control on line 5 is the default button already; the last one is\n"
      "f:15:10: warning: the control on line 6 is the cancel button already; the last one is\n");
}

TEST_F(FormFile, AnEdgeThatIsNoneIsReportedWithItsPlace) {
  ExpectTold("[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\nAnchor = \"middle\"\n",
             "f:5:10: \"middle\" is no edge: Anchor is made of left, top, right and bottom\n");
}

TEST_F(FormFile, NothingIsLeftOfABrokenForm) {
  const std::size_t windows = Driver().LiveWindows();
  ASSERT_TRUE(Load("[form]\nWidth = \"\"\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\n").HasErrors());
  EXPECT_EQ(Driver().LiveWindows(), windows);
}

// Bytes lost, doubled and changed: the file is loaded, or what is wrong with it is reported.
TEST_F(FormFile, AnyDamagedFileIsEitherLoadedOrReported) {
  const std::string whole =
      "[form]\nName = \"f\"\nFont = { Name = \"\xC3\xA4\", Size = 8.25 }\n[[control]]\nClass = "
      "\"FlatButton\"\n"
      "Name = 'a'\nLeft = 0x10\nTag = \"\"\"x\ny\"\"\"\n[control.Properties]\nCaption.x = [1, 2024-05-31]\n";
  const std::string bytes = "[]{}=.,\"'#\n\\\xFF\xC3 0x-";
  std::mt19937 random(1);
  for (int round = 0; round < 1000; ++round) {
    std::string text = whole;
    for (std::size_t changes = 1 + random() % 3; changes > 0; --changes) {
      const std::size_t at = random() % text.size();
      const std::size_t length = random() % 2 * (random() % 20);
      const std::string byte(1, bytes[random() % bytes.size()]);
      text.replace(at, length, random() % 2 == 0 ? byte : text.substr(random() % text.size(), random() % 8));
    }
    const LoadedForm loaded = Load(text);
    EXPECT_NE(loaded.HasErrors(), loaded.form != nullptr) << text;
    if (loaded.form) {
      EXPECT_EQ(FormText(*loaded.form, loaded.document.get()), text);
    }
  }
}

// --- What a control refuses ------------------------------------------------------------------------------

// Takes even numbers only.
class EvenControl : public Control {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<EvenControl>;
    static constexpr auto data =
        ClassTable(ControlClass<EvenControl>("EvenControl", "Even numbers."),
                   table::Properties(Row::Property<&EvenControl::First, &EvenControl::SetFirst>(
                                         1, "First", Always(std::int32_t{0}), ""),
                                     Row::Property<&EvenControl::First, &EvenControl::SetFirst>(
                                         2, "Second", Always(std::int32_t{0}), ""),
                                     Row::Property<&EvenControl::First, &EvenControl::SetFirst>(
                                         3, "Third", Always(std::int32_t{0}), "")),
                   table::Persisted("First", "Second", "Third"));
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit EvenControl(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = {}, .fore_color = {}, .font = {}}) {}
  std::int32_t First() const { return 0; }
  void SetFirst(std::int32_t value) {
    if (value % 2 != 0) RaiseControlError(kInvalidValueCode, "EvenControl", "Invalid Value");
  }
  const ClassInfo& Class() const override { return Table(); }
};

const ClassInfo* FindEven(std::string_view) { return &EvenControl::Table(); }

TEST_F(FormFile, ReportsEveryValueThatAControlRefusesWhereItStands) {
  std::string text =
      "[form]\n[[control]]\nClass = \"EvenControl\"\nName = \"a\"\n"
      "Properties = { First = 1, Second = 2, Third = 3 }\n";
  auto parsed = ParseFormNodes(text);
  const FormDocument document(text, std::move(std::get<FormNode>(parsed)));
  FormReport report(document, "f");
  FormReader(Tracer(), report, FindEven).Read();
  EXPECT_EQ(Told(report.Diagnostics()),
            "f:5:24: EvenControl refuses 1 as its First: Invalid Value\n"
            "f:5:47: EvenControl refuses 3 as its Third: Invalid Value\n");
}

// --- Files -------------------------------------------------------------------------------------------------

class FormFileOnDisk : public FormFile {
 protected:
  void SetUp() override {
    FormFile::SetUp();
    const auto seed = std::to_string(::testing::UnitTest::GetInstance()->start_timestamp());
    folder_ = fs::path(::testing::TempDir()) / ("form_file_" + seed);
    fs::create_directories(folder_ / "sub");
  }
  void TearDown() override {
    fs::remove_all(folder_);
    FormFile::TearDown();
  }
  std::string Put(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return (folder_ / name).string();
  }
  fs::path folder_;
};

TEST_F(FormFileOnDisk, LoadsAFormAndNamesItsScript) {
  Put("order.lua", "");
  const LoadedForm loaded =
      LoadForm(Tracer(), Put("order.form.toml", "\xEF\xBB\xBF[form]\nScript = \"order.lua\"\n"));
  EXPECT_EQ(Told(loaded.diagnostics), "");
  EXPECT_EQ(fs::path(loaded.script), folder_ / "order.lua");
}

TEST_F(FormFileOnDisk, TheScriptIsAFileBesideTheForm) {
  Put("a.lua", "");
  const auto told = [this](const std::string& script) {
    const std::string path = Put("f.toml", "[form]\nScript = '" + script + "'\n");
    const std::string text = Told(LoadForm(Tracer(), path).diagnostics);
    return text.substr(std::min(text.size(), path.size()));
  };
  EXPECT_EQ(told("../a.lua"), ":2:10: Script is the name of a file beside the form; '../a.lua' is none\n");
  EXPECT_EQ(told("sub/../../a.lua"),
            ":2:10: Script is the name of a file beside the form; 'sub/../../a.lua' is none\n");
  EXPECT_EQ(told("/a.lua"), ":2:10: Script is the name of a file beside the form; '/a.lua' is none\n");
  EXPECT_EQ(told(""), ":2:10: Script is the name of a file beside the form; '' is none\n");
  EXPECT_EQ(told("sub"), ":2:10: the script 'sub' is a folder or a device, not an ordinary file\n");
  EXPECT_EQ(told("b.lua"), ":2:10: there is no script 'b.lua' beside the form\n");
  EXPECT_EQ(told("a.lua"), "");
}

TEST_F(FormFileOnDisk, SaysWhyAFileCannotBeRead) {
  const auto told = [this](const fs::path& path) {
    const std::string text = Told(LoadForm(Tracer(), path.string()).diagnostics);
    return text.substr(path.string().size());
  };
  EXPECT_EQ(told(folder_ / "none.toml"), ": the form file cannot be read: No such file or directory\n");
  EXPECT_EQ(told(folder_), ": the form file cannot be read: Is a directory\n");
}

TEST_F(FormFileOnDisk, ASavedFormLoadsAgain) {
  FormOptions options;
  options.name = "frmMine";
  options.caption = "Mine";
  const auto form = Form::Create(Tracer(), options);
  form->Add(FlatButton::Table(), "cmdOK").Move({Twips(120), Twips(60)}, {Twips(1000), Twips(300)});
  const std::string path = (folder_ / "mine.form.toml").string();
  SaveForm(*form, path);
  const LoadedForm loaded = LoadForm(Tracer(), path);
  EXPECT_EQ(Told(loaded.diagnostics), "");
  ASSERT_TRUE(loaded.form);
  EXPECT_EQ(FormText(*loaded.form), FormText(*form));
}

TEST_F(FormFileOnDisk, AFailedSaveNamesThePathAndTheCause) {
  const auto form = Form::Create(Tracer(), {});
  const std::string path = (folder_ / "none" / "f.toml").string();
  try {
    SaveForm(*form, path);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), 75);
    EXPECT_EQ(error.Description(), "The form cannot be saved as \"" + path + "\": No such file or directory");
  }
}

}  // namespace
}  // namespace levelwidgets
