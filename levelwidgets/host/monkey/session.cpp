#include <levelwidgets/host/monkey/session.h>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/host/form/open_panel.h>
#include <levelwidgets/host/form_file/values.h>
#include <levelwidgets/host/monkey/exceptions.h>
#include <levelwidgets/platform/hand.h>

namespace levelwidgets::monkey {

namespace {

std::shared_ptr<Form> MakeOther(Platform& platform) {
  FormOptions options;
  options.name = "frmOther";
  options.caption = "Other";
  options.size = {Twips(3000), Twips(1500)};
  const auto form = Form::Create(platform, options);
  form->Add(*ControlClasses().front(), "ctlOther");
  return form;
}

ObjectRef HeldBy(const ObjectRef& object, const PathStep& step) {
  Variant held;
  if (step.index == 0) {
    held = GetByName(*object, step.property);
  } else {
    const Variant index[] = {step.index};
    held = GetIndexedByName(*object, step.property, index);
  }
  return held.Type() == VariantType::kObject ? std::get<ObjectRef>(held.Get()) : nullptr;
}

void Assign(Object& object, const Event& event, ConversionApi& conversions) {
  const std::span indices(event.values.data(), event.values.size() - 1);
  if (indices.empty()) {
    SetByName(object, event.member, event.values.back(), conversions);
  } else {
    SetIndexedByName(object, event.member, indices, event.values.back(), conversions);
  }
}

FontRef FontOf(const Object& object) {
  const Variant value = GetByName(object, "Font");
  return value.Type() == VariantType::kFont ? std::get<FontRef>(value.Get()) : nullptr;
}

// What a control itself has comes after what its container adds, a control's methods before it.
Object& MemberOwner(HostedControl& hosted, Control& control, const Event& event) {
  const bool of_container = event.kind == EventKind::kSet
                                ? hosted.Class().FindProperty(event.member) != nullptr
                                : !control.Class().FindMethod(event.member);
  if (event.path.empty() && of_container) return hosted;
  return control;
}

int Whole(const Event& event, std::size_t index) { return static_cast<int>(event.numbers[index]); }

TwipPoint PlaceOf(const Event& event) { return {Twips(Whole(event, 0)), Twips(Whole(event, 1))}; }
TwipSize SizeOf(const Event& event) { return {Twips(Whole(event, 2)), Twips(Whole(event, 3))}; }

}  // namespace

void ThrowOnce(Object& object, const std::string& event) {
  SubscribeByName(object, event, [done = false](RaisedEvent&) mutable {
    if (!std::exchange(done, true)) throw ThrownOnPurpose();
  });
}

Session::Session(std::unique_ptr<Stage> stage)
    : stage_(std::move(stage)), desktop_(stage_->GetDesktop()), form_(stage_->GetForm()) {
  other_ = stage_->Beside();
  if (!other_) other_ = MakeOther(form_->GetPlatform());
  Attach(*form_, stage_->MayClose());
  Attach(*other_, false);
  other_->Show();
  form_->Show();
  Settle();
}

Session::~Session() { finishing_ = true; }

void Session::Attach(Form& form, bool may_close) {
  for (const auto& hosted : form.Controls()) Watch(*hosted);
  form.Unload += [this, may_close](bool& cancel) { cancel = !finishing_ && !may_close; };
  form.PropertyChanged += [this, &form](std::string_view control, std::string_view property) {
    const auto hosted = form.Find(control);
    const PropertyInfo* changed = hosted ? hosted->ControlClass().FindProperty(property) : nullptr;
    if (changed && IsShownLater(*changed)) shown_later_ = true;
  };
}

void Session::FollowClosing() {
  if (!form_->Closed()) return;
  ++tally_.closings;
  const std::vector watched(other_->Controls());
  stage_->Reopen();
  form_ = stage_->GetForm();
  Attach(*form_, true);
  for (const auto& hosted : other_->Controls()) {
    if (std::ranges::find(watched, hosted) == watched.end()) Watch(*hosted);
  }
  Settle();
}

Form& Session::HolderOf(const std::string& name) const {
  return !form_->Find(name) && other_->Find(name) ? *other_ : *form_;
}

Outcome Session::Perform(const Event& event) {
  ++tally_.events;
  Outcome outcome;
  try {
    if (!Do(event)) ++tally_.void_events;
  } catch (const Error& error) {
    outcome.refused = error.what();
    ++tally_.refused;
    const bool may_refuse = event.kind >= EventKind::kSet && event.kind <= EventKind::kAdd;
    if (!may_refuse && !InputMayRaise(error, *form_))
      return {"error: an event raised " + outcome.refused, ""};
    if (!IsDocumented(error.Number())) return {"error: an undocumented one: " + outcome.refused, ""};
  } catch (const ThrownOnPurpose&) {
    outcome.refused = "thrown on purpose";
    ++tally_.thrown;
  } catch (const std::exception& error) {
    return {std::string("error: ") + error.what(), ""};
  }
  if (!broken_.empty()) return {std::exchange(broken_, {}), ""};
  try {
    outcome.repainted = std::exchange(shown_later_, false);
    if (outcome.repainted) PaintEverything(desktop_);
    Settle();
    for (Form* const form : {form_.get(), other_.get()}) {
      if (outcome.broken.empty()) outcome.broken = CheckAlways({desktop_, *form});
    }
  } catch (const Error& error) {
    outcome.broken = std::string("error: painting or what was pending raised ") + error.what();
  }
  if (outcome.broken.empty()) outcome.broken = std::exchange(broken_, {});
  if (outcome.broken.empty()) outcome.broken = CheckRemoved();
  CountPanels();
  FollowClosing();
  if (outcome.broken.empty()) {
    const std::string complaint = stage_->Complaint();
    if (!complaint.empty()) outcome.broken = "handler: " + complaint;
  }
  return outcome;
}

std::string Session::Finish() {
  finishing_ = true;
  for (const auto& hosted : std::vector(form_->Controls())) form_->Remove(hosted->Name());
  Settle();
  const std::string left = CloseEverything(desktop_);
  return left.empty() ? "" : "nothing left: with all forms closed there are " + left;
}

// What is pending may throw on purpose too, once for each listener that does.
void Session::Settle() {
  for (int attempts = 0; attempts < 100; ++attempts) {
    try {
      desktop_.Settle();
      return;
    } catch (const ThrownOnPurpose&) {
      ++tally_.thrown;
    } catch (const Error& error) {
      if (!InputMayRaise(error, *form_)) throw;
    }
  }
}

// --- Events ----------------------------------------------------------------------------------------
// Each is false when there is no such control any more.

bool Session::Do(const Event& event) {
  if (event.kind <= EventKind::kAdvance) return DoPointer(event);
  if (event.kind <= EventKind::kShareFont) return DoMember(event);
  return DoForm(event);
}

bool Session::DoPointer(const Event& event) {
  switch (event.kind) {
    case EventKind::kMove:
      MoveByHand(desktop_, desktop_.Windows(), {Whole(event, 0), Whole(event, 1)});
      break;
    case EventKind::kMoveTo: return MoveTo(event);
    case EventKind::kMoveToPanel: return MoveToPanel(event);
    case EventKind::kPress: desktop_.Press(Whole(event, 0)); break;
    case EventKind::kRelease: desktop_.Release(Whole(event, 0)); break;
    case EventKind::kDoubleClick: {
      PixelPoint point;
      desktop_.Windows().GetCursorPos(point);
      desktop_.DoubleClick(point);
      break;
    }
    case EventKind::kWheel: desktop_.Wheel(Whole(event, 0)); break;
    case EventKind::kKey: desktop_.Key(Whole(event, 0), Whole(event, 1)); break;
    case EventKind::kKeyDown: desktop_.KeyDown(Whole(event, 0), Whole(event, 1)); break;
    case EventKind::kKeyUp: desktop_.KeyUp(Whole(event, 0), Whole(event, 1)); break;
    case EventKind::kType: desktop_.Type(std::get<std::string>(event.values[0].Get())); break;
    default: desktop_.Advance(static_cast<std::uint32_t>(event.numbers[0]));
  }
  return true;
}

bool Session::MoveTo(const Event& event) {
  const FormScale scale(desktop_.Screen());
  WindowHandle window = form_->hWnd();
  PixelPoint point = scale.OnForm(PlaceOf(event));
  if (!event.control.empty()) {
    const auto hosted = Find(event.control);
    if (!hosted) return false;
    window = hosted->GetControl()->GetSurface().hWnd();
    point = scale.InControl(PlaceOf(event));
  }
  desktop_.Windows().ClientToScreen(window, point);
  MoveByHand(desktop_, desktop_.Windows(), point);
  return true;
}

bool Session::MoveToPanel(const Event& event) {
  constexpr int kWhole = 1000;
  const auto hosted = Find(event.control);
  if (!hosted) return false;
  const auto panel = OpenPanelRect(desktop_, *hosted->GetControl());
  if (!panel) return true;
  MoveByHand(desktop_, desktop_.Windows(),
             {panel->left + panel->width() * Whole(event, 0) / kWhole,
              panel->top + panel->height() * Whole(event, 1) / kWhole});
  return true;
}

bool Session::DoMember(const Event& event) {
  if (event.control.empty()) {
    if (event.kind == EventKind::kSet) Assign(*form_, event, desktop_.Conversions());
    return event.kind == EventKind::kSet;
  }
  const auto hosted = Find(event.control);
  if (!hosted) return false;
  const auto control = hosted->GetControl();
  if (event.kind == EventKind::kPlace) {
    hosted->Move(PlaceOf(event), SizeOf(event));
    return true;
  }
  if (event.kind == EventKind::kFontField || event.kind == EventKind::kShareFont) {
    shown_later_ = true;
    ChangeFont(*control, event);
    return true;
  }
  ObjectRef held;
  Object* object = &MemberOwner(*hosted, *control, event);
  for (const PathStep& step : event.path) {
    held = HeldBy(held ? held : ObjectRef(control), step);
    if (!held) return false;
    object = held.get();
  }
  if (event.kind == EventKind::kSet) {
    Assign(*object, event, desktop_.Conversions());
  } else {
    InvokeByName(*object, event.member, event.values, desktop_.Conversions());
  }
  return true;
}

void Session::ChangeFont(Object& object, const Event& event) {
  if (event.kind == EventKind::kShareFont) {
    const auto other = Find(event.member);
    if (other) SetByName(object, "Font", GetByName(*other->GetControl(), "Font"));
    return;
  }
  const FontRef font = FontOf(object);
  if (font) SetByName(*font, event.member, event.values[0], desktop_.Conversions());
}

bool Session::DoForm(const Event& event) {
  switch (event.kind) {
    case EventKind::kAdd: Add(event); return true;
    case EventKind::kRemove: return Remove(event.control);
    case EventKind::kShow: Which(event).Show(); return true;
    case EventKind::kHide: Which(event).Hide(); return true;
    case EventKind::kOnce: return Once(event);
    case EventKind::kThrow: {
      const auto hosted = Find(event.control);
      if (hosted) ThrowOnce(*hosted->GetControl(), event.member);
      return hosted != nullptr;
    }
    default: break;
  }
  const Invariant* invariant = FindInvariant(event.member);
  if (!invariant) return false;
  Form& holder = HolderOf(event.control);
  Subject subject{desktop_, holder, holder.Find(event.control)};
  if (!event.values.empty()) subject.other = holder.Find(ToText(event.values[0]));
  broken_ = Check(*invariant, subject);
  return true;
}

void Session::Add(const Event& event) {
  if (form_->Find(event.control)) return;
  const PropertyBag empty;
  const ClassInfo& info = *FindControlClass(event.member);
  HostedControl& hosted = form_->Add(info, event.control, event.numbers[4] != 0 ? &empty : nullptr,
                                     {PlaceOf(event), SizeOf(event)});
  Watch(hosted);
}

// --- Handlers and removal --------------------------------------------------------------------------

bool Session::Once(const Event& event) {
  const auto hosted = Find(event.control);
  if (!hosted) return false;
  SubscribeByName(*hosted->GetControl(), event.member,
                  [this, nested = event.nested, done = false](RaisedEvent&) mutable {
                    if (std::exchange(done, true) || finishing_) return;
                    const auto keep = nested;
                    try {
                      Do(*keep);
                    } catch (const Error&) {  // a handler of the user's fails: reported, and that is all
                      ++tally_.refused;
                    }
                  });
  return true;
}

bool Session::Remove(const std::string& name) {
  const auto hosted = Find(name);
  if (!hosted) return false;
  const auto control = hosted->GetControl();
  removed_.push_back({name, control, control->GetSurface().hWnd()});
  return HolderOf(name).Remove(name);
}

// Added before every other listener of the session, so that none of them has removed the control meanwhile.
void Session::Watch(HostedControl& hosted) {
  const std::weak_ptr<Control> control = hosted.GetControl();
  for (const EventInfo& info : hosted.ControlClass().Events()) {
    SubscribeByName(*hosted.GetControl(), info.name, [this, control](RaisedEvent& raised) {
      const auto same = [&](const Removed& removed) {
        return !removed.control.owner_before(control) && !control.owner_before(removed.control);
      };
      const auto found = std::ranges::find_if(removed_, same);
      if (found == removed_.end() || !broken_.empty()) return;
      broken_ =
          "removed: " + found->name + " raised " + std::string(raised.info.name) + " after it was removed";
    });
  }
}

// A panel that is open is the active window.
void Session::CountPanels() {
  const WindowHandle former = panel_;
  const memory::Window* active = desktop_.Windows().Tree().Find(desktop_.Windows().GetActiveWindow());
  panel_ = active && (active->ex_style & kWsExToolWindow) != 0 ? active->handle : WindowHandle{};
  if (!panel_) return;
  ++tally_.panel_events;
  if (panel_ == former) return;
  for (const auto& hosted : form_->Controls()) {
    if (!hosted->GetControl()->Holds(panel_)) continue;
    const auto of_class = std::ranges::find(ControlClasses(), &hosted->ControlClass());
    ++tally_.panels[static_cast<std::size_t>(of_class - ControlClasses().begin())];
  }
}

std::string Session::CheckRemoved() {
  for (const Removed& removed : removed_) {
    if (!removed.control.expired()) return "removed: " + removed.name + " was removed and is still there";
    if (desktop_.Windows().IsWindow(removed.window))
      return "removed: the window of " + removed.name + " is left";
  }
  removed_.clear();
  return "";
}

}  // namespace levelwidgets::monkey
