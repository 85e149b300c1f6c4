// What parts, the control that they make and its container owe each other: keys, focus, life.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/composed_control.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TwipPoint kAt{Twips(300), Twips(300)};
constexpr TwipSize kSize{Twips(4500), Twips(1500)};

bool IsModifier(std::int16_t code) { return code >= kKeyShift && code <= kKeyAlt; }

std::string TextOf(const std::string& who, const KeyMessage& key) {
  static constexpr const char* kKinds[] = {" down ", " up ", " character "};
  return who + kKinds[static_cast<int>(key.kind)] + std::to_string(key.code);
}

// --- Keys --------------------------------------------------------------------------------------------

// The container of a control whose key handling is seen.
class RecordingSite : public ControlSite {
 public:
  RecordingSite(Platform& platform, WindowHandle parent) : platform_(platform), parent_(parent) {}
  Platform& GetPlatform() override { return platform_; }
  WindowHandle ParentWindow() override { return parent_; }
  bool UserMode() override { return true; }
  bool DisplayAsDefault() override { return false; }
  std::string DisplayName() override { return "outer"; }
  FontRef AmbientFont() override { return MakeFont(); }
  Color AmbientBackColor() override { return Color(0x00FFFFFF); }
  Color AmbientForeColor() override { return Color(0); }
  void PropertyChanged(std::string_view) override {}
  void FocusChanged(bool, WindowHandle) override {}
  bool TakeKey(KeyMessage& key) override { return take(key); }
  bool WasOffered(const KeyMessage&) override { return offered; }

  std::function<bool(KeyMessage&)> take;
  bool offered = false;

 private:
  Platform& platform_;
  WindowHandle parent_;
};

class ComposedKeysTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    site_ = std::make_shared<RecordingSite>(Tracer(), TheForm().hWnd());
    outer_ = MakeControl<Outer>(site_);
    outer_->Start(nullptr, kAt, kSize);
    outer_->GetSurface().SetVisible(true);
    Composed& inner = Inner();
    inner.preview = [this](KeyMessage& key) { return Sees("inner", key); };
    outer_->preview = [this](KeyMessage& key) { return Sees("outer", key); };
    site_->take = [this](KeyMessage& key) { return Sees("container", key); };
    Log(inner.txtMain, "part");
    Log(inner.txtInner, "part");
    inner.picPanel.KeyDown += [this](std::int16_t code, std::int16_t) { Note("panel KeyDown", code); };
    inner.picPanel.KeyPress += [this](std::int16_t& code) { Note("panel KeyPress", code); };
    inner.txtMain.SetFocus();
    Driver().Settle();
    TakeLog();
  }
  void TearDown() override {
    outer_.reset();
    DesktopTest::TearDown();
  }

  Composed& Inner() { return *outer_->cmpInner; }
  std::vector<std::string> TakeLog() { return std::exchange(log_, {}); }

  // Who uses keys, and what else they do with them.
  std::string user_;
  std::function<void(KeyMessage&)> also_;
  std::shared_ptr<RecordingSite> site_;

 private:
  bool Sees(const std::string& who, KeyMessage& key) {
    if (IsModifier(key.code)) return false;
    log_.push_back(TextOf(who, key));
    if (who != user_) return false;
    if (also_) also_(key);
    return also_ == nullptr;
  }
  void Note(const std::string& what, std::int16_t code) {
    if (!IsModifier(code)) log_.push_back(what + " " + std::to_string(code));
  }
  void Log(TextBox& box, const std::string& who) {
    box.KeyDown += [=, this](std::int16_t& code, std::int16_t&) { Note(who + " KeyDown", code); };
    box.KeyPress += [=, this](std::int16_t& code) { Note(who + " KeyPress", code); };
    box.KeyUp += [=, this](std::int16_t code, std::int16_t) { Note(who + " KeyUp", code); };
  }

  std::shared_ptr<Outer> outer_;
  std::vector<std::string> log_;
};

