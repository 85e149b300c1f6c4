#include <levelwidgets/host/property_frame/page_view.h>

#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form/box_controls.h>
#include <levelwidgets/host/form/question_parts.h>

namespace levelwidgets {

namespace {

// A label of the form that lends its font while a page is laid out.
PageLayout LayOutOn(Form& form, const PageInfo& page) {
  constexpr char kRuler[] = "lblRuler";
  const FlatLabel& ruler = AddText(form, kRuler, "", {{}, TwipSize{Twips(15), Twips(15)}});
  PageLayout layout =
      LayOutPage(page, [&](std::string_view text) { return WidthOf(text, ruler.GetSurface()); });
  form.Remove(kRuler);
  return layout;
}

// An item of the list that has been picked, from 0; -1 while a text is typed.
std::int32_t PickedOf(const FlatDropDown& list, const ListField& field) {
  const std::int32_t index = list.ListIndex() - 1;
  const bool is_picked = index >= 0 && index < field.ListCount() && field.List(index) == list.Text();
  return is_picked ? index : -1;
}

}  // namespace

// --- Making the controls -----------------------------------------------------------------------------

std::shared_ptr<PageView> PageView::Create(const std::shared_ptr<Form>& form,
                                           std::shared_ptr<PropertyPage> page, TwipPoint at, Report report) {
  const std::shared_ptr<PageView> view(new PageView(form, std::move(page), std::move(report)));
  view->layout_ = LayOutOn(*form, view->page_->Info());
  for (const PagePart& part : view->layout_.parts) {
    const TwipPoint place{at.x + part.place.position.x, at.y + part.place.position.y};
    view->Add(*form, part, {place, part.place.size});
  }
  // Behind the lines around the fields, which are at the back.
  for (const PagePart& part : view->layout_.parts) {
    if (part.field->kind == FieldKind::kFrame) form->Find(part.name)->ZOrder(1);
  }
  return view;
}

TwipSize PageView::SizeOn(Form& form, const PageInfo& page) { return LayOutOn(form, page).size; }

void PageView::Add(Form& form, const PagePart& part, const Placement& place) {
  names_.push_back(part.name);
  if (part.kind == PagePart::Kind::kLabel) {
    levelwidgets::AddText(form, part.name, part.caption, place);
    return;
  }
  if (part.kind == PagePart::Kind::kButton) return AddAction(form, part, place);
  PageField& field = *page_->Find(part.field->name);
  switch (part.field->kind) {
    case FieldKind::kText: return AddText(form, static_cast<TextField&>(field), place);
    case FieldKind::kCheck: return AddCheck(form, static_cast<CheckField&>(field), place);
    case FieldKind::kList:
    case FieldKind::kCombo: return AddList(form, static_cast<ListField&>(field), place);
    case FieldKind::kLabel: return AddLabel(form, static_cast<LabelField&>(field), place);
    case FieldKind::kFrame:
      form.Add<FrameControl>(part.name, place).SetCaption(std::string(part.field->caption));
      return;
    case FieldKind::kButtons: return;
  }
}

void PageView::AddText(Form& form, TextField& field, const Placement& place) {
  FlatTextBox& box = form.Add<FlatTextBox>(field.Name(), place);
  box.Change += [self = shared_from_this(), &field] {
    With<FlatTextBox>(self->form_, field.Name(),
                      [&](FlatTextBox& present) { self->Try([&] { field.SetText(present.Text()); }); });
  };
  field.Shown += [weak = weak_from_this(), &field] {
    if (const auto self = weak.lock()) self->ShowText(field);
  };
  ShowText(field);
  Guard(form, field.Name());
  AddAround(form, field.Name(), place);
}

void PageView::AddCheck(Form& form, CheckField& field, const Placement& place) {
  CheckBoxControl& box = form.Add<CheckBoxControl>(field.Name(), place);
  box.SetCaption(field.Caption());
  box.Click += [self = shared_from_this(), &field] {
    With<CheckBoxControl>(self->form_, field.Name(), [&](CheckBoxControl& present) {
      self->Try([&] { field.SetValue(static_cast<std::int16_t>(present.Value())); });
    });
  };
  field.Shown += [weak = weak_from_this(), &field] {
    if (const auto self = weak.lock()) self->ShowCheck(field);
  };
  ShowCheck(field);
}

void PageView::AddList(Form& form, ListField& field, const Placement& place) {
  FlatDropDown& list = form.Add<FlatDropDown>(field.Name(), place);
  list.SetDropDownWidth(static_cast<std::int16_t>(place.size->width.value));
  if (!field.TakesTyping()) list.SetStyle(1);
  list.Change += [self = shared_from_this(), &field] { self->TakeChoice(field); };
  field.Refilled += [weak = weak_from_this(), &field] {
    if (const auto self = weak.lock()) self->FillList(field);
  };
  field.Shown += [weak = weak_from_this(), &field] {
    if (const auto self = weak.lock()) self->ShowList(field);
  };
  FillList(field);
  ShowList(field);
  AddAround(form, field.Name(), place);
}

void PageView::AddLabel(Form& form, LabelField& field, const Placement& place) {
  levelwidgets::AddText(form, field.Name(), field.Caption(), place);
  field.Shown += [weak = weak_from_this(), &field] {
    if (const auto self = weak.lock()) {
      With<FlatLabel>(self->form_, field.Name(),
                      [&](FlatLabel& label) { label.SetCaption(CaptionOf(field.Caption())); });
    }
  };
}

void PageView::AddAction(Form& form, const PagePart& part, const Placement& place) {
  FlatButton& button = AddButton(form, part.name, part.caption, place);
  button.Click += [self = shared_from_this(), name = part.field->name, index = part.index] {
    self->Try([&] { static_cast<ButtonsField&>(*self->page_->Find(name)).Click(index); });
  };
}

// A line, which goes and comes with the control.
void PageView::AddAround(Form& form, const std::string& name, const Placement& place) {
  names_.push_back(name + "Line");
  AddFrame(form, names_.back(), place);
}

void PageView::Guard(Form& form, const std::string& name) {
  form.Find(name)->Validate += [self = shared_from_this(), name](bool& cancel) {
    self->Try([&] {
      cancel = true;  // also when the page raises an error
      const auto refusal = self->page_->Leave(name);
      cancel = refusal.has_value();
      if (refusal) self->report_(*refusal);
    });
  };
}

// --- Between fields and controls ---------------------------------------------------------------------

template <typename Action>
void PageView::Try(Action action) const {
  try {
    action();
  } catch (const Error& error) {
    report_(error.Description());
  }
}

void PageView::ShowText(const TextField& field) const {
  With<FlatTextBox>(form_, field.Name(), [&](FlatTextBox& box) {
    if (box.Text() != field.Text()) box.SetText(field.Text());
  });
}

void PageView::ShowCheck(const CheckField& field) const {
  With<CheckBoxControl>(form_, field.Name(), [&](CheckBoxControl& box) { box.SetValue(field.Value()); });
}

void PageView::FillList(const ListField& field) const {
  With<FlatDropDown>(form_, field.Name(), [&](FlatDropDown& list) {
    list.Clear();
    for (std::string item : field.Items()) list.AddItem(item);
  });
}

void PageView::ShowList(const ListField& field) const {
  With<FlatDropDown>(form_, field.Name(), [&](FlatDropDown& list) {
    list.SetListIndex(static_cast<std::int16_t>(field.ListIndex() + 1));
    if (list.Text() != field.Text()) list.SetText(field.Text());
  });
}

void PageView::TakeChoice(ListField& field) {
  With<FlatDropDown>(form_, field.Name(), [&](FlatDropDown& list) {
    if (list.Text() == field.Text()) return;
    const std::int32_t picked = PickedOf(list, field);
    Try([&] { picked >= 0 ? field.SetListIndex(picked) : field.SetText(list.Text()); });
  });
}

// --- As a whole --------------------------------------------------------------------------------------

void PageView::SetVisible(bool visible) {
  for (const std::string& name : names_) {
    const auto form = form_.lock();
    const auto hosted = form ? form->Find(name) : nullptr;
    if (hosted) hosted->SetVisible(visible);
  }
}

std::shared_ptr<HostedControl> PageView::FirstField() const {
  const auto form = form_.lock();
  if (!form) return nullptr;
  for (const std::string& name : names_) {
    const auto hosted = form->Find(name);
    if (hosted && hosted->TabStop() && hosted->CanTakeInput()) return hosted;
  }
  return nullptr;
}

}  // namespace levelwidgets
