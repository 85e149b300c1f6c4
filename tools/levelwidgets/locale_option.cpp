#include <levelwidgets/platform/memory/desktop.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

void AddLocaleOption(Command& command, std::string& locale) {
  const auto names = memory::LocaleNames();
  const std::vector<std::string> locales(names.begin(), names.end());
  std::string list;
  for (const std::string& name : locales) list += (list.empty() ? "" : ", ") + name;
  command.AddOption("--locale", &locale, "The locale of the desktop, and its code page: " + list,
                    {.shows_default = true, .value_name = "NAME", .choices = locales});
}

}  // namespace levelwidgets
