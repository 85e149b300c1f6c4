// The bytes that streams hold: what every class writes, and what is refused.
#include <bit>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include <levelwidgets/activex/persist/saved_bytes.h>
#include <levelwidgets/activex/persist/saved_bytes_fixture.h>
#include <levelwidgets/activex/persist/saved_control_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// --- Numbers as bytes -------------------------------------------------------------------------------------

std::string SavedNumber(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}
std::string SavedText(std::string_view text) { return SavedNumber(text.size(), 4) + std::string(text); }
std::string SavedName(std::string_view name) { return SavedNumber(name.size(), 2) + std::string(name); }
std::string SavedEntry(std::string_view name, int type, const std::string& value) {
  return SavedName(name) + SavedNumber(static_cast<std::uint64_t>(type), 1) + value;
}
// A whole file with these entries.
std::string SavedFile(const std::vector<std::string>& entries) {
  std::string body = SavedNumber(entries.size(), 4);
  for (const std::string& entry : entries) body += entry;
  return WithSavedHeader(body);
}

constexpr int kNullType = 1;
constexpr int kBooleanType = 2;
constexpr int kInt16Type = 3;
constexpr int kTextType = 8;
constexpr int kFontType = 9;

std::string SavedFont(double size) {
  return SavedText("Arial") + SavedNumber(std::bit_cast<std::uint64_t>(size), 8) + SavedNumber(1, 4) +
         SavedNumber(0, 2);
}

// What is wrong with the bytes; "" when nothing is.
std::string RefusalOf(const std::string& bytes) {
  try {
    FromSavedBytes(bytes);
    return "";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kInvalidFileFormat) << error.what();
    return error.Description();
  }
}

PropertyBag OneEntry(const Variant& value) {
  PropertyBag bag;
  bag.WriteProperty("Name", value, value.IsNull() ? Variant() : Variant(Null()));
  return bag;
}

// --- The format -------------------------------------------------------------------------------------------

TEST(SavedBytes, AreLaidOutAsTheirDescriptionSays) {
  PropertyBag bag;
  bag.WriteProperty("Caption", "\xC3\xA4", "");
  bag.WriteProperty("Enabled", true, false);
  bag.WriteProperty("TabCount", std::int16_t{-2}, 0);
  const std::string body = SavedNumber(3, 4) + SavedEntry("Caption", kTextType, SavedText("\xC3\xA4")) +
                           SavedEntry("Enabled", kBooleanType, "\x01") +
                           SavedEntry("TabCount", kInt16Type, "\xFE\xFF");
  const std::string bytes = ToSavedBytes(bag);
  EXPECT_EQ(bytes.substr(kSavedHeaderSize), body);
  EXPECT_EQ(bytes.substr(0, 12),
            "LWPB" + SavedNumber(1, 2) + SavedNumber(0, 2) + SavedNumber(body.size(), 4));
}

TEST(SavedBytes, HaveTheChecksumThatOthersCompute) {
  // The check value that the algorithm is published with.
  EXPECT_EQ(WithSavedHeader("123456789").substr(12, 4), SavedNumber(0xCBF43926u, 4));
}

TEST(SavedBytes, EveryTypeOfValueComesBack) {
  const FontRef font = MakeFont({.name = "\xC3\xA9",
                                 .size = 9.75,
                                 .bold = true,
                                 .italic = false,
                                 .underline = true,
                                 .strikethrough = false,
                                 .charset = 2});
  const std::vector<Variant> values{
      {},     Null(),      true, false,  std::int16_t{-32768},   2147483647, -1, 0.1F,
      -1e308, Date{-1.75}, "",   "text", std::string("a\0b", 3), font};
  for (const Variant& value : values) {
    const PropertyBag read = FromSavedBytes(ToSavedBytes(OneEntry(value)));
    ASSERT_EQ(read.Entries().size(), 1u) << Describe(value);
    EXPECT_EQ(read.Entries()[0].value.Type(), value.Type());
    EXPECT_TRUE(read.Entries()[0].value == value) << Describe(value);
  }
}

TEST(SavedBytes, AnObjectOrNoFontCannotBeWritten) {
  EXPECT_EQ(ErrorOf([] { ToSavedBytes(OneEntry(ObjectRef())); }), kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { ToSavedBytes(OneEntry(FontRef())); }), kTypeMismatch);
}

