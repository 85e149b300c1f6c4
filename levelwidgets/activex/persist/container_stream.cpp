#include <levelwidgets/activex/persist/container_stream.h>

#include <algorithm>

#include <levelwidgets/activex/persist/saved_bytes.h>

namespace levelwidgets::activex {

namespace {

// Not more at once: a damaged length reserves no memory for what is not there.
constexpr std::size_t kPiece = 64u << 10;

[[noreturn]] void RaiseFailed(HRESULT result, const char* what) {
  throw Error(result, "LevelWidgets", std::string("The container's stream cannot be ") + what);
}

std::string ReadBytes(IStream& stream, std::size_t count) {
  std::string bytes;
  while (bytes.size() < count) {
    const std::size_t begin = bytes.size();
    bytes.resize(begin + std::min(count - begin, kPiece));
    ULONG read = 0;
    const HRESULT result = stream.Read(bytes.data() + begin, static_cast<ULONG>(bytes.size() - begin), &read);
    if (FAILED(result)) RaiseFailed(result, "read");
    bytes.resize(begin + std::min<std::size_t>(read, bytes.size() - begin));
    if (bytes.size() == begin) break;
  }
  return bytes;
}

}  // namespace

PropertyBag ReadFrom(IStream& stream) {
  const SavedHeader header = ReadSavedHeader(ReadBytes(stream, kSavedHeaderSize));
  return ReadSavedBody(header, ReadBytes(stream, header.body_size));
}

void WriteTo(IStream& stream, const PropertyBag& bag) {
  const std::string bytes = ToSavedBytes(bag);
  for (std::size_t at = 0; at < bytes.size();) {
    ULONG written = 0;
    const HRESULT result = stream.Write(bytes.data() + at, static_cast<ULONG>(bytes.size() - at), &written);
    if (FAILED(result)) RaiseFailed(result, "written");
    if (written == 0) RaiseFailed(STG_E_MEDIUMFULL, "written");
    at += written;
  }
}

}  // namespace levelwidgets::activex
