// Values of every kind, as careless callers hand them over.
#pragma once

#include <cmath>
#include <deque>
#include <random>
#include <string>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/object/values.h>

namespace levelwidgets::activex {

// An object of somebody else, whose default value is what it is made with, or leads back to the object.
class ForeignObject : public ComObject<IDispatch> {
 public:
  enum class Answer { kValue, kError, kItself, kItselfByReference };
  ForeignObject(Answer answer, const VARIANT& value) : answer_(answer) {
    ::VariantCopy(&value_, const_cast<VARIANT*>(&value));
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                                   UINT*) override {
    if (answer_ == Answer::kError || !value) return E_FAIL;
    if (answer_ == Answer::kValue) return ::VariantCopy(value, &value_);
    self_.vt = VT_DISPATCH;
    self_.pdispVal = this;
    if (answer_ == Answer::kItself) return ::VariantCopy(value, &self_);
    value->vt = VT_BYREF | VT_VARIANT;
    value->pvarVal = &self_;
    return S_OK;
  }

 private:
  Answer answer_;
  OwnedVariant value_;
  VARIANT self_ = {};  // not counted
};

// Every seed makes the same values.
class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : random_(seed) {}

  int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool OneIn(int count) { return Below(count) == 0; }
  // Frees all values made.
  void Clear() { held_.clear(); }
  // Held until they are freed, and so is what it points to.
  VARIANT Any() {
    const VARIANT value = Plain();
    if (!OneIn(4)) return value;
    VARIANT reference = {};
    VARIANT& target = Held();
    ::VariantCopy(&target, const_cast<VARIANT*>(&value));
    const bool typed = OneIn(2);
    reference.vt = static_cast<VARTYPE>(VT_BYREF | (typed ? target.vt : VT_VARIANT));
    reference.byref = OneIn(8) ? nullptr : typed ? static_cast<void*>(&target.llVal) : &target;
    if (OneIn(16)) return TheReferenceItself();
    return reference;
  }

 private:
  VARIANT& Held() { return held_.emplace_back(); }

  double Number() {
    constexpr double kNumbers[] = {
        0, -1, 1, 2, 3, 4, 32767, 32768, -32769, 2147483647, -2147483649.0, 0.5, 1e300, -1e300, 45427};
    return kNumbers[Below(static_cast<int>(std::size(kNumbers)))];
  }
  LONGLONG WholeNumber() { return static_cast<LONGLONG>(std::fmod(Number(), 4294967296.0)); }
  std::string Text() {
    constexpr const char* kTexts[] = {"",  "1",          "-1",    "abc",  "0.00",
                                      "x", "31/12/2024", "1e300", "True", "key"};
    return OneIn(20) ? std::string(5000, 'x') : kTexts[Below(static_cast<int>(std::size(kTexts)))];
  }

  VARIANT Plain() {
    VARIANT& value = Held();
    constexpr VARTYPE kNumbers[] = {VT_BOOL, VT_I1,  VT_UI1, VT_I2,  VT_UI2,
                                    VT_I4,   VT_UI4, VT_I8,  VT_UI8, VT_CY};
    switch (Below(10)) {
      case 0: break;  // empty
      case 1: value.vt = VT_NULL; break;
      case 2:
        value.vt = VT_ERROR;
        value.scode = OneIn(4) ? E_FAIL : DISP_E_PARAMNOTFOUND;
        break;
      case 3:
        value.vt = OneIn(2) ? VT_DATE : VT_R8;
        value.dblVal = Number();
        break;
      case 4:
        value.vt = VT_R4;
        value.fltVal = static_cast<float>(std::fmod(Number(), 1e30));
        break;
      case 5: MakeObject(value); break;
      case 6:
        value.vt = VT_ARRAY | VT_I4;
        value.parray = ::SafeArrayCreateVector(VT_I4, 0, 3);
        break;
      case 7:
      case 8:
        value.vt = VT_BSTR;
        value.bstrVal = OneIn(10) ? nullptr : NewText(Text());
        break;
      default: value.vt = kNumbers[Below(static_cast<int>(std::size(kNumbers)))]; value.llVal = WholeNumber();
    }
    return value;
  }

  void MakeObject(VARIANT& value) {
    value.vt = OneIn(2) ? VT_DISPATCH : VT_UNKNOWN;
    if (OneIn(4)) return;  // none
    const VARIANT answer = OneIn(2) ? Plain() : VARIANT{};
    value.pdispVal = new ForeignObject(static_cast<ForeignObject::Answer>(Below(4)), answer);
  }

  VARIANT TheReferenceItself() {
    VARIANT& target = Held();
    target.vt = VT_BYREF | VT_VARIANT;
    target.pvarVal = &target;
    return target;
  }

  std::mt19937 random_;
  std::deque<OwnedVariant> held_;
};

}  // namespace levelwidgets::activex
