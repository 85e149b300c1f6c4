#include <levelwidgets/native/native_windows.h>

namespace levelwidgets {

namespace {

TEST(NativeWindowsTest, TheDriverActsOnThePlatformOfTheWindows) {
  const auto windows = NativeWindows::Open();
  const auto driver = windows->Driver();
  EXPECT_EQ(&driver->GetPlatform(), &windows->GetPlatform());
  driver->MovePointer({40, 50});
  PixelPoint pointer;
  windows->GetPlatform().Windows().GetCursorPos(pointer);
  EXPECT_EQ(pointer, (PixelPoint{40, 50}));
}

}  // namespace

}  // namespace levelwidgets
