// The one exception type of the library.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace levelwidgets {

// Numbers of the automation layer.
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kInvalidPropertyValue = 380;
inline constexpr std::int32_t kPropertyIsReadOnly = 383;
inline constexpr std::int32_t kNoSuchMember = 438;
inline constexpr std::int32_t kWrongNumberOfArguments = 450;
inline constexpr std::int32_t kKeyInUse = 457;

// Codes of the controls' own errors, see RaiseControlError.
inline constexpr std::int32_t kInvalidTabCode = 1001;
inline constexpr std::int32_t kInvalidValueCode = 1002;
inline constexpr std::int32_t kInvalidRowCode = 1003;
inline constexpr std::int32_t kInvalidColumnCode = 1004;
inline constexpr std::int32_t kInvalidRowCountCode = 1005;

class Error : public std::exception {
 public:
  // An error of the automation layer, with its standard description.
  explicit Error(std::int32_t number);
  Error(std::int32_t number, std::string source, std::string description);

  std::int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
  std::string what_;  // "description (error number, source)"
};

// The number of a control's own error: 0x80040000 plus the code.
constexpr std::int32_t ObjectErrorNumber(std::int32_t code) {
  return static_cast<std::int32_t>(0x80040000u + static_cast<std::uint32_t>(code));
}

// Throws the error by which a control rejects a value or an index: source "LevelWidgets." + class_name.
[[noreturn]] void RaiseControlError(std::int32_t code, std::string_view class_name,
                                    std::string_view description);

}  // namespace levelwidgets
