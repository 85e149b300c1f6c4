#include <levelwidgets/activex/persist/saved_bytes.h>

#include <array>
#include <bit>
#include <cmath>
#include <concepts>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kMark = "LWPB";
constexpr std::uint32_t kMostBytes = 256u << 20;

[[noreturn]] void RaiseDamaged(const std::string& what) {
  throw Error(kInvalidFileFormat, "LevelWidgets", "The saved properties cannot be read: " + what);
}

// --- The checksum: CRC-32 as in ISO 3309 and PNG --------------------------------------------------------

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    std::uint32_t rest = byte;
    for (int bit = 0; bit < 8; ++bit) rest = (rest & 1) != 0 ? 0xEDB88320u ^ (rest >> 1) : rest >> 1;
    table[byte] = rest;
  }
  return table;
}

std::uint32_t ChecksumOf(std::string_view bytes) {
  static constexpr std::array<std::uint32_t, 256> table = MakeCrcTable();
  std::uint32_t rest = 0xFFFFFFFFu;
  for (const char byte : bytes) {
    rest = table[(rest ^ static_cast<unsigned char>(byte)) & 0xFF] ^ (rest >> 8);
  }
  return ~rest;
}

// --- Writing --------------------------------------------------------------------------------------------

class ByteWriter {
 public:
  template <std::integral T>
  void Number(T value) {
    auto rest = static_cast<std::make_unsigned_t<T>>(value);
    for (std::size_t i = 0; i < sizeof value; ++i) {
      bytes_ += static_cast<char>(rest & 0xFF);
      rest = static_cast<std::make_unsigned_t<T>>(static_cast<std::uint64_t>(rest) >> 8);
    }
  }
  void Number(float value) { Number(std::bit_cast<std::uint32_t>(value)); }
  void Number(double value) { Number(std::bit_cast<std::uint64_t>(value)); }
  void Boolean(bool value) { Number(static_cast<std::uint8_t>(value ? 1 : 0)); }
  void Raw(std::string_view bytes) { bytes_ += bytes; }
  void Text(std::string_view text) {
    Number(static_cast<std::uint32_t>(text.size()));
    Raw(text);
  }

  void operator()(Empty) {}
  void operator()(Null) {}
  void operator()(bool value) { Boolean(value); }
  void operator()(std::int16_t value) { Number(value); }
  void operator()(std::int32_t value) { Number(value); }
  void operator()(float value) { Number(value); }
  void operator()(double value) { Number(value); }
  void operator()(Date value) { Number(value.days); }
  void operator()(const std::string& value) { Text(value); }
  void operator()(const FontRef& value) {
    if (!value) throw Error(kTypeMismatch);
    const FontDescription& font = value->Description();
    Text(font.name);
    Number(font.size);
    for (const bool is : {font.bold, font.italic, font.underline, font.strikethrough}) Boolean(is);
    Number(static_cast<std::int16_t>(font.charset));
  }
  void operator()(const ObjectRef&) { throw Error(kTypeMismatch); }

  std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

// --- Reading --------------------------------------------------------------------------------------------

class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  bool AtEnd() const { return at_ == bytes_.size(); }
  std::size_t Left() const { return bytes_.size() - at_; }

  std::string_view Raw(std::size_t length) {
    if (length > Left()) {
      RaiseDamaged("they end at byte " + std::to_string(bytes_.size()) + ", and " +
                   std::to_string(length - Left()) + " bytes are missing");
    }
    const std::string_view taken = bytes_.substr(at_, length);
    at_ += length;
    return taken;
  }
  template <std::integral T>
  T Number() {
    std::uint64_t value = 0;
    int shift = 0;
    for (const char byte : Raw(sizeof(T))) {
      value |= static_cast<std::uint64_t>(static_cast<unsigned char>(byte)) << shift;
      shift += 8;
    }
    return static_cast<T>(value);
  }
  float Single() { return std::bit_cast<float>(Number<std::uint32_t>()); }
  double Double() { return std::bit_cast<double>(Number<std::uint64_t>()); }
  bool Boolean() {
    const auto value = Number<std::uint8_t>();
    if (value > 1) RaiseDamaged("byte " + std::to_string(at_ - 1) + " is neither 0 nor 1");
    return value == 1;
  }
  std::string Text() { return Characters(Number<std::uint32_t>()); }
  std::string Name() { return Characters(Number<std::uint16_t>()); }

