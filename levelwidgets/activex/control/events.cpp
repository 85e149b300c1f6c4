#include <levelwidgets/activex/control/events.h>

#include <levelwidgets/activex/control/enumerations.h>
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/object/values.h>

namespace levelwidgets::activex {

// --- One kind ------------------------------------------------------------------------------------

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const {
  std::vector<ComPtr<IUnknown>> sinks;
  for (const auto& [cookie, sink] : sinks_) sinks.push_back(sink);
  return sinks;
}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** found) {
  if (!found) return E_POINTER;
  *found = ::IsEqualIID(iid, IID_IUnknown) ? static_cast<IConnectionPoint*>(this) : FindInterface(iid);
  if (!*found) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
  if (::GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  if (!iid) return E_POINTER;
  *iid = iid_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (::GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  if (!container) return E_POINTER;
  return outer_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (::GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  void* wanted = nullptr;
  HRESULT result = sink->QueryInterface(iid_, &wanted);
  // Events come by late binding; those who do not know the identifier of their interface are welcome, too.
  const bool by_name = !::IsEqualIID(iid_, IID_IPropertyNotifySink);
  if (FAILED(result) && by_name) result = sink->QueryInterface(IID_IDispatch, &wanted);
  if (FAILED(result)) return CONNECT_E_CANNOTCONNECT;
  *cookie = ++last_cookie_;
  sinks_[*cookie] = ComPtr<IUnknown>::Taking(static_cast<IUnknown*>(wanted));
  return S_OK;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  if (::GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const ComPtr<IUnknown> ended = found->second;  // its end may come back here
  sinks_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (::GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  if (!connections) return E_POINTER;
  std::vector<CONNECTDATA> data;
  for (const auto& [cookie, sink] : sinks_) data.push_back({sink.Get(), cookie});
  return Guarded([&] {
    *connections = MakeEnumeration<IEnumConnections, CONNECTDATA>(
        data,
        [](const CONNECTDATA& each) {
          each.pUnk->AddRef();
          return each;
        },
        [](const CONNECTDATA& each) { each.pUnk->Release(); });
    return S_OK;
  });
}

// --- Both kinds ----------------------------------------------------------------------------------

ConnectionPoints::ConnectionPoints(IUnknown& outer, Runtime& runtime, const ClassInfo& info)
    : ComPart(outer),
      runtime_(runtime),
      info_(info),
      events_(outer, Native(IdentityOf(info.Name())->events_id)),
      changes_(outer, IID_IPropertyNotifySink) {}

void ConnectionPoints::Listen(Object& control) {
  StopListening();
  for (const EventInfo& event : info_.Events()) {
    subscriptions_.push_back(event.Subscribe(control, [this](RaisedEvent& raised) { Raise(raised); }));
  }
}

void ConnectionPoints::StopListening() {
  for (Subscription& subscription : subscriptions_) subscription.End();
  subscriptions_.clear();
}

void ConnectionPoints::Freeze(bool frozen) {
  if (frozen) {
    ++frozen_;
  } else if (frozen_ > 0) {
    --frozen_;
  }
}

// Sinks may do anything: one of them may end the control.
void ConnectionPoints::Raise(RaisedEvent& event) {
  if (frozen_ > 0 || events_.Empty()) return;
  const ComPtr<IConnectionPointContainer> keep(this);
  const ArgumentList& arguments = event.info.arguments;
  const std::size_t count = arguments.size();
  Runtime& runtime = runtime_;
  for (const ComPtr<IUnknown>& sink : events_.Sinks()) {
    std::vector<OwnedVariant> values(count);
    std::vector<VARIANT> handed(count);  // last first
    for (std::size_t i = 0; i < count; ++i) {
      ToComponent(runtime, event.values[i], values[i]);
      VARIANT& argument = handed[count - 1 - i];
      argument = values[i];
      if (!arguments[i].by_reference) continue;
      // What the sink writes, it writes to the value.
      if (arguments[i].type.kind == TypeKind::kAny) {
        argument.vt = VT_BYREF | VT_VARIANT;
        argument.pvarVal = &values[i];
      } else {
        argument.vt = static_cast<VARTYPE>(VT_BYREF | values[i].vt);
        argument.byref = &values[i].llVal;
      }
    }
    DISPPARAMS parameters = {handed.data(), nullptr, static_cast<UINT>(count), 0};
    static_cast<IDispatch*>(sink.Get())
        ->Invoke(event.info.number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                 nullptr, nullptr);
    for (std::size_t i = 0; i < count; ++i) {
      if (arguments[i].by_reference) event.values[i] = FromComponent(runtime, values[i]);
    }
  }
}

void ConnectionPoints::NotifyChanged(DISPID property) {
  for (const ComPtr<IUnknown>& sink : changes_.Sinks()) {
    static_cast<IPropertyNotifySink*>(sink.Get())->OnChanged(property);
  }
}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (!runtime_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!points) return E_POINTER;
  const std::vector<IConnectionPoint*> both{&events_, &changes_};
  return Guarded([&] {
    *points = MakeEnumeration<IEnumConnectionPoints, IConnectionPoint>(both);
    return S_OK;
  });
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (!runtime_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!point) return E_POINTER;
  *point = nullptr;
  for (ConnectionPoint* each : {&events_, &changes_}) {
    // Late binding names no identifier of its own.
    const bool by_name = each == &events_ && ::IsEqualIID(iid, IID_IDispatch);
    if (!by_name && !::IsEqualIID(iid, each->Kind())) continue;
    *point = each;
    each->AddRef();
    return S_OK;
  }
  return CONNECT_E_NOCONNECTION;
}

}  // namespace levelwidgets::activex
