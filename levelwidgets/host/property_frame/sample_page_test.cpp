#include <levelwidgets/host/property_frame/sample_page.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form/box_controls.h>
#include <levelwidgets/pages/registry.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

class SamplePageTest : public DesktopTest {
 protected:
  void TearDown() override {
    page_.reset();
    DesktopTest::TearDown();
  }
  void Open(const PageInfo& page) {
    page_ = MakeSamplePage(Tracer(), page);
    page_->Show();
    Driver().Settle();
  }
  template <typename T>
  T& At(std::string_view name) {
    return dynamic_cast<T&>(*page_->Find(name)->GetControl());
  }
  std::string TextAt(const std::string& name) { return At<FlatTextBox>(name).Text(); }
  std::string ListAt(const std::string& name) { return At<FlatDropDown>(name).Text(); }

  std::shared_ptr<Form> page_;
};

TEST_F(SamplePageTest, ThePageIsInFrontAndItsFieldsAreSeen) {
  for (const PageInfo* page : Pages()) {
    Open(*page);
    EXPECT_EQ(page_->Caption(), "Properties of " + std::string(page->serves) + "1");
    auto& tabs = At<FlatTabStrip>("tabPages");
    EXPECT_EQ(tabs.TabCaption(tabs.SelectedTab()), page->title) << page->name;
    for (const FieldInfo& field : page->fields) {
      const bool is_row = field.kind == FieldKind::kButtons;
      const auto control = page_->Find(std::string(field.name) + (is_row ? "0" : ""));
      ASSERT_TRUE(control) << page->name << "." << field.name;
      EXPECT_TRUE(control->Visible()) << page->name << "." << field.name;
    }
  }
}

// Text boxes may be empty by their kind; a list or combo box that shows nothing says nothing.
TEST_F(SamplePageTest, ListsShowAnItem) {
  for (const PageInfo* page : Pages()) {
    Open(*page);
    for (const FieldInfo& field : page->fields) {
      if (field.kind != FieldKind::kList) continue;
      EXPECT_NE(ListAt(std::string(field.name)), "") << page->name << "." << field.name;
    }
  }
  Open(ppFlatCalculator());
  EXPECT_EQ(ListAt("cmbFormatString"), "Standard");
  Open(ppFlatCalendar());
  EXPECT_EQ(ListAt("cmbFormat"), "Short Date");
}

TEST_F(SamplePageTest, AGridHasTwoColumnsOfWhichTheFirstIsChosen) {
  Open(ppFlatGridColumns());
  EXPECT_EQ(ListAt("cmbColumn"), "Column 1");
  EXPECT_EQ(At<FlatLabel>("lblCount").Caption(), "Column Count: 2");
  EXPECT_EQ(TextAt("txtCaption"), "Article");
  EXPECT_EQ(At<CheckBoxControl>("chkVisible").Value(), CheckBox::kChecked);
}

TEST_F(SamplePageTest, ATabStripHasThreeTabsOfWhichTheFirstIsSelectedAndChosen) {
  Open(ppFlatTabStrip());
  EXPECT_EQ(TextAt("txtTabCount"), "3");
  EXPECT_EQ(TextAt("txtSelectedTab"), "1");
  EXPECT_EQ(ListAt("cmbTab"), "Tab 1");
  EXPECT_EQ(TextAt("txtCaption"), "Order");
}

TEST_F(SamplePageTest, NothingIsChangedUntilAPersonChangesIt) {
  for (const PageInfo* page : Pages()) {
    Open(*page);
    EXPECT_FALSE(At<FlatButton>("cmdApply").Enabled()) << page->name;
  }
}

TEST_F(SamplePageTest, TheLineAroundAFieldIsOfOnePixelAtEveryResolution) {
  for (const int dots : {48, 72, 96, 120, 144, 168, 192, 240}) {
    PlatformWithScreen platform(Tracer(), {Tracer().Screen().Monitors(), {dots, dots}});
    page_ = MakeSamplePage(platform, ppFlatGridColumns());
    for (const char* field : {"txtCaption", "txtWidth", "cmbFormat"}) {
      const PixelRect inside = page_->Find(field)->ScreenRect();
      const PixelRect line = page_->Find(std::string(field) + "Line")->ScreenRect();
      EXPECT_EQ(line, (PixelRect{inside.left - 1, inside.top - 1, inside.right + 1, inside.bottom + 1}))
          << field << " at " << dots;
    }
    page_.reset();
  }
}

TEST_F(SamplePageTest, TheFormKeepsTheControlThatItIsFor) {
  Open(ppFlatButton());
  At<FlatTextBox>("txtCaption").SetText("Store");
  Driver().Click(ScreenPoint(At<FlatButton>("cmdApply"), PixelPoint{10, 10}));
  Driver().Settle();
  EXPECT_FALSE(At<FlatButton>("cmdApply").Enabled());  // as after an apply that was not refused
  EXPECT_EQ(Driver().TopLevelWindows().size(), 1U);    // no message came
}

}  // namespace
}  // namespace levelwidgets::testing
