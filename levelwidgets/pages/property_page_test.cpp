// The pages whose fields each stand for a property, and what all pages have in common.
#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/pages/property_page_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Which pages there are ---------------------------------------------------------------------------

TEST(PageRegistry, FindsPagesByNameAndByTheClassThatTheyServe) {
  EXPECT_EQ(FindPage("ppFlatScroll"), &ppFlatScroll());
  EXPECT_EQ(FindPage("LevelWidgets.ppFlatScroll"), &ppFlatScroll());
  EXPECT_EQ(FindPage("ppFlatWheel"), nullptr);
  EXPECT_THAT(PagesOf("FlatGrid"), ElementsAre(&ppFlatGrid(), &ppFlatGridColumns()));
  EXPECT_THAT(PagesOf("FlatWheel"), IsEmpty());
}

TEST(PageRegistry, EveryControlHasAPageCalledGeneralAndTheGridHasOneCalledColumnsToo) {
  for (const ClassInfo* info : ControlClasses()) {
    const auto pages = PagesOf(info->Name());
    ASSERT_FALSE(pages.empty()) << info->Name();
    EXPECT_EQ(pages[0]->title, "General");
    EXPECT_EQ(pages[0]->name, "pp" + std::string(info->Name()));
    EXPECT_EQ(pages.size(), info->Name() == "FlatGrid" ? 2u : 1u);
  }
  EXPECT_EQ(ppFlatGridColumns().title, "Columns");
  EXPECT_EQ(Pages().size(), 10u);
}

// --- What the pages read and write -------------------------------------------------------------------

struct PageRow {
  const char* page;
  PageJournal fields;  // name, caption, and the items of lists
  PageJournal read;
  PageJournal written;  // by a new control's page that is applied as it is
};

std::string LookOf(const PageField& field) {
  const FieldInfo& info = field.Info();
  constexpr const char* kKinds[] = {"text", "check", "list", "combo", "label", "buttons", "frame"};
  std::string look = std::string(kKinds[static_cast<int>(info.kind)]) + " " + std::string(info.name) + " \"" +
                     std::string(info.caption) + "\"";
  for (const std::string_view item : info.items) look += " | " + std::string(item);
  return look;
}

constexpr char kAlignment[] = "list cmbAlignment \"Alignment:\" | 0 - ksxLeft | 1 - ksxRight | 2 - ksxCenter";

