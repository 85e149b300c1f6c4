// Numbers and texts in a file that may be damaged.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace levelwidgets::doctor {

// The file ends, or points, where nothing is.
class Damaged : public std::runtime_error {
 public:
  Damaged() : std::runtime_error("damaged") {}
};

class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::span<const std::uint8_t> Part(std::uint64_t at, std::uint64_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at) throw Damaged();
    return bytes_.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
  }
  std::uint16_t Word(std::uint64_t at) const {
    const auto part = Part(at, 2);
    return static_cast<std::uint16_t>(part[0] | part[1] << 8);
  }
  std::uint32_t Long(std::uint64_t at) const {
    return Word(at) | static_cast<std::uint32_t>(Word(at + 2)) << 16;
  }
  // Up to a zero.
  std::string Text(std::uint64_t at) const {
    std::string text;
    for (; Part(at, 1)[0] != 0; ++at) text += static_cast<char>(Part(at, 1)[0]);
    return text;
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace levelwidgets::doctor
