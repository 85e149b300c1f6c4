// The page of a grid's columns, whose commands take effect at once.
#include <levelwidgets/pages/property_page_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GridColumnsPageTest : public PropertyPageTest {
 protected:
  enum { kAdd, kInsert, kRemove, kClear };

  // A grid with the columns "A", "B" and "C".
  void SetUp() override {
    PropertyPageTest::SetUp();
    Open("ppFlatGridColumns");
    for (const char* caption : {"A", "B", "C"}) {
      const Variant arguments[] = {caption, 1000};
      InvokeByName(*Columns(), "Add", arguments);
    }
    Select();
    TakeJournal();
  }
  ObjectRef Columns(const std::string& name = "a") {
    return std::get<ObjectRef>(Value("Columns", name).Get());
  }
  Variant Of(std::int32_t position, std::string_view property) {
    const Variant index = position;
    return GetByName(*std::get<ObjectRef>(GetIndexedByName(*Columns(), "Item", {&index, 1}).Get()), property);
  }
  std::string Captions() {
    std::string captions;
    for (std::int32_t i = 1; i <= ToInt32(GetByName(*Columns(), "Count")); ++i) {
      captions += "[" + ToText(Of(i, "Caption")) + "]";
    }
    return captions;
  }
  void Press(std::int32_t action) { At<ButtonsField>("cmdAction").Click(action); }
  std::vector<std::string> Items() { return At<ListField>("cmbColumn").Items(); }
  std::int32_t Chosen() { return At<ListField>("cmbColumn").ListIndex(); }
  std::string Count() { return At<LabelField>("lblCount").Caption(); }
};

const char* const kLoads[] = {"read Caption", "read Width",   "read Alignment", "read HeaderAlignment",
                              "read Format",  "read Visible", "read EditType"};

PageJournal LoadsOf(std::int32_t position) {
  PageJournal loads;
  for (const char* load : kLoads) {
    loads.push_back("Columns.Item(" + std::to_string(position) + ")." + load);
  }
  return loads;
}

TEST_F(GridColumnsPageTest, ItsFieldsHaveTheirTexts) {
  PageJournal texts;
  for (const auto& field : page_->Fields()) {
    texts.push_back(field->Name() + " " + std::string(field->Info().caption));
  }
  EXPECT_THAT(texts, ElementsAre("cmbColumn Columns:", "lblCount Column Count: 0", "cmdAction ",
                                 "Frame1 Column Settings", "txtCaption Caption:", "txtWidth Width:",
                                 "cmbAlignment Alignment:", "cmbHeaderAlignment Header Alignment:",
                                 "cmbFormat Format:", "chkVisible Visible", "cmbEditType Edit Type:"));
  auto& actions = At<ButtonsField>("cmdAction");
  PageJournal captions;
  for (std::int32_t i = 0; i < actions.Count(); ++i) captions.push_back(actions.Caption(i));
  EXPECT_THAT(captions, ElementsAre("&Add Column", "&Insert Column", "&Remove", "&Clear"));
  EXPECT_EQ(ErrorOf([&] { actions.Click(4); }), kSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { actions.Click(-1); }), kSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { actions.Item(4); }), kSubscriptOutOfRange);
  EXPECT_THAT(At<ListField>("cmbAlignment").Items(),
              ElementsAre("0 - ksxLeft", "1 - ksxRight", "2 - ksxCenter"));
  EXPECT_EQ(At<ListField>("cmbHeaderAlignment").Items(), At<ListField>("cmbAlignment").Items());
  EXPECT_THAT(At<ListField>("cmbEditType").Items(),
              ElementsAre("0 - ksxEditNone", "1 - ksxEditText", "2 - ksxEditCalculator",
                          "3 - ksxEditCalendar", "4 - ksxEditDropDown"));
  EXPECT_EQ(At<ListField>("cmbFormat").ListCount(), 16);
}

TEST_F(GridColumnsPageTest, TheCountIs0BeforeAGridIsSelected) {
  const auto page = PropertyPage::Create(ppFlatGridColumns(), Tracer().Conversions());
  EXPECT_EQ(static_cast<LabelField&>(*page->Find("lblCount")).Caption(), "Column Count: 0");
}

