#include <levelwidgets/host/script/forms/png_file.h>

#include <png.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/files/atomic_file.h>

namespace levelwidgets {

namespace {

namespace fs = std::filesystem;

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

// The bytes of the file.
std::string Encoded(const Picture& picture, const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.size.width);
  image.height = static_cast<png_uint_32>(picture.size.height);
  image.format = PNG_FORMAT_RGB;
  image.flags = PNG_IMAGE_FLAG_FAST;
  const std::vector<png_byte> bytes = BytesOf(picture);
  std::string file(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  png_alloc_size_t size = file.size();
  if (png_image_write_to_memory(&image, file.data(), &size, 0, bytes.data(), 0, nullptr) == 0) {
    Refuse(path, image.message);
  }
  file.resize(size);
  return file;
}

// What is neither a file nor a folder (a pipe, /dev/stdout) is written to as it is.
bool IsDevice(const fs::path& path) {
  std::error_code missing;
  const fs::file_status status = fs::status(path, missing);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

void WriteToDevice(const fs::path& path, const std::string& bytes) {
  errno = 0;
  std::ofstream device(path, std::ios::binary);
  device << bytes;
  device.close();
  if (!device) throw std::system_error(errno != 0 ? errno : EIO, std::generic_category());
}

}  // namespace

void WritePng(const Picture& picture, const std::string& path) {
  if (picture.size.width <= 0 || picture.size.height <= 0) Refuse(path, "it has no pixels");
  const std::string bytes = Encoded(picture, path);
  try {
    if (IsDevice(PathOf(path))) {
      WriteToDevice(PathOf(path), bytes);
    } else {
      WriteFileAtomically(SystemFiles(), PathOf(path), bytes);
    }
  } catch (const std::system_error& error) {
    Refuse(path, error.code().message());
  }
}

}  // namespace levelwidgets
