// The page of a tab strip.
#include <levelwidgets/pages/property_page_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TabStripPageTest : public PropertyPageTest {
 protected:
  void SetUp() override {
    PropertyPageTest::SetUp();
    Open("ppFlatTabStrip");
    SetByName(Selected(), "TabCount", 3);
    SetByName(Selected(), "SelectedTab", 1);
    for (int tab = 1; tab <= 3; ++tab) SetCaption(tab, "Tab no. " + std::to_string(tab));
    Select();
    TakeJournal();
  }
  void SetCaption(std::int32_t tab, const std::string& caption) {
    const Variant index = tab;
    SetIndexedByName(Selected(), "TabCaption", {&index, 1}, caption);
  }
  Variant CaptionOf(std::int32_t tab, const std::string& name = "a") {
    const Variant index = tab;
    return GetIndexedByName(Selected(name), "TabCaption", {&index, 1});
  }
  std::vector<std::string> Tabs() { return At<ListField>("cmbTab").Items(); }
};

TEST_F(TabStripPageTest, ItsFieldsHaveTheirTexts) {
  PageJournal captions;
  for (const auto& field : page_->Fields()) {
    captions.push_back(field->Name() + " " + std::string(field->Info().caption));
  }
  EXPECT_THAT(captions, ElementsAre("txtTabCount Tab Count:", "txtTabWidth Tab Width:",
                                    "txtSelectedTab Selected Tab:", "chkEnabled Enabled",
                                    "cmbOrientation Orientation:", "cmbTab ", "txtCaption Caption:"));
  EXPECT_THAT(At<ListField>("cmbOrientation").Items(),
              ElementsAre("0 - ksxTabOrientationTop", "1 - ksxTabOrientationBottom"));
}

TEST_F(TabStripPageTest, ASelectionReadsThePropertiesInOrderAndFillsTheTabs) {
  EXPECT_THAT(During([&] { Select(); }), ElementsAre("read TabCount", "read TabWidth", "read SelectedTab",
                                                     "read Enabled", "read Orientation"));
  EXPECT_EQ(Text("txtTabCount"), "3");
  EXPECT_EQ(Text("txtTabWidth"),
            ToText(ConvertTo(VariantType::kString, Value("TabWidth"), Tracer().Conversions())));
  EXPECT_EQ(Text("txtSelectedTab"), "1");
  EXPECT_EQ(At<CheckField>("chkEnabled").Value(), 1);
  EXPECT_EQ(At<ListField>("cmbOrientation").ListIndex(), 0);
  EXPECT_THAT(Tabs(), ElementsAre("Tab 1", "Tab 2", "Tab 3"));
  EXPECT_EQ(At<ListField>("cmbTab").ListIndex(), -1);
  EXPECT_EQ(Text("txtCaption"), "");
}

TEST_F(TabStripPageTest, AnApplyWritesThePropertiesInOrderAndNoCaptionBeforeATabIsChosen) {
  Type("txtCaption", "nobody's");
  Choose("cmbOrientation", 1);
  EXPECT_THAT(During([&] { page_->ApplyChanges(); }),
              ElementsAre("write TabCount = \"3\"", "write TabWidth = \"" + Text("txtTabWidth") + "\"",
                          "write SelectedTab = \"1\"", "write Enabled = True", "write Orientation = 1"));
}

TEST_F(TabStripPageTest, AChosenTabShowsItsCaption) {
  EXPECT_THAT(During([&] { Choose("cmbTab", 1); }), ElementsAre("read TabCaption(2)"));
  EXPECT_EQ(Text("txtCaption"), "Tab no. 2");
}

TEST_F(TabStripPageTest, ACaptionIsWrittenWhenAnotherTabIsChosenAndTheLastOneWhenThePageIsApplied) {
  Choose("cmbTab", 0);
  Type("txtCaption", "One");
  EXPECT_THAT(During([&] { Choose("cmbTab", 1); }),
              ElementsAre("write TabCaption(1) = \"One\"", "read TabCaption(2)"));
  Type("txtCaption", "Two");
  EXPECT_EQ(CaptionOf(2), Variant("Tab no. 2"));
  const PageJournal applied = During([&] { page_->ApplyChanges(); });
  EXPECT_EQ(applied.back(), "write TabCaption(2) = \"Two\"");
  EXPECT_EQ(applied.size(), 6u);
  EXPECT_EQ(CaptionOf(1), Variant("One"));
  EXPECT_EQ(CaptionOf(2), Variant("Two"));
}

