// Fonts from the machine's files.
#include <gtest/gtest.h>

#include <filesystem>

#include <levelwidgets/platform/memory/font_builtin.h>
#include <levelwidgets/platform/memory/font_cache.h>

namespace levelwidgets::memory {
namespace {

constexpr const char* kDirectory = "/usr/share/wine/fonts";
constexpr text::CharacterCode kStar = 0x819A;  // U+2605 in code page 932, which Tahoma lacks
const std::string kMore = "/usr/share/fonts/truetype/dejavu";
constexpr const char* kTahoma = "/usr/share/wine/fonts/tahoma.ttf";

FontRequest Request(const std::string& face, int height, int weight = kFontWeightNormal) {
  FontRequest request;
  request.face_name = face;
  request.height = height;
  request.weight = weight;
  return request;
}

int Coverage(Font& font, char character) {
  const Glyph& glyph = font.At(static_cast<std::uint8_t>(character));
  int sum = 0;
  for (int i = 0; i < glyph.width * glyph.height; ++i) sum += glyph.coverage[i];
  return sum;
}

std::vector<std::uint8_t> PictureOf(const Glyph& glyph) {
  return {glyph.coverage, glyph.coverage + glyph.width * glyph.height};
}

const text::CodePage kWestern(1252);

class Fonts : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(kTahoma)) {
      GTEST_SKIP() << "the dialog fonts are not installed";
    }
  }

  FontCache cache{FontSources{{kDirectory}, false}, 1.0, kWestern};
};

TEST_F(Fonts, NegativeHeightIsThatOfTheCharacters) {
  const TextMetrics metrics = cache.Get(Request("Tahoma", -11))->Metrics().text;
  EXPECT_EQ(metrics.height, 13);
  EXPECT_EQ(metrics.ascent, 11);
  EXPECT_EQ(metrics.descent, 2);
  EXPECT_EQ(metrics.internal_leading, 2);
  EXPECT_EQ(metrics.external_leading, 0);
  EXPECT_EQ(cache.Get(Request("Tahoma", -20))->Metrics().text.height, 24);
}

TEST_F(Fonts, PositiveHeightIsThatOfTheLine) {
  EXPECT_EQ(cache.Get(Request("Tahoma", 13))->Metrics().text.height, 13);
  EXPECT_EQ(cache.Get(Request("Tahoma", 16))->Metrics().text.height, 16);
  EXPECT_EQ(cache.Get(Request("Tahoma", 0))->Metrics().text.height, 16);
}

TEST_F(Fonts, BoldIsWiderAndDarker) {
  const auto normal = cache.Get(Request("Tahoma", -11));
  const auto bold = cache.Get(Request("Tahoma", -11, kFontWeightBold));
  EXPECT_GT(bold->Width("Hamburg"), normal->Width("Hamburg"));
  EXPECT_GT(Coverage(*bold, 'H') * 10, Coverage(*normal, 'H') * 13);
}

TEST_F(Fonts, ItalicIsSlantedWhereThereIsNoSuchFile) {
  FontRequest request = Request("Tahoma", -20);
  const auto upright = cache.Get(request);
  request.italic = true;
  const auto italic = cache.Get(request);
  EXPECT_GT(italic->At('l').width, upright->At('l').width);
  EXPECT_EQ(italic->At('l').advance, upright->At('l').advance);
}

TEST_F(Fonts, DialogFacesAreTahoma) {
  const int width = cache.Get(Request("Tahoma", -11))->Width("Hamburgefonstiv");
  for (const char* face : {"", "tahoma", "MS Sans Serif", "MS Shell Dlg", "System"}) {
    EXPECT_EQ(cache.Get(Request(face, -11))->Width("Hamburgefonstiv"), width) << face;
  }
}

TEST_F(Fonts, AMissingFaceIsReplacedByTahoma) {
  EXPECT_EQ(cache.Get(Request("No Such Face", -11))->Width("Hamburgefonstiv"),
            cache.Get(Request("Tahoma", -11))->Width("Hamburgefonstiv"));
}

TEST_F(Fonts, SymbolBytesAreTheSymbolFontsPictures) {
  FontRequest request = Request("Marlett", 12);
  request.charset = kSymbolCharset;
  const auto font = cache.Get(request);
  const Glyph down = font->At('6');
  const Glyph up = font->At('5');
  EXPECT_EQ(down.width, 7);
  EXPECT_EQ(down.height, 4);
  for (int x = 0; x < 7; ++x) {
    EXPECT_EQ(down.coverage[x], 255);
    EXPECT_EQ(up.coverage[x], x == 3 ? 255 : 0);
  }
  request.charset = kDefaultCharset;
  EXPECT_EQ(cache.Get(request)->At('6').width, 7) << "the face alone asks for symbols";
  request.face_name = "Tahoma";
  request.charset = kSymbolCharset;
  EXPECT_EQ(cache.Get(request)->At('6').width, 7) << "the character set alone asks for symbols";
}

