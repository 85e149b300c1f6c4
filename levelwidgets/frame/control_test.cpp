// The host contract, on a control made for the test.
#include <levelwidgets/frame/control_with.h>
#include <levelwidgets/frame/hover.h>
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Writes every notification down.
class Probe : public ControlWith<ClickEvents> {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<Probe>;
    static constexpr auto data =
        ClassTable(ControlClass<Probe>("Probe", "Writes its notifications down."),
                   table::Properties(Row::Property<&Probe::Level, &Probe::SetLevel>(
                       1, "Level", {.when_new = 0, .when_read = 1, .when_written = 2}, "",
                       {.stored_as = VariantType::kInt16})),
                   table::Persisted("Level"), table::Methods(),
                   table::Events(Row::Event<&Probe::Click>(1, "Click", "", "")));
    static constexpr ClassInfo info(data);
    return info;
  }
  static inline std::vector<std::string> notes;

  explicit Probe(std::shared_ptr<ControlSite> site)
      : ControlWith(std::move(site),
                    {.back_color = Color(0x00FF0000), .fore_color = Color(0x000000FF), .font = {}}) {}

  std::int32_t Level() const { return level_; }
  void SetLevel(std::int32_t level) {
    if (level == 13) RaiseControlError(kInvalidValueCode, "Probe", "Invalid Value");
    level_ = level;
    Note("SetLevel " + std::to_string(level));
  }

  const ClassInfo& Class() const override { return Table(); }
  void OnInitialize() override { Note("Initialize"); }
  void OnInitProperties() override { Note("InitProperties"); }
  void OnReadProperties(const PropertyBag& bag) override {
    Note("ReadProperties");
    Control::OnReadProperties(bag);
  }
  void OnResize() override { Note("Resize"); }
  void OnPaint() override {
    GetSurface().Cls();
    Note("Paint");
  }
  void OnTerminate() override { Note("Terminate"); }
  void OnEnterFocus() override { Note("EnterFocus"); }
  void OnExitFocus() override { Note("ExitFocus"); }
  void OnMouseDown(const PointerInput& input) override { Note("MouseDown " + std::to_string(input.button)); }
  void OnMouseUp(const PointerInput& input) override { Note("MouseUp " + std::to_string(input.button)); }
  void OnClick() override { Note("Click"); }
  void OnDblClick() override { Note("DblClick"); }
  // Only a real keyboard reports the modifier keys themselves.
  static bool IsModifier(std::int16_t code) { return code >= kKeyShift && code <= kKeyAlt; }
  void OnKeyDown(std::int16_t code, std::int16_t shift) override {
    if (IsModifier(code)) return;
    Note("KeyDown " + std::to_string(code) + " " + std::to_string(shift));
  }
  void OnKeyPress(std::int16_t& key_ascii) override { Note("KeyPress " + std::to_string(key_ascii)); }
  void OnKeyUp(std::int16_t code, std::int16_t shift) override {
    if (IsModifier(code)) return;
    Note("KeyUp " + std::to_string(code) + " " + std::to_string(shift));
  }

 private:
  static void Note(std::string note) { notes.push_back(std::move(note)); }
  std::int32_t level_ = 0;
};

class ControlTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    TheForm();
    Probe::notes.clear();
  }
  static std::vector<std::string> TakeNotes() { return std::exchange(Probe::notes, {}); }
};

TEST_F(ControlTest, ANewInstanceRunsInitializeInitPropertiesResizePaint) {
  AddNew<Probe>("prb");
  const auto notes = TakeNotes();
  ASSERT_GE(notes.size(), 4u);
  EXPECT_EQ(notes[0], "Initialize");
  EXPECT_EQ(notes[1], "InitProperties");
  EXPECT_EQ(notes[2], "Resize");
  EXPECT_EQ(notes.back(), "Paint");
}

TEST_F(ControlTest, ALoadedInstanceRunsReadPropertiesInsteadThroughTheWriteAccessors) {
  AddLoaded<Probe>("prb");
  const auto notes = TakeNotes();
  ASSERT_GE(notes.size(), 5u);
  EXPECT_EQ(notes[0], "Initialize");
  EXPECT_EQ(notes[1], "ReadProperties");
  EXPECT_EQ(notes[2], "SetLevel 1");
  EXPECT_EQ(notes[3], "Resize");
  EXPECT_EQ(notes.back(), "Paint");
}

