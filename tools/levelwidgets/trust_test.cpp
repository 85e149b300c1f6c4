// What forms may do to whoever opens them, and how their scripts are stopped.
#ifndef _WIN32

#include <tools/levelwidgets/program_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Trust : public ProgramTest {
 protected:
  void Form(const std::string& script) {
    File("form.form.toml", "[form]\nName = \"frm\"\nWidth = 1500\nHeight = 1500\nScript = \"form.lua\"\n");
    File("form.lua", script);
  }
};

TEST_F(Trust, RenderRunsTheScriptInASandbox) {
  Form("os.execute('touch owned')");
  const Outcome outcome = Run("render form.form.toml -o form.png");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith("form.lua:1: attempt to call a nil value (field 'execute')"));
  EXPECT_FALSE(Exists("owned"));
  EXPECT_FALSE(Exists("form.png"));
}

TEST_F(Trust, RenderRunsTheScriptOfATrustedFormWithoutASandbox) {
  Form("os.execute('touch owned')");
  const Outcome outcome = Run("render form.form.toml -o form.png --trust");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(Exists("owned"));
  EXPECT_TRUE(Exists("form.png"));
}

TEST_F(Trust, RenderEndsAScriptThatNeverEnds) {
  Form("while true do pcall(function() while true do end end) end");
  const Outcome outcome = Run("render form.form.toml -o form.png");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith("form.lua:1: the scripts of the forms have run for longer than 10 s; "
                                      "--trust lifts the limits for a form that you trust\n"));
  EXPECT_FALSE(Exists("form.png"));
}

TEST_F(Trust, RenderEndsAFormThatTakesAllMemory) {
  Form("local t = {} while true do t[#t + 1] = ('x'):rep(1000000 + #t) end");
  const Outcome outcome = Run("render form.form.toml -o form.png");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(
      outcome.err,
      StartsWith("form.lua: not enough memory: the scripts of the forms have used up their 256 MiB of "
                 "memory; --trust lifts the limits for a form that you trust"));
}

TEST_F(Trust, RunTrustsTheProgramButNotTheFormsItLoads) {
  Form("form.Caption = io and 'all' or 'sandbox'");
  File("program.lua", "print(io and 'all', lw.load('form.form.toml').Caption, ...)");
  EXPECT_EQ(Run("run program.lua --trust").out, "all\tsandbox\t--trust\n");
  EXPECT_EQ(Run("run --trust program.lua 1").out, "all\tall\t1\n");
}

TEST_F(Trust, CheckRunsNoScript) {
  Form("while true do end");
  EXPECT_EQ(Run("check form.form.toml").status, 0);
}

TEST_F(Trust, CheckReadsNoScriptOutsideTheFormsFolder) {
  Form("");
  File("../secret_of_trust_test.lua", "hunter2 hunter2");
  std::filesystem::remove(folder_ / "form.lua");
  std::filesystem::create_symlink("../secret_of_trust_test.lua", folder_ / "form.lua");
  const Outcome refused = Run("check form.form.toml");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err, "form.lua: the script of a form is a file in the form's own folder\n");
  const Outcome trusted = Run("check --trust form.form.toml");
  std::filesystem::remove(folder_ / "../secret_of_trust_test.lua");
  EXPECT_EQ(trusted.status, 1);
  EXPECT_THAT(trusted.err, HasSubstr("hunter2"));
}

TEST_F(Trust, WhatAFormPrintsGivesTheTerminalNoOrders) {
  Form("print('a\\27[2Jb', nil, 'c\\nd') print(('x'):rep(100000000))");
  const Outcome outcome = Run("render form.form.toml -o form.png");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("a\\u001B[2Jb\tnil\tc\nd\nxxx"));
  EXPECT_LT(outcome.out.size(), 2000u);
}

TEST_F(Trust, TheErrorsOfAFormGiveTheTerminalNoOrders) {
  Form("function form_Load() error('a\\27[2Jb' .. ('x'):rep(1000000)) end error('c\\27[2Jd')");
  const Outcome failed = Run("render form.form.toml -o form.png");
  EXPECT_THAT(failed.err, StartsWith("form.lua:1: c\\u001B[2Jd\n"));
  Form("function form_Load() error('a\\27[2Jb' .. ('x'):rep(1000000)) end");
  const Outcome reported = Run("render form.form.toml -o form.png");
  EXPECT_EQ(reported.status, 0);
  EXPECT_THAT(reported.err, HasSubstr("a\\u001B[2Jbxxx"));
  EXPECT_LT(reported.err.size(), 5000u);
}

TEST_F(Trust, WhatAProgramOfTheUsersPrintsStaysAsItIs) {
  File("program.lua", "print('\\27[1mbold')");
  EXPECT_EQ(Run("run program.lua").out, "\x1B[1mbold\n");
}

