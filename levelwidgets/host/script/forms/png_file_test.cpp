#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/forms/png_file.h>

namespace levelwidgets {
namespace {

TEST(PngFile, HoldsThePixelsOfThePicture) {
  const Picture picture{{2, 2}, {0x000000FF, 0x0000FF00, 0x00FF0000, 0x00123456}};
  const std::string path = (std::filesystem::temp_directory_path() / "levelwidgets_pixels.png").string();
  WritePng(picture, path);

  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_TRUE(png_image_begin_read_from_file(&image, path.c_str()));
  ASSERT_EQ(image.width, 2u);
  ASSERT_EQ(image.height, 2u);
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
  ASSERT_TRUE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr));
  EXPECT_THAT(bytes, ::testing::ElementsAre(0xFF, 0, 0, 0, 0xFF, 0, 0, 0, 0xFF, 0x56, 0x34, 0x12));
  std::filesystem::remove(path);
}

TEST(PngFile, CannotBeEmptyOrInNoFolder) {
  EXPECT_THROW(WritePng({{0, 5}, {}}, "empty.png"), Error);
  EXPECT_FALSE(std::filesystem::exists("empty.png"));
  EXPECT_THROW(WritePng({{1, 1}, {0}}, "no such folder/picture.png"), Error);
}

std::string CauseOf(const Picture& picture, const std::string& path) {
  try {
    WritePng(picture, path);
    return "";
  } catch (const Error& error) {
    return error.Description();
  }
}

TEST(PngFile, LeavesTheOldFileWhenItCannotBeWritten) {
  const auto folder = std::filesystem::temp_directory_path() / "levelwidgets_png_folder";
  std::filesystem::create_directories(folder);
  const std::string path = (folder / "old.png").string();
  WritePng({{1, 1}, {0}}, path);
  const auto size = std::filesystem::file_size(path);
  EXPECT_THROW(WritePng({{0, 0}, {}}, path), Error);
  EXPECT_EQ(std::filesystem::file_size(path), size);
  EXPECT_EQ(CauseOf({{1, 1}, {0}}, folder.string()),
            "The picture \"" + folder.string() + "\" cannot be written: Is a directory");
  std::filesystem::remove_all(folder);
}

TEST(PngFile, AFullDeviceIsReported) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  EXPECT_EQ(CauseOf({{1, 1}, {0}}, "/dev/full"),
            "The picture \"/dev/full\" cannot be written: No space left on device");
}

}  // namespace
}  // namespace levelwidgets
