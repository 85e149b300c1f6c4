#include <levelwidgets/pages/registry.h>

#include <algorithm>
#include <string>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/error.h>

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

const PageInfo& PageNamed(std::string_view name) {
  if (const PageInfo* page = FindPage(name)) return *page;
  std::vector<std::string_view> names;
  std::string list;
  for (const PageInfo* page : Pages()) {
    names.push_back(page->name);
    list += (list.empty() ? "" : ", ") + std::string(page->name);
  }
  const std::string_view nearest = NearestName(name, names);
  throw Error(
      kInvalidCall, "LevelWidgets",
      "There is no property page \"" + std::string(name) + "\"" +
          (nearest.empty() ? "; the pages: " + list : "; did you mean \"" + std::string(nearest) + "\"?"));
}

std::vector<const PageInfo*> PagesOf(std::string_view class_name) {
  std::vector<const PageInfo*> pages;
  std::ranges::copy_if(Pages(), std::back_inserter(pages),
                       [class_name](const PageInfo* page) { return page->serves == class_name; });
  return pages;
}

std::vector<FieldBinding> PropertiesOn(const PageInfo& page) {
  std::vector<FieldBinding> properties(page.bindings.begin(), page.bindings.end());
  const ChosenThing& chosen = page.chosen;
  if (!chosen.property.empty()) {
    properties.push_back({chosen.by, chosen.property});
  } else {
    for (const FieldBinding& read : chosen.reads) properties.push_back({chosen.by, read.property});
  }
  return properties;
}

}  // namespace levelwidgets
