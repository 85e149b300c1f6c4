// Panels and the parts without a window that they paint, in a control made for the test.
#include <levelwidgets/frame/parts/line_shape.h>
#include <levelwidgets/frame/parts/picture_box.h>
#include <levelwidgets/frame/parts/text_label.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Color kRed{0x000000FF};
constexpr Color kGreen{0x0000FF00};
constexpr Color kBlue{0x00FF0000};
constexpr Color kWhite{0x00FFFFFF};

// A panel of 100 by 60 pixels at (10, 10) with two texts and a line.
class Board : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data = ClassTable(ControlClass<Board>("Board", "A panel."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Board(std::shared_ptr<ControlSite> site)
      : Control(std::move(site),
                {.back_color = Color(0x00C0C0C0), .fore_color = Color(0), .font = {.name = "Arial"}}) {
    picMain.SetBackColor(kBlue);
    picMain.Move({Twips(150), Twips(150)}, {Twips(1500), Twips(900)});
    lblFirst.SetBackColor(kRed);
    lblFirst.Move({Twips(150), Twips(150)}, {Twips(600), Twips(300)});
    lblSecond.SetBackColor(kGreen);
    lblSecond.Move({Twips(450), Twips(150)}, {Twips(600), Twips(300)});
    LineMain.SetBorderColor(kWhite);
    LineMain.Move({Twips(300), Twips(300)}, {Twips(1200), Twips(300)});
    picMain.SetVisible(true);
  }
  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override { GetSurface().Cls(); }

  PictureBox picMain{*this};
  TextLabel lblFirst{picMain};
  TextLabel lblSecond{picMain};
  LineShape LineMain{picMain};
};

class PictureBoxTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    board_ = &AddNew<Board>("brd", {Twips(300), Twips(300)}, {Twips(3000), Twips(1500)});
  }
  Board& TheBoard() { return *board_; }
  PictureBox& Panel() { return board_->picMain; }
  PixelPoint OnScreen(PixelPoint inside) {
    Windows().ClientToScreen(Panel().hWnd(), inside);
    return inside;
  }
  ColorRef Pixel(PixelPoint inside) {
    Driver().Settle();
    return Driver().PixelAt(OnScreen(inside));
  }
  // The fills and lines that a paint makes on the panel, in order.
  Journal PaintingCalls() {
    Tracer().Start();
    Tracer().TakeCalls();
    Panel().Refresh();
    Journal calls;
    for (const TracedCall& call : Tracer().TakeCalls()) {
      if (call.name != "FillRect" && call.name != "LineTo" && call.name != "DrawTextA") continue;
      if (std::get<std::int64_t>(call.arguments[0]) != Panel().GetSurface().hDC().value) continue;
      std::string entry = call.name;
      if (call.name == "DrawTextA") {
        entry += " " + std::get<std::string>(call.arguments[1]);
      } else {
        entry += " " + std::to_string(std::get<std::int64_t>(call.arguments[1])) + " " +
                 std::to_string(std::get<std::int64_t>(call.arguments[2]));
      }
      calls.push_back(entry);
    }
    return calls;
  }
  void Log(TextLabel& label, const std::string& name) {
    label.MouseDown += [=, this](std::int16_t button, auto, Twips x, Twips y) {
      Note(name + " down " + std::to_string(button), x, y);
    };
    label.MouseMove += [=, this](auto, auto, Twips x, Twips y) { Note(name + " move", x, y); };
    label.MouseUp += [=, this](std::int16_t button, auto, Twips x, Twips y) {
      Note(name + " up " + std::to_string(button), x, y);
    };
    label.Click += [=, this] { log_.push_back(name + " click"); };
    label.DblClick += [=, this] { log_.push_back(name + " double click"); };
  }
  void LogAll() {
    Log(TheBoard().lblFirst, "first");
    Log(TheBoard().lblSecond, "second");
    Panel().MouseDown += [this](auto, auto, Twips x, Twips y) { Note("panel down", x, y); };
    Panel().MouseUp += [this](auto, auto, Twips x, Twips y) { Note("panel up", x, y); };
    Panel().Click += [this] { log_.push_back("panel click"); };
    Panel().DblClick += [this] { log_.push_back("panel double click"); };
  }
  Journal TakeLog() { return std::exchange(log_, {}); }
  // As TakeLog, without the moves.
  Journal TakeDeeds() {
    Journal log = TakeLog();
    std::erase_if(log, [](const std::string& entry) { return entry.find("move") != std::string::npos; });
    return log;
  }

 private:
  void Note(const std::string& what, Twips x, Twips y) {
    log_.push_back(what + " " + std::to_string(static_cast<int>(x.value)) + " " +
                   std::to_string(static_cast<int>(y.value)));
  }
  Board* board_ = nullptr;
  Journal log_;
};

// --- Painting ----------------------------------------------------------------------------------------

