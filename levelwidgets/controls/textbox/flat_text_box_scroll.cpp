// How the bar and the text are kept in step.
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

// --- Window procedure --------------------------------------------------------------------------------

LResult FlatTextBox::HandleMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  const auto keep = Reference();
  if (message == kWmCtlColorEdit && keep) {
    try {
      SynchroniseBar();
    } catch (const Error&) {
      // A paint must go on.
    }
  }
  return subclass_ ? subclass_->Pass(message, wparam, lparam) : 0;
}

// --- From the text to the bar ------------------------------------------------------------------------

int FlatTextBox::CharacterHeight() const {
  WindowApi& windows = GetSurface().Windows();
  DrawingApi& drawing = GetSurface().Drawing();
  const ObjectHandle font{static_cast<std::uint32_t>(txt_->Send(kWmGetFont))};
  const DcHandle dc = windows.GetDC(txt_->hWnd());
  TextMetrics metrics;
  {
    const Selection selection(drawing, dc, font);
    drawing.GetTextMetricsA(dc, metrics);
  }
  windows.ReleaseDC(txt_->hWnd(), dc);
  return metrics.height;
}

FlatTextBox::View FlatTextBox::ViewOfEdit() const {
  View view;
  const int character_height = CharacterHeight();
  PixelRect text;
  txt_->Send(kEmGetRect, 0, reinterpret_cast<LParam>(&text));
  if (character_height > 0) {
    view.visible_lines = RoundToWhole(static_cast<double>(text.height()) / character_height);
  }
  view.line_count = static_cast<std::int32_t>(txt_->Send(kEmGetLineCount));
  txt_->Send(kEmLineFromChar, static_cast<WParam>(-1));
  view.first_visible = static_cast<std::int32_t>(txt_->Send(kEmGetFirstVisibleLine));
  return view;
}

void FlatTextBox::SynchroniseBar() {
  if (!scrV_ || !txt_->hWnd() || !scrV_->hWnd()) return;
  const View view = ViewOfEdit();
  const bool scrollable = view.line_count > view.visible_lines;
  FlatScroll& bar = **scrV_;
  if (bar.Min() != 1) bar.SetMin(1);
  if (bar.LargeChange() != view.visible_lines - 1) bar.SetLargeChange(view.visible_lines - 1);
  if (scrollable) {
    // One more than the last top line that can be reached.
    const std::int32_t max = view.line_count - view.visible_lines + 2;
    if (bar.Max() != max) bar.SetMax(max);
    if (bar.Value() != view.first_visible + 1) bar.SetValue(view.first_visible + 1);
  } else {
    if (bar.Value() != 1) bar.SetValue(1);
    if (bar.Max() != 1) bar.SetMax(1);
  }
  if (scrV_->TabStop() != scrollable) scrV_->SetTabStop(scrollable);
  const Color arrows = scrollable ? kButtonText : kGrayText;
  if (bar.ForeColor() != arrows) bar.SetForeColor(arrows);
}

// --- From the bar to the text ------------------------------------------------------------------------

void FlatTextBox::ScrollToBar() {
  const auto top = static_cast<std::int32_t>(txt_->Send(kEmGetFirstVisibleLine)) + 1;
  const std::int32_t value = (*scrV_)->Value();
  if (top == value - 1) {
    txt_->Send(kEmScroll, kSbLineDown);
  } else if (top == value + 1) {
    txt_->Send(kEmScroll, kSbLineUp);
  } else if (top < value) {
    txt_->Send(kEmScroll, kSbPageDown);
  } else if (top > value) {
    txt_->Send(kEmScroll, kSbPageUp);
  }
}

}  // namespace levelwidgets
