// The native screen, keyboard and pointer, opened for as long as this lives.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/presenter/scale.h>

namespace levelwidgets::presenter {

class NativeDisplay {
 public:
  // `scale` is how many times as large as at 96 dots per inch forms are; as the display itself wants it when
  // not given. Null where windows cannot be shown; `why` is then what the system says.
  static std::unique_ptr<NativeDisplay> Open(std::optional<double> scale, std::string& why);
  ~NativeDisplay();
  NativeDisplay(const NativeDisplay&) = delete;
  NativeDisplay& operator=(const NativeDisplay&) = delete;

  const Scale& GetScale() const { return scale_; }
  // A desktop with the screens of the system as its monitors, each without what the system keeps for itself,
  // at the resolution that the scale asks for, in the system's language, at this moment; otherwise as `base`.
  memory::DesktopOptions Fit(memory::DesktopOptions base) const;
  // Where the pointer can be, in desktop pixels: on all screens, and at Nowhere.
  PixelRect PointerArea() const;
  // Where the pointer is while it is over none of the windows.
  static constexpr PixelPoint Nowhere() { return {-10000, -10000}; }

 private:
  explicit NativeDisplay(std::optional<double> scale);

  Scale scale_;
  int dots_per_inch_;
};

// Local date and time.
Date RealNow();

}  // namespace levelwidgets::presenter
