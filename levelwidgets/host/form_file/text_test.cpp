#include <levelwidgets/host/form_file/text.h>

#include <random>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {
namespace {

class FormTextTest : public testing::DesktopTest {
 protected:
  // Loads `text`; what is said about it must be warnings.
  Form& Load(const std::string& text) {
    loaded_ = LoadFormText(Tracer(), text, "f");
    for (const Diagnostic& diagnostic : loaded_.diagnostics) {
      EXPECT_EQ(diagnostic.severity, Diagnostic::Severity::kWarning) << diagnostic.ToString();
    }
    if (!loaded_.form) throw std::runtime_error("the form did not load:\n" + text);
    return *loaded_.form;
  }
  std::string Saved() { return FormText(*loaded_.form, loaded_.document.get()); }
  Control& Part(const char* name) { return *loaded_.form->Find(name)->GetControl(); }
  void TearDown() override {
    loaded_ = {};
    DesktopTest::TearDown();
  }

  LoadedForm loaded_;
};

const char kButton[] = "[[control]]\nClass = \"FlatButton\"\nName = \"cmdA\"\n";

// --- Without an original -----------------------------------------------------------------------------------

TEST_F(FormTextTest, ANewTextHasWhatDiffersFromTheDefaults) {
  FormOptions options{.name = "frmOrder", .caption = "Order \"1\"", .size = {Twips(9000), Twips(454522.5f)}};
  options.font = {.name = "Arial", .size = 9, .bold = true};
  const auto form = Form::Create(Tracer(), options);
  HostedControl& save = form->Add(FlatButton::Table(), "cmdSave");
  save.Move({Twips(120), Twips(5400)}, {Twips(1200), Twips(375)});
  save.SetDefault(true);
  SetByName(*save.GetControl(), "BackColorMouseOver", std::int32_t{0x00112233});
  const PropertyBag empty;
  form->Add(FlatLabel::Table(), "lblPlain", &empty);
  EXPECT_EQ(
      FormText(*form),
      "[form]\nName = \"frmOrder\"\nCaption = \"Order \\\"1\\\"\"\nWidth = 9000\nHeight = 454522.5\n"
      "Font = { Name = \"Arial\", Size = 9, Bold = true }\n"
      "\n[[control]]\nClass = \"FlatButton\"\nName = \"cmdSave\"\nLeft = 120\nTop = 5400\nWidth = 1200\n"
      "Default = true\nProperties = { Caption = \"cmdSave\", BackColorMouseOver = 0x00112233 }\n"
      "\n[[control]]\nClass = \"FlatLabel\"\nName = \"lblPlain\"\n");
}

TEST_F(FormTextTest, APlaceOnTheScreenIsWrittenWhereItWasSet) {
  const auto form = Form::Create(Tracer(), {.name = "frmOrder"});
  form->MoveTo({20, 30});  // stays without a place of its own
  EXPECT_EQ(FormText(*form), "[form]\nName = \"frmOrder\"\n");
  form->SetTop(Twips(-150));
  EXPECT_EQ(FormText(*form), "[form]\nName = \"frmOrder\"\nTop = -150\n");
  form->SetLeft(Twips(22.5F));
  EXPECT_EQ(FormText(*form), "[form]\nName = \"frmOrder\"\nLeft = 22.5\nTop = -150\n");
}

TEST_F(FormTextTest, APlaceOnTheScreenIsKeptAndFollowsTheForm) {
  const std::string text = "[form]\nName = \"frmOrder\"\nLeft = 1500 # here\n";
  Form& form = Load(text);
  EXPECT_EQ(form.ScreenRect().left, 100);
  EXPECT_EQ(Saved(), text);
  form.MoveTo({110, form.ScreenRect().top});
  EXPECT_EQ(Saved(), "[form]\nName = \"frmOrder\"\nLeft = 1650 # here\n");
  form.SetTop(Twips(300));
  EXPECT_EQ(Saved(), "[form]\nName = \"frmOrder\"\nLeft = 1650 # here\nTop = 300\n");
}

TEST_F(FormTextTest, ANewTextLoadsAsTheSameForm) {
  const auto form = Form::Create(Tracer(), {});
  for (const ClassInfo* control_class : ControlClasses()) {
    form->Add(*control_class, std::string(control_class->Name()) + "New");
    const PropertyBag empty;
    form->Add(*control_class, std::string(control_class->Name()) + "Loaded", &empty).SetTag("line\nbreak");
  }
  Form& again = Load(FormText(*form));
  EXPECT_TRUE(loaded_.diagnostics.empty());
  for (const auto& control : form->Controls()) {
    const PropertyBag before = control->Properties();
    const PropertyBag after = again.Find(control->Name())->Properties();
    ASSERT_EQ(before.Entries().size(), after.Entries().size()) << control->Name();
    for (std::size_t i = 0; i < before.Entries().size(); ++i) {
      EXPECT_EQ(before.Entries()[i].name, after.Entries()[i].name);
      EXPECT_EQ(before.Entries()[i].value, after.Entries()[i].value) << before.Entries()[i].name;
    }
    EXPECT_EQ(again.Find(control->Name())->Tag(), control->Tag());
  }
  EXPECT_EQ(FormText(again), FormText(*form));
}

// --- Nothing changed
// -----------------------------------------------------------------------------------------

TEST_F(FormTextTest, WithoutAChangeTheTextStaysByteForByte) {
  const std::string text =
      "# An order.\r\n\r\n[form] # here\r\n  Name='frmOrder'\r\nWidth = 9_000.0\r\nMine = [1,\r\n 2]\r\n"
      "Font={Size=9,Name=\"Arial\" , X=1}\r\n\r\n# The button\r\n[[control]]\r\nName = \"cmdA\"\r\n"
      "Class = \"LevelWidgets.FlatButton\"\r\nDefault = true\r\n"
      "Properties = {Enabled = true, Other={A=1},BackColor=0xcdd9dd, Caption = '''x'''} # p\r\n"
      "[control.Note]\r\nText = \"\"\"\r\n[[control]]\r\n# no comment\r\n\"\"\"\r\n"
      "[[control]]\r\nClass = \"FlatLabel\"\r\nName = \"lblB\"\r\nDefault = true\r\nTabIndex = 1\r\n"
      "[control.Properties]\r\nAlignment = 'ksxRight'\r\nFont.Size=8\r\nFont.Name=\"Tahoma\"\r\n\r\n"
      "[other]\r\nx = 2024-05-31\r\n# the end";
  Load(text);
  EXPECT_EQ(Saved(), text);
}

// --- The form's keys and placement
// ---------------------------------------------------------------------------

TEST_F(FormTextTest, ValuesAreChangedInPlace) {
  Form& form = Load(std::string("[form]\nName = \"f\"\n  Caption = \"old\"   # title\nWidth=9000\n\n") +
                    kButton + "Left = 120 # a\nVisible = true\n");
  form.SetCaption("new");
  form.SetWidth(Twips(7522.5f));
  form.Find("cmdA")->SetLeft(Twips(240));
  form.Find("cmdA")->SetVisible(false);
  EXPECT_EQ(Saved(), std::string("[form]\nName = \"f\"\n  Caption = \"new\"   # title\nWidth=7522.5\n\n") +
                         kButton + "Left = 240 # a\nVisible = false\n");
}

TEST_F(FormTextTest, NewKeysFollowTheLastOfTheirTable) {
  Form& form = Load(
      "[form]\r\n\t# nothing yet\r\n\r\n[[control]]\r\n  Class = \"FlatButton\"\r\n"
      "  Name = \"cmdA\" # last\r\n\r\n# end\r\n");
  form.SetCaption("new");
  form.SetBackColor(Color(0x00FFFFFFu));
  form.Find("cmdA")->SetLeft(Twips(240));
  form.Find("cmdA")->SetTag("t");
  EXPECT_EQ(Saved(),
            "[form]\r\nCaption = \"new\"\r\nBackColor = 0x00FFFFFF\r\n\t# nothing yet\r\n\r\n"
            "[[control]]\r\n  Class = \"FlatButton\"\r\n"
            "  Name = \"cmdA\" # last\r\n  Left = 240\r\n  Tag = \"t\"\r\n\r\n# end\r\n");
}

TEST_F(FormTextTest, NewKeysFollowALastLineWithoutItsEnd) {
  Form& form = Load("[form]\nWidth = 9000");
  form.SetHeight(Twips(100));
  form.SetCaption("c");
  EXPECT_EQ(Saved(), "[form]\nWidth = 9000\nCaption = \"c\"\nHeight = 100");
}

TEST_F(FormTextTest, AKeyThatReturnsToItsDefaultStays) {
  Form& form = Load(std::string("[form]\nCaption = \"x\"\n") + kButton + "Left = 120\n");
  form.SetCaption("");
  form.Find("cmdA")->SetLeft(Twips(0));
  EXPECT_EQ(Saved(), std::string("[form]\nCaption = \"\"\n") + kButton + "Left = 0\n");
}

TEST_F(FormTextTest, PartsOfAFontAreChangedInPlace) {
  Form& form = Load("[form]\nFont = { Size = 9, Name = \"Arial\", Mine = 1 }\n");
  form.SetFont(MakeFont({.name = "Arial", .size = 10, .bold = true}));
  EXPECT_EQ(Saved(), "[form]\nFont = { Size = 10, Name = \"Arial\", Mine = 1, Bold = true }\n");
}

TEST_F(FormTextTest, PartsOfAFontInLinesAreChangedInPlace) {
  Form& form = Load("[form]\nFont.Size = 9 # s\nFont.Name = \"Arial\"\nWidth = 5000\n");
  form.SetFont(MakeFont({.name = "Arial", .size = 10, .bold = true}));
  EXPECT_EQ(Saved(), "[form]\nFont.Size = 10 # s\nFont.Name = \"Arial\"\nFont.Bold = true\nWidth = 5000\n");
}

TEST_F(FormTextTest, AFontThatTheLoadedFormSharesCountsAsChanged) {
  Form& form = Load("[form]\nFont = { Name = \"Arial\", Size = 9 }\n");
  form.GetFont()->SetUnderline(true);
  EXPECT_EQ(Saved(), "[form]\nFont = { Name = \"Arial\", Size = 9, Underline = true }\n");
}

// --- Properties
// ------------------------------------------------------------------------------------------------

TEST_F(FormTextTest, ChangedPropertiesKeepUnknownOnesAndTheirOrder) {
  Load(std::string("[form]\n") + kButton +
       "Properties = { Mine = [1,2], Caption = 'a', Enabled = false, ForeColor = 0xFF } # p\n");
  SetByName(Part("cmdA"), "Caption", "b");
  SetByName(Part("cmdA"), "Enabled", true);
  SetByName(Part("cmdA"), "BackColorPushed", std::int32_t{0x123456});
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton +
                         "Properties = { Mine = [1,2], Caption = \"b\", ForeColor = 0xFF, "
                         "BackColorPushed = 0x00123456 } # p\n");
}

