#include <levelwidgets/pages/page_field.h>

#include <algorithm>

#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

[[noreturn]] void RaiseFor(std::int32_t number, const PageField& field, const std::string& description) {
  throw Error(number, "LevelWidgets." + field.Name(), description);
}

}  // namespace

// --- Text boxes --------------------------------------------------------------------------------------

const ClassInfo& TextField::Table() {
  using Row = table::Row<TextField>;
  static constexpr auto data = ClassTable(
      ObjectClass("TextField", "A text box of a property page."),
      table::Properties(Row::ReadOnly<&TextField::Name>(1, "Name", "Its name on the page."),
                        Row::Property<&TextField::Text, &TextField::SetText>(
                            2, "Text", kNoDefault, "What it shows.", {.flags = MemberFlags::kDefault})));
  static constexpr ClassInfo info(data);
  return info;
}

void TextField::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  RaiseEdit();
}

void TextField::Show(std::string text) {
  text_ = std::move(text);
  Shown.Raise();
}

// --- Check boxes -------------------------------------------------------------------------------------

const ClassInfo& CheckField::Table() {
  using Row = table::Row<CheckField>;
  static constexpr auto data =
      ClassTable(ObjectClass("CheckField", "A check box of a property page."),
                 table::Properties(Row::ReadOnly<&CheckField::Name>(1, "Name", "Its name on the page."),
                                   Row::ReadOnly<&CheckField::Caption>(2, "Caption", "The text beside it."),
                                   Row::Property<&CheckField::Value, &CheckField::SetValue>(
                                       3, "Value", kNoDefault, "1 when it is checked, otherwise 0.",
                                       {.flags = MemberFlags::kDefault})));
  static constexpr ClassInfo info(data);
  return info;
}

void CheckField::SetValue(std::int16_t value) {
  if (value != 0 && value != 1) {
    RaiseFor(kInvalidPropertyValue, *this, "Value is 0 or 1, not " + std::to_string(value));
  }
  if (value == value_) return;
  value_ = value;
  RaiseEdit();
}

void CheckField::Show(bool checked) {
  value_ = checked ? 1 : 0;
  Shown.Raise();
}

// --- Lists -------------------------------------------------------------------------------------------

const ClassInfo& ListField::Table() {
  using Row = table::Row<ListField>;
  static constexpr auto data = ClassTable(
      ObjectClass("ListField", "A drop-down list of a property page."),
      table::Properties(
          Row::ReadOnly<&ListField::Name>(1, "Name", "Its name on the page."),
          Row::ReadOnly<&ListField::ListCount>(2, "ListCount", "The number of items."),
          Row::IndexedReadOnly<&ListField::List>(3, "List", "Index", "The item at a position from 0 on."),
          Row::Property<&ListField::ListIndex, &ListField::SetListIndex>(
              4, "ListIndex", kNoDefault, "The position of what is chosen, from 0; -1 for nothing."),
          Row::Property<&ListField::Text, &ListField::SetText>(5, "Text", kNoDefault, "What it shows.",
                                                               {.flags = MemberFlags::kDefault})));
  static constexpr ClassInfo info(data);
  return info;
}

ListField::ListField(const FieldInfo& info) : PageField(info), items_(info.items.begin(), info.items.end()) {}

std::string ListField::List(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) throw Error(kSubscriptOutOfRange);
  return items_[static_cast<std::size_t>(index)];
}

void ListField::SetListIndex(std::int32_t index) {
  if (index < -1 || index >= ListCount()) {
    RaiseFor(kInvalidPropertyValue, *this,
             "ListIndex is -1 to " + std::to_string(ListCount() - 1) + ", not " + std::to_string(index));
  }
  index_ = index;
  text_ = index < 0 ? "" : items_[static_cast<std::size_t>(index)];
  RaiseEdit(true);
}

void ListField::SetText(std::string text) {
  const std::int32_t index = IndexOf(text);
  if (!TakesTyping()) {
    if (index < 0) RaiseFor(kInvalidPropertyValue, *this, "The list has no item \"" + text + "\"");
    return SetListIndex(index);
  }
  if (text == text_) return;
  index_ = index;
  text_ = std::move(text);
  RaiseEdit();
}

