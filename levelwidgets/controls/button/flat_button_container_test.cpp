// FlatButton: what it takes from its container, and containers that have not got it.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

// A container that knows no default button. Everything else is a form's.
class SiteWithoutDefault : public ControlSite {
 public:
  explicit SiteWithoutDefault(Form& form) : form_(form) {}
  Platform& GetPlatform() override { return form_.GetPlatform(); }
  WindowHandle ParentWindow() override { return form_.hWnd(); }
  bool UserMode() override { return true; }
  bool DisplayAsDefault() override { throw Error(kNoSuchMember); }
  std::string DisplayName() override { return "cmdBare"; }
  FontRef AmbientFont() override { return MakeFont(); }
  Color AmbientBackColor() override { return Color(0x00FFFFFF); }
  Color AmbientForeColor() override { return Color(0); }
  void PropertyChanged(std::string_view) override {}
  void FocusChanged(bool, WindowHandle) override {}
  bool TakeKey(KeyMessage&) override { return false; }

 private:
  Form& form_;
};

class FlatButtonContainerTest : public DesktopTest {};

TEST_F(FlatButtonContainerTest, AContainerWithoutDisplayAsDefaultStillGetsAPaintedButton) {
  const auto button = MakeControl<FlatButton>(std::make_shared<SiteWithoutDefault>(TheForm()));
  button->Start(nullptr, {Twips(600), Twips(600)}, {Twips(1200), Twips(375)});
  button->GetSurface().SetVisible(true);
  const Journal calls = DrawingCallsOf(*button, [&] { button->OnPaint(); });
  EXPECT_THAT(calls, ElementsAre("FillRect 0 0 80 25", "Rectangle 0 0 80 25",
                                 "SetTextColor " + std::to_string(Concrete(Color(0x80000012)).value),
                                 "DrawTextA cmdBare -1 0 0 80 25 37"));
}

TEST_F(FlatButtonContainerTest, NewAndLoadedButtonsTakeTheFontOfTheForm) {
  FormOptions options;
  options.font = {.name = "Tahoma", .size = 14, .bold = true};
  MakeForm(options);
  EXPECT_EQ(AddNew<FlatButton>("cmdNew").GetFont()->Description(), options.font);
  EXPECT_EQ(AddLoaded<FlatButton>("cmdLoaded").GetFont()->Description(), options.font);
}

}  // namespace
}  // namespace levelwidgets::testing