TEST_F(ComposedKeysTest, AKeyGoesToTheInnerPreviewTheOuterPreviewTheContainerAndThePart) {
  Driver().Key('A');
  EXPECT_THAT(TakeLog(),
              ElementsAre("inner down 65", "outer down 65", "container down 65", "part KeyDown 65",  //
                          "inner character 97", "outer character 97", "container character 97",
                          "part KeyPress 97",  //
                          "inner up 65", "outer up 65", "container up 65", "part KeyUp 65"));
  EXPECT_EQ(Inner().txtMain.Text(), "a");
}

TEST_F(ComposedKeysTest, KeysOfAPanelOnTheDesktopAndOfAnEditBoxInsideItGoTheSameWay) {
  Inner().Open();
  TakeLog();
  Driver().KeyDown('A', 0);
  EXPECT_THAT(TakeLog(), ElementsAre("inner down 65", "outer down 65", "container down 65",
                                     "panel KeyDown 65", "inner character 97", "outer character 97",
                                     "container character 97", "panel KeyPress 97"));
  Driver().KeyUp('A', 0);
  Inner().txtInner.SetFocus();
  TakeLog();
  Driver().KeyDown('B', 0);
  EXPECT_THAT(TakeLog(), ElementsAre("inner down 66", "outer down 66", "container down 66", "part KeyDown 66",
                                     "inner character 98", "outer character 98", "container character 98",
                                     "part KeyPress 98"));
  Driver().KeyUp('B', 0);
}

TEST_F(ComposedKeysTest, AUsedKeyDownTakesItsCharacterAlongWhoeverUsesIt) {
  const std::vector<std::string> seers{"inner", "outer", "container"};
  for (std::size_t user = 0; user < seers.size(); ++user) {
    user_ = seers[user];
    Driver().KeyDown('A', 0);
    std::vector<std::string> expected;
    for (std::size_t seer = 0; seer <= user; ++seer) expected.push_back(seers[seer] + " down 65");
    EXPECT_EQ(TakeLog(), expected) << user_;
    user_ = "";
    Driver().KeyUp('A', 0);
    TakeLog();
  }
  EXPECT_EQ(Inner().txtMain.Text(), "");
  Driver().Key('B');  // the next one is not used
  EXPECT_EQ(Inner().txtMain.Text(), "b");
}

TEST_F(ComposedKeysTest, AKeyThatWasOfferedBeforeIsPreviewedByNobodyAndComesToThePart) {
  site_->offered = true;
  Driver().Key('A');
  EXPECT_THAT(TakeLog(), ElementsAre("container down 65", "part KeyDown 65", "container character 97",
                                     "part KeyPress 97", "container up 65", "part KeyUp 65"));
  EXPECT_EQ(Inner().txtMain.Text(), "a");
}

TEST_F(ComposedKeysTest, AKeyThatTheContainerStoppedTypesItsCharacterWhenItComesAgain) {
  user_ = "container";
  Driver().KeyDown('A', 0);
  EXPECT_EQ(Inner().txtMain.Text(), "");
  user_ = "";
  site_->offered = true;
  Driver().KeyDown('A', 0);
  EXPECT_EQ(Inner().txtMain.Text(), "a");
  Driver().KeyUp('A', 0);
}

TEST_F(ComposedKeysTest, ADisabledControlHearsNoKeyThatWasOfferedBefore) {
  site_->offered = true;
  Inner().GetSurface().SetEnabled(false);
  TakeLog();
  Driver().Key('A');
  EXPECT_EQ(Inner().txtMain.Text(), "");
}

TEST_F(ComposedKeysTest, AKeyThatRepeatsIsUsedOrNotEachTime) {
  user_ = "inner";
  Driver().KeyDown('A', 0);
  user_ = "";
  Driver().KeyDown('A', 0);
  Driver().KeyUp('A', 0);
  EXPECT_EQ(Inner().txtMain.Text(), "a");
}

