#include <levelwidgets/activex/control/dispatch_part.h>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/activex/object/dispatch.h>
#include <levelwidgets/activex/object/invoke.h>
#include <levelwidgets/activex/object/native_guid.h>

namespace levelwidgets::activex {

void* DispatchPart::FindInterface(REFIID iid) {
  const bool is_ours = ::IsEqualIID(iid, Native(component_.Identity().interface_id));
  return ComponentPart::FindInterface(is_ours ? IID_IDispatch : iid);
}

HRESULT DispatchPart::GetTypeInfoCount(UINT* count) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT DispatchPart::GetTypeInfo(UINT index, LCID, ITypeInfo** found) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!found) return E_POINTER;
  *found = nullptr;
  return index == 0 ? MembersInTypeLibrary(component_.Class().Name(), found) : DISP_E_BADINDEX;
}

HRESULT DispatchPart::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return IdsOfNames(component_.Class(), names, count, ids);
}

HRESULT DispatchPart::Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                             VARIANT* result, EXCEPINFO* exception, UINT*) {
  if (!::IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  return component_.Run([&] {
    const auto control = component_.SharedControl();
    return InvokeMember(component_.GetRuntime(), *control, member, flags, parameters, result, exception);
  });
}

HRESULT DispatchPart::InterfaceSupportsErrorInfo(REFIID) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return S_OK;
}

HRESULT DispatchPart::GetClassInfo(ITypeInfo** found) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return found ? ClassInTypeLibrary(component_.Class().Name(), found) : E_POINTER;
}

HRESULT DispatchPart::GetGUID(DWORD kind, GUID* id) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!id) return E_POINTER;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *id = Native(component_.Identity().events_id);
  return S_OK;
}

}  // namespace levelwidgets::activex
