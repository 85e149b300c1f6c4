// The windows of a desktop on a display without a screen.
#include <levelwidgets/presenter/presenter.h>

#include <SDL.h>

#include <levelwidgets/presenter/presenter_fixture.h>

namespace levelwidgets::presenter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Windows for windows ---------------------------------------------------------------------------

TEST_F(PresenterTest, AFormShowsItsClientAreaInTheNativeFrame) {
  EXPECT_EQ(NativeSize(form), (PixelSize{300, 200}));
  EXPECT_EQ(NativePlace(form), (PixelPoint{100, 100}));
  EXPECT_STREQ(SDL_GetWindowTitle(Native(form)), "form");
  EXPECT_EQ(Flags(form) & (SDL_WINDOW_BORDERLESS | SDL_WINDOW_RESIZABLE), SDL_WINDOW_RESIZABLE);
}

TEST_F(PresenterTest, AFormWithoutSizingBorderCannotBeResized) {
  const WindowHandle fixed = MakeForm("fixed", {500, 100, 700, 200}, kWsCaption | kWsVisible);
  presenter.Sync();
  EXPECT_EQ(Flags(fixed) & (SDL_WINDOW_BORDERLESS | SDL_WINDOW_RESIZABLE), 0u);
}

TEST_F(PresenterTest, APopupIsBareAndShowsItsBorder) {
  const WindowHandle popup = MakePopup({120, 130, 220, 190});
  presenter.Sync();
  EXPECT_EQ(NativeSize(popup), (PixelSize{100, 60}));
  EXPECT_EQ(NativePlace(popup), (PixelPoint{120, 130}));
  const std::uint32_t bare = SDL_WINDOW_BORDERLESS | SDL_WINDOW_SKIP_TASKBAR | SDL_WINDOW_POPUP_MENU;
  EXPECT_EQ(Flags(popup) & (bare | SDL_WINDOW_RESIZABLE), bare);
}

TEST_F(PresenterTest, HiddenWindowsHaveNoNativeWindow) {
  windows.ShowWindow(form, kSwHide);
  presenter.Sync();
  EXPECT_EQ(Native(form), nullptr);
  windows.ShowWindow(form, kSwShow);
  presenter.Sync();
  EXPECT_NE(Native(form), nullptr);
  windows.DestroyWindow(form);
  presenter.Sync();
  EXPECT_EQ(Native(form), nullptr);
}

TEST_F(PresenterTest, ANativeWindowFollowsWhatTheProgramDoes) {
  windows.SetWindowTextA(form, "Caf\xC3\xA9");
  windows.SetWindowPos(form, {}, windows.AdjustWindowRectEx({150, 160, 400, 300}, kFormStyle, 0),
                       kSwpNoZOrder);
  presenter.Sync();
  EXPECT_STREQ(SDL_GetWindowTitle(Native(form)), "Caf\xC3\xA9");
  EXPECT_EQ(NativeSize(form), (PixelSize{250, 140}));
  EXPECT_EQ(NativePlace(form), (PixelPoint{150, 160}));
}

TEST_F(PresenterTest, AFormThatReplacesAnotherKeepsItsNativeWindow) {
  const std::uint32_t before = presenter.NativeIdOf(form);
  windows.DestroyWindow(form);
  const WindowHandle heir = MakeForm("heir", {50, 60, 250, 160});
  presenter.Sync();
  EXPECT_EQ(presenter.NativeIdOf(heir), before);
  EXPECT_STREQ(SDL_GetWindowTitle(Native(heir)), "heir");
  EXPECT_EQ(NativeSize(heir), (PixelSize{200, 100}));
  EXPECT_EQ(NativePlace(heir), (PixelPoint{50, 60}));
}

TEST_F(PresenterTest, PixelsAreShownAsTheyChange) {
  Paint(form, {0, 0, 300, 200}, {0x00332211});
  presenter.Sync();
  EXPECT_EQ(NativePixel(form, 0, 0), 0x112233u);
  EXPECT_EQ(NativePixel(form, 299, 199), 0x112233u);
  Paint(form, {150, 80, 151, 81}, {0x000000FF});
  presenter.Sync();
  EXPECT_EQ(NativePixel(form, 150, 80), 0xFF0000u);
  EXPECT_EQ(NativePixel(form, 151, 80), 0x112233u);
}

TEST_F(PresenterTest, TheDesktopHasTheResolutionThatTheScaleAsksFor) {
  for (const auto& [scale, dpi] : {std::pair{1.0, 96}, {1.25, 120}, {1.5, 144}, {1.75, 168}, {2.0, 192}}) {
    const memory::DesktopOptions options = Open(scale)->Fit({});
    EXPECT_EQ(options.dpi_x, dpi);
    EXPECT_EQ(options.dpi_y, dpi);
    EXPECT_EQ(options.monitors.front(), display_->Fit({}).monitors.front()) << "pixels stay as they are";
  }
}

