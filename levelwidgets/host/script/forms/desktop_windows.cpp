#include <levelwidgets/host/script/forms/desktop_windows.h>

#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/host/script/forms/desktop.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

DesktopDriver& CheckDriver(lua_State* L) { return *CheckScriptDesktop(L).driver; }

// --- Other programs --------------------------------------------------------------------------------

int Leave(lua_State* L) {
  CheckDriver(L).Leave();
  return 0;
}

int Enter(lua_State* L) {
  CheckDriver(L).Enter();
  return 0;
}

// --- The system menu -------------------------------------------------------------------------------

int Choose(lua_State* L, std::uintptr_t command) {
  DesktopDriver& driver = CheckDriver(L);
  driver.SystemCommand(CheckForm(L, 2)->form->hWnd(), command);
  return 0;
}

int Minimize(lua_State* L) { return Choose(L, kScMinimize); }
int Maximize(lua_State* L) { return Choose(L, kScMaximize); }
int Restore(lua_State* L) { return Choose(L, kScRestore); }
int Close(lua_State* L) { return Choose(L, kScClose); }

// --- Pointer and monitors --------------------------------------------------------------------------

struct NamedShape {
  int shape;
  const char* name;
};
constexpr NamedShape kShapes[] = {
    {kIdcArrow, "arrow"},    {kIdcIBeam, "ibeam"},        {kIdcWait, "wait"},
    {kIdcCross, "cross"},    {kIdcSizeNwSe, "size nwse"}, {kIdcSizeNeSw, "size nesw"},
    {kIdcSizeWe, "size we"}, {kIdcSizeNs, "size ns"},     {kIdcNo, "no"},
    {kIdcHand, "hand"}};

// nil for none
int PointerShape(lua_State* L) {
  const int present = CheckDriver(L).PointerShape();
  for (const NamedShape& named : kShapes) {
    if (named.shape != present) continue;
    lua_pushstring(L, named.name);
    return 1;
  }
  return 0;
}

int Monitors(lua_State* L) {
  lua_newtable(L);
  lua_Integer place = 0;
  for (const Monitor& monitor : CheckScriptDesktop(L).platform->Screen().Monitors()) {
    lua_newtable(L);
    SetField(L, "left", monitor.area.left);
    SetField(L, "top", monitor.area.top);
    SetField(L, "width", monitor.area.width());
    SetField(L, "height", monitor.area.height());
    lua_rawseti(L, -2, ++place);
  }
  return 1;
}

constexpr luaL_Reg kDesktopWindowMethods[] = {{"close", Guarded<Close>},
                                              {"enter", Guarded<Enter>},
                                              {"leave", Guarded<Leave>},
                                              {"maximize", Guarded<Maximize>},
                                              {"minimize", Guarded<Minimize>},
                                              {"monitors", Guarded<Monitors>},
                                              {"restore", Guarded<Restore>},
                                              {"pointer_shape", Guarded<PointerShape>},
                                              {nullptr, nullptr}};

}  // namespace

void AddDesktopWindowMethods(lua_State* L) { AddScriptMethods(L, kDesktopWindowMethods); }

int ScreenInTwips(lua_State* L) {
  ScreenApi& screen = StateOf(L).FormPlatform().Screen();
  const FormScale scale(screen);
  const PixelSize size = screen.Size();
  lua_newtable(L);
  for (const auto& [name, value] : {std::pair{"Width", size.width * scale.TwipsPerPixelX()},
                                    {"Height", size.height * scale.TwipsPerPixelY()},
                                    {"TwipsPerPixelX", scale.TwipsPerPixelX()},
                                    {"TwipsPerPixelY", scale.TwipsPerPixelY()}}) {
    lua_pushnumber(L, value);
    lua_setfield(L, -2, name);
  }
  return 1;
}

}  // namespace levelwidgets
