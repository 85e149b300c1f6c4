// The properties of a control as bytes, which streams hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets {

// All numbers have their lowest byte first.
//
//   header   "LWPB", the version (16 bits, 1), 16 bits that are 0, the body's length in bytes (32 bits)
//            and its CRC-32
//   body     the number of properties (32 bits), then for each: the length of its name (16 bits), the
//            name, the type of its value (8 bits, the position in VariantType) and the value
//   value    of a number its bytes; of a boolean one byte, 0 or 1; of a text its length in bytes
//            (32 bits) and UTF-8; of a font a text (name), a double (size in points), four booleans
//            (bold, italic, underline, strikethrough) and the character set (16 bits)
//
// What later versions add they add as properties, whose names loading passes over where it does not know
// them.
inline constexpr std::size_t kSavedHeaderSize = 16;
inline constexpr std::uint16_t kSavedVersion = 1;

// The error of bytes in any other format: "Invalid file format" of the automation layer.
inline constexpr std::int32_t kInvalidFileFormat = 321;

// Raises 13 for objects other than fonts, and for no font.
std::string ToSavedBytes(const PropertyBag& bag);
// A body with the header that fits it.
std::string WithSavedHeader(std::string_view body);

struct SavedHeader {
  std::uint32_t body_size = 0;
  std::uint32_t checksum = 0;
};
// Raises kInvalidFileFormat for another format, a later version, or a body of more than 256 MiB.
SavedHeader ReadSavedHeader(std::string_view header);
// Raises kInvalidFileFormat, with where and what, for a body that is damaged.
PropertyBag ReadSavedBody(const SavedHeader& header, std::string_view body);
// Header and body at once.
PropertyBag FromSavedBytes(std::string_view bytes);

}  // namespace levelwidgets
