#include <levelwidgets/host/script/forms/desktop.h>

#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/host/form/open_panel.h>
#include <levelwidgets/host/script/forms/desktop_settings.h>
#include <levelwidgets/host/script/forms/desktop_windows.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/forms/invariants.h>
#include <levelwidgets/host/script/forms/png_file.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/sandbox/sandbox.h>
#include <levelwidgets/host/script/values/values.h>
#include <levelwidgets/platform/hand.h>

namespace levelwidgets {

namespace {

constexpr char kDesktopType[] = "desktop";
struct DesktopValue {};

DesktopDriver& CheckDesktop(lua_State* L) { return *CheckScriptDesktop(L).driver; }
WindowApi& CheckWindows(lua_State* L) { return CheckScriptDesktop(L).platform->Windows(); }
ScreenApi& CheckScreen(lua_State* L) { return CheckScriptDesktop(L).platform->Screen(); }
TracingPlatform& CheckTracing(lua_State* L) { return *CheckScriptDesktop(L).tracing; }

// The point at `index`, or the pointer's position without one.
PixelPoint PointAt(lua_State* L, int index) {
  PixelPoint point;
  if (lua_isnoneornil(L, index)) {
    CheckWindows(L).GetCursorPos(point);
    return point;
  }
  return {IntegerAt(L, index), IntegerAt(L, index + 1)};
}

// The window of the control or form at `index`.
WindowHandle WindowAt(lua_State* L, int index) {
  if (FormAt(L, index)) return CheckForm(L, index)->form->hWnd();
  return CheckControl(L, index)->GetControl()->GetSurface().hWnd();
}

// --- Pointer ---------------------------------------------------------------------------------------

void MovePointer(lua_State* L, PixelPoint screen) { MoveByHand(CheckDesktop(L), CheckWindows(L), screen); }

int Move(lua_State* L) {
  MovePointer(L, {IntegerAt(L, 2), IntegerAt(L, 3)});
  return 0;
}

int MoveTo(lua_State* L) {
  const TwipPoint place{Twips(static_cast<float>(luaL_checknumber(L, 3))),
                        Twips(static_cast<float>(luaL_checknumber(L, 4)))};
  const FormScale scale(CheckScreen(L));
  PixelPoint point = FormAt(L, 2) ? scale.OnForm(place) : scale.InControl(place);
  CheckWindows(L).ClientToScreen(WindowAt(L, 2), point);
  MovePointer(L, point);
  return 0;
}

int ButtonAt(lua_State* L, int index) {
  const int button = OptionalIntegerAt(L, index, kLeftButton);
  if (button != kLeftButton && button != kRightButton && button != kMiddleButton) {
    throw Error(kInvalidCall, "LevelWidgets.Desktop", "A button is 1 (left), 2 (right) or 4 (middle)");
  }
  return button;
}

int Press(lua_State* L) {
  CheckDesktop(L).Press(ButtonAt(L, 2));
  return 0;
}

int Release(lua_State* L) {
  CheckDesktop(L).Release(ButtonAt(L, 2));
  return 0;
}

int Click(lua_State* L) {
  const PixelPoint point = PointAt(L, 2);
  MovePointer(L, point);
  CheckDesktop(L).Click(point);
  return 0;
}

int DoubleClick(lua_State* L) {
  const PixelPoint point = PointAt(L, 2);
  MovePointer(L, point);
  CheckDesktop(L).DoubleClick(point);
  return 0;
}

int Wheel(lua_State* L) {
  CheckDesktop(L).Wheel(IntegerAt(L, 2));
  return 0;
}

// --- Keys and time ---------------------------------------------------------------------------------

int ShiftAt(lua_State* L, int index) { return OptionalIntegerAt(L, index, 0); }

int Key(lua_State* L) {
  CheckDesktop(L).Key(IntegerAt(L, 2), ShiftAt(L, 3));
  return 0;
}

int KeyDown(lua_State* L) {
  CheckDesktop(L).KeyDown(IntegerAt(L, 2), ShiftAt(L, 3));
  return 0;
}

int KeyUp(lua_State* L) {
  CheckDesktop(L).KeyUp(IntegerAt(L, 2), ShiftAt(L, 3));
  return 0;
}

int Type(lua_State* L) {
  CheckDesktop(L).Type(luaL_checkstring(L, 2));
  return 0;
}

int Advance(lua_State* L) {
  const lua_Integer ms = luaL_checkinteger(L, 2);
  luaL_argcheck(L, ms >= 0 && ms <= UINT32_MAX, 2, "milliseconds cannot be negative");
  CheckDesktop(L).Advance(static_cast<std::uint32_t>(ms));
  return 0;
}

// --- Screen ----------------------------------------------------------------------------------------
// The screen is read after all pending paints are done.

// nil outside the screen
int Pixel(lua_State* L) {
  DesktopDriver& desktop = CheckDesktop(L);
  desktop.Settle();
  const ColorRef color = desktop.PixelAt({IntegerAt(L, 2), IntegerAt(L, 3)});
  if (color == kInvalidColorRef) return 0;
  lua_pushinteger(L, color.value);
  return 1;
}

// Pushes the panel that the control at `index` has open. Returns the number of values: none for a form, and
// while no panel is open.
int PushPanel(lua_State* L, int index) {
  if (FormAt(L, index)) return 0;
  const auto panel = OpenPanelRect(CheckDesktop(L), *CheckControl(L, index)->GetControl());
  if (!panel) return 0;
  lua_newtable(L);
  SetField(L, "left", panel->left);
  SetField(L, "top", panel->top);
  SetField(L, "right", panel->right);
  SetField(L, "bottom", panel->bottom);
  return 1;
}

// left, top, right, bottom; panel
int Rect(lua_State* L) {
  PixelRect rect;
  CheckWindows(L).GetWindowRect(WindowAt(L, 2), rect);
  for (const int edge : {rect.left, rect.top, rect.right, rect.bottom}) lua_pushinteger(L, edge);
  return 4 + PushPanel(L, 2);
}

PixelRect AreaAt(lua_State* L, int index) {
  constexpr lua_Integer kFarthest = 1'000'000;
  constexpr lua_Integer kLargest = 16'384;
  for (int i = 0; i < 4; ++i) {
    const lua_Integer value = luaL_checkinteger(L, index + i);
    const bool fits = i < 2 ? value >= -kFarthest && value <= kFarthest : value >= 0 && value <= kLargest;
    if (!fits) {
      throw Error(kInvalidCall, "LevelWidgets.Desktop",
                  "A screenshot is of x, y, width, height: the last two up to 16384 pixels");
    }
  }
  const PixelPoint at{IntegerAt(L, index), IntegerAt(L, index + 1)};
  return {at.x, at.y, at.x + IntegerAt(L, index + 2), at.y + IntegerAt(L, index + 3)};
}

int Screenshot(lua_State* L) {
  DesktopDriver& desktop = CheckDesktop(L);
  const std::string path = PathAt(L, 2);
  const PixelSize screen = CheckScreen(L).Size();
  PixelRect area{0, 0, screen.width, screen.height};
  if (!lua_isnoneornil(L, 3)) {
    area = AreaAt(L, 3);
  }
  desktop.Settle();
  WritePng(desktop.Capture(area), path);
  return 0;
}

int Windows(lua_State* L) {
  lua_newtable(L);
  lua_Integer place = 0;
  for (const TopLevelWindow& window : CheckDesktop(L).TopLevelWindows()) {
    lua_newtable(L);
    SetField(L, "handle", window.handle.value);
    PushText(L, window.title);
    lua_setfield(L, -2, "title");
    PushText(L, window.text);
    lua_setfield(L, -2, "text");
    SetField(L, "left", window.rect.left);
    SetField(L, "top", window.rect.top);
    SetField(L, "width", window.rect.width());
    SetField(L, "height", window.rect.height());
    lua_pushboolean(L, window.active);
    lua_setfield(L, -2, "active");
    lua_rawseti(L, -2, ++place);
  }
  return 1;
}

int Focus(lua_State* L) {
  lua_pushinteger(L, CheckWindows(L).GetFocus().value);
  return 1;
}

int Capture(lua_State* L) {
  lua_pushinteger(L, CheckWindows(L).GetCapture().value);
  return 1;
}

int Active(lua_State* L) {
  lua_pushinteger(L, CheckWindows(L).GetActiveWindow().value);
  return 1;
}

// --- Calls and objects -----------------------------------------------------------------------------

int Trace(lua_State* L) {
  TracingPlatform& tracing = CheckTracing(L);
  luaL_checktype(L, 2, LUA_TBOOLEAN);
  lua_toboolean(L, 2) ? tracing.Start() : tracing.Stop();
  return 0;
}

void PushTraced(lua_State* L, const TraceArgument& argument) {
  if (const auto* whole = std::get_if<std::int64_t>(&argument)) {
    lua_pushinteger(L, *whole);
  } else if (const auto* number = std::get_if<double>(&argument)) {
    lua_pushnumber(L, *number);
  } else {
    const auto& text = std::get<std::string>(argument);
    lua_pushlstring(L, text.data(), text.size());
  }
}

int Calls(lua_State* L) {
  lua_newtable(L);
  lua_Integer place = 0;
  for (const TracedCall& call : CheckTracing(L).TakeCalls()) {
    lua_newtable(L);
    lua_pushstring(L, call.name.c_str());
    lua_setfield(L, -2, "name");
    lua_Integer position = 0;
    for (const TraceArgument& argument : call.arguments) {
      PushTraced(L, argument);
      lua_rawseti(L, -2, ++position);
    }
    lua_rawseti(L, -2, ++place);
  }
  return 1;
}

int Objects(lua_State* L) {
  lua_pushinteger(L, static_cast<lua_Integer>(CheckDesktop(L).LiveObjects()));
  return 1;
}

constexpr luaL_Reg kDesktopMethods[] = {{"active", Guarded<Active>},
                                        {"advance", Guarded<Advance>},
                                        {"calls", Guarded<Calls>},
                                        {"wheel", Guarded<Wheel>},
                                        {"capture", Guarded<Capture>},
                                        {"click", Guarded<Click>},
                                        {"doubleclick", Guarded<DoubleClick>},
                                        {"focus", Guarded<Focus>},
                                        {"key", Guarded<Key>},
                                        {"keydown", Guarded<KeyDown>},
                                        {"keyup", Guarded<KeyUp>},
                                        {"move", Guarded<Move>},
                                        {"move_to", Guarded<MoveTo>},
                                        {"objects", Guarded<Objects>},
                                        {"pixel", Guarded<Pixel>},
                                        {"press", Guarded<Press>},
                                        {"rect", Guarded<Rect>},
                                        {"release", Guarded<Release>},
                                        {"screenshot", Guarded<Screenshot>},
                                        {"trace", Guarded<Trace>},
                                        {"type", Guarded<Type>},
                                        {"windows", Guarded<Windows>},
                                        {nullptr, nullptr}};

int ReadDesktop(lua_State* L) {
  const std::string_view name = luaL_checkstring(L, 2);
  if (PushScriptMethod(L, 1, name)) return 1;
  RaiseNoSuchMember("Desktop", name, ScriptMethodNames(L, 1));
}

constexpr luaL_Reg kDesktopMetamethods[] = {{"__index", Guarded<ReadDesktop>}, {nullptr, nullptr}};

bool IsEmptyTable(lua_State* L, int index) {
  luaL_checktype(L, index, LUA_TTABLE);
  lua_pushnil(L);
  const bool empty = lua_next(L, index) == 0;
  if (!empty) lua_pop(L, 2);
  return empty;
}

}  // namespace

ScriptDesktop& CheckScriptDesktop(lua_State* L) {
  CheckUserdata<DesktopValue>(L, 1, kDesktopType);
  return StateOf(L).Desktop();
}

void OpenDesktop(lua_State* L) {
  DefineType<DesktopValue>(L, kDesktopType, kDesktopMetamethods);
  SetScriptMethods(L, kDesktopMethods);
  AddDesktopWindowMethods(L);
  AddInvariantMethods(L);
  lua_pop(L, 1);
}

int NewDesktop(lua_State* L) {
  RefuseInSandbox(L, "lw.desktop", "drives no desktop");
  ScriptState& state = StateOf(L);
  const bool as_given = state.DesktopIsGiven() && IsEmptyTable(L, 1);
  if (!as_given) state.MakeDesktop(DesktopSettingsAt(L, 1));
  PushUserdata(L, kDesktopType, DesktopValue{});
  return 1;
}

}  // namespace levelwidgets
