// Runs the built program on a native screen, and looks at what can be seen there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32

#include <signal.h>

#include <fstream>

#include <levelwidgets/testing/virtual_screen.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;

constexpr ColorRef kForm{0x00604020};
constexpr ColorRef kButton{0x00112233};
constexpr ColorRef kOther{0x00332211};
constexpr ColorRef kBefore{0x00FF0000};
constexpr ColorRef kAfter{0x0000FF00};
constexpr ColorRef kLast{0x000000FF};

// A form of 300 by 200 pixels with a button, a label that the script colours, and a text box and a bar.
constexpr char kFormFile[] = R"([form]
Name = "frmOrder"
Caption = "Order"
Width = 4500
Height = 3000
BackColor = 0x00604020
Script = "order.lua"

[[control]]
Class = "FlatButton"
Name = "cmdSave"
Left = 300
Top = 300
Width = 1200
Height = 450
TabIndex = 1
Properties = { BackColor = 0x00112233, BackColorMouseOver = 0x00112233, BackColorPushed = 0x00112233, Caption = "&Save" }

[[control]]
Class = "FlatLabel"
Name = "lblState"
Left = 1800
Top = 300
Width = 1200
Height = 450
Properties = { BackColor = 0x00FF0000, BackColorMouseOver = 0x00FF0000, Caption = "" }

[[control]]
Class = "FlatTextBox"
Name = "txtNote"
Left = 300
Top = 1050
Width = 2700
Height = 1500
TabIndex = 0
Properties = { MultiLine = true, BackColor = 0x00C0FFFF }

[[control]]
Class = "FlatScroll"
Name = "scrCount"
Left = 3600
Top = 300
Width = 255
Height = 2250
Properties = { ButtonColor = 0x00332211, ButtonColorMouseOver = 0x00332211, ButtonColorPushed = 0x00332211 }
)";

// What each script begins with.
constexpr char kScriptHead[] = R"(
local function state(color) lblState.BackColor, lblState.BackColorMouseOver = color, color end
local kAfter, kLast = 0x0000FF00, 0x000000FF
)";

class ShowCommand : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { screen_ = new VirtualScreen; }
  static void TearDownTestSuite() { delete std::exchange(screen_, nullptr); }

  ShowCommand() { std::filesystem::create_directories(folder_); }
  ~ShowCommand() override {
    program_.reset();
    std::filesystem::remove_all(folder_);
  }

  static VirtualScreen& Screen() { return *screen_; }

  // Written beside it and renamed, as editors save.
  void File(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / "new") << text;
    std::filesystem::rename(folder_ / "new", folder_ / name);
  }
  void Script(const std::string& text) { File("order.lua", kScriptHead + text); }

  void Start(std::vector<std::string> options = {}) {
    const auto built =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "levelwidgets";  // runtime path
    std::vector<std::string> command{built.string(), "show", "order.form.toml"};
    command.insert(command.end(), options.begin(), options.end());
    program_ = std::make_unique<ChildProcess>(
        command, ChildProcess::Options{.environment = {{"DISPLAY", Screen().Name()}, {"LC_ALL", "C"}},
                                       .folder = folder_,
                                       .errors = folder_ / "errors.txt"});
  }
  // Starts with a script and waits until the form is there.
  void Show(const std::string& script, std::vector<std::string> options = {}) {
    File("order.form.toml", kFormFile);
    Script(script);
    Start(std::move(options));
    button_ = Screen().WaitFor(kButton);
    ASSERT_FALSE(button_.empty()) << Errors();
    ASSERT_TRUE(WaitUntil([] { return Screen().Find(kForm).width() >= 300; }));
    Screen().DoAtLast("search --name Order windowactivate --sync");  // has the keyboard
  }

  std::string Errors() {
    std::ifstream file(folder_ / "errors.txt");
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool WaitForError(const std::string& text) {
    return WaitUntil([&] { return Errors().find(text) != std::string::npos; });
  }
  static std::string Middle(const PixelRect& rect) {
    return std::to_string((rect.left + rect.right) / 2) + " " + std::to_string((rect.top + rect.bottom) / 2);
  }
  static void Click(const PixelRect& rect) { Screen().Do("mousemove " + Middle(rect) + " click 1"); }
  static bool Shows(ColorRef color) { return !Screen().WaitFor(color).empty(); }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_show_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::unique_ptr<ChildProcess> program_;
  PixelRect button_;

 private:
  static VirtualScreen* screen_;
};