const PageRow kRows[] = {
    {"ppFlatButton",
     {"text txtCaption \"Caption:\"", "check chkEnabled \"Enabled\""},
     {"read Caption", "read Enabled"},
     {"write Caption = \"a\"", "write Enabled = True"}},
    {"ppFlatLabel",
     {"text txtCaption \"Caption:\"", "check chkEnabled \"Enabled\"", kAlignment,
      "check chkMouseUnderline \"Mouse Underline\""},
     {"read Caption", "read Enabled", "read Alignment", "read MouseUnderline"},
     {"write Caption = \"a\"", "write Enabled = True", "write Alignment = 0", "write MouseUnderline = True"}},
    {"ppFlatScroll",
     {"text txtValue \"Value:\"", "text txtSmallChange \"SmallChange:\"",
      "text txtLargeChange \"LargeChange:\"", "text txtMax \"Max:\"", "text txtMin \"Min:\"",
      "check chkEnabled \"Enabled\""},
     {"read Value", "read SmallChange", "read LargeChange", "read Max", "read Min", "read Enabled"},
     {"write Value = \"1\"", "write SmallChange = \"1\"", "write LargeChange = \"3\"", "write Max = \"100\"",
      "write Min = \"0\"", "write Enabled = True"}},
    {"ppFlatDropDown",
     {"text txtDropDownWidth \"DropDownWidth:\"", "text txtListIndex \"ListIndex:\"",
      "text txtTopIndex \"TopIndex:\"", "text txtText \"Text:\"", "check chkEnabled \"Enabled\"", kAlignment,
      "check chkAutoComplete \"AutoComplete\""},
     {"read DropDownWidth", "read ListIndex", "read TopIndex", "read Text", "read Enabled", "read Alignment",
      "read AutoComplete"},
     {"write DropDownWidth = \"2880\"", "write ListIndex = \"0\"", "write TopIndex = \"1\"",
      "write Text = \"\"", "write Enabled = True", "write Alignment = 0", "write AutoComplete = False"}},
    {"ppFlatTextBox",
     {kAlignment, "text txtPasswordChar \"Password Char:\"", "check chkMultiLine \"MultiLine\"",
      "text txtMaxLength \"Max Length:\"", "text txtText \"Text:\"", "check chkEnabled \"Enabled\""},
     {"read Alignment", "read PasswordChar", "read MultiLine", "read MaxLength", "read Text", "read Enabled"},
     {"write Alignment = 0", "write PasswordChar = \"\"", "write MultiLine = False",
      "write MaxLength = \"0\"", "write Text = \"\"", "write Enabled = True"}},
    {"ppFlatCalculator",
     {"combo cmbFormatString \"FormatString:\" | Standard | General Number | Currency | Fixed | Percent | "
      "Scientific | "
      "Yes/No | True/False | On/Off | General Date | Long Date | Medium Date | Short Date | Long Time | "
      "Medium Time | "
      "Short Time",
      "check chkEnabled \"Enabled\"", kAlignment},
     {"read FormatString", "read Enabled", "read Alignment"},
     {"write FormatString = \"\"", "write Enabled = True", "write Alignment = 0"}},
    {"ppFlatCalendar",
     {"combo cmbFormat \"Date Format:\" | General Date | Long Date | Medium Date | Short Date | Long Time | "
      "Medium "
      "Time | Short Time",
      "check chkEnabled \"Enabled\""},
     {"read DateFormat", "read Enabled"},
     {"write DateFormat = \"\"", "write Enabled = True"}},
    {"ppFlatGrid",
     {"check chkAllowEdits \"Allow Edits\"", "check chkEnabled \"Enabled\"",
      "check chkHideSelection \"Hide Selection\"", "check chkShowCellFocus \"Show Cell Focus\"",
      "check chkShowColumnHeaders \"Show Column Headers\"", "check chkShowGridLines \"Show Grid Lines\"",
      "text txtRowCount \"Row Count:\"", "text txtRowHeight \"Row Height:\""},
     {"read AllowEdits", "read Enabled", "read HideSelection", "read ShowCellFocus", "read ShowColumnHeaders",
      "read ShowGridLines", "read RowCount", "read RowHeight"},
     {"write AllowEdits = False", "write Enabled = True", "write HideSelection = True",
      "write ShowCellFocus = False", "write ShowColumnHeaders = True", "write ShowGridLines = True",
      "write RowCount = \"10\"", "write RowHeight = \"225\""}},
};

class PageRows : public PropertyPageTest, public ::testing::WithParamInterface<PageRow> {};

TEST_P(PageRows, HaveTheirFieldsWithTheirTexts) {
  PageJournal fields;
  for (const auto& field : Open(GetParam().page).Fields()) fields.push_back(LookOf(*field));
  EXPECT_EQ(fields, GetParam().fields);
}

TEST_P(PageRows, ReadTheirPropertiesInOrderWhenTheSelectionChanges) {
  Open(GetParam().page);
  EXPECT_EQ(During([&] { Select(); }), GetParam().read);
  EXPECT_FALSE(page_->Changed());
  EXPECT_FALSE(page_->Edited());
}

TEST_P(PageRows, WriteTheirPropertiesInOrderWhenTheyAreApplied) {
  Open(GetParam().page);
  Select();
  EXPECT_EQ(During([&] { page_->ApplyChanges(); }), GetParam().written);
}

TEST_P(PageRows, MarkThePageAsChangedByAnEditOfAnyField) {
  Open(GetParam().page);
  for (const auto& field : page_->Fields()) {
    Select();
    int notified = 0;
    Subscription subscription = page_->ChangedNotified.Add([&] { ++notified; });
    switch (field->Info().kind) {
      case FieldKind::kText: Type(field->Name(), Text(field->Name()) + "1"); break;
      case FieldKind::kCheck: Check(field->Name(), At<CheckField>(field->Name()).Value() == 0); break;
      default: Choose(field->Name(), 1);
    }
    EXPECT_TRUE(page_->Changed()) << field->Name();
    EXPECT_TRUE(page_->Edited()) << field->Name();
    Select();
    EXPECT_FALSE(page_->Changed()) << field->Name();
    EXPECT_EQ(notified, 2) << field->Name();
    subscription.End();
  }
}

