#include <levelwidgets/pages/registry.h>

#include <algorithm>

namespace levelwidgets {

std::span<const PageInfo* const> Pages() {
  static const PageInfo* const pages[] = {
      &ppFlatButton(),      &ppFlatCalculator(), &ppFlatCalendar(), &ppFlatDropDown(), &ppFlatGrid(),
      &ppFlatGridColumns(), &ppFlatLabel(),      &ppFlatScroll(),   &ppFlatTabStrip(), &ppFlatTextBox()};
  return pages;
}

const PageInfo* FindPage(std::string_view name) {
  constexpr std::string_view kLibrary = "LevelWidgets.";
  if (name.starts_with(kLibrary)) name.remove_prefix(kLibrary.size());
  const auto found = std::ranges::find(Pages(), name, &PageInfo::name);
  return found == Pages().end() ? nullptr : *found;
}

std::vector<const PageInfo*> PagesOf(std::string_view class_name) {
  std::vector<const PageInfo*> pages;
  std::ranges::copy_if(Pages(), std::back_inserter(pages),
                       [class_name](const PageInfo* page) { return page->serves == class_name; });
  return pages;
}

}  // namespace levelwidgets