TEST_F(ControlTest, TerminateIsTheLastNotification) {
  AddNew<Probe>("prb");
  TakeNotes();
  TheForm().Remove("prb");
  EXPECT_THAT(TakeNotes(), ElementsAre("Terminate"));
}

TEST_F(ControlTest, DefaultsOfReadingAndWritingMayDiffer) {
  auto& probe = AddLoaded<Probe>("prb");
  EXPECT_EQ(probe.Level(), 1);
  EXPECT_EQ(Hosted(probe).Properties().Entries().size(), 1u);
  EXPECT_EQ(Hosted(probe).Properties().Entries()[0].value.Type(), VariantType::kInt16);
  probe.SetLevel(2);
  EXPECT_TRUE(Hosted(probe).Properties().Entries().empty());
}

TEST_F(ControlTest, ASavedValueThatTheControlRefusesIsRaisedWithItsPropertyAndNothingIsAdded) {
  PropertyBag bag;
  bag.WriteProperty("Level", 13, 0);
  try {
    AddLoaded<Probe>("prb", bag);
    FAIL();
  } catch (const PropertyRefused& refused) {
    EXPECT_EQ(refused.Property(), "Level");
    EXPECT_EQ(refused.Number(), ObjectErrorNumber(kInvalidValueCode));
    EXPECT_EQ(refused.Source(), "LevelWidgets.Probe");
  }
  EXPECT_FALSE(TheForm().Find("prb"));
}

TEST_F(ControlTest, AStoredValueBeyondItsStoredTypeIsRefused) {
  auto& probe = AddNew<Probe>("prb");
  probe.SetLevel(40000);
  try {
    Hosted(probe).Properties();
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kOverflow);
  }
}

TEST_F(ControlTest, ASurfaceOfNoSizeHasAnEmptyClientRectangle) {
  auto& probe = AddNew<Probe>("prb", {}, {Twips(0), Twips(0)});
  EXPECT_EQ(probe.GetSurface().ClientPixels(), (PixelRect{0, 0, 0, 0}));
}

TEST_F(ControlTest, TheClientRectangleIsTheScaleByTheRoundingDivision) {
  auto& probe = AddNew<Probe>("prb", {}, {Twips(22.5f), Twips(37.5f)});
  EXPECT_EQ(probe.GetSurface().ScaleWidth(), Twips(22.5f));
  EXPECT_EQ(probe.GetSurface().ClientPixels(), (PixelRect{0, 0, 1, 2}));
}

TEST_F(ControlTest, MovingWithoutANewSizeDoesNotResize) {
  auto& probe = AddNew<Probe>("prb");
  TakeNotes();
  Hosted(probe).SetLeft(Twips(900));
  const auto notes = TakeNotes();
  EXPECT_EQ(std::ranges::count(notes, "Resize"), 0);
}

TEST_F(ControlTest, TheFocusFollowsThePressAndTheClickFollowsTheRelease) {
  auto& probe = AddNew<Probe>("prb");
  AddNew<Probe>("other", {Twips(0), Twips(3000)});
  TheForm().Find("other")->SetFocus();
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Settle();
  TakeNotes();
  Driver().Press(kLeftButton);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseDown 1", "ExitFocus", "EnterFocus"));
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseUp 1", "Click"));
}

TEST_F(ControlTest, ThePlatformsPressCaptureHasEndedWhenTheReleaseArrives) {
  auto& probe = AddNew<Probe>("prb");
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Press(kLeftButton);
  EXPECT_EQ(Windows().GetCapture(), probe.GetSurface().hWnd());
  Driver().Release(kLeftButton);
  EXPECT_FALSE(Windows().GetCapture());
}

TEST_F(ControlTest, OnlyALeftReleaseInsideTheControlClicks) {
  auto& probe = AddNew<Probe>("prb");
  Driver().Click(ScreenPoint(probe, PixelPoint{5, 5}));
  TakeNotes();
  Driver().Press(kLeftButton);
  Driver().Advance(1000);
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, -20}));
  Driver().Release(kLeftButton);
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  const auto notes = TakeNotes();
  EXPECT_EQ(std::ranges::count(notes, "Click"), 0);
}

TEST_F(ControlTest, APressThatLosesTheCaptureDoesNotClickAndANewOneDoes) {
  auto& probe = AddNew<Probe>("prb");
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Press(kLeftButton);
  Windows().ReleaseCapture();
  TakeNotes();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseUp 1"));
  Driver().Advance(1000);
  Driver().Press(kLeftButton);
  TakeNotes();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseUp 1", "Click"));
}