TEST_F(Trust, APathWithANulCharacterIsRefusedWholeAndNothingIsWritten) {
  Form("");
  File("program.lua",
       "local function refused(f, ...)\n"
       "  local ok, err = pcall(f, ...)\n"
       "  assert(not ok and err.number == 5, err)\n"
       "  assert(err.description == '\"a\\\\u0000b\" is no path: it has a NUL character', err.description)\n"
       "end\n"
       "local d = lw.desktop{}\n"
       "local form = lw.load('form.form.toml')\n"
       "refused(form.save, form, 'a\\0b')\n"
       "refused(lw.load, 'a\\0b')\n"
       "refused(d.screenshot, d, 'a\\0b')");
  const Outcome outcome = Run("run program.lua");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_FALSE(Exists("a"));
}

TEST_F(Trust, AModuleOfANameWithANulCharacterIsNotFound) {
  Form("assert(not pcall(require, 'module\\0.lua'))");
  File("module.lua", "");
  EXPECT_EQ(Run("render form.form.toml -o form.png").status, 0);
}

TEST_F(Trust, ARequestToEndEndsTheScriptOfAShownFormAndTheProgram) {
  Form(
      "function form_Activate()\n"
      "  io.popen('kill -TERM $PPID'):close()\n"
      "  while true do end\n"
      "end");
  const Outcome outcome =
      RunShell("SDL_VIDEODRIVER=dummy '" + Program().string() + "' show --trust form.form.toml");
  EXPECT_EQ(outcome.status, 128 + 15);
  EXPECT_THAT(outcome.err, HasSubstr("frm Activate: form.lua:3: interrupted\nstack traceback:"));
}

TEST_F(Trust, AKilledMonkeyLeavesNobodyBehindWhoHoldsItsOutput) {
  Form("");
  // The pipe ends when the last process that can write to it has ended.
  const Outcome outcome = RunShell("( '" + Program().string() +
                                   "' monkey form.form.toml --events 100000000 & "
                                   "sleep 0.3; kill -KILL $! ) | timeout 20 cat");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Trust, AFileBeyondTheLimitOfFilesIsAnErrorAndLeavesNothingBehind) {
  Form("");
  const Outcome outcome = RunShell("bash -c 'ulimit -f 1; exec " + Program().string() +
                                   " render form.form.toml --dpi 960 -o form.png'");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("File too large"));
  EXPECT_FALSE(Exists("form.png"));
  EXPECT_FALSE(Exists("form.png.new0"));
}

TEST_F(Trust, CtrlCEndsAScriptWithItsPlace) {
  // The process that it runs is its child.
  File("loop.lua",
       "io.popen('kill -INT $PPID'):close()\n"
       "while true do pcall(function() while true do end end) end");
  const Outcome outcome = Run("run loop.lua");
  EXPECT_EQ(outcome.status, 130);
  EXPECT_THAT(outcome.err, StartsWith("loop.lua:2: interrupted\nstack traceback:"));
}

TEST_F(Trust, CtrlCEndsTheScriptOfAForm) {
  Form("io.popen('kill -INT $PPID'):close()\nwhile true do end");
  const Outcome outcome = Run("render --trust form.form.toml -o form.png");
  EXPECT_EQ(outcome.status, 130);
  EXPECT_THAT(outcome.err, StartsWith("form.lua:2: interrupted\n"));
  EXPECT_FALSE(Exists("form.png"));
}

TEST_F(Trust, CtrlCEndsAHandlerOfAShownFormAndTheProgram) {
  Form(
      "function form_Activate()\n"
      "  io.popen('kill -INT $PPID'):close()\n"
      "  while true do pcall(function() while true do end end) end\n"
      "end");
  const Outcome outcome =
      RunShell("SDL_VIDEODRIVER=dummy '" + Program().string() + "' show --trust form.form.toml");
  EXPECT_EQ(outcome.status, 130);
  EXPECT_THAT(outcome.err, HasSubstr("frm Activate: form.lua:3: interrupted\nstack traceback:"));
}

TEST_F(Trust, ShowRunsTheScriptInASandbox) {
  Form("os.execute('touch owned')");
  const Outcome outcome = RunShell("SDL_VIDEODRIVER=dummy '" + Program().string() + "' show form.form.toml");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("form.lua:1: attempt to call a nil value (field 'execute')"));
  EXPECT_FALSE(Exists("owned"));
}

TEST_F(Trust, RunOpensAThousandForms) {
  Form("form.Caption = 'one of many'");
  File("many.lua",
       "local forms = {}\n"
       "for i = 1, 1000 do forms[i] = lw.load('form.form.toml') forms[i]:show() end\n"
       "for _, form in ipairs(forms) do assert(form.Caption == 'one of many') form:close() end\n"
       "return 7");
  const Outcome outcome = Run("run many.lua");
  EXPECT_EQ(outcome.status, 7) << outcome.err;
}

}  // namespace
}  // namespace levelwidgets

#endif
