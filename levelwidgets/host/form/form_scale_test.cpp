#include <levelwidgets/host/form/form_scale.h>

#include <gtest/gtest.h>

namespace levelwidgets {
namespace {

class ScreenOf : public ScreenApi {
 public:
  ScreenOf(int dpi_x, int dpi_y) : dpi_{dpi_x, dpi_y} {}
  PixelSize Size() override { return {1000, 1000}; }
  std::vector<Monitor> Monitors() override { return {}; }
  float TwipsPerPixelX() override { return WholeTwipsPerPixel(dpi_.width); }
  float TwipsPerPixelY() override { return WholeTwipsPerPixel(dpi_.height); }
  PixelSize DotsPerInch() override { return dpi_; }

 private:
  PixelSize dpi_;
};

FormScale At(int dpi_x, int dpi_y = 96) {
  ScreenOf screen(dpi_x, dpi_y);
  return FormScale(screen);
}

TEST(FormScale, WhereTwipsArePartedEvenlyAControlGetsWhatItsFormSays) {
  for (const int dpi : {72, 96, 120, 144, 240}) {
    const TwipPlace given = At(dpi, dpi).ForControl({Twips(120), Twips(-60)}, {Twips(22.5F), Twips(1200)});
    EXPECT_EQ(given.position, (TwipPoint{Twips(120), Twips(-60)})) << dpi;
    EXPECT_EQ(given.size, (TwipSize{Twips(22.5F), Twips(1200)})) << dpi;
  }
}

TEST(FormScale, AtNinetySixALengthIsItsOwnWhereverItBegins) {
  const TwipPlace given = At(96).ForControl({Twips(127), Twips(7)}, {Twips(23), Twips(23)});
  EXPECT_EQ(given.size, (TwipSize{Twips(23), Twips(23)}));
  EXPECT_EQ(At(192).ForControl({Twips(127), Twips(7)}, {Twips(23), Twips(23)}).size.width, Twips(32));
}

TEST(FormScale, ElsewhereAControlGetsTwipsOfItsOwn) {
  const TwipPlace given = At(192, 168).ForControl({Twips(150), Twips(1440)}, {Twips(1500), Twips(720)});
  EXPECT_EQ(given.position, (TwipPoint{Twips(160), Twips(1512)}));
  EXPECT_EQ(given.size, (TwipSize{Twips(1600), Twips(756)}));
}

TEST(FormScale, AControlReachesToWhereTheNextOneBegins) {
  const FormScale scale = At(120);
  // 25 of 12.5 pixels: every second one begins half a pixel after the former ends.
  for (int i = 0; i < 40; ++i) {
    const TwipPlace given = scale.ForControl({Twips(150 * i), Twips()}, {Twips(150), Twips(15)});
    const int end = ToPixels(given.position.x, 12) + ToPixels(given.size.width, 12);
    EXPECT_EQ(end, scale.PixelsX(Twips(150 * (i + 1)))) << i;
  }
}

TEST(FormScale, PixelsComeBackAsTheTwipsThatMadeThem) {
  for (const int dpi : {96, 100, 168, 192, 216, 336}) {
    const FormScale scale = At(dpi, dpi);
    for (int pixels = -300; pixels < 3000; ++pixels) {
      ASSERT_EQ(scale.PixelsX(scale.TwipsX(pixels)), pixels) << dpi;
      ASSERT_EQ(scale.PixelsY(scale.TwipsY(pixels)), pixels) << dpi;
    }
  }
}

TEST(FormScale, APointInAControlIsInItsOwnTwips) {
  EXPECT_EQ(At(192).OnForm({Twips(1500), Twips(1500)}), (PixelPoint{200, 100}));
  EXPECT_EQ(At(192).InControl({Twips(1600), Twips(1500)}), (PixelPoint{200, 100}));
}

}  // namespace
}  // namespace levelwidgets
