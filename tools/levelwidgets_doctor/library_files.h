// Libraries as files, as programs of one bitness find them.
#pragma once

#include <string>

#include <tools/levelwidgets_doctor/facts.h>

namespace levelwidgets::doctor {

// Of this program.
inline constexpr int kOwnBits = static_cast<int>(8 * sizeof(void*));

// The whole file; none where it is not there or cannot be read.
std::optional<std::vector<std::uint8_t>> BytesOfFile(const std::string& path);

// `program_folder` is where the program lies that loads it; "" for any program.
LibraryFacts FactsOfLibrary(const std::string& path, int bits, const std::string& program_folder);

// Of a file of its own, or of the one in a library, which may have a number behind it ("x.dll\1").
TypeLibraryEntry FactsOfTypeLibrary(const std::string& where, const std::string& path);

}  // namespace levelwidgets::doctor