TEST_F(ComposedKeysTest, APreviewMayChangeAKeyAndZeroMarksItAsUsed) {
  user_ = "outer";
  also_ = [](KeyMessage& key) {
    if (key.kind == KeyMessage::Kind::kCharacter) key.code = 'Z';
  };
  Driver().Key('A');
  EXPECT_EQ(Inner().txtMain.Text(), "Z");
  TakeLog();
  also_ = [](KeyMessage& key) {
    if (key.kind == KeyMessage::Kind::kDown) key.code = 0;
  };
  Driver().KeyDown('B', 0);
  EXPECT_THAT(TakeLog(), ElementsAre("inner down 66", "outer down 66", "container down 0"));
  Driver().KeyUp('B', 0);
  EXPECT_EQ(Inner().txtMain.Text(), "Z");
}

class ComposedOnFormTest : public DesktopTest {
 protected:
  Composed& Make(const std::string& name = "cmp", TwipPoint at = kAt) {
    auto& made = AddNew<Composed>(name, at, kSize);
    Driver().Settle();
    return made;
  }
  Composed& Other() { return Make("other", {Twips(300), Twips(2400)}); }
  PixelPoint Inside(WindowHandle window, PixelPoint at) {
    Windows().ClientToScreen(window, at);
    return at;
  }
  void Focus(Control& control) {
    Hosted(control).SetFocus();
    Driver().Settle();
  }
};

TEST_F(ComposedOnFormTest, EnterAndEscapeThatTheControlUsesReachNeitherTheDefaultNorTheCancelButton) {
  Composed& cmp = Make();
  auto& ok = AddNew<FlatButton>("cmdOK", {Twips(300), Twips(3000)});
  auto& cancel = AddNew<FlatButton>("cmdCancel", {Twips(300), Twips(3600)});
  Hosted(ok).SetDefault(true);
  Hosted(cancel).SetCancel(true);
  std::vector<std::string> clicks;
  ok.Click += [&] { clicks.push_back("ok"); };
  cancel.Click += [&] { clicks.push_back("cancel"); };
  std::vector<std::string> heard;
  cmp.KeyDown += [&](std::int16_t& code, std::int16_t&) { heard.push_back(std::to_string(code)); };
  cmp.KeyPress += [&](std::int16_t& code) { heard.push_back("'" + std::to_string(code)); };
  bool uses = true;
  cmp.preview = [&](KeyMessage& key) {
    return uses && key.kind == KeyMessage::Kind::kDown && (key.code == kKeyEnter || key.code == kKeyEscape);
  };
  Focus(cmp);
  Driver().Key(kKeyEnter);
  Driver().Key(kKeyEscape);
  cmp.Open();
  Driver().Key(kKeyEnter);
  Driver().Key(kKeyEscape);
  EXPECT_THAT(clicks, IsEmpty());
  EXPECT_THAT(heard, IsEmpty());
  uses = false;
  Driver().Key(kKeyEnter);  // also from the panel on the desktop
  cmp.Close();
  Driver().Key(kKeyEscape);
  EXPECT_THAT(clicks, ElementsAre("ok", "cancel"));
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(ComposedOnFormTest, AUsedKeyThatMovesTheFocusTypesNothingIntoTheOtherControl) {
  Composed& cmp = Make();
  Composed& other = Other();
  cmp.preview = [&](KeyMessage& key) {
    if (key.kind != KeyMessage::Kind::kDown) return false;
    Hosted(other).SetFocus();
    return true;
  };
  std::vector<std::string> seen;
  other.preview = [&](KeyMessage& key) {
    seen.push_back(TextOf("other", key));
    return false;
  };
  Focus(cmp);
  Driver().Key('A');
  EXPECT_EQ(Windows().GetFocus(), other.txtMain.hWnd());
  EXPECT_EQ(other.txtMain.Text(), "");
  EXPECT_THAT(seen, ElementsAre("other up 65"));
  Driver().Key('B');
  EXPECT_EQ(other.txtMain.Text(), "b");
}

TEST_F(ComposedOnFormTest, TabInTheFormIsSeenByThePreviewAndItsCharacterByNobody) {
  Composed& cmp = Make();
  Composed& other = Other();
  std::vector<std::string> seen;
  cmp.preview = [&](KeyMessage& key) {
    seen.push_back(TextOf("cmp", key));
    return false;
  };
  other.preview = [&](KeyMessage& key) {
    seen.push_back(TextOf("other", key));
    return false;
  };
  Focus(cmp);
  Driver().Key(kKeyTab);
  EXPECT_THAT(seen, ElementsAre("cmp down 9", "other up 9"));
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "other");
}