TEST_F(FormTextTest, PropertiesAllAtTheirDefaultsLeaveAnEmptyTable) {
  Load(std::string("[form]\n") + kButton + "Properties = { Caption = \"a\" }\n");
  SetByName(Part("cmdA"), "Caption", "");
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton + "Properties = {}\n");
}

TEST_F(FormTextTest, FirstPropertiesAreAdded) {
  Load(std::string("[form]\n") + kButton);
  SetByName(Part("cmdA"), "Caption", "b");
  loaded_.form->Find("cmdA")->SetTag("t");
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton + "Tag = \"t\"\nProperties = { Caption = \"b\" }\n");
}

TEST_F(FormTextTest, PropertiesInLinesAreChangedLineByLine) {
  Load(std::string("[form]\n") + kButton +
       "[control.Properties]\n# the text\nCaption = \"a\" # c\nEnabled = false\nMine = 1\n");
  SetByName(Part("cmdA"), "Caption", "b");
  SetByName(Part("cmdA"), "Enabled", true);
  SetByName(Part("cmdA"), "ForeColor", std::int32_t{0xFF});
  loaded_.form->Find("cmdA")->SetTag("t");
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton +
                         "Tag = \"t\"\n[control.Properties]\n# the text\nCaption = \"b\" # c\nMine = 1\n"
                         "ForeColor = 0x000000FF\n");
}

