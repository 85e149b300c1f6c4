// What frames may ask of a page, in what order, and what they get wrong.
#include <thread>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/page/page_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PageContractTest : public PropertyPageTest {
 protected:
  SIZE SizeOfPage(std::string* title = nullptr) {
    PROPPAGEINFO info = {};
    EXPECT_EQ(Page().GetPageInfo(&info), S_OK);
    EXPECT_EQ(info.cb, sizeof info);
    EXPECT_EQ(info.pszHelpFile, nullptr);
    if (title) *title = TextOf(info.pszTitle);
    ::CoTaskMemFree(info.pszTitle);
    return info.size;
  }
  static RECT InFrame(HWND window) {
    RECT place = {};
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
};

// --- The window -------------------------------------------------------------------------------------

TEST_F(PageContractTest, EveryPageHasATitleAndTheSizeThatItsFieldsTake) {
  for (const PageIdentity& identity : PageIdentities()) {
    const std::string name(identity.page_name);
    MakePage(name.c_str());
    std::string title;
    const SIZE size = SizeOfPage(&title);
    EXPECT_EQ(title, name == "ppFlatGridColumns" ? "Columns" : "General") << name;
    EXPECT_GT(size.cx, 100) << name;
    EXPECT_GT(size.cy, 40) << name;
    Show();
    // The fields end a margin before the page does.
    LONG right = 0, bottom = 0;
    for (HWND field = ::GetWindow(PageWindowInFrame(), GW_CHILD); field;
         field = ::GetWindow(field, GW_HWNDNEXT)) {
      right = std::max(right, InFrame(field).right);
      bottom = std::max(bottom, InFrame(field).bottom);
    }
    EXPECT_LE(std::abs(size.cx - right - 8), 1) << name;
    EXPECT_LE(std::abs(size.cy - bottom - 8), 1) << name;
    ClosePage();
  }
}

TEST_F(PageContractTest, AnActivePageIsAChildOfTheFrameWhereTheFrameSaysAndHiddenUntilItIsShown) {
  MakePage("ppFlatButton");
  const RECT place = {20, 30, 220, 150};
  ASSERT_EQ(Page().Activate(Window(), &place, TRUE), S_OK);
  HWND const window = PageWindowInFrame();
  ASSERT_TRUE(window);
  EXPECT_EQ(::GetWindowLongW(window, GWL_STYLE) & (WS_CHILD | WS_CAPTION | WS_TABSTOP),
            WS_CHILD | WS_TABSTOP);
  EXPECT_FALSE(::IsWindowVisible(window));
  const RECT at = InFrame(window);
  EXPECT_TRUE(::EqualRect(&at, &place));
  EXPECT_EQ(Page().Show(SW_SHOWNORMAL), S_OK);
  EXPECT_TRUE(::IsWindowVisible(window));
  const RECT elsewhere = {5, 6, 105, 76};
  EXPECT_EQ(Page().Move(&elsewhere), S_OK);
  const RECT moved = InFrame(window);
  EXPECT_TRUE(::EqualRect(&moved, &elsewhere));
  EXPECT_EQ(Page().Show(SW_HIDE), S_OK);
  EXPECT_FALSE(::IsWindowVisible(window));
  EXPECT_EQ(Page().Show(SW_MAXIMIZE), E_INVALIDARG);
  EXPECT_EQ(Page().Deactivate(), S_OK);
  EXPECT_FALSE(::IsWindow(window));
}

TEST_F(PageContractTest, APageIsActivatedOnceAtATimeAndAgainWithWhatWasTyped) {
  Open("ppFlatButton", "FlatButton");
  EXPECT_EQ(Page().Activate(Window(), &PagePlace(), FALSE), E_UNEXPECTED);
  ASSERT_TRUE(Focus("Caption"));
  Type("Store");
  EXPECT_EQ(Page().Deactivate(), S_OK);
  EXPECT_EQ(Page().Deactivate(), E_UNEXPECTED);
  EXPECT_EQ(Page().IsPageDirty(), S_OK);
  Show();
  ASSERT_TRUE(Focus("Caption"));
  EXPECT_EQ(FieldText(), "Store");
}

TEST_F(PageContractTest, WhatNeedsAWindowIsRefusedWithoutOne) {
  Embed("FlatButton");
  MakePage("ppFlatButton");
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  EXPECT_EQ(Page().Deactivate(), E_UNEXPECTED);
  EXPECT_EQ(Page().Show(SW_SHOW), E_UNEXPECTED);
  EXPECT_EQ(Page().Move(&PagePlace()), E_UNEXPECTED);
  EXPECT_EQ(Page().EditProperty(IdOf(Object(), "Caption")), E_UNEXPECTED);
  MSG message = {Window(), WM_KEYDOWN, VK_TAB, 0, 0, {}};
  EXPECT_EQ(Page().TranslateAccelerator(&message), S_FALSE);
  EXPECT_EQ(Page().Activate(nullptr, &PagePlace(), FALSE), E_INVALIDARG);
}

TEST_F(PageContractTest, AFrameThatDestroysItsWindowFirstMayStillCallThePage) {
  HWND const frame = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, nullptr,
                                       nullptr, nullptr, nullptr);
  Embed("FlatButton");
  MakePage("ppFlatButton");
  ASSERT_EQ(SetObjects({Object()}), S_OK);
  ASSERT_EQ(Page().Activate(frame, &PagePlace(), FALSE), S_OK);
  ::DestroyWindow(frame);
  EXPECT_EQ(Page().Show(SW_SHOW), E_UNEXPECTED);
  EXPECT_EQ(Page().EditProperty(IdOf(Object(), "Caption")), E_UNEXPECTED);
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Page().Deactivate(), S_OK);
}

