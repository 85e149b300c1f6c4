// Owning wrappers for drawing objects and contexts: nothing that draws calls DeleteObject by hand.
#pragma once

#include <utility>

#include <levelwidgets/platform/drawing.h>

namespace levelwidgets {

// A brush, pen, font or bitmap, deleted with its owner. Deselect it first (Selection does).
class DrawingObject {
 public:
  DrawingObject() = default;
  DrawingObject(DrawingApi& drawing, ObjectHandle handle) : drawing_(&drawing), handle_(handle) {}
  DrawingObject(DrawingObject&& other) noexcept
      : drawing_(other.drawing_), handle_(std::exchange(other.handle_, {})) {}
  DrawingObject& operator=(DrawingObject&& other) noexcept {
    std::swap(drawing_, other.drawing_);
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~DrawingObject() { Reset(); }

  ObjectHandle Handle() const { return handle_; }
  void Reset() {
    if (handle_) drawing_->DeleteObject(std::exchange(handle_, {}));
  }

 private:
  DrawingApi* drawing_ = nullptr;
  ObjectHandle handle_;
};

// A context that draws off the screen into a bitmap of its own. Other objects that are selected into it
// must outlast it, or be replaced first.
class MemoryContext {
 public:
  MemoryContext() = default;
  // Compatible with `model`; the bitmap has `size` pixels and starts black.
  MemoryContext(DrawingApi& drawing, DcHandle model, PixelSize size)
      : drawing_(&drawing),
        dc_(drawing.CreateCompatibleDC(model)),
        bitmap_(drawing, drawing.CreateCompatibleBitmap(model, size)),
        replaced_(drawing.SelectObject(dc_, bitmap_.Handle())) {}
  MemoryContext(MemoryContext&& other) noexcept
      : drawing_(other.drawing_),
        dc_(std::exchange(other.dc_, {})),
        bitmap_(std::move(other.bitmap_)),
        replaced_(other.replaced_) {}
  MemoryContext& operator=(MemoryContext&& other) noexcept {
    std::swap(drawing_, other.drawing_);
    std::swap(dc_, other.dc_);
    std::swap(bitmap_, other.bitmap_);
    std::swap(replaced_, other.replaced_);
    return *this;
  }
  ~MemoryContext() { Reset(); }

  // Null when the context was never made, or was reset.
  DcHandle Handle() const { return dc_; }
  void Reset() {
    if (!dc_) return;
    drawing_->SelectObject(dc_, replaced_);
    drawing_->DeleteDC(std::exchange(dc_, {}));
    bitmap_.Reset();
  }

 private:
  DrawingApi* drawing_ = nullptr;
  DcHandle dc_;
  DrawingObject bitmap_;
  ObjectHandle replaced_;
};

// Selects an object for a scope and puts the replaced one back.
class Selection {
 public:
  Selection(DrawingApi& drawing, DcHandle dc, ObjectHandle object)
      : drawing_(drawing), dc_(dc), replaced_(drawing.SelectObject(dc, object)) {}
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;
  ~Selection() { drawing_.SelectObject(dc_, replaced_); }

 private:
  DrawingApi& drawing_;
  DcHandle dc_;
  ObjectHandle replaced_;
};

}  // namespace levelwidgets
