// A listener to all events of a control, which knows their names from the control's class information.
#pragma once

#include <functional>
#include <string>

#include <tools/components/win32/com.h>

// Gets an event by its name with its arguments, the last one first.
using EventHandler = std::function<void(const std::wstring& event, DISPPARAMS& arguments)>;

class EventSink : public IDispatch {
 public:
  // Listens until the control lets it go.
  static void Connect(IDispatch* control, EventHandler handler) {
    const IUnknownPtr sink(new EventSink(control, std::move(handler)), false);
    const IProvideClassInfo2Ptr info = control;
    GUID events{};
    Require(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
    const IConnectionPointContainerPtr points = control;
    IConnectionPointPtr point;
    Require(points->FindConnectionPoint(events, &point));
    DWORD cookie = 0;
    Require(point->Advise(sink, &cookie));
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --count_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    *out = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch && id != events_) return E_NOINTERFACE;
    *out = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    handler_(NameOf(event), *arguments);
    return S_OK;
  }

 private:
  EventSink(IDispatch* control, EventHandler handler) : handler_(std::move(handler)) {
    const IProvideClassInfoPtr provider = control;
    ITypeInfoPtr of_class;
    Require(provider->GetClassInfo(&of_class));
    TYPEATTR* attributes = nullptr;
    Require(of_class->GetTypeAttr(&attributes));
    const UINT interfaces = attributes->cImplTypes;
    of_class->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < interfaces; ++i) {
      INT flags = 0;
      HREFTYPE type = 0;
      Require(of_class->GetImplTypeFlags(i, &flags));
      if ((flags & (IMPLTYPEFLAG_FSOURCE | IMPLTYPEFLAG_FDEFAULT)) !=
          (IMPLTYPEFLAG_FSOURCE | IMPLTYPEFLAG_FDEFAULT))
        continue;
      Require(of_class->GetRefTypeOfImplType(i, &type));
      Require(of_class->GetRefTypeInfo(type, &type_));
    }
    if (!type_) _com_issue_error(TYPE_E_ELEMENTNOTFOUND);
    Require(type_->GetTypeAttr(&attributes));
    events_ = attributes->guid;
    type_->ReleaseTypeAttr(attributes);
  }
  virtual ~EventSink() = default;

  std::wstring NameOf(DISPID event) const {
    BSTR name = nullptr;
    UINT count = 0;
    Require(type_->GetNames(event, &name, 1, &count));
    return static_cast<const wchar_t*>(_bstr_t(name, false));
  }

  EventHandler handler_;
  ITypeInfoPtr type_;
  GUID events_{};
  ULONG count_ = 1;
};