// --- Sites and objects ------------------------------------------------------------------------------

TEST_F(PageContractTest, NullPointersAreRefused) {
  Open("ppFlatButton", "FlatButton");
  EXPECT_EQ(Page().GetPageInfo(nullptr), E_POINTER);
  EXPECT_EQ(Page().Move(nullptr), E_POINTER);
  EXPECT_EQ(Page().SetObjects(1, nullptr), E_POINTER);
  EXPECT_EQ(SetObjects({nullptr}), E_POINTER);
  EXPECT_EQ(Page().TranslateAccelerator(nullptr), E_POINTER);
  EXPECT_EQ(Page().QueryInterface(IID_IPropertyPage, nullptr), E_POINTER);
  ASSERT_EQ(Page().Deactivate(), S_OK);
  EXPECT_EQ(Page().Activate(Window(), nullptr, FALSE), E_POINTER);
  EXPECT_EQ(Page().Help(nullptr), E_NOTIMPL);
}

TEST_F(PageContractTest, APageHasOneSiteAtATimeAndNeedsNone) {
  Open("ppFlatButton", "FlatButton");
  EXPECT_EQ(Page().SetPageSite(&PageSite()), E_UNEXPECTED);
  EXPECT_EQ(Page().SetPageSite(nullptr), S_OK);
  ASSERT_TRUE(Focus("Caption"));
  Type("Store");
  EXPECT_THAT(PageSite().TakeCalls(), IsEmpty());
  EXPECT_EQ(Page().IsPageDirty(), S_OK);
  EXPECT_EQ(Page().SetPageSite(&PageSite()), S_OK);
}

TEST_F(PageContractTest, ASiteThatAnswersErrorsDoesNotDisturbThePage) {
  Open("ppFlatButton", "FlatButton");
  PageSite().answer = E_FAIL;
  PageSite().key_answer = E_FAIL;
  ASSERT_TRUE(Focus("Caption"));
  Type("Store");
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("OnStatusChange(3)"));
  Press(VK_TAB);
  Press(VK_TAB);
  EXPECT_EQ(Page().Apply(), S_OK);
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "Store");
}

TEST_F(PageContractTest, ASiteMayApplyThePageAtOnce) {
  Open("ppFlatButton", "FlatButton");
  PageSite().on_change = [&] { EXPECT_EQ(Page().Apply(), S_OK); };
  ASSERT_TRUE(Focus("Caption"));
  Type("ab");
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "ab");
  EXPECT_THAT(PageSite().TakeCalls(), ElementsAre("OnStatusChange(3)", "OnStatusChange(3)"));
  EXPECT_EQ(Page().IsPageDirty(), S_FALSE);
}

TEST_F(PageContractTest, ASiteMayLetGoOfThePageWhileItHearsOfAChange) {
  Open("ppFlatButton", "FlatButton");
  const ComPtr<TestPageSite> keep(&PageSite());
  ASSERT_TRUE(Focus("Caption"));
  PageSite().on_change = [&] { ClosePage(); };
  HWND const field = ::GetFocus();
  ::SendMessageW(field, WM_CHAR, 'x', 1);
  EXPECT_FALSE(::IsWindow(field));
  keep->on_change = nullptr;
  EXPECT_THAT(keep->TakeCalls(), ElementsAre("OnStatusChange(3)"));
}

TEST_F(PageContractTest, CallsFromAnotherThreadAreRefusedAndDoNothing) {
  Open("ppFlatButton", "FlatButton");
  IPropertyPage2& page = Page();
  std::vector<HRESULT> results;
  std::thread([&] {
    PROPPAGEINFO info = {};
    MSG message = {};
    results = {page.SetPageSite(nullptr),
               page.Activate(Window(), &PagePlace(), FALSE),
               page.Deactivate(),
               page.GetPageInfo(&info),
               page.SetObjects(0, nullptr),
               page.Show(SW_HIDE),
               page.Move(&PagePlace()),
               page.IsPageDirty(),
               page.Apply(),
               page.TranslateAccelerator(&message),
               page.EditProperty(1)};
  }).join();
  EXPECT_THAT(results, ::testing::Each(RPC_E_WRONG_THREAD));
  EXPECT_TRUE(::IsWindowVisible(PageWindowInFrame()));
  EXPECT_TRUE(Focus("Caption"));
}

TEST_F(PageContractTest, AThousandPagesThatComeAndGoLeaveNothingBehind) {
  Embed("FlatButton");
  const RECT place = {0, 0, 200, 100};
  IUnknown* objects[] = {Object()};
  for (int i = 0; i < 1000; ++i) {
    const auto page = As<IPropertyPage>(MakeComponent("ppFlatButton"));
    ASSERT_TRUE(page);
    ASSERT_EQ(page->SetObjects(1, objects), S_OK);
    if (i % 10 != 0) continue;  // the others end without a window
    ASSERT_EQ(page->Activate(Window(), &place, FALSE), S_OK);
    if (i % 20 == 0) page->Deactivate();  // or end while they are active
  }
  EXPECT_EQ(PageWindowInFrame(), nullptr);
}

}  // namespace
}  // namespace levelwidgets::activex
