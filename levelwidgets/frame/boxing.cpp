#include <levelwidgets/frame/boxing.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::table {

Variant Box(bool value) { return value; }
Variant Box(std::int16_t value) { return value; }
Variant Box(std::int32_t value) { return value; }
Variant Box(float value) { return value; }
Variant Box(double value) { return value; }
Variant Box(Date value) { return value; }
Variant Box(std::string value) { return value; }
Variant Box(std::string_view value) { return value; }
Variant Box(FontRef value) { return value; }
Variant Box(ObjectRef value) { return value; }

template <typename T>
const T& Held(const Variant& value) {
  const T* held = std::get_if<T>(&value.Get());
  if (!held) throw Error(kTypeMismatch);
  return *held;
}
template const bool& Held(const Variant&);
template const std::int16_t& Held(const Variant&);
template const std::int32_t& Held(const Variant&);
template const float& Held(const Variant&);
template const double& Held(const Variant&);
template const Date& Held(const Variant&);
template const std::string& Held(const Variant&);
template const FontRef& Held(const Variant&);
template const ObjectRef& Held(const Variant&);

}  // namespace levelwidgets::table
