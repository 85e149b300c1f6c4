// Runs the built program as a person does.
#ifndef _WIN32

#include <nlohmann/json.hpp>

#include <tools/levelwidgets/program_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class CommandLine : public ProgramTest {
 protected:
  // As its first chunk has it.
  struct PngSize {
    int width = 0;
    int height = 0;
  };
  PngSize SizeOfPng(const std::string& name) {
    const std::string png = TextOf(folder_ / name);
    const auto number = [&](std::size_t at) {
      int value = 0;
      for (std::size_t i = at; i < at + 4; ++i) value = value * 256 + static_cast<unsigned char>(png.at(i));
      return value;
    };
    return {number(16), number(20)};
  }
  void OrderForm() {
    File("order.form.toml",
         "[form]\nName = \"frmOrder\"\nCaption = \"Order\"\nWidth = 3000\nHeight = 1500\n"
         "Script = \"order.lua\"\n\n"
         "[[control]]\nClass = \"FlatButton\"\nName = \"cmdSave\"\nLeft = 300\nTop = 300\n"
         "Properties = { BackColor = 0x00112233, BackColorMouseOver = 0x00445566 }\n");
    File("order.lua", "cmdSave.Caption = '&Store'\n");
  }
};

TEST_F(CommandLine, PrintsItsVersionAndItsCommands) {
  EXPECT_THAT(Run("--version").out, StartsWith("levelwidgets 0."));
  const Outcome help = Run("--help");
  EXPECT_EQ(help.status, 0);
  for (const char* command : {"show", "run", "render", "check", "monkey", "describe"})
    EXPECT_THAT(help.out, HasSubstr(command));
}

TEST_F(CommandLine, DescriptionsOfOptionsStandInTheirColumn) {
  EXPECT_THAT(
      Run("show --help").out,
      HasSubstr("  --watch                 Load the form again whenever its file or a script beside it\n"
                "                          changes\n"));
}

TEST_F(CommandLine, ANumberOfThingsIsNeverNegativeNorBeyondItsBits) {
  OrderForm();
  for (const char* number : {"-5", "18446744073709551616", "1.5", "1e3", "x", ""}) {
    for (const char* option : {"--events", "--seed"}) {
      const Outcome outcome = Run(std::string("monkey order.form.toml ") + option + " '" + number + "'");
      EXPECT_EQ(outcome.status, 2) << option << " " << number;
      EXPECT_THAT(outcome.err,
                  HasSubstr(std::string(number) + " is no whole number from 0 to 18446744073709551615"))
          << option;
    }
  }
  EXPECT_EQ(Run("monkey order.form.toml --seed 18446744073709551615 --events 1").status, 0);
}

TEST_F(CommandLine, TheScaleOfTheEnvironmentConcernsShowAloneAndIsNamedInItsMessage) {
  OrderForm();
  for (const char* scale : {"abc", "0", "0.9", "8.1", "2x", "1.5.5", "nan", "."}) {
    const std::string environment = std::string("LEVELWIDGETS_SCALE=") + scale;
    const Outcome shown = RunWith(environment, "show order.form.toml");
    EXPECT_EQ(shown.status, 1);
    EXPECT_EQ(shown.err, std::string("LEVELWIDGETS_SCALE is \"") + scale +
                             "\"; it takes a number from 1 to 8, such as 1.5\n");
    EXPECT_EQ(RunWith(environment, "check order.form.toml").status, 0);
  }
}

TEST_F(CommandLine, AnUnknownLocaleIsAnErrorThatNamesThoseThereAre) {
  File("locale.lua", "lw.desktop{ locale = 'de-CH' }");
  EXPECT_THAT(
      Run("run locale.lua").err,
      HasSubstr("There is no locale \"de-CH\"; the locales: \"en-US\", \"en-GB\", \"de-DE\", \"fr-FR\", "
                "\"sv-SE\", \"ja-JP\""));
}

TEST_F(CommandLine, WrongArgumentsAreReportedOnStandardError) {
  for (const char* arguments : {"", "rnder", "render", "render x.form.toml", "describe --jsn",
                                "describe --json --schema", "render x -o y --dpi 1", "monkey"}) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_EQ(outcome.out, "") << arguments;
    EXPECT_NE(outcome.err, "") << arguments;
  }
}

