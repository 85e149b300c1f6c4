#include <levelwidgets/native/native.h>

namespace levelwidgets {

TEST(NativeTest, ThePlatformsDriverActsOnThatPlatform) {
  const auto platform = MakePlatform();
  const auto driver = DriverOf(*platform);
  EXPECT_EQ(&driver->GetPlatform(), platform.get());
  driver->MovePointer({40, 50});
  PixelPoint pointer;
  platform->Windows().GetCursorPos(pointer);
  EXPECT_EQ(pointer, (PixelPoint{40, 50}));
}

}  // namespace levelwidgets
