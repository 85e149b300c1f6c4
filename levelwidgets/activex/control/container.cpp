#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/container.h>

#include <algorithm>
#include <array>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

namespace {

constexpr std::array<DISPID, 6> kAmbientProperties{DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_DISPLAYNAME,
                                                   DISPID_AMBIENT_FONT,      DISPID_AMBIENT_FORECOLOR,
                                                   DISPID_AMBIENT_USERMODE,  DISPID_AMBIENT_DISPLAYASDEFAULT};
constexpr std::array<std::string_view, kAmbientProperties.size()> kAmbientNames{
    "BackColor", "DisplayName", "Font", "ForeColor", "UserMode", "DisplayAsDefault"};

// KEYMOD_ values of the component interface, which no header of the compiler has.
constexpr DWORD kHeldShift = 1;
constexpr DWORD kHeldControl = 2;
constexpr DWORD kHeldAlt = 4;

// The keys that are down, as a container is asked about a message.
DWORD HeldKeys() {
  DWORD held = 0;
  if (::GetKeyState(VK_SHIFT) < 0) held |= kHeldShift;
  if (::GetKeyState(VK_CONTROL) < 0) held |= kHeldControl;
  if (::GetKeyState(VK_MENU) < 0) held |= kHeldAlt;
  return held;
}

}  // namespace

std::string_view AmbientNameOf(DISPID property) {
  const auto* const found = std::ranges::find(kAmbientProperties, property);
  return found == kAmbientProperties.end()
             ? std::string_view()
             : kAmbientNames[static_cast<std::size_t>(found - kAmbientProperties.begin())];
}

std::span<const DISPID> AmbientProperties() { return kAmbientProperties; }

void Container::Set(IOleClientSite* site) {
  client_site_ = site;
  control_site_ = As<IOleControlSite>(site);
  ambients_ = As<IDispatch>(site);
}

std::optional<Variant> Container::Ambient(DISPID property) const {
  const ComPtr<IDispatch> ambients = ambients_;
  if (!ambients) return std::nullopt;
  DISPPARAMS none = {};
  OwnedVariant value;
  const HRESULT result = ambients->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                          &none, &value, nullptr, nullptr);
  if (FAILED(result)) return std::nullopt;
  try {
    return FromComponent(runtime_, value);
  } catch (const Error&) {
    return std::nullopt;
  }
}

std::optional<bool> Container::AmbientFlag(DISPID property) const {
  const auto value = Ambient(property);
  if (!value || (value->Type() != VariantType::kBoolean && value->Type() != VariantType::kInt16 &&
                 value->Type() != VariantType::kInt32)) {
    return std::nullopt;
  }
  return ToBoolean(*value);
}

std::optional<Color> Container::AmbientColor(DISPID property) const {
  const auto value = Ambient(property);
  if (!value || value->Type() != VariantType::kInt32) return std::nullopt;
  const auto color = static_cast<std::uint32_t>(ToInt32(*value));
  // Some containers have values of their own for "none".
  COLORREF drawn = 0;
  if (FAILED(::OleTranslateColor(color, nullptr, &drawn))) return std::nullopt;
  return Color{color};
}

FontRef Container::AmbientFont() const {
  const auto value = Ambient(DISPID_AMBIENT_FONT);
  const FontRef* const font = value ? std::get_if<FontRef>(&value->Get()) : nullptr;
  return MakeFont(font && *font ? (*font)->Description() : FontDescription{});
}

std::string Container::AmbientName() const {
  const auto value = Ambient(DISPID_AMBIENT_DISPLAYNAME);
  const std::string* const name = value ? std::get_if<std::string>(&value->Get()) : nullptr;
  return name ? *name : std::string();
}

void Container::NoteFocus(bool has_focus) {
  if (const auto site = control_site_) site->OnFocus(has_focus);
}

void Container::NoteAccessKeys() {
  if (const auto site = control_site_) site->OnControlInfoChanged();
}

bool Container::Translate(MSG& message) const {
  const auto site = control_site_;
  return site && site->TranslateAccelerator(&message, HeldKeys()) == S_OK;
}

}  // namespace levelwidgets::activex
