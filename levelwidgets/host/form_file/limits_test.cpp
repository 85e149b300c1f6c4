// The largest and the smallest of everything a form may hold.
#include <ctime>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

// Texts that are hard in different ways, as they stand in quotes: one word, and many lines.
std::vector<std::string> LongTexts() {
  constexpr std::size_t kLength = testing::Rounds(1'000'000);
  std::string lines;
  while (lines.size() < kLength) lines += "a &line\\r\\n";
  return {std::string(kLength, 'x'), lines};
}

class FormLimits : public testing::DesktopTest {
 protected:
  // Loads a form, shows it, does to its controls what a person can do, resizes them and saves it.
  void Try(const std::string& text, const std::string& what) {
    const std::clock_t start = std::clock();
    const LoadedForm loaded = LoadFormText(Tracer(), text, "f");
    ASSERT_TRUE(loaded.form) << what << ": " << loaded.diagnostics.front().ToString();
    EXPECT_EQ(FormText(*loaded.form, loaded.document.get()), text) << what;
    loaded.form->Show();
    Driver().Settle();
    for (const auto& control : loaded.form->Controls()) Use(*control);
    const LoadedForm again = LoadFormText(Tracer(), FormText(*loaded.form, loaded.document.get()), "again");
    EXPECT_FALSE(again.HasErrors()) << what << ": " << again.diagnostics.front().ToString();
    constexpr double kSaneSeconds = 5;
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kSaneSeconds) << what;
  }

 private:
  void Use(HostedControl& control) {
    const PixelRect rect = control.ScreenRect();
    for (const PixelPoint at : {PixelPoint{rect.left, rect.top}, PixelPoint{rect.right - 1, rect.bottom - 1},
                                PixelPoint{rect.left + rect.width() / 2, rect.top + rect.height() / 2}}) {
      Driver().MovePointer(at);
      Driver().Settle();
      Driver().Press(kLeftButton);
      Driver().Advance(500);
      Driver().Release(kLeftButton);
      Driver().DoubleClick(at);
      Driver().Wheel(-1);
    }
    if (control.GetControl()->GetSurface().Enabled()) control.SetFocus();
    for (const int key : {35, 36, 33, 34, 37, 38, 39, 40, 13, 27, 8}) Driver().Key(key, 0);
    Driver().Type("a");
    SetByName(*control.GetControl(), "Enabled", false);
    Driver().Settle();
    SetByName(*control.GetControl(), "Enabled", true);
    control.Move({control.Left(), control.Top()},
                 {Twips(control.Width().value + 300), Twips(control.Height().value + 300)});
    Driver().Settle();
    EXPECT_GT(Driver().Capture({0, 0, 64, 64}).pixels.size(), 0u);
  }
};

std::string FormOf(const ClassInfo& control, const std::string& placement, const std::string& properties) {
  return "[form]\n[[control]]\nClass = \"" + std::string(control.Name()) + "\"\nName = \"a\"\n" + placement +
         "[control.Properties]\n" + properties;
}

TEST_F(FormLimits, EveryTextMayHaveAMegabyte) {
  for (const ClassInfo* control : ControlClasses()) {
    for (const PropertyInfo* property : control->Persisted()) {
      if (property->stored_as != VariantType::kString || property->name == "PasswordChar") continue;
      const std::string name = std::string(property->name) + (property->Indexed() ? "1" : "");
      for (const std::string& text : LongTexts()) {
        const std::string value = name + " = \"" + text + "\"\n";
        const std::string what = std::string(control->Name()) + "." + name + " " + text.substr(0, 10);
        Try(FormOf(*control, "", value), what);
        if (control->FindProperty("MultiLine")) {
          Try(FormOf(*control, "", "MultiLine = true\n" + value), what);
        }
      }
    }
  }
}

TEST_F(FormLimits, TextsOfAmpersandsOnlyAreDrawnAndKept) {
  for (const ClassInfo* control : ControlClasses()) {
    for (const PropertyInfo* property : control->Persisted()) {
      if (property->stored_as != VariantType::kString || property->name == "PasswordChar") continue;
      const std::string name = std::string(property->name) + (property->Indexed() ? "1" : "");
      for (const char* text : {"&", "&&", "&&&", "&&&&&&&&&&&&&&&&", "a&", "& &", "&\xC3\xA4", "&\\n&"}) {
        Try(FormOf(*control, "", name + " = \"" + text + "\"\n"),
            std::string(control->Name()) + "." + name + text);
      }
    }
  }
}

TEST_F(FormLimits, ControlsMayBeAsSmallAndAsLargeAsTheyLike) {
  for (const ClassInfo* control : ControlClasses()) {
    for (const std::string width : {"0", "15", "32767", "5e8"}) {
      for (const std::string height : {"0", "32767"}) {
        Try(FormOf(*control, "Width = " + width + "\nHeight = " + height + "\n", ""),
            std::string(control->Name()) + " " + width + " by " + height);
      }
    }
  }
}

TEST_F(FormLimits, ATabStripMayHaveTenThousandTabs) {
  std::string properties = "TabCount = 10000\nSelectedTab = 9999\n";
  for (int i = 1; i <= 10'000; ++i) {
    properties += "TabCaption" + std::to_string(i) + " = \"Tab &" + std::to_string(i) + "\"\n";
  }
  Try(FormOf(*FindControlClass("FlatTabStrip"), "Width = 9000\n", properties), "ten thousand tabs");
}

TEST_F(FormLimits, FontsMayBeOfAnySizeAndName) {
  for (const ClassInfo* control : ControlClasses()) {
    if (!control->FindProperty("Font")) continue;
    for (const std::string size : {"0.001", "1", "1000", "32767", "1e6", "1e15", "1e300"}) {
      Try(FormOf(*control, "", "Font = { Name = \"Tahoma\", Size = " + size + " }\n"),
          std::string(control->Name()) + " of font size " + size);
    }
    for (const std::string& name :
         {std::string(), std::string("No such font"), std::string("\xC3\xA4"), std::string(1'000'000, 'n')}) {
      Try(FormOf(*control, "", "Font = { Name = \"" + name + "\", Size = 9 }\n"),
          std::string(control->Name()) + " of font " + name.substr(0, 20));
    }
  }
}

}  // namespace
}  // namespace levelwidgets
