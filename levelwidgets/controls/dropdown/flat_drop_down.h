// An edit box with a list of texts that drops down.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/edit_control.h>
#include <levelwidgets/frame/hover.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/drop_button.h>
#include <levelwidgets/frame/parts/popup_panel.h>

namespace levelwidgets {

// The strip at the right edge, F4 or Alt+Down open the list below the edit box; a press on a row, or Enter,
// takes the highlighted item over. With Style other than 0 there is no edit box, and only the list changes
// the text. Items count from 1. No property is validated.
//
// Every character that is typed raises KeyPress twice, the second time after the control has done its part.
// The items are not saved.
class FlatDropDown : public EditControl {
 public:
  static const ClassInfo& Table();
  explicit FlatDropDown(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------
  // Each notifies.

  std::int16_t Alignment() const { return static_cast<std::int16_t>(txtMain_.Alignment()); }
  void SetAlignment(std::int16_t alignment);
  // Whether typing completes the text by the first item that begins so.
  bool AutoComplete() const { return auto_complete_; }
  void SetAutoComplete(bool complete);
  Color BackColor() const { return txtMain_.BackColor(); }
  void SetBackColor(Color color);
  Color ForeColor() const { return txtMain_.ForeColor(); }
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  // Disabling closes the list.
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return txtMain_.GetFont(); }
  // Shares the font, which the list has too.
  void SetFont(FontRef font);
  // Of the edit box, in characters from 0; these three notify nobody.
  std::int32_t SelStart() const { return txtMain_.SelStart(); }
  void SetSelStart(std::int32_t start) { txtMain_.Select(start, 0); }
  std::int32_t SelLength() const { return txtMain_.SelLength(); }
  void SetSelLength(std::int32_t length) { txtMain_.Select(txtMain_.SelStart(), length); }
  std::string SelText() const { return txtMain_.SelText(); }
  void SetSelText(std::string_view text) { txtMain_.SetSelText(text); }
  // The default member.
  std::string Text() const { return txtMain_.Text(); }
  void SetText(std::string_view text);
  // The item in the first row; stored as given.
  std::int16_t TopIndex() const { return top_index_; }
  void SetTopIndex(std::int16_t index);
  // The highlighted item, 0 for none; what is beyond the list is its end. Leaves the text as it is.
  std::int16_t ListIndex() const { return list_index_; }
  void SetListIndex(std::int16_t index);
  // The fill of the strip; the first is shown at once.
  Color DropDownBackColor() const { return button_.colors.rest; }
  void SetDropDownBackColor(Color color);
  Color DropDownBackColorMouseOver() const { return button_.colors.mouse_over; }
  void SetDropDownBackColorMouseOver(Color color);
  Color DropDownBackColorPushed() const { return button_.colors.pushed; }
  void SetDropDownBackColorPushed(Color color);
  // Of the list, twips.
  std::int16_t DropDownWidth() const { return drop_down_width_; }
  void SetDropDownWidth(std::int16_t width);
  // 0 with an edit box, anything else without.
  std::int32_t Style() const { return style_; }
  void SetStyle(std::int32_t style);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }

  // --- Methods ----------------------------------------------------------------------------------
  // Each returns an empty value. ListIndex stays as it is.

  // Raises 6 for one more than 32,767.
  Variant AddItem(std::string& description);
  // Raises 9 for an item that is not there.
  Variant RemoveItem(std::int16_t& index);
  Variant Clear();

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitialize() override;
  void OnResize() override;
  void OnPaint() override;
  void OnEnterFocus() override;
  void OnExitFocus() override;
  bool OnKeyPreview(KeyMessage& key) override;
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;

  // The parts, for tests and for whoever composes this control further.
  TextBox& ActiveEdit() const override { return const_cast<TextBox&>(txtMain_); }
  const PopupPanel& Panel() const { return picPopup_; }
  const ChildControl<FlatScroll>& Bar() const { return fsMain_; }
  const std::vector<std::string>& Items() const { return items_; }
  std::int16_t ItemCount() const { return static_cast<std::int16_t>(items_.size()); }

 protected:
  void OnEditChange() override;
  WindowHandle FocusWindow() const override;

 private:
  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  bool HasEdit() const { return style_ == 0; }
  // Raises 9 for an item that is not there.
  const std::string& Item(std::int32_t index) const;

  // --- The list: flat_drop_down_list.cpp ----------------------------------------------------------

  void ShowList();
  void HideList();
  void SyncListScroll();
  void PickHighlighted();
  void PaintList();
  void PlaceBar();
  void PressList(TwipPoint at);
  void HighlightUnder(TwipPoint at);
  void ScrollRows(int rows);

  // --- Input: flat_drop_down_input.cpp ------------------------------------------------------------

  bool ListKey(const KeyMessage& key);
  void TypeCharacter(std::int16_t& key_ascii);
  void CompleteTyped(std::int16_t key_ascii);
  void ShowFill(Color fill);
  bool IsOverStrip(TwipPoint at) const;
  // What a control that takes no input any more has begun.
  void EndInput();
  void NormaliseText();
  void UseFont(FontRef font);

  std::vector<std::string> items_;
  TextBox txtMain_{*this, false};
  PopupPanel picPopup_;
  ChildControl<FlatScroll> fsMain_;
  DropButton button_{GetSurface()};
  CaptureHover hover_{GetSurface()};
  std::int16_t list_index_ = 0;
  std::int16_t top_index_ = 1;
  bool auto_complete_ = false;
  std::int16_t drop_down_width_ = 2880;
  std::int32_t style_ = 0;
  int row_height_ = 0;  // pixels, measured when the list opens
  bool has_focus_ = false;
};

}  // namespace levelwidgets
