// Libraries and type libraries as files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tools/levelwidgets_doctor/library_bytes_fixture.h>
#include <tools/levelwidgets_doctor/portable_executable.h>
#include <tools/levelwidgets_doctor/type_library_bytes.h>
#include <algorithm>
#include <random>

namespace levelwidgets::doctor {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(PortableExecutable, SaysForWhichProgramsItIsAndWhatItNeeds) {
  for (const int bits : {64, 32}) {
    const auto bytes = MakeLibrary({.bits = bits, .imports = {"KERNEL32.dll", "helper.dll"}});
    const auto library = ReadPortableExecutable(bytes);
    ASSERT_TRUE(library) << bits;
    EXPECT_EQ(library->bits, bits);
    EXPECT_TRUE(library->is_library);
    EXPECT_THAT(library->imports, ElementsAre("KERNEL32.dll", "helper.dll"));
  }
}

TEST(PortableExecutable, OfAnotherProcessorHasNoBits) {
  const auto bytes = MakeLibrary({.bits = 0});
  EXPECT_EQ(ReadPortableExecutable(bytes)->bits, 0);
}

TEST(PortableExecutable, OfAProgramIsNoLibrary) {
  const auto bytes = MakeLibrary({.is_library = false, .imports = {}});
  const auto program = ReadPortableExecutable(bytes);
  EXPECT_FALSE(program->is_library);
  EXPECT_THAT(program->imports, IsEmpty());
}

TEST(PortableExecutable, HasTheTypeLibraryAmongItsResources) {
  const auto bytes = MakeLibrary();
  const Bytes found = ReadPortableExecutable(bytes)->type_library;
  EXPECT_EQ(std::vector<std::uint8_t>(found.begin(), found.end()), MakeTypeLibrary());
  const auto without = MakeLibrary({.type_library = {}});
  EXPECT_TRUE(ReadPortableExecutable(without)->type_library.empty());
}

// Where the name of the kind of a type library begins: its length, and its letters in two bytes each.
std::size_t PlaceOfKindName(const std::vector<std::uint8_t>& bytes) {
  const std::vector<std::uint8_t> name{7, 0, 'T', 0, 'Y', 0, 'P', 0, 'E', 0, 'L', 0, 'I', 0, 'B', 0};
  return static_cast<std::size_t>(std::search(bytes.begin(), bytes.end(), name.begin(), name.end()) -
                                  bytes.begin());
}

TEST(PortableExecutable, TakesNoKindOfALongerNameForATypeLibrary) {
  auto bytes = MakeLibrary();
  bytes[PlaceOfKindName(bytes)] = 8;
  EXPECT_TRUE(ReadPortableExecutable(bytes)->type_library.empty());
}

TEST(PortableExecutable, TakesNoKindWithANumberForATypeLibrary) {
  auto bytes = MakeLibrary();
  // Of the two kinds in front of the name, the first has one: without its highest bit, that is a number.
  const std::size_t kind = PlaceOfKindName(bytes) - 2 * 24 - 16;
  ASSERT_EQ(bytes[kind + 3], 0x80);
  bytes[kind + 3] = 0;
  EXPECT_TRUE(ReadPortableExecutable(bytes)->type_library.empty());
}

TEST(PortableExecutable, WithImportsBehindItsSectionIsNone) {
  auto bytes = MakeLibrary();
  MadeBytes longer;
  longer.All(bytes);
  constexpr std::size_t kImports = 0x40 + 24 + 112 + 8;
  longer.Put(kImports, static_cast<std::uint32_t>(bytes.size() - 0x400 + 0x1000));
  longer.PadTo(bytes.size() + 64);
  EXPECT_FALSE(ReadPortableExecutable(longer.Take()));
}

TEST(PortableExecutable, OtherFilesAreNone) {
  for (const std::string text :
       {"", "M", "MZ", "PK\3\4", "MZ and then a text that is long enough to hold all headers"}) {
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    EXPECT_FALSE(ReadPortableExecutable(bytes)) << text;
  }
}

// Of every length, and with bytes changed at random: it is read or refused, and nothing outside of it is
// looked at.
TEST(PortableExecutable, ThatIsDamagedIsReadInsideItsBoundsOnly) {
  const auto whole = MakeLibrary();
  std::size_t refused = 0;
  for (std::size_t length = 0; length < whole.size(); length += 7) {
    const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    const auto library = ReadPortableExecutable(cut);
    if (!library) ++refused;
    if (library && !library->type_library.empty()) {
      ReadTypeLibrary(library->type_library);
    }
  }
  EXPECT_GT(refused, whole.size() / 7 - 3);
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    auto bytes = whole;
    for (int i = 0; i < 3; ++i) bytes[random() % 0x600] = static_cast<std::uint8_t>(random());
    const auto library = ReadPortableExecutable(bytes);
    if (library) ReadTypeLibrary(library->type_library);
  }
}

TEST(TypeLibraryFile, SaysWhichOneItIs) {
  const auto summary = ReadTypeLibrary(MakeTypeLibrary({.major = 3, .minor = 7}));
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->id, kLibraryId);
  EXPECT_EQ(summary->major, 3);
  EXPECT_EQ(summary->minor, 7);
  EXPECT_THAT(summary->known, ::testing::Contains(IdentityOf("FlatGrid")->events_id));
}

TEST(TypeLibraryFile, OtherFilesAreNone) {
  EXPECT_FALSE(ReadTypeLibrary({}));
  auto bytes = MakeTypeLibrary();
  bytes[0] = 'X';
  EXPECT_FALSE(ReadTypeLibrary(bytes));
  auto cut = MakeTypeLibrary();
  cut.resize(cut.size() - 30);
  EXPECT_FALSE(ReadTypeLibrary(cut));
}

TEST(TypeLibraryFile, MatchesWhereItIsOfThisVersionAndKnowsEveryClass) {
  EXPECT_EQ(MismatchOf(*ReadTypeLibrary(MakeTypeLibrary())), "");
  EXPECT_THAT(MismatchOf(*ReadTypeLibrary(MakeTypeLibrary({.id = IdentityOf("FlatGrid")->class_id}))),
              HasSubstr("another library, {89878AB8-E11C-433D-AB77-AF2AB3D92F47}"));
  EXPECT_EQ(MismatchOf(*ReadTypeLibrary(MakeTypeLibrary({.minor = 9}))), "it is version 1.9");
  EXPECT_EQ(MismatchOf(*ReadTypeLibrary(MakeTypeLibrary({.major = 2}))), "it is version 2.0");
  EXPECT_THAT(MismatchOf(*ReadTypeLibrary(MakeTypeLibrary({.without_class = "FlatLabel"}))),
              HasSubstr("does not know the class FlatLabel"));
  const ClassIdentity& grid = *IdentityOf("FlatGrid");
  for (const Guid& id : {grid.class_id, grid.interface_id, grid.events_id}) {
    EXPECT_THAT(MismatchOf(*ReadTypeLibrary(MakeTypeLibrary({.without_id = id}))),
                HasSubstr("does not know the class FlatGrid"));
  }
}

}  // namespace
}  // namespace levelwidgets::doctor