TEST_P(PageRows, ReadAndChangeOnlyTheFirstOfSeveralControls) {
  Open(GetParam().page);
  Select();
  for (const auto& field : page_->Fields()) {
    if (field->Name() == "chkEnabled") Check("chkEnabled", false);
  }
  page_->ApplyChanges();
  EXPECT_EQ(Value("Enabled", "a"), Variant(false));
  EXPECT_EQ(Value("Enabled", "b"), Variant(true));
  EXPECT_FALSE(page_->Changed());
  EXPECT_FALSE(page_->Edited());
}

TEST_P(PageRows, AreEmptyAndWriteNothingWithoutASelection) {
  Open(GetParam().page);
  Select();
  page_->SelectionChanged({});
  for (const auto& field : page_->Fields()) {
    if (auto* text = dynamic_cast<TextField*>(field.get())) {
      EXPECT_EQ(text->Text(), "");
    }
    if (auto* check = dynamic_cast<CheckField*>(field.get())) {
      EXPECT_EQ(check->Value(), 0);
    }
    if (auto* list = dynamic_cast<ListField*>(field.get())) {
      EXPECT_EQ(list->ListIndex(), -1);
    }
  }
  EXPECT_THAT(During([&] { page_->ApplyChanges(); }), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Pages, PageRows, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.page); });

// --- Values ------------------------------------------------------------------------------------------

TEST_F(PropertyPageTest, FieldsShowWhatTheControlHas) {
  Open("ppFlatLabel");
  SetByName(Selected(), "Caption", "Total:");
  SetByName(Selected(), "Enabled", false);
  SetByName(Selected(), "Alignment", 2);
  Select();
  EXPECT_EQ(Text("txtCaption"), "Total:");
  EXPECT_EQ(At<CheckField>("chkEnabled").Value(), 0);
  EXPECT_EQ(At<CheckField>("chkMouseUnderline").Value(), 1);
  EXPECT_EQ(At<ListField>("cmbAlignment").ListIndex(), 2);
  EXPECT_EQ(At<ListField>("cmbAlignment").Text(), "2 - ksxCenter");
}

TEST_F(PropertyPageTest, AppliedFieldsAreTheControlsOwn) {
  Open("ppFlatTextBox");
  Select();
  Choose("cmbAlignment", 1);
  Type("txtPasswordChar", "*");
  Type("txtMaxLength", "12");
  Type("txtText", "secret");
  page_->ApplyChanges();
  EXPECT_EQ(Value("Alignment"), Variant(1));
  EXPECT_EQ(Value("PasswordChar"), Variant("*"));
  EXPECT_EQ(Value("MaxLength"), Variant(12));
  EXPECT_EQ(Value("Text"), Variant("secret"));
}

// Required: each mode has an edit box of its own, and MultiLine is written between properties of the two.
TEST_F(PropertyPageTest, AnAlignmentAppliedTogetherWithMultiLineTakesTwoPasses) {
  Open("ppFlatTextBox");
  Select();
  Choose("cmbAlignment", 1);
  Check("chkMultiLine", true);
  Type("txtText", "text");
  page_->ApplyChanges();
  EXPECT_EQ(Value("MultiLine"), Variant(true));
  EXPECT_EQ(Value("Text"), Variant("text"));
  EXPECT_EQ(Value("Alignment"), Variant(0));
  page_->ApplyChanges();
  EXPECT_EQ(Value("Alignment"), Variant(1));
}

TEST_F(PropertyPageTest, AValueOutsideTheListShowsNothingAndIsLeftAsItIs) {
  Open("ppFlatLabel");
  SetByName(Selected(), "Alignment", 7);
  Select();
  EXPECT_EQ(At<ListField>("cmbAlignment").ListIndex(), -1);
  page_->ApplyChanges();
  EXPECT_EQ(Value("Alignment"), Variant(7));
}

