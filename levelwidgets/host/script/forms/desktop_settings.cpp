#include <levelwidgets/host/script/forms/desktop_settings.h>

#include <algorithm>
#include <array>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/values/dates.h>
#include <levelwidgets/host/script/values/option_table.h>

namespace levelwidgets {

namespace {

constexpr int kMostPixels = 16384;
constexpr lua_Integer kMostMonitors = 16;

[[noreturn]] void Refuse(const std::string& text) { throw Error(kInvalidCall, "LevelWidgets.Desktop", text); }

[[noreturn]] void RefuseMonitors() {
  Refuse(
      "The desktop's monitors are a list of { left, top, width, height } in pixels: 1 to 16 of them, each up "
      "to "
      "16384 pixels wide, high and away, the first one, the primary, at 0, 0");
}

PixelRect MonitorAt(lua_State* L, int index) {
  if (!lua_istable(L, index)) RefuseMonitors();
  std::array<int, 4> numbers{};
  for (int i = 0; i < 4; ++i) {
    int is_whole = 0;
    lua_rawgeti(L, index, i + 1);
    const lua_Integer number = lua_tointegerx(L, -1, &is_whole);
    lua_pop(L, 1);
    const lua_Integer least = i < 2 ? -kMostPixels : 1;
    if (is_whole == 0 || number < least || number > kMostPixels) RefuseMonitors();
    numbers[static_cast<std::size_t>(i)] = static_cast<int>(number);
  }
  const auto [left, top, width, height] = numbers;
  return {left, top, left + width, top + height};
}

std::vector<PixelRect> MonitorsAt(lua_State* L, int index) {
  lua_getfield(L, index, "monitors");
  if (!lua_istable(L, -1)) RefuseMonitors();
  const auto count = static_cast<lua_Integer>(lua_rawlen(L, -1));
  if (count < 1 || count > kMostMonitors) RefuseMonitors();
  std::vector<PixelRect> monitors;
  for (lua_Integer i = 1; i <= count; ++i) {
    lua_rawgeti(L, -1, i);
    monitors.push_back(MonitorAt(L, lua_gettop(L)));
    lua_pop(L, 1);
  }
  lua_pop(L, 1);
  if (monitors.front().left != 0 || monitors.front().top != 0) RefuseMonitors();
  return monitors;
}

int DpiOf(const OptionTable& table, std::string_view name, int otherwise) {
  const int dpi = table.Whole(name, otherwise);
  if (dpi < 24 || dpi > 960) Refuse("The desktop's " + std::string(name) + " is between 24 and 960");
  return dpi;
}

void TakeSize(lua_State* L, int index, const OptionTable& table, DesktopSettings& settings) {
  if (table.Has("monitors")) {
    if (table.Has("width") || table.Has("height")) {
      Refuse("The desktop has either a width and a height, or monitors");
    }
    settings.monitors = MonitorsAt(L, index);
    return;
  }
  settings.size = {table.Whole("width", settings.size.width), table.Whole("height", settings.size.height)};
  if (std::min(settings.size.width, settings.size.height) < 1 ||
      std::max(settings.size.width, settings.size.height) > kMostPixels) {
    Refuse("The desktop's width and height are between 1 and 16384 pixels");
  }
}

}  // namespace

DesktopSettings DesktopSettingsAt(lua_State* L, int index) {
  const OptionTable table(
      L, index, "Desktop",
      {"width", "height", "monitors", "dpi", "dpi_x", "dpi_y", "locale", "code_page", "today", "palette"});
  DesktopSettings settings;
  TakeSize(L, index, table, settings);
  settings.dpi = DpiOf(table, "dpi", settings.dpi);
  settings.dpi_x = DpiOf(table, "dpi_x", settings.dpi);
  settings.dpi_y = DpiOf(table, "dpi_y", settings.dpi);
  settings.locale = table.Text("locale", settings.locale);
  if (table.Has("code_page")) settings.code_page = table.Whole("code_page", 0);
  settings.palette = table.Text("palette", settings.palette);
  if (table.Has("today")) {
    settings.today = DateOfIsoText(table.Text("today", ""));
    if (!settings.today) Refuse("The desktop's today is written as \"2024-05-15T10:30:00\"");
  }
  return settings;
}

}  // namespace levelwidgets