TEST_F(GridColumnsPageTest, ASelectionFillsTheListAndChoosesNothing) {
  EXPECT_THAT(During([&] { Select(); }), ElementsAre("Columns.read Count"));
  EXPECT_THAT(Items(), ElementsAre("Column 1", "Column 2", "Column 3"));
  EXPECT_EQ(Chosen(), -1);
  EXPECT_EQ(Count(), "Column Count: 3");
  EXPECT_EQ(Text("txtCaption"), "");
  EXPECT_EQ(Text("txtWidth"), "");
  EXPECT_EQ(At<ListField>("cmbEditType").ListIndex(), -1);
}

TEST_F(GridColumnsPageTest, ANewSelectionEmptiesTheSettings) {
  Choose("cmbColumn", 1);
  Select();
  EXPECT_EQ(Chosen(), -1);
  EXPECT_EQ(Text("txtCaption"), "");
  EXPECT_EQ(Text("txtWidth"), "");
}

TEST_F(GridColumnsPageTest, AChosenColumnShowsItsSettings) {
  const Variant second = 2;
  const ObjectRef column = std::get<ObjectRef>(GetIndexedByName(*Columns(), "Item", {&second, 1}).Get());
  SetByName(*column, "Alignment", 1);
  SetByName(*column, "HeaderAlignment", 2);
  SetByName(*column, "Format", "Currency");
  SetByName(*column, "Visible", true);
  SetByName(*column, "EditType", 4);
  EXPECT_EQ(During([&] { Choose("cmbColumn", 1); }), LoadsOf(2));
  EXPECT_EQ(Text("txtCaption"), "B");
  EXPECT_EQ(Text("txtWidth"), "1000");
  EXPECT_EQ(At<ListField>("cmbAlignment").ListIndex(), 1);
  EXPECT_EQ(At<ListField>("cmbHeaderAlignment").ListIndex(), 2);
  EXPECT_EQ(At<ListField>("cmbFormat").Text(), "Currency");
  EXPECT_EQ(At<CheckField>("chkVisible").Value(), 1);
  EXPECT_EQ(At<ListField>("cmbEditType").ListIndex(), 4);
  EXPECT_FALSE(page_->Changed());
  EXPECT_FALSE(page_->Edited());
  EXPECT_THAT(During([&] { Choose("cmbColumn", -1); }), IsEmpty());
  EXPECT_EQ(Text("txtCaption"), "");
  EXPECT_EQ(At<CheckField>("chkVisible").Value(), 0);
}

TEST_F(GridColumnsPageTest, AnApplyWritesTheChosenColumnInOrder) {
  Choose("cmbColumn", 2);
  Type("txtCaption", "Price");
  Type("txtWidth", "1500");
  Choose("cmbAlignment", 1);
  Choose("cmbHeaderAlignment", 2);
  Check("chkVisible", true);
  At<ListField>("cmbFormat").SetText("0.0000");
  Choose("cmbEditType", 2);
  EXPECT_TRUE(page_->Changed());
  const std::string column = "Columns.Item(3).";
  EXPECT_THAT(During([&] { page_->ApplyChanges(); }),
              ElementsAre(column + "write Caption = \"Price\"", column + "write Width = \"1500\"",
                          column + "write Alignment = 1", column + "write HeaderAlignment = 2",
                          column + "write Visible = True", column + "write Format = \"0.0000\"",
                          column + "write EditType = 2"));
  EXPECT_EQ(Of(3, "Caption"), Variant("Price"));
  EXPECT_EQ(Of(3, "Width"), Variant(1500));
  EXPECT_EQ(Of(3, "Format"), Variant("0.0000")) << "as typed";
  EXPECT_EQ(Captions(), "[A][B][Price]");
}

TEST_F(GridColumnsPageTest, AnApplyWithNothingChosenWritesNothing) {
  Type("txtCaption", "x");
  EXPECT_THAT(During([&] { page_->ApplyChanges(); }), IsEmpty());
}

