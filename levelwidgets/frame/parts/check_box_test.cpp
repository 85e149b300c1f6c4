// CheckBox: its properties, what it saves, and its life as a part of another control.
#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/parts/check_box_fixture.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/frame_box.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CheckBoxPropertiesTest : public CheckBoxTest {};

TEST_F(CheckBoxPropertiesTest, ANewCheckBoxIsClearNamedAndInTheColoursOfItsForm) {
  MakeForm({.font = {.name = "Arial", .size = 10}, .back_color = Color(0x00ABCDEF)});
  CheckBox& box = AddNew<CheckBox>("chk_A");
  EXPECT_EQ(box.Value(), CheckBox::kUnchecked);
  EXPECT_EQ(box.Caption(), "chk_A");
  EXPECT_EQ(box.GetSurface().AccessKeys(), "");
  EXPECT_EQ(box.BackColor(), Color(0x00ABCDEF));
  EXPECT_EQ(box.ForeColor(), kButtonText);
  EXPECT_EQ(box.GetFont()->Name(), "Arial");
  EXPECT_TRUE(box.Enabled());
  EXPECT_EQ(box.hWnd(), box.GetSurface().hWnd());
  EXPECT_EQ(box.Class().QualifiedName(), "LevelWidgets.CheckBox");
  EXPECT_TRUE(Hosted(box).Properties().Find("Caption"));
  EXPECT_FALSE(Hosted(box).Properties().Find("BackColor"));
  EXPECT_FALSE(Hosted(box).Properties().Find("ForeColor"));
  EXPECT_FALSE(Hosted(box).Properties().Find("Value"));
}

TEST_F(CheckBoxPropertiesTest, WhatIsSavedIsWhatIsLoaded) {
  CheckBox& box = Box();
  box.SetBackColor(Color(0x00112233));
  box.SetForeColor(Color(0x00332211));
  box.SetEnabled(false);
  box.SetFont(MakeFont({.name = "Arial", .size = 12}));
  box.SetValue(CheckBox::kChecked);
  CheckBox& loaded = AddLoaded<CheckBox>("chkLoaded", Hosted(box).Properties());
  EXPECT_EQ(loaded.BackColor(), Color(0x00112233));
  EXPECT_EQ(loaded.ForeColor(), Color(0x00332211));
  EXPECT_FALSE(loaded.Enabled());
  EXPECT_EQ(loaded.GetFont()->Size(), 12);
  EXPECT_EQ(loaded.Caption(), "&Save");
  EXPECT_EQ(loaded.GetSurface().AccessKeys(), "S");
  EXPECT_EQ(loaded.Value(), CheckBox::kChecked);
  EXPECT_EQ(AddLoaded<CheckBox>("chkEmpty").Caption(), "");
}

TEST_F(CheckBoxPropertiesTest, EachSetterRepaintsThenNotifies) {
  CheckBox& box = Box();
  Watch();
  box.SetBackColor(Color(0x00112233));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(BackColor)"));
  box.SetForeColor(Color(0x00112233));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(ForeColor)"));
  box.SetEnabled(false);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Enabled)"));
  box.SetFont(MakeFont({.name = "Arial", .size = 12}));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Font)"));
  box.SetCaption("&Keep");
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Caption)"));
  EXPECT_EQ(box.GetSurface().AccessKeys(), "K");
}

