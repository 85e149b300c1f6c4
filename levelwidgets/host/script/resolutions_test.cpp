// Forms at other resolutions than 96 dots per inch.
#include <gtest/gtest.h>

#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets {
namespace {

class ResolutionsTest : public ::testing::TestWithParam<int> {};

// Presses each row of a bar of 3000 twips and compares the step with what is drawn there. The rows of pixels
// where a button meets the track belong to either.
constexpr char kPressEachRow[] = R"lua(
local d = lw.desktop{ dpi=DPI }
local f = lw.form{ Name="frm", Width=3000, Height=3600 }
local bar = f:add("FlatScroll", "bar", { Left=300, Top=300, Width=255, Height=3000, SmallChange=2, LargeChange=10 })
f:show()
local left, top, right, bottom = d:rect(bar)
local rows = bottom - top
local twips = math.ceil(1440 / DPI)
assert(rows == 3000 * DPI // 1440, "rows")
local length = 200 // twips
local steps = { [-2]=0, [2]=0 }
for row = 0, rows - 1 do
  bar.Value = 50
  d:move(left + 2, top + row)
  d:press(1)
  d:release(1)
  d:advance(600)                                   -- or two presses are a double click
  local step = bar.Value - 50
  local place = "row " .. row .. " of " .. rows .. " steps by " .. step
  if row < length then assert(step == -2, place) end
  if row > rows - length then assert(step == 2, place) end
  if row > length and row < rows - length then assert(step ~= 2 and step ~= -2, place) end
  steps[step] = (steps[step] or 0) + 1
end
assert(steps[-2] >= length and steps[2] >= length - 1, "steps")
assert(steps[-10] > 0 and steps[10] > 0 and steps[0] > 0, "pages and thumb")
)lua";

TEST_P(ResolutionsTest, EveryRowOfADrawnArrowButtonSteps) {
  ScriptHost host;
  std::string text = kPressEachRow;
  for (std::size_t at = text.find("DPI"); at != std::string::npos; at = text.find("DPI")) {
    text.replace(at, 3, std::to_string(GetParam()));
  }
  EXPECT_NO_THROW(host.RunText(text, "rows.lua")) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(DotsPerInch, ResolutionsTest,
                         ::testing::Values(72, 96, 120, 144, 168, 170, 192, 216, 240, 264));

TEST(Resolutions, AFormIsAsManyInchesAtEachOfThem) {
  for (const auto& [dpi, width, height] : {std::tuple{72, 450, 300},
                                           {96, 600, 400},
                                           {120, 750, 500},
                                           {168, 1050, 700},
                                           {192, 1200, 800},
                                           {216, 1350, 900}}) {
    ScriptHost host;
    host.RunText("local d = lw.desktop{ width=2000, height=1500, dpi=" + std::to_string(dpi) +
                     " } local f = lw.form{ Name='frm', Width=9000, Height=6000 }"
                     " local b = f:add('FlatLabel', 'l', { Width=9000, Height=6000 }) f:show()"
                     " local left, top, right, bottom = d:rect(b) assert(right - left == " +
                     std::to_string(width) + " and bottom - top == " + std::to_string(height) +
                     ", (right - left) .. ' by ' .. (bottom - top))"
                     " assert(f.Width == 9000 and b.Width == 9000)",
                 "pixels.lua");
  }
}

// Where a control's own length would leave a pixel between it and the next one, or cover one.
TEST(Resolutions, NeighboursMeetAtEachOfThem) {
  for (const int dpi : {72, 96, 106, 120, 144, 168, 192, 216, 240, 300}) {
    ScriptHost host;
    host.RunText("local d = lw.desktop{ width=4000, height=1500, dpi=" + std::to_string(dpi) + R"lua( }
      local f = lw.form{ Name='frm', Width=9000, Height=6000 }
      local former, before
      for i = 0, 30 do
        local at = 15 * 19 * i
        local b = f:add('FlatLabel', 'l' .. i, { Left=at, Top=15 * 7 * i, Width=15 * 19, Height=15 * 7 })
        f:show()
        local left, top, right, bottom = d:rect(b)
        if former then assert(left == former and top == before, i .. ': ' .. left .. ' after ' .. former) end
        former, before = right, bottom
      end)lua",
                 "neighbours.lua");
  }
}

TEST(Resolutions, APlaceInAFormIsThatOfItsControls) {
  for (const int dpi : {96, 168, 192}) {
    ScriptHost host;
    host.RunText("local d = lw.desktop{ width=4000, height=1500, dpi=" + std::to_string(dpi) + R"lua( }
      local f = lw.form{ Name='frm', Width=9000, Height=6000 }
      local b = f:add('FlatButton', 'b', { Left=6000, Top=4500, Width=1500, Height=450 })
      f:show()
      local clicks = 0
      b:on('Click', function() clicks = clicks + 1 end)
      for _, corner in ipairs{ { 6000, 4500 }, { 7499 - 10, 4949 - 10 } } do
        d:move_to(f, table.unpack(corner))
        d:click()
      end
      d:move_to(f, 5999 - 10, 4500)
      d:click()
      assert(clicks == 2, clicks)
      f.Left, f.Top = lw.screen().Width - f.Width, 0
      local left, top, right = d:rect(f)
      assert(right == 4000 + 2, right))lua",
                 "place.lua");
  }
}

