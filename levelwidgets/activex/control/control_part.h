// A control's mnemonics, ambient properties and the freezing of its events.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/component_part.h>

namespace levelwidgets::activex {

class ControlPart : public ComponentPart<IOleControl> {
 public:
  using ComponentPart::ComponentPart;
  ~ControlPart() override;

  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(LPMSG message) override;
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

 private:
  HACCEL table_ = nullptr;  // what GetControlInfo has handed out
};

}  // namespace levelwidgets::activex
