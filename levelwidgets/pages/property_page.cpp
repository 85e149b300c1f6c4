#include <levelwidgets/pages/property_page.h>

#include <algorithm>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

// --- Life --------------------------------------------------------------------------------------------

std::shared_ptr<PropertyPage> PropertyPage::Create(const PageInfo& info, ConversionApi& conversions) {
  const auto page = info.create ? info.create(info, conversions) : MakePage<PropertyPage>(info, conversions);
  for (const auto& field : page->fields_) {
    page->Connect(field->Edited,
                  [&page = *page, &field = *field](bool chosen) { page.NoteEdit(field, chosen); });
  }
  page->OnCreated();
  return page;
}

PropertyPage::PropertyPage(const PageInfo& info, ConversionApi& conversions)
    : info_(info), conversions_(conversions) {
  for (const FieldInfo& field : info.fields) fields_.push_back(MakeField(field));
}

std::shared_ptr<PageField> PropertyPage::Find(std::string_view name) const {
  const auto found =
      std::ranges::find_if(fields_, [name](const auto& field) { return field->Info().name == name; });
  return found == fields_.end() ? nullptr : *found;
}

// --- Showing and writing -----------------------------------------------------------------------------

void PropertyPage::SelectionChanged(std::vector<PageTargetRef> selected) {
  const auto keep = shared_from_this();
  const PageTargetRef target = selected.empty() ? nullptr : selected.front();
  const std::vector<Variant> values = target ? Read(*target, info_.bindings) : std::vector<Variant>();
  OnRead(target.get());
  target_ = target;
  target ? Show(info_.bindings, values) : Empty(info_.bindings);
  OnShown();
  edited_ = false;
  SetChanged(false);
}

std::vector<Variant> PropertyPage::Read(PageTarget& target, std::span<const FieldBinding> bindings) const {
  std::vector<Variant> values;
  for (const FieldBinding& binding : bindings) {
    values.push_back(Presented(Find(binding.field)->Info().kind, target.Get(binding.property)));
  }
  return values;
}

void PropertyPage::Show(std::span<const FieldBinding> bindings, const std::vector<Variant>& values) const {
  for (std::size_t i = 0; i < bindings.size(); ++i) ShowValue(*Find(bindings[i].field), values[i]);
}

void PropertyPage::Empty(std::span<const FieldBinding> bindings) const {
  Show(bindings, std::vector<Variant>(bindings.size()));
}

// As the field shows it: a text, or a whole number.
Variant PropertyPage::Presented(FieldKind kind, const Variant& value) const {
  if (kind == FieldKind::kCheck) return ToInt32(value) & 1;
  return kind == FieldKind::kList ? Variant(ToInt32(value))
                                  : ConvertTo(VariantType::kString, value, conversions_);
}

void PropertyPage::ShowValue(PageField& field, const Variant& value) {
  switch (field.Info().kind) {
    case FieldKind::kText: return static_cast<TextField&>(field).Show(ToText(value));
    case FieldKind::kCheck: return static_cast<CheckField&>(field).Show(ToInt32(value) == 1);
    case FieldKind::kList:
      return static_cast<ListField&>(field).ShowIndex(value.IsEmpty() ? -1 : ToInt32(value));
    case FieldKind::kCombo: return static_cast<ListField&>(field).ShowText(ToText(value));
    case FieldKind::kLabel:
    case FieldKind::kFrame:
    case FieldKind::kButtons: return;
  }
}

void PropertyPage::ApplyChanges() {
  const auto keep = shared_from_this();
  if (const PageTargetRef target = target_) OnApply(*target);
  edited_ = false;
  SetChanged(false);
}

void PropertyPage::OnApply(PageTarget& target) { Write(target, ToWrite(info_.bindings)); }

PropertyPage::Values PropertyPage::ToWrite(std::span<const FieldBinding> bindings) const {
  Values values;
  for (const auto& [name, property] : bindings) {
    PageField& field = *Find(name);
    if (const auto value = ValueOf(field)) values.emplace_back(property, *value);
  }
  return values;
}

std::optional<Variant> PropertyPage::ValueOf(const PageField& field) const {
  switch (field.Info().kind) {
    case FieldKind::kText: return static_cast<const TextField&>(field).Text();
    case FieldKind::kCheck: return static_cast<const CheckField&>(field).Value() == 1;
    case FieldKind::kCombo: return static_cast<const ListField&>(field).Text();
    case FieldKind::kList: {
      const std::int32_t index = static_cast<const ListField&>(field).ListIndex();
      return index < 0 ? std::nullopt : std::optional<Variant>(index);
    }
    case FieldKind::kLabel:
    case FieldKind::kFrame:
    case FieldKind::kButtons: break;
  }
  return std::nullopt;
}

void PropertyPage::Write(PageTarget& target, const Values& values) {
  for (const auto& [property, value] : values) target.Set(property, value);
}

// --- Edits -------------------------------------------------------------------------------------------

std::optional<std::string> PropertyPage::Leave(std::string_view name) {
  const auto keep = shared_from_this();
  const auto field = Find(name);
  if (!field) {
    std::vector<std::string_view> names;
    for (const FieldInfo& known : info_.fields) names.push_back(known.name);
    RaiseNoSuchMember(info_.name, name, names);
  }
  const std::string_view refusal = field->Info().refusal;
  if (!refusal.empty() && !IsNumeric(static_cast<TextField&>(*field))) return std::string(refusal);
  OnLeft(*field);
  return std::nullopt;
}

PropertyPage::Edit PropertyPage::OnEdited(PageField& field, bool chosen) {
  return field.Info().marks_by_choice_only && !chosen ? Edit::kUnmarked : Edit::kChange;
}

void PropertyPage::NoteEdit(PageField& field, bool chosen) {
  const Edit edit = OnEdited(field, chosen);
  if (edit != Edit::kNone) edited_ = true;
  if (edit == Edit::kChange) SetChanged(true);
}

void PropertyPage::SetChanged(bool changed) {
  if (std::exchange(changed_, changed) != changed) ChangedNotified.Raise();
}

// --- Texts -------------------------------------------------------------------------------------------

bool PropertyPage::IsNumeric(const TextField& field) const {
  return conversions_.IsNumeric(std::string_view(field.Text()));
}

std::vector<std::string> PropertyPage::Numbered(std::string_view word, std::int32_t count) {
  std::vector<std::string> items;
  for (std::int32_t i = 1; i <= count; ++i) items.push_back(std::string(word) + " " + std::to_string(i));
  return items;
}

}  // namespace levelwidgets
