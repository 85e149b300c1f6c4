#include <levelwidgets/activex/page/dispatch_target.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

namespace {

constexpr char kSource[] = "LevelWidgets";

// What late binding answers by itself, and what scripts call it.
std::int32_t NumberOfResult(HRESULT result) {
  if (HRESULT_FACILITY(result) == FACILITY_CONTROL) return HRESULT_CODE(result);
  switch (result) {
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_UNKNOWNNAME: return kNoSuchMember;
    case DISP_E_TYPEMISMATCH: return kTypeMismatch;
    case DISP_E_OVERFLOW: return kOverflow;
    case DISP_E_BADPARAMCOUNT: return kWrongNumberOfArguments;
    default: return result;
  }
}

std::string Quoted(std::string_view member) { return "\"" + std::string(member) + "\""; }

Error RefusalOf(HRESULT result, std::string_view member) {
  const std::int32_t number = NumberOfResult(result);
  if (number > 0) return Error(number);
  std::array<char, sizeof "0x01234567"> code = {};
  std::snprintf(code.data(), code.size(), "0x%08lX", static_cast<unsigned long>(result));
  return Error(number, kSource, "The object does not answer to " + Quoted(member) + ": " + code.data());
}

// What a member has raised. Frees its texts.
Error ErrorOf(EXCEPINFO& exception, std::string_view member) {
  if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
  const std::string source = TextOfBstr(exception.bstrSource);
  const std::string description = TextOfBstr(exception.bstrDescription);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
  const std::int32_t number = exception.wCode != 0 ? exception.wCode : NumberOfResult(exception.scode);
  if (number == 0 || description.empty()) return RefusalOf(number != 0 ? number : E_FAIL, member);
  return Error(number, source, description);
}

}  // namespace

DISPID DispatchTarget::NumberOf(std::string_view member) const {
  const OwnedText name(member);
  LPOLESTR names[] = {name.Get()};
  DISPID number = DISPID_UNKNOWN;
  const ComPtr<IDispatch> keep = object_;
  const HRESULT result = keep->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number);
  return SUCCEEDED(result) ? number : DISPID_UNKNOWN;
}

// Arguments are handed over last first, and before them the value of an assignment.
void DispatchTarget::Invoke(std::string_view member, WORD flags, std::span<const Variant> arguments,
                            const Variant* value, VARIANT* result) {
  const ComPtr<IDispatch> keep = object_;
  const DISPID number = NumberOf(member);
  if (number == DISPID_UNKNOWN) {
    throw Error(kNoSuchMember, kSource, "The object has no member " + Quoted(member));
  }
  std::vector<OwnedVariant> handed(arguments.size() + (value ? 1 : 0));
  std::size_t next = 0;
  if (value) ToComponent(*runtime_, *value, handed[next++]);
  for (std::size_t i = arguments.size(); i > 0; --i) {
    ToComponent(*runtime_, arguments[i - 1], handed[next++]);
  }
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {handed.data(), value ? &put : nullptr, static_cast<UINT>(handed.size()),
                           value ? 1u : 0u};
  EXCEPINFO exception = {};
  const HRESULT answer =
      keep->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
  if (answer == DISP_E_EXCEPTION) throw ErrorOf(exception, member);
  if (FAILED(answer)) throw RefusalOf(answer, member);
}

Variant DispatchTarget::Get(std::string_view property, std::span<const Variant> indices) {
  OwnedVariant value;
  Invoke(property, DISPATCH_PROPERTYGET | DISPATCH_METHOD, indices, nullptr, &value);
  return FromComponent(*runtime_, value);
}

void DispatchTarget::Set(std::string_view property, std::span<const Variant> indices, const Variant& value) {
  Invoke(property, DISPATCH_PROPERTYPUT, indices, &value, nullptr);
}

Variant DispatchTarget::Call(std::string_view method, std::span<const Variant> arguments) {
  OwnedVariant value;
  Invoke(method, DISPATCH_METHOD, arguments, nullptr, &value);
  return FromComponent(*runtime_, value);
}

PageTargetRef DispatchTarget::Inner(std::string_view property, std::span<const Variant> indices) {
  OwnedVariant value;
  Invoke(property, DISPATCH_PROPERTYGET | DISPATCH_METHOD, indices, nullptr, &value);
  const bool is_object = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
  const auto object = is_object ? As<IDispatch>(value.punkVal) : nullptr;
  if (!object) {
    throw Error(kTypeMismatch, kSource, "The value of " + Quoted(property) + " is no object");
  }
  return std::make_shared<DispatchTarget>(runtime_, object);
}

}  // namespace levelwidgets::activex
