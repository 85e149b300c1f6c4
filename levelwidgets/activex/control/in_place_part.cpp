#include <levelwidgets/activex/control/in_place_part.h>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::activex {

HRESULT InPlacePart::GetWindow(HWND* window) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!window) return E_POINTER;
  *window = nullptr;
  return component_.Run([&] {
    if (!component_.Place().Active()) return E_FAIL;
    *window = win32::ToNative<HWND>(component_.SharedControl()->GetSurface().hWnd());
    return *window ? S_OK : E_FAIL;
  });
}

HRESULT InPlacePart::InPlaceDeactivate() {
  return component_.Run([&] { return component_.Place().Deactivate(); });
}

HRESULT InPlacePart::UIDeactivate() {
  return component_.Run([&] { return component_.Place().DeactivateUserInterface(); });
}

HRESULT InPlacePart::SetObjectRects(LPCRECT position, LPCRECT clip) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!position) return E_POINTER;
  return component_.Run([&] { return component_.Place().SetRects(*position, clip ? *clip : RECT{}); });
}

HRESULT InPlacePart::TranslateAccelerator(LPMSG message) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!message) return E_POINTER;
  return component_.Run([&] { return component_.Place().TranslateMessage(*message); });
}

}  // namespace levelwidgets::activex
