#include <levelwidgets/activex/object/invoke.h>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/com/failure.h>
#include <levelwidgets/activex/object/dispatch.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/known_members.h>

namespace levelwidgets::activex {

namespace {

constexpr WORD kPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// What a caller has handed over, in the order of the member's arguments; null for one left out.
struct Given {
  std::vector<const VARIANT*> arguments;
  const VARIANT* value = nullptr;  // to be assigned
};

// Arguments come last first, behind those with names, among which is the value of an assignment.
Given Sort(const DISPPARAMS& parameters, bool assigns) {
  Given given;
  const UINT named = parameters.cNamedArgs;
  const UINT count = parameters.cArgs;
  if (named > count || (count > 0 && !parameters.rgvarg) || (named > 0 && !parameters.rgdispidNamedArgs)) {
    throw Error(kInvalidCall);
  }
  for (UINT i = count; i > named; --i) given.arguments.push_back(&parameters.rgvarg[i - 1]);
  for (UINT i = 0; i < named; ++i) {
    const DISPID id = parameters.rgdispidNamedArgs[i];
    if (id == DISPID_PROPERTYPUT) {
      given.value = &parameters.rgvarg[i];
      continue;
    }
    constexpr DISPID kMost = 64;
    if (id < 0 || id >= kMost) throw Error(kWrongNumberOfArguments);
    const auto place = static_cast<std::size_t>(id);
    if (given.arguments.size() <= place) given.arguments.resize(place + 1);
    given.arguments[place] = &parameters.rgvarg[i];
  }
  // Some callers assign without naming the value, which is then the last argument.
  if (assigns && !given.value && !given.arguments.empty()) {
    given.value = given.arguments.back();
    given.arguments.pop_back();
  }
  return given;
}

class Invocation {
 public:
  Invocation(Runtime& runtime, Object& object, VARIANT* result)
      : runtime_(runtime), object_(object), result_(result) {}

  HRESULT Run(const Member& member, WORD flags, const DISPPARAMS& parameters) {
    const bool assigns = (flags & kPut) != 0;
    const Given given = Sort(parameters, assigns);
    if (member.method) {
      if ((flags & DISPATCH_METHOD) == 0 && (flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
      Call(*member.method, given);
      return S_OK;
    }
    const PropertyInfo& property = *member.property;
    if (IsForItem(property, given)) return OfItem(property, flags, parameters);
    if (assigns) {
      Assign(property, given);
    } else {
      Read(property, given);
    }
    return S_OK;
  }

  // The items one by one, for every kind of call.
  HRESULT Enumerated() {
    Return(ObjectRef(Enumerate(object_)));
    return S_OK;
  }

 private:
  std::vector<Variant> Converted(const Given& given) {
    std::vector<Variant> values;
    for (const VARIANT* argument : given.arguments) {
      values.push_back(argument ? FromComponent(runtime_, *argument) : Variant());
    }
    return values;
  }

  void Return(const Variant& value) {
    if (result_) ToComponent(runtime_, value, *result_);
  }

  void Call(const MethodInfo& method, const Given& given) {
    std::vector<Variant> values = Converted(given);
    const Variant returned = InvokeKnown(object_, method, values, runtime_.Texts());
    for (std::size_t i = 0; i < given.arguments.size(); ++i) {
      const VARIANT* const argument = given.arguments[i];
      if (argument && method.arguments[i].by_reference) StoreByReference(runtime_, values[i], *argument);
    }
    if (method.result.kind != TypeKind::kNone) Return(returned);
  }

  void Read(const PropertyInfo& property, const Given& given) {
    if (!property.Indexed() && given.arguments.empty()) return Return(property.get(object_));
    std::vector<Variant> indices = Converted(given);
    Return(GetKnownAt(object_, property, indices, runtime_.Texts()));
  }

  void Assign(const PropertyInfo& property, const Given& given) {
    if (!given.value) throw Error(kWrongNumberOfArguments);
    const Variant value = FromComponent(runtime_, *given.value);
    std::vector<Variant> indices = Converted(given);
    SetKnownAt(object_, property, indices, value, runtime_.Texts());
  }

  static bool IsForItem(const PropertyInfo& property, const Given& given) {
    return !given.arguments.empty() && !property.Indexed() && property.type.kind == TypeKind::kObject;
  }

  HRESULT OfItem(const PropertyInfo& property, WORD flags, const DISPPARAMS& parameters) {
    const Variant held = property.get(object_);
    const ObjectRef object = std::get<ObjectRef>(held.Get());
    if (!object) throw Error(kSubscriptOutOfRange);
    const Member item = MemberTable::Of(object->Class()).Find(DISPID_VALUE);
    if (!item) throw Error(kWrongNumberOfArguments);
    return Invocation(runtime_, *object, result_).Run(item, flags, parameters);
  }

  Runtime& runtime_;
  Object& object_;
  VARIANT* result_;
};

}  // namespace

HRESULT InvokeMember(Runtime& runtime, Object& object, DISPID id, WORD flags, DISPPARAMS* parameters,
                     VARIANT* result, EXCEPINFO* exception) {
  if (!parameters) return E_INVALIDARG;
  if (result) ::VariantInit(result);
  const Member member = MemberTable::Of(object.Class()).Find(id);
  if (!member) return DISP_E_MEMBERNOTFOUND;
  try {
    Invocation invocation(runtime, object, result);
    return id == DISPID_NEWENUM ? invocation.Enumerated() : invocation.Run(member, flags, *parameters);
  } catch (const Error& error) {
    if (exception) FillException(*exception, error, object.Class().QualifiedName());
    return exception ? DISP_E_EXCEPTION : Fail(error);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

HRESULT IdsOfNames(const ClassInfo& info, LPOLESTR* names, UINT count, DISPID* ids) {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  const MemberTable& members = MemberTable::Of(info);
  HRESULT result = S_OK;
  for (UINT i = 0; i < count; ++i) {
    const std::string name = TextOf(names[i]);
    ids[i] = i == 0 ? members.IdOf(name) : members.ArgumentIdOf(ids[0], name);
    if (ids[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
  }
  return result;
}

}  // namespace levelwidgets::activex
