// Selections that are inserted with the middle button.
#include <levelwidgets/presenter/primary_selection.h>

#include <levelwidgets/presenter/presenter_fixture.h>

// Of the leak sanitizer; absent without it.
extern "C" {
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();
}

namespace levelwidgets::presenter {
namespace {

// Without a screen SDL keeps the selection itself, and up to 2.26 for ever.
class LeaksOfSelections {
 public:
  LeaksOfSelections() {
    if (__lsan_disable) __lsan_disable();
  }
  LeaksOfSelections(const LeaksOfSelections&) = delete;
  LeaksOfSelections& operator=(const LeaksOfSelections&) = delete;
  ~LeaksOfSelections() {
    if (__lsan_enable) __lsan_enable();
  }
};

class PrimarySelectionTest : public PresenterTest {
 protected:
  PrimarySelectionTest() { SDL_SetPrimarySelectionText("from there"); }

  WindowHandle MakeEdit(int top, std::uint32_t style = kEsMultiLine | kEsAutoVScroll) {
    const WindowHandle made = windows.CreateWindowExA({.class_name = "EDIT",
                                                       .style = kWsChild | kWsVisible | style,
                                                       .rect = {0, top, 300, top + 40},
                                                       .parent = form});
    windows.SetWindowTextA(made, "first\r\nsecond");
    return made;
  }
  void Select(WindowHandle window, std::uintptr_t first, std::intptr_t end) {
    windows.SetFocus(window);
    windows.SendMessageA(window, kEmSetSel, first, end);
    presenter.Sync();
  }
  static std::string Selection() {
    const std::unique_ptr<char, void (*)(void*)> text(SDL_GetPrimarySelectionText(), SDL_free);
    return text.get();
  }
  void MiddleClick(int x, int y) {
    Handle({Button(form, SDL_MOUSEBUTTONDOWN, x, y, SDL_BUTTON_MIDDLE),
            Button(form, SDL_MOUSEBUTTONUP, x, y, SDL_BUTTON_MIDDLE)});
  }
  std::string TextOf(WindowHandle window) { return windows.GetWindowTextA(window); }

  const LeaksOfSelections leaks_;
  WindowHandle edit = MakeEdit(80);
};

TEST_F(PrimarySelectionTest, WhatIsSelectedIsOfferedToOtherProgramsWithTheirLineEnds) {
  Select(edit, 2, 10);
  EXPECT_EQ(Selection(), "rst\nsec");
  Select(edit, 4, 4);
  EXPECT_EQ(Selection(), "rst\nsec") << "until something else is selected";
}

TEST_F(PrimarySelectionTest, CharactersOutsideAsciiAreOfferedAsSuch) {
  windows.SetWindowTextA(edit, "Z\xC3\xBCrich \xE2\x80\x93 Bern");
  Select(edit, 1, 8);
  EXPECT_EQ(Selection(), "\xC3\xBCrich \xE2\x80\x93");
}

TEST_F(PrimarySelectionTest, NothingOfAPasswordIsOffered) {
  const WindowHandle password = MakeEdit(130, kEsPassword);
  Select(password, 0, 3);
  EXPECT_EQ(Selection(), "from there");
}

TEST_F(PrimarySelectionTest, ASelectionIsOfferedOnceTheButtonIsUp) {
  Handle({Button(form, SDL_MOUSEBUTTONDOWN, 0, 85)});
  Select(edit, 0, 2);
  EXPECT_EQ(Selection(), "from there");
  Handle({Button(form, SDL_MOUSEBUTTONUP, 0, 85)});
  presenter.Sync();
  EXPECT_NE(Selection(), "from there");
}

TEST_F(PrimarySelectionTest, TheMiddleButtonInsertsTheSelectionWhereThePointerIs) {
  SDL_SetPrimarySelectionText("1\n2");
  desktop.SetClipboard("kept");
  MiddleClick(299, 85);
  EXPECT_EQ(TextOf(edit), "first1\r\n2\r\nsecond");
  EXPECT_EQ(windows.GetFocus(), edit);
  EXPECT_EQ(desktop.Clipboard(), "kept");
  MiddleClick(0, 85);
  EXPECT_EQ(TextOf(edit), "1\r\n2first1\r\n2\r\nsecond");
}

TEST_F(PrimarySelectionTest, WhatIsSelectedInTheTurnOfTheMiddlePressIsInserted) {
  const WindowHandle other = MakeEdit(130);
  windows.SetFocus(edit);
  SDL_Event all = Key(SDL_KEYDOWN, SDLK_END, KMOD_LSHIFT);
  Handle({all, Button(form, SDL_MOUSEBUTTONDOWN, 0, 135, SDL_BUTTON_MIDDLE),
          Button(form, SDL_MOUSEBUTTONUP, 0, 135, SDL_BUTTON_MIDDLE)});
  EXPECT_EQ(TextOf(other), "firstfirst\r\nsecond");
}

TEST_F(PrimarySelectionTest, FarDownInALongTextItIsInsertedWhereThePointerIs) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "line\r\n";
  windows.SendMessageA(edit, kEmSetLimitText, 0, 0);
  windows.SetWindowTextA(edit, text + "last");
  windows.SendMessageA(edit, kEmSetSel, text.size() + 4, static_cast<LParam>(text.size()) + 4);
  windows.SendMessageA(edit, kEmScrollCaret, 0, 0);
  const LResult place = windows.SendMessageA(edit, kEmPosFromChar, text.size(), 0);
  MiddleClick(static_cast<int>(place & 0xFFFF), 80 + static_cast<int>(place >> 16) + 2);
  const std::string inserted = TextOf(edit);
  EXPECT_EQ(inserted.size(), text.size() + 14);
  EXPECT_EQ(inserted.find("from there"), text.size());
}

TEST_F(PrimarySelectionTest, ATextThatCannotBeWrittenStaysAndGetsNoFocus) {
  const WindowHandle fixed = MakeEdit(130, kEsReadOnly);
  windows.SetFocus(edit);
  MiddleClick(10, 135);
  EXPECT_EQ(windows.GetFocus(), edit);
  EXPECT_EQ(TextOf(fixed), "first\r\nsecond");
}

TEST_F(PrimarySelectionTest, ElsewhereTheMiddleButtonInsertsNothing) {
  windows.SetFocus(edit);
  MiddleClick(15, 25);
  EXPECT_EQ(TextOf(edit), "first\r\nsecond");
}

TEST_F(PrimarySelectionTest, PastedLineFeedsAreLineBreaksAndCopiedOnesLineFeeds) {
  SDL_SetClipboardText("1\n2");
  SDL_Event changed{};
  changed.type = SDL_CLIPBOARDUPDATE;
  Handle({changed});
  windows.SetFocus(edit);
  windows.SendMessageA(edit, kEmSetSel, 0, -1);
  windows.SendMessageA(edit, kWmPaste, 0, 0);
  EXPECT_EQ(TextOf(edit), "1\r\n2");
  EXPECT_EQ(windows.SendMessageA(edit, kEmGetLineCount, 0, 0), 2);
  windows.SendMessageA(edit, kEmReplaceSel, 0, reinterpret_cast<LParam>("\r\n3"));
  windows.SendMessageA(edit, kEmSetSel, 0, -1);
  windows.SendMessageA(edit, kWmCopy, 0, 0);
  presenter.Sync();
  EXPECT_EQ(NativeClipboard(), "1\n2\n3");
}

}  // namespace
}  // namespace levelwidgets::presenter
