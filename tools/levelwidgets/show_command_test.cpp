// Runs the built program on a native screen, and looks at what can be seen there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32

#include <tools/levelwidgets/show_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;

// --- The form and its script -------------------------------------------------------------------

TEST_F(ShowCommand, ShowsTheClientAreaInTheNativeFrame) {
  Show("");
  EXPECT_TRUE(Becomes(FormSize, PixelSize{300, 200}));
  EXPECT_EQ(button_.left - form_.left, 21);  // inside the button's border
  EXPECT_EQ(button_.top - form_.top, 21);
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

// Outside, the bar goes back to the value before the drag.
TEST_F(ShowCommand, ADragGoesOnOutsideTheWindow) {
  Show(
      "function scrCount_Change() state(scrCount.Value == 1 and kLast or kAfter) end\n"
      "scrCount:on('MouseUp', function() state(0x00FFFF00) end)");
  // The thumb is below the upper arrow button.
  const PixelRect bar = Screen().WaitForAll(kOther);
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
  Screen().Do("mousemove " + Middle(Screen().WaitForAll({0x00C0FFFF})) + " click --repeat 20 --delay 1 5");
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
      "  local due = os.clock() + 0.05\n"
      "  while os.clock() < due do end\n"
      "  if former ~= button then clicks, former = clicks + 1, button end\n"
      "  if clicks == 20 then state(kAfter) end\n"
      "end\n"
      "cmdSave:on('Click', function() click(cmdSave) end)\n"
      "cmdOther:on('Click', function() click(cmdOther) end)");
  // A busy window manager would hold a press back until the pointer is elsewhere, and press there.
  Screen().EndManager();
  const std::string button = Middle(Screen().WaitForAll(kButton));
  const std::string other = Middle(Screen().WaitForAll({0x00332200}));
  std::string words;
  for (int i = 0; i < 10; ++i) words += " mousemove " + button + " click 1 mousemove " + other + " click 1";
  Screen().Do(words);
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  program_.reset();
  Screen().StartManager();
}

TEST_F(ShowCommand, WhatIsSelectedInOneBoxTheMiddleButtonInsertsInAnother) {
  Show(
      "txtNote.Text = 'one\\r\\ntwo'\n"
      "local txtOther = form:add('FlatTextBox', 'txtOther', { Left = 300, Top = 2550, Width = 2700,\n"
      "  Height = 375, BackColor = 0x00FFC0FF })\n"
      "txtOther:on('Change', function() if txtOther.Text == 'one' then state(kAfter) end end)");
  Screen().Do("key ctrl+Home shift+End mousemove " + Middle(Screen().WaitForAll({0x00FFC0FF})) + " click 2");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
}

// --- Windows -----------------------------------------------------------------------------------

TEST_F(ShowCommand, ResizingTheWindowRaisesTheFormsResize) {
  Show("function form_Resize() if form.Width > 5900 and form.Height == 3750 then state(kAfter) end end");
  Screen().DoAtLast("search --name Order windowsize 400 250");
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(Becomes(FormSize, PixelSize{400, 250}));
}

TEST_F(ShowCommand, AMinimisedWindowComesBackAsItWas) {
  Show("");
  Screen().DoAtLast("search --name Order windowminimize");
  EXPECT_TRUE(Screen().WaitWithout(kForm));
  Screen().DoAtLast("search --name Order windowactivate");
  EXPECT_TRUE(Becomes([] { return Screen().Find(kForm); }, form_));
  Click(button_);
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowCommand, AWindowThatIsMaximisedByItsTitleRaisesTheFormsResize) {
  Show("function form_Resize() if form.Width > 9000 then state(kAfter) else state(kLast) end end");
  // Again when a busy machine takes the two for two clicks.
  const auto double_click_title = [](ColorRef shown) {
    return WaitUntil([&] {
      const PixelRect form = Screen().WaitForAll(kForm);
      Screen().Do("mousemove " + std::to_string(form.left + 100) + " " + std::to_string(form.top - 8) +
                  " sleep 1 click --repeat 2 1");
      return WaitUntil([&] { return !Screen().Find(shown).empty(); }, 5000);
    });
  };
  EXPECT_TRUE(double_click_title(kAfter));
  EXPECT_TRUE(WaitUntil([] { return FormSize().width > 700 && FormSize().height > 500; }));
  EXPECT_TRUE(double_click_title(kLast));
  EXPECT_TRUE(Becomes([] { return Screen().Find(kForm); }, form_));
}

