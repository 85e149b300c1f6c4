// The value types that the platform, the frame and the controls share: handles, colours, pixel
// geometry and dates. Lengths in twips are a type of their own (levelwidgets/frame/units.h).
#pragma once

#include <compare>
#include <cstdint>

namespace levelwidgets {

// A reference to something the platform owns. 0 is "none". 64-bit Windows guarantees that window,
// context and drawing object handles fit 32 bits.
template <typename Tag>
struct Handle {
  std::uint32_t value = 0;

  constexpr explicit operator bool() const { return value != 0; }
  friend constexpr auto operator<=>(Handle, Handle) = default;
};

using WindowHandle = Handle<struct WindowTag>;
using DcHandle = Handle<struct DcTag>;
using ObjectHandle = Handle<struct ObjectTag>;  // a brush, pen, font or bitmap
using TimerHandle = Handle<struct TimerTag>;

// A colour in the container's convention: 0x00BBGGRR (red in the low byte), or 0x80000000 plus the
// index of a system colour. Not drawable before it is translated.
struct Color {
  std::int32_t value = 0;

  constexpr Color() = default;
  // Takes 0x80000012 as it is written in tables.
  constexpr explicit Color(std::uint32_t bits) : value(static_cast<std::int32_t>(bits)) {}
  constexpr std::uint32_t bits() const { return static_cast<std::uint32_t>(value); }
  friend constexpr bool operator==(Color, Color) = default;
};

// A concrete colour 0x00BBGGRR as the drawing operations take it.
struct ColorRef {
  std::uint32_t value = 0;

  constexpr std::uint8_t red() const { return static_cast<std::uint8_t>(value); }
  constexpr std::uint8_t green() const { return static_cast<std::uint8_t>(value >> 8); }
  constexpr std::uint8_t blue() const { return static_cast<std::uint8_t>(value >> 16); }
  friend constexpr bool operator==(ColorRef, ColorRef) = default;
};

// What the translation of an untranslatable colour gives (-1), and a failed GetPixel.
inline constexpr ColorRef kInvalidColorRef{0xFFFFFFFFu};

struct PixelPoint {
  int x = 0;
  int y = 0;

  friend constexpr bool operator==(PixelPoint, PixelPoint) = default;
};

struct PixelSize {
  int width = 0;
  int height = 0;

  friend constexpr bool operator==(PixelSize, PixelSize) = default;
};

// Right and bottom are exclusive.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  constexpr int width() const { return right - left; }
  constexpr int height() const { return bottom - top; }
  constexpr bool empty() const { return right <= left || bottom <= top; }
  constexpr bool Contains(PixelPoint p) const {
    return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
  }
  // Every edge moved inward by `distance` pixels; the result may be inverted.
  constexpr PixelRect Inset(int distance) const {
    return {left + distance, top + distance, right - distance, bottom - distance};
  }
  constexpr PixelRect Offset(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
  friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
};

constexpr PixelRect Intersect(const PixelRect& a, const PixelRect& b) {
  return {a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
          a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
}

// A local date and time: whole days since 30 December 1899, the fraction is the time of day (for
// days before that date the fraction still counts forward from midnight).
struct Date {
  double days = 0;

  friend constexpr bool operator==(Date, Date) = default;
};

}  // namespace levelwidgets
