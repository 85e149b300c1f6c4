#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Json = nlohmann::ordered_json;

const Json& Properties(const Json& schema, const std::string& definition) {
  return schema.at("definitions").at(definition).at("properties");
}

TEST(FormSchema, EveryKeyAndEveryClassIsInIt) {
  const Json schema = FormSchema(ControlClasses());
  for (const char* key : {"Name", "Caption", "Width", "Height", "Font", "BackColor", "Script"})
    EXPECT_TRUE(Properties(schema, "Form").contains(key)) << key;
  for (const char* key : {"Class", "Name", "Left", "Top", "Width", "Height", "Visible", "TabIndex", "TabStop",
                          "Default", "Cancel", "Tag", "ToolTipText", "Properties"})
    EXPECT_TRUE(Properties(schema, "Control").contains(key)) << key;
  for (const ClassInfo* control : ControlClasses()) {
    EXPECT_THAT(Properties(schema, "Control").at("Class").at("enum"), Contains(control->Name()));
    EXPECT_THAT(Properties(schema, "Control").at("Class").at("enum"), Contains(control->QualifiedName()));
    for (const PropertyInfo* property : control->Persisted()) {
      const std::string key = property->Indexed() ? property->KeyOf(1) : std::string(property->name);
      if (property->is_collection) continue;  // it has keys of its own
      EXPECT_THAT(
          Properties(schema, std::string(control->Name())).at(key).at("description").get<std::string>(),
          HasSubstr(std::string(property->help)));
    }
  }
}

TEST(FormSchema, AGridsColumnsAreInItAsTheirNumber) {
  const Json schema = FormSchema(ControlClasses());
  EXPECT_TRUE(Properties(schema, "FlatGrid").contains("ColumnCount"));
  EXPECT_FALSE(Properties(schema, "FlatGrid").contains("Columns"));
}

TEST(FormSchema, WhatIsNotSavedIsNotInIt) {
  const Json schema = FormSchema(ControlClasses());
  EXPECT_FALSE(Properties(schema, "FlatButton").contains("hWnd"));
  EXPECT_FALSE(Properties(schema, "FlatTabStrip").contains("SelectedTab"));
}

// A class with a property of each kind, as a control to come may have.
class Probe : public Object {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<Probe>;
    static constexpr auto data = ClassTable(
        ObjectClass("Probe", "All kinds of values."),
        table::Properties(
            Row::Property<&Probe::Value, &Probe::SetValue>(1, "Value", Always(Null{}), "Any value."),
            Row::Property<&Probe::Day, &Probe::SetDay>(2, "Day", Always(Date{45000}), "A day."),
            Row::Property<&Probe::Small, &Probe::SetSmall>(3, "Small", Always(std::int16_t{3}),
                                                           "A small number.")),
        table::Persisted("Value", "Day", "Small"));
    static constexpr ClassInfo info(data);
    return info;
  }
  const ClassInfo& Class() const override { return Table(); }
  Variant Value() const { return {}; }
  void SetValue(const Variant&) {}
  Date Day() const { return {}; }
  void SetDay(Date) {}
  std::int16_t Small() const { return 0; }
  void SetSmall(std::int16_t) {}
};

TEST(FormSchema, ANewClassJoinsByItsTable) {
  const ClassInfo* const classes[] = {&Probe::Table()};
  const Json schema = FormSchema(classes);
  EXPECT_EQ(Properties(schema, "Probe").at("Small").at("minimum"), -32768);
  EXPECT_EQ(Properties(schema, "Probe").at("Small").at("maximum"), 32767);
  EXPECT_EQ(Properties(schema, "Probe").at("Small").at("default"), 3);
  EXPECT_EQ(Properties(schema, "Probe").at("Day").at("default"), "2023-03-15");
  EXPECT_THAT(Properties(schema, "Probe").at("Value").at("description").get<std::string>(),
              HasSubstr("Default: `{ Null = true }`"));
  EXPECT_EQ(schema.at("definitions").at("Control").at("then").at("properties").at("Properties").at("$ref"),
            "#/definitions/Probe");
}

TEST(FormSchema, OneClassHasASchemaByItself) {
  const Json schema = PropertiesSchema(*FindControlClass("FlatLabel"));
  EXPECT_EQ(schema.at("properties").at("Alignment").at("enum"),
            Json::parse(R"(["ksxLeft", "ksxRight", "ksxCenter", 0, 1, 2])"));
  EXPECT_TRUE(schema.at("definitions").contains("Font"));
  EXPECT_EQ(schema.at("additionalProperties"), false);
}

#ifndef _WIN32

