// A native screen of their own for tests that run the program as a person does. Not on Windows.
#pragma once

#ifndef _WIN32

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/platform/types.h>
#include <levelwidgets/testing/child_process.h>

namespace levelwidgets {

// 800 by 600 pixels, with a window manager. Colours are those of the forms.
class VirtualScreen {
 public:
  // Throws std::runtime_error when it does not come up.
  VirtualScreen();
  ~VirtualScreen();
  VirtualScreen(const VirtualScreen&) = delete;
  VirtualScreen& operator=(const VirtualScreen&) = delete;

  // Ends the window manager, which stands between the pointer and the windows: it gets each press first.
  void EndManager();
  void StartManager();

  // Waits until no window is managed. A program that starts may get the name of the window of one that has
  // ended, and the place of that as long as the manager knows it.
  bool WaitUntilEmpty() const;

  // As DISPLAY.
  const std::string& Name() const { return name_; }

  // What a person does with mouse and keyboard, in the words of xdotool.
  void Do(const std::string& words) const;
  // The same again and again until it can be done: what looks for windows fails when one vanishes meanwhile.
  void DoAtLast(const std::string& words) const;
  // The window whose title begins so comes to the front and has the keyboard, as soon as it is there.
  void Activate(const std::string& beginning) const;
  // What is in the title bar of the window whose title begins so, UTF-8. Empty without such a window.
  std::string TitleOf(const std::string& beginning) const;
  // The same of the window that has the keyboard.
  std::string ActiveTitle() const;
  // What surrounds all pixels of that colour now; empty without one.
  PixelRect Find(ColorRef color) const;
  // The same as soon as there are any; empty when none come in time. While a program draws, that may be a
  // part of what it is going to be.
  PixelRect WaitFor(ColorRef color) const;
  // The same as soon as it has been so for a moment.
  PixelRect WaitForAll(ColorRef color) const;
  // What surrounds the pixels in `area` that are not of the colour of its first one; empty when all are.
  PixelRect FindDrawn(const PixelRect& area) const;
  bool WaitWithout(ColorRef color) const;

 private:
  class Pixels;

  bool Try(const std::string& words) const;
  std::string PrintedBy(const std::string& shell_command) const;
  // What surrounds the pixels in `area` that are of the colour, or that are not. As they were read last.
  PixelRect FindIn(const PixelRect& area, ColorRef color, bool equal) const;

  std::filesystem::path folder_;
  std::string name_;
  std::unique_ptr<ChildProcess> server_;
  std::unique_ptr<ChildProcess> manager_;
  std::unique_ptr<Pixels> pixels_;
};

}  // namespace levelwidgets

#endif