TEST_F(CommandLine, AnUnknownCommandIsReportedWithTheNearest) {
  EXPECT_EQ(Run("").err,
            "A command is missing: show, run, render, check, monkey, describe\nRun with --help for more "
            "information.\n");
  EXPECT_THAT(Run("rende x").err, StartsWith("There is no command \"rende\"; did you mean \"render\"?\n"));
  EXPECT_THAT(Run("--nope").err, StartsWith("There is no command \"--nope\": show, "));
  EXPECT_THAT(Run("describe Nope").err, StartsWith("There is no class \"Nope\". The classes: FlatButton, "));
}

TEST_F(CommandLine, EmptyFileNamesAndNamesThatAreNotUtf8AreReported) {
  EXPECT_EQ(Run("check ''").err, "\"\": the form file cannot be read: No such file or directory\n");
  EXPECT_EQ(Run("check '\xFF\xFE'").status, 1);
  EXPECT_EQ(Run("render '' -o p.png").status, 1);
  OrderForm();
  const Outcome nameless = Run("render order.form.toml -o ''");
  EXPECT_EQ(nameless.status, 1);
  EXPECT_EQ(nameless.err, "The picture \"\" cannot be written: No such file or directory\n");
  EXPECT_EQ(Run("render order.form.toml -o p.png --hover '\xFF'").status, 1);
}

TEST_F(CommandLine, OutputThatCannotBeWrittenIsAFailure) {
  OrderForm();
  File("hello.lua", "print('hello')");
  File("exit.lua", "print('hello') os.exit(0)");
  for (const char* arguments : {"describe --json", "describe FlatButton", "--version", "--help",
                                "check order.form.toml", "run hello.lua", "run exit.lua"}) {
    for (const char* redirection : {">/dev/full", ">&-"}) {
      const Outcome outcome = Run(arguments, redirection);
      EXPECT_EQ(outcome.status, 1) << arguments << redirection;
      EXPECT_THAT(outcome.err, StartsWith("Standard output cannot be written")) << arguments << redirection;
    }
  }
}

TEST_F(CommandLine, AFileNeverTakesThePlaceOfAClosedStream) {
  OrderForm();
  File("order.lua", "print('this is no part of the picture')\n");
  ASSERT_EQ(Run("render order.form.toml -o whole.png").status, 0);
  EXPECT_EQ(Run("render order.form.toml -o closed.png", "<&- >&- 2>&-").status, 1);  // for what was printed
  EXPECT_EQ(TextOf(folder_ / "closed.png"), TextOf(folder_ / "whole.png"));
}

TEST_F(CommandLine, APictureIsReplacedAsAWholeOrNotAtAll) {
  OrderForm();
  File("p.png", "old");
  ASSERT_EQ(Run("render order.form.toml -o p.png").status, 0);
  EXPECT_THAT(TextOf(folder_ / "p.png"), StartsWith("\x89PNG"));
  std::filesystem::create_directory(folder_ / "folder.png");
  const Outcome folder = Run("render order.form.toml -o folder.png");
  EXPECT_EQ(folder.status, 1);
  EXPECT_EQ(folder.err, "The picture \"folder.png\" cannot be written: Is a directory\n");
  EXPECT_THAT(Run("render order.form.toml -o /dev/full").err,
              StartsWith("The picture \"/dev/full\" cannot be written: No space left on device\n"));
  EXPECT_THAT(Run("render order.form.toml -o /dev/stdout").out, StartsWith("\x89PNG"));
}

TEST_F(CommandLine, RenderRefusesAPictureThatIsTooLarge) {
  File("large.form.toml", "[form]\nName = \"frmLarge\"\nWidth = 32767\nHeight = 1e9\n");
  const Outcome large = Run("render large.form.toml -o p.png --dpi 24");
  EXPECT_EQ(large.status, 1);
  EXPECT_THAT(large.err, StartsWith("frmLarge would be "));
  EXPECT_THAT(large.err,
              HasSubstr(" pixels; a picture has at most 8192 by 8192: a smaller form or --dpi fits\n"));
  EXPECT_FALSE(Exists("p.png"));
  File("empty.form.toml", "[form]\nWidth = 0\nHeight = 0\n");
  EXPECT_EQ(Run("render empty.form.toml -o p.png --dpi 24").status, 0);
  EXPECT_TRUE(Exists("p.png"));
}