TEST_F(GridColumnsPageTest, EverySettingMarksThePageAsChanged) {
  Choose("cmbColumn", 0);
  for (const char* field : {"txtCaption", "txtWidth"}) {
    page_->ApplyChanges();
    Type(field, "7");
    EXPECT_TRUE(page_->Changed()) << field;
  }
  for (const char* field : {"cmbAlignment", "cmbHeaderAlignment", "cmbFormat", "cmbEditType"}) {
    page_->ApplyChanges();
    Choose(field, 1);
    EXPECT_TRUE(page_->Changed()) << field;
  }
  page_->ApplyChanges();
  At<ListField>("cmbFormat").SetText("typed");
  EXPECT_TRUE(page_->Changed());
  page_->ApplyChanges();
  Check("chkVisible", true);
  EXPECT_TRUE(page_->Changed());
}

// --- Commands ----------------------------------------------------------------------------------------

TEST_F(GridColumnsPageTest, AddAppendsANewColumnAtOnceAndChoosesIt) {
  PageJournal expected = {"Columns.call Add(\"\", 1440, 0, 0, 1, True, \"\")"};
  for (const std::string& load : LoadsOf(4)) expected.push_back(load);
  expected.emplace_back("Columns.read Count");
  EXPECT_EQ(During([&] { Press(kAdd); }), expected);
  EXPECT_EQ(Captions(), "[A][B][C][]");
  EXPECT_THAT(Items(), ElementsAre("Column 1", "Column 2", "Column 3", "Column 4"));
  EXPECT_EQ(Chosen(), 3);
  EXPECT_EQ(Count(), "Column Count: 4");
  EXPECT_EQ(Text("txtWidth"), "1440");
  EXPECT_EQ(At<CheckField>("chkVisible").Value(), 1);
  EXPECT_EQ(At<ListField>("cmbEditType").ListIndex(), 1);
  EXPECT_FALSE(page_->Changed()) << "it has been done";
}

TEST_F(GridColumnsPageTest, InsertPutsANewColumnBehindTheChosenOneAndLabelsAllAnew) {
  Choose("cmbColumn", 0);
  PageJournal expected = {"Columns.call Add(\"\", 1440, 0, 0, 1, True, \"\", \"\", 1)"};
  for (const std::string& load : LoadsOf(2)) expected.push_back(load);
  expected.emplace_back("Columns.read Count");
  EXPECT_EQ(During([&] { Press(kInsert); }), expected);
  EXPECT_EQ(Captions(), "[A][][B][C]");
  EXPECT_THAT(Items(), ElementsAre("Column 1", "Column 2", "Column 3", "Column 4"));
  EXPECT_EQ(Chosen(), 1);
  EXPECT_EQ(Count(), "Column Count: 4");
  Choose("cmbColumn", 2);
  EXPECT_EQ(Text("txtCaption"), "B") << "labels match positions";
}

TEST_F(GridColumnsPageTest, RemoveTakesTheChosenColumnAndItsItem) {
  Choose("cmbColumn", 0);
  PageJournal expected = {"Columns.call Remove(1)"};
  for (const std::string& load : LoadsOf(1)) expected.push_back(load);
  expected.emplace_back("Columns.read Count");
  EXPECT_EQ(During([&] { Press(kRemove); }), expected);
  EXPECT_EQ(Captions(), "[B][C]");
  EXPECT_EQ(Count(), "Column Count: 2");
  EXPECT_EQ(Text("txtCaption"), "B");
  // Required: only an insertion labels the items anew.
  EXPECT_THAT(Items(), ElementsAre("Column 2", "Column 3"));
  Press(kInsert);
  EXPECT_THAT(Items(), ElementsAre("Column 1", "Column 2", "Column 3"));
  Choose("cmbColumn", 0);
  Press(kRemove);
  Press(kAdd);
  EXPECT_THAT(Items(), ElementsAre("Column 1", "Column 2", "Column 3")) << "at the end, too";
}

