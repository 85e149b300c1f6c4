#include <tools/levelwidgets_doctor/type_library_bytes.h>

#include <algorithm>

#include <levelwidgets/activex/identity/identifiers.h>
#include <tools/levelwidgets_doctor/bytes.h>

namespace levelwidgets::doctor {

namespace {

// The header, and the table of segments behind the places of the types.
constexpr std::uint32_t kMagic = 0x5446534d;  // "MSFT"
constexpr std::uint32_t kHeaderSize = 0x54;
constexpr std::uint32_t kHasHelpLibrary = 0x100;
constexpr std::uint32_t kGuidSegment = 5;
constexpr std::uint32_t kSegmentSize = 16;
constexpr std::uint32_t kGuidSize = 24;  // with what else is kept of it

Guid GuidAt(const ByteReader& file, std::uint64_t at) {
  Guid guid{file.Long(at), file.Word(at + 4), file.Word(at + 6), {}};
  std::ranges::copy(file.Part(at + 8, 8), guid.data4.begin());
  return guid;
}

TypeLibrarySummary Read(const ByteReader& file) {
  if (file.Long(0) != kMagic) throw Damaged();
  const std::uint32_t version = file.Long(0x18);
  const std::uint64_t types = kHeaderSize + (file.Long(0x14) & kHasHelpLibrary ? 4u : 0u);
  const std::uint64_t segments = types + 4ull * file.Long(0x20);
  const std::uint32_t guids = file.Long(segments + kGuidSegment * kSegmentSize);
  const std::uint32_t length = file.Long(segments + kGuidSegment * kSegmentSize + 4);
  TypeLibrarySummary summary;
  summary.id = GuidAt(file, std::uint64_t{guids} + file.Long(8));
  summary.major = static_cast<std::uint16_t>(version);
  summary.minor = static_cast<std::uint16_t>(version >> 16);
  for (std::uint32_t at = 0; at + kGuidSize <= length; at += kGuidSize) {
    summary.known.push_back(GuidAt(file, std::uint64_t{guids} + at));
  }
  return summary;
}

}  // namespace

std::optional<TypeLibrarySummary> ReadTypeLibrary(std::span<const std::uint8_t> file) {
  try {
    return Read(ByteReader(file));
  } catch (const Damaged&) {
    return std::nullopt;
  }
}

std::string MismatchOf(const TypeLibrarySummary& library) {
  if (library.id != kLibraryId) return "it is another library, " + TextOf(library.id);
  if (library.major != kLibraryMajor || library.minor != kLibraryMinor) {
    return "it is version " + std::to_string(library.major) + "." + std::to_string(library.minor);
  }
  const auto lacks = [&](const Guid& id) {
    return !id.IsNull() && std::ranges::find(library.known, id) == library.known.end();
  };
  for (const ClassIdentity& each : ClassIdentities()) {
    if (lacks(each.class_id) || lacks(each.interface_id) || lacks(each.events_id)) {
      return "it does not know the class " + std::string(each.class_name) + " as it is now";
    }
  }
  return "";
}

}  // namespace levelwidgets::doctor
