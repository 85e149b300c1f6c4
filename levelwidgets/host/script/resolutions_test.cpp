// Forms at other resolutions than 96 dots per inch.
#include <gtest/gtest.h>

#include <levelwidgets/host/script/script_host.h>

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
local twips = math.tointeger(math.floor(1440 / DPI + 0.5))
if 1440 / DPI == 7.5 then twips = 8 end
assert(rows == 3000 // twips, "rows")
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
  if row > 2800 // twips then assert(step == 2, place) end
  if row > length and row < 2800 // twips then assert(step ~= 2 and step ~= -2, place) end
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
                         ::testing::Values(72, 96, 120, 144, 168, 192, 216, 240));

// A form of so many twips has so many pixels, whatever the inches.
TEST(Resolutions, AFormsPixelsAreItsTwipsDividedByWholeTwipsToThePixel) {
  for (const auto& [dpi, width, height] :
       {std::tuple{96, 600, 400}, {168, 1000, 666}, {192, 1125, 750}, {216, 1285, 857}}) {
    ScriptHost host;
    host.RunText("local d = lw.desktop{ width=2000, height=1500, dpi=" + std::to_string(dpi) +
                     " } local f = lw.form{ Name='frm', Width=9000, Height=6000 }"
                     " local b = f:add('FlatLabel', 'l', { Width=9000, Height=6000 }) f:show()"
                     " local left, top, right, bottom = d:rect(b) assert(right - left == " +
                     std::to_string(width) + " and bottom - top == " + std::to_string(height) +
                     ", (right - left) .. ' by ' .. (bottom - top))",
                 "pixels.lua");
  }
}

}  // namespace
}  // namespace levelwidgets
