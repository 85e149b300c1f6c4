// Widths of texts in one font, in pixels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

#include <levelwidgets/platform/memory/edit/text_store.h>

namespace levelwidgets::memory {

// Remembers the last place measured: the next one is usually near it, also far inside a long line.
class TextMeasure {
 public:
  using MeasureCharacter = std::function<int(text::CharacterCode)>;

  explicit TextMeasure(const TextStore& text) : text_(text) {}

  // `measure` is asked once for each character that occurs. `tab` is the distance of tab stops; 0: a tab is a
  // character as any other.
  void SetFont(MeasureCharacter measure, int tab);
  // Every character is as wide as `mask`, unless that is 0.
  void SetMask(char mask);
  // The text from `at` on is another one.
  void Changed(std::size_t at);

  // Where the character ends that begins `x` pixels from its line's start.
  int After(int x, text::CharacterCode code) {
    if (code == '\t' && tab_ > 0) return (x / tab_ + 1) * tab_;
    return x + Advance(code);
  }
  int Advance(text::CharacterCode code) {
    if (code > 0xFF) return AdvanceOfPair(code);
    const int known = advances_ ? (*advances_)[code] : kUnknown;
    return known != kUnknown ? known : MeasureNew(code);
  }

  // From `start`, where a line starts, to `offset`.
  int XOf(std::size_t start, std::size_t offset);
  // The last offset in the line from `start` to `end` that is at most `x` pixels from its start.
  std::size_t Before(std::size_t start, std::size_t end, int x);
  // The offset whose distance from the line's start is nearest to `x`.
  std::size_t Nearest(std::size_t start, std::size_t end, int x);

 private:
  struct Place {
    std::size_t start = 0;
    std::size_t offset = 0;
    int x = 0;
  };

  int Measured(text::CharacterCode code) const;
  int MeasureNew(text::CharacterCode code);
  int AdvanceOfPair(text::CharacterCode code);
  void Forget();
  void GoTo(std::size_t start);
  bool StepBack();
  void Step();

  const TextStore& text_;
  MeasureCharacter measure_;
  static constexpr int kUnknown = -1;
  // By byte; null while none is known, as in the many boxes that are never shown.
  std::unique_ptr<std::array<int, 256>> advances_;
  std::unordered_map<text::CharacterCode, int> pair_advances_;
  int tab_ = 0;
  char mask_ = 0;
  Place place_;
};

}  // namespace levelwidgets::memory
