#include <levelwidgets/host/property_frame/sample_page.h>

#include <algorithm>

#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/controls/grid/flat_grid.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/property_frame/hosted_target.h>
#include <levelwidgets/host/property_frame/property_frame.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

namespace {

// --- Sample values -----------------------------------------------------------------------------------

void Fill(FlatTextBox& box) { box.SetText("A line of text"); }

void Fill(FlatDropDown& list) {
  for (const char* unit : {"piece", "kg", "m"}) {
    std::string text = unit;
    list.AddItem(text);
  }
  list.SetListIndex(2);
  list.SetText("kg");
}

void Fill(FlatCalculator& calculator) { calculator.SetFormatString("Standard"); }

void Fill(FlatCalendar& calendar) { calendar.SetDateFormat("Short Date"); }

void Fill(FlatGrid& grid) {
  FlatColumns& columns = *grid.Columns();
  columns.Add("Article", 2400, ksxLeft, ksxLeft, ksxEditText, true);
  columns.Add("Pieces", 900, ksxRight, ksxRight, ksxEditCalculator, true, "Standard");
  grid.SetRowCount(5);
}

void Fill(FlatTabStrip& tabs) {
  tabs.SetTabCount(3);
  std::int16_t number = 0;
  for (const char* caption : {"Order", "Lines", "Notes"}) tabs.SetTabCaption(++number, caption);
  tabs.SetSelectedTab(1);
}

template <typename... Classes>
void FillOneOf(Control& control) {
  const auto fill = [](auto* found) {
    if (found) Fill(*found);
  };
  (fill(dynamic_cast<Classes*>(&control)), ...);
}

// --- Pages -------------------------------------------------------------------------------------------

void ChooseFirst(PropertyPage& page) {
  const auto by = page.Find(page.Info().chosen.by);
  if (by) static_cast<ListField&>(*by).SetListIndex(0);
}

struct Sample {
  std::shared_ptr<Form> form;  // of the control
  std::shared_ptr<PropertyFrame> frame;
};

}  // namespace

std::shared_ptr<Form> MakeSamplePage(Platform& platform, const PageInfo& page) {
  const auto sample = std::make_shared<Sample>();
  sample->form = Form::Create(platform, {.name = "frmSample", .design = true});
  HostedControl& control = sample->form->Add(*FindControlClass(page.serves), std::string(page.serves) + "1");
  FillOneOf<FlatTextBox, FlatDropDown, FlatCalculator, FlatCalendar, FlatGrid, FlatTabStrip>(
      *control.GetControl());

  const auto pages = PagesOf(page.serves);
  sample->frame = PropertyFrame::Create(
      platform, {.caption = "Properties of " + control.Name(),
                 .pages = pages,
                 .selected = {std::make_shared<HostedTarget>(sample->form->Find(control.Name()))}});
  const auto number = static_cast<std::size_t>(std::ranges::find(pages, &page) - pages.begin());
  sample->frame->SelectPage(static_cast<std::int16_t>(number + 1));
  ChooseFirst(sample->frame->Page(number));
  return {sample, sample->frame->GetForm().get()};
}

}  // namespace levelwidgets