TEST_F(FormTextTest, DottedPropertiesStayDotted) {
  Load(std::string("[form]\n") + kButton +
       "Properties.Caption = \"a\"\nProperties.Enabled = false\nLeft = 5\n");
  SetByName(Part("cmdA"), "Enabled", true);
  SetByName(Part("cmdA"), "ForeColor", std::int32_t{0xFF});
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton +
                         "Properties.Caption = \"a\"\nProperties.ForeColor = 0x000000FF\nLeft = 5\n");
}

TEST_F(FormTextTest, PropertiesBesideAFontOfTheirOwnGetAHeader) {
  Load(std::string("[form]\n") + kButton + "[control.Properties.Font]\nName = \"Arial\"\nSize = 9\n");
  SetByName(Part("cmdA"), "Caption", "b");
  SetByName(Part("cmdA"), "ForeColor", std::int32_t{0xFF});
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton +
                         "[control.Properties]\nForeColor = 0x000000FF\nCaption = \"b\"\n"
                         "[control.Properties.Font]\nName = \"Arial\"\nSize = 9\n");
}

TEST_F(FormTextTest, PropertiesAboveTablesOfSeveralPartsGetAHeader) {
  const std::string below = "[control.Properties.x.\"y.z\"]\na = 1\n";
  Load(std::string("[form]\n") + kButton + below);
  SetByName(Part("cmdA"), "Caption", "A");
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton + "[control.Properties]\nCaption = \"A\"\n" + below);
  const std::string list = "[[ control . Properties.x ]]\n";
  Load(std::string("[form]\n") + kButton + list);
  SetByName(Part("cmdA"), "Caption", "A");
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton + "[ control . Properties]\nCaption = \"A\"\n" + list);
}

