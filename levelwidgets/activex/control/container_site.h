// The container as the control sees it.
#pragma once

#include <memory>

#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/frame/control_site.h>

namespace levelwidgets::activex {

class Component;

// Outlives the component where the control's code still runs; the control then hears from nobody.
class ContainerSite : public ControlSite {
 public:
  ContainerSite(Component& component, std::shared_ptr<Runtime> runtime)
      : component_(&component), runtime_(std::move(runtime)) {}
  void End() { component_ = nullptr; }

  Platform& GetPlatform() override { return runtime_->GetPlatform(); }
  WindowHandle ParentWindow() override;
  bool UserMode() override;
  bool DisplayAsDefault() override;
  std::string DisplayName() override;
  FontRef AmbientFont() override;
  Color AmbientBackColor() override;
  Color AmbientForeColor() override;
  void PropertyChanged(std::string_view name) override;
  void FocusChanged(bool has_focus, WindowHandle other) override;
  bool HandsFocusOn(WindowHandle other, std::function<void()> settle) override;
  bool TakeKey(KeyMessage& key) override;
  bool WasOffered(const KeyMessage& key) override;
  // There is nobody whom the component interface would report it to. Debuggers see it.
  bool TakeError(std::string_view event, const Error& error) override;

 private:
  Component* component_;
  std::shared_ptr<Runtime> runtime_;
};

}  // namespace levelwidgets::activex
