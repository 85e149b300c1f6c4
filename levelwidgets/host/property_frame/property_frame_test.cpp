// The window of property pages: what a person sees of the pages, and does to them.
#include <levelwidgets/host/property_frame/property_frame_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- What is there -----------------------------------------------------------------------------------

TEST_F(PropertyFrameTest, ItNamesTheControlAndShowsItsFieldsAndThreeButtons) {
  Open("FlatScroll");
  EXPECT_EQ(Frame().Caption(), "Properties of a");
  EXPECT_EQ(The<FlatTabStrip>("tabPages").TabCount(), 1);
  EXPECT_EQ(The<FlatTabStrip>("tabPages").TabCaption(1), "General");
  EXPECT_EQ(Text("txtValue"), "1");
  EXPECT_EQ(Text("txtMax"), "100");
  EXPECT_TRUE(IsChecked("chkEnabled"));
  EXPECT_EQ(The<CheckBoxControl>("chkEnabled").Caption(), "Enabled");
  EXPECT_EQ(The<FlatLabel>("lblFortxtSmallChange").Caption(), "SmallChange:");
  EXPECT_EQ(The<FlatButton>("cmdOK").Caption(), "OK");
  EXPECT_EQ(The<FlatButton>("cmdCancel").Caption(), "Cancel");
  EXPECT_EQ(The<FlatButton>("cmdApply").Caption(), "A&pply");
  EXPECT_TRUE(At("cmdOK").Default());
  EXPECT_TRUE(At("cmdCancel").Cancel());
  EXPECT_FALSE(CanApply());
  EXPECT_EQ(Active(), "txtValue");
}

TEST_F(PropertyFrameTest, SeveralControlsAreCountedInTheCaptionAndTheFirstIsShown) {
  TheForm().Add(*FindControlClass("FlatButton"), "b");
  TheForm().Add(*FindControlClass("FlatButton"), "a");
  frame_ = PropertyFrame::Show({TheForm().Find("b"), TheForm().Find("a"), TheForm().Find("a")});
  EXPECT_EQ(Frame().Caption(), "Properties of b and 2 more");
  EXPECT_EQ(Text("txtCaption"), "b");
  TypeInto("txtCaption", "new");
  Click("cmdOK");
  EXPECT_EQ(Value("Caption", "b"), Variant("new"));
  EXPECT_EQ(Value("Caption", "a"), Variant("a"));
}

TEST_F(PropertyFrameTest, EveryClassOfControlsHasAFrame) {
  for (const ClassInfo* info : ControlClasses()) {
    Open(std::string(info->Name()));
    EXPECT_EQ(frame_->PageCount(), info->Name() == "FlatGrid" ? 2u : 1u) << info->Name();
    EXPECT_NE(Active(), "") << info->Name();
    Key(kKeyEscape);
    EXPECT_TRUE(Frame().Closed()) << info->Name();
    TheForm().Remove("a");
  }
}

TEST_F(PropertyFrameTest, ThereIsNoneWithoutAControlOrForAClassWithoutPages) {
  EXPECT_EQ(ErrorOf([] { PropertyFrame::Show({}); }), kInvalidCall);
  PropertyFrame::Options options;
  options.class_name = "FlatWheel";
  EXPECT_EQ(ErrorOf([&] { PropertyFrame::Create(Tracer(), options); }), kInvalidCall);
}

TEST_F(PropertyFrameTest, OnlyTheControlsOfThePageInFrontAreVisible) {
  OpenWithColumns({"A"});
  for (const auto& control : Frame().Controls()) {
    const bool is_general =
        frame_->Page(0).Find(control->Name()) != nullptr || control->Name().find("Row") != std::string::npos;
    const bool is_of_both =
        control->Name().starts_with("cmd") && control->Name().find("Action") == std::string::npos;
    EXPECT_EQ(control->Visible(), !is_general || is_of_both) << control->Name();
  }
  frame_->SelectPage(1);
  EXPECT_TRUE(At("chkAllowEdits").Visible());
  EXPECT_TRUE(At("txtRowCountLine").Visible());
  EXPECT_FALSE(At("cmbColumn").Visible());
  EXPECT_FALSE(At("Frame1").Visible());
  EXPECT_FALSE(At("cmdAction0").Visible());
  EXPECT_FALSE(At("txtWidthLine").Visible());
}