TEST_F(PictureBoxTest, IsHiddenUntilShownAndThenCoversItsPlace) {
  EXPECT_EQ(Pixel({2, 2}), Concrete(kBlue));
  Panel().SetVisible(false);
  EXPECT_EQ(PixelAt(TheBoard(), {12, 12}), ColorRef{0x00C0C0C0});
  EXPECT_FALSE(PictureBox(TheBoard()).Visible());
}

TEST_F(PictureBoxTest, PaintsItsBackgroundThenWhatItsOwnerDrawsThenTheWindowlessPartsInOrder) {
  TheBoard().lblFirst.SetCaption("one");
  Panel().Paint += [this, rect = PixelRect{}]() mutable {
    Drawing().DrawTextA(Panel().GetSurface().hDC(), "owner", rect, 0);
  };
  Driver().Settle();
  EXPECT_THAT(PaintingCalls(),
              ElementsAre("FillRect 0 0", "DrawTextA owner", "FillRect 10 10", "DrawTextA one",
                          "FillRect 30 10", "DrawTextA ", "LineTo 80 20", "LineTo 20 20"));
  EXPECT_EQ(Pixel({40, 15}), Concrete(kGreen));  // both are there, and the later one is on top
  EXPECT_EQ(Pixel({25, 28}), Concrete(kRed));
  EXPECT_EQ(Pixel({40, 20}), Concrete(kWhite));
}

TEST_F(PictureBoxTest, ALineHasBothItsEnds) {
  EXPECT_EQ(Pixel({20, 20}), Concrete(kWhite));
  EXPECT_EQ(Pixel({80, 20}), Concrete(kWhite));
  EXPECT_EQ(Pixel({81, 20}), Concrete(kBlue));
  TheBoard().LineMain.Move({Twips(1350), Twips(600)}, {Twips(1350), Twips(150)});
  EXPECT_EQ(Pixel({90, 10}), Concrete(kWhite));
  EXPECT_EQ(Pixel({90, 40}), Concrete(kWhite));
  EXPECT_EQ(Pixel({90, 41}), Concrete(kBlue));
  EXPECT_EQ(Pixel({80, 20}), Concrete(kBlue));
}

TEST_F(PictureBoxTest, ChangesOfPartsShowTogetherWithTheNextPaint) {
  Driver().Settle();
  Tracer().Start();
  Tracer().TakeCalls();
  TheBoard().lblFirst.SetBackColor(kWhite);
  TheBoard().lblSecond.SetVisible(false);
  TheBoard().LineMain.SetBorderColor(kRed);
  std::size_t paints = 0;
  for (const TracedCall& call : Tracer().TakeCalls()) paints += call.name == "FillRect";
  EXPECT_EQ(paints, 0u);
  EXPECT_EQ(Pixel({40, 15}), Concrete(kWhite));
  EXPECT_EQ(Pixel({60, 15}), Concrete(kBlue));
  EXPECT_EQ(Pixel({40, 20}), Concrete(kRed));
}

TEST_F(PictureBoxTest, ALabelFollowsItsFontAndHasThePanelsWithoutOne) {
  TextLabel& label = TheBoard().lblFirst;
  label.SetCaption("WWWWW");
  Panel().SetFont(MakeFont({.name = "Arial", .size = 8}));
  Driver().Settle();
  const Picture small = Driver().Capture(
      {OnScreen({10, 10}).x, OnScreen({10, 10}).y, OnScreen({29, 29}).x, OnScreen({29, 29}).y});
  const auto now = [&] {
    Driver().Settle();
    return Driver().Capture(
        {OnScreen({10, 10}).x, OnScreen({10, 10}).y, OnScreen({29, 29}).x, OnScreen({29, 29}).y});
  };
  const FontRef font = MakeFont({.name = "Arial", .size = 8});
  label.SetFont(font);
  EXPECT_EQ(now().pixels, small.pixels);
  font->SetDescription({.name = "Arial", .size = 16});
  EXPECT_NE(now().pixels, small.pixels);
  label.SetFont(nullptr);
  EXPECT_EQ(now().pixels, small.pixels);
}

// --- Pointer -----------------------------------------------------------------------------------------

TEST_F(PictureBoxTest, WindowlessPartsAreHitInTheReverseOrderOfTheirPainting) {
  LogAll();
  Driver().Click(OnScreen({40, 15}));
  EXPECT_THAT(TakeDeeds(), ElementsAre("second down 1 150 75", "second up 1 150 75", "second click"));
  Driver().Advance(1000);
  TheBoard().lblSecond.SetVisible(false);
  Driver().Click(OnScreen({40, 15}));
  EXPECT_THAT(TakeDeeds(), ElementsAre("first down 1 450 75", "first up 1 450 75", "first click"));
  Driver().Advance(1000);
  TheBoard().lblFirst.SetVisible(false);
  Driver().Click(OnScreen({40, 20}));  // a line is passed through
  EXPECT_THAT(TakeDeeds(), ElementsAre("panel down 600 300", "panel up 600 300", "panel click"));
}

