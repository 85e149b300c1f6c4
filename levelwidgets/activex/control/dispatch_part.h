// Members by name, and what the type library says.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/component_part.h>

namespace levelwidgets::activex {

class DispatchPart
    : public ComponentPart<IDispatch, ISupportErrorInfo, Extends<IProvideClassInfo2, IProvideClassInfo>> {
 public:
  using ComponentPart::ComponentPart;

  // Also by the interface that the type library gives the class: typed clients ask for that.
  void* FindInterface(REFIID iid);

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** found) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** found) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
};

}  // namespace levelwidgets::activex
