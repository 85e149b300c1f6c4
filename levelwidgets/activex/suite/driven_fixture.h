// An object of the library and its component, driven alike: each step leaves a line that says what came of
// it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/activex/testing/component_fixture.h>
#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

// --- What both sides write of a value ------------------------------------------------------------

inline std::string Shortened(const std::string& text) {
  return text.size() <= 200 ? text : text.substr(0, 20) + "... of " + std::to_string(text.size());
}

inline std::string ValueLine(const Variant& value) {
  if (const auto* object = std::get_if<ObjectRef>(&value.Get())) return *object ? "object" : "no object";
  if (const auto* font = std::get_if<FontRef>(&value.Get())) return *font ? "object" : "no object";
  return Shortened(Describe(value)) + " (" + std::string(NameOf(value.Type())) + ")";
}

inline std::string ValueLine(const VARIANT& value) {
  if (value.vt == (VT_BYREF | VT_VARIANT)) return ValueLine(*value.pvarVal);
  switch (value.vt & ~VT_BYREF) {
    case VT_DISPATCH:
    case VT_UNKNOWN: return value.punkVal ? "object" : "no object";
    case VT_EMPTY: return ValueLine(Variant());
    case VT_NULL: return ValueLine(Variant(Null()));
    default: break;
  }
  OwnedVariant plain;
  if (FAILED(::VariantCopyInd(&plain, const_cast<VARIANT*>(&value)))) return "no value";
  switch (plain.vt) {
    case VT_BOOL: return ValueLine(Variant(plain.boolVal != VARIANT_FALSE));
    case VT_I2: return ValueLine(Variant(std::int16_t{plain.iVal}));
    case VT_I4: return ValueLine(Variant(static_cast<std::int32_t>(plain.lVal)));
    case VT_R4: return ValueLine(Variant(plain.fltVal));
    case VT_R8: return ValueLine(Variant(plain.dblVal));
    case VT_DATE: return ValueLine(Variant(Date{plain.date}));
    case VT_BSTR: return ValueLine(Variant(TextOfBstr(plain.bstrVal)));
    default: return "a value of type " + std::to_string(plain.vt);
  }
}

// --- One side ------------------------------------------------------------------------------------

using Arguments = std::vector<Variant>;

// Each answers what came of it: "= 12 (Long)", "done", or "error 13 of LevelWidgets.FlatScroll: Type
// mismatch".
class Driven {
 public:
  virtual ~Driven() = default;
  virtual std::string Read(const PropertyInfo& property, const Arguments& indices) = 0;
  virtual std::string Write(const PropertyInfo& property, const Arguments& indices, const Variant& value) = 0;
  virtual std::string Run(const MethodInfo& method, const Arguments& arguments) = 0;
  // What For Each reads of `property` of each item.
  virtual std::vector<std::string> ReadItems(const PropertyInfo& property) = 0;
};

// Automation numbers as they are in both worlds.
inline std::string ErrorLine(std::int32_t number, const std::string& source, const std::string& description) {
  if ((number & static_cast<std::int32_t>(0xFFFF0000)) == static_cast<std::int32_t>(0x800A0000))
    number &= 0xFFFF;
  return "error " + std::to_string(number) + " of " + source + ": " + Shortened(description);
}

class DrivenObject : public Driven {
 public:
  DrivenObject(Object& object, TextConversions texts) : object_(object), texts_(texts) {}
  DrivenObject(ObjectRef object, TextConversions texts)
      : held_(std::move(object)), object_(*held_), texts_(texts) {}

  const Object& Driving() const { return object_; }

  std::string Read(const PropertyInfo& property, const Arguments& indices) override {
    return Line([&] {
      if (property.Indexed())
        return "= " + ValueLine(GetIndexedByName(object_, property.name, indices, texts_));
      return "= " + ValueLine(GetByName(object_, property.name));
    });
  }
  std::string Write(const PropertyInfo& property, const Arguments& indices, const Variant& value) override {
    return Line([&] {
      if (property.Indexed()) {
        SetIndexedByName(object_, property.name, indices, value, texts_);
      } else {
        SetByName(object_, property.name, value, texts_);
      }
      return std::string("done");
    });
  }
  std::string Run(const MethodInfo& method, const Arguments& arguments) override {
    return Line([&] {
      Arguments values = arguments;
      const Variant result = InvokeByReference(object_, method.name, values, texts_);
      std::string line = method.result.kind == TypeKind::kNone ? "done" : "= " + ValueLine(result);
      for (std::size_t i = 0; i < arguments.size() && i < method.arguments.size(); ++i) {
        if (method.arguments[i].by_reference) line += ", " + ValueLine(values[i]);
      }
      return line;
    });
  }
  // The object that a property, or a method, of that name gives; null where it gives none.
  std::unique_ptr<DrivenObject> Part(std::string_view member, const Arguments& arguments) const {
    if (object_.Class().FindMethod(member)) {
      return PartOf(InvokeByName(object_, member, arguments, texts_));
    }
    if (!arguments.empty()) return PartOf(GetIndexedByName(object_, member, arguments, texts_));
    return PartOf(GetByName(object_, member));
  }
  std::vector<std::string> ReadItems(const PropertyInfo& property) override {
    std::vector<std::string> lines;
    const auto items = Enumerate(object_);
    while (!items->AtEnd()) lines.push_back(PartOf(items->Next())->Read(property, {}));
    return lines;
  }