TEST_F(PropertyFrameTest, ALineIsSeenAroundEachFieldInAFrameAndOutOfIt) {
  OpenWithColumns({"A"});
  for (const char* name : {"cmbColumn", "txtWidth", "cmbEditType"}) {
    const PixelRect rect = At(name).ScreenRect();
    for (const PixelPoint at :
         {PixelPoint{rect.left - 1, rect.top + 4}, PixelPoint{rect.left + 4, rect.top - 1},
          PixelPoint{rect.right, rect.top + 4}, PixelPoint{rect.left + 4, rect.bottom}}) {
      EXPECT_EQ(Driver().PixelAt(at), Concrete(kWindowFrame)) << name;
    }
  }
}

TEST_F(PropertyFrameTest, OnlyCombosCanBeTypedInto) {
  OpenWithColumns({"A"});
  EXPECT_EQ(The<FlatDropDown>("cmbColumn").Style(), 1);
  EXPECT_EQ(The<FlatDropDown>("cmbEditType").Style(), 1);
  EXPECT_EQ(The<FlatDropDown>("cmbFormat").Style(), 0);
}

// --- Writing -----------------------------------------------------------------------------------------

TEST_F(PropertyFrameTest, ApplyIsEnabledByAnEditWritesItAndLeavesTheFrameOpen) {
  Open("FlatScroll");
  TypeInto("txtMax", "500");
  EXPECT_TRUE(CanApply());
  EXPECT_EQ(Value("Max"), Variant(100)) << "not yet";
  Click("cmdApply");
  EXPECT_EQ(Value("Max"), Variant(500));
  EXPECT_FALSE(CanApply());
  EXPECT_FALSE(Frame().Closed());
}

TEST_F(PropertyFrameTest, OKWritesAndCloses) {
  Open("FlatLabel");
  Click("chkMouseUnderline");
  Pick("cmbAlignment", 2);
  EXPECT_EQ(The<FlatDropDown>("cmbAlignment").Text(), "2 - ksxCenter");
  Click("cmdOK");
  EXPECT_TRUE(Frame().Closed());
  EXPECT_EQ(Value("MouseUnderline"), Variant(false));
  EXPECT_EQ(Value("Alignment"), Variant(2));
}

TEST_F(PropertyFrameTest, CancelAndEscapeCloseAndWriteNothing) {
  for (const bool by_key : {false, true}) {
    Open("FlatButton");
    TypeInto("txtCaption", "lost");
    by_key ? Key(kKeyEscape) : Click("cmdCancel");
    EXPECT_TRUE(Frame().Closed());
    EXPECT_EQ(Value("Caption"), Variant("a"));
    TheForm().Remove("a");
  }
}

TEST_F(PropertyFrameTest, OKWritesNothingThatNobodyEdited) {
  Open("FlatButton");
  SetByName(*TheForm().Find("a")->GetControl(), "Caption", "by a script");
  Click("cmdOK");
  EXPECT_EQ(Value("Caption"), Variant("by a script"));
}

// A page that does not offer to be applied may have something to write.
TEST_F(PropertyFrameTest, OKWritesAFormatThatWasTypedThoughItDoesNotEnableApply) {
  Open("FlatCalculator");
  TypeInto("cmbFormatString", "0.000");
  EXPECT_FALSE(CanApply());
  Click("cmdOK");
  EXPECT_EQ(Value("FormatString"), Variant("0.000"));
}

TEST_F(PropertyFrameTest, AFormatThatIsPickedEnablesApply) {
  Open("FlatCalculator");
  Pick("cmbFormatString", 3);
  EXPECT_EQ(The<FlatDropDown>("cmbFormatString").Text(), "Fixed");
  EXPECT_TRUE(CanApply());
}

