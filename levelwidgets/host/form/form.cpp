#include <levelwidgets/host/form/form.h>

#include <algorithm>
#include <cmath>

#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/host/form/form_scale.h>

namespace levelwidgets {

namespace {

constexpr std::uint32_t kStyle =
    kWsCaption | kWsSysMenu | kWsMinimizeBox | kWsThickFrame | kWsClipChildren | kWsClipSiblings;
// Of a child the bit says that the Tab key of its parent stops at it.
constexpr std::uint32_t kChildStyle = kWsChild | kWsMaximizeBox | kWsClipChildren | kWsClipSiblings;

void CheckPlace(const std::optional<Twips>& length) {
  if (!length || std::fabs(length->value) <= kMostTwips.value) return;
  throw Error(kOverflow, "LevelWidgets.Form",
              "The form would be too far away: Left and Top are at most 1000000000 twips");
}

}  // namespace

const ClassInfo& Form::Table() {
  using Row = table::Row<Form>;
  static constexpr auto data = ClassTable(
      ObjectClass("Form", "A window that holds controls."),
      table::Properties(
          Row::ReadOnly<&Form::Name>(1, "Name", "The form's name, as its file gives it."),
          Row::Property<&Form::Caption, &Form::SetCaption>(2, "Caption", Always(""),
                                                           "Text of the title bar."),
          Row::Property<&Form::Width, &Form::SetWidth>(3, "Width", Always(6000.0f), "Inner width, twips.",
                                                       {.flags = MemberFlags::kWidth}),
          Row::Property<&Form::Height, &Form::SetHeight>(4, "Height", Always(4500.0f), "Inner height, twips.",
                                                         {.flags = MemberFlags::kHeight}),
          Row::Property<&Form::GetFont, &Form::SetFont>(5, "Font", Always(Literal::NewFont()),
                                                        "Default font of the controls."),
          Row::Property<&Form::BackColor, &Form::SetBackColor>(6, "BackColor", Always(kButtonFace),
                                                               "Background colour."),
          Row::ReadOnly<&Form::Design>(7, "Design",
                                       "Whether the form is being designed: controls get no input."),
          Row::ReadOnly<&Form::hWnd>(8, "hWnd", "Handle of the form's window."),
          Row::Property<&Form::Left, &Form::SetLeft>(
              12, "Left", kNoDefault, "Left edge on the screen, twips; in the middle where not given.",
              {.flags = MemberFlags::kLeft}),
          Row::Property<&Form::Top, &Form::SetTop>(
              13, "Top", kNoDefault, "Top edge on the screen, twips; in the middle where not given.",
              {.flags = MemberFlags::kTop}),
          Row::Property<&Form::KeyPreview, &Form::SetKeyPreview>(
              14, "KeyPreview", Always(false), "Whether the form hears keys before its controls."),
          Row::ReadOnly<&Form::ActiveControlObject>(15, "ActiveControl",
                                                    "The control with the focus; none without one.")),
      table::Persisted("Caption", "Left", "Top", "Width", "Height", "Font", "BackColor", "KeyPreview"),
      table::Methods(
          Row::Method<&Form::Show>(9, "Show", "", "Shows and activates the form."),
          Row::Method<&Form::Hide>(10, "Hide", "", "Hides the form."),
          Row::Method<&Form::Close>(11, "Close", "", "Closes the form unless Unload is cancelled.")),
      table::Events(
          Row::Event<&Form::Activate>(1, "Activate", "", "The form became the active window."),
          Row::Event<&Form::Deactivate>(2, "Deactivate", "", "Another window became active."),
          Row::Event<&Form::KeyDown>(7, "KeyDown", kKeyArguments,
                                     "A key was pressed; KeyCode 0 keeps it from the control."),
          Row::Event<&Form::KeyPress>(8, "KeyPress", kCharacterArguments,
                                      "A character was typed; KeyAscii 0 keeps it from the control."),
          Row::Event<&Form::KeyUp>(9, "KeyUp", kKeyArguments, "A key was let go."),
          Row::Event<&Form::Load>(3, "Load", "", "The form and its controls are there, not yet shown."),
          Row::Event<&Form::PropertyChanged>(4, "PropertyChanged", "Control, Name",
                                             "A control reported that a persisted property changed."),
          Row::Event<&Form::Resize>(5, "Resize", "", "The inner size changed."),
          Row::Event<&Form::Unload>(6, "Unload", "Cancel", "The form is about to close.")));
  static constexpr ClassInfo info(data);
  return info;
}

Twips* LengthOf(Placement& place, MemberFlags flags) {
  if (Has(flags, MemberFlags::kLeft)) return &place.position.x;
  if (Has(flags, MemberFlags::kTop)) return &place.position.y;
  if (Has(flags, MemberFlags::kWidth)) return &place.size->width;
  if (Has(flags, MemberFlags::kHeight)) return &place.size->height;
  return nullptr;
}

bool IsControlName(std::string_view name) {
  const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  return !name.empty() && is_letter(name[0]) &&
         std::ranges::all_of(name, [&](char c) { return is_letter(c) || is_digit(c); });
}

std::shared_ptr<Form> Form::Create(Platform& platform, FormOptions options) {
  return std::shared_ptr<Form>(new Form(platform, std::move(options)));
}

Form::Form(Platform& platform, FormOptions options)
    : platform_(platform), options_(std::move(options)), font_(MakeFont(options_.font)), tool_tip_(platform) {
  const TwipSize size = options_.size;
  WindowRequest request;
  CheckPlace(options_.left);
  CheckPlace(options_.top);
  request.title = options_.caption;
  request.style = Style();
  request.parent = options_.parent;
  request.client = this;
  window_ = platform_.Windows().CreateWindowExA(request);
  options_.size = {};
  SetSize(size);
  PlaceWindow();
}

Form::~Form() { CloseWindow(); }

std::uint32_t Form::Style() const { return options_.parent ? kChildStyle : kStyle; }

void Form::CloseWindow() {
  tool_tip_.Leave();
  leaving_.clear();
  by_name_.clear();
  const auto controls = std::exchange(controls_, {});
  for (const auto& control : controls) control->Disconnect();
  const WindowHandle window = std::exchange(window_, {});
  if (window) Gone.Raise();
  // All at once: each control that leaves the screen by itself uncovers what is behind it.
  if (window) platform_.Windows().ShowWindow(window, kSwHide);
  for (const auto& control : controls) control->Detach();
  if (window) platform_.Windows().DestroyWindow(window);
}

// --- Properties --------------------------------------------------------------------------------------

void Form::SetCaption(std::string caption) {
  options_.caption = std::move(caption);
  platform_.Windows().SetWindowTextA(window_, options_.caption);
}

// Where Left and Top say; in the middle where they say nothing.
void Form::PlaceWindow() {
  if (options_.parent) return;
  const FormScale scale(platform_.Screen());
  const PixelRect rect = ScreenRect();
  const PixelSize size = platform_.Screen().Size();
  PixelPoint place{std::max(0, (size.width - rect.width()) / 2),
                   std::max(0, (size.height - rect.height()) / 2)};
  if (options_.left) place.x = scale.PixelsX(*options_.left);
  if (options_.top) place.y = scale.PixelsY(*options_.top);
  MoveTo(place);
}

Twips Form::Left() const {
  return options_.left.value_or(FormScale(platform_.Screen()).TwipsX(ScreenRect().left));
}

void Form::SetLeft(Twips left) {
  CheckPlace(left);
  options_.left = left;
  MoveTo({FormScale(platform_.Screen()).PixelsX(left), ScreenRect().top});
}

Twips Form::Top() const {
  return options_.top.value_or(FormScale(platform_.Screen()).TwipsY(ScreenRect().top));
}

void Form::SetTop(Twips top) {
  CheckPlace(top);
  options_.top = top;
  MoveTo({ScreenRect().left, FormScale(platform_.Screen()).PixelsY(top)});
}

void Form::SetSize(TwipSize size) {
  if (size.width < Twips() || size.height < Twips()) {
    throw Error(kInvalidCall, "LevelWidgets.Form",
                "The size of a form cannot be negative: Width and Height are lengths in twips");
  }
  if (!(size.width <= kMostTwips && size.height <= kMostTwips)) {
    throw Error(kOverflow, "LevelWidgets.Form",
                "The form would be too large: Width and Height are at most 1000000000 twips");
  }
  options_.size = size;
  const FormScale scale(platform_.Screen());
  const PixelRect client{0, 0, scale.PixelsX(size.width), scale.PixelsY(size.height)};
  const PixelRect outer = platform_.Windows().AdjustWindowRectEx(client, Style(), 0);
  sizing_ = true;
  platform_.Windows().SetWindowPos(window_, {}, {0, 0, outer.width(), outer.height()},
                                   kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
  sizing_ = false;
  client_size_ = ClientSize();
}

void Form::SetFont(FontRef font) {
  font_ = std::move(font);
  for (const auto& control : std::vector(controls_)) {
    if (const auto part = control->GetControl()) part->OnAmbientChanged("Font");
  }
}

void Form::SetBackColor(Color color) {
  options_.back_color = color;
  platform_.Windows().InvalidateRect(window_);
  for (const auto& control : std::vector(controls_)) {
    if (const auto part = control->GetControl()) part->OnAmbientChanged("BackColor");
  }
}

PixelRect Form::ScreenRect() const {
  PixelRect rect;
  platform_.Windows().GetWindowRect(window_, rect);
  return rect;
}

// --- Methods -----------------------------------------------------------------------------------------

void Form::Show() {
  const auto keep = shared_from_this();
  platform_.Windows().ShowWindow(window_, kSwShow);
  if (window_ && !options_.parent) platform_.Windows().SetActiveWindow(window_);
  if (window_) platform_.Windows().UpdateWindow(window_);
}

void Form::Hide() {
  const auto keep = shared_from_this();
  Gone.Raise();
  platform_.Windows().ShowWindow(window_, kSwHide);
}

bool Form::Close() {
  const auto keep = shared_from_this();
  if (Closed()) return true;
  bool cancel = false;
  Unload.Raise(cancel);
  if (!cancel) CloseWindow();
  return !cancel;
}

void Form::MoveTo(PixelPoint screen) {
  platform_.Windows().SetWindowPos(window_, {}, {screen.x, screen.y, screen.x, screen.y},
                                   kSwpNoSize | kSwpNoZOrder | kSwpNoActivate);
}

void Form::Loaded() {
  const auto keep = shared_from_this();
  Load.Raise();
}

void Form::CheckName(const std::string& name) const {
  if (Closed()) {
    throw Error(kInvalidCall, "LevelWidgets.Form", Name() + " is closed: nothing can be added to it");
  }
  if (name.empty()) throw Error(kInvalidCall, "LevelWidgets.Form", "A control needs a name");
  if (!IsControlName(name)) {
    throw Error(
        kInvalidCall, "LevelWidgets.Form",
        "\"" + name + "\" is no name for a control: it takes letters, digits and \"_\", the first no digit");
  }
  if (Find(name)) {
    throw Error(kKeyInUse, "LevelWidgets.Form", "The form has a control named \"" + name + "\" already");
  }
}

HostedControl& Form::Add(const ClassInfo& control_class, std::string name, const PropertyBag* saved,
                         const Placement& place) {
  const auto keep = shared_from_this();
  CheckName(name);
  const auto added = std::make_shared<HostedControl>(*this, control_class, std::move(name));
  added->tab_index_ = static_cast<std::int32_t>(controls_.size());
  controls_.push_back(added);
  by_name_.emplace(added->Name(), added.get());
  try {
    added->Create(saved, place);
  } catch (...) {
    Forget(added);
    added->Detach();
    throw;
  }
  const bool form_ends = keep.use_count() == 1;  // a listener has let go of it
  if (form_ends || !added->GetControl()) throw RemovedWhileAdded(*added);
  return *added;
}

std::shared_ptr<HostedControl> Form::Find(std::string_view name) const {
  const auto found = by_name_.find(name);
  return found == by_name_.end() ? nullptr : found->second->shared_from_this();
}

bool Form::Remove(std::string_view name) {
  const auto control = Find(name);
  if (!control) return false;
  if (ActiveControl() == control) {
    const std::vector<HostedControl*> order = TabOrder();
    vacant_place_ = std::ranges::find(order, control.get()) - order.begin();
  }
  Forget(control);
  control->Detach();
  return true;
}

// The form may have been closed meanwhile.
void Form::Forget(const std::shared_ptr<HostedControl>& control) {
  tool_tip_.Forget(*control);
  std::erase(controls_, control);
  const auto named = by_name_.find(control->Name());
  if (named != by_name_.end() && named->second == control.get()) by_name_.erase(named);
}

std::shared_ptr<HostedControl> Form::ActiveControl() const {
  const auto control = active_control_.lock();
  return control && control->GetForm() == this ? control : nullptr;
}

void Form::BecomeDefault(HostedControl& control) {
  for (const auto& other : std::vector(controls_)) {
    if (other.get() != &control) other->SetDefault(false);
  }
}

void Form::BecomeCancel(HostedControl& control) {
  for (const auto& other : controls_) {
    if (other.get() != &control) other->SetCancel(false);
  }
}

// --- Messages ----------------------------------------------------------------------------------------

LResult Form::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  const auto keep = weak_from_this().lock();
  try {
    return HandleMessage(window, message, wparam, lparam);
  } catch (const Error& error) {
    if (!keep || !TakeError("", EventOf(message), error)) throw;
    return 0;
  }
}

bool Form::TakeError(std::string_view control, std::string_view event, const Error& error) const {
  const ErrorHandler handler = error_handler_;  // which may set another one
  return handler && handler(control, event, error);
}

LResult Form::HandleMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  const bool alive = !weak_from_this().expired();
  WindowApi& windows = platform_.Windows();
  switch (message) {
    case kWmEraseBackground: return 1;
    case kWmPaint: Paint(); return 0;
    case kWmDestroy: window_ = {}; return 0;
    default: break;
  }
  if (!alive) return windows.DefWindowProcA(window, message, wparam, lparam);
  switch (message) {
    case kWmSize: ClientResized(); return 0;
    case kWmClose: Close(); return 0;
    case kWmMove: ClientMoved(); return 0;
    case kWmSetFocus:
      FocusFirst();
      SettleFocus();
      return 0;
    case kWmMouseMove: tool_tip_.Leave(); break;
    case kWmActivate: {
      tool_tip_.Leave();
      // Lets the system move the focus first.
      const LResult result = windows.DefWindowProcA(window, message, wparam, lparam);
      ((wparam & 0xFFFF) != 0 ? Activate : Deactivate).Raise();
      return result;
    }
    default: break;
  }
  if (InputKindOf(message) == InputKind::kKey) tool_tip_.Spend();
  if (!Design() && KeyMessageToForm(message, wparam)) return 0;
  return windows.DefWindowProcA(window, message, wparam, lparam);
}

void Form::Paint() {
  const DcHandle dc = platform_.Windows().BeginPaint(window_);
  DrawingApi& drawing = platform_.Drawing();
  PixelRect client;
  platform_.Windows().GetClientRect(window_, client);
  const DrawingObject brush(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, options_.back_color)));
  drawing.FillRect(dc, client, brush.Handle());
  platform_.Windows().EndPaint(window_);
}

}  // namespace levelwidgets