TEST_F(FormTextTest, DottedKeysInAnInlineTableSurviveAChange) {
  Load(std::string("[form]\n") + kButton +
       "Properties = { Font.Name = \"Arial\", Font.Size = 9, Caption = \"a\" }\n");
  SetByName(Part("cmdA"), "Caption", "b");
  EXPECT_EQ(Saved(), std::string("[form]\n") + kButton +
                         "Properties = { Font = { Name = \"Arial\", Size = 9 }, Caption = \"b\" }\n");
}

TEST_F(FormTextTest, AFontThatEqualsTheFormsAgainIsRemoved) {
  Load(std::string("[form]\n") + kButton +
       "[control.Properties]\nCaption = \"a\"\n"
       "[control.Properties.Font]\nName = \"Arial\"\nSize = 9\n\n[other]\n");
  SetByName(Part("cmdA"), "Font", MakeFont(loaded_.form->GetFont()->Description()));
  EXPECT_EQ(Saved(),
            std::string("[form]\n") + kButton + "[control.Properties]\nCaption = \"a\"\n\n[other]\n");
}

// --- Controls
// --------------------------------------------------------------------------------------------------

std::string Button(const std::string& name) {
  return "[[control]]\nClass = \"FlatButton\"\nName = \"" + name + "\"\n";
}

TEST_F(FormTextTest, ARemovedControlTakesItsBlockAndTheCommentAboveIt) {
  Form& form = Load("[form]\n\n# about controls\n\n" + Button("a") + "\n# about b\n# more\n" + Button("b") +
                    "Tag = \"\"\"\n# in a text\n\n\"\"\"\n# Left = 1\n\n# about c\n" + Button("c"));
  form.Remove("b");
  EXPECT_EQ(Saved(), "[form]\n\n# about controls\n\n" + Button("a") + "\n# about c\n" + Button("c") +
                         "TabIndex = 2\n");
}

TEST_F(FormTextTest, TheLastControlIsRemovedWithTheSpaceAboveIt) {
  Form& form = Load("[form]\n\n" + Button("a") + "\n" + Button("b") + "\n\n");
  form.Remove("b");
  EXPECT_EQ(Saved(), "[form]\n\n" + Button("a"));
  form.Remove("a");
  EXPECT_EQ(Saved(), "[form]\n");
}

TEST_F(FormTextTest, ARemovedControlTakesTheTablesBelowIt) {
  Form& form = Load("[form]\n" + Button("a") +
                    "[control.Properties]\nCaption = \"x\"\n[control.Mine]\ny = 1\n" + Button("b"));
  form.Remove("a");
  EXPECT_EQ(Saved(), "[form]\n" + Button("b") + "TabIndex = 1\n");
}

TEST_F(FormTextTest, ARemovedControlLeavesWhatStandsBetweenItsTables) {
  Form& form =
      Load(Button("a") + "\n# the form\n[form]\nCaption = \"c\"\n\n[control.Properties]\nCaption = \"x\"\n");
  form.Remove("a");
  EXPECT_EQ(Saved(), "# the form\n[form]\nCaption = \"c\"\n");
}

TEST_F(FormTextTest, AddedControlsFollowAtTheEnd) {
  Form& form = Load("[form]\r\n\r\n[[control]]\r\nClass = \"FlatButton\"\r\nName = \"a\"\r\n# end");
  form.Add(FlatButton::Table(), "b").SetLeft(Twips(15));
  EXPECT_EQ(Saved(),
            "[form]\r\n\r\n[[control]]\r\nClass = \"FlatButton\"\r\nName = \"a\"\r\n# end\r\n\r\n"
            "[[control]]\r\nClass = \"FlatButton\"\r\nName = \"b\"\r\nLeft = 15\r\n"
            "Properties = { Caption = \"b\" }\r\n");
}

