// Descriptions of public classes, derived from their tables.
#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// A stable format: { "class", "properties", "methods", "events", "enumerations" }, with "default_member"
// after the class where there is one. Colours are numbers from 0 to 0xFFFFFFFF, a font is an object of its
// parts; a default that the container gives is "ambient Font", "ambient DisplayName" and so on, and null
// where there is none. "persisted" is the name under which a value is saved, null when it is not; that of an
// indexed property is followed by the index ("TabCaption2"), and its defaults are those of index 1.
nlohmann::ordered_json DescribeAsJson(const ClassInfo& info);

// For people: a heading and a line or two per member.
std::string DescribeAsText(const ClassInfo& info);

}  // namespace levelwidgets
