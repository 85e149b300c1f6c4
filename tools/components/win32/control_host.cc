// Shows the controls of a scene in the windows of the system's control host: control_host LIBRARY CLASS SCENE
//
// LIBRARY and CLASS are the host's, for instance atl100.dll AtlAxWin100. Prints a line for each thing tried,
// "at NAME LEFT TOP WIDTH HEIGHT" for each control where it is on the screen, and "event NAME EVENT
// ARGUMENTS" for what the controls raise until the window is closed.
#include <tools/components/win32/atl_host.h>
#include <tools/components/win32/event_sink.h>
#include <tools/components/win32/scene.h>

namespace {

// As a handler that turns all that is typed into capital letters.
void MakeCapital(SHORT& character) {
  if (character >= 'a' && character <= 'z') character = static_cast<SHORT>(character - 'a' + 'A');
}

void Listen(IDispatch* control, const std::string& name) {
  EventSink::Connect(control, [name](const std::wstring& event, DISPPARAMS& arguments) {
    std::string line = "event " + name + " " + Narrow(event);
    for (UINT i = arguments.cArgs; i-- > 0;) line += " " + TextOf(arguments.rgvarg[i]);
    Say(line);
    if (event == L"KeyPress" && arguments.rgvarg[0].vt == (VT_BYREF | VT_I2))
      MakeCapital(*arguments.rgvarg[0].piVal);
  });
}

std::string SizeText(LONG width, LONG height) {
  return std::to_string(width) + " x " + std::to_string(height);
}

void CheckWindow(IDispatch* control, const SceneControl& at, HWND frame) {
  const long handle = Get(control, L"hWnd");
  const HWND window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
  Check(at.name + " has a window in the host's", "yes", IsChild(frame, window) ? "yes" : "no");
  RECT bounds{};
  GetWindowRect(window, &bounds);
  Check(at.name + " has the host's size", SizeText(at.width, at.height),
        SizeText(bounds.right - bounds.left, bounds.bottom - bounds.top));
}

IDispatchPtr ShowControl(const AtlHost& host, HWND frame, const SceneControl& at) {
  IDispatchPtr control;
  try {
    control = host.Make(L"LevelWidgets." + Widen(at.name), frame,
                        {at.left, at.top, at.left + at.width, at.top + at.height});
    Check(at.name + " is a component with late binding", "yes", control ? "yes" : "no");
    for (const SceneStep& step : at.steps) Take(control, step);
    CheckWindow(control, at, frame);
    Listen(control, at.name);
  } catch (const _com_error& error) {
    Check(at.name + " is shown", "no error", InHex(error.Error()));
  }
  return control;
}

void PrintPlace(const SceneControl& at, HWND frame) {
  POINT corner{at.left, at.top};
  ClientToScreen(frame, &corner);
  Say("at " + at.name + " " + std::to_string(corner.x) + " " + std::to_string(corner.y) + " " +
      std::to_string(at.width) + " " + std::to_string(at.height));
}

void Show(const AtlHost& host, const Scene& scene) {
  const HWND frame = MakeFrame(L"Control host");
  std::vector<IDispatchPtr> controls;
  for (const SceneControl& at : scene) {
    controls.push_back(ShowControl(host, frame, at));
    PrintPlace(at, frame);
  }
  Say("shown");
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  for (std::size_t i = 0; i < scene.size(); ++i) {
    if (!controls[i]) continue;
    controls[i].GetInterfacePtr()->AddRef();
    Check(scene[i].name + " is held by nobody else", "1",
          std::to_string(controls[i].GetInterfacePtr()->Release()));
  }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 4) return 2;
  OleInitialize(nullptr);
  try {
    Show(AtlHost(arguments[1], arguments[2]), ReadScene(arguments[3]));
  } catch (const _com_error& error) {
    Check("the control host", "no error", InHex(error.Error()));
  }
  OleUninitialize();
  Say("end");
  return 0;
}