TEST_F(CheckBoxPropertiesTest, AnotherValueRepaintsNotifiesAndRaisesClick) {
  CheckBox& box = Box();
  Watch();
  box.SetValue(CheckBox::kChecked);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Click()"));
  box.SetValue(CheckBox::kChecked);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  SetByName(box, "Value", std::int32_t{0});
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Click()"));
  EXPECT_EQ(box.Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxPropertiesTest, AValueThatIsNeitherCheckedNorUncheckedIsRefusedAndChangesNothing) {
  CheckBox& box = Box();
  box.SetValue(CheckBox::kChecked);
  Watch();
  for (const std::int32_t value : {-1, 2}) {
    EXPECT_EQ(ErrorOf([&] { box.SetValue(value); }), kInvalidPropertyValue) << value;
  }
  try {
    box.SetValue(2);
  } catch (const Error& error) {
    EXPECT_EQ(error.Source(), "LevelWidgets.CheckBox");
    EXPECT_EQ(error.Description(), "Value is 0 (not checked) or 1 (checked), not 2");
  }
  EXPECT_EQ(box.Value(), CheckBox::kChecked);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(CheckBoxPropertiesTest, ADisabledCheckBoxTakesAValueByAssignment) {
  Box().SetEnabled(false);
  Box().SetValue(CheckBox::kChecked);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxPropertiesTest, AListenerOfClickReadsTheNewValueAndMayPutTheFormerBack) {
  CheckBox& box = Box();
  std::vector<std::int32_t> values;
  box.Click += [&] {
    values.push_back(box.Value());
    box.SetValue(CheckBox::kUnchecked);
  };
  box.SetValue(CheckBox::kChecked);
  EXPECT_THAT(values, ElementsAre(1, 0));
  EXPECT_EQ(box.Value(), CheckBox::kUnchecked);
}

// --- As a part -----------------------------------------------------------------------------------------

// A frame with two check boxes in it.
class Choices : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Choices>("Choices", "Has check boxes."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Choices(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0x00C0C0C0), .fore_color = Color(0), .font = {}}) {
    fraMain.Move({}, {Twips(2400), Twips(1500)});
    fraMain.SetVisible(true);
    chkFirst.Move({Twips(150), Twips(300)}, {Twips(1200), Twips(255)});
    chkFirst.SetVisible(true);
    chkSecond.Move({Twips(150), Twips(600)}, {Twips(1200), Twips(255)});
    chkSecond.SetVisible(true);
    chkFirst->Click += [this] { notes.emplace_back("first"); };
    chkSecond->Click += [this] { notes.emplace_back("second"); };
  }
  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override { GetSurface().Cls(); }
  void OnEnterFocus() override { notes.emplace_back("enter"); }
  void OnExitFocus() override { notes.emplace_back("exit"); }

  std::vector<std::string> notes;
  FrameBox fraMain{*this};
  ChildControl<CheckBox> chkFirst{fraMain, "chkFirst", {Twips(1200), Twips(255)}};
  ChildControl<CheckBox> chkSecond{fraMain, "chkSecond", {Twips(1200), Twips(255)}};
};

class CheckBoxPartTest : public DesktopTest {
 protected:
  Choices& Owner() {
    if (!owner_) owner_ = &AddNew<Choices>("cho", {Twips(600), Twips(600)}, {Twips(2400), Twips(1500)});
    return *owner_;
  }
  void ClickOn(const CheckBox& box) { Driver().Click(ScreenPoint(box, PixelPoint{5, 5})); }
  Journal Notes() { return std::exchange(Owner().notes, {}); }

 private:
  Choices* owner_ = nullptr;
};

TEST_F(CheckBoxPartTest, APressEntersItsOwnerAndTheReleaseChangesIt) {
  AddNew<CheckBox>("chkElsewhere", {Twips(600), Twips(3000)});
  Hosted(*TheForm().Find("chkElsewhere")->GetControl()).SetFocus();
  ClickOn(*Owner().chkFirst);
  EXPECT_THAT(Notes(), ElementsAre("enter", "first"));
  EXPECT_EQ(Windows().GetFocus(), Owner().chkFirst->hWnd());
  ClickOn(*Owner().chkSecond);
  EXPECT_THAT(Notes(), ElementsAre("second"));
  EXPECT_EQ(Owner().chkFirst->Value(), CheckBox::kChecked);
  EXPECT_EQ(Owner().chkSecond->Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxPartTest, ItsOwnerGivesItTheFocusAndSpaceChangesIt) {
  Owner().chkSecond->SetFocus();
  EXPECT_EQ(Windows().GetFocus(), Owner().chkSecond->hWnd());
  Driver().Key(kKeySpace);
  EXPECT_EQ(Owner().chkSecond->Value(), CheckBox::kChecked);
  EXPECT_EQ(Owner().chkFirst->Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxPartTest, ItIsClearWithoutACaptionUntilItsOwnerSaysOtherwise) {
  EXPECT_EQ(Owner().chkFirst->Caption(), "");
  EXPECT_EQ(Owner().chkFirst->Value(), CheckBox::kUnchecked);
  EXPECT_EQ(Owner().chkFirst->BackColor(), Owner().fraMain.BackColor());
}

TEST_F(CheckBoxPartTest, AListenerThatRemovesTheOwnerEndsBoth) {
  Owner().chkFirst->Click += [this] { TheForm().Remove("cho"); };
  std::weak_ptr<Control> owner = TheForm().Find("cho")->GetControl();
  ClickOn(*Owner().chkFirst);
  EXPECT_TRUE(owner.expired());
}

}  // namespace
}  // namespace levelwidgets::testing
