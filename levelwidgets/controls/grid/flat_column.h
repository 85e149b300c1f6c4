// One column of a grid.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/controls/dropdown/ksx_value_list.h>
#include <levelwidgets/controls/grid/ksx_edit_type.h>
#include <levelwidgets/frame/alignment.h>

namespace levelwidgets {

class FlatColumns;

// Values are stored as given: a negative width and an alignment or editor outside its enumeration, too. Lives
// as long as anyone holds it; removed from its collection it still reports its changes to it.
class FlatColumn : public Object {
 public:
  static const ClassInfo& Table();
  FlatColumn();

  // --- Properties -------------------------------------------------------------------------------

  // What the drop-down editor offers; null when it was set to null. A new list notifies nobody.
  const std::shared_ptr<ksxValueList>& ValueList() const { return value_list_; }
  void SetValueList(std::shared_ptr<ksxValueList> list) { value_list_ = std::move(list); }
  ksxEditTypeConstants EditType() const { return edit_type_; }
  // Notifies nobody, on purpose: the new editor comes with the next edit.
  void SetEditType(ksxEditTypeConstants edit_type) { edit_type_ = edit_type; }

  // Each of the following notifies the collection, even of an unchanged value. A listener may destroy the
  // column.

  // Of the cells' texts, when they are painted.
  const std::string& Format() const { return format_; }
  void SetFormat(std::string format);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  // Of the cells' texts.
  ksxAlignmentConstants Alignment() const { return alignment_; }
  void SetAlignment(ksxAlignmentConstants alignment);
  // Of the caption.
  ksxAlignmentConstants HeaderAlignment() const { return header_alignment_; }
  void SetHeaderAlignment(ksxAlignmentConstants alignment);
  // Twips.
  std::int32_t Width() const { return width_; }
  void SetWidth(std::int32_t width);
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  const ClassInfo& Class() const override { return Table(); }

  // --- For the collection -----------------------------------------------------------------------

  void SetOwner(std::weak_ptr<FlatColumns> owner) { owner_ = std::move(owner); }

 private:
  void NotifyOwner() const;

  std::string caption_;
  std::int32_t width_ = 0;
  ksxAlignmentConstants alignment_ = ksxLeft;
  ksxAlignmentConstants header_alignment_ = ksxLeft;
  bool visible_ = false;
  std::string format_;
  ksxEditTypeConstants edit_type_ = ksxEditNone;
  std::shared_ptr<ksxValueList> value_list_;
  std::weak_ptr<FlatColumns> owner_;
};

}  // namespace levelwidgets
