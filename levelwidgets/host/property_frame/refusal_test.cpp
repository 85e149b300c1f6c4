// The window of property pages: what a field, a page or a control refuses.
#include <levelwidgets/host/property_frame/property_frame_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RefusalTest : public PropertyFrameTest {
 protected:
  // The messages that are shown.
  std::vector<std::string> Messages() {
    Driver().Settle();
    std::vector<std::string> texts;
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
      if (window.title == "LevelWidgets") texts.push_back(window.text);
    }
    return texts;
  }
  bool TakesInput() { return Windows().IsWindowEnabled(Frame().hWnd()); }
  // Answers the message and returns the control of the frame that has the focus then.
  std::string Answer() {
    Key(kKeyEnter);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(TakesInput());
    return Active();
  }
};

// --- Fields that refuse to be left -------------------------------------------------------------------

TEST_F(RefusalTest, AWidthThatIsNoNumberKeepsTheFocusAndSaysSo) {
  OpenWithColumns({"A"});
  Pick("cmbColumn", 0);
  TypeInto("txtWidth", "wide");
  Key(kKeyTab);
  EXPECT_THAT(Messages(), ElementsAre("Invalid Width"));
  EXPECT_FALSE(TakesInput());
  EXPECT_EQ(Answer(), "txtWidth");
  Click("cmbAlignment");
  EXPECT_THAT(Messages(), ElementsAre("Invalid Width"));
  EXPECT_EQ(Answer(), "txtWidth");
  TypeInto("txtWidth", "1500");
  Key(kKeyTab);
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Active(), "cmbAlignment");
}

TEST_F(RefusalTest, EachNumberOfATabStripIsRefusedWithItsText) {
  Open("FlatTabStrip");
  for (const auto& [field, text] : {std::pair{"txtTabCount", "Invalid Tab Count"},
                                    {"txtTabWidth", "Invalid Tab Width"},
                                    {"txtSelectedTab", "Invalid Selected Tab value"}}) {
    const std::string before = Text(field);
    TypeInto(field, "x");
    Key(kKeyTab);
    EXPECT_THAT(Messages(), ElementsAre(text));
    EXPECT_EQ(Answer(), field);
    TypeInto(field, before);
  }
}

TEST_F(RefusalTest, NeitherOKNorAnotherPageIsReachedFromAFieldThatRefuses) {
  OpenWithColumns({"A"});
  Pick("cmbColumn", 0);
  TypeInto("txtWidth", "wide");
  Key(kKeyEnter);
  EXPECT_THAT(Messages(), ElementsAre("Invalid Width"));
  EXPECT_EQ(Answer(), "txtWidth");
  Click("cmdOK");
  EXPECT_EQ(Answer(), "txtWidth");
  EXPECT_FALSE(Frame().Closed());
  Key(kKeyTab, kCtrlMask);
  EXPECT_THAT(Messages(), ElementsAre("Invalid Width"));
  EXPECT_EQ(Answer(), "txtWidth");
  EXPECT_EQ(The<FlatTabStrip>("tabPages").SelectedTab(), 2);
  const PixelRect tabs = At("tabPages").ScreenRect();
  Driver().Click({tabs.left + 20, tabs.top + 8});
  EXPECT_EQ(Answer(), "txtWidth");
  EXPECT_EQ(The<FlatTabStrip>("tabPages").SelectedTab(), 2);
}

TEST_F(RefusalTest, CancelAndEscapeLeadOutOfAFieldThatRefuses) {
  for (const bool by_key : {false, true}) {
    Open("FlatTabStrip");
    TypeInto("txtTabCount", "x");
    by_key ? Key(kKeyEscape) : Click("cmdCancel");
    EXPECT_TRUE(Frame().Closed());
    EXPECT_THAT(Messages(), IsEmpty());
    TheForm().Remove("a");
  }
}

TEST_F(RefusalTest, ANumberOutOfRangeIsSaidAndKeepsTheFocus) {
  Open("FlatTabStrip");
  TypeInto("txtTabCount", "99999");
  Key(kKeyTab);
  EXPECT_THAT(Messages(), ElementsAre(Error(kOverflow).Description()));
  EXPECT_EQ(Answer(), "txtTabCount");
}

TEST_F(RefusalTest, OnlyOneMessageIsShownAtATime) {
  Open("FlatTabStrip");
  TypeInto("txtTabCount", "x");
  for (int i = 0; i < 3; ++i) At("txtTabWidth").SetFocus();
  EXPECT_THAT(Messages(), ElementsAre("Invalid Tab Count"));
  Answer();
}

// --- Errors of controls ------------------------------------------------------------------------------

