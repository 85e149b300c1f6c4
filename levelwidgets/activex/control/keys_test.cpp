// Keys on their way through a container: the control sees them first, then the container, then the part.
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ComponentKeysTest : public ComponentTest {
 protected:
  // Embeds a control with the focus in it.
  void Focus(const char* class_name) {
    Embed(class_name);
    ASSERT_EQ(Verb(OLEIVERB_UIACTIVATE), S_OK);
    Settle();
    ASSERT_TRUE(::GetFocus() == ControlWindow() || ::IsChild(ControlWindow(), ::GetFocus()));
    Container().TakeCalls();
  }
  // As containers do with each message that comes out of their queue. Whether the control has used it.
  bool Offer(UINT number, WPARAM code, LPARAM flags = 1) {
    MSG message = {};
    message.hwnd = ::GetFocus();
    message.message = number;
    message.wParam = code;
    message.lParam = flags;
    if (Interface<IOleInPlaceActiveObject>()->TranslateAccelerator(&message) == S_OK) return true;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
    return false;
  }
  // The characters that the last keys have typed.
  void OfferCharacters() {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE)) Offer(WM_CHAR, message.wParam);
  }
};

TEST_F(ComponentKeysTest, AKeyIsOfferedToTheContainerOnceBeforeTheControlRaisesIt) {
  Focus("FlatButton");
  TestSink& sink = Listen();
  bool told_before_event = false;
  Container().on_call = [&](const std::string&) { told_before_event = sink.TakeEvents().empty(); };
  EXPECT_FALSE(Offer(WM_KEYDOWN, 'A'));
  EXPECT_TRUE(told_before_event);
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("TranslateAccelerator(256, 65)"));
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("KeyDown(65, 0)"));
}

TEST_F(ComponentKeysTest, AKeyThatComesWithoutAnOfferAfterOneThatWasOfferedIsOffered) {
  Focus("FlatButton");
  EXPECT_FALSE(Offer(WM_KEYDOWN, 'A'));
  Container().TakeCalls();
  ::SendMessageW(::GetFocus(), WM_KEYDOWN, 'A', 1);
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("TranslateAccelerator(256, 65)"));
}

TEST_F(ComponentKeysTest, AKeyThatTheContainerUsesDoesNotComeToTheControl) {
  Focus("FlatTextBox");
  TestSink& sink = Listen();
  Container().takes_key = [](const MSG& message) { return message.wParam == VK_TAB; };
  EXPECT_TRUE(Offer(WM_KEYDOWN, VK_TAB));
  EXPECT_THAT(sink.TakeEvents(), IsEmpty());
  EXPECT_FALSE(Offer(WM_KEYDOWN, 'B'));
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("KeyDown(66, 0)"));
}

TEST_F(ComponentKeysTest, AKeyThatTheControlUsesDoesNotComeToTheContainer) {
  Focus("FlatDropDown");
  Call(Object(), "AddItem", {"one"});
  Offer(WM_KEYDOWN, VK_F4);
  Settle();
  Container().TakeCalls();
  EXPECT_TRUE(Offer(WM_KEYDOWN, VK_ESCAPE));
  EXPECT_THAT(Container().TakeCalls(),
              ::testing::Not(::testing::Contains(::testing::StartsWith("TranslateAccelerator"))));
}

TEST_F(ComponentKeysTest, ACharacterIsTypedOnceAlthoughItIsOffered) {
  Focus("FlatTextBox");
  EXPECT_FALSE(Offer(WM_CHAR, 'x'));
  EXPECT_EQ(Shown(Get(Object(), "Text")), "x");
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("TranslateAccelerator(258, 120)"));
}

TEST_F(ComponentKeysTest, ArrowKeysAreTheControlsAndNotTheDialogs) {
  Focus("FlatButton");
  TestSink& sink = Listen();
  EXPECT_TRUE(Offer(WM_KEYDOWN, VK_LEFT));
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("KeyDown(37, 0)"));
  Container().takes_key = [](const MSG& message) { return message.wParam == VK_LEFT; };
  EXPECT_TRUE(Offer(WM_KEYDOWN, VK_LEFT));
  EXPECT_THAT(sink.TakeEvents(), IsEmpty());
}

TEST_F(ComponentKeysTest, AContainerThatOffersNothingIsAskedBeforeTheControl) {
  Focus("FlatButton");
  TestSink& sink = Listen();
  Container().takes_key = [](const MSG& message) { return message.wParam == 'A'; };
  ::SendMessageW(ControlWindow(), WM_KEYDOWN, 'A', 1);
  ::SendMessageW(ControlWindow(), WM_KEYDOWN, 'B', 1);
  EXPECT_THAT(Container().TakeCalls(),
              ElementsAre("TranslateAccelerator(256, 65)", "TranslateAccelerator(256, 66)"));
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("KeyDown(66, 0)"));
}

