// A property page as controls on a form.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/property_frame/page_layout.h>
#include <levelwidgets/pages/property_page.h>

namespace levelwidgets {

// Each field is a control of its name: a text box, a check box, a drop-down list or a label; cmdAction0 is
// the first of several buttons. What a person does to the control is an edit of the field, and what the field
// shows the control shows. A field that refuses to be left keeps the focus.
//
// It holds the page and not the form; the controls hold it. A listener may remove any control, or close the
// form.
class PageView : public std::enable_shared_from_this<PageView> {
 public:
  // Shows a person a message: what was refused, or the error of a control.
  using Report = std::function<void(const std::string& text)>;

  // Adds the controls to `form` at (`at`). Raises what Form::Add raises.
  static std::shared_ptr<PageView> Create(const std::shared_ptr<Form>& form,
                                          std::shared_ptr<PropertyPage> page, TwipPoint at, Report report);

  // What the controls take, in the font of `form`, which gets none of them.
  static TwipSize SizeOn(Form& form, const PageInfo& page);

  PropertyPage& Page() const { return *page_; }
  TwipSize Size() const { return layout_.size; }
  // All of its controls.
  void SetVisible(bool visible);
  // The control that takes the focus when the page is shown; null when it has none.
  std::shared_ptr<HostedControl> FirstField() const;

 private:
  PageView(const std::shared_ptr<Form>& form, std::shared_ptr<PropertyPage> page, Report report)
      : form_(form), page_(std::move(page)), report_(std::move(report)) {}

  void Add(Form& form, const PagePart& part, const Placement& place);
  void AddText(Form& form, TextField& field, const Placement& place);
  void AddCheck(Form& form, CheckField& field, const Placement& place);
  void AddList(Form& form, ListField& field, const Placement& place);
  void AddLabel(Form& form, LabelField& field, const Placement& place);
  void AddAction(Form& form, const PagePart& part, const Placement& place);
  void AddAround(Form& form, const std::string& name, const Placement& place);
  void Guard(Form& form, const std::string& name);

  void ShowText(const TextField& field) const;
  void ShowCheck(const CheckField& field) const;
  void FillList(const ListField& field) const;
  void ShowList(const ListField& field) const;
  void TakeChoice(ListField& field);

  // What a control or the page raises is reported.
  template <typename Action>
  void Try(Action action) const;

  const std::weak_ptr<Form> form_;
  const std::shared_ptr<PropertyPage> page_;
  const Report report_;
  PageLayout layout_;
  std::vector<std::string> names_;  // of its controls
};

}  // namespace levelwidgets
