#include <levelwidgets/frame/control.h>

namespace levelwidgets {

namespace {

Variant Resolve(const DefaultValue& value, ControlSite& site) {
  switch (value.kind) {
    case DefaultValue::Kind::kAmbientFont: return site.AmbientFont();
    case DefaultValue::Kind::kDisplayName: return site.DisplayName();
    default: return value.value;
  }
}

}  // namespace

Control::Control(std::shared_ptr<ControlSite> site, SurfaceLook look)
    : site_(std::move(site)), surface_(site_->GetPlatform(), site_->ParentWindow(), *this, std::move(look)) {}

void Control::Start(const PropertyBag* saved) {
  const auto keep = shared_from_this();
  OnInitialize();
  if (saved) {
    OnReadProperties(*saved);
  } else {
    OnInitProperties();
  }
}

void Control::Move(TwipPoint position, TwipSize size) {
  const auto keep = shared_from_this();
  if (surface_.Move(position, size)) OnResize();
}

void Control::OnReadProperties(const PropertyBag& bag) {
  for (const PropertyInfo* property : Class().Persisted()) {
    const Variant read = bag.ReadProperty(property->name, Resolve(property->defaults.when_read, *site_));
    try {
      property->set(*this, ConvertTo(property->type.type, ConvertTo(property->stored_as, read)));
    } catch (const Error& error) {
      throw PropertyRefused(property->name, error);
    }
  }
}

void Control::OnWriteProperties(PropertyBag& bag) const {
  for (const PropertyInfo* property : Class().Persisted()) {
    bag.WriteProperty(property->name, ConvertTo(property->stored_as, property->get(*this)),
                      Resolve(property->defaults.when_written, *site_));
  }
}

}  // namespace levelwidgets
