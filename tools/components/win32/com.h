// What the clients in C++ share: pointers to objects, calls by name, and a line for each thing tried.
#pragma once

#include <comdef.h>
#include <ocidl.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));
_COM_SMARTPTR_TYPEDEF(IDispatch, __uuidof(IDispatch));
_COM_SMARTPTR_TYPEDEF(ITypeInfo, __uuidof(ITypeInfo));
_COM_SMARTPTR_TYPEDEF(IProvideClassInfo, __uuidof(IProvideClassInfo));
_COM_SMARTPTR_TYPEDEF(IProvideClassInfo2, __uuidof(IProvideClassInfo2));
_COM_SMARTPTR_TYPEDEF(IConnectionPoint, __uuidof(IConnectionPoint));
_COM_SMARTPTR_TYPEDEF(IConnectionPointContainer, __uuidof(IConnectionPointContainer));

// Throws _com_error for a failure.
inline void Require(HRESULT result) {
  if (FAILED(result)) _com_issue_error(result);
}

inline std::string Narrow(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  std::string result(static_cast<std::size_t>(length) * 3, '\0');
  const int used =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), length * 3, nullptr, nullptr);
  result.resize(static_cast<std::size_t>(used));
  return result;
}

inline std::string TextOf(const _variant_t& value) {
  const _bstr_t text(value);
  return text.length() == 0 ? "" : Narrow(static_cast<const wchar_t*>(text));
}

inline std::string InHex(HRESULT result) {
  char text[16];
  std::snprintf(text, sizeof text, "%08lX", static_cast<unsigned long>(result));
  return text;
}

inline void Say(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

inline void Check(const std::string& what, const std::string& expected, const std::string& actual) {
  if (expected == actual) {
    Say("ok " + what);
  } else {
    Say("FAILED " + what + ": expected " + expected + ", is " + actual);
  }
}

// Calls a member by its name with the arguments in their order; `kind` is one DISPATCH_ value.
inline _variant_t Invoke(IDispatch* object, std::wstring name, WORD kind,
                         std::vector<_variant_t> arguments = {}) {
  DISPID member = 0;
  wchar_t* names[] = {name.data()};
  Require(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member));
  std::reverse(arguments.begin(), arguments.end());
  DISPID put = DISPID_PROPERTYPUT;
  const bool is_put = kind == DISPATCH_PROPERTYPUT || kind == DISPATCH_PROPERTYPUTREF;
  DISPPARAMS parameters{arguments.data(), is_put ? &put : nullptr, static_cast<UINT>(arguments.size()),
                        is_put ? 1U : 0U};
  _variant_t result;
  Require(object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, is_put ? nullptr : &result,
                         nullptr, nullptr));
  return result;
}

inline _variant_t Get(IDispatch* object, const std::wstring& name) {
  return Invoke(object, name, DISPATCH_PROPERTYGET);
}