TEST_F(PropertyFrameTest, ACaptionOfATabIsWrittenWhenAnotherTabIsChosenAndTheOtherByOK) {
  TheForm().Add(*FindControlClass("FlatTabStrip"), "a");
  SetByName(*TheForm().Find("a")->GetControl(), "TabCount", 2);
  SetByName(*TheForm().Find("a")->GetControl(), "SelectedTab", 1);
  Show();
  Pick("cmbTab", 0);
  TypeInto("txtCaption", "One");
  EXPECT_FALSE(CanApply());
  Pick("cmbTab", 1);
  const Variant first = 1, second = 2;
  Control& strip = *TheForm().Find("a")->GetControl();
  EXPECT_EQ(GetIndexedByName(strip, "TabCaption", {&first, 1}), Variant("One"));
  TypeInto("txtCaption", "Two");
  Click("cmdOK");
  EXPECT_EQ(GetIndexedByName(strip, "TabCaption", {&second, 1}), Variant("Two"));
}

TEST_F(PropertyFrameTest, ATabCountThatIsLeftFillsTheList) {
  Open("FlatTabStrip");
  TypeInto("txtTabCount", "4");
  Key(kKeyTab);
  EXPECT_EQ(Active(), "txtTabWidth");
  Pick("cmbOrientation", 1);
  EXPECT_EQ(frame_->Page(0).Find("cmbTab")->Name(), "cmbTab");
  EXPECT_EQ(dynamic_cast<ListField&>(*frame_->Page(0).Find("cmbTab")).ListCount(), 4);
}

// --- Columns -----------------------------------------------------------------------------------------

TEST_F(PropertyFrameTest, TheColumnsAreAddedInsertedRemovedAndClearedAtOnce) {
  OpenWithColumns({"A", "B"});
  EXPECT_EQ(The<FlatLabel>("lblCount").Caption(), "Column Count: 2");
  Pick("cmbColumn", 0);
  EXPECT_EQ(Text("txtCaption"), "A");
  Click("cmdAction1");
  EXPECT_EQ(The<FlatLabel>("lblCount").Caption(), "Column Count: 3");
  EXPECT_EQ(The<FlatDropDown>("cmbColumn").Text(), "Column 2");
  EXPECT_EQ(Text("txtWidth"), "1440");
  Click("cmdAction2");
  EXPECT_EQ(Text("txtCaption"), "B");
  Click("cmdAction0");
  EXPECT_EQ(The<FlatDropDown>("cmbColumn").Text(), "Column 3");
  Click("cmdAction3");
  EXPECT_EQ(The<FlatLabel>("lblCount").Caption(), "Column Count: 0");
  EXPECT_EQ(The<FlatDropDown>("cmbColumn").Text(), "");
  EXPECT_EQ(Text("txtWidth"), "");
  Click("cmdCancel");
  const ObjectRef columns = std::get<ObjectRef>(Value("Columns").Get());
  EXPECT_EQ(GetByName(*columns, "Count"), Variant(0)) << "done is done";
}

TEST_F(PropertyFrameTest, TheSettingsOfAColumnAreWrittenByApply) {
  OpenWithColumns({"A", "B"});
  Pick("cmbColumn", 1);
  TypeInto("txtCaption", "Price");
  TypeInto("cmbFormat", "#,##0");
  Pick("cmbEditType", 2);
  Click("cmdApply");
  const ObjectRef columns = std::get<ObjectRef>(Value("Columns").Get());
  const Variant second = 2;
  const ObjectRef column = std::get<ObjectRef>(GetIndexedByName(*columns, "Item", {&second, 1}).Get());
  EXPECT_EQ(GetByName(*column, "Caption"), Variant("Price"));
  EXPECT_EQ(GetByName(*column, "Format"), Variant("#,##0"));
  EXPECT_EQ(GetByName(*column, "EditType"), Variant(2));
}

// --- Keys alone --------------------------------------------------------------------------------------

