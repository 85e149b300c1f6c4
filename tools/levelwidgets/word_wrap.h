// Texts of the help in lines. Not for use outside this folder.
#pragma once

#include <string>

namespace levelwidgets {

// `text` with line breaks between words, so that no line is longer than `width` unless a word is. Lines that
// begin with two blanks (examples) stay as they are.
std::string Wrapped(const std::string& text, std::size_t width);

}  // namespace levelwidgets
