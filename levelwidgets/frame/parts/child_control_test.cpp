// A control as a part of another one, with an owner and a part made for the test.
#include <levelwidgets/frame/control_with.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Writes down its notifications.
class Knob : public ControlWith<ClickEvents, KeyEvents, PointerEvents> {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<Knob>;
    static constexpr auto data =
        ClassTable(ControlClass<Knob>("Knob", "A part."),
                   table::Properties(Row::Property<&Knob::Level, &Knob::SetLevel>(
                       1, "Level", {.when_new = 5, .when_read = 7, .when_written = 7}, "")),
                   table::Persisted("Level"));
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Knob(std::shared_ptr<ControlSite> site)
      : ControlWith(std::move(site), {.back_color = Color(0x000000FF), .fore_color = Color(0), .font = {}}) {}

  std::int32_t Level() const { return level_; }
  void SetLevel(std::int32_t level) {
    level_ = level;
    notes.push_back("Level at " + std::to_string(static_cast<int>(GetSurface().ScaleWidth().value)));
    PropertyChanged("Level");
  }

  const ClassInfo& Class() const override { return Table(); }
  void OnInitialize() override { notes.push_back("Initialize"); }
  void OnResize() override { notes.push_back("Resize"); }
  void OnPaint() override { GetSurface().Cls(); }
  void OnEnterFocus() override { notes.push_back("EnterFocus"); }
  void OnExitFocus() override { notes.push_back("ExitFocus"); }

  std::vector<std::string> notes;

 private:
  std::int32_t level_ = 0;
};

class Panel : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Panel>("Panel", "A control with a part."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Panel(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0x0000FF00),
                                  .fore_color = Color(0x00112233),
                                  .font = {.name = "Arial", .size = 14}}) {}
  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override { GetSurface().Cls(); }
  void OnEnterFocus() override { notes.push_back("EnterFocus"); }
  void OnExitFocus() override { notes.push_back("ExitFocus"); }

  ChildControl<Knob> knob{*this, "knbMain", {Twips(300), Twips(150)}};
  std::vector<std::string> notes;
};

class ChildControlTest : public DesktopTest {
 protected:
  Panel& ThePanel() {
    if (!panel_) {
      AddNew<Panel>("pnlFirst", {Twips(600), Twips(2400)}, {Twips(600), Twips(300)});
      panel_ = &AddNew<Panel>("pnl", {Twips(600), Twips(600)}, {Twips(3000), Twips(1500)});
      TheForm().Find("pnlFirst")->SetFocus();
      Driver().Settle();
    }
    return *panel_;
  }
  // 20 by 10 pixels from (30, 20) of the panel.
  Knob& ShownKnob() {
    ThePanel().knob.Move({Twips(450), Twips(300)}, {Twips(300), Twips(150)});
    ThePanel().knob.SetVisible(true);
    Driver().Settle();
    ThePanel().knob->notes.clear();
    return *ThePanel().knob;
  }
  PixelPoint OverKnob() { return ScreenPoint(ThePanel(), PixelPoint{35, 25}); }
  bool KnobHasFocus() { return Windows().GetFocus() == ThePanel().knob->GetSurface().hWnd(); }

 private:
  Panel* panel_ = nullptr;
};

TEST_F(ChildControlTest, WhatTheOwnerPaintsLeavesItsPartsAlone) {
  Knob& knob = ShownKnob();
  ThePanel().OnPaint();
  EXPECT_EQ(PixelAt(knob, {5, 5}), ColorRef{0x000000FF});
}

TEST_F(ChildControlTest, APartKnowsWhetherItIsShown) {
  EXPECT_FALSE(ThePanel().knob.Visible());
  ShownKnob();
  EXPECT_TRUE(ThePanel().knob.Visible());
}

TEST_F(ChildControlTest, IsALoadedInstanceThatHasItsSizeWhenItReads) {
  EXPECT_THAT(ThePanel().knob->notes, ElementsAre("Initialize", "Level at 300", "Resize"));
  EXPECT_EQ(ThePanel().knob->Level(), 7);
}

TEST_F(ChildControlTest, IsHiddenUntilShown) {
  Panel& panel = ThePanel();
  panel.knob.Move({Twips(450), Twips(300)}, panel.knob.Size());
  EXPECT_FALSE(panel.knob.Visible());
  EXPECT_EQ(PixelAt(panel, {35, 25}), ColorRef{0x0000FF00});
  panel.knob.SetVisible(true);
  EXPECT_EQ(PixelAt(panel, {35, 25}), ColorRef{0x000000FF});
  panel.knob.SetVisible(false);
  EXPECT_EQ(PixelAt(panel, {35, 25}), ColorRef{0x0000FF00});
}

TEST_F(ChildControlTest, MovesInTwipsOfItsOwner) {
  ShownKnob();
  EXPECT_EQ(PixelAt(ThePanel(), {29, 20}), ColorRef{0x0000FF00});
  EXPECT_EQ(PixelAt(ThePanel(), {30, 20}), ColorRef{0x000000FF});
  EXPECT_EQ(PixelAt(ThePanel(), {49, 29}), ColorRef{0x000000FF});
  EXPECT_EQ(PixelAt(ThePanel(), {50, 29}), ColorRef{0x0000FF00});
}