// --- Focus -------------------------------------------------------------------------------------------

TEST_F(ComposedOnFormTest, TheFocusGoingAmongPartsAndToThePanelOnTheDesktopIsOneEntryAndOneExit) {
  Composed& cmp = Make();
  Composed& other = Other();
  Focus(cmp);
  EXPECT_EQ(Windows().GetFocus(), cmp.txtMain.hWnd());
  cmp.txtInner.SetFocus();
  cmp.txtMain.SetFocus();
  cmp.picPanel.SetFocus();
  Focus(cmp);
  cmp.Open();
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), cmp.picPanel.hWnd());
  EXPECT_EQ(Windows().GetActiveWindow(), cmp.picPanel.hWnd());
  cmp.txtInner.SetFocus();
  cmp.Close();
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), cmp.txtMain.hWnd());
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "cmp");
  EXPECT_THAT(cmp.notes, ElementsAre("enter"));
  Focus(other);
  EXPECT_THAT(cmp.notes, ElementsAre("enter", "exit"));
  EXPECT_THAT(other.notes, ElementsAre("enter"));
}

TEST_F(ComposedOnFormTest, LeavingThePanelOnTheDesktopForAnotherControlIsTheExit) {
  Composed& cmp = Make();
  Composed& other = Other();
  Focus(cmp);
  cmp.Open();
  Focus(other);
  EXPECT_THAT(cmp.notes, ElementsAre("enter", "exit"));
  EXPECT_THAT(other.notes, ElementsAre("enter"));
  cmp.Close();  // no longer has the focus, and gives it to nobody
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), other.txtMain.hWnd());
}

TEST_F(ComposedOnFormTest, TheControlIsLeftWhenNobodyGetsTheFocus) {
  Composed& cmp = Make();
  Focus(cmp);
  Windows().SetFocus({});
  Driver().Settle();
  EXPECT_THAT(cmp.notes, ElementsAre("enter", "exit"));
}

TEST_F(ComposedOnFormTest, TheControlAroundIsEnteredAndLeftWithTheOneInside) {
  auto& outer = AddNew<Outer>("out", kAt, kSize);
  Composed& other = Other();
  Composed& inner = *outer.cmpInner;
  Focus(outer);
  inner.Open();
  inner.txtInner.SetFocus();
  inner.Close();
  Windows().SetFocus(outer.GetSurface().hWnd());
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), inner.txtMain.hWnd());
  EXPECT_THAT(outer.notes, ElementsAre("enter"));
  Focus(other);
  EXPECT_EQ(outer.notes, (std::vector<std::string>{"enter", "exit"}));
  EXPECT_EQ(inner.notes.front(), "enter");
  EXPECT_EQ(inner.notes.back(), "exit");
}