// --- A person at the frame ---------------------------------------------------------------------------

TEST_F(PresenterTest, ANativeMoveMovesTheForm) {
  Handle({WindowEvent(form, SDL_WINDOWEVENT_MOVED, 40, 50)});
  PixelPoint corner;
  windows.ClientToScreen(form, corner);
  EXPECT_EQ(corner, (PixelPoint{40, 50}));
  SDL_SetWindowPosition(Native(form), 40, 50);
  presenter.Sync();
  EXPECT_EQ(NativePlace(form), (PixelPoint{40, 50}));
}

TEST_F(PresenterTest, ANativeResizeRaisesTheFormsResize) {
  Begin();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_SIZE_CHANGED, 320, 150)});
  EXPECT_THAT(Messages("Size"), ElementsAre("form Size 320,150"));
  Handle({WindowEvent(form, SDL_WINDOWEVENT_SIZE_CHANGED, 320, 150)});
  EXPECT_THAT(Messages("Size"), IsEmpty());
}

TEST_F(PresenterTest, AFormMayInsistOnItsSize) {
  client.On(kWmSize, [&](WindowHandle window, WParam, LParam) -> LResult {
    windows.SetWindowPos(window, {}, windows.AdjustWindowRectEx({0, 0, 300, 200}, kFormStyle, 0),
                         kSwpNoMove | kSwpNoZOrder);
    return 0;
  });
  SDL_SetWindowSize(Native(form), 320, 150);
  Handle({WindowEvent(form, SDL_WINDOWEVENT_SIZE_CHANGED, 320, 150)});
  presenter.Sync();
  EXPECT_EQ(NativeSize(form), (PixelSize{300, 200}));
}

TEST_F(PresenterTest, AClosingThatIsRefusedLeavesTheWindow) {
  bool refuse = true;
  client.On(kWmClose, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (!refuse) windows.DestroyWindow(window);
    return 0;
  });
  Handle({WindowEvent(form, SDL_WINDOWEVENT_CLOSE)});
  presenter.Sync();
  EXPECT_NE(Native(form), nullptr);
  refuse = false;
  Handle({WindowEvent(form, SDL_WINDOWEVENT_CLOSE)});
  presenter.Sync();
  EXPECT_EQ(Native(form), nullptr);
}

TEST_F(PresenterTest, ANativeMinimiseMinimisesTheFormAndBack) {
  PixelRect before;
  windows.GetWindowRect(form, before);
  Begin();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_MINIMIZED)});
  EXPECT_THAT(Messages("Size"), ElementsAre("form Size 0,0"));
  EXPECT_NE(windows.GetWindowLongA(form, kGwlStyle) & kWsMinimize, 0);
  presenter.Sync();
  EXPECT_NE(Native(form), nullptr);
  EXPECT_EQ(NativeSize(form), (PixelSize{300, 200})) << "a minimised window keeps its native size";
  Handle({WindowEvent(form, SDL_WINDOWEVENT_RESTORED)});
  PixelRect after;
  windows.GetWindowRect(form, after);
  EXPECT_EQ(after, before);
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(PresenterTest, ANativeMaximiseMaximisesTheFormAsLargeAsTheNativeWindow) {
  SDL_SetWindowPosition(Native(form), 0, 10);
  SDL_SetWindowSize(Native(form), 500, 400);
  Begin();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_MAXIMIZED)});
  EXPECT_NE(windows.GetWindowLongA(form, kGwlStyle) & kWsMaximize, 0);
  PixelRect client_area;
  windows.GetClientRect(form, client_area);
  EXPECT_EQ(client_area, (PixelRect{0, 0, 500, 400}));
  PixelPoint corner;
  windows.ClientToScreen(form, corner);
  EXPECT_EQ(corner, (PixelPoint{0, 10}));
  presenter.Sync();
  EXPECT_EQ(NativeSize(form), (PixelSize{500, 400}));
  Handle({WindowEvent(form, SDL_WINDOWEVENT_RESTORED)});
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlStyle) & (kWsMaximize | kWsMinimize), 0);
}

TEST_F(PresenterTest, PopupsGoWithTheFormThatIsMoved) {
  const WindowHandle popup = MakePopup({120, 130, 220, 190});
  const WindowHandle other = MakeForm("other", {500, 100, 600, 200});
  const WindowHandle owned = windows.CreateWindowExA({.style = kWsPopup | kWsVisible,
                                                      .ex_style = kWsExNoActivate,
                                                      .rect = {510, 110, 530, 130},
                                                      .parent = other});
  windows.SetActiveWindow(form);
  presenter.Sync();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_MOVED, 140, 90)});
  PixelRect rect;
  windows.GetWindowRect(popup, rect);
  EXPECT_EQ(rect, (PixelRect{160, 120, 260, 180}));
  windows.GetWindowRect(owned, rect);
  EXPECT_EQ(rect, (PixelRect{510, 110, 530, 130})) << "that of another form stays";
  presenter.Sync();
  EXPECT_EQ(NativePlace(popup), (PixelPoint{160, 120}));
  Handle({WindowEvent(other, SDL_WINDOWEVENT_MOVED, 510, 105)});
  windows.GetWindowRect(owned, rect);
  EXPECT_EQ(rect, (PixelRect{520, 115, 540, 135}));
}

