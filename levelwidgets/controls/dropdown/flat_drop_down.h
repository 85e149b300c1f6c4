// An edit box with a list of texts that drops down.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/panel_edit_control.h>
#include <levelwidgets/frame/parts/child_control.h>

namespace levelwidgets {

// The strip at the right edge, F4 or Alt+Down open the list below the edit box; a press on a row, or Enter,
// takes the highlighted item over. With Style other than 0 there is no edit box, and only the list changes
// the text. Items count from 1. No property is validated.
//
// Every character that is typed raises KeyPress twice, the second time after the control has done its part.
// The items are not saved.
class FlatDropDown : public PanelEditControl {
 public:
  static const ClassInfo& Table();
  explicit FlatDropDown(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------
  // Each notifies.

  std::int16_t Alignment() const { return static_cast<std::int16_t>(Edit().Alignment()); }
  // Any value but 0, 1 and 2 is left-aligned.
  void SetAlignment(std::int16_t alignment);
  // Whether typing completes the text by the first item that begins so.
  bool AutoComplete() const { return auto_complete_; }
  void SetAutoComplete(bool complete);
  // Of the edit box, in characters from 0; they notify nobody.
  std::int32_t SelStart() const { return Edit().SelStart(); }
  void SetSelStart(std::int32_t start) { Edit().Select(start, 0); }
  std::int32_t SelLength() const { return Edit().SelLength(); }
  void SetSelLength(std::int32_t length) { Edit().Select(Edit().SelStart(), length); }
  // The default member.
  std::string Text() const { return Edit().Text(); }
  void SetText(std::string_view text);
  // The item in the first row; stored as given.
  std::int16_t TopIndex() const { return top_index_; }
  void SetTopIndex(std::int16_t index);
  // The highlighted item, 0 for none; what is beyond the list is its end. Leaves the text as it is.
  std::int16_t ListIndex() const { return list_index_; }
  void SetListIndex(std::int16_t index);
  // Of the list, twips.
  std::int16_t DropDownWidth() const { return drop_down_width_; }
  void SetDropDownWidth(std::int16_t width);
  // 0 with an edit box, anything else without.
  std::int32_t Style() const { return style_; }
  void SetStyle(std::int32_t style);

  // --- Methods ----------------------------------------------------------------------------------
  // Each returns an empty value. ListIndex stays as it is.

  // Raises 6 for one more than 32,767.
  Variant AddItem(std::string& description);
  // Raises 9 for an item that is not there.
  Variant RemoveItem(std::int16_t& index);
  Variant Clear();

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override;
  void OnEnterFocus() override;
  void OnExitFocus() override;
  void OnMouseUp(const PointerInput& input) override;

  // The parts, for tests and for whoever composes this control further.
  const ChildControl<FlatScroll>& Bar() const { return fsMain_; }
  const std::vector<std::string>& Items() const { return items_; }
  std::int16_t ItemCount() const { return static_cast<std::int16_t>(items_.size()); }

 protected:
  void OnEditChange() override;
  WindowHandle FocusWindow() const override;
  void LookChanged() override;
  bool PreparePanel() override;
  bool SizePanel() override;
  TwipPoint PlaceFor(const PixelRect& owner) const override;
  bool PanelKey(std::int16_t code) override;
  void Hover(TwipPoint at) override;

 private:
  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  bool HasEdit() const { return style_ == 0; }
  // Raises 9 for an item that is not there.
  const std::string& Item(std::int32_t index) const;

  // --- The list: flat_drop_down_list.cpp ----------------------------------------------------------

  void PrepareList();
  void SyncListScroll();
  void PickHighlighted();
  void PaintList();
  void PlaceBar();
  void PressList(TwipPoint at);
  void HighlightUnder(TwipPoint at);
  void ScrollRows(int rows);

  // --- Input: flat_drop_down_input.cpp ------------------------------------------------------------

  void TypeCharacter(std::int16_t& key_ascii);
  void CompleteTyped(std::int16_t key_ascii);
  void NormaliseText();

  std::vector<std::string> items_;
  PopupPanel& picPopup_;  // the panel, which is there from the beginning
  ChildControl<FlatScroll> fsMain_;
  std::int16_t list_index_ = 0;
  std::int16_t top_index_ = 1;
  bool auto_complete_ = false;
  std::string typed_bytes_;  // the half of a character that waits for the other one
  std::int16_t drop_down_width_ = 2880;
  std::int32_t style_ = 0;
  int row_height_ = 0;  // pixels, measured when the list opens
  bool has_focus_ = false;
};

}  // namespace levelwidgets
