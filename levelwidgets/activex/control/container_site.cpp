#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/container_site.h>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/platform/system_colors.h>
#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::activex {

WindowHandle ContainerSite::ParentWindow() {
  return component_ ? component_->Place().ParentWindow() : WindowHandle{};
}

// A container that does not say runs its controls.
bool ContainerSite::UserMode() {
  return component_ && component_->GetContainer().AmbientFlag(DISPID_AMBIENT_USERMODE).value_or(true);
}

bool ContainerSite::DisplayAsDefault() {
  const auto shown =
      component_ ? component_->GetContainer().AmbientFlag(DISPID_AMBIENT_DISPLAYASDEFAULT) : std::nullopt;
  if (!shown) throw Error(kNoSuchMember);
  return *shown;
}

std::string ContainerSite::DisplayName() {
  return component_ ? component_->GetContainer().AmbientName() : std::string();
}

FontRef ContainerSite::AmbientFont() {
  return component_ ? component_->GetContainer().AmbientFont() : MakeFont();
}

Color ContainerSite::AmbientBackColor() {
  const auto color =
      component_ ? component_->GetContainer().AmbientColor(DISPID_AMBIENT_BACKCOLOR) : std::nullopt;
  return color.value_or(kButtonFace);
}

Color ContainerSite::AmbientForeColor() {
  const auto color =
      component_ ? component_->GetContainer().AmbientColor(DISPID_AMBIENT_FORECOLOR) : std::nullopt;
  return color.value_or(kButtonText);
}

void ContainerSite::PropertyChanged(std::string_view name) {
  if (!component_) return;
  const auto keep = component_->Keep();
  component_->PropertyChanged(name);
}

void ContainerSite::FocusChanged(bool has_focus, WindowHandle) {
  if (!component_) return;
  const auto keep = component_->Keep();
  component_->Place().FocusChanged(has_focus);
}

// The window around the container gets the focus when a list of ours closes, and gives it back within a turn.
bool ContainerSite::HandsFocusOn(WindowHandle other, std::function<void()> settle) {
  if (!component_ || !component_->Place().IsAround(other)) return false;
  runtime_->GetPlatform().Clock().Post(std::move(settle));
  return true;
}

bool ContainerSite::TakeKey(KeyMessage& key) {
  if (!component_) return false;
  const auto keep = component_->Keep();
  return component_->Place().TakeKey(key);
}

bool ContainerSite::WasOffered(const KeyMessage& key) {
  return component_ && component_->Place().WasOffered(key);
}

bool ContainerSite::TakeError(std::string_view event, const Error& error) {
  const std::string text = "LevelWidgets: " + std::string(event) + ": " + error.what() + "\n";
  ::OutputDebugStringW(win32::ToWide(text).c_str());
  return true;
}

}  // namespace levelwidgets::activex
