// Texts of the component interface.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include <levelwidgets/activex/com/component_interface.h>

namespace levelwidgets::activex {

// A text that its owner frees. Null when memory runs out.
BSTR NewText(std::string_view utf8);
// Of a null text "". A half of a pair of surrogates becomes a replacement character.
std::string TextOf(const OLECHAR* text);
// With zeros inside.
std::string TextOfBstr(BSTR text);

// Frees its text.
class OwnedText {
 public:
  explicit OwnedText(std::string_view utf8) : text_(NewText(utf8)) {}
  OwnedText(const OwnedText&) = delete;
  OwnedText& operator=(const OwnedText&) = delete;
  ~OwnedText() { ::SysFreeString(text_); }
  BSTR Get() const { return text_; }
  BSTR Detach() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_;
};

}  // namespace levelwidgets::activex
