#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/members.h>

#include <algorithm>
#include <map>
#include <mutex>

#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::activex {

namespace {

struct StockMember {
  DISPID id;
  std::string_view name;
};

constexpr StockMember kStockMembers[]{
    {DISPID_BACKCOLOR, "BackColor"}, {DISPID_FORECOLOR, "ForeColor"}, {DISPID_FONT, "Font"},
    {DISPID_ENABLED, "Enabled"},     {DISPID_HWND, "hWnd"},           {DISPID_TEXT, "Text"},
    {DISPID_CAPTION, "Caption"},     {DISPID_REFRESH, "Refresh"},
};

}  // namespace

std::string InSmallLetters(std::string_view name) {
  std::string letters(name);
  std::ranges::transform(letters, letters.begin(), text::AsciiLower);
  return letters;
}

std::string_view StockName(DISPID id) {
  const auto* const found = std::ranges::find(kStockMembers, id, &StockMember::id);
  return found == std::end(kStockMembers) ? std::string_view() : found->name;
}

const MemberTable& MemberTable::Of(const ClassInfo& info) {
  static std::mutex making;
  static std::map<const ClassInfo*, MemberTable> tables;
  const std::lock_guard lock(making);
  return tables.try_emplace(&info, info).first->second;
}

MemberTable::MemberTable(const ClassInfo& info) : info_(info) {
  const auto add = [this](int number, Member member) {
    const auto place = static_cast<std::size_t>(number);
    if (members_.size() <= place) members_.resize(place + 1);
    members_[place] = member;
    ids_[InSmallLetters(member.Name())] = number;
  };
  for (const PropertyInfo& property : info.Properties()) add(property.number, {&property, nullptr});
  for (const MethodInfo& method : info.Methods()) add(method.number, {nullptr, &method});
  // As the type library has them.
  if (!info.DefaultMember().empty()) ids_["_default"] = DISPID_VALUE;
  if (!info.EnumeratorMember().empty()) ids_["_newenum"] = DISPID_NEWENUM;
}

DISPID MemberTable::IdOf(std::string_view name) const {
  const auto found = ids_.find(InSmallLetters(name));
  return found == ids_.end() ? DISPID_UNKNOWN : found->second;
}

DISPID MemberTable::ArgumentIdOf(DISPID member, std::string_view argument) const {
  const Member found = Find(member);
  if (!found) return DISPID_UNKNOWN;
  DISPID position = 0;
  for (const ArgumentInfo& each : found.Arguments()) {
    if (InSmallLetters(each.name) == InSmallLetters(argument)) return position;
    ++position;
  }
  return DISPID_UNKNOWN;
}

Member MemberTable::Find(DISPID id) const {
  if (id > 0)
    return static_cast<std::size_t>(id) < members_.size() ? members_[static_cast<std::size_t>(id)] : Member();
  if (id == DISPID_VALUE) return Named(info_.DefaultMember());
  if (id == DISPID_NEWENUM) return Named(info_.EnumeratorMember());
  return Named(StockName(id));
}

Member MemberTable::Named(std::string_view name) const {
  return {info_.FindProperty(name), info_.FindMethod(name)};
}

}  // namespace levelwidgets::activex
