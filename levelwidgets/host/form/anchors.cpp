#include <levelwidgets/host/form/anchors.h>

#include <algorithm>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets {

namespace {

struct Edge {
  std::string_view name;
  bool Anchors::*flag;
};

constexpr Edge kEdges[] = {{"left", &Anchors::left},
                           {"top", &Anchors::top},
                           {"right", &Anchors::right},
                           {"bottom", &Anchors::bottom}};

constexpr std::string_view kBetween = " ,\t";

}  // namespace

Anchors Anchors::Parse(std::string_view edges) {
  Anchors anchors;
  while (true) {
    edges.remove_prefix(std::min(edges.find_first_not_of(kBetween), edges.size()));
    if (edges.empty()) return anchors;
    const std::string_view word = edges.substr(0, edges.find_first_of(kBetween));
    const auto edge = std::ranges::find_if(
        kEdges, [word](const Edge& known) { return text::EqualIgnoringCase(known.name, word); });
    if (edge == std::end(kEdges)) {
      throw Error(kInvalidCall, "LevelWidgets.Form",
                  "\"" + std::string(word) + "\" is no edge: Anchor is made of left, top, right and bottom");
    }
    anchors.*edge->flag = true;
    edges.remove_prefix(word.size());
  }
}

std::string Anchors::ToText() const {
  std::string text;
  for (const Edge& edge : kEdges) {
    if (this->*edge.flag) text += (text.empty() ? "" : " ") + std::string(edge.name);
  }
  return text;
}

Span Span::On(Twips form_length, bool near, bool far) const {
  if (!far) return *this;
  const Twips end = form_length - margin;
  if (!near) return {end - length, length, margin};
  return {start, std::max(end - start, Twips()), margin};
}

}  // namespace levelwidgets
