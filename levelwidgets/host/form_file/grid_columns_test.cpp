// The columns of a grid in form files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/controls/grid/flat_grid.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;

class GridColumnsInForms : public testing::DesktopTest {
 protected:
  void TearDown() override {
    form_.reset();
    DesktopTest::TearDown();
  }

  // What is said of a form with a grid of these properties, a line each; the first stands on line 5.
  std::string Load(const std::string& properties) {
    LoadedForm loaded = LoadFormText(
        Tracer(),
        "[form]\n[[control]]\nClass = \"FlatGrid\"\nName = \"grd\"\n[control.Properties]\n" + properties,
        "f");
    form_ = loaded.form;
    std::string told;
    for (const Diagnostic& diagnostic : loaded.diagnostics) told += diagnostic.ToString() + "\n";
    return told;
  }
  FlatGrid& Grid() { return dynamic_cast<FlatGrid&>(*form_->Find("grd")->GetControl()); }
  FlatColumns& Columns() { return *Grid().Columns(); }

  std::shared_ptr<Form> form_;
};

TEST_F(GridColumnsInForms, AColumnHasWhatTheFileSaysAndTheDefaultsOfLoading) {
  EXPECT_EQ(
      Load("ColumnCount = 2\nColumn1Caption = \"Pieces\"\nColumn1Width = 900\n"
           "Column1Alignment = \"ksxRight\"\nColumn1HeaderAlignment = 0\n"
           "Column1EditType = \"ksxEditCalculator\"\nColumn1Visible = false\nColumn1Format = \"0.00\"\n"),
      "");
  ASSERT_EQ(Columns().Count(), 2);
  const auto first = Columns().Item(1);
  EXPECT_EQ(first->Caption(), "Pieces");
  EXPECT_EQ(first->Width(), 900);
  EXPECT_EQ(first->Alignment(), ksxRight);
  EXPECT_EQ(first->HeaderAlignment(), ksxLeft);
  EXPECT_EQ(first->EditType(), ksxEditCalculator);
  EXPECT_FALSE(first->Visible());
  EXPECT_EQ(first->Format(), "0.00");
  const auto second = Columns().Item(2);
  EXPECT_EQ(second->Caption(), "");
  EXPECT_EQ(second->Width(), 1440);
  EXPECT_EQ(second->HeaderAlignment(), ksxCenter);
  EXPECT_EQ(second->EditType(), ksxEditText);
  EXPECT_TRUE(second->Visible());
  Grid().SetRowData(10, 2, "the last cell");
  EXPECT_EQ(Grid().RowData(10, 2), "the last cell");
}

TEST_F(GridColumnsInForms, AHundredColumnsAreLoadedAndSavedAgain) {
  std::string properties = "ColumnCount = 100\n";
  for (int column = 1; column <= 100; ++column) {
    const std::string key = "Column" + std::to_string(column);
    properties += key + "Caption = \"c" + std::to_string(column) + "\"\n" + key +
                  "Width = " + std::to_string(100 + column) + "\n";
  }
  EXPECT_EQ(Load(properties), "");
  ASSERT_EQ(Columns().Count(), 100);
  const std::string saved = FormText(*form_);
  const LoadedForm again = LoadFormText(Tracer(), saved, "f");
  EXPECT_TRUE(again.diagnostics.empty());
  const auto& columns = *dynamic_cast<FlatGrid&>(*again.form->Find("grd")->GetControl()).Columns();
  ASSERT_EQ(columns.Count(), 100);
  for (int column = 1; column <= 100; ++column) {
    EXPECT_EQ(columns.Item(column)->Caption(), "c" + std::to_string(column));
    EXPECT_EQ(columns.Item(column)->Width(), 100 + column);
  }
  EXPECT_EQ(FormText(*again.form), saved);
}