// Runs a validator of other people's over form files.
class ValidatedForms : public levelwidgets::testing::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    std::filesystem::create_directories(folder_);
    WriteSchema(FormSchema(ControlClasses()));
  }
  void TearDown() override {
    std::filesystem::remove_all(folder_);
    DesktopTest::TearDown();
  }

  void WriteSchema(const Json& schema) { std::ofstream(folder_ / "schema.json") << schema.dump(2); }

  // What it prints about each of `forms`: a line for each mistake.
  std::vector<std::string> Validate(const std::vector<std::string>& forms) {
    std::string paths;
    for (std::size_t i = 0; i < forms.size(); ++i) {
      std::ofstream(PathOf(i)) << forms[i];
      paths += " " + PathOf(i);
    }
    const std::string output = ValidateFiles(paths);
    std::vector<std::string> found(forms.size());
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
      for (std::size_t i = 0; i < forms.size(); ++i) {
        if (line.starts_with(PathOf(i) + ": ")) found[i] += line.substr(PathOf(i).size() + 2) + "\n";
      }
    }
    return found;
  }

  std::string ValidateFiles(const std::string& paths) {
    const std::string out = (folder_ / "out.txt").string();
    const std::string command = "/usr/bin/python3 -W ignore '" + std::string(SourceDir()) +
                                "/tools/validate_forms.py' '" + (folder_ / "schema.json").string() + "' " +
                                paths + " >'" + out + "' 2>&1";
    const int status = std::system(command.c_str());
    std::ifstream file(out);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(status == 0, text.empty()) << text;
    EXPECT_THAT(text, Not(HasSubstr("Traceback")));
    return text;
  }

  std::string PathOf(std::size_t form) const {
    return (folder_ / ("form" + std::to_string(form) + ".toml")).string();
  }

  // What `check` has to say.
  std::size_t Diagnostics(const std::string& text) {
    return LoadFormText(Tracer(), text, "form.toml").diagnostics.size();
  }

  static std::string Control(const std::string& lines) {
    return "[form]\nName = \"frm\"\n\n[[control]]\nClass = \"FlatButton\"\nName = \"c\"\n" + lines + "\n";
  }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_schema_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(ValidatedForms, TheFormsOfTheExamplesAreGood) {
  std::string forms;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(std::string(SourceDir()) + "/examples")) {
    if (entry.path().string().ends_with(".form.toml")) forms += " '" + entry.path().string() + "'";
  }
  ASSERT_THAT(forms, HasSubstr("button.form.toml"));
  EXPECT_EQ(ValidateFiles(forms), "");
}

TEST_F(ValidatedForms, CorrectFormsAreAccepted) {
  std::vector<std::string> forms{
      "[form]\n",
      "[form]\nName = \"frm\"\nWidth = 0\nHeight = 1.5\nBackColor = -1\n",
      "[form]\nFont = { Name = \"Tahoma\", Size = 8.25, Bold = true, Charset = 0 }\n",
  };
  const char* const controls[] = {
      "",
      "Left = -120\nTop = 12.5\nTabIndex = 7\nTabStop = false\nTag = \"x\"",
      "Properties = { BackColor = 0x8000000F, ForeColor = 0xFFFFFFFF, Enabled = false }",
      "[control.Properties]\nCaption = \"x\"\n[control.Properties.Font]\nName = \"Tahoma\"\nSize = 9",
      "[[control]]\nClass = \"LevelWidgets.FlatTabStrip\"\nName = \"t\"\n"
      "Properties = { TabCount = 3, TabCaption1 = \"a\", TabCaption3 = \"b\" }",
      "[[control]]\nClass = \"FlatLabel\"\nName = \"l\"\nProperties = { Alignment = \"ksxRight\" }",
      "[[control]]\nClass = \"FlatScroll\"\nName = \"s\"\nProperties = { Min = -32768, Max = 32767 }",
      "[[control]]\nClass = \"FlatGrid\"\nName = \"g\"\n"
      "Properties = { RowCount = 5, ColumnCount = 2, Column1Caption = \"a\", Column2Visible = false }",
  };
  for (const char* lines : controls) forms.push_back(Control(lines));
  const std::vector<std::string> found = Validate(forms);
  for (std::size_t i = 0; i < forms.size(); ++i) {
    EXPECT_EQ(found[i], "") << forms[i];
    EXPECT_EQ(Diagnostics(forms[i]), 0u) << forms[i];
  }
}

