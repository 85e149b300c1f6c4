#include <levelwidgets/platform/memory/edit/text_measure.h>

namespace levelwidgets::memory {

void TextMeasure::SetFont(MeasureByte measure, int tab) {
  measure_ = std::move(measure);
  tab_ = tab;
  advances_.reset();
  place_ = {};
}

void TextMeasure::SetMask(char mask) {
  mask_ = mask;
  advances_.reset();
  place_ = {};
}

void TextMeasure::Changed(std::size_t at) {
  if (place_.offset > at || place_.start > at) place_ = {};
}

int TextMeasure::MeasureNew(char byte) {
  const int width = measure_ ? measure_(static_cast<std::uint8_t>(mask_ != 0 ? mask_ : byte)) : 0;
  if (!advances_) {
    advances_ = std::make_unique<std::array<int, 256>>();
    advances_->fill(kUnknown);
  }
  return (*advances_)[static_cast<std::uint8_t>(byte)] = width;
}

void TextMeasure::GoTo(std::size_t start) {
  if (place_.start != start) place_ = {start, start, 0};
}

void TextMeasure::Step() { place_.x = After(place_.x, text_.At(place_.offset++)); }

// False, with nothing changed, over a tab: how wide it is depends on what is before it.
bool TextMeasure::StepBack() {
  const char byte = text_.At(place_.offset - 1);
  if (byte == '\t' && tab_ > 0) return false;
  place_.x -= Advance(byte);
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
  const int right = After(left, text_.At(before));
  return x - left < right - x ? before : before + 1;
}

}  // namespace levelwidgets::memory