VirtualScreen* ShowCommand::screen_ = nullptr;

// --- The form and its script -------------------------------------------------------------------

TEST_F(ShowCommand, ShowsTheClientAreaInTheNativeFrame) {
  Show("");
  const PixelRect form = Screen().Find(kForm);
  EXPECT_EQ(form.width(), 300);
  EXPECT_EQ(form.height(), 200);
  EXPECT_EQ(button_.left - form.left, 21);  // inside the button's border
  EXPECT_EQ(button_.top - form.top, 21);
}

TEST_F(ShowCommand, AClickRunsTheScript) {
  Show("function cmdSave_Click() state(kAfter) end");
  EXPECT_TRUE(Shows(kBefore));
  Click(button_);
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowCommand, TheColorsAreThoseOfThePalette) {
  Show("state(lw.color(0x8000000F) == 0x002D2D2D and kAfter or kLast)", {"--palette", "dark"});
  EXPECT_TRUE(Shows(kAfter));
}

TEST_F(ShowCommand, TypedTextArrivesExactlyOnce) {
  Show("function txtNote_Change() if txtNote.Text == 'Az1!?' then state(kAfter) end end");
  Screen().Do("type --delay 1 Az1!?");
  EXPECT_TRUE(Shows(kAfter));
}

TEST_F(ShowCommand, KeysMoveTheFocusAndAccessKeysPressButtons) {
  Show(
      "cmdSave:on('KeyDown', function(e) if e.KeyCode == 65 then state(kLast) end end)\n"
      "function cmdSave_Click() state(kAfter) end");
  Screen().Do("key Tab a");
  EXPECT_TRUE(Shows(kLast)) << Errors();
  Screen().Do("key alt+s");
  EXPECT_TRUE(Shows(kAfter));
}

// The list goes over the form's lower edge. Another window that is clicked closes it.
TEST_F(ShowCommand, AListDropsDownInAWindowOfItsOwnUntilARowOrAnotherWindowIsClicked) {
  constexpr ColorRef kStrip{0x00445566};
  constexpr ColorRef kAnother{0x00556644};
  constexpr ColorRef kHighlighted{0x00D77800};  // of the palette
  Show(
      "local cbo = form:add('FlatDropDown', 'cbo', { Left=300, Top=2600, Width=1800, Height=315,\n"
      "  DropDownBackColor=0x00445566, DropDownBackColorMouseOver=0x00445566 })\n"
      "for i = 1, 5 do cbo:AddItem('Item ' .. i) end\n"
      "cbo:on('Change', function() state(cbo.Text == 'Item 4' and kAfter or kLast) end)\n"
      "form.Left, form.Top = 600, 600\n"
      "local other = lw.form{ Name='frmOther', Caption='Other', Width=1500, Height=1500, "
      "BackColor=0x00556644,\n"
      "  Left=7500, Top=600 }\n"
      "function form_Load() other:show() form:show() end");
  const PixelRect form = Screen().Find(kForm);
  const PixelRect strip = Screen().WaitFor(kStrip);
  ASSERT_FALSE(strip.empty()) << Errors();
  ASSERT_FALSE(Screen().WaitFor(kAnother).empty()) << Errors();
  const std::string fourth_row =
      std::to_string(strip.left - 40) + " " + std::to_string(strip.bottom + 3 * 13 + 8);
  Click(strip);
  Screen().Do("mousemove " + fourth_row);
  EXPECT_GT(Screen().WaitFor(kHighlighted).bottom, form.bottom);
  Screen().Do("click 1");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  EXPECT_TRUE(Screen().WaitWithout(kHighlighted));

  Screen().Do("key F4");
  EXPECT_TRUE(Shows(kHighlighted));
  Click(Screen().Find(kAnother));
  EXPECT_TRUE(Screen().WaitWithout(kHighlighted));
  EXPECT_EQ(Errors(), "");
}