TEST_F(CommandLine, RenderDrawsEveryClassAtEveryResolutionInEverySize) {
  File("sizes.lua",
       "local d = lw.desktop{ dpi = tonumber(...), width = 400, height = 300 }\n"
       "for class in ('FlatButton FlatCalculator FlatCalendar FlatDropDown FlatLabel FlatScroll FlatTabStrip "
       "FlatTextBox'):gmatch('%w+') do\n"
       "  for _, size in ipairs{ {0, 0}, {32767, 32767} } do\n"
       "    local f = lw.form{ Width = 2000, Height = 1500 }\n"
       "    local c = f:add(class, 'c', { Width = size[1], Height = size[2] })\n"
       "    f:show()\n"
       "    d:move_to(c, 100, 100)\n"
       "    d:press() d:advance(1000) d:release()\n"
       "    d:type('a') d:key(35) d:key(38)\n"
       "    c.Enabled = false\n"
       "    d:screenshot('s.png')\n"
       "    f:close()\n"
       "  end\n"
       "end\n"
       "assert(#lw.errors() == 0)\n"
       "print('done')\n");
  for (const char* dpi : {"24", "960"}) {
    const Outcome outcome = Run(std::string("run sizes.lua ") + dpi);
    EXPECT_EQ(outcome.out, "done\n") << dpi << outcome.err;
    EXPECT_EQ(outcome.status, 0) << dpi;
  }
}

TEST_F(CommandLine, PipesAndDevicesAreRefusedAtOnce) {
  ASSERT_EQ(std::system(("mkfifo '" + (folder_ / "pipe").string() + "'").c_str()), 0);
  for (const char* command : {"check pipe", "check /dev/zero", "render pipe -o p.png"}) {
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.status, 1) << command;
    EXPECT_THAT(outcome.err, HasSubstr("it is a pipe or a device, not an ordinary file\n")) << command;
  }
}

TEST_F(CommandLine, RunEndsWithTheStatusOfTheScript) {
  File("three.lua", "return 3");
  File("four.lua", "os.exit(4)");
  File("fine.lua", "print('fine', ...)");
  EXPECT_EQ(Run("run three.lua").status, 3);
  EXPECT_EQ(Run("run four.lua").status, 4);
  const Outcome fine = Run("run fine.lua --help 'a b'");
  EXPECT_EQ(fine.status, 0);
  EXPECT_EQ(fine.out, "fine\t--help\ta b\n");
}

TEST_F(CommandLine, RunPrintsWhyAScriptFailed) {
  File("bad.lua", "local b = lw.form{}:add('FlatButton', 'b')\nb.Captoin = 1");
  const Outcome outcome = Run("run bad.lua");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, StartsWith("bad.lua:2: FlatButton has no member \"Captoin\"; did you mean "
                                      "\"Caption\"? (error 438, LevelWidgets.FlatButton)\nstack traceback:"));
  EXPECT_EQ(Run("run missing.lua").status, 1);
}

TEST_F(CommandLine, RunReportsErrorsInHandlersAndGoesOn) {
  File("handler.lua",
       "local f = lw.form{ Name='frm' }\n"
       "function frm_Resize() error('broken') end\n"
       "f.Width = 3000\n"
       "print('still there')");
  const Outcome outcome = Run("run handler.lua");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "still there\n");
  EXPECT_THAT(outcome.err, StartsWith("frm Resize: handler.lua:2: broken\nstack traceback:"));
}

TEST_F(CommandLine, RenderDrawsTheWindowOfTheForm) {
  OrderForm();
  const Outcome outcome = Run("render order.form.toml -o order.png");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_THAT(TextOf(folder_ / "order.png"), StartsWith("\x89PNG"));
}

TEST_F(CommandLine, RenderUnderThePointerIsAnotherPicture) {
  OrderForm();
  ASSERT_EQ(Run("render order.form.toml -o plain.png").status, 0);
  ASSERT_EQ(Run("render order.form.toml -o again.png").status, 0);
  ASSERT_EQ(Run("render order.form.toml -o hover.png --hover cmdSave").status, 0);
  ASSERT_EQ(Run("render order.form.toml -o large.png --dpi 192").status, 0);
  EXPECT_EQ(TextOf(folder_ / "plain.png"), TextOf(folder_ / "again.png"));
  EXPECT_NE(TextOf(folder_ / "plain.png"), TextOf(folder_ / "hover.png"));
  EXPECT_NE(TextOf(folder_ / "plain.png"), TextOf(folder_ / "large.png"));
}

TEST_F(CommandLine, RenderInAnotherPaletteIsAnotherPicture) {
  OrderForm();
  ASSERT_EQ(Run("render order.form.toml -o plain.png").status, 0);
  ASSERT_EQ(Run("render order.form.toml -o light.png --palette light").status, 0);
  ASSERT_EQ(Run("render order.form.toml -o dark.png --palette dark").status, 0);
  EXPECT_EQ(TextOf(folder_ / "plain.png"), TextOf(folder_ / "light.png"));
  EXPECT_NE(TextOf(folder_ / "plain.png"), TextOf(folder_ / "dark.png"));
  const Outcome unknown = Run("render order.form.toml -o p.png --palette mauve");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, HasSubstr("{light,classic,dark,high-contrast}"));
}

