// How controls follow the edges of their form.
#pragma once

#include <string>
#include <string_view>

#include <levelwidgets/frame/units.h>

namespace levelwidgets {

// The edges that a control keeps its distance from. Without an edge in one direction it keeps to the near
// one.
struct Anchors {
  bool left = false;
  bool top = false;
  bool right = false;
  bool bottom = false;

  // Raises 5 for a word that is no edge.
  static Anchors Parse(std::string_view edges);
  // "left top right bottom", or what there is of it.
  std::string ToText() const;

  bool operator==(const Anchors&) const = default;
};

// One direction of a control as it was placed: where it begins, how long it is and how far from the far edge
// of the form it ends.
struct Span {
  Twips start;
  Twips length;
  Twips margin;

  // On a form of `form_length` twips. What is stretched is at least 0 twips long, and as long as it was when
  // the form is as large as it was.
  Span On(Twips form_length, bool near, bool far) const;
};

}  // namespace levelwidgets
