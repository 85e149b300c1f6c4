#include <array>

#include <levelwidgets/frame/control.h>

namespace levelwidgets {

namespace {

Variant Resolve(const DefaultValue& value, ControlSite& site) {
  switch (value.kind) {
    case DefaultValue::Kind::kAmbientFont: return site.AmbientFont();
    case DefaultValue::Kind::kDisplayName: return site.DisplayName();
    case DefaultValue::Kind::kAmbientBackColor: return site.AmbientBackColor();
    case DefaultValue::Kind::kAmbientForeColor: return site.AmbientForeColor();
    default: return value.value;
  }
}

Variant ResolveAt(const PropertyInfo& property, const DefaultValue& value, std::int32_t index,
                  ControlSite& site) {
  return property.default_at ? property.default_at(index) : Resolve(value, site);
}

// The one index of a persisted indexed property, in the type that it has.
std::array<Variant, 1> AtIndex(const PropertyInfo& property, std::int32_t index) {
  return {ConvertTo(property.indices.front().type.type, index)};
}

template <typename Assign>
void AssignRead(Control& control, const PropertyInfo& property, const std::string& key, Variant read,
                Assign assign) {
  const TextConversions texts(control.Site().GetPlatform().Conversions());
  try {
    assign(ConvertTo(property.type.type, ConvertTo(property.stored_as, std::move(read), texts), texts));
  } catch (const Error& error) {
    throw PropertyRefused(key, error);
  }
}

void ReadIndexed(Control& control, const PropertyInfo& property, const PropertyBag& bag) {
  for (std::int32_t index = 1; index <= property.count(control); ++index) {
    const std::string key = property.KeyOf(index);
    const Variant otherwise = ResolveAt(property, property.defaults.when_read, index, control.Site());
    AssignRead(control, property, key, bag.ReadProperty(key, otherwise),
               [&](const Variant& value) { property.set_at(control, AtIndex(property, index), value); });
  }
}

void WriteIndexed(const Control& control, const PropertyInfo& property, PropertyBag& bag) {
  for (std::int32_t index = 1; index <= property.count(control); ++index) {
    bag.WriteProperty(property.KeyOf(index),
                      ConvertTo(property.stored_as, property.get_at(control, AtIndex(property, index))),
                      ResolveAt(property, property.defaults.when_written, index, control.Site()));
  }
}

}  // namespace

Control::Control(std::shared_ptr<ControlSite> site, SurfaceLook look)
    : SurfaceWindow(site->GetPlatform(), site->ParentWindow(), std::move(look)), site_(std::move(site)) {}

std::shared_ptr<void> Control::Reference() const {
  if (auto container = site_->ContainerReference()) return container;
  return std::const_pointer_cast<Control>(weak_from_this().lock());
}

void Control::Start(const PropertyBag* saved, TwipPoint position, TwipSize size) {
  const auto keep = Reference();
  GetSurface().Move(position, size);
  OnInitialize();
  if (saved) {
    OnReadProperties(*saved);
  } else {
    OnInitProperties();
  }
  started_ = true;
  OnResize();
}

void Control::Move(TwipPoint position, TwipSize size) {
  const auto keep = Reference();
  if (GetSurface().Move(position, size)) OnResize();
}

void Control::Detached() {
  const auto keep = Reference();
  EndParts();
  GetSurface().SetVisible(false);
}

// The system takes the focus only from the window that is disabled, not from one inside it.
void Control::Enable(bool enabled) {
  WindowApi& windows = GetSurface().Windows();
  GetSurface().SetEnabled(enabled);
  if (!enabled && Holds(windows.GetFocus())) windows.SetFocus({});
}

void Control::Finish(std::string_view name, Then then) {
  const auto keep = Reference();  // a listener may drop the container's before the repaint
  if (then == Then::kRepaint || then == Then::kRepaintThenNotify) OnPaint();
  if (then != Then::kRepaint) PropertyChanged(name);
  if (then == Then::kNotifyThenRepaint) OnPaint();
}

bool Control::TakeKey(KeyMessage& key) {
  if (!GetSurface().Enabled()) {
    // It hears no key, whatever window has got it; its container does.
    site_->TakeKey(key);
    return true;
  }
  if (site_->LastUsedKey().Takes(key)) return true;
  const KeyMessage pressed = key;
  const bool used = OnKeyPreview(key) || site_->TakeKey(key) || (key.code == 0 && pressed.code != 0);
  if (used && pressed.kind == KeyMessage::Kind::kDown) site_->LastUsedKey().Use(pressed.code);
  return used;
}

void Control::PartFocus(bool has_focus, WindowHandle other) {
  if (has_focus == focused_ || (!has_focus && Holds(other))) return;
  const auto keep = Reference();
  focused_ = has_focus;
  if (has_focus) {
    OnEnterFocus();
  } else {
    OnExitFocus();
  }
  site_->FocusChanged(has_focus, other);
}

void Control::OnReadProperties(const PropertyBag& bag) {
  for (const PropertyInfo* property : Class().Persisted()) {
    if (property->Indexed()) {
      ReadIndexed(*this, *property, bag);
      continue;
    }
    const Variant* saved = bag.Find(property->name);
    AssignRead(*this, *property, property->name,
               saved ? *saved : Resolve(property->defaults.when_read, *site_),
               [&](const Variant& value) { property->set(*this, value); });
  }
}

void Control::OnWriteProperties(PropertyBag& bag) const {
  for (const PropertyInfo* property : Class().Persisted()) {
    if (property->Indexed()) {
      WriteIndexed(*this, *property, bag);
      continue;
    }
    bag.WriteProperty(property->name, ConvertTo(property->stored_as, property->get(*this)),
                      Resolve(property->defaults.when_written, *site_));
  }
}

}  // namespace levelwidgets
