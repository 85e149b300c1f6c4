// Libraries and type libraries as files, made up for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/activex/identity/identifiers.h>

namespace levelwidgets::doctor {

class MadeBytes {
 public:
  std::size_t Size() const { return bytes_.size(); }
  std::vector<std::uint8_t> Take() { return std::move(bytes_); }

  void PadTo(std::size_t size) { bytes_.resize(std::max(size, bytes_.size())); }
  void Word(std::uint32_t value) {
    bytes_.push_back(static_cast<std::uint8_t>(value));
    bytes_.push_back(static_cast<std::uint8_t>(value >> 8));
  }
  void Long(std::uint32_t value) {
    Word(value & 0xffff);
    Word(value >> 16);
  }
  void Text(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    bytes_.push_back(0);
  }
  void All(const std::vector<std::uint8_t>& bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
  }
  void Put(std::size_t at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
      bytes_[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> (8 * i));
  }

 private:
  std::vector<std::uint8_t> bytes_;
};

struct MadeTypeLibrary {
  Guid id = kLibraryId;
  std::uint16_t major = kLibraryMajor;
  std::uint16_t minor = kLibraryMinor;
  std::string_view without_class;  // that it does not know
  Guid without_id;                 // likewise
};

inline void AddGuidEntry(MadeBytes& made, const Guid& id) {
  made.Long(id.data1);
  made.Word(id.data2);
  made.Word(id.data3);
  made.All({id.data4.begin(), id.data4.end()});
  made.Long(0);
  made.Long(0);
}

inline std::vector<std::uint8_t> MakeTypeLibrary(const MadeTypeLibrary& with = {}) {
  constexpr std::uint32_t kTables = 0x54;
  constexpr std::uint32_t kGuids = kTables + 15 * 16;
  MadeBytes made;
  made.Long(0x5446534d);
  made.PadTo(kGuids);
  made.Put(0x18, with.major | static_cast<std::uint32_t>(with.minor) << 16);
  AddGuidEntry(made, with.id);
  for (const ClassIdentity& each : ClassIdentities()) {
    if (each.class_name == with.without_class) continue;
    for (const Guid& id : {each.class_id, each.interface_id, each.events_id}) {
      if (id != with.without_id) AddGuidEntry(made, id);
    }
  }
  made.Put(kTables + 5 * 16, kGuids);
  made.Put(kTables + 5 * 16 + 4, static_cast<std::uint32_t>(made.Size()) - kGuids);
  return made.Take();
}

struct MadeLibrary {
  int bits = 64;  // 0 for another processor's
  bool is_library = true;
  std::vector<std::string> imports{"KERNEL32.dll"};
  std::vector<std::uint8_t> type_library = MakeTypeLibrary();  // none where empty
};

class LibraryMaker {
 public:
  explicit LibraryMaker(const MadeLibrary& with) : with_(with) {}

  std::vector<std::uint8_t> Make() {
    AddHeaders();
    file_.PadTo(kContent);
    AddImports();
    if (!with_.type_library.empty()) AddResources();
    file_.Put(section_ + 16, static_cast<std::uint32_t>(file_.Size()) - kContent);
    return file_.Take();
  }

 private:
  static constexpr std::uint32_t kContent = 0x400;  // where it is in the file
  static constexpr std::uint32_t kLoaded = 0x1000;  // and when it is loaded
  static constexpr std::uint32_t kHigh = 0x80000000u;

  // When it is loaded, of what comes next.
  std::uint32_t Address() const { return static_cast<std::uint32_t>(file_.Size()) - kContent + kLoaded; }

  void AddHeaders() {
    file_.Word(0x5a4d);
    file_.PadTo(0x3c);
    file_.Long(0x40);
    file_.Long(0x4550);
    file_.Word(with_.bits == 64 ? 0x8664u : with_.bits == 32 ? 0x14cu : 0xaa64u);
    file_.Word(1);
    file_.PadTo(file_.Size() + 12);
    const bool is_wide = with_.bits != 32;
    file_.Word(is_wide ? 240 : 224);
    file_.Word(with_.is_library ? 0x2002 : 0x2);
    const std::size_t optional = file_.Size();
    file_.Word(is_wide ? 0x20b : 0x10b);
    file_.PadTo(optional + (is_wide ? 108 : 92));
    file_.Long(16);
    directories_ = file_.Size();
    file_.PadTo(directories_ + 16 * 8);
    section_ = file_.Size();
    file_.PadTo(section_ + 40);
    file_.Put(section_ + 12, kLoaded);
    file_.Put(section_ + 20, kContent);
  }

  void AddImports() {
    file_.Put(directories_ + 8, Address());
    const std::size_t first = file_.Size();
    file_.PadTo(first + 20 * (with_.imports.size() + 1));
    for (std::size_t i = 0; i < with_.imports.size(); ++i) {
      file_.Put(first + 20 * i + 12, Address());
      file_.Text(with_.imports[i]);
    }
  }

  // Kind, name and language, each with one entry; another kind stands before.
  void AddResources() {
    file_.Put(directories_ + 16, Address());
    const std::size_t start = file_.Size();
    const auto here = [&] { return static_cast<std::uint32_t>(file_.Size() - start); };
    AddLevel(1, 1);
    const std::size_t kind = file_.Size();
    file_.PadTo(kind + 16);
    AddLevel(0, 1);
    const std::size_t name = file_.Size();
    file_.PadTo(name + 8);
    AddLevel(0, 1);
    const std::size_t language = file_.Size();
    file_.PadTo(language + 8);
    file_.Put(kind, kHigh | here());
    file_.Word(7);
    for (const char c : std::string_view("TYPELIB")) file_.Word(static_cast<std::uint32_t>(c));
    file_.Put(kind + 4, kHigh | static_cast<std::uint32_t>(name - 16 - start));
    file_.Put(kind + 8, 16);
    file_.Put(kind + 12, kHigh | static_cast<std::uint32_t>(name - 16 - start));
    file_.Put(name, 1);
    file_.Put(name + 4, kHigh | static_cast<std::uint32_t>(language - 16 - start));
    file_.Put(language, 0x409);
    file_.Put(language + 4, here());
    file_.Long(Address() + 16);
    file_.Long(static_cast<std::uint32_t>(with_.type_library.size()));
    file_.Long(0);
    file_.Long(0);
    file_.All(with_.type_library);
  }

  void AddLevel(std::uint32_t named, std::uint32_t numbered) {
    file_.PadTo(file_.Size() + 12);
    file_.Word(named);
    file_.Word(numbered);
  }

  const MadeLibrary& with_;
  MadeBytes file_;
  std::size_t directories_ = 0;
  std::size_t section_ = 0;
};

inline std::vector<std::uint8_t> MakeLibrary(const MadeLibrary& with = {}) {
  return LibraryMaker(with).Make();
}

}  // namespace levelwidgets::doctor
