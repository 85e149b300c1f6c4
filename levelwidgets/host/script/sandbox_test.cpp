// Tries to get out of the sandbox.
#include <sstream>

#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/host/script/sandbox_fixture.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class Sandbox : public SandboxTest {};

// --- What is there ---------------------------------------------------------------------------------

TEST_F(Sandbox, HasTheLibrariesOfValues) {
  EXPECT_EQ(FailureOf(R"(
    assert(string.format("%d", 3) == "3" and ("x"):rep(3) == "xxx" and ("a-b"):gsub("-", "+") == "a+b")
    assert(table.concat({1, 2}, ",") == "1,2" and select("#", table.unpack({1, 2})) == 2)
    local list = {1, 3} table.insert(list, 2, 2) table.insert(list, 4) table.remove(list, 1)
    assert(table.concat(list) == "234" and table.move(list, 1, 3, 2)[4] == 4)
    assert(math.max(1, 2) == 2 and utf8.char(228) == "ä")
    assert(os.time{ year=2024, month=5, day=31 } > 0 and os.date("%Y", 0) and os.clock() >= 0)
    assert(getmetatable(setmetatable({}, { __index = { x = 1 } })).__index.x == 1)
    assert(collectgarbage("count") > 0 and collectgarbage() == 0)
    print("to be seen"))"),
            "");
}

TEST_F(Sandbox, AControlThatIsNamedAsOneOfItsGlobalsIsAWarning) {
  const auto form = Load(
      "local names = {}\n"
      "for name in pairs(_G) do names[#names + 1] = name end\n"
      "cmdOK.Tag = table.concat(names, ' ')");
  std::istringstream names(form->Find("cmdOK")->Tag());
  int globals = 0;
  for (std::string name; names >> name;) {
    if (form->Find(name)) continue;
    ++globals;
    const LoadedForm loaded =
        LoadFormText(Tracer(), "[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"" + name + "\"\n", "f");
    ASSERT_EQ(loaded.diagnostics.size(), 1u) << name;
    EXPECT_THAT(loaded.diagnostics[0].message, HasSubstr("hides what scripts have as \"" + name + "\""));
  }
  EXPECT_GT(globals, 20);
}

TEST_F(Sandbox, CoroutinesWorkAsInPlainLua) {
  EXPECT_EQ(FailureOf(R"(
    local next_value = coroutine.wrap(function(first) local second = coroutine.yield(first + 1) return second, 7 end)
    assert(next_value(1) == 2)
    local a, b = next_value("x")
    assert(a == "x" and b == 7)
    assert(not pcall(next_value))
    local ok, message = pcall(coroutine.wrap(function() error("inside", 0) end))
    assert(not ok and message:find("inside"))
    local closed
    local failing = coroutine.wrap(function()
      local x <close> = setmetatable({}, { __close = function() closed = true end })
      error({ 5 })
    end)
    local ok, value = pcall(failing)
    assert(not ok and value[1] == 5 and closed)
    local pending = coroutine.create(function() coroutine.yield() end)
    assert(coroutine.resume(pending) and coroutine.close(pending) and coroutine.status(pending) == "dead"))"),
            "");
}

TEST_F(Sandbox, ProtectedCallsWorkAsInPlainLua) {
  EXPECT_EQ(FailureOf(R"(
    local ok, a, b = xpcall(function(...) return ... end, error, 1, 2)
    assert(ok and a == 1 and b == 2)
    local ok, message, more = xpcall(error, function(m) return "handled " .. m, 1 end, "it")
    assert(not ok and message == "handled it" and more == nil)
    assert(not pcall(xpcall, error))
    local thread = coroutine.wrap(function() return xpcall(function() return coroutine.yield(1) + 1 end, print) end)
    assert(thread() == 1)
    local ok, value = thread(5)
    assert(ok and value == 6))"),
            "");
}

