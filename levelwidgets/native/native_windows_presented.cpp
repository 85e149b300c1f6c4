#include <levelwidgets/native/native_windows.h>
#include <levelwidgets/presenter/presenter.h>

namespace levelwidgets {

namespace {

using presenter::NativeDisplay;
using presenter::Presenter;

class PresentedWindows final : public NativeWindows {
 public:
  PresentedWindows(std::unique_ptr<NativeDisplay> display, const memory::DesktopOptions& options)
      : display_(std::move(display)), desktop_(display_->Fit(options)), presenter_(*display_, desktop_) {}

  Platform& GetPlatform() override { return desktop_; }
  int Run() override { return presenter_.Run(); }
  // The desktop is its own driver, and ends with this.
  std::shared_ptr<DesktopDriver> Driver() override { return {std::shared_ptr<void>(), &desktop_}; }

 private:
  std::unique_ptr<NativeDisplay> display_;
  memory::Desktop desktop_;
  Presenter presenter_;
};

}  // namespace

std::unique_ptr<NativeWindows> NativeWindows::Open(const NativeWindowOptions& options) {
  std::string why;
  auto display = NativeDisplay::Open(options.scale, why);
  if (!display) throw NoDisplay(why);
  memory::DesktopOptions desktop;
  desktop.palette = memory::FindPalette(options.palette).value_or(memory::StandardPalette());
  return std::make_unique<PresentedWindows>(std::move(display), desktop);
}

}  // namespace levelwidgets
