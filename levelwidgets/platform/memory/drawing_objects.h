// What drawing handles stand for.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <levelwidgets/platform/drawing.h>
#include <levelwidgets/platform/memory/font_cache.h>
#include <levelwidgets/platform/memory/system_colors.h>
#include <levelwidgets/platform/memory/target.h>

namespace levelwidgets::memory {

// Values by handle in constant time: a slot number in the low 16 bits, the number of the slot's use in
// the high ones, so that a deleted handle stays unknown when its slot is used again.
template <typename Value>
class SlotTable {
 public:
  // 0 when all slots are in use.
  std::uint32_t Add(Value value) {
    if (free_.empty() && !Grow()) return 0;
    const std::uint32_t index = free_.back();
    free_.pop_back();
    Slot& slot = At(index);
    slot.value = std::move(value);
    slot.used = true;
    ++size_;
    return slot.use << 16 | index;
  }

  // Null for an unknown or removed handle. Valid until the value is removed.
  Value* Find(std::uint32_t handle) {
    const std::uint32_t index = handle & 0xFFFF;
    if (index >= count_) return nullptr;
    Slot& slot = At(index);
    return slot.used && slot.use == handle >> 16 ? &slot.value : nullptr;
  }

  // `handle` is known.
  void Remove(std::uint32_t handle) {
    Slot& slot = At(handle & 0xFFFF);
    slot.value = Value{};
    slot.used = false;
    slot.use = slot.use == 0xFFFF ? 1 : slot.use + 1;
    free_.push_back(handle & 0xFFFF);
    --size_;
  }

  std::size_t Size() const { return size_; }

 private:
  struct Slot {
    Value value{};
    std::uint32_t use = 1;
    bool used = false;
  };

  // In blocks, so that growing moves nothing and leaves little unused.
  static constexpr std::size_t kBlock = 64;
  using Block = std::array<Slot, kBlock>;

  Slot& At(std::uint32_t index) { return (*blocks_[index / kBlock])[index % kBlock]; }

  bool Grow() {
    if (count_ > 0xFFFF) return false;
    if (count_ % kBlock == 0) blocks_.push_back(std::make_unique<Block>());
    free_.push_back(count_++);
    return true;
  }

  std::vector<std::unique_ptr<Block>> blocks_;
  std::uint32_t count_ = 0;  // of the slots that have been used
  std::vector<std::uint32_t> free_;
  std::size_t size_ = 0;
};

struct Brush {
  std::uint32_t color = 0xFFFFFF;
  bool null = false;
};

struct Pen {
  std::uint32_t color = 0;
  int style = kPsSolid;
  int width = 1;
};

struct Bitmap {
  explicit Bitmap(PixelSize size)
      : store{size, std::vector<std::uint32_t>(static_cast<std::size_t>(size.width) *
                                               static_cast<std::size_t>(size.height))},
        area{0, 0, size.width, size.height} {}

  DrawingTarget Target() { return {&store, {}, {&area, 1}}; }

  PixelStore store;
  PixelRect area;  // the clip list: all of it
  bool selected = false;
};

enum class ObjectKind : std::uint8_t { kNone, kBrush, kPen, kFont, kBitmap };

struct DrawingObject {
  ObjectKind kind = ObjectKind::kNone;
  bool stock = false;
  Brush brush;
  Pen pen;
  std::shared_ptr<Font> font;
  std::unique_ptr<Bitmap> bitmap;  // null for the stock bitmap: each context has its own
};

// A window's context has a source, a memory context a bitmap. Pen, brush and font are values of their
// own, so that deleting a selected one harms nobody.
struct Context {
  TargetSource* source = nullptr;
  std::unique_ptr<Bitmap> own_bitmap;  // one by one pixel, in place of the stock bitmap
  DrawingTarget bitmap_target;
  ObjectHandle brush_handle;
  ObjectHandle pen_handle;
  ObjectHandle font_handle;
  ObjectHandle bitmap_handle;
  Brush brush;
  Pen pen;
  std::shared_ptr<Font> font;
  ColorRef text_color;
  ColorRef background_color{0xFFFFFF};
  int background_mode = kOpaque;
  PixelPoint position;

  const DrawingTarget& Target() { return source ? source->Target() : bitmap_target; }
};

// What is drawn for a colour (0x00BBGGRR). The lowest bit of the top byte says that the rest is a palette
// index, whatever the other bits are: so the untranslatable 0xFFFFFFFF is black. 0x10FF names an index of a
// bitmap's own colours, which no bitmap here has. Otherwise the lower three bytes count.
constexpr std::uint32_t Drawable(ColorRef color) {
  constexpr std::uint32_t kBitmapIndex = 0x10FF;
  if ((color.value >> 24 & kPaletteIndex) != 0) return DisplayColor(color.value & 0xFFFF);
  return color.value >> 16 == kBitmapIndex ? 0 : color.value & 0xFFFFFF;
}

}  // namespace levelwidgets::memory
