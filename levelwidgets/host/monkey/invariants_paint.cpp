// Invariants of what is on the screen.
#include <cstdio>

#include <levelwidgets/host/monkey/exceptions.h>
#include <levelwidgets/host/monkey/invariant_checks.h>

namespace levelwidgets::monkey {

namespace {

std::string Hex(std::uint32_t color) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", color);
  return text;
}

std::string Place(const Subject& subject, PixelPoint screen) {
  std::string place = "screen pixel " + std::to_string(screen.x) + ", " + std::to_string(screen.y);
  for (const auto& hosted : subject.form.Controls()) {
    if (hosted->Visible() && hosted->ScreenRect().Contains(screen)) {
      place += " (" + std::string(hosted->ControlClass().Name()) + " " + hosted->Name() + ")";
    }
  }
  return place;
}

// The pixels of a top-level window, whatever covers it.
struct WindowPixels {
  PixelRect rect;  // on the screen
  std::vector<std::uint32_t> pixels;
};

// Those of the form and of what its controls have lifted out of it, but of no other form.
std::vector<WindowPixels> PixelsOf(const Subject& subject) {
  subject.desktop.Settle();
  std::vector<WindowPixels> all;
  for (const memory::Window* top : subject.desktop.Windows().Tree().Desktop().children) {
    const bool is_other_form = dynamic_cast<const Form*>(top->client) && top->client != &subject.form;
    if (top->store && !is_other_form) all.push_back({top->rect, top->store->pixels});
  }
  return all;
}

std::string Difference(const Subject& subject, const WindowPixels& before, const WindowPixels& after) {
  if (before.rect != after.rect) return "painting moves a window";
  if (before.pixels == after.pixels) return "";
  const auto [was, is] = std::ranges::mismatch(before.pixels, after.pixels);
  const auto index = static_cast<int>(was - before.pixels.begin());
  const int width = before.rect.width();
  const PixelPoint at{before.rect.left + index % width, before.rect.top + index / width};
  return Place(subject, at) + " was " + Hex(*was) + " and is " + Hex(*is) + " when painted again";
}

// "" when the two are the same.
std::string Difference(const Subject& subject, const std::vector<WindowPixels>& before,
                       const std::vector<WindowPixels>& after) {
  if (before.size() != after.size()) return "painting opens or closes a window";
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (std::string difference = Difference(subject, before[i], after[i]); !difference.empty())
      return difference;
  }
  return "";
}

// The window and what is in it, however deep.
std::vector<WindowHandle> TreeOf(memory::MemoryWindows& windows, const memory::Window& window) {
  std::vector<WindowHandle> all{window.handle};
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (const memory::Window* child : windows.Tree().Find(all[i])->children) all.push_back(child->handle);
  }
  return all;
}

void PaintLateParts(memory::Desktop& desktop, const memory::Window& window) {
  for (const WindowHandle one : TreeOf(desktop.Windows(), window)) {
    auto* control = dynamic_cast<Control*>(desktop.Windows().Tree().Find(one)->client);
    if (control && LooksLate(*control)) control->OnPaint();
  }
}

// The checks ignore what is late on purpose, in panels as well.
void PaintLate(const Subject& subject) {
  const auto& controls = subject.form.Controls();
  for (const auto& hosted : controls) {
    if (MayLookLate(*hosted->GetControl(), controls)) hosted->GetControl()->OnPaint();
  }
  for (const memory::Window* top : subject.desktop.Windows().Tree().Desktop().children) {
    if ((top->ex_style & kWsExToolWindow) != 0) PaintLateParts(subject.desktop, *top);
  }
}

}  // namespace

void PaintEverything(memory::Desktop& desktop) {
  memory::MemoryWindows& windows = desktop.Windows();
  for (const memory::Window* top : windows.Tree().Desktop().children) {
    for (const WindowHandle one : TreeOf(windows, *top)) windows.InvalidateRect(one);
  }
  desktop.Settle();
}

std::string CheckRepaint(const Subject& subject) {
  if (subject.form.Closed()) return "";
  PaintLate(subject);
  const auto before = PixelsOf(subject);
  PaintEverything(subject.desktop);
  std::string difference = Difference(subject, before, PixelsOf(subject));
  const std::size_t objects = subject.desktop.LiveObjects();
  PaintEverything(subject.desktop);
  if (difference.empty() && subject.desktop.LiveObjects() != objects) {
    difference = "painting again makes " + std::to_string(objects) + " drawing objects " +
                 std::to_string(subject.desktop.LiveObjects());
  }
  return difference;
}

std::string CheckPaintInside(const Subject& subject) {
  const auto hosted = subject.control;
  if (!hosted) return "";
  const auto control = hosted->GetControl();
  PaintLate(subject);
  const auto before = PixelsOf(subject);
  // The system has not asked for this paint: only the control's window clips the drawing.
  control->OnPaint();
  return Difference(subject, before, PixelsOf(subject));
}

}  // namespace levelwidgets::monkey