TEST_F(RefusalTest, WhatAControlRefusesIsSaidAndTheFrameStaysWithWhatWasTyped) {
  Open("FlatScroll");
  TypeInto("txtValue", "500");
  TypeInto("txtMax", "600");
  Click("cmdOK");
  EXPECT_THAT(Messages(), ElementsAre("Invalid Value"));
  EXPECT_FALSE(Frame().Closed());
  Answer();
  EXPECT_EQ(Text("txtValue"), "500");
  EXPECT_TRUE(CanApply());
  EXPECT_EQ(Value("Max"), Variant(100));
  TypeInto("txtValue", "50");
  Click("cmdApply");
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Value("Max"), Variant(600));
}

TEST_F(RefusalTest, ThePageThatCouldNotBeWrittenComesToTheFront) {
  OpenWithColumns({"A"});
  frame_->SelectPage(1);
  Driver().Settle();
  TypeInto("txtRowHeight", "tall");
  Click("cmdApply");
  EXPECT_EQ(Messages().size(), 1u);
  Answer();
  frame_->SelectPage(2);
  Driver().Settle();
  EXPECT_EQ(The<FlatTabStrip>("tabPages").SelectedTab(), 2);
  Key('P', kAltMask);
  EXPECT_EQ(The<FlatTabStrip>("tabPages").SelectedTab(), 1);
  EXPECT_TRUE(At("txtRowHeight").Visible());
  EXPECT_EQ(Messages().size(), 1u);
  Answer();
}

TEST_F(RefusalTest, AControlThatHasGoneIsNamed) {
  Open("FlatScroll");
  TypeInto("txtMax", "500");
  TheForm().Remove("a");
  Click("cmdApply");
  EXPECT_THAT(Messages(), ElementsAre("a no longer exists"));
  Answer();
  Click("cmdCancel");
  EXPECT_TRUE(Frame().Closed());
}

TEST_F(RefusalTest, ACommandOnAGridThatHasGoneSaysSo) {
  OpenWithColumns({"A"});
  const ObjectRef columns = std::get<ObjectRef>(Value("Columns").Get());
  TheForm().Remove("a");
  Click("cmdAction0");
  EXPECT_THAT(Messages(), ElementsAre("a no longer exists"));
  EXPECT_EQ(GetByName(*columns, "Count"), Variant(1));
  Answer();
}

TEST_F(RefusalTest, ACommandOnColumnsThatHaveGoneIsAMessage) {
  OpenWithColumns({"A", "B"});
  const ObjectRef columns = std::get<ObjectRef>(Value("Columns").Get());
  InvokeByName(*columns, "Clear", {});
  Pick("cmbColumn", 1);
  EXPECT_EQ(Messages().size(), 1u);
  Answer();
  EXPECT_EQ(Text("txtCaption"), "");
}

TEST_F(RefusalTest, AnErrorOfAListenerIsAMessageToo) {
  Open("FlatScroll");
  TheForm().PropertyChanged.Add(
      [](std::string_view, std::string_view) { throw Error(4711, "LevelWidgets.Test", "No, thanks"); });
  TypeInto("txtMax", "500");
  Click("cmdApply");
  EXPECT_THAT(Messages(), ElementsAre("No, thanks"));
  Answer();
}

// --- Ends --------------------------------------------------------------------------------------------

TEST_F(RefusalTest, AFrameThatIsClosedTakesItsMessageAlong) {
  Open("FlatTabStrip");
  TypeInto("txtTabCount", "x");
  Key(kKeyTab);
  EXPECT_EQ(Messages().size(), 1u);
  Frame().Close();
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(RefusalTest, AFrameThatIsClosedBeforeItsMessageCameShowsNone) {
  Open("FlatTabStrip");
  TypeInto("txtTabCount", "x");
  At("txtTabWidth").SetFocus();
  Frame().Close();
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(RefusalTest, AFrameThatIsGivenUpTakesItsMessageAlong) {
  Open("FlatTabStrip");
  TypeInto("txtTabCount", "x");
  Key(kKeyTab);
  EXPECT_EQ(Messages().size(), 1u);
  frame_.reset();
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(RefusalTest, TheFormsThatAreNamedTakeNoInputUntilTheMessageIsAnswered) {
  TheForm().Add(*FindControlClass("FlatScroll"), "a");
  PropertyFrame::Options options;
  options.class_name = "FlatScroll";
  options.selected = {std::make_shared<HostedTarget>(TheForm().Find("a"))};
  const std::shared_ptr<Form> other = Form::Create(Tracer(), {.name = "frmOther"});
  other->Show();
  options.forms = [this, other] { return std::vector{frame_->GetForm(), other}; };
  frame_ = PropertyFrame::Create(Tracer(), options);
  Frame().Show();
  Driver().Settle();
  TypeInto("txtMax", "many");
  Click("cmdApply");
  EXPECT_EQ(Messages().size(), 1u);
  EXPECT_FALSE(Windows().IsWindowEnabled(other->hWnd()));
  Key(kKeyEnter);
  EXPECT_TRUE(Windows().IsWindowEnabled(other->hWnd()));
  frame_.reset();
}

}  // namespace
}  // namespace levelwidgets::testing