TEST_F(ControlTest, APointerButtonsStateIsKnownToWhoeverAsksAlsoWhenTheReleaseGoesElsewhere) {
  auto& probe = AddNew<Probe>("prb");
  EXPECT_GE(Windows().GetAsyncKeyState(kKeyLeftButton), 0);
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Press(kLeftButton);
  EXPECT_LT(Windows().GetAsyncKeyState(kKeyLeftButton), 0);
  Windows().ReleaseCapture();
  Driver().MovePointer({1000, 750});  // over no form
  EXPECT_LT(Windows().GetAsyncKeyState(kKeyLeftButton), 0);
  Driver().Release(kLeftButton);
  EXPECT_GE(Windows().GetAsyncKeyState(kKeyLeftButton), 0);
}

TEST_F(ControlTest, TheSecondClickOfADoubleClickArrivesOnlyAsDoubleClick) {
  auto& probe = AddNew<Probe>("prb");
  Hosted(probe).SetFocus();
  Driver().Settle();
  Driver().MovePointer(ScreenPoint(probe, PixelPoint{5, 5}));
  TakeNotes();
  Driver().DoubleClick(ScreenPoint(probe, PixelPoint{5, 5}));
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseDown 1", "MouseUp 1", "Click", "DblClick", "MouseUp 1"));
}

