#include <levelwidgets/activex/object/values.h>

#include <limits>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/object/dispatch.h>
#include <levelwidgets/activex/object/enumeration.h>
#include <levelwidgets/activex/object/fonts.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

namespace {

struct ToComponentValue {
  Runtime& runtime;
  VARIANT& result;

  void operator()(Empty) { result.vt = VT_EMPTY; }
  void operator()(Null) { result.vt = VT_NULL; }
  void operator()(bool value) {
    result.vt = VT_BOOL;
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::int16_t value) {
    result.vt = VT_I2;
    result.iVal = value;
  }
  void operator()(std::int32_t value) {
    result.vt = VT_I4;
    result.lVal = value;
  }
  void operator()(float value) {
    result.vt = VT_R4;
    result.fltVal = value;
  }
  void operator()(double value) {
    result.vt = VT_R8;
    result.dblVal = value;
  }
  void operator()(Date value) {
    result.vt = VT_DATE;
    result.date = value.days;
  }
  void operator()(const std::string& value) {
    BSTR const text = NewText(value);
    if (!text) throw Error(kOutOfMemory);
    result.vt = VT_BSTR;
    result.bstrVal = text;
  }
  void operator()(const FontRef& value) {
    result.pdispVal = runtime.GetFonts().ToComponent(value).Detach();
    result.vt = VT_DISPATCH;
  }
  void operator()(const ObjectRef& value) {
    if (const auto items = std::dynamic_pointer_cast<Enumerator>(value)) {
      result.punkVal = EnumerationOf(*items).Detach();
      result.vt = VT_UNKNOWN;
    } else {
      result.pdispVal = DispatchFor(runtime, value).Detach();
      result.vt = VT_DISPATCH;
    }
  }
};

template <typename T>
Variant WholeNumber(T value) {
  if (value >= std::numeric_limits<std::int32_t>::min() &&
      value <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(value);
  }
  return static_cast<double>(value);
}
Variant WholeNumber(unsigned long long value) {
  return value <= static_cast<unsigned long long>(std::numeric_limits<std::int32_t>::max())
             ? Variant(static_cast<std::int32_t>(value))
             : Variant(static_cast<double>(value));
}

// Colours and handles come as numbers without a sign, too.
Variant FourBytes(ULONG value) { return static_cast<std::int32_t>(value); }

Variant DefaultValueOf(Runtime& runtime, IDispatch& object) {
  DISPPARAMS none = {};
  OwnedVariant value;
  const HRESULT result = object.Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                       &none, &value, nullptr, nullptr);
  // An object whose value is an object, or a reference to one, would not end.
  const bool is_object = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN || (value.vt & VT_BYREF) != 0;
  if (FAILED(result) || is_object) throw Error(kTypeMismatch);
  return FromComponent(runtime, value);
}

Variant FromObject(Runtime& runtime, IUnknown* object) {
  if (!object) return ObjectRef();
  if (const auto own = As<OwnObject>(object)) return own->Inner();
  if (const FontRef font = runtime.GetFonts().FromComponent(object)) return font;
  const auto dispatch = As<IDispatch>(object);
  if (!dispatch) throw Error(kTypeMismatch);
  return DefaultValueOf(runtime, *dispatch.Get());
}

// In a type that the library has none of its own for.
Variant FromOther(Runtime& runtime, const VARIANT& value, VARTYPE through) {
  OwnedVariant changed;
  if (FAILED(::VariantChangeType(&changed, const_cast<VARIANT*>(&value), 0, through)))
    throw Error(kTypeMismatch);
  return FromComponent(runtime, changed);
}

Variant FromReference(Runtime& runtime, const VARIANT& value) {
  if (value.vt == (VT_BYREF | VT_VARIANT)) {
    if (!value.pvarVal || value.pvarVal->vt == (VT_BYREF | VT_VARIANT)) throw Error(kTypeMismatch);
    return FromComponent(runtime, *value.pvarVal);
  }
  if ((value.vt & VT_ARRAY) != 0 || !value.byref) throw Error(kTypeMismatch);
  OwnedVariant copy;
  if (FAILED(::VariantCopyInd(&copy, const_cast<VARIANT*>(&value)))) throw Error(kTypeMismatch);
  return FromComponent(runtime, copy);
}

}  // namespace

