#include <levelwidgets/host/script/lua/interrupt.h>

#include <csignal>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/script/sandbox_fixture.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

// The signal comes when a form named frm is resized.
class Interrupt : public SandboxTest {
 protected:
  std::string InterruptionOf(const std::string& program) {
    const ScriptInterruptSignal signal;
    try {
      Host().RunText("f = lw.load('" + FormFile("form", "") + "')", "opening.lua");
      const auto form = Host().LoadForm(PathTo("form.form.toml"));
      form->Resize += [] { std::raise(SIGINT); };
      Host().SetGlobal("raising", form);
      Host().RunText(program, "program.lua");
    } catch (const ScriptInterruption& interruption) {
      return interruption.what();
    }
    return "";
  }
};

TEST_F(Interrupt, EndsALoopAndNamesItsLine) {
  EXPECT_THAT(InterruptionOf("raising.Width = 3000\nwhile true do end"),
              StartsWith("program.lua:2: interrupted\nstack traceback:"));
}

TEST_F(Interrupt, EndsALoopByTheOtherSignalsToEndToo) {
  for (const int number : {SIGINT, SIGTERM}) {
    const ScriptInterruptSignal signal;
    const auto form = Host().LoadForm(FormFile("form", ""));
    form->Resize += [number] { std::raise(number); };
    Host().SetGlobal("raising", form);
    EXPECT_THROW(Host().RunText("raising.Width = 3000\nwhile true do end", "program.lua"),
                 ScriptInterruption);
    EXPECT_EQ(InterruptedStatus(), 128 + number);
  }
}

TEST_F(Interrupt, IsNotStoppedByAProtectedCall) {
  EXPECT_THAT(InterruptionOf("raising.Width = 3000\n"
                             "while true do pcall(function() while true do end end) end"),
              HasSubstr("interrupted"));
}

TEST_F(Interrupt, ReachesCoroutines) {
  EXPECT_THAT(InterruptionOf("coroutine.wrap(function() raising.Width = 3000 while true do end end)()"),
              HasSubstr("interrupted"));
}

TEST_F(Interrupt, EndsAHandlerAndTheProgram) {
  EXPECT_THAT(InterruptionOf("f:on('Resize', function() raising.Width = 3000 while true do end end)\n"
                             "f.Width = 3000\nwhile true do end"),
              HasSubstr("interrupted"));
  ASSERT_EQ(Host().HandlerErrors().size(), 1u);
  EXPECT_EQ(Host().HandlerErrors()[0].message, "program.lua:1: interrupted");
}

TEST_F(Interrupt, EndsAFormInItsSandbox) {
  FormFile("other", "while true do pcall(function() while true do end end) end");
  EXPECT_THAT(InterruptionOf("raising.Width = 3000\nlw.load('" + PathTo("other.form.toml") + "')"),
              HasSubstr("interrupted"));
}

TEST_F(Interrupt, IsOverWithItsSignal) {
  EXPECT_NE(InterruptionOf("raising.Width = 3000 while true do end"), "");
  EXPECT_FALSE(ScriptInterrupted());
  EXPECT_EQ(FailureOfProgram("local n = 0 for i = 1, 100000 do n = n + i end"), "");
}

#ifndef _WIN32  // where no signal ends a process

TEST_F(Interrupt, EndsTheProcessWhenNoScriptRuns) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const ScriptInterruptSignal signal;
        std::raise(SIGINT);
      },
      ::testing::KilledBySignal(SIGINT), "");
}

TEST_F(Interrupt, ASecondOneEndsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const ScriptInterruptSignal signal;
        const InterruptibleScript running;
        std::raise(SIGINT);
        std::raise(SIGINT);
      },
      ::testing::KilledBySignal(SIGINT), "");
}

#endif

}  // namespace
}  // namespace levelwidgets