TEST_F(GridColumnsInForms, ACaptionOnTheRightComesBackCentred) {
  EXPECT_EQ(Load("ColumnCount = 1\nColumn1HeaderAlignment = \"ksxRight\"\n"), "");
  EXPECT_EQ(Columns().Item(1)->HeaderAlignment(), ksxRight);
  const LoadedForm again = LoadFormText(Tracer(), FormText(*form_), "f");
  EXPECT_EQ(
      dynamic_cast<FlatGrid&>(*again.form->Find("grd")->GetControl()).Columns()->Item(1)->HeaderAlignment(),
      ksxCenter);
}

TEST_F(GridColumnsInForms, TheEditorOfAColumnIsSavedWhateverItIs) {
  EXPECT_EQ(Load("ColumnCount = 1\n"), "");
  EXPECT_THAT(FormText(*form_), HasSubstr("Column1EditType = 1"));
}

// The lists are the business of the form's script.
TEST_F(GridColumnsInForms, ThereIsNoKeyForTheListOfAColumn) {
  EXPECT_EQ(Load("ColumnCount = 1\nColumn1ValueList = \"kg\"\n"),
            "f:7:1: warning: FlatGrid has no property \"Column1ValueList\" to load\n");
  Columns().Item(1)->ValueList()->Add("kg");
  EXPECT_EQ(FormText(*form_).find("kg"), std::string::npos);
}

TEST_F(GridColumnsInForms, ValuesOfTheWrongTypeAreReportedWhereTheyStandAllAtOnce) {
  EXPECT_EQ(
      Load("ColumnCount = 1\nColumn1Caption = 5\nColumn1Width = \"wide\"\nColumn1Visible = 1\n"
           "Column1Alignment = \"ksxMiddle\"\n"),
      "f:7:18: Column1Caption is a string; 5 is a number\n"
      "f:8:16: Column1Width is a whole number from -32768 to 32767; \"wide\" is a string\n"
      "f:9:18: Column1Visible is true or false; 1 is a number\n"
      "f:10:20: Column1Alignment is one of ksxLeft, ksxRight, ksxCenter, or its number; \"ksxMiddle\" is "
      "none of them\n");
  EXPECT_EQ(form_, nullptr);
}

TEST_F(GridColumnsInForms, NumbersOfColumnsThatAreNotThereAreWarnedOf) {
  EXPECT_EQ(Load("ColumnCount = 2\nColumn3Width = 900\n"),
            "f:7:1: warning: Column3Width is not loaded: there are 2 items in Columns\n");
  EXPECT_EQ(Load("ColumnCount = 1\nColumn0Width = 900\n"),
            "f:7:1: warning: FlatGrid has no property \"Column0Width\" to load\n");
  EXPECT_EQ(Load("Column1Caption = \"a\"\n"),
            "f:6:1: warning: Column1Caption is not loaded: there are 0 items in Columns\n");
  EXPECT_EQ(Load("ColumnCount = -1\n"), "");
  EXPECT_EQ(Columns().Count(), 0);
}

TEST_F(GridColumnsInForms, TheCountIsAWholeNumberOfSixteenBits) {
  EXPECT_EQ(Load("ColumnCount = 40000\n"),
            "f:6:15: ColumnCount is a whole number from -32768 to 32767; 40000 is out of range\n");
  EXPECT_EQ(Load("ColumnCount = \"two\"\n"),
            "f:6:15: ColumnCount is a whole number from -32768 to 32767; \"two\" is a string\n");
  EXPECT_EQ(Load("RowCount = 70000\n"),
            "f:6:12: RowCount is a whole number from -32768 to 32767; 70000 is out of range\n");
}

TEST_F(GridColumnsInForms, AMistypedKeyIsNamedWithTheNearestOne) {
  EXPECT_EQ(Load("ColumnCount = 12\nColumn12Widht = 900\n"),
            "f:7:1: warning: FlatGrid has no property \"Column12Widht\" to load; did you mean "
            "\"Column12Width\"?\n");
  EXPECT_EQ(
      Load("ColumCount = 2\n"),
      "f:6:1: warning: FlatGrid has no property \"ColumCount\" to load; did you mean \"ColumnCount\"?\n");
}

}  // namespace
}  // namespace levelwidgets