void ListField::ShowIndex(std::int32_t index) {
  index_ = index < 0 || index >= ListCount() ? -1 : index;
  text_ = index_ < 0 ? "" : items_[static_cast<std::size_t>(index_)];
  Shown.Raise();
}

void ListField::ShowText(std::string text) {
  index_ = IndexOf(text);
  text_ = std::move(text);
  Shown.Raise();
}

void ListField::ShowItems(std::vector<std::string> items) {
  items_ = std::move(items);
  Refilled.Raise();
  ShowIndex(-1);
}

std::int32_t ListField::IndexOf(std::string_view text) const {
  const auto found = std::ranges::find(items_, text);
  return found == items_.end() ? -1 : static_cast<std::int32_t>(found - items_.begin());
}

// --- Labels and buttons ------------------------------------------------------------------------------

const ClassInfo& LabelField::Table() {
  using Row = table::Row<LabelField>;
  static constexpr auto data = ClassTable(
      ObjectClass("LabelField", "A text of a property page."),
      table::Properties(
          Row::ReadOnly<&LabelField::Name>(1, "Name", "Its name on the page."),
          Row::ReadOnly<&LabelField::Caption>(2, "Caption", "What it says.", MemberFlags::kDefault)));
  static constexpr ClassInfo info(data);
  return info;
}

void LabelField::Show(std::string caption) {
  caption_ = std::move(caption);
  Shown.Raise();
}

const ClassInfo& ButtonsField::Table() {
  using Row = table::Row<ButtonsField>;
  static constexpr auto data =
      ClassTable(ObjectClass("ButtonsField", "Buttons of a property page, counted from 0."),
                 table::Properties(
                     Row::ReadOnly<&ButtonsField::Name>(1, "Name", "Their name on the page."),
                     Row::ReadOnly<&ButtonsField::Count>(2, "Count", "How many there are."),
                     Row::IndexedReadOnly<&ButtonsField::Item>(
                         3, "Item", "Index", "The button at a position from 0 on.", MemberFlags::kDefault)));
  static constexpr ClassInfo info(data);
  return info;
}

std::string ButtonsField::Caption(std::int32_t index) const {
  if (index < 0 || index >= Count()) throw Error(kSubscriptOutOfRange);
  return std::string(Info().items[static_cast<std::size_t>(index)]);
}

void ButtonsField::Click(std::int32_t index) const {
  if (index < 0 || index >= Count()) throw Error(kSubscriptOutOfRange);
  Clicked.Raise(index);
}

ObjectRef ButtonsField::Item(std::int32_t index) const {
  if (index < 0 || index >= Count()) throw Error(kSubscriptOutOfRange);
  return std::make_shared<ButtonItem>(shared_from_this(), index);
}

const ClassInfo& ButtonItem::Table() {
  using Row = table::Row<ButtonItem>;
  static constexpr auto data = ClassTable(
      ObjectClass("ButtonItem", "A button of a property page."),
      table::Properties(
          Row::ReadOnly<&ButtonItem::Caption>(1, "Caption", "Its text; \"&\" marks the access key.")),
      table::Persisted(), table::Methods(Row::Method<&ButtonItem::Click>(2, "Click", "", "Presses it.")));
  static constexpr ClassInfo info(data);
  return info;
}

// --- All kinds ---------------------------------------------------------------------------------------

std::shared_ptr<PageField> MakeField(const FieldInfo& info) {
  switch (info.kind) {
    case FieldKind::kText: return std::make_shared<TextField>(info);
    case FieldKind::kCheck: return std::make_shared<CheckField>(info);
    case FieldKind::kList:
    case FieldKind::kCombo: return std::make_shared<ListField>(info);
    case FieldKind::kLabel:
    case FieldKind::kFrame: return std::make_shared<LabelField>(info);
    case FieldKind::kButtons: return std::make_shared<ButtonsField>(info);
  }
  return nullptr;
}

}  // namespace levelwidgets
