#include <levelwidgets/host/script/png_file.h>

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

// PNG wants red, green, blue in this order.
std::vector<png_byte> BytesOf(const Picture& picture) {
  std::vector<png_byte> bytes;
  bytes.reserve(picture.pixels.size() * 3);
  for (const std::uint32_t pixel : picture.pixels) {
    const ColorRef color{pixel};
    bytes.insert(bytes.end(), {color.red(), color.green(), color.blue()});
  }
  return bytes;
}

[[noreturn]] void Refuse(const std::string& path, const std::string& cause) {
  throw Error(kInvalidCall, "LevelWidgets", "The picture \"" + path + "\" cannot be written: " + cause);
}

}  // namespace

void WritePng(const Picture& picture, const std::string& path) {
  if (picture.size.width <= 0 || picture.size.height <= 0) Refuse(path, "it has no pixels");
  const std::vector<png_byte> bytes = BytesOf(picture);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.size.width);
  image.height = static_cast<png_uint_32>(picture.size.height);
  image.format = PNG_FORMAT_RGB;
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) Refuse(path, std::strerror(errno));
  const bool written = png_image_write_to_stdio(&image, file, 0, bytes.data(), 0, nullptr) != 0;
  const bool closed = std::fclose(file) == 0;
  if (written && closed) return;
  const std::string cause = written ? std::strerror(errno) : image.message;
  std::remove(path.c_str());
  Refuse(path, cause);
}

}  // namespace levelwidgets
