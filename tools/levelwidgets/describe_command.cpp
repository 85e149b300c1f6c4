#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/identity/manifest.h>
#include <levelwidgets/activex/identity/type_library.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/host/describe/frozen.h>
#include <levelwidgets/host/describe/pages.h>
#include <levelwidgets/pages/registry.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

enum class Format { kText, kJson, kMarkdown, kSchema };

const ClassInfo& FindClass(const std::string& name) {
  std::vector<std::string_view> names;
  std::string list;
  for (const ClassInfo* info : DescribedClasses()) {
    if (name == info->Name() || name == info->QualifiedName()) return *info;
    names.push_back(info->Name());
    list += (list.empty() ? "" : ", ") + std::string(info->Name());
  }
  for (const PageInfo* page : Pages()) names.push_back(page->name);
  const std::string_view nearest = NearestName(name, names);
  throw Error(kInvalidCall, "LevelWidgets",
              "There is no class \"" + name + "\"" +
                  (nearest.empty() ? "." : "; did you mean \"" + std::string(nearest) + "\"?") +
                  " The classes: " + list);
}

[[noreturn]] void RefuseSchema(std::string_view name) {
  throw Error(kInvalidCall, "LevelWidgets",
              std::string(name) + " is no control: only controls stand in form files and have a schema");
}

const ClassInfo& FindControl(const std::string& name) {
  const ClassInfo& info = FindClass(name);
  if (!FindControlClass(name)) RefuseSchema(info.Name());
  return info;
}

void Print(const nlohmann::ordered_json& json) { std::cout << json.dump(2) << "\n"; }

void DescribeOne(const std::string& name, Format format) {
  switch (format) {
    case Format::kText: std::cout << DescribeAsText(FindClass(name)); break;
    case Format::kJson: Print(DescribeAsJson(FindClass(name))); break;
    case Format::kMarkdown: std::cout << DescribeAsMarkdown(FindClass(name)); break;
    case Format::kSchema: Print(PropertiesSchema(FindControl(name))); break;
  }
}

void DescribePage(const PageInfo& page, Format format) {
  switch (format) {
    case Format::kText: std::cout << DescribeAsText(page); break;
    case Format::kJson: Print(DescribeAsJson(page)); break;
    case Format::kMarkdown: std::cout << DescribeAsMarkdown(page); break;
    case Format::kSchema: RefuseSchema(page.name);
  }
}

// Of classes or of pages.
template <typename List>
void DescribeList(const List& infos, Format format) {
  auto list = nlohmann::ordered_json::array();
  for (const auto* info : infos) {
    if (format == Format::kJson) {
      list.push_back(DescribeAsJson(*info));
      continue;
    }
    if (info != infos.front()) std::cout << "\n\n";
    std::cout << (format == Format::kMarkdown ? DescribeAsMarkdown(*info) : DescribeAsText(*info));
  }
  if (format == Format::kJson) Print(list);
}

void DescribePages(Format format) {
  if (format == Format::kSchema) RefuseSchema("A property page");
  DescribeList(Pages(), format);
}

void DescribeAll(Format format) {
  if (format == Format::kSchema) return Print(FormSchema(ControlClasses()));
  DescribeList(DescribedClasses(), format);
}

void Describe(const std::string& name, Format format) {
  if (name.empty()) return DescribeAll(format);
  if (const PageInfo* page = FindPage(name)) return DescribePage(*page, format);
  DescribeOne(name, format);
}

std::vector<std::string> MemberAndIdentifierLines() {
  std::vector<std::string> lines = MemberLines(DescribedClasses());
  for (std::string& line : IdentifierLines()) lines.push_back(std::move(line));
  return lines;
}

// Prints the list in the file with the members and identifiers that it lacks.
void GrowList(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Error(kInvalidCall, "LevelWidgets", "The list " + path + " cannot be read");
  std::ostringstream list;
  list << in.rdbuf();
  const FrozenMembers grown = GrowFrozenMembers(list.str(), MemberAndIdentifierLines());
  if (grown.broken.empty()) {
    std::cout << grown.text;
    return;
  }
  std::string text =
      "These members and identifiers were released and cannot change; give what is new another name and "
      "number:";
  for (const std::string& line : grown.broken) text += "\n  " + line;
  throw Error(kInvalidCall, "LevelWidgets", text);
}

void PrintComponentFile(const std::string& kind) {
  if (kind == "idl") {
    std::cout << TypeLibraryIdl();
  } else if (kind == "manifest-x64") {
    std::cout << LibraryManifest(64);
  } else if (kind == "manifest-x86") {
    std::cout << LibraryManifest(32);
  } else {
    throw Error(
        kInvalidCall, "LevelWidgets",
        "Components are not built with \"" + kind + "\". What there is: idl, manifest-x64, manifest-x86");
  }
}

}  // namespace

void AddDescribeCommand(Program& program) {
  struct Arguments {
    std::string name;
    std::string frozen;
    std::string component;
    Format format = Format::kText;
    bool pages = false;
  };
  Command& command =
      program.Add("describe", "Describes the members of a class, or of all, or property pages");
  command.SetFooter(
      "The schema without a class is that of form files, for editors that complete and check them; with "
      "a class it is that of the control's Properties.\n\n"
      "A property page is described by its fields and the order in which it writes.\n\n"
      "Examples:\n"
      "  levelwidgets describe FlatButton\n"
      "  levelwidgets describe FlatButton --json\n"
      "  levelwidgets describe ppFlatGrid\n"
      "  levelwidgets describe --schema > form.schema.json");
  const auto given = std::make_shared<Arguments>();
  command.AddOption("CLASS", &given->name, "The class, as in a form file, or the property page");
  command.AddFlag("--pages", given->pages, "All property pages");
  command.AddOption(
      "--frozen", &given->frozen,
      "Prints the list of members in this file with those that it lacks; refuses when one of the "
      "listed has changed");
  command.AddOption("--component", &given->component,
                    "Prints what the components are built with: idl, the source text of their type library; "
                    "manifest-x64 or manifest-x86, with which a program uses them without registration");
  const auto add_format = [&](const char* flag, Format format, const char* help) {
    const auto take = [given, flag, format] {
      if (given->format != Format::kText) throw FlagConflict{flag, "another format"};
      given->format = format;
    };
    command.AddFlag(flag, take, help);
  };
  add_format("--json", Format::kJson, "In a stable format for programs");
  add_format("--markdown", Format::kMarkdown, "As a page");
  add_format("--schema", Format::kSchema, "As a JSON Schema");
  command.SetBody([given] {
    if (!given->frozen.empty()) {
      GrowList(given->frozen);
      return 0;
    }
    if (!given->component.empty()) {
      if (!given->name.empty()) throw FlagConflict{"--component", "CLASS"};
      PrintComponentFile(given->component);
      return 0;
    }
    if (given->pages && !given->name.empty()) throw FlagConflict{"--pages", "CLASS"};
    given->pages ? DescribePages(given->format) : Describe(given->name, given->format);
    return 0;
  });
}

}  // namespace levelwidgets