// Outside, the bar goes back to the value before the drag.
TEST_F(ShowCommand, ADragGoesOnOutsideTheWindow) {
  Show(
      "function scrCount_Change() state(scrCount.Value == 1 and kLast or kAfter) end\n"
      "scrCount:on('MouseUp', function() state(0x00FFFF00) end)");
  // The thumb is below the upper arrow button.
  const PixelRect bar = Screen().WaitFor(kOther);
  const std::string x = std::to_string((bar.left + bar.right) / 2) + " ";
  Screen().Do("mousemove " + x + std::to_string(bar.top + 16) + " mousedown 1 mousemove_relative 0 20");
  EXPECT_TRUE(Shows(kAfter));
  Screen().Do("mousemove 790 590");
  EXPECT_TRUE(Shows(kLast));
  Screen().Do("mouseup 1");
  EXPECT_TRUE(Shows({0x00FFFF00}));
}

TEST_F(ShowCommand, TheWheelScrollsTheTextWithTheFocus) {
  Show("txtNote.ForeColor = kLast txtNote.Text = string.rep('\\r\\n', 40) .. string.rep('M', 20)");
  EXPECT_TRUE(Screen().Find(kLast).empty());
  Screen().Do("mousemove " + Middle(Screen().Find({0x00C0FFFF})) + " click --repeat 20 --delay 1 5");
  EXPECT_TRUE(Shows(kLast));
}

TEST_F(ShowCommand, LeavingTheWindowShowsTheNormalColoursAgain) {
  Show("cmdSave.BackColorMouseOver = kLast");
  Screen().Do("mousemove " + Middle(button_));
  EXPECT_TRUE(Shows(kLast));
  Screen().Do("mousemove 2 2");
  EXPECT_TRUE(Screen().WaitWithout(kLast));
}

// The pointer jumps, as that of a touch screen does, and its moves wait for a slow handler.
TEST_F(ShowCommand, EveryClickArrivesHoweverSlowTheHandlerIs) {
  Show(
      "local cmdOther = form:add('FlatButton', 'cmdOther', { Left = 1800, Top = 1050, Width = 1200,\n"
      "  Height = 450, BackColor = 0x00332200, BackColorMouseOver = 0x00332200,\n"
      "  BackColorPushed = 0x00332200 })\n"
      "cmdOther:ZOrder(0)\n"
      "local clicks, former = 0, nil\n"
      "local function click(button)\n"
      "  local due = os.clock() + 0.15\n"
      "  while os.clock() < due do end\n"
      "  if former ~= button then clicks, former = clicks + 1, button end\n"
      "  if clicks == 20 then state(kAfter) end\n"
      "end\n"
      "cmdSave:on('Click', function() click(cmdSave) end)\n"
      "cmdOther:on('Click', function() click(cmdOther) end)");
  const PixelRect other = Screen().WaitFor({0x00332200});
  const std::string both =
      " mousemove " + Middle(button_) + " click 1 mousemove " + Middle(other) + " click 1";
  std::string words;
  for (int i = 0; i < 10; ++i) words += both;
  Screen().Do(words);
  EXPECT_TRUE(Shows(kAfter)) << Errors();
}