TEST_F(ControlTest, TwoClicksFarApartInTimeDoNotDoubleClick) {
  auto& probe = AddNew<Probe>("prb");
  Driver().Click(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Advance(1500);
  TakeNotes();
  Driver().Click(ScreenPoint(probe, PixelPoint{5, 5}));
  EXPECT_THAT(TakeNotes(), ElementsAre("MouseDown 1", "MouseUp 1", "Click"));
}

TEST_F(ControlTest, KeysArriveAsDownCharacterUpWithTheirShiftBits) {
  auto& probe = AddNew<Probe>("prb");
  Hosted(probe).SetFocus();
  Driver().Settle();
  TakeNotes();
  Driver().Key('A');
  EXPECT_THAT(TakeNotes(), ElementsAre("KeyDown 65 0", "KeyPress 97", "KeyUp 65 0"));
  Driver().Key('A', kCtrlMask);
  EXPECT_THAT(TakeNotes(), ElementsAre("KeyDown 65 2", "KeyPress 1", "KeyUp 65 2"));
  Driver().Key(kKeyLeft);
  EXPECT_THAT(TakeNotes(), ElementsAre("KeyDown 37 0", "KeyUp 37 0"));
}

TEST_F(ControlTest, ADisabledControlGetsNoInput) {
  auto& probe = AddNew<Probe>("prb");
  Hosted(probe).SetFocus();
  probe.GetSurface().SetEnabled(false);
  Driver().Settle();
  TakeNotes();
  Driver().Click(ScreenPoint(probe, PixelPoint{5, 5}));
  Driver().Key('A');
  const auto notes = TakeNotes();
  EXPECT_EQ(std::ranges::count(notes, "MouseDown 1"), 0);
  EXPECT_EQ(std::ranges::count(notes, "KeyDown 65 0"), 0);
}

TEST_F(ControlTest, RefreshPaintsAtOnce) {
  auto& probe = AddNew<Probe>("prb");
  TakeNotes();
  probe.GetSurface().Refresh();
  EXPECT_THAT(TakeNotes(), ElementsAre("Paint"));
}

TEST_F(ControlTest, ClsFillsTheSurfaceWithItsBackColor) {
  auto& probe = AddNew<Probe>("prb");
  EXPECT_EQ(PixelAt(probe, {0, 0}), ColorRef{0x00FF0000});
  EXPECT_EQ(PixelAt(probe, {79, 24}), ColorRef{0x00FF0000});
  EXPECT_EQ(PixelAt(probe, {80, 24}), Concrete(TheForm().BackColor()));
}

TEST_F(ControlTest, AssigningSurfaceColoursRepaintsNothing) {
  auto& probe = AddNew<Probe>("prb");
  TakeNotes();
  probe.GetSurface().SetBackColor(Color(1));
  probe.GetSurface().SetForeColor(Color(2));
  Driver().Settle();
  EXPECT_THAT(TakeNotes(), IsEmpty());
}

// --- Drawing services --------------------------------------------------------------------------------

TEST_F(ControlTest, SystemColoursAreTranslatedAndConcreteOnesUnchanged) {
  EXPECT_EQ(TranslateColor(Drawing(), Color(0x8000000F)), Drawing().GetSysColor(kColorButtonFace));
  EXPECT_EQ(TranslateColor(Drawing(), Color(0x8000000F)).value & 0xFF000000u, 0u);
  EXPECT_EQ(TranslateColor(Drawing(), Color(0x00123456)), ColorRef{0x00123456});
}

TEST_F(ControlTest, AnInvalidColourBecomesMinusOne) {
  EXPECT_EQ(TranslateColor(Drawing(), Color(0x80000100)), kInvalidColorRef);
}

TEST_F(ControlTest, TheFillProcedureKeepsNoBrush) {
  auto& probe = AddNew<Probe>("prb");
  Tracer().Start();
  Tracer().TakeCalls();
  FillOutlined(Drawing(), probe.GetSurface().hDC(), {2, 2, 10, 10}, Color(0x0000FF00),
               [&] { Drawing().SetTextColor(probe.GetSurface().hDC(), ColorRef{0}); });
  EXPECT_THAT(Names(Tracer().TakeCalls()),
              ElementsAre("OleTranslateColor", "CreateSolidBrush", "SelectObject", "Rectangle",
                          "SetTextColor", "SelectObject", "DeleteObject"));
  EXPECT_EQ(Driver().PixelAt(ScreenPoint(probe, PixelPoint{2, 2})), ColorRef{0x000000FF});
  EXPECT_EQ(Driver().PixelAt(ScreenPoint(probe, PixelPoint{3, 3})), ColorRef{0x0000FF00});
  EXPECT_EQ(Driver().PixelAt(ScreenPoint(probe, PixelPoint{9, 9})), ColorRef{0x000000FF});
  EXPECT_EQ(Driver().PixelAt(ScreenPoint(probe, PixelPoint{10, 10})), ColorRef{0x00FF0000});
}

// --- Timer -------------------------------------------------------------------------------------------

TEST_F(ControlTest, ATimerTicksWhileEnabledAndRestartsOnANewInterval) {
  auto& probe = AddNew<Probe>("prb");
  int ticks = 0;
  Timer timer(probe, 100, [&] { ++ticks; });
  Driver().Advance(250);
  EXPECT_EQ(ticks, 0);
  timer.SetEnabled(true);
  while (ticks < 2) Driver().Advance(10);
  timer.SetInterval(50);
  while (ticks < 5) Driver().Advance(10);
  timer.SetEnabled(false);
  const int stopped = ticks;
  Driver().Advance(200);
  EXPECT_EQ(ticks, stopped);
}

TEST_F(ControlTest, AnIntervalOfZeroNeverTicks) {
  auto& probe = AddNew<Probe>("prb");
  int ticks = 0;
  Timer timer(probe, 0, [&] { ++ticks; });
  timer.SetEnabled(true);
  Driver().Advance(100);
  EXPECT_EQ(ticks, 0);
}

// --- Life --------------------------------------------------------------------------------------------

TEST_F(ControlTest, AControlThatOutlivesItsFormDrawsNothingAndBreaksNothing) {
  auto keep = AddNew<Probe>("prb").shared_from_this();
  MakeForm({});
  auto& probe = dynamic_cast<Probe&>(*keep);
  EXPECT_FALSE(probe.GetSurface().hWnd());
  probe.OnPaint();
  probe.GetSurface().SetForeColor(Color(1));
  probe.GetSurface().SetFont(MakeFont());
  probe.GetSurface().Refresh();
  EXPECT_FALSE(probe.Site().UserMode());
}

TEST_F(ControlTest, TenThousandRoundsOfCreationLeaveNothing) {
  TheForm();
  const std::size_t objects = Driver().LiveObjects();
  const std::size_t windows = Driver().LiveWindows();
#ifdef _WIN32
  constexpr int kRounds = 500;  // each is a dozen round trips to the system's server
#else
  constexpr int kRounds = 10000;
#endif
  for (int round = 0; round < kRounds; ++round) {
    TheForm().Add(Probe::Table(), "prb");
    TheForm().Remove("prb");
  }
  Probe::notes.clear();
  EXPECT_EQ(Driver().LiveObjects(), objects);
  EXPECT_EQ(Driver().LiveWindows(), windows);
}

}  // namespace
}  // namespace levelwidgets::testing
