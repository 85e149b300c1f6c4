#include <algorithm>

#include <levelwidgets/pages/page_items.h>
#include <levelwidgets/pages/property_page.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kActions[] = {"&Add Column", "&Insert Column", "&Remove", "&Clear"};
constexpr std::string_view kEditTypeItems[] = {"0 - ksxEditNone", "1 - ksxEditText", "2 - ksxEditCalculator",
                                               "3 - ksxEditCalendar", "4 - ksxEditDropDown"};

constexpr FieldBinding kReadOfColumn[] = {
    {"txtCaption", "Caption"},     {"txtWidth", "Width"},
    {"cmbAlignment", "Alignment"}, {"cmbHeaderAlignment", "HeaderAlignment"},
    {"cmbFormat", "Format"},       {"chkVisible", "Visible"},
    {"cmbEditType", "EditType"},
};
constexpr FieldBinding kWrittenToColumn[] = {
    {"txtCaption", "Caption"},     {"txtWidth", "Width"},
    {"cmbAlignment", "Alignment"}, {"cmbHeaderAlignment", "HeaderAlignment"},
    {"chkVisible", "Visible"},     {"cmbFormat", "Format"},
    {"cmbEditType", "EditType"},
};

// Works on the collection at once; only the settings of the chosen column wait until the page is applied.
class GridColumnsPage : public PropertyPage {
 public:
  using PropertyPage::PropertyPage;

 private:
  void OnCreated() override {
    Connect(Get<ButtonsField>("cmdAction").Clicked, [this](std::int32_t index) { Act(index); });
  }

  void OnRead(PageTarget* target) override {
    columns_read_ = target ? target->Inner("Columns") : nullptr;
    count_read_ = columns_read_ ? ToInt32(columns_read_->Get("Count")) : 0;
  }
  void OnShown() override {
    columns_ = std::exchange(columns_read_, nullptr);
    cmbColumn_.ShowItems(Numbered("Column", count_read_));
    ShowCount(count_read_);
    Empty(kReadOfColumn);
  }

  Edit OnEdited(PageField& field, bool chosen) override {
    if (&field != &cmbColumn_) return PropertyPage::OnEdited(field, chosen);
    ShowColumn();
    return Edit::kNone;
  }

  // Of the chosen column; with none the settings are empty.
  void ShowColumn() {
    if (cmbColumn_.ListIndex() < 0) return Empty(kReadOfColumn);
    Show(kReadOfColumn, Read(*ChosenColumn(), kReadOfColumn));
  }
  void OnApply(PageTarget&) override {
    if (cmbColumn_.ListIndex() < 0) return;
    Write(*ChosenColumn(), ToWrite(kWrittenToColumn));
  }
  PageTargetRef ChosenColumn() const {
    const Variant position = cmbColumn_.ListIndex() + 1;
    return columns_->Inner("Item", {&position, 1});
  }

  // --- Commands -------------------------------------------------------------------------------------

  void Act(std::int32_t index) {
    if (!columns_) return;
    constexpr void (GridColumnsPage::*kCommands[])() = {
        &GridColumnsPage::AddColumn, &GridColumnsPage::InsertColumn, &GridColumnsPage::RemoveColumn,
        &GridColumnsPage::ClearColumns};
    (this->*kCommands[index])();
    ShowCount(ToInt32(columns_->Get("Count")));
  }

  void AddColumn() {
    columns_->Call("Add", NewColumn());
    ShowItems(Numbered("Column", cmbColumn_.ListCount() + 1), cmbColumn_.ListCount());
  }

  void InsertColumn() {
    const std::int32_t chosen = cmbColumn_.ListIndex();
    if (chosen < 0) return;
    std::vector<Variant> arguments = NewColumn();
    arguments.emplace_back("");  // no key
    arguments.emplace_back(chosen + 1);
    columns_->Call("Add", arguments);
    ShowItems(Numbered("Column", cmbColumn_.ListCount() + 1), chosen + 1);
  }

  // The other items keep their labels until a column is added or inserted.
  void RemoveColumn() {
    const std::int32_t chosen = cmbColumn_.ListIndex();
    if (chosen < 0) return;
    const Variant position = chosen + 1;
    columns_->Call("Remove", {&position, 1});
    std::vector<std::string> items = cmbColumn_.Items();
    items.erase(items.begin() + chosen);
    const auto last = static_cast<std::int32_t>(items.size()) - 1;
    ShowItems(std::move(items), std::min(chosen, last));
  }

  void ClearColumns() {
    columns_->Call("Clear", {});
    ShowItems({}, -1);
  }

  // Caption, width in twips, alignments, editor, visible, format.
  static std::vector<Variant> NewColumn() { return {"", 1440, 0, 0, 1, true, ""}; }

  void ShowItems(std::vector<std::string> items, std::int32_t chosen) {
    cmbColumn_.ShowItems(std::move(items));
    cmbColumn_.ShowIndex(chosen);
    ShowColumn();
  }
  void ShowCount(std::int32_t count) { lblCount_.Show("Column Count: " + std::to_string(count)); }

  ListField& cmbColumn_ = Get<ListField>("cmbColumn");
  LabelField& lblCount_ = Get<LabelField>("lblCount");
  PageTargetRef columns_;  // of the first selected grid; null for none
  PageTargetRef columns_read_;
  std::int32_t count_read_ = 0;
};

}  // namespace

const PageInfo& ppFlatGridColumns() {
  static constexpr FieldInfo fields[] = {
      {.name = "cmbColumn", .kind = FieldKind::kList, .caption = "Columns:", .label = "Label6"},
      {.name = "lblCount", .kind = FieldKind::kLabel, .caption = "Column Count: 0"},
      {.name = "cmdAction", .kind = FieldKind::kButtons, .items = kActions},
      {.name = "Frame1", .kind = FieldKind::kFrame, .caption = "Column Settings"},
      {.name = "txtCaption",
       .kind = FieldKind::kText,
       .caption = "Caption:",
       .label = "Label1",
       .frame = "Frame1"},
      {.name = "txtWidth",
       .kind = FieldKind::kText,
       .caption = "Width:",
       .label = "Label2",
       .frame = "Frame1",
       .refusal = "Invalid Width"},
      {.name = "cmbAlignment",
       .kind = FieldKind::kList,
       .caption = "Alignment:",
       .items = kAlignmentItems,
       .label = "Label3",
       .frame = "Frame1"},
      {.name = "cmbHeaderAlignment",
       .kind = FieldKind::kList,
       .caption = "Header Alignment:",
       .items = kAlignmentItems,
       .label = "Label4",
       .frame = "Frame1"},
      {.name = "cmbFormat",
       .kind = FieldKind::kCombo,
       .caption = "Format:",
       .items = kFormatItems,
       .label = "Label5",
       .frame = "Frame1"},
      {.name = "chkVisible", .kind = FieldKind::kCheck, .caption = "Visible", .frame = "Frame1"},
      {.name = "cmbEditType",
       .kind = FieldKind::kList,
       .caption = "Edit Type:",
       .items = kEditTypeItems,
       .label = "Label7",
       .frame = "Frame1"},
  };
  static constexpr PageInfo info{"ppFlatGridColumns",
                                 "Columns",
                                 "FlatGrid",
                                 fields,
                                 {},
                                 &MakePage<GridColumnsPage>,
                                 {"cmbColumn", "Columns", kReadOfColumn, kWrittenToColumn}};
  return info;
}

}  // namespace levelwidgets
