#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

const char* StandardDescription(std::int32_t number) {
  switch (number) {
    case kInvalidCall: return "Invalid procedure call or argument";
    case kOverflow: return "Overflow";
    case kOutOfMemory: return "Out of memory";
    case kSubscriptOutOfRange: return "Subscript out of range";
    case kDivisionByZero: return "Division by zero";
    case kTypeMismatch: return "Type mismatch";
    case kInvalidPropertyValue: return "Invalid property value";
    case kPropertyIsReadOnly: return "Property is read-only";
    case kNoSuchMember: return "Object doesn't support this property or method";
    case kWrongNumberOfArguments: return "Wrong number of arguments";
    case kKeyInUse: return "This key is already associated with an element of this collection";
    default: return "Application-defined or object-defined error";
  }
}

}  // namespace

Error::Error(std::int32_t number) : Error(number, "LevelWidgets", StandardDescription(number)) {}

Error::Error(std::int32_t number, std::string source, std::string description)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      what_(description_ + " (error " + std::to_string(number_) + ", " + source_ + ")") {}

void RaiseControlError(std::int32_t code, std::string_view class_name, std::string_view description) {
  throw Error(ObjectErrorNumber(code), "LevelWidgets." + std::string(class_name), std::string(description));
}

}  // namespace levelwidgets
