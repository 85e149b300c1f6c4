#include <iostream>
#include <nlohmann/json.hpp>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

// The controls, then the classes that are none.
std::vector<const ClassInfo*> AllClasses() {
  std::vector<const ClassInfo*> classes(ControlClasses().begin(), ControlClasses().end());
  classes.insert(classes.end(), ObjectClasses().begin(), ObjectClasses().end());
  return classes;
}

const ClassInfo& FindClass(const std::string& name) {
  if (const ClassInfo* info = FindControlClass(name)) return *info;
  if (const ClassInfo* info = FindObjectClass(name)) return *info;
  std::vector<std::string_view> names;
  std::string list;
  for (const ClassInfo* info : AllClasses()) {
    names.push_back(info->Name());
    list += (list.empty() ? "" : ", ") + info->Name();
  }
  const std::string_view nearest = NearestName(name, names);
  throw Error(kInvalidCall, "LevelWidgets",
              "There is no class \"" + name + "\"" +
                  (nearest.empty() ? "." : "; did you mean \"" + std::string(nearest) + "\"?") +
                  " The classes: " + list);
}

void DescribeOne(const ClassInfo& info, bool json) {
  if (json) {
    std::cout << DescribeAsJson(info).dump(2) << "\n";
  } else {
    std::cout << DescribeAsText(info);
  }
}

void DescribeAll(bool json) {
  auto list = nlohmann::ordered_json::array();
  for (const ClassInfo* info : AllClasses()) {
    if (json) {
      list.push_back(DescribeAsJson(*info));
    } else {
      std::cout << (info == ControlClasses().front() ? "" : "\n\n") << DescribeAsText(*info);
    }
  }
  if (json) std::cout << list.dump(2) << "\n";
}

}  // namespace

void AddDescribeCommand(CLI::App& program, int& status) {
  struct Arguments {
    std::string name;
    bool json = false;
  };
  CLI::App* command = program.add_subcommand("describe", "Describes the members of a class, or of all");
  command->footer("Example:\n  levelwidgets describe FlatButton --json");
  const auto given = std::make_shared<Arguments>();
  command->add_option("CLASS", given->name, "The class, as in a form file");
  command->add_flag("--json", given->json, "In a stable format for programs");
  command->callback([given, &status] {
    given->name.empty() ? DescribeAll(given->json) : DescribeOne(FindClass(given->name), given->json);
    status = 0;
  });
}

}  // namespace levelwidgets
