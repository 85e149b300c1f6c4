// Invariants of windows, focus, capture and hover.
#include <levelwidgets/host/monkey/invariant_checks.h>

namespace levelwidgets::monkey {

namespace {

bool Shows(const HostedControl& hosted) {
  return hosted.GetControl() && hosted.Visible() && hosted.GetControl()->GetSurface().Enabled();
}

// Whether the control shows itself in colours for the pointer that are not its normal ones.
bool Highlighted(const HostedControl& hosted) {
  const auto control = hosted.GetControl();
  if (!control) return false;
  const ClassInfo& info = control->Class();
  const PropertyInfo* normal = info.FindProperty("BackColor");
  const PropertyInfo* over = info.FindProperty("BackColorMouseOver");
  if (!normal || !over) return false;
  const Variant shown(control->GetSurface().BackColor());
  return shown == over->get(*control) && !(shown == normal->get(*control));
}

PixelPoint Middle(const PixelRect& rect) {
  return {rect.left + rect.width() / 2, rect.top + rect.height() / 2};
}

}  // namespace

std::string CheckFocus(const Subject& subject) {
  WindowApi& windows = subject.desktop.Windows();
  const WindowHandle focus = windows.GetFocus();
  if (!focus) return "";
  if (!windows.IsWindow(focus)) return "the window that has it no longer exists";
  return windows.IsWindowVisible(focus) ? "" : "the window that has it is hidden";
}

// A window that is hidden keeps its capture.
std::string CheckCapture(const Subject& subject) {
  WindowApi& windows = subject.desktop.Windows();
  const WindowHandle capture = windows.GetCapture();
  return !capture || windows.IsWindow(capture) ? "" : "the window that has it no longer exists";
}

std::string CheckActive(const Subject& subject) {
  const WindowHandle active = subject.desktop.Windows().GetActiveWindow();
  if (!active) return "";
  memory::WindowTree& tree = subject.desktop.Windows().Tree();
  const memory::Window* window = tree.Find(active);
  if (!window) return "the active window no longer exists";
  if (!tree.IsTopLevel(*window)) return "the active window is inside another";
  return window->Shown() ? "" : "the active window is hidden";
}

std::string CheckWindows(const Subject& subject) {
  if (subject.form.Closed()) return "";
  std::vector<WindowHandle> known;
  for (const auto& hosted : subject.form.Controls()) {
    if (!hosted->GetControl()) return hosted->Name() + " is on the form without a control";
    known.push_back(hosted->GetControl()->GetSurface().hWnd());
    if (!subject.desktop.Windows().IsWindow(known.back())) return hosted->Name() + " has lost its window";
  }
  const memory::Window* form = subject.desktop.Windows().Tree().Find(subject.form.hWnd());
  if (!form) return "the form has lost its window";
  for (const memory::Window* child : form->children) {
    if (std::ranges::find(known, child->handle) == known.end()) return "a window is that of no control";
  }
  return "";
}

// Those that show themselves so before were left behind by what took the pointer from them; they do not
// count.
std::string CheckHover(const Subject& subject) {
  if (!subject.control || !subject.other) return "";
  if (!subject.desktop.Windows().IsWindowVisible(subject.form.hWnd())) return "";
  std::vector<std::shared_ptr<HostedControl>> normal;
  for (const auto& hosted : subject.form.Controls()) {
    if (!Highlighted(*hosted)) normal.push_back(hosted);
  }
  for (const int button : {kLeftButton, kRightButton, kMiddleButton}) subject.desktop.Release(button);
  for (const auto& visited : {subject.control, subject.other}) {
    subject.desktop.MovePointer(Middle(visited->ScreenRect()));
    subject.desktop.MovePointer({Middle(visited->ScreenRect()).x + 1, Middle(visited->ScreenRect()).y});
  }
  constexpr std::uint32_t kTwoPolls = 200;
  subject.desktop.Advance(kTwoPolls);
  std::string names;
  int highlighted = 0;
  for (const auto& hosted : normal) {
    if (!Highlighted(*hosted) || !Shows(*hosted)) continue;
    names += (highlighted++ == 0 ? "" : ", ") + hosted->Name();
  }
  return highlighted < 2 ? "" : names + " show themselves as under the pointer";
}

}  // namespace levelwidgets::monkey
