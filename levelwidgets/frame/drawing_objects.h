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
