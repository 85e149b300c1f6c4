// Events of the pointer, of panels, of keys and of time.
#include <levelwidgets/host/monkey/generator.h>
#include <levelwidgets/host/monkey/wanted.h>

namespace levelwidgets::monkey {

namespace {

constexpr int kButtons[] = {kLeftButton, kLeftButton, kLeftButton, kRightButton, kMiddleButton};
constexpr int kShifts[] = {0, 0, 0, 0, kShiftMask, kCtrlMask, kAltMask, kShiftMask | kCtrlMask};
constexpr int kKeys[] = {kKeyBackspace, kKeyTab,      kKeyTab,     kKeyEnter,  kKeyEscape, kKeySpace,
                         kKeyPageUp,    kKeyPageDown, kKeyEnd,     kKeyHome,   kKeyLeft,   kKeyUp,
                         kKeyRight,     kKeyDown,     kKeyInsert,  kKeyDelete, kKeyF2,     kKeyF4,
                         'A',           'C',          'V',         'X',        'Z',        '0',
                         '9',           kKeyShift,    kKeyControl, kKeyAlt,    112};
// Of a label's poll, a scroll bar's first delay and its repeats, the caret.
constexpr int kTimes[] = {0, 1, 10, 50, 99, 100, 101, 250, 260, 500, 1000, 5000};

// `otherwise` in place of a text of more bytes.
std::string ShortText(Dice& dice, std::size_t most, std::string_view otherwise) {
  std::string text = RandomText(dice);
  return text.size() > most ? std::string(otherwise) : text;
}

bool HasEditors(const FormModel::Control& control) {
  return control.info->FindProperty("AllowEdits") != nullptr;
}

}  // namespace

// --- The pointer -----------------------------------------------------------------------------------

Event Generator::Move() {
  return {.kind = EventKind::kMove,
          .numbers = {dice_.Between(-10, model_.screen.width + 10),
                      dice_.Between(-10, model_.screen.height + 10)}};
}

Event Generator::MoveTo() {
  Event event = On(EventKind::kMoveTo);
  const FormModel::Control* control = FindControl(event.control);
  const TwipSize size = control ? control->size : model_.size;
  constexpr int kAround = 60;
  const auto within = [this](Twips length) {
    const int most = static_cast<int>(std::min(length.value, 30000.0F));
    // The edges are where the arrows, frames and thumbs are.
    return dice_.Once(3) ? (dice_.Once(2) ? dice_.Between(-kAround, 3 * kAround)
                                          : dice_.Between(most - 3 * kAround, most + kAround))
                         : dice_.Between(0, most);
  };
  event.numbers = {within(size.width), within(size.height)};
  return event;
}

Event Generator::Press() {
  button_ = dice_.One(kButtons);
  return {.kind = EventKind::kPress, .numbers = {button_}};
}

Event Generator::Release() {
  return {.kind = EventKind::kRelease, .numbers = {button_ != 0 ? button_ : dice_.One(kButtons)}};
}

// A press, and its release as the next event.
Event Generator::Click() {
  const int button = dice_.One(kButtons);
  next_.push_back({.kind = EventKind::kRelease, .numbers = {button}});
  return {.kind = EventKind::kPress, .numbers = {button}};
}

Event Generator::DoubleClick() { return {.kind = EventKind::kDoubleClick}; }

Event Generator::Wheel() { return {.kind = EventKind::kWheel, .numbers = {dice_.Between(-3, 3)}}; }

// --- Panels ----------------------------------------------------------------------------------------

// Opens the panel of a control, or of an editor in it, if it can be opened. The next events are mostly for
// the panel.
Event Generator::Open() {
  const auto openers = Wanted(model_.controls, [](const FormModel::Control& control) {
    return control.info->FindProperty("DropDownBackColor") != nullptr || HasEditors(control);
  });
  if (openers.empty()) return MoveTo();
  const FormModel::Control& control = *dice_.One(openers);
  opened_ = control.name;
  panel_events_ = dice_.Between(0, 20);
  next_.push_back({.kind = EventKind::kAdvance, .numbers = {1000}});  // no double click
  if (HasEditors(control) || dice_.Once(2)) {
    OpenByKeys(control);
  } else {
    OpenByPointer(control);
  }
  return TakeNext();
}

void Generator::OpenByKeys(const FormModel::Control& control) {
  next_.push_back({.kind = EventKind::kCall, .control = control.name, .member = "SetFocus"});
  if (HasEditors(control)) {
    for (int columns = dice_.Between(0, 3); columns > 0; --columns) {
      next_.push_back({.kind = EventKind::kKey, .numbers = {kKeyRight, 0}});
    }
    next_.push_back({.kind = EventKind::kKey, .numbers = {kKeyF2, 0}});
  }
  const bool alt = dice_.Once(2);
  next_.push_back({.kind = EventKind::kKey, .numbers = {alt ? kKeyDown : kKeyF4, alt ? kAltMask : 0}});
}

void Generator::OpenByPointer(const FormModel::Control& control) {
  constexpr int kIntoTheStrip = 100;
  next_.push_back({.kind = EventKind::kMoveTo,
                   .control = control.name,
                   .numbers = {static_cast<int>(std::min(control.size.width.value, 30000.0F)) - kIntoTheStrip,
                               static_cast<int>(std::min(control.size.height.value, 30000.0F)) / 2}});
  next_.push_back({.kind = EventKind::kPress, .numbers = {kLeftButton}});
  next_.push_back({.kind = EventKind::kRelease, .numbers = {kLeftButton}});
}

Event Generator::MoveToPanel() {
  constexpr int kJustOutside = 1050;
  return {.kind = EventKind::kMoveToPanel,
          .control = opened_,
          .numbers = {dice_.Between(0, kJustOutside), dice_.Between(0, kJustOutside)}};
}

// Fills a list, so that there is something to open.
Event Generator::Fill() {
  const auto lists = Wanted(model_.controls, [](const FormModel::Control& control) {
    return control.info->FindMethod("AddItem") != nullptr;
  });
  if (lists.empty()) return MoveTo();
  const FormModel::Control& control = *dice_.One(lists);
  const int count = dice_.Between(1, 20);
  for (int i = 0; i < count; ++i) {
    next_.push_back({.kind = EventKind::kCall,
                     .control = control.name,
                     .member = "AddItem",
                     .values = {Variant(ShortText(dice_, 40, "item"))}});
  }
  return Advance();
}

// --- Fields ----------------------------------------------------------------------------------------

// By keys, as a person goes through a form: a text, an item of a list, a check box or a button.
Event Generator::FillIn() {
  const auto fields =
      Wanted(model_.controls, [](const FormModel::Control& control) { return !control.beside; });
  if (fields.empty()) return MoveTo();
  const FormModel::Control& field = *dice_.One(fields);
  const auto key = [this](int code, int shift = 0) {
    next_.push_back({.kind = EventKind::kKey, .numbers = {code, shift}});
  };
  if (field.info->FindProperty("DropDownBackColor")) {
    key(kKeyF4);
    for (int items = dice_.Between(0, 4); items > 0; --items) key(kKeyDown);
    key(kKeyEnter);
  } else if (field.info->FindProperty("Text")) {
    constexpr const char* kTexts[] = {"0", "1", "3", "25", "-2", "1.5", "40000", "1440", "x", "General"};
    key(kKeyHome);
    key(kKeyEnd, kShiftMask);
    next_.push_back({.kind = EventKind::kType, .values = {Variant(dice_.One(kTexts))}});
  } else {
    key(kKeySpace);
  }
  return {.kind = EventKind::kCall, .control = field.name, .member = "SetFocus"};
}

// Leaves the field, goes to another page, or presses the default button, the cancel button or one by its
// access key; a message that is open is answered.
Event Generator::Submit() {
  constexpr std::int64_t kSubmits[][2] = {{kKeyTab, 0},    {kKeyTab, kCtrlMask}, {kKeyEnter, 0},
                                          {kKeyEnter, 0},  {kKeyEscape, 0},      {'P', kAltMask},
                                          {'P', kAltMask}, {'A', kAltMask}};
  const auto& [code, shift] = dice_.One(kSubmits);
  return {.kind = EventKind::kKey, .numbers = {code, shift}};
}

// --- Keys and time ---------------------------------------------------------------------------------

Event Generator::Key() {
  const int code = dice_.Once(10) ? dice_.Between(1, 254) : dice_.One(kKeys);
  return {.kind = EventKind::kKey, .numbers = {code, dice_.One(kShifts)}};
}

Event Generator::KeyDown() {
  Event event = Key();
  event.kind = EventKind::kKeyDown;
  return event;
}

Event Generator::KeyUp() {
  Event event = Key();
  event.kind = EventKind::kKeyUp;
  return event;
}

Event Generator::AccessKey() {
  return {.kind = EventKind::kKey, .numbers = {dice_.Between('A', 'Z'), kAltMask}};
}

Event Generator::Type() {
  return {.kind = EventKind::kType, .values = {Variant(ShortText(dice_, 200, "long typed text"))}};
}

Event Generator::Advance() { return {.kind = EventKind::kAdvance, .numbers = {dice_.One(kTimes)}}; }

}  // namespace levelwidgets::monkey
