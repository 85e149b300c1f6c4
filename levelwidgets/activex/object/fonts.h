// The library's fonts and the system's, which containers have.
#pragma once

#include <memory>
#include <vector>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/frame/font.h>

namespace levelwidgets::activex {

// A font has one counterpart on the other side, and a change of either is one of both.
class Fonts {
 public:
  // Null for null. Raises 7 when the system cannot make one.
  ComPtr<IFontDisp> ToComponent(const FontRef& font);
  // Null for what is no font.
  FontRef FromComponent(IUnknown* object);

 private:
  class Pair;
  class Listener;

  std::shared_ptr<Pair> Find(const Font* font, IUnknown* component);
  void Join(const FontRef& font, const ComPtr<IFont>& component);

  std::vector<std::weak_ptr<Pair>> pairs_;
};

// What the system's font is, as a value.
FontDescription DescriptionOf(IFont& font);

}  // namespace levelwidgets::activex
