// What a MemoryDrawing owns.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <levelwidgets/platform/memory/drawing_objects.h>
#include <levelwidgets/platform/memory/font_cache.h>
#include <levelwidgets/platform/memory/memory_drawing.h>
#include <levelwidgets/platform/memory/text_layout.h>

namespace levelwidgets::memory {

inline constexpr int kStockBitmap = 20;
inline constexpr int kStockCount = 21;

struct MemoryDrawing::State {
  explicit State(const DrawingOptions& drawing_options);

  Context* FindContext(DcHandle dc) { return contexts.Find(dc.value); }
  ObjectHandle Add(DrawingObject object) { return {objects.Add(std::move(object))}; }
  DcHandle AddContext(Context context);
  void AddStock(int index, DrawingObject object);
  void AddStockFont(int index, int height, int weight, const char* face);
  // The bitmap behind `handle` is free for another context.
  void Deselect(ObjectHandle bitmap);
  // Selects the bitmap `object` (of `handle`) into a memory context; null when it may not be.
  ObjectHandle SelectBitmap(Context& context, ObjectHandle handle, const DrawingObject& object);

  DrawingOptions options;
  text::CodePage code_page;
  FontCache fonts;
  SlotTable<DrawingObject> objects;
  SlotTable<Context> contexts;
  std::array<ObjectHandle, kStockCount> stock{};
  std::size_t stock_count = 0;
  std::size_t window_contexts = 0;
  // Kept for their memory.
  TextLayout layout;
  std::string bytes;
  std::vector<std::uint32_t> copied;
};

}  // namespace levelwidgets::memory
