// What tests compare of the two ways to read a form file's text.
#pragma once

#include <sstream>
#include <string>

#include <levelwidgets/host/form_file/document_plain.h>
#include <levelwidgets/host/form_file/document_toml.h>

namespace levelwidgets {

// All that a tree says, a line for each node.
inline void WriteTree(std::ostream& out, const FormNode& node, int depth) {
  out << std::string(static_cast<std::size_t>(depth) * 2, ' ') << '"' << node.key << "\" kind "
      << static_cast<int>(node.kind) << " shape " << static_cast<int>(node.shape) << " key "
      << node.key_span.begin << '-' << node.key_span.end << " value " << node.span.begin << '-'
      << node.span.end << " is " << node.scalar.index() << ' ';
  if (const auto* boolean = std::get_if<bool>(&node.scalar)) out << *boolean;
  if (const auto* integer = std::get_if<std::int64_t>(&node.scalar)) out << *integer;
  if (const auto* number = std::get_if<double>(&node.scalar)) out << std::hexfloat << *number;
  if (const auto* text = std::get_if<std::string>(&node.scalar)) out << '"' << *text << '"';
  if (const auto* date = std::get_if<Date>(&node.scalar)) out << std::hexfloat << date->days;
  out << '\n';
  for (const FormNode& child : node.children) WriteTree(out, child, depth + 1);
}

inline std::string TreeOf(const FormNode& root) {
  std::ostringstream out;
  WriteTree(out, root, 0);
  return out.str();
}

// The tree that the library makes of `text`; what it says against it, where it is no TOML.
inline std::string LibrarysTreeOf(const std::string& text) {
  const auto parsed = ParseToml(text);
  const auto* error = std::get_if<FormSyntaxError>(&parsed);
  return error ? "refused: " + error->message : TreeOf(std::get<FormNode>(parsed));
}

}  // namespace levelwidgets
