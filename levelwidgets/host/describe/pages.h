// Descriptions of property pages, derived from their data.
#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

#include <levelwidgets/pages/page_info.h>

namespace levelwidgets {

// A stable format: { "page", "title", "serves", "fields", "reads", "writes" }. A field has { "name", "kind",
// "caption", "items", "label", "frame", "property", "refusal", "marks_by_choice_only" }: its kind is "text",
// "check", "list", "combo", "label", "buttons" or "frame"; "label" is the name of the text beside it, "frame"
// that of the frame around it, "refusal" the text with which it refuses to be left, each null for none.
// "reads" and "writes" are properties in the order in which the page reads and writes them. One of a chosen
// thing names the field in which it is chosen: "Columns(cmbColumn).Width", "TabCaption(cmbTab)".
nlohmann::ordered_json DescribeAsJson(const PageInfo& page);

// For people: a heading and a line or two per field.
std::string DescribeAsText(const PageInfo& page);

// A page: the heading, what it is for, a table of its fields and the orders. The class that it serves is
// linked as a file beside it.
std::string DescribeAsMarkdown(const PageInfo& page);

}  // namespace levelwidgets
