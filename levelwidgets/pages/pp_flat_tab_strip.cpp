#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/pages/property_page.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kOrientationItems[] = {"0 - ksxTabOrientationTop", "1 - ksxTabOrientationBottom"};

// Edits the captions of the tabs one at a time.
class TabStripPage : public PropertyPage {
 public:
  using PropertyPage::PropertyPage;

 private:
  void OnShown() override { FillTabs(); }
  void OnLeft(PageField& field) override {
    if (&field == &txtTabCount_) FillTabs();
  }

  // The current tab stays as it is, and is shown as chosen as long as there is one of its number.
  void FillTabs() {
    const std::string& text = txtTabCount_.Text();
    const std::int32_t count =
        text.empty() ? 0 : ToInt16(ConvertTo(VariantType::kInt16, text, Conversions()));
    cmbTab_.ShowItems(Numbered("Tab", count));
    cmbTab_.ShowIndex(current_tab_ - 1);
  }

  // An edit of the caption does not mark the page as changed.
  Edit OnEdited(PageField& field, bool chosen) override {
    if (&field == &cmbTab_) {
      ChooseTab();
      return Edit::kNone;
    }
    if (&field == &txtCaption_) {
      caption_edited_ = true;
      return Edit::kUnmarked;
    }
    return PropertyPage::OnEdited(field, chosen);
  }

  void ChooseTab() {
    const PageTargetRef target = Target();
    const std::int32_t chosen = cmbTab_.ListIndex();
    if (!target || chosen < 0) return;
    try {
      if (current_tab_ >= 1 && caption_edited_) WriteCaption(*target, current_tab_, txtCaption_.Text());
      const Variant tab = chosen + 1;
      txtCaption_.Show(
          ToText(ConvertTo(VariantType::kString, target->Get("TabCaption", {&tab, 1}), Conversions())));
    } catch (...) {
      cmbTab_.ShowIndex(current_tab_ - 1);
      throw;
    }
    current_tab_ = static_cast<std::int16_t>(chosen + 1);
    caption_edited_ = false;
  }

  // A text that is no number is passed over.
  std::optional<Variant> ValueOf(const PageField& field) const override {
    const bool is_text = field.Info().kind == FieldKind::kText;
    if (is_text && !IsNumeric(static_cast<const TextField&>(field))) return std::nullopt;
    return PropertyPage::ValueOf(field);
  }

  void OnApply(PageTarget& target) override {
    const std::int16_t tab = current_tab_;
    const std::string caption = txtCaption_.Text();
    PropertyPage::OnApply(target);
    if (tab >= 1) WriteCaption(target, tab, caption);
  }
  static void WriteCaption(PageTarget& target, std::int16_t tab, const std::string& caption) {
    const Variant index = tab;
    target.Set("TabCaption", {&index, 1}, caption);
  }

  TextField& txtTabCount_ = Get<TextField>("txtTabCount");
  ListField& cmbTab_ = Get<ListField>("cmbTab");
  TextField& txtCaption_ = Get<TextField>("txtCaption");
  std::int16_t current_tab_ = 0;  // from 1; 0 before one is chosen
  bool caption_edited_ = false;   // since the current tab was chosen
};

}  // namespace

const PageInfo& ppFlatTabStrip() {
  static constexpr FieldInfo fields[] = {
      {.name = "txtTabCount",
       .kind = FieldKind::kText,
       .caption = "Tab Count:",
       .refusal = "Invalid Tab Count"},
      {.name = "txtTabWidth",
       .kind = FieldKind::kText,
       .caption = "Tab Width:",
       .refusal = "Invalid Tab Width"},
      {.name = "txtSelectedTab",
       .kind = FieldKind::kText,
       .caption = "Selected Tab:",
       .refusal = "Invalid Selected Tab value"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
      {.name = "cmbOrientation",
       .kind = FieldKind::kList,
       .caption = "Orientation:",
       .items = kOrientationItems},
      {.name = "cmbTab", .kind = FieldKind::kList},
      {.name = "txtCaption", .kind = FieldKind::kText, .caption = "Caption:"},
  };
  static constexpr FieldBinding bindings[] = {
      {"txtTabCount", "TabCount"}, {"txtTabWidth", "TabWidth"},       {"txtSelectedTab", "SelectedTab"},
      {"chkEnabled", "Enabled"},   {"cmbOrientation", "Orientation"},
  };
  static constexpr FieldBinding caption[] = {{"txtCaption", "TabCaption"}};
  static constexpr PageInfo info{"ppFlatTabStrip",
                                 "General",
                                 "FlatTabStrip",
                                 fields,
                                 bindings,
                                 &MakePage<TabStripPage>,
                                 {"cmbTab", "", caption, caption}};
  return info;
}

}  // namespace levelwidgets
