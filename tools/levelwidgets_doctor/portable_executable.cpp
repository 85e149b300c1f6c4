#include <tools/levelwidgets_doctor/portable_executable.h>

#include <string_view>

#include <tools/levelwidgets_doctor/bytes.h>

namespace levelwidgets::doctor {

namespace {

constexpr std::uint16_t kMachineX86 = 0x14c;
constexpr std::uint16_t kMachineX64 = 0x8664;
constexpr std::uint16_t kIsLibrary = 0x2000;
constexpr std::uint16_t kWideHeader = 0x20b;  // of 64 bits
constexpr int kImportDirectory = 1;
constexpr int kResourceDirectory = 2;
constexpr std::uint32_t kHighBit = 0x80000000u;
// No library has more; a damaged one may pretend to.
constexpr std::uint32_t kMostEntries = 4096;

class Reader {
 public:
  explicit Reader(Bytes file) : file_(file) {}

  PortableExecutable Read() {
    if (file_.Word(0) != 0x5a4d) throw Damaged();  // "MZ"
    const std::uint32_t header = file_.Long(0x3c);
    if (file_.Long(header) != 0x4550) throw Damaged();  // "PE"
    const std::uint16_t machine = file_.Word(header + 4);
    section_count_ = file_.Word(header + 6);
    optional_ = header + 24;
    sections_ = optional_ + file_.Word(header + 20);
    PortableExecutable result;
    result.bits = machine == kMachineX64 ? 64 : machine == kMachineX86 ? 32 : 0;
    result.is_library = (file_.Word(header + 22) & kIsLibrary) != 0;
    result.imports = Imports();
    result.type_library = TypeLibrary();
    return result;
  }

 private:
  // Where the directory begins when the file is loaded; 0 for none.
  std::uint32_t Directory(int number) const {
    const std::uint32_t count_at = optional_ + (file_.Word(optional_) == kWideHeader ? 108 : 92);
    if (static_cast<std::uint32_t>(number) >= file_.Long(count_at)) return 0;
    return file_.Long(count_at + 4 + 8 * static_cast<std::uint32_t>(number));
  }

  // Where in the file lies what is at `address` when it is loaded.
  std::uint64_t Place(std::uint32_t address) const {
    for (std::uint32_t i = 0; i < section_count_; ++i) {
      const std::uint64_t section = sections_ + 40ull * i;
      const std::uint32_t start = file_.Long(section + 12);
      const std::uint32_t size = file_.Long(section + 16);
      if (address >= start && address - start < size)
        return address - start + std::uint64_t{file_.Long(section + 20)};
    }
    throw Damaged();
  }

  std::vector<std::string> Imports() const {
    std::vector<std::string> names;
    const std::uint32_t directory = Directory(kImportDirectory);
    if (directory == 0) return names;
    const std::uint64_t first = Place(directory);
    for (std::uint32_t i = 0; i < kMostEntries; ++i) {
      const std::uint32_t name = file_.Long(first + 20ull * i + 12);
      if (name == 0) break;
      names.push_back(file_.Text(Place(name)));
    }
    return names;
  }

  // The entry of a level of the resources that is named so, or the first one for no name; 0 for none.
  std::uint32_t Entry(std::uint64_t resources, std::uint32_t level, std::u16string_view name) const {
    const std::uint64_t at = resources + level;
    const std::uint32_t named = file_.Word(at + 12);
    const std::uint32_t count = named + file_.Word(at + 14);
    for (std::uint32_t i = 0; i < count && i < kMostEntries; ++i) {
      const std::uint32_t id = file_.Long(at + 16 + 8ull * i);
      const std::uint32_t target = file_.Long(at + 20 + 8ull * i);
      if (name.empty() || ((id & kHighBit) && NameIs(resources + (id & ~kHighBit), name))) return target;
    }
    return 0;
  }

  bool NameIs(std::uint64_t at, std::u16string_view name) const {
    if (file_.Word(at) != name.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
      if (file_.Word(at + 2 + 2 * i) != name[i]) return false;
    }
    return true;
  }

  // Resources are three levels deep: kind, name and language.
  Bytes TypeLibrary() const {
    const std::uint32_t directory = Directory(kResourceDirectory);
    if (directory == 0) return {};
    const std::uint64_t resources = Place(directory);
    std::uint32_t entry = Entry(resources, 0, u"TYPELIB");
    for (int level = 0; level < 2 && (entry & kHighBit); ++level) {
      entry = Entry(resources, entry & ~kHighBit, u"");
    }
    if (entry == 0 || (entry & kHighBit)) return {};
    return file_.Part(Place(file_.Long(resources + entry)), file_.Long(resources + entry + 4));
  }

  ByteReader file_;
  std::uint32_t optional_ = 0;
  std::uint32_t sections_ = 0;
  std::uint32_t section_count_ = 0;
};

}  // namespace

std::optional<PortableExecutable> ReadPortableExecutable(Bytes file) {
  try {
    return Reader(file).Read();
  } catch (const Damaged&) {
    return std::nullopt;
  }
}

}  // namespace levelwidgets::doctor
