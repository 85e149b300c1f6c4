// Every method of every interface that a component has.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {

struct InterfaceCall {
  std::string name;  // "IOleObject::GetExtent"
  // With null for everything that is pointed to.
  std::function<HRESULT()> with_nulls;
};

// Those that do something or answer something; a method that always refuses, or has nothing to do, is not
// among them. Each keeps the object.
inline std::vector<InterfaceCall> InterfaceCalls(IUnknown* object) {
  std::vector<InterfaceCall> calls;
  const auto add = [&](const char* name, std::function<HRESULT()> call) {
    calls.push_back({name, std::move(call)});
  };
  const IID none = IID_NULL;
  const auto dispatch = As<IDispatch>(object);
  add("IDispatch::GetTypeInfoCount", [=] { return dispatch->GetTypeInfoCount(nullptr); });
  add("IDispatch::GetTypeInfo", [=] { return dispatch->GetTypeInfo(0, 0, nullptr); });
  add("IDispatch::GetIDsOfNames", [=] { return dispatch->GetIDsOfNames(none, nullptr, 1, 0, nullptr); });
  add("IDispatch::Invoke",
      [=] { return dispatch->Invoke(1, none, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr); });
  const auto class_info = As<IProvideClassInfo2>(object);
  add("IProvideClassInfo::GetClassInfo", [=] { return class_info->GetClassInfo(nullptr); });
  add("IProvideClassInfo2::GetGUID", [=] { return class_info->GetGUID(1, nullptr); });

  const auto ole = As<IOleObject>(object);
  add("IOleObject::GetClientSite", [=] { return ole->GetClientSite(nullptr); });
  add("IOleObject::EnumVerbs", [=] { return ole->EnumVerbs(nullptr); });
  add("IOleObject::GetUserClassID", [=] { return ole->GetUserClassID(nullptr); });
  add("IOleObject::GetUserType", [=] { return ole->GetUserType(0, nullptr); });
  add("IOleObject::SetExtent", [=] { return ole->SetExtent(DVASPECT_CONTENT, nullptr); });
  add("IOleObject::GetExtent", [=] { return ole->GetExtent(DVASPECT_CONTENT, nullptr); });
  add("IOleObject::Advise", [=] { return ole->Advise(nullptr, nullptr); });
  add("IOleObject::EnumAdvise", [=] { return ole->EnumAdvise(nullptr); });
  add("IOleObject::GetMiscStatus", [=] { return ole->GetMiscStatus(DVASPECT_CONTENT, nullptr); });

  const auto control = As<IOleControl>(object);
  add("IOleControl::GetControlInfo", [=] { return control->GetControlInfo(nullptr); });
  add("IOleControl::OnMnemonic", [=] { return control->OnMnemonic(nullptr); });

  const auto placed = As<IOleInPlaceObject>(object);
  add("IOleInPlaceObject::GetWindow", [=] { return placed->GetWindow(nullptr); });
  add("IOleInPlaceObject::SetObjectRects", [=] { return placed->SetObjectRects(nullptr, nullptr); });
  const auto active = As<IOleInPlaceActiveObject>(object);
  add("IOleInPlaceActiveObject::TranslateAccelerator", [=] { return active->TranslateAccelerator(nullptr); });

  const auto view = As<IViewObjectEx>(object);
  add("IViewObject::Draw", [=] {
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0);
  });
  add("IViewObject::GetColorSet",
      [=] { return view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr); });
  add("IViewObject2::GetExtent", [=] { return view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr); });
  add("IViewObjectEx::GetRect", [=] { return view->GetRect(DVASPECT_CONTENT, nullptr); });
  add("IViewObjectEx::GetViewStatus", [=] { return view->GetViewStatus(nullptr); });
  add("IViewObjectEx::QueryHitPoint",
      [=] { return view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, nullptr); });
  add("IViewObjectEx::QueryHitRect",
      [=] { return view->QueryHitRect(DVASPECT_CONTENT, nullptr, nullptr, 0, nullptr); });
  add("IViewObjectEx::GetNaturalExtent",
      [=] { return view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr); });

  const auto data = As<IDataObject>(object);
  add("IDataObject::GetData", [=] { return data->GetData(nullptr, nullptr); });
  add("IDataObject::QueryGetData", [=] { return data->QueryGetData(nullptr); });
  add("IDataObject::GetCanonicalFormatEtc", [=] { return data->GetCanonicalFormatEtc(nullptr, nullptr); });
  add("IDataObject::EnumFormatEtc", [=] { return data->EnumFormatEtc(DATADIR_GET, nullptr); });
  add("IDataObject::DAdvise", [=] { return data->DAdvise(nullptr, 0, nullptr, nullptr); });
  add("IDataObject::EnumDAdvise", [=] { return data->EnumDAdvise(nullptr); });

  const auto stream = As<IPersistStreamInit>(object);
  add("IPersist::GetClassID", [=] { return stream->GetClassID(nullptr); });
  add("IPersistStreamInit::Load", [=] { return stream->Load(nullptr); });
  add("IPersistStreamInit::Save", [=] { return stream->Save(nullptr, TRUE); });
  add("IPersistStreamInit::GetSizeMax", [=] { return stream->GetSizeMax(nullptr); });
  const auto storage = As<IPersistStorage>(object);
  add("IPersistStorage::InitNew", [=] { return storage->InitNew(nullptr); });
  add("IPersistStorage::Load", [=] { return storage->Load(nullptr); });
  add("IPersistStorage::Save", [=] { return storage->Save(nullptr, TRUE); });
  const auto bag = As<IPersistPropertyBag>(object);
  add("IPersistPropertyBag::Load", [=] { return bag->Load(nullptr, nullptr); });
  add("IPersistPropertyBag::Save", [=] { return bag->Save(nullptr, TRUE, TRUE); });

  const auto points = As<IConnectionPointContainer>(object);
  add("IConnectionPointContainer::EnumConnectionPoints",
      [=] { return points->EnumConnectionPoints(nullptr); });
  add("IConnectionPointContainer::FindConnectionPoint",
      [=] { return points->FindConnectionPoint(IID_IPropertyNotifySink, nullptr); });
  ComPtr<IConnectionPoint> point;
  points->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive());
  add("IConnectionPoint::GetConnectionInterface", [=] { return point->GetConnectionInterface(nullptr); });
  add("IConnectionPoint::GetConnectionPointContainer",
      [=] { return point->GetConnectionPointContainer(nullptr); });
  add("IConnectionPoint::Advise", [=] { return point->Advise(nullptr, nullptr); });
  add("IConnectionPoint::EnumConnections", [=] { return point->EnumConnections(nullptr); });

  const auto pages = As<ISpecifyPropertyPages>(object);
  add("ISpecifyPropertyPages::GetPages", [=] { return pages->GetPages(nullptr); });
  const auto browsing = As<IPerPropertyBrowsing>(object);
  add("IPerPropertyBrowsing::GetDisplayString", [=] { return browsing->GetDisplayString(1, nullptr); });
  add("IPerPropertyBrowsing::MapPropertyToPage", [=] { return browsing->MapPropertyToPage(1, nullptr); });
  add("IPerPropertyBrowsing::GetPredefinedStrings",
      [=] { return browsing->GetPredefinedStrings(1, nullptr, nullptr); });
  add("IPerPropertyBrowsing::GetPredefinedValue",
      [=] { return browsing->GetPredefinedValue(1, 0, nullptr); });
  const auto safety = As<IObjectSafety>(object);
  add("IObjectSafety::GetInterfaceSafetyOptions",
      [=] { return safety->GetInterfaceSafetyOptions(IID_IDispatch, nullptr, nullptr); });
  return calls;
}