  Variant Value() {
    const auto type = Number<std::uint8_t>();
    switch (static_cast<VariantType>(type)) {
      case VariantType::kEmpty: return {};
      case VariantType::kNull: return Null();
      case VariantType::kBoolean: return Boolean();
      case VariantType::kInt16: return Number<std::int16_t>();
      case VariantType::kInt32: return Number<std::int32_t>();
      case VariantType::kSingle: return Single();
      case VariantType::kDouble: return Double();
      case VariantType::kDate: return Date{Double()};
      case VariantType::kString: return Text();
      case VariantType::kFont: return ReadFont();
      default:
        RaiseDamaged("there is no type " + std::to_string(type) + " (byte " + std::to_string(at_ - 1) + ")");
    }
  }

 private:
  std::string Characters(std::size_t length) {
    const std::size_t begin = at_;
    const std::string_view characters = Raw(length);
    if (const auto ill = text::FindIllFormed(characters)) {
      RaiseDamaged("byte " + std::to_string(begin + *ill) + " is no UTF-8");
    }
    return std::string(characters);
  }
  FontRef ReadFont() {
    FontDescription font;
    font.name = Text();
    font.size = Double();
    font.bold = Boolean();
    font.italic = Boolean();
    font.underline = Boolean();
    font.strikethrough = Boolean();
    font.charset = Number<std::int16_t>();
    if (!std::isfinite(font.size) || font.size <= 0) {
      RaiseDamaged("a font's size is not more than 0 points (byte " + std::to_string(at_) + ")");
    }
    return MakeFont(std::move(font));
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
};

}  // namespace

std::string ToSavedBytes(const PropertyBag& bag) {
  ByteWriter body;
  body.Number(static_cast<std::uint32_t>(bag.Entries().size()));
  for (const PropertyBag::Entry& entry : bag.Entries()) {
    body.Number(static_cast<std::uint16_t>(entry.name.size()));
    body.Raw(entry.name);
    body.Number(static_cast<std::uint8_t>(entry.value.Type()));
    std::visit(body, entry.value.Get());
  }
  return WithSavedHeader(body.Take());
}

std::string WithSavedHeader(std::string_view bytes) {
  ByteWriter all;
  all.Raw(kMark);
  all.Number(kSavedVersion);
  all.Number(std::uint16_t{0});
  all.Number(static_cast<std::uint32_t>(bytes.size()));
  all.Number(ChecksumOf(bytes));
  all.Raw(bytes);
  return all.Take();
}

SavedHeader ReadSavedHeader(std::string_view header) {
  ByteReader reader(header);
  if (reader.Raw(kMark.size()) != kMark) RaiseDamaged("they do not begin with " + std::string(kMark));
  const auto version = reader.Number<std::uint16_t>();
  if (version == 0 || version > kSavedVersion) {
    RaiseDamaged("they are of version " + std::to_string(version) +
                 ", and this library knows versions up to " + std::to_string(kSavedVersion));
  }
  if (reader.Number<std::uint16_t>() != 0) RaiseDamaged("bytes 6 and 7 are not 0");
  SavedHeader read;
  read.body_size = reader.Number<std::uint32_t>();
  read.checksum = reader.Number<std::uint32_t>();
  if (read.body_size > kMostBytes) RaiseDamaged("they are " + std::to_string(read.body_size) + " bytes long");
  return read;
}

PropertyBag ReadSavedBody(const SavedHeader& header, std::string_view body) {
  if (body.size() != header.body_size) {
    RaiseDamaged("they have " + std::to_string(body.size()) + " of " + std::to_string(header.body_size) +
                 " bytes");
  }
  if (ChecksumOf(body) != header.checksum) RaiseDamaged("their checksum does not fit");
  ByteReader reader(body);
  PropertyBag bag;
  for (auto left = reader.Number<std::uint32_t>(); left > 0; --left) {
    const std::string name = reader.Name();
    if (name.empty()) RaiseDamaged("a property has no name");
    if (bag.Find(name)) RaiseDamaged("\"" + name + "\" is there twice");
    Variant value = reader.Value();
    // Whatever it is, it is no default.
    bag.WriteProperty(name, value, value.IsNull() ? Variant() : Variant(Null()));
  }
  if (!reader.AtEnd()) RaiseDamaged(std::to_string(reader.Left()) + " bytes are left over");
  return bag;
}

PropertyBag FromSavedBytes(std::string_view bytes) {
  const SavedHeader header = ReadSavedHeader(bytes.substr(0, kSavedHeaderSize));
  return ReadSavedBody(header, bytes.substr(kSavedHeaderSize));
}

}  // namespace levelwidgets