TEST_F(ComposedOnFormTest, AControlInsideAnotherIsNotLeftForItsPanelOnTheDesktop) {
  auto& outer = AddNew<Outer>("out", kAt, kSize);
  Composed& inner = *outer.cmpInner;
  Focus(outer);
  inner.notes.clear();
  inner.Open();
  inner.txtInner.SetFocus();
  inner.txtMain.SetFocus();
  inner.Close();
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), inner.txtMain.hWnd());
  EXPECT_THAT(inner.notes, IsEmpty());
  EXPECT_THAT(outer.notes, ElementsAre("enter"));
}

TEST_F(ComposedOnFormTest, APanelTakesTheFocusByAPressOnlyWhenAskedTo) {
  Composed& cmp = Make();
  Focus(cmp);
  const PixelPoint at = Inside(cmp.picPanel.hWnd(), {3, 3});
  Driver().Click(at);
  EXPECT_EQ(Windows().GetFocus(), cmp.txtMain.hWnd());
  cmp.picPanel.SetFocusByPress(true);
  Driver().Advance(1000);
  Driver().Click(at);
  EXPECT_EQ(Windows().GetFocus(), cmp.picPanel.hWnd());
  EXPECT_THAT(cmp.notes, ElementsAre("enter"));
}

TEST_F(ComposedOnFormTest, ADisabledControlGivesUpTheFocusOfItsPartsAndHearsNoKey) {
  Composed& cmp = Make();
  int keys = 0;
  cmp.preview = [&](KeyMessage&) { return ++keys, false; };
  for (const bool on_desktop : {false, true}) {
    cmp.notes.clear();
    Focus(cmp);
    if (on_desktop) cmp.Open();
    cmp.txtInner.SetFocus();
    cmp.SetEnabled(false);
    Driver().Settle();
    EXPECT_THAT(cmp.notes, ElementsAre("enter", "exit"));
    Driver().Key('A');
    EXPECT_EQ(keys, 0);
    EXPECT_EQ(cmp.txtInner.Text(), "");
    cmp.SetEnabled(true);
  }
}

TEST_F(ComposedOnFormTest, APressBesideThePartsLeavesTheFocusWithThePartThatHasIt) {
  Composed& cmp = Make();
  Focus(cmp);
  cmp.txtInner.SetFocus();
  Driver().Click(Inside(cmp.GetSurface().hWnd(), {90, 5}));
  EXPECT_EQ(Windows().GetFocus(), cmp.txtInner.hWnd());
}

// --- Pointer -----------------------------------------------------------------------------------------

TEST_F(ComposedOnFormTest, AClickReachesALabelInsideAFrameInsideAPanelOnTheDesktop) {
  Composed& cmp = Make();
  std::vector<std::string> heard;
  cmp.flblInner->MouseDown += [&](auto, auto, Twips x, Twips y) {
    heard.push_back("down " + std::to_string(static_cast<int>(x.value)) + " " +
                    std::to_string(static_cast<int>(y.value)));
  };
  cmp.flblInner->Click += [&] { heard.push_back("click"); };
  cmp.frmInner.Click += [&] { heard.push_back("frame"); };
  cmp.picPanel.Click += [&] { heard.push_back("panel"); };
  Driver().Click(Inside(cmp.flblInner.hWnd(), {5, 6}));
  EXPECT_THAT(heard, ElementsAre("down 75 90", "click"));
  heard.clear();
  cmp.Open();
  Driver().Settle();
  Driver().Advance(1000);
  Driver().Click(Inside(cmp.flblInner.hWnd(), {5, 6}));
  EXPECT_THAT(heard, ElementsAre("down 75 90", "click"));
  EXPECT_EQ(Windows().GetFocus(), cmp.picPanel.hWnd());
}

// --- Life --------------------------------------------------------------------------------------------

TEST_F(ComposedOnFormTest, APanelOnTheDesktopIsDestroyedWithItsControl) {
  for (const bool closes : {false, true}) {
    Composed& cmp = Make();
    Focus(cmp);
    cmp.Open();
    const WindowHandle panel = cmp.picPanel.hWnd();
    ASSERT_TRUE(Windows().IsWindowVisible(panel));
    if (closes) {
      TheForm().Close();
    } else {
      TheForm().Remove("cmp");
    }
    EXPECT_FALSE(Windows().IsWindow(panel));
    MakeForm({});
  }
}

