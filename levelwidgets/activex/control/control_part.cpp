#include <levelwidgets/activex/control/control_part.h>

#include <vector>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::activex {

namespace {

// With Alt, in both cases of the letter.
std::vector<ACCEL> AcceleratorsOf(const std::string& keys) {
  std::vector<ACCEL> accelerators;
  const auto add = [&](wchar_t key) { accelerators.push_back({FALT, static_cast<WORD>(key), 0}); };
  for (const wchar_t key : win32::ToWide(keys)) {
    wchar_t other = key;
    ::CharLowerBuffW(&other, 1);
    add(other);
    ::CharUpperBuffW(&other, 1);
    add(other);
  }
  return accelerators;
}

// The character of a mnemonic, of Enter or of Escape, whichever message brings it.
std::int16_t CharacterOf(const MSG& message) {
  return message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN || message.message == WM_CHAR ||
                 message.message == WM_SYSCHAR || message.message == WM_COMMAND
             ? static_cast<std::int16_t>(LOWORD(message.wParam))
             : std::int16_t{0};
}

}  // namespace

ControlPart::~ControlPart() {
  if (table_) ::DestroyAcceleratorTable(table_);
}

HRESULT ControlPart::GetControlInfo(CONTROLINFO* info) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!info) return E_POINTER;
  return component_.Run([&] {
    const std::string keys = component_.SharedControl()->GetSurface().AccessKeys();
    component_.Place().NoteAccessKeys(keys);
    std::vector<ACCEL> accelerators = AcceleratorsOf(keys);
    if (table_) ::DestroyAcceleratorTable(table_);
    table_ = accelerators.empty()
                 ? nullptr
                 : ::CreateAcceleratorTableW(accelerators.data(), static_cast<int>(accelerators.size()));
    info->cb = sizeof *info;
    info->hAccel = table_;
    info->cAccel = static_cast<USHORT>(accelerators.size());
    info->dwFlags = 0;
    return S_OK;
  });
}

HRESULT ControlPart::OnMnemonic(LPMSG message) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!message) return E_POINTER;
  return component_.Run([&] {
    const auto control = component_.SharedControl();
    const bool hears = control->GetSurface().Enabled() && control->Site().UserMode();
    if (hears) control->OnAccessKeyPress(CharacterOf(*message));
    return S_OK;
  });
}

HRESULT ControlPart::OnAmbientPropertyChange(DISPID property) {
  return component_.Run([&] {
    if (!component_.HasControl()) return S_OK;
    const auto control = component_.SharedControl();
    if (property != DISPID_UNKNOWN) {
      control->OnAmbientChanged(AmbientNameOf(property));
      return S_OK;
    }
    for (const DISPID each : AmbientProperties()) control->OnAmbientChanged(AmbientNameOf(each));
    return S_OK;
  });
}

HRESULT ControlPart::FreezeEvents(BOOL freeze) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  component_.Points().Freeze(freeze != FALSE);
  return S_OK;
}

}  // namespace levelwidgets::activex
