#include <levelwidgets/host/form/message_keys.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/frame/access_key.h>
#include <levelwidgets/frame/parts/subclass.h>
#include <levelwidgets/host/form/message_form.h>

namespace levelwidgets {

namespace {

// Lasts as long as the form, whose events hold it.
class SystemKeys {
 public:
  SystemKeys(Form& form, const ButtonSet& set, MessageAnswer press)
      : form_(form),
        count_(static_cast<std::int32_t>(set.buttons.size())),
        way_out_(set.WayOut()),
        press_(std::move(press)) {}

  void OnKeyDown(std::int16_t& code, std::int16_t shift) const {
    if (shift != 0) return;
    switch (code) {
      case kKeyLeft:
      case kKeyUp: MoveFocus(count_ - 1); break;
      case kKeyRight:
      case kKeyDown: MoveFocus(1); break;
      case kKeySpace: PressFocused(); break;
      default: return;
    }
    code = 0;
  }

  // With Alt and without: no button needs the character for anything else.
  void OnKeyPress(std::int16_t& character) const {
    const char byte = static_cast<char>(character);
    const std::string typed = form_.GetPlatform().Conversions().FromCodePage({&byte, 1});
    for (std::int32_t number = 1; number <= count_; ++number) {
      const auto button = MessageButton(form_, number);
      if (!TakesInput(button) || !IsAccessKey(button->GetControl()->GetSurface().AccessKeys(), typed))
        continue;
      character = 0;
      return press_(number);
    }
  }

  // A person closes the window.
  void OnClose() const {
    if (way_out_ > 0) press_(way_out_);
  }

 private:
  static bool TakesInput(const std::shared_ptr<HostedControl>& button) {
    return button && button->CanTakeInput();
  }

  // 0 when no button has it.
  std::int32_t Focused() const {
    const auto active = form_.ActiveControl();
    for (std::int32_t number = 1; active && number <= count_; ++number) {
      if (MessageButton(form_, number) == active) return number;
    }
    return 0;
  }

  // Around, `step` buttons on, and further past those that take no input.
  void MoveFocus(std::int32_t step) const {
    std::int32_t number = Focused();
    if (number == 0) return;
    for (std::int32_t turn = 0; turn < count_; ++turn) {
      number = (number - 1 + step) % count_ + 1;
      const auto button = MessageButton(form_, number);
      if (TakesInput(button)) return button->SetFocus();
    }
  }

  void PressFocused() const {
    if (const std::int32_t number = Focused(); number > 0) press_(number);
  }

  Form& form_;
  std::int32_t count_;
  std::int32_t way_out_;
  MessageAnswer press_;
};

// Keeps a person's closing from the form, until the form has left the screen.
void CatchClose(Form& form, const std::shared_ptr<SystemKeys>& keys) {
  auto catcher = std::make_shared<std::unique_ptr<Subclass>>();
  *catcher = std::make_unique<Subclass>(
      form.GetPlatform().Windows(), form.hWnd(),
      [keys, weak = std::weak_ptr(catcher)](std::uint32_t message, WParam wparam, LParam lparam) -> LResult {
        if (message == kWmClose) {
          keys->OnClose();
          return 0;
        }
        const auto self = weak.lock();
        return self && *self ? (*self)->Pass(message, wparam, lparam) : 0;
      });
  form.Gone += [catcher] { catcher->reset(); };
}

}  // namespace

void AnswerByButtons(const Form& form, std::int32_t count, const MessageAnswer& press) {
  for (std::int32_t number = 1; number <= count; ++number) {
    auto& button = dynamic_cast<FlatButton&>(*MessageButton(form, number)->GetControl());
    button.Click += [press, number] { press(number); };
  }
}

void AnswerAsTheSystem(Form& form, const ButtonSet& set, const MessageAnswer& press) {
  const auto keys = std::make_shared<SystemKeys>(form, set, press);
  // Enter presses the button with the focus, which looks like the default one.
  for (std::int32_t number = 1; number <= std::ssize(set.buttons); ++number) {
    const auto button = MessageButton(form, number);
    button->GotFocus += [weak = std::weak_ptr(button)] {
      if (const auto focused = weak.lock()) focused->SetDefault(true);
    };
  }
  if (set.WayOut() > 0) MessageButton(form, set.WayOut())->SetCancel(true);
  form.SetKeyPreview(true);
  form.KeyDown += [keys](std::int16_t& code, std::int16_t shift) { keys->OnKeyDown(code, shift); };
  form.KeyPress += [keys](std::int16_t& character) { keys->OnKeyPress(character); };
  CatchClose(form, keys);
}

}  // namespace levelwidgets
