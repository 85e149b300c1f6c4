// CheckBox: listeners that remove it, close its form, hide or disable it, move the focus or raise an error,
// at any of its events.
#include <levelwidgets/frame/parts/check_box_fixture.h>
#include <levelwidgets/testing/interference.h>

namespace levelwidgets::testing {
namespace {

class CheckBoxInterferenceTest : public InterferenceTest<DesktopTest> {
 protected:
  CheckBox& MakeBoth() {
    done_ = false;
    MakeForm({});
    box_ = &AddNew<CheckBox>("chk");
    box_->SetCaption("&Save");
    next_ = &AddNew<CheckBox>("next", {Twips(600), Twips(1800)});
    Hosted(*next_).SetFocus();
    return *box_;
  }
  void Do(Deed deed, Control& control) override {
    done_ = true;
    InterferenceTest::Do(deed, control);
  }
  PixelPoint Inside() { return ScreenPoint(*box_, PixelPoint{5, 5}); }

  void UseEverything() {
    Try([&] { Driver().MovePointer(Inside()); });
    Try([&] { Driver().Press(kLeftButton); });
    Try([&] { Driver().MovePointer(ScreenPoint(*box_, PixelPoint{5, -20})); });
    Try([&] { Driver().DoubleClick(Inside()); });
    Try([&] { Driver().KeyDown(kKeySpace, 0); });
    Try([&] { Driver().KeyUp(kKeySpace, 0); });
    Try([&] { Driver().Key(kKeyTab); });
    Try([&] { Driver().Key('S', kAltMask); });
    Try([&] { box_->SetValue(CheckBox::kChecked); });
    Try([&] { box_->SetValue(CheckBox::kUnchecked); });
    Try([&] { box_->SetCaption("&Store"); });
    Try([&] { box_->SetEnabled(false); });
    Try([&] { box_->SetEnabled(true); });
    Try([&] { Driver().Advance(110); });
    if (done_ && IsThere()) ExpectItWorks();
  }

  // After all that, shown and enabled again.
  void ExpectItWorks() {
    Hosted(*box_).SetVisible(true);
    box_->SetEnabled(true);
    Driver().MovePointer(ScreenPoint(*box_, PixelPoint{5, -20}));
    Driver().Advance(210);
    EXPECT_EQ(PixelAt(*box_, {1, 8}), Concrete(Color(0x80000005))) << "at rest";
    const std::int32_t before = box_->Value();
    Driver().Click(Inside());
    EXPECT_NE(box_->Value(), before) << "by a click";
    Driver().Key(kKeySpace);
    EXPECT_EQ(box_->Value(), before) << "by Space";
    EXPECT_TRUE(IsThere());
  }

 private:
  CheckBox* box_ = nullptr;
  CheckBox* next_ = nullptr;
  bool done_ = false;
};

TEST_P(CheckBoxInterferenceTest, LeavesTheControlWholeOrGone) {
  DoItAtEachTime(
      20, [&]() -> Control& { return MakeBoth(); }, [&] { UseEverything(); });
}

INSTANTIATE_TEST_SUITE_P(Events, CheckBoxInterferenceTest,
                         ::testing::ValuesIn(EachOf({Deed::kRemove, Deed::kCloseForm, Deed::kRaise,
                                                     Deed::kHide, Deed::kDisable, Deed::kMoveFocus},
                                                    {"Click", "KeyDown", "KeyPress", "KeyUp", "MouseDown",
                                                     "MouseMove", "MouseUp", "PropertyChanged", "GotFocus",
                                                     "LostFocus"})),
                         NameOfInterference);

}  // namespace
}  // namespace levelwidgets::testing
