#include <levelwidgets/host/form/hosted_control.h>

#include <cmath>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

const ClassInfo& HostedControl::Table() {
  using H = HostedControl;
  using Row = table::Row<H>;
  static constexpr Literal kZOrderDefaults[] = {0};
  static constexpr auto data = ClassTable(
      ObjectClass("Placement", "What the container adds to a control."),
      table::Properties(
          Row::ReadOnly<&H::Name>(1, "Name", "The control's name on its form, as the file gives it."),
          Row::Property<&H::Left, &H::SetLeft>(2, "Left", Always(0.0f), "Left edge on the form, twips.",
                                               {.flags = MemberFlags::kLeft}),
          Row::Property<&H::Top, &H::SetTop>(3, "Top", Always(0.0f), "Top edge on the form, twips.",
                                             {.flags = MemberFlags::kTop}),
          Row::Property<&H::Width, &H::SetWidth>(4, "Width", kNoDefault,
                                                 "Width, twips; the class's own where not given.",
                                                 {.flags = MemberFlags::kWidth}),
          Row::Property<&H::Height, &H::SetHeight>(5, "Height", kNoDefault,
                                                   "Height, twips; the class's own where not given.",
                                                   {.flags = MemberFlags::kHeight}),
          Row::Property<&H::Visible, &H::SetVisible>(6, "Visible", Always(true),
                                                     "Whether the control is shown."),
          Row::Property<&H::TabIndex, &H::SetTabIndex>(
              7, "TabIndex", kNoDefault,
              "Place in the order of the Tab key; that in the file where not given."),
          Row::Property<&H::TabStop, &H::SetTabStop>(8, "TabStop", Always(true),
                                                     "Whether the Tab key stops here."),
          Row::Property<&H::Default, &H::SetDefault>(9, "Default", Always(false), "Whether Enter clicks it."),
          Row::Property<&H::Cancel, &H::SetCancel>(10, "Cancel", Always(false), "Whether Escape clicks it."),
          Row::Property<&H::Tag, &H::SetTag>(11, "Tag", Always(""), "Any text of the user's."),
          Row::Property<&H::ToolTipText, &H::SetToolTipText>(
              12, "ToolTipText", Always(""),
              "Text that explains the control, shown below the pointer after half a second over it."),
          Row::Property<&H::Anchor, &H::SetAnchor>(
              15, "Anchor", Always(""),
              "Edges of the form that it keeps its distance from: left, top, right, bottom.")),
      table::Persisted("Left", "Top", "Width", "Height", "Visible", "TabIndex", "TabStop", "Default",
                       "Cancel", "Tag", "ToolTipText", "Anchor"),
      table::Methods(
          Row::Method<&H::SetFocus>(13, "SetFocus", "", "Gives the control the keyboard focus."),
          Row::Method<&H::ZOrder>(14, "ZOrder", "Position",
                                  "0 brings it to the front, 1 sends it to the back.", kZOrderDefaults)),
      table::Events(
          Row::Event<&H::GotFocus>(1, "GotFocus", "", "The control has got the keyboard focus."),
          Row::Event<&H::LostFocus>(2, "LostFocus", "", "The control has lost the keyboard focus."),
          Row::Event<&H::Validate>(3, "Validate", "Cancel",
                                   "The focus is about to go to another control; cancelled, it stays.")));
  static constexpr ClassInfo info(data);
  return info;
}

HostedControl::HostedControl(Form& form, const ClassInfo& control_class, std::string name)
    : platform_(form.GetPlatform()),
      form_(&form),
      origin_(form.weak_from_this()),
      control_class_(control_class),
      name_(std::move(name)) {}

