// Controls that follow the edges of their form.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

TEST(Anchors, AreReadInAnyOrderAndWrittenInOne) {
  EXPECT_EQ(Anchors::Parse("bottom, RIGHT\ttop left").ToText(), "left top right bottom");
  EXPECT_EQ(Anchors::Parse(" right ,").ToText(), "right");
  EXPECT_EQ(Anchors::Parse("").ToText(), "");
}

TEST(Anchors, OtherWordsAreRefused) {
  try {
    Anchors::Parse("left rigt");
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kInvalidCall);
    EXPECT_EQ(error.Description(), "\"rigt\" is no edge: Anchor is made of left, top, right and bottom");
  }
}

class AnchorTest : public DesktopTest {
 protected:
  // On a form of 6000 by 4500 twips.
  HostedControl& Placed(const std::string& edges) {
    HostedControl& control =
        Hosted(AddNew<FlatButton>("b", {Twips(600), Twips(450)}, {Twips(1500), Twips(375)}));
    control.SetAnchor(edges);
    return control;
  }
  static std::vector<float> PlaceOf(const HostedControl& control) {
    return {control.Left().value, control.Top().value, control.Width().value, control.Height().value};
  }
  void Resize(float width, float height) {
    TheForm().SetWidth(Twips(width));
    TheForm().SetHeight(Twips(height));
  }
};

using ::testing::ElementsAre;

TEST_F(AnchorTest, AControlStaysWhereItIsWithoutFarEdges) {
  for (const char* edges : {"", "left", "top", "left top"}) {
    HostedControl& control = Placed(edges);
    Resize(7500, 6000);
    EXPECT_THAT(PlaceOf(control), ElementsAre(600, 450, 1500, 375)) << edges;
    Resize(6000, 4500);
    TheForm().Remove("b");
  }
}

TEST_F(AnchorTest, AControlMovesWithTheFarEdges) {
  HostedControl& control = Placed("right bottom");
  Resize(7500, 6000);
  EXPECT_THAT(PlaceOf(control), ElementsAre(2100, 1950, 1500, 375));
  EXPECT_EQ(control.ScreenRect().width(), 100);
  EXPECT_EQ(control.ScreenRect().left - TheForm().ScreenRect().left,
            140 + (TheForm().ScreenRect().width() - 500) / 2);
}

TEST_F(AnchorTest, AControlIsStretchedBetweenBothEdges) {
  HostedControl& control = Placed("left right top bottom");
  Resize(7500, 6000);
  EXPECT_THAT(PlaceOf(control), ElementsAre(600, 450, 3000, 1875));
  EXPECT_EQ(control.ScreenRect().width(), 200);
}

TEST_F(AnchorTest, AControlOnAFormThatIsTooSmallIsAsLargeAgainAsItWas) {
  HostedControl& control = Placed("left right");
  Resize(1500, 4500);
  EXPECT_THAT(PlaceOf(control), ElementsAre(600, 450, 0, 375));
  Resize(6000, 4500);
  EXPECT_THAT(PlaceOf(control), ElementsAre(600, 450, 1500, 375));
}

TEST_F(AnchorTest, WhoeverPlacesTheControlAnewPlacesItsDistances) {
  HostedControl& control = Placed("right");
  Resize(7500, 4500);
  control.SetLeft(Twips(600));
  Resize(9000, 4500);
  EXPECT_THAT(PlaceOf(control), ElementsAre(2100, 450, 1500, 375));
}

TEST_F(AnchorTest, ControlsAreInPlaceWhenTheFormRaisesResize) {
  HostedControl& control = Placed("right");
  float left = 0;
  TheForm().Resize += [&] { left = control.Left().value; };
  TheForm().SetWidth(Twips(7500));
  EXPECT_EQ(left, 2100);
}

TEST_F(AnchorTest, ManyStepsLeaveNoDrift) {
  HostedControl& control = Placed("left right");
  for (int i = 0; i < 100; ++i) Resize(6000.0f + static_cast<float>(i * 37 % 900), 4500);
  Resize(6000, 4500);
  EXPECT_THAT(PlaceOf(control), ElementsAre(600, 450, 1500, 375));
}

}  // namespace
}  // namespace levelwidgets::testing
