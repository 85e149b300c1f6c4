// Every property page as a component: what it shows of a control, and what it writes to it.
#include <levelwidgets/activex/page/page_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PageValuesTest = PropertyPageTest;

// What a person does to a field, and what comes of it.
struct PageEdit {
  const char* page;
  const char* class_name;
  const char* property;
  Value before;       // of the property
  const char* shown;  // in the field, where it shows a text that can be read
  const char* typed;  // null where something else does it
  const char* after;  // of the property
  int picked = -1;    // in a list, from 0; a check box takes a press of Space
};

void PrintTo(const PageEdit& edit, std::ostream* out) { *out << edit.property; }

std::vector<PageEdit> EveryEdit() {
  return {
      {"ppFlatButton", "FlatButton", "Caption", "Save", "Save", "Store", "Store"},
      {"ppFlatButton", "FlatButton", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatLabel", "FlatLabel", "Caption", "Name", "Name", "Town", "Town"},
      {"ppFlatLabel", "FlatLabel", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatLabel", "FlatLabel", "Alignment", 0, nullptr, nullptr, "1", 1},
      {"ppFlatLabel", "FlatLabel", "MouseUnderline", false, nullptr, nullptr, "True"},
      {"ppFlatScroll", "FlatScroll", "Value", 5, "5", "7", "7"},
      {"ppFlatScroll", "FlatScroll", "SmallChange", 2, "2", "3", "3"},
      {"ppFlatScroll", "FlatScroll", "LargeChange", 10, "10", "20", "20"},
      {"ppFlatScroll", "FlatScroll", "Max", 100, "100", "200", "200"},
      {"ppFlatScroll", "FlatScroll", "Min", 0, "0", "-4", "-4"},
      {"ppFlatScroll", "FlatScroll", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatTabStrip", "FlatTabStrip", "TabCount", 3, "3", "4", "4"},
      {"ppFlatTabStrip", "FlatTabStrip", "TabWidth", 900, "900", "1200", "1200"},
      {"ppFlatTabStrip", "FlatTabStrip", "SelectedTab", 1, "1", "2", "2"},
      {"ppFlatTabStrip", "FlatTabStrip", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatTabStrip", "FlatTabStrip", "Orientation", 0, nullptr, nullptr, "1", 1},
      {"ppFlatTextBox", "FlatTextBox", "Alignment", 0, nullptr, nullptr, "1", 1},
      {"ppFlatTextBox", "FlatTextBox", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatTextBox", "FlatTextBox", "Text", "one", "one", "two", "two"},
      {"ppFlatTextBox", "FlatTextBox", "PasswordChar", "*", "*", "x", "x"},
      {"ppFlatTextBox", "FlatTextBox", "MultiLine", false, nullptr, nullptr, "True"},
      {"ppFlatTextBox", "FlatTextBox", "MaxLength", 20, "20", "30", "30"},
      {"ppFlatDropDown", "FlatDropDown", "AutoComplete", false, nullptr, nullptr, "True"},
      {"ppFlatDropDown", "FlatDropDown", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatDropDown", "FlatDropDown", "Alignment", 0, nullptr, nullptr, "1", 1},
      {"ppFlatDropDown", "FlatDropDown", "DropDownWidth", 1500, "1500", "1800", "1800"},
      {"ppFlatDropDown", "FlatDropDown", "TopIndex", 1, "1", "2", "2"},
      {"ppFlatDropDown", "FlatDropDown", "Text", "one", "one", "two", "two"},
      {"ppFlatCalculator", "FlatCalculator", "Alignment", 0, nullptr, nullptr, "1", 1},
      {"ppFlatCalculator", "FlatCalculator", "FormatString", "Fixed", "Fixed", nullptr, "Percent", 4},
      {"ppFlatCalculator", "FlatCalculator", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatCalendar", "FlatCalendar", "DateFormat", "Long Date", "Long Date", nullptr, "Medium Date", 2},
      {"ppFlatCalendar", "FlatCalendar", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatGrid", "FlatGrid", "AllowEdits", false, nullptr, nullptr, "True"},
      {"ppFlatGrid", "FlatGrid", "Enabled", true, nullptr, nullptr, "False"},
      {"ppFlatGrid", "FlatGrid", "HideSelection", false, nullptr, nullptr, "True"},
      {"ppFlatGrid", "FlatGrid", "ShowCellFocus", false, nullptr, nullptr, "True"},
      {"ppFlatGrid", "FlatGrid", "ShowColumnHeaders", false, nullptr, nullptr, "True"},
      {"ppFlatGrid", "FlatGrid", "ShowGridLines", false, nullptr, nullptr, "True"},
      {"ppFlatGrid", "FlatGrid", "RowCount", 3, "3", "12", "12"},
      {"ppFlatGrid", "FlatGrid", "RowHeight", 300, "300", "450", "450"},
  };
}

class PageEditTest : public PropertyPageTest, public ::testing::WithParamInterface<PageEdit> {
 protected:
  // A strip refuses the tab that a new one has selected.
  void Prepare(std::string_view class_name) {
    if (class_name != "FlatTabStrip") return;
    Put(Object(), "TabCount", {3});
    Put(Object(), "SelectedTab", {1});
  }
};

TEST_P(PageEditTest, AnEditIsShownReportedAndWrittenToTheControl) {
  const PageEdit& edit = GetParam();
  Design(edit.class_name);
  Prepare(edit.class_name);
  ASSERT_EQ(Put(Object(), edit.property, {edit.before}).result, S_OK);
  MakePage(edit.page);
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  Show();
  ASSERT_TRUE(Focus(edit.property));
  if (edit.shown) EXPECT_EQ(FieldText(), edit.shown);
  EXPECT_EQ(Page().IsPageDirty(), S_FALSE);
  EXPECT_THAT(PageSite().TakeCalls(), IsEmpty());
  if (edit.typed) {
    Type(edit.typed);
  } else if (edit.picked >= 0) {
    Pick(edit.picked);
  } else {
    Press(VK_SPACE);
  }
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("OnStatusChange(3)"));
  EXPECT_EQ(Page().IsPageDirty(), S_OK);
  EXPECT_NE(Shown(Get(Object(), edit.property)), edit.after) << "before it is applied";
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), edit.property)), edit.after);
  EXPECT_EQ(Page().IsPageDirty(), S_FALSE);
}

// All fields of a page are written together, so that one that showed something else would change its
// property.
TEST_P(PageEditTest, APropertyThatNobodyEditsKeepsItsValue) {
  const PageEdit& edit = GetParam();
  Design(edit.class_name);
  Prepare(edit.class_name);
  ASSERT_EQ(Put(Object(), edit.property, {edit.after}).result, S_OK);
  MakePage(edit.page);
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), edit.property)), edit.after);
}