TEST_F(Fonts, WidthStretchesAndOblongPixelsToo) {
  FontRequest request = Request("Tahoma", -20);
  const int width = cache.Get(request)->Width("Hamburg");
  request.width = 2 * cache.Get(request)->Metrics().text.average_char_width;
  EXPECT_NEAR(cache.Get(request)->Width("Hamburg"), 2 * width, 12);
  FontCache oblong{FontSources{{kDirectory}, false}, 2.0, kWestern};
  EXPECT_NEAR(oblong.Get(Request("Tahoma", -20))->Width("Hamburg"), 2 * width, 8);
  EXPECT_EQ(oblong.Get(Request("Tahoma", -20))->Metrics().text.height, 24);
}

TEST_F(Fonts, CharactersFollowTheCodePage) {
  const text::CodePage greek_page(1253);
  FontCache greek{FontSources{{kDirectory}, false}, 1.0, greek_page};
  FontRequest request = Request("Tahoma", -20);
  const Glyph omega = greek.Get(request)->At(0xD9);
  request.charset = 161;
  const Glyph same = cache.Get(request)->At(0xD9);
  ASSERT_EQ(omega.width * omega.height, same.width * same.height);
  EXPECT_TRUE(std::equal(omega.coverage, omega.coverage + omega.width * omega.height, same.coverage));
  EXPECT_NE(Coverage(*cache.Get(Request("Tahoma", -20)), '\xD9'), Coverage(*cache.Get(request), '\xD9'));
}

TEST_F(Fonts, ACharacterThatTheFaceLacksIsThatOfAnotherFontOnTheSameBaseline) {
  if (!std::filesystem::exists(kMore + "/DejaVuSans.ttf")) GTEST_SKIP() << "no such font here";
  const text::CodePage japanese(932);
  FontCache with{FontSources{{kDirectory, kMore}, false}, 1.0, japanese};
  FontCache without{FontSources{{kDirectory}, false}, 1.0, japanese};
  Font& tahoma = *with.Get(Request("Tahoma", -20));
  Font& other = *with.Get(Request("DejaVu Sans", -20));
  const Glyph& star = tahoma.At(kStar);
  const Glyph& own = other.At(kStar);
  EXPECT_EQ(PictureOf(star), PictureOf(own));
  EXPECT_EQ(star.advance, own.advance);
  EXPECT_EQ(star.top - tahoma.Metrics().text.ascent, own.top - other.Metrics().text.ascent);
  EXPECT_NE(tahoma.Metrics().text.ascent, other.Metrics().text.ascent) << "or the baselines say nothing";
  EXPECT_NE(PictureOf(without.Get(Request("Tahoma", -20))->At(kStar)), PictureOf(star));
  EXPECT_EQ(PictureOf(without.Get(Request("Tahoma", -20))->At('a')), PictureOf(tahoma.At('a')));
}

TEST_F(Fonts, ACharacterThatNoFontHasIsTheBoxOfItsOwnFace) {
  if (!std::filesystem::exists(kMore + "/DejaVuSans.ttf")) GTEST_SKIP() << "no such font here";
  const text::CodePage japanese(932);
  FontCache with{FontSources{{kDirectory, kMore}, false}, 1.0, japanese};
  FontCache without{FontSources{{kDirectory}, false}, 1.0, japanese};
  Font& tahoma = *with.Get(Request("Tahoma", -20));
  Font& alone = *without.Get(Request("Tahoma", -20));
  EXPECT_NE(PictureOf(tahoma.At(kStar)), PictureOf(alone.At(kStar)));
  EXPECT_EQ(PictureOf(tahoma.At(0x93FA)), PictureOf(alone.At(0x93FA)));
}

TEST_F(Fonts, ABoldCharacterIsLookedForInBoldFonts) {
  if (!std::filesystem::exists(kMore + "/DejaVuSans-Bold.ttf")) GTEST_SKIP() << "no such font here";
  const text::CodePage japanese(932);
  FontCache with{FontSources{{kDirectory, kMore}, false}, 1.0, japanese};
  EXPECT_EQ(PictureOf(with.Get(Request("Tahoma", -20, kFontWeightBold))->At(kStar)),
            PictureOf(with.Get(Request("DejaVu Sans", -20, kFontWeightBold))->At(kStar)));
}

TEST_F(Fonts, ASymbolThatTheFaceLacksIsNoLetterOfAnotherFont) {
  FontRequest request = Request("Marlett", 20);
  request.charset = kSymbolCharset;
  Font& symbols = *cache.Get(request);
  Font& letters = *cache.Get(Request("Tahoma", 20));
  EXPECT_EQ(PictureOf(symbols.At(0xE9)), PictureOf(symbols.At(0xE6)));
  EXPECT_NE(PictureOf(letters.At(0xE9)), PictureOf(letters.At(0xE6)));
}

