// A property page with something to show, for pictures and trials.
#pragma once

#include <memory>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/pages/page_info.h>

namespace levelwidgets {

// The form of a PropertyFrame, hidden, with `page` in front, for a new control of the class that the page
// serves. Where a new control has nothing to show it has sample values: columns, tabs or items of a list; on
// a page that shows one of them at a time the first is chosen. What is returned keeps the control as well.
std::shared_ptr<Form> MakeSamplePage(Platform& platform, const PageInfo& page);

}  // namespace levelwidgets