TEST_F(PropertyFrameTest, AFrameIsUsedByKeysAlone) {
  Open("FlatLabel");
  Key(kKeyEnd, kShiftMask);
  Driver().Type("Sum:");
  std::vector<std::string> order;
  for (int i = 0; i < 8; ++i) {
    Key(kKeyTab);
    order.push_back(Active());
    if (Active() == "chkEnabled") Key(kKeySpace);
    if (Active() == "cmbAlignment") {
      Key(kKeyF4);
      Key(kKeyDown);
      Key(kKeyEnter);
    }
  }
  EXPECT_THAT(order, ElementsAre("chkEnabled", "cmbAlignment", "chkMouseUnderline", "cmdOK", "cmdCancel",
                                 "cmdApply", "tabPages", "txtCaption"));
  Key('P', kAltMask);
  EXPECT_EQ(Value("Caption"), Variant("Sum:"));
  EXPECT_EQ(Value("Enabled"), Variant(false));
  EXPECT_EQ(Value("Alignment"), Variant(1));
  EXPECT_FALSE(CanApply());
  EXPECT_EQ(Active(), "tabPages") << "the button cannot keep the focus";
  Key(kKeyTab);
  Key(kKeyEnd);
  Driver().Type("!");
  Key(kKeyEnter);
  EXPECT_TRUE(Frame().Closed());
  EXPECT_EQ(Value("Caption"), Variant("Sum:!"));
}

TEST_F(PropertyFrameTest, CtrlTabAndCtrlPageDownGoRoundThePages) {
  OpenWithColumns({});
  FlatTabStrip& tabs = The<FlatTabStrip>("tabPages");
  EXPECT_EQ(Active(), "cmbColumn");
  Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(tabs.SelectedTab(), 1);
  EXPECT_EQ(Active(), "chkAllowEdits");
  Key(kKeyTab, kCtrlMask | kShiftMask);
  EXPECT_EQ(tabs.SelectedTab(), 2);
  Key(kKeyPageDown, kCtrlMask);
  EXPECT_EQ(tabs.SelectedTab(), 1);
  Key(kKeyPageUp, kCtrlMask);
  EXPECT_EQ(tabs.SelectedTab(), 2);
  Key(kKeyTab);
  EXPECT_EQ(tabs.SelectedTab(), 2) << "without Ctrl it moves the focus";
}

TEST_F(PropertyFrameTest, CtrlTabOnTheStripGoesOnePageOn) {
  OpenWithColumns({});
  frame_->SelectPage(1);
  Focus("tabPages");
  Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(The<FlatTabStrip>("tabPages").SelectedTab(), 2);
}

TEST_F(PropertyFrameTest, AccessKeysPressTheColumnsButtons) {
  OpenWithColumns({});
  Key('A', kAltMask);
  Key('I', kAltMask);
  EXPECT_EQ(The<FlatLabel>("lblCount").Caption(), "Column Count: 2");
  Key('R', kAltMask);
  EXPECT_EQ(The<FlatLabel>("lblCount").Caption(), "Column Count: 1");
  Key('C', kAltMask);
  EXPECT_EQ(The<FlatLabel>("lblCount").Caption(), "Column Count: 0");
}

// --- The selection and the control -------------------------------------------------------------------

TEST_F(PropertyFrameTest, AnotherSelectionIsShownAndWhatWasEditedIsForgotten) {
  TheForm().Add(*FindControlClass("FlatButton"), "b");
  Open("FlatButton");
  TypeInto("txtCaption", "lost");
  frame_->SelectionChanged({std::make_shared<HostedTarget>(TheForm().Find("b"))});
  EXPECT_EQ(Text("txtCaption"), "b");
  EXPECT_FALSE(CanApply());
  TypeInto("txtCaption", "new");
  Click("cmdOK");
  EXPECT_EQ(Value("Caption", "a"), Variant("a"));
  EXPECT_EQ(Value("Caption", "b"), Variant("new"));
}

