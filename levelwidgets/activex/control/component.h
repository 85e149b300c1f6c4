// A control as a component.
#pragma once

#include <memory>

#include <levelwidgets/activex/control/browse_part.h>
#include <levelwidgets/activex/control/container.h>
#include <levelwidgets/activex/control/control_part.h>
#include <levelwidgets/activex/control/dispatch_part.h>
#include <levelwidgets/activex/control/events.h>
#include <levelwidgets/activex/control/in_place.h>
#include <levelwidgets/activex/control/in_place_part.h>
#include <levelwidgets/activex/control/object_part.h>
#include <levelwidgets/activex/control/persist_part.h>
#include <levelwidgets/activex/control/view_part.h>
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/frame/control.h>

namespace levelwidgets::activex {

class ContainerSite;

// One implementation for all classes: what a class has comes from its table. The component has the control
// from its first use on, be it in a container or not; loading replaces it. It counts for itself, or as a part
// of the object that it was made for (aggregation).
class Component final : public IUnknown {
 public:
  // `outer` is null for an object of its own; then `iid` may be any interface, otherwise it is IUnknown.
  static HRESULT Create(const ClassInfo& info, IUnknown* outer, REFIID iid, void** made);

  // --- Counting ---------------------------------------------------------------------------------

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  // The last one on another thread ends the component on its own.
  ULONG STDMETHODCALLTYPE Release() override;
  // Of the whole object.
  IUnknown& Outer() { return *outer_; }
  ComPtr<IUnknown> Keep() { return ComPtr<IUnknown>(outer_); }

  // --- For its parts ----------------------------------------------------------------------------

  const ClassInfo& Class() const { return info_; }
  const ClassIdentity& Identity() const { return *IdentityOf(info_.Name()); }
  Runtime& GetRuntime() { return *runtime_; }
  Container& GetContainer() { return container_; }
  InPlace& Place() { return place_; }
  ConnectionPoints& Points() { return points_; }
  ViewPart& View() { return view_; }
  IOleInPlaceActiveObject& ActiveObject() { return in_place_; }

  // Every method of every interface is for the thread that made the component.
  bool OnOwnThread() const { return runtime_->OnOwnThread(); }
  // The result of `call`, while which the component lives.
  template <typename Call>
  HRESULT Run(Call call) {
    if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
    const auto keep = Keep();
    return Guarded(call);
  }

  // --- The control ------------------------------------------------------------------------------

  // Makes one with its defaults when the component has none yet.
  Control& GetControl() { return *SharedControl(); }
  std::shared_ptr<Control> SharedControl();
  bool HasControl() const { return control_ != nullptr; }
  // A new one in place of the one that there is: with its defaults, or with what was saved. One that cannot
  // be made raises its error and leaves the former.
  void Renew(const PropertyBag* saved);
  PropertyBag Saved();
  bool Dirty() const { return dirty_; }
  void SetDirty(bool dirty) { dirty_ = dirty; }

  // In pixels of the screen; the control has it, too.
  PixelSize Size() const { return size_; }
  void Resize(PixelSize size);
  // What the container is notified of: a persisted property has changed.
  void PropertyChanged(std::string_view name);

 private:
  Component(const ClassInfo& info, IUnknown* outer);
  ~Component();
  void* FindInterface(REFIID iid);
  std::shared_ptr<Control> MakeControl(const PropertyBag* saved);
  void GiveUp(std::shared_ptr<Control> control);

  const ClassInfo& info_;
  LONG references_ = 1;
  IUnknown* outer_;  // not counted
  ModuleLock lock_;
  std::shared_ptr<Runtime> runtime_ = Runtime::OfThread();
  Container container_{*runtime_};
  ConnectionPoints points_;
  InPlace place_;
  DispatchPart dispatch_;
  ObjectPart object_;
  ControlPart control_part_;
  InPlacePart in_place_;
  ViewPart view_;
  PersistPart persist_;
  BrowsePart browse_;
  PixelSize size_;
  bool dirty_ = false;
  bool making_ = false;
  std::shared_ptr<ContainerSite> site_;
  std::shared_ptr<Control> control_;
};

// Pixels of the screen and hundredths of millimetres, in which containers give extents.
SIZEL ToHimetric(PixelSize pixels);
PixelSize FromHimetric(const SIZEL& size);

}  // namespace levelwidgets::activex