TEST_F(Sandbox, RequireGivesTheLibraryAndModulesOfTheFolder) {
  File("module.lua", "count = (count or 0) + 1 return { name = ..., count = count }");
  File("sub/deeper.lua", "return 'deep'");
  File("nothing.lua", "");
  EXPECT_EQ(FailureOf(R"(
    assert(require "levelwidgets" == lw and package.loaded.levelwidgets == lw)
    assert(require("module").name == "module" and require("module").count == 1)
    assert(require("sub.deeper") == "deep" and require("nothing") == true)
    assert(package.loaded.string == string and require "string" == string and require "os" == os))"),
            "");
}

TEST_F(Sandbox, AFormLoadsFormsOfItsOwnFolderAndBelow) {
  FormFile("other", "cmdOK.Caption = 'other'");
  FormFile("sub/below", "cmdOK.Caption = 'below'");
  EXPECT_EQ(FailureOf(R"(
    local other, below = lw.load("other.form.toml"), lw.load("sub/below.form.toml")
    assert(other.cmdOK.Caption == "other" and below.cmdOK.Caption == "below")
    other:show() below:show())"),
            "");
}

TEST_F(Sandbox, GalleryIsShown) {
  int sheets = 0;
  for (const auto& file :
       std::filesystem::directory_iterator(std::string(SourceDir()) + "/examples/gallery")) {
    if (!file.path().string().ends_with(".form.toml")) continue;
    SCOPED_TRACE(file.path());
    ++sheets;
    const auto form = Host().LoadForm(file.path().string());
    form->Show();
    Host().Desktop().Settle();
    for (const auto& control : std::vector(form->Controls())) {
      if (control->ControlClass().Name() != "FlatButton") continue;
      const PixelRect rect = control->ScreenRect();
      Host().Desktop().Click({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
    }
    Host().Desktop().Settle();
    form->Close();
  }
  EXPECT_GE(sheets, 6);
  EXPECT_EQ(reports_, "");
}

// --- What is not there -----------------------------------------------------------------------------

TEST_F(Sandbox, HasNoProcesses) {
  EXPECT_EQ(FailureOf("assert(os.execute == nil and io == nil and os.exit == nil and os.getenv == nil)"), "");
}

TEST_F(Sandbox, HasNoFiles) {
  EXPECT_EQ(
      FailureOf("assert(dofile == nil and loadfile == nil and os.remove == nil and os.rename == nil and "
                "os.tmpname == nil and os.setlocale == nil)"),
      "");
}

TEST_F(Sandbox, HasNoNativeModules) {
  File("native.so",
       "\x7f"
       "ELF");
  EXPECT_EQ(
      FailureOf("assert(package.loadlib == nil and package.cpath == nil and package.searchers == nil and "
                "package.path == nil and package.preload == nil and not pcall(require, 'native'))\n"
                "package.cpath, package.path = './?.so', '/?.lua;../?.lua'\n"
                "assert(not pcall(require, 'native') and not pcall(require, 'etc/profile'))"),
      "");
}

TEST_F(Sandbox, HasNoDebugLibrary) {
  EXPECT_EQ(FailureOf("assert(debug == nil and not pcall(require, 'debug') and not pcall(require, 'io'))"),
            "");
}

TEST_F(Sandbox, HasNoGlobalsButTheStatedOnes) {
  EXPECT_EQ(FailureOf(R"(
    local known = {}
    for name in ([[_G _VERSION assert cmdOK collectgarbage coroutine error form getmetatable ipairs load lw math next
      os package pairs pcall print rawequal rawget rawlen rawset require select setmetatable string table tonumber
      tostring type utf8 warn xpcall]]):gmatch("%S+") do known[name] = true end
    for name in pairs(_G) do assert(known[name], name) end
    for name in pairs(package.loaded) do assert(known[name] or name == "levelwidgets", name) end)"),
            "");
}

TEST_F(Sandbox, BytecodeIsNeitherMadeNorLoaded) {
  EXPECT_EQ(FailureOf(R"(
    assert(string.dump == nil)
    for _, mode in ipairs{ "t", "bt", "tb" } do
      local chunk, message = load("\27Lua", "chunk", mode)
      assert(chunk == nil and message:find("binary"), message)
    end
    assert(load("\27Lua") == nil and load(function() return "\27Lua" end) == nil)
    assert(not pcall(load, "return 1", "chunk", "b")))"),
            "");
  File("code.lua", "\x1bLua");
  EXPECT_THAT(FailureOf("require 'code'"), HasSubstr("attempt to load a binary chunk"));
}

TEST_F(Sandbox, LoadedTextSeesWhatTheScriptSees) {
  EXPECT_EQ(FailureOf(R"(
    assert(load("return io == nil and os.execute == nil and debug == nil and _G == ...")(_G))
    assert(load("x = 1 return _ENV", "chunk", "t", { y = 2 })().y == 2 and x == nil)
    local parts = { "return ", "42" }
    assert(load(function() return table.remove(parts, 1) end)() == 42)
    assert(select("#", load("= 1")) == 2))"),
            "");
}

TEST_F(Sandbox, RequireFindsNothingOutsideTheFolder) {
  const std::string outside = ::testing::UnitTest::GetInstance()->current_test_info()->name();
  const std::filesystem::path secret = std::filesystem::temp_directory_path() / (outside + ".lua");
  std::ofstream(secret) << "return 'secret'";
  Link(secret.parent_path(), "up");
  Link(secret, "link.lua");
  if (IsSkipped()) return;
  std::filesystem::create_directory(PathTo("folder.lua"));
  EXPECT_EQ(FailureOf("local name = '" + outside + "'\n" + R"(
    for _, path in ipairs{ "..", "...", "..." .. name, "../" .. name, "." .. name, "/" .. name, "up." .. name,
                           "link", "folder", "", "a\0b", "sub\\..\\" .. name, "C:" .. name } do
      local ok, message = pcall(require, path)
      assert(not ok, path)
      assert(message:find("there is no module"), message)
    end)"),
            "");
  std::filesystem::remove(secret);
}

TEST_F(Sandbox, ALinkWithinTheFolderIsFollowed) {
  File("real.lua", "return 'real'");
  Link("real.lua", "link.lua");
  if (IsSkipped()) return;
  EXPECT_EQ(FailureOf("assert(require 'link' == 'real')"), "");
}

TEST_F(Sandbox, AScriptThatIsALinkToElsewhereIsRefused) {
  const std::string form = FormFile("folder/form", "");
  std::filesystem::remove(PathTo("folder/form.lua"));
  Link(File("elsewhere.lua", "print('ran')"), "folder/form.lua");
  if (IsSkipped()) return;
  EXPECT_THROW(Host().LoadForm(form), ScriptFailure);
  Restart({.trusted = true});
  EXPECT_TRUE(Host().LoadForm(form));
}

TEST_F(Sandbox, AFormLoadsNoFormsElsewhere) {
  FormFile("outside", "");
  const std::string inside = FormFile("in/form", R"(
    for _, path in ipairs{ "../outside.form.toml", "link.form.toml", "up/outside.form.toml", outside, "", "missing" } do
      local ok, err = pcall(lw.load, path)
      assert(not ok and err.number == 5 and err.description:find("in the form's own folder"), path)
    end)");
  File("in/form.lua", "outside = '" + PathTo("outside.form.toml") + "'\n" + R"(
    for _, path in ipairs{ "../outside.form.toml", "link.form.toml", "up/outside.form.toml", outside, "", "missing" } do
      local ok, err = pcall(lw.load, path)
      assert(not ok and err.number == 5 and err.description:find("in the form's own folder"), path)
    end)");
  Link(PathTo("outside.form.toml"), "in/link.form.toml");
  Link(PathTo("."), "in/up");
  if (IsSkipped()) return;
  EXPECT_TRUE(Host().LoadForm(inside));
}

TEST_F(Sandbox, TheNameOfAChunkLoadsNoFormsFromElsewhere) {
  FormFile("outside", "");
  const std::string inside = FormFile("in/form", "");
  File("in/form.lua", "local load_form = load([[return pcall(lw.load, 'outside.form.toml')]], '@" +
                          PathTo("pretended.lua") + "')\nassert(not load_form())");
  EXPECT_TRUE(Host().LoadForm(inside));
}

TEST_F(Sandbox, FormsLoadedFromItAreInSandboxesToo) {
  Restart({.trusted = false});
  FormFile("other", "assert(io == nil and os.execute == nil)");
  EXPECT_EQ(FailureOf("lw.load('other.form.toml')"), "");
}

TEST_F(Sandbox, WritesNoFiles) {
  EXPECT_EQ(FailureOf("local ok, err = pcall(form.save, form, 'saved.form.toml')\n"
                      "assert(not ok and err.number == 70 and err.description:find('--trust'))\n"
                      "assert(#form:text() > 0)"),
            "");
  EXPECT_FALSE(std::filesystem::exists(PathTo("saved.form.toml")));
  EXPECT_FALSE(std::filesystem::exists("saved.form.toml"));
  // Before somebody has answered to no end.
  EXPECT_EQ(FailureOf("local ok, err = pcall(lw.save_file, { on_closed=print })\n"
                      "assert(not ok and err.number == 70)\n"
                      "assert(err.description:find('^lw.save_file: a form.s script writes no files'))"),
            "");
}

TEST_F(Sandbox, AsksForFilesOfItsOwnFolderOnly) {
  File("apart/secret.txt", "s");
  File("own/below/data.txt", "d");
  const auto form = Load(R"(
    function answered(path) form.Caption = path or "none" end
    asked = lw.open_file{ on_closed=answered }
    assert(asked.lblFolder.Caption == "own" and asked.lbl1.Caption == " below/", asked.lblFolder.Caption)
    function give(name) asked.txtName.Text = name end
    form:on("Resize", function() give(form.Caption) end))",
                         "own/form");
  const auto give = [&](const char* name) {
    form->SetCaption(name);
    form->SetWidth(form->Width() + Twips(150));
    Driver().Key(13);
  };
  Driver().Settle();
  give("../apart/secret.txt");
  Driver().Key(27);  // the message that it is outside
  EXPECT_EQ(form->Caption(), "../apart/secret.txt");
  give(PathTo("apart/secret.txt").c_str());
  Driver().Key(27);
  give("below/data.txt");
  EXPECT_EQ(form->Caption(), "below/data.txt");
  EXPECT_THAT(Host().HandlerErrors(), ::testing::IsEmpty());
  for (const char* folder : {"..", "../apart", "nowhere"}) {
    EXPECT_THAT(FailureOf("lw.open_file{ folder='" + std::string(folder) + "' }"),
                HasSubstr("There is no folder \"" + std::string(folder) + "\" in the form's own folder"));
  }
}

TEST_F(Sandbox, DrivesNoDesktop) {
  EXPECT_EQ(FailureOf("local ok, err = pcall(lw.desktop, {})\nassert(not ok and err.number == 70)"), "");
}

TEST_F(Sandbox, HasNoFinalizers) {
  EXPECT_EQ(FailureOf("local ok, message = pcall(setmetatable, {}, { __gc = print })\n"
                      "assert(not ok and message:find('__gc'))\n"
                      "local late = setmetatable({}, {})\n"
                      "getmetatable(late).__gc = function() error('ran') end\n"
                      "late = nil collectgarbage() collectgarbage()"),
            "");
}

TEST_F(Sandbox, MetatablesStayProtected) {
  EXPECT_EQ(FailureOf("local t = setmetatable({}, { __metatable = 'no' })\n"
                      "assert(getmetatable(t) == 'no' and not pcall(setmetatable, t, {}))"),
            "");
}

// --- Others ----------------------------------------------------------------------------------------

TEST_F(Sandbox, MetatableOfStringsIsItsOwn) {
  Host().RunText("", "program.lua");
  Load(
      "getmetatable('').__index = { upper = function() return 'theirs' end }\nstring.rep = nil\n"
      "assert(('x'):upper() == 'theirs')");
  EXPECT_EQ(FailureOfProgram("assert(('x'):upper() == 'X' and string.rep('x', 2) == 'xx')"), "");
  Restart({});
  Load("getmetatable('').__index = {} math.max = nil", "first");
  EXPECT_EQ(FailureOf("assert(('x'):upper() == 'X' and math.max(1, 2) == 2)"), "");
}

TEST_F(Sandbox, MetatablesOfTheLibrarysValuesAreOutOfReach) {
  EXPECT_EQ(FailureOf(R"(
    for _, value in ipairs{ form, cmdOK, lw.null, lw.date(2024, 5, 31), lw.font{ Name = "Arial" },
                            lw.new("ksxValueList") } do
      assert(getmetatable(value) == false, tostring(value))
      assert(not pcall(setmetatable, value, {}))
    end)"),
            "");
}

TEST_F(Sandbox, MethodsRefuseWhatIsNotTheirOwn) {
  EXPECT_EQ(FailureOf(R"(
    local on, show, properties = cmdOK.on, form.show, cmdOK.properties
    for _, value in ipairs{ 1, "x", {}, lw.null, lw, print, form } do
      assert(not pcall(on, value, "Click", print) and not pcall(properties, value))
    end
    for _, value in ipairs{ 1, "x", {}, lw.null, cmdOK } do assert(not pcall(show, value)) end)"),
            "");
}

TEST_F(Sandbox, ProgramsGlobalsAreOutOfReach) {
  FormFile("form",
           "assert(secret == nil and program_function == nil) secret = 'theirs' print = nil\n"
           "string.upper = nil _G.pairs = nil rawset(lw, 'load', nil)");
  EXPECT_EQ(FailureOfProgram("secret = 'mine'\nfunction program_function() end\n"
                             "lw.load('" +
                             PathTo("form.form.toml") +
                             "')\nassert(secret == 'mine' and print and string.upper and pairs and lw.load)"),
            "");
}

TEST_F(Sandbox, TwoFormsShareNoGlobals) {
  Load("shared = 1 package.loaded.shared = 1 string.shared = 1 rawset(lw, 'shared', 1)", "first");
  EXPECT_EQ(FailureOf("assert(shared == nil and package.loaded.shared == nil and string.shared == nil and "
                      "rawget(lw, 'shared') == nil)"),
            "");
}

TEST_F(Sandbox, FormsThatLoadEachOtherShareNoGlobals) {
  FormFile("other", "assert(mine == nil and string.mine == nil) theirs = 1");
  EXPECT_EQ(FailureOf("mine = 1 string.mine = 1 lw.load('other.form.toml') assert(theirs == nil)"), "");
}

TEST_F(Sandbox, ErrorsOfOthersAreNotListed) {
  Load("function form_Resize() error('secret') end", "first")->SetWidth(Twips(3000));
  ASSERT_EQ(Host().HandlerErrors().size(), 1u);
  EXPECT_EQ(FailureOf("cmdOK:on('MouseMove', print)\nassert(#lw.errors() == 0)\n"
                      "function form_Resize() error('own') end\n"
                      "form.Width = 2000 assert(#lw.errors() == 1 and lw.errors()[1].message:find('own'))"),
            "");
}

TEST_F(Sandbox, ErrorsCarryNothingOfTheProgram) {
  FormFile("form",
           "function form_Resize() error(setmetatable({}, { __index = function() return 'theirs' end,"
           " __tostring = function() return 'an error of theirs' end })) end");
  EXPECT_EQ(FailureOfProgram("local f = lw.load('" + PathTo("form.form.toml") +
                             "')\nf.Width = 3000\n"
                             "assert(lw.errors()[1].message == 'an error of theirs')"),
            "");
}

TEST_F(Sandbox, AnErrorOfAFormReachesTheProgramAsText) {
  FormFile("form", "error({ call = os })");
  EXPECT_EQ(FailureOfProgram("local ok, err = pcall(lw.load, '" + PathTo("form.form.toml") +
                             "')\nassert(not ok and type(err) == 'string')"),
            "");
}

// --- Handlers between forms and programs ---------------------------------------------------------------

TEST_F(Sandbox, ProgramListensToTheFormsItLoads) {
  FormFile("form", "function form_Load() cmdOK.Tag = 'loaded' end");
  EXPECT_EQ(FailureOfProgram("local named, listened = 0, 0\n"
                             "function frm_Resize() named = named + 1 end\n"
                             "local f = lw.load('" +
                             PathTo("form.form.toml") +
                             "')\nf:on('Resize', function() listened = listened + 1 end)\n"
                             "f.Width = 3000\n"
                             "assert(named == 1 and listened == 1 and f.cmdOK.Tag == 'loaded')"),
            "");
}

TEST_F(Sandbox, AFormListensToTheFormsItLoadsAndMakes) {
  File("other.form.toml", "[form]\nName = \"frmOther\"\n");
  EXPECT_EQ(FailureOf("local other, made = lw.load('other.form.toml'), lw.form{ Name='frmMade' }\n"
                      "local heard = {}\n"
                      "function frmOther_Resize() table.insert(heard, 'other') end\n"
                      "function frmMade_Resize() table.insert(heard, 'made') end\n"
                      "other.Width = 3000 made.Width = 3000\n"
                      "assert(table.concat(heard, ' ') == 'other made')"),
            "");
}

TEST_F(Sandbox, AClosedFormGoesOnListeningToTheFormsItHasMade) {
  const auto form = Load(
      "made = lw.form{ Name='frmMade' }\n"
      "function frmMade_Deactivate() made.Caption = 'heard' end\n"
      "form:show() made:show()");
  form->Close();
  Load("form:show()", "another");  // when closed forms are let go
  const auto windows = Host().Desktop().TopLevelWindows();
  ASSERT_EQ(windows.size(), 2u);
  EXPECT_TRUE(windows[0].title == "heard" || windows[1].title == "heard");
}

// --- Trust -----------------------------------------------------------------------------------------

TEST_F(Sandbox, TrustedFormHasAllOfLuaAndTheProgramsGlobals) {
  Restart({.trusted = true});
  Host().RunText("shared = 'from the program'", "program.lua");
  EXPECT_EQ(
      FailureOf("assert(io.open and os.execute and debug and string.dump and shared == 'from the program')\n"
                "form:save('" +
                PathTo("saved.form.toml") + "')"),
      "");
  EXPECT_TRUE(std::filesystem::exists(PathTo("saved.form.toml")));
}

TEST_F(Sandbox, TrustedFormsLoadTrustedForms) {
  Restart({.trusted = true});
  FormFile("other", "assert(io.open)");
  EXPECT_EQ(FailureOf("lw.load('other.form.toml')"), "");
}

TEST_F(Sandbox, TrustedFormsHaveNoLimits) {
  Restart({.trusted = true, .memory_limit = 1 << 20, .time_limit = std::chrono::milliseconds(1)});
  EXPECT_EQ(FailureOf("local text = ('x'):rep(10000000)\nlocal n = 0\nfor i = 1, 3000000 do n = n + i end"),
            "");
}

TEST_F(Sandbox, TheProgramItselfHasAllOfLua) {
  EXPECT_EQ(FailureOfProgram(
                "assert(io.open and os.execute and debug and string.dump and require 'levelwidgets' == lw)"),
            "");
}

}  // namespace
}  // namespace levelwidgets