void HostedControl::Create(const PropertyBag* saved, const Placement& place) {
  const TwipSize size = place.size.value_or(control_class_.DefaultSize());
  CheckPlace(place.position, size);
  const auto control = control_class_.Create(shared_from_this());
  control_ = control;
  position_ = place.position;
  size_ = size;
  NotePlace();
  const TwipPlace given = FormScale(platform_.Screen()).ForControl(position_, size_);
  control->Start(saved, given.position, given.size);
  ZOrder(0);  // what is added later covers what was there
  if (control_) control_->Show(visible_);
}

void HostedControl::CheckPlace(TwipPoint position, TwipSize size) const {
  if (size.width < Twips() || size.height < Twips()) {
    throw Error(kInvalidCall, "LevelWidgets.Form",
                "The size of " + name_ + " cannot be negative: Width and Height are lengths in twips");
  }
  for (const Twips length : {position.x, position.y, size.width, size.height}) {
    if (std::fabs(length.value) <= kMostTwips.value) continue;
    throw Error(
        kOverflow, "LevelWidgets.Form",
        "The place of " + name_ + " is too far: Left, Top, Width and Height are at most 1000000000 twips");
  }
}

void HostedControl::Disconnect() {
  form_ = nullptr;
  for (const EventInfo& event : Class().Events()) event.EndAll(*this);
  if (!control_) return;
  for (const EventInfo& event : control_->Class().Events()) event.EndAll(*control_);
}

void HostedControl::Detach() {
  Disconnect();
  // Hidden at once; destroyed when the last of its own code has returned.
  if (const auto control = std::exchange(control_, nullptr)) control->Detached();
}

void HostedControl::SetVisible(bool visible) {
  visible_ = visible;
  // Whoever gets the focus in its place may remove it.
  if (const auto control = control_) control->Show(visible);
}

bool HostedControl::CanTakeInput() const { return control_ && visible_ && control_->GetSurface().Enabled(); }

void HostedControl::SetToolTipText(std::string text) {
  tool_tip_text_ = std::move(text);
  if (form_) form_->tool_tip_.TextChanged(*this);
}

void HostedControl::SetDefault(bool is_default) {
  if (is_default && form_) form_->BecomeDefault(*this);
  if (default_ == is_default) return;
  default_ = is_default;
  if (const auto control = control_) control->OnAmbientChanged("DisplayAsDefault");
}

void HostedControl::SetCancel(bool is_cancel) {
  if (is_cancel && form_) form_->BecomeCancel(*this);
  cancel_ = is_cancel;
}

void HostedControl::Move(TwipPoint position, TwipSize size) {
  CheckPlace(position, size);
  position_ = position;
  size_ = size;
  NotePlace();
  PlaceControl();
}

void HostedControl::PlaceControl() {
  const auto control = control_;  // which may remove itself
  const TwipPlace given = FormScale(platform_.Screen()).ForControl(position_, size_);
  if (control) control->Move(given.position, given.size);
}

// --- Anchors ---------------------------------------------------------------------------------------

std::string HostedControl::Anchor() const { return anchors_.ToText(); }

void HostedControl::SetAnchor(const std::string& edges) {
  anchors_ = Anchors::Parse(edges);
  NotePlace();
}

void HostedControl::NotePlace() {
  if (!form_) return;
  across_ = {position_.x, size_.width, form_->Width() - position_.x - size_.width};
  down_ = {position_.y, size_.height, form_->Height() - position_.y - size_.height};
}

void HostedControl::FollowForm() {
  if (!form_ || !control_ || !(anchors_.right || anchors_.bottom)) return;
  const Span across = across_.On(form_->Width(), anchors_.left, anchors_.right);
  const Span down = down_.On(form_->Height(), anchors_.top, anchors_.bottom);
  position_ = {across.start, down.start};
  size_ = {across.length, down.length};
  PlaceControl();
}

// --- Focus -----------------------------------------------------------------------------------------

void HostedControl::SetFocus() {
  const auto keep = shared_from_this();
  const auto form = form_ ? form_->shared_from_this() : nullptr;
  const bool asked = CanTakeInput() && form;
  if (asked && !(form->MayLeaveFor(*this) && CanTakeInput())) return;
  TakeFocus();
}

