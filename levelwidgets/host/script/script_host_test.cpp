#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/platform_with_messages.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ScriptHostTest : public testing::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    host_.emplace(SharedDriver(), [this](const std::string& text) { reports_ += text + "\n"; });
  }
  void TearDown() override {
    host_.reset();
    std::filesystem::remove_all(folder_);
    DesktopTest::TearDown();
  }

  int Run(const std::string& text) { return host_->RunText(text, "test.lua"); }

  std::string FailureOf(const std::string& text) {
    try {
      Run(text);
    } catch (const ScriptFailure& failure) {
      return failure.what();
    }
    return "no failure";
  }

  // A file beside the others of this test.
  std::string File(const std::string& name, const std::string& text) {
    std::filesystem::create_directories(folder_);
    std::ofstream(folder_ / name) << text;
    return (folder_ / name).string();
  }

  std::string reports_;
  std::optional<ScriptHost> host_;
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(ScriptHostTest, AFormIsPlacedByLeftAndTopAndSavesThem) {
  EXPECT_EQ(Run(R"(
    local d = lw.desktop{}
    local placed = lw.form{ Name = "frmPlaced", Left = 1500, Top = 300 }
    placed:show()
    local left, top = d:rect(placed)
    assert(left == 100 and top == 20, left .. " " .. top)
    assert(placed:text():find("Left = 1500\nTop = 300\n", 1, true), placed:text())
    placed.Left = 1650
    assert(d:rect(placed) == 110 and placed.Left == 1650 and placed.Top == 300)

    local middle = lw.form{ Name = "frmMiddle" }
    assert(not middle:text():find("Left", 1, true), middle:text())
    assert(middle.Left == d:rect(middle) * 15)
    local ok, problem = pcall(function() middle.Top = 1e30 end)
    assert(not ok and problem.number == 6, tostring(problem))
  )"),
            0);
}