INSTANTIATE_TEST_SUITE_P(Pages, PageEditTest, ::testing::ValuesIn(EveryEdit()),
                         [](const auto& info) { return std::string(info.param.page) + info.param.property; });

// --- The columns of a grid --------------------------------------------------------------------------

class PageColumnsTest : public PropertyPageTest {
 protected:
  void SetUp() override {
    PropertyPageTest::SetUp();
    Open("ppFlatGridColumns", "FlatGrid");
  }
  ComPtr<IDispatch> Columns() {
    const CallResult columns = Get(Object(), "Columns");
    return As<IDispatch>(columns.value.punkVal);
  }
  std::string OfColumn(int position, const char* property) {
    const CallResult column = Get(Columns().Get(), "Item", {position});
    return Shown(Get(column.value.punkVal, property));
  }
  std::string ColumnCaption(int position) { return OfColumn(position, "Caption"); }
  // Presses the button with the access key.
  void PressAlt(char letter) {
    Holding(VK_MENU, [&] {
      ::PostMessageW(::GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(letter), 1 << 29);
      RunFrame();
    });
  }
};

TEST_F(PageColumnsTest, CommandsTakeEffectAtOnceAndSettingsWhenApplied) {
  ASSERT_TRUE(Focus("Columns"));
  PressAlt('a');
  EXPECT_EQ(Shown(Get(Columns().Get(), "Count")), "1");
  EXPECT_EQ(OfColumn(1, "Width"), "1440");
  EXPECT_EQ(OfColumn(1, "EditType"), "1");
  PressAlt('a');
  EXPECT_EQ(Shown(Get(Columns().Get(), "Count")), "2");
  ASSERT_TRUE(Focus("Columns"));
  for (int i = 0; i < 5; ++i) Press(VK_TAB);  // past the four buttons, to the caption
  Type("Price");
  EXPECT_EQ(ColumnCaption(2), "");
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(ColumnCaption(2), "Price");
  EXPECT_EQ(ColumnCaption(1), "");
  PressAlt('c');
  EXPECT_EQ(Shown(Get(Columns().Get(), "Count")), "0");
}

