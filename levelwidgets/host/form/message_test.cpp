#include <levelwidgets/host/form/message.h>

#include <stdexcept>

#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form/message_fixture.h>

namespace levelwidgets {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using MessageTest = testing::MessageTest;

constexpr int kEnter = 13, kEscape = 27;

TEST_F(MessageTest, ItsTextsHaveTheSystemsColors) {
  Ask({.text = "Read this", .style = MessageStyle::kWarning});
  const auto& text = dynamic_cast<FlatLabel&>(*message_->Find("lbl1")->GetControl());
  EXPECT_EQ(text.ForeColor(), Color(0x80000012u));
  EXPECT_EQ(text.ForeColorMouseOver(), Color(0x80000012u));
  EXPECT_EQ(text.BackColor(), message_->BackColor());
  const auto& button = dynamic_cast<FlatButton&>(*Button(1).GetControl());
  EXPECT_EQ(button.BackColor(), Color(0x8000000Fu));
  EXPECT_EQ(button.ForeColor(), Color(0x80000012u));
}

TEST_F(MessageTest, AShortTitleIsSeenWhole) {
  Ask({.text = "x"});
  EXPECT_EQ(message_->Width(), Twips(2700));
  const Twips middle = Button(1).Left() + Twips(Button(1).Width().value / 2);
  EXPECT_EQ(middle, Twips(1350));
}

TEST_F(MessageTest, EachSetHasItsButtonsInTheSystemsOrder) {
  Ask(MessageButtons::kOk);
  EXPECT_THAT(Captions(), ElementsAre("OK"));
  Ask(MessageButtons::kOkCancel);
  EXPECT_THAT(Captions(), ElementsAre("OK", "Cancel"));
  Ask(MessageButtons::kYesNoCancel);
  EXPECT_THAT(Captions(), ElementsAre("&Yes", "&No", "Cancel"));
  Ask(MessageButtons::kYesNo);
  EXPECT_THAT(Captions(), ElementsAre("&Yes", "&No"));
}

TEST_F(MessageTest, WithoutASetOrCaptionsItHasOk) {
  Ask({.text = "Read this"});
  EXPECT_THAT(Captions(), ElementsAre("OK"));
  EXPECT_EQ(message_->Caption(), "LevelWidgets");
}

TEST_F(MessageTest, NumbersThatAreNoSetAreRefused) {
  EXPECT_THROW(Ask(MessageButtons{2}), Error);
  EXPECT_THROW(Ask(MessageButtons{5}), Error);
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(MessageTest, TheAnswerIsTheNumberOfTheButtonThatIsClicked) {
  for (std::int32_t number = 1; number <= 3; ++number) {
    Ask(MessageButtons::kYesNoCancel);
    Driver().Click(Button(number).ScreenCentre());
    EXPECT_TRUE(message_->Closed());
  }
  EXPECT_THAT(answers_, ElementsAre(1, 2, 3));
}

// --- What can be read --------------------------------------------------------------------------------

TEST_F(MessageTest, WhoeverReadsTheDesktopFindsTheTextAsItWasGiven) {
  const std::string text = "One & two\n" + std::string(80, 'x') + " " + std::string(80, 'y') + "\n\nend";
  Ask({.text = text, .title = "Store", .set = MessageButtons::kYesNo});
  EXPECT_EQ(Listed().title, "Store");
  EXPECT_EQ(Listed().text, text);
  EXPECT_TRUE(Listed().active);
  for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
    if (window.handle == message_->hWnd()) continue;
    EXPECT_EQ(window.text, "") << window.title;
  }
  Ask({.text = "Own", .buttons = {"&Keep"}});
  EXPECT_EQ(Listed().text, "Own");
}

// --- The other forms ---------------------------------------------------------------------------------

TEST_F(MessageTest, TheOthersTakeInputAgainBeforeTheAnswerArrives) {
  bool enabled = false;
  on_answered_ = [&] { enabled = IsEnabled(TheForm()) && IsEnabled(*other_); };
  Ask(MessageButtons::kOkCancel);
  EXPECT_FALSE(IsEnabled(TheForm()));
  EXPECT_FALSE(IsEnabled(*other_));
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(1));
  EXPECT_TRUE(enabled);
}

TEST_F(MessageTest, TheOthersAreEnabledBeforeTheMessageGoesSoThatOneOfThemBecomesActive) {
  std::vector<std::string> calls;
  const auto names = [&](const auto& action) {
    calls.clear();
    for (const TracedCall& call : CallsNamed({"EnableWindow", "ShowWindow", "DestroyWindow"}, action)) {
      const auto handle = std::get<std::int64_t>(call.arguments[0]);
      const auto is = [&](const Form& form) { return form.hWnd().value == handle; };
      if (is(TheForm())) calls.push_back(call.name + " form");
      if (is(*other_)) calls.push_back(call.name + " other");
      if (message_ && handle == message_window_) calls.push_back(call.name + " message");
    }
  };
  names([&] { Ask(MessageButtons::kOk); });
  EXPECT_THAT(calls, ElementsAre("EnableWindow form", "EnableWindow other"));
  message_window_ = message_->hWnd().value;
  names([&] { Driver().Key(kEnter); });
  EXPECT_THAT(calls, ElementsAre("EnableWindow form", "EnableWindow other", "ShowWindow message",
                                 "DestroyWindow message"));
}

