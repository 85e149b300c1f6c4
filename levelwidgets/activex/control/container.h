// What a component asks its container.
#pragma once

#include <optional>
#include <span>
#include <string>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/frame/font.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets::activex {

// The container's side of a control: it may have none, lack any part of it, and answer any question with an
// error.
class Container {
 public:
  explicit Container(Runtime& runtime) : runtime_(runtime) {}

  // Null for none.
  void Set(IOleClientSite* site);
  const ComPtr<IOleClientSite>& ClientSite() const { return client_site_; }
  const ComPtr<IOleControlSite>& ControlSite() const { return control_site_; }

  // Empty when the container does not have the property, or another type of value.
  std::optional<Variant> Ambient(DISPID property) const;
  std::optional<bool> AmbientFlag(DISPID property) const;
  // Nothing, too, for what the system knows no colour for.
  std::optional<Color> AmbientColor(DISPID property) const;
  // A copy.
  FontRef AmbientFont() const;
  std::string AmbientName() const;

  void NoteFocus(bool has_focus);
  void NoteAccessKeys();
  // True when the container has used the key.
  bool Translate(MSG& message) const;

 private:
  Runtime& runtime_;
  ComPtr<IOleClientSite> client_site_;
  ComPtr<IOleControlSite> control_site_;
  ComPtr<IDispatch> ambients_;
};

// The name by which controls know a container's ambient property ("DisplayAsDefault"); "" for an unknown one.
std::string_view AmbientNameOf(DISPID property);
// Those that AmbientNameOf knows.
std::span<const DISPID> AmbientProperties();

}  // namespace levelwidgets::activex
