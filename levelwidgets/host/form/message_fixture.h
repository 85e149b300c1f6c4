// Forms, and a message in front of them.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form/message.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {

class MessageTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    other_ = Form::Create(Tracer(), {.name = "frmOther", .caption = "Other"});
    other_->Show();
    TheForm();
  }
  void TearDown() override {
    message_.reset();
    other_.reset();
    DesktopTest::TearDown();
  }

  void Ask(const MessageOptions& options) { AskOn(Tracer(), options); }
  void AskOn(Platform& platform, const MessageOptions& options) {
    message_ = ShowMessage(platform, options, {TheForm().shared_from_this(), other_},
                           [this](std::int32_t button) { Answered(button); });
  }
  void Ask(MessageButtons set) { Ask({.text = "Read this", .set = set}); }
  void Answered(std::int32_t button) {
    answers_.push_back(button);
    const auto then = on_answered_;  // which may set another one
    if (then) then();
  }

  // The button `number` of the message.
  HostedControl& Button(std::int32_t number) { return *message_->Find("cmd" + std::to_string(number)); }
  // Its number; 0 for none.
  std::int32_t Focused() {
    for (std::int32_t number = 1; message_->Find("cmd" + std::to_string(number)); ++number) {
      if (message_->ActiveControl().get() == &Button(number)) return number;
    }
    return 0;
  }
  std::vector<std::string> Captions() {
    std::vector<std::string> captions;
    for (std::int32_t number = 1; message_->Find("cmd" + std::to_string(number)); ++number) {
      captions.push_back(dynamic_cast<FlatButton&>(*Button(number).GetControl()).Caption());
    }
    return captions;
  }
  bool IsEnabled(const Form& form) { return Windows().IsWindowEnabled(form.hWnd()); }
  // What the desktop's list says of the message.
  TopLevelWindow Listed() {
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
      if (window.handle == message_->hWnd()) return window;
    }
    return {};
  }

  std::shared_ptr<Form> other_;
  std::shared_ptr<Form> message_;
  std::int64_t message_window_ = 0;
  std::vector<std::int32_t> answers_;
  std::function<void()> on_answered_;
};

}  // namespace levelwidgets::testing
