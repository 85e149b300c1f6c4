#include <levelwidgets/platform/memory/memory_drawing.h>

#include <cstdlib>
#include <limits>

#include <levelwidgets/platform/memory/memory_drawing_state.h>

namespace levelwidgets::memory {

namespace {

double Aspect(const DrawingOptions& options) {
  return options.dpi_y > 0 && options.dpi_x > 0 ? static_cast<double>(options.dpi_x) / options.dpi_y : 1.0;
}

int ScaleRounded(int value, int numerator, int denominator) {
  if (denominator == 0) return -1;
  const std::int64_t product = static_cast<std::int64_t>(value) * numerator;
  const std::int64_t divisor = denominator;
  const std::int64_t half = std::abs(divisor) / 2;
  const std::int64_t rounded = (product + (product < 0 ? -half : half)) / divisor;
  const bool fits = rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max();
  return fits ? static_cast<int>(rounded) : -1;
}

}  // namespace

MemoryDrawing::State::State(const DrawingOptions& drawing_options)
    : options(drawing_options),
      code_page(drawing_options.code_page),
      fonts(drawing_options.fonts, Aspect(drawing_options), code_page) {
  auto brush = [this](int index, std::uint32_t color) {
    AddStock(index, {.kind = ObjectKind::kBrush, .brush = {color, index == kNullBrush}});
  };
  auto pen = [this](int index, std::uint32_t color, int style) {
    AddStock(index, {.kind = ObjectKind::kPen, .pen = {color, style, 1}});
  };
  constexpr std::uint32_t kGrays[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0, 0};
  for (int i = kWhiteBrush; i <= kNullBrush; ++i) brush(i, kGrays[i]);
  pen(kWhitePen, 0xFFFFFF, kPsSolid);
  pen(kBlackPen, 0, kPsSolid);
  pen(kNullPen, 0, kPsNull);
  constexpr int kFixedFonts[] = {10, 11, 16};
  for (const int index : kFixedFonts) AddStockFont(index, 15, kFontWeightNormal, "Courier New");
  constexpr int kVariableFonts[] = {12, 14, 17};  // 17 is the dialogs' font, 8 points
  for (const int index : kVariableFonts)
    AddStockFont(index, -ScaleRounded(8, options.dpi_y, 72), 400, "Tahoma");
  AddStockFont(kSystemFont, kDefaultCellHeight, kFontWeightBold, "System");
  AddStock(kStockBitmap, {.kind = ObjectKind::kBitmap});
}

void MemoryDrawing::State::AddStock(int index, DrawingObject object) {
  object.stock = true;
  stock[static_cast<std::size_t>(index)] = Add(std::move(object));
  ++stock_count;
}

void MemoryDrawing::State::AddStockFont(int index, int height, int weight, const char* face) {
  FontRequest request;
  request.height = height;
  request.weight = weight;
  request.face_name = face;
  AddStock(index, {.kind = ObjectKind::kFont, .font = fonts.Get(request)});
}

MemoryDrawing::MemoryDrawing(const DrawingOptions& options) : state_(std::make_unique<State>(options)) {}

MemoryDrawing::~MemoryDrawing() = default;

std::size_t MemoryDrawing::LiveObjects() const {
  return state_->objects.Size() - state_->stock_count + state_->contexts.Size() - state_->window_contexts;
}

void MemoryDrawing::SetPalette(const SystemPalette& palette) { state_->options.palette = palette; }

const SystemPalette& MemoryDrawing::Palette() const { return state_->options.palette; }

const text::CodePage& MemoryDrawing::CodePage() const { return state_->code_page; }

std::string MemoryDrawing::ToCodePage(std::string_view utf8) const { return state_->code_page.ToBytes(utf8); }

std::string MemoryDrawing::FromCodePage(std::string_view bytes) const {
  return state_->code_page.ToUtf8(bytes);
}

int MemoryDrawing::GetDeviceCaps(DcHandle dc, int index) {
  if (!state_->FindContext(dc)) return 0;
  const DrawingOptions& options = state_->options;
  switch (index) {
    case kHorzRes: return options.screen.width;
    case kVertRes: return options.screen.height;
    case kBitsPixel: return 32;
    case kLogPixelsX: return options.dpi_x;
    case kLogPixelsY: return options.dpi_y;
    default: return 0;
  }
}

bool MemoryDrawing::OleTranslateColor(Color color, std::uint32_t, ColorRef& result) {
  const std::uint32_t bits = color.bits();
  if (bits >> 24 <= kPaletteRgb) {
    result = {bits};
    return true;
  }
  const std::uint32_t index = bits & 0x7FFFFFFF;
  if (!(bits & 0x80000000u) || index >= kSystemColorCount) return false;
  result = GetSysColor(static_cast<int>(index));
  return true;
}

ColorRef MemoryDrawing::GetSysColor(int index) { return state_->options.palette.At(index); }

int MemoryDrawing::MulDiv(int value, int numerator, int denominator) {
  return ScaleRounded(value, numerator, denominator);
}

}  // namespace levelwidgets::memory