TEST_F(PropertyPageTest, CurrencyChosenAndAppliedFormatsTheCalculatorsTextAtOnce) {
  Open("ppFlatCalculator");
  SetByName(Selected(), "Text", "12.5");
  Select();
  Choose("cmbFormatString", 2);
  EXPECT_EQ(At<ListField>("cmbFormatString").Text(), "Currency");
  page_->ApplyChanges();
  EXPECT_EQ(Value("Text"), Variant("$12.50"));
}

TEST_F(PropertyPageTest, AFormatThatIsTypedIsWrittenAsTyped) {
  Open("ppFlatCalendar");
  Select();
  At<ListField>("cmbFormat").SetText("yyyy-mm-dd");
  EXPECT_EQ(At<ListField>("cmbFormat").ListIndex(), -1);
  page_->ApplyChanges();
  EXPECT_EQ(Value("DateFormat"), Variant("yyyy-mm-dd"));
}

// Required.
TEST_F(PropertyPageTest, AFormatThatIsTypedDoesNotMarkThePageAsChanged) {
  for (const auto& [page, field] :
       {std::pair{"ppFlatCalculator", "cmbFormatString"}, {"ppFlatCalendar", "cmbFormat"}}) {
    for (const char* name : {"a", "b"}) TheForm().Remove(name);
    Open(page);
    Select();
    At<ListField>(field).SetText("0.00");
    EXPECT_FALSE(page_->Changed()) << page;
    EXPECT_TRUE(page_->Edited()) << page;
  }
}

TEST_F(PropertyPageTest, ANewSelectionForgetsWhatWasEdited) {
  Open("ppFlatCalendar");
  Select();
  At<ListField>("cmbFormat").SetText("yy");
  Select();
  EXPECT_FALSE(page_->Edited());
}

TEST_F(PropertyPageTest, TheNoticeOfAChangeComesOnlyWhenThePageBecomesChangedOrUnchanged) {
  Open("ppFlatButton");
  Select();
  int notified = 0;
  page_->ChangedNotified += [&] { ++notified; };
  Type("txtCaption", "one");
  Type("txtCaption", "two");
  EXPECT_EQ(notified, 1);
  page_->ApplyChanges();
  page_->ApplyChanges();
  EXPECT_EQ(notified, 2);
}

TEST_F(PropertyPageTest, AFormatOfTheListIsShownAsChosen) {
  Open("ppFlatCalculator");
  SetByName(Selected(), "FormatString", "Fixed");
  Select();
  EXPECT_EQ(At<ListField>("cmbFormatString").ListIndex(), 3);
}

TEST_F(PropertyPageTest, AnInnerObjectThatIsNoneIsRefused) {
  TheForm().Add(*FindControlClass("FlatGrid"), "grd");
  ObjectTarget target(TheForm().Find("grd")->GetControl(), Tracer().Conversions());
  const Variant arguments[] = {"A", 1000};
  const PageTargetRef columns = target.Inner("Columns", {});
  columns->Call("Add", arguments);
  const Variant first = 1;
  const PageTargetRef column = columns->Inner("Item", {&first, 1});
  column->Set("ValueList", {}, ObjectRef());
  EXPECT_EQ(ErrorOf([&] { column->Inner("ValueList", {}); }), kTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { column->Inner("Caption", {}); }), kTypeMismatch);
}

// --- Refusals ----------------------------------------------------------------------------------------

TEST_F(PropertyPageTest, ANewRangeWithAValueOutsideTheOldOneTakesTwoPasses) {
  Open("ppFlatScroll");
  Select();
  Type("txtValue", "150");
  Type("txtMax", "200");
  EXPECT_THAT(During([&] {
                try {
                  page_->ApplyChanges();
                  ADD_FAILURE() << "the value is outside the range";
                } catch (const Error& error) {
                  EXPECT_EQ(error.Number(), -2147220502);
                  EXPECT_EQ(error.Source(), "LevelWidgets.FlatScroll");
                  EXPECT_EQ(error.Description(), "Invalid Value");
                }
              }),
              ElementsAre("write Value = \"150\""));
  EXPECT_TRUE(page_->Changed());
  EXPECT_EQ(Text("txtValue"), "150") << "what was typed stays";
  Type("txtValue", "0");
  page_->ApplyChanges();
  Type("txtValue", "150");
  page_->ApplyChanges();
  EXPECT_EQ(Value("Value"), Variant(150));
}