TEST_F(TabStripPageTest, TheCaptionOfTheFirstTabIsWrittenWhenThePageIsAppliedAlso) {
  Choose("cmbTab", 0);
  Type("txtCaption", "One");
  EXPECT_EQ(During([&] { page_->ApplyChanges(); }).back(), "write TabCaption(1) = \"One\"");
}

TEST_F(TabStripPageTest, ACaptionThatNobodyEditedIsNotWrittenWhenAnotherTabIsChosen) {
  Choose("cmbTab", 0);
  EXPECT_THAT(During([&] { Choose("cmbTab", 2); }), ElementsAre("read TabCaption(3)"));
  EXPECT_THAT(During([&] { Choose("cmbTab", 2); }), ElementsAre("read TabCaption(3)")) << "the same again";
}

TEST_F(TabStripPageTest, ACaptionEditedBeforeATabIsChosenIsLost) {
  Type("txtCaption", "x");
  EXPECT_THAT(During([&] { Choose("cmbTab", 0); }), ElementsAre("read TabCaption(1)"));
  EXPECT_THAT(During([&] { Choose("cmbTab", 1); }), ElementsAre("read TabCaption(2)"));
}

// Required.
TEST_F(TabStripPageTest, NeitherACaptionNorAChosenTabMarksThePageAsChanged) {
  Choose("cmbTab", 0);
  EXPECT_FALSE(page_->Edited());
  Type("txtCaption", "One");
  EXPECT_FALSE(page_->Changed());
  EXPECT_TRUE(page_->Edited());
}

TEST_F(TabStripPageTest, EveryOtherFieldMarksThePageAsChanged) {
  for (const char* field : {"txtTabCount", "txtTabWidth", "txtSelectedTab"}) {
    Select();
    Type(field, "2");
    EXPECT_TRUE(page_->Changed()) << field;
  }
  Select();
  Check("chkEnabled", false);
  EXPECT_TRUE(page_->Changed());
  Select();
  Choose("cmbOrientation", 1);
  EXPECT_TRUE(page_->Changed());
}

TEST_F(TabStripPageTest, ANumberThatIsNoneKeepsTheFocusWithAMessage) {
  for (const char* text : {"x", "", "3 tabs"}) {
    Type("txtSelectedTab", text);
    EXPECT_EQ(page_->Leave("txtSelectedTab"), "Invalid Selected Tab value") << text;
    Type("txtTabWidth", text);
    EXPECT_EQ(page_->Leave("txtTabWidth"), "Invalid Tab Width") << text;
    Type("txtTabCount", text);
    EXPECT_EQ(page_->Leave("txtTabCount"), "Invalid Tab Count") << text;
  }
  EXPECT_THAT(Tabs(), ElementsAre("Tab 1", "Tab 2", "Tab 3"));
  for (const char* field : {"txtSelectedTab", "txtTabWidth", "txtTabCount"}) {
    Type(field, "2.0");
    EXPECT_EQ(page_->Leave(field), std::nullopt) << field;
  }
  EXPECT_EQ(page_->Leave("txtCaption"), std::nullopt);
}

TEST_F(TabStripPageTest, ATextThatIsNoNumberIsPassedOverWhenThePageIsApplied) {
  Type("txtTabCount", "four");
  Type("txtTabWidth", "1200");
  Type("txtSelectedTab", "x");
  EXPECT_THAT(During([&] { page_->ApplyChanges(); }),
              ElementsAre("write TabWidth = \"1200\"", "write Enabled = True", "write Orientation = 0"));
}

TEST_F(TabStripPageTest, ACountThatIsLeftRefillsTheTabs) {
  Type("txtTabCount", "5");
  EXPECT_THAT(Tabs(), ElementsAre("Tab 1", "Tab 2", "Tab 3")) << "not before";
  EXPECT_THAT(During([&] { page_->Leave("txtTabCount"); }), IsEmpty());
  EXPECT_THAT(Tabs(), ElementsAre("Tab 1", "Tab 2", "Tab 3", "Tab 4", "Tab 5"));
  Type("txtTabCount", "2.5");
  page_->Leave("txtTabCount");
  EXPECT_THAT(Tabs(), ElementsAre("Tab 1", "Tab 2")) << "rounded to even";
  Type("txtTabCount", "-1");
  page_->Leave("txtTabCount");
  EXPECT_THAT(Tabs(), IsEmpty());
  Type("txtTabCount", "40000");
  EXPECT_EQ(ErrorOf([&] { page_->Leave("txtTabCount"); }), kOverflow);
}

