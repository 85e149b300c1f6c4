#include <cstdlib>
#include <iostream>

#include <levelwidgets/host/script/lua/interrupt.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/native/native_windows.h>
#include <tools/levelwidgets/commands.h>
#include <tools/levelwidgets/file_watch.h>

namespace levelwidgets {

namespace {

constexpr int kNoDisplay = 2;
constexpr std::uint32_t kWatchInterval = 100;  // milliseconds

constexpr int kLeastScale = 1;
constexpr int kMostScale = 8;
constexpr char kScaleVariable[] = "LEVELWIDGETS_SCALE";

struct ShowArguments {
  std::string form;
  bool watch = false;
  bool trust = false;
  std::optional<double> scale;
  std::string palette = "light";
};

// An interrupt that ends a script ends the program as well.
std::unique_ptr<ScriptHost> MakeScriptHost(Platform& platform, bool trusted) {
  const auto report = [&platform](const std::string& text) {
    PrintError(text);
    if (ScriptInterrupted()) platform.Clock().Quit(InterruptedStatus());
  };
  return std::make_unique<ScriptHost>(
      ScriptOptions{.report = report, .platform = &platform, .trusted = trusted});
}

// The form of a file in native windows, and whatever its script makes.
class ShownForm {
 public:
  ShownForm(Platform& platform, std::string path, bool trusted)
      : platform_(platform), path_(std::move(path)), trusted_(trusted) {}

  // In place of what was shown before, and where that was unless it is placed itself. Raises what is wrong
  // with the file or its script; nothing has then changed.
  void Load() {
    auto host = MakeScriptHost(platform_, trusted_);
    const auto form = host->LoadForm(path_);
    if (!form->Closed()) {
      const bool is_placed = form->LeftIsSet() || form->TopIsSet();
      if (form_ && !form_->Closed() && !is_placed) {
        const PixelRect before = form_->ScreenRect();
        form->MoveTo({before.left, before.top});
      }
      form->Show();
    }
    form_ = form;
    host_ = std::move(host);
  }

  void Reload() {
    try {
      Load();
      std::cerr << "reloaded" << std::endl;
    } catch (const std::exception& error) {
      PrintError(error.what());
      if (ScriptInterrupted()) platform_.Clock().Quit(InterruptedStatus());
    }
  }

 private:
  Platform& platform_;
  std::string path_;
  bool trusted_;
  std::unique_ptr<ScriptHost> host_;
  std::shared_ptr<Form> form_;
};

// Nothing when the environment does not say.
std::optional<double> ScaleOfEnvironment() {
  const char* const value = std::getenv(kScaleVariable);
  const std::string text = value ? value : "";
  if (text.empty()) return {};
  const bool is_number = text.find_first_not_of("0123456789.") == std::string::npos;
  char* stop = nullptr;
  const double scale = is_number ? std::strtod(text.c_str(), &stop) : 0;
  if (is_number && *stop == '\0' && scale >= kLeastScale && scale <= kMostScale) return scale;
  throw Error(
      kInvalidCall, "LevelWidgets",
      std::string(kScaleVariable) + " is \"" + text + "\"; it takes a number from 1 to 8, such as 1.5");
}

int Show(const ShowArguments& arguments) {
  const std::optional<double> scale = arguments.scale ? arguments.scale : ScaleOfEnvironment();
  const auto windows = NativeWindows::Open({.scale = scale, .palette = arguments.palette});
  Platform& platform = windows->GetPlatform();
  FileWatch watch(arguments.form);
  ShownForm shown(platform, arguments.form, arguments.trust);
  shown.Load();
  if (ScriptInterrupted()) return InterruptedStatus();
  if (arguments.watch) {
    platform.Clock().SetTimer(kWatchInterval, [&] {
      if (watch.HasChanged()) shown.Reload();
    });
  }
  windows->Run();
  return 0;
}

int ShowOrSuggestPicture(const ShowArguments& arguments) {
  try {
    return Show(arguments);
  } catch (const NoDisplay& error) {
    std::cerr << "There is no display here to show a form on (" << error.what() << "). A picture of it:\n"
              << "  levelwidgets render " << arguments.form << " -o form.png\n";
    return kNoDisplay;
  }
}

}  // namespace

void AddShowCommand(Program& program) {
  Command& command = program.Add("show", "Shows a form in native windows");
  command.SetFooter(
      "The form's script is run, in a sandbox unless it is trusted. The program ends when the last form is "
      "closed.\n\n"
      "Example:\n  levelwidgets show order.form.toml --watch");
  const auto given = std::make_shared<ShowArguments>();
  command.AddOption("FORM", &given->form, "The form file", {.required = true});
  command.AddFlag("--watch", given->watch,
                  "Load the form again whenever its file or a script beside it changes");
  AddTrustOption(command, given->trust);
#ifndef _WIN32
  command.AddOption(
      "--scale", &given->scale,
      "How many times as large forms are as at 96 dots per inch, 1 to 8, such as 1.5; else what "
      "LEVELWIDGETS_SCALE says, else what suits the display",
      {.range = {{kLeastScale, kMostScale}}});
  AddPaletteOption(command, given->palette);
#endif
  command.SetBody([given] { return RunInterruptibly([&] { return ShowOrSuggestPicture(*given); }); });
}

}  // namespace levelwidgets
