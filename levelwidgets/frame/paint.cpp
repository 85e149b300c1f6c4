#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

ColorRef TranslateColor(DrawingApi& drawing, Color color, std::uint32_t palette) {
  ColorRef translated;
  return drawing.OleTranslateColor(color, palette, translated) ? translated : kInvalidColorRef;
}

}  // namespace levelwidgets
