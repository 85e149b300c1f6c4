#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/forms/png_file.h>

namespace levelwidgets {

void WritePng(const Picture&, const std::string& path) {
  throw Error(kInvalidCall, "LevelWidgets",
              "The picture \"" + path + "\" cannot be written: pictures are not written here");
}

}  // namespace levelwidgets