TEST(SavedBytes, OtherFormatsAndLaterVersionsAreRefused) {
  const std::string good = SavedFile({});
  EXPECT_EQ(RefusalOf(good), "");
  EXPECT_THAT(RefusalOf("LWPA" + good.substr(4)), HasSubstr("LWPB"));
  EXPECT_THAT(RefusalOf("LWPB" + SavedNumber(2, 2) + good.substr(6)), HasSubstr("version 2"));
  EXPECT_THAT(RefusalOf("LWPB" + SavedNumber(0, 2) + good.substr(6)), HasSubstr("version 0"));
  EXPECT_THAT(RefusalOf("LWPB" + SavedNumber(1, 2) + SavedNumber(256, 2) + good.substr(8)),
              HasSubstr("bytes 6 and 7"));
}

TEST(SavedBytes, BytesLeftOverAreRefused) {
  EXPECT_THAT(RefusalOf(SavedFile({}) + "x"), HasSubstr("5 of 4 bytes"));
  EXPECT_THAT(RefusalOf(WithSavedHeader(SavedNumber(0, 4) + "xy")), HasSubstr("2 bytes are left over"));
}

TEST(SavedBytes, AnEntryThatIsThereTwiceIsRefused) {
  for (const std::string& first :
       {SavedEntry("Text", kInt16Type, "\x01\x02"), SavedEntry("Text", kNullType, "")}) {
    EXPECT_THAT(RefusalOf(SavedFile({first, SavedEntry("Text", kBooleanType, "\x01")})),
                HasSubstr("\"Text\" is there twice"));
  }
}

TEST(SavedBytes, AnEntryWithoutANameIsRefused) {
  EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("", kNullType, "")})), HasSubstr("no name"));
}

TEST(SavedBytes, TextThatIsNoUtf8IsRefused) {
  EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("a\xC3", kNullType, "")})), HasSubstr("byte 7 is no UTF-8"));
  for (const char* ill : {"\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xFF"})
    EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("a", kTextType, SavedText(ill))})), HasSubstr("no UTF-8"))
        << ill;
}

TEST(SavedBytes, TypesThatThereAreNotAreRefused) {
  for (const int type : {10, 11, 128, 255}) {
    EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("a", type, "")})),
                HasSubstr("no type " + std::to_string(type) + " (byte 7)"));
  }
}

TEST(SavedBytes, ValuesThatATypeDoesNotHaveAreRefused) {
  EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("a", kBooleanType, "\x02")})), HasSubstr("neither 0 nor 1"));
  EXPECT_EQ(RefusalOf(SavedFile({SavedEntry("a", kFontType, SavedFont(8.25))})), "");
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double size : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), infinite, -infinite}) {
    EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("a", kFontType, SavedFont(size))})),
                HasSubstr("not more than 0 points"))
        << size;
  }
}

TEST(SavedBytes, LengthsBeyondAllMeasureAreRefusedWithoutMemory) {
  for (const std::uint64_t length : {0xFFFFFFFFu, 0xFFFFFFF0u, 0x80000000u, 0x7FFFFFFFu}) {
    EXPECT_THAT(RefusalOf(WithSavedHeader(SavedNumber(length, 4))), HasSubstr("are missing")) << length;
    EXPECT_THAT(RefusalOf(SavedFile({SavedEntry("a", kTextType, SavedNumber(length, 4) + "text")})),
                HasSubstr("are missing"))
        << length;
    const std::string header = "LWPB" + SavedNumber(1, 2) + SavedNumber(0, 2) + SavedNumber(length, 4);
    EXPECT_EQ(ErrorOf([&] { ReadSavedHeader(header + SavedNumber(0, 4)); }), kInvalidFileFormat);
  }
}

// --- Every class ------------------------------------------------------------------------------------------