// --- Several objects, and none ----------------------------------------------------------------------

TEST_F(PageValuesTest, OfSeveralObjectsTheFirstIsReadAndWritten) {
  Embed("FlatScroll");
  ComPtr<IUnknown> second = MakeComponent("FlatScroll");
  Put(Object(), "Value", {4});
  Put(second.Get(), "Value", {9});
  MakePage("ppFlatScroll");
  ASSERT_EQ(SetObjects({Object(), second.Get()}), S_OK);
  Show();
  ASSERT_TRUE(Focus("Value"));
  EXPECT_EQ(FieldText(), "4");
  Type("6");
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "Value")), "6");
  EXPECT_EQ(Shown(Get(second.Get(), "Value")), "9");
}

TEST_F(PageValuesTest, APageWithoutObjectsIsEmptyAndWritesNothing) {
  Open("ppFlatButton", "FlatButton");
  Put(Object(), "Caption", {"Save"});
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  ASSERT_TRUE(Focus("Caption"));
  EXPECT_EQ(FieldText(), "Save");
  EXPECT_EQ(SetObjects({}), S_OK);
  EXPECT_EQ(FieldText(), "");
  Type("Store");
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "Save");
  EXPECT_EQ(Page().EditProperty(IdOf(Object(), "Caption")), E_INVALIDARG);
}

TEST_F(PageValuesTest, ObjectsMayComeBeforeTheWindowAndAfterIt) {
  Embed("FlatButton");
  Put(Object(), "Caption", {"Save"});
  MakePage("ppFlatButton");
  Show();
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  ASSERT_TRUE(Focus("Caption"));
  EXPECT_EQ(FieldText(), "Save");
}

// --- What a control refuses -------------------------------------------------------------------------

TEST_F(PageValuesTest, AValueThatTheControlRefusesReachesTheFrameAndThePageStaysDirty) {
  Open("ppFlatScroll", "FlatScroll");
  Put(Object(), "Max", {100});
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  ASSERT_TRUE(Focus("Max"));
  Type("300");
  ASSERT_TRUE(Focus("Value"));
  Type("200");
  EXPECT_EQ(Page().Apply(), static_cast<HRESULT>(0x800403EA));
  EXPECT_EQ(LastError(), "LevelWidgets.FlatScroll: Invalid Value");
  EXPECT_EQ(As<ISupportErrorInfo>(&Page())->InterfaceSupportsErrorInfo(IID_IPropertyPage), S_OK);
  EXPECT_EQ(Page().IsPageDirty(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "Max")), "100") << "it comes after the one that was refused";
  Type("50");
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Page().IsPageDirty(), S_FALSE);
  EXPECT_EQ(Shown(Get(Object(), "Max")), "300");
}

TEST_F(PageValuesTest, ATextThatIsNoNumberIsAMismatch) {
  Open("ppFlatScroll", "FlatScroll");
  ASSERT_TRUE(Focus("SmallChange"));
  Type("x");
  EXPECT_EQ(Page().Apply(), static_cast<HRESULT>(0x800A000D));
  EXPECT_NE(LastError(), "none");
  EXPECT_EQ(Page().IsPageDirty(), S_OK);
}

// The caption of a tab is written when the page is applied, and does not enable Apply by itself.
TEST_F(PageValuesTest, ACaptionOfATabIsToBeWrittenWithoutMarkingThePage) {
  Open("ppFlatTabStrip", "FlatTabStrip");
  Put(Object(), "TabCount", {2});
  Put(Object(), "SelectedTab", {1});
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  ASSERT_TRUE(Focus("TabCaption"));
  Pick(0);
  Press(VK_TAB);
  Type("Lines");
  EXPECT_THAT(PageSite().TakeCalls(), IsEmpty());
  EXPECT_EQ(Page().IsPageDirty(), S_OK);
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "TabCaption", {1})), "Lines");
}

}  // namespace
}  // namespace levelwidgets::activex