TEST_F(ShowCommand, WhatIsSelectedInOneBoxTheMiddleButtonInsertsInAnother) {
  Show(
      "txtNote.Text = 'one\\r\\ntwo'\n"
      "local txtOther = form:add('FlatTextBox', 'txtOther', { Left = 300, Top = 2550, Width = 2700,\n"
      "  Height = 375, BackColor = 0x00FFC0FF })\n"
      "txtOther:on('Change', function() if txtOther.Text == 'one' then state(kAfter) end end)");
  Screen().Do("mousemove " + Middle(Screen().WaitFor({0x00C0FFFF})) + " click 1 key ctrl+Home shift+End");
  Screen().Do("mousemove " + Middle(Screen().WaitFor({0x00FFC0FF})) + " click 2");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
}

// --- Windows -----------------------------------------------------------------------------------

TEST_F(ShowCommand, ResizingTheWindowRaisesTheFormsResize) {
  Show("function form_Resize() if form.Width > 5900 and form.Height == 3750 then state(kAfter) end end");
  Screen().DoAtLast("search --name Order windowsize 400 250");
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(WaitUntil([] { return Screen().Find(kForm).width() == 400; }));
  EXPECT_EQ(Screen().Find(kForm).height(), 250);
}

TEST_F(ShowCommand, AMinimisedWindowComesBackAsItWas) {
  Show("");
  const PixelRect before = Screen().Find(kForm);
  Screen().DoAtLast("search --name Order windowminimize");
  EXPECT_TRUE(Screen().WaitWithout(kForm));
  Screen().DoAtLast("search --name Order windowactivate --sync");
  EXPECT_TRUE(WaitUntil([&] { return Screen().Find(kForm) == before; }));
  Click(button_);
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowCommand, AWindowThatIsMaximisedByItsTitleRaisesTheFormsResize) {
  Show("function form_Resize() if form.Width > 9000 then state(kAfter) else state(kLast) end end");
  const PixelRect before = Screen().Find(kForm);
  const std::string title = "mousemove " + std::to_string(before.left + 100) + " " +
                            std::to_string(before.top - 8) + " click --repeat 2 1";
  Screen().Do(title);
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_GT(Screen().Find(kForm).width(), 700);
  const PixelRect large = Screen().Find(kForm);
  Screen().Do("mousemove " + std::to_string(large.left + 100) + " " + std::to_string(large.top - 8) +
              " sleep 1 click --repeat 2 1");
  EXPECT_TRUE(WaitUntil([&] { return Screen().Find(kForm) == before; }));
  EXPECT_TRUE(Shows(kLast));
}

TEST_F(ShowCommand, TheProgramMovesResizesAndRetitlesItsWindow) {
  Show("function cmdSave_Click() form.Width, form.Height, form.Caption = 6000, 4200, 'Longer' end");
  Click(button_);
  EXPECT_TRUE(WaitUntil([] { return Screen().Find(kForm).width() == 400; }));
  EXPECT_EQ(Screen().Find(kForm).height(), 280);
  Screen().DoAtLast("search --sync --name Longer");
}

// In the C locale, in which the program runs here.
TEST_F(ShowCommand, TitlesAreInAnyLanguage) {
  Show("form.Caption = 'Order – Größe Ж 日本'");
  EXPECT_EQ(Screen().TitleOf("Order"), "Order – Größe Ж 日本");
}

TEST_F(ShowCommand, AFormStandsWhereItsScriptPlacesIt) {
  Show("function cmdSave_Click() form.Left, form.Top = 4500, 3000 end");
  const PixelRect before = Screen().Find(kForm);
  Click(button_);
  EXPECT_TRUE(WaitUntil([&] { return Screen().Find(kForm).left != before.left; }));
  const PixelRect first = Screen().Find(kForm);
  Show("form.Left, form.Top = 4500 + 300, 3000 + 450");
  EXPECT_TRUE(WaitUntil([&] { return Screen().Find(kForm).left == first.left + 20; }));
  EXPECT_EQ(Screen().Find(kForm).top, first.top + 30);
}

