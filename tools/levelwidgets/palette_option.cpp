#include <levelwidgets/platform/memory/system_colors.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

void AddPaletteOption(Command& command, std::string& palette) {
  const auto names = memory::PaletteNames();
  const std::vector<std::string> palettes(names.begin(), names.end());
  std::string list;
  for (const std::string& name : palettes) list += (list.empty() ? "" : ", ") + name;
  command.AddOption("--palette", &palette, "The colours of the desktop: " + list,
                    {.shows_default = true, .value_name = "NAME", .choices = palettes});
}

}  // namespace levelwidgets
