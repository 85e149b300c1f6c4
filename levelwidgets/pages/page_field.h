// The fields of a property page: what they show, and what a person or a script does to them.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/frame/event.h>
#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/variant.h>
#include <levelwidgets/pages/page_info.h>

namespace levelwidgets {

// By name in the table of its class. What a person or a script does to it is an edit; what the page
// itself shows is not. A field that outlives its page does nothing.
class PageField : public Object {
 public:
  explicit PageField(const FieldInfo& info) : info_(info) {}

  const FieldInfo& Info() const { return info_; }
  std::string Name() const { return std::string(info_.name); }

  // It shows something else, whoever is the cause; for its view.
  Event<> Shown;
  // A person or a script has edited it: `chosen` when it is by an item of its list.
  Event<bool> Edited;  // chosen

 protected:
  void RaiseEdit(bool chosen = false) {
    Shown.Raise();
    Edited.Raise(chosen);
  }

 private:
  const FieldInfo& info_;
};

// A text box.
class TextField : public PageField {
 public:
  static const ClassInfo& Table();
  using PageField::PageField;

  const std::string& Text() const { return text_; }
  // An edit, if it is another text.
  void SetText(std::string text);
  void Show(std::string text);

  const ClassInfo& Class() const override { return Table(); }

 private:
  std::string text_;
};

// A check box.
class CheckField : public PageField {
 public:
  static const ClassInfo& Table();
  using PageField::PageField;

  std::string Caption() const { return std::string(Info().caption); }
  // 0 or 1.
  std::int16_t Value() const { return value_; }
  // An edit, if it is another value. Any value except 0 and 1 raises 380.
  void SetValue(std::int16_t value);
  void Show(bool checked);

  const ClassInfo& Class() const override { return Table(); }

 private:
  std::int16_t value_ = 0;
};

// A drop-down list; one with typing if it is a combo box. Positions count from 0; -1 means that nothing is
// chosen.
class ListField : public PageField {
 public:
  static const ClassInfo& Table();
  explicit ListField(const FieldInfo& info);

  std::int32_t ListCount() const { return static_cast<std::int32_t>(items_.size()); }
  // Raises 9 where there is no item.
  std::string List(std::int32_t index) const;
  const std::vector<std::string>& Items() const { return items_; }
  std::int32_t ListIndex() const { return index_; }
  // A choice, also of the item that is chosen already. Raises 380 where there is no item.
  void SetListIndex(std::int32_t index);
  const std::string& Text() const { return text_; }
  // An edit, if it is another text. In a list without typing the item of that text is chosen; raises 380
  // for any other text.
  void SetText(std::string text);
  bool TakesTyping() const { return Info().kind == FieldKind::kCombo; }

  // A value without an item of its own shows nothing.
  void ShowIndex(std::int32_t index);
  void ShowText(std::string text);
  // Nothing is chosen then. Raises Refilled, then Shown.
  void ShowItems(std::vector<std::string> items);

  // Its items are others now; for its view.
  Event<> Refilled;

  const ClassInfo& Class() const override { return Table(); }

 private:
  std::int32_t IndexOf(std::string_view text) const;

  std::vector<std::string> items_;
  std::int32_t index_ = -1;
  std::string text_;
};

// A text beside the fields.
class LabelField : public PageField {
 public:
  static const ClassInfo& Table();
  explicit LabelField(const FieldInfo& info) : PageField(info), caption_(info.caption) {}

  const std::string& Caption() const { return caption_; }
  void Show(std::string caption);

  const ClassInfo& Class() const override { return Table(); }

 private:
  std::string caption_;
};

// Buttons in a row, counted from 0.
class ButtonsField : public PageField, public std::enable_shared_from_this<ButtonsField> {
 public:
  static const ClassInfo& Table();
  using PageField::PageField;

  std::int32_t Count() const { return static_cast<std::int32_t>(Info().items.size()); }
  // These raise 9 where there is no button.
  std::string Caption(std::int32_t index) const;
  void Click(std::int32_t index) const;
  ObjectRef Item(std::int32_t index) const;

  Event<std::int32_t> Clicked;

  const ClassInfo& Class() const override { return Table(); }
};

// One of them.
class ButtonItem : public Object {
 public:
  static const ClassInfo& Table();
  ButtonItem(std::shared_ptr<const ButtonsField> buttons, std::int32_t index)
      : buttons_(std::move(buttons)), index_(index) {}

  std::string Caption() const { return buttons_->Caption(index_); }
  void Click() { buttons_->Click(index_); }

  const ClassInfo& Class() const override { return Table(); }

 private:
  const std::shared_ptr<const ButtonsField> buttons_;
  const std::int32_t index_;
};

// A field of the kind that `info` names.
std::shared_ptr<PageField> MakeField(const FieldInfo& info);

}  // namespace levelwidgets