TEST_F(PropertyFrameTest, ATargetRaises5OnceItsControlHasBeenRemoved) {
  TheForm().Add(*FindControlClass("FlatGrid"), "a");
  HostedTarget target(TheForm().Find("a"));
  EXPECT_EQ(target.Get("RowCount", {}), Variant(10));
  EXPECT_TRUE(target.Inner("Columns", {}));
  EXPECT_EQ(ErrorOf([&] { target.Inner("RowCount", {}); }), kTypeMismatch);
  const auto kept = TheForm().Find("a");  // which has no control any more
  TheForm().Remove("a");
  for (const int operation : {0, 1, 2, 3}) {
    try {
      if (operation == 0) target.Get("RowCount", {});
      if (operation == 1) target.Set("RowCount", {}, 5);
      if (operation == 2) target.Call("Refresh", {});
      if (operation == 3) target.Inner("Columns", {});
      ADD_FAILURE() << operation;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kInvalidCall);
      EXPECT_EQ(error.Source(), "LevelWidgets.FlatGrid");
      EXPECT_EQ(error.Description(), "a no longer exists");
    }
  }
}

TEST_F(PropertyFrameTest, AFrameWhoseControlIsRemovedStaysAndIsClosedByCancel) {
  Open("FlatButton");
  TheForm().Remove("a");
  Driver().Type("x");
  EXPECT_TRUE(CanApply());
  Click("cmdCancel");
  EXPECT_TRUE(Frame().Closed());
}

// --- Handlers that do anything -----------------------------------------------------------------------

TEST_F(PropertyFrameTest, AListenerMayCloseTheFrameWhileItWrites) {
  Open("FlatScroll");
  TypeInto("txtMax", "500");
  TheForm().PropertyChanged.Add([this](std::string_view, std::string_view) { Frame().Close(); });
  Click("cmdApply");
  EXPECT_TRUE(Frame().Closed());
  EXPECT_EQ(Value("Max"), Variant(500));
}

TEST_F(PropertyFrameTest, AListenerMayGiveUpTheFrameAndItsControlsFormWhileItWrites) {
  Open("FlatScroll");
  TypeInto("txtMax", "500");
  TheForm().PropertyChanged.Add([this](std::string_view, std::string_view) {
    frame_.reset();
    TheForm().Close();
  });
  Key('P', kAltMask);
  EXPECT_TRUE(TheForm().Closed());
}

TEST_F(PropertyFrameTest, AListenerMayRemoveAnyControlOfTheFrameAtAnyEdit) {
  const std::vector<std::string> names = [this] {
    Open("FlatLabel");
    std::vector<std::string> all;
    for (const auto& control : Frame().Controls()) all.push_back(control->Name());
    Key(kKeyEscape);
    TheForm().Remove("a");
    return all;
  }();
  for (const std::string& name : names) {
    Open("FlatLabel");
    for (const auto& field : frame_->Page(0).Fields()) {
      field->Edited.Add([this, name](bool) { Frame().Remove(name); });
    }
    TypeInto("txtCaption", "x");
    if (Frame().Find("chkEnabled")) Click("chkEnabled");
    if (Frame().Find("cmbAlignment")) Pick("cmbAlignment", 1);
    EXPECT_FALSE(Frame().Find(name)) << name;
    if (Frame().Find("cmdOK")) Click("cmdOK");
    Frame().Close();
    TheForm().Remove("a");
  }
}

TEST_F(PropertyFrameTest, AFrameThatIsGivenUpWhileItIsOpenLeavesNothing) {
  Open("FlatGrid");
  frame_->SelectPage(2);
  frame_.reset();
  EXPECT_EQ(Driver().TopLevelWindows().size(), 1u);
}

TEST_F(PropertyFrameTest, TheFormOfAFrameKeepsTheFrame) {
  Open("FlatButton");
  const std::shared_ptr<Form> form = frame_->GetForm();
  const std::weak_ptr<PropertyFrame> frame = frame_;
  frame_.reset();
  EXPECT_FALSE(frame.expired());
  form->Close();
}

}  // namespace
}  // namespace levelwidgets::testing
