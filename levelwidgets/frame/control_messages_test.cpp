// What a control makes of its window's messages where order, modifier keys or the system's own part matter.
#include <levelwidgets/frame/control.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

// Does what a test asks for inside its notifications.
class Obedient : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Obedient>("Obedient", "Does what a test asks for."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  static inline Journal notes;
  static inline std::function<void()> on_mouse_down, on_mouse_up, on_paint, on_enter_focus;

  explicit Obedient(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0x00FF0000), .fore_color = Color(0), .font = {}}) {}
  const ClassInfo& Class() const override { return Table(); }
  void OnInitialize() override { notes.emplace_back("Initialize"); }
  void OnInitProperties() override { notes.emplace_back("InitProperties"); }
  void OnResize() override { notes.emplace_back("Resize"); }
  void OnPaint() override {
    GetSurface().Cls();
    if (on_paint) on_paint();
  }
  void OnEnterFocus() override { Do(on_enter_focus); }
  void OnMouseDown(const PointerInput& input) override {
    Note("MouseDown", input);
    Do(on_mouse_down);
  }
  void OnMouseMove(const PointerInput& input) override { Note("MouseMove", input); }
  void OnMouseUp(const PointerInput&) override {
    notes.emplace_back("MouseUp");
    Do(on_mouse_up);
  }
  void OnClick() override { notes.emplace_back("Click"); }
  void OnKeyPress(std::int16_t& key_ascii) override {
    notes.push_back("KeyPress " + std::to_string(key_ascii));
  }

 private:
  static void Note(const char* name, const PointerInput& input) {
    notes.push_back(std::string(name) + " " + std::to_string(input.button) + " " +
                    std::to_string(input.shift));
  }
  static void Do(const std::function<void()>& action) {
    if (action) action();
  }
};

class ControlMessagesTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    one_ = &AddNew<Obedient>("one");
    AddNew<Obedient>("other", {Twips(600), Twips(1800)});
    Obedient::notes.clear();
  }
  void TearDown() override {
    for (auto* action :
         {&Obedient::on_mouse_down, &Obedient::on_mouse_up, &Obedient::on_paint, &Obedient::on_enter_focus}) {
      *action = nullptr;
    }
    DesktopTest::TearDown();
  }
  void MoveOver(int x, int y) { Driver().MovePointer(ScreenPoint(*one_, PixelPoint{x, y})); }
  static Journal TakeNotes() { return std::exchange(Obedient::notes, {}); }

  Obedient* one_ = nullptr;
};

TEST_F(ControlMessagesTest, AControlIsResizedOnceAfterItHasItsProperties) {
  AddNew<Obedient>("third", {Twips(2400), Twips(600)});
  EXPECT_THAT(TakeNotes(), ElementsAre("Initialize", "InitProperties", "Resize"));
}

TEST_F(ControlMessagesTest, AControlThatIsDisabledByItsReleaseIsNotClicked) {
  Obedient::on_mouse_up = [this] { one_->GetSurface().SetEnabled(false); };
  Driver().Click(ScreenPoint(*one_, PixelPoint{5, 5}));
  EXPECT_THAT(TakeNotes(), Not(Contains("Click")));
}

TEST_F(ControlMessagesTest, AControlThatIsRemovedByItsReleaseIsNotClicked) {
  const auto keep = one_->shared_from_this();
  Obedient::on_mouse_up = [this] { TheForm().Remove("one"); };
  Driver().Click(ScreenPoint(*one_, PixelPoint{5, 5}));
  EXPECT_THAT(TakeNotes(), Not(Contains("Click")));
}

TEST_F(ControlMessagesTest, AListenerOfThePressThatMovesTheFocusKeepsItsChoice) {
  AddNew<Obedient>("third", {Twips(2400), Twips(600)});
  TheForm().Find("third")->SetFocus();
  Obedient::on_mouse_down = [this] { TheForm().Find("other")->SetFocus(); };
  Driver().Click(ScreenPoint(*one_, PixelPoint{5, 5}));
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "other");
}

TEST_F(ControlMessagesTest, TheControlHearsOfItsFocusBeforeItsContainer) {
  TheForm().Find("other")->SetFocus();
  std::string active;
  Obedient::on_enter_focus = [&] { active = TheForm().ActiveControl()->Name(); };
  TheForm().Find("one")->SetFocus();
  EXPECT_EQ(active, "other");
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "one");
}

TEST_F(ControlMessagesTest, PressesAndMovesCarryAllModifierKeysAndButtons) {
  MoveOver(5, 5);
  Driver().KeyDown('Z', kShiftMask | kCtrlMask | kAltMask);
  TakeNotes();
  Driver().Press(kLeftButton);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseDown 1 7"));
  Driver().Press(kMiddleButton);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseDown 4 7"));
  MoveOver(6, 5);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseMove 5 7"));
  Driver().Release(kMiddleButton);
  Driver().Release(kLeftButton);
  Driver().KeyUp('Z', 0);
}

TEST_F(ControlMessagesTest, ACharacterTypedWithAltIsNoKeyPressAndTheKeyGoesToTheSystemToo) {
  TheForm().Find("one")->SetFocus();
  TakeNotes();
  std::vector<std::int64_t> to_the_system;
  for (const TracedCall& call : CallsNamed({"DefWindowProcA"}, [&] { Driver().Key('Q', kAltMask); })) {
    to_the_system.push_back(std::get<std::int64_t>(call.arguments[1]));
  }
  EXPECT_THAT(TakeNotes(), ElementsAre());
  EXPECT_THAT(to_the_system, Contains(std::int64_t{kWmSysKeyDown}));
  EXPECT_THAT(to_the_system, Not(Contains(std::int64_t{kWmSysChar})));
}

TEST_F(ControlMessagesTest, TheSystemErasesNothing) {
  EXPECT_EQ(Windows().SendMessageA(one_->GetSurface().hWnd(), kWmEraseBackground, 0, 0), 1);
}

TEST_F(ControlMessagesTest, AnErrorInPaintingPassesThroughAndEndsThePaint) {
  Journal calls;
  Obedient::on_paint = [] { throw Error(kInvalidCall); };
  calls = Names(
      CallsNamed({"BeginPaint", "EndPaint"}, [&] { EXPECT_THROW(one_->GetSurface().Refresh(), Error); }));
  EXPECT_THAT(calls, ElementsAre("BeginPaint", "EndPaint"));
}

TEST_F(ControlMessagesTest, AMoveKeepsTheOrderOfOverlappingControls) {
  auto& over = AddNew<Obedient>("over");  // at the same place as "one"
  over.GetSurface().SetBackColor(Color(0x0000FF00));
  over.OnPaint();
  const ColorRef front = PixelAt(*one_, {5, 5});
  for (Obedient* control : {one_, &over}) {
    Hosted(*control).Move({Twips(615), Twips(600)}, {Twips(1200), Twips(375)});
    Hosted(*control).Move({Twips(600), Twips(600)}, {Twips(1200), Twips(375)});
    EXPECT_EQ(PixelAt(*one_, {5, 5}), front);
  }
}

TEST_F(ControlMessagesTest, TheSurfacesObjectsAreDeselectedBeforeTheyAreDeleted) {
  const auto calls = CallsNamed({"SelectObject", "DeleteObject"}, [&] { TheForm().Remove("one"); });
  EXPECT_THAT(Names(calls), ElementsAre("SelectObject", "SelectObject", "DeleteObject", "DeleteObject"));
}

}  // namespace
}  // namespace levelwidgets::testing
