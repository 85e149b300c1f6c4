#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/object_part.h>

#include <levelwidgets/activex/com/task_memory.h>
#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/activex/control/enumerations.h>
#include <levelwidgets/activex/identity/misc_status.h>
#include <levelwidgets/activex/identity/verbs.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::activex {

HRESULT ObjectPart::SetClientSite(IOleClientSite* site) {
  return component_.Run([&] {
    if (!site || site != component_.GetContainer().ClientSite().Get()) component_.Place().Abandon();
    component_.GetContainer().Set(site);
    return S_OK;
  });
}

HRESULT ObjectPart::GetClientSite(IOleClientSite** site) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!site) return E_POINTER;
  *site = ComPtr<IOleClientSite>(component_.GetContainer().ClientSite()).Detach();
  return S_OK;
}

HRESULT ObjectPart::Close(DWORD save) {
  return component_.Run([&] {
    const auto site = component_.GetContainer().ClientSite();
    if (save != OLECLOSE_NOSAVE && component_.Dirty() && site) site->SaveObject();
    component_.Place().Deactivate();
    if (const auto listeners = listeners_) listeners->SendOnClose();
    return S_OK;
  });
}

HRESULT ObjectPart::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT position) {
  return component_.Run([&]() -> HRESULT {
    InPlace& place = component_.Place();
    switch (verb) {
      case OLEIVERB_HIDE: return place.Hide();
      case OLEIVERB_UIACTIVATE: return place.ActivateUserInterface();
      case kEditVerb:
      case OLEIVERB_SHOW:
      case OLEIVERB_INPLACEACTIVATE: return place.Activate();
      case kPropertiesVerb:
      case OLEIVERB_PROPERTIES: return ShowProperties(parent, position);
      case OLEIVERB_OPEN:
      case OLEIVERB_DISCARDUNDOSTATE: return E_NOTIMPL;
      default: break;
    }
    if (verb < 0) return E_NOTIMPL;
    const HRESULT result = place.Activate();
    return FAILED(result) ? result : OLEOBJ_S_INVALIDVERB;
  });
}

HRESULT ObjectPart::ShowProperties(HWND parent, LPCRECT position) {
  if (const auto site = component_.GetContainer().ControlSite(); site && site->ShowPropertyFrame() == S_OK)
    return S_OK;
  const auto pages = As<ISpecifyPropertyPages>(&component_.Outer());
  CAUUID ids = {};
  if (!pages || FAILED(pages->GetPages(&ids))) return E_NOTIMPL;
  IUnknown* object = &component_.Outer();
  const std::wstring name = win32::ToWide(component_.Class().Name());
  const LONG left = position ? position->left : 0;
  const LONG top = position ? position->top : 0;
  const HRESULT result =
      ::OleCreatePropertyFrame(parent, static_cast<UINT>(left), static_cast<UINT>(top), name.c_str(), 1,
                               &object, ids.cElems, ids.pElems, LOCALE_USER_DEFAULT, 0, nullptr);
  ::CoTaskMemFree(ids.pElems);
  return result;
}

// Those that the registry lists, also where nothing is registered.
HRESULT ObjectPart::EnumVerbs(IEnumOLEVERB** verbs) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!verbs) return E_POINTER;
  *verbs = nullptr;
  return Guarded([&] {
    std::vector<std::wstring> names;
    for (const Verb& verb : kVerbs) names.push_back(win32::ToWide(verb.name));
    std::vector<OLEVERB> all;
    for (std::size_t i = 0; i < std::size(kVerbs); ++i)
      all.push_back({kVerbs[i].number, names[i].data(), MF_STRING, OLEVERBATTRIB_ONCONTAINERMENU});
    *verbs = MakeEnumeration<IEnumOLEVERB, OLEVERB>(
        all,
        [](OLEVERB verb) {
          verb.lpszVerbName = TaskText(verb.lpszVerbName);
          return verb;
        },
        [](const OLEVERB& verb) { ::CoTaskMemFree(verb.lpszVerbName); });
    return S_OK;
  });
}

HRESULT ObjectPart::GetUserClassID(CLSID* id) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!id) return E_POINTER;
  *id = Native(component_.Identity().class_id);
  return S_OK;
}

HRESULT ObjectPart::GetUserType(DWORD, LPOLESTR* type) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!type) return E_POINTER;
  *type = nullptr;
  return Guarded([&] {
    *type = TaskText(component_.Class().Name());
    return S_OK;
  });
}

HRESULT ObjectPart::SetExtent(DWORD aspect, SIZEL* size) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
  return component_.Run([&] {
    component_.Resize(FromHimetric(*size));
    return S_OK;
  });
}

HRESULT ObjectPart::GetExtent(DWORD aspect, SIZEL* size) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = ToHimetric(component_.Size());
  return S_OK;
}

HRESULT ObjectPart::Advise(IAdviseSink* sink, DWORD* cookie) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!sink || !cookie) return E_POINTER;
  if (!listeners_) {
    const HRESULT made = ::CreateOleAdviseHolder(listeners_.Receive());
    if (FAILED(made)) return made;
  }
  return listeners_->Advise(sink, cookie);
}

HRESULT ObjectPart::Unadvise(DWORD cookie) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return listeners_ ? listeners_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT ObjectPart::EnumAdvise(IEnumSTATDATA** sinks) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!sinks) return E_POINTER;
  *sinks = nullptr;
  return listeners_ ? listeners_->EnumAdvise(sinks) : S_OK;
}

HRESULT ObjectPart::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!status) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? MiscStatusOf(component_.Class().Name()) : 0;
  return S_OK;
}

}  // namespace levelwidgets::activex
