// FlatTextBox: what both modes keep to, when it repaints, and what comes before what.
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TwipPoint kAt{Twips(600), Twips(300)};
constexpr TwipSize kSize{Twips(3000), Twips(1500)};

class FlatTextBoxModeTest : public DesktopTest, public ::testing::WithParamInterface<bool> {
 protected:
  FlatTextBox& Loaded(const std::string& text = "", std::int32_t max_length = 0) {
    return Load(GetParam(), text, max_length);
  }
  FlatTextBox& Load(bool multi_line, const std::string& text, std::int32_t max_length) {
    PropertyBag saved;
    saved.WriteProperty("MultiLine", multi_line, false);
    saved.WriteProperty("MaxLength", max_length, 0);
    saved.WriteProperty("Text", text, "");
    auto& box = AddLoaded<FlatTextBox>("txt", saved, kAt, kSize);
    Hosted(box).SetFocus();
    Driver().Settle();
    return box;
  }
  // The calls by which a window is repainted at once, if they name `window`.
  template <typename Action>
  Journal RepaintsOf(WindowHandle window, Action action) {
    Journal names;
    for (const TracedCall& call : CallsNamed({"InvalidateRect", "UpdateWindow"}, action)) {
      if (call.arguments.front() == TraceArgument(std::int64_t{window.value})) names.push_back(call.name);
    }
    return names;
  }
};

TEST_P(FlatTextBoxModeTest, MaxLengthLimitsTypingAlsoAfterAnotherAlignment) {
  auto& box = Loaded("", 5);
  Driver().Type("abcdefgh");
  EXPECT_EQ(box.Text(), "abcde");
  box.SetAlignment(ksxRight);
  box.ActiveEdit().Select(5, 0);
  Driver().Type("x");
  EXPECT_EQ(box.Text(), "abcde");
  box.SetMaxLength(7);
  box.ActiveEdit().Select(5, 0);
  Driver().Type("xyz");
  EXPECT_EQ(box.Text(), "abcdexy");
}

TEST_P(FlatTextBoxModeTest, ColoursShowAtOnce) {
  auto& box = Loaded("text");
  const WindowHandle edit = box.ActiveEdit().hWnd();
  EXPECT_THAT(RepaintsOf(edit, [&] { box.SetBackColor(Color(0x0000FF00)); }),
              ElementsAre("InvalidateRect", "UpdateWindow"));
  EXPECT_EQ(PixelAt(box, {150, 50}), ColorRef{0x0000FF00});
  EXPECT_THAT(RepaintsOf(edit, [&] { box.SetForeColor(Color(0x000000FF)); }),
              ElementsAre("InvalidateRect", "UpdateWindow"));
}

TEST_P(FlatTextBoxModeTest, RefreshRepaintsTheTextAtOnce) {
  auto& box = Loaded("text");
  const WindowHandle edit = box.ActiveEdit().hWnd();
  Variant result = 1;
  EXPECT_THAT(RepaintsOf(edit, [&] { result = InvokeByName(box, "Refresh", {}); }),
              ElementsAre("InvalidateRect", "UpdateWindow"));
  EXPECT_EQ(result, Variant());
}

TEST_P(FlatTextBoxModeTest, ABoxTakesNoInputInDesignMode) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& box = AddNew<FlatTextBox>("txtDesigned", kAt, kSize);
  box.SetMultiLine(GetParam());
  box.SetText("kept");
  Driver().Settle();
  Watch(box);
  Driver().DoubleClick(ScreenPoint(box, PixelPoint{20, 10}));
  Driver().Type("x");
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(box.Text(), "kept");
  EXPECT_NE(Windows().GetFocus(), box.ActiveEdit().hWnd());
}

INSTANTIATE_TEST_SUITE_P(Modes, FlatTextBoxModeTest, ::testing::Bool(),
                         [](const auto& mode) { return mode.param ? "multi_line" : "single_line"; });

class FlatTextBoxOrderTest : public FlatTextBoxModeTest {};

