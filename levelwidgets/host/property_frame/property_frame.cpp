#include <levelwidgets/host/property_frame/property_frame.h>

#include <algorithm>

#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/host/form/message.h>
#include <levelwidgets/host/form/question_parts.h>
#include <levelwidgets/host/property_frame/hosted_target.h>
#include <levelwidgets/host/property_frame/page_view.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

namespace {

constexpr char kTabs[] = "tabPages", kOK[] = "cmdOK", kCancel[] = "cmdCancel", kApply[] = "cmdApply";
constexpr Twips kMargin(180);   // around the strip
constexpr Twips kPadding(225);  // around a page
constexpr Twips kBand(300);     // of the tabs
constexpr Twips kTabWidth(1140);

[[noreturn]] void RaiseNoPages(std::string_view what) {
  throw Error(kInvalidCall, "LevelWidgets.PropertyFrame", std::string(what));
}

std::string CaptionFor(const std::vector<std::shared_ptr<HostedControl>>& controls) {
  const std::string first = "Properties of " + controls[0]->Name();
  if (controls.size() == 1) return first;
  return first + " and " + std::to_string(controls.size() - 1) + " more";
}

}  // namespace

// --- Making it ---------------------------------------------------------------------------------------

std::shared_ptr<PropertyFrame> PropertyFrame::Create(Platform& platform, Options options) {
  if (options.pages.empty()) options.pages = PagesOf(options.class_name);
  if (options.pages.empty()) RaiseNoPages(std::string(options.class_name) + " has no property pages");
  const auto form =
      Form::Create(platform, {.name = "frmProperties", .caption = options.caption, .key_preview = true});
  const std::shared_ptr<PropertyFrame> frame(new PropertyFrame(form, std::move(options)));
  frame->AddPages();
  frame->AddButtons();
  frame->ListenToAll();
  frame->SelectionChanged(frame->options_.selected);
  frame->ShowPage(1);
  if (const auto first = frame->views_[0]->FirstField()) first->SetFocus();
  return frame;
}

std::shared_ptr<PropertyFrame> PropertyFrame::Show(
    const std::vector<std::shared_ptr<HostedControl>>& controls) {
  if (controls.empty()) RaiseNoPages("There is no control to show the properties of");
  std::vector<PageTargetRef> selected;
  for (const auto& control : controls) selected.push_back(std::make_shared<HostedTarget>(control));
  const auto frame = Create(controls[0]->GetPlatform(), {.caption = CaptionFor(controls),
                                                         .class_name = controls[0]->ControlClass().Name(),
                                                         .selected = std::move(selected)});
  frame->GetForm()->Show();
  return frame;
}

PropertyFrame::PropertyFrame(const std::shared_ptr<Form>& form, Options options)
    : form_(form), options_(std::move(options)) {}

void PropertyFrame::AddPages() {
  const auto& form = form_;
  FlatTabStrip& tabs = form->Add<FlatTabStrip>(kTabs, {{kMargin, kMargin}, TwipSize{Twips(15), Twips(15)}});
  tabs.SetTabWidth(kTabWidth);
  tabs.SetFont(form->GetFont());
  tabs.SetTabCount(static_cast<std::int16_t>(options_.pages.size()));
  tabs.SetBackColor(form->BackColor());
  tabs.SetForeColor(kButtonText);
  tabs.SetTabColor(kButtonFace);
  tabs.SetInactiveTabColor(kButtonHighlight);
  tabs.SetBorderColor(kGrayText);
  const TwipPoint at{kMargin + kPadding, kMargin + kBand + kPadding};
  std::int16_t number = 0;
  for (const PageInfo* info : options_.pages) {
    tabs.SetTabCaption(++number, std::string(info->title));
    auto page = PropertyPage::Create(*info, form->GetPlatform().Conversions());
    page->ChangedNotified += [weak = weak_from_this()] {
      if (const auto self = weak.lock()) self->ShowChanged();
    };
    views_.push_back(
        PageView::Create(form, std::move(page), at, [weak = weak_from_this()](const std::string& text) {
          if (const auto self = weak.lock()) self->Report(text);
        }));
  }
  tabs.SetSelectedTab(1);
  form->Find(kTabs)->Move({kMargin, kMargin}, PaneSize());
  form->Find(kTabs)->ZOrder(1);  // behind the pages
}

TwipSize PropertyFrame::PaneSize() const {
  // Three buttons stand below it.
  Twips width =
      kQuestionButton.width + kQuestionButton.width + kQuestionButton.width + kQuestionGap + kQuestionGap;
  Twips height;
  for (const auto& view : views_) {
    width = std::max(width, view->Size().width + kPadding + kPadding);
    height = std::max(height, view->Size().height);
  }
  return {width, height + kBand + kPadding + kPadding};
}

// From the right.
void PropertyFrame::AddButtons() {
  const auto& form = form_;
  const TwipSize pane = PaneSize();
  TwipPoint at{kMargin + pane.width - kQuestionButton.width, kMargin + pane.height + kMargin};
  const Twips step = kQuestionButton.width + kQuestionGap;
  AddButton(*form, kOK, "OK", {{at.x - step - step, at.y}, kQuestionButton});
  AddButton(*form, kCancel, "Cancel", {{at.x - step, at.y}, kQuestionButton});
  AddButton(*form, kApply, "A&pply", {at, kQuestionButton}).SetEnabled(false);
  form->Find(kOK)->SetDefault(true);
  form->Find(kCancel)->SetCancel(true);
  form->SetWidth(pane.width + kMargin + kMargin);
  form->SetHeight(at.y + kQuestionButton.height + kMargin);
  form->Centre();
}