std::string FileOf(const ClassInfo& info, const char* ending) {
  const std::string path = std::string(SourceDir()) + "/levelwidgets/activex/persist/saved_version_1/" +
                           std::string(info.Name()) + ending;
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

class SavedControlTest : public testing::DesktopTest {
 protected:
  std::shared_ptr<Form> NewForm() { return Form::Create(FormPlatform(), {}); }
  static Control& AddTo(Form& form, const ClassInfo& info, const PropertyBag* saved) {
    return *form.Add(info, "ctl", saved).GetControl();
  }
  UnusualSaved Unusual(const ClassInfo& info) {
    std::shared_ptr<Form> form;
    return MakeUnusualSaved([&](const PropertyBag* saved) -> Control& {
      form = NewForm();
      return AddTo(*form, info, saved);
    });
  }
};

TEST_F(SavedControlTest, EveryPersistedPropertyOfEveryClassComesBackFromBytes) {
  for (const ClassInfo* info : ControlClasses()) {
    SCOPED_TRACE(info->Name());
    const UnusualSaved unusual = Unusual(*info);
    EXPECT_THAT(unusual.usual, IsEmpty()) << "these are never saved";
    const PropertyBag read = FromSavedBytes(ToSavedBytes(unusual.bag));
    EXPECT_EQ(SavedLines(read), SavedLines(unusual.bag));
    const auto form = NewForm();
    AddTo(*form, *info, &unusual.bag);
    const auto other = NewForm();
    EXPECT_EQ(SavedLines(SavedOf(AddTo(*other, *info, &read))), SavedLines(unusual.bag));
    EXPECT_EQ(FormText(*other), FormText(*form)) << "a form file has other entries";
  }
}

TEST_F(SavedControlTest, AControlAsItComesSavesInBytesWhatAFormFileHas) {
  for (const ClassInfo* info : ControlClasses()) {
    SCOPED_TRACE(info->Name());
    const auto form = NewForm();
    const PropertyBag read = FromSavedBytes(ToSavedBytes(SavedOf(AddTo(*form, *info, nullptr))));
    const auto other = NewForm();
    AddTo(*other, *info, &read);
    EXPECT_EQ(FormText(*other), FormText(*form));
  }
}

// The files were written by version 1 of the format and stay as they are.
TEST_F(SavedControlTest, BytesOfTheFirstVersionAreLoadedForEver) {
  for (const ClassInfo* info : ControlClasses()) {
    SCOPED_TRACE(info->Name());
    const PropertyBag saved = FromSavedBytes(FileOf(*info, ".saved"));
    const std::string expected = FileOf(*info, ".txt");
    EXPECT_EQ(Joined(SavedLines(saved)), expected);
    const auto form = NewForm();
    EXPECT_EQ(Joined(SavedLines(SavedOf(AddTo(*form, *info, &saved)))), expected);
  }
}

TEST_F(SavedControlTest, WhatALaterVersionAddsIsPassedOver) {
  for (const ClassInfo* info : ControlClasses()) {
    SCOPED_TRACE(info->Name());
    PropertyBag saved = FromSavedBytes(FileOf(*info, ".saved"));
    for (const Variant& value : std::vector<Variant>{"text", 7, MakeFont()}) {
      saved.WriteProperty("LaterVersion" + Describe(value), value, Variant());
    }
    const PropertyBag read = FromSavedBytes(ToSavedBytes(saved));
    const auto form = NewForm();
    EXPECT_EQ(Joined(SavedLines(SavedOf(AddTo(*form, *info, &read)))), FileOf(*info, ".txt"));
  }
}

TEST_F(SavedControlTest, BytesCutOffAnywhereAreRefused) {
  for (const ClassInfo* info : ControlClasses()) {
    const std::string whole = FileOf(*info, ".saved");
    for (std::size_t length = 0; length < whole.size(); ++length) {
      ASSERT_NE(RefusalOf(whole.substr(0, length)), "") << info->Name() << " of length " << length;
    }
  }
}

TEST_F(SavedControlTest, ABitChangedAnywhereIsRefused) {
  for (const ClassInfo* info : ControlClasses()) {
    std::string bytes = FileOf(*info, ".saved");
    for (std::size_t at = 0; at < bytes.size() * 8; ++at) {
      const char bit = static_cast<char>(1u << at % 8);
      bytes[at / 8] = static_cast<char>(bytes[at / 8] ^ bit);
      ASSERT_NE(RefusalOf(bytes), "") << info->Name() << ", bit " << at;
      bytes[at / 8] = static_cast<char>(bytes[at / 8] ^ bit);
    }
  }
}

// What the fuzzer began with, and what it has found.
TEST_F(SavedControlTest, WhatTheFuzzerHasFoundKeepsThePromises) {
  SavedBytesPromises promises(FormPlatform(), Driver());
  const std::string folder = std::string(SourceDir()) + "/levelwidgets/activex/persist/saved_bytes_corpus";
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_EQ(promises.Broken(text.str()), "") << entry.path();
    ++count;
  }
  EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace levelwidgets
