// The pictures that designers take from the library for their toolboxes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <array>
#include <set>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/activex/testing/component_module.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::activex {
namespace {

constexpr int kSize = 16;
using Pixels = std::array<std::uint32_t, kSize * kSize>;

// From the lowest row on; nothing but zeros when the bitmap has another size.
Pixels PixelsOf(HBITMAP bitmap) {
  Pixels pixels{};
  BITMAP shape{};
  ::GetObjectW(bitmap, sizeof shape, &shape);
  if (shape.bmWidth != kSize || shape.bmHeight != kSize) return pixels;
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, kSize, kSize, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  HDC const context = ::CreateCompatibleDC(nullptr);
  ::GetDIBits(context, bitmap, 0, kSize, pixels.data(), &info, DIB_RGB_COLORS);
  ::DeleteDC(context);
  return pixels;
}

Pixels PixelsOf(HINSTANCE module, const wchar_t* name, UINT flags) {
  const auto bitmap =
      static_cast<HBITMAP>(::LoadImageW(module, name, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION | flags));
  const Pixels pixels = PixelsOf(bitmap);
  ::DeleteObject(bitmap);
  return pixels;
}

TEST(Toolbox, EachControlHasItsPictureInTheLibraryByItsNumber) {
  std::set<Pixels> different{Pixels{}};
  for (const ComponentClass& each : ComponentClasses()) {
    if (!each.is_control) continue;
    const std::string name(each.info->Name());
    const std::string file =
        std::string(SourceDir()) + "/levelwidgets/activex/identity/toolbox/" + name + ".bmp";
    const Pixels pixels = PixelsOf(ComponentModule(), MAKEINTRESOURCEW(ToolboxPictureOf(*each.identity)), 0);
    EXPECT_EQ(pixels, PixelsOf(nullptr, std::wstring(file.begin(), file.end()).c_str(), LR_LOADFROMFILE))
        << name;
    EXPECT_TRUE(different.insert(pixels).second) << name;
  }
  EXPECT_EQ(different.size(), 10u);
}

}  // namespace
}  // namespace levelwidgets::activex
