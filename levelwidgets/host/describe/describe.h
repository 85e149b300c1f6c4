// Descriptions of public classes, derived from their tables.
#pragma once

#include <span>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// The controls, the public classes that are no controls, then Font, Form and Placement (what a form adds to
// each control).
std::vector<const ClassInfo*> DescribedClasses();

// A stable format: { "class", "properties", "methods", "events", "enumerations" }, with "default_member"
// after the class where there is one. Colours are numbers from 0 to 0xFFFFFFFF, a font is an object of its
// parts; a default that the container gives is "ambient Font", "ambient DisplayName" and so on, and null
// where there is none. "persisted" is the name under which a value is saved, null when it is not; that of an
// indexed property is followed by the index ("TabCaption2"), and its defaults are those of index 1. A
// collection that is saved with its control has "items": the key of their number, what the keys of an item
// begin with, and the class of the items, whose persisted properties end them ("Column2Width").
nlohmann::ordered_json DescribeAsJson(const ClassInfo& info);

// For people: a heading and a line or two per member.
std::string DescribeAsText(const ClassInfo& info);

// A page: the heading, the help, then a table for each kind of member. Types that have a page of their own
// are linked as files beside it.
std::string DescribeAsMarkdown(const ClassInfo& info);

// A JSON Schema (draft 7, which editors' TOML tools know best) of form files with controls of `controls`. It
// accepts what loads without a warning, except for names that are used twice; an enumeration's numbers are
// those of its items.
nlohmann::ordered_json FormSchema(std::span<const ClassInfo* const> controls);
// The same of the Properties of one class by themselves.
nlohmann::ordered_json PropertiesSchema(const ClassInfo& control);

}  // namespace levelwidgets