TEST_F(PictureBoxTest, ALabelIsHitExactlyWhereItIsPainted) {
  LogAll();
  for (const auto& [at, who] : {std::pair{PixelPoint{10, 10}, "first"},
                                {{29, 29}, "first"},
                                {{30, 10}, "second"},
                                {{69, 29}, "second"},
                                {{70, 29}, "panel"},
                                {{69, 30}, "panel"},
                                {{9, 10}, "panel"},
                                {{10, 9}, "panel"}}) {
    Driver().Click(OnScreen(at));
    EXPECT_THAT(TakeDeeds().back(), ::testing::StartsWith(who)) << at.x << ", " << at.y;
    Driver().Advance(1000);
  }
}

TEST_F(PictureBoxTest, APressKeepsThePointerWithItsPartUntilTheLastButtonIsUp) {
  LogAll();
  Driver().MovePointer(OnScreen({15, 15}));
  TakeLog();
  Driver().Press(kLeftButton);
  Driver().Press(kRightButton);
  Driver().MovePointer(OnScreen({60, 15}));
  Driver().Release(kLeftButton);
  Driver().MovePointer(OnScreen({61, 15}));
  Driver().Release(kRightButton);
  Driver().MovePointer(OnScreen({62, 15}));
  EXPECT_THAT(TakeLog(), ElementsAre("first down 1 75 75", "first down 2 75 75", "first move 750 75",
                                     "first up 1 750 75", "first move 765 75", "first up 2 765 75",
                                     "second move 480 75"));
}

TEST_F(PictureBoxTest, AReleaseElsewhereClicksNeitherPart) {
  LogAll();
  Driver().MovePointer(OnScreen({15, 15}));
  Driver().Press(kLeftButton);
  Driver().MovePointer(OnScreen({3, 3}));
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeDeeds(), ElementsAre("first down 1 75 75", "first up 1 -105 -105"));
  Driver().Advance(1000);
  Driver().Press(kLeftButton);
  Driver().MovePointer(OnScreen({15, 15}));
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeDeeds(), ElementsAre("panel down 45 45", "panel up 225 225"));
}

TEST_F(PictureBoxTest, TheSecondPressOfADoubleClickIsTheLabelsToo) {
  LogAll();
  Driver().DoubleClick(OnScreen({15, 15}));
  EXPECT_THAT(TakeDeeds(), ElementsAre("first down 1 75 75", "first up 1 75 75", "first click",
                                       "first double click", "first up 1 75 75"));
}

TEST_F(PictureBoxTest, ALabelDestroyedInItsOwnEventHearsNothingElse) {
  auto label = std::make_unique<TextLabel>(Panel());
  label->Move({Twips(1200), Twips(600)}, {Twips(150), Twips(150)});
  int clicks = 0;
  label->Click += [&] { ++clicks; };
  label->MouseUp += [&](auto...) { label.reset(); };
  Panel().Click += [&] { clicks += 10; };
  Driver().Click(OnScreen({85, 45}));
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(Pixel({85, 45}), Concrete(kBlue));
}

// --- Size --------------------------------------------------------------------------------------------

TEST_F(PictureBoxTest, TheInnerAreaIsWithoutTheBorder) {
  std::vector<float> widths;
  Panel().Resize += [&] { widths.push_back(Panel().ScaleWidth().value); };
  Panel().SetBorder(true);
  EXPECT_EQ(Panel().ScaleWidth(), Twips(1470));
  EXPECT_EQ(Panel().ScaleHeight(), Twips(870));
  EXPECT_EQ(Panel().Size(), (TwipSize{Twips(1500), Twips(900)}));
  Panel().Move(Panel().Position(), {Twips(1200), Twips(900)});
  EXPECT_EQ(Panel().ScaleWidth(), Twips(1170));
  Panel().SetBorder(false);
  EXPECT_EQ(Panel().ScaleWidth(), Twips(1200));
  EXPECT_THAT(widths, ElementsAre(1470, 1170, 1200));
}

TEST_F(PictureBoxTest, AResizeIsNoticedOnceAndAMoveNotAtAll) {
  int resizes = 0;
  Panel().Resize += [&] { ++resizes; };
  Panel().Move({Twips(300), Twips(150)}, {Twips(1500), Twips(900)});
  EXPECT_EQ(resizes, 0);
  Panel().Move({Twips(300), Twips(150)}, {Twips(1522.5F), Twips(-1)});
  EXPECT_EQ(resizes, 1);
  EXPECT_EQ(Panel().ScaleWidth(), Twips(1522.5F));  // as given, where it comes to the same pixels
  EXPECT_EQ(Panel().ScaleHeight(), Twips(0));
}

TEST_F(PictureBoxTest, InDesignModeNoPartGetsInput) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& board = AddNew<Board>("brd", {Twips(300), Twips(300)}, {Twips(3000), Twips(1500)});
  int presses = 0;
  board.lblFirst.MouseDown += [&](auto...) { ++presses; };
  board.picMain.MouseDown += [&](auto...) { ++presses; };
  PixelPoint at{15, 15};
  Windows().ClientToScreen(board.picMain.hWnd(), at);
  Driver().Click(at);
  EXPECT_EQ(presses, 0);
}

}  // namespace
}  // namespace levelwidgets::testing
