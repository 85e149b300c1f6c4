// Keys and the focus between a page and its frame, and the messages that a page shows.
#include <levelwidgets/activex/page/page_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PageKeysTest : public PropertyPageTest {
 protected:
  void SetUp() override {
    // The system keeps drawing objects of its first message.
    static const bool warm = [] {
      const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, &Answer);
      ::MessageBoxW(nullptr, L"", L"", MB_OK | MB_ICONERROR);
      return ::KillTimer(nullptr, timer);
    }();
    static_cast<void>(warm);
    PropertyPageTest::SetUp();
    outside_ = ::CreateWindowExW(0, L"BUTTON", L"Apply", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 300, 60, 20,
                                 Window(), nullptr, nullptr, nullptr);
    present = this;
    messages.clear();
    timer_ = ::SetTimer(nullptr, 0, 20, &Answer);
  }
  void TearDown() override {
    ::KillTimer(nullptr, timer_);
    ::DestroyWindow(outside_);
    PropertyPageTest::TearDown();
  }

  // What the page makes of a key that the frame offers it.
  HRESULT Offer(WPARAM key, UINT message_number = WM_KEYDOWN) {
    MSG message = {::GetFocus(), message_number, key, 1, 0, {}};
    return Page().TranslateAccelerator(&message);
  }
  bool InPage() { return ::IsChild(PageWindowInFrame(), ::GetFocus()); }
  static std::string TextIn(HWND box) {
    wchar_t text[100] = {};
    for (HWND part = ::GetWindow(box, GW_CHILD); part; part = ::GetWindow(part, GW_HWNDNEXT)) {
      if (::GetDlgCtrlID(part) == 0xFFFF) ::GetWindowTextW(part, text, 100);
    }
    return TextOf(text);
  }
  static void CALLBACK Answer(HWND, UINT, UINT_PTR, DWORD) {
    if (ends_page && ::FindWindowW(L"#32770", nullptr)) {
      present->ClosePage();
      ends_page = false;
    }
    HWND const box = ::FindWindowW(L"#32770", nullptr);
    if (!box) return;
    messages.push_back(TextIn(box));
    owner_of_message = ::GetWindow(box, GW_OWNER);
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
  }
  // Those that have come, and those that come while pending work is done.
  std::vector<std::string> MessagesShown() {
    const ULONGLONG end = ::GetTickCount64() + 200;
    while (::GetTickCount64() < end) {
      Settle();
      ::Sleep(5);
    }
    return std::exchange(messages, {});
  }

  static inline PageKeysTest* present = nullptr;
  static inline bool ends_page = false;  // once a message is shown
  static inline std::vector<std::string> messages;
  static inline HWND owner_of_message = nullptr;
  UINT_PTR timer_ = 0;  // answers messages
  HWND outside_ = nullptr;
};

// --- Tab --------------------------------------------------------------------------------------------

TEST_F(PageKeysTest, TabMovesAmongTheFieldsAndLeavesThePageBehindTheLastOne) {
  Open("ppFlatScroll", "FlatScroll");
  ASSERT_TRUE(Focus("Value"));
  std::vector<HWND> passed{::GetFocus()};
  while (passed.size() < 10 && Offer(VK_TAB) == S_OK) passed.push_back(::GetFocus());
  EXPECT_EQ(passed.size(), 6u);
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("TranslateAccelerator(9)"));
  EXPECT_EQ(::GetFocus(), passed.back()) << "the frame moves the focus";
  Holding(VK_SHIFT, [&] {
    EXPECT_EQ(Offer(VK_TAB), S_OK);
    EXPECT_EQ(::GetFocus(), passed[4]);
    ASSERT_TRUE(Focus("Value"));
    EXPECT_EQ(Offer(VK_TAB), S_FALSE);
  });
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("TranslateAccelerator(9)"));
}

TEST_F(PageKeysTest, ASiteMayUseTheTabThatLeadsOutOfThePage) {
  Open("ppFlatButton", "FlatButton");
  PageSite().key_answer = S_OK;
  ASSERT_TRUE(Focus("Enabled"));
  EXPECT_EQ(Offer(VK_TAB), S_OK);
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("TranslateAccelerator(9)"));
}

TEST_F(PageKeysTest, TabThatComesFromTheFrameBeginsAtTheEndItComesTo) {
  Open("ppFlatButton", "FlatButton");
  ASSERT_TRUE(Focus("Caption"));
  HWND const first = ::GetFocus();
  ASSERT_TRUE(Focus("Enabled"));
  HWND const last = ::GetFocus();
  const auto enter = [&] {
    ::SetFocus(outside_);
    Settle();
    Holding(VK_TAB, [&] { ::SetFocus(PageWindowInFrame()); });
    return ::GetFocus();
  };
  EXPECT_EQ(enter(), first);
  Holding(VK_SHIFT, [&] { EXPECT_EQ(enter(), last); });
  EXPECT_EQ(enter(), first);
  // By any other way to the field that had it.
  ASSERT_TRUE(Focus("Enabled"));
  ::SetFocus(outside_);
  ::SetFocus(PageWindowInFrame());
  EXPECT_EQ(::GetFocus(), last);
}