TEST_F(FormTextTest, AControlOfAnotherClassUnderTheNameReplacesTheBlock) {
  Form& form = Load("[form]\n\n" + Button("a"));
  form.Remove("a");
  const PropertyBag empty;
  form.Add(FlatLabel::Table(), "a", &empty);
  EXPECT_EQ(Saved(), "[form]\n\n[[control]]\nClass = \"FlatLabel\"\nName = \"a\"\n");
}

TEST_F(FormTextTest, ManyChangesAtOnceLoadAsTheSameForm) {
  Form& form = Load("[form]\nWidth = 7000 # w\n" + Button("a") + "Properties = { Caption = \"a\" }\n" +
                    Button("b") + "[control.Properties]\nCaption = \"b\"\n" + Button("c"));
  form.Remove("a");
  form.SetCaption("x");
  form.Find("b")->SetTop(Twips(7.5f));
  SetByName(*form.Find("b")->GetControl(), "Font", MakeFont({.name = "Arial", .size = 20}));
  SetByName(*form.Find("c")->GetControl(), "Enabled", false);
  form.Add(FlatLabel::Table(), "d").SetTabIndex(0);
  const std::string before = FormText(form);
  Form& again = Load(Saved());
  EXPECT_EQ(FormText(again), before);
  EXPECT_EQ(Saved(), FormText(again, loaded_.document.get()));
}

// Every way to write a control, changed in every way.
TEST_F(FormTextTest, AnyChangeToAnyLayoutLoadsAsTheSameForm) {
  const std::string layouts[] = {
      "Properties = { Caption = \"a\", Font = { Name = \"Arial\", Size = 9 }, Mine = 1 }\n",
      "Properties = {}\n# below\n",
      "Left = 15\n\n[control.Properties]\nCaption = \"a\"\n\n# font\n[control.Properties.Font]\nName = "
      "\"Arial\"\nSize "
      "= 9\n",
      "[control.Properties.Font]\nName = \"Arial\"\nSize = 9\n",
      "Properties.Caption = \"a\"\nProperties.Font.Name = \"Arial\"\nProperties.Font.Size = 9\nTag = \"x\"",
      "Properties = { Font.Name = \"Arial\", Font.Size = 9 }\n\n\n",
      "",
  };
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return random() % end; };
  for (int round = 0; round < 300; ++round) {
    std::string text = "# head\n";
    const std::size_t form_at = below(3);
    for (std::size_t i = 0; i < 3; ++i) {
      if (i == form_at) text += "[form]\nFont = { Name = \"Tahoma\", Size = 8.25 } # font\n\n";
      if (below(2) == 0) text += "# above\n";
      text += Button("c" + std::to_string(i)) + layouts[below(std::size(layouts))] + "\n";
    }
    Form& form = Load(text);
    for (int change = 0; change < 4; ++change) {
      const std::string name = "c" + std::to_string(below(4));
      const auto control = form.Find(name);
      if (!control) {
        form.Add(FlatButton::Table(), name);
        continue;
      }
      Control& part = *control->GetControl();
      switch (below(8)) {
        case 0: form.Remove(name); break;
        case 1: control->SetLeft(Twips(static_cast<int>(below(3)) * 15)); break;
        case 2: control->SetTag(below(2) == 0 ? "" : "tag"); break;
        case 3: SetByName(part, "Caption", below(2) == 0 ? "" : "b\"\n"); break;
        case 4: SetByName(part, "Enabled", below(2) == 0); break;
        case 5:
          SetByName(part, "Font", MakeFont({.name = "Arial", .size = 10, .bold = below(2) == 0}));
          break;
        case 6: SetByName(part, "Font", MakeFont(form.GetFont()->Description())); break;
        default: form.SetCaption("new"); break;
      }
    }
    const std::string before = FormText(form);
    const std::string saved = Saved();
    SCOPED_TRACE(text);
    ASSERT_EQ(FormText(Load(saved)), before) << text << "\n--- became ---\n" << saved;
    ASSERT_EQ(Saved(), saved) << text;
  }
}

}  // namespace
}  // namespace levelwidgets
