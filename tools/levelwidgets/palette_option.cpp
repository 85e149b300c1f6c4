#include <levelwidgets/platform/memory/system_colors.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

void AddPaletteOption(CLI::App& command, std::string& palette) {
  const auto names = memory::PaletteNames();
  const std::vector<std::string> palettes(names.begin(), names.end());
  command
      .add_option("--palette", palette, "The colours of the desktop: " + CLI::detail::join(palettes, ", "))
      ->check(CLI::IsMember(palettes).description(""))
      ->type_name("NAME")
      ->capture_default_str();
}

}  // namespace levelwidgets
