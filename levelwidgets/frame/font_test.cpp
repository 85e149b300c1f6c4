#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/font.h>
#include <levelwidgets/testing/error_of.h>

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

TEST(Font, HasAPropertyForEachOfItsParts) {
  const FontRef font = MakeFont();
  int changes = 0;
  font->Observe([&] { ++changes; });
  const std::pair<const char*, Variant> parts[] = {
      {"Name", "Arial"},
      {"Size", 12.5},
      {"Bold", true},
      {"Italic", true},
      {"Underline", true},
      {"Strikethrough", true},
      {"Charset", std::int16_t{2}},
  };
  ASSERT_EQ(Font::Table().Properties().size(), std::size(parts));
  for (const auto& [name, value] : parts) {
    EXPECT_FALSE(GetByName(*font, name) == value) << name;
    SetByName(*font, name, value);
    EXPECT_EQ(GetByName(*font, name), value) << name;
  }
  EXPECT_EQ(changes, 7);
  EXPECT_EQ(font->Description(), (FontDescription{.name = "Arial",
                                                  .size = 12.5,
                                                  .bold = true,
                                                  .italic = true,
                                                  .underline = true,
                                                  .strikethrough = true,
                                                  .charset = 2}));
}

TEST(Font, RefusesASizeOfZeroOrBelow) {
  Font font;
  for (const double size :
       {0.0, -1.0, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(ErrorOf([&] { SetByName(font, "Size", size); }), kInvalidPropertyValue) << size;
  }
  EXPECT_EQ(font.Size(), 8.25);
}

TEST(Font, IsAnObjectAmongValues) {
  const FontRef font = MakeFont();
  EXPECT_EQ(ToFont(Variant(ObjectRef(font))), font);
  EXPECT_EQ(ConvertTo(VariantType::kObject, Variant(font)), Variant(ObjectRef(font)));
  EXPECT_EQ(&font->Class(), &Font::Table());
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
