#include <levelwidgets/presenter/native_text.h>

#include <gtest/gtest.h>

namespace levelwidgets::presenter {
namespace {

TEST(NativeText, EveryLineEndBecomesTheDesktopsOwn) {
  EXPECT_EQ(ToDesktopLines("a\nb\r\nc\rd\n"), "a\r\nb\r\nc\r\nd\r\n");
  EXPECT_EQ(ToDesktopLines("\n\r\n\n\r"), "\r\n\r\n\r\n\r\n");
  EXPECT_EQ(ToDesktopLines(""), "");
}

TEST(NativeText, LinesOfTheDesktopEndInALineFeedOutside) {
  EXPECT_EQ(ToNativeLines("a\r\nb\r\n\r\nc"), "a\nb\n\nc");
}

}  // namespace
}  // namespace levelwidgets::presenter