TEST_F(ShowCommand, AToolTipComesOverTheControlAndGoesWithAPress) {
  constexpr ColorRef kTip{0x00E1FFFF};
  Show(
      "cmdSave.ToolTipText = 'Keeps what was typed\\nuntil the next time'\n"
      "function cmdSave_Click() state(kAfter) end");
  EXPECT_TRUE(Screen().Find(kTip).empty());
  Screen().Do("mousemove " + Middle(button_));
  const PixelRect tip = Screen().WaitFor(kTip);
  ASSERT_FALSE(tip.empty()) << Errors();
  const int pointer = (button_.top + button_.bottom) / 2;
  EXPECT_GT(tip.top, pointer);
  EXPECT_LT(tip.top, pointer + 30);
  EXPECT_GT(tip.height(), 24);  // two lines
  Screen().Do("click 1");
  EXPECT_TRUE(Screen().WaitWithout(kTip));
  EXPECT_TRUE(Shows(kAfter));
  Screen().Do("key alt+F4");  // the form has the keyboard
  EXPECT_EQ(program_->Ended(), 0) << Errors();
}

TEST_F(ShowCommand, ClosingMayBeRefused) {
  Show(
      "local closes = 0\n"
      "function form_Unload(e)\n"
      "  closes = closes + 1\n"
      "  if closes == 1 then state(kAfter) e.Cancel = true end\n"
      "end");
  Screen().Do("key alt+F4");
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(program_->Runs());
  Screen().Do("key alt+F4");
  EXPECT_EQ(program_->Ended(), 0) << Errors();
  EXPECT_TRUE(Screen().WaitWithout(kForm));
}

TEST_F(ShowCommand, TheProgramEndsWithItsLastForm) {
  Show(
      "function cmdSave_Click()\n"
      "  local f = lw.form{ Name='frmSecond', Caption='Second', Width=1500, Height=1500, BackColor=kLast }\n"
      "  f:on('Unload', function() state(kAfter) end)\n"
      "  f:show()\n"
      "end");
  Click(button_);
  EXPECT_TRUE(Shows(kLast));
  Screen().Do("key alt+F4");  // the second form is the active one
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(Screen().WaitWithout(kLast));
  EXPECT_TRUE(program_->Runs());
  Screen().Do("key alt+F4");  // the keyboard is back with the first
  EXPECT_EQ(program_->Ended(), 0) << Errors();
}

TEST_F(ShowCommand, AtTwiceTheScaleAFormIsTwiceAsLargeAndDrawnInAllItsPixels) {
  Show("function cmdSave_Click() state(kAfter) end", {"--scale", "2"});
  const PixelRect form = Screen().Find(kForm);
  EXPECT_EQ(form.width(), 600);
  EXPECT_EQ(form.height(), 400);
  // A button of 160 by 60 pixels at 40, 40, inside a border of one pixel.
  EXPECT_EQ(button_.left - form.left, 41);
  EXPECT_EQ(button_.width(), 158);
  EXPECT_EQ(button_.height(), 58);
  // The last of the button's pixels, and the first beside it.
  const std::string row = " " + std::to_string(button_.bottom - 1);
  Screen().Do("mousemove " + std::to_string(button_.right + 4) + row + " click 1");
  Screen().Do("mousemove " + std::to_string(button_.right - 1) + row);
  EXPECT_FALSE(Screen().Find(kBefore).empty());
  Screen().Do("click 1");
  EXPECT_TRUE(Shows(kAfter));
}

TEST_F(ShowCommand, AScaleMayHaveAFraction) {
  Show("", {"--scale", "1.75"});
  const PixelRect form = Screen().Find(kForm);
  EXPECT_EQ(form.width(), 525);
  EXPECT_EQ(form.height(), 350);
  EXPECT_EQ(button_.left - form.left, 36);
  EXPECT_EQ(button_.width(), 138);
}

