// Creating, selecting and deleting drawing objects and contexts.
#include <algorithm>

#include <levelwidgets/platform/memory/memory_drawing_state.h>

namespace levelwidgets::memory {

namespace {

constexpr int kWidestPen = 1000;  // so that no line takes long

}  // namespace

DcHandle MemoryDrawing::State::AddContext(Context context) {
  context.brush_handle = stock[kWhiteBrush];
  context.pen_handle = stock[kBlackPen];
  context.font_handle = stock[kSystemFont];
  context.bitmap_handle = stock[kStockBitmap];
  context.font = objects.Find(context.font_handle.value)->font;
  return {contexts.Add(std::move(context))};
}

void MemoryDrawing::State::Deselect(ObjectHandle bitmap) {
  const DrawingObject* object = objects.Find(bitmap.value);
  if (object && object->bitmap) object->bitmap->selected = false;
}

ObjectHandle MemoryDrawing::State::SelectBitmap(Context& context, ObjectHandle handle,
                                                const DrawingObject& object) {
  if (context.source) return {};
  if (handle == context.bitmap_handle) return handle;
  Bitmap& bitmap = object.bitmap ? *object.bitmap : *context.own_bitmap;
  if (bitmap.selected) return {};
  Deselect(context.bitmap_handle);
  bitmap.selected = object.bitmap != nullptr;
  context.bitmap_target = bitmap.Target();
  return std::exchange(context.bitmap_handle, handle);
}

DcHandle MemoryDrawing::CreateWindowDC(TargetSource* source) {
  if (!source) return {};
  Context context;
  context.source = source;
  context.background_mode = kTransparent;
  const DcHandle dc = state_->AddContext(std::move(context));
  if (dc) ++state_->window_contexts;
  return dc;
}

void MemoryDrawing::DestroyWindowDC(DcHandle dc) {
  const Context* context = state_->FindContext(dc);
  if (!context || !context->source) return;
  state_->contexts.Remove(dc.value);
  --state_->window_contexts;
}

DcHandle MemoryDrawing::CreateCompatibleDC(DcHandle dc) {
  if (dc && !state_->FindContext(dc)) return {};
  Context context;
  context.own_bitmap = std::make_unique<Bitmap>(PixelSize{1, 1});
  context.bitmap_target = context.own_bitmap->Target();
  return state_->AddContext(std::move(context));
}

bool MemoryDrawing::DeleteDC(DcHandle dc) {
  const Context* context = state_->FindContext(dc);
  if (!context || context->source) return false;
  state_->Deselect(context->bitmap_handle);
  state_->contexts.Remove(dc.value);
  return true;
}

ObjectHandle MemoryDrawing::CreateSolidBrush(ColorRef color) {
  return state_->Add({.kind = ObjectKind::kBrush, .brush = {Drawable(color), false}});
}

ObjectHandle MemoryDrawing::CreatePen(int style, int width, ColorRef color) {
  return state_->Add(
      {.kind = ObjectKind::kPen, .pen = {Drawable(color), style, std::clamp(width, 1, kWidestPen)}});
}

ObjectHandle MemoryDrawing::CreateFontA(const FontRequest& request) {
  return state_->Add({.kind = ObjectKind::kFont, .font = state_->fonts.Get(request)});
}

ObjectHandle MemoryDrawing::CreateCompatibleBitmap(DcHandle dc, PixelSize size) {
  constexpr std::int64_t kMostPixels = 1 << 28;
  if (!state_->FindContext(dc) || size.width < 0 || size.height < 0) return {};
  // Without area it is the stock bitmap, which needs no deletion but allows it.
  if (size.width == 0 || size.height == 0) return state_->stock[kStockBitmap];
  if (static_cast<std::int64_t>(size.width) * size.height > kMostPixels) return {};
  return state_->Add({.kind = ObjectKind::kBitmap, .bitmap = std::make_unique<Bitmap>(size)});
}

ObjectHandle MemoryDrawing::GetStockObject(int index) {
  if (index < 0 || index >= kStockBitmap) return {};
  return state_->stock[static_cast<std::size_t>(index)];
}

ObjectHandle MemoryDrawing::SelectObject(DcHandle dc, ObjectHandle handle) {
  Context* context = state_->FindContext(dc);
  const DrawingObject* object = state_->objects.Find(handle.value);
  if (!context || !object) return {};
  switch (object->kind) {
    case ObjectKind::kBrush:
      context->brush = object->brush;
      return std::exchange(context->brush_handle, handle);
    case ObjectKind::kPen: context->pen = object->pen; return std::exchange(context->pen_handle, handle);
    case ObjectKind::kFont: context->font = object->font; return std::exchange(context->font_handle, handle);
    default: return state_->SelectBitmap(*context, handle, *object);
  }
}

bool MemoryDrawing::DeleteObject(ObjectHandle handle) {
  const DrawingObject* object = state_->objects.Find(handle.value);
  if (!object) return false;
  if (object->stock) return true;
  if (object->bitmap && object->bitmap->selected) return false;
  state_->objects.Remove(handle.value);
  return true;
}

ColorRef MemoryDrawing::SetTextColor(DcHandle dc, ColorRef color) {
  Context* context = state_->FindContext(dc);
  return context ? std::exchange(context->text_color, color) : kInvalidColorRef;
}

ColorRef MemoryDrawing::SetBkColor(DcHandle dc, ColorRef color) {
  Context* context = state_->FindContext(dc);
  return context ? std::exchange(context->background_color, color) : kInvalidColorRef;
}

int MemoryDrawing::SetBkMode(DcHandle dc, int mode) {
  Context* context = state_->FindContext(dc);
  if (!context || (mode != kTransparent && mode != kOpaque)) return 0;
  return std::exchange(context->background_mode, mode);
}

}  // namespace levelwidgets::memory
