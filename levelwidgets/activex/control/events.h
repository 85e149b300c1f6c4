// Who hears of a control's events and of its changes.
#pragma once

#include <map>
#include <vector>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/frame/class_info.h>

namespace levelwidgets::activex {

// Those who have advised of one kind.
class ConnectionPoint : public ComPart<IConnectionPoint> {
 public:
  ConnectionPoint(IUnknown& outer, REFIID iid) : ComPart(outer), outer_(outer), iid_(iid) {}

  // One that advises while another is notified is not notified of the same.
  std::vector<ComPtr<IUnknown>> Sinks() const;
  bool Empty() const { return sinks_.empty(); }
  REFIID Kind() const { return iid_; }

  // A connection point is an object of its own, although it lives as long as the control.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  IUnknown& outer_;
  IID iid_;
  std::map<DWORD, ComPtr<IUnknown>> sinks_;
  DWORD last_cookie_ = 0;
  DWORD thread_ = ::GetCurrentThreadId();
};

// The events of a control and the changes of its properties.
class ConnectionPoints : public ComPart<IConnectionPointContainer> {
 public:
  ConnectionPoints(IUnknown& outer, Runtime& runtime, const ClassInfo& info);

  // Raises the events of `control` from now on. A control that it listened to before is forgotten.
  void Listen(Object& control);
  void StopListening();
  // While frozen, events are lost.
  void Freeze(bool frozen);

  void NotifyChanged(DISPID property);

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

 private:
  void Raise(RaisedEvent& event);

  Runtime& runtime_;
  const ClassInfo& info_;
  ConnectionPoint events_;
  ConnectionPoint changes_;
  std::vector<Subscription> subscriptions_;
  int frozen_ = 0;
};

}  // namespace levelwidgets::activex
