#include <levelwidgets/host/script/forms/placement.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include <levelwidgets/frame/popup_placement.h>
#include <levelwidgets/host/script/forms/state.h>
#include <levelwidgets/host/script/values/option_table.h>

namespace levelwidgets {

namespace {

constexpr double kFarthestPixel = 1e6;
constexpr double kMostTwips = 1e8;
constexpr double kMostTwipsOfAPixel = 1440;

[[noreturn]] void RefusePlacement(const std::string& text) {
  throw Error(kInvalidCall, "LevelWidgets", text);
}

// The lists of numbers in the table at index 1.
class Lists {
 public:
  Lists(lua_State* L, const char* function, std::vector<std::string_view> names)
      : table_(L, 1, function, std::move(names)), function_(function) {}

  // Without the list nothing. `what` says what its numbers are.
  template <std::size_t N>
  std::optional<std::array<double, N>> Find(std::string_view name, const char* what, double least,
                                            double most) const {
    if (!table_.Has(name)) return {};
    const std::vector<Variant> values = table_.List(name, MemberTypeOf<double>());
    const auto is_good = [&](const Variant& value) {
      return IsNumber(value) && ToDouble(value) >= least && ToDouble(value) <= most;
    };
    if (values.size() != N || !std::ranges::all_of(values, is_good)) {
      RefusePlacement("lw." + function_ + ": " + std::string(name) + " is { " + what + " }");
    }
    std::array<double, N> numbers{};
    std::ranges::transform(values, numbers.begin(), [](const Variant& value) { return ToDouble(value); });
    return numbers;
  }

  template <std::size_t N>
  std::array<double, N> Need(std::string_view name, const char* what, double least, double most) const {
    if (const auto found = Find<N>(name, what, least, most)) return *found;
    RefusePlacement("lw." + function_ + " needs " + std::string(name) + " = { " + what + " }");
  }

 private:
  static bool IsNumber(const Variant& value) {
    switch (value.Type()) {
      case VariantType::kInt16:
      case VariantType::kInt32:
      case VariantType::kSingle:
      case VariantType::kDouble: return true;
      default: return false;
    }
  }

  OptionTable table_;
  std::string function_;
};

int Pixels(double number) { return static_cast<int>(std::lround(number)); }
Twips Length(double number) { return Twips(static_cast<float>(number)); }

PixelRect Owner(const Lists& lists) {
  const auto [left, top, right, bottom] =
      lists.Need<4>("owner", "left, top, right, bottom: pixels", -kFarthestPixel, kFarthestPixel);
  return {Pixels(left), Pixels(top), Pixels(right), Pixels(bottom)};
}

TwipSize Panel(const Lists& lists) {
  const auto [width, height] = lists.Need<2>("panel", "width, height: twips", 0, kMostTwips);
  return {Length(width), Length(height)};
}

TwipSize Screen(const Lists& lists, ScreenApi& screen) {
  const auto given = lists.Find<2>("screen", "width, height: twips", 1, kMostTwips);
  if (!given) return {Twips(screen.Width()), Twips(screen.Height())};
  return {Length((*given)[0]), Length((*given)[1])};
}

PixelTwips TwipsOfAPixel(const Lists& lists, ScreenApi& screen) {
  const auto given = lists.Find<2>("twips", "x, y: twips of a pixel", 1, kMostTwipsOfAPixel);
  if (!given) return {screen.TwipsPerPixelX(), screen.TwipsPerPixelY()};
  return {static_cast<float>((*given)[0]), static_cast<float>((*given)[1])};
}

PixelRect Area(const Lists& lists, ScreenApi& screen, PixelTwips twips) {
  const auto given =
      lists.Find<4>("monitor", "left, top, width, height: pixels", -kFarthestPixel, kFarthestPixel);
  if (given) {
    const auto [left, top, width, height] = *given;
    return {Pixels(left), Pixels(top), Pixels(left + width), Pixels(top + height)};
  }
  const TwipSize whole = Screen(lists, screen);
  return {0, 0, ToPixels(whole.width, twips.x), ToPixels(whole.height, twips.y)};
}

int PushPlace(lua_State* L, TwipPoint place) {
  lua_pushnumber(L, place.x.value);
  lua_pushnumber(L, place.y.value);
  return 2;
}

}  // namespace

int PlaceDropDownForScript(lua_State* L) {
  const Lists lists(L, "place_drop_down", {"owner", "panel", "screen", "twips"});
  ScreenApi& screen = StateOf(L).FormPlatform().Screen();
  return PushPlace(
      L, PlaceDropDown(Owner(lists), Panel(lists), Screen(lists, screen), TwipsOfAPixel(lists, screen)));
}

int PlacePanelForScript(lua_State* L) {
  const Lists lists(L, "place_panel", {"owner", "panel", "screen", "monitor", "twips"});
  ScreenApi& screen = StateOf(L).FormPlatform().Screen();
  const PixelTwips twips = TwipsOfAPixel(lists, screen);
  return PushPlace(L, PlacePanel(Owner(lists), Panel(lists), Area(lists, screen, twips), twips));
}

}  // namespace levelwidgets
