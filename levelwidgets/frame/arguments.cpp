#include <levelwidgets/frame/arguments.h>

namespace levelwidgets {

namespace {
constexpr std::string_view kOutput = "out ";
}

ArgumentInfo ArgumentList::operator[](std::size_t position) const {
  std::string_view rest = names_;
  for (std::size_t i = 0; i < position; ++i) rest.remove_prefix(rest.find(',') + 1);
  rest = rest.substr(0, rest.find(','));
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  ArgumentInfo argument{rest, types_[position].type, types_[position].by_reference};
  if (rest.starts_with(kOutput)) {
    argument.name.remove_prefix(kOutput.size());
    argument.output = true;
  }
  const std::size_t needed = size() - defaults_.size();
  if (position >= needed) argument.default_value = defaults_[position - needed];
  return argument;
}

}  // namespace levelwidgets