TEST_F(ComponentKeysTest, MessagesOfOtherWindowsAndOtherKindsAreNotTaken) {
  Focus("FlatButton");
  MSG message = {};
  message.hwnd = Window();
  message.message = WM_KEYDOWN;
  message.wParam = 'A';
  EXPECT_EQ(Interface<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), S_FALSE);
  message.hwnd = ControlWindow();
  message.message = WM_MOUSEMOVE;
  EXPECT_EQ(Interface<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), S_FALSE);
  EXPECT_THAT(Container().TakeCalls(), IsEmpty());
}

// --- Mnemonics -----------------------------------------------------------------------------------

TEST_F(ComponentKeysTest, TheLetterOfACaptionIsAMnemonicInBothCases) {
  Embed("FlatButton");
  Put(Object(), "Caption", {"&Save"});
  CONTROLINFO info = {};
  ASSERT_EQ(Interface<IOleControl>()->GetControlInfo(&info), S_OK);
  ASSERT_EQ(info.cAccel, 2);
  ACCEL accelerators[2] = {};
  ::CopyAcceleratorTableW(info.hAccel, accelerators, 2);
  EXPECT_EQ(accelerators[0].key, 's');
  EXPECT_EQ(accelerators[1].key, 'S');
  EXPECT_EQ(accelerators[0].fVirt & 0x7F, FALT);
}

TEST_F(ComponentKeysTest, TheContainerIsToldOnceThatAMnemonicHasChanged) {
  Embed("FlatButton");
  CONTROLINFO info = {};
  Interface<IOleControl>()->GetControlInfo(&info);
  Container().TakeCalls();
  Put(Object(), "Caption", {"&Save"});
  Put(Object(), "Caption", {"&Send"});
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnControlInfoChanged"));
  Put(Object(), "Caption", {"Other"});
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnControlInfoChanged"));
  Interface<IOleControl>()->GetControlInfo(&info);
  EXPECT_EQ(info.cAccel, 0);
  EXPECT_EQ(info.hAccel, nullptr);
}

TEST_F(ComponentKeysTest, AMnemonicClicksTheButtonUnlessItIsDisabled) {
  Embed("FlatButton");
  Put(Object(), "Caption", {"&Save"});
  TestSink& sink = Listen();
  MSG message = {};
  message.message = WM_SYSCHAR;
  message.wParam = 's';
  EXPECT_EQ(Interface<IOleControl>()->OnMnemonic(&message), S_OK);
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("Click()"));
  message.message = WM_KEYDOWN;
  message.wParam = VK_RETURN;  // of a default button
  Interface<IOleControl>()->OnMnemonic(&message);
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("Click()"));
  Put(Object(), "Enabled", {false});
  Interface<IOleControl>()->OnMnemonic(&message);
  EXPECT_THAT(sink.TakeEvents(), IsEmpty());
}

TEST_F(ComponentKeysTest, OnlyTheButtonActsLikeAButton) {
  for (const char* name : {"FlatButton", "FlatLabel", "FlatTextBox", "FlatGrid"}) {
    Site(name);
    DWORD status = 0;
    EXPECT_EQ(Interface<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ((status & OLEMISC_ACTSLIKEBUTTON) != 0, std::string_view(name) == "FlatButton") << name;
    EXPECT_EQ(status & ~static_cast<DWORD>(OLEMISC_ACTSLIKEBUTTON), 0x20191u) << name;
    EXPECT_EQ(Interface<IOleObject>()->GetMiscStatus(DVASPECT_ICON, &status), S_OK);
    EXPECT_EQ(status, 0u);
    Close();
  }
}

TEST_F(ComponentKeysTest, AMnemonicThatWasLoadedAndGoesIsToldToTheContainer) {
  Site("FlatButton");
  Put(Object(), "Caption", {"&Save"});
  ComPtr<IStream> stream;
  ::CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
  ASSERT_EQ(Interface<IPersistStreamInit>()->Save(stream.Get(), TRUE), S_OK);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  Close();
  Site("FlatButton", stream.Get());
  CONTROLINFO info = {};
  ASSERT_EQ(Interface<IOleControl>()->GetControlInfo(&info), S_OK);
  EXPECT_EQ(info.cAccel, 2);
  Put(Object(), "Caption", {"Other"});
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnControlInfoChanged"));
}

TEST_F(ComponentKeysTest, TheContainerOfTheMomentIsToldAndNotAFormerOne) {
  Site("FlatButton");
  const auto other = ComPtr<TestContainer>::Taking(new TestContainer(Window()));
  Interface<IOleObject>()->SetClientSite(other.Get());
  Put(Object(), "Caption", {"&Save"});
  EXPECT_THAT(Container().TakeCalls(), IsEmpty());
  EXPECT_THAT(other->TakeCalls(), ElementsAre("OnControlInfoChanged"));
}

}  // namespace
}  // namespace levelwidgets::activex
