// A control that saves the items of a collection: what schema, descriptions and form files know of its keys.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/controls/grid/flat_columns.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/host/form_file/reader.h>
#include <levelwidgets/host/form_file/text.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <nlohmann/json.hpp>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Json = nlohmann::ordered_json;

class Ledger : public Control {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<Ledger>;
    static constexpr auto data = ClassTable(
        ControlClass<Ledger>("Ledger", "A control with columns."),
        table::Properties(
            Row::Property<&Ledger::Title, &Ledger::SetTitle>(1, "Title", Always(""), "What stands above it."),
            Row::Collection<&Ledger::Columns>(2, "Columns", "Its columns.")),
        table::Persisted("Title", "Columns"));
    static constexpr ClassInfo info(data);
    return info;
  }
  const ClassInfo& Class() const override { return Table(); }
  explicit Ledger(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = {}, .fore_color = {}, .font = {}}) {}

  const std::string& Title() const { return title_; }
  void SetTitle(std::string title) { title_ = std::move(title); }
  std::shared_ptr<FlatColumns> Columns() const { return columns_; }

 private:
  std::string title_;
  std::shared_ptr<FlatColumns> columns_ = FlatColumns::Create();
};

TEST(SavedCollection, ItsKeysAreKnownWithTheirTypes) {
  const ClassInfo& info = Ledger::Table();
  const PersistedKey count = info.FindPersisted("ColumnCount");
  EXPECT_EQ(count.property, info.FindProperty("Columns"));
  EXPECT_EQ(count.field, nullptr);
  EXPECT_EQ(count.stored_as, VariantType::kInt16);
  const PersistedKey width = info.FindPersisted("Column12Width");
  EXPECT_EQ(width.property, info.FindProperty("Columns"));
  EXPECT_EQ(width.index, 12);
  EXPECT_EQ(width.field, FlatColumn::Table().FindProperty("Width"));
  EXPECT_EQ(width.stored_as, VariantType::kInt16);
  EXPECT_EQ(info.FindPersisted("Column1Alignment").type.Name(), "ksxAlignmentConstants");
  for (const char* key : {"Columns", "Column", "Column1", "Column0Width", "Column01Width", "ColumnWidth",
                          "Column1width", "Column1ValueList", "Column1Width1", "Column1234567890Width"}) {
    EXPECT_FALSE(info.FindPersisted(key).property) << key;
  }
}

TEST(SavedCollection, TheSchemaHasItsKeys) {
  const Json schema = PropertiesSchema(Ledger::Table());
  const Json& properties = schema.at("properties");
  EXPECT_EQ(properties.at("ColumnCount").at("maximum"), 32767);
  EXPECT_EQ(properties.at("Column1Width").at("default"), 1440);
  EXPECT_EQ(properties.at("Column1EditType").at("enum")[1], "ksxEditText");
  const Json& patterns = schema.at("patternProperties");
  EXPECT_EQ(patterns.at("^Column[1-9][0-9]{0,8}Visible$").at("type"), "boolean");
  EXPECT_FALSE(patterns.at("^Column[1-9][0-9]{0,8}Visible$").contains("default"));
  EXPECT_FALSE(properties.contains("Columns"));
}

TEST(SavedCollection, DescriptionsShowItsKeys) {
  const Json columns = DescribeAsJson(Ledger::Table()).at("properties")[1];
  EXPECT_EQ(columns.at("items"),
            Json::parse(R"({ "count": "ColumnCount", "prefix": "Column", "class": "FlatColumn" })"));
  EXPECT_THAT(
      DescribeAsText(Ledger::Table()),
      HasSubstr("Columns: FlatColumns, read-only, saved as ColumnCount, Column1Caption, Column1Width"));
  EXPECT_THAT(DescribeAsMarkdown(Ledger::Table()),
              HasSubstr("| `ColumnCount`, `Column1Caption`, `Column1Width`"));
}

class SavedCollectionInForms : public levelwidgets::testing::DesktopTest {
 protected:
  void TearDown() override {
    form_.reset();
    DesktopTest::TearDown();
  }
  static const ClassInfo* Find(std::string_view) { return &Ledger::Table(); }

  // Reads a form with a Ledger of these properties.
  std::string Read(const std::string& properties) {
    std::string text =
        "[form]\n[[control]]\nClass = \"Ledger\"\nName = \"a\"\nProperties = { " + properties + " }\n";
    auto parsed = ParseFormNodes(text);
    const FormDocument document(text, std::move(std::get<FormNode>(parsed)));
    FormReport report(document, "f");
    form_ = FormReader(Tracer(), report, Find).Read();
    std::string told;
    for (const Diagnostic& diagnostic : report.Diagnostics()) told += diagnostic.ToString() + "\n";
    return told;
  }
  FlatColumns& Columns() { return *static_cast<Ledger&>(*form_->Controls().front()->GetControl()).Columns(); }

  std::shared_ptr<Form> form_;
};

TEST_F(SavedCollectionInForms, ItsItemsAreLoadedAndSavedAgain) {
  const std::string properties =
      "Title = \"Sales\", ColumnCount = 2, Column1Caption = \"Qty\", Column1Width = 900, "
      "Column1EditType = 2, Column2HeaderAlignment = \"ksxLeft\", Column2Visible = false";
  EXPECT_EQ(Read(properties), "");
  ASSERT_EQ(Columns().Count(), 2);
  EXPECT_EQ(Columns().Item(1)->Caption(), "Qty");
  EXPECT_EQ(Columns().Item(1)->HeaderAlignment(), ksxCenter);
  EXPECT_EQ(Columns().Item(2)->HeaderAlignment(), ksxLeft);
  EXPECT_THAT(FormText(*form_),
              HasSubstr("Properties = { Title = \"Sales\", ColumnCount = 2, Column1Caption = \"Qty\", "
                        "Column1Width = 900, Column1HeaderAlignment = 2, Column1EditType = 2, "
                        "Column2HeaderAlignment = 0, Column2EditType = 1, Column2Visible = false }"));
}

TEST_F(SavedCollectionInForms, WhatIsWrongWithAnItemIsReportedWhereItStands) {
  EXPECT_EQ(Read("ColumnCount = 1, Column1Width = 40000"),
            "f:5:48: Column1Width is a whole number from -32768 to 32767; 40000 is out of range\n");
  EXPECT_THAT(Read("ColumnCount = 1, Column1Alignment = \"ksxLeftt\""),
              HasSubstr("did you mean \"ksxLeft\""));
  EXPECT_EQ(Read("ColumnCount = 1, Column2Width = 40"),
            "f:5:33: warning: Column2Width is not loaded: there are 1 items in Columns\n");
  EXPECT_THAT(Read("ColumnCount = 1, Column1Widht = 40"),
              HasSubstr("Ledger has no property \"Column1Widht\""));
}

TEST_F(SavedCollectionInForms, MoreItemsThanSixteenBitsCountAreRefusedOnSaving) {
  EXPECT_EQ(Read(""), "");
  for (int i = 0; i <= 32767; ++i) Columns().Add("");
  try {
    form_->Controls().front()->Properties();
    ADD_FAILURE() << "saved";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kOverflow);
  }
}

}  // namespace
}  // namespace levelwidgets