TEST_F(CommandLine, CheckAndRenderKnowTheCodePageOfTheLocale) {
  File("jp.form.toml",
       "[form]\nName = \"frm\"\n[[control]]\nClass = \"FlatLabel\"\nName = \"lbl\"\n"
       "Properties = { Caption = \"\u65E5\u672C\" }\n");
  const Outcome warned = Run("check jp.form.toml");
  EXPECT_EQ(warned.status, 0);
  EXPECT_EQ(warned.err,
            "jp.form.toml:6:27: warning: Caption has \"\u65E5\" (U+65E5) and \"\u672C\" (U+672C), which the "
            "desktop's code page lacks: \"?\" is shown instead\n");
  EXPECT_EQ(Run("check jp.form.toml --locale ja-JP").err, "");
  ASSERT_EQ(Run("render jp.form.toml -o lost.png").status, 0);
  ASSERT_EQ(Run("render jp.form.toml -o shown.png --locale ja-JP").status, 0);
  EXPECT_NE(TextOf(folder_ / "lost.png"), TextOf(folder_ / "shown.png"));
  EXPECT_THAT(Run("check jp.form.toml --locale jp").err, HasSubstr("{en-US,en-GB,de-DE,fr-FR,sv-SE,ja-JP}"));
}

TEST_F(CommandLine, RenderRefusesMissingFilesAndControls) {
  OrderForm();
  const Outcome hover = Run("render order.form.toml -o p.png --hover cmdSav");
  EXPECT_EQ(hover.status, 1);
  EXPECT_THAT(hover.err, HasSubstr("frmOrder has no control named \"cmdSav\"; did you mean \"cmdSave\"?"));
  const Outcome open = Run("render order.form.toml -o p.png --open cmdSave");
  EXPECT_EQ(open.status, 1);
  EXPECT_THAT(open.err, HasSubstr("cmdSave (FlatButton) has nothing to open"));
  EXPECT_EQ(Run("render missing.form.toml -o p.png").status, 1);
  EXPECT_FALSE(Exists("p.png"));
  const Outcome folder = Run("render order.form.toml -o nowhere/p.png");
  EXPECT_EQ(folder.status, 1);
  EXPECT_THAT(folder.err, HasSubstr("nowhere/p.png"));
}

TEST_F(CommandLine, RenderDrawsTheOpenPanelOfAControlBelowTheForm) {
  for (const std::string type : {"FlatDropDown", "FlatCalculator", "FlatCalendar"}) {
    File("open.form.toml",
         "[form]\nName = \"frm\"\nHeight = 500\nScript = \"open.lua\"\n[[control]]\nClass = \"" + type +
             "\"\nName = \"edt\"\nLeft = 150\nTop = 150\nWidth = 1800\nHeight = 315\n");
    File("open.lua", type == "FlatDropDown" ? "for i = 1, 8 do edt:AddItem('Item ' .. i) end\n" : "");
    ASSERT_EQ(Run("render open.form.toml -o closed.png").status, 0);
    const Outcome open = Run("render open.form.toml -o open.png --open edt");
    ASSERT_EQ(open.status, 0) << open.err;
    EXPECT_EQ(SizeOfPng("open.png").width, SizeOfPng("closed.png").width) << type;
    EXPECT_GT(SizeOfPng("open.png").height, SizeOfPng("closed.png").height + 20) << type;
  }
}

TEST_F(CommandLine, CheckPrintsEveryErrorAndWarning) {
  OrderForm();
  EXPECT_EQ(Run("check order.form.toml").status, 0);
  File("odd.form.toml", "[form]\nName = \"frmOdd\"\nColour = 1\n");
  const Outcome odd = Run("check odd.form.toml order.form.toml");
  EXPECT_EQ(odd.status, 0);
  EXPECT_THAT(odd.err, StartsWith("odd.form.toml:3:1: warning: "));
  File("bad.form.toml",
       "[form]\nName = \"frmBad\"\nWidth = \"wide\"\n\n[[control]]\nClass = \"FlatButon\"\nName = \"c\"\n");
  File("bad.lua", "\nx = = 1\n");
  File("script.form.toml", "[form]\nName = \"frmScript\"\nScript = \"bad.lua\"\n");
  const Outcome bad = Run("check bad.form.toml odd.form.toml script.form.toml");
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.out, "");
  EXPECT_THAT(bad.err, HasSubstr("bad.form.toml:3:"));
  EXPECT_THAT(bad.err, HasSubstr("bad.form.toml:6:"));
  EXPECT_THAT(bad.err, HasSubstr("odd.form.toml:3:1: warning: "));
  EXPECT_THAT(bad.err, HasSubstr("bad.lua:2: unexpected symbol"));
}

