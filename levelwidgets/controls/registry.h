// The public classes that this library has.
#pragma once

#include <span>
#include <string_view>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// In alphabetical order of their folders.
std::span<const ClassInfo* const> ControlClasses();
// Classes that are no controls; users may make objects of those that are Creatable().
std::span<const ClassInfo* const> ObjectClasses();

// By "FlatButton" or "LevelWidgets.FlatButton"; null when there is none of that name.
const ClassInfo* FindControlClass(std::string_view name);
const ClassInfo* FindObjectClass(std::string_view name);

}  // namespace levelwidgets
