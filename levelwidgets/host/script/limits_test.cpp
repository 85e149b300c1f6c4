// Tries to use more than a sandbox has.
#include <levelwidgets/host/script/lua/limits.h>
#include <levelwidgets/host/script/sandbox_fixture.h>
#include <levelwidgets/testing/platform_with_messages.h>

namespace levelwidgets {
namespace {

using std::chrono::milliseconds;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::size_t kLittleMemory = 8 << 20;
constexpr milliseconds kLittleTime{30};

// A test must not hang where the sandbox fails to end a script.
void EndTest(const std::string& text) {
  std::fprintf(stderr, "stuck: %s\n", text.c_str());
  std::_Exit(3);
}

ScriptOptions LittleMemory() { return {.memory_limit = kLittleMemory}; }
ScriptOptions LittleTime() { return {.time_limit = kLittleTime, .on_hang = EndTest}; }

struct NamedScript {
  const char* name;
  const char* script;
};

std::string NameOf(const ::testing::TestParamInfo<NamedScript>& info) { return info.param.name; }

// --- Output ----------------------------------------------------------------------------------------

TEST(PrintLimit, ShowsAMebibyteThenSaysSoOnceAndThenShowsNothing) {
  ScriptLimits limits(1, milliseconds(0), {});
  const std::string line(1023, 'x');
  for (int i = 0; i < 1024; ++i) ASSERT_EQ(limits.Shown(line), line) << i;
  EXPECT_EQ(
      limits.Shown(""),
      "no more is shown: the scripts of the forms have printed 1 MiB; --trust lifts the limits for a form "
      "that you trust");
  EXPECT_FALSE(limits.Shown(""));
}

TEST(PrintLimit, EscapesWhatATerminalWouldObey) {
  EXPECT_EQ(ScriptLimits(1, milliseconds(0), {}).Shown("\x1B]0;title\a\ttab"), "\\u001B]0;title\\u0007\ttab");
}

// --- Memory ----------------------------------------------------------------------------------------

class MemoryLimit : public SandboxTest, public ::testing::WithParamInterface<NamedScript> {};

TEST_P(MemoryLimit, EndsTheScriptAndNothingElse) {
  Restart(LittleMemory());
  EXPECT_THAT(
      FailureOf(GetParam().script),
      HasSubstr("form.lua: not enough memory: the scripts of the forms have used up their 8 MiB of memory; "
                "--trust lifts the limits for a form that you trust"));
  EXPECT_EQ(FailureOf("assert(#('x'):rep(1000000) == 1000000)"), "");
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, MemoryLimit,
    ::testing::Values(
        NamedScript{"Table", "local t = {} for i = 1, math.huge do t[i] = i end"},
        NamedScript{"Tables", "local t = {} while true do t = { t } end"},
        NamedScript{"Concatenation", "local s = 'x' while true do s = s .. s end"},
        NamedScript{"OneHugeString", "local s = ('x'):rep(1e9)"},
        NamedScript{"OneHugeStringWithSeparator", "local s = (''):rep(1e8, 'xyz')"},
        NamedScript{"ConcatenationOfATable",
                    "local s = ('x'):rep(1e6) local t = {} for i = 1, 100 do t[i] = s end "
                    "table.concat(t)"},
        NamedScript{"Substitution", "local s = ('x'):rep(1e6):gsub('x', ('y'):rep(100))"},
        NamedScript{"Format", "local s = ('x'):rep(1e6) while true do s = string.format('%s%s', s, s) end"},
        NamedScript{"Coroutines", "local t = {} while true do t[#t + 1] = coroutine.create(print) end"},
        NamedScript{"StacksOfCoroutines",
                    "local function deep() return coroutine.wrap(function() "
                    "local t = { table.unpack({}, 1, 100000) } deep() end)() end "
                    "local t = {} while true do local c = coroutine.create(function() "
                    "local function f(n) if n == 0 then coroutine.yield() end return f(n - 1), 1 end "
                    "f(10000) end) coroutine.resume(c) t[#t + 1] = c end"},
        NamedScript{"Closures", "local t = {} while true do t[#t + 1] = function() return t end end"},
        NamedScript{"LoadedText", "local t = {} while true do t[#t + 1] = load(('x = 1 '):rep(20000)) end"},
        NamedScript{"ValuesOfTheLibrary", "local t = {} while true do t[#t + 1] = lw.date(2024, 5, 31) end"},
        NamedScript{"CaughtAgainAndAgain",
                    "local t = {} while true do local ok, m = pcall(function() "
                    "while true do t[#t + 1] = {} end end) if not ok then error(m, 0) end end"}),
    NameOf);

class Memory : public SandboxTest {};

TEST_F(Memory, OneHugeStringIsRefusedByDefault) {
  EXPECT_THAT(FailureOf("local s = ('x'):rep(1e9)"), HasSubstr("used up their 256 MiB"));
  EXPECT_THAT(FailureOf("local s = ('x'):rep(1e10)"), HasSubstr("resulting string too large"));
  EXPECT_EQ(FailureOf("local s = ('x'):rep(100000000)"), "");
}

TEST_F(Memory, AScriptCatchesTheErrorAndGoesOn) {
  Restart(LittleMemory());
  EXPECT_EQ(FailureOf("local ok, message = pcall(string.rep, 'x', 1e9)\n"
                      "assert(not ok and message == 'not enough memory')\n"
                      "assert(#('x'):rep(1000000) == 1000000)"),
            "");
}

TEST_F(Memory, AFormWithoutMemoryGoesOnWithoutItsHandlers) {
  Restart(LittleMemory());
  const auto form = Load(
      "function form_Resize() cmdOK.Tag = 'heard' end\n"
      "kept, last, text = {}, {}, ''\n"
      "local function fill() while true do kept[#kept + 1] = { {} } end end\n"
      "local function chain() while true do last = { last } end end\n"
      "local function write() while true do text = text .. 'x' end end\n"
      "pcall(fill) pcall(chain) pcall(write)");
  for (int i = 0; i < 10; ++i) form->SetWidth(Twips(static_cast<float>(3000 + 15 * i)));
  EXPECT_EQ(form->Width(), Twips(3135));
  EXPECT_TRUE(form->Close());
  EXPECT_EQ(FailureOf(""), "");
}

TEST_F(Memory, LimitCountsAllFormsTogether) {
  Restart(LittleMemory());
  Load("kept = ('x'):rep(3000000)", "first");
  EXPECT_THAT(FailureOf("kept = ('x'):rep(3000000)"), HasSubstr("not enough memory"));
}

TEST_F(Memory, OfClosedFormsIsFreed) {
  Restart(LittleMemory());
  for (int i = 0; i < 5; ++i) {
    const auto form = Load("kept = ('x'):rep(3000000)");
    EXPECT_TRUE(form->Close());
  }
}

TEST_F(Memory, AllowsASandboxAThousandOpenForms) {
  File("other.form.toml", "[form]\nName = \"frmOther\"\n");
  EXPECT_EQ(
      FailureOf("local forms = {}\n"
                "for i = 1, 999 do forms[i] = lw.load('other.form.toml') end\n"
                "for _, open in ipairs{ function() return lw.form{} end,\n"
                "                       function() return lw.load('other.form.toml') end } do\n"
                "  local ok, err = pcall(open)\n"
                "  assert(not ok and err.number == 7 and err.description:find('1000 forms open'), err)\n"
                "end\n"
                "forms[1]:close() lw.form{}"),
      "");
}

TEST_F(Memory, CountsMessagesOfTheSystemAsOpenForms) {
  testing::PlatformWithMessages platform(Tracer());
  ScriptHost host(platform);
  const std::string form =
      FormFile("flood",
               "local asked = 0\n"
               "for i = 1, 1100 do\n"
               "  if pcall(lw.message, { text='Read this' }) then asked = asked + 1 end\n"
               "end\n"
               "form.Caption = asked .. ' asked'\n");
  EXPECT_EQ(host.LoadForm(form)->Caption(), "999 asked");  // and the form itself
  Driver().Settle();
  EXPECT_EQ(platform.shown.size(), 999u);
}

TEST_F(Memory, AllowsASandboxAThousandTimers) {
  EXPECT_EQ(FailureOf("local last\n"
                      "for i = 1, 1000 do last = lw.timer{ ms=60000, on=print } end\n"
                      "local function one_more() return lw.timer{ ms=60000, on=print } end\n"
                      "local ok, err = pcall(one_more)\n"
                      "assert(not ok and err.number == 7 and err.description:find('too many timers'), err)\n"
                      "last:stop() one_more()"),
            "");
}

#ifdef __linux__

TEST_F(Memory, OfControlsIsLimitedByTheGrowthOfTheProcess) {
  Restart({.memory_limit = std::size_t{32} << 20});
  EXPECT_THAT(
      FailureOf("local text = ('x'):rep(5000000)\n"
                "for i = 1, 100 do form:add('FlatButton', 'b' .. i).Tag = text .. i end"),
      HasSubstr("form.lua:2: the scripts of the forms have made the program grow by more than 128 MiB; "
                "--trust lifts the limits"));
  EXPECT_EQ(FailureOf("cmdOK.Tag = 'goes on'"), "");
}

#endif

TEST_F(Memory, EndlesslyManyFormsAreRefused) {
  Restart(LittleMemory());
  EXPECT_THAT(FailureOf("local forms = {}\nwhile true do forms[#forms + 1] = lw.load('other.form.toml') end"),
              HasSubstr("other.form.toml"));
  FormFile("other", "");
  EXPECT_THAT(FailureOf("local forms = {}\nwhile true do forms[#forms + 1] = lw.load('other.form.toml') end"),
              HasSubstr("the scripts of the forms have used up their 8 MiB of memory"));
}

TEST(ScriptLimits, CountWhatIsInUse) {
  ScriptLimits limits(1000, {}, nullptr);
  void* block = ScriptLimits::Allocate(&limits, nullptr, 5, 600);  // 5: what it is for
  ASSERT_TRUE(block);
  EXPECT_EQ(limits.MemoryInUse(), 600u);
  EXPECT_FALSE(limits.TakeRefusal());
  EXPECT_FALSE(ScriptLimits::Allocate(&limits, nullptr, 0, 401));
  EXPECT_TRUE(limits.TakeRefusal());
  EXPECT_FALSE(limits.TakeRefusal());
  EXPECT_FALSE(ScriptLimits::Allocate(&limits, block, 600, 1001));
  EXPECT_EQ(limits.MemoryInUse(), 600u);
  block = ScriptLimits::Allocate(&limits, block, 600, 1000);
  EXPECT_EQ(limits.MemoryInUse(), 1000u);
  block = ScriptLimits::Allocate(&limits, block, 1000, 10);
  EXPECT_EQ(limits.MemoryInUse(), 10u);
  EXPECT_FALSE(ScriptLimits::Allocate(&limits, block, 10, 0));
  EXPECT_EQ(limits.MemoryInUse(), 0u);
}

// --- Time ------------------------------------------------------------------------------------------

class TimeLimit : public SandboxTest, public ::testing::WithParamInterface<NamedScript> {};

TEST_P(TimeLimit, EndsTheScript) {
  Restart(LittleTime());
  EXPECT_THAT(FailureOf(GetParam().script),
              HasSubstr("the scripts of the forms have run for longer than 30 ms; --trust lifts the limits"));
  EXPECT_TRUE(Host().OutOfTime());
}

// Each runs for ever where it is not stopped.
INSTANTIATE_TEST_SUITE_P(
    Scripts, TimeLimit,
    ::testing::Values(
        NamedScript{"Loop", "while true do end"}, NamedScript{"Jump", "::again:: goto again"},
        NamedScript{"TailCalls", "local function f() return f() end f()"},
        NamedScript{"ProtectedCalls", "while true do pcall(function() while true do end end) end"},
        NamedScript{"ProtectedCallsInside", "local function f() while true do pcall(f) end end f()"},
        NamedScript{"ProtectedCallOfAProtectedCall",
                    "while true do pcall(pcall, pcall, function() while true do end end) end"},
        NamedScript{"MessageHandler",
                    "while true do xpcall(function() while true do end end, "
                    "function() while true do end end) end"},
        NamedScript{"MessageHandlerOfAnError", "xpcall(error, function() while true do end end)"},
        NamedScript{
            "MessageHandlerOfItsOwnErrors",
            "local function h() xpcall(error, h) while true do end end while true do xpcall(error, h) end"},
        NamedScript{"Coroutine", "coroutine.wrap(function() while true do end end)()"},
        NamedScript{"CoroutinesAgainAndAgain",
                    "while true do local c = coroutine.create(function() while true do "
                    "pcall(coroutine.yield) end end) "
                    "for i = 1, 10 do coroutine.resume(c) end end"},
        NamedScript{"CoroutinesInside",
                    "local function f() while true do pcall(coroutine.wrap(f)) end end f()"},
        NamedScript{
            "ProtectedCallsInACoroutine",
            "coroutine.wrap(function() while true do pcall(function() while true do end end) end end)()"},
        NamedScript{"ClosedVariable",
                    "while true do pcall(function() local x <close> = setmetatable({}, { __close = "
                    "function() while true do end end }) while true do end end) end"},
        NamedScript{
            "ClosedVariableOfAWrappedCoroutine",
            "pcall(coroutine.wrap(function() local x <close> = setmetatable({}, { __close = function() "
            "while true do end end }) while true do end end))"},
        NamedScript{
            "ClosedVariableOfACoroutine",
            "local c = coroutine.create(function() local x <close> = setmetatable({}, { __close = function() "
            "while true do end end }) while true do end end) coroutine.resume(c) coroutine.close(c)"},
        NamedScript{
            "ClosedVariableOfAPendingCoroutine",
            "local c = coroutine.create(function() local x <close> = setmetatable({}, { __close = function() "
            "while true do end end }) coroutine.yield() end) coroutine.resume(c) coroutine.close(c)"},
        NamedScript{"Metamethod",
                    "local t = setmetatable({}, { __index = function() while true do end end }) "
                    "while true do pcall(function() return t.x end) end"},
        NamedScript{"EndlessMetamethods",
                    "local t = setmetatable({}, {}) getmetatable(t).__index = function(_, k) "
                    "return rawget(t, k) or pcall(function() return t[k] end) end "
                    "while true do local x = t.x end"},
        NamedScript{"Comparator",
                    "local t = {} for i = 1, 100 do t[i] = i end "
                    "table.sort(t, function() while true do end end)"},
        NamedScript{"Substitution", "('x'):gsub('x', function() while true do end end)"},
        NamedScript{"Iterator", "for x in function() return 1 end do end"},
        NamedScript{"Conversion",
                    "tostring(setmetatable({}, { __tostring = function() while true do end end }))"},
        NamedScript{"ConversionOfAnError",
                    "error(setmetatable({}, { __tostring = function() while true do end end }))"},
        NamedScript{"LoadedText", "load('while true do end')()"},
        NamedScript{"ReaderOfText", "while true do load(function() return ' ' end) end"},
        NamedScript{"Printing",
                    "print(setmetatable({}, { __name = 'x', __tostring = function() "
                    "while true do end end }))"},
        NamedScript{
            "ConcatenationMetamethod",
            "local t = setmetatable({}, { __concat = function() while true do end end }) return t .. t"},
        NamedScript{"Recursion", "local function f() pcall(f) pcall(f) end f()"},
        NamedScript{"Events",
                    "form:on('Resize', function() while true do end end) while true do "
                    "form.Width = form.Width + 15 end"},
        NamedScript{"EventsOfEvents",
                    "function form_Resize() for i = 1, 10 do form.Width = form.Width + 15 end end "
                    "while true do form.Width = 3000 form.Width = 4000 end"}),
    NameOf);

class Time : public SandboxTest {};

TEST_F(Time, FailureNamesTheLine) {
  Restart(LittleTime());
  EXPECT_THAT(FailureOf("local x = 1\nwhile true do end"), HasSubstr("form.lua:2: the scripts of the forms"));
}

TEST_F(Time, LimitsLoopsOfModules) {
  Restart(LittleTime());
  File("module.lua", "while true do pcall(require, 'module') end");
  EXPECT_THAT(FailureOf("require 'module'"), HasSubstr("have run for longer than"));
}

TEST_F(Time, LimitsHandlersAfterTheScriptHasEnded) {
  Restart(LittleTime());
  const auto form = Load(
      "function form_Resize() while true do pcall(function() while true do end end) end end\n"
      "count = 0 form:on('Activate', function() count = count + 1 end)");
  EXPECT_FALSE(Host().OutOfTime());
  form->SetWidth(Twips(3000));
  ASSERT_EQ(Host().HandlerErrors().size(), 1u);
  EXPECT_THAT(Host().HandlerErrors()[0].message, HasSubstr("have run for longer than"));
  EXPECT_EQ(form->Width(), Twips(3000));
  // No handler runs any more, which has been reported once.
  for (int i = 0; i < 10; ++i) form->SetWidth(Twips(static_cast<float>(4000 + 15 * i)));
  EXPECT_EQ(Host().HandlerErrors().size(), 1u);
  EXPECT_TRUE(form->Close());
}

TEST_F(Time, RunsForAllFormsTogether) {
  Restart(LittleTime());
  EXPECT_NE(FailureOf("while true do end"), "");
  EXPECT_THAT(FailureOf(""), HasSubstr("have run for longer than"));
}

TEST_F(Time, RunsOnlyWhileScriptsRun) {
  Restart({.time_limit = milliseconds(2000), .on_hang = EndTest});
  for (int i = 0; i < 20; ++i) EXPECT_EQ(FailureOf("for i = 1, 1000 do end"), "");
  EXPECT_FALSE(Host().OutOfTime());
}

TEST_F(Time, OfTheProgramIsNotLimited) {
  Restart(LittleTime());
  EXPECT_EQ(FailureOfProgram("local stop = os.clock() + 0.05 while os.clock() < stop do end"), "");
}

TEST_F(Time, AHandlerOfTheProgramIsNotLimitedByAFormThatIs) {
  Restart(LittleTime());
  FormFile("form", "while true do end");
  EXPECT_EQ(FailureOfProgram("local ok, message = pcall(lw.load, '" + PathTo("form.form.toml") +
                             "')\nassert(not ok)\nlocal n = 0 for i = 1, 100000 do n = n + i end"),
            "");
}

TEST_F(Time, LibraryCallsThatWouldTakeForeverAreRefused) {
  Restart(LittleTime());
  EXPECT_EQ(FailureOf(R"(
    assert(("").rep("", math.maxinteger) == "" and ("").rep("", 1e15, "") == "")
    assert(not pcall(table.move, {}, 1, math.maxinteger - 1, 2))
    assert(not pcall(table.move, {}, math.mininteger, -1, 2))
    local long = setmetatable({}, { __len = function() return 1 << 53 end })
    assert(not pcall(table.insert, long, 1, 0) and not pcall(table.remove, long, 1)))"),
            "");
}

#ifndef _WIN32

using StuckScript = SandboxTest;

TEST_F(StuckScript, APatternThatTakesForeverEndsTheProcessWithAMessage) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  Restart(LittleTime());
  EXPECT_EXIT(Load("('a'):rep(10000):find(('.-'):rep(20) .. 'b')"), ::testing::ExitedWithCode(3),
              "stuck: the scripts of the forms have run for longer than");
}

#endif

// --- Depth -----------------------------------------------------------------------------------------

class Depth : public SandboxTest, public ::testing::WithParamInterface<NamedScript> {};

TEST_P(Depth, IsAnErrorOfTheScript) {
  Restart({.time_limit = milliseconds(20000), .on_hang = EndTest});
  EXPECT_THAT(FailureOf(GetParam().script), HasSubstr("overflow"));
  EXPECT_EQ(FailureOf("cmdOK.Caption = 'goes on'"), "");
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, Depth,
    ::testing::Values(
        NamedScript{"Recursion", "local function f() return 1 + f() end f()"},
        NamedScript{"Metamethods",
                    "local t = setmetatable({}, {}) getmetatable(t).__index = function(_, k) "
                    "return t[k] end return t.x"},
        NamedScript{"Substitutions", "local function f() return (('x'):gsub('x', f)) end f()"},
        NamedScript{"Comparators", "local function f() table.sort({ 1, 2, 3 }, f) end f()"},
        NamedScript{"Coroutines",
                    "local function f() local ok, m = coroutine.resume(coroutine.create(f)) "
                    "if not ok then error(m, 0) end end f()"},
        NamedScript{"WrappedCoroutines", "local function f() coroutine.wrap(f)() end f()"},
        NamedScript{
            "LoadedText",
            "local text = ('('):rep(10000) .. '1' .. (')'):rep(10000) assert(load('return ' .. text))"}),
    NameOf);

class Nesting : public SandboxTest {};

TEST_F(Nesting, AnEventThatRaisesItselfEndsInOneError) {
  const auto form =
      Load("times = 0 function form_Resize() times = times + 1 form.Width = form.Width + 15 end");
  form->SetWidth(Twips(3000));
  ASSERT_EQ(Host().HandlerErrors().size(), 1u) << reports_;
  EXPECT_THAT(Host().HandlerErrors()[0].message, HasSubstr("events inside events, more than 30 deep"));
  form->SetWidth(Twips(5000));
  EXPECT_EQ(Host().HandlerErrors().size(), 2u);
}

TEST_F(Nesting, AnEventThatRaisesItselfTwiceEndsAtTheSameDepth) {
  ScriptOptions options = LittleTime();
  options.time_limit = std::chrono::seconds(10);  // real windows take their time
  Restart(options);
  const auto form =
      Load("function form_Resize() form.Width = form.Width + 15 form.Width = form.Width + 15 end");
  form->SetWidth(Twips(3000));
  EXPECT_FALSE(Host().OutOfTime());
  EXPECT_EQ(Host().HandlerErrors().size(), 2u) << reports_;
}

TEST_F(Nesting, OfTheProgramEndsInAnErrorToo) {
  EXPECT_EQ(
      FailureOfProgram("local f = lw.form{ Name='frm' }\nfunction frm_Resize() f.Width = f.Width + 15 end\n"
                       "f.Width = 3000\nassert(#lw.errors() == 1)\nfrm_Resize = nil\nf.Width = 4000"),
      "");
}

TEST_F(Nesting, AFormThatLoadsItselfEndsInAnError) {
  EXPECT_THAT(FailureOf("lw.load('form.form.toml')"), HasSubstr("events inside events, more than 30 deep"));
  EXPECT_EQ(FailureOf(""), "");
}

TEST_F(Nesting, TwoFormsThatMoveEachOtherEndInAnError) {
  FormFile("other", "function form_Resize() cmdOK.Tag = 'resized' end");
  const auto form = Load(
      "other = lw.load('other.form.toml')\n"
      "function form_Resize() other.Width = other.Width + 15 end\n"
      "other:on('Resize', function() form.Width = form.Width + 15 end)");
  form->SetWidth(Twips(3000));
  EXPECT_EQ(Host().HandlerErrors().size(), 1u) << reports_;
}

// --- Handlers that misbehave -------------------------------------------------------------------------

TEST_F(Nesting, AHandlerRemovesTheControlWhoseEventRuns) {
  const auto form = Load(
      "heard = 0\n"
      "form:show()\n"
      "function cmdOK_Click() form:remove('cmdOK') heard = heard + 1 end\n"
      "cmdOK:on('Click', function() heard = heard + 1 end)");
  const PixelRect rect = form->Controls()[0]->ScreenRect();
  Host().Desktop().Click({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
  Host().Desktop().Settle();
  EXPECT_TRUE(form->Controls().empty());
  EXPECT_EQ(reports_, "");
}

TEST_F(Nesting, AHandlerClosesTheFormWhoseEventRuns) {
  const auto form = Load("form:show()\nfunction form_Resize() form:close() end");
  form->SetWidth(Twips(3000));
  EXPECT_TRUE(form->Closed());
  EXPECT_EQ(FailureOf(""), "");
  EXPECT_EQ(reports_, "");
}

TEST_F(Nesting, AFormWhoseScriptClosesItAndMakesOthersGoesOnWhileItRuns) {
  EXPECT_EQ(
      FailureOf(
          "form:close()\nlocal f for i = 1, 3 do f = lw.form{ Name='f' .. i } end\n"
          "assert(#('x'):rep(100) == 100 and f.Name == 'f3' and not pcall(function() form:show() end))"),
      "");
}

TEST_F(Nesting, EndlessErrorsAreReportedAndNotAllKept) {
  const auto form = Load("function form_Resize() error('again') end");
  for (int i = 0; i < 1500; ++i) form->SetWidth(Twips(static_cast<float>(3000 + 15 * (i % 2))));
  EXPECT_EQ(Host().HandlerErrors().size(), 1000u);
}

}  // namespace
}  // namespace levelwidgets
