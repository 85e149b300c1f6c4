// A compiled type library as a file, as far as it says which one it is.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <levelwidgets/activex/identity/guid.h>

namespace levelwidgets::doctor {

struct TypeLibrarySummary {
  Guid id;
  std::uint16_t major = 0;
  std::uint16_t minor = 0;
  std::vector<Guid> known;  // identifiers in it: of its types, and of the types of others that it names
};

// None for what is no such file, or ends too early.
std::optional<TypeLibrarySummary> ReadTypeLibrary(std::span<const std::uint8_t> file);

// What is wrong with a type library that should be the one of these components; "" for nothing.
std::string MismatchOf(const TypeLibrarySummary& library);

}  // namespace levelwidgets::doctor