TEST_F(ComposedOnFormTest, APanelOnTheDesktopIsDestroyedAtOnceWhenItsOwnKeyRemovesTheControl) {
  Composed& cmp = Make();
  cmp.Open();
  const WindowHandle panel = cmp.picPanel.hWnd();
  bool there_afterwards = true;
  cmp.picPanel.KeyDown += [&](auto...) {
    TheForm().Remove("cmp");
    there_afterwards = Windows().IsWindow(panel);
  };
  Driver().Key('A');
  EXPECT_FALSE(there_afterwards);
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
}

TEST_F(ComposedOnFormTest, APanelOfAControlInsideAnotherIsDestroyedToo) {
  auto& outer = AddNew<Outer>("out", kAt, kSize);
  outer.cmpInner->Open();
  const WindowHandle panel = outer.cmpInner->picPanel.hWnd();
  const auto hold = outer.shared_from_this();  // as running code does
  TheForm().Remove("out");
  EXPECT_FALSE(Windows().IsWindow(panel));
}

TEST_F(ComposedOnFormTest, TheTimerTicksAndEndsWithTheControl) {
  Composed& cmp = Make();
  int ticks = 0;
  cmp.Tick += [&] { ++ticks; };
  cmp.timStatus.SetEnabled(true);
  Driver().Advance(350);
  EXPECT_GE(ticks, 2);
  TheForm().Remove("cmp");
  const int before = ticks;
  Driver().Advance(350);
  EXPECT_EQ(ticks, before);
}

// Each of these happens to the control when Exercise() runs.
using Subscribe = std::function<void(Composed&, std::function<void()>)>;
struct Cause {
  const char* name;
  Subscribe subscribe;
};

const std::vector<Cause>& Causes() {
  static const std::vector<Cause> causes{
      {"preview", [](Composed& c, auto act) { c.preview = [act](KeyMessage&) { return act(), false; }; }},
      {"edit key down", [](Composed& c, auto act) { c.txtMain.KeyDown += [act](auto&...) { act(); }; }},
      {"edit key press", [](Composed& c, auto act) { c.txtMain.KeyPress += [act](auto&) { act(); }; }},
      {"edit change", [](Composed& c, auto act) { c.txtMain.Change += act; }},
      {"inner edit key down",
       [](Composed& c, auto act) { c.txtInner.KeyDown += [act](auto&...) { act(); }; }},
      {"inner edit key up", [](Composed& c, auto act) { c.txtInner.KeyUp += [act](auto...) { act(); }; }},
      {"panel key down", [](Composed& c, auto act) { c.picPanel.KeyDown += [act](auto...) { act(); }; }},
      {"panel key press", [](Composed& c, auto act) { c.picPanel.KeyPress += [act](auto&) { act(); }; }},
      {"panel key up", [](Composed& c, auto act) { c.picPanel.KeyUp += [act](auto...) { act(); }; }},
      {"panel press", [](Composed& c, auto act) { c.picPanel.MouseDown += [act](auto...) { act(); }; }},
      {"panel move", [](Composed& c, auto act) { c.picPanel.MouseMove += [act](auto...) { act(); }; }},
      {"panel release", [](Composed& c, auto act) { c.picPanel.MouseUp += [act](auto...) { act(); }; }},
      {"panel click", [](Composed& c, auto act) { c.picPanel.Click += act; }},
      {"panel double click", [](Composed& c, auto act) { c.picPanel.DblClick += act; }},
      {"panel resize", [](Composed& c, auto act) { c.picPanel.Resize += act; }},
      {"frame paint", [](Composed& c, auto act) { c.frmInner.Paint += act; }},
      {"text press", [](Composed& c, auto act) { c.lblOver.MouseDown += [act](auto...) { act(); }; }},
      {"text move", [](Composed& c, auto act) { c.lblOver.MouseMove += [act](auto...) { act(); }; }},
      {"text release", [](Composed& c, auto act) { c.lblOver.MouseUp += [act](auto...) { act(); }; }},
      {"text click", [](Composed& c, auto act) { c.lblOver.Click += act; }},
      {"text double click", [](Composed& c, auto act) { c.lblOver.DblClick += act; }},
      {"label press", [](Composed& c, auto act) { c.flblInner->MouseDown += [act](auto...) { act(); }; }},
      {"label release", [](Composed& c, auto act) { c.flblInner->MouseUp += [act](auto...) { act(); }; }},
      {"label click", [](Composed& c, auto act) { c.flblInner->Click += act; }},
      {"tick", [](Composed& c, auto act) { c.Tick += act; }},
  };
  return causes;
}