TEST_F(PresenterTest, APopupGoesOntoAnotherMonitorWithItsFormAndBack) {
  const WindowHandle popup = MakePopup({120, 130, 220, 190});
  windows.SetActiveWindow(form);
  presenter.Sync();
  const std::uint32_t id = presenter.NativeIdOf(popup);
  for (const PixelPoint place : {PixelPoint{3000, -500}, PixelPoint{-2000, 90}, PixelPoint{100, 100}}) {
    Handle({WindowEvent(form, SDL_WINDOWEVENT_MOVED, place.x, place.y)});
    presenter.Sync();
    EXPECT_EQ(NativePlace(popup), (PixelPoint{place.x + 20, place.y + 30}));
    EXPECT_EQ(presenter.NativeIdOf(popup), id) << "the same native window";
    EXPECT_TRUE(Flags(popup) & SDL_WINDOW_ALWAYS_ON_TOP);
    EXPECT_TRUE(Flags(popup) & SDL_WINDOW_SHOWN);
  }
}

TEST_F(PresenterTest, TheMonitorsAreThoseOfTheSystem) {
  const memory::DesktopOptions options = display_->Fit({});
  ASSERT_EQ(options.monitors.size(), static_cast<std::size_t>(SDL_GetNumVideoDisplays()));
  SDL_Rect usable{};
  ASSERT_EQ(SDL_GetDisplayUsableBounds(0, &usable), 0);
  EXPECT_EQ(options.monitors.front(), (PixelRect{0, 0, usable.w, usable.h}));
}

TEST(NativePointerTest, EachShapeIsOneOfTheSystems) {
  EXPECT_EQ(NativePointer::SystemShape(kIdcIBeam), SDL_SYSTEM_CURSOR_IBEAM);
  EXPECT_EQ(NativePointer::SystemShape(kIdcHand), SDL_SYSTEM_CURSOR_HAND);
  EXPECT_EQ(NativePointer::SystemShape(kIdcSizeNwSe), SDL_SYSTEM_CURSOR_SIZENWSE);
  EXPECT_EQ(NativePointer::SystemShape(0), std::nullopt);
}

// --- The loop ----------------------------------------------------------------------------------------

TEST_F(PresenterTest, RunEndsWithTheLastForm) {
  MakePopup({120, 130, 220, 190});  // is no form
  desktop.Clock().SetTimer(1, [&] { windows.DestroyWindow(form); });
  EXPECT_EQ(presenter.Run(), 0);
  EXPECT_FALSE(windows.IsWindow(form));
}

TEST_F(PresenterTest, RunEndsWhenTheSystemAsks) {
  SDL_Event event{};
  event.type = SDL_QUIT;
  SDL_PushEvent(&event);
  EXPECT_EQ(presenter.Run(), 0);
  EXPECT_TRUE(windows.IsWindow(form));
}

TEST_F(PresenterTest, RunReturnsTheStatusOfQuit) {
  desktop.Clock().SetTimer(1, [&] { desktop.Clock().Quit(7); });
  EXPECT_EQ(presenter.Run(), 7);
}

TEST_F(PresenterTest, AnExceptionFromAHandlerPassesThrough) {
  desktop.Clock().SetTimer(1, [&] { throw std::runtime_error("tick"); });
  EXPECT_THROW(presenter.Run(), std::runtime_error);
}

TEST_F(PresenterTest, AnIdlePresenterWaitsWithoutATimeLimit) {
  EXPECT_EQ(presenter.TimeToWait(), -1);
  const TimerHandle timer = desktop.Clock().SetTimer(100000, [] {});
  EXPECT_GT(presenter.TimeToWait(), 90000);
  EXPECT_LE(presenter.TimeToWait(), 100000);
  desktop.Clock().KillTimer(timer);
  desktop.Clock().SetTimer(1, [] {});
  EXPECT_LE(presenter.TimeToWait(), 10);
}

TEST_F(PresenterTest, TheDesktopHasTheRealDate) {
  desktop.Clock().SetTimer(1, [&] { desktop.Clock().Quit(0); });
  desktop.SetNow(Date{1});
  presenter.Run();
  EXPECT_NEAR(desktop.Clock().Now().days, RealNow().days, 1.0 / 1440);
  EXPECT_GT(RealNow().days, 45000);
}

}  // namespace
}  // namespace levelwidgets::presenter
