// The list: what is in it, where it opens and how it is drawn.
#include <levelwidgets/controls/dropdown/flat_drop_down.h>

#include <algorithm>

#include <levelwidgets/controls/dropdown/list_window.h>
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kMeasuredText = "abcABC";

}  // namespace

void FlatDropDown::SyncListScroll() {
  const bool scrolls = Count() > kListRows;
  if (scrolls) {
    fsMain_->SetMax(Count() - (kListRows - 1));
  } else {
    SetTopIndex(1);
  }
  if (fsMain_.Visible() != scrolls) fsMain_.SetVisible(scrolls);
}

bool FlatDropDown::PreparePanel() { return !items_.empty(); }

bool FlatDropDown::SizePanel() {
  if (items_.empty()) return false;
  picPopup_.SetFont(GetFont());
  const Surface& list = picPopup_.GetSurface();
  PixelRect measured;
  row_height_ = list.Drawing().DrawTextA(list.hDC(), kMeasuredText, measured, 0);
  const int rows = std::min(Count(), kListRows);
  const Twips border = picPopup_.Size().height - picPopup_.ScaleHeight();
  const Twips height = ToTwips(rows * row_height_, picPopup_.Twips().y) + border;
  picPopup_.Move(picPopup_.Position(), {Twips(drop_down_width_), height});
  return true;
}

TwipPoint FlatDropDown::PlaceFor(const PixelRect& owner) const {
  ScreenApi& screen = GetSurface().GetPlatform().Screen();
  const TwipSize whole{Twips(screen.Width()), Twips(screen.Height())};
  return PlaceDropDown(owner, picPopup_.Size(), whole, picPopup_.Twips());
}

// Raises 9 when nothing is highlighted.
void FlatDropDown::PickHighlighted() { Edit().SetText(Item(list_index_)); }

void FlatDropDown::PlaceBar() {
  const Twips width = fsMain_.Size().width;
  fsMain_.Move({picPopup_.ScaleWidth() - width, Twips()}, {width, picPopup_.ScaleHeight()});
}

void FlatDropDown::PaintList() {
  Surface& surface = picPopup_.GetSurface();
  DrawingApi& drawing = surface.Drawing();
  const DcHandle dc = surface.hDC();
  const DrawingObject window(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, kWindowBack)));
  const DrawingObject highlight(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, kHighlight)));
  const Twips bar = fsMain_.Visible() ? fsMain_.Size().width : Twips();
  const int width = ToPixels(picPopup_.ScaleWidth() - bar, picPopup_.Twips().x);
  const ColorRef text_color = TranslateColor(drawing, kWindowText);
  const ColorRef highlight_color = TranslateColor(drawing, kHighlightText);
  const int bottom = row_height_ > 0 ? surface.ClientPixels().bottom : 0;
  PixelRect row{0, 0, width, row_height_};
  // What is below the panel is cut off by its window: it need not be drawn. A first row before the list's is
  // empty.
  for (std::int32_t item = top_index_; item <= Count() && row.top < bottom; ++item) {
    const bool is_highlighted = item == list_index_;
    drawing.FillRect(dc, row, (is_highlighted ? highlight : window).Handle());
    drawing.SetTextColor(dc, is_highlighted ? highlight_color : text_color);
    PixelRect text = row;
    if (item >= 1) drawing.DrawTextA(dc, Item(item), text, kDtSingleLine);
    row = row.Offset(0, row_height_);
  }
}

// The highlight stays where it is.
void FlatDropDown::ScrollRows(int rows) {
  if (fsMain_.Visible()) fsMain_->ScrollBy(rows);
}

void FlatDropDown::HighlightUnder(TwipPoint at) {
  const float row = static_cast<float>(row_height_) * picPopup_.Twips().y;
  if (const auto index = HighlightAt(at, picPopup_.Size(), row, top_index_, Count())) {
    // Beyond the last item is the last one.
    SetListIndex(static_cast<std::int16_t>(std::min(*index, Count())));
  }
}

// Closed in every case; without a highlighted row before the error comes.
void FlatDropDown::PressList(TwipPoint at) {
  const auto keep = Reference();
  const TwipSize size = picPopup_.Size();
  const bool picks = at.x > Twips() && at.x < size.width && at.y > Twips() && at.y < size.height;
  const bool can_pick = list_index_ >= 1 && list_index_ <= Count();
  try {
    if (picks && can_pick) PickHighlighted();
  } catch (...) {
    HidePanel();
    throw;
  }
  HidePanel();
  if (picks && !can_pick) PickHighlighted();
}

}  // namespace levelwidgets