TEST_F(ChildControlTest, OnlyANewSizeCallsForAResize) {
  Knob& knob = ShownKnob();
  ThePanel().knob.Move({Twips(600), Twips(300)}, {Twips(300), Twips(150)});
  EXPECT_THAT(knob.notes, IsEmpty());
  ThePanel().knob.Move({Twips(600), Twips(300)}, {Twips(450), Twips(150)});
  EXPECT_THAT(knob.notes, ElementsAre("Resize"));
  EXPECT_EQ(ThePanel().knob.Position(), (TwipPoint{Twips(600), Twips(300)}));
}

TEST_F(ChildControlTest, NegativeLengthsCountAsZero) {
  Knob& knob = ShownKnob();
  ThePanel().knob.Move({}, {Twips(-15), Twips(-1)});
  EXPECT_EQ(ThePanel().knob.Size(), TwipSize());
  EXPECT_EQ(knob.GetSurface().ScaleWidth(), Twips());
}

TEST_F(ChildControlTest, AmbientPropertiesAreTheOwnersOwn) {
  ControlSite& site = ThePanel().knob->Site();
  EXPECT_EQ(site.AmbientBackColor(), Color(0x0000FF00));
  EXPECT_EQ(site.AmbientForeColor(), Color(0x00112233));
  EXPECT_EQ(site.DisplayName(), "knbMain");
  EXPECT_FALSE(site.DisplayAsDefault());
  const FontRef font = site.AmbientFont();
  EXPECT_EQ(font->Description().name, "Arial");
  EXPECT_NE(font, ThePanel().GetSurface().GetFont());  // a copy
}

TEST_F(ChildControlTest, ItsPropertyChangesAreNotReportedToTheForm) {
  Knob& knob = ShownKnob();
  std::vector<std::string> notices;
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view name) { notices.emplace_back(name); });
  knob.SetLevel(3);
  EXPECT_EQ(knob.Level(), 3);
  EXPECT_THAT(notices, IsEmpty());
}

TEST_F(ChildControlTest, GetsThePointerRelativeToItselfAndTakesNoFocus) {
  Knob& knob = ShownKnob();
  std::vector<TwipPoint> presses;
  knob.MouseDown += [&](auto, auto, Twips x, Twips y) { presses.push_back({x, y}); };
  int clicks = 0;
  knob.Click += [&] { ++clicks; };
  Driver().Click(OverKnob());
  EXPECT_THAT(presses, ElementsAre(TwipPoint{Twips(75), Twips(75)}));
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(KnobHasFocus());
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "pnlFirst");
}

TEST_F(ChildControlTest, InDesignModeItGetsNoInput) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  int presses = 0;
  ShownKnob().MouseDown += [&](auto...) { ++presses; };
  Driver().Click(OverKnob());
  EXPECT_EQ(presses, 0);
}

TEST_F(ChildControlTest, ItsFocusIsItsOwnersToo) {
  Knob& knob = ShownKnob();
  Windows().SetFocus(knob.GetSurface().hWnd());
  Driver().Settle();
  EXPECT_THAT(knob.notes, ElementsAre("EnterFocus"));
  EXPECT_THAT(ThePanel().notes, ElementsAre("EnterFocus"));
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "pnl");
  TheForm().Find("pnlFirst")->SetFocus();
  Driver().Settle();
  EXPECT_THAT(knob.notes, ElementsAre("EnterFocus", "ExitFocus"));
  EXPECT_THAT(ThePanel().notes, ElementsAre("EnterFocus", "ExitFocus"));
}

TEST_F(ChildControlTest, KeysAreOfferedToTheFormFirst) {
  Knob& knob = ShownKnob();
  std::vector<std::int16_t> keys;
  knob.KeyDown += [&](std::int16_t code, std::int16_t) { keys.push_back(code); };
  Windows().SetFocus(knob.GetSurface().hWnd());
  Driver().Settle();
  Driver().Key('A');
  Driver().Key(kKeyTab);  // the form moves on with it
  EXPECT_THAT(keys, ElementsAre('A'));
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "pnlFirst");
}

TEST_F(ChildControlTest, AListenerOfThePartMayRemoveTheOwner) {
  Knob& knob = ShownKnob();
  const WindowHandle window = knob.GetSurface().hWnd();
  knob.MouseDown += [&](auto...) { TheForm().Remove("pnl"); };
  Driver().Click(OverKnob());
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_FALSE(TheForm().Find("pnl"));
}

TEST_F(ChildControlTest, IsDestroyedWithItsOwner) {
  const WindowHandle window = ShownKnob().GetSurface().hWnd();
  TheForm().Remove("pnl");
  EXPECT_FALSE(Windows().IsWindow(window));
}

}  // namespace
}  // namespace levelwidgets::testing