TEST_F(Fonts, ExtremeSizesAndWeightsAreServed) {
  for (const int height :
       {1, -1, 5000, -5000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_GE(cache.Get(Request("Tahoma", height))->Metrics().text.height, 1) << height;
  }
}

TEST(FontCacheTest, EqualDescriptionsShareOneFont) {
  FontCache cache{FontSources{{}, false}, 1.0, kWestern};
  const auto one = cache.Get(Request("a", 10));
  EXPECT_EQ(cache.Get(Request("a", 10)), one);
  EXPECT_NE(cache.Get(Request("a", 11)), one);
  EXPECT_NE(cache.Get(Request("b", 10)), one);
}

TEST(FontCacheTest, KeepsOnlyTheLatestUnusedFonts) {
  FontCache cache{FontSources{{}, false}, 1.0, kWestern};
  const auto used = cache.Get(Request("used", 10));
  for (int i = 0; i < 100; ++i) cache.Get(Request("unused", 10 + i));
  EXPECT_EQ(cache.Size(), FontCache::kKept + 1);
  EXPECT_EQ(cache.Get(Request("used", 10)), used);
}

TEST(FontCacheTest, WithoutFontsTheBuiltInFaceServes) {
  FontCache cache{FontSources{{}, false}, 1.0, kWestern};
  const auto font = cache.Get(Request("Tahoma", 20));
  EXPECT_EQ(font->Metrics().text.height, 20);
  EXPECT_EQ(font->Width("abc"), 36);
  EXPECT_GT(Coverage(*font, 'a'), 0);
  EXPECT_EQ(Coverage(*font, ' '), 0);
}

TEST(FontCacheTest, AFolderWithoutFontsCountsAsMissing) {
  FontCache cache{FontSources{{"/nonexistent"}, false}, 1.0, kWestern};
  EXPECT_EQ(cache.Get(Request("Tahoma", 20))->Width("abc"), 36);
}

TEST(FontSearchTest, ASymbolFontIsNeverReplacedByText) {
  EXPECT_EQ(FontSearch({{}, true}).Find("Wingdings", {}).path.find("DejaVu"), std::string::npos);
  EXPECT_TRUE(IsSymbolFace("marlett"));
  EXPECT_FALSE(IsSymbolFace("Tahoma"));
}

TEST(FontSearchTest, TheSystemsFontsAreFoundByName) {
  const std::string folder = "/usr/share/fonts/truetype/dejavu/";
  if (!std::filesystem::exists(folder + "DejaVuSans-Bold.ttf")) GTEST_SKIP() << "no such font here";
  FontSearch search({{}, true});
  EXPECT_EQ(search.Find("DejaVu Sans", {}).path, folder + "DejaVuSans.ttf");
  EXPECT_EQ(search.Find("DejaVu Sans", {.bold = true}).path, folder + "DejaVuSans-Bold.ttf");
  EXPECT_EQ(search.Find("DejaVu Sans", {.bold = true, .italic = true}).path,
            folder + "DejaVuSans-BoldOblique.ttf");
  EXPECT_NE(search.Find("No Such Face", {}).path, "");
}

TEST(BuiltInFaceTest, HeightsFollowTheMeaningOfCreateFont) {
  EXPECT_EQ(BuiltInFace(Request("", 13))->Metrics().text.height, 13);
  EXPECT_EQ(BuiltInFace(Request("", -10))->Metrics().text.height, 12);
  EXPECT_EQ(BuiltInFace(Request("", 0))->Metrics().text.height, 16);
  EXPECT_EQ(BuiltInFace(Request("", -11, kFontWeightBold))->Render('x').advance, 7);
}

TEST(BuiltInArrowsTest, EachArrowPointsInItsDirection) {
  const auto arrows = BuiltInArrows(Request("Marlett", 12));
  auto dots = [&](char c) {
    const GlyphImage image = arrows->Render(static_cast<std::uint8_t>(c));
    std::string text;
    for (std::size_t i = 0; i < image.coverage.size(); ++i) {
      if (i % static_cast<std::size_t>(image.width) == 0 && i) text += '/';
      text += image.coverage[i] ? '#' : '.';
    }
    return text;
  };
  EXPECT_EQ(dots('5'), "...#.../..###../.#####./#######");
  EXPECT_EQ(dots('6'), "#######/.#####./..###../...#...");
  EXPECT_EQ(dots('3'), "...#/..##/.###/####/.###/..##/...#");
  EXPECT_EQ(dots('4'), "#.../##../###./####/###./##../#...");
}

}  // namespace
}  // namespace levelwidgets::memory
