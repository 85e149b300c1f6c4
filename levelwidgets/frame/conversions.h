// The platform's conversions for the frame's values and errors.
#pragma once

#include <utility>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/frame/variant.h>
#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

// Refers to a text of `value`. Raises 13 (type mismatch) for a font and an object.
ConversionValue ToConversionValue(const Variant& value);

// The result of a conversion; raises the error by which it failed.
template <typename T>
T ResultOf(Converted<T> converted) {
  if (!converted) throw Error(static_cast<std::int32_t>(converted.status));
  return std::move(converted.value);
}

}  // namespace levelwidgets