TEST_F(ShowCommand, TheProgramMovesResizesAndRetitlesItsWindow) {
  Show("function cmdSave_Click() form.Width, form.Height, form.Caption = 6000, 4200, 'Longer' end");
  Click(button_);
  EXPECT_TRUE(Becomes(FormSize, PixelSize{400, 280}));
  Screen().DoAtLast("search --sync --name Longer");
}

// In the C locale, in which the program runs here.
TEST_F(ShowCommand, TitlesAreInAnyLanguage) {
  Show("form.Caption = 'Order – Größe Ж 日本'");
  EXPECT_TRUE(Becomes([] { return Screen().TitleOf("Order"); }, std::string("Order – Größe Ж 日本")));
}

TEST_F(ShowCommand, AFormStandsWhereItsScriptPlacesIt) {
  Show("function cmdSave_Click() form.Left, form.Top = 4500, 3000 end");
  Click(button_);
  EXPECT_TRUE(WaitUntil([&] { return Screen().Find(kForm).left != form_.left; }));
  const PixelRect first = Screen().WaitForAll(kForm);
  Show("form.Left, form.Top = 4500 + 300, 3000 + 450");
  EXPECT_TRUE(Becomes([] { return Screen().Find(kForm); }, first.Offset(20, 30)));
}

TEST_F(ShowCommand, AToolTipComesOverTheControlAndGoesWithAPress) {
  constexpr ColorRef kTip{0x00E1FFFF};
  Show(
      "cmdSave.ToolTipText = 'Keeps what was typed\\nuntil the next time'\n"
      "function cmdSave_Click() state(kAfter) end");
  EXPECT_TRUE(Screen().Find(kTip).empty());
  Screen().Do("mousemove " + Middle(button_));
  const PixelRect tip = Screen().WaitForAll(kTip);
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
  ASSERT_TRUE(Becomes([] { return Screen().ActiveTitle(); }, std::string("Second")));
  Screen().Do("key alt+F4");
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(Screen().WaitWithout(kLast));
  EXPECT_TRUE(program_->Runs());
  ASSERT_TRUE(Becomes([] { return Screen().ActiveTitle(); }, std::string("Order")));
  Screen().Do("key alt+F4");
  EXPECT_EQ(program_->Ended(), 0) << Errors();
}

TEST_F(ShowCommand, AtTwiceTheScaleAFormIsTwiceAsLargeAndDrawnInAllItsPixels) {
  Show("function cmdSave_Click() state(kAfter) end", {"--scale", "2"});
  EXPECT_TRUE(Becomes(FormSize, PixelSize{600, 400}));
  // A button of 160 by 60 pixels at 40, 40, inside a border of one pixel.
  EXPECT_EQ(button_.left - form_.left, 41);
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
  EXPECT_TRUE(Becomes(FormSize, PixelSize{525, 350}));
  EXPECT_EQ(button_.left - form_.left, 36);
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
  const PixelRect bar = Screen().WaitForAll(kOther);
  Screen().Do("mousemove " + std::to_string((bar.left + bar.right) / 2) + " " + std::to_string(bar.top + 5) +
              " click 1");
  EXPECT_TRUE(WaitForError("frmOrder.scrCount MouseDown: Invalid Value")) << Errors();
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(program_->Runs());
}

TEST_F(ShowCommand, WatchingShowsWhatHasChangedWhereItWas) {
  Show("", {"--watch"});
  Screen().DoAtLast("search --name Order windowmove 50 60");
  ASSERT_TRUE(WaitUntil([&] { return Screen().Find(kForm).left != form_.left; }));
  EXPECT_EQ(Errors(), "");
  Script("state(kAfter)");
  EXPECT_TRUE(Shows(kAfter));
  EXPECT_TRUE(Becomes([this] { return Errors(); }, std::string("reloaded\n")));
  EXPECT_TRUE(Becomes(FormSize, PixelSize{300, 200}));
  const PixelRect moved = Screen().WaitForAll(kForm);
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
