#include <levelwidgets/activex/control/component.h>

#include <levelwidgets/activex/control/container_site.h>
#include <levelwidgets/activex/object/members.h>

namespace levelwidgets::activex {

namespace {

constexpr int kHimetricPerInch = 2540;

// Across and down.
PixelSize DotsPerInch() {
  HDC const screen = ::GetDC(nullptr);
  const PixelSize dots{::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
  ::ReleaseDC(nullptr, screen);
  return dots;
}

PixelSize InPixels(const TwipSize& size, ScreenApi& screen) {
  return {ToPixels(size.width, screen.TwipsPerPixelX()), ToPixels(size.height, screen.TwipsPerPixelY())};
}

TwipSize InTwips(PixelSize size, ScreenApi& screen) {
  return {ToTwips(size.width, screen.TwipsPerPixelX()), ToTwips(size.height, screen.TwipsPerPixelY())};
}

}  // namespace

SIZEL ToHimetric(PixelSize pixels) {
  const PixelSize dots = DotsPerInch();
  return {::MulDiv(pixels.width, kHimetricPerInch, dots.width),
          ::MulDiv(pixels.height, kHimetricPerInch, dots.height)};
}

PixelSize FromHimetric(const SIZEL& size) {
  const PixelSize dots = DotsPerInch();
  return {::MulDiv(size.cx, dots.width, kHimetricPerInch), ::MulDiv(size.cy, dots.height, kHimetricPerInch)};
}

IUnknown& OuterOf(Component& component) { return component.Outer(); }

// --- Life ----------------------------------------------------------------------------------------

HRESULT Component::Create(const ClassInfo& info, IUnknown* outer, REFIID iid, void** made) {
  if (!made) return E_POINTER;
  *made = nullptr;
  if (outer && !::IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
  return Guarded([&] {
    const auto component = ComPtr<Component>::Taking(new Component(info, outer));
    return component->QueryInterface(iid, made);
  });
}

Component::Component(const ClassInfo& info, IUnknown* outer)
    : info_(info),
      outer_(outer ? outer : this),
      points_(*outer_, *runtime_, info),
      place_(*this),
      dispatch_(*this),
      object_(*this),
      control_part_(*this),
      in_place_(*this),
      view_(*this),
      persist_(*this),
      browse_(*this),
      size_(InPixels(info.DefaultSize(), runtime_->GetPlatform().Screen())) {}

Component::~Component() {
  points_.StopListening();
  place_.Abandon();
  GiveUp(std::move(control_));
}

HRESULT Component::QueryInterface(REFIID iid, void** found) {
  if (!found) return E_POINTER;
  *found = ::IsEqualIID(iid, IID_IUnknown) ? static_cast<IUnknown*>(this) : FindInterface(iid);
  if (!*found) return E_NOINTERFACE;
  static_cast<IUnknown*>(*found)->AddRef();
  return S_OK;
}

ULONG Component::AddRef() { return static_cast<ULONG>(::InterlockedIncrement(&references_)); }

ULONG Component::Release() {
  const LONG left = ::InterlockedDecrement(&references_);
  if (left == 0) {
    references_ = 1;  // what the end calls may share it once more
    runtime_->EndObject([this] { delete this; });
  }
  return static_cast<ULONG>(left);
}

void* Component::FindInterface(REFIID iid) {
  void* found = nullptr;
  const auto look = [&](auto& part) { return (found = part.FindInterface(iid)) != nullptr; };
  static_cast<void>(look(dispatch_) || look(object_) || look(control_part_) || look(in_place_) ||
                    look(view_) || look(persist_) || look(points_) || look(browse_));
  return found;
}

// --- The control ---------------------------------------------------------------------------------

std::shared_ptr<Control> Component::SharedControl() {
  // A handler that runs while it is made has none to ask.
  if (!control_ && making_) throw Error(kInvalidCall, info_.QualifiedName(), "The control is being made");
  if (!control_) Renew(nullptr);
  return control_;
}

std::shared_ptr<Control> Component::MakeControl(const PropertyBag* saved) {
  auto site = std::make_shared<ContainerSite>(*this, runtime_);
  std::shared_ptr<Control> control = info_.Create(site);
  if (!control->GetSurface().hWnd()) throw Error(kOutOfMemory);
  try {
    control->Start(saved, {}, InTwips(size_, runtime_->GetPlatform().Screen()));
  } catch (...) {
    site->End();
    control->Detached();
    throw;
  }
  site_ = std::move(site);
  return control;
}

void Component::Renew(const PropertyBag* saved) {
  if (making_) throw Error(kInvalidCall, info_.QualifiedName(), "The control is being made");
  making_ = true;
  const std::shared_ptr<ContainerSite> former_site = site_;
  std::shared_ptr<Control> made;
  try {
    made = MakeControl(saved);
  } catch (...) {
    making_ = false;
    throw;
  }
  making_ = false;
  const std::shared_ptr<Control> former = std::exchange(control_, made);
  points_.Listen(*control_);
  if (former) {
    former_site->End();
    former->Detached();
  }
  place_.ShowControl();
}

void Component::GiveUp(std::shared_ptr<Control> control) {
  if (site_) site_->End();
  if (control) control->Detached();
}

PropertyBag Component::Saved() {
  PropertyBag bag;
  SharedControl()->OnWriteProperties(bag);
  return bag;
}

void Component::Resize(PixelSize size) {
  if (size.width < 0 || size.height < 0) throw Error(kInvalidCall);
  size_ = size;
  place_.ShowControl();
}

void Component::PropertyChanged(std::string_view name) {
  if (making_) return;  // the container loads it, or has just made it
  dirty_ = true;
  const PersistedKey key = info_.FindPersisted(name);
  const PropertyInfo* const property = key.property ? key.property : info_.FindProperty(name);
  points_.NotifyChanged(property ? property->number : DISPID_UNKNOWN);
  view_.NotifyChanged();
  if (const auto control = control_; control && place_.NoteAccessKeys(control->GetSurface().AccessKeys())) {
    container_.NoteAccessKeys();
  }
}

}  // namespace levelwidgets::activex