TEST_F(ScriptHostTest, ADriverSeesToolTips) {
  EXPECT_EQ(Run(R"(
    local f = lw.form{ Name = "frmOrder", Caption = "Order", Width = 3000, Height = 3000 }
    f:add("FlatButton", "cmdSave", { Left = 300, Top = 300, ToolTipText = "Keeps it" })
    f:show()
    local d = lw.desktop{}
    d:move_to(f.cmdSave, 300, 150)
    d:advance(700)
    local windows = d:windows()
    assert(#windows == 2 and windows[1].title == "Keeps it" and not windows[1].active)
    assert(windows[2].title == "Order" and windows[2].active)
    d:move(2, 2)
    d:advance(200)
    assert(#d:windows() == 1)
  )"),
            0);
}

TEST_F(ScriptHostTest, AnErrorOfAControlsOwnInputIsReportedAsAHandlersAndTheFormGoesOn) {
  EXPECT_EQ(Run(R"(
    local f = lw.form{ Name = "frmOrder", Width = 3000, Height = 3000 }
    local bar = f:add("FlatScroll", "scrQty", { Width = 255, Height = 2250, Max = 100, Value = 50 })
    bar.SmallChange = -200
    f:show()
    local d = lw.desktop{}
    local left, top = d:rect(bar)
    d:click(left + 8, top + 5)
    assert(bar.Value == 50 and #lw.errors() == 1)
  )"),
            0);
  ASSERT_EQ(host_->HandlerErrors().size(), 1u);
  EXPECT_EQ(reports_,
            "frmOrder.scrQty MouseDown: Invalid Value (error -2147220502, LevelWidgets.FlatScroll)\n");
}

TEST_F(ScriptHostTest, AControlThatAHandlerRemovesWhileItIsAddedIsAnErrorForWhoeverAddsIt) {
  for (const char* deed : {"f:remove(e.Control)", "f:close()"}) {
    EXPECT_EQ(Run(std::string(R"(
      local f = lw.form{ Name = "frmOrder", Width = 3000, Height = 3000 }
      f:on("PropertyChanged", function(e) )") +
                  deed + R"( end)
      for _, values in ipairs{ { Properties = {} }, { Caption = "Save" } } do
        local ok, problem = pcall(f.add, f, "FlatButton", "cmdSave", values)
        assert(not ok and problem.number == 5, tostring(problem))
        local is_closed = not pcall(function() return f:controls() end)
        assert(is_closed or #f:controls() == 0)
        if is_closed then break end
        assert(problem.description:find("cmdSave was not added", 1, true), problem.description)
      end
    )"),
              0)
        << deed;
  }
  EXPECT_EQ(reports_, "");
}

TEST_F(ScriptHostTest, AddingKeepsTheControlThatAHandlerHasPutInItsPlace) {
  EXPECT_EQ(Run(R"(
    local f = lw.form{ Name = "frmOrder", Width = 3000, Height = 3000 }
    local once = true
    f:on("PropertyChanged", function(e)
      if e.Name ~= "MaxLength" or not once then return end
      once = false
      f:remove(e.Control)
      f:add("FlatLabel", e.Control)
    end)
    local ok, problem = pcall(f.add, f, "FlatTextBox", "txtName", { MaxLength = 3, PasswordChar = "too long" })
    assert(not ok, "added")
    assert(tostring(f.txtName):find("FlatLabel"), tostring(f.txtName))
  )"),
            0);
}

TEST_F(ScriptHostTest, StatusIsWhatTheProgramReturns) {
  EXPECT_EQ(Run(""), 0);
  EXPECT_EQ(Run("return 3"), 3);
  EXPECT_EQ(Run("return true"), 0);
  EXPECT_EQ(Run("return false"), 1);
  EXPECT_EQ(Run("return 'text'"), 0);
}

TEST_F(ScriptHostTest, FailureNamesTheLineAndTheWayThere) {
  EXPECT_THAT(FailureOf("local function inner() error('broken') end\ninner()"),
              StartsWith("test.lua:1: broken\nstack traceback:"));
  EXPECT_THAT(FailureOf("\nx = = 1"), StartsWith("test.lua:2: unexpected symbol"));
  EXPECT_THAT(FailureOf("lw.form{}\nlw.form{}.Captoin = 1"),
              StartsWith("test.lua:2: Form has no member \"Captoin\"; did you mean \"Caption\"? (error 438, "
                         "LevelWidgets.Form)\nstack traceback:"));
}

TEST_F(ScriptHostTest, FailureLeavesTheHostUsable) {
  FailureOf("error('broken')");
  FailureOf("= 1");
  EXPECT_EQ(Run("return 5"), 5);
}

// Finalizers run in the order opposite to that in which their values were made.
TEST_F(ScriptHostTest, AFinalizerThatRunsAtTheEndFindsNoObjects) {
  const std::string path = File("found", "");
  Run("local path = [[" + path + "]]\n" + R"(
    kept = setmetatable({}, { __gc = function()
      local file = io.open(path, "w")
      local function try(read) file:write(tostring(select(2, pcall(read))), "\n") end
      try(function() return cells[1][1] end)
      try(function() row[1] = "x" end)
      try(function() return grid.RowCount end)
      try(function() return items[1] end)
      try(function() return list.Count end)
      file:close()
    end })
    grid = lw.form{ Name = "frm" }:add("FlatGrid", "grd")
    grid.Columns:Add("a")
    cells, row = grid.RowData, grid.RowData[1]
    list = lw.new("ksxValueList")
    items = list.Item)");
  host_.reset();
  std::stringstream found;
  found << std::ifstream(path).rdbuf();
  const std::string gone = "The object no longer exists (error 5, LevelWidgets)\n";
  EXPECT_EQ(found.str(), "test.lua:6: " + gone + "test.lua:7: " + gone +
                             "test.lua:8: attempt to index a userdata value (global 'grid')\n" +
                             "test.lua:9: " + gone +
                             "test.lua:10: attempt to index a userdata value (global 'list')\n");
}

TEST_F(ScriptHostTest, ProgramGetsItsArguments) {
  const std::string path = File("program.lua",
                                "local first, second = ...\n"
                                "return first == '--a' and second == 'b c' and arg[1] == first and "
                                "arg[2] == second and arg[0]:match('program.lua$') ~= nil");
  EXPECT_EQ(host_->RunFile(path, {"--a", "b c"}), 0);
}

TEST_F(ScriptHostTest, ModulesBesideTheProgramAreFound) {
  File("beside.lua", "return 7");
  EXPECT_EQ(host_->RunFile(File("program.lua", "return require 'beside'")), 7);
}

TEST_F(ScriptHostTest, MissingFileIsAFailure) {
  EXPECT_THROW(host_->RunFile((folder_ / "missing.lua").string()), ScriptFailure);
}

TEST_F(ScriptHostTest, HandlerErrorIsReportedAndTheProgramGoesOn) {
  Run("form = lw.form{ Name='frm' }\nform:on('Resize', function() error('broken') end)\nform.Width = 3000");
  ASSERT_EQ(host_->HandlerErrors().size(), 1u);
  const HandlerError& error = host_->HandlerErrors().front();
  EXPECT_EQ(error.form, "frm");
  EXPECT_EQ(error.control, "");
  EXPECT_EQ(error.event, "Resize");
  EXPECT_EQ(error.message, "test.lua:2: broken");
  EXPECT_THAT(reports_, StartsWith("frm Resize: test.lua:2: broken\nstack traceback:\n"));
}

TEST_F(ScriptHostTest, HandlersRunForInputFromOutsideTheScript) {
  Run("local f = lw.form{ Name='frm', Width=3000, Height=3000 }\n"
      "f:add('FlatButton', 'cmdOK', { Left=0, Top=0, Width=3000, Height=3000 })\n"
      "f:show()\n"
      "function cmdOK_Click() clicked = true end");
  const TopLevelWindow window = Driver().TopLevelWindows().front();
  Driver().Click({(window.rect.left + window.rect.right) / 2, (window.rect.top + window.rect.bottom) / 2});
  EXPECT_EQ(Run("return clicked == true"), 0);
}

TEST_F(ScriptHostTest, HandlersAreSilentAfterTheHostHasEnded) {
  bool reported = false;
  auto host = std::make_unique<ScriptHost>(SharedDriver(), [&](const std::string&) { reported = true; });
  host->RunText(
      "local f = lw.form{ Name='frm' }\n"
      "f:on('Deactivate', function() error('too late') end)\n"
      "f:on('Unload', function() error('too late') end)\n"
      "f:show()\n"
      "kept = f",
      "test.lua");
  host.reset();
  EXPECT_FALSE(reported);
}

TEST_F(ScriptHostTest, LoadedFormHasRunItsScript) {
  File("order.lua", "cmdSave.Caption = '&Store'\nfunction form_Load() cmdSave.Tag = 'loaded' end");
  const auto form = host_->LoadForm(File("order.form.toml",
                                         "[form]\nName = \"frmOrder\"\nScript = \"order.lua\"\n\n"
                                         "[[control]]\nClass = \"FlatButton\"\nName = \"cmdSave\"\n"));
  const auto button = form->Find("cmdSave");
  ASSERT_TRUE(button);
  EXPECT_EQ(GetByName(*button->GetControl(), "Caption"), Variant("&Store"));
  EXPECT_EQ(button->Tag(), "loaded");
}

TEST_F(ScriptHostTest, EveryErrorOfAFormFileIsReported) {
  const std::string path = File("bad.form.toml",
                                "[form]\nName = \"frmBad\"\nWidth = \"wide\"\n\n"
                                "[[control]]\nClass = \"FlatButon\"\nName = \"cmdOne\"\n");
  try {
    host_->LoadForm(path);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_THAT(error.Description(), HasSubstr(path + ":3:"));
    EXPECT_THAT(error.Description(), HasSubstr("\n" + path + ":6:"));
  }
}

TEST_F(ScriptHostTest, WarningsOfAFormFileAreReported) {
  host_->LoadForm(File("odd.form.toml", "[form]\nName = \"frmOdd\"\nColour = 1\n"));
  EXPECT_THAT(reports_, HasSubstr("odd.form.toml:3:1: warning: "));
}

TEST_F(ScriptHostTest, HandlersThatNoEventCallsAreReportedWithTheNameThatWasMeant) {
  File("order.lua",
       "function cmdSvae_Click() end\n"
       "function form_Lod() end\n"
       "function cmdSave_GotFocsu() end\n"
       "function cmdSave_Click() end function form_Load() end\n"
       "function frmOrder_Rezise() end\n"
       "function load_data() end function cmdSave_helper() end\n"
       "function other_Click() end function cmdSvae_helper() end\n"
       "function frmOdrer_Load() end\n"
       "function cmdSvae_GotFocus() end\n"
       "cmdSave_Clik = print\n"
       "function txt_note_Chnage() end\n"
       "function txt_nota_Change() end");
  host_->LoadForm(File("order.form.toml",
                       "[form]\nName = \"frmOrder\"\nScript = \"order.lua\"\n\n"
                       "[[control]]\nClass = \"FlatButton\"\nName = \"cmdSave\"\n\n"
                       "[[control]]\nClass = \"FlatTextBox\"\nName = \"txt_note\"\n"));
  std::string expected;
  for (const auto& [line, name, meant] : {std::tuple{3, "cmdSave_GotFocsu", "cmdSave_GotFocus"},
                                          {1, "cmdSvae_Click", "cmdSave_Click"},
                                          {9, "cmdSvae_GotFocus", "cmdSave_GotFocus"},
                                          {2, "form_Lod", "form_Load"},
                                          {8, "frmOdrer_Load", "frmOrder_Load"},
                                          {5, "frmOrder_Rezise", "frmOrder_Resize"},
                                          {12, "txt_nota_Change", "txt_note_Change"},
                                          {11, "txt_note_Chnage", "txt_note_Change"}}) {
    expected += "order.lua:" + std::to_string(line) + ": warning: no event calls " + name +
                "; did you mean \"" + meant + "\"?\n";
  }
  std::istringstream lines(reports_);
  std::string reported;
  for (std::string line; std::getline(lines, line);) {
    // Without the folder, of which only the end is reported.
    reported += line.substr(std::min(line.size(), line.find("order.lua"))) + "\n";
  }
  EXPECT_EQ(reported, expected);
}

TEST_F(ScriptHostTest, OfAFormThatItsScriptHasClosedNoHandlerIsMissed) {
  File("closing.lua", "function form_Lod() end form:close()");
  host_->LoadForm(File("closing.form.toml", "[form]\nName = \"frm\"\nScript = \"closing.lua\"\n"));
  EXPECT_EQ(reports_, "");
}

TEST_F(ScriptHostTest, NilIsNoValueOfAPropertyOfATypeOfItsOwn) {
  EXPECT_EQ(Run("local f = lw.form{ Name='f' }\n"
                "local b = f:add('FlatButton', 'b')\n"
                "local function refused(object, name)\n"
                "  local ok, err = pcall(function() object[name] = nil end)\n"
                "  return not ok and err.number == 13 and err.description\n"
                "end\n"
                "assert(refused(b, 'Caption') == 'FlatButton.Caption cannot be nil; lw.null is Null')\n"
                "assert(refused(b, 'Enabled') and refused(b, 'Left') and refused(f, 'Caption'))\n"
                "assert(b.Enabled and b.Caption == 'b')"),
            0);
}

TEST_F(ScriptHostTest, NilForAPropertyThatCannotBeWrittenIsRefusedAsAnyValueIs) {
  EXPECT_EQ(Run("local f = lw.form{ Name='f' }\n"
                "local function refusal(value)\n"
                "  local ok, err = pcall(function() f.hWnd = value end)\n"
                "  return not ok and err.description\n"
                "end\n"
                "assert(refusal(1) and refusal(nil) == refusal(1), refusal(nil))"),
            0);
}

TEST_F(ScriptHostTest, FormOfAFailingScriptIsClosed) {
  File("failing.lua", "error('not today')");
  const std::string path = File("failing.form.toml", "[form]\nName = \"frm\"\nScript = \"failing.lua\"\n");
  const std::size_t windows = Driver().LiveWindows();
  EXPECT_THROW(host_->LoadForm(path), ScriptFailure);
  EXPECT_EQ(Run("collectgarbage() collectgarbage()"), 0);
  EXPECT_EQ(Driver().LiveWindows(), windows);
}

TEST_F(ScriptHostTest, BytecodeIsRefusedAsAFormScript) {
  const std::string script = File("code.lua", "\x1bLua");
  EXPECT_THAT(ScriptHost::SyntaxError(File("f.form.toml", ""), script), HasSubstr("binary"));
}

TEST_F(ScriptHostTest, SyntaxErrorHasItsLine) {
  const std::string form = File("f.form.toml", "");
  EXPECT_THAT(ScriptHost::SyntaxError(form, File("bad.lua", "\nx = = 1")),
              HasSubstr("bad.lua:2: unexpected symbol"));
  EXPECT_EQ(ScriptHost::SyntaxError(form, File("good.lua", "x = 1")), "");
}

TEST_F(ScriptHostTest, SyntaxErrorOfAFileOutsideTheFormsFolderShowsNothingOfItUnlessTrusted) {
  const std::string form = File("forms/f.form.toml", "");
  const std::string secret = File("secret.lua", "hunter2 hunter2");
  EXPECT_EQ(ScriptHost::SyntaxError(form, secret),
            secret + ": the script of a form is a file in the form's own folder");
  EXPECT_THAT(ScriptHost::SyntaxError(form, secret, true), HasSubstr("hunter2"));
}

TEST_F(ScriptHostTest, FormsAreMadeOnThePlatformThatIsGivenAndThereIsNoDesktopToDrive) {
  ScriptHost host(Tracer());
  host.RunText("frm = lw.form{ Name='frm', Caption='Given' } frm:show()", "test.lua");
  ASSERT_EQ(Driver().TopLevelWindows().size(), 1u);
  EXPECT_EQ(Driver().TopLevelWindows().front().title, "Given");
  EXPECT_EQ(host.RunText("local ok, err = pcall(lw.desktop, {}) return err.number", "test.lua"), 5);
  EXPECT_THROW(host.Desktop(), Error);
  EXPECT_THROW(host.MakeDesktop({}), Error);
}

TEST_F(ScriptHostTest, AMessageThatTheSystemShowsIsNoFormAndItsAnswerComesLater) {
  testing::PlatformWithMessages platform(Tracer());
  platform.pressed = 7;  // No
  ScriptHost host(platform);
  const char* const script =
      "frm = lw.form{ Name='frm' } frm:show() "
      "return select('#', lw.message{ text='Store?', buttons='YesNo', "
      "on_closed=function(button) frm.Caption = 'pressed ' .. button end })";
  EXPECT_EQ(host.RunText(script, "test.lua"), 0);
  EXPECT_TRUE(platform.shown.empty());
  Driver().Settle();
  EXPECT_EQ(platform.shown.at(0).text, "Store?");
  EXPECT_EQ(Driver().TopLevelWindows().front().title, "pressed 2");
}

TEST_F(ScriptHostTest, DesktopThatIsGivenCanBeAskedForAtAnyTimeAndStaysAsItIs) {
  EXPECT_EQ(&host_->Desktop(), &Driver());
  EXPECT_EQ(Run("lw.form{}:show() return #lw.desktop{}:windows()"), 1);
  EXPECT_EQ(Run("local ok, err = pcall(lw.desktop, { width=640 }) return err.number"), 5);
  EXPECT_EQ(Run("return not pcall(lw.desktop)"), 0);
  EXPECT_THROW(host_->MakeDesktop({}), Error);
}

}  // namespace
}  // namespace levelwidgets
