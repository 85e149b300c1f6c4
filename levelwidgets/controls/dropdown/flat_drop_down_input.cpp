// Keys, what is typed, and the pointer over the strip.
#include <levelwidgets/controls/dropdown/completion.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/controls/dropdown/list_window.h>
#include <levelwidgets/platform/text/letter_case.h>

#include <algorithm>
#include <utility>

namespace levelwidgets {

namespace {

constexpr std::int16_t kDelCharacter = 127;
constexpr std::int16_t kFirstPrintable = 32;

}  // namespace

// --- Keys --------------------------------------------------------------------------------------------

bool FlatDropDown::PanelKey(std::int16_t code) {
  const auto keep = Reference();
  switch (code) {
    case kKeyEscape: HidePanel(); return true;
    case kKeyEnter:
      HidePanel();
      PickHighlighted();
      return true;
    case kKeyUp:
    case kKeyDown:
    case kKeyPageUp:
    case kKeyPageDown:
    case kKeyHome:
    case kKeyEnd:
      if (const auto index = HighlightAfterKey(code, list_index_, Count())) {
        SetListIndex(static_cast<std::int16_t>(*index));
      }
      return true;
    default: return false;
  }
}

// --- Typing ------------------------------------------------------------------------------------------

void FlatDropDown::TypeCharacter(std::int16_t& key_ascii) {
  const auto keep = Reference();
  KeyPress.Raise(key_ascii);
  const bool open = picPopup_.IsOpen();
  const bool is_the_edits =
      key_ascii == kDelCharacter || key_ascii == kKeyEnter || key_ascii == kKeyBackspace;
  if (is_the_edits && !open) return;
  const bool completes = auto_complete_ && key_ascii >= kFirstPrintable;
  if (!open) {
    if (completes) CompleteTyped(key_ascii);
    PropertyChanged("Value");
  }
  if (completes || open) key_ascii = 0;
  list_index_ = 0;
  SetTopIndex(1);
  KeyPress.Raise(key_ascii);
}

// A key message carries a byte of the system's code page: a character, or one half of it. The first half
// waits for the second one.
void FlatDropDown::CompleteTyped(std::int16_t key_ascii) {
  ConversionApi& conversions = GetSurface().GetPlatform().Conversions();
  const char byte = static_cast<char>(key_ascii);
  const bool waits = typed_bytes_.empty() && conversions.IsDBCSLeadByte(byte);
  typed_bytes_ += byte;
  if (waits) return;
  const std::string typed = conversions.FromCodePage(std::exchange(typed_bytes_, {}));
  const EditedText after = Complete({Text(), SelStart(), SelLength()}, typed, items_);
  Edit().SetText(after.text);
  Edit().Select(after.start, after.length);
}

// --- Focus -------------------------------------------------------------------------------------------

void FlatDropDown::OnEnterFocus() {
  has_focus_ = true;
  if (!HasEdit()) OnPaint();
}

void FlatDropDown::OnExitFocus() {
  has_focus_ = false;
  typed_bytes_.clear();
  if (HasEdit()) {
    NormaliseText();
  } else {
    OnPaint();
  }
}

// The text of an item, whatever its case, becomes that item.
void FlatDropDown::NormaliseText() {
  const auto keep = Reference();
  const std::string text = Text();
  const auto is_same = [&](const std::string& item) { return text::EqualIgnoringCase(item, text); };
  const bool is_highlighted = list_index_ >= 1 && list_index_ <= Count() && Item(list_index_) == text;
  if (!text.empty() && is_highlighted) return;
  const auto found = text.empty() ? items_.end() : std::ranges::find_if(items_, is_same);
  if (found == items_.end()) return SetListIndex(-1);
  const auto index = static_cast<std::int16_t>(found - items_.begin() + 1);
  Edit().SetText(std::string(*found));
  SetListIndex(index);
}

// --- Pointer -----------------------------------------------------------------------------------------

// Over the text the capture would keep clicks from the edit box.
void FlatDropDown::Hover(TwipPoint at) {
  const Surface& surface = GetSurface();
  const bool outside =
      at.x < Twips() || at.y < Twips() || at.x >= surface.ScaleWidth() || at.y >= surface.ScaleHeight();
  const bool over_strip = !outside && at.x >= Strip().Left();
  const bool captures = over_strip || (!outside && !HasEdit());
  if (!captures) Capturing().Release();
  ChangeFill(over_strip ? Strip().colors.mouse_over : Strip().colors.rest);
  if (captures && !Capturing().HasCapture()) Capturing().Capture();
}

void FlatDropDown::OnMouseUp(const PointerInput& input) {
  if (input.button == kLeftButton) PanelEditControl::OnMouseUp(input);
}

}  // namespace levelwidgets