TEST(Resolutions, AFormThatIsResizedHasTheTwipsOfItsPixels) {
  for (const auto& [dpi, twips] : {std::pair{"96", "15"}, {"168", "1440 / 168"}, {"192", "7.5"}}) {
    ScriptHost host;
    host.RunText(std::string("local d = lw.desktop{ width=1002, height=800, dpi=") + dpi + R"lua( }
      local f = lw.form{ Name='frm', Width=3000, Height=3000 }
      f:show()
      f.Left, f.Top = 1440, 720
      local left, top, right, bottom = d:rect(f)
      assert(left == )lua" +
                     dpi + " and top == " + dpi + R"lua( / 2, left .. ' ' .. top)
      d:maximize(f)
      left, top, right, bottom = d:rect(f)
      assert(right - left == 1002)
      assert(math.abs(f.Width - 1000 * )lua" +
                     twips + ") < 0.01, f.Width)",
                 "resized.lua");
  }
}

TEST(Resolutions, AMessageHasNoMoreLinesAtAnyOfThem) {
  const auto height_at = [](int dpi) {
    ScriptHost host;
    return host.RunText("local d = lw.desktop{ width=3000, height=2000, dpi=" + std::to_string(dpi) + R"lua( }
      local m = lw.message{ text = string.rep('Some words that make it long. ', 18), title = 'Long' }
      return math.tointeger(m.Height))lua",
                        "message.lua");
  };
  const int at_96 = height_at(96);
  for (const int dpi : {120, 144, 168, 192}) {
    EXPECT_LE(height_at(dpi), at_96) << dpi;
    EXPECT_GT(height_at(dpi), at_96 * 3 / 4) << dpi;
  }
}

// What is drawn in a control is as large beside it as at 96.
TEST(Resolutions, TextsThatFitAtNinetySixFitAtEachOfThem) {
  const auto width_at = [](int dpi) {
    memory::Desktop desktop({.dpi_x = dpi, .dpi_y = dpi});
    const auto form = Form::Create(desktop, {.size = {Twips(9000), Twips(6000)}});
    FlatLabel& label = form->Add<FlatLabel>("lbl", {{Twips(), Twips()}, {{Twips(3000), Twips(300)}}});
    PixelSize text;
    desktop.Drawing().GetTextExtentPoint32A(label.GetSurface().hDC(), "A caption of some length", text);
    return static_cast<double>(text.width) / label.GetSurface().ClientPixels().width();
  };
  const double fits = width_at(96);
  for (const int dpi : {100, 120, 144, 168, 170, 192, 216, 240, 264, 336}) {
    EXPECT_LT(width_at(dpi), fits * 1.03) << dpi;
    EXPECT_GT(width_at(dpi), fits * 0.85) << dpi;
  }
}

}  // namespace
}  // namespace levelwidgets
