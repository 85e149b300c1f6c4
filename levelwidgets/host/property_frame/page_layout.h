// Where the fields of a property page stand.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/pages/page_info.h>

namespace levelwidgets {

// A control of a page's view.
struct PagePart {
  enum class Kind { kField, kLabel, kButton };

  const FieldInfo* field = nullptr;
  Kind kind = Kind::kField;
  std::string name = {};     // of the control
  std::string caption = {};  // of a label or a button
  int index = 0;             // of a button, from 0
  Placement place = {};      // always with a size
};

struct PageLayout {
  std::vector<PagePart> parts;  // in the order of the Tab key; a frame comes before what stands in it
  TwipSize size;
};

// The fields below each other, each with its caption to the left, from (0, 0) on. `width_of` measures a
// text, "&" included, in twips.
PageLayout LayOutPage(const PageInfo& page, const std::function<Twips(std::string_view)>& width_of);

}  // namespace levelwidgets
