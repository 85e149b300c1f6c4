#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/forms/own_desktop.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets {

namespace {

memory::SystemPalette PaletteNamed(const std::string& name) {
  if (const auto palette = memory::FindPalette(name)) return *palette;
  std::string names;
  for (const std::string_view known : memory::PaletteNames()) {
    names += (names.empty() ? "\"" : ", \"") + std::string(known) + "\"";
  }
  throw Error(kInvalidCall, "LevelWidgets.Desktop",
              "There is no palette \"" + name + "\"; the palettes: " + names);
}

// The locale of that name, whatever its case.
std::string LocaleNamed(const std::string& name) {
  if (memory::IsLocaleName(name)) return name;
  std::string names;
  for (const std::string_view known : memory::LocaleNames()) {
    names += (names.empty() ? "\"" : ", \"") + std::string(known) + "\"";
  }
  throw Error(kInvalidCall, "LevelWidgets.Desktop",
              "There is no locale \"" + name + "\"; the locales: " + names);
}

int CheckedCodePage(int number) {
  if (memory::IsCodePage(number)) return number;
  throw Error(
      kInvalidCall, "LevelWidgets.Desktop",
      "There is no code page " + std::to_string(number) +
          " here; those that desktops have are 1250 to 1258, 437, 850, 866 and 874, and of pairs of bytes "
          "932, 936, 949 and 950");
}

}  // namespace

ScriptDesktop MakeOwnDesktop(const DesktopSettings& settings) {
  memory::DesktopOptions options;
  options.screen = settings.size;
  options.monitors = settings.monitors;
  options.dpi_x = settings.dpi_x.value_or(settings.dpi);
  options.dpi_y = settings.dpi_y.value_or(settings.dpi);
  options.locale = LocaleNamed(settings.locale);
  if (settings.code_page) options.code_page = CheckedCodePage(*settings.code_page);
  if (settings.today) options.now = *settings.today;
  options.palette = PaletteNamed(settings.palette);
  const auto desktop = std::make_shared<memory::Desktop>(options);
  auto tracing = std::make_unique<TracingPlatform>(*desktop);
  desktop->SetOutwardPlatform(tracing.get());
  return {desktop, desktop.get(), std::move(tracing)};
}

}  // namespace levelwidgets
