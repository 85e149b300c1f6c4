// A property page: fields that show properties of a selected control and write them back.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <levelwidgets/pages/page_field.h>
#include <levelwidgets/pages/page_target.h>

namespace levelwidgets {

// A model that knows no window: a designer, a component container, a script or a test shows it or drives it.
// Of several selected controls it reads and changes the first one only. It validates nothing except what
// Leave says; what a control raises passes through.
class PropertyPage : public std::enable_shared_from_this<PropertyPage> {
 public:
  // A page as `info` describes it; its texts and numbers are those of the platform's locale. The conversions
  // must outlive it.
  static std::shared_ptr<PropertyPage> Create(const PageInfo& info, ConversionApi& conversions);
  // Only Create makes pages that do something.
  PropertyPage(const PageInfo& info, ConversionApi& conversions);
  virtual ~PropertyPage() = default;
  PropertyPage(const PropertyPage&) = delete;
  PropertyPage& operator=(const PropertyPage&) = delete;

  const PageInfo& Info() const { return info_; }
  const std::vector<std::shared_ptr<PageField>>& Fields() const { return fields_; }
  // Null for an unknown name.
  std::shared_ptr<PageField> Find(std::string_view name) const;

  // Whether there is something to apply, as far as the page offers it.
  bool Changed() const { return changed_; }
  // Whether anything that it would write has been edited since it was shown or applied: not every edit marks
  // the page as changed.
  bool Edited() const { return edited_; }
  // Changed() may be another.
  Event<> ChangedNotified;

  // Shows the first of `selected`; with none all fields are empty. When a property cannot be read, the error
  // passes through and the fields are as they were.
  void SelectionChanged(std::vector<PageTargetRef> selected);
  // Writes the fields to the first selected control. When the control refuses a value, the error passes
  // through: what was written before stays, what comes after is not written, and the page is still changed.
  void ApplyChanges();
  // A field is about to lose the focus. With a text the field refuses, and keeps the focus: the text is for a
  // message box with the sign of a critical error.
  std::optional<std::string> Leave(std::string_view field);

 protected:
  template <typename Field>
  Field& Get(std::string_view name) const {
    return static_cast<Field&>(*Find(name));
  }
  // The first selected control; null for none.
  const PageTargetRef& Target() const { return target_; }
  ConversionApi& Conversions() const { return conversions_; }
  bool IsNumeric(const TextField& field) const;
  static std::vector<std::string> Numbered(std::string_view word, std::int32_t count);

  // What fields show of `bindings`, and the way back: everything is read before anything is shown, or
  // written.
  std::vector<Variant> Read(PageTarget& target, std::span<const FieldBinding> bindings) const;
  void Show(std::span<const FieldBinding> bindings, const std::vector<Variant>& values) const;
  void Empty(std::span<const FieldBinding> bindings) const;
  using Values = std::vector<std::pair<std::string_view, Variant>>;  // by the names of properties
  Values ToWrite(std::span<const FieldBinding> bindings) const;
  static void Write(PageTarget& target, const Values& values);
  // Nothing for a field that has none to write, such as a list in which nothing is chosen.
  virtual std::optional<Variant> ValueOf(const PageField& field) const;

  // --- What a page does besides its bindings ----------------------------------------------------------

  // The fields are there.
  virtual void OnCreated() {}
  // The selection changes: first everything is read of `target`, which may be null, then everything is shown.
  virtual void OnRead(PageTarget* /*target*/) {}
  virtual void OnShown() {}
  virtual void OnApply(PageTarget& target);
  // What an edit of the field is to the page.
  enum class Edit { kNone, kUnmarked, kChange };
  virtual Edit OnEdited(PageField& field, bool chosen);
  virtual void OnLeft(PageField&) {}

  // Calls `deed` whenever `event` is raised, as long as the page lives.
  template <typename... Args, typename Deed>
  void Connect(Event<Args...>& event, Deed deed) {
    event += [weak = weak_from_this(), deed](Args... args) {
      if (const auto keep = weak.lock()) deed(args...);
    };
  }

 private:
  Variant Presented(FieldKind kind, const Variant& value) const;
  static void ShowValue(PageField& field, const Variant& value);
  void NoteEdit(PageField& field, bool chosen);
  void SetChanged(bool changed);

  const PageInfo& info_;
  ConversionApi& conversions_;
  std::vector<std::shared_ptr<PageField>> fields_;
  PageTargetRef target_;
  bool changed_ = false;
  bool edited_ = false;
};

// For the row of a page that is a class of its own.
template <typename Page>
std::shared_ptr<PropertyPage> MakePage(const PageInfo& info, ConversionApi& conversions) {
  return std::make_shared<Page>(info, conversions);
}

}  // namespace levelwidgets