TEST_F(CommandLine, DescribeKnowsTheClasses) {
  const Outcome one = Run("describe FlatButton --json");
  EXPECT_EQ(one.status, 0);
  EXPECT_EQ(nlohmann::json::parse(one.out).at("class"), "FlatButton");
  const auto all = nlohmann::json::parse(Run("describe --json").out);
  ASSERT_GE(all.size(), 2u);
  EXPECT_EQ(all.at(0).at("class"), "FlatButton");
  EXPECT_THAT(Run("describe LevelWidgets.FlatLabel").out, StartsWith("FlatLabel: "));
  const Outcome unknown = Run("describe FlatButon");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err, HasSubstr("did you mean \"FlatButton\"?"));
}

TEST_F(CommandLine, DescribePrintsWhatComponentsAreBuiltWith) {
  EXPECT_THAT(Run("describe --component idl").out, HasSubstr("\nlibrary LevelWidgets {\n"));
  EXPECT_THAT(Run("describe --component manifest-x64").out, HasSubstr("name=\"LevelWidgets.x64\""));
  EXPECT_THAT(Run("describe --component manifest-x86").out, HasSubstr("name=\"LevelWidgets.x86\""));
  const Outcome unknown = Run("describe --component odl");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err, HasSubstr("\"odl\". What there is: idl"));
  EXPECT_EQ(Run("describe --component idl FlatButton").status, 2);
}

TEST_F(CommandLine, DescribePrintsPagesAndSchemas) {
  EXPECT_THAT(Run("describe FlatLabel --markdown").out, StartsWith("# FlatLabel\n"));
  EXPECT_THAT(Run("describe --markdown").out, HasSubstr("\n# Placement\n"));
  EXPECT_EQ(nlohmann::json::parse(Run("describe --schema").out).at("required").at(0), "form");
  EXPECT_EQ(nlohmann::json::parse(Run("describe FlatLabel --schema").out).at("title"), "FlatLabel");
  const Outcome no_control = Run("describe ksxValueList --schema");
  EXPECT_EQ(no_control.status, 1);
  EXPECT_THAT(no_control.err, HasSubstr("ksxValueList is no control"));
}

TEST_F(CommandLine, ShowNamesAnAlternativeWithoutADisplay) {
  const Outcome outcome =
      RunWith("env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER", "show order.form.toml");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, StartsWith("There is no display here"));
  EXPECT_THAT(outcome.err, HasSubstr("\n  levelwidgets render order.form.toml -o form.png\n"));
}

TEST_F(CommandLine, TheMonkeyLeavesAGoodFormWhole) {
  OrderForm();
  const Outcome outcome = Run("monkey order.form.toml --seed 3 --events 3000");
  EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
  EXPECT_THAT(outcome.out, AllOf(StartsWith("3000 events, "), HasSubstr("nothing is broken")));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(Run("monkey order.form.toml --seed 3 --events 3000").out, outcome.out);
  EXPECT_FALSE(Exists("order.monkey-3.lua"));
}

TEST_F(CommandLine, TheMonkeyShrinksAFailureToAScriptThatShowsItAgain) {
  OrderForm();
  File("order.lua",
       "local armed = false\n"
       "function cmdSave_MouseDown(e) armed = true end\n"
       "function cmdSave_KeyDown(e) if armed then error('one key too many') end end\n");
  const Outcome outcome = Run("monkey order.form.toml --seed 4 --events 20000 --handlers");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out,
              AllOf(HasSubstr("handler: order.lua:3: one key too many"), HasSubstr("Seed 4, event "),
                    HasSubstr("order.monkey-4.lua"), Not(HasSubstr("alone does not"))));
  const std::string script = TextOf(folder_ / "order.monkey-4.lua");
  const auto happens = script.substr(script.find("f:show()"));
  EXPECT_LE(std::ranges::count(happens, '\n'), 12) << happens;
  const Outcome again = Run("run order.monkey-4.lua");
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("handler: order.lua:3: one key too many"));
}

TEST_F(CommandLine, TheMonkeyReportsWhatIsWrongWithAFormThatDoesNotLoad) {
  EXPECT_EQ(Run("monkey missing.form.toml").status, 1);
}

}  // namespace
}  // namespace levelwidgets

#endif