TEST_F(TabStripPageTest, OnlyARefillGivesTheListOtherItems) {
  int refilled = 0;
  At<ListField>("cmbTab").Refilled += [&] { ++refilled; };
  Choose("cmbTab", 1);
  EXPECT_EQ(refilled, 0);
  page_->Leave("txtTabCount");
  EXPECT_EQ(refilled, 1);
}

TEST_F(TabStripPageTest, ARefilledListShowsTheCurrentTabAsLongAsThereIsOne) {
  Choose("cmbTab", 1);
  Type("txtTabCount", "2");
  EXPECT_THAT(During([&] { page_->Leave("txtTabCount"); }), IsEmpty());
  EXPECT_EQ(At<ListField>("cmbTab").ListIndex(), 1);
  Type("txtTabCount", "1");
  page_->Leave("txtTabCount");
  EXPECT_EQ(At<ListField>("cmbTab").ListIndex(), -1);
}

// Required: the current tab stays until another one is chosen.
TEST_F(TabStripPageTest, AnotherSelectionKeepsTheCurrentTabAndItsCaption) {
  Choose("cmbTab", 1);
  SetByName(Selected("b"), "TabCount", 4);
  SetByName(Selected("b"), "SelectedTab", 1);
  page_->SelectionChanged({targets_[1]});
  EXPECT_EQ(Text("txtCaption"), "Tab no. 2");
  EXPECT_EQ(At<ListField>("cmbTab").ListIndex(), 1);
  EXPECT_EQ(During([&] { page_->ApplyChanges(); }).back(), "write TabCaption(2) = \"Tab no. 2\"");
}

TEST_F(TabStripPageTest, ErrorsOfTheStripPassThroughAndTheRestIsNotWritten) {
  Type("txtTabCount", "2");
  Type("txtSelectedTab", "9");
  EXPECT_THAT(During([&] {
                try {
                  page_->ApplyChanges();
                  ADD_FAILURE() << "there is no ninth tab";
                } catch (const Error& error) {
                  EXPECT_EQ(error.Number(), -2147220503);
                  EXPECT_EQ(error.Description(), "Invalid TabIndex");
                }
              }),
              ElementsAre("write TabCount = \"2\"", "write TabWidth = \"" + Text("txtTabWidth") + "\"",
                          "write SelectedTab = \"9\""));
  EXPECT_EQ(Value("TabCount"), Variant(2));
  EXPECT_TRUE(page_->Changed());
}

// Required: 0 is no tab, and is written like any number.
TEST_F(TabStripPageTest, AStripWithoutASelectedTabRefusesToBeAppliedUntilOneIsNamed) {
  page_->SelectionChanged({targets_[1]});
  EXPECT_EQ(Text("txtSelectedTab"), "0");
  Check("chkEnabled", false);
  EXPECT_EQ(ErrorOf([&] { page_->ApplyChanges(); }), -2147220503);
  EXPECT_EQ(Value("Enabled", "b"), Variant(true));
  Type("txtSelectedTab", "1");
  page_->ApplyChanges();
  EXPECT_EQ(Value("Enabled", "b"), Variant(false));
}

TEST_F(TabStripPageTest, ATabThatCannotBeReadIsNotChosen) {
  Choose("cmbTab", 0);
  Type("txtTabCount", "5");
  page_->Leave("txtTabCount");
  EXPECT_NE(ErrorOf([&] { Choose("cmbTab", 4); }), 0);
  EXPECT_EQ(At<ListField>("cmbTab").ListIndex(), 0);
  Type("txtCaption", "One");
  EXPECT_EQ(During([&] { Choose("cmbTab", 1); })[0], "write TabCaption(1) = \"One\"");
}

TEST_F(TabStripPageTest, WithoutASelectionThereAreNoTabs) {
  page_->SelectionChanged({});
  EXPECT_THAT(Tabs(), IsEmpty());
  EXPECT_EQ(Text("txtTabCount"), "");
}

}  // namespace
}  // namespace levelwidgets
