#include <levelwidgets/host/files/whole_file.h>

#include <optional>
#include <system_error>

namespace levelwidgets {

namespace {

using State = ReadableFiles::State;

class OpenFile {
 public:
  OpenFile(ReadableFiles& files, const std::filesystem::path& path)
      : files_(files), file_(files.Open(path)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { files_.Close(file_); }

  State Now() { return files_.StateOf(file_); }
  // `size` bytes, or all when there are fewer, or one more when there are more.
  std::string Read(std::size_t size) {
    std::string text(size + 1, '\0');
    std::size_t filled = 0;
    while (filled < text.size()) {
      const std::size_t count = files_.Read(file_, text.data() + filled, text.size() - filled);
      if (count == 0) break;
      filled += count;
    }
    text.resize(filled);
    return text;
  }

 private:
  ReadableFiles& files_;
  ReadableFiles::File file_;
};

std::string Grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, ",");
  return digits;
}

void Check(const State& state, std::uint64_t largest) {
  switch (state.kind) {
    case ReadableFiles::Kind::kOrdinary: break;
    case ReadableFiles::Kind::kFolder:
      throw Unreadable(std::make_error_code(std::errc::is_a_directory).message());
    case ReadableFiles::Kind::kOther: throw Unreadable("it is a pipe or a device, not an ordinary file");
  }
  if (state.size <= largest) return;
  throw Unreadable("it has " + Grouped(state.size) + " bytes; at most " + Grouped(largest) + " are taken");
}

// Nothing when the file has changed meanwhile.
std::optional<std::string> TryToRead(ReadableFiles& files, const std::filesystem::path& path,
                                     std::uint64_t largest) {
  OpenFile file(files, path);
  const State before = file.Now();
  Check(before, largest);
  std::string text = file.Read(static_cast<std::size_t>(before.size));
  if (text.size() != before.size || file.Now() != before) return std::nullopt;
  return text;
}

}  // namespace

std::string ReadWholeFile(const std::filesystem::path& path, std::uint64_t largest, ReadableFiles& files) {
  constexpr int kAttempts = 3;
  try {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      if (auto text = TryToRead(files, path, largest)) return *std::move(text);
    }
  } catch (const std::system_error& error) {
    throw Unreadable(error.code().message());
  }
  throw Unreadable("it is being written: it changed each time while it was read");
}

}  // namespace levelwidgets