// --- Ends and errors -----------------------------------------------------------------------------

TEST_F(ShowCommand, AnInterruptEndsTheProgram) {
  Show("");
  program_->Signal(SIGINT);
  EXPECT_EQ(program_->Ended(), 0) << Errors();
  EXPECT_TRUE(Screen().WaitWithout(kForm));
}

TEST_F(ShowCommand, NothingOfABrokenFormIsShown) {
  File("order.form.toml",
       std::string(kFormFile) + "Caption = 5\n[[control]]\nClass = \"FlatButon\"\nName = \"b\"\n");
  Script("");
  Start();
  EXPECT_EQ(program_->Ended(), 1);
  EXPECT_THAT(Errors(), HasSubstr("order.form.toml:48:"));
  EXPECT_THAT(Errors(), HasSubstr("did you mean \"FlatButton\"?"));
}

TEST_F(ShowCommand, AScriptThatFailsIsReported) {
  File("order.form.toml", kFormFile);
  Script("lblStat.Caption = 'x'");
  Start();
  EXPECT_EQ(program_->Ended(), 1);
  EXPECT_THAT(Errors(), HasSubstr("order.lua:4: attempt to index a nil value (global 'lblStat')"));
}

TEST_F(ShowCommand, AnErrorInAHandlerIsReportedAndTheFormStays) {
  Show("function cmdSave_Click() state(kAfter) error('broken') end");
  Click(button_);
  EXPECT_TRUE(WaitForError("frmOrder.cmdSave Click: order.lua:4: broken"));
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(program_->Runs());
}

// --- Watching ------------------------------------------------------------------------------------

TEST_F(ShowCommand, AnErrorOfAControlItselfIsReportedAndTheFormStays) {
  Show(
      "scrCount.SmallChange = -40000\n"
      "function scrCount_MouseUp() state(kAfter) end");
  const PixelRect bar = Screen().WaitFor(kOther);
  Screen().Do("mousemove " + std::to_string((bar.left + bar.right) / 2) + " " + std::to_string(bar.top + 5) +
              " click 1");
  EXPECT_TRUE(WaitForError("frmOrder.scrCount MouseDown: Invalid Value")) << Errors();
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(program_->Runs());
}

TEST_F(ShowCommand, WatchingShowsWhatHasChangedWhereItWas) {
  Show("", {"--watch"});
  const PixelRect form = Screen().Find(kForm);
  Screen().DoAtLast("search --name Order windowmove 50 60");
  ASSERT_TRUE(WaitUntil([&] { return Screen().Find(kForm).left != form.left; }));
  EXPECT_EQ(Errors(), "");
  Script("state(kAfter)");
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_EQ(Errors(), "reloaded\n");
  const PixelRect moved = Screen().Find(kForm);
  EXPECT_EQ(moved.width(), 300);
  EXPECT_NEAR(moved.left, 50, 10);
  EXPECT_NEAR(moved.top, 60, 40);
}

TEST_F(ShowCommand, WatchingKeepsTheLastGoodFormWhileTheFileIsBroken) {
  Show("function cmdSave_Click() state(kAfter) end", {"--watch"});
  File("order.form.toml", std::string(kFormFile) + "Height = \"tall\"\n");
  EXPECT_TRUE(WaitForError("order.form.toml:"));
  EXPECT_EQ(Screen().Find(kButton), button_);
  Click(button_);
  EXPECT_TRUE(Shows(kAfter));
  std::string repaired = kFormFile;
  repaired.replace(repaired.find("0x00FF0000"), 10, "0x000000FF");
  File("order.form.toml", repaired);
  EXPECT_TRUE(Shows(kLast));
  EXPECT_TRUE(WaitForError("reloaded\n"));
  EXPECT_TRUE(program_->Runs());
}

}  // namespace
}  // namespace levelwidgets

#endif
