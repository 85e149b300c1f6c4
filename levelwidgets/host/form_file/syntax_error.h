// What is wrong with a text that cannot be read as TOML, in words for the one who wrote it.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets {

// `description` is the parser's ("Error while parsing string: ..."), `rest` the text from the place it names.
std::string ExplainSyntaxError(std::string_view description, std::string_view rest);

// `offset` is that of the first byte that does not belong to well-formed UTF-8.
std::string ExplainInvalidUtf8(std::string_view text, std::size_t offset);

}  // namespace levelwidgets
