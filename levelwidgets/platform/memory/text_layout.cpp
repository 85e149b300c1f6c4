#include <levelwidgets/platform/memory/text_layout.h>

#include <algorithm>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets::memory {

namespace {

bool IsBreak(char c) { return c == '\r' || c == '\n'; }

}  // namespace

const std::vector<TextLine>& TextLayout::Break(std::string_view utf8, const text::CodePage& code_page,
                                               Font& font, int width, std::uint32_t format) {
  bytes_.clear();
  marks_.clear();
  lines_.clear();
  code_page.Append(utf8, bytes_);
  if (!(format & kDtNoPrefix)) TakePrefixes();
  if (format & kDtSingleLine) {
    AddLine(0, bytes_.size(), font);
    return lines_;
  }
  for (std::size_t start = 0; start < bytes_.size();) {
    const std::size_t end = std::min(bytes_.find_first_of("\r\n", start), bytes_.size());
    if (format & kDtWordBreak) {
      Wrap(start, end, font, width);
    } else {
      AddLine(start, end, font);
    }
    // A pair of different break characters counts once.
    const bool pair = end + 1 < bytes_.size() && IsBreak(bytes_[end + 1]) && bytes_[end] != bytes_[end + 1];
    start = end + (pair ? 2 : 1);
  }
  return lines_;
}

// "&x" becomes a marked x, "&&" one "&"; a last "&" stays as it is.
void TextLayout::TakePrefixes() {
  if (bytes_.find('&') == std::string::npos) return;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < bytes_.size(); ++i) {
    if (bytes_[i] == '&' && i + 1 < bytes_.size()) {
      if (bytes_[++i] != '&') marks_.push_back(kept);
    }
    bytes_[kept++] = bytes_[i];
  }
  bytes_.resize(kept);
}

void TextLayout::AddLine(std::size_t start, std::size_t end, Font& font) {
  TextLine line;
  line.bytes = std::string_view(bytes_).substr(start, end - start);
  line.width = font.Width(line.bytes);
  for (const std::size_t mark : marks_) {
    if (mark >= start && mark < end) line.mark = static_cast<int>(mark - start);
  }
  lines_.push_back(line);
}

// Breaks at spaces, which then belong to no line; a word wider than `width` is never divided.
void TextLayout::Wrap(std::size_t start, std::size_t end, Font& font, int width) {
  while (true) {
    std::size_t fits = start;  // the end of the last word that fits
    int reached = 0;
    for (std::size_t i = start; i < end;) {
      const std::size_t word = std::min(bytes_.find_first_not_of(' ', i), end);
      const std::size_t word_end = std::min(bytes_.find(' ', word), end);
      reached += font.Width(std::string_view(bytes_).substr(i, word_end - i));
      if (reached > width && fits > start) break;
      fits = i = word_end;
    }
    AddLine(start, fits, font);
    start = std::min(bytes_.find_first_not_of(' ', fits), end);
    if (start == end) return;
  }
}

}  // namespace levelwidgets::memory
