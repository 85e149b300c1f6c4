// What loading a form makes a platform do: only what can be seen of the form later.
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {
namespace {

class FormLoadCost : public testing::DesktopTest {
 protected:
  static std::string TextOf(int count, const std::vector<std::string>& kinds) {
    std::string text = "[form]\nName = \"f\"\nWidth = 9000\nHeight = 6000\n";
    for (int i = 0; i < count; ++i) {
      const std::string& kind = kinds[static_cast<std::size_t>(i) % kinds.size()];
      text += "[[control]]\nClass = \"" + kind + "\"\nName = \"c" + std::to_string(i) +
              "\"\nLeft = 120\nTop = " + std::to_string(i * 300) + "\nWidth = 1200\nHeight = 285\n";
      if (kind == "FlatTextBox") text += "Properties = { Text = \"text\" }\n";
    }
    return text;
  }
  // How often each of `names` is called while the form of `text` is loaded.
  std::map<std::string, int> CallsOfLoading(const std::string& text, const std::vector<std::string>& names) {
    std::map<std::string, int> counts;
    for (const TracedCall& call : CallsNamed(names, [&] {
           const LoadedForm loaded = LoadFormText(Tracer(), text, "f");
           EXPECT_TRUE(loaded.diagnostics.empty());
         })) {
      ++counts[call.name];
    }
    return counts;
  }
};

TEST_F(FormLoadCost, AFormHasItsWindowAndOneForEachControlAndTwoForEachTextBox) {
  const auto calls =
      CallsOfLoading(TextOf(30, {"FlatButton", "FlatLabel", "FlatTextBox"}), {"CreateWindowExA"});
  EXPECT_EQ(calls.at("CreateWindowExA"), 1 + 10 + 10 + 20);
}

TEST_F(FormLoadCost, TextBoxesThatAreNotShownYetDrawNothing) {
  const auto calls = CallsOfLoading(TextOf(10, {"FlatTextBox"}),
                                    {"Rectangle", "FillRect", "DrawTextA", "DrawFocusRect", "BeginPaint"});
  EXPECT_TRUE(calls.empty()) << calls.begin()->first << " " << calls.begin()->second;
}

TEST_F(FormLoadCost, EachFurtherControlCostsTheSameCalls) {
  const std::vector<std::string> names{"CreateWindowExA", "SetWindowPos", "ShowWindow",   "SendMessageA",
                                       "GetDC",           "SelectObject", "CreateFontA",  "CreatePen",
                                       "Rectangle",       "DrawTextA",    "DestroyWindow"};
  const auto calls_of = [&](int count) {
    return CallsOfLoading(TextOf(count, {"FlatButton", "FlatLabel", "FlatTextBox"}), names);
  };
  const auto ten = calls_of(30);
  const auto twenty = calls_of(60);
  const auto thirty = calls_of(90);
  for (const std::string& name : names) {
    const auto count = [&](const std::map<std::string, int>& calls) {
      return calls.contains(name) ? calls.at(name) : 0;
    };
    EXPECT_EQ(count(thirty) - count(twenty), count(twenty) - count(ten)) << name;
  }
}

}  // namespace
}  // namespace levelwidgets
