#include <levelwidgets/testing/desktop_fixture.h>

#include <algorithm>

#include <levelwidgets/frame/paint.h>

namespace levelwidgets::testing {

namespace {

constexpr PixelPoint kFormPosition{100, 100};
// Where the pointer rests between tests: over no form.
constexpr PixelPoint kAway{1000, 750};

std::string TextOf(const TraceArgument& argument) {
  if (const auto* number = std::get_if<std::int64_t>(&argument)) return std::to_string(*number);
  if (const auto* text = std::get_if<std::string>(&argument)) return *text;
  return std::to_string(std::get<double>(argument));
}

std::int64_t HandleOf(const TracedCall& call) {
  if (call.arguments.empty()) return 0;
  const auto* handle = std::get_if<std::int64_t>(&call.arguments.front());
  return handle ? *handle : 0;
}

// Real keyboards report Shift, Ctrl and Alt as keys of their own; what the tests state is the key that
// they modify.
bool IsModifierKey(const RaisedEvent& raised) {
  if (raised.info.name != "KeyDown" && raised.info.name != "KeyUp") return false;
  const std::int16_t code = ToInt16(raised.values[0]);
  return code == kKeyShift || code == kKeyControl || code == kKeyAlt;
}

// The tracer's record of an event or notice starts with this mark.
constexpr char kNoteMark = '!';

}  // namespace

void DesktopTest::SetUp() {
  driver_ = MakeDriver();
  tracer_ = std::make_unique<TracingPlatform>(driver_->GetPlatform());
  driver_->MovePointer(kAway);
  driver_->Settle();
  objects_before_ = driver_->LiveObjects();
  windows_before_ = driver_->LiveWindows();
  timers_before_ = driver_->LiveTimers();
}

void DesktopTest::TearDown() {
  form_.reset();
  driver_->GetPlatform().Windows().ReleaseCapture();
  driver_->Settle();
  EXPECT_EQ(driver_->LiveObjects(), objects_before_) << "drawing objects were left behind";
  EXPECT_EQ(driver_->LiveWindows(), windows_before_) << "windows were left behind";
  EXPECT_EQ(driver_->LiveTimers(), timers_before_) << "timers were left behind";
}

void DesktopTest::MakeForm(FormOptions options) {
  options.size = {Twips(6000), Twips(4500)};
  form_ = Form::Create(FormPlatform(), std::move(options));
  form_->MoveTo(kFormPosition);
  form_->Show();
  driver_->Settle();
}

Form& DesktopTest::TheForm() {
  if (!form_) MakeForm({});
  return *form_;
}

Control& DesktopTest::Place(const ClassInfo& control_class, const std::string& name, const PropertyBag* saved,
                            TwipPoint at, TwipSize size) {
  HostedControl& hosted = TheForm().Add(control_class, name, saved, {at, size});
  driver_->Settle();
  return *hosted.GetControl();
}

HostedControl& DesktopTest::Hosted(const Control& control) {
  return dynamic_cast<HostedControl&>(control.Site());
}

PixelPoint DesktopTest::ScreenPoint(const Control& control, PixelPoint inside) {
  Windows().ClientToScreen(control.GetSurface().hWnd(), inside);
  return inside;
}

PixelPoint DesktopTest::ScreenPoint(const Control& control, TwipPoint inside) {
  ScreenApi& screen = FormPlatform().Screen();
  return ScreenPoint(control, PixelPoint{ToPixels(inside.x, screen.TwipsPerPixelX()),
                                         ToPixels(inside.y, screen.TwipsPerPixelY())});
}

ColorRef DesktopTest::PixelAt(const Control& control, PixelPoint inside) {
  driver_->Settle();
  return driver_->PixelAt(ScreenPoint(control, inside));
}

ColorRef DesktopTest::Concrete(Color color) { return TranslateColor(Drawing(), color); }

void DesktopTest::Watch(Control& control) {
  for (const EventInfo& event : control.Class().Events()) {
    SubscribeByName(control, event.name, [this](RaisedEvent& raised) {
      if (IsModifierKey(raised)) return;
      std::vector<TraceArgument> values;
      for (const Variant& value : raised.values) {
        values.emplace_back(value.Type() == VariantType::kString ? ToText(value) : Describe(value));
      }
      tracer_->Note(kNoteMark + std::string(raised.info.name), std::move(values));
    });
  }
  const std::string name = Hosted(control).Name();
  TheForm().PropertyChanged.Add([this, name](std::string_view sender, std::string_view property) {
    if (sender == name) tracer_->Note(kNoteMark + std::string("PropertyChanged"), {std::string(property)});
  });
  watched_window_ = control.GetSurface().hWnd().value;
  watched_dc_ = control.GetSurface().hDC().value;
  tracer_->Start();
  tracer_->TakeCalls();
}

Journal DesktopTest::TakeJournal() {
  Journal journal;
  for (const TracedCall& call : tracer_->TakeCalls()) {
    if (call.name.front() == kNoteMark) {
      std::string entry = call.name.substr(1) + "(";
      for (const TraceArgument& argument : call.arguments) {
        if (entry.back() != '(') entry += ", ";
        entry += TextOf(argument);
      }
      journal.push_back(entry + ")");
    } else if ((call.name == "FillRect" || call.name == "BitBlt") && HandleOf(call) == watched_dc_) {
      // Every paint begins by clearing the surface, or ends by copying to it what was drawn off the screen.
      journal.push_back("paint");
    } else if (call.name == "SetCapture" && HandleOf(call) == watched_window_) {
      journal.push_back("capture");
    } else if (call.name == "ReleaseCapture") {
      journal.push_back("release capture");
    }
  }
  return journal;
}

Journal DesktopTest::DrawingCalls(const Control& control) {
  static const std::string_view kNames[] = {"FillRect",     "Rectangle", "DrawFocusRect",
                                            "SetTextColor", "DrawTextA", "BitBlt"};
  Journal journal;
  for (const TracedCall& call : tracer_->TakeCalls()) {
    if (std::ranges::find(kNames, call.name) == std::end(kNames)) continue;
    if (HandleOf(call) != control.GetSurface().hDC().value) continue;
    std::string entry = call.name;
    // A fill's last argument is its brush, whose number means nothing.
    const std::size_t count = call.arguments.size() - (call.name == "FillRect" ? 1 : 0);
    for (std::size_t i = 1; i < count; ++i) entry += " " + TextOf(call.arguments[i]);
    journal.push_back(entry);
  }
  return journal;
}

std::vector<TracedCall> DesktopTest::CallsNamed(const std::vector<std::string>& names) {
  std::vector<TracedCall> calls = tracer_->TakeCalls();
  std::erase_if(calls,
                [&](const TracedCall& call) { return std::ranges::find(names, call.name) == names.end(); });
  return calls;
}

}  // namespace levelwidgets::testing