class ComposedLifeTest : public ComposedOnFormTest, public ::testing::WithParamInterface<std::size_t> {
 protected:
  // Everything that raises one of the events, until the control has gone.
  void Exercise(const std::string& name, bool on_desktop) {
    const auto cmp = [&]() -> Composed* {
      const auto found = TheForm().Closed() ? nullptr : TheForm().Find(name);
      return found && found->GetControl() ? &dynamic_cast<Composed&>(*found->GetControl()) : nullptr;
    };
    const std::vector<std::function<void()>> steps{
        [&] { Focus(*cmp()); },
        [&] { Driver().Key('A'); },
        [&] {
          if (on_desktop) cmp()->Open();
        },
        [&] { cmp()->picPanel.SetFocus(); },
        [&] { Driver().Key('B'); },
        [&] { cmp()->txtInner.SetFocus(); },
        [&] { Driver().Key('C'); },
        [&] {
          Driver().DoubleClick(Inside(cmp()->picPanel.hWnd(), {3, 3}));
        },
        [&] {
          Driver().DoubleClick(Inside(cmp()->frmInner.hWnd(), {50, 50}));
        },
        [&] {
          Driver().Click(Inside(cmp()->flblInner.hWnd(), {5, 5}));
        },
        [&] { cmp()->frmInner.Refresh(); },
        [&] { cmp()->timStatus.SetEnabled(true); },
        [&] { Driver().Advance(250); },
        [&] {
          cmp()->picPanel.Move({}, {Twips(1500), Twips(600)});
        },
    };
    for (const auto& step : steps) {
      if (!cmp()) return;
      step();
      Driver().Settle();
    }
  }
};

TEST_P(ComposedLifeTest, AListenerMayRemoveTheControlOrCloseTheForm) {
  const Cause& cause = Causes()[GetParam()];
  for (const bool on_desktop : {false, true}) {
    for (const bool closes : {false, true}) {
      MakeForm({});
      Other();
      Composed& cmp = Make("doomed");
      bool acted = false;
      cause.subscribe(cmp, [&, this] {
        acted = true;
        if (closes) {
          TheForm().Close();
        } else {
          TheForm().Remove("doomed");
        }
      });
      Exercise("doomed", on_desktop);
      EXPECT_TRUE(acted) << cause.name;
      EXPECT_TRUE(TheForm().Closed() || !TheForm().Find("doomed")) << cause.name;
      for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
        EXPECT_EQ(window.handle, TheForm().hWnd()) << cause.name << " leaves a window behind";
      }
      Driver().MovePointer({1000, 750});
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Causes, ComposedLifeTest, ::testing::Range(std::size_t{0}, std::size_t{25}),
                         [](const auto& tried) {
                           std::string name = Causes()[tried.param].name;
                           std::ranges::replace(name, ' ', '_');
                           return name;
                         });

}  // namespace
}  // namespace levelwidgets::testing
