// A property page as a component.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/pages/page_info.h>

namespace levelwidgets::activex {

// One implementation for all pages: what a page has comes from its table. A page is no part of another object
// (aggregation).
HRESULT CreatePropertyPage(const PageInfo& info, IUnknown* outer, REFIID iid, void** made);

}  // namespace levelwidgets::activex