void ToComponent(Runtime& runtime, const Variant& value, VARIANT& result) {
  std::visit(ToComponentValue{runtime, result}, value.Get());
}

Variant FromComponent(Runtime& runtime, const VARIANT& value) {
  if ((value.vt & VT_BYREF) != 0) return FromReference(runtime, value);
  switch (value.vt) {
    case VT_EMPTY: return {};
    case VT_NULL: return Null();
    case VT_BOOL: return value.boolVal != VARIANT_FALSE;
    case VT_I1: return static_cast<std::int16_t>(static_cast<signed char>(value.cVal));
    case VT_UI1: return static_cast<std::int16_t>(value.bVal);
    case VT_I2: return static_cast<std::int16_t>(value.iVal);
    case VT_UI2: return static_cast<std::int32_t>(value.uiVal);
    case VT_I4: return static_cast<std::int32_t>(value.lVal);
    case VT_INT: return static_cast<std::int32_t>(value.intVal);
    case VT_UI4: return FourBytes(value.ulVal);
    case VT_UINT: return FourBytes(value.uintVal);
    case VT_I8: return WholeNumber(value.llVal);
    case VT_UI8: return WholeNumber(value.ullVal);
    case VT_R4: return value.fltVal;
    case VT_R8: return value.dblVal;
    case VT_CY:
    case VT_DECIMAL: return FromOther(runtime, value, VT_R8);
    case VT_DATE: return Date{value.date};
    case VT_BSTR: return TextOfBstr(value.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN: return FromObject(runtime, value.punkVal);
    case VT_ERROR:
      if (value.scode == DISP_E_PARAMNOTFOUND) return {};
      throw Error(kTypeMismatch);
    default: throw Error(kTypeMismatch);
  }
}

VARTYPE TypeOf(const MemberType& type) {
  switch (type.type) {
    case VariantType::kBoolean: return VT_BOOL;
    case VariantType::kInt16: return VT_I2;
    case VariantType::kInt32: return VT_I4;
    case VariantType::kSingle: return VT_R4;
    case VariantType::kDouble: return VT_R8;
    case VariantType::kDate: return VT_DATE;
    case VariantType::kString: return VT_BSTR;
    case VariantType::kFont:
    case VariantType::kObject: return VT_DISPATCH;
    default: return VT_VARIANT;
  }
}

void StoreByReference(Runtime& runtime, const Variant& value, const VARIANT& target) {
  if ((target.vt & VT_BYREF) == 0 || !target.byref) return;
  OwnedVariant given;
  ToComponent(runtime, value, given);
  if (target.vt == (VT_BYREF | VT_VARIANT)) {
    // A variant that is a reference itself stays one.
    if ((target.pvarVal->vt & VT_BYREF) != 0) return StoreByReference(runtime, value, *target.pvarVal);
    if (FAILED(::VariantCopy(target.pvarVal, &given))) throw Error(kTypeMismatch);
    return;
  }
  const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
  if (FAILED(::VariantChangeType(&given, &given, 0, type))) throw Error(kTypeMismatch);
  switch (type) {
    case VT_BSTR:
      ::SysFreeString(*target.pbstrVal);
      *target.pbstrVal = std::exchange(given.bstrVal, nullptr);
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      if (*target.ppunkVal) (*target.ppunkVal)->Release();
      *target.ppunkVal = std::exchange(given.punkVal, nullptr);
      break;
    case VT_UI1:
    case VT_I1: *target.pbVal = given.bVal; break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: *target.piVal = given.iVal; break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
    case VT_R4: *target.plVal = given.lVal; break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE: *target.pllVal = given.llVal; break;
    default: throw Error(kTypeMismatch);
  }
}

}  // namespace levelwidgets::activex
