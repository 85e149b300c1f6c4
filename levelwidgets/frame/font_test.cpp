#include <gtest/gtest.h>

#include <levelwidgets/frame/font.h>

namespace levelwidgets {
namespace {

TEST(Font, NotifiesItsObserversOfEachChangeAndOfNothingElse) {
  Font font;
  int changes = 0;
  font.Observe([&] { ++changes; });
  font.SetUnderline(true);
  font.SetUnderline(true);
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(font.Underline());
}

TEST(Font, AForgottenObserverHearsNothing) {
  Font font;
  int changes = 0;
  const Font::Token token = font.Observe([&] { ++changes; });
  font.Forget(token);
  font.SetUnderline(true);
  EXPECT_EQ(changes, 0);
}

TEST(Font, AnObserverMayForgetItself) {
  Font font;
  Font::Token token = 0;
  int changes = 0;
  token = font.Observe([&] {
    ++changes;
    font.Forget(token);
  });
  font.SetUnderline(true);
  font.SetUnderline(false);
  EXPECT_EQ(changes, 1);
}

TEST(FontRequest, ASizeInPointsBecomesACharacterHeightInPixels) {
  EXPECT_EQ(RequestFor({.size = 8.25}, 96).height, -11);
  EXPECT_EQ(RequestFor({.size = 9.75}, 96).height, -13);
  EXPECT_EQ(RequestFor({.size = 12}, 144).height, -24);
}

TEST(FontRequest, CarriesTheWholeDescription) {
  const FontRequest request = RequestFor({.name = "Marlett",
                                          .size = 9,
                                          .bold = true,
                                          .italic = true,
                                          .underline = true,
                                          .strikethrough = true,
                                          .charset = kSymbolCharset},
                                         96);
  EXPECT_EQ(request.face_name, "Marlett");
  EXPECT_EQ(request.weight, kFontWeightBold);
  EXPECT_TRUE(request.italic);
  EXPECT_TRUE(request.underline);
  EXPECT_TRUE(request.strikethrough);
  EXPECT_EQ(request.charset, kSymbolCharset);
}

}  // namespace
}  // namespace levelwidgets