TEST_F(ValidatedForms, EachKindOfMistakeIsFoundWhereCheckFindsIt) {
  struct Mistake {
    std::string form;
    std::string at;
  };
  const Mistake mistakes[] = {
      {"[[control]]\nClass = \"FlatButton\"\nName = \"c\"\n", ": 'form' is a required property"},
      {"[form]\n[other]\n", "'other' was unexpected"},
      {"[form]\nWidht = 1\n", "form: Additional properties are not allowed ('Widht' was unexpected)"},
      {"[form]\nWidth = -1\n", "form.Width"},
      {"[form]\nHeight = \"tall\"\n", "form.Height"},
      {"[form]\nWidth = 2e9\n", "form.Width"},
      {Control("Left = -2e9"), "control.0.Left"},
      {"[form]\nFont = { Name = \"Tahoma\" }\n", "form.Font: 'Size' is a required property"},
      {"[form]\nFont = { Name = \"Tahoma\", Size = 0 }\n", "form.Font.Size"},
      {"[form]\nFont = { Name = \"Tahoma\", Size = 8, Blod = true }\n", "'Blod' was unexpected"},
      {"[form]\nBackColor = 0x100000000\n", "form.BackColor"},
      {"[form]\nBackColor = \"red\"\n", "form.BackColor"},
      {"[form]\nScript = 1\n", "form.Script"},
      {"[form]\n[[control]]\nName = \"c\"\n", "control.0: 'Class' is a required property"},
      {"[form]\n[[control]]\nClass = \"FlatButton\"\n", "control.0: 'Name' is a required property"},
      {"[form]\n[[control]]\nClass = \"FlatButon\"\nName = \"c\"\n", "control.0.Class: 'FlatButon'"},
      {"[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"two words\"\n", "control.0.Name"},
      {Control("Lfet = 1"), "'Lfet' was unexpected"},
      {Control("Caption = \"x\""), "'Caption' was unexpected"},
      {Control("Visible = 1"), "control.0.Visible"},
      {Control("TabIndex = 3000000000"), "control.0.TabIndex"},
      {Control("Properties = \"x\""), "control.0.Properties"},
      {Control("Properties = { Captoin = \"x\" }"), "'Captoin' was unexpected"},
      {Control("Properties = { Caption = 1 }"), "control.0.Properties.Caption"},
      {Control("Properties = { Enabled = \"yes\" }"), "control.0.Properties.Enabled"},
      {Control("Properties = { Font = \"Tahoma\" }"), "control.0.Properties.Font"},
      {Control("Properties = { BackColor = { Null = true } }"), "control.0.Properties.BackColor"},
      {Control("[[control]]\nClass = \"FlatTabStrip\"\nName = \"t\"\nProperties = { TabCaption0 = \"x\" }"),
       "'TabCaption0' does not match"},
      {Control("[[control]]\nClass = \"FlatTabStrip\"\nName = \"t\"\nProperties = { TabCaption1 = 1 }"),
       "control.1.Properties.TabCaption1"},
      {Control("[[control]]\nClass = \"FlatLabel\"\nName = \"l\"\nProperties = { Alignment = \"left\" }"),
       "control.1.Properties.Alignment"},
      {Control("[[control]]\nClass = \"FlatScroll\"\nName = \"s\"\nProperties = { Max = 32768 }"),
       "control.1.Properties.Max"},
  };
  std::vector<std::string> forms;
  for (const Mistake& mistake : mistakes) forms.push_back(mistake.form);
  const std::vector<std::string> found = Validate(forms);
  for (std::size_t i = 0; i < forms.size(); ++i) {
    EXPECT_THAT(found[i], HasSubstr(mistakes[i].at)) << forms[i];
    EXPECT_GT(Diagnostics(forms[i]), 0u) << forms[i];
  }
}

TEST_F(ValidatedForms, NullsAndDatesHaveTheirForms) {
  const ClassInfo* const classes[] = {&Probe::Table()};
  WriteSchema(FormSchema(classes));
  const auto form = [](const char* properties) {
    return "[form]\n[[control]]\nClass = \"Probe\"\nName = \"p\"\nProperties = { " + std::string(properties) +
           " }\n";
  };
  std::vector<std::string> good, bad;
  for (const char* properties :
       {"Value = { Null = true }", "Value = 1.5", "Value = 2024-05-31", "Value = \"x\"",
        "Value = { Name = \"Tahoma\", Size = 8 }", "Day = 2024-05-31", "Day = 2024-05-31T10:30:00",
        "Day = 2024-05-31T10:30:00.25"}) {
    good.push_back(form(properties));
  }
  for (const char* properties : {"Value = { Null = false }", "Value = [1]", "Value = { Null = true, x = 1 }",
                                 "Day = 1", "Day = \"tomorrow\"", "Day = 10:30:00",
                                 "Day = 2024-05-31T10:30:00Z", "Small = 1.5", "Day = { Null = true }"}) {
    bad.push_back(form(properties));
  }
  EXPECT_THAT(Validate(good), Each(IsEmpty()));
  EXPECT_THAT(Validate(bad), Each(Not(IsEmpty())));
}

TEST_F(ValidatedForms, AnInvalidSchemaIsReported) {
  WriteSchema(Json{{"type", "colour"}});
  EXPECT_NE(ValidateFiles(""), "");
}

#endif

}  // namespace
}  // namespace levelwidgets
