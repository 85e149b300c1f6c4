#include <levelwidgets/host/monkey/values.h>

#include <limits>

#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets::monkey {

namespace {

constexpr std::int32_t kEdges[] = {0,
                                   1,
                                   -1,
                                   2,
                                   32767,
                                   32768,
                                   -32768,
                                   -32769,
                                   65536,
                                   std::numeric_limits<std::int32_t>::max(),
                                   std::numeric_limits<std::int32_t>::min()};

constexpr const char* kPieces[] = {
    "a",  "B",  "7",  " ",        "&",        "&&",           "\n",       "\r\n",
    "\t", "\"", "\\", "\xC3\xA4", "\xC3\x9F", "\xE2\x82\xAC", "\xD0\x96", "\xF0\x9F\x98\x80",
    ".",  ",",  "-",  "word ",    "12.5",     "2024-02-30"};

std::int32_t RandomWhole(Dice& dice) {
  switch (dice.Below(8)) {
    case 0: return dice.One(kEdges);
    case 1: return static_cast<std::int32_t>(dice.Number());
    case 2: return dice.Between(-1000, 1000);
    default: return dice.Between(-2, 12);
  }
}

double RandomNumber(Dice& dice) {
  switch (dice.Below(6)) {
    case 0: return dice.One(kEdges);
    case 1: return dice.Between(-30000, 30000) / 7.0;
    case 2: return 1e30;
    case 3: return 22.5;
    default: return dice.Between(0, 6000);
  }
}

Color RandomColor(Dice& dice) {
  switch (dice.Below(5)) {
    case 0: return Color(0x80000000u + dice.Below(kSystemColorCount));
    case 1: return Color(static_cast<std::uint32_t>(dice.Number()));
    default: return Color(static_cast<std::uint32_t>(dice.Number()) & 0xFFFFFFu);
  }
}

FontRef RandomFont(Dice& dice) {
  constexpr const char* kNames[] = {"Tahoma", "Arial", "Courier New", "Marlett", "", "No Such Font"};
  constexpr double kSizes[] = {8.25, 8.25, 6, 9.75, 12, 24, 48, 1, 0.5};
  FontDescription font;
  font.name = dice.One(kNames);
  font.size = dice.One(kSizes);
  font.bold = dice.Once(4);
  font.italic = dice.Once(4);
  font.underline = dice.Once(4);
  font.strikethrough = dice.Once(4);
  if (dice.Once(5)) font.charset = dice.Between(0, 255);
  return MakeFont(font);
}

Variant RandomItem(Dice& dice, const EnumerationInfo& enumeration) {
  if (dice.Once(6)) return RandomWhole(dice);
  return dice.One(enumeration.items).value;
}

Variant Anything(Dice& dice) {
  switch (dice.Below(7)) {
    case 0: return Null{};
    case 1: return RandomText(dice);
    case 2: return RandomNumber(dice);
    case 3: return dice.Once(2);
    case 4: return Variant(RandomFont(dice));
    case 5: return "17.5";
    default: return RandomWhole(dice);
  }
}

}  // namespace

std::string RandomText(Dice& dice) {
  std::string text;
  const int pieces = dice.Once(60) ? 1500 : dice.Once(8) ? 60 : dice.Between(0, 8);
  for (int i = 0; i < pieces; ++i) text += dice.One(kPieces);
  return text;
}

std::int32_t RandomIndex(Dice& dice) { return dice.Once(8) ? RandomWhole(dice) : dice.Between(0, 4); }

Variant RandomValue(Dice& dice, const MemberType& type) {
  if (dice.Once(20)) return Anything(dice);
  if (type.enumeration) return RandomItem(dice, *type.enumeration);
  if (type.kind == TypeKind::kColor) return RandomColor(dice);
  switch (type.type) {
    case VariantType::kBoolean: return dice.Once(2);
    case VariantType::kInt16:
    case VariantType::kInt32: return RandomWhole(dice);
    case VariantType::kSingle:
    case VariantType::kDouble: return RandomNumber(dice);
    case VariantType::kDate: return static_cast<double>(dice.Between(-100000, 100000)) / 4;
    case VariantType::kString: return RandomText(dice);
    case VariantType::kFont: return Variant(RandomFont(dice));
    default: return Anything(dice);
  }
}

}  // namespace levelwidgets::monkey
