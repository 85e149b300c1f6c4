#include <levelwidgets/platform/memory/edit/text_measure.h>

namespace levelwidgets::memory {

void TextMeasure::SetFont(MeasureCharacter measure, int tab) {
  measure_ = std::move(measure);
  tab_ = tab;
  Forget();
}

void TextMeasure::SetMask(char mask) {
  mask_ = mask;
  Forget();
}

void TextMeasure::Forget() {
  advances_.reset();
  pair_advances_.clear();
  place_ = {};
}

void TextMeasure::Changed(std::size_t at) {
  if (place_.offset > at || place_.start > at) place_ = {};
}

int TextMeasure::Measured(text::CharacterCode code) const {
  if (mask_ != 0) code = static_cast<std::uint8_t>(mask_);
  return measure_ ? measure_(code) : 0;
}

int TextMeasure::AdvanceOfPair(text::CharacterCode code) {
  const auto [known, is_new] = pair_advances_.try_emplace(code);
  if (is_new) known->second = Measured(code);
  return known->second;
}

int TextMeasure::MeasureNew(text::CharacterCode code) {
  const int width = Measured(code);
  if (!advances_) {
    advances_ = std::make_unique<std::array<int, 256>>();
    advances_->fill(kUnknown);
  }
  return (*advances_)[code] = width;
}

void TextMeasure::GoTo(std::size_t start) {
  if (place_.start != start) place_ = {start, start, 0};
}

void TextMeasure::Step() {
  place_.x = After(place_.x, text_.CodeAt(place_.offset));
  place_.offset = text_.Next(place_.offset);
}

// False, with nothing changed, over a tab, because its width depends on what is before it, and among pairs,
// because where they begin does.
bool TextMeasure::StepBack() {
  if (text_.HasPairs()) return false;
  const char byte = text_.At(place_.offset - 1);
  if (byte == '\t' && tab_ > 0) return false;
  place_.x -= Advance(static_cast<std::uint8_t>(byte));
  --place_.offset;
  return true;
}

int TextMeasure::XOf(std::size_t start, std::size_t offset) {
  GoTo(start);
  if (offset < place_.offset && offset - start < place_.offset - offset) place_ = {start, start, 0};
  while (place_.offset > offset) {
    if (!StepBack()) place_ = {start, start, 0};
  }
  while (place_.offset < offset) Step();
  return place_.x;
}

std::size_t TextMeasure::Before(std::size_t start, std::size_t end, int x) {
  GoTo(start);
  while (place_.offset > start && (place_.x > x || place_.offset > end)) {
    if (!StepBack()) place_ = {start, start, 0};
  }
  while (place_.offset < end) {
    const Place before = place_;
    Step();
    if (place_.x <= x) continue;
    place_ = before;
    break;
  }
  return place_.offset;
}

std::size_t TextMeasure::Nearest(std::size_t start, std::size_t end, int x) {
  const std::size_t before = Before(start, end, x);
  if (before == end) return end;
  const int left = place_.x;
  const int right = After(left, text_.CodeAt(before));
  return x - left < right - x ? before : text_.Next(before);
}

}  // namespace levelwidgets::memory
