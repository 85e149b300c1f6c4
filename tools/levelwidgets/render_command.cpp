#include <cstdlib>

#include <levelwidgets/host/property_frame/sample_page.h>
#include <levelwidgets/host/script/forms/png_file.h>
#include <levelwidgets/host/script/lua/interrupt.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/pages/registry.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

struct RenderArguments {
  std::optional<std::string> form;
  std::optional<std::string> page;
  std::string picture;
  int dpi = 96;
  std::string palette = "light";
  std::string locale = "en-US";
  std::string hover;
  std::string open;
  bool trust = false;
};

// So that a form of any size is on it as a whole; only what is captured costs memory.
constexpr PixelSize kAmpleScreen{16000, 16000};

[[noreturn]] void Refuse(const std::string& text) { throw Error(kInvalidCall, "LevelWidgets", text); }

HostedControl& FindControl(const Form& form, const std::string& name) {
  if (const auto control = form.Find(name)) return *control;
  std::vector<std::string_view> names;
  for (const auto& control : form.Controls()) names.push_back(control->Name());
  const std::string_view nearest = NearestName(name, names);
  Refuse(form.Name() + " has no control named \"" + name + "\"" +
         (nearest.empty() ? "" : "; did you mean \"" + std::string(nearest) + "\"?"));
}

// F4 opens what can be opened. Returns what has then come up.
PixelRect Open(DesktopDriver& desktop, HostedControl& control) {
  const std::vector<TopLevelWindow> before = desktop.TopLevelWindows();
  control.SetFocus();
  desktop.Key(kKeyF4);
  for (const TopLevelWindow& window : desktop.TopLevelWindows()) {
    if (std::ranges::find(before, window.handle, &TopLevelWindow::handle) == before.end()) return window.rect;
  }
  Refuse(control.Name() + " (" + std::string(control.ControlClass().Name()) + ") has nothing to open");
}

PixelRect Union(const PixelRect& a, const PixelRect& b) {
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}

// Nothing else ends a script that is stuck in a function of a library.
[[noreturn]] void EndProcess(const std::string& text) {
  PrintError(text);
  std::_Exit(1);
}

ScriptOptions OptionsOf(const RenderArguments& arguments) {
  if (arguments.trust) return {.trusted = true};
  return {.time_limit = kPictureTimeLimit, .on_hang = EndProcess};
}

// What is larger has no pixels on the desktop in memory.
void CheckSize(const Form& form, const PixelRect& area) {
  constexpr int kMost = 8192;
  if (area.width() <= kMost && area.height() <= kMost) return;
  Refuse(form.Name() + " would be " + std::to_string(area.width()) + " by " + std::to_string(area.height()) +
         " pixels; a picture has at most " + std::to_string(kMost) + " by " + std::to_string(kMost) +
         ": a smaller form or --dpi fits");
}

// A form by its file, or the window of a property page.
void CheckSubject(const RenderArguments& arguments) {
  if (!arguments.form && !arguments.page) throw MissingArgument{"FORM or --page"};
  if (arguments.form && arguments.page) throw FlagConflict{"--page", "FORM"};
}

std::shared_ptr<Form> SubjectOf(const RenderArguments& arguments, ScriptHost& host) {
  if (arguments.form) return host.LoadForm(*arguments.form);
  return MakeSamplePage(host.Desktop().GetPlatform(), PageNamed(*arguments.page));
}

int Render(const RenderArguments& arguments) {
  ScriptHost host(OptionsOf(arguments));
  host.MakeDesktop(
      {.size = kAmpleScreen, .dpi = arguments.dpi, .locale = arguments.locale, .palette = arguments.palette});
  const auto form = SubjectOf(arguments, host);
  DesktopDriver& desktop = host.Desktop();
  if (!form->Closed()) CheckSize(*form, form->ScreenRect());
  form->Show();
  desktop.Settle();
  if (form->Closed()) Refuse(form->Name() + " has closed itself: there is nothing to draw");
  if (!arguments.hover.empty()) desktop.MovePointer(FindControl(*form, arguments.hover).ScreenCentre());
  PixelRect area = form->ScreenRect();
  if (!arguments.open.empty()) area = Union(area, Open(desktop, FindControl(*form, arguments.open)));
  desktop.Settle();
  if (host.OutOfTime() || ScriptInterrupted()) return 1;  // which has been reported
  CheckSize(*form, area);
  WritePng(desktop.Capture(area), arguments.picture);
  return 0;
}

}  // namespace

void AddRenderCommand(Program& program) {
  Command& command = program.Add("render", "Draws a form, or a property page, to a picture");
  command.SetFooter(
      "The form's script is run, in a sandbox and for 10 s at most unless it is trusted. The picture shows "
      "the form's window with its frame.\n\n"
      "A property page is drawn as the window that edits a new control of its class; --hover and --open are "
      "for the page's own controls.\n\n"
      "Examples:\n  levelwidgets render order.form.toml -o order.png --hover cmdSave\n"
      "  levelwidgets render --page ppFlatGrid -o page.png --palette dark");
  const auto given = std::make_shared<RenderArguments>();
  command.AddOption("FORM", &given->form, "The form file");
  command.AddOption("--page", &given->page, "The property page to draw instead of a form: ppFlatScroll",
                    {.value_name = "NAME"});
  command.AddOption("-o,--output", &given->picture, "The picture, in PNG format",
                    {.required = true, .value_name = "FILE"});
  command.AddOption("--dpi", &given->dpi, "Pixels per inch, 24 to 960",
                    {.shows_default = true, .range = {{24, 960}}});
  AddPaletteOption(command, given->palette);
  AddLocaleOption(command, given->locale);
  command.AddOption("--hover", &given->hover, "A control for the pointer to be over", {.value_name = "NAME"});
  command.AddOption("--open", &given->open, "A control to open the drop-down of", {.value_name = "NAME"});
  AddTrustOption(command, given->trust);
  command.SetBody([given] {
    CheckSubject(*given);
    return RunInterruptibly([&] { return Render(*given); });
  });
}

}  // namespace levelwidgets