// A button keeps the pointer when it has been clicked.
TEST_F(MessageTest, AClickOnTheButtonThatHasShownItIsNoClickThere) {
  auto& button = AddNew<FlatButton>("cmd");
  const Color normal = button.BackColor();
  button.SetBackColorMouseOver(Color(0x000000FFu));
  int clicks = 0;
  const Subscription clicked = button.Click.Add([&] {
    if (++clicks == 1) Ask(MessageButtons::kOk);
  });
  const PixelPoint middle = ScreenPoint(button, PixelPoint{40, 12});
  Driver().Click(middle);
  ASSERT_TRUE(message_);
  EXPECT_EQ(button.BackColor(), normal);
  Driver().Advance(1000);  // the next one is not the second of a double click
  Driver().Click(middle);
  EXPECT_EQ(clicks, 1);
}

TEST_F(MessageTest, AControlUnderThePointerShowsThatItHasLeft) {
  auto& button = AddNew<FlatButton>("cmd");
  const Color normal = button.BackColor();
  button.SetBackColorMouseOver(Color(0x000000FFu));
  Driver().MovePointer(ScreenPoint(button, PixelPoint{40, 12}));
  ASSERT_EQ(button.BackColor(), Color(0x000000FFu));
  Watch(button);
  Ask(MessageButtons::kOk);
  EXPECT_THAT(TakeJournal(), ElementsAre("release capture", "paint", "MouseMove(0, 0, -15, -15)"));
  EXPECT_EQ(button.BackColor(), normal);
  EXPECT_FALSE(Windows().GetCapture());
}

TEST_F(MessageTest, AListenerMayCloseTheFormThatThePointerLeavesForIt) {
  auto& button = AddNew<FlatButton>("cmd");
  Driver().MovePointer(ScreenPoint(button, PixelPoint{40, 12}));
  int moves = 0;
  const Subscription moved = button.MouseMove.Add([&](const auto&...) {
    ++moves;
    TheForm().Close();
  });
  Ask(MessageButtons::kOk);
  EXPECT_EQ(moves, 1);
  EXPECT_TRUE(TheForm().Closed());
  EXPECT_FALSE(IsEnabled(*other_));
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(1));
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(MessageTest, ADragEnds) {
  auto& box = AddNew<FlatTextBox>("txt");
  Driver().MovePointer(ScreenPoint(box, PixelPoint{20, 12}));
  Driver().Press(kLeftButton);
  ASSERT_TRUE(Windows().GetCapture());
  Ask(MessageButtons::kOk);
  EXPECT_FALSE(Windows().GetCapture());
  Driver().Release(kLeftButton);
}

TEST_F(MessageTest, AFormThatGoesOnTakingInputKeepsThePointer) {
  auto& button = AddNew<FlatButton>("cmd");
  Driver().MovePointer(ScreenPoint(button, PixelPoint{40, 12}));
  const WindowHandle holder = Windows().GetCapture();
  ASSERT_EQ(holder, button.GetSurface().hWnd());
  message_ = ShowMessage(Tracer(), {.text = "Read this"}, {other_}, [](std::int32_t) {});
  EXPECT_EQ(Windows().GetCapture(), holder);
}

TEST_F(MessageTest, TheAnswerComesOnALaterTurnOfTheLoop) {
  Ask(MessageButtons::kOk);
  dynamic_cast<FlatButton&>(*Button(1).GetControl()).Click.Raise();
  EXPECT_TRUE(message_->Closed());
  EXPECT_THAT(answers_, IsEmpty());
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre(1));
}

TEST_F(MessageTest, WhatTheAnswerThrowsPassesThroughAndTheFormsTakeInput) {
  on_answered_ = [] { throw std::runtime_error("answered"); };
  Ask(MessageButtons::kOk);
  EXPECT_THROW(Driver().Key(kEnter), std::runtime_error);
  EXPECT_TRUE(IsEnabled(TheForm()));
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(MessageTest, TheAnswerMayCloseEveryForm) {
  on_answered_ = [this] {
    TheForm().Close();
    other_->Close();
  };
  Ask(MessageButtons::kOk);
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(1));
  EXPECT_THAT(Driver().TopLevelWindows(), IsEmpty());
}

TEST_F(MessageTest, TheAnswerMayShowAnotherMessage) {
  on_answered_ = [this] {
    on_answered_ = nullptr;
    Ask(MessageButtons::kYesNo);
  };
  Ask(MessageButtons::kOk);
  Driver().Key(kEnter);
  EXPECT_THAT(Captions(), ElementsAre("&Yes", "&No"));
  EXPECT_FALSE(IsEnabled(*other_));
  Driver().Key('N');
  EXPECT_THAT(answers_, ElementsAre(1, 2));
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(MessageTest, AFormThatEndsWhileTheMessageIsOpenLeavesItToTheOther) {
  Ask(MessageButtons::kOk);
  TheForm().Close();
  Driver().Settle();
  EXPECT_FALSE(message_->Closed());
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(1));
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(MessageTest, WhoDoesNotLetItCloseGetsNoAnswer) {
  Ask(MessageButtons::kOkCancel);
  bool cancel = true;
  message_->Unload += [&](bool& refused) { refused = cancel; };
  Driver().Key(kEscape);
  EXPECT_FALSE(message_->Closed());
  cancel = false;
  message_->Close();
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre(0));
}

TEST_F(MessageTest, AProgramThatClosesItGetsNoButton) {
  for (const MessageButtons set : {MessageButtons::kOk, MessageButtons::kYesNo}) {
    Ask(set);
    EXPECT_TRUE(message_->Close());
    Driver().Settle();
  }
  EXPECT_THAT(answers_, ElementsAre(0, 0));
}

}  // namespace

}  // namespace levelwidgets