TEST_F(PropertyPageTest, ATextThatIsNoNumberStopsTheApplyAtItsField) {
  Open("ppFlatScroll");
  Select();
  Type("txtSmallChange", "2");
  Type("txtLargeChange", "many");
  Type("txtMax", "300");
  EXPECT_EQ(ErrorOf([&] { page_->ApplyChanges(); }), kTypeMismatch);
  EXPECT_EQ(Value("SmallChange"), Variant(2)) << "written before";
  EXPECT_EQ(Value("LargeChange"), Variant(3));
  EXPECT_EQ(Value("Max"), Variant(100)) << "not written after";
}

TEST_F(PropertyPageTest, AnEmptyListIndexIsRefusedAfterTheWidthHasBeenWritten) {
  Open("ppFlatDropDown");
  Select();
  Type("txtDropDownWidth", "1500");
  Type("txtListIndex", "");
  EXPECT_EQ(ErrorOf([&] { page_->ApplyChanges(); }), kTypeMismatch);
  EXPECT_EQ(Value("DropDownWidth"), Variant(1500));
  EXPECT_EQ(Value("ListIndex"), Variant(0));
}

TEST_F(PropertyPageTest, LettersInAnyNumberAreRefusedByTheConversion) {
  for (const auto& [page, field] : {std::pair{"ppFlatDropDown", "txtDropDownWidth"},
                                    {"ppFlatDropDown", "txtListIndex"},
                                    {"ppFlatDropDown", "txtTopIndex"},
                                    {"ppFlatTextBox", "txtMaxLength"},
                                    {"ppFlatGrid", "txtRowCount"},
                                    {"ppFlatGrid", "txtRowHeight"},
                                    {"ppFlatScroll", "txtMin"}}) {
    for (const char* name : {"a", "b"}) TheForm().Remove(name);
    Open(page);
    Select();
    EXPECT_EQ(page_->Leave(field), std::nullopt) << "only applying it says so";
    Type(field, "x");
    EXPECT_EQ(page_->Leave(field), std::nullopt);
    EXPECT_EQ(ErrorOf([&] { page_->ApplyChanges(); }), kTypeMismatch) << field;
  }
}

TEST_F(PropertyPageTest, WhenAPropertyCannotBeReadTheFieldsStayAsTheyWere) {
  Open("ppFlatButton");
  SetByName(Selected(), "Caption", "&Save");
  Select();
  // It has a caption and is not enabled by that name.
  const auto& picture = TheForm().Add(*FindControlClass("FlatScroll"), "scr");
  EXPECT_EQ(ErrorOf([&] { page_->SelectionChanged({Recorded(picture.GetControl())}); }), kNoSuchMember);
  EXPECT_EQ(Text("txtCaption"), "&Save");
  Type("txtCaption", "&Store");
  page_->ApplyChanges();
  EXPECT_EQ(Value("Caption"), Variant("&Store")) << "the selection is the old one";
}

TEST_F(PropertyPageTest, AFieldThatDoesNotExistIsNamedWithTheNearestOne) {
  Open("ppFlatScroll");
  try {
    page_->Leave("txtSmalChange");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kNoSuchMember);
    EXPECT_EQ(error.Description(),
              "ppFlatScroll has no member \"txtSmalChange\"; did you mean \"txtSmallChange\"?");
  }
}

// --- Objects of others -------------------------------------------------------------------------------

// Has a caption, and a number where the controls have a Boolean.
class Sign : public Object {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<Sign>;
    static constexpr auto data = ClassTable(
        ObjectClass("Sign", "None of the controls."),
        table::Properties(Row::Property<&Sign::Caption, &Sign::SetCaption>(1, "Caption", kNoDefault, ""),
                          Row::Property<&Sign::Enabled, &Sign::SetEnabled>(2, "Enabled", kNoDefault, "")));
    static constexpr ClassInfo info(data);
    return info;
  }
  std::string Caption() const { return caption; }
  void SetCaption(std::string text) { caption = std::move(text); }
  std::int32_t Enabled() const { return enabled; }
  void SetEnabled(std::int32_t value) { enabled = value; }
  const ClassInfo& Class() const override { return Table(); }

  std::string caption = "Way out";
  std::int32_t enabled = 0;
};