// A frame that does not offer its keys cannot take the focus over.
TEST_F(PageKeysTest, TabGoesRoundInThePageOfAFrameThatOffersNoKeys) {
  Open("ppFlatButton", "FlatButton");
  ASSERT_TRUE(Focus("Caption"));
  HWND const first = ::GetFocus();
  for (int i = 0; i < 2; ++i) ::SendMessageW(::GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  EXPECT_EQ(::GetFocus(), first);
  EXPECT_THAT(PageSite().TakeCalls(), IsEmpty());
}

// --- Other keys -------------------------------------------------------------------------------------

TEST_F(PageKeysTest, EnterAndEscapeAreTheFramesExceptWhileAListIsOpen) {
  Open("ppFlatLabel", "FlatLabel");
  for (const char* property : {"Caption", "Enabled", "Alignment"}) {
    ASSERT_TRUE(Focus(property));
    EXPECT_EQ(Offer(VK_RETURN), S_FALSE) << property;
    EXPECT_EQ(Offer(VK_ESCAPE), S_FALSE) << property;
  }
  EXPECT_EQ(Offer(VK_F4), S_OK);
  EXPECT_EQ(Offer(VK_ESCAPE), S_OK) << "it closes the list";
  EXPECT_EQ(Offer(VK_ESCAPE), S_FALSE);
}

TEST_F(PageKeysTest, KeysWithCtrlOrAltAreTheFramesUnlessAFieldHasThemAsItsAccessKey) {
  Open("ppFlatGridColumns", "FlatGrid");
  ASSERT_TRUE(Focus("Columns"));
  Holding(VK_CONTROL, [&] { EXPECT_EQ(Offer(VK_TAB), S_FALSE); });
  Holding(VK_MENU, [&] {
    EXPECT_EQ(Offer('z', WM_SYSCHAR), S_FALSE);
    EXPECT_EQ(Offer('r', WM_SYSCHAR), S_OK);
  });
  EXPECT_THAT(PageSite().TakeCalls(), IsEmpty());
}

TEST_F(PageKeysTest, KeysOfOtherWindowsAndOtherMessagesAreTheFrames) {
  Open("ppFlatButton", "FlatButton");
  MSG outside = {outside_, WM_KEYDOWN, 'X', 1, 0, {}};
  EXPECT_EQ(Page().TranslateAccelerator(&outside), S_FALSE);
  ASSERT_TRUE(Focus("Caption"));
  MSG paint = {::GetFocus(), WM_PAINT, 0, 0, 0, {}};
  EXPECT_EQ(Page().TranslateAccelerator(&paint), S_FALSE);
  EXPECT_EQ(Offer('X'), S_OK);
}

// --- Fields that refuse to be left -------------------------------------------------------------------

TEST_F(PageKeysTest, AFieldThatRefusesToBeLeftKeepsTheFocusAndSaysWhyInFrontOfTheFrame) {
  Open("ppFlatTabStrip", "FlatTabStrip");
  ASSERT_TRUE(Focus("TabWidth"));
  HWND const field = ::GetFocus();
  Type("x");
  EXPECT_EQ(Offer(VK_TAB), S_OK);
  EXPECT_THAT(MessagesShown(), ElementsAre("Invalid Tab Width"));
  EXPECT_EQ(owner_of_message, Window());
  EXPECT_EQ(::GetFocus(), field);
  // The same where the frame takes the focus away without a word.
  ::SetFocus(outside_);
  EXPECT_THAT(MessagesShown(), ElementsAre("Invalid Tab Width"));
  EXPECT_EQ(::GetFocus(), field);
  Type("1200");
  ::SetFocus(outside_);
  EXPECT_THAT(MessagesShown(), IsEmpty());
  EXPECT_EQ(::GetFocus(), outside_);
}

TEST_F(PageKeysTest, TheLastFieldIsAskedBeforeTabLeavesThePage) {
  Open("ppFlatTabStrip", "FlatTabStrip");
  ASSERT_TRUE(Focus("TabCount"));
  HWND const field = ::GetFocus();
  Type("many");
  Holding(VK_SHIFT, [&] { EXPECT_EQ(Offer(VK_TAB), S_OK) << "it is the first one, and stays"; });
  EXPECT_THAT(MessagesShown(), ElementsAre("Invalid Tab Count"));
  EXPECT_EQ(::GetFocus(), field);
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("OnStatusChange(3)"));
}

// What a command on the columns raises has no call of the frame to go to.
TEST_F(PageKeysTest, AnErrorOfACommandIsShownInAMessage) {
  Open("ppFlatTabStrip", "FlatTabStrip");
  Put(Object(), "TabCount", {2});
  Put(Object(), "SelectedTab", {1});
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  Put(Object(), "TabCount", {1});
  ASSERT_TRUE(Focus("TabCaption"));
  Pick(1);
  EXPECT_THAT(MessagesShown(), ElementsAre("Invalid TabIndex"));
  EXPECT_TRUE(InPage());
}

TEST_F(PageKeysTest, APageMayEndWhileItsMessageIsShown) {
  Open("ppFlatTabStrip", "FlatTabStrip");
  ASSERT_TRUE(Focus("TabWidth"));
  Type("x");
  ends_page = true;
  EXPECT_EQ(Offer(VK_TAB), S_OK);
  EXPECT_THAT(MessagesShown(), ElementsAre("Invalid Tab Width"));
  EXPECT_FALSE(ends_page);
}

}  // namespace
}  // namespace levelwidgets::activex