// The form's listeners do not hold the frame.
template <typename... Args, typename Deed>
void PropertyFrame::Listen(Event<Args...>& event, Deed deed) {
  event += [weak = weak_from_this(), deed](Args... args) {
    if (const auto self = weak.lock()) ((*self).*deed)(args...);
  };
}

void PropertyFrame::ListenToAll() {
  With<FlatTabStrip>(form_, kTabs,
                     [this](FlatTabStrip& tabs) { Listen(tabs.TabChange, &PropertyFrame::FollowTab); });
  With<FlatButton>(form_, kOK, [this](FlatButton& ok) { Listen(ok.Click, &PropertyFrame::PressOK); });
  With<FlatButton>(form_, kCancel,
                   [this](FlatButton& cancel) { Listen(cancel.Click, &PropertyFrame::Close); });
  With<FlatButton>(form_, kApply,
                   [this](FlatButton& apply) { Listen(apply.Click, &PropertyFrame::PressApply); });
  Listen(form_->KeyDown, &PropertyFrame::TakeKey);
  Listen(form_->Gone, &PropertyFrame::EndMessage);
}

void PropertyFrame::FollowTab(std::int16_t, std::int16_t number) { ShowPage(number); }

void PropertyFrame::PressOK() {
  if (Apply()) Close();
}

void PropertyFrame::PressApply() { Apply(); }

void PropertyFrame::Close() { form_->Close(); }

// --- Pages -------------------------------------------------------------------------------------------

PropertyPage& PropertyFrame::Page(std::size_t number) const { return views_.at(number)->Page(); }

std::size_t PropertyFrame::PageCount() const { return views_.size(); }

void PropertyFrame::SelectionChanged(const std::vector<PageTargetRef>& selected) {
  for (const auto& view : views_) view->Page().SelectionChanged(selected);
}

// The focus goes by way of the strip, so that the field that has it is asked.
void PropertyFrame::SelectPage(std::int16_t number) {
  const auto tabs = form_->Find(kTabs);
  if (!tabs || number < 1 || static_cast<std::size_t>(number) > views_.size()) return;
  if (tabs->CanTakeInput()) tabs->SetFocus();
  if (form_->ActiveControl() && form_->ActiveControl() != tabs) return;
  BringToFront(number);
  const auto first = views_[static_cast<std::size_t>(number) - 1]->FirstField();
  if (first) first->SetFocus();
}

// Without its tab where a listener has taken that from the strip.
void PropertyFrame::BringToFront(std::int16_t number) {
  With<FlatTabStrip>(form_, kTabs, [this, number](FlatTabStrip& tabs) {
    number <= tabs.TabCount() ? tabs.SetSelectedTab(number) : ShowPage(number);
  });
}

void PropertyFrame::ShowPage(std::int16_t number) {
  for (std::size_t i = 0; i < views_.size(); ++i)
    views_[i]->SetVisible(i + 1 == static_cast<std::size_t>(number));
}

void PropertyFrame::TakeKey(std::int16_t& code, std::int16_t shift) {
  const bool is_tab = code == kKeyTab;
  if ((shift & kCtrlMask) == 0 || (!is_tab && code != kKeyPageUp && code != kKeyPageDown)) return;
  const bool back = is_tab ? (shift & kShiftMask) != 0 : code == kKeyPageUp;
  code = 0;
  With<FlatTabStrip>(form_, kTabs, [&](FlatTabStrip& tabs) {
    const int count = static_cast<int>(views_.size());
    SelectPage(static_cast<std::int16_t>((tabs.SelectedTab() - 1 + (back ? count - 1 : 1)) % count + 1));
  });
}

// --- Writing -----------------------------------------------------------------------------------------

bool PropertyFrame::Apply() {
  const auto keep = shared_from_this();
  const auto views = views_;
  for (std::size_t i = 0; i < views.size(); ++i) {
    if (!views[i]->Page().Edited()) continue;
    try {
      views[i]->Page().ApplyChanges();
    } catch (const Error& error) {
      Report(error.Description());
      BringToFront(static_cast<std::int16_t>(i + 1));
      return false;
    }
  }
  return true;
}

void PropertyFrame::ShowChanged() {
  const bool changed = std::ranges::any_of(views_, [](const auto& view) { return view->Page().Changed(); });
  With<FlatButton>(form_, kApply, [changed](FlatButton& apply) {
    if (apply.Enabled() != changed) apply.SetEnabled(changed);
  });
}

// On a later turn of the loop: a refusal comes while the focus is on its way, and the key that moved it may
// type a character still.
void PropertyFrame::Report(const std::string& text) {
  if (form_->Closed()) return;
  form_->GetPlatform().Clock().Post([weak = weak_from_this(), text] {
    if (const auto self = weak.lock()) self->ShowReport(text);
  });
}

void PropertyFrame::ShowReport(const std::string& text) {
  if (form_->Closed() || reporting_) return;
  reporting_ = true;
  const auto others = options_.forms ? options_.forms() : std::vector{GetForm()};
  message_ = ShowMessage(form_->GetPlatform(), {.text = text, .style = MessageStyle::kCritical}, others,
                         [weak = weak_from_this()](std::int32_t) {
                           if (const auto self = weak.lock()) self->EndMessage();
                         });
}

// Once it is answered, or when the frame has gone.
void PropertyFrame::EndMessage() {
  reporting_ = false;
  message_.reset();
}

}  // namespace levelwidgets
