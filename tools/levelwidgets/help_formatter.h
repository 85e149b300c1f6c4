// How the help of the program and its commands is laid out. Not for use outside this folder.
#pragma once

#include <CLI/CLI.hpp>

namespace levelwidgets {

// In words for people, in lines of at most 90 characters. Of a text's paragraphs, those that begin with two
// blanks (examples) stay as they are.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();

  std::string make_footer(const CLI::App* app) const override;
  std::string make_option_desc(const CLI::Option* option) const override;
};

// `text` with line breaks between words, so that no line is longer than `width` unless a word is.
std::string Wrapped(const std::string& text, std::size_t width);

}  // namespace levelwidgets
