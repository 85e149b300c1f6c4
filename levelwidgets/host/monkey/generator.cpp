#include <levelwidgets/host/monkey/generator.h>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/values.h>
#include <levelwidgets/host/monkey/invariants.h>
#include <levelwidgets/host/monkey/wanted.h>

namespace levelwidgets::monkey {

namespace {

constexpr std::size_t kMostControls = 80;

// Whether scripts can get at objects of the class.
bool IsKnown(const ClassInfo& info) {
  return std::ranges::find(ObjectClasses(), &info) != ObjectClasses().end();
}

}  // namespace

FormModel::FormModel(const Form& form)
    : size{form.Width(), form.Height()}, screen(form.GetPlatform().Screen().Size()) {
  for (const auto& hosted : form.Controls()) {
    controls.push_back({hosted->Name(), &hosted->ControlClass(), {hosted->Width(), hosted->Height()}});
  }
}

void FormModel::AddBeside(const Form& form) {
  for (const Control& control : FormModel(form).controls) {
    controls.push_back(control);
    controls.back().beside = true;
  }
}

Generator::Generator(FormModel model, std::uint64_t seed)
    : model_(std::move(model)),
      fills_in_(std::ranges::any_of(model_.controls, &FormModel::Control::beside)),
      dice_(seed) {}

const Generator::Weighted Generator::kEvents[] = {
    {8, &Generator::Move},     {30, &Generator::MoveTo},    {6, &Generator::Press},
    {6, &Generator::Release},  {14, &Generator::Click},     {3, &Generator::DoubleClick},
    {3, &Generator::Wheel},    {14, &Generator::Key},       {2, &Generator::KeyDown},
    {2, &Generator::KeyUp},    {2, &Generator::AccessKey},  {5, &Generator::Type},
    {10, &Generator::Advance}, {22, &Generator::Set},       {7, &Generator::SetPlacement},
    {2, &Generator::SetForm},  {6, &Generator::Call},       {3, &Generator::CallPlacement},
    {5, &Generator::Place},    {2, &Generator::ChangeFont}, {1, &Generator::ShareFont},
    {2, &Generator::Add},      {2, &Generator::Remove},     {2, &Generator::Show},
    {1, &Generator::Hide},     {5, &Generator::Once},       {3, &Generator::Throw},
    {3, &Generator::Check},    {4, &Generator::Open},       {1, &Generator::Fill},
};

// What happens while a panel is open, if it has opened: mostly to the panel.
const Generator::Weighted Generator::kPanelEvents[] = {
    {24, &Generator::MoveToPanel},  {16, &Generator::Click},  {2, &Generator::DoubleClick},
    {2, &Generator::Press},         {2, &Generator::Release}, {3, &Generator::Wheel},
    {16, &Generator::Key},          {4, &Generator::Type},    {6, &Generator::Advance},
    {2, &Generator::MoveTo},        {4, &Generator::Set},     {1, &Generator::SetPlacement},
    {1, &Generator::CallPlacement}, {1, &Generator::Call},    {1, &Generator::Place},
    {2, &Generator::Once},          {1, &Generator::Throw},   {1, &Generator::Check},
    {1, &Generator::Show},          {1, &Generator::Open},
};

const Generator::Weighted Generator::kReactions[] = {
    {3, &Generator::Remove},  {6, &Generator::Set},           {4, &Generator::SetPlacement},
    {3, &Generator::Call},    {4, &Generator::CallPlacement}, {2, &Generator::Place},
    {2, &Generator::Advance}, {1, &Generator::Add},           {1, &Generator::Show},
    {1, &Generator::Hide},    {1, &Generator::ChangeFont},    {1, &Generator::SetForm},
    {1, &Generator::Key},     {1, &Generator::MoveTo},
};

template <std::size_t count>
Event Generator::Pick(const Weighted (&table)[count]) {
  int sum = 0;
  for (const Weighted& one : table) sum += one.weight;
  int left = dice_.Between(0, sum - 1);
  for (const Weighted& one : table) {
    left -= one.weight;
    if (left < 0) return (this->*one.make)();
  }
  return Advance();
}

Event Generator::Next() {
  if (!next_.empty()) return TakeNext();
  if (model_.controls.empty()) return Add();
  if (panel_events_ > 0) {
    --panel_events_;
    return Pick(kPanelEvents);
  }
  constexpr int kOneOf = 12;
  if (fills_in_ && dice_.Once(kOneOf)) return dice_.Once(3) ? Submit() : FillIn();
  return Pick(kEvents);
}

Event Generator::TakeNext() {
  Event event = std::move(next_.front());
  next_.pop_front();
  return event;
}

// --- Members ---------------------------------------------------------------------------------------

Event Generator::Set() {
  Event event = On(EventKind::kSet);
  const FormModel::Control* control = FindControl(event.control);
  return control && SetMember(event, *control->info, 0) ? event : MoveTo();
}

Event Generator::SetPlacement() {
  Event event = On(EventKind::kSet);
  if (dice_.Once(2)) {
    constexpr const char* kSwitches[] = {"Visible", "Visible", "Visible", "Enabled"};
    event.member = dice_.One(kSwitches);
    event.values = {Variant(!dice_.Once(3))};
    const FormModel::Control* control = FindControl(event.control);
    if (event.member == "Visible" || (control && control->info->FindProperty("Enabled"))) return event;
  }
  SetMember(event, HostedControl::Table(), 0);
  return event;
}

Event Generator::SetForm() {
  Event event{.kind = EventKind::kSet};
  if (dice_.Once(2)) {
    event.member = dice_.Once(2) ? "Width" : "Height";
    event.values = {Variant(dice_.Between(0, 12000))};
  } else {
    SetMember(event, Form::Table(), 0);
  }
  // A desktop has the pixels of its windows in memory.
  const bool is_length = event.member == "Width" || event.member == "Height";
  constexpr double kMost = 15000;
  const Variant& value = event.values.back();
  const bool is_number = value.Type() == VariantType::kInt32 || value.Type() == VariantType::kDouble;
  if (is_length && (!is_number || ToDouble(value) > kMost)) event.values = {Variant(-1)};
  return event;
}

Event Generator::Call() {
  Event event = On(EventKind::kCall);
  const FormModel::Control* control = FindControl(event.control);
  return control && CallMember(event, *control->info, 0) ? event : MoveTo();
}

Event Generator::CallPlacement() {
  Event event = On(EventKind::kCall);
  CallMember(event, HostedControl::Table(), 0);
  return event;
}

int Generator::SomeLength() {
  switch (dice_.Below(10)) {
    case 0: return 0;
    case 1: return dice_.Between(1, 40);
    case 2: return 300000;
    default: return dice_.Between(100, 4000);
  }
}

Event Generator::Place() {
  Event event = On(EventKind::kPlace);
  const int width = dice_.Once(40) ? -15 : SomeLength();
  event.numbers = {dice_.Between(-1000, 7000), dice_.Between(-1000, 5000), width, SomeLength()};
  for (FormModel::Control& control : model_.controls) {
    if (control.name == event.control && width >= 0) {
      control.size = {Twips(width), Twips(static_cast<int>(event.numbers[3]))};
    }
  }
  return event;
}

Event Generator::ChangeFont() {
  Event event = On(EventKind::kFontField);
  const PropertyInfo& part = dice_.One(Font::Table().Properties());
  event.member = std::string(part.name);
  const bool points = Has(part.flags, MemberFlags::kPoints);
  event.values = {points ? Variant(dice_.Between(-1, 20)) : RandomValue(dice_, part.type)};
  return event;
}

Event Generator::ShareFont() {
  Event event = On(EventKind::kShareFont);
  event.member = SomeControl().name;
  return event;
}

bool Generator::SetMember(Event& event, const ClassInfo& info, int depth) {
  if (depth < 3 && dice_.Once(2)) {
    if (const ClassInfo* held = StepInto(event, info)) return SetMember(event, *held, depth + 1);
  }
  const auto writable = Wanted(info.Properties(), [](const PropertyInfo& p) { return !p.ReadOnly(); });
  if (writable.empty()) return false;
  const PropertyInfo& property = *dice_.One(writable);
  event.member = std::string(property.name);
  event.values.clear();
  for (const ArgumentInfo& index : property.indices) {
    event.values.push_back(index.type.type == VariantType::kString ? RandomValue(dice_, index.type)
                                                                   : Variant(RandomIndex(dice_)));
  }
  event.values.push_back(RandomValue(dice_, property.type));
  return true;
}

bool Generator::CallMember(Event& event, const ClassInfo& info, int depth) {
  if (depth < 3 && (info.Methods().empty() || dice_.Once(2))) {
    if (const ClassInfo* held = StepInto(event, info)) return CallMember(event, *held, depth + 1);
  }
  if (info.Methods().empty()) return false;
  const MethodInfo& method = dice_.One(info.Methods());
  event.member = std::string(method.name);
  event.values.clear();
  for (const ArgumentInfo& argument : method.arguments) {
    if (argument.default_value && dice_.Once(4)) break;
    const bool is_index = argument.type.type == VariantType::kInt32 && !argument.type.enumeration;
    event.values.push_back(is_index ? Variant(RandomIndex(dice_)) : RandomValue(dice_, argument.type));
  }
  return true;
}

// Null when `info` has no property that is an object with a table.
const ClassInfo* Generator::StepInto(Event& event, const ClassInfo& info) {
  const auto objects = Wanted(info.Properties(), [](const PropertyInfo& p) {
    return p.type.kind == TypeKind::kObject && p.type.object_class && IsKnown(p.type.object_class());
  });
  if (objects.empty()) return nullptr;
  const PropertyInfo& property = *dice_.One(objects);
  event.path.push_back({std::string(property.name), property.Indexed() ? dice_.Between(1, 3) : 0});
  return &property.type.object_class();
}

// --- The form --------------------------------------------------------------------------------------

Event Generator::Add() {
  if (model_.controls.size() >= kMostControls) return MoveTo();
  const ClassInfo& info = *dice_.One(ControlClasses());
  const std::string name = "ctlAdded" + std::to_string(++added_);
  const TwipSize size = info.DefaultSize();
  model_.controls.push_back({name, &info, size});
  return {.kind = EventKind::kAdd,
          .control = name,
          .member = std::string(info.Name()),
          .numbers = {dice_.Between(0, 5000), dice_.Between(0, 4000), static_cast<int>(size.width.value),
                      static_cast<int>(size.height.value), dice_.Once(2) ? 1 : 0}};
}

Event Generator::Remove() {
  Event event = On(EventKind::kRemove);
  std::erase_if(model_.controls, [&](const FormModel::Control& c) { return c.name == event.control; });
  return event;
}

Event Generator::Show() { return {.kind = EventKind::kShow, .numbers = {dice_.Once(3) ? 1 : 0}}; }

Event Generator::Hide() {
  const int which = dice_.Once(3) ? 0 : 1;
  if (which == 0 && subject_.empty()) {
    next_.push_back({.kind = EventKind::kShow, .numbers = {0}});
  }
  return {.kind = EventKind::kHide, .numbers = {which}};
}

// --- Reactions and checks --------------------------------------------------------------------------

Event Generator::Once() {
  const FormModel::Control control = SomeControl();
  if (control.info->Events().empty()) return MoveTo();
  Event event{.kind = EventKind::kOnce,
              .control = control.name,
              .member = std::string(dice_.One(control.info->Events()).name)};
  subject_ = control.name;
  std::deque<Event> after = std::exchange(next_, {});
  event.nested = std::make_shared<Event>(Pick(kReactions));
  next_ = std::move(after);
  subject_.clear();
  return event;
}

Event Generator::Throw() {
  Event event = On(EventKind::kThrow);
  const FormModel::Control* control = FindControl(event.control);
  if (!control || control->info->Events().empty()) return MoveTo();
  event.member = dice_.One(control->info->Events()).name;
  return event;
}

Event Generator::Check() {
  const auto checks = Wanted(Invariants(), [](const Invariant& invariant) {
    return invariant.when == Invariant::When::kNowAndThen;
  });
  Event event{.kind = EventKind::kCheck, .member = std::string(dice_.One(checks)->name)};
  const auto is_one_of = [&](std::initializer_list<std::string_view> names) {
    return std::ranges::find(names, event.member) != names.end();
  };
  if (is_one_of({"write back", "bag", "paint inside", "hover"})) event.control = SomeControl().name;
  if (is_one_of({"hover"})) event.values = {Variant(SomeControl().name)};
  return event;
}

// --- Controls --------------------------------------------------------------------------------------

Event Generator::On(EventKind kind) { return {.kind = kind, .control = SomeControl().name}; }

// Reactions mostly concern the control whose event it is.
const FormModel::Control& Generator::SomeControl() {
  if (!subject_.empty() && dice_.Once(2)) {
    if (const FormModel::Control* control = FindControl(subject_)) return *control;
  }
  static const FormModel::Control kNone{"", &Form::Table(), {}};
  return model_.controls.empty() ? kNone : dice_.One(model_.controls);
}

const FormModel::Control* Generator::FindControl(const std::string& name) const {
  const auto found = std::ranges::find(model_.controls, name, &FormModel::Control::name);
  return found == model_.controls.end() ? nullptr : &*found;
}

std::vector<Event> MakeEvents(const FormModel& model, std::uint64_t seed, std::size_t count) {
  Generator generator(model, seed);
  std::vector<Event> events;
  events.reserve(count);
  while (events.size() < count) events.push_back(generator.Next());
  return events;
}

}  // namespace levelwidgets::monkey
