// The property pages that this library has.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include <levelwidgets/pages/page_info.h>

namespace levelwidgets {

const PageInfo& ppFlatButton();
const PageInfo& ppFlatCalculator();
const PageInfo& ppFlatCalendar();
const PageInfo& ppFlatDropDown();
const PageInfo& ppFlatGrid();
const PageInfo& ppFlatGridColumns();
const PageInfo& ppFlatLabel();
const PageInfo& ppFlatScroll();
const PageInfo& ppFlatTabStrip();
const PageInfo& ppFlatTextBox();

// All of them; those of one class in the order of their tabs.
std::span<const PageInfo* const> Pages();
// By "ppFlatGrid" or "LevelWidgets.ppFlatGrid"; null for an unknown name.
const PageInfo* FindPage(std::string_view name);
// The same; raises 5 for an unknown name and suggests the nearest one.
const PageInfo& PageNamed(std::string_view name);
// Those that serve the class of that name ("FlatGrid"); none for another name.
std::vector<const PageInfo*> PagesOf(std::string_view class_name);
// The properties of the control that the page shows, each with the field in which a person begins to edit it:
// that of a caption of a tab is the list of tabs.
std::vector<FieldBinding> PropertiesOn(const PageInfo& page);

}  // namespace levelwidgets