TEST_F(GridColumnsPageTest, RemoveOfTheLastItemChoosesTheOneBeforeItAndInTheEndNone) {
  Choose("cmbColumn", 2);
  Press(kRemove);
  EXPECT_EQ(Chosen(), 1);
  EXPECT_EQ(Text("txtCaption"), "B");
  Press(kRemove);
  Press(kRemove);
  EXPECT_EQ(Captions(), "");
  EXPECT_EQ(Chosen(), -1);
  EXPECT_EQ(Text("txtCaption"), "");
  EXPECT_EQ(Count(), "Column Count: 0");
}

TEST_F(GridColumnsPageTest, InsertAndRemoveDoNothingWithNothingChosen) {
  EXPECT_THAT(During([&] { Press(kInsert); }), ElementsAre("Columns.read Count"));
  EXPECT_THAT(During([&] { Press(kRemove); }), ElementsAre("Columns.read Count"));
  EXPECT_EQ(Captions(), "[A][B][C]");
}

TEST_F(GridColumnsPageTest, ClearRemovesAllColumns) {
  Choose("cmbColumn", 1);
  EXPECT_THAT(During([&] { Press(kClear); }), ElementsAre("Columns.call Clear()", "Columns.read Count"));
  EXPECT_EQ(Captions(), "");
  EXPECT_THAT(Items(), IsEmpty());
  EXPECT_EQ(Count(), "Column Count: 0");
  EXPECT_EQ(Text("txtCaption"), "");
}

TEST_F(GridColumnsPageTest, CommandsReachTheFirstSelectedGridOnly) {
  Press(kAdd);
  EXPECT_EQ(GetByName(*Columns("b"), "Count"), Variant(0));
}

TEST_F(GridColumnsPageTest, CommandsDoNothingWithoutASelection) {
  page_->SelectionChanged({});
  for (const std::int32_t action : {kAdd, kInsert, kRemove, kClear}) {
    EXPECT_THAT(During([&] { Press(action); }), IsEmpty());
  }
  EXPECT_EQ(Count(), "Column Count: 0");
  EXPECT_THAT(Items(), IsEmpty());
}

// --- Refusals ----------------------------------------------------------------------------------------

TEST_F(GridColumnsPageTest, AWidthThatIsNoNumberKeepsTheFocusWithAMessage) {
  Choose("cmbColumn", 0);
  for (const char* text : {"wide", "", "12 cm"}) {
    Type("txtWidth", text);
    EXPECT_EQ(page_->Leave("txtWidth"), "Invalid Width") << text;
  }
  Type("txtWidth", "1,200");
  EXPECT_EQ(page_->Leave("txtWidth"), std::nullopt);
  EXPECT_EQ(page_->Leave("txtCaption"), std::nullopt);
}

TEST_F(GridColumnsPageTest, AWidthThatDoesNotConvertStopsTheApplyAfterTheCaption) {
  Choose("cmbColumn", 0);
  Type("txtCaption", "First");
  Type("txtWidth", "1e20");
  Choose("cmbAlignment", 2);
  EXPECT_EQ(ErrorOf([&] { page_->ApplyChanges(); }), kOverflow);
  EXPECT_EQ(Of(1, "Caption"), Variant("First"));
  EXPECT_EQ(Of(1, "Alignment"), Variant(0));
}

TEST_F(GridColumnsPageTest, AColumnThatSomebodyElseRemovedIsAnErrorOfTheCollection) {
  Choose("cmbColumn", 2);
  const Variant third = 3;
  InvokeByName(*Columns(), "Remove", {&third, 1});
  EXPECT_EQ(ErrorOf([&] { page_->ApplyChanges(); }), kSubscriptOutOfRange);
}

TEST_F(GridColumnsPageTest, AnObjectWithoutColumnsIsRefusedAndThePageStaysAsItWas) {
  HostedControl& button = TheForm().Add(*FindControlClass("FlatButton"), "cmd");
  EXPECT_EQ(ErrorOf([&] { page_->SelectionChanged({Recorded(button.GetControl())}); }), kNoSuchMember);
  EXPECT_THAT(Items(), ElementsAre("Column 1", "Column 2", "Column 3"));
  Press(kAdd);
  EXPECT_EQ(Captions(), "[A][B][C][]");
}

}  // namespace
}  // namespace levelwidgets
