// Use without registration: a manifest beside the library says what the registry would say, to programs whose
// own manifest names it.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets {

// "LevelWidgets.x64" or "LevelWidgets.x86": what a program's manifest depends on, and the manifest's file is
// named by.
std::string AssemblyName(int bits);
// "levelwidgets_x64.dll" or "levelwidgets_x86.dll".
std::string LibraryFileName(int bits);

// The manifest of the library for programs of 64 or 32 bits, as XML.
std::string LibraryManifest(int bits);

// Of a program that is to find the components beside it: what its manifest has to contain.
std::string DependencyText(int bits);

}  // namespace levelwidgets
