#include <levelwidgets/host/form/message_fixture.h>

namespace levelwidgets {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kEnter = 13, kEscape = 27, kAlt = 4;

class MessageKeysTest : public testing::MessageTest {
 protected:
  // The keys one after the other; then which button has the focus, 0 when the message is gone.
  std::int32_t FocusAfter(std::initializer_list<int> keys) {
    for (const int key : keys) Driver().Key(key);
    return message_->Closed() ? 0 : Focused();
  }
  // A person chooses "Close" from the system menu.
  void CloseWindow() { Driver().SystemCommand(message_->hWnd(), kScClose); }
  bool LooksDefault(std::int32_t number) { return Button(number).DisplayAsDefault(); }
};

// --- Sets of buttons ---------------------------------------------------------------------------------

TEST_F(MessageKeysTest, EscapePressesCancelOrTheOnlyButton) {
  for (const MessageButtons set :
       {MessageButtons::kOk, MessageButtons::kOkCancel, MessageButtons::kYesNoCancel}) {
    Ask(set);
    Driver().Key(kEscape);
  }
  EXPECT_THAT(answers_, ElementsAre(1, 2, 3));
}

TEST_F(MessageKeysTest, EscapeDoesNothingBetweenYesAndNo) {
  Ask(MessageButtons::kYesNo);
  Driver().Key(kEscape);
  EXPECT_FALSE(message_->Closed());
  EXPECT_THAT(answers_, IsEmpty());
}

TEST_F(MessageKeysTest, ClosingTheWindowIsWhatEscapeIs) {
  for (const MessageButtons set :
       {MessageButtons::kOk, MessageButtons::kOkCancel, MessageButtons::kYesNoCancel}) {
    Ask(set);
    CloseWindow();
    EXPECT_TRUE(message_->Closed());
  }
  EXPECT_THAT(answers_, ElementsAre(1, 2, 3));
  Ask(MessageButtons::kYesNo);
  CloseWindow();
  EXPECT_FALSE(message_->Closed());
  EXPECT_TRUE(Windows().IsWindowVisible(message_->hWnd()));
  EXPECT_EQ(answers_.size(), 3u);
  Driver().Key(kEnter);
  EXPECT_EQ(answers_.back(), 1);
}

TEST_F(MessageKeysTest, EnterPressesTheFirstButtonUntilTheFocusMoves) {
  Ask(MessageButtons::kYesNoCancel);
  Driver().Key(kEnter);
  for (const int steps : {1, 2}) {
    Ask(MessageButtons::kYesNoCancel);
    for (int i = 0; i < steps; ++i) Driver().Key(kKeyTab);
    Driver().Key(kEnter);
  }
  EXPECT_THAT(answers_, ElementsAre(1, 2, 3));
}

TEST_F(MessageKeysTest, TheButtonWithTheFocusLooksDefault) {
  Ask(MessageButtons::kYesNo);
  EXPECT_TRUE(LooksDefault(1));
  EXPECT_FALSE(LooksDefault(2));
  Driver().Key(kKeyRight);
  EXPECT_FALSE(LooksDefault(1));
  EXPECT_TRUE(LooksDefault(2));
}

TEST_F(MessageKeysTest, ArrowsMoveAroundTheButtons) {
  Ask(MessageButtons::kYesNoCancel);
  EXPECT_EQ(Focused(), 1);
  EXPECT_EQ(FocusAfter({kKeyRight}), 2);
  EXPECT_EQ(FocusAfter({kKeyRight}), 3);
  EXPECT_EQ(FocusAfter({kKeyRight}), 1);
  EXPECT_EQ(FocusAfter({kKeyLeft}), 3);
  EXPECT_EQ(FocusAfter({kKeyLeft}), 2);
  EXPECT_EQ(FocusAfter({kKeyDown}), 3);
  EXPECT_EQ(FocusAfter({kKeyUp}), 2);
  Driver().Key(kEnter);
  EXPECT_THAT(answers_, ElementsAre(2));
}

TEST_F(MessageKeysTest, ArrowsWithCtrlMoveNothing) {
  Ask(MessageButtons::kYesNo);
  Driver().Key(kKeyRight, kCtrlMask);
  EXPECT_EQ(Focused(), 1);
}

TEST_F(MessageKeysTest, AnArrowWithOneButtonKeepsTheFocusThere) {
  Ask(MessageButtons::kOk);
  EXPECT_EQ(FocusAfter({kKeyRight, kKeyLeft}), 1);
}

TEST_F(MessageKeysTest, ArrowsPassAButtonThatTakesNoInput) {
  Ask(MessageButtons::kYesNoCancel);
  Button(2).SetVisible(false);
  EXPECT_EQ(FocusAfter({kKeyRight}), 3);
  message_->Remove("cmd2");
  EXPECT_EQ(FocusAfter({kKeyLeft}), 1);
  Driver().Key('N');
  EXPECT_THAT(answers_, IsEmpty());
}

TEST_F(MessageKeysTest, SpacePressesTheButtonWithTheFocus) {
  Ask(MessageButtons::kYesNo);
  EXPECT_EQ(FocusAfter({kKeyRight, kKeySpace}), 0);
  EXPECT_THAT(answers_, ElementsAre(2));
}

TEST_F(MessageKeysTest, AnAccessKeyPressesItsButtonWithAltAndWithout) {
  Ask(MessageButtons::kYesNo);
  Driver().Type("n");
  Ask(MessageButtons::kYesNo);
  Driver().Type("Y");
  Ask(MessageButtons::kYesNo);
  Driver().Key('N', kAlt);
  EXPECT_THAT(answers_, ElementsAre(2, 1, 2));
  Ask(MessageButtons::kOkCancel);
  Driver().Type("oc\t");
  EXPECT_EQ(answers_.size(), 3u);
  EXPECT_EQ(Focused(), 2);
}

TEST_F(MessageKeysTest, AButtonHearsNoKeyThatTheMessageUses) {
  Ask(MessageButtons::kYesNo);
  int asked_to_close = 0;
  message_->Unload += [&](bool& cancel) {
    ++asked_to_close;
    cancel = true;
  };
  std::vector<int> heard;
  for (const std::int32_t number : {1, 2}) {
    auto& button = dynamic_cast<FlatButton&>(*Button(number).GetControl());
    button.KeyDown += [&](std::int16_t code, std::int16_t) {
      if (code != kKeyAlt) heard.push_back(code);
    };
    button.KeyPress += [&](std::int16_t character) { heard.push_back(character); };
  }
  for (const int key :
       {static_cast<int>(kKeyRight), static_cast<int>(kKeyLeft), static_cast<int>(kKeySpace)}) {
    Driver().Key(key);
  }
  EXPECT_THAT(heard, IsEmpty());
  EXPECT_EQ(asked_to_close, 1);
  Driver().Key('Y');
  Driver().Key('N', kAlt);
  EXPECT_THAT(heard, ElementsAre('Y', 'N'));  // keys; their characters are used
  EXPECT_EQ(asked_to_close, 3);
}

TEST_F(MessageKeysTest, AKeyThatAnswersReachesNoFormBehind) {
  std::vector<int> heard;
  TheForm().SetKeyPreview(true);
  TheForm().KeyDown += [&](std::int16_t& code, std::int16_t) { heard.push_back(code); };
  TheForm().KeyPress += [&](std::int16_t& character) { heard.push_back(character); };
  for (const int key : {kEnter, static_cast<int>(kKeySpace), static_cast<int>('Y'), kEscape}) {
    Ask(MessageButtons::kYesNoCancel);
    Driver().Key(key);
  }
  EXPECT_THAT(answers_, ElementsAre(1, 1, 1, 3));
  EXPECT_THAT(heard, IsEmpty());
}

// --- Captions ----------------------------------------------------------------------------------------

TEST_F(MessageKeysTest, TheCaptionsOfASetAreThatSetWhateverTheirAccessKeys) {
  for (const std::vector<std::string>& captions : {std::vector<std::string>{"Yes", "N&o"},
                                                   {"&Yes", "&No"},
                                                   {"OK", "&Cancel"},
                                                   {"Yes", "No", "Cancel"}}) {
    Ask({.text = "Read this", .buttons = captions});
    EXPECT_EQ(Captions(), captions);
    EXPECT_EQ(FocusAfter({kKeyRight}), 2) << captions[1];
    message_->Close();
  }
}

TEST_F(MessageKeysTest, WithCaptionsOfTheCallersOwnEnterPressesTheFirstAndEscapeTheLast) {
  const MessageOptions own{.text = "Read this", .buttons = {"No", "Yes"}};
  Ask(own);
  EXPECT_EQ(FocusAfter({kKeyRight, kKeySpace, 'Y'}), 1);
  EXPECT_EQ(FocusAfter({kKeyTab}), 2);
  Driver().Key(kEnter);
  Ask(own);
  Driver().Key(kEscape);
  Ask(own);
  CloseWindow();
  EXPECT_THAT(answers_, ElementsAre(1, 2, 0));
}

TEST_F(MessageKeysTest, CaptionsAreNoSetWhenOneMoreOrAnotherIsAmongThem) {
  for (const std::vector<std::string>& captions :
       {std::vector<std::string>{"OK", "Cancel", "Help"}, {"Ok"}, {"O&&K"}, {"Cancel", "OK"}, {"Yes"}}) {
    EXPECT_EQ(SetWithCaptions(captions), nullptr) << captions[0];
  }
  EXPECT_EQ(SetWithCaptions({"&OK"}), &SetOf(MessageButtons::kOk));
}

}  // namespace

}  // namespace levelwidgets