// Those that take no pointers, or may be given none.
inline std::vector<InterfaceCall> CallsWithoutPointers(IUnknown* object) {
  const auto ole = As<IOleObject>(object);
  const auto control = As<IOleControl>(object);
  const auto placed = As<IOleInPlaceObject>(object);
  const auto view = As<IViewObjectEx>(object);
  const auto data = As<IDataObject>(object);
  const auto stream = As<IPersistStreamInit>(object);
  const auto storage = As<IPersistStorage>(object);
  const auto error = As<ISupportErrorInfo>(object);
  const auto points = As<IConnectionPointContainer>(object);
  ComPtr<IConnectionPoint> point;
  points->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive());
  return {
      {"ISupportErrorInfo::InterfaceSupportsErrorInfo",
       [=] { return error->InterfaceSupportsErrorInfo(IID_IDispatch); }},
      {"IOleObject::SetClientSite", [=] { return ole->SetClientSite(nullptr); }},
      {"IOleObject::Close", [=] { return ole->Close(OLECLOSE_NOSAVE); }},
      {"IOleObject::DoVerb",
       [=] { return ole->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr); }},
      {"IOleObject::Unadvise", [=] { return ole->Unadvise(1); }},
      {"IOleControl::OnAmbientPropertyChange",
       [=] { return control->OnAmbientPropertyChange(DISPID_UNKNOWN); }},
      {"IOleControl::FreezeEvents", [=] { return control->FreezeEvents(TRUE); }},
      {"IOleInPlaceObject::InPlaceDeactivate", [=] { return placed->InPlaceDeactivate(); }},
      {"IOleInPlaceObject::UIDeactivate", [=] { return placed->UIDeactivate(); }},
      {"IViewObject::SetAdvise", [=] { return view->SetAdvise(DVASPECT_CONTENT, 0, nullptr); }},
      {"IViewObject::GetAdvise", [=] { return view->GetAdvise(nullptr, nullptr, nullptr); }},
      {"IDataObject::DUnadvise", [=] { return data->DUnadvise(1); }},
      {"IPersistStreamInit::IsDirty", [=] { return stream->IsDirty(); }},
      {"IPersistStreamInit::InitNew", [=] { return stream->InitNew(); }},
      {"IPersistStorage::SaveCompleted", [=] { return storage->SaveCompleted(nullptr); }},
      {"IPersistStorage::HandsOffStorage", [=] { return storage->HandsOffStorage(); }},
      {"IConnectionPoint::Unadvise", [=] { return point->Unadvise(1); }},
  };
}

}  // namespace levelwidgets::activex