TEST_F(PropertyPageTest, AnyObjectWithPropertiesOfThoseNamesWillDo) {
  Open("ppFlatButton");
  const auto sign = std::make_shared<Sign>();
  for (const std::int32_t odd : {1, 3, -1}) {
    sign->enabled = odd;
    page_->SelectionChanged({Recorded(sign)});
    EXPECT_EQ(At<CheckField>("chkEnabled").Value(), 1) << odd;
  }
  for (const std::int32_t even : {0, 2, -2}) {
    sign->enabled = even;
    page_->SelectionChanged({Recorded(sign)});
    EXPECT_EQ(At<CheckField>("chkEnabled").Value(), 0) << even;
  }
  Check("chkEnabled", true);
  Type("txtCaption", "Way in");
  page_->ApplyChanges();
  EXPECT_EQ(sign->caption, "Way in");
  EXPECT_EQ(sign->enabled, -1);
}

// --- Handlers ----------------------------------------------------------------------------------------

TEST_F(PropertyPageTest, AHandlerMayRemoveTheControlAndGiveUpThePageWhileItIsApplied) {
  Open("ppFlatScroll");
  Select();
  Type("txtMax", "50");
  int notified = 0;
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view) {
    ++notified;
    TheForm().Remove("a");
    page_.reset();
    targets_.clear();
  });
  PropertyPage& page = *page_;
  page.ApplyChanges();
  EXPECT_GT(notified, 0);
  EXPECT_FALSE(TheForm().Find("a"));
}

TEST_F(PropertyPageTest, AHandlerMaySelectAnotherControlWhileThePageIsApplied) {
  Open("ppFlatButton");
  Select();
  Type("txtCaption", "one");
  Subscription once;
  once = TheForm().PropertyChanged.Add([&](std::string_view, std::string_view) {
    once.End();
    page_->SelectionChanged({targets_[1]});
  });
  page_->ApplyChanges();
  EXPECT_EQ(Value("Caption", "a"), Variant("one"));
  EXPECT_EQ(Value("Caption", "b"), Variant("b")) << "which the page shows now";
  EXPECT_EQ(Text("txtCaption"), "b");
}

TEST_F(PropertyPageTest, AFieldThatOutlivesItsPageDoesNothingMore) {
  Open("ppFlatButton");
  Select();
  const auto field = std::dynamic_pointer_cast<TextField>(page_->Find("txtCaption"));
  page_.reset();
  field->SetText("x");
  EXPECT_EQ(field->Text(), "x");
}

// --- Fields ------------------------------------------------------------------------------------------

TEST_F(PropertyPageTest, OnlyWhatChangesAFieldIsAnEditExceptForAChoice) {
  Open("ppFlatLabel");
  Select();
  Type("txtCaption", "a");
  Check("chkEnabled", true);
  EXPECT_FALSE(page_->Changed());
  Choose("cmbAlignment", 0);
  EXPECT_TRUE(page_->Changed());
}

TEST_F(PropertyPageTest, ACheckBoxIsCheckedOrNot) {
  Open("ppFlatButton");
  EXPECT_EQ(ErrorOf([&] { At<CheckField>("chkEnabled").SetValue(2); }), kInvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { At<CheckField>("chkEnabled").SetValue(-1); }), kInvalidPropertyValue);
  EXPECT_EQ(At<CheckField>("chkEnabled").Value(), 0);
}

TEST_F(PropertyPageTest, AListTakesOnlyItsItems) {
  Open("ppFlatLabel");
  Select();
  auto& list = At<ListField>("cmbAlignment");
  EXPECT_EQ(ErrorOf([&] { list.SetListIndex(3); }), kInvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { list.SetListIndex(-2); }), kInvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { list.SetText("3 - ksxNone"); }), kInvalidPropertyValue);
  EXPECT_EQ(list.ListIndex(), 0);
  list.SetText("1 - ksxRight");
  EXPECT_EQ(list.ListIndex(), 1);
  list.SetListIndex(-1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_EQ(list.List(2), "2 - ksxCenter");
  EXPECT_EQ(ErrorOf([&] { list.List(3); }), kSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { list.List(-1); }), kSubscriptOutOfRange);
}

}  // namespace
}  // namespace levelwidgets