TEST_F(FlatTextBoxOrderTest, ChangeIsRaisedBeforeTheBarFollows) {
  auto& box = Load(true, "one", 0);
  std::vector<std::int32_t> max_inside;
  box.Change += [&] { max_inside.push_back(box.Bar()->Max()); };
  box.SetText("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n11\r\n12");
  EXPECT_THAT(max_inside, ElementsAre(1));
  EXPECT_GT(box.Bar()->Max(), 1);
}

TEST_F(FlatTextBoxOrderTest, APasswordStaysHiddenAfterAnotherAlignment) {
  auto& box = Load(false, "secret", 0);
  box.SetPasswordChar("*");
  box.SetAlignment(ksxCenter);
  EXPECT_EQ(box.ActiveEdit().Send(kEmGetPasswordChar), '*');
  EXPECT_EQ(box.PasswordChar(), "*");
  EXPECT_EQ(box.Text(), "secret");
}

TEST_F(FlatTextBoxOrderTest, NewAndLoadedBoxesTakeTheFontOfTheForm) {
  FormOptions options;
  options.font = {.name = "Tahoma", .size = 14, .bold = true};
  MakeForm(options);
  EXPECT_EQ(AddNew<FlatTextBox>("txtNew", kAt, kSize).GetFont()->Description(), options.font);
  EXPECT_EQ(AddLoaded<FlatTextBox>("txtLoaded", {}, kAt, kSize).GetFont()->Description(), options.font);
}

TEST_F(FlatTextBoxOrderTest, TheStateOfTheEditIsReadInItsOrder) {
  auto& box = Load(true, "one", 0);
  const WindowHandle edit = box.ActiveEdit().hWnd();
  std::vector<std::int64_t> messages;
  for (const TracedCall& call : CallsNamed({"SendMessageA"}, [&] { box.OnResize(); })) {
    if (call.arguments[0] != TraceArgument(std::int64_t{edit.value})) continue;
    messages.push_back(std::get<std::int64_t>(call.arguments[1]));
  }
  EXPECT_THAT(messages,
              ElementsAre(kWmGetFont, kEmGetRect, kEmGetLineCount, kEmLineFromChar, kEmGetFirstVisibleLine));
}

TEST_F(FlatTextBoxOrderTest, TheBarHasFollowedTheFontWhenTheChangeIsNotified) {
  auto& box = Load(true, "1\r\n2\r\n3\r\n4\r\n5", 0);
  ASSERT_EQ(box.Bar()->Max(), 1);
  std::vector<std::int32_t> max_when_notified;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view) { max_when_notified.push_back(box.Bar()->Max()); });
  box.SetFont(MakeFont({.size = 24}));
  ASSERT_EQ(max_when_notified.size(), 1u);
  EXPECT_GT(max_when_notified[0], 1);
}

TEST_F(FlatTextBoxOrderTest, AChangeOfTheModeIsNotifiedBeforeTheOtherEditIsShown) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& box = AddNew<FlatTextBox>("txtDesigned", kAt, kSize);
  std::vector<bool> bar_when_notified;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view) { bar_when_notified.push_back(box.HasBar()); });
  box.SetMultiLine(true);
  EXPECT_THAT(bar_when_notified, ElementsAre(false));
  EXPECT_TRUE(box.Bar().Visible());
}

// Sliding off the arrow and letting go over the text is an everyday gesture.
TEST_F(FlatTextBoxOrderTest, AnArrowOfTheBarLetGoOverTheTextStopsScrolling) {
  std::string lines = "0";
  for (int i = 1; i < 100; ++i) lines += "\r\n" + std::to_string(i);
  auto& box = Load(true, lines, 0);
  Driver().MovePointer(ScreenPoint(*box.Bar(), PixelPoint{8, 95}));
  Driver().Press(kLeftButton);
  Driver().MovePointer(ScreenPoint(box, PixelPoint{20, 50}));
  Driver().Release(kLeftButton);
  const std::int32_t value = box.Bar()->Value();
  Driver().Advance(1000);
  EXPECT_EQ(box.Bar()->Value(), value);
}

}  // namespace
}  // namespace levelwidgets::testing
