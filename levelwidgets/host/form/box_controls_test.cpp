// A check box and a frame as controls of a form.
#include <levelwidgets/host/form/box_controls.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/platform/system_colors.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BoxControlsTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    frame_ = &TheForm().Add<FrameControl>("fraChoices",
                                          {{Twips(150), Twips(150)}, TwipSize{Twips(3000), Twips(1500)}});
    frame_->SetCaption("Choices");
    box_ = &TheForm().Add<CheckBoxControl>("chkEnabled",
                                           {{Twips(300), Twips(450)}, TwipSize{Twips(1500), Twips(255)}});
    box_->SetCaption("&Enabled");
    button_ = &TheForm().Add<FlatButton>("cmdOK", {{Twips(3600), Twips(150)}, {}});
    button_->SetCaption("&OK");
    Driver().Settle();
  }
  std::string Active() {
    const auto active = TheForm().ActiveControl();
    return active ? active->Name() : "";
  }

  FrameControl* frame_ = nullptr;
  CheckBoxControl* box_ = nullptr;
  FlatButton* button_ = nullptr;
};

TEST_F(BoxControlsTest, NoRegistryOffersThem) {
  EXPECT_FALSE(FindControlClass("CheckBox"));
  EXPECT_FALSE(FindControlClass("Frame"));
}

// --- The check box -------------------------------------------------------------------------------------

TEST_F(BoxControlsTest, TheTabKeyReachesTheCheckBoxAndPassesTheFrame) {
  std::vector<std::string> order;
  for (int i = 0; i < 3; ++i) {
    Driver().Key(kKeyTab);
    order.push_back(Active());
  }
  EXPECT_THAT(order, ElementsAre("chkEnabled", "cmdOK", "chkEnabled"));
}

TEST_F(BoxControlsTest, TheAccessKeyChangesItFromAnotherControl) {
  Hosted(*button_).SetFocus();
  Driver().Key('E', kAltMask);
  EXPECT_EQ(Active(), "chkEnabled");
  EXPECT_EQ(box_->Value(), CheckBox::kChecked);
}

TEST_F(BoxControlsTest, AControlThatKeepsTheFocusLosesThePressAndTheAccessKeyOfACheckBox) {
  Hosted(*button_).SetFocus();
  int asked = 0;
  Hosted(*button_).Validate += [&](bool& cancel) {
    ++asked;
    cancel = true;
  };
  Driver().Click(ScreenPoint(*box_, PixelPoint{5, 5}));
  Driver().Key('E', kAltMask);
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(Active(), "cmdOK");
  EXPECT_EQ(box_->Value(), CheckBox::kUnchecked);
}

TEST_F(BoxControlsTest, ItGetsAndLosesTheFocusLikeAnyControl) {
  Hosted(*button_).SetFocus();
  Journal notes;
  Hosted(*box_).GotFocus += [&] { notes.emplace_back("got"); };
  Hosted(*box_).LostFocus += [&] { notes.emplace_back("lost"); };
  box_->Click += [&] { notes.emplace_back("click"); };
  Driver().Click(ScreenPoint(*box_, PixelPoint{5, 5}));
  Hosted(*button_).SetFocus();
  EXPECT_THAT(notes, ElementsAre("got", "click", "lost"));
}

TEST_F(BoxControlsTest, EnterAndEscapeStayWithTheButtonsOfTheForm) {
  Hosted(*button_).SetDefault(true);
  Hosted(*button_).SetCancel(true);
  int clicks = 0;
  button_->Click += [&] { ++clicks; };
  Hosted(*box_).SetFocus();
  Driver().Key(kKeyEnter);
  Driver().Key(kKeyEscape);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(box_->Value(), CheckBox::kUnchecked);
}

TEST_F(BoxControlsTest, AnchorsStretchBoth) {
  for (Control* control : {static_cast<Control*>(frame_), static_cast<Control*>(box_)}) {
    Hosted(*control).SetAnchor("left right");
  }
  TheForm().SetWidth(Twips(6600));
  EXPECT_EQ(Hosted(*frame_).Width(), Twips(3600));
  EXPECT_EQ(Hosted(*box_).Width(), Twips(2100));
  EXPECT_EQ(frame_->GetSurface().ScaleWidth(), Twips(3600));
}

// --- The frame -----------------------------------------------------------------------------------------

TEST_F(BoxControlsTest, ANewFrameHasItsNameAsCaptionAndTheColoursOfItsForm) {
  TheForm().SetFont(MakeFont({.name = "Arial", .size = 10}));
  FrameControl& frame = TheForm().Add<FrameControl>("fraNew");
  EXPECT_EQ(frame.Caption(), "fraNew");
  EXPECT_EQ(frame.BackColor(), TheForm().BackColor());
  EXPECT_EQ(frame.ForeColor(), kButtonText);
  EXPECT_EQ(frame.GetFont()->Name(), "Arial");
  EXPECT_EQ(frame.hWnd(), frame.GetSurface().hWnd());
  EXPECT_EQ(Hosted(frame).Width(), Twips(3000));
  EXPECT_EQ(Hosted(frame).Properties().Find("BackColor"), nullptr);
  EXPECT_EQ(frame.Class().QualifiedName(), "LevelWidgets.Frame");
}

TEST_F(BoxControlsTest, EachSetterOfAFrameRepaintsThenNotifies) {
  Watch(*frame_);
  frame_->SetBackColor(Color(0x00112233));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "paint", "PropertyChanged(BackColor)"));
  frame_->SetForeColor(Color(0x00112233));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "paint", "PropertyChanged(ForeColor)"));
  frame_->SetFont(MakeFont({.name = "Arial", .size = 12}));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "paint", "PropertyChanged(Font)"));
  frame_->SetCaption("");
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Caption)"));
  EXPECT_EQ(frame_->Caption(), "");
}

TEST_F(BoxControlsTest, AFrameTakesNoFocusAndAsksNobodyForIt) {
  Hosted(*button_).SetFocus();
  int asked = 0;
  Hosted(*button_).Validate += [&](bool&) { ++asked; };
  Driver().Click(ScreenPoint(*frame_, PixelPoint{150, 80}));
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(Active(), "cmdOK");
  EXPECT_EQ(ErrorOf([&] { Hosted(*frame_).SetFocus(); }), kInvalidCall);
}

TEST_F(BoxControlsTest, AControlOnAFrameIsDrawnAndPressed) {
  Driver().Click(ScreenPoint(*box_, PixelPoint{5, 5}));
  EXPECT_EQ(box_->Value(), CheckBox::kChecked);
  frame_->SetBackColor(Color(0x000000FF));
  EXPECT_EQ(PixelAt(*frame_, {5, 50}), ColorRef{0x000000FF});
  EXPECT_EQ(PixelAt(*box_, {50, 0}), Concrete(kButtonFace));
}

TEST_F(BoxControlsTest, NeitherLeavesAnythingBehindWhenItIsRemoved) {
  Driver().MovePointer(ScreenPoint(*box_, PixelPoint{5, 5}));
  Driver().Press(kLeftButton);
  TheForm().Remove("chkEnabled");
  TheForm().Remove("fraChoices");
  Driver().Release(kLeftButton);
  Driver().Advance(300);
  EXPECT_EQ(TheForm().Controls().size(), 1u);
}

}  // namespace
}  // namespace levelwidgets::testing