 private:
  std::unique_ptr<DrivenObject> PartOf(const Variant& value) const {
    const ObjectRef* const object = std::get_if<ObjectRef>(&value.Get());
    return object && *object ? std::make_unique<DrivenObject>(*object, texts_) : nullptr;
  }

  template <typename Step>
  std::string Line(Step step) {
    try {
      return step();
    } catch (const Error& error) {
      const std::string source = error.Source().empty() ? object_.Class().QualifiedName() : error.Source();
      return ErrorLine(error.Number(), source, error.Description());
    }
  }

  ObjectRef held_;
  Object& object_;
  TextConversions texts_;
};

class DrivenComponent : public Driven {
 public:
  // Values go by reference to a variant, or as they are.
  DrivenComponent(IUnknown* object, bool by_reference)
      : dispatch_(As<IDispatch>(object)), by_reference_(by_reference) {}

  std::string Read(const PropertyInfo& property, const Arguments& indices) override {
    return Invoke(property.number, DISPATCH_PROPERTYGET, indices, nullptr);
  }
  std::string Write(const PropertyInfo& property, const Arguments& indices, const Variant& value) override {
    return Invoke(property.number, DISPATCH_PROPERTYPUT, indices, &value);
  }
  std::string Run(const MethodInfo& method, const Arguments& arguments) override {
    return Invoke(method.number, DISPATCH_METHOD, arguments, nullptr, &method);
  }
  // As of an object.
  std::unique_ptr<DrivenComponent> Part(std::string_view member, const Arguments& arguments) {
    OwnedVariant part;
    Invoke(IdOf(dispatch_.Get(), std::string(member).c_str()), DISPATCH_METHOD | DISPATCH_PROPERTYGET,
           arguments, nullptr, nullptr, &part);
    return PartOf(part);
  }
  std::vector<std::string> ReadItems(const PropertyInfo& property) override {
    OwnedVariant items;
    Invoke(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, nullptr, nullptr, &items);
    std::vector<std::string> lines;
    const auto enumeration =
        items.vt == VT_UNKNOWN || items.vt == VT_DISPATCH ? As<IEnumVARIANT>(items.punkVal) : nullptr;
    if (!enumeration) return {"cannot be enumerated"};
    for (;;) {
      OwnedVariant item;
      if (enumeration->Next(1, &item, nullptr) != S_OK) return lines;
      lines.push_back(PartOf(item)->Read(property, {}));
    }
  }

 private:
  std::unique_ptr<DrivenComponent> PartOf(const VARIANT& value) const {
    const bool is_object = (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) && value.punkVal;
    return is_object ? std::make_unique<DrivenComponent>(value.punkVal, by_reference_) : nullptr;
  }

  // Leaves what came back in `kept`, where there is one.
  std::string Invoke(DISPID member, WORD flags, const Arguments& arguments, const Variant* value,
                     const MethodInfo* method = nullptr, VARIANT* kept = nullptr) {
    Runtime& runtime = *runtime_;
    std::vector<OwnedVariant> held(arguments.size() + 1);
    std::vector<VARIANT> handed;
    const auto hand = [&](const Variant& each, std::size_t place, bool by_reference) {
      ToComponent(runtime, each, held[place]);
      VARIANT given = held[place];
      if (by_reference) {
        given = {};
        given.vt = VT_BYREF | VT_VARIANT;
        given.pvarVal = &held[place];
      } else if (each.IsEmpty() && !value) {
        given.vt = VT_ERROR;
        given.scode = DISP_E_PARAMNOTFOUND;
      }
      handed.push_back(given);
    };
    if (value) hand(*value, arguments.size(), by_reference_);
    for (std::size_t i = arguments.size(); i > 0; --i) {
      const bool out = method && i <= method->arguments.size() && method->arguments[i - 1].by_reference;
      hand(arguments[i - 1], i - 1, by_reference_ || out);
    }
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {handed.data(), value ? &put : nullptr, static_cast<UINT>(handed.size()),
                             value ? 1u : 0u};
    OwnedVariant result;
    EXCEPINFO exception = {};
    const HRESULT called = dispatch_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                             &result, &exception, nullptr);
    if (called == DISP_E_EXCEPTION) return Exception(exception);
    if (FAILED(called)) return "failed " + std::to_string(called);
    if (kept) ::VariantCopy(kept, &result);
    if (value) return "done";
    std::string line = method && method->result.kind == TypeKind::kNone ? "done" : "= " + ValueLine(result);
    for (std::size_t i = 0; method && i < arguments.size() && i < method->arguments.size(); ++i) {
      if (method->arguments[i].by_reference) line += ", " + ValueLine(held[i]);
    }
    return line;
  }

  static std::string Exception(EXCEPINFO& exception) {
    const std::string line =
        ErrorLine(exception.scode, TextOfBstr(exception.bstrSource), TextOfBstr(exception.bstrDescription));
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrDescription);
    return line;
  }

  ComPtr<IDispatch> dispatch_;
  bool by_reference_;
  std::shared_ptr<Runtime> runtime_ = Runtime::OfThread();
};

}  // namespace levelwidgets::activex