void HostedControl::TakeFocus() {
  WindowApi& windows = platform_.Windows();
  const WindowHandle window = control_ ? control_->GetSurface().hWnd() : WindowHandle{};
  if (!CanTakeInput()) {
    throw Error(kInvalidCall, "LevelWidgets.Form",
                name_ + " cannot take the focus: it is hidden, disabled or removed");
  }
  if (windows.IsWindowVisible(window)) {
    windows.SetFocus(window);
  } else if (form_) {
    form_->active_control_ = weak_from_this();  // takes it when the form is shown
  }
}

void HostedControl::ZOrder(std::int32_t position) {
  if (position != 0 && position != 1) {
    throw Error(kInvalidCall, "LevelWidgets.Form", "ZOrder takes 0 (front) or 1 (back)");
  }
  if (!control_) return;
  platform_.Windows().SetWindowPos(control_->GetSurface().hWnd(), {position == 0 ? kHwndTop : kHwndBottom},
                                   {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
}

PropertyBag HostedControl::Properties() const {
  PropertyBag bag;
  if (control_) control_->OnWriteProperties(bag);
  return bag;
}

PixelRect HostedControl::ScreenRect() const {
  PixelRect rect;
  if (control_) platform_.Windows().GetWindowRect(control_->GetSurface().hWnd(), rect);
  return rect;
}

PixelPoint HostedControl::ScreenCentre() const {
  const PixelRect rect = ScreenRect();
  return {rect.left + rect.width() / 2, rect.top + rect.height() / 2};
}

// --- Site ------------------------------------------------------------------------------------------

WindowHandle HostedControl::ParentWindow() { return form_ ? form_->hWnd() : WindowHandle{}; }

bool HostedControl::UserMode() { return form_ && !form_->Design(); }

FontRef HostedControl::AmbientFont() {
  return MakeFont(form_ ? form_->GetFont()->Description() : FontDescription{});
}

Color HostedControl::AmbientBackColor() { return form_ ? form_->BackColor() : FormOptions{}.back_color; }

Color HostedControl::AmbientForeColor() { return kButtonText; }

void HostedControl::PropertyChanged(std::string_view name) {
  if (!form_) return;
  const auto keep = form_->shared_from_this();
  keep->PropertyChanged.Raise(name_, name);
}

void HostedControl::FocusChanged(bool has_focus, WindowHandle) {
  if (!form_) return;
  const auto keep = form_->shared_from_this();
  const auto keep_this = shared_from_this();
  if (has_focus) {
    if (!keep->FocusCame(*this) || std::exchange(focus_known_, true)) return;
    GotFocus.Raise();
  } else {
    if (std::exchange(focus_known_, false)) LostFocus.Raise();
    keep->FocusWent(*this);
  }
}

bool HostedControl::HandsFocusOn(WindowHandle other, std::function<void()> settle) {
  return form_ && form_->HandsFocusOn(other, std::move(settle));
}

bool HostedControl::TakeKey(KeyMessage& key) {
  if (!form_) return false;
  const auto keep = form_->shared_from_this();
  return keep->TakeKey(key);
}

bool HostedControl::AcceptsPress() {
  const auto keep = form_ ? form_->shared_from_this() : nullptr;
  return !keep || keep->MayLeaveFor(*this);
}

void HostedControl::InputArrived(InputKind kind) {
  if (form_) form_->tool_tip_.InputArrived(*this, kind);
}

bool HostedControl::TakeError(std::string_view event, const Error& error) {
  const auto form = origin_.lock();
  return form && form->TakeError(name_, event, error);
}

Error RemovedWhileAdded(const HostedControl& control) {
  return Error(
      kInvalidCall, "LevelWidgets.Form",
      control.Name() + " was not added: a handler removed it, or closed its form, before it was complete");
}

}  // namespace levelwidgets
